// A display behind a line of 50 ms there and back: what a user waits for, by the library and by a plain Motif program
// that does the same. Usage: bench_far_display [--gate]   (--gate: fail when the library takes clearly more than 1.15
// times as long, or waits for an answer while it draws)
#include "bench/chrono.h"
#include "bench/session.h"
#include "bench/slow_line.h"

#include "host_f.h"
#include "host_g.h"
#include "xt_f.h"

#include <X11/Xlibint.h>
#undef min
#undef max
#include <X11/extensions/XTest.h>
#include <Xm/CascadeB.h>
#include <Xm/DrawingA.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/MainW.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/TextF.h>
#include <Xm/Xm.h>
#include <dlfcn.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

constexpr std::chrono::milliseconds kOneWay{25};
constexpr double kMostRatio = 1.15;
constexpr double kNoise = 0.05;
constexpr int kRounds = 2;
constexpr int kWidth = 600, kHeight = 400, kRows = 8, kSegments = 2000;

int trips = 0; // answers waited for

// --- what both sides do alike -------------------------------------------------------------------------------------

XtAppContext app = nullptr;
Display* far_away = nullptr; // through the line
Display* nearby = nullptr;   // for the hand of the user, and to see what the server shows
void (*step)() = nullptr;    // one event handled, when there is one

bool shown(Widget w) {
    XWindowAttributes attributes{};
    return w != nullptr && XtWindow(w) != None && XGetWindowAttributes(nearby, XtWindow(w), &attributes) != 0
           && attributes.map_state == IsViewable;
}

template <class Condition>
void handle_until(Condition condition) {
    while (!condition()) {
        if (XtAppPending(app) != 0) {
            step();
        } else {
            pollfd connection{ConnectionNumber(far_away), POLLIN, 0};
            poll(&connection, 1, 2);
        }
    }
}

void click(Widget w) {
    int x = 0, y = 0;
    Window child = None;
    XTranslateCoordinates(nearby, XtWindow(w), DefaultRootWindow(nearby), 5, 5, &x, &y, &child);
    XTestFakeMotionEvent(nearby, -1, x, y, CurrentTime);
    XTestFakeButtonEvent(nearby, 1, True, CurrentTime);
    XTestFakeButtonEvent(nearby, 1, False, CurrentTime);
    XSync(nearby, False);
}

void happened(Widget, XtPointer done, XtPointer) {
    *static_cast<bool*>(done) = true;
}

Widget first_child(Widget w) {
    WidgetList children = nullptr;
    XtVaGetValues(w, XmNchildren, &children, nullptr);
    return children[0];
}

// The first menu opened with one click, its first entry chosen with another.
double choose_from(Widget bar) {
    Widget cascade = first_child(bar);
    Widget menu = nullptr;
    XtVaGetValues(cascade, XmNsubMenuId, &menu, nullptr);
    Widget entry = first_child(menu);
    bool chosen = false;
    XtAddCallback(entry, XmNactivateCallback, happened, &chosen);
    return grxbench::seconds([&] {
        click(cascade);
        handle_until([&] { return shown(entry); });
        click(entry);
        handle_until([&] { return chosen; });
    });
}

struct Waited {
    double first_picture = 0, panel = 0, menu = 0, redraw = 0;
    int trips_of_start = 0, trips_of_drawing = 0;
};

// --- the library --------------------------------------------------------------------------------------------------

void library_step() {
    GRX_EVENEMENT event;
    grx_digitaliseur(&event, 0);
}

void write_menu(const std::string& folder) {
    std::ofstream(folder + "/MNU_COMM.DAT")
        << "#:ZONE_MENU_BAR\n{\nPOPUP||File|\n{\nITEM||Open||101|\nITEM||Save||102|\nITEM||Quit||103|\n}\n"
           "POPUP||View|\n{\nITEM||All||104|\nITEM||Zoom||105|\nITEM||Pan||106|\n}\n}\n";
}

INT library_picture() {
    if (!grxbench::start_library()) return GRX_AUCUN;
    const INT window = grxbench::make_window(GRX_FEN_GRAPHIQUE, kWidth, kHeight, GRX_FEN_ATT_PRINCIPALE);
    grx_affecte_nofen_principale(window);
    grx_affecte_nofen_active(window);
    GRX_EVENEMENT event{};
    while (event.type_evenement != GRX_EVT_AFFICHAGE) grx_digitaliseur(&event, 1);
    return window;
}

INT library_control(INT window, INT type, INT x, INT y, const char* text) {
    GRX_BOUTON control;
    grx_init_bouton(&control);
    control.type = type;
    control.fen_mere = window;
    control.attrib = GRX_BOU_ATT_VISIBLE;
    control.x = x;
    control.y = y;
    control.tabi[GRX_BOU_TABI_COLONNES] = 10;
    std::strcpy(control.titre, text);
    return grx_cree_bouton(&control) == 0 ? control.nobou : GRX_AUCUN;
}

