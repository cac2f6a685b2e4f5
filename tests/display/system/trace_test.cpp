// The trace: calls with unknown numbers, refused values, errors of the display with the call that caused them.
#include "grx_plus_diagnostic.h"
#include "grx_plus_erreurs.h"
#include "tests/support/controls.h"
#include "tests/support/stdout_capture.h"
#include "tests/support/window_kit.h"

#include "registry/window_table.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

namespace {

using namespace grxtest;

class TraceTest : public DisplayTest {
  protected:
    void SetUp() override {
        DisplayTest::SetUp();
        file_ = home().text() + "/trace.txt";
    }
    void TearDown() override {
        grx_ferme_journal();
        DisplayTest::TearDown();
    }

    void open(INT exact = 0) { ASSERT_EQ(grx_ouvre_journal(file_.c_str(), exact), 1); }

    // What was written since the trace began, without the times.
    std::vector<std::string> lines() const {
        std::vector<std::string> result;
        std::ifstream in(file_);
        const std::regex time(R"(\d\d:\d\d:\d\d\.\d\d\d (.*))");
        for (std::string line; std::getline(in, line);) {
            std::smatch parts;
            EXPECT_TRUE(std::regex_match(line, parts, time)) << line;
            if (parts[1].str().rfind("trace of process ", 0) != 0) result.push_back(parts[1]);
        }
        return result;
    }

