// Messages and questions that are waited for, and those that are answered by a record.
#include "tests/display/dialogs/box_kit.h"
#include "tests/support/controls.h"
#include "tests/support/heap.h"

#include <set>

namespace {
using namespace grxtest;

class MessageBox : public Boxes<DisplayTest> {};

// --- answers

struct Way {
    const char* what;
    INT buttons, preferred, escape;
    std::function<void(Keyboard&)> keys; // null: the close box
    INT answer;
};

class MessageKeys : public Boxes<DisplayTest>, public testing::WithParamInterface<Way> {};

TEST_P(MessageKeys, Answer) {
    const Way& way = GetParam();
    GRX_BOITE_MESSAGE asked = message(GRX_BOITE_QUESTION, "Continuer ?", way.buttons);
    asked.bouton_defaut = way.preferred;
    asked.bouton_abandon = way.escape;
    asked.boutons[0] = "&Garder";
    asked.boutons[1] = "&Jeter";
    asked.boutons[2] = "&Plus tard";
    when_shown("answer", [&] {
        pointer().move_in(box(), 4, 4);
        if (way.keys)
            way.keys(keyboard());
        else
            close_box();
    });
    EXPECT_EQ(ask(asked), way.answer);
}

const auto kReturn = [](Keyboard& k) { k.key(XK_Return); };
const auto kEscape = [](Keyboard& k) { k.key(XK_Escape); };

INSTANTIATE_TEST_SUITE_P(All, MessageKeys,
    testing::Values(Way{"Return is the first", 2, 0, 0, kReturn, 1}, Way{"Return is the default", 3, 2, 0, kReturn, 2},
        Way{"Return is the last", 3, 3, 1, kReturn, 3},
        Way{"Enter", 3, 2, 1, [](Keyboard& k) { k.key(XK_KP_Enter); }, 2},
        Way{"space", 3, 2, 1, [](Keyboard& k) { k.key(XK_space); }, 2}, Way{"Escape is the last", 2, 0, 0, kEscape, 2},
        Way{"Escape is the named one", 3, 1, 2, kEscape, 2}, Way{"Escape of one", 1, 0, 0, kEscape, 1},
        Way{"the close box", 3, 1, 2, nullptr, 2}, Way{"the close box of one", 1, 0, 0, nullptr, 1},
        Way{"Alt and a letter", 3, 1, 3, [](Keyboard& k) { k.key(XK_j, Mod1Mask); }, 2},
        Way{"Alt and a capital", 3, 1, 3, [](Keyboard& k) { k.key(XK_P, Mod1Mask); }, 3},
        Way{"Tab", 3, 1, 3,
            [](Keyboard& k) {
                k.key(XK_Tab);
                k.key(XK_Return);
            },
            2},
        Way{"Tab back", 3, 2, 3,
            [](Keyboard& k) {
                k.key(XK_Tab, ShiftMask);
                k.key(XK_space);
            },
            1},
        Way{"an arrow", 3, 1, 3,
            [](Keyboard& k) {
                k.key(XK_Right);
                k.key(XK_Return);
            },
            2}));

class LockedMessageKeys : public MessageKeys {};

TEST_P(LockedMessageKeys, AnswerWithNumLockAndCapsLock) {
    keyboard().num_lock();
    keyboard().caps_lock();
    const Way& way = GetParam();
    GRX_BOITE_MESSAGE asked = message(GRX_BOITE_QUESTION, "Continuer ?", way.buttons);
    asked.bouton_defaut = way.preferred;
    asked.bouton_abandon = way.escape;
    asked.boutons[1] = "&Jeter";
    when_shown("answer", [&] {
        pointer().move_in(box(), 4, 4);
        way.keys(keyboard());
    });
    EXPECT_EQ(ask(asked), way.answer);
    keyboard().num_lock();
    keyboard().caps_lock();
}

INSTANTIATE_TEST_SUITE_P(Locks, LockedMessageKeys,
    testing::Values(Way{"Return", 3, 2, 0, kReturn, 2}, Way{"Escape", 3, 1, 2, kEscape, 2},
        Way{"Enter", 3, 2, 1, [](Keyboard& k) { k.key(XK_KP_Enter); }, 2},
        Way{"Alt and a letter", 3, 1, 3, [](Keyboard& k) { k.key(XK_j, Mod1Mask); }, 2}));

TEST_F(MessageBox, OnAFrenchKeyboardLettersAreThoseTyped) {
    keyboard().layout("fr");
    GRX_BOITE_MESSAGE asked = message(GRX_BOITE_QUESTION, "Continuer ?", 2);
    asked.boutons[0] = "&Annuler";
    asked.boutons[1] = "&Quitter";
    when_shown("a", [&] { key(XK_a, Mod1Mask); });
    EXPECT_EQ(ask(asked), 1);
    when_shown("q", [&] { key(XK_q, Mod1Mask); });
    EXPECT_EQ(ask(asked), 2);
}

TEST_F(MessageBox, EachButtonIsItsNumber) {
    for (INT count = 1; count <= 3; ++count)
        for (INT button = 1; button <= count; ++button) {
            when_shown("click", [&] { choose(static_cast<std::size_t>(button)); });
            EXPECT_EQ(ask(message(GRX_BOITE_AVERTISSEMENT, "Texte", count)), button) << count;
        }
}

TEST_F(MessageBox, ButtonsWithoutLabelsHaveTheUsualOnes) {
    const auto labels_of = [&](INT kind, INT count) {
        std::vector<std::string> seen;
        when_shown("look", [&] {
            seen = labels();
            close_box();
        });
        ask(message(kind, "Texte", count));
        return seen;
    };
    using Texts = std::vector<std::string>;
    EXPECT_EQ(labels_of(GRX_BOITE_INFORMATION, 0), Texts{"OK"});
    EXPECT_EQ(labels_of(GRX_BOITE_ERREUR, 2), (Texts{"OK", "Annuler"}));
    EXPECT_EQ(labels_of(GRX_BOITE_QUESTION, 0), (Texts{"Oui", "Non"}));
    EXPECT_EQ(labels_of(GRX_BOITE_QUESTION, 3), (Texts{"Oui", "Non", "Annuler"}));
}

TEST_F(MessageBox, LabelsMayHoldAnAmpersand) {
    GRX_BOITE_MESSAGE asked = message(GRX_BOITE_QUESTION, "Texte", 3);
    asked.boutons[0] = "A && B";
    asked.boutons[1] = "Lire & \xe9"
                       "crire";
    asked.boutons[2] = "Fin&";
    when_shown("look", [&] {
        EXPECT_EQ(labels(), (std::vector<std::string>{"A & B",
                                "Lire & \xe9"
                                "crire",
                                "Fin&"}));
        close_box();
    });
    EXPECT_EQ(ask(asked), 3);
}

// --- what it shows

TEST_F(MessageBox, AccentsReadTheSameInBothEncodings) {
    std::vector<std::string> seen;
    for (const char* text : {"D\xe9j\xe0 l\xe0 \xe0 No\xebl", "D\xc3\xa9j\xc3\xa0 l\xc3\xa0 \xc3\xa0 No\xc3\xabl"}) {
        GRX_BOITE_MESSAGE asked = message(GRX_BOITE_INFORMATION, text);
        asked.titre = text;
        when_shown("look", [&] {
            seen.push_back(text_resource(box(), XmNmessageString));
            EXPECT_STREQ(resource<char*>(XtParent(box()), XmNtitle), "D\xe9j\xe0 l\xe0 \xe0 No\xebl");
            close_box();
        });
        EXPECT_EQ(ask(asked), 1);
    }
    EXPECT_EQ(seen, std::vector<std::string>(2, "D\xe9j\xe0 l\xe0 \xe0 No\xebl"));
}

TEST_F(MessageBox, LongTextsAreWrappedAndNeverTallerThanTheScreen) {
    std::string words, lines;
    for (int i = 0; i < 60; ++i) words += "mot" + std::to_string(i) + " ";
    for (int i = 0; i < 2000; ++i) lines += "ligne " + std::to_string(i) + "\n";
    const std::string no_blank(5000, 'x');
    const std::string huge(300000, 'y');
    for (const std::string* const text : std::vector<const std::string*>{&words, &lines, &no_blank, &huge}) {
        SCOPED_TRACE(text->substr(0, 20));
        when_shown("look", [&] {
            const Area area = server_area(test_display(), XtWindow(XtParent(box())));
            EXPECT_LT(area.width, 1000);
            EXPECT_LT(area.height, 800);
            EXPECT_GE(area.x, 0);
            EXPECT_GE(area.y, 0);
            EXPECT_EQ(part_called("long_text") != nullptr, text != &words);
            key(XK_Return);
        });
        EXPECT_EQ(ask(message(GRX_BOITE_INFORMATION, text->c_str())), 1);
    }
}

TEST_F(MessageBox, AScrolledTextIsWholeAndReturnInItIsTheDefault) {
    std::string lines;
    for (int i = 0; i < 300; ++i) lines += "\xe9t\xe9 " + std::to_string(i) + "\n";
    when_shown("look", [&] {
        Widget text = part_called("long_text");
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(field_text(text), lines);
        pointer().click_in(text, 10, 10);
        keyboard().type("abc");
        drain();
        EXPECT_EQ(field_text(text), lines) << "it is for reading";
        keyboard().key(XK_Return);
    });
    GRX_BOITE_MESSAGE asked = message(GRX_BOITE_QUESTION, lines.c_str());
    asked.bouton_defaut = 2;
    asked.bouton_abandon = 1;
    EXPECT_EQ(ask(asked), 2);
}

TEST_F(MessageBox, StandsInTheMiddleOfItsParentOrOfTheScreen) {
    const auto middle_of = [&](INT parent) {
        Point middle;
        when_shown("look", [&] {
            const Area area = server_area(test_display(), XtWindow(XtParent(box())));
            middle = {area.x + area.width / 2, area.y + area.height / 2};
            close_box();
        });
        GRX_BOITE_MESSAGE asked = message(GRX_BOITE_INFORMATION, "Texte");
        asked.nofen_mere = parent;
        EXPECT_EQ(ask(asked), 1);
        return middle;
    };
    const INT other = make(GRX_FEN_GRAPHIQUE, GRX_FEN_ATT_VISIBLE, 600, 500);
    ASSERT_TRUE(wait_visible(widget_of(other)));
    const Area over = server_area(test_display(), XtWindow(shell_of(other)));
    EXPECT_NEAR(middle_of(other).x, over.x + over.width / 2, 2);
    EXPECT_NEAR(middle_of(other).y, over.y + over.height / 2, 2);
    for (const INT none : {GRX_AUCUN, 0}) {
        EXPECT_NEAR(middle_of(none).x, 640, 2);
        EXPECT_NEAR(middle_of(none).y, 512, 2);
    }
    grx_cache_fenetre(other);
    drain();
    EXPECT_NEAR(middle_of(other).x, 640, 2) << "a hidden window is none";
}

TEST_F(MessageBox, ThePictureIsThereAndGoesWithItsColours) {
    std::set<std::size_t> seen;
    for (INT kind = 0; kind < 4; ++kind) {
        when_shown("look", [&] {
            const Pixels shown = grab(x11_disp, XtWindow(box()), {0, 0, 70, 70});
            seen.insert(shown.count(shown.at(3, 3)));
            choose(1);
        });
        EXPECT_EQ(ask(message(kind, "Texte")), 1);
    }
    EXPECT_GE(seen.size(), 3U) << "the pictures differ";
}

// --- modality

TEST_F(MessageBox, OtherWindowsTakeNoInputButAreRedrawn) {
    const INT other = make(GRX_FEN_GRAPHIQUE, GRX_FEN_ATT_VISIBLE, 200, 150);
    ASSERT_TRUE(wait_visible(widget_of(other)));
    GRX_BOUTON button = button_at(GRX_BOU_POUSSOIR, main_, {10, 10, 80, 30});
    const INT pushed = grx_cree_bouton(&button);
    ASSERT_EQ(pushed, 0);
    drain();
    events.clear();
    GRX_BOITE_MESSAGE asked = message(GRX_BOITE_INFORMATION, "Texte");
    const INT number = grx_affiche_boite_message(&asked);
    ASSERT_GT(number, 0);
    ASSERT_TRUE(wait_for([&] { return box() != nullptr; }));
    drain();
    events.clear();
    const auto forbidden = [&] {
        for (const INT type :
            {GRX_EVT_BOUTON_APPUI, GRX_EVT_BOUTON_RELACHE, GRX_EVT_CARAC_APPUI, GRX_EVT_EXEC_FONCTION})
            if (std::ranges::count(events.types(), type) > 0) return true;
        return false;
    };
    pointer().click_in(widget_of(other), 5, 5);
    pointer().click_in(grx_recup_objet_bout(button.nobou));
    keyboard().key(XK_a);
    keyboard().key(XK_Return);
    drain();
    EXPECT_FALSE(forbidden()) << events.describe();
    EXPECT_NE(box(), nullptr);
    XUnmapWindow(test_display(), XtWindow(shell_of(other)));
    XMapWindow(test_display(), XtWindow(shell_of(other)));
    XSync(test_display(), False);
    EXPECT_TRUE(events.wait([&](const GRX_EVENEMENT& e) { return e.affichage.nofen == other; }));
    choose(1);
    EXPECT_TRUE(events.wait(GRX_EVT_MESSAGE));
    pointer().click_in(widget_of(other), 5, 5);
    EXPECT_TRUE(events.wait(GRX_EVT_BOUTON_APPUI)) << "now they do again";
}

// --- records

TEST_F(MessageBox, AnswersWithOneRecord) {
    for (INT button = 1; button <= 3; ++button) {
        GRX_BOITE_MESSAGE asked = message(GRX_BOITE_QUESTION, "Texte", 3);
        const INT number = grx_affiche_boite_message(&asked);
        ASSERT_GT(number, 0);
        ASSERT_TRUE(wait_for([&] { return box() != nullptr; }));
        events.clear();
        choose(static_cast<std::size_t>(button));
        const auto answer = events.wait(GRX_EVT_MESSAGE);
        ASSERT_TRUE(answer) << events.describe();
        EXPECT_EQ(answer->reponse_question.nofen, number);
        EXPECT_EQ(answer->reponse_question.reponse, button);
        EXPECT_EQ(box(), nullptr);
        drain();
        EXPECT_EQ(std::ranges::count(events.types(), GRX_EVT_MESSAGE), 1);
        EXPECT_EQ(grx_detruit_boite(number), GRX_ECHEC_NUMERO);
    }
}

TEST_F(MessageBox, GoesWithItsParentWithoutAnAnswer) {
    const INT parent = make(GRX_FEN_BOUTONS, GRX_FEN_ATT_VISIBLE, 200, 150);
    ASSERT_TRUE(wait_visible(widget_of(parent)));
    GRX_BOITE_MESSAGE asked = message(GRX_BOITE_QUESTION, "Texte");
    asked.nofen_mere = parent;
    const INT number = grx_affiche_boite_message(&asked);
    ASSERT_GT(number, 0);
    drain();
    grx_detruit_fenetre(parent);
    const auto answer = events.wait(GRX_EVT_MESSAGE);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->reponse_question.nofen, number);
    EXPECT_EQ(answer->reponse_question.reponse, 0);
}

