// The file dialog on a directory of 5000 files against a plain Motif file selection box on the same, in one process on
// one server: from the call until all of it is drawn, and gone again.
// Usage: bench_files [--gate]
#include "bench/chrono.h"

#include "host_f.h"
#include "host_g.h"
#include "xt_f.h"

#include <X11/IntrinsicP.h>
#include <Xm/FileSB.h>
#include <Xm/Xm.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

constexpr int kFiles = 5000, kRounds = 9;
constexpr double kMost = 1.25, kNoise = 0.10;

Widget shown = nullptr; // the dialog to be taken away

Widget find_box(Widget root) {
    for (Cardinal i = 0; i < root->core.num_popups; ++i) {
        Widget shell = root->core.popup_list[i];
        WidgetList children = nullptr;
        Cardinal count = 0;
        XtVaGetValues(shell, XmNchildren, &children, XmNnumChildren, &count, nullptr);
        if (count > 0 && XmIsFileSelectionBox(children[0]) && XtIsManaged(children[0])) return children[0];
    }
    return nullptr;
}

bool all_drawn() {
    XSync(x11_disp, False);
    return XEventsQueued(x11_disp, QueuedAlready) == 0;
}

// Until the server has nothing more to say about the dialog: it is drawn.
void draw_all() {
    while (!all_drawn()) XtAppProcessEvent(contexte, XtIMAll);
}

void cancel_when_drawn(XtPointer parent, XtIntervalId*) {
    if (shown == nullptr) shown = find_box(static_cast<Widget>(parent));
    if (shown == nullptr || !all_drawn()) {
        XtAppAddTimeOut(contexte, 1, cancel_when_drawn, parent);
        return;
    }
    XtCallCallbacks(shown, XmNcancelCallback, nullptr);
}

void library_dialog(Widget parent, std::string& directory) {
    char message[] = "Plans", extension[] = "DAT";
    STRING texts[] = {{message, 0, 0}}, extensions[] = {{extension, 0, 0}};
    SFICHIER proposed{};
    proposed.adrs.str = directory.data();
    SFICHIER chosen{};
    INT err = 0;
    shown = nullptr;
    XtAppAddTimeOut(contexte, 0, cancel_when_drawn, parent);
    select_fichier_x11({}, proposed, {texts, extensions, 1}, &chosen, &err);
    draw_all();
}

void plain_dialog(Widget parent, const std::string& directory) {
    XmString where = XmStringCreateLocalized(const_cast<char*>(directory.c_str()));
    XmString pattern = XmStringCreateLocalized(const_cast<char*>("*.DAT"));
    Arg args[] = {{const_cast<char*>(XmNdirectory), (XtArgVal)where},
        {const_cast<char*>(XmNpattern), (XtArgVal)pattern}, {const_cast<char*>(XmNlabelFontList), (XtArgVal)fontlist},
        {const_cast<char*>(XmNbuttonFontList), (XtArgVal)fontlist},
        {const_cast<char*>(XmNtextFontList), (XtArgVal)fontlist}};
    Widget box = XmCreateFileSelectionDialog(parent, const_cast<char*>("plain"), args, XtNumber(args));
    XtManageChild(box);
    draw_all();
    XtDestroyWidget(XtParent(box));
    draw_all();
    XmStringFree(where);
    XmStringFree(pattern);
}

bool make_files(const std::string& directory) {
    for (int i = 0; i < kFiles; ++i)
        if (!std::ofstream(directory + "/file" + std::to_string(10000 + i) + ".DAT")) return false;
    return true;
}

} // namespace

int main(int argc, char** argv) {
    const bool gate = argc > 1 && std::strcmp(argv[1], "--gate") == 0;
    char name[] = "/tmp/grx_bench_XXXXXX";
    if (mkdtemp(name) == nullptr || !make_files(name)) return 2;
    std::string directory = name;
    grx_alloue_base_fenetres();
    grx_alloue_base_boutons();
    if (grx_init_application() == 0) return 2;
    GRX_FENETRE fenetre;
    grx_init_fenetre(&fenetre);
    fenetre.type = GRX_FEN_ALPHA;
    fenetre.attrib |= GRX_FEN_ATT_PRINCIPALE | GRX_FEN_ATT_VISIBLE;
    fenetre.droite = fenetre.haut = 400;
    if (grx_cree_fenetre(&fenetre) != 0) return 2;
    grx_affecte_nofen_principale(fenetre.nofen);
    Widget parent = grx_recup_objet_fen(fenetre.nofen);
    draw_all();
    const auto c = grxbench::compare(
        kRounds, [&] { plain_dialog(parent, directory); }, [&] { library_dialog(parent, directory); });
    const double ratio = c.library / c.plain;
    std::printf("%-22s plain Motif %7.1f ms  grx %7.1f ms  ratio %.2f (at most %.2f)\n", "dialog of 5000 files",
        c.plain * 1e3, c.library * 1e3, ratio, kMost);
    std::filesystem::remove_all(directory);
    return gate && ratio > kMost + kNoise ? 1 : 0;
}
