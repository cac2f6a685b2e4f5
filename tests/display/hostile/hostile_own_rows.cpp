// Functions that are called in a way of their own.
#include "tests/display/hostile/hostile_rows.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <functional>
#include <limits>
#include <tuple>

namespace grxtest::hostile {
namespace {

XEvent hostile_event(unsigned n) {
    XEvent event{};
    std::memset(static_cast<void*>(&event), n % 2 ? 0xFF : 0, sizeof event);
    event.type = static_cast<int>(n);
    event.xany.display = x11_disp;
    event.xany.window = live_window();
    event.xkey.keycode = 8 + n;
    if (event.type == MappingNotify || event.type == GenericEvent) event.type = INT_MAX;
    return event;
}

using Callback = void (*)(Widget, XtPointer, XtPointer);
using Handler = void (*)(Widget, XtPointer, XEvent*, Boolean*);

// A callback with every combination of nothing and something.
Answer call_back(Callback function, unsigned n) {
    INT window = number(n);
    XmAnyCallbackStruct call{static_cast<int>(n), nullptr};
    XmScrollBarCallbackStruct bigger{};
    (void)call;
    bigger.reason = static_cast<int>(n);
    function(n & 1U ? live_form() : nullptr, n & 2U ? &window : nullptr, n & 4U ? &bigger : nullptr);
    return std::nullopt;
}

Answer handle(Handler function, XtPointer client, unsigned n) {
    XEvent event = hostile_event(n);
    Boolean go_on = True;
    function(n % 3 ? live_form() : nullptr, client, n % 7 ? &event : nullptr, n % 5 ? &go_on : nullptr);
    return std::nullopt;
}

XtPointer window_client(unsigned n) {
    STRUCTURE_FENETRE* record = nullptr;
    grx_recup_structure_fenetre(n % 2 ? 1 : 57, &record);
    return n % 11 ? record : nullptr;
}

XtPointer button_client(unsigned n) {
    STRUCTURE_BOUTON* record = nullptr;
    grx_recup_structure_bouton(n % 2 ? 0 : 577, &record);
    return n % 11 ? record : nullptr;
}

// Pictures of 20 x 10 bytes and less, whatever the place.
constexpr INT picture_width = 20, picture_height = 10;
constexpr std::array picture_sides{0, 1, 7, 10, -1, INT_MIN};

uchar* picture(Bench& bench, std::size_t place, unsigned n) {
    bench.texts[place].fill(static_cast<char>(n));
    return n % 5 == 4 ? nullptr : reinterpret_cast<uchar*>(bench.texts[place].data());
}

INT side(unsigned n) {
    return picture_sides[n % picture_sides.size()];
}

template <class Function>
Answer convert(Function function, Bench& bench, unsigned n) {
    return function(side(n), side(n / 2), picture(bench, 0, n));
}

// A choice control of any table in any window, its texts of all sorts.
Answer table_choices(decltype(grx_tbl_cree_boutons_choix) function, Bench& bench, unsigned n) {
    std::array<char*, 8> texts{};
    for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = text(bench, i, n + static_cast<unsigned>(i));
    Itbl = n % 3 ? static_cast<INT>(n % 10) : number(n);
    const INT count = n % 4 ? std::min(number(n + 3), static_cast<INT>(texts.size())) : number(n);
    return function(n % 2 ? number(n) : static_cast<INT>(n % 9), number(n + 1), number(n + 2), number(n + 3), count,
        n % 4 ? texts.data() : nullptr, number(n + 4));
}

// Functions whose arguments must fit each other.
constexpr Row own_table[] = {
    own(NAMED(grx_malloc), 3,
        [](Bench&, unsigned n) -> Answer {
            char* block = grx_malloc(n + 1);
            grx_free(block, n + 1);
            return std::nullopt;
        }),
    own(NAMED(grx_free), 1, [](Bench&, unsigned) -> Answer { return grx_free(nullptr, 0); }),
    own(NAMED(grx_realloc), 1,
        [](Bench&, unsigned) -> Answer {
            char* block = grx_realloc(grx_malloc(5), 5, 50);
            grx_free(block, 50);
            return std::nullopt;
        }),
    own(NAMED(grx_memcpy), 3,
        [](Bench& bench, unsigned n) -> Answer {
            grx_memcpy(bench.texts[0].data(), bench.texts[1].data(), static_cast<INT>(n));
            return std::nullopt;
        }),
    own(NAMED(temporisation), 3,
        [](Bench&, unsigned n) -> Answer {
            constexpr std::array values{-1e308, 0.0, std::numeric_limits<double>::quiet_NaN()};
            temporisation(values[n]);
            return std::nullopt;
        }),
    own(NAMED(grx_demarre_alarme), 3,
        [](Bench&, unsigned n) -> Answer {
            constexpr std::array values{INT_MAX, -1, 0};
            grx_demarre_alarme(values[n], [] {});
            grx_demarre_alarme(values[n], nullptr);
            grx_arrete_alarme();
            return std::nullopt;
        }),
    own(NAMED(encode_double_en_caractere), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            constexpr std::array totals{-1, 0, 1, 20, 1000, INT_MIN};
            return encode_double_en_caractere(Argument<DOUBLE>::make(bench, 0, n), totals[n % totals.size()],
                number(n), n % 9 ? bench.texts[0].data() : nullptr);
        }),
    own(NAMED(suppfic), 3, [](Bench& bench, unsigned n) -> Answer { return suppfic(text(bench, 0, n)); }, {-1}),
    own(NAMED(grx_change_taille_fenetre), rounds,
        [](Bench&, unsigned n) -> Answer {
            return grx_change_taille_fenetre(number(n), number(n + 5), n % 2 ? 50 : -1); // one side may be huge
        }),
    own(NAMED(grx_cree_bitmap_backingstore_bouton), rounds,
        [](Bench&, unsigned n) -> Answer {
            grx_cree_bitmap_backingstore_bouton(number(n), number(n + 5), 20, number(n + 1), number(n + 2));
            return std::nullopt;
        }),
    own(NAMED(grx_affecte_profondeur_ecran), rounds,
        [](Bench&, unsigned n) -> Answer {
            const INT depth = grx_recup_profondeur_ecran();
            grx_affecte_profondeur_ecran(number(n));
            return grx_affecte_profondeur_ecran(depth);
        }),
    own(NAMED(grx_synchronise), 3,
        [](Bench&, unsigned n) -> Answer {
            grx_synchronise(number(n));
            grx_synchronise(0);
            return std::nullopt;
        }),
    own(NAMED(grx_change_visual_fenetre), rounds,
        [](Bench&, unsigned n) -> Answer {
            return grx_change_visual_fenetre(number(n), n % 2 ? x11_vis : nullptr);
        }),
    own(NAMED(grx_digitaliseur), 4,
        [](Bench& bench, unsigned n) -> Answer { return grx_digitaliseur(n % 2 ? &bench.event : nullptr, 0); },
        {0, 1}),
    own(NAMED(grx_digitaliseur_fenetre), 4,
        [](Bench& bench, unsigned n) -> Answer {
            return grx_digitaliseur_fenetre(n % 2 ? &bench.event : nullptr, 0);
        },
        {0, 1}),
    own(NAMED(grx_cherche_evenement), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            const INT type = number(n);
            const bool would_wait = type == GRX_EVT_BOUTON_APPUI || type == GRX_EVT_CARAC_APPUI;
            return grx_cherche_evenement(type, n % 4 ? &bench.event : nullptr, would_wait ? 0 : number(n + 1));
        },
        {0, 1, 2}),
    own(NAMED(grx_attend_creation_fenetre), 2,
        [](Bench&, unsigned n) -> Answer { return grx_attend_creation_fenetre(n ? INT_MAX : -1); }),
    own(NAMED(grx_double_clic), rounds,
        [](Bench&, unsigned n) -> Answer {
            grx_affecte_cst_dc(n % 2 ? 0 : -1);
            grx_reinit_double_clic();
            return grx_double_clic(number(n), number(n + 1), number(n + 2), number(n + 3));
        },
        {0, 1, 2, 3, 4, 5}),
    own(NAMED(grx_translate_touche), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            XEvent event = hostile_event(n);
            return grx_translate_touche(n % 4 ? &event : nullptr, n % 3 ? bench.integers[0].data() : nullptr);
        },
        {0, 1}),
    own(NAMED(grx_gere_evenements_fenetre), 40,
        [](Bench&, unsigned n) -> Answer { return handle(grx_gere_evenements_fenetre, window_client(n), n); }),
    own(NAMED(grx_gere_evenements_bouton), 40,
        [](Bench&, unsigned n) -> Answer { return handle(grx_gere_evenements_bouton, button_client(n), n); }),
    own(NAMED(grx_menu_est_appuie), 3,
        [](Bench&, unsigned n) -> Answer {
            XEvent event = hostile_event(n);
            grx_menu_est_appuie(n ? live_form() : nullptr, nullptr, n ? &event : nullptr, nullptr);
            return std::nullopt;
        }),
    own(NAMED(grx_menu_est_active), 2,
        [](Bench&, unsigned n) -> Answer {
            grx_menu_est_active(n ? live_form() : nullptr, nullptr, nullptr);
            return std::nullopt;
        }),
    own(NAMED(grx_scroll_change), 8, [](Bench&, unsigned n) -> Answer { return call_back(grx_scroll_change, n); }),
    own(NAMED(grx_shell_est_detruit), 8,
        [](Bench&, unsigned n) -> Answer { return call_back(grx_shell_est_detruit, n); }),
    own(NAMED(grx_reponse_a_message), 8,
        [](Bench&, unsigned n) -> Answer { return call_back(grx_reponse_a_message, n); }),
    own(NAMED(grx_commande_entree), 4,
        [](Bench&, unsigned n) -> Answer {
            INT window = number(n);
            XmCommandCallbackStruct call{};
            grx_commande_entree(n % 2 ? live_form() : nullptr, n & 2U ? &window : nullptr, n % 3 ? &call : nullptr);
            return std::nullopt;
        }),
    own(NAMED(grx_gere_evenement_scroll_menu), 8,
        [](Bench&, unsigned n) -> Answer { return call_back(grx_gere_evenement_scroll_menu, n); }),
    own(NAMED(grx_bouton_est_affiche), 2,
        [](Bench&, unsigned n) -> Answer {
            grx_bouton_est_affiche(live_form(), button_client(11 * n), nullptr);
            return std::nullopt;
        }),
    own(NAMED(grx_bouton_est_enfonce), 2,
        [](Bench&, unsigned n) -> Answer {
            grx_bouton_est_enfonce(live_form(), button_client(11 * n), nullptr);
            return std::nullopt;
        }),
    own(NAMED(grx_echelle_bouge), 2,
        [](Bench&, unsigned n) -> Answer {
            grx_echelle_bouge(live_form(), button_client(11 * n), nullptr);
            return std::nullopt;
        }),
    own(NAMED(grx_element_liste_clique), 2,
        [](Bench&, unsigned n) -> Answer {
            grx_element_liste_clique(live_form(), button_client(11 * n), nullptr);
            return std::nullopt;
        }),
    own(NAMED(grx_focus_quitte_bouton), 2,
        [](Bench&, unsigned n) -> Answer {
            grx_focus_quitte_bouton(live_form(), button_client(11 * n), nullptr);
            return std::nullopt;
        }),
    own(NAMED(grx_editeur_est_detruit), 1,
        [](Bench&, unsigned) -> Answer {
            grx_editeur_est_detruit(nullptr, nullptr, nullptr);
            return std::nullopt;
        }),
    own(NAMED(grx_element_fileliste_clique), 1,
        [](Bench&, unsigned) -> Answer {
            grx_element_fileliste_clique(nullptr, nullptr, nullptr);
            return std::nullopt;
        }),
    own(NAMED(grx_icone_oxa_to_system), rounds,
        [](Bench& bench, unsigned n) -> Answer { return convert(grx_icone_oxa_to_system, bench, n); }),
    own(NAMED(grx_icone_system_to_oxa), rounds,
        [](Bench& bench, unsigned n) -> Answer { return convert(grx_icone_system_to_oxa, bench, n); }),
    own(NAMED(grx_image_oxa_to_system), rounds,
        [](Bench& bench, unsigned n) -> Answer { return convert(grx_image_oxa_to_system, bench, n); }),
    own(NAMED(grx_image_system_to_oxa), rounds,
        [](Bench& bench, unsigned n) -> Answer { return convert(grx_image_system_to_oxa, bench, n); }),
    own(NAMED(remplit_tableau_polygone), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            const GRX_POLY poly = Argument<GRX_POLY>::make(bench, 0, n);
            return remplit_tableau_polygone(poly.points, poly.npoints, static_cast<uchar>(n));
        }),
    own(NAMED(remplit_tableau_polygone_reel), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            const GRX_POLY poly = Argument<GRX_POLY>::make(bench, 0, n);
            return remplit_tableau_polygone_reel(
                picture(bench, 1, n), side(n), side(n + 3), poly.points, poly.npoints, static_cast<uchar>(n));
        }),
    own(NAMED(remplit_tableau_triangles_reel), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            const auto point = [&](unsigned i) { return Argument<GRX_POINT_POLY>::make(bench, 0, i); };
            return remplit_tableau_triangles_reel(picture(bench, 1, n), side(n), side(n + 3), point(n),
                point(3 * n + 1), point(5 * n + 2), static_cast<uchar>(n));
        }),
    own(NAMED(grx_recup_image), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            grx_recup_image(number(n), number(n + 1), side(n), side(n + 2), picture(bench, 0, n));
            return std::nullopt;
        }),
    own(NAMED(grx_trace_image_dans_widget), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            grx_trace_image_dans_widget(static_cast<INT>(n % 2), number(n), picture(bench, 0, n), side(n),
                side(n + 2), number(n + 3), number(n + 4));
            return std::nullopt;
        }),
    own(NAMED(grx_trace_image_reel_xy), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            grx_trace_image_reel_xy(static_cast<INT>(n % 2), number(n), picture(bench, 0, n),
                picture(bench, 1, n + 1), side(n), side(n + 2), number(n + 3), number(n + 4));
            return std::nullopt;
        }),
    own(NAMED(grx_stretch_image), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            grx_stretch_image(static_cast<INT>(n % 2), number(n), picture(bench, 0, n), picture(bench, 1, n + 1),
                side(n), side(n + 2), number(n + 3), number(n + 4), side(n + 1), side(n / 3));
            return std::nullopt;
        }),
    own(NAMED(imp_stretch_image), 2,
        [](Bench& bench, unsigned n) -> Answer {
            imp_stretch_image(picture(bench, 0, n), nullptr, INT_MAX, INT_MIN, 0, 0, INT_MAX, -1);
            return std::nullopt;
        }),
    own(NAMED(grx_affiche_boutons), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            bench.integers[0].fill(number(n));
            return grx_affiche_boutons(n % 4 ? bench.integers[0].data() : nullptr, n % 3 ? side(n) : INT_MIN);
        }),
    own(NAMED(grx_texte_extent_truetype), 2,
        [](Bench& bench, unsigned n) -> Answer {
            grx_texte_extent_truetype(
                n ? INT_MAX : -1, text(bench, 0, n), 1e308, -1, text(bench, 1, n), bench.doubles.data());
            return std::nullopt;
        }),
    own(NAMED(get_contours_texte_truetype), 2,
        [](Bench& bench, unsigned n) -> Answer {
            DEF_CONTOURS* outlines = nullptr;
            return get_contours_texte_truetype(Argument<GRX_TEXTE>::make(bench, 0, n), n ? &outlines : nullptr);
        }),
    own(NAMED(affiche_bitmap_fichier), 7,
        [](Bench& bench, unsigned n) -> Answer {
            affiche_bitmap_fichier(text(bench, 0, n), nullptr);
            return std::nullopt;
        }),
    own(NAMED(lit_fichier_bitmap), 7,
        [](Bench& bench, unsigned n) -> Answer {
            uchar* pixels = nullptr;
            auto& counts = bench.counts;
            return lit_fichier_bitmap(
                text(bench, 0, n), text(bench, 1, n), &pixels, &counts[0], &counts[1], &counts[2], nullptr);
        },
        {1}),
    own(NAMED(ecrit_fichier_bitmap), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            return ecrit_fichier_bitmap(
                bench.folder.data(), const_cast<char*>("a.bmp"), picture(bench, 0, n), side(n), side(n + 1));
        },
        {0, 1}),
    own(NAMED(ecrit_fichier_bitmap_256), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            return ecrit_fichier_bitmap_256(
                bench.folder.data(), const_cast<char*>("a.bmp"), picture(bench, 0, n), side(n), side(n + 1));
        },
        {0, 1}),
    own(NAMED(ecrit_fichier_bitmap_mono), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            return ecrit_fichier_bitmap_mono(
                bench.folder.data(), const_cast<char*>("a.bmp"), picture(bench, 0, n), side(n), side(n + 1));
        },
        {0, 1}),
    own(NAMED(append_icon), 2,
        [](Bench&, unsigned) -> Answer {
            ENRICON icon{};
            std::fill(std::begin(icon.nom_icon), std::end(icon.nom_icon), 'n');
            return append_icon(icon);
        },
        {0, 1}),
    own(NAMED(OutputFileOnPort), 4,
        [](Bench& bench, unsigned n) -> Answer {
            return OutputFileOnPort(number(n), nullptr, text(bench, 0, n), nullptr, text(bench, 1, n), INT_MAX,
                INT_MIN, -1, -1, -1, -1);
        },
        {anything}),
    own(NAMED(decode_message), 7,
        [](Bench& bench, unsigned n) -> Answer {
            static std::array<std::array<char, GRX_ITEM_LIGNE_MAX>, 64> lines;
            INT count = n % 3 ? 60 : 0;
            return decode_message(text(bench, 0, n), number(n), n % 5 ? &count : nullptr,
                reinterpret_cast<char(*)[GRX_ITEM_LIGNE_MAX]>(lines.data()));
        },
        {anything}),
    own(NAMED(grx_alloue_base_items_panels), 2,
        [](Bench&, unsigned n) -> Answer { return grx_alloue_base_items_panels(n ? -1 : 0, nullptr); }, {anything}),
    own(NAMED(grx_alloue_base_liste_panels), 1,
        [](Bench&, unsigned) -> Answer { return grx_alloue_base_liste_panels(); }, {anything}),
    own(NAMED(test_realloue_Tab_liste), 1, [](Bench&, unsigned) -> Answer { return test_realloue_Tab_liste(); },
        {anything}),
    own(NAMED(recup_boutons_item), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            INT count = 100;
            return recup_boutons_item(number(n), number(n + 1), n % 5 ? &count : nullptr, bench.integers[0].data());
        },
        {anything}),
    own(NAMED(grx_detruit_bascule_complexe), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            GRX_MSG message = Argument<GRX_MSG>::make(bench, 0, n);
            if (n % 2) message.type = GRX_MSG_TYPE_BASCULES;
            const INT window = 1 + static_cast<INT>(n % 9);
            const std::array values{static_cast<Widget>(nullptr), live_form(), grx_recup_objet_fen(window),
                grx_recherche_shell(grx_recup_objet_fen(window)), grx_recup_objet_bout(static_cast<INT>(n % 2)),
                grx_cree_support_message(window, message)};
            message.ref_fen_mere = values[n % values.size()];
            grx_detruit_bascule_complexe(message);
            return grx_detruit_bascule_complexe(message);
        }),
    own(NAMED(grx_cree_titre_bascule_liste), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            const std::array supports{live_form(), static_cast<Widget>(nullptr), grx_recup_objet_bout(0)};
            const std::array menus{grx_cree_support_bascule_liste(live_form()), static_cast<Widget>(nullptr),
                live_form(), grx_recup_objet_bout(0)};
            const std::array choices{static_cast<Widget>(nullptr), grx_recup_objet_bout(1), live_form()};
            grx_cree_titre_bascule_liste(supports[n % supports.size()], menus[n % menus.size()],
                choices[n / 2 % choices.size()], text(bench, 0, n));
            return std::nullopt;
        }),
    own(NAMED(grx_cree_liste), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            GRX_MSG message = Argument<GRX_MSG>::make(bench, 0, n);
            std::array<char*, 50> texts{};
            for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = text(bench, 1, n + static_cast<unsigned>(i));
            message.choix = n % 5 ? texts.data() : nullptr;
            message.nb_deci = n % 5 ? std::min(number(n), static_cast<INT>(texts.size())) : number(n);
            message.nb_cara = n % 3 ? static_cast<INT>(n % 10) : number(n);
            message.fen_mere = n % 2 ? message.fen_mere : static_cast<INT>(n % 9);
            message.x = number(n + 4);
            message.y = number(n + 9);
            grx_cree_liste(n == 30 ? nullptr : &message);
            return std::nullopt;
        }),
    own(NAMED(grx_lit_liste), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            const std::array lists{static_cast<Widget>(nullptr), live_form(), grx_recup_objet_bout(0),
                grx_recherche_shell(live_form())};
            return grx_lit_liste(n % 2 ? number(n) : static_cast<INT>(n % 10), lists[n % lists.size()],
                n % 3 ? bench.integers[0].data() : nullptr, n % 5 ? bench.integers[1].data() : nullptr);
        }),
    own(NAMED(grx_detruit_liste), rounds,
        [](Bench&, unsigned n) -> Answer {
            const std::array lists{static_cast<Widget>(nullptr), live_form(), grx_recup_objet_bout(0)};
            return grx_detruit_liste(n % 2 ? number(n) : static_cast<INT>(n % 10), lists[n % lists.size()]);
        }),
    own(NAMED(grx_cree_boutons_fenetre_info), 1,
        [](Bench&, unsigned) -> Answer {
            grx_cree_boutons_fenetre_info(nullptr, nullptr);
            return std::nullopt;
        }),
    own(NAMED(grx_tbl_cree_boutons_choix), rounds,
        [](Bench& bench, unsigned n) { return table_choices(grx_tbl_cree_boutons_choix, bench, n); }),
    own(NAMED(grx_tbl_change_boutons_choix), rounds,
        [](Bench& bench, unsigned n) { return table_choices(grx_tbl_change_boutons_choix, bench, n); }),
    own(NAMED(grx_affecte_position_taille_panel_selection), rounds,
        [](Bench&, unsigned n) -> Answer {
            grx_affecte_position_taille_panel_selection(number(n), number(n + 1), number(n + 2), 50);
            return std::nullopt;
        }),
};