TEST_F(MessageBox, IsTakenAwayWithoutARecord) {
    GRX_BOITE_MESSAGE asked = message(GRX_BOITE_QUESTION, "Texte");
    const INT number = grx_affiche_boite_message(&asked);
    ASSERT_TRUE(wait_for([&] { return box() != nullptr; }));
    EXPECT_EQ(grx_detruit_boite(number), 1);
    EXPECT_EQ(grx_detruit_boite(number), GRX_ECHEC_NUMERO);
    drain();
    EXPECT_EQ(box(), nullptr);
    EXPECT_EQ(std::ranges::count(events.types(), GRX_EVT_MESSAGE), 0);
    const INT second = grx_affiche_boite_message(&asked);
    EXPECT_GT(second, number) << "a number is given once";
    ASSERT_TRUE(wait_for([&] { return box() != nullptr; }));
    choose(1);
    EXPECT_TRUE(wait_until([&] { return box() == nullptr; }, [] { XtAppProcessEvent(contexte, XtIMAll); }));
    EXPECT_EQ(grx_detruit_boite(second), 1) << "its record waits";
    GRX_EVENEMENT evt{};
    while (grx_digitaliseur(&evt, 0) != 0) EXPECT_NE(evt.type_evenement, GRX_EVT_MESSAGE);
}

