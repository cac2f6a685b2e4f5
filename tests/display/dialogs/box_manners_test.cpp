// Boxes of an application that says who it is: what they tell window managers, where these put them, where keys go.
#include "tests/display/dialogs/box_kit.h"
#include "tests/display/windows/manners_kit.h"

#include <algorithm>
#include <array>
#include <string>

namespace {
using namespace grxtest;
using Kind = WindowManager::Kind;

constexpr int kPanel = 300; // of the desktop, along the upper edge

class BoxMannersWmTest : public Boxes<WmTest>, public testing::WithParamInterface<Kind> {
  protected:
    WindowManager::Kind manager_kind() const override { return GetParam(); }
    void before_start() override {
        Boxes<WmTest>::before_start();
        const GRX_IDENTITE who = identity("plan", "Plan");
        ASSERT_EQ(grx_affecte_identite(&who), 1);
        const std::array<UNSIGNED_INT, 4> pixels{0xFF102030, 0xFF102030, 0xFF102030, 0xFF102030};
        ASSERT_EQ(grx_ajoute_icone_fenetre(GRX_AUCUN, 2, 2, pixels.data()), 1);
    }
    void SetUp() override {
        Boxes<WmTest>::SetUp();
        ASSERT_TRUE(wait_for([this] { return visible(shell_window(main_)) && frame(shell_of(main_)) != None; }));
        drain();
    }
    void TearDown() override {
        close_boxes();
        while (grx_avancement_finit() == 1) continue;
        drain();
        Boxes<WmTest>::TearDown();
    }
    bool manages_desktops() const { return GetParam() != Kind::mwm; }

