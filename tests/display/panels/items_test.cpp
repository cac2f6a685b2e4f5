// Panel items of one or two controls: what is built for each kind, what is recorded and posted.
#include "tests/display/panels/item_kit.h"

namespace {

using namespace grxtest;

// --- the record ---------------------------------------------------------------------------------------------------------

TEST_F(Items, ThePlaceInTheRecordGrowsByOne) {
    const HostList list(30, {"a", "b"});
    INT item = 0;
    for (INT type : every_kind) {
        GRX_MSG message = item_of(type, "Title-one-two", item++);
        message.nb_cara = 0;
        message.largeur = message.hauteur = 6;
        const GRX_MSG before = message;
        EXPECT_EQ(grx_cree_item(&message), 0) << type;
        EXPECT_EQ(message.x, 201) << type;
        EXPECT_EQ(message.y, 61) << type;
        EXPECT_EQ(message.prebou, 0) << type;
        EXPECT_STREQ(message.titre, before.titre) << type;
        EXPECT_EQ(message.clef, before.clef) << type;
        EXPECT_EQ(message.type, type);
        EXPECT_EQ(message.ival, before.ival) << type;
        EXPECT_EQ(message.nobou, before.nobou) << type;
        EXPECT_EQ(message.fen_mere, before.fen_mere) << type;
        EXPECT_EQ(message.largeur, before.largeur) << type;
        EXPECT_EQ(message.couleur, before.couleur) << type;
        if (type == 21) EXPECT_EQ(message.attribut, 0);
        if (type == 23) EXPECT_EQ(message.attribut, 1);
    }
}

TEST_F(Items, OnlyAnEntryFieldIsNamedInTheRecord) {
    build(10, "Name", [](GRX_MSG& m) { m.nb_cara = 5; });
    EXPECT_EQ(last.prebou, button_of(1, 0, 1));
    EXPECT_TRUE(is_a(control(last.prebou), xmTextFieldWidgetClass));
    build(10, "Name", [](GRX_MSG& m) { m.nb_cara = 0; });
    EXPECT_EQ(last.prebou, 0);
    build(10, "Name", [](GRX_MSG& m) { m.nb_cara = -4; });
    EXPECT_EQ(last.prebou, 0);
    EXPECT_EQ(recorded(1, 2).size(), 1U);
}

TEST_F(Items, AnIconTextStaysInTheRecord) {
    build(22, "@ nothing.bmp");
    EXPECT_STREQ(last.titre, "@ nothing.bmp");
}

// --- kind 20: a small button with its label -------------------------------------------------------------------------------

TEST_F(Items, ASmallButtonAndItsLabel) {
    const auto made = build(20, "Press me");
    ASSERT_EQ(made.size(), 2U);
    EXPECT_EQ(flags(1, 0), (std::vector<int>{1, 0}));
    const auto [button, label] = std::pair(made[0].first, made[1].first);
    EXPECT_EQ(button_record(button).type, GRX_BOU_POUSSOIR);
    EXPECT_EQ(button_record(button).no_fo, 30 + 52000);
    EXPECT_EQ(button_record(button).nofen, window);
    EXPECT_EQ(button_record(label).type, GRX_BOU_LABEL);
    EXPECT_EQ(label_of(control(label)), "Press me");
    const Rect square = rect_of(button), text = rect_of(label);
    EXPECT_EQ(square.width, 2 * W);
    EXPECT_EQ(square.height, 2 * W);
    EXPECT_EQ(square.x, 201);
    EXPECT_NEAR(square.y + W, 61 + H / 2.0, 1) << "centred on the line";
    EXPECT_EQ(text.x, 201 + 2 * W) << "to its right";
    EXPECT_EQ(XtParent(control(button)), widget_of(window));
    EXPECT_EQ(XtParent(control(label)), widget_of(window));
    EXPECT_TRUE(raised(button));
}

TEST_F(Items, AButtonIsShownPressedWhenItsValueIs1) {
    for (INT type : {20, 22})
        for (INT value : {-1, 0, 1, 2, 100}) {
            const auto made = build(type, "Press", [=](GRX_MSG& m) { m.ival = value; });
            EXPECT_EQ(grx_bouton_est_il_enfonce(made[0].first), value == 1) << type << ", " << value;
        }
    for (INT type : {50, 60}) {
        const auto made = build(type, "Press", [=](GRX_MSG& m) { m.ival = 1; });
        EXPECT_EQ(grx_bouton_est_il_enfonce(made[0].first), 0) << type;
    }
}

// --- kinds 22, 5x, 6x: text and icon buttons ----------------------------------------------------------------------------------

struct ButtonKind {
    INT type, function;
};
constexpr std::array button_kinds{ButtonKind{22, 30 + 52000}, ButtonKind{50, 1 + 51000}, ButtonKind{59, 1 + 51000},
    ButtonKind{60, 30}, ButtonKind{69, 30}};

TEST_F(Items, ATextButton) {
    for (const ButtonKind& kind : button_kinds) {
        const auto made = build(kind.type, "Valider", [](GRX_MSG& m) { m.largeur = m.hauteur = 50; });
        ASSERT_EQ(made.size(), 1U) << kind.type;
        EXPECT_EQ(made[0].second, 1) << kind.type;
        const INT n = made[0].first;
        EXPECT_EQ(button_record(n).type, GRX_BOU_DESSINE) << kind.type;
        EXPECT_EQ(button_record(n).no_fo, kind.function) << kind.type;
        EXPECT_EQ(button_record(n).nofen, window) << kind.type;
        EXPECT_EQ(label_of(control(n)), "Valider") << kind.type;
        EXPECT_EQ(rect_of(n), (Rect{201, 61, 8 * W, H})) << kind.type;
        EXPECT_EQ(XtParent(control(n)), widget_of(window));
        grx_supprime_items(1);
    }
}

TEST_F(Items, AnIconButton) {
    plain_icon("pen.bmp", 4, 16, 8);
    grx_init_repertoire_icones(writable(home().text().c_str()));
    for (const ButtonKind& kind : button_kinds) {
        for (const char* title : {"@pen.bmp", "@ pen.bmp", "@   pen.bmp  "}) {
            const auto made = build(kind.type, title, [](GRX_MSG& m) {
                m.largeur = 40;
                m.hauteur = 15;
            });
            ASSERT_EQ(made.size(), 1U) << kind.type;
            EXPECT_EQ(made[0].second, 1) << kind.type;
            const INT n = made[0].first;
            EXPECT_EQ(button_record(n).type, GRX_BOU_POUSSOIR) << kind.type;
            EXPECT_EQ(button_record(n).no_fo, kind.function) << kind.type;
            EXPECT_EQ(resource<unsigned char>(control(n), XmNlabelType), XmPIXMAP) << kind.type << title;
            EXPECT_EQ(pixmap_extent(resource<Pixmap>(control(n), XmNlabelPixmap)), (Extent{16, 8})) << title;
            EXPECT_EQ(rect_of(n), (Rect{201, 61, 40 * W / 10, 15 * H / 10})) << kind.type;
        }
        grx_supprime_items(1);
    }
}

TEST_F(Items, AnIconWithoutASizeHasTheScreensDefault) {
    plain_icon("pen.bmp", 4);
    grx_init_repertoire_icones(writable(home().text().c_str()));
    grx_affecte_taille_icone(34, 26);
    const Extent standard{grx_recup_taille_icone_x(), grx_recup_taille_icone_y()};
    ASSERT_GT(standard.width, 0);
    struct Size {
        INT width, height;
    };
    for (const Size& size : {Size{-1, 15}, Size{40, -1}, Size{-1, -1}}) {
        const auto made = build(22, "@pen.bmp", [&](GRX_MSG& m) {
            m.largeur = size.width;
            m.hauteur = size.height;
        });
        EXPECT_EQ(extent_of(control(made[0].first)), standard) << size.width << " x " << size.height;
    }
}

TEST_F(Items, IconsComeFromTheDirectoryOfTheSizeClass) {
    for (const char* folder : {"S", "M", "L"}) std::filesystem::create_directory(home().path() / folder);
    plain_icon("pen.bmp", 4, 10, 10);
    plain_icon("S/pen.bmp", 4, 11, 11);
    plain_icon("M/pen.bmp", 4, 12, 12);
    plain_icon("L/pen.bmp", 4, 13, 13);
    grx_init_repertoire_icones(writable(home().text().c_str()));
    for (INT format : {1, 2, 3, 4}) {
        grx_affecte_format_icone(format);
        const auto made = build(50, "@pen.bmp");
        const int side = 9 + format;
        EXPECT_EQ(pixmap_extent(resource<Pixmap>(control(made[0].first), XmNlabelPixmap)), (Extent{side, side}));
    }
}

TEST_F(Items, AnIconThatIsNotThereStillMakesAButton) {
    grx_init_repertoire_icones(writable(home().text().c_str()));
    const auto made = build(60, "@none.bmp");
    ASSERT_EQ(made.size(), 1U);
    EXPECT_EQ(button_record(made[0].first).type, GRX_BOU_POUSSOIR);
    EXPECT_EQ(resource<unsigned char>(control(made[0].first), XmNlabelType), XmSTRING);
}

TEST_F(Items, AnAtFurtherOnIsText) {
    const auto made = build(22, " @pen.bmp");
    EXPECT_EQ(button_record(made[0].first).type, GRX_BOU_DESSINE);
}

// --- sensitive or not ---------------------------------------------------------------------------------------------------

TEST_F(Items, ColourNoneMakesAnItemInsensitive) {
    for (INT type : {20, 21, 22, 23, 50, 60, 10, 30, 40, 0})
        for (INT colour : {0, 1, 5, -1}) {
            const auto made = build(type, "Title-one-two", [=](GRX_MSG& m) {
                m.couleur = colour;
                m.nb_cara = 4;
            });
            ASSERT_FALSE(made.empty());
            for (const auto& [n, valid] : made)
                EXPECT_EQ(static_cast<bool>(resource<Boolean>(control(n), XmNsensitive)), colour != 0 || !valid)
                    << type << ", colour " << colour << (valid ? " value" : " label");
        }
}

TEST_F(Items, ScalesAndDrawingAreasAreSensitiveInAnyColour) {
    for (INT type : {32, 33, 100})
        for (INT colour : {0, 1}) {
            const auto made = build(type, "", [=](GRX_MSG& m) {
                m.couleur = colour;
                m.largeur = m.hauteur = 6;
            });
            ASSERT_EQ(made.size(), 1U);
            EXPECT_TRUE(resource<Boolean>(control(made[0].first), XmNsensitive)) << type << ", colour " << colour;
        }
}

TEST_F(Items, EveryButtonIsVisible) {
    INT item = 0;
    for (INT type : every_kind) {
        if (type / 10 == 7) continue;
        const auto made = build(type, "Title-one-two", [=](GRX_MSG& m) {
            m.nb_cara = 4;
            m.largeur = m.hauteur = 8;
            m.y = 10 + 20 * item;
        });
        ++item;
        EXPECT_FALSE(made.empty()) << type;
        for (const auto& [n, valid] : made) {
            EXPECT_TRUE(XtIsManaged(control(n))) << type;
            if (type != 31) EXPECT_TRUE(on_screen(n)) << type;
        }
    }
}

// --- scales ---------------------------------------------------------------------------------------------------------------

TEST_F(Items, AScale) {
    struct Kind {
        INT type;
        unsigned char orientation;
    };
    for (const Kind& kind : {Kind{32, XmHORIZONTAL}, Kind{33, XmVERTICAL}})
        for (INT value : {0, 1, 37, 99, 100}) {
            const auto made = build(kind.type, "Scale", [=](GRX_MSG& m) {
                m.largeur = 12;
                m.hauteur = 3;
                m.ival = value;
            });
            ASSERT_EQ(made.size(), 1U);
            EXPECT_EQ(made[0].second, 1);
            Widget scale = control(made[0].first);
            ASSERT_TRUE(is_a(scale, xmScaleWidgetClass));
            int minimum = -1, maximum = -1, now = -1;
            XtVaGetValues(scale, XmNminimum, &minimum, XmNmaximum, &maximum, XmNvalue, &now, nullptr);
            EXPECT_EQ(minimum, 0);
            EXPECT_EQ(maximum, 100);
            EXPECT_EQ(now, value) << kind.type;
            EXPECT_EQ(resource<unsigned char>(scale, XmNorientation), kind.orientation);
            EXPECT_EQ(button_record(made[0].first).no_fo, 30 + 53000);
            EXPECT_EQ(button_record(made[0].first).type, GRX_BOU_ECHELLE);
            EXPECT_EQ(rect_of(made[0].first), (Rect{201, 61, 12 * W, 3 * H}));
        }
}

TEST_F(Items, AScaleStaysWithinItsBounds) {
    for (INT value : {-1, 101, INT_MIN, INT_MAX}) {
        const auto made = build(32, "Scale", [=](GRX_MSG& m) {
            m.ival = value;
            m.largeur = 12;
            m.hauteur = 3;
        });
        const int now = resource<int>(control(made[0].first), XmNvalue);
        EXPECT_GE(now, 0);
        EXPECT_LE(now, 100);
    }
}

// --- labels, lines, drawings --------------------------------------------------------------------------------------------------

TEST_F(Items, ALabel) {
    for (INT type : {90, 99}) {
        const auto made = build(type, "Heading");
        ASSERT_EQ(made.size(), 1U) << type;
        EXPECT_EQ(made[0].second, 0) << type;
        EXPECT_EQ(button_record(made[0].first).type, GRX_BOU_LABEL);
        EXPECT_EQ(label_of(control(made[0].first)), "Heading");
        EXPECT_EQ(rect_of(made[0].first).x, 201);
        EXPECT_EQ(rect_of(made[0].first).y, 61);
    }
}

TEST_F(Items, ALine) {
    struct Kind {
        INT type;
        unsigned char orientation, look;
    };
    for (const Kind& kind : {Kind{80, XmHORIZONTAL, XmSHADOW_ETCHED_IN}, Kind{81, XmVERTICAL, XmSHADOW_ETCHED_IN}}) {
        const auto made = build(kind.type, "", [](GRX_MSG& m) {
            m.largeur = 60;
            m.hauteur = 3;
        });
        ASSERT_EQ(made.size(), 1U) << kind.type;
        Widget line = control(made[0].first);
        ASSERT_TRUE(is_a(line, xmSeparatorWidgetClass)) << kind.type;
        EXPECT_EQ(button_record(made[0].first).type, 768);
        EXPECT_EQ(resource<unsigned char>(line, XmNorientation), kind.orientation) << kind.type;
        EXPECT_EQ(rect_of(made[0].first).width, 60 * W / 10) << kind.type;
        EXPECT_EQ(rect_of(made[0].first).x, 201);
        EXPECT_EQ(rect_of(made[0].first).y, 61);
    }
    const auto made = build(82, "", [](GRX_MSG& m) { m.largeur = 60; });
    EXPECT_EQ(resource<unsigned char>(control(made[0].first), XmNorientation), XmHORIZONTAL);
    const auto look = resource<unsigned char>(control(made[0].first), XmNseparatorType);
    EXPECT_TRUE(look == XmDOUBLE_LINE || look == XmSHADOW_ETCHED_IN) << int{look};
    EXPECT_EQ(rect_of(made[0].first).width, 60 * W / 10);
}

TEST_F(Items, ALineAcrossAWideScreen) {
    const INT tenths = 7000 * 10 / W; // wider than what 16 bits hold of them
    for (INT type : {80, 82}) {
        const auto made = build(type, "", [=](GRX_MSG& m) { m.largeur = tenths; });
        ASSERT_EQ(made.size(), 1U) << type;
        EXPECT_EQ(rect_of(made[0].first).width, tenths * W / 10) << type;
    }
}

TEST_F(Items, ADrawingArea) {
    for (INT type : {100, 109}) {
        const auto made = build(type, "", [](GRX_MSG& m) {
            m.largeur = 12;
            m.hauteur = 3;
        });
        ASSERT_EQ(made.size(), 1U);
        EXPECT_EQ(made[0].second, 1);
        const INT n = made[0].first;
        EXPECT_TRUE(is_a(control(n), xmDrawingAreaWidgetClass));
        EXPECT_EQ(button_record(n).type, 1024);
        EXPECT_EQ(button_record(n).no_fo, 30 + 55900);
        EXPECT_EQ(rect_of(n), (Rect{201, 61, 12 * W, 3 * H}));
    }
}

// --- entry fields -----------------------------------------------------------------------------------------------------------------

TEST_F(Items, ALabelWithAnEntryField) {
    struct Kind {
        INT type, function;
        const char* text;
    };
    for (const Kind& kind : {Kind{10, 30 + 51500, "abc"}, Kind{19, 30 + 51500, "abc"}, Kind{30, 30 + 53000, nullptr},
             Kind{34, 30 + 53000, nullptr}, Kind{39, 30 + 53000, nullptr}, Kind{40, 30 + 54000, "-27"},
             Kind{49, 30 + 54000, "-27"}, Kind{0, 30, ""}, Kind{24, 30, ""}, Kind{29, 30, ""}, Kind{83, 30, ""},
             Kind{89, 30, ""}, Kind{110, 30, ""}, Kind{255, 30, ""}}) {
        const auto made = build(kind.type, "Name", [](GRX_MSG& m) {
            m.nb_cara = 6;
            m.ival = -27;
            m.rval = 2.5;
            m.nb_deci = 2;
            std::strcpy(m.cval, "abc");
        });
        ASSERT_EQ(made.size(), 2U) << kind.type;
        EXPECT_EQ(flags(1, last_item()), (std::vector<int>{0, 1})) << kind.type;
        const auto [label, field] = std::pair(made[0].first, made[1].first);
        EXPECT_EQ(button_record(label).type, GRX_BOU_LABEL);
        EXPECT_EQ(label_of(control(label)), "Name");
        EXPECT_EQ(rect_of(label).x, 201 - 5 * W) << "left of the place";
        ASSERT_EQ(button_record(field).type, GRX_BOU_TEXTE) << kind.type;
        EXPECT_EQ(button_record(field).no_fo, kind.function) << kind.type;
        EXPECT_EQ(button_record(field).nofen, window);
        EXPECT_EQ(rect_of(field), (Rect{201, 61, 7 * W, H})) << kind.type;
        EXPECT_EQ(resource<short>(control(field), XmNcolumns), 6) << kind.type;
        EXPECT_EQ(last.prebou, field);
        if (kind.text) EXPECT_EQ(text_of(field), kind.text) << kind.type;
        if (!kind.text) EXPECT_DOUBLE_EQ(std::atof(text_of(field).c_str()), 2.5) << text_of(field);
        grx_supprime_items(1);
    }
}

TEST_F(Items, ARealHasItsDecimals) {
    struct Case {
        double value;
        INT width, decimals;
        const char* text;
    };
    for (const Case& c : {Case{2.5, 8, 3, "2.500"}, Case{-0.25, 8, 2, "-0.25"}, Case{0.0, 6, 1, "0.0"}}) {
        build(30, "Real", [&](GRX_MSG& m) {
            m.rval = c.value;
            m.nb_cara = c.width;
            m.nb_deci = c.decimals;
        });
        std::string text = text_of(last.prebou);
        text.erase(0, text.find_first_not_of(' '));
        EXPECT_EQ(text, c.text);
    }
}

TEST_F(Items, ALabelLeftOfTheWindowsEdge) {
    struct Case {
        INT x;
        int expected;
    };
    const INT five = 5 * W;
    for (const Case& c : {Case{five, 1}, Case{five - 1, 0}, Case{five - 2, 0}, Case{five - 4, -3}, Case{0, 1 - five}}) {
        const auto made = build(10, "Name", [&](GRX_MSG& m) { m.x = c.x; });
        EXPECT_EQ(rect_of(made[0].first).x, c.expected) << c.x;
    }
}

// --- what they post ---------------------------------------------------------------------------------------------------------------------

TEST_F(Items, AClickOnAButtonPostsItsFunction) {
    struct Kind {
        INT type, function;
    };
    for (const Kind& kind : {Kind{20, 52030}, Kind{22, 52030}, Kind{50, 51001}, Kind{60, 30}}) {
        const auto made = build(kind.type, "Valider");
        ASSERT_TRUE(wait_visible(control(made[0].first)));
        pointer().move_in(control(made[0].first), 4, 4);
        forget();
        pointer().click(1);
        const auto done = events.wait(GRX_EVT_EXEC_FONCTION);
        ASSERT_TRUE(done) << kind.type << ": " << events.describe();
        EXPECT_TRUE(same_record(activation(6, window, made[0].first, kind.function, 0), *done, up_to_value))
            << kind.type;
        grx_detruit_bouton(made[0].first);
        if (kind.type == 20) grx_detruit_bouton(made[1].first);
        take_pointer_away();
        settle();
    }
}

TEST_F(Items, AnInsensitiveButtonPostsNothing) {
    const auto made = build(60, "Valider", [](GRX_MSG& m) { m.couleur = 0; });
    ASSERT_TRUE(wait_visible(control(made[0].first)));
    forget();
    pointer().click_in(control(made[0].first), 4, 4);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 0) << events.describe();
}