TEST_F(MessageBox, NoMoreThanTheTableHolds) {
    GRX_BOITE_MESSAGE asked = message(GRX_BOITE_INFORMATION, "Texte");
    std::vector<INT> numbers;
    for (INT i = 0; i < GRX_BOITES_MAX; ++i) numbers.push_back(grx_affiche_boite_message(&asked));
    EXPECT_EQ(grx_affiche_boite_message(&asked), GRX_ECHEC_PLEIN);
    EXPECT_EQ(grx_attend_boite_message(&asked), GRX_ECHEC_PLEIN);
    for (const INT number : numbers) EXPECT_EQ(grx_detruit_boite(number), 1);
}

// --- loops within loops, and ends

TEST_F(MessageBox, OneWithinAnother) {
    INT inner = -1;
    inside_a_callback([&] {
        when_shown("click through to another", [&] {
            when_shown("answer the inner", [&] {
                EXPECT_EQ(all_boxes().size(), 2U);
                choose(2);
            });
            script_.when(
                "answer the outer", [&] { return all_boxes().size() == 1 && inner == 2; }, [&] { choose(1); });
            const GRX_BOITE_MESSAGE asked = message(GRX_BOITE_QUESTION, "Dedans", 3);
            inner = grx_attend_boite_message(&asked);
        });
        EXPECT_EQ(ask(message(GRX_BOITE_QUESTION, "Dehors", 2)), 1);
    });
    EXPECT_EQ(inner, 2);
}