// Functions that wait for the user, or that a program calls once: only without a display.
constexpr Row early_table[] = {
    ROW(grx_init_application, 0),
    ROW(grx_init_graphique, 0),
    ROW(grx_init_colormap_8_plans, 0, 1),
    ROW(grx_init_colormap_24_plans, 0, 1),
    ROW(grx_gere_application, 0),
    ROW(select_fichier_x11, 0),
    ROW(select_repertoire_x11, 0),
    ROW(question_suppression, 0, 2, 3),
    ROW(grx_file_editeur_bloquant, 0),
};

// Functions that take the tables away from under everything: last, and put back.
constexpr Row last_table[] = {
    own(NAMED(grx_affecte_objet_fen), rounds,
        [](Bench&, unsigned n) -> Answer {
            const INT window = number(n);
            Widget before = grx_recup_objet_fen(window);
            grx_affecte_objet_fen(window, nullptr);
            return window == 0 ? 1 : grx_affecte_objet_fen(window, before);
        },
        {0, 1}),
    own(NAMED(grx_affecte_objet_bout), rounds,
        [](Bench&, unsigned n) -> Answer {
            Widget before = grx_recup_objet_bout(number(n));
            grx_affecte_objet_bout(number(n), nullptr);
            return grx_affecte_objet_bout(number(n), before);
        },
        {0, 1}),
    own(NAMED(grx_init_objet_fen), 1, [](Bench&, unsigned) -> Answer { return grx_init_objet_fen(); }),
    own(NAMED(grx_desalloue_tab_image_boutons), 2,
        [](Bench&, unsigned) -> Answer {
            grx_desalloue_tab_image_boutons(GRX_NB_BOUTONS);
            return std::nullopt;
        }),
    own(NAMED(grx_alloue_tab_image_boutons), 1,
        [](Bench&, unsigned) -> Answer { return grx_alloue_tab_image_boutons(GRX_NB_BOUTONS); }),
    own(NAMED(grx_desalloue_base_boutons), 2, [](Bench&, unsigned) -> Answer { return grx_desalloue_base_boutons(); }),
    own(NAMED(grx_alloue_base_boutons), 1, [](Bench&, unsigned) -> Answer { return grx_alloue_base_boutons(); }),
    own(NAMED(grx_desalloue_base_fenetres), 2,
        [](Bench&, unsigned) -> Answer { return grx_desalloue_base_fenetres(); }),
    own(NAMED(grx_alloue_base_fenetres), 1, [](Bench&, unsigned) -> Answer { return grx_alloue_base_fenetres(); }),
};

} // namespace

std::span<const Row> own_rows() {
    return own_table;
}

std::span<const Row> early_rows() {
    return early_table;
}

std::span<const Row> last_rows() {
    return last_table;
}

} // namespace grxtest::hostile