    INT shown_message(INT over) {
        GRX_BOITE_MESSAGE told = message(GRX_BOITE_QUESTION, "Enregistrer ?");
        told.titre = "\xC9tage";
        told.nofen_mere = over;
        return shown(grx_affiche_boite_message(&told));
    }
    INT shown_prompt(INT over) {
        GRX_BOITE_SAISIE asked = prompt(GRX_SAISIE_TEXTE, "Nom");
        asked.titre = "\xC9tage";
        asked.nofen_mere = over;
        return shown(grx_affiche_boite_saisie(&asked));
    }
    INT shown(INT number) {
        EXPECT_GT(number, 0);
        EXPECT_TRUE(wait_for([this] { return box() != nullptr && frame(XtParent(box())) != None; }));
        drain();
        return number;
    }
    Window focus() {
        Window window = None;
        int revert = 0;
        XGetInputFocus(test_display(), &window, &revert);
        return window;
    }
    // The window that has the keyboard, or one inside it.
    bool has_keys(Widget shell) {
        const Window window = focus();
        Widget w = window != None && window != PointerRoot ? XtWindowToWidget(x11_disp, window) : nullptr;
        return w != nullptr && grx_recherche_shell(w) == shell;
    }
    void expect_manners(Window window) {
        EXPECT_EQ(property_of(test_display(), window, "WM_CLASS").bytes, std::string("plan\0Plan\0", 10));
        EXPECT_EQ(property_of(test_display(), window, "_NET_WM_NAME").bytes, "\xC3\x89tage");
        EXPECT_EQ(atoms_in(test_display(), window, "_NET_WM_WINDOW_TYPE"),
            std::vector<std::string>{"_NET_WM_WINDOW_TYPE_DIALOG"});
        EXPECT_EQ(
            property_of(test_display(), window, "_NET_WM_PID").longs, std::vector<long>{static_cast<long>(getpid())});
        EXPECT_EQ(property_of(test_display(), window, "WM_TRANSIENT_FOR").longs,
            std::vector<long>{static_cast<long>(shell_window(main_))});
        EXPECT_EQ(property_of(test_display(), window, "_NET_WM_ICON").longs.size(), 6U);
        const auto protocols = atoms_in(test_display(), window, "WM_PROTOCOLS");
        for (const char* name : {"_NET_WM_PING", "WM_DELETE_WINDOW"})
            EXPECT_NE(std::ranges::find(protocols, name), protocols.end()) << name;
    }
    // Asks as managers do whether the application lives.
    bool answers(Window window, const std::function<void()>& step) {
        XSelectInput(test_display(), DefaultRootWindow(test_display()), SubstructureNotifyMask);
        XEvent ping{};
        ping.xclient.type = ClientMessage;
        ping.xclient.window = window;
        ping.xclient.message_type = XInternAtom(test_display(), "WM_PROTOCOLS", False);
        ping.xclient.format = 32;
        ping.xclient.data.l[0] = static_cast<long>(XInternAtom(test_display(), "_NET_WM_PING", False));
        ping.xclient.data.l[1] = 4711;
        ping.xclient.data.l[2] = static_cast<long>(window);
        XSendEvent(test_display(), window, False, NoEventMask, &ping);
        XSync(test_display(), False);
        XEvent event{};
        return wait_until(
            [&] {
                while (XCheckTypedEvent(test_display(), ClientMessage, &event) != 0)
                    if (event.xclient.data.l[1] == 4711) return true;
                return false;
            },
            step, Milliseconds{3000});
    }
};

TEST_P(BoxMannersWmTest, TheyTellWhatTheyAre) {
    for (const bool prompts : {false, true}) {
        const INT number = prompts ? shown_prompt(main_) : shown_message(main_);
        expect_manners(XtWindow(XtParent(box())));
        EXPECT_TRUE(answers(XtWindow(XtParent(box())), [this] { drain(); })) << prompts;
        EXPECT_EQ(grx_detruit_boite(number), 1);
        ASSERT_TRUE(wait_for([this] { return box() == nullptr; }));
    }
}

TEST_P(BoxMannersWmTest, TheKeyboardIsInThemAndGoesBack) {
    XSetInputFocus(test_display(), shell_window(main_), RevertToPointerRoot, CurrentTime);
    XSync(test_display(), False);
    ASSERT_TRUE(wait_for([this] { return has_keys(shell_of(main_)); }));
    pointer().move_in(widget_of(main_), 5, 5);
    drain();
    for (const bool prompts : {false, true}) {
        const INT number = prompts ? shown_prompt(main_) : shown_message(main_);
        Widget shell = XtParent(box());
        pointer().move_in(shell, 5, 5); // managers may have the keyboard follow the pointer
        EXPECT_TRUE(wait_for([&] { return has_keys(shell); }, Milliseconds{3000})) << prompts;
        if (prompts) {
            keyboard().type("abc");
            EXPECT_TRUE(wait_for([this] { return field_text(field()) == "abc"; })) << field_text(field());
        }
        EXPECT_EQ(grx_detruit_boite(number), 1);
        pointer().move_in(widget_of(main_), 5, 5);
        EXPECT_TRUE(wait_for([this] { return has_keys(shell_of(main_)); }, Milliseconds{3000})) << prompts;
    }
}

// A window in a corner: its box would be beneath the panel.
TEST_P(BoxMannersWmTest, TheyStandBesideAPanelOfTheDesktop) {
    if (!manages_desktops()) return;
    Display* display = test_display();
    const Window dock = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1280, kPanel, 0, 0, 0);
    const Atom kind = XInternAtom(display, "_NET_WM_WINDOW_TYPE_DOCK", False);
    XChangeProperty(display, dock, XInternAtom(display, "_NET_WM_WINDOW_TYPE", False), XA_ATOM, 32, PropModeReplace,
        reinterpret_cast<const unsigned char*>(&kind), 1);
    const std::array<long, 4> strut{0, 0, kPanel, 0};
    XChangeProperty(display, dock, XInternAtom(display, "_NET_WM_STRUT", False), XA_CARDINAL, 32, PropModeReplace,
        reinterpret_cast<const unsigned char*>(strut.data()), 4);
    XMapWindow(display, dock);
    XSync(display, False);
    INT height = 0;
    ASSERT_TRUE(wait_for(
        [&] { return grx_recup_zone_travail(nullptr, nullptr, nullptr, &height) == 1 && height == 1024 - kPanel; }));
    for (const INT over : {main_, GRX_AUCUN}) {
        const INT number = shown_message(over);
        const Area own = frame_area(XtParent(box()));
        EXPECT_GE(own.y, kPanel) << testing::PrintToString(own);
        EXPECT_LE(own.y + own.height, 1024) << testing::PrintToString(own);
        EXPECT_EQ(grx_detruit_boite(number), 1);
        ASSERT_TRUE(wait_for([this] { return box() == nullptr; }));
    }
}

TEST_P(BoxMannersWmTest, TheApplicationAnswersWhileItComputes) {
    GRX_AVANCEMENT told{};
    grx_init_avancement(&told);
    told.delai = 0;
    told.titre = "\xC9tage";
    told.nofen_mere = main_;
    ASSERT_EQ(grx_avancement_commence(&told), 1);
    const auto compute = [] { grx_avancement_avance(1, nullptr); };
    ASSERT_TRUE(wait_until([] { return is_viewable(widget_called("avancement")); }, compute));
    const Window window = XtWindow(XtParent(widget_called("avancement")));
    expect_manners(window);
    EXPECT_TRUE(answers(window, compute));
    EXPECT_TRUE(answers(shell_window(main_), compute)) << "the window that the user sees";
    EXPECT_EQ(grx_avancement_finit(), 1);
}

INSTANTIATE_TEST_SUITE_P(Managers, BoxMannersWmTest, testing::Values(Kind::mwm, Kind::openbox, Kind::fvwm),
    [](const testing::TestParamInfo<Kind>& info) {
        return info.param == Kind::mwm ? "mwm" : info.param == Kind::openbox ? "openbox" : "fvwm";
    });

} // namespace
