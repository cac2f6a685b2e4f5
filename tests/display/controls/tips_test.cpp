// Tips of controls: when they come, where they stand, when they go.
#include "tests/display/controls/tips_kit.h"

#include <X11/Xatom.h>
#include <X11/keysym.h>

#include <array>
#include <climits>

namespace {

using namespace grxtest;

TEST_F(TipsTest, OneComesWhenThePointerRests) {
    const INT button = control(GRX_BOU_DESSINE, 20);
    EXPECT_EQ(grx_affecte_bulle(button, "Circle by its centre"), 1);
    const auto start = Clock::now();
    point_at(button);
    ASSERT_TRUE(comes("Circle by its centre"));
    EXPECT_GE(Clock::now() - start, Milliseconds{550});
    EXPECT_LT(Clock::now() - start, Milliseconds{1500});
    const Area area = tip_area();
    EXPECT_GT(area.y, pointer().position().y) << "below the pointer";
    EXPECT_LT(area.y, pointer().position().y + 40);
    EXPECT_GT(area.width, 60);
    EXPECT_LT(area.height, 40);
    take_pointer_away();
    EXPECT_TRUE(goes());
}

TEST_F(TipsTest, EveryKindOfControlHasThemSensitiveOrNot) {
    grx_affecte_delais_bulles(50, 0);
    for (const auto& kind : control_kinds) {
        for (const bool sensitive : {true, false}) {
            const std::string text = std::string(kind.name) + (sensitive ? "" : ", insensitive");
            const INT nobou = control(kind.type, 150, kind.bits, sensitive);
            ASSERT_EQ(grx_affecte_bulle(nobou, text.c_str()), 1);
            point_at(nobou, kind.type == GRX_BOU_SEPARATEUR ? 1 : 20, kind.type == GRX_BOU_SEPARATEUR ? 1 : 15);
            EXPECT_TRUE(comes(text)) << text;
            grx_detruit_bouton(nobou);
            EXPECT_TRUE(goes(Milliseconds{3000})) << text << ": it goes with its control";
            take_pointer_away();
            drain();
        }
    }
}

TEST_F(TipsTest, ThePointerMustRest) {
    grx_affecte_delais_bulles(200, 0);
    const INT button = control(GRX_BOU_LABEL, 20);
    grx_affecte_bulle(button, "Label");
    const auto end = Clock::now() + Milliseconds{700};
    for (int x = 5; Clock::now() < end; x = x < 60 ? x + 3 : 5) {
        point_at(button, x);
        ASSERT_EQ(tip(), None);
    }
    EXPECT_TRUE(comes("Label"));
}

TEST_F(TipsTest, ANeighbourComesAtOnce) {
    const INT first = control(GRX_BOU_DESSINE, 20), second = control(GRX_BOU_DESSINE, 120);
    grx_affecte_bulle(first, "First");
    grx_affecte_bulle(second, "Second");
    point_at(first);
    ASSERT_TRUE(comes("First"));
    const auto start = Clock::now();
    point_at(second);
    ASSERT_TRUE(comes("Second"));
    EXPECT_LT(Clock::now() - start, Milliseconds{400});
}

TEST_F(TipsTest, ItGoesAtAnyPressAndDoesNotComeBack) {
    grx_affecte_delais_bulles(60, 0);
    const INT button = control(GRX_BOU_DESSINE, 20);
    grx_affecte_bulle(button, "Text");
    for (int way = 0; way < 3; ++way) {
        point_at(button);
        ASSERT_TRUE(comes("Text"));
        if (way == 0) pointer().click();
        if (way == 1) keyboard().key(XK_a);
        if (way == 2) pointer().wheel(1);
        EXPECT_TRUE(goes());
        EXPECT_TRUE(stays_away());
        take_pointer_away();
        drain();
    }
    EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 1) << "the click is the control's as ever";
}

