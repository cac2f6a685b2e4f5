// Process start to the first exposure of an empty main window: the library against a plain Motif program that opens
// the same window. Usage: bench_startup [--gate]   (--gate: fail when it is clearly above 1.2 times)
#include "bench/chrono.h"
#include "bench/session.h"

#include "host_f.h"
#include "xt_f.h"

#include <X11/Xlibint.h>
#undef min
#undef max
#include <Xm/DrawingA.h>
#include <Xm/MainW.h>
#include <Xm/RowColumn.h>
#include <Xm/Xm.h>
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr double kMostRatio = 1.2;
constexpr double kNoise = 0.15; // what two runs of the same program differ by on a shared machine
constexpr int kRounds = 41;
constexpr int kWidth = 600, kHeight = 400;

std::map<int, int> replies; // request code -> round trips

const char* request_name(int code) {
    static const std::map<int, const char*> names{{X_GetWindowAttributes, "GetWindowAttributes"},
        {X_GetGeometry, "GetGeometry"}, {X_QueryTree, "QueryTree"}, {X_InternAtom, "InternAtom"},
        {X_GetAtomName, "GetAtomName"}, {X_GetProperty, "GetProperty"}, {X_GetSelectionOwner, "GetSelectionOwner"},
        {X_GetInputFocus, "GetInputFocus (sync)"}, {X_QueryFont, "QueryFont"}, {X_ListFonts, "ListFonts"},
        {X_ListFontsWithInfo, "ListFontsWithInfo"}, {X_GetImage, "GetImage"}, {X_AllocColor, "AllocColor"},
        {X_AllocNamedColor, "AllocNamedColor"}, {X_AllocColorCells, "AllocColorCells"}, {X_QueryColors, "QueryColors"},
        {X_LookupColor, "LookupColor"}, {X_QueryBestSize, "QueryBestSize"}, {X_QueryExtension, "QueryExtension"},
        {X_GetKeyboardMapping, "GetKeyboardMapping"}, {X_GetModifierMapping, "GetModifierMapping"},
        {X_QueryPointer, "QueryPointer"}, {X_TranslateCoords, "TranslateCoords"}, {X_GrabServer, "GrabServer"}};
    const auto found = names.find(code);
    return found != names.end() ? found->second : "an extension's";
}

void print_round_trips() {
    int total = 0;
    for (const auto& [code, count] : replies) total += count;
    std::printf("%d round trips:", total);
    for (const auto& [code, count] : replies) std::printf(" %s %d,", request_name(code), count);
    std::printf("\n");
}

bool run_library() {
    if (!grxbench::start_library()) return false;
    if (grxbench::make_window(GRX_FEN_GRAPHIQUE, kWidth, kHeight, GRX_FEN_ATT_PRINCIPALE) == GRX_AUCUN) return false;
    GRX_EVENEMENT evt{};
    do {
        grx_digitaliseur(&evt, 1);
    } while (evt.type_evenement != GRX_EVT_AFFICHAGE);
    return true;
}

void exposed(Widget, XtPointer done, XtPointer) {
    *static_cast<bool*>(done) = true;
}

bool run_motif() {
    int argc = 1;
    char name[] = "HB";
    char* argv[] = {name, nullptr};
    XtToolkitInitialize();
    XtAppContext app = XtCreateApplicationContext();
    Display* display = XtOpenDisplay(app, nullptr, nullptr, "HB", nullptr, 0, &argc, argv);
    if (display == nullptr) return false;
    bool done = false;
    Arg size[] = {{const_cast<char*>(XmNwidth), kWidth}, {const_cast<char*>(XmNheight), kHeight}};
    Widget shell = XtAppCreateShell(nullptr, "TopLevelShell", topLevelShellWidgetClass, display, size, 2);
    Widget main = XmCreateMainWindow(shell, const_cast<char*>("main"), nullptr, 0);
    XtManageChild(main);
    XtManageChild(XmCreateMenuBar(main, const_cast<char*>("Menu_bar"), nullptr, 0));
    Widget draw = XmCreateDrawingArea(main, const_cast<char*>("draw"), nullptr, 0);
    XtAddCallback(draw, XmNexposeCallback, exposed, &done);
    XtManageChild(draw);
    XtRealizeWidget(shell);
    while (!done) XtAppProcessEvent(app, XtIMAll);
    return true;
}

double run_child(const char* self, const char* what) {
    return grxbench::seconds([&] {
        const pid_t child = fork();
        if (child == 0) {
            execl(self, self, what, static_cast<char*>(nullptr));
            _exit(127);
        }
        int status = 0;
        waitpid(child, &status, 0);
        if (status != 0) _exit(2);
    });
}

int compare(const char* self, bool gate) {
    std::vector<double> motif, library;
    for (int i = 0; i < kRounds; ++i) {
        motif.push_back(run_child(self, "--motif"));
        library.push_back(run_child(self, "--grx"));
    }
    const double ratio = grxbench::fastest(library) / grxbench::fastest(motif);
    std::printf("start to first exposure: plain Motif %.1f ms (median %.1f), grx %.1f ms (median %.1f), ratio %.2f (at "
                "most %.1f)\n",
        grxbench::fastest(motif) * 1e3, grxbench::median(motif) * 1e3, grxbench::fastest(library) * 1e3,
        grxbench::median(library) * 1e3, ratio, kMostRatio);
    std::fflush(stdout);
    run_child(self, "--motif-trips");
    run_child(self, "--grx-trips");
    return gate && ratio > kMostRatio + kNoise ? 1 : 0;
}

} // namespace

// libX11 calls this one for every reply, through its own table of symbols.
extern "C" Status _XReply(Display* display, xReply* reply, int extra, Bool discard) {
    using Reply = Status (*)(Display*, xReply*, int, Bool);
    static const auto real = reinterpret_cast<Reply>(dlsym(RTLD_NEXT, "_XReply"));
    if (display->last_req != nullptr) ++replies[static_cast<unsigned char>(display->last_req[0])];
    return real(display, reply, extra, discard);
}

int main(int argc, char** argv) {
    const std::string what = argc > 1 ? argv[1] : "";
    if (what == "--grx") return run_library() ? 0 : 1;
    if (what == "--motif") return run_motif() ? 0 : 1;
    if (what == "--grx-trips" || what == "--motif-trips") {
        const bool library = what == "--grx-trips";
        if (!(library ? run_library() : run_motif())) return 1;
        std::printf("%-11s ", library ? "grx" : "plain Motif");
        print_round_trips();
        return 0;
    }
    return compare("/proc/self/exe", what == "--gate");
}
