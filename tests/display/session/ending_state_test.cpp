// After the library's work has ended, every variable of the library holds what it held before the first start.
#include "tests/display/session/ending_additions_kit.h"
#include "tests/display/session/library_state_kit.h"

namespace {

using namespace grxtest;

class EndingState : public AddingSessions {
  protected:
    // Everything that an application can set, to what it is not at first.
    static void set_everything() {
        using Setter = INT (*)(INT);
        for (const Setter set : {grx_affecte_lar_carac_alpha, grx_affecte_hau_carac_alpha,
                 grx_affecte_hau_exact_carac_alpha, grx_affecte_lar_sup_alpha, grx_affecte_largeur_scrollbar,
                 grx_set_tabord, grx_set_tabord_sans_resize, grx_set_tabord_sans_titre, grx_set_tabord_sans_decor,
                 grx_set_tatitre, grx_affecte_max_couleur_trace, grx_affecte_max_couleur_rendu,
                 grx_affecte_couleur_application, grx_affecte_couleur_fond, grx_set_pos_appli_x, grx_set_pos_appli_y,
                 grx_affecte_cst_dc, grx_affecte_zone_sensible_icone, grx_affecte_format_icone, grx_set_menu_fixe,
                 grx_affecte_fenetre_a_digitaliser, grx_affecte_nofen_active, grx_affecte_couleur_active})
            set(3);
        char folder[] = "/somewhere";
        grx_init_repertoire_icones(folder);
        grx_affecte_taille_icone(7, 8);
        grx_affecte_position_taille_panel_selection(1, 2, 3, 4);
        INT rgb[6] = {1, 2, 3, 4, 5, 6};
        grx_affecte_palette_reserve(rgb, 2);
        grx_affecte_palette_trace(rgb, 2);
        grx_init_double_clic();
        grx_reinit_double_clic();
        set_umask_rw();
        set_old_umask();
        char here[] = ".", all[] = "DAT";
        ouvre_sysdir(here, all);
        grx_demarre_alarme(100, [] {});
        ENRICON icon{};
        append_icon(icon);
        prof_24 = 0;
    }

    LibraryState before_; // the fixture is made before the library starts
};

TEST_F(EndingState, IsThatOfAFreshProcess) {
    ASSERT_GT(before_.count(), 100U);
    everything();
    set_everything();
    EXPECT_GT(before_.changed().size(), before_.count() * 3 / 10);
    end();
    EXPECT_EQ(before_.changed(), std::vector<std::string>{});
}

TEST_F(EndingState, IsThatOfAFreshProcessAfterAdditionsToo) {
    end();
    say_who();
    start_again();
    everything();
    set_everything();
    use_additions();
    EXPECT_GT(before_.changed().size(), before_.count() / 2);
    end();
    EXPECT_EQ(before_.changed(), std::vector<std::string>{});
    EXPECT_EQ(heap().bytes(), 0U);
}

TEST_F(EndingState, AlsoWhenNothingButTheTablesWereMade) {
    end();
    ASSERT_EQ(grx_alloue_base_fenetres(), 0);
    ASSERT_EQ(grx_alloue_base_boutons(), 0);
    ASSERT_EQ(grx_initialise_globales(), 0);
    set_everything();
    end();
    EXPECT_EQ(before_.changed(), std::vector<std::string>{});
    EXPECT_EQ(heap().bytes(), 0U);
}

} // namespace
