// Layers above the drawing of a window, for everything that draws into windows, copies pictures there or reads them. A
// layer keeps its primitives. To show it, what the window shows without layers is copied from the base, a picture kept
// for it, to a sketch; the layer is drawn over that, and the sketch copied to the window, no more than what it covers.
// What draws on the screen itself takes the layers off first; they come back before the next event is read.
#pragma once

#include <X11/Xlib.h>

#include "drawing/layer_content.h"
#include "drawing/limit.h"
#include "pure/area.h"
#include "pure/size.h"
#include "host_t.h"

namespace grx {

/// True while there is a layer, or one is being drawn.
extern bool layers_there;

/// The content of the layer that is being drawn, null when it is not this window's.
LayerContent* layer_being_drawn(INT nofen);

template <auto Draw, class Primitive>
[[gnu::noinline, gnu::cold]] bool keep_if_drawn(const Primitive& p, Area (*area_of)(const Primitive&)) {
    LayerContent* const content = layer_being_drawn(p.nofen);
    if (content == nullptr) return false;
    keep_primitive<Draw>(*content, p, area_of(p));
    return true;
}

/// True when a primitive belongs to the layer that is being drawn, and was kept for it. Asked for every primitive.
template <auto Draw, class Primitive>
bool kept_in_layer(const Primitive& p, Area (*area_of)(const Primitive&) = covered_area) {
    return layers_there && keep_if_drawn<Draw>(p, area_of);
}

/// Where primitives go while layers are shown, else None.
Drawable layer_target();

void take_off(INT nofen);

/// Takes the layers of a window off the screen, because something else is drawn or read there.
inline void take_layers_off(INT nofen) {
    if (layers_there) take_off(nofen);
}

/// The same of a window of the server's.
void take_layers_off_window(Drawable window);

void show_above(Window window, Pixmap picture, const Area& part);

/// Shows the layers of a window above a part of it, to which its backing picture was copied.
inline void picture_shown(Window window, Pixmap picture, const Area& part) {
    if (layers_there) show_above(window, picture, part);
}

/// The picture of what a window shows without layers: the base when layers are shown, else one made now, which is good
/// until the next call. None when the server has no memory.
struct CleanPicture {
    Pixmap pixmap = None;
    bool base = false;
};
CleanPicture clean_picture(INT nofen, Size size);

/// Shows a window's base with the layers above.
void show_all_again(INT nofen);

/// The context that layers are copied with, without a clip.
GC plain_copies();

} // namespace grx
