// The pictures of one icon, in the sizes that the application gave, for the file that shows icons.
#pragma once

#include <X11/Xlib.h>

#include "host_t.h"
#include "pure/icon_picture.h"
#include "system/block.h"

namespace grx {

/// The sizes of an icon one after the other, as window managers want them: width, height, pixels.
class IconPictures {
  public:
    /// Adds a picture, or replaces that of the same size; 1, or the code of why not.
    INT add(Size size, const UNSIGNED_INT* pixels);
    void clear() { values_.reset(); }
    bool empty() const { return !values_; }
    std::span<const UNSIGNED_INT> values() const { return values_.span(); }
    /// The picture whose longest side is nearest to `side`.
    IconPicture nearest_to(int32_t side) const;

  private:
    template <class See>
    void for_each(const See& see) const;

    Block<UNSIGNED_INT> values_;
};

/// The two pixmaps of an icon for managers that know no others; None for both when there is no picture.
struct IconPixmaps {
    Pixmap picture = None;
    Pixmap mask = None;
};

/// Makes them, in the depth of the root where its colours are made of masks, else in black and white.
IconPixmaps make_icon_pixmaps(const IconPicture& picture);

void free_icon_pixmaps(const IconPixmaps& pixmaps);

} // namespace grx
