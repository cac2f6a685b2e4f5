// Process start to the first exposure of an empty main window: the library against a plain Motif program that opens
// the same window, and what each of them asks the server and waits for.
// Usage: bench_startup [--gate]   (--gate: fail when it is clearly above 1.15 times, or waits for more than 77 answers)
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
#include <execinfo.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr double kMostRatio = 1.15;
constexpr int kMostTrips = 77;
constexpr double kNoise = 0.15; // what two runs of the same program differ by on a shared machine
constexpr int kRounds = 41;
constexpr int kWidth = 600, kHeight = 400;

// What an answer is waited for: the first of these that is being executed.
struct Cause {
    const char* function;
    const char* text;
};
constexpr std::array<Cause, 13> kCauses{{{"_XmVirtKeysInitialize", "the toolkit's virtual keys"},
    {"_XmInitModifiers", "modifier keys of menus"}, {"XCreateFontCursor", "cursors of the user's theme"},
    {"XmeGetDefaultPixel", "default colours"}, {"XLoadQueryFont", "fonts"}, {"XmDropSiteRegister", "drop sites"},
    {"XInternAtoms", "names"}, {"XInternAtom", "names"}, {"XmGetXmScreen", "the toolkit's screen object"},
    {"XmGetXmDisplay", "the toolkit's display object"}, {"XtOpenDisplay", "opening the display"},
    {"grx_cree_bitmap_backingstore", "the backing picture"}, {"grx_gere_evenements_fenetre", "events of the window"}}};

std::map<std::string, int> replies; // cause -> round trips
int all_replies = 0;
bool listing = false; // takes longer than the answers

const char* cause() {
    std::array<void*, 64> frames{};
    const int depth = backtrace(frames.data(), static_cast<int>(frames.size()));
    std::set<std::string> running;
    for (int i = 0; i < depth; ++i) {
        Dl_info info{};
        if (dladdr(frames[static_cast<std::size_t>(i)], &info) != 0 && info.dli_sname != nullptr)
            running.insert(info.dli_sname);
    }
    for (const auto& [function, text] : kCauses)
        if (running.contains(function)) return text;
    return "others";
}

void print_round_trips() {
    std::printf("%d round trips:", all_replies);
    const char* separator = " ";
    for (const auto& [text, count] : replies) {
        std::printf("%s%s %d", separator, text.c_str(), count);
        separator = ", ";
    }
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
                "most %.2f)\n",
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
    ++all_replies;
    if (listing) ++replies[cause()];
    return real(display, reply, extra, discard);
}

int main(int argc, char** argv) {
    const std::string what = argc > 1 ? argv[1] : "";
    if (what == "--grx") return run_library() ? 0 : 1;
    if (what == "--motif") return run_motif() ? 0 : 1;
    if (what == "--grx-trips" || what == "--motif-trips") {
        const bool library = what == "--grx-trips";
        listing = true;
        if (!(library ? run_library() : run_motif())) return 1;
        std::printf("%-11s ", library ? "grx" : "plain Motif");
        print_round_trips();
        return library && grx_recup_profondeur_ecran() > GRX_PROFONDEUR_8 && all_replies > kMostTrips ? 1 : 0;
    }
    return compare("/proc/self/exe", what == "--gate");
}
