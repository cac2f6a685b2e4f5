// Toggles set by the program, and drop-down choices worked by the pointer.
#include "tests/display/panels/message_kit.h"
#include "tests/support/stdout_capture.h"

namespace {

using namespace grxtest;

// --- toggles ------------------------------------------------------------------------------------------------------

class ForcedToggles : public DialogTest {
  protected:
    bool set(INT nobou) { return XmToggleButtonGetState(control(nobou)) != 0; }
};

void count_call(Widget, XtPointer count, XtPointer) {
    ++*static_cast<int*>(count);
}

TEST_F(ForcedToggles, ArePressedAndReleased) {
    const INT n = placed(control_of(GRX_BOU_BASCULE, 0, window)),
              other = placed(control_of(GRX_BOU_BASCULE, 0, window));
    EXPECT_EQ(grx_enfonce_bascule(n), 0);
    EXPECT_TRUE(set(n));
    EXPECT_FALSE(set(other));
    EXPECT_EQ(grx_enfonce_bascule(n), 0);
    EXPECT_TRUE(set(n));
    EXPECT_EQ(grx_relache_bascule(n), 0);
    EXPECT_FALSE(set(n));
    EXPECT_EQ(grx_relache_bascule(n), 0);
    EXPECT_FALSE(set(n));
}

TEST_F(ForcedToggles, PostNothing) {
    const INT n = placed(control_of(GRX_BOU_BASCULE, 0, window));
    int calls = 0;
    XtAddCallback(control(n), XmNvalueChangedCallback, count_call, &calls);
    forget();
    for (int i = 0; i < 2; ++i) {
        grx_enfonce_bascule(n);
        grx_enfonce_bascule(n);
        grx_relache_bascule(n);
        grx_relache_bascule(n);
    }
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(same_record(patterned_event(), evt_global));
    drain();
    EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 0) << events.describe();
}

TEST_F(ForcedToggles, ShowIt) {
    const INT n = placed(control_of(GRX_BOU_BASCULE, 0, window));
    const Pixels clear = picture(n);
    grx_enfonce_bascule(n);
    const Pixels pressed = picture(n);
    EXPECT_GT(differences(clear, pressed), 0);
    grx_relache_bascule(n);
    EXPECT_TRUE(same(clear, picture(n)));
}

TEST_F(ForcedToggles, FollowAClick) {
    const INT n = placed(control_of(GRX_BOU_BASCULE, 0, window));
    pointer().click_in(control(n));
    drain();
    ASSERT_TRUE(set(n));
    grx_relache_bascule(n);
    EXPECT_FALSE(set(n));
    grx_enfonce_bascule(n);
    pointer().click_in(control(n));
    drain();
    EXPECT_FALSE(set(n));
}

TEST_F(ForcedToggles, OtherControlsAreLeftAlone) {
    for (const ControlKind& kind : control_kinds) {
        if (kind.type == GRX_BOU_BASCULE) continue;
        const INT n = placed(control_of(kind, window));
        forget();
        const Warnings warnings;
        EXPECT_EQ(grx_enfonce_bascule(n), 0);
        EXPECT_EQ(grx_relache_bascule(n), 0);
        EXPECT_EQ(warnings.count(), 0) << kind.name;
        EXPECT_TRUE(same_record(patterned_event(), evt_global)) << kind.name;
        grx_detruit_bouton(n);
        drain();
    }
}

TEST_F(ForcedToggles, UnknownNumbersAreNothing) {
    for (INT unknown : no_controls) {
        EXPECT_EQ(grx_enfonce_bascule(unknown), 0) << unknown;
        EXPECT_EQ(grx_relache_bascule(unknown), 0) << unknown;
    }
    const INT gone = placed(control_of(GRX_BOU_BASCULE, 0, window));
    grx_detruit_bouton(gone);
    EXPECT_EQ(grx_enfonce_bascule(gone), 0);
    EXPECT_EQ(grx_relache_bascule(gone), 0);
}

// --- drop-down choices --------------------------------------------------------------------------------------------

constexpr std::array choice_texts{"Rouge", "Vert", "Bleu"};

