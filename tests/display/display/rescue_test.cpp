// The application's function for the end of the connection: the server is killed at fifty moments.
#include "tests/display/display/rescue_kit.h"

#include "tests/support/stdout_capture.h"

#include "host_f.h"

namespace {

using namespace grxtest;

class RescueTest : public XTest {
  protected:
    void SetUp() override {
        XTest::SetUp();
        write_menu("#:ZONE_MENU_BAR\n{\nPOPUP||&File|\n{\nITEM||&Open|Ctrl+O|11|\nITEM||&Quit||12|\n}\n}\n");
    }
};

// --- at the n-th answer of the server ---------------------------------------------------------------------------------

unsigned long fatal_reply = 0;

void end_at_reply(unsigned long number) {
    if (number == fatal_reply) take_server_away();
}

void draw_all(INT window) {
    GRX_SEGMENT segment{};
    segment.nofen = window;
    segment.x2 = segment.y2 = 50;
    for (INT i = 0; i < 20; ++i) {
        segment.attrib.coul_trace = i % 8;
        grx_trace_segment(segment);
    }
    grx_affecte_nofen_active(window);
    std::vector<uchar> picture(static_cast<std::size_t>(3) * 60 * 40, 3);
    grx_trace_image_reel_xy(GRX_CIBLE_FENETRE, window, picture.data(), picture.data(), 60, 40, 0, 0);
    grx_recup_image(0, 0, 60, 40, picture.data());
    grx_sauve_fenetre(window);
    grx_restore_fenetre(window);
    grx_flush_server();
}

// Most of what waits for answers: start-up, windows, controls, menus, drawing, pictures, the editor.
void whole_session(Drawing& drawing) {
    if (!start_up()) return;
    const INT main_window = make(GRX_FEN_BOUTONS, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE, 400, 300);
    grx_affecte_nofen_principale(main_window);
    drawing.window = make(GRX_FEN_GRAPHIQUE);
    for (INT kind : all_kinds) make(kind);
    for (INT type : {GRX_BOU_LABEL, GRX_BOU_TEXTE, GRX_BOU_BASCULE, GRX_BOU_ECHELLE}) {
        GRX_BOUTON button = button_at(type, main_window, {10, 10, 80, 30});
        grx_cree_bouton(&button);
    }
    GRX_EVENEMENT event{};
    for (INT turn = 0; turn < 3; ++turn) {
        draw_all(drawing.window);
        INT x = 0, y = 0;
        grx_recup_position_fenetre(drawing.window, &x, &y);
        for (INT i = 0; i < 50; ++i) grx_digitaliseur(&event, 0);
        XSync(x11_disp, False);
    }
    grx_debut_editeur();
    grx_editeur();
    for (INT i = 0; i < 50; ++i) grx_digitaliseur(&event, 0);
    grx_detruit_fenetre(main_window);
    XSync(x11_disp, False);
}

[[noreturn]] void meet_end_at_reply(const XServer& server, Drawing drawing, unsigned long number) {
    begin_application(server);
    grx_affecte_fonction_secours(save_drawing, &drawing);
    fatal_reply = x_totals().round_trips + number;
    before_reply = end_at_reply;
    whole_session(drawing);
    XSync(x11_disp, False); // at the latest here
    std::_Exit(4);
}

// How many answers the session waits for.
unsigned long replies_of_a_session(int planes, Drawing drawing) {
    const XServer server({.planes = planes, .arguments = {}});
    const TempDir folder;
    const std::string count = folder.text() + "/count";
    EXPECT_EXIT(
        {
            begin_application(server);
            const unsigned long before = x_totals().round_trips;
            whole_session(drawing);
            std::ofstream(count) << x_totals().round_trips - before;
            std::_Exit(0);
        },
        testing::ExitedWithCode(0), "");
    unsigned long replies = 0;
    std::ifstream(count) >> replies;
    return replies;
}

constexpr unsigned long kMoments = 36;

// One third of the moments a test, so that no test takes long.
class EachAnswerTest : public RescueTest, public testing::WithParamInterface<unsigned long> {};

TEST_P(EachAnswerTest, TheDrawingIsSavedWhereverTheServerGoes) {
    const Drawing drawing = new_drawing(home());
    const unsigned long replies = replies_of_a_session(test_planes(), drawing);
    ASSERT_GT(replies, kMoments);
    for (unsigned long i = GetParam(); i < kMoments; i += 3) {
        const unsigned long number = 1 + i * (replies - 1) / (kMoments - 1);
        SCOPED_TRACE(number);
        std::filesystem::remove(drawing.file);
        const XServer server({.planes = test_planes(), .arguments = {}});
        EXPECT_EXIT(meet_end_at_reply(server, drawing, number), testing::ExitedWithCode(1), "^$");
        EXPECT_EQ(home().read("recovered.txt"), saved_drawing(drawing));
    }
}

INSTANTIATE_TEST_SUITE_P(Third, EachAnswerTest, testing::Values(0UL, 1UL, 2UL));

// --- in the middle of something -----------------------------------------------------------------------------------------

struct Moment {
    const char* name;
    void (*meet)(Drawing& drawing);
};

void wait_for_events(Drawing&) {
    GRX_EVENEMENT event{};
    take_server_away();
    for (;;) grx_digitaliseur(&event, 1);
}

void poll_for_events(Drawing&) {
    GRX_EVENEMENT event{};
    take_server_away();
    for (;;) grx_digitaliseur(&event, 0);
}

void draw_without_end(Drawing& drawing) {
    take_server_away();
    for (;;) draw_all(drawing.window);
}

void end_soon(void (*then)() = nullptr) {
    static void (*next)();
    next = then;
    XtAppAddTimeOut(
        contexte, 50,
        [](XtPointer, XtIntervalId*) {
            take_server_away();
            if (next) next();
        },
        nullptr);
}

void show_pictures(Drawing& drawing) {
    std::vector<uchar> picture(static_cast<std::size_t>(3) * 190 * 140, 3);
    grx_trace_image_reel_xy(GRX_CIBLE_FENETRE, drawing.window, picture.data(), picture.data(), 190, 140, 0, 0);
    take_server_away();
    for (;;) grx_trace_image_reel_xy(GRX_CIBLE_FENETRE, drawing.window, picture.data(), picture.data(), 190, 140, 0, 0);
}

void read_back(Drawing& drawing) {
    std::vector<uchar> picture(static_cast<std::size_t>(3) * 190 * 140);
    grx_affecte_nofen_active(drawing.window);
    take_server_away();
    for (;;) grx_recup_image(0, 0, 190, 140, picture.data());
}

void choose_a_directory(Drawing&) {
    char title[] = "Choose", directory[GRX_CHEMIN_DIALOGUE_MAX] = "/tmp";
    end_soon();
    for (;;) select_repertoire_x11(title, directory);
}

void edit_a_text(Drawing&) {
    char directory[GRX_MEMO_FILENAME_MAX] = "", name[GRX_MEMO_FILENAME_MAX] = "";
    grx_debut_editeur();
    grx_editeur();
    end_soon();
    for (;;) grx_file_editeur_bloquant(directory, name);
}

void leave_it_to_the_toolkit(Drawing&) {
    end_soon();
    grx_gere_application();
}

// The application draws in a callback of its own, inside the loop of a dialog.
void draw_in_a_callback_of_a_dialog(Drawing& drawing) {
    static INT window;
    window = drawing.window;
    end_soon([] { draw_all(window); });
    char title[] = "Choose", directory[GRX_CHEMIN_DIALOGUE_MAX] = "/tmp";
    for (;;) select_repertoire_x11(title, directory);
}

void look_at_a_menu(Drawing&) {
    const InputConnection input(std::getenv("DISPLAY"));
    Pointer pointer(input);
    GRX_EVENEMENT event{};
    Widget const entry = children_of(grx_get_Glob_menu_bar()).at(0);
    XSync(x11_disp, False);
    for (INT i = 0; i < 200; ++i) grx_digitaliseur(&event, 0);
    pointer.move_in(entry, 5, 5);
    pointer.press(1); // the menu holds pointer and keyboard now
    for (INT i = 0; i < 200; ++i) grx_digitaliseur(&event, 0);
    take_server_away();
    for (;;) grx_digitaliseur(&event, 1);
}

void make_windows(Drawing&) {
    take_server_away();
    for (;;) grx_detruit_fenetre(make(GRX_FEN_TEXTE));
}

void make_controls(Drawing&) {
    GRX_BOUTON button = button_at(GRX_BOU_TEXTE, 1, {10, 10, 80, 30});
    take_server_away();
    for (;;) {
        grx_cree_bouton(&button);
        grx_detruit_bouton(button.nobou);
        XSync(x11_disp, False);
    }
}

void destroy_a_window(Drawing& drawing) {
    take_server_away();
    grx_detruit_fenetre(drawing.window);
    XSync(x11_disp, False);
}

void wait_for_a_window(Drawing& drawing) {
    take_server_away();
    for (;;) grx_attend_creation_fenetre(drawing.window);
}

void grow_a_window(Drawing& drawing) {
    take_server_away();
    for (INT size = 50;; size = size % 300 + 50) {
        grx_change_taille_fenetre(drawing.window, size, size);
        grx_flush_server();
    }
}

void measure(Drawing&) {
    INT width = 0, height = 0;
    take_server_away();
    for (;;) {
        grx_recup_position_fenetre(1, &width, &height);
        XSync(x11_disp, False);
    }
}

constexpr Moment moments[] = {{"waits", wait_for_events}, {"polls", poll_for_events}, {"draws", draw_without_end},
    {"shows pictures", show_pictures}, {"reads back", read_back}, {"chooses", choose_a_directory},
    {"edits", edit_a_text}, {"leaves it to the toolkit", leave_it_to_the_toolkit},
    {"draws in a callback", draw_in_a_callback_of_a_dialog}, {"looks at a menu", look_at_a_menu},
    {"makes windows", make_windows}, {"makes controls", make_controls}, {"destroys a window", destroy_a_window},
    {"waits for a window", wait_for_a_window}, {"grows a window", grow_a_window}, {"measures", measure}};
static_assert(std::size(moments) + kMoments >= 50);

[[noreturn]] void meet_end(const XServer& server, Drawing drawing, const Moment& moment) {
    begin_application(server);
    grx_affecte_fonction_secours(save_drawing, &drawing);
    if (!start_up()) std::_Exit(3);
    const INT main_window = make(GRX_FEN_BOUTONS, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE, 400, 300);
    grx_affecte_nofen_principale(main_window);
    drawing.window = make(GRX_FEN_GRAPHIQUE);
    moment.meet(drawing);
    std::_Exit(4);
}

TEST_F(RescueTest, TheDrawingIsSavedWhateverTheApplicationDoes) {
    const Drawing drawing = new_drawing(home());
    for (const Moment& moment : moments) {
        SCOPED_TRACE(moment.name);
        std::filesystem::remove(drawing.file);
        const XServer server({.planes = test_planes(), .arguments = {}});
        EXPECT_EXIT(meet_end(server, drawing, moment), testing::ExitedWithCode(1), "^$");
        EXPECT_EQ(home().read("recovered.txt"), saved_drawing(drawing));
    }
}

// --- rescue functions that misbehave, and other handlers ------------------------------------------------------------------

void say(const char* text) {
    if (write(STDERR_FILENO, text, std::strlen(text)) < 0) std::_Exit(30);
}

int say_handler(Display*) {
    say("handler\n");
    return 0;
}

Display* another = nullptr;

void lose_another(void*) {
    say("rescue\n");
    XSync(another, False); // a second loss inside the first
}

void crash(void*) {
    say("rescue\n");
    signal(SIGABRT, SIG_DFL);
    std::abort();
}

void leave(void*) {
    say("rescue\n");
    std::exit(7);
}

// Another server is there, perhaps under the name of the lost one.
void start_again(void* name) {
    setenv("DISPLAY", static_cast<const char*>(name), 1);
    say(grx_init_application() == 0 && x11_disp == nullptr && contexte == nullptr ? "none\n" : "connected\n");
}

void say_rescue(void*) {
    say("rescue\n");
}

[[noreturn]] void meet_with(const XServer& server, GRX_FONCTION_SECOURS rescue, XIOErrorHandler own = nullptr) {
    begin_application(server);
    if (own != nullptr) XSetIOErrorHandler(own);
    if (!start_up()) std::_Exit(3);
    if (grx_affecte_fonction_secours(rescue, nullptr) != 1) std::_Exit(5);
    another = XOpenDisplay(nullptr);
    make(GRX_FEN_ALPHA);
    std::atexit([] {
        GRX_EVENEMENT event{};
        say(grx_digitaliseur(&event, 1) == 0 && grx_recup_objet_fen(1) == nullptr ? "at exit\n" : "wrong\n");
    });
    take_server_away();
    XSync(x11_disp, False);
    std::_Exit(4);
}

struct Misbehaviour {
    const char* name;
    GRX_FONCTION_SECOURS rescue;
    XIOErrorHandler own;
    int status; // 0: killed by a signal
    const char* printed;
};

constexpr Misbehaviour misbehaviours[] = {{"ends the process", leave, nullptr, 7, "^rescue\nat exit\n$"},
    {"crashes", crash, nullptr, 0, "^rescue\n$"},
    {"loses another connection", lose_another, nullptr, 1, "^rescue\nat exit\n$"},
    {"comes before the application's handler", say_rescue, say_handler, 1, "^rescue\nhandler\nat exit\n$"}};

TEST_F(RescueTest, IsCalledOnceWhateverItDoes) {
    for (const Misbehaviour& m : misbehaviours) {
        SCOPED_TRACE(m.name);
        const XServer server({.planes = test_planes(), .arguments = {}});
        if (m.status == 0)
            EXPECT_EXIT(meet_with(server, m.rescue, m.own), testing::KilledBySignal(SIGABRT), m.printed);
        else
            EXPECT_EXIT(meet_with(server, m.rescue, m.own), testing::ExitedWithCode(m.status), m.printed);
    }
}

[[noreturn]] void meet_beside(const XServer& server, std::string other) {
    begin_application(server);
    StdoutCapture no_message; // that no display opens is printed
    if (grx_affecte_fonction_secours(start_again, other.data()) != 1 || !start_up()) std::_Exit(3);
    take_server_away();
    XSync(x11_disp, False);
    std::_Exit(4);
}

TEST_F(RescueTest, FindsNoOtherServerEither) {
    const XServer server({.planes = test_planes(), .arguments = {}}), other({.planes = test_planes(), .arguments = {}});
    EXPECT_EXIT(meet_beside(server, other.name()), testing::ExitedWithCode(1), "^none\n$");
}

[[noreturn]] void meet_without(const XServer& server) {
    begin_application(server);
    if (!start_up()) std::_Exit(3);
    grx_affecte_fonction_secours(say_rescue, nullptr);
    grx_affecte_fonction_secours(nullptr, nullptr);
    take_server_away();
    XSync(x11_disp, False);
    std::_Exit(4);
}

TEST_F(RescueTest, CanBeTakenBack) {
    const XServer server({.planes = test_planes(), .arguments = {}});
    EXPECT_EXIT(meet_without(server), testing::ExitedWithCode(1), "^$");
}

TEST_F(RescueTest, IsNotCalledWhereThereIsNoServer) {
    EXPECT_EXIT(
        {
            setenv("DISPLAY", ":9999", 1);
            grx_affecte_fonction_secours(say_rescue, nullptr);
            std::_Exit(start_up() ? 1 : 0);
        },
        testing::ExitedWithCode(0), "^$");
}

} // namespace
