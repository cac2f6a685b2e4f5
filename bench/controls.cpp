// Controls and menus against plain Motif making the same, in one process on one server.
// Usage: bench_controls [--gate]
#include "bench/report.h"
#include "bench/session.h"

#include "host_f.h"
#include "host_g.h"
#include "xt_f.h"

#include <Xm/BulletinB.h>
#include <Xm/CascadeB.h>
#include <Xm/List.h>
#include <Xm/MainW.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/Xm.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <malloc.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kButtons = 900, kMost = 999, kMenus = 8, kEntries = 12;
constexpr int kRounds = 9;
constexpr INT kSide = 600;
std::string menu_directory;

// Two of them are seen side by side.
INT open_window(INT kind, INT x, INT attributes = 0) {
    GRX_FENETRE fenetre;
    grx_init_fenetre(&fenetre);
    fenetre.type = kind;
    fenetre.attrib |= attributes;
    fenetre.x = x;
    fenetre.droite = fenetre.haut = kSide;
    return grx_cree_fenetre(&fenetre) == 0 ? fenetre.nofen : GRX_AUCUN;
}

// All that was asked for has happened.
void settle() {
    GRX_EVENEMENT event;
    do {
        while (XtAppPending(contexte) != 0) grx_digitaliseur(&event, 0);
        XSync(x11_disp, False);
    } while (XtAppPending(contexte) != 0);
}

void place(GRX_BOUTON& button, int i) {
    button.x = i % 30 * 20;
    button.y = i / 30 * 20;
    button.largeur = button.hauteur = 18;
}

void place_overlapping(GRX_BOUTON& button, int i) {
    place(button, i);
    button.x = i % 7;
    button.y = i % 5;
}

using Placing = void (*)(GRX_BOUTON&, int);

// Made hidden, shown and destroyed, one by one.
void library_buttons(INT nofen, int count, Placing put = place) {
    std::vector<INT> numbers;
    for (int i = 0; i < count; ++i) {
        GRX_BOUTON button;
        grx_init_bouton(&button);
        button.type = GRX_BOU_SIMPLE;
        button.fen_mere = nofen;
        put(button, i);
        std::strcpy(button.titre, "b");
        grx_cree_bouton(&button);
        numbers.push_back(button.nobou);
    }
    for (const INT number : numbers) grx_affiche_bouton(number);
    settle();
    for (const INT number : numbers) grx_detruit_bouton(number);
    settle();
}

void pressed(Widget, XtPointer, XtPointer) {}
void happened(Widget, XtPointer, XEvent*, Boolean*) {}

// What the application would write by hand: the same resources, the callback and the event handler.
Widget plain_button(Widget parent, int i) {
    GRX_BOUTON where;
    place(where, i);
    char text[] = "b", tag[] = "tag1";
    XmString label = XmStringCreateLtoR(text, tag);
    std::vector<Arg> args;
    const auto add = [&args](const char* name, auto value) {
        args.push_back({const_cast<char*>(name), (XtArgVal)value});
    };
    add(XmNx, where.x);
    add(XmNy, where.y);
    add(XmNlabelString, label);
    add(XmNfillOnArm, 1);
    add(XmNfontList, fontlist);
    add(XmNrecomputeSize, False);
    add(XmNcolormap, x11_cmap);
    add(XmNdepth, profondeur_ecran);
    add(XmNvisual, x11_vis);
    add(XmNheight, where.hauteur);
    add(XmNwidth, where.largeur);
    add(XmNmarginWidth, 2);
    add(XmNmarginHeight, 2);
    add(XmNhighlightThickness, 0);
    Widget w = XmCreatePushButton(parent, text, args.data(), static_cast<Cardinal>(args.size()));
    XmStringFree(label);
    XtAddCallback(w, XmNactivateCallback, pressed, nullptr);
    XtAddEventHandler(w,
        KeyPressMask | ButtonPressMask | ButtonReleaseMask | EnterWindowMask | LeaveWindowMask | PointerMotionMask
            | ButtonMotionMask | OwnerGrabButtonMask,
        False, happened, nullptr);
    XtManageChild(w);
    return w;
}

void plain_buttons(Widget parent, int count) {
    std::vector<Widget> widgets;
    for (int i = 0; i < count; ++i) widgets.push_back(plain_button(parent, i));
    settle();
    for (Widget w : widgets) XtDestroyWidget(w);
    settle();
}

