// Start-up and the global display state.
#include "xt_prive.h"

#include <X11/Shell.h>
#include <X11/StringDefs.h>
#include <Xm/DisplayP.h>
#include <Xm/DragDrop.h>
#include <Xm/DropSMgrP.h>
#include <Xm/Xm.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <utility>

#include "toolkit/args.h"
#include "display/pixmaps.h"
#include "events/record.h"
#include "windows/shell_place.h"
#include "toolkit/compound_string.h"
#include "pure/palette.h"
#include "xt_bou_f.h"
#include "xt_ent_f.h"
#include "xt_err_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"

Display* x11_disp = nullptr;
XtAppContext contexte = nullptr;
Visual* x11_vis = nullptr;
Colormap x11_cmap = None;
INT x11_screen = 0;
XmFontList fontlist = nullptr;
XFontStruct* fontstruct = nullptr;
GC g_c = nullptr;
GC gc = nullptr;
XVisualInfo vtemp{};
INT profondeur_ecran = 0;
INT prof_24 = 1;
INT dec_red = 0;
INT dec_green = 0;
INT dec_blue = 0;
INT lar_ecran = 0;
INT hau_ecran = 0;
INT lar_ecran_mm = 0;
INT hau_ecran_mm = 0;
INT nbr_xpel_crt = 0;
INT nbr_ypel_crt = 0;

namespace {

constexpr int kMaxErrorText = 80;
char last_error_text[kMaxErrorText] = "";
INT error_count = 0;

// What the application had installed before; null when that was Xlib's own.
XErrorHandler application_errors = nullptr;
XIOErrorHandler application_end = nullptr;

XmFontListEntry font_entry = nullptr;

// Arguments of the application as the toolkit sees them; it keeps the address.
constexpr std::size_t kNameBuffer = 20;
char* arguments[2] = {nullptr, nullptr};

const Widget kReservedWindow = reinterpret_cast<Widget>(-2L);

} // namespace

namespace grx {

const char* last_x_error_text() {
    return last_error_text;
}

INT x_error_count() {
    return error_count;
}

} // namespace grx

extern "C" {

int erreur_systeme(Display* disp, XErrorEvent* evt);
int erreur_io_systeme(Display* disp);

int erreur_systeme(Display* disp, XErrorEvent* evt) {
    static bool telling = false; // the application's may call the one that it found, which is this one
    if (telling) return 0;
    XGetErrorText(disp, evt->error_code, last_error_text, kMaxErrorText);
    ++error_count;
    if (application_errors == nullptr) return 0;
    telling = true;
    application_errors(disp, evt);
    telling = false;
    return 0;
}

int erreur_io_systeme(Display* disp) {
    if (application_end != nullptr) std::exchange(application_end, nullptr)(disp);
    return 0; // Xlib ends the process after this
}
}

