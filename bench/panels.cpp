// Panels against plain Motif making the same widgets, in one process on one server.
// Usage: bench_panels [--gate]
#include "bench/report.h"

#include "host_f.h"
#include "host_g.h"
#include "xt_f.h"

#include <Xm/DrawnB.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/Scale.h>
#include <Xm/Separator.h>
#include <Xm/TextF.h>
#include <Xm/ToggleB.h>
#include <Xm/Xm.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <numeric>
#include <string>
#include <vector>

namespace {

constexpr INT kItems = 40, kMany = 250, kEntries = 10000, kLong = 30000, kKey = 5;
constexpr int kRounds = 9;

INT open_window(bool visible = true) {
    GRX_FENETRE fenetre;
    grx_init_fenetre(&fenetre);
    fenetre.type = GRX_FEN_ALPHA;
    fenetre.droite = fenetre.haut = 700;
    if (!visible) fenetre.attrib &= ~GRX_FEN_ATT_VISIBLE;
    return grx_cree_fenetre(&fenetre) == 0 ? fenetre.nofen : -1;
}

// All that was made is drawn.
void show() {
    GRX_EVENEMENT event;
    do {
        while (XtAppPending(contexte) != 0) grx_digitaliseur(&event, 0);
        XSync(x11_disp, False);
    } while (XtAppPending(contexte) != 0);
}

void close_window(INT nofen) {
    show();
    grx_detruit_fenetre(nofen);
    show();
}

constexpr std::array<INT, 8> kKinds{10, 20, 21, 31, 32, 22, 81, 90};
char kText[] = "Units-mm-cm-m";

INT column(INT item) {
    return 100 + item % 4 * 150;
}
INT row(INT item) {
    return item / 4 * 60;
}
INT kind(INT item) {
    return kKinds[static_cast<std::size_t>(item) % kKinds.size()];
}

// --- the library's side

void library_item(INT nofen, INT item, INT type) {
    GRX_MSG message{};
    grx_init_message(&message);
    message.type = type;
    message.clef = item % kItems;
    message.nobou = 0;
    message.prebou = item;
    message.fen_mere = nofen;
    message.x = column(item);
    message.y = row(item);
    message.nb_cara = 5;
    message.largeur = message.hauteur = 5;
    std::strcpy(message.titre, kText);
    grx_cree_item(&message);
}

void library_panel() {
    const INT nofen = open_window();
    for (INT item = 0; item < kItems; ++item) library_item(nofen, item, kind(item));
    close_window(nofen);
    grx_supprime_items(0);
}

// Items of one kind in a window that is on show, or is shown when they are there.
void library_items(INT type, INT count, bool on_show) {
    const INT nofen = open_window(on_show);
    show();
    for (INT item = 0; item < count; ++item) library_item(nofen, item, type);
    if (!on_show) grx_affiche_fenetre(nofen);
    close_window(nofen);
    grx_supprime_items(0);
    for (INT key = 0; key < kItems; ++key) grx_supprime_item_liste(0, key);
}

void items_of_every_kind(INT count) {
    for (const INT type : {10, 20, 21, 22, 23, 31, 32, 33, 50, 60, 70, 81, 90, 100}) library_items(type, count, true);
}

// --- the plain side: the same widgets, resources and handlers

using Resources = std::vector<Arg>;

void happened(Widget, XtPointer, XtPointer) {}
void seen(Widget, XtPointer, XEvent*, Boolean*) {}

template <class Value>
void set(Resources& args, const char* name, Value value) {
    args.push_back({const_cast<char*>(name), (XtArgVal)value});
}

Resources placed(INT item) {
    Resources args;
    set(args, XmNx, column(item));
    set(args, XmNy, row(item));
    return args;
}

XmString text_of(const char* text) {
    return XmStringCreateLtoR(const_cast<char*>(text), const_cast<char*>("tag1"));
}

using Creator = Widget (*)(Widget, char*, ArgList, Cardinal);

Widget plain_control(Creator create, Widget parent, Resources args, const char* callback, const char* text = "Units") {
    const XmString label = text_of(text);
    set(args, XmNlabelString, label);
    set(args, XmNfontList, fontlist);
    set(args, XmNrecomputeSize, False);
    set(args, XmNcolormap, x11_cmap);
    set(args, XmNdepth, profondeur_ecran);
    set(args, XmNvisual, x11_vis);
    set(args, XmNhighlightThickness, 0);
    Widget w = create(parent, const_cast<char*>(text), args.data(), static_cast<Cardinal>(args.size()));
    XmStringFree(label);
    if (callback != nullptr) XtAddCallback(w, callback, happened, nullptr);
    XtAddEventHandler(w,
        KeyPressMask | ButtonPressMask | ButtonReleaseMask | EnterWindowMask | LeaveWindowMask | PointerMotionMask
            | ButtonMotionMask | OwnerGrabButtonMask,
        False, seen, nullptr);
    XtManageChild(w);
    return w;
}

Resources sized(INT item, INT width, INT height) {
    Resources args = placed(item);
    set(args, XmNwidth, width);
    set(args, XmNheight, height);
    return args;
}

Widget plain_support(Widget parent, INT item) {
    Resources args = placed(item);
    return XmCreateForm(parent, const_cast<char*>("support"), args.data(), static_cast<Cardinal>(args.size()));
}

void hang(Widget below, Widget title) {
    XtVaSetValues(below, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, title, nullptr);
}

void plain_toggles(Widget parent, INT item) {
    Widget form = plain_support(parent, item);
    Widget title = plain_control(XmCreateLabel, form, {}, nullptr);
    Widget box = XmCreateRadioBox(form, const_cast<char*>("box"), nullptr, 0);
    for (const char* text : {"mm", "cm", "m"})
        plain_control(XmCreateToggleButton, box, {}, XmNvalueChangedCallback, text);
    hang(box, title);
    XtManageChild(box);
    XtManageChild(form);
}

void plain_choice(Widget parent, INT item) {
    Widget form = plain_support(parent, item);
    Widget title = plain_control(XmCreateLabel, form, {}, nullptr);
    Widget menu = XmCreatePulldownMenu(form, const_cast<char*>("menu"), nullptr, 0);
    for (const char* text : {"mm", "cm", "m"}) plain_control(XmCreatePushButton, menu, {}, XmNactivateCallback, text);
    const XmString none = text_of("");
    Resources args;
    set(args, XmNsubMenuId, menu);
    set(args, XmNlabelString, none);
    set(args, XmNfontList, fontlist);
    Widget option =
        XmCreateOptionMenu(form, const_cast<char*>("option"), args.data(), static_cast<Cardinal>(args.size()));
    XmStringFree(none);
    XtVaSetValues(option, XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget, title, nullptr);
    XtManageChild(option);
    XtManageChild(form);
}

void plain_scale(Widget parent, INT item, INT w, INT h) {
    Resources args = sized(item, 5 * w, 5 * h);
    set(args, XmNscaleWidth, 5 * w);
    set(args, XmNscaleHeight, 5 * h);
    set(args, XmNmaximum, 100);
    set(args, XmNorientation, XmHORIZONTAL);
    XtAddCallback(
        plain_control(XmCreateScale, parent, args, XmNvalueChangedCallback), XmNdragCallback, happened, nullptr);
}

void plain_field(Widget parent, INT item, INT w, INT h) {
    plain_control(XmCreateLabel, parent, sized(item, 6 * w, h), nullptr);
    Resources args = sized(item, 6 * w, h);
    set(args, XmNcolumns, 5);
    XtAddCallback(
        plain_control(XmCreateTextField, parent, args, XmNactivateCallback), XmNlosingFocusCallback, happened, nullptr);
}

void plain_item(Widget parent, INT item) {
    const INT w = grx_recup_lar_carac_alpha(), h = grx_recup_hau_carac_alpha();
    switch (kind(item)) {
    case 10: plain_field(parent, item, w, h); break;
    case 20:
        plain_control(XmCreateDrawnButton, parent, sized(item, 2 * w, 2 * w), XmNactivateCallback);
        plain_control(XmCreateLabel, parent, placed(item), nullptr);
        break;
    case 21: plain_toggles(parent, item); break;
    case 31: plain_choice(parent, item); break;
    case 32: plain_scale(parent, item, w, h); break;
    case 22: plain_control(XmCreateDrawnButton, parent, sized(item, 14 * w, h), XmNactivateCallback, kText); break;
    case 81: plain_control(XmCreateSeparator, parent, sized(item, w / 2, h / 2), nullptr); break;
    default: plain_control(XmCreateLabel, parent, placed(item), nullptr, kText); break;
    }
}

void plain_panel() {
    const INT nofen = open_window(); // its cost is the same on both sides
    Widget form = XmCreateForm(grx_recup_objet_fen(nofen), const_cast<char*>("plain"), nullptr, 0);
    XtManageChild(form);
    for (INT item = 0; item < kItems; ++item) plain_item(form, item);
    close_window(nofen);
}

// --- lists

std::vector<std::array<char, 80>> entries(kLong);
std::vector<INT> positions(kLong);

INT make_list(INT nofen, INT count, INT type) {
    GRX_MSG message{};
    grx_init_message(&message);
    message.clef = kKey + GRX_BASE_CLEF_LISTE;
    message.type = type;
    message.nb_cara = count;
    message.nobou = 0;
    message.fen_mere = nofen;
    message.x = message.y = 10;
    message.largeur = message.hauteur = 400;
    lnstate[kKey] = count;
    grx_cree_item_liste(&message);
    return nofen;
}

void library_list() {
    close_window(make_list(open_window(), kEntries, GRX_LISTE_SIMPLE));
    grx_supprime_item_liste(0, kKey);
}

// A list of which `selected` entries are selected at first; one of its entries is changed.
void changed_list(INT selected) {
    listate[kKey] = selected;
    const INT nofen = make_list(open_window(), kLong, GRX_LISTE_MULTIPLE);
    show();
    grx_modif_un_item_liste(kKey, 3);
    close_window(nofen);
    grx_supprime_item_liste(0, kKey);
    listate[kKey] = 0;
}

void plain_list() {
    const INT nofen = open_window();
    std::vector<XmString> items;
    items.reserve(kEntries);
    for (const auto& entry : entries) items.push_back(text_of(entry.data()));
    Resources args;
    set(args, XmNitems, items.data());
    set(args, XmNitemCount, kEntries);
    set(args, XmNfontList, fontlist);
    set(args, XmNwidth, 400);
    set(args, XmNheight, 400);
    set(args, XmNlistSizePolicy, XmCONSTANT);
    set(args, XmNselectionPolicy, XmSINGLE_SELECT);
    Widget list = XmCreateScrolledList(
        grx_recup_objet_fen(nofen), const_cast<char*>("list"), args.data(), static_cast<Cardinal>(args.size()));
    for (const XmString item : items) XmStringFree(item);
    XtAddCallback(list, XmNsingleSelectionCallback, happened, nullptr);
    XtManageChild(list);
    close_window(nofen);
}

void fill_host_list() {
    std::iota(positions.begin(), positions.end(), 0);
    lcstate[kKey] = positions.data();
    for (std::size_t i = 0; i < entries.size(); ++i)
        std::snprintf(entries[i].data(), entries[i].size(), "entry number %zu of many", i);
    lsstate[kKey] = reinterpret_cast<CH80*>(entries.data());
}

} // namespace