TEST_F(Items, DraggingAScale) {
    const auto made = build(32, "Scale", [](GRX_MSG& m) {
        m.largeur = 20;
        m.hauteur = 2;
        m.ival = 50;
    });
    const INT n = made[0].first;
    ASSERT_TRUE(wait_visible(control(n)));
    settle();
    const Point at = root_position(control(n));
    const int middle = at.x + 10 * W, y = at.y + H;
    pointer().move(middle, y);
    forget();
    pointer().press(1);
    drain();
    pointer().move(middle + 30, y);
    const auto moving = events.wait(GRX_EVT_ECHELLE);
    ASSERT_TRUE(moving) << events.describe();
    EXPECT_EQ(moving->exec_fonction.nofen, window);
    EXPECT_EQ(moving->exec_fonction.nobou, n);
    EXPECT_EQ(moving->exec_fonction.no_fo, 53030);
    EXPECT_GT(moving->exec_fonction.valeur, 50);
    forget();
    pointer().release(1);
    const auto done = events.wait(GRX_EVT_EXEC_FONCTION);
    ASSERT_TRUE(done) << events.describe();
    const int value = resource<int>(control(n), XmNvalue);
    EXPECT_GT(value, 50);
    EXPECT_TRUE(same_record(activation(6, window, n, 53030, value), *done, up_to_value));
}

