// The menu bar of the main window: its entries and menus, from a file or one by one.
#include <Xm/RowColumn.h>
#include <Xm/Xm.h>

#include <cstdio>
#include <string_view>
#include <utility>

#include "pure/menu_line.h"
#include "pure/out.h"
#include "pure/text.h"
#include "toolkit/args.h"
#include "toolkit/option_menu.h"
#include "toolkit/widgets.h"
#include "events/record.h"
#include "menus/entry_states.h"
#include "menus/menu_file.h"
#include "menus/menu_keys.h"
#include "menus/menu_parts.h"
#include "menus/menu_widgets.h"
#include "menus/posted_menu.h"
#include "xt_err_f.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"

namespace {

// The application may destroy what it made with grx_cree_atome.
void on_entry_death(Widget entry, XtPointer, XtPointer) {
    grx::forget_menu_key(entry);
    grx::forget_entry(entry);
}

void forget_bar(Widget bar, XtPointer, XtPointer) {
    if (bar != grx::menu_bar()) return;
    grx::keep_a_cascade();         // those of the bar go when all callbacks are done
    grx::clear_menu_keys(nullptr); // the grabs go with the window
    grx::forget_menu_widgets();
    grx::forget_unkept_states();
    grx::set_menu_bar(nullptr);
}

// -- entries

// "Ctrl+S" -> "Ctrl<Key>S:", "F5" -> "<Key>F5:"; several modifiers stand before the key with blanks between.
void accelerator_translation(std::string_view text, char* out, std::size_t size) {
    const grx::KeyText parts = grx::split_accelerator(text);
    std::snprintf(out, size, "%.*s<Key>%.*s:", static_cast<int>(parts.modifiers.size()), parts.modifiers.data(),
        static_cast<int>(parts.key.size()), parts.key.data());
    for (char* c = out; *c != '\0' && *c != '<'; ++c) {
        if (*c == '+') *c = ' ';
    }
}

// An entry whose key is the bar's as well.
Widget make_bar_entry(Widget parent, const grx::EntryText& text, INT nofo) {
    char translation[2 * GRX_MENU_ACCE_MAX] = "";
    if (text.accelerator[0] != '\0') accelerator_translation(text.accelerator, translation, sizeof translation);
    const char* const shown = text.accelerator[0] != '\0' ? translation : nullptr;
    Widget entry = grx::make_entry(parent, text, shown, nofo, grx_menu_est_active);
    if (entry == nullptr) return nullptr;
    XtAddEventHandler(entry, ButtonPressMask, False, grx_menu_est_appuie, grx::as_client_data(nofo));
    grx::add_menu_key(entry, text.accelerator);
    return entry;
}

// Makes an entry or a separator, not managed yet; null when it cannot be made.
Widget make_atom(const char* texte, const char* acce, char mneu, INT nofo, Widget mere) {
    if (!grx::can_hold_children(mere) || !grx::room_for_entry()) return nullptr;
    const grx::EntryText text = grx::entry_text(texte, acce, mneu);
    Widget entry = grx::is_separator(text) ? grx::make_separator(mere) : make_bar_entry(mere, text, nofo);
    if (entry == nullptr) return nullptr;
    XtAddCallback(entry, XmNdestroyCallback, on_entry_death, nullptr);
    grx::note_entry(entry);
    return entry;
}

// -- building

struct MenuBeingBuilt {
    Widget pulldown = nullptr; // null: none is open
    LI_MENU line{};            // that opened it
};

struct Builder {
    MenuBeingBuilt top;      // of the bar
    MenuBeingBuilt sub;      // of that menu
    std::size_t managed = 0; // entries managed so far: those of a menu when it is complete, so that it is laid out once
};

MenuBeingBuilt begin_menu(Widget parent, const LI_MENU& line) {
    Widget pulldown = grx::room_for_pulldown() ? grx::make_menu(parent) : nullptr;
    if (pulldown != nullptr) grx::note_pulldown(pulldown);
    return {pulldown, line};
}

void manage_entries(Builder& b) {
    const auto entries = grx::menu_entries();
    grx::by_parent(entries.subspan(b.managed), XtManageChildren);
    b.managed = entries.size();
}

// The cascade button comes when its menu is complete, behind everything read before it.
void end_menu(Builder& b, MenuBeingBuilt& menu, Widget support) {
    Widget const pulldown = std::exchange(menu.pulldown, nullptr);
    if (pulldown == nullptr) return;
    manage_entries(b);
    Widget cascade = grx::add_cascade_of_line(support, menu.line, pulldown);
    if (cascade != nullptr) grx::note_cascade(cascade);
}

void end_sub(Builder& b) {
    end_menu(b, b.sub, b.top.pulldown);
}

void end_top(Builder& b) {
    end_sub(b);
    end_menu(b, b.top, grx::menu_bar());
}

void add_entry(const LI_MENU& line, Widget pulldown) {
    if (pulldown != nullptr && line.itype == GRX_MENU_ITEM)
        make_atom(line.nom_fonction, line.accelerateur, line.mneumonic, line.no_fo, pulldown);
}

void build_in_bar(Builder& b, const LI_MENU& line) {
    if (line.itype == GRX_MENU_POPUP) {
        end_top(b);
        b.top = begin_menu(grx::menu_bar(), line);
    }
    add_entry(line, b.top.pulldown);
}

void build_in_menu(Builder& b, const LI_MENU& line) {
    end_sub(b); // the closing brace of a submenu comes here as well
    if (line.itype == GRX_MENU_POPUP && b.top.pulldown != nullptr) b.sub = begin_menu(b.top.pulldown, line);
    add_entry(line, b.top.pulldown);
}

void build_line(Builder& b, const LI_MENU& line, INT depth) {
    switch (depth) {
    case 1: build_in_bar(b, line); break;
    case 2: build_in_menu(b, line); break;
    case 3: add_entry(line, b.sub.pulldown); break;
    default: break;
    }
}

Widget make_bar(Widget parent) {
    if (!grx::can_hold_children(parent)) return nullptr;
    grx::Args args;
    grx::set_menu_look(args);
    return XmCreateMenuBar(parent, const_cast<char*>("Menu_bar"), args.list(), args.count());
}

// Makes the bar that keys and grx_detruit_menu_bar are for; one made before stays where it is, and is forgotten.
Widget make_main_bar(Widget parent) {
    grx::start_entries();
    grx::forget_menus();
    grx::clear_menu_keys(nullptr);
    Widget bar = make_bar(parent);
    grx::set_menu_bar(bar);
    if (bar == nullptr) return nullptr;
    XtAddCallback(bar, XmNdestroyCallback, forget_bar, nullptr);
    grx::watch_keys_of_bar(parent);
    return bar;
}

void fill_bar(grx::MenuFile& file) {
    Builder builder;
    while (file.next()) build_line(builder, file.line(), file.depth());
    end_top(builder);
    XtManageChild(grx::menu_bar());
}

// False, and an error is told, when there is no menu file.
bool is_open(const grx::MenuFile& file) {
    if (!file) grx_erreur(GRX_ERR_FIC_MENU);
    return static_cast<bool>(file);
}

} // namespace

