// Panel items: what is built for each kind, what is recorded and posted, the changes of an item.
#include "tests/display/panel_kit.h"

#include <algorithm>
#include <cstddef>

namespace {

using namespace grxtest;

class Items : public PanelsTest {
  protected:
    // The item's buttons, made from the record with changes.
    template <class Change>
    std::vector<Recorded> build(INT type, const char* title, Change change) {
        GRX_MSG message = item_of(type, title, next_item_);
        change(message);
        last = message;
        EXPECT_EQ(grx_cree_item(&last), 0);
        return recorded(1, next_item_++);
    }
    std::vector<Recorded> build(INT type, const char* title) {
        return build(type, title, [](GRX_MSG&) {});
    }

    INT last_item() const { return next_item_ - 1; }

    bool raised(INT nobou) { return grx_bouton_est_il_enfonce(nobou) == 0; }

    // An activation as it is told: only this control's numbers, the rest as it was when the turn began.
    GRX_EVENEMENT activation(INT type, INT nofen, INT nobou, INT no_fo, INT value) {
        GRX_EVENEMENT record = old_record();
        record.exec_fonction.type_evenement = type;
        record.exec_fonction.nofen = nofen;
        record.exec_fonction.nobou = nobou;
        record.exec_fonction.no_fo = no_fo;
        record.exec_fonction.valeur = value;
        return record;
    }

    GRX_MSG last{};

