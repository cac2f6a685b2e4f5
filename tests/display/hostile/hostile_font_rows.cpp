// The functions of the interface's font with hostile arguments.
#include "tests/display/hostile/hostile_addition_arguments.h"
#include "tests/display/hostile/hostile_rows.h"

#include <array>
#include <climits>

namespace grxtest::hostile {
namespace {

constexpr Row font_table[] = {
    own(NAMED(grx_affecte_police), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            const INT answer = grx_affecte_police(text(bench, 0, n));
            grx_affecte_police(nullptr); // the next start is for another test
            return answer;
        },
        {1, GRX_ECHEC_MEMOIRE}),
    own(NAMED(grx_recup_police), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            constexpr std::array rooms{0, 1, 2, 40, -1, INT_MIN};
            char* const room = n % 3 ? bench.texts[0].data() : nullptr;
            return grx_recup_police(room, room != nullptr ? rooms[n % rooms.size()] : number(n));
        },
        {a_number}),
    ROW(grx_recup_genre_police, GRX_POLICE_AUCUNE, GRX_POLICE_SERVEUR, GRX_POLICE_LISSE),
    ROW(grx_recup_resolution_ecran, a_number, GRX_ECHEC_AFFICHAGE),
};

} // namespace

std::span<const Row> font_rows() {
    return font_table;
}

} // namespace grxtest::hostile
