// The functions of layers, scrolling and limits with hostile arguments.
#include "tests/display/hostile/hostile_addition_arguments.h"
#include "tests/display/hostile/hostile_rows.h"

#include "grx_plus_calques.h"

#include <array>

namespace grxtest::hostile {
namespace {

constexpr long long Numero = GRX_ECHEC_NUMERO, Genre = GRX_ECHEC_GENRE, Parametre = GRX_ECHEC_PARAMETRE,
                    Affichage = GRX_ECHEC_AFFICHAGE, Absent = GRX_ECHEC_ABSENT, Occupe = GRX_ECHEC_OCCUPE,
                    Memoire = GRX_ECHEC_MEMOIRE;

// Windows and layers that are there, every other time.
INT window_of(unsigned n) {
    return n % 2 ? static_cast<INT>(1 + n / 2 % 9) : number(n);
}

INT layer_of(unsigned n) {
    constexpr std::array values{0, 1, 7, GRX_TOUS_CALQUES, GRX_NB_CALQUES, 999, INT_MIN, INT_MAX, 0, 3};
    return values[n % values.size()];
}

void draw_something(Bench& bench, INT window, unsigned n) {
    grx_trace_segment({window, number(n), number(n + 1), number(n + 2), number(n + 3), 0, 0, 0, {}});
    grx_remplit_arc({window, number(n), number(n + 5), UINT_MAX, 3, number(n + 1), INT_MIN, 0, 0, 0, {}});
    grx_trace_rectangle(
        {window, 5, 5, 40, 40, 0, 0, 0, {number(n), number(n + 1), number(n), 0, number(n), number(n)}});
    grx_trace_polyline({window, n % 5 ? bench.points.data() : nullptr, n % 5 ? 64 : INT_MAX, 0, 0, 0, {}});
    grx_remplit_polygone({window, bench.points.data(), n % 3 ? 3 : INT_MIN, 0, 0, 0, {}});
}

// One in five is left open.
Answer draw_layer(Bench& bench, unsigned n) {
    const INT window = window_of(n);
    const INT answer = grx_commence_calque(window, layer_of(n));
    if (answer == 1 || n % 8 == 0) draw_something(bench, window, n);
    if (n % 5) grx_termine_calque();
    return answer;
}

Answer scroll(Bench&, unsigned n) {
    static std::array<GRX_ZONE, 2> zones;
    static INT count;
    return grx_defile_fenetre(
        window_of(n), number(n), number(n + 3), n % 3 ? zones.data() : nullptr, n % 4 ? &count : nullptr);
}

Answer limit(Bench& bench, unsigned n) {
    const INT window = window_of(n);
    const INT answer = grx_limite_trace(window, number(n), number(n + 1), number(n + 4), number(n + 7));
    if (answer == 1 || n % 8 == 0) draw_something(bench, window, n);
    return answer;
}

template <INT (*function)(INT, INT)>
Answer of_layer(Bench&, unsigned n) {
    return function(window_of(n), layer_of(n / 2));
}

constexpr Row layer_table[] = {
    own(NAMED(grx_commence_calque), rounds, draw_layer, {1, Numero, Genre, Affichage, Occupe, Memoire}),
    own(NAMED(grx_deplace_calque), rounds,
        [](Bench&, unsigned n) -> Answer {
            return grx_deplace_calque(window_of(n), layer_of(n / 2), number(n), number(n + 2));
        },
        {1, Numero, Genre, Affichage, Absent, Parametre}),
    own(NAMED(grx_cache_calque), rounds, of_layer<grx_cache_calque>, {1, Numero, Genre, Affichage, Absent}),
    own(NAMED(grx_affiche_calque), rounds, of_layer<grx_affiche_calque>, {1, Numero, Genre, Affichage, Absent}),
    own(NAMED(grx_limite_trace), rounds, limit, {1, Numero, Affichage, Parametre}),
    own(NAMED(grx_defile_fenetre), rounds, scroll, {1, Numero, Genre, Affichage, Memoire}),
    ROW(grx_libere_limite_trace, 1, Affichage),
    ROW(grx_termine_calque, 1, Affichage, Absent),
    own(NAMED(grx_efface_calque), rounds, of_layer<grx_efface_calque>, {1, Numero, Genre, Affichage}),
};

} // namespace

std::span<const Row> layer_rows() {
    return layer_table;
}

} // namespace grxtest::hostile