class DropDown : public DialogTest {
  protected:
    void make_drop_down(int by_default, const char* label = "Couleur") {
        holder = widget_of(window);
        menu = grx_cree_support_bascule_liste(holder);
        ASSERT_NE(menu, nullptr);
        for (std::size_t i = 0; i < choice_texts.size(); ++i) {
            GRX_BOUTON description = control_of(GRX_BOU_SIMPLE, 0, -1, choice_texts[i]);
            description.ref_fen_mere = menu;
            description.x = description.y = description.largeur = description.hauteur = -1;
            description.tabi[GRX_BOU_TABI_VALEUR] = static_cast<INT>(i) + 1;
            choices[i] = make(description);
            ASSERT_GE(choices[i], 0);
        }
        option = titled(by_default < 0 ? nullptr : control(choices[static_cast<std::size_t>(by_default)]), label);
        ASSERT_NE(option, nullptr);
        ASSERT_TRUE(wait_visible(option));
        settle();
    }

    Widget titled(Widget by_default, const char* label) {
        return grx_cree_titre_bascule_liste(holder, menu, by_default, const_cast<char*>(label));
    }

    Widget label_gadget() { return XmOptionLabelGadget(option); }
    Widget box() { return XmOptionButtonGadget(option); }

    // The middle of one of its two gadgets.
    Point middle_of(Widget gadget) {
        const Extent extent = extent_of(gadget);
        return {
            resource<Position>(gadget, XmNx) + extent.width / 2, resource<Position>(gadget, XmNy) + extent.height / 2};
    }

    void over(Widget gadget) {
        const Point at = middle_of(gadget);
        pointer().move_in(option, at.x, at.y);
    }

    GRX_EVENEMENT title_press(Point at) {
        GRX_EVENEMENT record = old_record();
        record.bouton_appui.type_evenement = 2;
        record.bouton_appui.x = at.x;
        record.bouton_appui.y = at.y;
        return record;
    }

    // Opens the menu with a click, and clicks on a choice.
    void choose(std::size_t i) {
        over(box());
        settle();
        StdoutCapture printed;
        const bool open = click_open(control(choices[i]));
        printed.restore();
        ASSERT_TRUE(open) << events.describe();
        pointer().move_in(control(choices[i]), 5, 5);
        forget();
        pointer().click(1);
    }

    Widget holder = nullptr, menu = nullptr, option = nullptr;
    std::array<INT, choice_texts.size()> choices{};
};

TEST_F(DropDown, ItsMenuIsAPulldownNotManaged) {
    menu = grx_cree_support_bascule_liste(widget_of(window));
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(name_of(menu), "Support bascule liste");
    EXPECT_TRUE(is_a(menu, xmRowColumnWidgetClass));
    EXPECT_EQ(resource<unsigned char>(menu, XmNrowColumnType), XmMENU_PULLDOWN);
    EXPECT_FALSE(XtIsManaged(menu));
    EXPECT_EQ(up(menu, 2), widget_of(window));
}

TEST_F(DropDown, IsAnOptionMenu) {
    make_drop_down(1);
    EXPECT_EQ(name_of(option), "Bascule liste");
    EXPECT_TRUE(is_a(option, xmRowColumnWidgetClass));
    EXPECT_EQ(resource<unsigned char>(option, XmNrowColumnType), XmMENU_OPTION);
    EXPECT_EQ(XtParent(option), widget_of(window));
    EXPECT_TRUE(XtIsManaged(option));
    EXPECT_EQ(resource<Widget>(option, XmNsubMenuId), menu);
    EXPECT_EQ(resource<Widget>(option, XmNmenuHistory), control(choices[1]));
    EXPECT_EQ(text_resource(label_gadget(), XmNlabelString), "Couleur");
    EXPECT_EQ(text_resource(box(), XmNlabelString), "Vert");
}

TEST_F(DropDown, ShowsEachChoiceAsTheDefault) {
    for (std::size_t i = 0; i < choice_texts.size(); ++i) {
        make_drop_down(static_cast<int>(i));
        EXPECT_EQ(text_resource(box(), XmNlabelString), choice_texts[i]);
        for (INT n : choices) grx_detruit_bouton(n);
        XtDestroyWidget(option);
        drain();
    }
}

