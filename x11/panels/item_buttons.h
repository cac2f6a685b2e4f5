// The buttons of panel items, for those who build items.
#pragma once

#include <cstddef>

#include "xt_pan_t.h"

namespace grx {

/// What a button is to its item.
constexpr char kItemLabel = 0;
constexpr char kItemChoice = 1;

constexpr std::size_t kMostButtons = 255; // what the count of a record can hold

constexpr INT kKindsInFamily = 10; // the last digit of an item's kind tells those of one family apart

/// The record of an item; null for one that the tables do not have.
BOUTONS_PANEL* item_record(INT ipan, INT item);

constexpr bool is_composite_kind(INT type) {
    return type == GRX_ITEM_BASCULES || type == GRX_ITEM_BASCULES_HORIZ || type == GRX_ITEM_CHOIX;
}

} // namespace grx