void library_panel(INT main_window) {
    GRX_FENETRE panel;
    grx_init_fenetre(&panel);
    panel.type = GRX_FEN_ALPHA;
    panel.fen_mere = main_window;
    panel.droite = panel.haut = 350;
    grx_cree_fenetre(&panel);
    INT last = GRX_AUCUN;
    for (INT row = 0; row < kRows; ++row) {
        library_control(panel.nofen, GRX_BOU_LABEL, 10, 10 + 40 * row, "Length");
        last = library_control(panel.nofen, GRX_BOU_TEXTE, 120, 10 + 40 * row, "12,5");
    }
    handle_until([&] { return shown(grx_recup_objet_bout(last)); });
}

void library_lines(INT window) {
    for (INT i = 0; i < kSegments; ++i)
        grx_trace_segment({window, i % kWidth, 0, 0, i % kHeight, 0, 0, 0, {0, 15, 0, 0, 0, 0}});
}

void library_redraw(INT window) {
    grx_alloue_image(window);
    library_lines(window);
    grx_desalloue_image();
    grx_affiche_bitmap_backingstore(window);
}

bool measure_library(Waited& waited) {
    std::string folder = (std::filesystem::temp_directory_path() / "grx_far_XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) return false;
    write_menu(folder);
    sstate[SST_REP_MENU] = folder.data();
    INT window = GRX_AUCUN;
    waited.first_picture = grxbench::seconds([&] { window = library_picture(); });
    waited.trips_of_start = trips;
    std::filesystem::remove_all(folder);
    if (window < 0) return false;
    app = contexte;
    far_away = x11_disp;
    step = library_step;
    waited.menu = choose_from(grx_get_Glob_menu_bar());
    waited.panel = grxbench::seconds([&] { library_panel(window); });
    waited.redraw = grxbench::seconds([&] { library_redraw(window); });
    trips = 0;
    library_lines(window);
    XFlush(x11_disp);
    waited.trips_of_drawing = trips;
    return true;
}

// --- plain Motif --------------------------------------------------------------------------------------------------

void motif_step() {
    XtAppProcessEvent(app, XtIMAll);
}

struct Plain {
    Widget shell = nullptr, bar = nullptr, draw = nullptr;
};

void motif_menu(Widget bar, const char* title, const std::array<const char*, 3>& entries) {
    Widget menu = XmCreatePulldownMenu(bar, const_cast<char*>("menu"), nullptr, 0);
    for (const char* entry : entries) XtManageChild(XmCreatePushButton(menu, const_cast<char*>(entry), nullptr, 0));
    Widget cascade = XmCreateCascadeButton(bar, const_cast<char*>(title), nullptr, 0);
    XtVaSetValues(cascade, XmNsubMenuId, menu, nullptr);
    XtManageChild(cascade);
}

Plain motif_picture() {
    static int argc = 1;
    static char name[] = "HB";
    static char* argv[] = {name, nullptr};
    XtToolkitInitialize();
    app = XtCreateApplicationContext();
    far_away = XtOpenDisplay(app, nullptr, nullptr, "HB", nullptr, 0, &argc, argv);
    if (far_away == nullptr) return {};
    Plain p;
    Arg size[] = {{const_cast<char*>(XmNwidth), kWidth}, {const_cast<char*>(XmNheight), kHeight}};
    p.shell = XtAppCreateShell(nullptr, "TopLevelShell", topLevelShellWidgetClass, far_away, size, 2);
    Widget main = XmCreateMainWindow(p.shell, const_cast<char*>("main"), nullptr, 0);
    XtManageChild(main);
    p.bar = XmCreateMenuBar(main, const_cast<char*>("Menu_bar"), nullptr, 0);
    motif_menu(p.bar, "File", {"Open", "Save", "Quit"});
    motif_menu(p.bar, "View", {"All", "Zoom", "Pan"});
    XtManageChild(p.bar);
    p.draw = XmCreateDrawingArea(main, const_cast<char*>("draw"), nullptr, 0);
    bool done = false;
    XtAddCallback(p.draw, XmNexposeCallback, happened, &done);
    XtManageChild(p.draw);
    XtRealizeWidget(p.shell);
    while (!done) motif_step();
    XtRemoveCallback(p.draw, XmNexposeCallback, happened, &done);
    return p;
}

void motif_panel(Widget over) {
    Widget shell =
        XtVaCreatePopupShell("panel", transientShellWidgetClass, over, XmNwidth, 350, XmNheight, 350, nullptr);
    Widget form = XmCreateForm(shell, const_cast<char*>("form"), nullptr, 0);
    Widget last = nullptr;
    for (int row = 0; row < kRows; ++row) {
        XtVaCreateManagedWidget("Length", xmLabelWidgetClass, form, XmNx, 10, XmNy, 10 + 40 * row, nullptr);
        last = XtVaCreateManagedWidget("field", xmTextFieldWidgetClass, form, XmNx, 120, XmNy, 10 + 40 * row,
            XmNcolumns, 10, XmNvalue, "12,5", nullptr);
    }
    XtManageChild(form);
    XtPopup(shell, XtGrabNone);
    handle_until([&] { return shown(last); });
}

void motif_redraw(Widget draw, GC context) {
    const Window window = XtWindow(draw);
    const Pixmap picture = XCreatePixmap(
        far_away, window, kWidth, kHeight, static_cast<unsigned>(DefaultDepth(far_away, DefaultScreen(far_away))));
    XFillRectangle(far_away, picture, context, 0, 0, kWidth, kHeight);
    for (int i = 0; i < kSegments; ++i) XDrawLine(far_away, picture, context, i % kWidth, 0, 0, i % kHeight);
    XCopyArea(far_away, picture, window, context, 0, 0, kWidth, kHeight, 0, 0);
    XSync(far_away, False);
}

bool measure_motif(Waited& waited) {
    Plain p;
    waited.first_picture = grxbench::seconds([&] { p = motif_picture(); });
    waited.trips_of_start = trips;
    if (p.draw == nullptr) return false;
    step = motif_step;
    waited.menu = choose_from(p.bar);
    waited.panel = grxbench::seconds([&] { motif_panel(p.shell); });
    GC context = XCreateGC(far_away, XtWindow(p.draw), 0, nullptr);
    waited.redraw = grxbench::seconds([&] { motif_redraw(p.draw, context); });
    return true;
}

// --- one process for each measurement -----------------------------------------------------------------------------

// A window that is asked about may still be on its way through the line.
int no_matter(Display*, XErrorEvent*) {
    return 0;
}

// The child's side: `display` is the server itself.
int measure_side(bool library, const char* display) {
    XSetErrorHandler(no_matter);
    nearby = XOpenDisplay(display);
    if (nearby == nullptr) return 1;
    trips = 0;
    Waited w;
    if (!(library ? measure_library(w) : measure_motif(w))) return 1;
    std::fprintf(stderr, "%f %f %f %f %d %d\n", w.first_picture, w.panel, w.menu, w.redraw, w.trips_of_start,
        w.trips_of_drawing);
    return 0;
}

bool run(const char* side, const std::string& line, const std::string& display, Waited& w) {
    const std::string command =
        "DISPLAY=" + line + " /proc/" + std::to_string(getpid()) + "/exe " + side + " " + display + " 2>&1 >/dev/null";
    FILE* const output = popen(command.c_str(), "r");
    if (output == nullptr) return false;
    const bool read = std::fscanf(output, "%lf %lf %lf %lf %d %d", &w.first_picture, &w.panel, &w.menu, &w.redraw,
                          &w.trips_of_start, &w.trips_of_drawing)
                      == 6;
    return pclose(output) == 0 && read;
}

void keep_best(Waited& best, const Waited& w) {
    for (double Waited::*const what : {&Waited::first_picture, &Waited::panel, &Waited::menu, &Waited::redraw})
        best.*what = best.*what == 0 ? w.*what : std::min(best.*what, w.*what);
    best.trips_of_start = w.trips_of_start;
    best.trips_of_drawing = w.trips_of_drawing;
}

int report(const Waited& motif, const Waited& library) {
    struct Row {
        const char* name;
        double Waited::*what;
    };
    int above = library.trips_of_drawing > 0 ? 1 : 0;
    for (const auto& [name, what] : std::array<Row, 4>{{{"first picture", &Waited::first_picture},
             {"panel opened", &Waited::panel}, {"menu entry chosen", &Waited::menu}, {"redraw", &Waited::redraw}}}) {
        const double ratio = library.*what / (motif.*what);
        std::printf("50 ms line  %-18s plain Motif %7.0f ms  grx %7.0f ms  ratio %.2f (at most %.2f)\n", name,
            motif.*what * 1e3, library.*what * 1e3, ratio, kMostRatio);
        if (ratio > kMostRatio + kNoise) ++above;
    }
    std::printf("round trips until the first picture: plain Motif %d, grx %d; of %d segments drawn: %d\n",
        motif.trips_of_start, library.trips_of_start, kSegments, library.trips_of_drawing);
    return above;
}

} // namespace

// libX11 calls this one for every reply, through its own table of symbols.
extern "C" Status _XReply(Display* display, xReply* reply, int extra, Bool discard) {
    using Reply = Status (*)(Display*, xReply*, int, Bool);
    static const auto real = reinterpret_cast<Reply>(dlsym(RTLD_NEXT, "_XReply"));
    if (display != nearby) ++trips;
    return real(display, reply, extra, discard);
}

int main(int argc, char** argv) {
    const std::string what = argc > 1 ? argv[1] : "";
    if (argc > 2) return measure_side(what == "--grx", argv[2]);
    const char* const display = std::getenv("DISPLAY");
    if (display == nullptr || display[0] != ':') return 2;
    const grxbench::SlowLine line(std::atoi(display + 1), kOneWay);
    if (!line.works()) return 2;
    Waited motif, library, once;
    for (int round = 0; round < kRounds; ++round) {
        if (!run("--motif", line.name(), display, once)) return 2;
        keep_best(motif, once);
        if (!run("--grx", line.name(), display, once)) return 2;
        keep_best(library, once);
    }
    const int above = report(motif, library);
    return what == "--gate" && above > 0 ? 1 : 0;
}
