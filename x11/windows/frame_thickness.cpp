// Works out from the settings how thick the window manager's frame around a window is, for the placing of windows.
#include "windows/frame_thickness.h"

#include <algorithm>

#include "pure/axis.h"
#include "xt_fen_t.h"
#include "xt_ini_f.h"

namespace {

bool titled(INT attributes) {
    return (attributes & GRX_FEN_ATT_SANS_TITRE) == 0;
}

INT title_height(bool title) {
    return title ? grx_get_tatitre() : 0;
}

INT border_of_new_window(INT attributes) {
    if ((attributes & GRX_FEN_ATT_SANS_BORD) != 0) return 0;
    if ((attributes & GRX_FEN_ATT_SANS_RESIZE) != 0) return grx_get_tabord_sans_resize();
    return titled(attributes) ? grx_get_tabord() : grx_get_tabord_sans_titre();
}

INT border_of_message_window(INT attributes) {
    if ((attributes & GRX_FEN_ATT_SANS_BORD) != 0) return 0;
    return titled(attributes) ? grx_get_tabord() : grx_get_tabord() - 1; // KEEP: one pixel less without a title
}

} // namespace

namespace grx {

FrameThickness frame_of_new_window(INT attributes) {
    return {border_of_new_window(attributes), title_height(titled(attributes))};
}

FrameThickness frame_of_message_window(INT attributes) {
    return {border_of_message_window(attributes), title_height(titled(attributes))};
}

FrameThickness frame_with(bool title, bool handles) {
    if (title) return {handles ? grx_get_tabord() : grx_get_tabord_sans_resize(), title_height(true)};
    return {handles ? grx_get_tabord_sans_titre() : grx_get_tabord_sans_decor(), title_height(false)};
}

Size with_frame(Size client, const FrameThickness& frame) {
    return {saturated(int64_t{std::max(client.width, 0)} + 2 * int64_t{frame.border}),
        saturated(int64_t{std::max(client.height, 0)} + 2 * int64_t{frame.border} + frame.title)};
}

} // namespace grx
