// Hostile arguments where something is there to be broken: the palette window open, a strip made, windows with scroll
// bars and decorations, a plotter that answers. Afterwards all of it must still work.
#include "tests/support/control_kit.h"
#include "tests/support/stdout_capture.h"

#include <sys/stat.h>

#include <climits>
#include <memory>

namespace {

using namespace grxtest;

constexpr std::array numbers{
    INT_MIN, -65536, -2, -1, 0, 1, 2, 3, 7, 64, 99, 100, 255, 256, 257, 999, 1000, 65536, INT_MAX};
constexpr std::array bytes{0x00, 0x5A, 0xFF, 0x80, 0x7F};

template <class Record>
Record filled(int byte) {
    Record record;
    std::memset(static_cast<void*>(&record), byte, sizeof record);
    return record;
}

class HostileRest : public ControlsTest {
  protected:
    void SetUp() override {
        ControlsTest::SetUp();
        if (HasFatalFailure()) return;
        permit_x_errors(); // what is asked for here is often impossible
        window = shown();
    }

    void settle_quietly() {
        const StdoutCapture silence;
        drain();
        events.clear();
    }

    INT window = -1;
};

// --- the palette window -------------------------------------------------------------------------------------------

class HostilePalette : public HostileRest {
  protected:
    void SetUp() override {
        HostileRest::SetUp();
        if (!HasFatalFailure()) open();
    }

    void open() {
        char title[256] = "Palette";
        grx_affecte_couleur_active(12);
        grx_affiche_fenetre_modif_palette_couleurs(300, 300, title, window);
        ASSERT_EQ(grx_is_fenetre_modif_palette_ouverte(), 1);
        ASSERT_TRUE(wait_visible(widget_of(No_fen_mod_coul)));
    }

    static GRX_EVENEMENT slider(INT type, INT nobou, INT value) {
        auto event = filled<GRX_EVENEMENT>(0);
        event.exec_fonction.type_evenement = type;
        event.exec_fonction.nofen = No_fen_mod_coul;
        event.exec_fonction.nobou = nobou;
        event.exec_fonction.valeur = value;
        return event;
    }

