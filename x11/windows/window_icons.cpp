// Gives windows their icons, in all sizes, for the application.
#include <X11/Intrinsic.h>
#include <X11/Shell.h>
#include <X11/StringDefs.h>
#include <X11/Xatom.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <utility>

#include "system/block.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "display/pixmaps.h"
#include "system/trace.h"
#include "toolkit/args.h"
#include "registry/window_table.h"
#include "windows/addressed_window.h"
#include "windows/icon_pictures.h"
#include "windows/manners.h"
#include "windows/net_atoms.h"
#include "windows/shells.h"
#include "grx_plus_application.h"
#include "grx_plus_erreurs.h"
#include "xt_ini_t.h"

namespace {

constexpr int32_t kPixmapSide = 48; // what managers that know pixmaps only have room for

struct Icon {
    grx::IconPictures pictures;
    grx::IconPixmaps pixmaps; // made when first they are shown

    void clear() {
        pictures.clear();
        grx::free_icon_pixmaps(std::exchange(pixmaps, {}));
    }
};

struct Icons {
    Icon application;
    std::array<Icon, GRX_NB_FENETRES> windows;
};

grx::NeverDestroyed<Icons> icons;

Icon& own_icon(INT nofen) {
    return icons.value.windows[static_cast<std::size_t>(nofen)];
}

const Icon& icon_for(INT nofen) {
    const bool own = nofen != GRX_AUCUN && !own_icon(nofen).pictures.empty();
    return own ? own_icon(nofen) : icons.value.application;
}

// In pieces that the server takes as one request. The first replaces what was there.
void put_values(Window window, std::span<const UNSIGNED_INT> values) {
    constexpr std::size_t head = 32; // words of a request before the values, and more
    constexpr std::size_t small = 1024;
    const auto most = static_cast<std::size_t>(std::max(XExtendedMaxRequestSize(x11_disp), XMaxRequestSize(x11_disp)));
    std::array<long, small> few; // for when memory is short
    const auto large = grx::Block<long>::raw(std::min(values.size(), most - head));
    long* const wide = large ? const_cast<long*>(large.data()) : few.data();
    const std::size_t room = large ? large.size() : few.size();
    for (std::size_t at = 0; at < values.size(); at += room) {
        const auto piece = values.subspan(at, std::min(room, values.size() - at));
        std::copy(piece.begin(), piece.end(), wide);
        XChangeProperty(x11_disp, window, grx::net_atom(grx::NetAtom::icon), XA_CARDINAL, 32,
            at == 0 ? PropModeReplace : PropModeAppend, reinterpret_cast<const unsigned char*>(wide),
            static_cast<int>(piece.size()));
    }
}

void set_pixmaps(Widget shell, Pixmap picture, Pixmap mask) {
    grx::Args args;
    args.set(XmNiconPixmap, picture).set(XmNiconMask, mask);
    XtSetValues(shell, args.list(), args.count());
}

void show_none(Widget shell) {
    XDeleteProperty(x11_disp, grx::window_of(shell), grx::net_atom(grx::NetAtom::icon));
    set_pixmaps(shell, XtIsTransientShell(shell) ? None : grx::minimised_icon(), None);
}

void tell_icon(Widget shell) {
    const Icon& icon = icon_for(grx::number_of_shell(shell));
    if (icon.pictures.empty()) return;
    put_values(grx::window_of(shell), icon.pictures.values());
    set_pixmaps(shell, icon.pixmaps.picture, icon.pixmaps.mask);
}

void show_or_take_away(Widget shell) {
    if (icon_for(grx::number_of_shell(shell)).pictures.empty()) return show_none(shell);
    tell_icon(shell);
}

void tell_icon_of_new(Widget shell) {
    Icon& application = icons.value.application;
    if (application.pixmaps.picture == None)
        application.pixmaps = grx::make_icon_pixmaps(application.pictures.nearest_to(kPixmapSide));
    tell_icon(shell);
}

// The windows that have the icon of this number.
template <class Call>
void for_each_shell_of(INT nofen, const Call& call) {
    for (INT n = 1; n < MAXOBJETFEN; ++n) {
        const bool its = nofen == GRX_AUCUN ? own_icon(n).pictures.empty() : n == nofen;
        Widget shell = its ? grx::own_shell(n) : nullptr;
        if (shell != nullptr) call(shell);
    }
}

// The old pixmaps go when no window shows them any more.
void show_changed(INT nofen, Icon& icon) {
    if (x11_disp == nullptr) return;
    const grx::IconPixmaps old = std::exchange(icon.pixmaps, {});
    icon.pixmaps = grx::make_icon_pixmaps(icon.pictures.nearest_to(kPixmapSide));
    for_each_shell_of(nofen, show_or_take_away);
    grx::free_icon_pixmaps(old);
}

void forget_icons() {
    icons.value.application.clear();
    for (Icon& icon : icons.value.windows) icon.clear();
    grx::tell_shells(nullptr);
}

void shell_is_gone(Widget, XtPointer number, XtPointer) {
    own_icon(grx::number_in(number)).clear();
}

void note_use(INT nofen, Widget shell, bool first) {
    grx::at_shut_down(forget_icons);
    if (nofen == GRX_AUCUN) return grx::tell_shells(tell_icon_of_new);
    if (first) XtAddCallback(shell, XmNdestroyCallback, shell_is_gone, grx::as_client_data(nofen));
}

bool is_side(INT pixels) {
    return pixels >= 1 && pixels <= GRX_ICONE_COTE_MAX;
}

// The icon that a number names.
INT find_icon(INT nofen, Widget& shell, Icon*& icon) {
    icon = &icons.value.application;
    if (nofen == GRX_AUCUN) return 1;
    const INT result = grx::find_own_shell(nofen, shell);
    if (result == 1) icon = &own_icon(nofen);
    return result;
}

} // namespace

extern "C" {

INT grx_ajoute_icone_fenetre(INT nofen, INT largeur, INT hauteur, const UNSIGNED_INT* pixels) {
    Widget shell = nullptr;
    Icon* icon = nullptr;
    if (const INT refusal = find_icon(nofen, shell, icon); refusal != 1) return refusal;
    if (!is_side(largeur) || !is_side(hauteur) || pixels == nullptr)
        return grx::refused(GRX_ECHEC_PARAMETRE, "largeur, hauteur, pixels");
    const bool first = icon->pictures.empty();
    if (const INT refusal = icon->pictures.add({largeur, hauteur}, pixels); refusal != 1) return refusal;
    note_use(nofen, shell, first);
    show_changed(nofen, *icon);
    return 1;
}

INT grx_supprime_icones_fenetre(INT nofen) {
    Widget shell = nullptr;
    Icon* icon = nullptr;
    if (const INT refusal = find_icon(nofen, shell, icon); refusal != 1) return refusal;
    if (icon->pictures.empty()) return 1;
    icon->pictures.clear();
    if (nofen == GRX_AUCUN) grx::tell_shells(nullptr);
    if (shell != nullptr) XtRemoveCallback(shell, XmNdestroyCallback, shell_is_gone, grx::as_client_data(nofen));
    show_changed(nofen, *icon);
    return 1;
}
}