TEST_F(Items, TypingIntoAFieldAndReturn) {
    build(10, "Name", [](GRX_MSG& m) { m.nb_cara = 10; });
    const INT field = last.prebou;
    ASSERT_TRUE(wait_visible(control(field)));
    pointer().click_in(control(field), 5, 8);
    ASSERT_TRUE(wait_for([&] { return XmGetFocusWidget(control(field)) == control(field); }));
    keyboard().type("hello");
    ASSERT_TRUE(wait_for([&] { return text_of(field) == "hello"; }));
    forget();
    keyboard().type("\n");
    const auto done = events.wait(GRX_EVT_EXEC_FONCTION);
    ASSERT_TRUE(done) << events.describe();
    EXPECT_EQ(done->exec_fonction.nofen, window);
    EXPECT_EQ(done->exec_fonction.nobou, field);
    EXPECT_EQ(done->exec_fonction.no_fo, 51530);
    EXPECT_STREQ(done->exec_fonction.chaine, "hello");
}

TEST_F(Items, ADrawingAreaPostsPresses) {
    const auto made = build(100, "", [](GRX_MSG& m) { m.largeur = m.hauteur = 5; });
    ASSERT_TRUE(wait_visible(control(made[0].first)));
    pointer().move_in(control(made[0].first), 9, 11);
    forget();
    pointer().press(1);
    const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(press) << events.describe();
    EXPECT_EQ(press->bouton_appui.nobou, made[0].first);
    EXPECT_EQ(press->bouton_appui.no_fo, 55930);
    EXPECT_EQ(press->bouton_appui.x, 9);
    EXPECT_EQ(press->bouton_appui.y, 11);
}

