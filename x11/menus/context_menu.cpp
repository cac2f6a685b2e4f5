// Context menus: built from a zone of a menu file where the application wants one, gone when they close.
#include <X11/IntrinsicP.h>
#include <X11/ShellP.h>
#include <Xm/RowColumn.h>
#include <Xm/Xm.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

#include "grx_plus_erreurs.h"
#include "grx_plus_menus.h"
#include "pure/axis.h"
#include "pure/popup_place.h"
#include "pure/text.h"
#include "system/shut_down.h"
#include "display/pixmaps.h"
#include "display/screen.h"
#include "system/trace.h"
#include "toolkit/args.h"
#include "toolkit/option_menu.h"
#include "toolkit/widgets.h"
#include "events/held_button.h"
#include "events/record.h"
#include "registry/window_table.h"
#include "menus/first_release.h"
#include "menus/menu_file.h"
#include "menus/menu_keys.h"
#include "menus/menu_parts.h"
#include "menus/menu_widgets.h"
#include "menus/posted_menu.h"
#include "xt_ini_f.h"
#include "xt_ini_t.h"

namespace {

INT holder = GRX_AUCUN;   // the window of the context menu that was opened last
Widget filling = nullptr; // the menu that is being built; the application may end its window meanwhile

// -- building

constexpr INT kDeepest = 3; // braces around the entries of the deepest menu

// The menus whose lines come at each depth, the context menu first; null when none is being built.
struct Levels {
    std::array<Widget, kDeepest> menus{};
    std::array<LI_MENU, kDeepest> opened_by{};
    int entries = 0;