    std::string file_;
};

using Lines = std::vector<std::string>;

TEST_F(TraceTest, NamesTheCallAndTheUnknownNumber) {
    struct Case {
        const char* line;
        void (*call)();
    };
    const Case cases[] = {
        {"grx_detruit_fenetre, window 77", [] { grx_detruit_fenetre(77); }},
        {"grx_affiche_fenetre, window -1", [] { grx_affiche_fenetre(-1); }},
        {"grx_cache_fenetre, window 2000000000", [] { grx_cache_fenetre(2000000000); }},
        {"grx_change_taille_fenetre, window -2147483648", [] { grx_change_taille_fenetre(INT_MIN, 1, 1); }},
        {"grx_force_focus_sur_bouton, button 1000", [] { grx_force_focus_sur_bouton(1000); }},
        {"grx_sauve_fenetre, window 98", [] { grx_sauve_fenetre(98); }},
        {"grx_iconifie_fenetre, window 31", [] { grx_iconifie_fenetre(31); }},
        {"grx_trace_segment, window 42",
            [] {
                GRX_SEGMENT segment{};
                segment.nofen = 42;
                grx_trace_segment(segment);
            }},
        {"grx_cree_bouton, window 60",
            [] {
                GRX_BOUTON button = button_at(GRX_BOU_LABEL, 60, {0, 0, 10, 10});
                grx_cree_bouton(&button);
            }},
    };
    open();
    Lines expected;
    for (const Case& c : cases) {
        c.call();
        expected.push_back(std::string("unknown number: ") + c.line);
    }
    EXPECT_EQ(lines(), expected);
}

TEST_F(TraceTest, SaysNothingOfCallsThatAreRight) {
    open();
    const INT window = make(GRX_FEN_GRAPHIQUE, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE);
    GRX_BOUTON button = button_at(GRX_BOU_TEXTE, make(GRX_FEN_BOUTONS), {10, 10, 80, 30});
    grx_cree_bouton(&button);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    pointer().click_in(widget_of(window), 20, 20);
    keyboard().type("ab");
    drain();
    EXPECT_EQ(grx_recup_objet_fen(55), nullptr) << "asking is no mistake";
    EXPECT_EQ(grx_recup_objet_bout(999), nullptr);
    grx_detruit_bouton(button.nobou);
    grx_detruit_fenetre(window);
    drain();
    EXPECT_EQ(lines(), Lines{});
}

TEST_F(TraceTest, LeavesOutALineJustLikeTheOneBefore) {
    open();
    for (int i = 0; i < 100; ++i) grx_affiche_fenetre(50);
    grx_affiche_fenetre(51);
    grx_affiche_fenetre(50);
    EXPECT_EQ(lines(),
        (Lines{"unknown number: grx_affiche_fenetre, window 50", "unknown number: grx_affiche_fenetre, window 51",
            "unknown number: grx_affiche_fenetre, window 50"}));
}

TEST_F(TraceTest, TellsRefusedValues) {
    open();
    EXPECT_EQ(grx_recup_rang_fenetre(8), GRX_ECHEC_NUMERO);
    EXPECT_EQ(grx_init_inventaire(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(lines(),
        (Lines{"refused value: grx_recup_rang_fenetre, nofen = 8: the number names nothing (-101)",
            "refused value: grx_init_inventaire, inventaire: a null pointer, or a value out of range (-103)"}));
}

// Breaks the library's own drawing: the backing picture is freed behind its back.
void draw_into_nothing(INT window) {
    GRX_SEGMENT segment{};
    segment.nofen = window;
    segment.x2 = 30;
    XFreePixmap(x11_disp, *record_of(window).image);
    grx_memorise_bitmap_backingstore(window);
    grx_trace_segment(segment);
    XSync(x11_disp, False);
    grx::mark_dead_pixmap(window, true);
}

TEST_F(TraceTest, NamesTheCallThatCausedAnErrorOfTheDisplay) {
    permit_x_errors();
    const INT window = make(GRX_FEN_GRAPHIQUE);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    open(1);
    draw_into_nothing(window);
    const auto found = lines();
    ASSERT_EQ(found.size(), 1U) << testing::PrintToString(found);
    EXPECT_TRUE(std::regex_match(found[0],
        std::regex(
            R"(error of the display: BadDrawable \(invalid Pixmap or Window parameter\), request 62\.0 X_CopyArea, )"
            R"(resource 0x[0-9a-f]+, serial \d+, caused by grx_memorise_bitmap_backingstore)")))
        << found[0];
}

TEST_F(TraceTest, SaysWhereAnErrorWasNoticedOtherwise) {
    permit_x_errors();
    open();
    XMapWindow(x11_disp, 0x12345);
    grx_flush_server();
    INT x = 0, y = 0;
    grx_recup_position_fenetre(make(GRX_FEN_ALPHA), &x, &y);
    XSync(x11_disp, False);
    const auto found = lines();
    ASSERT_EQ(found.size(), 1U) << testing::PrintToString(found);
    EXPECT_NE(found[0].find("X_MapWindow, resource 0x12345"), std::string::npos) << found[0];
    EXPECT_NE(found[0].find(", noticed in grx_"), std::string::npos) << found[0];
}

TEST_F(TraceTest, EndsExactCallsWithTheTrace) {
    open(1);
    Cost exact(x11_disp);
    XNoOp(x11_disp);
    EXPECT_EQ(exact.round_trips(), 1U);
    EXPECT_EQ(grx_ferme_journal(), 1);
    Cost after(x11_disp);
    XNoOp(x11_disp);
    EXPECT_EQ(after.round_trips(), 0U);
    XSynchronize(x11_disp, True);
    open();
    grx_ferme_journal();
    Cost own(x11_disp);
    XNoOp(x11_disp);
    EXPECT_EQ(own.round_trips(), 1U) << "what the application has set stays";
}

TEST_F(TraceTest, TakesLinesOfTheApplication) {
    EXPECT_EQ(grx_ecrit_journal("before"), GRX_ECHEC_ABSENT);
    open();
    EXPECT_EQ(grx_ecrit_journal("opens\n\"plan\t2\" %s %n"), 1);
    EXPECT_EQ(grx_ecrit_journal(std::string(5000, 'x').c_str()), 1);
    EXPECT_EQ(grx_ecrit_journal(nullptr), GRX_ECHEC_PARAMETRE);
    const auto found = lines();
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0], "application: opens \"plan 2\" %s %n");
    EXPECT_EQ(found[1], "application: " + std::string(400, 'x'));
    EXPECT_EQ(found[2], "refused value: grx_ecrit_journal, texte: a null pointer, or a value out of range (-103)");
}

TEST_F(TraceTest, OpensAndCloses) {
    EXPECT_EQ(grx_ferme_journal(), GRX_ECHEC_ABSENT);
    open();
    EXPECT_EQ(grx_ouvre_journal(nullptr, 0), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_ouvre_journal("", 0), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_ouvre_journal("/no/such/folder/trace", 0), GRX_ECHEC_FICHIER);
    EXPECT_EQ(grx_ouvre_journal(home().text().c_str(), 0), GRX_ECHEC_FICHIER) << "a folder";
    EXPECT_EQ(grx_ouvre_journal(std::string(10000, 'n').c_str(), 0), GRX_ECHEC_FICHIER);
    EXPECT_EQ(lines().size(), 2U) << "each refusal once, and the former trace goes on";
    EXPECT_EQ(grx_ferme_journal(), 1);
    grx_affiche_fenetre(50);
    EXPECT_EQ(lines().size(), 2U);
    EXPECT_EQ(grx_ferme_journal(), GRX_ECHEC_ABSENT);
}

// --- files that take nothing ----------------------------------------------------------------------------------------------

TEST_F(TraceTest, AFullDiskLosesLinesAndNothingElse) {
    ASSERT_EQ(grx_ouvre_journal("/dev/full", 0), 1);
    EXPECT_EQ(outcome_of([] { return grx_affiche_fenetre(50); }).printed, "");
    EXPECT_EQ(grx_ferme_journal(), 1);
}

TEST_F(TraceTest, ABrokenPipeAndALimitOfFileSizesAreNotFelt) {
    const std::string pipe = home().text() + "/pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(grx_ouvre_journal(pipe.c_str(), 0), GRX_ECHEC_FICHIER) << "without a reader";
    const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_EQ(grx_ouvre_journal(pipe.c_str(), 0), 1);
    ::close(reader);
    grx_affiche_fenetre(50); // a signal would end the process
    open();
    const rlimit none{0, RLIM_INFINITY};
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    setrlimit(RLIMIT_FSIZE, &none);
    grx_affiche_fenetre(51);
    setrlimit(RLIMIT_FSIZE, &before);
    grx_affiche_fenetre(52);
    EXPECT_EQ(lines(), Lines{"unknown number: grx_affiche_fenetre, window 52"});
}

// An application that closes all descriptors may get the trace's number for a file of its own.
TEST_F(TraceTest, NeverWritesIntoAnotherFile) {
    const int next = dup(0);
    ::close(next);
    open();
    ::close(next);
    const std::string own = home().text() + "/own.txt";
    ASSERT_EQ(::open(own.c_str(), O_WRONLY | O_CREAT, 0600), next) << "the trace had the lowest free descriptor";
    grx_affiche_fenetre(50);
    EXPECT_EQ(grx_ferme_journal(), GRX_ECHEC_ABSENT) << "it has noticed";
    EXPECT_EQ(home().read("own.txt"), "");
    EXPECT_EQ(::write(next, "x", 1), 1) << "and left the file open";
    ::close(next);
}

// --- silence ----------------------------------------------------------------------------------------------------------------

TEST_F(TraceTest, WithoutItNothingIsWrittenOrAsked) {
    const auto folder_before = std::distance(std::filesystem::directory_iterator(home().path()), {});
    Cost cost(x11_disp);
    const Outcome outcome = outcome_of([] {
        grx_affiche_fenetre(50);
        grx_force_focus_sur_bouton(900);
        return 0;
    });
    EXPECT_EQ(outcome.printed, "");
    EXPECT_EQ(cost.requests(), 0U);
    EXPECT_EQ(cost.round_trips(), 0U);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(home().path()), {}), folder_before);
}

