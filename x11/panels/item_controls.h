// What the builders of panel items share.
#pragma once

#include <cstdint>
#include <string_view>

#include "xt_bou_t.h"
#include "xt_msg_t.h"

namespace grx::items {

/// An item being built. The first failure to record a button is its result.
struct Item {
    explicit Item(const GRX_MSG& msg);
    const GRX_MSG& message;
    INT panel;
    INT number;
    INT result;
};

// -- sizes

constexpr INT kTenths = 10; // icons and separators are measured in tenths of a character

/// Pixels, as many as the toolkit can hold.
INT product(INT count, INT size, INT parts = 1);
INT character_width();
INT line_height();
INT in_characters(INT count, INT cell); // a size that is not given stays so
INT text_width(const char* text);
INT moved(INT coordinate, int64_t by);

// -- controls

/// The function number that a key has above the base of its kind.
INT numbered(INT key, INT base);
INT attributes_of(const Item& item); // insensitive when the message says so

/// The description of a control in the place of the item.
GRX_BOUTON control(const Item& item, INT type, INT attributes);
GRX_BOUTON label_of(const Item& item, const char* text);

/// Creates a control and records it with its item; its number, GRX_AUCUN when that failed.
INT add(Item& item, GRX_BOUTON& bou, char role);

// -- icons: "@ name" names one of the icon directory

bool names_icon(std::string_view text);
std::string_view shown_text(std::string_view text); // the name of the icon, or the text
void show_icon(INT nobou, std::string_view text);   // nothing for a text that names none

} // namespace grx::items