// --- what is not there ------------------------------------------------------------------------------------------------

TEST_F(Items, AnUnknownWindowOrItemBuildsNothingThatIsLost) {
    const int numbers = taken_numbers();
    for (INT type : every_kind) {
        GRX_MSG message = item_of(type, "Title-one-two");
        message.fen_mere = 77;
        message.nb_cara = 5;
        EXPECT_EQ(grx_cree_item(&message), 0) << type;
        EXPECT_EQ(message.x, 201) << type;
    }
    EXPECT_EQ(taken_numbers(), numbers);
    EXPECT_TRUE(recorded(1, 0).empty());
    EXPECT_EQ(grx_cree_item(nullptr), 0);
    EXPECT_EQ(grx_cree_istate1(nullptr), 0);
    EXPECT_EQ(grx_cree_bstate1(nullptr), 0);
}

TEST_F(Items, AnUnknownPanelOrItemIsRefusedAndBuildsNothing) {
    struct Place {
        INT panel, item;
    };
    const int numbers = taken_numbers();
    const auto children = children_of(widget_of(window)).size();
    for (const Place& at : {Place{-1, 0}, Place{panel_count, 0}, Place{1, -1}, Place{1, items_of_a_panel},
             Place{panel_without_items, 0}, Place{INT_MAX, INT_MAX}})
        for (INT type : every_kind) {
            if (type / 10 == 7) continue; // a list is known by its key
            GRX_MSG message = item_of(type, "Title-one-two", at.item, at.panel);
            message.nb_cara = 5;
            EXPECT_EQ(grx_cree_item(&message), GRX_ERR_ALLOC_PANNEAUX) << type;
            EXPECT_EQ(message.prebou, 0) << type;
        }
    EXPECT_EQ(taken_numbers(), numbers);
    EXPECT_EQ(children_of(widget_of(window)).size(), children);
}