    Widget& at(INT depth) { return menus[static_cast<std::size_t>(depth) - 1]; }
    LI_MENU& line(INT depth) { return opened_by[static_cast<std::size_t>(depth) - 1]; }
};

void on_chosen(Widget, XtPointer nofo, XtPointer) {
    GRX_DIGIT& record = grx::post(evt_global.bouton_appui, GRX_EVT_BOUTON_APPUI, holder);
    record.nobou = GRX_AUCUN;
    record.bouton = GRX_SOURIS_GAUCHE;
    record.no_fo = grx::number_in(nofo);
}

void manage_children(Widget menu) {
    const auto children = grx::children_of(menu);
    XtManageChildren(const_cast<WidgetList>(children.data()), static_cast<Cardinal>(children.size()));
}

// Ends the submenus whose lines come deeper than a line that stands at `depth`: their buttons come behind what was read
// before them.
void end_deeper(Levels& levels, INT depth) {
    for (INT d = kDeepest; d > depth && d > 1; --d) {
        Widget const menu = std::exchange(levels.at(d), nullptr);
        if (menu == nullptr) continue;
        manage_children(menu);
        grx::add_cascade_of_line(levels.at(d - 1), levels.line(d), menu);
    }
}

void add_entry(Levels& levels, const LI_MENU& line, Widget menu) {
    const grx::EntryText text = grx::entry_text(line.nom_fonction, line.accelerateur, line.mneumonic);
    if (grx::is_separator(text)) {
        grx::make_separator(menu);
    } else if (grx::make_entry(menu, text, nullptr, line.no_fo, on_chosen) != nullptr) {
        ++levels.entries;
    }
}

void add_line(Levels& levels, const LI_MENU& line, INT depth) {
    if (depth < 1 || depth > kDeepest || line.itype == GRX_MENU_AUCUN) return;
    end_deeper(levels, depth);
    Widget const menu = levels.at(depth);
    if (menu == nullptr) return;
    if (line.itype == GRX_MENU_ITEM) {
        add_entry(levels, line, menu);
    } else if (depth < kDeepest) {
        levels.at(depth + 1) = grx::make_menu(menu);
        levels.line(depth + 1) = line;
    }
}

Widget make_popup(Widget work) {
    grx::Args args;
    args.set(XmNpopupEnabled, XmPOPUP_DISABLED);
    grx::set_menu_look(args);
    return XmCreatePopupMenu(work, const_cast<char*>("Menu_contextuel"), args.list(), args.count());
}

// How many entries the zone has; nothing when the menu is gone.
std::optional<int> fill(Widget menu, grx::MenuZone& zone) {
    Levels levels;
    levels.at(1) = filling = menu;
    while (zone.next() && filling != nullptr) add_line(levels, zone.line(), zone.depth());
    if (std::exchange(filling, nullptr) == nullptr) return std::nullopt;
    end_deeper(levels, 1);
    manage_children(menu);
    return levels.entries;
}

// -- closing

void destroy(Widget menu) {
    grx::keep_a_cascade();
    XtDestroyWidget(XtParent(menu));
}

void forget_open_menu() {
    grx::set_open_context_menu(nullptr);
    grx::forget_first_release();
}

void on_menu_death(Widget menu, XtPointer, XtPointer) {
    if (menu == grx::open_context_menu()) {
        forget_open_menu();
        grx::close_popup(menu); // or keyboard and pointer would stay with it
    }
    if (menu == filling) filling = nullptr;
}

// The toolkit has taken it off the screen; it goes when what closed it has been dispatched.
void on_closed(Widget menu, XtPointer, XtPointer) {
    if (menu != grx::open_context_menu()) return;
    forget_open_menu();
    destroy(menu);
}

bool close_open_menu() {
    Widget const menu = grx::open_context_menu();
    if (menu == nullptr) return false;
    forget_open_menu(); // on_closed() would destroy it while the toolkit still closes it
    grx::close_popup(menu);
    destroy(menu);
    return true;
}

// -- opening

bool is_shown(Widget work) {
    XWindowAttributes attributes{};
    return grx::window_of(work) != None && XGetWindowAttributes(x11_disp, grx::window_of(work), &attributes) != 0
           && attributes.map_state == IsViewable;
}

struct RootPoint {
    int64_t x = 0;
    int64_t y = 0;
};

// The root's coordinates of a place that counts upwards in a window's work.
RootPoint root_point(Widget work, INT x, INT y) {
    int left = 0, top = 0;
    Window child = None;
    XTranslateCoordinates(x11_disp, grx::window_of(work), grx::root_window(), 0, 0, &left, &top, &child);
    return {int64_t{left} + x, int64_t{top} + grx::turn_over_y(grx::height_of(work), y)};
}

RootPoint pointer_point() {
    Window root = None, child = None;
    int x = 0, y = 0, own_x = 0, own_y = 0;
    unsigned int state = 0;
    XQueryPointer(x11_disp, grx::root_window(), &root, &child, &x, &y, &own_x, &own_y, &state);
    return {x, y};
}

// Where it was asked for, or to the other side of that.
void place(Widget menu, const RootPoint& point) {
    const grx::Size size = grx::wanted_size(menu);
    grx::Args args;
    args.set(XmNx, grx::popup_start(point.x, size.width, grx_recup_lar_ecran()));
    args.set(XmNy, grx::popup_start(point.y, size.height, grx_recup_hau_ecran()));
    XtSetValues(menu, args.list(), args.count());
}

bool post(Widget menu, const RootPoint& point) {
    if (!grx::can_grab_input(XtParent(XtParent(menu)))) return false;
    place(menu, point);
    grx::set_open_context_menu(menu);
    grx::watch_keyboard();
    XtManageChild(menu);
    if (!grx::is_posted_popup(menu)) return false;
    grx::await_first_release(menu);
    return true;
}

Widget make_menu_of(Widget work) {
    Widget const menu = make_popup(work);
    if (menu == nullptr) return nullptr;
    XtAddCallback(menu, XmNunmapCallback, on_closed, nullptr);
    XtAddCallback(menu, XmNdestroyCallback, on_menu_death, nullptr);
    return menu;
}

void close_at_shut_down() {
    close_open_menu();
    holder = GRX_AUCUN;
}

using Point = std::optional<RootPoint>; // nothing: where the pointer is

INT open_filled(INT nofen, Widget menu, grx::MenuZone& zone, const Point& point) {
    const auto entries = fill(menu, zone);
    if (!entries)
        return grx::refused(
            GRX_ECHEC_NUMERO, "nofen", nofen); // the application has ended the window in f_mess_menu_lire
    holder = nofen;
    if (*entries > 0 && post(menu, point ? *point : pointer_point())) {
        grx::held_in_window = 0;
        return 1;
    }
    grx::set_open_context_menu(nullptr);
    destroy(menu);
    return *entries > 0 ? GRX_ECHEC_OCCUPE : GRX_ECHEC_ABSENT;
}

INT refusal(INT nofen, const char* zone) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "nofen", nofen);
    if (grx::window_widget(nofen) == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "nofen", nofen);
    if (filling != nullptr) return grx::refused(GRX_ECHEC_OCCUPE, "nofen", nofen);
    if (grx::trimmed(grx::view(zone)).empty()) return grx::refused(GRX_ECHEC_PARAMETRE, "zone");
    return is_shown(grx::window_widget(nofen)) ? 1 : grx::refused(GRX_ECHEC_GENRE, "nofen", nofen);
}

void close_all_menus() {
    close_open_menu();
    grx::close_menus(grx::menu_bar());
}

INT open_at(INT nofen, const char* fichier, const char* zone, const Point& point) {
    close_all_menus();
    grx::MenuZone lines(fichier, zone);
    if (!lines) return grx::refused(GRX_ECHEC_FICHIER, "fichier");
    grx::at_shut_down(close_at_shut_down);
    Widget const menu = make_menu_of(grx::window_widget(nofen));
    return menu != nullptr ? open_filled(nofen, menu, lines, point) : GRX_ECHEC_MEMOIRE;
}

} // namespace

extern "C" {

INT grx_ouvre_menu_contextuel(INT nofen, const char* fichier, const char* zone, INT x, INT y) {
    const INT refused = refusal(nofen, zone);
    return refused == 1 ? open_at(nofen, fichier, zone, root_point(grx::window_widget(nofen), x, y)) : refused;
}

INT grx_ouvre_menu_contextuel_souris(INT nofen, const char* fichier, const char* zone) {
    const INT refused = refusal(nofen, zone);
    return refused == 1 ? open_at(nofen, fichier, zone, std::nullopt) : refused;
}

INT grx_ferme_menu_contextuel(void) {
    return close_open_menu() ? 1 : GRX_ECHEC_ABSENT;
}

INT grx_recup_fenetre_menu_contextuel(void) {
    return grx::open_context_menu() != nullptr ? holder : GRX_AUCUN;
}
}