namespace {

// Installs ours, and remembers the one before unless it is ours or Xlib's own, which nothing but null brings back.
template <class Handler>
void install(Handler (*set)(Handler), Handler ours, Handler& application) {
    Handler before = set(nullptr);
    Handler of_xlib = set(ours);
    if (before != ours && before != of_xlib) application = before;
}

void install_error_handlers() {
    install(XSetErrorHandler, erreur_systeme, application_errors);
    install(XSetIOErrorHandler, erreur_io_systeme, application_end);
}

bool open_display() {
    if (arguments[0] == nullptr) arguments[0] = static_cast<char*>(std::malloc(kNameBuffer));
    if (arguments[0] == nullptr) return false;
    std::snprintf(arguments[0], kNameBuffer, "HB");
    int count = 1;
    XtToolkitInitialize();
    contexte = XtCreateApplicationContext();
    x11_disp = XtOpenDisplay(contexte, nullptr, nullptr, nullptr, nullptr, 0, &count, arguments);
    if (x11_disp == nullptr) return false;
    x11_screen = DefaultScreen(x11_disp);
    install_error_handlers(); // Xlib's own would end the process on the first refused colour
    return true;
}

// The toolkit counts the shells on its display object and destroys it, with everything set on it, when the last one
// goes; the next shell would wait for forty answers of the server. One that never goes is counted here.
void keep_display_object() {
    ++reinterpret_cast<XmDisplayRec*>(XmGetXmDisplay(x11_disp))->display.shellCount;
}

// What the toolkit and Xlib would ask the server for one by one, each with an answer to wait for.
void intern_names_at_once() {
    static const char* const names[] = {
        "_MOTIF_DEFAULT_BINDINGS", "WM_LOCALE_NAME", "WM_CLIENT_LEADER", "UTF8_STRING", "STRING"};
    Atom atoms[std::size(names)];
    XInternAtoms(x11_disp, const_cast<char**>(names), std::size(names), False, atoms);
}

void no_drop_site(XmDropSiteManagerObject, Widget, ArgList, Cardinal) {}
void no_drop_site_there(XmDropSiteManagerObject, Widget) {}

// Text fields offer themselves to drags even when nothing can be dropped: the first asks the server for tables that all
// applications share, and makes them on a connection of its own when they are not there.
void offer_no_drop_sites() {
    XmDropSiteManagerClassPart& sites = xmDropSiteManagerClassRec.dropManager_class;
    sites.createInfo = sites.updateInfo = sites.retrieveInfo = no_drop_site;
    sites.destroyInfo = sites.startUpdate = sites.endUpdate = no_drop_site_there;
}

// A press of the second mouse button on a label would otherwise start a drag that takes over the event loop.
void turn_off_drag_and_drop() {
    Widget display_object = XmGetXmDisplay(x11_disp);
    grx::set_resource(display_object, XmNdragInitiatorProtocolStyle, XmDRAG_NONE);
    grx::set_resource(display_object, XmNdragReceiverProtocolStyle, XmDRAG_NONE);
    offer_no_drop_sites();
}

void load_font() {
    static Display* display = nullptr;
    static CH40 loaded = "";
    CH40 name = "";
    grx_recup_font(name);
    if (name[0] == '\0') std::snprintf(name, sizeof name, "fixed"); // the toolkit warns about an empty name
    if (fontlist != nullptr && display == x11_disp && std::strcmp(loaded, name) == 0) return;
    display = x11_disp;
    std::memcpy(loaded, name, sizeof loaded);
    font_entry = XmFontListEntryLoad(x11_disp, name, XmFONT_IS_FONT, const_cast<char*>(grx::kFontTag));
    fontlist = XmFontListAppendEntry(nullptr, font_entry);
    if (font_entry == nullptr) return;
    XmFontType kind = XmFONT_IS_FONT;
    XtPointer font = XmFontListEntryGetFont(font_entry, &kind);
    if (kind == XmFONT_IS_FONT) fontstruct = static_cast<XFontStruct*>(font);
}

bool choose_true_colour() {
    constexpr int planes = 24;
    if (prof_24 == 0 || !XMatchVisualInfo(x11_disp, x11_screen, planes, TrueColor, &vtemp)) return false;
    profondeur_ecran = vtemp.depth;
    dec_red = decode_decalage(vtemp.red_mask);
    dec_green = decode_decalage(vtemp.green_mask);
    dec_blue = decode_decalage(vtemp.blue_mask);
    x11_vis = vtemp.visual;
    grx_init_colormap_24_plans();
    return true;
}

bool choose_pseudo_colour() {
    if (!XMatchVisualInfo(x11_disp, x11_screen, GRX_PROFONDEUR_8, PseudoColor, &vtemp)) return false;
    profondeur_ecran = GRX_PROFONDEUR_8;
    dec_red = dec_green = dec_blue = 0;
    x11_vis = vtemp.visual;
    grx_init_colormap_8_plans(); // KEEP: start-up goes on with whatever cells were had
    return true;
}

struct PixelSize {
    INT width = 0;
    INT height = 0;
};

GRX_BOUTON probe_button(INT type, INT window, const char* title, INT no_fo) {
    GRX_BOUTON bouton;
    grx_init_bouton(&bouton);
    bouton.type = type;
    bouton.fen_mere = window;
    bouton.attrib = GRX_BOU_ATT_VISIBLE;
    bouton.x = bouton.y = 0;
    bouton.no_fo = no_fo;
    grx::copy_text(bouton.titre, title);
    return bouton;
}

PixelSize size_and_destroy(INT nobou) {
    PixelSize size;
    grx_recup_taille_bouton(nobou, &size.width, &size.height);
    grx_detruit_bouton(nobou);
    return size;
}

void measure_scroll_bar(INT window) {
    const INT thickness = grx_recup_taille_scrollbar(window);
    if (thickness > 0) grx_affecte_largeur_scrollbar(thickness);
}

bool measure_fields(INT window) {
    GRX_BOUTON one = probe_button(GRX_BOU_TEXTE, window, "test", 0);
    GRX_BOUTON two = probe_button(GRX_BOU_TEXTE, window, "test", 1);
    // Read-only ones are as large, and the toolkit opens no input method for them.
    one.attrib |= GRX_BOU_ATT_TEXTE_LECTURE;
    two.attrib |= GRX_BOU_ATT_TEXTE_LECTURE;
    one.tabi[GRX_BOU_TABI_COLONNES] = 1;
    two.tabi[GRX_BOU_TABI_COLONNES] = 2;
    two.x = two.y = 10;
    if (grx_cree_bouton(&one) != 0) return false;
    const bool complete = grx_cree_bouton(&two) == 0;
    const PixelSize first = size_and_destroy(one.nobou);
    if (!complete) return false;
    const PixelSize second = size_and_destroy(two.nobou);
    const INT character = second.width - first.width;
    grx_affecte_hau_carac_alpha(first.height);
    grx_affecte_lar_carac_alpha(character);
    grx_affecte_lar_sup_alpha(first.width - character);
    return true;
}

void measure_label(INT window) {
    GRX_BOUTON label = probe_button(GRX_BOU_LABEL, window, "A", GRX_AUCUN);
    if (grx_cree_bouton(&label) != 0) return;
    grx_affecte_hau_exact_carac_alpha(size_and_destroy(label.nobou).height);
}

INT create_probe_window() {
    constexpr INT side = 150;
    GRX_FENETRE fenetre;
    grx_init_fenetre(&fenetre);
    fenetre.x = fenetre.y = 0;
    fenetre.droite = fenetre.haut = side;
    fenetre.type = GRX_FEN_ALPHA;
    fenetre.attrib = GRX_FEN_ATT_SCROLL;
    grx::copy_text(fenetre.titre, "ALPHA");
    return grx_cree_fenetre(&fenetre) == 0 ? fenetre.nofen : GRX_AUCUN;
}

// -- contexts

// The drawing context before the present one, which an application may still hold.
GC former_g_c = nullptr;

// Contexts of windows that are gone, in use still.
std::array<GC, 2> contexts_left{};

GC new_drawing_context(Window window) {
    XGCValues values{};
    values.function = GXcopy;
    values.line_width = 0;
    values.graphics_exposures = False; // a copy would queue an event that a polling application sees
    unsigned long mask = GCFunction | GCLineWidth | GCGraphicsExposures;
    if (fontstruct != nullptr) {
        values.font = fontstruct->fid;
        mask |= GCFont;
    }
    return XCreateGC(x11_disp, window, mask, &values);
}

GC new_xor_context() {
    XGCValues values{};
    values.subwindow_mode = IncludeInferiors;
    values.foreground = WhitePixel(x11_disp, x11_screen);
    values.function = GXxor;
    values.line_width = 0;
    values.line_style = LineSolid;
    values.cap_style = CapNotLast;
    values.join_style = JoinRound;
    values.graphics_exposures = False;
    const unsigned long mask = GCSubwindowMode | GCForeground | GCFunction | GCLineWidth | GCLineStyle | GCCapStyle
                               | GCJoinStyle | GCGraphicsExposures;
    return XCreateGC(x11_disp, DefaultRootWindow(x11_disp), mask, &values);
}

bool context_in_use(GC context) {
    return context == g_c || context == former_g_c;
}

void free_contexts_left() {
    for (GC& context : contexts_left) {
        if (context == nullptr || context_in_use(context)) continue;
        XFreeGC(x11_disp, context);
        context = nullptr;
    }
}

void release_context(Widget, XtPointer client, XtPointer) {
    GC const context = static_cast<GC>(client);
    if (!context_in_use(context)) {
        XFreeGC(x11_disp, context);
        return;
    }
    for (GC& left : contexts_left) {
        if (left != nullptr) continue;
        left = context;
        return;
    }
}

} // namespace

