// Sessions at an application that owns its loop: it waits in grx_digitaliseur and acts on the records, while a user works
// with pointer and keyboard, and the window manager does what window managers do.
#include "tests/support/window_kit.h"

#include <X11/keysym.h>

#include <algorithm>
#include <functional>
#include <thread>

namespace {

using namespace grxtest;

// Draws a rectangle where the user presses, lines while the user drags, and its plan whenever that is lost.
class Application {
  public:
    void open() {
        GRX_FENETRE window = described(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE, 500, 120);
        std::snprintf(window.titre, sizeof window.titre, "Application");
        ASSERT_EQ(grx_cree_fenetre(&window), 0);
        main_ = window.nofen;
        grx_affecte_nofen_principale(main_);
        window = described(GRX_FEN_GRAPHIQUE, GRX_FEN_ATT_VISIBLE, 400, 300);
        window.y = 1024 - 350 - 300;
        window.curseur = grx_recup_curseur_graphique();
        std::snprintf(window.titre, sizeof window.titre, "Plan 1");
        ASSERT_EQ(grx_cree_fenetre(&window), 0);
        plan_ = window.nofen;
        grx_affecte_nofen_active(plan_);
        width_ = 400;
        height_ = 300;
        running_ = true;
    }

    // One turn of the loop.
    void step() {
        GRX_EVENEMENT event{};
        if (!grx_digitaliseur(&event, 1)) return;
        seen_.push_back(event);
        dispatch(event);
    }

    INT main_window() const { return main_; }
    INT plan() const { return plan_; }
    bool running() const { return running_; }
    int redraws() const { return redraws_; }
    const std::vector<GRX_EVENEMENT>& seen() const { return seen_; }

    int count(INT type, INT window) const {
        return static_cast<int>(std::ranges::count_if(
            seen_, [=](const GRX_EVENEMENT& e) { return e.type_evenement == type && e.affichage.nofen == window; }));
    }

  private:
    void dispatch(const GRX_EVENEMENT& event) {
        switch (event.type_evenement) {
        case GRX_EVT_AFFICHAGE:
            if (event.affichage.nofen == plan_) draw_plan();
            break;
        case GRX_EVT_CHGT_TAILLE:
            if (event.chgt_taille.nofen == plan_) resize(event.chgt_taille);
            break;
        case GRX_EVT_BOUTON_APPUI: press(event.bouton_appui); break;
        case GRX_EVT_SOURIS_BOUGE: drag(event.souris_bouge); break;
        case GRX_EVT_CARAC_APPUI:
            if (event.carac_appui.carac == 'e') erase();
            break;
        case GRX_EVT_DESTRUCTION:
            if (event.destruction.nofen == plan_) plan_ = GRX_AUCUN;
            if (event.destruction.nofen == main_) running_ = false;
            break;
        default: break;
        }
    }

    void resize(const GRX_CHGT_TAILLE& change) {
        width_ = change.largeur;
        height_ = change.hauteur;
        draw_plan();
    }

    // The two diagonals, and what the server and the backing picture keep of them.
    void draw_plan() {
        ++redraws_;
        draw_segment({0, 0}, {width_ - 1, height_ - 1}, 2);
        draw_segment({0, height_ - 1}, {width_ - 1, 0}, 2);
        grx_memorise_bitmap_backingstore(plan_);
    }

    void press(const GRX_BOUTON_APPUI& at) {
        if (at.nofen != plan_) return;
        GRX_RECTANGLE mark{};
        mark.nofen = plan_;
        mark.x1 = at.x - 3;
        mark.x2 = at.x + 3;
        mark.y1 = height_ - at.y - 3; // records count from the bottom, drawing from the top
        mark.y2 = height_ - at.y + 3;
        mark.attrib.coul_trace = 3;
        grx_remplit_rectangle(mark);
        grx_memorise_bitmap_backingstore(plan_);
        last_ = {at.x, height_ - at.y};
    }

