// Errors of the connection, and its end.
#include "tests/display/display/start_kit.h"
#include "tests/support/stdout_capture.h"

#include "display/last_error.h"

#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <vector>

namespace {

using namespace grxtest;

// --- X errors -------------------------------------------------------------------------------------------------

TEST_F(StartUp, ProtocolErrorsAreSilent) {
    permit_x_errors();
    const INT before = grx::x_error_count();
    const Outcome error = outcome_of([] {
        XMapWindow(x11_disp, 0x12345);
        return XSync(x11_disp, False);
    });
    EXPECT_EQ(error.printed, "");
    EXPECT_EQ(x_error_count(), 1);
    EXPECT_EQ(grx::x_error_count(), before + 1);
    EXPECT_STREQ(grx::last_x_error_text(), "BadWindow (invalid Window parameter)");
    EXPECT_EQ(make(GRX_FEN_ALPHA), 1) << "and the program goes on";
}

// An application's own, there before the library.
std::vector<int> codes_told;

int tell_code(Display*, XErrorEvent* error) {
    codes_told.push_back(error->error_code);
    return 0;
}

void cause_error() {
    XMapWindow(x11_disp, 0x12345);
    XSync(x11_disp, False);
}

class OwnErrorHandler : public DisplayTest {
  protected:
    void before_start() override {
        codes_told.clear();
        XSetErrorHandler(tell_code);
    }
};

TEST_F(OwnErrorHandler, IsToldTheProtocolErrors) {
    permit_x_errors();
    const INT before = grx::x_error_count();
    const Outcome error = outcome_of([] {
        cause_error();
        return 0;
    });
    EXPECT_EQ(codes_told, (std::vector<int>{BadWindow}));
    EXPECT_EQ(error.printed, "");
    EXPECT_EQ(grx::x_error_count(), before + 1);
    EXPECT_EQ(grx_init_graphique(), 1);
    cause_error();
    EXPECT_EQ(codes_told, (std::vector<int>{BadWindow, BadWindow})) << "however often the library installs its own";
}

XErrorHandler behind = nullptr;

int pass_on(Display* display, XErrorEvent* error) {
    codes_told.push_back(error->error_code);
    return behind(display, error);
}

// One installed later, that calls the one before it, which is the library's.
TEST_F(StartUp, AHandlerThatCallsTheLibrarysIsCalledOnce) {
    permit_x_errors();
    codes_told.clear();
    behind = XSetErrorHandler(pass_on);
    EXPECT_EQ(grx_init_graphique(), 1);
    cause_error();
    EXPECT_EQ(codes_told, (std::vector<int>{BadWindow}));
}

// --- the end of the connection --------------------------------------------------------------------------------

struct Ending {
    const char* name;
    void (*meet)(INT window); // what the application is doing then
};

void wait_for_events(INT) {
    GRX_EVENEMENT event{};
    for (;;) grx_digitaliseur(&event, 1);
}

void poll_for_events(INT) {
    GRX_EVENEMENT event{};
    for (;;) grx_digitaliseur(&event, 0);
}

void draw_on(INT window) {
    GRX_SEGMENT segment{};
    segment.nofen = window;
    segment.attrib.coul_trace = 9;
    for (;;) {
        segment.x2 = (segment.x2 + 7) % 100;
        segment.attrib.coul_trace ^= 1;
        grx_trace_segment(segment);
    }
}

void choose_a_directory(INT) {
    char title[] = "Choose", directory[GRX_CHEMIN_DIALOGUE_MAX] = "/tmp";
    for (;;) select_repertoire_x11(title, directory);
}

void edit_a_text(INT) {
    char directory[GRX_MEMO_FILENAME_MAX] = "", name[GRX_MEMO_FILENAME_MAX] = "";
    grx_debut_editeur();
    grx_editeur();
    for (;;) grx_file_editeur_bloquant(directory, name);
}

void run_the_toolkits_loop(INT) {
    grx_gere_application();
}

constexpr Ending endings[] = {{"waits", wait_for_events}, {"polls", poll_for_events}, {"draws", draw_on},
    {"chooses", choose_a_directory}, {"edits", edit_a_text}, {"leaves it to the toolkit", run_the_toolkits_loop}};

// Kills the server a moment after the application began to do something; all that is printed counts.
[[noreturn]] void lose_server(const XServer& server, const Ending& ending, XIOErrorHandler own = nullptr) {
    dup2(STDERR_FILENO, STDOUT_FILENO);
    setenv("DISPLAY", server.name().c_str(), 1);
    if (own != nullptr) XSetIOErrorHandler(own);
    if (!start_up()) std::_Exit(3);
    const INT window = make(GRX_FEN_GRAPHIQUE, GRX_FEN_ATT_VISIBLE);
    grx_affecte_nofen_principale(window);
    static pid_t victim;
    victim = server.pid();
    XtAppAddTimeOut(
        contexte, 100, [](XtPointer, XtIntervalId*) { kill(victim, SIGKILL); }, nullptr);
    if (ending.meet == draw_on) kill(victim, SIGKILL); // it runs no timer
    ending.meet(window);
    std::_Exit(4);
}

int say_saved(Display*) {
    return write(STDERR_FILENO, "saved\n", 6) == 6 ? 0 : 1;
}

[[noreturn]] int save_and_leave(Display*) {
    std::_Exit(7);
}

TEST(LostServer, EndsTheProcessByXlibWithoutAWordOfTheLibrary) {
    for (const auto& ending : endings) {
        SCOPED_TRACE(ending.name);
        const XServer server({.planes = test_planes(), .arguments = {}});
        EXPECT_EXIT(lose_server(server, ending), testing::ExitedWithCode(1), "^$");
    }
}

TEST(LostServer, IsToldToTheApplicationsHandlerOnce) {
    for (const auto& ending : endings) {
        SCOPED_TRACE(ending.name);
        const XServer server({.planes = test_planes(), .arguments = {}});
        EXPECT_EXIT(lose_server(server, ending, say_saved), testing::ExitedWithCode(1), "^saved\n$");
    }
}

TEST(LostServer, TheHandlerMayEndTheProcessItself) {
    const XServer server({.planes = test_planes(), .arguments = {}});
    EXPECT_EXIT(lose_server(server, endings[0], save_and_leave), testing::ExitedWithCode(7), "^$");
}

} // namespace
