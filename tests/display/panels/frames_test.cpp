// The frames that hold the parts of message dialogs: what is made for each kind, and its end.
#include "tests/display/panels/message_kit.h"
#include "tests/support/fake_visual.h"
#include "tests/support/stdout_capture.h"

#include <optional>

namespace {

using namespace grxtest;

class Supports : public DialogTest {
  protected:
    Widget support(const GRX_MSG& message) { return grx_cree_support_message(window, message); }
    Widget support(INT type, INT attribut) { return support(dialog(type, attribut)); }

    // The form around everything, with its frame in it.
    void expect_frame(Widget form, Widget frame) {
        ASSERT_TRUE(form && frame);
        EXPECT_EQ(name_of(form), "Support cadre");
        EXPECT_TRUE(is_a(form, xmFormWidgetClass));
        EXPECT_EQ(XtParent(form), widget_of(window));
        EXPECT_EQ(children_of(form), std::vector<Widget>{frame});
        EXPECT_EQ(name_of(frame), "Cadre");
        EXPECT_TRUE(is_a(frame, xmFrameWidgetClass));
        EXPECT_EQ(resource<unsigned char>(frame, XmNshadowType), XmSHADOW_ETCHED_IN);
        EXPECT_EQ(resource<unsigned char>(frame, XmNleftAttachment), XmATTACH_FORM);
        EXPECT_EQ(resource<unsigned char>(frame, XmNrightAttachment), XmATTACH_FORM);
        EXPECT_TRUE(XtIsManaged(form));
        EXPECT_TRUE(XtIsManaged(frame));
        EXPECT_EQ(resource<Position>(form, XmNx), 30);
        EXPECT_EQ(resource<Position>(form, XmNy), 40);
    }

    // A support inside the frame.
    void expect_inside(Widget inner, WidgetClass kind) {
        ASSERT_NE(inner, nullptr);
        EXPECT_EQ(name_of(inner), "Support");
        EXPECT_TRUE(is_a(inner, kind));
        EXPECT_TRUE(XtIsManaged(inner));
        expect_frame(up(inner, 2), up(inner, 1));
        EXPECT_EQ(children_of(up(inner, 1)), std::vector<Widget>{inner});
    }

    void expect_bare_frame(Widget frame) {
        expect_frame(up(frame, 1), frame);
        EXPECT_EQ(resource<unsigned char>(frame, XmNtopAttachment), XmATTACH_FORM);
        EXPECT_TRUE(children_of(frame).empty());
    }

    void expect_radio_box(Widget box, bool vertical) {
        expect_inside(box, xmRowColumnWidgetClass);
        EXPECT_TRUE(resource<Boolean>(box, XmNradioBehavior));
        EXPECT_EQ(resource<unsigned char>(box, XmNorientation), vertical ? XmVERTICAL : XmHORIZONTAL);
    }

    void expect_row(Widget row, bool vertical) {
        expect_inside(row, xmRowColumnWidgetClass);
        EXPECT_FALSE(resource<Boolean>(row, XmNradioBehavior));
        EXPECT_EQ(resource<unsigned char>(row, XmNrowColumnType), XmWORK_AREA);
        EXPECT_EQ(resource<WidgetClass>(row, XmNentryClass), xmToggleButtonGadgetClass);
        EXPECT_EQ(resource<unsigned char>(row, XmNorientation), vertical ? XmVERTICAL : XmHORIZONTAL);
        const auto top = resource<unsigned char>(XtParent(row), XmNtopAttachment);
        EXPECT_TRUE(top == XmATTACH_WIDGET || top == XmATTACH_FORM) << "without a widget named the form is taken";
    }

    INT toggle(Widget parent, const char* title, INT value = 0) {
        GRX_BOUTON description = control_of(GRX_BOU_BASCULE, 0, -1, title);
        description.ref_fen_mere = parent;
        description.x = description.y = description.largeur = description.hauteur = -1;
        description.tabi[GRX_BOU_TABI_VALEUR] = value;
        return placed(description);
    }

    bool set(INT nobou) { return XmToggleButtonGetState(control(nobou)) != 0; }