Widget plain_board(INT nofen) {
    Arg args[] = {{const_cast<char*>(XmNwidth), kSide}, {const_cast<char*>(XmNheight), kSide},
        {const_cast<char*>(XmNmarginWidth), 0}, {const_cast<char*>(XmNmarginHeight), 0}};
    Widget board = XmCreateBulletinBoard(grx_recup_objet_fen(nofen), const_cast<char*>("plain"), args, 4);
    XtManageChild(board);
    return board;
}

// Buttons of the library in a window of a kind against those of the toolkit in a bulletin board.
void compare_buttons(const char* name, INT kind, int count, double most) {
    const INT ours = open_window(kind, 0), theirs = open_window(GRX_FEN_BOUTONS, kSide + 20);
    Widget board = plain_board(theirs);
    settle();
    grxbench::report(name,
        grxbench::compare(
            kRounds, [&] { plain_buttons(board, count); }, [&] { library_buttons(ours, count); }),
        most);
    grx_detruit_fenetre(ours);
    grx_detruit_fenetre(theirs);
    settle();
}

void grow_buttons(const char* name, int n, Placing put) {
    const INT form = open_window(GRX_FEN_ALPHA, 0);
    settle();
    grxbench::report_growth(
        name, kRounds, n, [&](int count) { library_buttons(form, count, put); }, 2.6);
    grx_detruit_fenetre(form);
    settle();
}

std::string menu_file(int menus, int entries) {
    std::string text = "#:ZONE_MENU_BAR\n{\n";
    for (int m = 0; m < menus; ++m) {
        text += "POPUP||Menu" + std::to_string(m) + "|\n{\n";
        for (int i = 0; i < entries; ++i)
            text += "ITEM||Entree " + std::to_string(i) + "||" + std::to_string(i) + "|\n";
        text += "}\n";
    }
    return text + "}\n";
}

// A menu is managed when it is complete and destroyed as a whole.
void plain_menus(Widget bar, int menus, int entries) {
    std::vector<Widget> made, in_menu;
    char tag[] = "tag1";
    const auto labelled = [&tag](const std::string& text) {
        std::string copy = text;
        return XmStringCreateLtoR(copy.data(), tag);
    };
    for (int m = 0; m < menus; ++m) {
        in_menu.clear();
        Widget pulldown = XmCreatePulldownMenu(bar, const_cast<char*>("Sous_menu_bar"), nullptr, 0);
        for (int i = 0; i < entries; ++i) {
            XmString label = labelled("Entree " + std::to_string(i));
            Arg args[] = {{const_cast<char*>(XmNlabelString), (XtArgVal)label},
                {const_cast<char*>(XmNfontList), (XtArgVal)fontlist}};
            Widget entry = XmCreatePushButton(pulldown, const_cast<char*>("atome"), args, 2);
            XtAddEventHandler(entry, ButtonPressMask, False, happened, nullptr);
            XtAddCallback(entry, XmNactivateCallback, pressed, nullptr);
            in_menu.push_back(entry);
            XmStringFree(label);
        }
        XtManageChildren(in_menu.data(), static_cast<Cardinal>(in_menu.size()));
        XmString label = labelled("Menu" + std::to_string(m));
        Arg args[] = {{const_cast<char*>(XmNlabelString), (XtArgVal)label},
            {const_cast<char*>(XmNfontList), (XtArgVal)fontlist},
            {const_cast<char*>(XmNsubMenuId), (XtArgVal)pulldown}};
        Widget cascade = XmCreateCascadeButton(bar, const_cast<char*>("Fin sous_menu"), args, 3);
        XtManageChild(cascade);
        XmStringFree(label);
        made.push_back(cascade);
        made.push_back(pulldown);
    }
    settle();
    for (Widget w : made) XtDestroyWidget(w);
    settle();
}

bool write_menu(int menus, int entries) {
    FILE* const file = std::fopen((menu_directory + "/MNU_COMM.DAT").c_str(), "w");
    if (file == nullptr) return false;
    std::fputs(menu_file(menus, entries).c_str(), file);
    return std::fclose(file) == 0;
}

void library_menus() {
    grx_recree_menu_bar();
    settle();
    grx_detruit_menu_bar();
    settle();
}

void compare_menus(const char* name, int menus, int entries, double most) {
    write_menu(menus, entries);
    grxbench::report(name,
        grxbench::compare(
            kRounds, [=] { plain_menus(grx_get_Glob_menu_bar(), menus, entries); }, library_menus),
        most);
}

