// Timers, descriptors, idle work and close requests while a box, a context menu or work in progress is before the user.
#include "tests/display/dialogs/box_kit.h"

#include <unistd.h>

#include <array>
#include <string>

namespace {
using namespace grxtest;

class LoopBesideBoxes : public Boxes<DisplayTest> {
  protected:
    void SetUp() override {
        Boxes<DisplayTest>::SetUp();
        ASSERT_EQ(pipe(pipe_.data()), 0);
        ASSERT_EQ(grx_affecte_demande_fermeture(main_, 1), 1);
        drain();
        events.clear();
    }
    void TearDown() override {
        while (grx_avancement_finit() == 1) continue;
        for (INT number = 1; number < 5; ++number) {
            grx_detruit_minuterie(number);
            grx_arrete_surveillance(number);
            grx_detruit_tache_oisive(number);
        }
        close_boxes();
        drain();
        for (const int end : pipe_) close(end);
        Boxes<DisplayTest>::TearDown();
    }
    void ask_main_to_close() { ask_to_close(test_display(), XtWindow(shell_of(main_))); }
    // The next record of a type; nothing of other types is lost for `count_` of them.
    GRX_EVENEMENT next(INT type) {
        GRX_EVENEMENT event{};
        const auto start = Clock::now();
        while (Clock::now() - start < Milliseconds{5000}) {
            if (grx_digitaliseur_delai(&event, 50) != 1) continue;
            ++seen_[static_cast<std::size_t>(event.type_evenement) % seen_.size()];
            if (event.type_evenement == type) return event;
        }
        ADD_FAILURE() << "no record of type " << type;
        return {};
    }

    std::array<int, 2> pipe_{};
    std::array<int, 300> seen_{};
};

TEST_F(LoopBesideBoxes, WhatIsDueDuringABlockingBoxComesAfterwards) {
    const INT timer = grx_cree_minuterie(20, 1);
    ASSERT_EQ(timer, 1);
    ASSERT_EQ(grx_surveille_descripteur(pipe_[0], GRX_DESCRIPTEUR_LECTURE), 1);
    const auto shown = Clock::now();
    when_shown("things happen", [this] {
        EXPECT_EQ(write(pipe_[1], "x", 1), 1);
        ask_main_to_close();
    });
    script_.when(
        "time passes", [shown] { return Clock::now() - shown > Milliseconds{300}; }, [this] { choose(1); });
    EXPECT_EQ(ask(message(GRX_BOITE_INFORMATION, "Fini")), 1);
    EXPECT_NE(widget_of(main_), nullptr);
    EXPECT_EQ(next(GRX_EVT_FERMETURE).destruction.nofen, main_);
    seen_ = {};
    const GRX_EVENEMENT due = next(GRX_EVT_MINUTERIE);
    EXPECT_EQ(due.exec_fonction.no_fo, timer);
    if (seen_[GRX_EVT_MINUTERIE] == 1 && seen_[GRX_EVT_DESCRIPTEUR] == 0) next(GRX_EVT_DESCRIPTEUR);
    char byte = 0;
    EXPECT_EQ(read(pipe_[0], &byte, 1), 1);
}

TEST_F(LoopBesideBoxes, NoPeriodOfATimerIsLostInABlockingBox) {
    ASSERT_EQ(grx_cree_minuterie(20, 1), 1);
    const auto start = Clock::now();
    script_.when(
        "time passes", [start] { return Clock::now() - start > Milliseconds{300}; }, [this] { choose(1); });
    EXPECT_EQ(ask(message(GRX_BOITE_INFORMATION, "Fini")), 1);
    int periods = 0;
    while (Clock::now() - start < Milliseconds{500}) periods += next(GRX_EVT_MINUTERIE).exec_fonction.valeur;
    const auto elapsed = std::chrono::duration_cast<Milliseconds>(Clock::now() - start).count();
    EXPECT_GE(periods, elapsed / 20 - 3);
    EXPECT_LE(periods, elapsed / 20 + 1);
}

TEST_F(LoopBesideBoxes, AWindowBelowABoxMayBeAskedToCloseAndGo) {
    GRX_BOITE_MESSAGE told = message(GRX_BOITE_QUESTION, "Enregistrer ?");
    told.nofen_mere = main_;
    const INT number = grx_affiche_boite_message(&told);
    ASSERT_GT(number, 0);
    ASSERT_TRUE(wait_for([this] { return box() != nullptr; }));
    ask_main_to_close();
    EXPECT_EQ(next(GRX_EVT_FERMETURE).destruction.nofen, main_);
    EXPECT_NE(box(), nullptr) << "nothing changes by itself";
    grx_detruit_fenetre(main_);
    const GRX_EVENEMENT answer = next(GRX_EVT_MESSAGE);
    EXPECT_EQ(answer.reponse_question.nofen, number);
    EXPECT_EQ(answer.reponse_question.reponse, 0);
}

TEST_F(LoopBesideBoxes, SoWithAContextMenu) {
    write_menu("#:PIECE\n{\nITEM||Ouvrir||101|\n}\n", "piece");
    ASSERT_EQ(grx_ouvre_menu_contextuel(main_, "piece", "#:PIECE", 30, 100), 1);
    ASSERT_TRUE(wait_for([this] { return grx_recup_fenetre_menu_contextuel() == main_; }));
    ask_main_to_close();
    EXPECT_EQ(next(GRX_EVT_FERMETURE).destruction.nofen, main_);
    EXPECT_EQ(grx_recup_fenetre_menu_contextuel(), main_);
    grx_detruit_fenetre(main_);
    drain();
    EXPECT_EQ(grx_recup_fenetre_menu_contextuel(), GRX_AUCUN);
}

TEST_F(LoopBesideBoxes, WorkGoesOnInIdleTurnsWithTimersBetween) {
    const INT idle = grx_cree_tache_oisive();
    ASSERT_EQ(grx_cree_minuterie(30, 1), 1);
    GRX_AVANCEMENT told{};
    grx_init_avancement(&told);
    told.delai = 0;
    told.maximum = 100;
    ASSERT_EQ(grx_avancement_commence(&told), 1);
    bool asked = false;
    const auto start = Clock::now();
    for (int turns = 0; Clock::now() - start < Milliseconds{600}; ++turns) {
        EXPECT_EQ(next(GRX_EVT_OISIF).exec_fonction.no_fo, idle);
        EXPECT_EQ(grx_avancement_avance(turns % 100, nullptr), 1);
        if (!asked && is_viewable(widget_called("avancement"))) {
            asked = true;
            ask_main_to_close();
        }
    }
    EXPECT_TRUE(asked) << "the window of the work came";
    EXPECT_EQ(grx_avancement_finit(), 1);
    EXPECT_EQ(grx_detruit_tache_oisive(idle), 1);
    EXPECT_GE(seen_[GRX_EVT_MINUTERIE], 5);
    if (seen_[GRX_EVT_FERMETURE] == 0) next(GRX_EVT_FERMETURE);
    EXPECT_EQ(seen_[GRX_EVT_FERMETURE], 1);
}

} // namespace