TEST_F(Items, TheButtonsBeyondTheRoomOfAnItemAreNotLeftBehind) {
    for (INT i = 0; i < 254; ++i) ASSERT_EQ(grx_memorise_bouton_item(1, 0, 1, -5), 0);
    const int numbers = taken_numbers();
    GRX_MSG message = item_of(20, "Press");
    EXPECT_EQ(grx_cree_item(&message), GRX_ERR_ALLOC_PANNEAUX) << "a button and its label";
    EXPECT_EQ(recorded(1, 0).size(), 255U);
    EXPECT_EQ(taken_numbers(), numbers + 1);
}

TEST_F(Items, TextsThatDoNotEnd) {
    for (INT type : every_kind) {
        GRX_MSG message = item_of(type);
        std::memset(message.titre, '-', sizeof message.titre);
        std::memset(message.cval, 'c', sizeof message.cval);
        message.nb_cara = 5;
        message.largeur = message.hauteur = 3;
        EXPECT_EQ(grx_cree_item(&message), 0) << type;
        std::memset(message.titre, '@', sizeof message.titre);
        grx_supprime_items(1);
        EXPECT_EQ(grx_cree_item(&message), 0) << type;
        EXPECT_LE(recorded(1, 0).size(), 255U);
        grx_supprime_items(1);
    }
    EXPECT_EQ(heap().damage(), "");
}

} // namespace
