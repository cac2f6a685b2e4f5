// The picture beside a message, in the colours that the screen has, for message boxes.
#pragma once

#include <X11/Intrinsic.h>

#include <array>

#include "pure/message_icons.h"

namespace grx {

class MessagePicture {
  public:
    /// Draws the picture on the background of `w`. Pixmap() is None when it cannot.
    void draw(MessageKind kind, Widget w);

    Pixmap pixmap() const { return pixmap_; }

    /// Gives back the pixmap and its colours.
    void free();

  private:
    void allocate(MessageKind kind);
    unsigned long pixel_at(MessageKind kind, int x, int y) const;

    static constexpr int kLayers = 4;

    Pixmap pixmap_ = None;
    int allocated_ = 0;
    IconColour background_{};
    std::array<unsigned long, kLayers> pixels_{}; // of the layers
    std::array<unsigned long, kLayers> cells_{};  // that were allocated for them
};

} // namespace grx