    // Every slider can be set and read, and closing works.
    void expect_works() {
        ASSERT_EQ(grx_is_fenetre_modif_palette_ouverte(), 1);
        grx_affecte_couleur_active(12);
        EXPECT_EQ(grx_gere_action_modif_palette(slider(6, Rouge, 10)), 1);
        EXPECT_EQ(grx_gere_action_modif_palette(slider(6, Vert, 20)), 1);
        EXPECT_EQ(grx_gere_action_modif_palette(slider(6, Bleu, 40)), 1);
        EXPECT_EQ(resource<int>(control(Bou_h), XmNvalue), 220);
        EXPECT_EQ(resource<int>(control(Bou_l), XmNvalue), 15);
        EXPECT_EQ(resource<int>(control(Bou_s), XmNvalue), 75);
        EXPECT_EQ(grx_detruit_fenetre_modif_palette_couleurs(), 1);
        settle_quietly();
    }
};

TEST_F(HostilePalette, AnyRecordMayBeGiven) {
    for (int byte : bytes) EXPECT_EQ(grx_gere_action_modif_palette(filled<GRX_EVENEMENT>(byte)), 0) << byte;
    for (INT type : numbers)
        for (INT nobou : numbers)
            for (INT value : numbers) {
                if (type == 7) continue;
                grx_gere_action_modif_palette(slider(type, nobou, value));
            }
    expect_works();
}

TEST_F(HostilePalette, EverySliderTakesAnyValue) {
    for (INT nobou : {Rouge, Vert, Bleu, Bou_reset, Bou_h, Bou_l, Bou_s})
        for (INT type : {6, 64})
            for (INT value : numbers) {
                const INT answer = grx_gere_action_modif_palette(slider(type, nobou, value));
                EXPECT_TRUE(value >= 0 || answer == 0) << nobou << " " << value;
            }
    grx_gere_action_modif_palette(slider(6, Bou_reset, 0));
    expect_works();
}

TEST_F(HostilePalette, EveryFunctionTakesAnyNumber) {
    for (INT a : numbers)
        for (INT b : numbers) {
            grx_affecte_palette_rvb(a, b, a);
            grx_affecte_palette_hls(b, a, b);
            INT triple[3] = {a, b, a};
            EXPECT_EQ(grx_affecte_palette(triple), 1);
        }
    for (INT n : numbers) {
        EXPECT_EQ(grx_affecte_couleur_active(n), 1);
        EXPECT_EQ(grx_gere_action_modif_palette(slider(6, Vert, 5)), 1) << n;
        EXPECT_EQ(grx_cache_retrace_fenetre_modif_palette_couleurs(n), 0);
        EXPECT_EQ(grx_retrace_fenetre_modif_palette_couleurs(), 0);
        grx_affiche_fenetre_modif_palette_couleurs(n, n, nullptr, n);
        settle_quietly();
    }
    grx_affecte_palette(nullptr);
    grx_cache_retrace_fenetre_modif_palette_couleurs(0);
    expect_works();
}

TEST_F(HostilePalette, OpensWithAnyArguments) {
    std::array<char, 256> endless;
    endless.fill('\xE9');
    grx_detruit_fenetre_modif_palette_couleurs();
    for (std::size_t k = 0; k < numbers.size(); ++k) {
        grx_affiche_fenetre_modif_palette_couleurs(
            numbers[k], numbers[(k * 7 + 3) % numbers.size()], k % 2 ? endless.data() : nullptr, numbers[k]);
        EXPECT_EQ(grx_is_fenetre_modif_palette_ouverte(), 1) << numbers[k];
        EXPECT_EQ(grx_detruit_fenetre_modif_palette_couleurs(), 1) << numbers[k];
        settle_quietly();
    }
    open();
    expect_works();
}

TEST_F(HostilePalette, OpensWithCharactersOfAnySize) {
    grx_detruit_fenetre_modif_palette_couleurs();
    const INT width = grx_recup_lar_carac_alpha(), height = grx_recup_hau_carac_alpha();
    for (INT size : {INT_MIN, -1, 0, 1, 3000, INT_MAX}) {
        grx_affecte_lar_carac_alpha(size);
        grx_affecte_hau_carac_alpha(size);
        grx_affiche_fenetre_modif_palette_couleurs(10, 10, nullptr, window);
        EXPECT_EQ(grx_detruit_fenetre_modif_palette_couleurs(), 1) << size;
        settle_quietly();
    }
    grx_affecte_lar_carac_alpha(width);
    grx_affecte_hau_carac_alpha(height);
    open();
    expect_works();
}

TEST_F(HostilePalette, ItsNumbersMayBeOverwrittenByTheApplication) {
    const std::array<INT*, 8> all{&No_fen_mod_coul, &Rouge, &Vert, &Bleu, &Bou_h, &Bou_l, &Bou_s, &Bou_reset};
    for (INT* number : all) {
        const INT was = *number;
        for (INT value : {INT_MIN, -2, 998, 1000, INT_MAX}) {
            *number = value;
            grx_affecte_palette_rvb(1, 2, 3);
            grx_affecte_palette_hls(1, 2, 3);
            grx_retrace_fenetre_modif_palette_couleurs();
            grx_cache_retrace_fenetre_modif_palette_couleurs(0);
            grx_gere_action_modif_palette(slider(6, was, 3));
        }
        *number = was;
    }
    expect_works();
}

// --- decorations and scroll bars ----------------------------------------------------------------------------------

TEST_F(HostileRest, DecorationsAndScrollBarsTakeAnyWindow) {
    for (INT kind : all_kinds) make(kind);
    make(GRX_FEN_GRAPHIQUE, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_SCROLL);
    make(nested_in(window, GRX_FEN_GRAPHIQUE));
    settle_quietly();
    for (INT border : {-300, -1, 0, 7, 100}) { // larger ones make windows that the server cannot draw in time
        grx_set_tabord(border);
        grx_set_tatitre(5 - border);
        for (INT n : {INT_MIN, -1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 50, 99, 100, INT_MAX})
            for (auto function : {grx_supprime_titre_fenetre, grx_affiche_titre_fenetre, grx_supprime_bord_fenetre,
                     grx_affiche_bord_fenetre, grx_cache_scrollbars_fenetre_graphique,
                     grx_reaffiche_scrollbars_fenetre_graphique, grx_active_modifications_shell})
                EXPECT_EQ(function(n), 0) << n;
        for (INT n : numbers) {
            EXPECT_EQ(grx_affecte_fenetre_avec_bgi(n, border), 0);
            const INT flag = grx_is_fenetre_avec_bgi(n);
            EXPECT_TRUE(flag == 0 || flag == 1);
        }
        settle_quietly();
    }
    EXPECT_TRUE(visible(x_window(window)));
    const Area area = server_area(test_display(), x_window(window));
    EXPECT_TRUE(area.width > 0 && area.height > 0);
}

// --- the strip ----------------------------------------------------------------------------------------------------

TEST_F(HostileRest, TheStripTakesAnyRecords) {
    const auto zone = std::make_unique<GRX_ZONE_INFO>();
    for (int byte : bytes) {
        std::memset(static_cast<void*>(zone.get()), byte, sizeof *zone);
        auto* const records = reinterpret_cast<GRX_BOUTON*>(zone.get());
        for (int k = 0; k < 19; ++k) records[k].ref_fen_mere = nullptr; // a widget is one, or none
        for (INT parent : {-1, window, 77, INT_MIN}) {
            for (int k = 0; k < 19; ++k) {
                GRX_BOUTON& record = records[k];
                record.fen_mere = parent;
                record.type = 1 << k % 11;
                record.largeur = numbers[static_cast<std::size_t>(k)] % 3000;
                record.hauteur = 40;
                record.x = numbers[static_cast<std::size_t>(18 - k)];
            }
            const StdoutCapture silence;
            INT tall = -1;
            grx_cree_boutons_fenetre_info(zone.get(), &tall);
            EXPECT_EQ(tall, grx_recup_hau_carac_alpha() + 4);
            auto list = filled<GRX_FENETRE>(byte);
            grx_agrandit_fenetre_info(list, *zone, &tall);
            grx_reduit_fenetre_info(list, *zone, nullptr);
            for (INT how : numbers) grx_affiche_cache_xy(how, *zone);
            for (INT n = 0; n < 60; ++n) grx_detruit_bouton(n);
        }
        settle_quietly();
    }
    for (INT n : numbers) {
        auto* const records = reinterpret_cast<GRX_BOUTON*>(zone.get());
        for (int k = 0; k < 19; ++k) records[k].nobou = n;
        grx_agrandit_fenetre_info(filled<GRX_FENETRE>(0), *zone, nullptr);
        grx_affiche_cache_xy(n, *zone);
    }
    EXPECT_TRUE(visible(x_window(window)));
}

TEST_F(HostileRest, TheWindowOfTheStripTakesAnyRecord) {
    for (int byte : bytes)
        for (INT height : numbers) {
            auto record = filled<GRX_FENETRE>(byte);
            record.type = GRX_FEN_ALPHA;
            record.fen_mere = -1;
            record.attrib = 0;
            grx_affecte_hau_carac_alpha(height);
            const StdoutCapture silence;
            grx_cree_fenetre_info(&record);
            grx_detruit_fenetre(record.nofen);
            drain();
        }
    INT x = 5;
    grx_set_tabord(INT_MAX);
    grx_set_tatitre(INT_MIN);
    grx_recup_taille_position_fenetre_message_plein_ecran(&x, nullptr, nullptr, nullptr);
    EXPECT_EQ(x, INT_MAX);
    grx_recup_taille_position_fenetre_message_plein_ecran(nullptr, &x, &x, &x);
}

// --- the device ---------------------------------------------------------------------------------------------------

TEST_F(HostileRest, TheDeviceTakesAnyRecord) {
    for (int byte : bytes) {
        imp_trace_point(filled<GRX_POINT>(byte));
        imp_trace_segment(filled<GRX_SEGMENT>(byte));
        imp_trace_polyline(filled<GRX_POLY>(byte));
        imp_trace_rectangle(filled<GRX_RECTANGLE>(byte));
        imp_trace_arc(filled<GRX_ARC>(byte));
        imp_remplit_rectangle(filled<GRX_RECTANGLE>(byte));
        imp_remplit_arc(filled<GRX_ARC>(byte));
        imp_remplit_polygone(filled<GRX_POLY>(byte));
        imp_remplit_triangle(filled<GRX_POLY>(byte));
        imp_trace_texte(filled<GRX_TEXTE>(byte));
    }
    for (INT n : numbers) {
        imp_stretch_image(nullptr, nullptr, n, n, n, n, n, n);
        LoadAbortPlotterComm(n, n, nullptr);
        EXPECT_EQ(getDevMessOrChn(n, n, nullptr), nullptr);
    }
    EXPECT_EQ(getimpdim(nullptr, nullptr, nullptr, nullptr), 1);
    Cost cost(x11_disp);
    imp_trace_segment(filled<GRX_SEGMENT>(0));
    EXPECT_EQ(cost.requests(), 0U);
}

TEST_F(HostileRest, ThePlotterTakesAnyNumbers) {
    const auto spooler = home().write("pltspool", "#!/bin/sh\nexit 0\n");
    ASSERT_EQ(chmod(spooler.c_str(), 0755), 0);
    setenv("PATH", home().text().c_str(), 1);
    char plotter[] = "a b", format[] = "";
    for (INT n : numbers) {
        EXPECT_EQ(OutputFileOnPort(n, nullptr, nullptr, plotter, format, n, n, n, n, n, n), 0) << n;
        EXPECT_EQ(OutputFileOnPort(1, plotter, plotter, plotter, plotter, n, n, n, n, n, n), 0) << n;
    }
    EXPECT_STREQ(plotter, "a_b");
}

} // namespace
