// Panel items with several choices: groups of toggles and drop-down choices.
#include "tests/display/panels/item_kit.h"

namespace {

using namespace grxtest;

// --- groups of toggles --------------------------------------------------------------------------------------------------------------

TEST_F(Items, AGroupOfToggles) {
    struct Kind {
        INT type;
        unsigned char orientation;
    };
    for (const Kind& kind : {Kind{21, XmVERTICAL}, Kind{23, XmHORIZONTAL}}) {
        const auto made = build(kind.type, "Units- mm - cm-m", [](GRX_MSG& m) {
            m.ival = 1;
            m.largeur = 6; // which pads a drop-down choice only
        });
        ASSERT_EQ(made.size(), 4U);
        EXPECT_EQ(flags(1, last_item()), (std::vector<int>{0, 1, 1, 1}));
        EXPECT_EQ(label_of(control(made[0].first)), "Units");
        EXPECT_EQ(button_record(made[0].first).type, GRX_BOU_LABEL);
        const std::array<std::string, 3> texts{"mm", "cm", "m"};
        for (std::size_t i = 1; i < 4; ++i) {
            const INT n = made[i].first;
            Widget toggle = control(n);
            EXPECT_EQ(button_record(n).type, GRX_BOU_BASCULE);
            EXPECT_EQ(button_record(n).no_fo, 30 + 52000);
            EXPECT_EQ(button_record(n).valeur, static_cast<INT>(i) - 1);
            EXPECT_EQ(label_of(toggle), texts[i - 1]) << "not padded";
            EXPECT_EQ(static_cast<bool>(XmToggleButtonGetState(toggle)), i == 2);
            EXPECT_EQ(extent_of(toggle).height, grx_recup_hau_exact_carac_alpha());
            ASSERT_TRUE(has_name(XtParent(toggle), "Support"));
        }
        Widget box = XtParent(control(made[1].first));
        EXPECT_EQ(resource<Boolean>(box, XmNradioBehavior), True);
        EXPECT_EQ(resource<unsigned char>(box, XmNorientation), kind.orientation);
        Widget form = above_named(box, "Support Radio");
        ASSERT_NE(form, nullptr);
        EXPECT_TRUE(XmIsForm(form));
        EXPECT_EQ(XtParent(form), widget_of(window));
        EXPECT_EQ(rect_of(form).x, 201);
        EXPECT_EQ(rect_of(form).y, 61);
        const auto place = [&](std::size_t i) { return root_position(control(made[i].first)); };
        if (kind.type == 21) {
            EXPECT_GT(place(2).y, place(1).y);
            EXPECT_EQ(place(2).x, place(1).x);
        } else {
            EXPECT_GT(place(2).x, place(1).x);
            EXPECT_EQ(place(2).y, place(1).y);
        }
    }
}

TEST_F(Items, TheTitleOfAGroupCoversNoToggle) {
    for (INT type : {21, 23}) {
        const auto made = build(type, "A rather long title-a-b-c");
        drain();
        const auto area = [&](std::size_t i) {
            const Point at = root_position(control(made[i].first));
            const Extent size = extent_of(control(made[i].first));
            return Rect{at.x, at.y, size.width, size.height};
        };
        const Rect title = area(0);
        for (std::size_t i = 1; i < made.size(); ++i) {
            const Rect toggle = area(i);
            const bool apart = toggle.x >= title.x + title.width || title.x >= toggle.x + toggle.width
                               || toggle.y >= title.y + title.height || title.y >= toggle.y + toggle.height;
            EXPECT_TRUE(apart) << type << ": " << testing::PrintToString(toggle) << " on "
                               << testing::PrintToString(title);
        }
    }
}

TEST_F(Items, TheCurrentChoiceCountsFrom0) {
    for (INT value : {0, 2, 3, -1, INT_MAX}) {
        const auto made = build(21, "Units-mm-cm-m", [=](GRX_MSG& m) { m.ival = value; });
        for (std::size_t i = 1; i < 4; ++i)
            EXPECT_EQ(
                static_cast<bool>(XmToggleButtonGetState(control(made[i].first))), value == static_cast<INT>(i) - 1)
                << value << ", choice " << i;
    }
}

TEST_F(Items, AGroupByItsOwnFunction) {
    GRX_MSG message = item_of(21, "Units-mm-cm", 0);
    message.attribut = 1;
    EXPECT_EQ(grx_cree_bstate1(&message), 0);
    ASSERT_EQ(recorded(1, 0).size(), 3U);
    EXPECT_EQ(resource<unsigned char>(XtParent(control(button_of(1, 0, 1))), XmNorientation), XmHORIZONTAL);
    EXPECT_EQ(message.x, 200) << "only an item grows";
}

TEST_F(Items, TogglesWithIcons) {
    plain_icon("pen.bmp", 4, 14, 9);
    grx_init_repertoire_icones(writable(home().text().c_str()));
    const auto made = build(21, "Pens-@pen.bmp-plain");
    ASSERT_EQ(made.size(), 3U);
    EXPECT_EQ(resource<unsigned char>(control(made[1].first), XmNlabelType), XmPIXMAP);
    EXPECT_EQ(pixmap_extent(resource<Pixmap>(control(made[1].first), XmNlabelPixmap)), (Extent{14, 9}));
    EXPECT_EQ(resource<unsigned char>(control(made[2].first), XmNlabelType), XmSTRING);
}

TEST_F(Items, AGroupWithoutChoices) {
    for (INT type : {21, 23, 31}) {
        const auto made = build(type, "Alone");
        ASSERT_EQ(made.size(), 1U) << type;
        EXPECT_EQ(made[0].second, 0);
        EXPECT_EQ(label_of(control(made[0].first)), "Alone");
    }
}

// --- drop-down choices ----------------------------------------------------------------------------------------------------------------

TEST_F(Items, ADropDownChoice) {
    const auto made = build(31, "Units- mm - cm-m", [](GRX_MSG& m) {
        m.ival = 2;
        m.largeur = 6;
    });
    ASSERT_EQ(made.size(), 4U);
    EXPECT_EQ(flags(1, 0), (std::vector<int>{0, 1, 1, 1}));
    EXPECT_EQ(label_of(control(made[0].first)), "Units");
    const std::array<std::string, 3> texts{"mm    ", "cm", "m"};
    for (std::size_t i = 1; i < 4; ++i) {
        EXPECT_EQ(label_of(control(made[i].first)), texts[i - 1]);
        EXPECT_EQ(button_record(made[i].first).no_fo, 30 + 53000);
        EXPECT_EQ(button_record(made[i].first).valeur, static_cast<INT>(i) - 1);
        EXPECT_TRUE(has_name(XtParent(control(made[i].first)), "PullMenu"));
    }
    Widget pulldown = XtParent(control(made[1].first));
    EXPECT_EQ(resource<unsigned char>(pulldown, XmNrowColumnType), XmMENU_PULLDOWN);
    Widget option = XtNameToWidget(widget_of(window), "*OptionMenu");
    ASSERT_NE(option, nullptr);
    EXPECT_EQ(resource<Widget>(option, XmNsubMenuId), pulldown);
    EXPECT_EQ(resource<Widget>(option, XmNmenuHistory), control(made[3].first)) << "the current choice";
    EXPECT_EQ(tagged_text(option, XmNlabelString, "tag1"), "") << "an empty label";
    EXPECT_TRUE(XtIsManaged(option));
    EXPECT_TRUE(wait_visible(option));
    EXPECT_EQ(label_of(XmOptionButtonGadget(option)), "m");
    EXPECT_EQ(item_record(1, 0).objet_defaut, control(made[3].first));
    grx_supprime_items(1);
    EXPECT_EQ(item_record(1, 0).objet_defaut, nullptr);
}

TEST_F(Items, ADropDownChoiceShowsTheFirstWithoutACurrentOne) {
    for (INT value : {0, -1, 3, INT_MAX, INT_MIN}) {
        const auto made = build(31, "Units-mm-cm", [=](GRX_MSG& m) { m.ival = value; });
        Widget option = XtNameToWidget(XtParent(control(made[0].first)), "*OptionMenu");
        ASSERT_NE(option, nullptr);
        EXPECT_EQ(resource<Widget>(option, XmNmenuHistory), control(made[1].first)) << value;
    }
}

TEST_F(Items, DropDownChoicesWithIcons) {
    plain_icon("pen.bmp", 4, 14, 9);
    grx_init_repertoire_icones(writable(home().text().c_str()));
    const auto made = build(31, "Pens-@pen.bmp-plain");
    ASSERT_EQ(made.size(), 3U);
    EXPECT_EQ(resource<unsigned char>(control(made[1].first), XmNlabelType), XmPIXMAP);
    EXPECT_EQ(pixmap_extent(resource<Pixmap>(control(made[1].first), XmNlabelPixmap)), (Extent{14, 9}));
}

TEST_F(Items, MoreChoicesThanARecordOfAnItemHolds) {
    std::string title = "T";
    for (int i = 0; i < 249; ++i) title += "-" + std::string(1, static_cast<char>('a' + i % 26));
    for (INT type : {21, 31}) {
        const auto made = build(type, title.c_str());
        EXPECT_GE(made.size(), 2U) << type;
        EXPECT_LE(made.size(), 255U) << type;
        EXPECT_EQ(
            label_of(control(made.back().first)), std::string(1, static_cast<char>('a' + (made.size() - 2) % 26)));
        grx_supprime_items(1);
    }
}

// --- what they post ---------------------------------------------------------------------------------------------------

TEST_F(Items, AToggleReleasesTheOnePressedAtCreation) {
    for (INT type : {21, 23}) {
        const auto made = build(type, "Units-mm-cm-m", [](GRX_MSG& m) { m.ival = 0; });
        ASSERT_TRUE(wait_visible(control(made[3].first)));
        pointer().move_in(control(made[3].first), 8, 6);
        forget();
        pointer().click(1);
        const auto done = events.wait(
            [&](const GRX_EVENEMENT& e) { return e.type_evenement == 6 && e.exec_fonction.nobou == made[3].first; });
        ASSERT_TRUE(done) << type << ": " << events.describe();
        EXPECT_TRUE(same_record(
            activation(6, button_record(made[3].first).nofen, made[3].first, 52030, 2), *done, up_to_value));
        drain();
        for (std::size_t i = 1; i < 4; ++i)
            EXPECT_EQ(static_cast<bool>(XmToggleButtonGetState(control(made[i].first))), i == 3) << type << ", " << i;
        EXPECT_EQ(events.seen().back().exec_fonction.nobou, made[3].first) << "the last to be told is the one chosen";
        for (const auto& [n, valid] : made) grx_detruit_bouton(n);
        XtDestroyWidget(XtNameToWidget(widget_of(window), "*Support Radio"));
        settle();
    }
}

TEST_F(Items, ChoosingFromADropDown) {
    const auto made = build(31, "Units-mm-cm-m", [](GRX_MSG& m) { m.ival = 0; });
    Widget option = XtNameToWidget(widget_of(window), "*OptionMenu");
    ASSERT_TRUE(option && wait_visible(option));
    Widget box = XmOptionButtonGadget(option);
    const Rect place = rect_of(box);
    const Point at = root_position(option);
    XtSetMultiClickTime(x11_disp, 0); // how long a press may be to leave the menu on the screen, too
    pointer().move(at.x + place.x + place.width / 2, at.y + place.y + place.height / 2);
    settle();
    pointer().press(1);
    ASSERT_TRUE(wait_visible(control(made[3].first)));
    pointer().move_in(control(made[3].first), 6, 6);
    forget();
    pointer().release(1);
    const auto done = events.wait(GRX_EVT_EXEC_FONCTION);
    ASSERT_TRUE(done) << events.describe();
    EXPECT_TRUE(
        same_record(activation(6, button_record(made[3].first).nofen, made[3].first, 53030, 2), *done, up_to_value));
    EXPECT_EQ(resource<Widget>(option, XmNmenuHistory), control(made[3].first));
    EXPECT_EQ(label_of(box), "m");
}

} // namespace