TEST_F(DropDown, ShowsTheFirstWithoutADefault) {
    make_drop_down(-1);
    EXPECT_EQ(text_resource(box(), XmNlabelString), "Rouge");
}

TEST_F(DropDown, ADefaultThatIsNoneOfItsChoicesIsLeftOut) {
    const INT other = placed(control_of(GRX_BOU_SIMPLE, 0, window, "Autre"));
    make_drop_down(-1);
    for (Widget foreign : {control(other), widget_of(window), menu}) {
        const Widget second = titled(foreign, "Titre");
        ASSERT_NE(second, nullptr);
        EXPECT_NE(resource<Widget>(second, XmNmenuHistory), foreign);
        EXPECT_EQ(text_resource(XmOptionButtonGadget(second), XmNlabelString), "Rouge");
        XtDestroyWidget(second);
        drain();
    }
}

TEST_F(DropDown, AMenuThatIsNoneIsLeftOut) {
    make_drop_down(0);
    const Widget bar = XmCreateMenuBar(widget_of(window), const_cast<char*>("bar"), nullptr, 0);
    for (Widget none : {widget_of(window), bar, control(choices[0]), static_cast<Widget>(nullptr)}) {
        const Warnings warnings;
        menu = none;
        const Widget second = titled(nullptr, "Titre");
        ASSERT_NE(second, nullptr);
        EXPECT_EQ(resource<Widget>(second, XmNsubMenuId), nullptr);
        EXPECT_EQ(warnings.count(), 0);
        XtDestroyWidget(second);
        drain();
    }
}

TEST_F(DropDown, ItsTitleIsDrawn) {
    make_drop_down(0);
    const Pixels with = grab(x11_disp, XtWindow(option));
    const Point at = middle_of(label_gadget());
    const Pixels label = with.part({at.x - 10, at.y - 8, 20, 16});
    EXPECT_GT(label.count(static_cast<std::uint32_t>(resource<Pixel>(label_gadget(), XmNforeground))), 5);
    EXPECT_NE(text_resource(label_gadget(), XmNlabelString), "");
}

TEST_F(DropDown, TitlesOfAllSortsAreTaken) {
    for (const char* label : {static_cast<const char*>(nullptr), "", "%s%n", "L\xE9gende"}) {
        make_drop_down(0, label);
        EXPECT_EQ(text_resource(label_gadget(), XmNlabelString), label ? label : "");
        for (INT n : choices) grx_detruit_bouton(n);
        XtDestroyWidget(option);
        drain();
    }
    const std::string longest(4000, 'l');
    make_drop_down(0, longest.c_str());
    EXPECT_EQ(text_resource(label_gadget(), XmNlabelString), longest);
}

// KEEP: the window is the one of the event before.
TEST_F(DropDown, APressOnTheTitleTellsItsPlaceAndNothingElse) {
    make_drop_down(0);
    for (unsigned button : {1U, 2U, 3U}) {
        over(label_gadget());
        forget();
        StdoutCapture printed;
        pointer().press(button);
        const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
        printed.restore();
        pointer().release(button);
        ASSERT_TRUE(press) << button << ": " << events.describe();
        EXPECT_TRUE(same_record(title_press(middle_of(label_gadget())), *press)) << button;
        EXPECT_EQ(printed.text(), "Digit sur titre bascule\n") << button;
        drain();
        keyboard().key(XK_Escape);
        drain();
    }
}

TEST_F(DropDown, APressTellsYFromTheTop) {
    make_drop_down(0);
    const Point at = middle_of(label_gadget());
    pointer().move_in(option, at.x - 3, 4);
    forget();
    StdoutCapture silence;
    pointer().press(3);
    const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
    pointer().release(3);
    ASSERT_TRUE(press) << events.describe();
    EXPECT_EQ(press->bouton_appui.x, at.x - 3);
    EXPECT_EQ(press->bouton_appui.y, 4);
}

TEST_F(DropDown, APressOnTheChoiceTellsItsPlaceToo) {
    make_drop_down(0);
    over(box());
    forget();
    StdoutCapture printed;
    pointer().press(1);
    const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
    printed.restore();
    pointer().release(1);
    ASSERT_TRUE(press) << events.describe();
    EXPECT_TRUE(same_record(title_press(middle_of(box())), *press));
    EXPECT_EQ(printed.text(), "Digit sur titre bascule\n");
    drain();
    keyboard().key(XK_Escape);
    drain();
}