// --- lists

INT library_list(INT nofen, int count) {
    GRX_BOUTON list;
    grx_init_bouton(&list);
    list.type = GRX_BOU_LISTE;
    list.fen_mere = nofen;
    list.x = list.y = 0;
    list.largeur = list.hauteur = kSide / 2;
    grx_cree_bouton(&list);
    for (int i = 0; i < count; ++i) grx_ajoute_element_dans_liste(list.nobou, ("entry " + std::to_string(i)).data());
    settle();
    return list.nobou;
}

Widget plain_list(Widget parent, int count) {
    Arg args[] = {{const_cast<char*>(XmNwidth), kSide / 2}, {const_cast<char*>(XmNheight), kSide / 2},
        {const_cast<char*>(XmNlistSizePolicy), XmCONSTANT}, {const_cast<char*>(XmNfontList), (XtArgVal)fontlist}};
    Widget list = XmCreateScrolledList(parent, const_cast<char*>("list"), args, 4);
    XtManageChild(list);
    char tag[] = "tag1";
    for (int i = 0; i < count; ++i) {
        XmString item = XmStringCreateLtoR(("entry " + std::to_string(i)).data(), tag);
        XmListAddItemUnselected(list, item, 1);
        XmStringFree(item);
    }
    settle();
    return list;
}

void compare_lists() {
    constexpr int entries = 4000, rounds = 3;
    const INT ours = open_window(GRX_FEN_BOUTONS, 0), theirs = open_window(GRX_FEN_BOUTONS, kSide + 20);
    settle();
    grxbench::report("list filled with 4000 entries",
        grxbench::compare(
            rounds, [&] { XtDestroyWidget(plain_list(grx_recup_objet_fen(theirs), entries)); },
            [&] { grx_detruit_bouton(library_list(ours, entries)); }),
        1.1);
    grx_detruit_fenetre(ours);
    grx_detruit_fenetre(theirs);
    settle();
}

// What rebuilding a menu leaves behind, for each entry each time: the toolkit keeps a little.
void measure_memory_of_menus() {
    constexpr int entries = 2000, rounds = 10;
    constexpr double most = 16;
    write_menu(1, entries);
    for (int i = 0; i < rounds; ++i) library_menus(); // tables of the toolkit grow once
    const auto before = static_cast<double>(mallinfo2().uordblks);
    for (int i = 0; i < rounds; ++i) library_menus();
    const double left = (static_cast<double>(mallinfo2().uordblks) - before) / entries / rounds;
    std::printf(
        "%-34s %.1f bytes an entry and rebuilding (at most %.0f)\n", "memory of a menu of 2000 entries", left, most);
    if (left > most) ++grxbench::above;
}

void measure_menus() {
    grx_affecte_nofen_principale(open_window(GRX_FEN_BOUTONS, 0, GRX_FEN_ATT_PRINCIPALE));
    grx_detruit_menu_bar();
    settle();
    compare_menus("8 menus of 12 entries", kMenus, kEntries, 1.2);
    compare_menus("a menu of 2000 entries", 1, 2000, 2.0);
    compare_menus("50 menus of 50 entries", 50, 50, 2.0);
    grxbench::report_growth(
        "a menu of 1000 and of 2000 entries", kRounds, 1000,
        [](int entries) {
            write_menu(1, entries);
            library_menus();
        },
        2.6);
    measure_memory_of_menus();
}

} // namespace

int main(int argc, char** argv) {
    const bool gate = argc > 1 && std::strcmp(argv[1], "--gate") == 0;
    char directory[] = "/tmp/grx_bench_XXXXXX";
    if (mkdtemp(directory) == nullptr) return 2;
    menu_directory = directory;
    sstate[SST_REP_MENU] = directory;
    if (!write_menu(kMenus, kEntries) || !grxbench::start_library()) return 2;
    compare_buttons("900 push buttons", GRX_FEN_BOUTONS, kButtons, 1.15);
    compare_buttons("999 in a form, plain in a board", GRX_FEN_ALPHA, kMost, 5.0);
    grow_buttons("499 and 998 in a form", kMost / 2, place);
    grow_buttons("100 and 200 that overlap", 100, place_overlapping);
    measure_menus();
    compare_lists();
    std::remove((menu_directory + "/MNU_COMM.DAT").c_str());
    rmdir(directory);
    return gate && grxbench::above > 0 ? 1 : 0;
}