    void click(INT nobou) {
        pointer().click_in(control(nobou));
        drain();
    }

    static GRX_MSG record_with(GRX_MSG message, Widget made) {
        message.ref_fen_mere = made;
        return message;
    }
};

TEST_F(Supports, APlainOneIsAFormInAFrameInAForm) {
    GRX_MSG message = dialog(2, 0);
    message.largeur = 170;
    message.hauteur = 90;
    const Widget inner = support(message);
    expect_inside(inner, xmFormWidgetClass);
    ASSERT_TRUE(wait_visible(inner));
    EXPECT_EQ(extent_of(inner), (Extent{170, 90}));
    EXPECT_GE(extent_of(up(inner, 2)).width, 170);
    EXPECT_LT(extent_of(up(inner, 2)).width, 190);
    EXPECT_LT(extent_of(up(inner, 2)).height, 110);
}

TEST_F(Supports, ASizeGivenIsNotTheContents) {
    GRX_MSG message = dialog(2, 0);
    message.largeur = 170;
    message.hauteur = 90;
    const Widget inner = support(message);
    GRX_BOUTON description = control_of(GRX_BOU_LABEL, 0, -1);
    description.ref_fen_mere = inner;
    description.x = description.y = 5;
    description.largeur = description.hauteur = 20;
    const INT small = placed(description);
    drain();
    EXPECT_EQ(extent_of(inner), (Extent{170, 90}));
    grx_detruit_bouton(small);
    drain();
    EXPECT_EQ(extent_of(inner), (Extent{170, 90}));
}

TEST_F(Supports, EveryKindBut8IsPlain) {
    for (INT type : {-1, 0, 1, 2, 7, 9, 16, 20, 100, INT_MIN, INT_MAX})
        for (INT attribut : {0, 2, 16, 32, 64, 16 + 64, 32 + 2, -1}) {
            const Widget inner = support(type, attribut);
            SCOPED_TRACE(testing::Message() << type << " with " << attribut);
            expect_inside(inner, xmFormWidgetClass);
            XtDestroyWidget(up(inner, 2));
            drain();
        }
}

TEST_F(Supports, ASizeNotGivenIsFree) {
    GRX_MSG message = dialog(2, 0);
    message.largeur = 170;
    const Widget wide = support(message);
    message.largeur = -1;
    message.hauteur = 90;
    message.y = 150;
    const Widget high = support(message);
    ASSERT_TRUE(wait_visible(wide) && wait_visible(high));
    EXPECT_EQ(extent_of(wide).width, 170);
    EXPECT_LT(extent_of(wide).height, 100);
    EXPECT_EQ(extent_of(high).height, 90);
    EXPECT_LT(extent_of(high).width, 100);
    EXPECT_EQ(extent_of(widget_of(window)), (Extent{400, 300}));
}

TEST_F(Supports, APlaceNotGivenIsTheContainers) {
    for (const SupportKind& kind : support_kinds) {
        const Widget bare = XtVaCreateManagedWidget("bare", xmFormWidgetClass, widget_of(window), nullptr);
        const auto place = [&](INT x, INT y) {
            const Widget made = support(dialog(kind.type, kind.attribut, x, y));
            const Widget form = up(made, kind.levels);
            const Point at{resource<Position>(form, XmNx), resource<Position>(form, XmNy)};
            XtDestroyWidget(form);
            drain();
            return at;
        };
        const Point nowhere{resource<Position>(bare, XmNx), resource<Position>(bare, XmNy)};
        EXPECT_EQ(place(-1, -1), nowhere) << kind.name;
        EXPECT_EQ(place(70, -1), (Point{70, nowhere.y})) << kind.name;
        EXPECT_EQ(place(-1, 70), (Point{nowhere.x, 70})) << kind.name;
        EXPECT_EQ(place(0, 0), (Point{0, 0})) << kind.name;
        XtDestroyWidget(bare);
        drain();
    }
}

TEST_F(Supports, ABareFrame) {
    expect_bare_frame(support(toggles, 16));
}

TEST_F(Supports, ARadioBox) {
    expect_radio_box(support(toggles, 64), false);
}

TEST_F(Supports, AVerticalRadioBox) {
    expect_radio_box(support(toggles, 64 + 2), true);
}

TEST_F(Supports, ARowOfToggles) {
    expect_row(support(toggles, 32), false);
}

TEST_F(Supports, AColumnOfToggles) {
    expect_row(support(toggles, 32 + 2), true);
}

TEST_F(Supports, TheFrameWinsOverTheRadioBoxAndThatOverTheRow) {
    for (INT more : {64, 32, 64 + 32, 64 + 32 + 2, 2, 1, 4, 8, 128, ~16}) {
        SCOPED_TRACE(more);
        const Widget frame = support(toggles, 16 | more);
        expect_bare_frame(frame);
        XtDestroyWidget(XtParent(frame));
        drain();
    }
    for (INT more : {32, 32 + 2, 1, 128}) {
        SCOPED_TRACE(more);
        const Widget box = support(toggles, 64 | more);
        expect_radio_box(box, (more & 2) != 0);
        XtDestroyWidget(up(box, 2));
        drain();
    }
}

TEST_F(Supports, WithNoneOfTheBitsNothingIsMade) {
    const auto before = children();
    for (INT attribut : {0, 1, 2, 4, 8, 128, 256, ~(16 | 32 | 64)}) EXPECT_EQ(support(toggles, attribut), nullptr);
    EXPECT_EQ(children(), before);
}

TEST_F(Supports, InAnUnknownWindowNothingIsMade) {
    const auto before = children();
    for (INT unknown : {-1, 0, 2, 99, 100, INT_MIN, INT_MAX})
        for (const SupportKind& kind : support_kinds)
            EXPECT_EQ(grx_cree_support_message(unknown, dialog(kind.type, kind.attribut)), nullptr) << unknown;
    EXPECT_EQ(children(), before);
}

TEST_F(Supports, HoldTheTogglesOnTheScreen) {
    for (const SupportKind& kind : support_kinds) {
        const Widget made = support(kind.type, kind.attribut);
        const INT n = toggle(made, "Un");
        EXPECT_EQ(XtParent(control(n)), made) << kind.name;
        EXPECT_TRUE(on_screen(n)) << kind.name;
        EXPECT_EQ(button_record(n).nofen, -1) << kind.name;
        grx_detruit_bouton(n);
        grx_detruit_bascule_complexe(record_with(dialog(kind.type, kind.attribut), made));
        drain();
    }
}

TEST_F(Supports, TogglesStandBesideOrBelowEachOther) {
    for (INT kind : {64, 32})
        for (INT vertical : {0, 2}) {
            const Widget made = support(toggles, kind | vertical);
            const Point a = root_position(control(toggle(made, "Un"))),
                        b = root_position(control(toggle(made, "Deux")));
            EXPECT_EQ(a.x == b.x, vertical != 0) << kind;
            EXPECT_EQ(a.y == b.y, vertical == 0) << kind;
            grx_detruit_bascule_complexe(record_with(dialog(toggles, kind | vertical), made));
            drain();
        }
}

TEST_F(Supports, TogglesOfARadioBoxExcludeEachOther) {
    const Widget box = support(toggles, 64);
    const INT a = toggle(box, "Un"), b = toggle(box, "Deux"), c = toggle(box, "Trois");
    drain();
    click(b);
    EXPECT_TRUE(!set(a) && set(b) && !set(c));
    click(c);
    EXPECT_TRUE(!set(a) && !set(b) && set(c));
}

TEST_F(Supports, TogglesOfARowDoNot) {
    const Widget row = support(toggles, 32);
    const INT a = toggle(row, "Un"), b = toggle(row, "Deux"), c = toggle(row, "Trois");
    drain();
    click(b);
    click(c);
    EXPECT_TRUE(!set(a) && set(b) && set(c));
    click(b);
    EXPECT_TRUE(!set(a) && !set(b) && set(c));
}

TEST_F(Supports, AToggleInAReportsItsValue) {
    for (INT kind : {64, 32}) {
        const Widget made = support(toggles, kind);
        const INT n = toggle(made, "Un", 5);
        forget();
        click(n);
        const auto done = events.wait(GRX_EVT_EXEC_FONCTION);
        ASSERT_TRUE(done) << events.describe();
        EXPECT_EQ(done->exec_fonction.nobou, n);
        EXPECT_EQ(done->exec_fonction.valeur, 5);
        EXPECT_EQ(done->exec_fonction.no_fo, 700);
        grx_detruit_bascule_complexe(record_with(dialog(toggles, kind), made));
        settle();
    }
}

TEST_F(Supports, DestructionTakesTheWholeContainer) {
    for (const SupportKind& kind : support_kinds) {
        const auto before = children();
        const GRX_MSG message = dialog(kind.type, kind.attribut);
        const GRX_MSG record = record_with(message, support(message));
        toggle(record.ref_fen_mere, "Un");
        EXPECT_EQ(children(), before + 1) << kind.name;
        EXPECT_EQ(grx_detruit_bascule_complexe(record), 0) << kind.name;
        EXPECT_EQ(children(), before) << kind.name;
        EXPECT_TRUE(visible(x_window(window))) << kind.name;
    }
}

TEST_F(Supports, DestructionOfAPlainOneTakesNoNoticeOfTheBits) {
    for (INT attribut : {16, 64, 32, 16 + 64, 2}) {
        const auto before = children();
        const GRX_MSG message = dialog(2, attribut);
        EXPECT_EQ(grx_detruit_bascule_complexe(record_with(message, support(message))), 0);
        EXPECT_EQ(children(), before) << attribut;
    }
}

TEST_F(Supports, DestructionLeavesTheOthers) {
    for (const SupportKind& kind : support_kinds) {
        const GRX_MSG message = dialog(kind.type, kind.attribut);
        const Widget other = support(dialog(kind.type, kind.attribut, 200, 200));
        const INT kept = toggle(other, "Reste");
        grx_detruit_bascule_complexe(record_with(message, support(message)));
        drain();
        EXPECT_TRUE(on_screen(kept)) << kind.name;
        grx_detruit_bascule_complexe(record_with(message, other));
        drain();
    }
}

TEST_F(Supports, ASecondDestructionDoesNothing) {
    for (const SupportKind& kind : support_kinds) {
        const GRX_MSG message = dialog(kind.type, kind.attribut);
        const auto before = children();
        const GRX_MSG record = record_with(message, support(message));
        EXPECT_EQ(grx_detruit_bascule_complexe(record), 0) << kind.name;
        EXPECT_EQ(grx_detruit_bascule_complexe(record), 0) << "at once, " << kind.name;
        drain();
        EXPECT_EQ(grx_detruit_bascule_complexe(record), 0) << "later, " << kind.name;
        EXPECT_EQ(children(), before) << kind.name;
    }
    EXPECT_TRUE(visible(x_window(window)));
}

TEST_F(Supports, DestructionOfWhatWasNeverMadeDoesNothing) {
    const auto before = children();
    for (const SupportKind& kind : support_kinds) {
        EXPECT_EQ(grx_detruit_bascule_complexe(dialog(kind.type, kind.attribut)), 0);
        EXPECT_EQ(grx_detruit_bascule_complexe(record_with(dialog(kind.type, kind.attribut), widget_of(window))), 0);
        EXPECT_EQ(grx_detruit_bascule_complexe(record_with(dialog(kind.type, kind.attribut), shell_of(window))), 0);
    }
    EXPECT_EQ(children(), before);
    EXPECT_TRUE(visible(x_window(window))) << "a widget that is no support takes no window with it";
}

TEST_F(Supports, DestructionAfterTheWindowWentDoesNothing) {
    for (const SupportKind& kind : support_kinds) {
        const INT other = shown();
        const GRX_MSG message = dialog(kind.type, kind.attribut);
        const GRX_MSG record = record_with(message, grx_cree_support_message(other, message));
        grx_detruit_fenetre(other);
        drain();
        EXPECT_EQ(grx_detruit_bascule_complexe(record), 0) << kind.name;
        drain();
    }
    EXPECT_TRUE(visible(x_window(window)));
}

TEST_F(Supports, ButtonsKeepTheirNumbersUntilTheCallerFreesThem) {
    const GRX_MSG message = dialog(toggles, 64);
    const GRX_MSG record = record_with(message, support(message));
    const INT n = toggle(record.ref_fen_mere, "Un");
    grx_detruit_bascule_complexe(record);
    drain();
    const INT next = placed(control_of(GRX_BOU_LABEL, 0, window));
    EXPECT_NE(next, n);
    grx_libere_indice_objet_bout(n);
    EXPECT_EQ(placed(control_of(GRX_BOU_LABEL, 0, window)), n);
}

TEST_F(Supports, AHundredLeaveNothing) {
    for (const SupportKind& kind : support_kinds) {
        const GRX_MSG message = dialog(kind.type, kind.attribut);
        const auto round = [&] {
            const Widget made = support(message);
            const INT n = toggle(made, "Un");
            grx_detruit_bouton(n);
            grx_detruit_bascule_complexe(record_with(message, made));
            drain();
        };
        for (int i = 0; i < 3; ++i) round();
        const auto blocks = heap().blocks(), bytes = heap().bytes();
        const auto before = resources();
        for (int i = 0; i < 100; ++i) round();
        EXPECT_EQ(heap().blocks(), blocks) << kind.name;
        EXPECT_EQ(heap().bytes(), bytes) << kind.name;
        EXPECT_EQ(resources(), before) << kind.name;
    }
}

TEST_F(Supports, EachFailingAllocationIsSurvived) {
    for (const SupportKind& kind : support_kinds) {
        const auto before = children();
        const GRX_MSG message = dialog(kind.type, kind.attribut);
        fail_each_allocation([&] {
            const NoLeak no_leak;
            const Widget made = support(message);
            if (made) grx_detruit_bascule_complexe(record_with(message, made));
            drain();
        });
        EXPECT_EQ(children(), before) << kind.name;
    }
}

// --- visuals other than the root's --------------------------------------------------------------------------------

class DialogVisualOn24 : public On24 {
  protected:
    void before_start() override {
        write_menu("");
        visual.emplace(FakeVisual::Kind::alt32);
    }