int main(int argc, char** argv) {
    const bool gate = argc > 1 && std::strcmp(argv[1], "--gate") == 0;
    grx_alloue_base_fenetres();
    grx_alloue_base_boutons();
    if (grx_init_application() == 0) return 2;
    std::array<ITEM_PANEL, kMany> items{};
    PANEL panel{};
    panel.nb_items = kMany;
    panel.tab_items = items.data();
    if (grx_alloue_base_items_panels(1, &panel) != 0) return 2;
    fill_host_list();
    using grxbench::compare;
    grxbench::report("panel of 40 items", compare(kRounds, plain_panel, library_panel), 1.5);
    grxbench::report("250 items of kind 20 on show",
        compare(
            kRounds, [] { library_items(GRX_ITEM_BOUTON, kMany, false); },
            [] { library_items(GRX_ITEM_BOUTON, kMany, true); }),
        1.5, "not yet shown", "shown");
    grxbench::report_growth("60 and 120 items of every kind", 3, 60, items_of_every_kind, 2.6);
    grxbench::report("list of 10000 entries", compare(kRounds, plain_list, library_list), 1.25);
    grxbench::report("30000 entries, all selected",
        compare(
            kRounds, [] { changed_list(0); }, [] { changed_list(kLong); }),
        2.0, "none", "all");
    return gate && grxbench::above > 0 ? 1 : 0;
}
