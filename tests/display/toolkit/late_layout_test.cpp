// Many controls at once: what a burst of them costs, and that it ends where one at a time does.
#include "tests/display/panels/panel_kit.h"
#include "tests/support/counters.h"
#include "tests/support/layouts.h"

#include <Xm/FormP.h>

#include <functional>

namespace {

using namespace grxtest;

// Layouts of a window's form by the toolkit, from the construction on.
class LayoutCount : public Layouts {
  public:
    explicit LayoutCount(INT window) : Layouts(xmFormClassRec.composite_class.change_managed, widget_of(window)) {}
};

class Burst : public ControlsTest {
  protected:
    static GRX_BOUTON numbered(INT window, int i, INT type = GRX_BOU_SIMPLE) {
        GRX_BOUTON result = button_at(type, window, {i % 20 * 18, i / 20 * 18, 16, 16});
        set_title(result, "b" + std::to_string(i));
        return result;
    }

    static std::vector<INT> made(INT window, int count) {
        std::vector<INT> result;
        for (int i = 0; i < count; ++i) result.push_back(make(numbered(window, i)));
        return result;
    }
};

TEST_F(Burst, ControlsOfAFormOnShowCostOneLayoutTogether) {
    const INT window = shown();
    const LayoutCount layouts(window);
    const auto numbers = made(window, 200);
    EXPECT_EQ(layouts.count, 0);
    settle();
    EXPECT_EQ(layouts.count, 1);
    for (const INT number : numbers) grx_detruit_bouton(number);
    EXPECT_EQ(layouts.count, 1);
    settle();
    EXPECT_EQ(layouts.count, 2);
}

TEST_F(Burst, HiddenControlsCostAsLittleWhenMadeShownAndDestroyed) {
    const INT window = shown();
    const LayoutCount layouts(window);
    std::vector<INT> numbers;
    for (int i = 0; i < 100; ++i) {
        GRX_BOUTON hidden = numbered(window, i);
        hidden.attrib &= ~GRX_BOU_ATT_VISIBLE;
        numbers.push_back(make(hidden));
    }
    for (const INT number : numbers) grx_affiche_bouton(number);
    for (const INT number : numbers) EXPECT_TRUE(on_screen(number));
    for (const INT number : numbers) grx_detruit_bouton(number);
    settle();
    EXPECT_EQ(layouts.count, 2);
}

// A form's own way to let a child go sorts all that stay: the square of their number is what it would take.
TEST_F(Burst, AFormSortsNothingForEachControlThatGoes) {
    const INT window = shown();
    static int sorted = 0;
    static XtWidgetProc toolkit;
    toolkit = xmFormClassRec.composite_class.delete_child;
    xmFormClassRec.composite_class.delete_child = [](Widget child) {
        ++sorted;
        toolkit(child);
    };
    for (const INT number : made(window, 60)) grx_detruit_bouton(number);
    settle();
    xmFormClassRec.composite_class.delete_child = toolkit;
    EXPECT_EQ(sorted, 0);
}

TEST_F(Burst, RequestsGrowWithTheControlsAndNoFaster) {
    for (const INT kind : {GRX_FEN_ALPHA, GRX_FEN_BOUTONS, GRX_FEN_MENU}) {
        std::array<unsigned long, 2> requests{};
        std::array<unsigned long, 2> round_trips{};
        for (const int count : {60, 120}) {
            const INT window = shown(kind);
            const Cost cost(x11_disp);
            for (const INT number : made(window, count)) grx_detruit_bouton(number);
            drain();
            requests[count / 60 - 1] = cost.requests();
            round_trips[count / 60 - 1] = cost.round_trips();
            grx_detruit_fenetre(window);
            settle();
        }
        EXPECT_LE(requests[1], 2 * requests[0]) << kind;
        EXPECT_LE(round_trips[1], round_trips[0] + 8) << kind;
    }
}

// --- where a burst ends -------------------------------------------------------------------------------------------

// A control of every kind with every set of attachments, some without a size, some hidden.
std::vector<GRX_BOUTON> various(INT window) {
    std::vector<GRX_BOUTON> result;
    for (const ControlKind& kind : control_kinds) {
        for (INT attached = 0; attached < 16; attached += 3) {
            const int i = static_cast<int>(result.size());
            GRX_BOUTON one = control_of(kind, window);
            one.x = i * 37 % 380;
            one.y = i * 23 % 280;
            one.largeur = i % 3 != 1 ? 20 + i % 50 : -1;
            one.hauteur = i % 3 != 1 ? 15 + i % 20 : -1;
            one.attache = attached;
            if (attached != 0) one.x = one.y = -1;
            if (i % 7 == 3) one.attrib &= ~GRX_BOU_ATT_VISIBLE;
            for (std::size_t side = 0; attached != 0 && side < 4; ++side) one.tabi[side] = 3 + i % 9;
            result.push_back(one);
        }
    }
    return result;
}

struct End {
    std::vector<Rect> made, left;
    Pixels picture;
};

TEST_F(Burst, EndsWhereOneAtATimeEnds) {
    for (const INT kind : {GRX_FEN_ALPHA, GRX_FEN_BOUTONS, GRX_FEN_MENU}) {
        const auto end_of = [&](const std::function<void()>& after_each) {
            End result;
            const INT window = shown(kind);
            std::vector<INT> numbers;
            for (const GRX_BOUTON& one : various(window)) {
                numbers.push_back(make(one));
                after_each();
            }
            drain();
            for (const INT number : numbers) result.made.push_back(rect_of(outermost(control(number))));
            for (std::size_t i = 0; i < numbers.size(); i += 3) {
                grx_detruit_bouton(numbers[i]);
                after_each();
            }
            drain();
            for (Widget child : children_of(widget_of(window))) result.left.push_back(rect_of(child));
            result.picture = grab(x11_disp, x_window(window));
            grx_detruit_fenetre(window);
            settle();
            for (const INT number : numbers) grx_libere_indice_objet_bout(number);
            return result;
        };
        const End one_at_a_time = end_of([&] { drain(); }), burst = end_of([] {});
        EXPECT_EQ(burst.made, one_at_a_time.made) << kind;
        EXPECT_EQ(burst.left, one_at_a_time.left) << kind;
        EXPECT_TRUE(same(one_at_a_time.picture, burst.picture)) << kind;
    }
}

// --- who asks in the middle of it ------------------------------------------------------------------------------------

struct Asking {
    const char* how;
    std::function<Rect(INT)> ask;
};

const std::array<Asking, 3> askings{{{"the library",
                                         [](INT number) {
                                             INT x = 0, y = 0, width = 0, height = 0;
                                             grx_recup_position_bouton(number, &x, &y);
                                             grx_recup_taille_bouton(number, &width, &height);
                                             return Rect{x, y, width, height};
                                         }},
    {"the library, for the size first",
        [](INT number) {
            INT x = 0, y = 0, width = 0, height = 0;
            grx_recup_taille_bouton(number, &width, &height);
            grx_recup_position_bouton(number, &x, &y);
            return Rect{x, y, width, height};
        }},
    {"the toolkit", [](INT number) { return rect_of(number); }}}};

TEST_F(Burst, PlaceAndSizeAreTheFinalOnesWheneverTheyAreAskedFor) {
    for (const Asking& asking : askings) {
        const INT window = shown();
        made(window, 5);
        GRX_BOUTON across = button_at(GRX_BOU_SIMPLE, window, {-1, -1, -1, 30});
        across.attache = GRX_ATTACHE_GAUCHE | GRX_ATTACHE_DROITE | GRX_ATTACHE_BAS;
        across.tabi[GRX_BOU_TABI_GAUCHE] = 7;
        across.tabi[GRX_BOU_TABI_DROITE] = 9;
        across.tabi[GRX_BOU_TABI_BAS] = 5;
        const INT number = make(across);
        EXPECT_EQ(asking.ask(number), (Rect{7, 300 - 5 - 30, 400 - 7 - 9, 30})) << asking.how;
        settle();
        EXPECT_EQ(rect_of(number), (Rect{7, 300 - 5 - 30, 400 - 7 - 9, 30})) << asking.how;
    }
}

TEST_F(Burst, AnApplicationThatReadsEventsByItselfHasItsLayout) {
    const INT window = shown();
    GRX_BOUTON low = button_at(GRX_BOU_SIMPLE, window, {-1, -1, 50, 30});
    low.attache = GRX_ATTACHE_BAS;
    low.tabi[GRX_BOU_TABI_BAS] = 5;
    Widget w = control(make(low));
    const auto laid_out = [&] {
        return server_area(x11_disp, XtWindow(w)).y == server_area(x11_disp, x_window(window)).y + 265;
    };
    EXPECT_TRUE(wait_until(laid_out, [] {
        XSync(x11_disp, False);
        while (XtAppPending(contexte) != 0) XtAppProcessEvent(contexte, XtIMAll);
    }));
}

TEST_F(Burst, AControlIsThereBeforeItsLayout) {
    const INT window = shown();
    const INT number = make(numbered(window, 3));
    EXPECT_TRUE(XtIsRealized(control(number)));
    EXPECT_TRUE(XtIsManaged(control(number)));
    XSync(x11_disp, False);
    EXPECT_TRUE(visible(XtWindow(control(number))));
}

TEST_F(Burst, AControlJustMadeTakesTheKeyboard) {
    const INT window = shown();
    made(window, 3);
    const INT number = make(control_of(GRX_BOU_TEXTE, 0, window));
    grx_force_focus_sur_bouton(number);
    EXPECT_EQ(XmGetFocusWidget(control(number)), control(number));
}

TEST_F(Burst, AResizeInTheMiddleComesAfterIt) {
    const INT window = shown();
    GRX_BOUTON right = button_at(GRX_BOU_SIMPLE, window, {-1, -1, 40, 20});
    right.attache = GRX_ATTACHE_DROITE;
    right.tabi[GRX_BOU_TABI_DROITE] = 8;
    const INT number = make(right);
    grx_change_taille_fenetre(window, 500, 350);
    settle();
    ASSERT_TRUE(wait_for([&] { return rect_of(widget_of(window)).width == 500; }));
    EXPECT_EQ(rect_of(number).x, 500 - 8 - 40);
}

TEST_F(Burst, ManyWindowsAtOnceAreAllLaidOut) {
    std::vector<INT> windows, numbers;
    for (int i = 0; i < 40; ++i) windows.push_back(shown());
    for (const INT window : windows) {
        GRX_BOUTON low = button_at(GRX_BOU_SIMPLE, window, {-1, -1, 50, 30});
        low.attache = GRX_ATTACHE_BAS;
        numbers.push_back(make(low));
    }
    drain();
    for (const INT number : numbers) EXPECT_EQ(control(number)->core.y, 300 - 30);
}

// --- ends in the middle of it ----------------------------------------------------------------------------------------

TEST_F(Burst, AWindowMayGoBeforeItsControlsAreLaidOut) {
    const INT window = shown(), other = shown();
    made(window, 20);
    made(other, 20);
    grx_detruit_fenetre(window);
    settle();
    EXPECT_EQ(grx_recup_objet_fen(window), nullptr);
    EXPECT_TRUE(visible(x_window(other)));
}

TEST_F(Burst, WhatHangsOnAControlThatGoesStays) {
    const INT window = shown();
    const INT first = make(numbered(window, 0)), second = make(numbered(window, 25));
    XtVaSetValues(control(second), XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget, control(first), nullptr);
    settle();
    const INT third = make(numbered(window, 30));
    grx_detruit_bouton(third);
    grx_detruit_bouton(first);
    made(window, 30); // in the memory of those that went
    settle();
    EXPECT_EQ(resource<Widget>(control(second), XmNleftWidget), nullptr);
    EXPECT_EQ(rect_of(second).x, 16 + 25 % 20 * 18);
    EXPECT_TRUE(on_screen(second));
}

TEST_F(Burst, ANumberFreedInItIsGivenOutAtOnce) {
    const INT window = shown();
    const auto numbers = made(window, 30);
    grx_detruit_bouton(numbers[7]);
    EXPECT_EQ(control(numbers[7]), nullptr);
    EXPECT_EQ(make(numbered(window, 40)), numbers[7]);
    EXPECT_NE(control(numbers[7]), nullptr);
    settle();
    EXPECT_EQ(rect_of(numbers[7]), (Rect{0, 36, 16, 16}));
    EXPECT_TRUE(on_screen(numbers[7]));
}

TEST_F(Burst, AGadgetOfTheApplicationIsLaidOutAsWell) {
    const INT window = shown();
    Widget gadget = XmCreatePushButtonGadget(widget_of(window), writable("gadget"), nullptr, 0);
    XtVaSetValues(gadget, XmNbottomAttachment, XmATTACH_FORM, XmNbottomOffset, 4, nullptr);
    XtManageChild(gadget);
    const Rect place = rect_of(gadget);
    EXPECT_EQ(place.y + place.height, 300 - 4);
    XtDestroyWidget(gadget);
    settle();
}

// --- panels ----------------------------------------------------------------------------------------------------------

constexpr std::array<INT, 16> panel_kinds{10, 20, 21, 22, 23, 31, 32, 33, 50, 60, 70, 80, 81, 90, 100, 41};

class PanelBurst : public PanelsTest {
  protected:
    void items(INT type, int count) {
        for (int i = 0; i < count; ++i) {
            GRX_MSG message = item_of(type, "Units-mm-cm-m", i);
            message.clef = key;
            message.couleur = 0; // insensitive ones are what the toolkit asks the server about
            message.x = 100 + i % 4 * 150;
            message.y = i / 4 * 30;
            message.nb_cara = message.largeur = message.hauteur = 5;
            EXPECT_EQ(grx_cree_item(&message), 0);
        }
    }

    void close() {
        grx_detruit_fenetre(window);
        settle();
        grx_supprime_items(1);
        grx_supprime_item_liste(1, key);
    }

    static constexpr INT key = 7;
    const HostList list{key, {"a", "b"}};
};

TEST_F(PanelBurst, ItemsOfEveryKindCostOneLayoutTogether) {
    for (const INT type : panel_kinds) {
        window = shown(GRX_FEN_ALPHA, 700, 500);
        const LayoutCount layouts(window);
        items(type, 12);
        EXPECT_EQ(layouts.count, 0) << type;
        settle();
        EXPECT_EQ(layouts.count, 1) << type;
        close();
    }
}

TEST_F(PanelBurst, EachItemTakesAsManyRoundTripsHoweverManyThereAre) {
    for (const INT type : panel_kinds) {
        std::array<unsigned long, 2> round_trips{};
        for (const std::size_t doubled : {0, 1}) {
            window = shown(GRX_FEN_ALPHA, 700, 500);
            const Cost cost(x11_disp);
            items(type, doubled == 1 ? 40 : 20);
            drain();
            round_trips[doubled] = cost.round_trips();
            close();
        }
        EXPECT_LE(round_trips[1], 2 * round_trips[0] + 8) << type;
    }
}

} // namespace