TEST_F(DropDown, AReleaseTellsNothing) {
    make_drop_down(0);
    over(label_gadget());
    settle();
    StdoutCapture printed;
    pointer().press(3);
    ASSERT_TRUE(events.wait(GRX_EVT_BOUTON_APPUI));
    settle();
    const std::string before = printed.text();
    pointer().release(3);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 0) << events.describe();
    EXPECT_EQ(printed.text(), before);
}

TEST_F(DropDown, AChoiceIsReportedAndShown) {
    make_drop_down(0);
    for (std::size_t i : {2U, 1U, 0U}) {
        choose(i);
        const auto done = events.wait(GRX_EVT_EXEC_FONCTION);
        ASSERT_TRUE(done) << events.describe();
        EXPECT_EQ(done->exec_fonction.nofen, -1);
        EXPECT_EQ(done->exec_fonction.nobou, choices[i]);
        EXPECT_EQ(done->exec_fonction.no_fo, 700);
        EXPECT_EQ(done->exec_fonction.valeur, static_cast<INT>(i) + 1);
        drain();
        EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 1) << events.describe();
        EXPECT_EQ(resource<Widget>(option, XmNmenuHistory), control(choices[i]));
        EXPECT_EQ(text_resource(box(), XmNlabelString), choice_texts[i]);
    }
}

TEST_F(DropDown, AChoiceIsMadeWithTheButtonHeld) {
    make_drop_down(0);
    XtSetMultiClickTime(x11_disp, 0); // or a quick release leaves the menu open
    over(box());
    settle();
    StdoutCapture printed;
    pointer().press(1);
    const bool open = wait_visible(control(choices[2]));
    printed.restore();
    ASSERT_TRUE(open) << events.describe();
    pointer().move_in(control(choices[2]), 5, 5);
    forget();
    pointer().release(1);
    const auto done = events.wait(GRX_EVT_EXEC_FONCTION);
    ASSERT_TRUE(done) << events.describe();
    EXPECT_EQ(done->exec_fonction.nobou, choices[2]);
    EXPECT_EQ(done->exec_fonction.valeur, 3);
    EXPECT_EQ(text_resource(box(), XmNlabelString), "Bleu");
}

TEST_F(DropDown, InEachKindOfSupport) {
    for (const SupportKind& kind : support_kinds) {
        GRX_MSG message = dialog(kind.type, kind.attribut);
        message.ref_fen_mere = grx_cree_support_message(window, message);
        menu = grx_cree_support_bascule_liste(message.ref_fen_mere);
        holder = message.ref_fen_mere;
        option = titled(nullptr, "Titre");
        ASSERT_NE(option, nullptr) << kind.name;
        EXPECT_EQ(XtParent(option), message.ref_fen_mere) << kind.name;
        drain();
        grx_detruit_bascule_complexe(message);
        drain();
    }
}

TEST_F(DropDown, WithoutAParentNothingIsMade) {
    const auto before = children();
    EXPECT_EQ(grx_cree_support_bascule_liste(nullptr), nullptr);
    menu = grx_cree_support_bascule_liste(widget_of(window));
    EXPECT_EQ(titled(nullptr, "Titre"), nullptr);
    EXPECT_EQ(children(), before);
}

TEST_F(DropDown, GoesWithItsWindow) {
    const std::size_t blocks = heap().blocks();
    make_drop_down(1);
    for (INT n : choices) grx_detruit_bouton(n);
    grx_detruit_fenetre(window);
    drain();
    EXPECT_LE(heap().blocks(), blocks);
}

TEST_F(DropDown, AHundredLeaveNothing) {
    const auto round = [&] {
        make_drop_down(1);
        for (INT n : choices) grx_detruit_bouton(n);
        XtDestroyWidget(option);
        XtDestroyWidget(menu);
        drain();
    };
    for (int i = 0; i < 3; ++i) round();
    const auto blocks = heap().blocks();
    const auto before = resources();
    for (int i = 0; i < 100; ++i) round();
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(resources(), before);
}

} // namespace