TEST_F(MessageBox, EndsWithItsParentInsideACallbackToo) {
    for (const bool inside : {false, true}) {
        GRX_FENETRE beside = described(GRX_FEN_BOUTONS);
        beside.x = 600;
        const INT parent = make(beside);
        ASSERT_TRUE(wait_visible(widget_of(parent)));
        INT answer = -1;
        const std::function<void()> call = [&] {
            when_shown("the parent goes", [&] { grx_detruit_fenetre(parent); });
            GRX_BOITE_MESSAGE asked = message(GRX_BOITE_QUESTION, "Texte");
            asked.nofen_mere = parent;
            answer = ask(asked);
        };
        events.clear();
        if (inside)
            inside_a_callback(call);
        else
            call();
        EXPECT_EQ(answer, 0);
        const auto told = events.wait(GRX_EVT_DESTRUCTION);
        ASSERT_TRUE(told) << "the application is told afterwards";
        EXPECT_EQ(told->destruction.nofen, parent);
    }
}

TEST_F(MessageBox, EndsWithTheMainWindow) {
    const INT other = make(GRX_FEN_BOUTONS, GRX_FEN_ATT_VISIBLE, 200, 150);
    ASSERT_TRUE(wait_visible(widget_of(other)));
    GRX_BOITE_MESSAGE asked = message(GRX_BOITE_QUESTION, "Texte");
    asked.nofen_mere = other;
    script_.when(
        "the main window goes", [&] { return is_viewable(box_over(other)); }, [&] { grx_detruit_fenetre(main_); });
    EXPECT_EQ(ask(asked), 0);
}

