// Prompts for a text or a number.
#include "tests/display/dialogs/box_kit.h"
#include "tests/support/heap.h"

#include <cfloat>
#include <cmath>
#include <limits>

namespace {
using namespace grxtest;

class PromptBox : public Boxes<DisplayTest> {
  protected:
    struct Answer {
        INT result = -1;
        std::string text;
        DOUBLE number = -77;
    };
    Answer prompt_user(const GRX_BOITE_SAISIE& asked, INT room = 200) {
        std::vector<char> text(400, 'Z');
        Answer answer;
        answer.result = script_.run([&] { return grx_attend_boite_saisie(&asked, text.data(), room, &answer.number); });
        if (text[0] != 'Z') answer.text = text.data();
        return answer;
    }
    void type(const std::string& text) {
        pointer().move_in(box(), 4, 4);
        keyboard().type(text);
    }
};

TEST_F(PromptBox, TheFirstTextIsSelectedAndReplacedByTyping) {
    GRX_BOITE_SAISIE asked = prompt(GRX_SAISIE_TEXTE, "Nom du calque");
    asked.texte = "murs";
    when_shown("accept", [&] {
        EXPECT_EQ(field_text(field()), "murs");
        EXPECT_EQ(text_resource(box(), XmNmessageString), "Nom du calque");
        EXPECT_EQ(labels(), (std::vector<std::string>{"OK", "Annuler"}));
        key(XK_Return);
    });
    EXPECT_EQ(prompt_user(asked).text, "murs");
    keyboard().layout("fr");
    when_shown("replace", [&] { type("Caf\xc3\xa9\n"); });
    const Answer answer = prompt_user(asked);
    EXPECT_EQ(answer.result, 1);
    EXPECT_EQ(answer.text, "Caf\xe9");
    EXPECT_EQ(answer.number, 0);
}

TEST_F(PromptBox, WaysToAgreeAndToCancel) {
    struct Way {
        std::function<void()> act;
        INT result;
    };
    const std::vector<Way> ways{{[&] { key(XK_Return); }, 1}, {[&] { key(XK_KP_Enter); }, 1}, {[&] { choose(1); }, 1},
        {[&] { choose(2); }, 0}, {[&] { key(XK_Escape); }, 0}, {[&] { close_box(); }, 0},
        {[&] {
             key(XK_Tab);
             keyboard().key(XK_Tab);
             keyboard().key(XK_Return);
         },
            0},
        {[&] { key(XK_t, Mod1Mask); }, 1}};
    for (const bool locks : {false, true}) {
        if (locks) {
            keyboard().num_lock();
            keyboard().caps_lock();
        }
        for (const Way& way : ways) {
            GRX_BOITE_SAISIE asked = prompt(GRX_SAISIE_TEXTE);
            asked.texte = "avant";
            asked.bouton_accord = "En&tendu";
            when_shown("act", way.act);
            const Answer answer = prompt_user(asked);
            EXPECT_EQ(answer.result, way.result) << &way - ways.data() << (locks ? " with locks" : "");
            EXPECT_EQ(answer.text, way.result == 1 ? "avant" : "");
            EXPECT_EQ(answer.number, way.result == 1 ? 0 : -77) << "nothing is written unless agreed";
        }
    }
    keyboard().num_lock();
    keyboard().caps_lock();
}

TEST_F(PromptBox, ATextHasAGreatestLength) {
    GRX_BOITE_SAISIE asked = prompt(GRX_SAISIE_TEXTE);
    asked.longueur_max = 5;
    when_shown("type", [&] { type("abcdefgh\n"); });
    EXPECT_EQ(prompt_user(asked).text, "abcde");
}

TEST_F(PromptBox, TheAnswerIsInTheEncodingOfTheTextsAndCutBetweenCharacters) {
    GRX_BOITE_SAISIE asked = prompt(GRX_SAISIE_TEXTE, "Pi\xc3\xa8"
                                                      "ce");
    asked.texte = "\xc3\xa9\xc3\xa9\xc3\xa9";
    const auto answered = [&](INT room) {
        when_shown("agree", [&] { key(XK_Return); });
        return prompt_user(asked, room).text;
    };
    EXPECT_EQ(answered(100), "\xc3\xa9\xc3\xa9\xc3\xa9");
    EXPECT_EQ(answered(6), "\xc3\xa9\xc3\xa9") << "no half character";
    EXPECT_EQ(answered(5), "\xc3\xa9\xc3\xa9");
    EXPECT_EQ(answered(1), "");
    EXPECT_EQ(answered(0), "");
    EXPECT_EQ(answered(-5), "");
    asked.etiquette = "Pi\xe8"
                      "ce";
    asked.texte = "\xe9t\xe9";
    EXPECT_EQ(answered(100), "\xe9t\xe9");
    when_shown("agree", [&] { key(XK_Return); });
    EXPECT_EQ(script_.run([&] { return grx_attend_boite_saisie(&asked, nullptr, 10, nullptr); }), 1);
}

struct Typed {
    INT kind;
    const char* text;
    double least, most;
    bool agreed;
    double number;
};

class PromptNumbers : public PromptBox, public testing::WithParamInterface<Typed> {};

constexpr double kNone = DBL_MAX;

TEST_P(PromptNumbers, AreReadOrRefusedInPlace) {
    const Typed& typed = GetParam();
    GRX_BOITE_SAISIE asked = prompt(typed.kind);
    asked.minimum = typed.least;
    asked.maximum = typed.most;
    std::string first_hint, later_hint;
    when_shown("type", [&] {
        first_hint = hint();
        type(typed.text);
        keyboard().key(XK_Return);
    });
    if (!typed.agreed) {
        script_.then("refused", [&] {
            ASSERT_NE(box(), nullptr);
            later_hint = hint();
            key(XK_Escape);
        });
    }
    const Answer answer = prompt_user(asked);
    EXPECT_EQ(answer.result, typed.agreed ? 1 : 0);
    EXPECT_EQ(answer.number, typed.agreed ? typed.number : -77);
    if (typed.agreed) EXPECT_EQ(answer.text, typed.text);
    if (!typed.agreed) EXPECT_NE(later_hint, first_hint);
    if (!typed.agreed) EXPECT_NE(later_hint, "");
}

INSTANTIATE_TEST_SUITE_P(All, PromptNumbers,
    testing::Values(Typed{GRX_SAISIE_ENTIER, "12", 1, 100, true, 12}, Typed{GRX_SAISIE_ENTIER, "1", 1, 100, true, 1},
        Typed{GRX_SAISIE_ENTIER, "100", 1, 100, true, 100}, Typed{GRX_SAISIE_ENTIER, "0", 1, 100, false, 0},
        Typed{GRX_SAISIE_ENTIER, "101", 1, 100, false, 0}, Typed{GRX_SAISIE_ENTIER, "-7", -kNone, kNone, true, -7},
        Typed{GRX_SAISIE_ENTIER, "+7", -kNone, kNone, true, 7}, Typed{GRX_SAISIE_ENTIER, "1.5", 1, 100, false, 0},
        Typed{GRX_SAISIE_ENTIER, "12a", 1, 100, false, 0}, Typed{GRX_SAISIE_ENTIER, "abc", 1, 100, false, 0},
        Typed{GRX_SAISIE_ENTIER, "99999999999", -kNone, kNone, false, 0},
        Typed{GRX_SAISIE_REEL, "2.5", 0, 10, true, 2.5}, Typed{GRX_SAISIE_REEL, "2,5", 0, 10, true, 2.5},
        Typed{GRX_SAISIE_REEL, "1e1", 0, 10, true, 10}, Typed{GRX_SAISIE_REEL, ",5", 0, 10, true, 0.5},
        Typed{GRX_SAISIE_REEL, "10,01", 0, 10, false, 0}, Typed{GRX_SAISIE_REEL, "1,2,3", 0, 10, false, 0},
        Typed{GRX_SAISIE_REEL, "nan", -kNone, kNone, false, 0}, Typed{GRX_SAISIE_REEL, "inf", -kNone, kNone, false, 0},
        Typed{GRX_SAISIE_REEL, "1e999", -kNone, kNone, false, 0}, Typed{GRX_SAISIE_REEL, "-", 0, 10, false, 0},
        Typed{GRX_SAISIE_REEL, " 3 ", 0, 10, true, 3}));

TEST_F(PromptBox, AfterARefusalTheUserGoesOnInTheField) {
    GRX_BOITE_SAISIE asked = prompt(GRX_SAISIE_ENTIER);
    asked.minimum = 1;
    asked.maximum = 8;
    asked.valeur = 50;
    when_shown("too much", [&] {
        EXPECT_EQ(field_text(field()), "50");
        EXPECT_EQ(hint(), "Entre 1 et 8");
        choose(1);
    });
    script_.then("again", [&] {
        EXPECT_EQ(hint(), "Hors limites. Entre 1 et 8");
        keyboard().type("5\n"); // in the place of what was refused
    });
    const Answer answer = prompt_user(asked);
    EXPECT_EQ(answer.result, 1);
    EXPECT_EQ(answer.number, 5);
}

TEST_F(PromptBox, FirstValues) {
    const auto first = [&](auto change) {
        GRX_BOITE_SAISIE asked = prompt(GRX_SAISIE_REEL);
        change(asked);
        std::string seen;
        when_shown("look", [&] {
            seen = field_text(field());
            key(XK_Escape);
        });
        prompt_user(asked);
        return seen;
    };
    EXPECT_EQ(first([](auto& a) { a.valeur = 2.5; }), "2.5");
    EXPECT_EQ(first([](auto& a) { a.valeur = 0.1; }), "0.1");
    EXPECT_EQ(first([](auto& a) { a.valeur = 1e300; }), "1e+300");
    EXPECT_EQ(first([](auto& a) { a.valeur = NAN; }), "");
    EXPECT_EQ(first([](auto& a) { a.sans_valeur = 1; }), "");
    EXPECT_EQ(first([](auto& a) {
        a.valeur = 3.14159;
        a.nb_decimales = 2;
    }),
        "3.14");
    EXPECT_EQ(first([](auto& a) {
        a.genre = GRX_SAISIE_ENTIER;
        a.valeur = 41.9;
    }),
        "41");
    EXPECT_EQ(first([](auto& a) {
        a.genre = GRX_SAISIE_TEXTE;
        a.texte = "deux\nlignes";
    }),
        "deux lignes");
}

TEST_F(PromptBox, AnswersWithOneRecord) {
    GRX_BOITE_SAISIE asked = prompt(GRX_SAISIE_REEL);
    const std::string whole(300, '0');
    for (const bool agreed : {true, false}) {
        const INT number = grx_affiche_boite_saisie(&asked);
        ASSERT_GT(number, 0);
        ASSERT_TRUE(wait_for([&] { return box() != nullptr; }));
        type(whole + "2,5");
        if (agreed)
            keyboard().key(XK_Return);
        else
            keyboard().key(XK_Escape);
        GRX_EVENEMENT evt{};
        ASSERT_TRUE(
            wait_until([&] { return evt.type_evenement == GRX_EVT_SAISIE; }, [&] { grx_digitaliseur(&evt, 0); }));
        GRX_DETAIL_EVENEMENT detail{};
        grx_init_detail_evenement(&detail);
        EXPECT_EQ(grx_recup_detail_evenement(&detail), 1);
        EXPECT_EQ(detail.type_evenement, GRX_EVT_SAISIE);
        EXPECT_EQ(detail.reel, agreed ? 2.5 : 0.0);
        EXPECT_EQ(grx_recup_texte_detail_evenement(0), agreed ? whole + "2,5" : "");
        EXPECT_EQ(evt.exec_fonction.nofen, number);
        EXPECT_EQ(evt.exec_fonction.valeur, agreed ? 1 : 0);
        EXPECT_EQ(evt.exec_fonction.nobou, GRX_AUCUN);
        EXPECT_EQ(evt.exec_fonction.no_fo, GRX_AUCUN);
        EXPECT_EQ(
            std::string(evt.exec_fonction.chaine), agreed ? std::string(sizeof evt.exec_fonction.chaine - 1, '0') : "");
        EXPECT_EQ(box(), nullptr);
    }
}

TEST_F(PromptBox, GoesWithItsParent) {
    const INT parent = make(GRX_FEN_BOUTONS, GRX_FEN_ATT_VISIBLE, 200, 150);
    ASSERT_TRUE(wait_visible(widget_of(parent)));
    GRX_BOITE_SAISIE asked = prompt(GRX_SAISIE_TEXTE);
    asked.nofen_mere = parent;
    asked.texte = "abc";
    const INT number = grx_affiche_boite_saisie(&asked);
    ASSERT_GT(number, 0);
    drain();
    grx_detruit_fenetre(parent);
    const auto answer = events.wait(GRX_EVT_SAISIE);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->exec_fonction.nofen, number);
    EXPECT_EQ(answer->exec_fonction.valeur, 0);
}