TEST_F(TipsTest, ItGoesAfterAWhileAndWithItsWindow) {
    grx_affecte_delais_bulles(60, 300);
    const INT button = control(GRX_BOU_DESSINE, 20);
    grx_affecte_bulle(button, "Text");
    point_at(button);
    ASSERT_TRUE(comes("Text"));
    EXPECT_TRUE(goes(Milliseconds{3000}));
    EXPECT_TRUE(stays_away());
    take_pointer_away();
    grx_affecte_delais_bulles(60, 0);
    point_at(button);
    ASSERT_TRUE(comes("Text"));
    grx_cache_fenetre(window_);
    EXPECT_TRUE(goes(Milliseconds{3000}));
}

TEST_F(TipsTest, ItStaysOnTheScreen) {
    grx_affecte_delais_bulles(30, 0);
    GRX_FENETRE corner = described(GRX_FEN_BOUTONS, GRX_FEN_ATT_VISIBLE, 200, 150);
    corner.x = grx_recup_lar_ecran() - 200;
    corner.y = 0;
    window_ = make(corner);
    ASSERT_TRUE(wait_visible(widget_of(window_)));
    const INT button = control(GRX_BOU_DESSINE, 110);
    ASSERT_EQ(grx_affecte_bulle(button, "A tip that is longer than what is left of the screen, on two lines: "
                                        "the second one is needed here"),
        1);
    point_at(button, 60, 30);
    ASSERT_TRUE(wait_for([&] { return tip() != None; }));
    const Area area = tip_area();
    EXPECT_LE(area.x + area.width, grx_recup_lar_ecran());
    EXPECT_LT(area.y + area.height, pointer().position().y) << "above it, for there is no room below";
    EXPECT_GE(area.height, 30) << "two lines";
    std::string huge(100'000, 'x');
    EXPECT_EQ(grx_affecte_bulle(button, huge.c_str()), 1);
    drain();
    EXPECT_GE(tip_area().x, 0);
    EXPECT_GE(tip_area().y, 0);
    EXPECT_EQ(grx_recup_bulle(button, nullptr, 0), 100'000);
}

TEST_F(TipsTest, TextsAreKeptReadAndTakenAway) {
    const INT button = control(GRX_BOU_DESSINE, 20);
    std::array<char, 8> out{};
    EXPECT_EQ(grx_recup_bulle(button, out.data(), 8), GRX_ECHEC_ABSENT);
    char text[] = "R\xE8gle et \xE9querre";
    EXPECT_EQ(grx_affecte_bulle(button, text), 1);
    text[0] = '?';
    EXPECT_EQ(grx_recup_bulle(button, out.data(), 8), 16);
    EXPECT_STREQ(out.data(), "R\xE8gle e");
    EXPECT_EQ(grx_recup_bulle(button, nullptr, 8), 16);
    EXPECT_EQ(grx_recup_bulle(button, out.data(), 0), 16);
    grx_affecte_delais_bulles(30, 0);
    point_at(button);
    ASSERT_TRUE(comes("R\xE8gle et \xE9querre"));
    EXPECT_EQ(grx_affecte_bulle(button, "Other"), 1);
    EXPECT_TRUE(comes("Other")) << "at once, while it is on show";
    EXPECT_EQ(grx_affecte_bulle(button, ""), 1);
    EXPECT_TRUE(goes());
    EXPECT_EQ(grx_affecte_bulle(button, nullptr), 1) << "it has none already";
    take_pointer_away();
    drain();
    point_at(button);
    EXPECT_TRUE(stays_away());
}

TEST_F(TipsTest, AllCanBeSwitchedOff) {
    EXPECT_EQ(grx_recup_etat_bulles(), 1);
    const INT button = control(GRX_BOU_DESSINE, 20);
    grx_affecte_bulle(button, "Text");
    grx_affecte_delais_bulles(30, 0);
    point_at(button);
    ASSERT_TRUE(comes("Text"));
    EXPECT_EQ(grx_affecte_etat_bulles(0), 1);
    EXPECT_EQ(grx_recup_etat_bulles(), 0);
    EXPECT_TRUE(goes());
    take_pointer_away();
    drain();
    point_at(button);
    EXPECT_TRUE(stays_away());
    EXPECT_EQ(grx_affecte_etat_bulles(-7), 1);
    take_pointer_away();
    drain();
    point_at(button);
    EXPECT_TRUE(comes("Text"));
}

TEST_F(TipsTest, ANumberGivenAgainHasNoTip) {
    const INT button = control(GRX_BOU_DESSINE, 20);
    grx_affecte_bulle(button, "Old");
    grx_detruit_bouton(button);
    drain();
    ASSERT_EQ(control(GRX_BOU_DESSINE, 20), button);
    EXPECT_EQ(grx_recup_bulle(button, nullptr, 0), GRX_ECHEC_ABSENT);
    grx_affecte_delais_bulles(30, 0);
    point_at(button);
    EXPECT_TRUE(stays_away());
}

TEST_F(TipsTest, TheFocusStaysWhereItIs) {
    const INT field = control(GRX_BOU_TEXTE, 20);
    grx_affecte_bulle(field, "A name");
    grx_affecte_delais_bulles(30, 0);
    pointer().click_in(grx_recup_objet_bout(field), 20, 15);
    drain();
    take_pointer_away();
    drain();
    point_at(field);
    ASSERT_TRUE(comes("A name"));
    keyboard().type("abc");
    EXPECT_TRUE(goes());
    char text[256] = "";
    EXPECT_TRUE(wait_for([&] {
        grx_recup_texte_bouton(field, text);
        return std::string(text).find("abc") != std::string::npos;
    })) << text;
}

TEST_F(TipsTest, WithoutATipNothingIsAskedOfTheServer) {
    const INT button = control(GRX_BOU_DESSINE, 20);
    settle();
    const auto passing = [&] {
        Cost cost(x11_disp);
        for (int i = 0; i < 5; ++i) {
            pointer().move_in(grx_recup_objet_bout(button), 20, 15);
            pointer().move(5, 5);
            XSync(test_display(), False);
            XSync(x11_disp, False);
            while (grx_digitaliseur(nullptr, 0) != 0 || XPending(x11_disp) > 0) {
            }
        }
        return cost.round_trips();
    };
    const auto before = passing();
    grx_affecte_etat_bulles(0);
    grx_affecte_bulle(button, "Text");
    EXPECT_LE(passing(), before) << "switched off they cost no answer of the server";
}

TEST_F(TipsTest, HostileArguments) {
    for (const INT nobou : no_controls) {
        EXPECT_EQ(grx_affecte_bulle(nobou, "text"), GRX_ECHEC_NUMERO);
        EXPECT_EQ(grx_affecte_bulle(nobou, nullptr), GRX_ECHEC_NUMERO);
        EXPECT_EQ(grx_recup_bulle(nobou, nullptr, INT_MAX), GRX_ECHEC_ABSENT);
    }
    for (const INT n : {INT_MIN, -1, 0, INT_MAX}) EXPECT_EQ(grx_affecte_delais_bulles(n, n), 1);
    const INT button = control(GRX_BOU_DESSINE, 20);
    EXPECT_GT(fail_each_allocation([&] {
        const INT result = grx_affecte_bulle(button, "text");
        EXPECT_TRUE(result == 1 || result == GRX_ECHEC_MEMOIRE) << result;
    }),
        0);
    grx_affecte_bulle(button, nullptr);
    const NoLeak no_leak;
    for (int round = 0; round < 500; ++round) {
        const INT made = make(control_of(GRX_BOU_DESSINE, 0, window_));
        ASSERT_EQ(grx_affecte_bulle(made, "text"), 1);
        ASSERT_EQ(grx_affecte_bulle(button, "another"), 1);
        ASSERT_EQ(grx_affecte_bulle(button, ""), 1);
        grx_detruit_bouton(made);
    }
    drain();
    grx_detruit_fenetre(window_);
    drain();
    EXPECT_EQ(grx_affecte_bulle(button, "text"), GRX_ECHEC_NUMERO);
}

// Under window managers, which must not frame it, place it or give it the keyboard.
template <class Fixture>
class Managed : public Fixture {
  protected:
    void expect_plain_tip() {
        const INT window = make(GRX_FEN_BOUTONS, GRX_FEN_ATT_VISIBLE, 300, 200);
        ASSERT_TRUE(this->wait_visible(widget_of(window)));
        const INT button = make(control_of(GRX_BOU_DESSINE, 0, window));
        ASSERT_TRUE(this->wait_visible(grx_recup_objet_bout(button)));
        grx_affecte_delais_bulles(30, 0);
        grx_affecte_bulle(button, "Text");
        this->pointer().move_in(grx_recup_objet_bout(button), 20, 15);
        Widget shell = nullptr;
        ASSERT_TRUE(this->wait_for([&] { return (shell = shown_tip()) != nullptr; }));
        const Area area = server_area(this->test_display(), XtWindow(shell));
        EXPECT_EQ(area.x, this->pointer().position().x + 1);
        EXPECT_EQ(area.y, this->pointer().position().y + 20 + 1);
        EXPECT_EQ(this->frame(shell), None);
        Window focus = None;
        int revert = 0;
        XGetInputFocus(this->test_display(), &focus, &revert);
        EXPECT_NE(focus, XtWindow(shell));
        grx_detruit_fenetre(window);
        EXPECT_TRUE(this->wait_for([&] { return shown_tip() == nullptr; }));
    }

  private:
    Widget shown_tip() {
        for (const Window w : children_of(this->test_display(), DefaultRootWindow(this->test_display()))) {
            const Widget shell = XtWindowToWidget(x11_disp, w);
            if (shell != nullptr && std::string(XtName(shell)) == "bulle" && this->visible(w)) return shell;
        }
        return nullptr;
    }
};

// An application may set the reserved colours as it likes: these are a dark sheet with light texts.
class TipsOfOtherColoursTest : public TipsTest {
    void before_start() override {
        TipsTest::before_start();
        constexpr INT sheet[] = {22, 27, 34}, light[] = {245, 245, 245}, grey[] = {225, 228, 232};
        for (INT colour = 0; colour < GRX_NB_COULEURS_RESERVE; ++colour)
            std::copy_n(colour == 0 ? sheet : colour == 1 ? light : grey, 3, palette_reserve[colour]);
    }
};

TEST_F(TipsOfOtherColoursTest, CanBeReadAllTheSame) {
    const INT button = control(GRX_BOU_SIMPLE, 20);
    grx_affecte_delais_bulles(30, 0);
    grx_affecte_bulle(button, "Text");
    point_at(button);
    ASSERT_TRUE(comes("Text"));
    Pixel text = 0, background = 0;
    XtVaGetValues(children_of(XtWindowToWidget(x11_disp, tip())).at(0), XmNforeground, &text, XmNbackground,
        &background, nullptr);
    XColor drawn[2] = {};
    drawn[0].pixel = text;
    drawn[1].pixel = background;
    XQueryColors(x11_disp, x11_cmap, drawn, 2);
    EXPECT_LT(drawn[0].green + 100 * 256, drawn[1].green);
}

class TipsWmTest : public Managed<WmTest> {};

TEST_F(TipsWmTest, ATipIsNobodysBusiness) {
    expect_plain_tip();
}

class TipsOpenboxWmTest : public Managed<WmTest> {
    WindowManager::Kind manager_kind() const override { return WindowManager::Kind::openbox; }
};

TEST_F(TipsOpenboxWmTest, ATipIsNobodysBusiness) {
    expect_plain_tip();
}

TEST_F(On8, ATipTakesNoColourCells) {
    const INT window = make(GRX_FEN_BOUTONS, GRX_FEN_ATT_VISIBLE, 300, 200);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    const INT button = make(control_of(GRX_BOU_DESSINE, 0, window));
    grx_affecte_delais_bulles(30, 0);
    settle();
    const auto free_cells = [] {
        std::array<unsigned long, 256> pixels{};
        unsigned int count = 0;
        unsigned long plane = 0;
        while (count < pixels.size() && XAllocColorCells(x11_disp, x11_cmap, False, &plane, 0, &pixels[count], 1))
            ++count;
        XFreeColors(x11_disp, x11_cmap, pixels.data(), static_cast<int>(count), 0);
        return count;
    };
    const unsigned int before = free_cells();
    grx_affecte_bulle(button, "Text");
    pointer().move_in(grx_recup_objet_bout(button), 20, 15);
    const auto end = Clock::now() + Milliseconds{400};
    EXPECT_TRUE(wait_for([&] { return Clock::now() > end; }));
    EXPECT_EQ(free_cells(), before);
}

} // namespace