  private:
    INT next_item_ = 0;
};

constexpr std::size_t up_to_value = offsetof(GRX_EXEC_FONCTION, chaine);

// --- the record ---------------------------------------------------------------------------------------------------------

constexpr std::array<INT, 30> every_kind{0, 10, 19, 20, 21, 22, 23, 24, 30, 31, 32, 33, 34, 40, 49, 50, 59, 60, 69, 70,
    71, 80, 81, 82, 90, 99, 100, 109, 110, 255};

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

// --- changes -----------------------------------------------------------------------------------------------------------------------------

TEST_F(Items, TheLabelIsTheFirstThatIsNotValid) {
    const auto small = build(20, "Label"); // button, label
    EXPECT_EQ(grx_change_titre_item(1, last_item(), writable("New")), 0);
    EXPECT_EQ(label_of(control(small[1].first)), "New");
    EXPECT_NE(label_of(control(small[0].first)), "New");
    const auto field = build(10, "Label", [](GRX_MSG& m) { m.nb_cara = 5; });
    EXPECT_EQ(grx_change_titre_item(1, last_item(), writable("New")), 0);
    EXPECT_EQ(label_of(control(field[0].first)), "New");
    EXPECT_EQ(text_of(field[1].first), "");
    const auto button = build(60, "Only");
    EXPECT_EQ(grx_change_titre_item(1, last_item(), writable("New")), 0);
    EXPECT_EQ(label_of(control(button[0].first)), "New") << "all are valid: the first";
}

TEST_F(Items, TheFirstOfSeveralLabelsAndTheFirstOfSeveralValids) {
    std::array<INT, 4> n{};
    for (std::size_t i = 0; i < n.size(); ++i) n[i] = placed(control_of(GRX_BOU_LABEL, 0, window, "old"));
    grx_memorise_bouton_item(1, 0, 1, n[0]);
    grx_memorise_bouton_item(1, 0, 0, n[1]);
    grx_memorise_bouton_item(1, 0, 0, n[2]);
    grx_memorise_bouton_item(1, 1, 1, n[2]);
    grx_memorise_bouton_item(1, 1, 1, n[3]);
    grx_change_titre_item(1, 0, writable("first label"));
    grx_change_champ_label(1, 1, writable("first valid"));
    EXPECT_EQ(label_of(control(n[0])), "old");
    EXPECT_EQ(label_of(control(n[1])), "first label");
    EXPECT_EQ(label_of(control(n[2])), "first valid");
    EXPECT_EQ(label_of(control(n[3])), "old");
}

TEST_F(Items, ChangesOfALabel) {
    const std::string icon = plain_icon("pen.bmp", 4, 14, 9);
    const auto made = build(20, "Label");
    const INT button = made[0].first, label = made[1].first;
    EXPECT_EQ(grx_change_champ_label(1, 0, writable("Text")), 0);
    EXPECT_EQ(label_of(control(label)), "Text");
    EXPECT_EQ(grx_change_couleur_item(1, 0, 4), 0);
    EXPECT_EQ(resource<Pixel>(control(label), XmNbackground), pixel_of(4));
    EXPECT_NE(resource<Pixel>(control(button), XmNbackground), pixel_of(4));
    EXPECT_EQ(grx_change_icone_item(1, 0, writable(icon.c_str())), 0);
    EXPECT_EQ(resource<unsigned char>(control(label), XmNlabelType), XmPIXMAP);
    EXPECT_EQ(pixmap_extent(resource<Pixmap>(control(label), XmNlabelPixmap)), (Extent{14, 9}));
    EXPECT_NE(resource<unsigned char>(control(button), XmNlabelType), XmPIXMAP);
}

TEST_F(Items, TheStateOfAButtonWithoutLabel) {
    const auto made = build(60, "Only");
    EXPECT_EQ(grx_change_etat_fonction(1, 0, 1), 0);
    EXPECT_EQ(grx_bouton_est_il_enfonce(made[0].first), 1);
    EXPECT_EQ(grx_change_etat_fonction(1, 0, 0), 0);
    EXPECT_EQ(grx_bouton_est_il_enfonce(made[0].first), 0);
    EXPECT_EQ(resource<unsigned char>(control(made[0].first), XmNshadowType), XmSHADOW_OUT);
    EXPECT_EQ(grx_change_etat_fonction(1, 0, -5), 0);
    EXPECT_EQ(grx_bouton_est_il_enfonce(made[0].first), 1);
}

TEST_F(Items, TheStateActsOnTheLabelWhereThereIsOne) {
    const auto made = build(20, "Label");
    grx_change_etat_fonction(1, 0, 1);
    EXPECT_EQ(grx_bouton_est_il_enfonce(made[0].first), 0);
}

TEST_F(Items, TheDispatcherOfChanges) {
    const std::string icon = plain_icon("pen.bmp", 4, 14, 9);
    const auto made = build(60, "Only");
    const INT n = made[0].first;
    EXPECT_EQ(grx_change_attribut_item(3, 1, 0, 0, writable("Text")), 0);
    EXPECT_EQ(label_of(control(n)), "Text");
    EXPECT_EQ(grx_change_attribut_item(2, 1, 0, 6, nullptr), 0);
    EXPECT_EQ(resource<Pixel>(control(n), XmNbackground), pixel_of(6));
    EXPECT_EQ(grx_change_attribut_item(4, 1, 0, 1, nullptr), 0);
    EXPECT_EQ(grx_bouton_est_il_enfonce(n), 1);
    for (INT other : {0, 5, -1, INT_MAX}) EXPECT_EQ(grx_change_attribut_item(other, 1, 0, 0, writable("Other")), 0);
    EXPECT_EQ(label_of(control(n)), "Text");
    EXPECT_EQ(grx_bouton_est_il_enfonce(n), 1);
    EXPECT_EQ(grx_change_attribut_item(1, 1, 0, 0, writable(icon.c_str())), 0);
    EXPECT_EQ(resource<unsigned char>(control(n), XmNlabelType), XmPIXMAP);
}

TEST_F(Items, ChangesOfAnItemWithoutButtonsAndOfUnknownItems) {
    struct Place {
        INT panel, item;
    };
    const auto made = build(60, "Only");
    for (const Place& at : {Place{1, 5}, Place{2, 0}, Place{3, 0}, Place{-1, 0}, Place{1, -1}, Place{99, 0},
             Place{1, 45}, Place{INT_MAX, INT_MIN}}) {
        EXPECT_EQ(grx_change_titre_item(at.panel, at.item, writable("x")), 0);
        EXPECT_EQ(grx_change_icone_item(at.panel, at.item, writable("x")), 0);
        EXPECT_EQ(grx_change_couleur_item(at.panel, at.item, 3), 0);
        EXPECT_EQ(grx_change_champ_label(at.panel, at.item, writable("x")), 0);
        EXPECT_EQ(grx_change_etat_fonction(at.panel, at.item, 1), 0);
    }
    EXPECT_EQ(label_of(control(made[0].first)), "Only");
    EXPECT_EQ(grx_change_titre_item(1, 0, nullptr), 0);
    EXPECT_EQ(grx_change_icone_item(1, 0, nullptr), 0);
    EXPECT_EQ(grx_change_champ_label(1, 0, nullptr), 0);
    EXPECT_EQ(grx_bouton_est_il_enfonce(made[0].first), 0);
}

// --- what a control is ---------------------------------------------------------------------------------------------------------------------

TEST_F(Items, TheKindOfEachControl) {
    struct Kind {
        INT type, bits, choice, value;
    };
    for (const Kind& kind : {Kind{1, 0, 2, 1}, Kind{2, 0, 0, 1}, Kind{4, 0, 2, 1}, Kind{4, 0x2000, 2, 1},
             Kind{8, 0x100, 0, 1}, Kind{16, 0, 0, 1}, Kind{32, 0, 0, 0}, Kind{32, 0x100, 0, 1}, Kind{64, 0, 0, 2},
             Kind{128, 0, 0, 1}, Kind{512, 0, 2, 1}, Kind{768, 0, 0, 1}, Kind{1024, 0, 0, 1}, Kind{4096, 0, 2, 1}}) {
        const INT n = placed(control_of(kind.type, kind.bits, window));
        EXPECT_EQ(grx_recup_type_bstate(n), kind.choice) << kind.type;
        EXPECT_EQ(grx_recup_type_istate(n), kind.value) << kind.type;
        grx_detruit_bouton(n);
        drain();
    }
    for (INT n : no_controls) {
        EXPECT_EQ(grx_recup_type_bstate(n), 0) << n;
        EXPECT_EQ(grx_recup_type_istate(n), 1) << n;
    }
}

TEST_F(Items, TheKindOfControlsInARowOrColumn) {
    const auto group = build(21, "Units-mm-cm");
    EXPECT_EQ(grx_recup_type_bstate(group[1].first), 1);
    EXPECT_EQ(grx_recup_type_istate(group[1].first), 1);
    Widget column = XtVaCreateManagedWidget("column", xmRowColumnWidgetClass, widget_of(window), nullptr);
    for (INT type : {GRX_BOU_LABEL, GRX_BOU_BASCULE, GRX_BOU_FLECHE}) {
        GRX_BOUTON description = control_of(type, 0, window);
        description.ref_fen_mere = column;
        EXPECT_EQ(grx_recup_type_bstate(make(description)), 1) << type;
    }
    GRX_BOUTON description = control_of(GRX_BOU_DESSINE, 0, window);
    description.ref_fen_mere = column;
    EXPECT_EQ(grx_recup_type_bstate(make(description)), 2) << "a push button wherever it is";
}

// --- place and size --------------------------------------------------------------------------------------------------------------------------

struct Place {
    INT x = -7, y = -7, width = -7, height = -7;
    bool operator==(const Place&) const = default;
};
void PrintTo(const Place& p, std::ostream* out) {
    *out << p.width << " x " << p.height << " at " << p.x << "," << p.y;
}
INT place_of(INT panel, INT item, INT type, Place& place) {
    return grx_recup_position_taille_item(panel, item, type, &place.x, &place.y, &place.width, &place.height);
}

TEST_F(Items, PlaceAndSizeOfASingleButton) {
    build(60, "Valider");
    Place place;
    EXPECT_EQ(place_of(1, 0, 60, place), 1);
    EXPECT_EQ(place, (Place{201, 61, 8 * W, H}));
}

TEST_F(Items, TheWidthsOfAllButtonsAreAdded) {
    std::array<INT, 3> n{};
    for (std::size_t i = 0; i < 3; ++i) {
        GRX_BOUTON description = control_of(GRX_BOU_SIMPLE, 0, window);
        description.x = 40 + 100 * static_cast<INT>(i);
        description.y = 50 + static_cast<INT>(i);
        description.largeur = 30 + static_cast<INT>(i);
        description.hauteur = 20 + static_cast<INT>(i);
        n[i] = placed(description);
        grx_memorise_bouton_item(1, 0, i == 1, n[i]);
    }
    Place place;
    EXPECT_EQ(place_of(1, 0, 10, place), 1);
    EXPECT_EQ(place, (Place{40, 50, 93, 20}));
}

TEST_F(Items, PlaceAndSizeOfACompositeAreThoseOfItsForm) {
    for (INT type : {21, 23, 31}) {
        const auto made = build(type, "Units-mm-cm-m", [](GRX_MSG& m) { m.x = 220; });
        drain();
        Place place;
        EXPECT_EQ(place_of(1, last_item(), type, place), 1) << type;
        Widget form = control(made[1].first);
        while (form && !XmIsForm(form)) form = XtParent(form);
        const Rect expected = rect_of(form);
        EXPECT_EQ(place, (Place{expected.x, expected.y, expected.width, expected.height})) << type;
        EXPECT_NE(form, widget_of(window)) << type << ": a form of its own";
        EXPECT_EQ(place.x, 221) << type;
        EXPECT_EQ(place.y, 61) << type;
        EXPECT_GT(place.width, 2 * W) << type;
        EXPECT_LT(place.width, 400) << type;
    }
}

TEST_F(Items, PlaceAndSizeWithoutButtons) {
    Place place;
    EXPECT_EQ(place_of(1, 7, 10, place), 1);
    EXPECT_EQ(place, (Place{-1, -1, 0, 0}));
    for (INT type : {21, 23, 31}) EXPECT_EQ(place_of(1, 7, type, place), 0) << type;
    build(10, "Alone"); // one button: there is no second
    EXPECT_EQ(place_of(1, 0, 21, place), 0);
    build(21, "Alone");
    EXPECT_EQ(place_of(1, last_item(), 21, place), 0);
}

TEST_F(Items, PlaceAndSizeOfUnknownItems) {
    struct At {
        INT panel, item;
    };
    for (const At& at : {At{-1, 0}, At{panel_count, 0}, At{1, -1}, At{1, items_of_a_panel}, At{panel_without_items, 0}})
        for (INT type : {10, 20, 21, 31}) {
            INT x = 5, y = 6, width = 7, height = 8;
            EXPECT_EQ(grx_recup_position_taille_item(at.panel, at.item, type, &x, &y, &width, &height), 0);
            EXPECT_EQ((Rect{x, y, width, height}), (Rect{5, 6, 7, 8}));
        }
}

TEST_F(Items, PlaceAndSizeOfDestroyedButtons) {
    const auto made = build(60, "Valider");
    grx_detruit_bouton(made[0].first);
    Place place;
    EXPECT_EQ(place_of(1, 0, 60, place), 0);
    const auto group = build(21, "Units-mm-cm");
    grx_detruit_bouton(group[1].first);
    EXPECT_EQ(place_of(1, last_item(), 21, place), 0);
}

TEST_F(Items, AButtonOutsideAnyFormHasNoCompositePlace) {
    Widget shell = XtVaCreatePopupShell("shell", topLevelShellWidgetClass, widget_of(window), nullptr);
    Widget board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell, nullptr);
    ASSERT_NE(board, nullptr);
    GRX_BOUTON description = control_of(GRX_BOU_LABEL, 0, window);
    description.ref_fen_mere = board;
    const INT first = make(description), second = make(description);
    grx_memorise_bouton_item(1, 0, 0, first);
    grx_memorise_bouton_item(1, 0, 1, second);
    Place place;
    Widget up = board;
    while (up && !XmIsForm(up)) up = XtParent(up);
    EXPECT_EQ(place_of(1, 0, 21, place), up ? 1 : 0);
}

