// Controls and menus against plain Motif making the same, in one process on one server.
// Usage: bench_controls [--gate]
#include "bench/chrono.h"
#include "bench/session.h"

#include "host_f.h"
#include "host_g.h"
#include "xt_f.h"

#include <Xm/CascadeB.h>
#include <Xm/MainW.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/Xm.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kButtons = 900, kMenus = 8, kEntries = 12;
constexpr int kRounds = 9;
constexpr double kNoise = 0.10;
int above = 0;

INT open_window(INT attributes) {
    constexpr INT side = 600;
    return grxbench::make_window(GRX_FEN_BOUTONS, side, side, attributes);
}

void report(const char* name, const grxbench::Comparison& c, double most) {
    const double ratio = c.library / c.plain;
    std::printf("%-22s plain Motif %7.1f ms  grx %7.1f ms  ratio %.2f (at most %.2f)\n", name, c.plain * 1e3,
        c.library * 1e3, ratio, most);
    if (ratio > most + kNoise) ++above;
}

void place(GRX_BOUTON& button, int i) {
    button.x = i % 30 * 20;
    button.y = i / 30 * 20;
    button.largeur = button.hauteur = 18;
}

void library_buttons(INT nofen) {
    std::array<INT, kButtons> numbers{};
    for (int i = 0; i < kButtons; ++i) {
        GRX_BOUTON button;
        grx_init_bouton(&button);
        button.type = GRX_BOU_SIMPLE;
        button.fen_mere = nofen;
        place(button, i);
        std::strcpy(button.titre, "b");
        grx_cree_bouton(&button);
        numbers[static_cast<std::size_t>(i)] = button.nobou;
    }
    XSync(x11_disp, False);
    for (const INT number : numbers) grx_detruit_bouton(number);
    XSync(x11_disp, False);
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

void plain_buttons(Widget parent) {
    std::array<Widget, kButtons> widgets{};
    for (int i = 0; i < kButtons; ++i) widgets[static_cast<std::size_t>(i)] = plain_button(parent, i);
    XSync(x11_disp, False);
    for (Widget w : widgets) XtDestroyWidget(w);
    XSync(x11_disp, False);
}

std::string menu_file() {
    std::string text = "#:ZONE_MENU_BAR\n{\n";
    for (int m = 0; m < kMenus; ++m) {
        text += "POPUP||Menu" + std::to_string(m) + "|\n{\n";
        for (int i = 0; i < kEntries; ++i)
            text += "ITEM||Entree " + std::to_string(i) + "||" + std::to_string(i) + "|\n";
        text += "}\n";
    }
    return text + "}\n";
}

void plain_menus(Widget bar) {
    std::vector<Widget> made;
    char tag[] = "tag1";
    const auto labelled = [&tag](const std::string& text) {
        std::string copy = text;
        return XmStringCreateLtoR(copy.data(), tag);
    };
    for (int m = 0; m < kMenus; ++m) {
        Widget pulldown = XmCreatePulldownMenu(bar, const_cast<char*>("Sous_menu_bar"), nullptr, 0);
        for (int i = 0; i < kEntries; ++i) {
            XmString label = labelled("Entree " + std::to_string(i));
            Arg args[] = {{const_cast<char*>(XmNlabelString), (XtArgVal)label},
                {const_cast<char*>(XmNfontList), (XtArgVal)fontlist}};
            Widget entry = XmCreatePushButton(pulldown, const_cast<char*>("atome"), args, 2);
            XtAddEventHandler(entry, ButtonPressMask, False, happened, nullptr);
            XtAddCallback(entry, XmNactivateCallback, pressed, nullptr);
            XtManageChild(entry);
            made.push_back(entry);
            XmStringFree(label);
        }
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
    XSync(x11_disp, False);
    for (Widget w : made) XtDestroyWidget(w);
    XSync(x11_disp, False);
}

void library_menus() {
    grx_recree_menu_bar();
    XSync(x11_disp, False);
    grx_detruit_menu_bar();
    XSync(x11_disp, False);
}

bool write_menu(const char* directory) {
    FILE* const file = std::fopen((std::string(directory) + "/MNU_COMM.DAT").c_str(), "w");
    if (file == nullptr) return false;
    std::fputs(menu_file().c_str(), file);
    return std::fclose(file) == 0;
}

} // namespace

int main(int argc, char** argv) {
    const bool gate = argc > 1 && std::strcmp(argv[1], "--gate") == 0;
    char directory[] = "/tmp/grx_bench_XXXXXX";
    if (mkdtemp(directory) == nullptr || !write_menu(directory)) return 2;
    sstate[SST_REP_MENU] = directory;
    if (!grxbench::start_library()) return 2;
    const INT nofen = open_window(0);
    report("900 push buttons",
        grxbench::compare(
            kRounds, [&] { plain_buttons(grx_recup_objet_fen(nofen)); }, [&] { library_buttons(nofen); }),
        1.15);
    const INT main_window = open_window(GRX_FEN_ATT_PRINCIPALE);
    grx_affecte_nofen_principale(main_window);
    grx_detruit_menu_bar();
    report("8 menus of 12 entries",
        grxbench::compare(
            kRounds, [] { plain_menus(grx_get_Glob_menu_bar()); }, library_menus),
        1.2);
    std::remove((std::string(directory) + "/MNU_COMM.DAT").c_str());
    rmdir(directory);
    return gate && above > 0 ? 1 : 0;
}
