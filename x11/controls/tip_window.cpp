// The window of a tip, made at its first use and kept.
#include "controls/tip_window.h"

#include <X11/Intrinsic.h>
#include <X11/Shell.h>
#include <X11/Xatom.h>
#include <Xm/Label.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "display/pixmaps.h"
#include "pure/tip_text.h"
#include "system/shut_down.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/hidden_shell.h"
#include "toolkit/look.h"
#include "toolkit/widgets.h"
#include "xt_ini_f.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

constexpr INT kText = 1;       // reserved colours: black
constexpr INT kBackground = 3; // pale yellow
constexpr int kBorder = 1;
constexpr int kBelow = 20; // of the pointer's place: a cursor's height
constexpr int kAbove = 4;

Widget shell = nullptr;
Widget label = nullptr;

void forget_window() {
    Widget const gone = std::exchange(shell, nullptr);
    label = nullptr;
    if (gone != nullptr && x11_disp != nullptr) XtDestroyWidget(gone);
}

Pixel pixel_of(INT colour) {
    return static_cast<Pixel>(grx_recup_couleur(colour));
}

// 0 black to 255 white.
INT brightness(INT colour) {
    const INT* const rgb = palette_reserve[colour];
    return (30 * rgb[GRX_ROUGE] + 59 * rgb[GRX_VERT] + 11 * rgb[GRX_BLEU]) / 100;
}

struct Colours {
    INT text = kText;
    INT background = kBackground;
};

// Those of the library; in an application that has made others of them and of which the text could not be read, its
// darkest on its brightest.
Colours colours() {
    constexpr INT readable = 110;
    Colours chosen;
    if (std::abs(brightness(kText) - brightness(kBackground)) >= readable) return chosen;
    for (INT colour = 0; colour < GRX_NB_COULEURS_RESERVE; ++colour) {
        if (brightness(colour) < brightness(chosen.text)) chosen.text = colour;
        if (brightness(colour) > brightness(chosen.background)) chosen.background = colour;
    }
    return chosen;
}

// The colours of its shadows, of which it shows none, would else be asked of the server.
Widget make_label(Widget parent) {
    constexpr int margin = 3;
    const Pixel text = pixel_of(colours().text), background = pixel_of(colours().background);
    Args args;
    args.set(XmNfontList, fontlist).set(XmNalignment, XmALIGNMENT_BEGINNING);
    args.set(XmNmarginWidth, margin).set(XmNmarginHeight, margin).set(XmNhighlightThickness, 0);
    args.set(XmNshadowThickness, 0).set(XmNtraversalOn, False);
    args.set(XmNforeground, text).set(XmNbackground, background);
    for (const char* colour : {XmNtopShadowColor, XmNbottomShadowColor, XmNhighlightColor}) args.set(colour, text);
    return managed(XmCreateLabel(parent, const_cast<char*>("texte"), args.list(), args.count()));
}

void set_window_type(Window window) {
    static const char* const names[] = {"_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_TOOLTIP"};
    std::array<Atom, 2> atoms{};
    if (XInternAtoms(x11_disp, const_cast<char**>(names), 2, False, atoms.data()) == 0) return;
    XChangeProperty(
        x11_disp, window, atoms[0], XA_ATOM, 32, PropModeReplace, reinterpret_cast<const unsigned char*>(&atoms[1]), 1);
}

void make_window() {
    if (shell != nullptr) return;
    at_shut_down(forget_window);
    Args args;
    args.set(XmNallowShellResize, True).set(XmNborderWidth, kBorder).set(XmNborderColor, pixel_of(colours().text));
    args.set(XmNbackground, pixel_of(colours().background)).set(XmNsaveUnder, True).set(XmNwidth, 1).set(XmNheight, 1);
    set_screen(args);
    shell = XtCreatePopupShell("bulle", overrideShellWidgetClass, hidden_shell(), args.list(), args.count());
    label = make_label(shell);
    XtRealizeWidget(shell);
    set_window_type(window_of(shell));
}

void place(Size size, int x, int y) {
    const int width = size.width + 2 * kBorder, height = size.height + 2 * kBorder;
    const int screen_width = DisplayWidth(x11_disp, x11_screen), screen_height = DisplayHeight(x11_disp, x11_screen);
    const bool fits_below = y + kBelow + height <= screen_height;
    const int top = fits_below ? y + kBelow : std::min(y - kAbove, screen_height) - height;
    Args args;
    args.set(XmNx, std::max(std::min(x, screen_width - width), 0)).set(XmNy, std::max(top, 0));
    args.set(XmNwidth, size.width).set(XmNheight, size.height);
    XtSetValues(shell, args.list(), args.count());
}

} // namespace

void show_tip_window(const char* text, int x, int y) {
    std::array<char, kWrappedMost> lines{};
    wrap_tip(text, lines);
    make_window();
    const CompoundString string(lines.data());
    set_resource(label, XmNlabelString, string.get());
    place(wanted_size(label), x, y);
    XtPopup(shell, XtGrabNone);
}

void hide_tip_window() {
    if (shell != nullptr) XtPopdown(shell);
}

} // namespace grx
