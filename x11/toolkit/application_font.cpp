// The one font of the application, as the toolkit wants it: a font of the server by its name, or an outline font. The toolkit
// keeps something for each window in which it has drawn with an outline font, and never lets it go; no header declares that.
#include "toolkit/application_font.h"

#include <X11/Intrinsic.h>
#include <X11/Xft/Xft.h>
#include <Xm/Display.h>
#include <Xm/LabelP.h>
#include <Xm/Xm.h>

#include <array>
#include <cstring>
#include <utility>

#include "pure/font_name.h"
#include "pure/text.h"
#include "system/block.h"
#include "system/font_setting.h"
#include "fonts/interface_font.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/locale_text.h"
#include "grx_plus_polices.h"
#include "xt_err_f.h"
#include "xt_ini_t.h"

extern "C" {
[[gnu::weak]] XftDraw* _XmXftDrawCreate(Display* display, Window window); // or the one that it keeps
[[gnu::weak]] void _XmXftDrawDestroy(Display* display, Window window, XftDraw* draw);
}

namespace {

constexpr const char* kDefaultFont = "fixed"; // the toolkit warns when the name is empty

XmFontListEntry font_entry = nullptr;
XmFontList own_fontlist = nullptr;
XFontStruct* own_fontstruct = nullptr; // else it is the toolkit's
Display* font_display = nullptr;
std::array<char, 512> loaded{}; // what a longer name has beyond is not compared

bool is_loaded(const char* name) {
    return fontlist != nullptr && font_display == x11_disp && std::strncmp(loaded.data(), name, loaded.size() - 1) == 0;
}

void note_loaded(std::string_view name) {
    font_display = x11_disp;
    grx::copy_text(loaded.data(), loaded.size(), name);
}

void load_from_server(const char* name) {
    font_entry =
        XmFontListEntryLoad(x11_disp, const_cast<char*>(name), XmFONT_IS_FONT, const_cast<char*>(grx::kFontTag));
    fontlist = own_fontlist = XmFontListAppendEntry(nullptr, font_entry);
    if (font_entry == nullptr) return;
    XmFontType kind = XmFONT_IS_FONT;
    XtPointer font = XmFontListEntryGetFont(font_entry, &kind);
    if (kind == XmFONT_IS_FONT) fontstruct = static_cast<XFontStruct*>(font);
}

// -- outline fonts

XmRendition rendition_with(const char* tag) {
    grx::Args args;
    args.set(XmNfontType, XmFONT_IS_XFT).set(XmNxftFont, grx::shared_outline_font());
    return XmRenditionCreate(XmGetXmDisplay(x11_disp), const_cast<char*>(tag), args.list(), args.count());
}

XmRenderTable outline_table() {
    std::array renditions{rendition_with(grx::kFontTag), rendition_with(grx::kGivenTag)};
    XmRenderTable table = XmRenderTableAddRenditions(nullptr, renditions.data(), renditions.size(), XmMERGE_NEW);
    for (XmRendition rendition : renditions) XmRenditionFree(rendition);
    return table;
}

void forget_drawing_in(Widget, XtPointer, XtPointer call) {
    Widget w = static_cast<XtDestroyHookDataRec*>(call)->widget;
    if (!XtIsWidget(w) || XtWindow(w) == None || XtDisplay(w) != font_display) return;
    _XmXftDrawDestroy(font_display, XtWindow(w), _XmXftDrawCreate(font_display, XtWindow(w)));
}

void watch_ends_of_widgets() {
    if (_XmXftDrawCreate == nullptr || _XmXftDrawDestroy == nullptr) return;
    XtAddCallback(XtHooksOfDisplay(x11_disp), XtNdestroyHook, forget_drawing_in, nullptr);
}

// The toolkit's own, while another stands before it.
XtExposeProc draw_label = nullptr;

// Letters may reach a pixel beyond their text.
void clear_text(Widget w, const XRectangle& text) {
    if (text.width == 0 || text.height == 0) return;
    XClearArea(XtDisplay(w), XtWindow(w), text.x - 1, text.y, text.width + 2U, text.height, False);
}

// The toolkit takes away the text of an entry before it blends it anew, but neither all of it nor that of its key. They would
// get bolder.
void draw_cleared_label(Widget w, XEvent* event, Region region) {
    const XmLabelPart& label = reinterpret_cast<XmLabelWidget>(w)->label;
    const bool entry = label.menu_type == XmMENU_PULLDOWN || label.menu_type == XmMENU_POPUP;
    if (entry && XtIsRealized(w)) {
        clear_text(w, label.TextRect);
        if (label._acc_text != nullptr) clear_text(w, label.acc_TextRect);
    }
    draw_label(w, event, region);
}

void clear_keys_of_entries() {
    if (draw_label != nullptr) return;
    draw_label = std::exchange(xmLabelClassRec.core_class.expose, draw_cleared_label);
}

void leave_keys_of_entries() {
    if (draw_label != nullptr) xmLabelClassRec.core_class.expose = std::exchange(draw_label, nullptr);
}

XFontStruct* load_near(int height) {
    const grx::Block<char> name = grx::server_font_of_height(height);
    XFontStruct* const font = name ? XLoadQueryFont(x11_disp, name.data()) : nullptr;
    return font != nullptr ? font : XLoadQueryFont(x11_disp, kDefaultFont);
}

void take_outline_font(int height) {
    fontlist = own_fontlist = outline_table();
    fontstruct = own_fontstruct = load_near(height);
    grx::use_multibyte_locale();
    watch_ends_of_widgets();
    clear_keys_of_entries();
}

void load_outline_font(std::string_view pattern) {
    int height = 0;
    switch (grx::open_outline_font(pattern, height)) {
    case grx::Outline::opened: return take_outline_font(height);
    case grx::Outline::too_plain_a_server: {
        const grx::Block<char> name = grx::server_font_of_height(height);
        return load_from_server(name ? name.data() : kDefaultFont);
    }
    case grx::Outline::not_there: break;
    }
    grx_erreur(GRX_ERR_FIC_FONTE);
    load_from_server(kDefaultFont);
}

} // namespace

namespace grx {

void load_application_font() {
    const char* const set = font_setting();
    const char* const name = set[0] != '\0' ? set : kDefaultFont;
    if (is_loaded(name)) return;
    note_loaded(name);
    if (names_outline_font(name)) return load_outline_font(outline_pattern(name));
    load_from_server(name);
}

void forget_application_font() {
    leave_keys_of_entries();
    if (own_fontlist != nullptr) XmFontListFree(std::exchange(own_fontlist, nullptr));
    if (font_entry != nullptr) XmFontListEntryFree(&font_entry);
    if (own_fontstruct != nullptr && x11_disp != nullptr) XFreeFont(x11_disp, own_fontstruct);
    close_outline_font();
    fontlist = nullptr;
    font_entry = nullptr;
    fontstruct = own_fontstruct = nullptr;
    font_display = nullptr;
    loaded = {};
}

} // namespace grx

extern "C" {

INT grx_recup_genre_police(void) {
    if (grx::outline_font() != nullptr) return GRX_POLICE_LISSE;
    return x11_disp != nullptr ? GRX_POLICE_SERVEUR : GRX_POLICE_AUCUNE;
}
}
