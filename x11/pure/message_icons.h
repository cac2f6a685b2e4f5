// The pictures of messages, told point by point: a drawing that any number of colours can show. For message boxes.
#pragma once

#include <cstdint>

namespace grx {

enum class MessageKind : std::uint8_t { Information, Warning, Error, Question };

/// What a point of a picture shows, from the back to the front.
enum class IconLayer : std::uint8_t { Background, Edge, Fill, Sign };

/// The layer at a point; a picture goes from 0 to 1, y downwards.
IconLayer icon_layer(MessageKind kind, double x, double y);

struct IconColour {
    unsigned char red, green, blue;
};

/// The colour of a layer; that of the background is the window's.
IconColour icon_colour(MessageKind kind, IconLayer layer);

} // namespace grx