    void drag(const GRX_SOURIS_BOUGE& to) {
        if (to.nofen != plan_ || to.bouton != GRX_SOURIS_GAUCHE) return;
        draw_segment(last_, {to.x, height_ - to.y}, 4);
        last_ = {to.x, height_ - to.y};
        grx_memorise_bitmap_backingstore(plan_);
    }

    void erase() {
        grx_efface_zone_graphique(plan_);
        grx_memorise_bitmap_backingstore(plan_);
    }

    void draw_segment(Point from, Point to, INT colour) const {
        GRX_SEGMENT segment{};
        segment.nofen = plan_;
        segment.x1 = from.x;
        segment.y1 = from.y;
        segment.x2 = to.x;
        segment.y2 = to.y;
        segment.attrib.coul_trace = colour;
        grx_trace_segment(segment);
    }

    INT main_ = GRX_AUCUN, plan_ = GRX_AUCUN;
    INT width_ = 0, height_ = 0;
    Point last_;
    bool running_ = false;
    int redraws_ = 0;
    std::vector<GRX_EVENEMENT> seen_;
};

// The user sits at a connection of their own and works while the application waits.
class User {
  public:
    explicit User(const std::string& server) : connection_(server), pointer_(connection_), keyboard_(connection_) {}
    Pointer& pointer() { return pointer_; }
    Keyboard& keyboard() { return keyboard_; }
    Display* display() { return connection_.display(); }

  private:
    InputConnection connection_;
    Pointer pointer_;
    Keyboard keyboard_;
};

// Wakes a waiting application when something that should have come did not.
class Deadline {
  public:
    explicit Deadline(INT window) : window_(XtWindow(shell_of(window))) {
        timer_ = XtAppAddTimeOut(
            contexte, static_cast<unsigned long>(default_deadline.count()),
            [](XtPointer self, XtIntervalId*) { static_cast<Deadline*>(self)->wake(); }, this);
    }
    ~Deadline() {
        if (!passed_) XtRemoveTimeOut(timer_);
    }
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;
    bool passed() const { return passed_; }

  private:
    void wake() {
        passed_ = true;
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = window_;
        event.xclient.message_type = XInternAtom(x11_disp, "WM_PROTOCOLS", False);
        event.xclient.format = 32;
        XSendEvent(x11_disp, window_, False, NoEventMask, &event);
    }

    Window window_;
    XtIntervalId timer_ = 0;
    bool passed_ = false;
};

template <class Base>
class Session : public Base {
  protected:
    void before_start() override { this->write_menu(""); }

    void SetUp() override {
        Base::SetUp();
        grx_set_tatitre(17);
        grx_set_tabord(7);
        application_.open();
        EXPECT_TRUE(waits_for([&] { return application_.redraws() > 0; }));
        EXPECT_TRUE(this->wait_visible(widget_of(application_.plan())));
    }

    // The application goes on until the condition holds.
    bool waits_for(const std::function<bool()>& condition) {
        const Deadline deadline(application_.main_window());
        while (!condition() && !deadline.passed()) application_.step();
        return condition();
    }

    // The same while the user does something.
    bool user_does(const std::function<void(User&)>& what, const std::function<bool()>& condition) {
        std::thread user([&] {
            User somebody(this->server().name());
            what(somebody);
        });
        const bool result = waits_for(condition);
        user.join();
        return result;
    }

    Pixels picture() { return grab(x11_disp, x_window(application_.plan())); }
    static std::uint32_t colour(INT index) { return static_cast<std::uint32_t>(grx_recup_couleur(index)); }

    Area plan_area() {
        XSync(x11_disp, False);
        return server_area(this->test_display(), x_window(application_.plan()));
    }