// --- removing --------------------------------------------------------------------------------------------------------------------------------

TEST_F(Items, RemovedItemsKeepTheirWidgetsUntilTheWindowGoes) {
    const auto made = build(20, "Press");
    Widget button = control(made[0].first);
    EXPECT_EQ(grx_supprime_items(1), 0);
    EXPECT_EQ(control(made[0].first), nullptr);
    EXPECT_EQ(control(made[1].first), nullptr);
    EXPECT_TRUE(visible(XtWindow(button)));
    EXPECT_TRUE(recorded(1, 0).empty());
    EXPECT_EQ(item_record(1, 0).objet_defaut, nullptr);
    grx_detruit_fenetre(window);
    drain();
}

TEST_F(Items, AClickOnARemovedItemPostsNothingOfIt) {
    const auto made = build(60, "Press");
    ASSERT_TRUE(wait_visible(control(made[0].first)));
    Widget button = control(made[0].first);
    grx_supprime_items(1);
    settle();
    pointer().click_in(button, 5, 5);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 0) << events.describe();
}

// --- life of a whole panel ------------------------------------------------------------------------------------------------------------------

class PanelLife : public PanelsTest {
  protected:
    void before_start() override {
        PanelsTest::before_start();
        plain = std::make_unique<HostList>(5, numbered_entries(20), std::vector<INT>{3});
    }