extern "C" {

INT grx_cree_menu_bar(Widget parent) {
    grx::MenuFile file;
    if (is_open(file) && grx::can_hold_children(parent) && make_main_bar(parent) != nullptr) fill_bar(file);
    return 0;
}

INT grx_detruit_menu_bar(void) {
    grx::close_menus(grx::menu_bar()); // the toolkit goes on with menus that go while they are open
    grx::clear_menu_keys(grx::top_manager());
    if (grx::menu_bar() != nullptr) grx::keep_a_cascade();
    grx::destroy_entries();
    grx::destroy_menus();
    grx::forget_menu_widgets(); // also a bar of menus without entries
    if (grx::menu_bar() != nullptr) grx::forget_unkept_states();
    return 0;
}

INT grx_recree_menu_bar(void) {
    if (grx::menu_bar() == nullptr) return 0;
    grx::MenuFile file;
    if (!is_open(file) || grx::menu_bar() == nullptr) return 0; // the host may take it down as it opens the file
    grx::start_entries();
    fill_bar(file);
    return 0;
}

Widget grx_debut_menu_bar(Widget mere) {
    return make_bar(mere);
}

Widget grx_debut_sous_menu_bar(Widget mere) {
    return grx::make_menu(mere);
}

Widget grx_fin_sous_menu_bar(char* texte, Widget mere, Widget support) {
    return grx::add_cascade(support, texte, mere);
}

INT grx_cree_atome(char* texte, char* acce, char mneu, int nofo, Widget mere) {
    grx::managed(make_atom(texte, acce, mneu, nofo, mere));
    return 0;
}

INT grx_fin_menu_bar(void) {
    if (!grx::menu_entries().empty()) grx::forget_menu_widgets();
    return 0;
}

Widget grx_get_Glob_menu_bar(void) {
    return grx::menu_bar();
}

INT grx_recup_taille_menu_bar(INT, INT* lar, INT* hau) {
    const grx::Size size = grx::menu_bar() != nullptr ? grx::size_of(grx::menu_bar()) : grx::Size{};
    grx::give(lar, size.width);
    grx::give(hau, size.height);
    return 0;
}

INT grx_recup_tamenubar(void) {
    INT width = 0, height = 0;
    grx_recup_taille_menu_bar(grx_recup_nofen_principale(), &width, &height);
    return height;
}

void grx_menu_est_active(Widget, XtPointer client_data, XtPointer) {
    const INT nofo = grx::number_in(client_data);
    GRX_DIGIT& record = grx::post(evt_global.bouton_appui, GRX_EVT_BOUTON_APPUI, grx_recup_nofen_principale());
    record.bouton = GRX_SOURIS_GAUCHE;
    record.no_fo = nofo;
}

void grx_menu_est_appuie(Widget, XtPointer, XEvent*, Boolean*) {
    // kept as a hook
}
}
