// The functions of lists, of the clipboard and of drops with hostile arguments, and the end of the application.
#include "tests/display/hostile/hostile_addition_arguments.h"
#include "tests/display/hostile/hostile_rows.h"

#include <algorithm>
#include <climits>
#include <cstring>

namespace grxtest::hostile {
namespace {

// Short names of the codes, for the table.
constexpr long long Numero = GRX_ECHEC_NUMERO, Genre = GRX_ECHEC_GENRE, Parametre = GRX_ECHEC_PARAMETRE,
                    Affichage = GRX_ECHEC_AFFICHAGE, Format = GRX_ECHEC_FORMAT, Absent = GRX_ECHEC_ABSENT,
                    Delai = GRX_ECHEC_DELAI, Occupe = GRX_ECHEC_OCCUPE;

// --- lists --------------------------------------------------------------------------------------------------------------------

template <INT (*function)(INT, INT, const char* const*)>
Answer put_texts(Bench& bench, unsigned n) {
    const char* const* const table = texts(bench, n);
    return function(list_number(n), table != nullptr ? count_within(8, n) : number(n), table);
}

template <INT (*function)(INT, INT, INT, const char* const*)>
Answer put_texts_at(Bench& bench, unsigned n) {
    const char* const* const table = texts(bench, n);
    return function(list_number(n), number(2 * n), table != nullptr ? count_within(8, n) : number(n), table);
}

template <INT (*function)(INT, INT, const INT*)>
Answer name_positions(Bench& bench, unsigned n) {
    const INT* const table = positions(bench, n);
    return function(list_number(n), table != nullptr ? count_within(4096, n) : number(n), table);
}

// --- the clipboard ------------------------------------------------------------------------------------------------------------

INT selection_of(unsigned n) {
    return n % 3 ? static_cast<INT>(n % 2) : number(n);
}

INT encoding_of(unsigned n) {
    return n % 4 ? static_cast<INT>(n % 2) : number(n);
}

INT length_of(unsigned n, const char* text) {
    constexpr std::array lengths{-1, 0, 1, 255, static_cast<INT>(text_room), -2, INT_MIN};
    return text == nullptr && n % 2 ? INT_MAX : lengths[n % lengths.size()];
}

// A PNG file that goes on with rubbish, or rubbish alone.
const unsigned char* bytes(unsigned n) {
    static std::array<unsigned char, std::size_t{9} * 32767> room;
    room.fill(static_cast<unsigned char>(n));
    if (n % 3) std::memcpy(room.data(), "\x89PNG\r\n\x1A\n", 8);
    return n % 7 == 6 ? nullptr : room.data();
}

Answer put_image(Bench&, unsigned n) {
    const Sides sides = sides_of(n);
    return grx_affecte_image_presse_papiers(selection_of(n), bytes(n), sides.width, sides.height);
}

Answer get_image(Bench& bench, unsigned n) {
    const unsigned char* rows = nullptr;
    return grx_recup_image_presse_papiers(selection_of(n), n % 5 ? &rows : nullptr,
        n % 7 ? bench.integers[0].data() : nullptr, n % 11 ? bench.integers[1].data() : nullptr);
}

// --- the tables ---------------------------------------------------------------------------------------------------------------

constexpr Row share_table[] = {
    // lists
    ROW(grx_recup_liste_panneau, a_number, Numero, Affichage),
    own(NAMED(grx_remplit_liste), rounds, put_texts<grx_remplit_liste>, {1, Numero, Genre, Parametre, Affichage}),
    own(NAMED(grx_ajoute_elements_liste), rounds, put_texts<grx_ajoute_elements_liste>,
        {1, Numero, Genre, Parametre, Affichage}),
    own(NAMED(grx_insere_elements_liste), rounds, put_texts_at<grx_insere_elements_liste>,
        {1, Numero, Genre, Parametre, Affichage}),
    own(NAMED(grx_remplace_elements_liste), rounds, put_texts_at<grx_remplace_elements_liste>,
        {1, Numero, Genre, Parametre, Affichage}),
    own(
        NAMED(grx_recup_nombre_elements_liste), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_recup_nombre_elements_liste(list_number(n)); },
        {a_number, Numero, Genre, Affichage}),
    own(
        NAMED(grx_recup_texte_element_liste), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            return grx_recup_texte_element_liste(list_number(n), number(n / 2), text(bench, 0, n), number(n + 1));
        },
        {a_number, Numero, Genre, Parametre, Affichage}),
    own(NAMED(grx_selectionne_elements_liste), rounds, name_positions<grx_selectionne_elements_liste>,
        {1, Numero, Genre, Parametre, Affichage}),
    own(
        NAMED(grx_recup_selection_liste), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            return grx_recup_selection_liste(
                list_number(n), count_within(4096, n), n % 3 ? bench.integers[0].data() : nullptr);
        },
        {a_number, Numero, Genre, Affichage}),
    own(
        NAMED(grx_is_element_selectionne), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_is_element_selectionne(list_number(n), number(n / 2)); },
        {0, 1, Numero, Genre, Parametre, Affichage}),
    own(
        NAMED(grx_affecte_mode_liste), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_affecte_mode_liste(list_number(n), number(n / 2)); },
        {1, Numero, Genre, Parametre, Affichage}),
    own(
        NAMED(grx_recup_mode_liste), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_recup_mode_liste(list_number(n)); },
        {0, 1, 2, Numero, Genre, Affichage}),
    own(
        NAMED(grx_montre_element_liste), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_montre_element_liste(list_number(n), number(n / 2)); },
        {1, Numero, Genre, Parametre, Affichage}),
    own(
        NAMED(grx_recup_position_point_liste), rounds,
        [](Bench&, unsigned n) -> Answer {
            return grx_recup_position_point_liste(list_number(n), number(n / 2), number(n + 1));
        },
        {a_number, Numero, Genre, Affichage}),
    own(
        NAMED(grx_recup_cadre_element_liste), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            const auto out = [&](unsigned place) { return n % (place + 2) ? bench.integers[place].data() : nullptr; };
            return grx_recup_cadre_element_liste(list_number(n), number(n / 2), out(0), out(1), out(2), out(3));
        },
        {1, Absent, Numero, Genre, Parametre, Affichage}),
    own(
        NAMED(grx_recup_vue_liste), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            return grx_recup_vue_liste(list_number(n), n % 3 ? bench.integers[0].data() : nullptr,
                n % 5 ? bench.integers[1].data() : nullptr);
        },
        {1, Numero, Genre, Affichage}),
    own(
        NAMED(grx_affecte_colonnes_liste), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            return grx_affecte_colonnes_liste(list_number(n), number(n / 2), positions(bench, n), number(n + 1));
        },
        {1, Numero, Genre, Parametre, Affichage}),
    own(NAMED(grx_deselectionne_elements_liste), rounds, name_positions<grx_deselectionne_elements_liste>,
        {1, Numero, Genre, Parametre, Affichage}),
    own(
        NAMED(grx_deselectionne_tout_liste), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_deselectionne_tout_liste(list_number(n)); },
        {1, Numero, Genre, Affichage}),
    own(
        NAMED(grx_supprime_elements_liste), rounds,
        [](Bench&, unsigned n) -> Answer {
            return grx_supprime_elements_liste(list_number(n), number(n / 2), number(n + 1));
        },
        {1, Numero, Genre, Parametre, Affichage}),
    own(NAMED(grx_supprime_positions_liste), rounds, name_positions<grx_supprime_positions_liste>,
        {1, Numero, Genre, Parametre, Affichage}),
    own(
        NAMED(grx_vide_liste), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_vide_liste(list_number(n)); }, {1, Numero, Genre, Affichage}),

    // the clipboard
    own(
        NAMED(grx_affecte_texte_presse_papiers), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            const char* const put = text(bench, 0, n);
            return grx_affecte_texte_presse_papiers(selection_of(n), encoding_of(n), put, length_of(n, put));
        },
        {1, Parametre, Format, Affichage}),
    own(
        NAMED(grx_recup_texte_presse_papiers), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            const char* got = nullptr;
            return grx_recup_texte_presse_papiers(selection_of(n), encoding_of(n), n % 5 ? &got : nullptr,
                n % 7 ? bench.integers[0].data() : nullptr);
        },
        {1, Parametre, Absent, Format, Affichage, Delai}),
    own(
        NAMED(grx_affecte_png_presse_papiers), rounds,
        [](Bench&, unsigned n) -> Answer {
            const unsigned char* const put = bytes(n);
            return grx_affecte_png_presse_papiers(
                selection_of(n), put, put != nullptr ? count_within(65536, n) : number(n));
        },
        {1, Parametre, Format, Affichage}),
    own(
        NAMED(grx_recup_png_presse_papiers), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            const unsigned char* got = nullptr;
            return grx_recup_png_presse_papiers(
                selection_of(n), n % 5 ? &got : nullptr, n % 7 ? bench.integers[0].data() : nullptr);
        },
        {1, Parametre, Absent, Format, Affichage, Delai}),
    own(NAMED(grx_affecte_image_presse_papiers), rounds, put_image, {1, Parametre, Affichage}),
    own(NAMED(grx_recup_image_presse_papiers), rounds, get_image, {1, Parametre, Absent, Format, Affichage, Delai}),
    ROW(grx_libere_presse_papiers, 1),
    ROW(grx_recup_contenu_presse_papiers, a_number, Parametre, Delai, Affichage),
    ROW(grx_vide_presse_papiers, 1, Parametre, Affichage),
    own(
        NAMED(grx_affecte_suivi_presse_papiers), rounds,
        [](Bench&, unsigned n) -> Answer {
            const INT answer = grx_affecte_suivi_presse_papiers(number(n));
            grx_affecte_suivi_presse_papiers(0);
            return answer;
        },
        {1, Affichage}),
    own(
        NAMED(grx_affecte_touches_presse_papiers), rounds,
        [](Bench&, unsigned n) -> Answer {
            const INT answer = grx_affecte_touches_presse_papiers(number(n));
            grx_affecte_touches_presse_papiers(0);
            return answer;
        },
        {1, Affichage}),
    ROW(grx_recup_touches_presse_papiers, 0),

    // drops
    ROW(grx_affecte_depots_fenetre, 1, Numero, Genre, Parametre, Affichage),
    ROW(grx_recup_depots_fenetre, 0, 1, 2, 3),
};

// Ends everything: last of all.
constexpr Row ending_table[] = {
    ROW(grx_termine_application, 1, Occupe),
};

} // namespace

std::span<const Row> share_rows() {
    return share_table;
}

std::span<const Row> ending_rows() {
    return ending_table;
}

} // namespace grxtest::hostile