    // Forty items of every kind in a window of their own.
    INT open() {
        const INT n = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 800, 700);
        constexpr std::array<INT, 10> kinds{10, 20, 21, 31, 32, 22, 70, 81, 90, 100};
        for (INT item = 0; item < 40; ++item) {
            GRX_MSG message = item_of(kinds[static_cast<std::size_t>(item) % 10], "Title-one-two-three", item);
            message.fen_mere = n;
            message.clef = message.type == 70 ? 5 : item;
            message.nb_cara = 5;
            message.x = 100 + item % 4 * 150;
            message.y = item / 4 * 60;
            message.largeur = message.hauteur = 5;
            if (message.type == 22) std::strcpy(message.titre, "@pen.bmp");
            grx_cree_item(&message);
        }
        return n;
    }

    void close(INT n) {
        grx_supprime_items(1);
        grx_supprime_item_liste(1, 5);
        grx_detruit_fenetre(n);
        drain();
    }

    std::unique_ptr<HostList> plain;
};

#ifdef __SANITIZE_ADDRESS__
constexpr int rounds = 150; // each takes several times as long there
#else
constexpr int rounds = 1000;
#endif

TEST_F(PanelLife, OpeningAndClosingAThousandTimesLeavesNothing) {
    plain_icon("pen.bmp", 4);
    grx_init_repertoire_icones(writable(home().text().c_str()));
    for (int i = 0; i < 2; ++i) close(open()); // what the toolkit keeps from the first time
    settle();
    const int numbers = taken_numbers();
    const std::size_t blocks = heap().blocks(), bytes = heap().bytes();
    const auto resources = server_resources(test_display(), x_window(window));
    ASSERT_FALSE(resources.empty());
    for (int i = 0; i < rounds; ++i) grx_detruit_fenetre(make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 800, 700));
    settle();
    auto of_windows = server_resources(test_display(), x_window(window)); // what empty windows cost
    for (auto& [kind, count] : of_windows) count -= resources.at(kind);
    const auto start = server_resources(test_display(), x_window(window));
    for (int i = 0; i < rounds; ++i) {
        const INT n = open();
        if (i == 0) {
            ASSERT_TRUE(wait_visible(widget_of(n)));
            EXPECT_GT(taken_numbers(), numbers + 50);
        }
        close(n);
    }
    settle();
    EXPECT_EQ(taken_numbers(), numbers);
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(heap().bytes(), bytes);
    auto after = server_resources(test_display(), x_window(window));
    for (const auto& [kind, count] : start) EXPECT_LE(after[kind], count + of_windows[kind]) << kind;
    for (const char* kind : {"WINDOW", "PIXMAP", "CURSOR"}) EXPECT_EQ(of_windows[kind], 0U) << kind;
}