    Application application_;
};

class SessionWmTest : public Session<WmTest> {};

TEST_F(SessionWmTest, DrawResizeIconifyClose) {
    Application& app = application_;
    const INT plan = app.plan(), main = app.main_window();
    const Area start = plan_area();
    ASSERT_EQ(start.width, 400);
    EXPECT_GT(picture().count(colour(2)), 600) << "the plan is drawn: two diagonals of 400 points";

    // A press marks its place.
    EXPECT_TRUE(user_does(
        [&](User& user) {
            user.keyboard().press(XK_Shift_L);
            user.pointer().click(start.x + 100, start.y + 40);
            user.keyboard().release(XK_Shift_L);
        },
        [&] { return app.count(GRX_EVT_BOUTON_RELACHE, plan) == 1; }));
    const auto press = std::ranges::find_if(
        app.seen(), [](const GRX_EVENEMENT& e) { return e.type_evenement == GRX_EVT_BOUTON_APPUI; });
    ASSERT_NE(press, app.seen().end());
    EXPECT_EQ(press->bouton_appui.etat, GRX_ETAT_SHIFT);
    EXPECT_EQ(press->bouton_appui.y, 300 - 40);
    EXPECT_EQ(picture().bounds(colour(3)), (Area{97, 37, 7, 7}));

    // A drag draws.
    EXPECT_TRUE(user_does(
        [&](User& user) {
            user.pointer().drag({start.x + 150, start.y + 20}, {start.x + 230, start.y + 20});
        },
        [&] { return app.count(GRX_EVT_BOUTON_RELACHE, plan) == 2; }));
    EXPECT_GE(picture().bounds(colour(4)).width, 75);

    // A resize empties the picture, the application draws its plan again.
    const Area frame_before = frame_area(shell_of(plan));
    const int redraws = app.redraws();
    EXPECT_TRUE(user_does(
        [&](User& user) {
            const Point corner{frame_before.x + frame_before.width - 3, frame_before.y + frame_before.height - 3};
            EXPECT_TRUE(user.pointer().drag_frame(corner, {corner.x + 80, corner.y + 50}));
        },
        [&] { return app.count(GRX_EVT_CHGT_TAILLE, plan) == 1; }));
    EXPECT_EQ(app.redraws(), redraws + 1);
    const Area larger = plan_area();
    EXPECT_GT(larger.width, 450);
    EXPECT_GT(larger.height, 330);
    EXPECT_EQ(picture().bounds(colour(2)), (Area{0, 0, larger.width, larger.height})) << "from corner to corner";

    // Iconified and back the picture is there without the application's help.
    const Pixels before = picture();
    EXPECT_TRUE(user_does(
        [&](User& user) {
            const Area f = frame_area(shell_of(plan));
            user.pointer().click(f.x + f.width - 7 - 17 - 8, f.y + 7 + 8);
        },
        [&] { return app.count(GRX_EVT_ICONIFICATION, plan) == 1; }));
    const Window shell = XtWindow(shell_of(plan));
    const int shown_before = app.count(GRX_EVT_DESICONIF, plan); // its first appearance was one
    EXPECT_TRUE(user_does(
        [&](User& user) {
            XMapWindow(user.display(), shell); // what a task bar does
            XSync(user.display(), False);
        },
        [&] { return app.count(GRX_EVT_DESICONIF, plan) > shown_before; }));
    const auto back = [&] {
        XSync(x11_disp, False);
        while (XPending(x11_disp)) app.step();
        return visible(x_window(plan)) && picture() == before;
    };
    EXPECT_TRUE(wait_until(back, [&] { wait_readable(ConnectionNumber(x11_disp), Milliseconds{5}); }));
    EXPECT_EQ(app.redraws(), redraws + 1) << "from its backing picture";

    // The plan is closed, the application goes on; then the application is.
    EXPECT_TRUE(user_does(
        [&](User& user) {
            user.pointer().click(larger.x + 10, larger.y + 10);
            user.keyboard().key(XK_F4, Mod1Mask);
        },
        [&] { return app.plan() == GRX_AUCUN; }));
    EXPECT_TRUE(app.running());
    EXPECT_EQ(widget_of(plan), nullptr);
    const Window main_shell = XtWindow(shell_of(main));
    EXPECT_TRUE(
        user_does([&](User& user) { ask_to_close(user.display(), main_shell); }, [&] { return !app.running(); }));
    EXPECT_EQ(widget_of(main), nullptr);
    EXPECT_EQ(app.count(GRX_EVT_DESTRUCTION, plan), 1);
    EXPECT_EQ(app.count(GRX_EVT_DESTRUCTION, main), 1);
}

class SessionTest : public Session<DisplayTest> {};

TEST_F(SessionTest, KeysReachThePlanUnderThePointer) {
    const Area place = plan_area();
    ASSERT_GT(picture().count(colour(2)), 0);
    EXPECT_TRUE(user_does(
        [&](User& user) {
            user.pointer().move(place.x + 50, place.y + 60);
            user.keyboard().type("xe");
        },
        [&] { return application_.count(GRX_EVT_CARAC_APPUI, application_.plan()) == 2; }));
    EXPECT_EQ(picture().count(colour(2)), 0) << "e erases";
    EXPECT_EQ(application_.seen().back().carac_appui.y, 60);
}

TEST_F(SessionTest, AQuestionHoldsTheOtherWindows) {
    GRX_FENETRE window = described(GRX_FEN_MESSAGE, GRX_FEN_ATT_VISIBLE, 300, 150);
    window.fen_mere = application_.main_window();
    window.x = 700;
    std::snprintf(window.message, sizeof window.message, "Leave without saving?");
    ASSERT_EQ(grx_cree_fenetre(&window), 0);
    const INT question = window.nofen;
    grx_attend_creation_fenetre(question);
    grx_affecte_fenetre_a_digitaliser(question);
    Widget ok = XtNameToWidget(widget_of(question), "OK");
    ASSERT_NE(ok, nullptr);
    const Area box = server_area(test_display(), x_window(question));
    const Point confirm{box.x + resource<Position>(ok, XmNx) + 10, box.y + resource<Position>(ok, XmNy) + 10};
    const Window plan_shell = XtWindow(shell_of(application_.plan()));

    std::thread user([&] {
        User somebody(server().name());
        ask_to_close(somebody.display(), plan_shell); // not now
        somebody.pointer().click(confirm.x, confirm.y);
    });
    GRX_EVENEMENT event{};
    const Deadline deadline(application_.main_window());
    while (event.type_evenement != GRX_EVT_REPONSE && !deadline.passed()) grx_digitaliseur_fenetre(&event, 1);
    user.join();
    ASSERT_EQ(event.type_evenement, GRX_EVT_REPONSE);
    EXPECT_EQ(event.reponse_question.nofen, question);
    EXPECT_EQ(event.reponse_question.reponse, 1);
    EXPECT_NE(widget_of(application_.plan()), nullptr) << "the plan was not closed meanwhile";
    grx_affecte_fenetre_a_digitaliser(-1);
    grx_detruit_fenetre(question);
    EXPECT_TRUE(user_does([&](User& somebody) { ask_to_close(somebody.display(), plan_shell); },
        [&] { return application_.plan() == GRX_AUCUN; }));
}

TEST_F(SessionTest, PlansComeAndGo) {
    std::vector<INT> plans;
    for (int i = 0; i < 6; ++i) {
        const INT n = make(GRX_FEN_GRAPHIQUE);
        ASSERT_GT(n, 0);
        grx_attend_creation_fenetre(n);
        EXPECT_TRUE(visible(x_window(n))) << n;
        plans.push_back(n);
    }
    const NoLeak no_leak;
    for (INT n : {plans[1], plans[4]}) {
        const Window shell = XtWindow(shell_of(n));
        EXPECT_TRUE(user_does([&](User& user) { ask_to_close(user.display(), shell); },
            [&] { return application_.count(GRX_EVT_DESTRUCTION, n) == 1; }));
    }
    EXPECT_EQ(make(GRX_FEN_GRAPHIQUE), plans[1]) << "the lowest number that is free";
    EXPECT_EQ(make(GRX_FEN_GRAPHIQUE), plans[4]);
    for (INT n : {plans[1], plans[4]}) {
        grx_attend_creation_fenetre(n);
        EXPECT_TRUE(visible(x_window(n)));
        grx_detruit_fenetre(n);
    }
}

} // namespace
