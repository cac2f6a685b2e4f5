// Where texts of drawings go, and what of it can be seen.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"
#include "pure/size.h"
#include "display/render.h"
#include "xt_gfx_t.h"

namespace grx {

struct TextTarget {
    INT result = 1; // or why there is none
    Drawable drawable = None;
    Widget owner = nullptr; // of a window; null for a picture
    Size size;              // at least as large as the target
    bool held = false;      // to a rectangle
    XRectangle rectangle{};
};

/// The server's picture of a target, held to the target's rectangle as long as this lives.
class SoftTarget {
  public:
    explicit SoftTarget(const TextTarget& target);
    ~SoftTarget();
    SoftTarget(const SoftTarget&) = delete;
    SoftTarget& operator=(const SoftTarget&) = delete;
    Picture picture() const { return picture_; }

  private:
    Picture picture_;
    bool held_;
};

/// Chooses the target of a window, or control, and applies the attributes.
TextTarget text_target(INT nofen, const GRX_ATTRIBUTS_TRACER& attrib);
TextTarget button_text_target(INT nobou, const GRX_ATTRIBUTS_TRACER& attrib);

} // namespace grx