TEST_F(PanelLife, EachFailingAllocationLeavesThePanelUsable) {
    const int numbers = taken_numbers();
    const int failures = fail_each_allocation(
        [&] {
            const INT n = open();
            heap().fail_never();
            close(n);
        },
        250);
    EXPECT_GT(failures, 40);
    heap().fail_never();
    EXPECT_EQ(taken_numbers(), numbers);
    const INT n = open();
    EXPECT_TRUE(wait_visible(widget_of(n)));
    EXPECT_EQ(flags(1, 0), (std::vector<int>{0, 1}));
    close(n);
}

TEST_F(PanelLife, AFullButtonBaseLeavesItemsOut) {
    std::vector<INT> fillers;
    for (;;) {
        GRX_BOUTON description = control_of(GRX_BOU_SEPARATEUR, 0, window);
        if (taken_numbers() >= 1000) break;
        fillers.push_back(make(description));
    }
    for (INT type : every_kind) {
        GRX_MSG message = item_of(type, "Title-one-two", 0);
        message.nb_cara = 5;
        EXPECT_EQ(grx_cree_item(&message), 0) << type;
        EXPECT_TRUE(recorded(1, 0).empty()) << type;
        EXPECT_EQ(message.prebou, message.type / 10 == 7 ? 0 : message.prebou);
    }
    EXPECT_EQ(taken_numbers(), 1000);
}

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
