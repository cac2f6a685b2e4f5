// The functions of texts in drawings with hostile arguments.
#include "tests/display/hostile/hostile_addition_arguments.h"
#include "tests/display/hostile/hostile_rows.h"

#include <cstring>
#include <limits>

namespace grxtest::hostile {
namespace {

// Short names of the codes, for the table.
constexpr long long Numero = GRX_ECHEC_NUMERO, Parametre = GRX_ECHEC_PARAMETRE, Affichage = GRX_ECHEC_AFFICHAGE,
                    Fichier = GRX_ECHEC_FICHIER, Format = GRX_ECHEC_FORMAT, Absent = GRX_ECHEC_ABSENT,
                    Replaced = GRX_TEXTE_REMPLACE;

const char* font_of(unsigned n) {
    constexpr std::array names{"", GRX_FONTE_TRAIT, "DejaVu Sans", "DejaVu Serif:bold", "Pas Une Fonte", "/dev/null",
        "/tmp", "/proc/self/status", ":::=", "%s%n", "/", "sans,:bold:lang="};
    return names[n % names.size()];
}

DOUBLE length_of(unsigned n) {
    constexpr std::array values{20.0, 7.0, 300.0, 0.0, -1.0, 1e-300, 1e5, 1e308, -1e308,
        std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN(), 20.0};
    return values[n % values.size()];
}

// Fields out of all ranges now and then, arrays without an end.
GRX_TEXTE hostile_text(Bench& bench, unsigned n) {
    const char* const characters = text(bench, 0, n);
    GRX_TEXTE text{};
    grx_init_texte_dessin(&text);
    text.nofen = n % 3 ? static_cast<INT>(n % 5) : number(n);
    text.x = n % 4 ? static_cast<INT>(n) : number(n + 1);
    text.y = n % 5 ? static_cast<INT>(n) : number(n + 2);
    std::memset(text.chaine, static_cast<int>(n), sizeof text.chaine);
    if (characters != nullptr) std::strncpy(text.chaine, characters, sizeof text.chaine);
    std::memset(text.fontlabel, 'x', sizeof text.fontlabel);
    if (n % 7) std::strncpy(text.fontlabel, font_of(n), sizeof text.fontlabel);
    if (n % 2) text.hauteurlabel = length_of(n / 2);
    if (n % 3 == 0) text.largeurlabel = length_of(n / 3);
    if (n % 5 == 0) text.cosinuslabel = length_of(n / 5);
    if (n % 6 == 0) text.sinuslabel = length_of(n / 6);
    if (n % 9 == 0) text.slantlabel = length_of(n / 9);
    if (n % 11 == 0) text.extentslabel[n % 3] = length_of(n / 11);
    text.mirorlabel = number(n + 3);
    text.filllabel = n % 2 ? 1 : 0;
    text.attrib = {number(n), number(n + 1),
        n % 4 == 0  ? GRX_MODE_XOR
        : n % 4 - 1 ? 0
                    : GRX_MODE_EFFACE,
        0, number(n + 2), number(n + 3)};
    return text;
}

template <INT (*function)(const GRX_TEXTE*)>
Answer draw_text(Bench& bench, unsigned n) {
    const GRX_TEXTE text = hostile_text(bench, n);
    return function(n % 17 == 16 ? nullptr : &text);
}

Answer ask_box(Bench& bench, unsigned n) {
    const GRX_TEXTE text = hostile_text(bench, n);
    return grx_recup_boite_texte(n % 17 == 16 ? nullptr : &text, sized<GRX_BOITE_TEXTE>(n / 3));
}

Answer ask_advances(Bench& bench, unsigned n) {
    const GRX_TEXTE text = hostile_text(bench, n);
    constexpr std::array counts{0, 1, 64, -1, INT_MIN};
    return grx_recup_avances_texte(
        n % 17 == 16 ? nullptr : &text, counts[n % counts.size()], n % 4 ? bench.doubles.data() : nullptr);
}

Answer ask_outlines(Bench& bench, unsigned n) {
    const GRX_TEXTE text = hostile_text(bench, n);
    return grx_recup_contours_texte(n % 17 == 16 ? nullptr : &text, length_of(n / 2), sized<GRX_CONTOURS_TEXTE>(n / 3));
}

Answer make_text(Bench&, unsigned n) {
    GRX_TEXTE text;
    return grx_init_texte_dessin(n % 2 ? &text : nullptr);
}

Answer look_for_font(Bench& bench, unsigned n) {
    return grx_verifie_fonte_texte(n % 2 ? font_of(n / 2) : text(bench, 0, n));
}

constexpr Row text_table[] = {
    own(NAMED(grx_trace_texte_dessin), 5 * rounds, draw_text<grx_trace_texte_dessin>,
        {1, Replaced, Parametre, Numero, Affichage}),
    own(NAMED(grx_trace_texte_dessin_bouton), 5 * rounds, draw_text<grx_trace_texte_dessin_bouton>,
        {1, Replaced, Parametre, Numero, Affichage}),
    own(NAMED(grx_recup_boite_texte), 5 * rounds, ask_box, {1, Replaced, Parametre}),
    own(NAMED(grx_recup_avances_texte), 5 * rounds, ask_advances, {a_number, Parametre}),
    own(NAMED(grx_recup_contours_texte), 5 * rounds, ask_outlines, {1, Replaced, Parametre}),
    own(NAMED(grx_init_texte_dessin), 2, make_text, {1, Parametre}),
    own(NAMED(grx_init_boite_texte), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_init_boite_texte(sized<GRX_BOITE_TEXTE>(n)); }, {1, Parametre}),
    own(NAMED(grx_init_contours_texte), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_init_contours_texte(sized<GRX_CONTOURS_TEXTE>(n)); },
        {1, Parametre}),
    own(NAMED(grx_verifie_fonte_texte), 3 * rounds, look_for_font, {1, Parametre, Absent, Fichier, Format}),
    ROW(grx_recup_nombre_fontes_texte, a_number),
    ROW(grx_recup_nom_fonte_texte, a_number, Parametre),
};

} // namespace

std::span<const Row> text_rows() {
    return text_table;
}

} // namespace grxtest::hostile