namespace grx {

void give_context(Widget shell) {
    GC const before = g_c;
    grx_init_gc(shell);
    if (g_c != before) XtAddCallback(shell, XmNdestroyCallback, release_context, g_c);
}

} // namespace grx

extern "C" {

INT decode_decalage(unsigned long mask) {
    return grx::lowest_bit(mask);
}

INT grx_init_application(void) {
    if (!open_display()) {
        grx_erreur(GRX_ERR_DISPLAY);
        return 0;
    }
    intern_names_at_once();
    turn_off_drag_and_drop();
    keep_display_object();
    grx::watch_places_of_shells(x11_disp);
    if (grx_init_graphique() == 0) return 0;
    grx_recup_taille_ecran(&lar_ecran, &hau_ecran);
    grx_recup_taille_ecran_mm(&lar_ecran_mm, &hau_ecran_mm);
    grx_init_param_graphique();
    grx_init_objet_fen();
    grx_affecte_objet_fen(0, kReservedWindow);
    grx_affecte_carac_fenetre_systeme();
    return 1;
}

INT grx_init_graphique(void) {
    if (x11_disp == nullptr) return 0;
    load_font();
    if (!choose_true_colour() && !choose_pseudo_colour()) {
        grx_erreur(GRX_ERR_TABLE_COULEURS);
        return 0;
    }
    grx_definit_tous_curseurs();
    grx_change_couleur_curseur(GRX_CURS_CROIX, recup_couleur_mire());
    install_error_handlers();
    return 1;
}

INT grx_init_param_graphique(void) {
    grx_init_memo_attrib();
    grx_init_sauvegarde_fenetre();
    return 0;
}

INT grx_init_sauvegarde_fenetre(void) {
    for (INT nofen = 0; nofen < MAXOBJETFEN; ++nofen) {
        if (GRX_SAUVE_ZONE* slot = grx::save_slot(nofen)) *slot = GRX_SAUVE_ZONE{};
    }
    return 0;
}

INT grx_gere_application(void) {
    if (contexte != nullptr && x11_disp != nullptr) XtAppMainLoop(contexte);
    return 0;
}

INT grx_init_gc(Widget shell) {
    const Window window = grx::window_of(shell);
    if (window == None) return 0;
    former_g_c = g_c; // KEEP: it stays usable
    g_c = new_drawing_context(window);
    free_contexts_left();
    if (gc == nullptr) gc = new_xor_context();
    grx_init_memo_attrib();
    return 0;
}
INT grx_affecte_carac_fenetre_systeme(void) {
    const GRX_EVENEMENT pending = evt_global; // the probes' destruction is nobody's event
    const INT window = create_probe_window();
    if (window < 0) return 0;
    measure_scroll_bar(window);
    if (measure_fields(window)) measure_label(window);
    grx_detruit_fenetre(window);
    evt_global = pending;
    return 0;
}

INT grx_recup_taille_ecran(INT* lar, INT* hau) {
    if (x11_disp == nullptr) return 0;
    if (lar != nullptr) *lar = DisplayWidth(x11_disp, x11_screen);
    if (hau != nullptr) *hau = DisplayHeight(x11_disp, x11_screen);
    return 0;
}

INT grx_recup_taille_ecran_mm(INT* lar_mm, INT* hau_mm) {
    if (x11_disp == nullptr) return 0;
    if (lar_mm != nullptr) *lar_mm = DisplayWidthMM(x11_disp, x11_screen);
    if (hau_mm != nullptr) *hau_mm = DisplayHeightMM(x11_disp, x11_screen);
    return 0;
}

INT grx_recup_lar_ecran(void) {
    return lar_ecran;
}

INT grx_recup_hau_ecran(void) {
    return hau_ecran;
}

INT grx_recup_lar_ecran_mm(void) {
    return lar_ecran_mm;
}

INT grx_recup_hau_ecran_mm(void) {
    return hau_ecran_mm;
}

INT grx_recup_profondeur_ecran(void) {
    return profondeur_ecran;
}

INT grx_affecte_profondeur_ecran(INT profondeur) {
    profondeur_ecran = profondeur;
    return 0;
}

INT grx_put_nbr_xpel_crt(INT nbr) {
    nbr_xpel_crt = nbr;
    return 0;
}

INT grx_put_nbr_ypel_crt(INT nbr) {
    nbr_ypel_crt = nbr;
    return 0;
}

INT grx_get_nbr_xpel_crt(void) {
    return nbr_xpel_crt;
}

INT grx_get_nbr_ypel_crt(void) {
    return nbr_ypel_crt;
}

INT grx_is_objet_valide(Widget w) {
    return w != nullptr ? 1 : 0;
}
}