    void expect_visual(Widget widget) { expect_chosen_visual(test_display(), widget); }

    std::optional<FakeVisual> visual;
};

TEST_F(DialogVisualOn24, OptionMenuAndPulldownHaveIt) {
    const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    const Widget menu = grx_cree_support_bascule_liste(widget_of(window));
    GRX_BOUTON description = control_of(GRX_BOU_SIMPLE, 0, -1, "Rouge");
    description.ref_fen_mere = menu;
    const INT n = make(description);
    const Widget option =
        grx_cree_titre_bascule_liste(widget_of(window), menu, control(n), const_cast<char*>("Couleur"));
    ASSERT_TRUE(wait_visible(option));
    const Widget box = XmOptionButtonGadget(option);
    const StdoutCapture silence;
    pointer().move_in(option, resource<Position>(box, XmNx) + 10, resource<Position>(box, XmNy) + 10);
    drain();
    pointer().press(1);
    ASSERT_TRUE(wait_visible(control(n)));
    for (Widget widget : {option, menu, XtParent(menu), control(n)}) expect_visual(widget);
    pointer().release(1);
    drain();
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(DialogVisualOn24, SupportsListsAndWindowsHaveIt) {
    const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    for (const SupportKind& kind : support_kinds) {
        const Widget made = grx_cree_support_message(window, dialog(kind.type, kind.attribut));
        drain();
        for (int i = 0; i <= kind.levels; ++i) expect_visual(up(made, i));
    }
    GRX_FENETRE record = described(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE);
    record.fen_mere = window;
    ASSERT_EQ(grx_cree_fenetre(&record), 0);
    grx_cree_fenetre_message_alpha(&record);
    drain();
    expect_visual(shell_of(record.nofen));
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

} // namespace
