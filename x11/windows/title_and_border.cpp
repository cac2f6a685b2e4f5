// Takes the title bar and the border of a window away and gives them back while the window is there, for the
// application.
#include <X11/Intrinsic.h>
#include <Xm/Xm.h>

#include "pure/axis.h"
#include "pure/decorations.h"
#include "pure/size.h"
#include "display/pixmaps.h"
#include "toolkit/args.h"
#include "toolkit/widgets.h"
#include "windows/frame.h"
#include "windows/frame_thickness.h"
#include "windows/stack_place.h"
#include "xt_ent_f.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"

namespace {

// Bits of the shell's decorations. The bit for all of them is always set, so that each other bit takes one away.
constexpr INT kTitleBits = grx::mwm::title | grx::mwm::menu;
constexpr INT kBorderBits = grx::mwm::handles;

struct Operation {
    INT bits;
    bool removes; // otherwise it toggles the bits
    bool flushes;
};

// How much a window grows when a part of the frame goes: its left and upper edge move outwards, its size grows.
struct Growth {
    int64_t left, top;
    int64_t width, height;
};

Growth growth_between(const grx::FrameThickness& with, const grx::FrameThickness& without) {
    const int64_t border = int64_t{with.border} - without.border;
    const int64_t title = int64_t{with.title} - without.title;
    return {border, title + border, 2 * border, title + 2 * border};
}

Growth growth_without(INT bits, INT decorations) {
    if (bits == kTitleBits) return growth_between(grx::frame_with(true, true), grx::frame_with(false, true));
    const bool titled = (decorations & grx::mwm::title) == 0;
    return growth_between(grx::frame_with(titled, true), grx::frame_with(titled, false));
}

INT changed(INT decorations, const Operation& operation) {
    return operation.removes ? decorations | operation.bits : decorations ^ operation.bits; // KEEP: showing toggles
}

void resize(Widget shell, int64_t width, int64_t height) {
    grx::set_size(shell, {grx::as_size(width), grx::as_size(height)});
}

// The window manager looks at the decorations of a window only when the window is mapped.
void map_again(Widget shell) {
    const Window window = grx::window_of(shell);
    XWindowAttributes attributes{};
    if (window == None || XGetWindowAttributes(x11_disp, window, &attributes) == 0) return;
    if (attributes.map_state == IsUnmapped) return; // a hidden window gets the decorations when it is shown
    XUnmapWindow(x11_disp, window);
    XMapWindow(x11_disp, window);
}

// Remembers where a window stands and puts it there again. The place counts from the lower left corner of the screen. A
// window manager takes the place that is asked for as that of the frame, so that the frame stays. Without a window
// manager the server is asked for the place and not the toolkit, because after a resize the toolkit takes the place of
// the window's contents for that of the shell.
class SavedPlace {
  public:
    SavedPlace(INT nofen, Widget shell) : nofen_(nofen), shell_(shell), framed_(grx::in_frame(shell)) {
        grx_recup_position_fenetre(nofen, &left_, &top_);
        seen_top_ = seen_top();
    }
    bool is_unchanged() const { return seen_top() == seen_top_; }
    void keep_frame(int64_t outwards, int64_t upwards) const {
        if (framed_) outwards = upwards = 0;
        grx::move_shell(shell_, grx::saturated(left_ - outwards), grx::saturated(top_ + upwards));
    }

  private:
    INT seen_top() const {
        if (framed_) return grx::resource<Position>(shell_, XmNy);
        INT left = 0, top = 0;
        grx_recup_position_fenetre(nofen_, &left, &top);
        return top;
    }

    INT nofen_;
    Widget shell_;
    bool framed_;
    INT left_ = 0, top_ = 0, seen_top_ = 0;
};

void change_decorations(INT nofen, const Operation& operation) {
    Widget shell = grx_recherche_shell(grx_recup_objet_fen(nofen));
    if (shell == nullptr) return;
    const grx::Size size = grx::size_of(shell);
    const SavedPlace before(nofen, shell);
    const INT decorations = changed(grx::resource<int>(shell, XmNmwmDecorations), operation);
    grx::set_resource(shell, XmNmwmDecorations, decorations);
    if (operation.flushes) grx_flush_tous_evenements();
    const Growth growth = growth_without(operation.bits, decorations);
    const INT sign = operation.removes ? 1 : -1;
    if (grx::size_of(shell).height == size.height)
        resize(shell, size.width + sign * growth.width, size.height + sign * growth.height);
    grx::StackPlace stack(grx::window_of(shell));
    map_again(shell);
    if (before.is_unchanged()) before.keep_frame(sign * growth.left, sign * growth.top);
    stack.restore();
}

} // namespace

extern "C" {

INT grx_active_modifications_shell(INT nofen) {
    grx_recherche_shell(grx_recup_objet_fen(nofen)); // KEEP: this has no effect
    return 0;
}

INT grx_supprime_titre_fenetre(INT nofen) {
    change_decorations(nofen, {kTitleBits, true, false}); // KEEP: the other functions here handle events, this does not
    return 0;
}

INT grx_affiche_titre_fenetre(INT nofen) {
    change_decorations(nofen, {kTitleBits, false, true});
    return 0;
}

INT grx_supprime_bord_fenetre(INT nofen) {
    change_decorations(nofen, {kBorderBits, true, true});
    return 0;
}

INT grx_affiche_bord_fenetre(INT nofen) {
    change_decorations(nofen, {kBorderBits, false, true});
    return 0;
}
}