// --- bad input

TEST_F(MessageBox, BadRecordsShowNothing) {
    const NoLeak no_leak;
    EXPECT_EQ(grx_init_boite_message(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_attend_boite_message(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_affiche_boite_message(nullptr), GRX_ECHEC_PARAMETRE);
    const auto with = [](auto change) {
        GRX_BOITE_MESSAGE asked = message(GRX_BOITE_INFORMATION, "Texte");
        change(asked);
        EXPECT_EQ(grx_attend_boite_message(&asked), grx_affiche_boite_message(&asked));
        return grx_affiche_boite_message(&asked);
    };
    for (const INT n : {-1, 4, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(with([n](auto& a) { a.genre = n; }), GRX_ECHEC_PARAMETRE) << n;
        EXPECT_EQ(with([n](auto& a) { a.nb_boutons = n; }), GRX_ECHEC_PARAMETRE) << n;
        EXPECT_EQ(with([n](auto& a) { a.bouton_defaut = n; }), GRX_ECHEC_PARAMETRE) << n;
        EXPECT_EQ(with([n](auto& a) { a.bouton_abandon = n; }), GRX_ECHEC_PARAMETRE) << n;
    }
    EXPECT_EQ(with([](auto& a) { a.bouton_abandon = 2; }), GRX_ECHEC_PARAMETRE) << "there is one button";
    for (const INT n : {98, 100, 1000, INT32_MAX, INT32_MIN, -2})
        EXPECT_EQ(with([n](auto& a) { a.nofen_mere = n; }), GRX_ECHEC_NUMERO) << n;
    for (const INT n : {0, 8, -1}) EXPECT_EQ(with([n](auto& a) { a.taille = n; }), GRX_ECHEC_PARAMETRE) << n;
    for (const INT n : {0, -1, 1, INT32_MAX, INT32_MIN}) EXPECT_EQ(grx_detruit_boite(n), GRX_ECHEC_NUMERO);
    EXPECT_EQ(box(), nullptr);
}

TEST_F(MessageBox, NullTextsAreEmpty) {
    GRX_BOITE_MESSAGE asked = message(GRX_BOITE_INFORMATION, nullptr);
    when_shown("close", [&] { close_box(); });
    EXPECT_EQ(ask(asked), 1);
}

TEST_F(MessageBox, WithoutMemoryNothingIsShown) {
    const NoLeak no_leak;
    int shown = 0;
    const int failures = fail_each_allocation([&] {
        const GRX_BOITE_MESSAGE asked = message(GRX_BOITE_QUESTION, "Un texte", 3);
        const INT number = grx_affiche_boite_message(&asked);
        EXPECT_TRUE(number > 0 || number == GRX_ECHEC_MEMOIRE) << number;
        if (number > 0) {
            ++shown;
            EXPECT_EQ(grx_detruit_boite(number), 1);
        }
        drain();
    });
    EXPECT_GT(failures, 5);
    EXPECT_GE(shown, 1);
    EXPECT_EQ(box(), nullptr);
}

TEST_F(MessageBox, FiveHundredLeaveNothing) {
    const auto once = [&](int way) {
        const GRX_BOITE_MESSAGE asked = message(way % 4, "Texte", way % 3 + 1);
        const INT number = grx_affiche_boite_message(&asked);
        ASSERT_GT(number, 0);
        GRX_EVENEMENT evt{};
        while (grx_digitaliseur(&evt, 0) != 0) continue;
        EXPECT_EQ(grx_detruit_boite(number), 1);
    };
    for (int i = 0; i < 24; ++i) once(i);
    drain();
    const auto before = server_resources(test_display(), x_window(main_));
    const std::size_t widgets = whole_tree().size(), blocks = heap().blocks();
    for (int i = 0; i < 500; ++i) once(i);
    drain();
    EXPECT_EQ(server_resources(test_display(), x_window(main_)), before);
    EXPECT_EQ(whole_tree().size(), widgets);
    EXPECT_EQ(heap().blocks(), blocks);
}

TEST_F(MessageBox, WaitedForOverAndOverLeavesNothing) {
    const auto once = [&](int way) {
        when_shown("end", [&, way] {
            if (way % 3 == 0) choose(1);
            if (way % 3 == 1) key(XK_Escape);
            if (way % 3 == 2) close_box();
        });
        EXPECT_EQ(ask(message(GRX_BOITE_QUESTION, "Texte")), way % 3 == 0 ? 1 : 2);
    };
    for (int i = 0; i < 6; ++i) once(i);
    drain();
    const auto before = server_resources(test_display(), x_window(main_));
    const std::size_t widgets = whole_tree().size(), blocks = heap().blocks();
    for (int i = 0; i < 60; ++i) once(i);
    drain();
    EXPECT_EQ(server_resources(test_display(), x_window(main_)), before);
    EXPECT_EQ(whole_tree().size(), widgets);
    EXPECT_EQ(heap().blocks(), blocks);
}

TEST(Messages, WithoutADisplayNothingIsShown) {
    const GRX_BOITE_MESSAGE asked = message(GRX_BOITE_INFORMATION, "Texte");
    EXPECT_EQ(grx_attend_boite_message(&asked), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_affiche_boite_message(&asked), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_detruit_boite(1), GRX_ECHEC_NUMERO);
    const GRX_BOITE_SAISIE wanted = prompt(GRX_SAISIE_TEXTE);
    EXPECT_EQ(grx_attend_boite_saisie(&wanted, nullptr, 0, nullptr), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_affiche_boite_saisie(&wanted), GRX_ECHEC_AFFICHAGE);
}

} // namespace