TEST_F(PromptBox, BadRecordsShowNothing) {
    const NoLeak no_leak;
    EXPECT_EQ(grx_init_boite_saisie(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_attend_boite_saisie(nullptr, nullptr, 0, nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_affiche_boite_saisie(nullptr), GRX_ECHEC_PARAMETRE);
    const auto with = [](auto change) {
        GRX_BOITE_SAISIE asked = prompt(GRX_SAISIE_REEL);
        change(asked);
        const INT result = grx_affiche_boite_saisie(&asked);
        EXPECT_EQ(grx_attend_boite_saisie(&asked, nullptr, 0, nullptr), result);
        return result;
    };
    for (const INT n : {-1, 3, INT32_MAX, INT32_MIN})
        EXPECT_EQ(with([n](auto& a) { a.genre = n; }), GRX_ECHEC_PARAMETRE) << n;
    for (const INT n : {-2, 16, INT32_MAX, INT32_MIN})
        EXPECT_EQ(with([n](auto& a) { a.nb_decimales = n; }), GRX_ECHEC_PARAMETRE) << n;
    EXPECT_EQ(with([](auto& a) { a.minimum = NAN; }), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(with([](auto& a) { a.maximum = NAN; }), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(with([](auto& a) {
        a.minimum = 2;
        a.maximum = 1;
    }),
        GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(with([](auto& a) {
        a.genre = GRX_SAISIE_ENTIER;
        a.minimum = 3e9;
    }),
        GRX_ECHEC_PARAMETRE)
        << "no integer is that large";
    EXPECT_EQ(with([](auto& a) { a.taille = 4; }), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(with([](auto& a) { a.nofen_mere = 97; }), GRX_ECHEC_NUMERO);
    EXPECT_EQ(box(), nullptr);
}

TEST_F(PromptBox, WithoutMemoryNothingIsShown) {
    const NoLeak no_leak;
    const int failures = fail_each_allocation([&] {
        GRX_BOITE_SAISIE asked = prompt(GRX_SAISIE_TEXTE);
        asked.texte = "\xe9t\xe9";
        const INT number = grx_affiche_boite_saisie(&asked);
        EXPECT_TRUE(number > 0 || number == GRX_ECHEC_MEMOIRE) << number;
        if (number > 0) EXPECT_EQ(grx_detruit_boite(number), 1);
        drain();
    });
    EXPECT_GT(failures, 4);
    EXPECT_EQ(box(), nullptr);
}

TEST_F(PromptBox, FiveHundredLeaveNothing) {
    const auto once = [&](int way) {
        GRX_BOITE_SAISIE asked = prompt(way % 3);
        asked.texte = "abc";
        const INT number = grx_affiche_boite_saisie(&asked);
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

} // namespace