TEST_F(TraceTest, OpeningAndClosingLosesNothing) {
    open();
    grx_affiche_fenetre(50);
    const NoLeak no_leak;
    for (int i = 0; i < 500; ++i) {
        open(i % 2);
        grx_affiche_fenetre(i + 200);
        grx_ferme_journal();
    }
    const int free_descriptor = dup(0);
    ::close(free_descriptor);
    EXPECT_LT(free_descriptor, 40);
}

// --- by the environment --------------------------------------------------------------------------------------------------------

struct Wish {
    const char* file; // below the home folder; whole when it begins with a slash
    const char* exact;
    bool written;
};

class TraceOfEnvironmentTest : public XTest {
  protected:
    // A start and a wrong call in a process that has these variables.
    void run(const std::string& file, const char* exact) {
        EXPECT_EXIT(
            {
                setenv("GRX_TRACE", file.c_str(), 1);
                setenv("GRX_TRACE_SYNC", exact, 1);
                setenv("DISPLAY", server().name().c_str(), 1);
                if (!start_up()) std::_Exit(3);
                Cost cost(x11_disp);
                XNoOp(x11_disp);
                const bool waits = cost.round_trips() > 0;
                grx_affiche_fenetre(77);
                std::_Exit(waits ? 1 : 0);
            },
            [&](int status) { return WIFEXITED(status) && WEXITSTATUS(status) == expected_; }, "^$");
    }
    int expected_ = 0;
};

TEST_F(TraceOfEnvironmentTest, BeginsWithTheFirstCall) {
    run(home().text() + "/t", "0");
    EXPECT_TRUE(std::regex_search(
        home().read("t"), std::regex("trace of process \\d+\n.* unknown number: grx_affiche_fenetre, window 77\n$")));
    expected_ = 1;
    run(home().text() + "/exact", "1");
}

TEST_F(TraceOfEnvironmentTest, AbsurdValuesAreNoTrace) {
    for (const std::string& file :
        {std::string(), std::string("/"), std::string("/dev/full"), std::string("/no/folder/t"),
            std::string(100000, 'x'), std::string("\xff\xfe%n%s"), std::string("/proc/self/mem/x")}) {
        SCOPED_TRACE(file.substr(0, 40));
        run(file, "yes, please");
        if (file.rfind('\xff', 0) == 0) std::filesystem::remove(file);
    }
}

} // namespace
