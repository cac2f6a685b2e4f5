// Receivers and the functions of the paper with hostile arguments, and everything drawn with such while they are at work.
#include "tests/display/hostile/hostile_addition_arguments.h"
#include "tests/display/hostile/hostile_rows.h"

#include "grx_plus_papier.h"
#include "grx_plus_recepteur.h"

#include <cmath>

namespace grxtest::hostile {
namespace {

constexpr long long Numero = GRX_ECHEC_NUMERO, Parametre = GRX_ECHEC_PARAMETRE, Absent = GRX_ECHEC_ABSENT,
                    Fichier = GRX_ECHEC_FICHIER;

GRX_ATTRIBUTS_TRACER any_attributes(unsigned n) {
    return {number(n), number(n + 1), n % 5 ? 0 : number(n + 2), 0, number(n + 3), number(n + 4)};
}

void draw_anything(Bench& bench, unsigned n) {
    const auto a = any_attributes(n);
    static std::array<GRX_POINT_POLY, 4> points{{{-32768, 32767}, {32767, 0}, {0, 0}, {32767, -32768}}};
    static std::array<uchar, 3 * 64> pixels{};
    const GRX_POLY poly{number(n), points.data(), static_cast<INT>(n % 5), 0, 0, 0, a};
    grx_trace_point({number(n), number(n + 1), number(n + 2), 0, 0, 0, a});
    grx_trace_segment({number(n), number(n + 1), number(n + 2), number(n + 3), number(n + 4), 0, 0, 0, a});
    grx_trace_rectangle({number(n), number(n + 1), number(n + 2), number(n + 3), number(n + 4), 0, 0, 0, a});
    grx_remplit_rectangle_bouton({number(n), number(n + 1), number(n + 2), number(n + 3), number(n + 4), 0, 0, 0, a});
    const GRX_ARC arc{number(n), number(n + 1), number(n + 2), static_cast<UNSIGNED_INT>(number(n + 3)),
        static_cast<UNSIGNED_INT>(number(n + 4)), number(n + 5), number(n + 6), 0, 0, 0, a};
    grx_trace_arc(arc);
    grx_remplit_arc(arc);
    grx_trace_polyline(poly);
    grx_remplit_polygone(poly);
    GRX_TEXTE words{};
    std::memset(words.chaine, static_cast<int>(n * 37 % 256), n % 3 ? 20 : sizeof words.chaine);
    words.nofen = number(n);
    words.x = number(n + 1);
    words.y = number(n + 2);
    words.coul_trace = number(n + 3);
    grx_ecrit_fenetre(words);
    grx_trace_texte_bouton(words);
    grx_stretch_image(GRX_CIBLE_FENETRE, number(n), pixels.data(), n % 2 ? nullptr : pixels.data(), 8, 8, number(n + 1),
        number(n + 2), number(n + 3), number(n + 4));
    grx_lien_papier(number(n), number(n + 1), number(n + 2), number(n + 3), text(bench, 0, n));
}

Answer take_receiver(Bench& bench, unsigned n) {
    GRX_RECEPTEUR r{};
    grx_init_recepteur(&r);
    r.donnee = n % 2 ? &bench : nullptr;
    if (n % 3) r.segment = [](void*, INT, const GRX_SEGMENT*) {};
    const INT answer = grx_affecte_recepteur(with_size(r, n));
    draw_anything(bench, n);
    grx_retire_recepteur(r.donnee);
    return answer;
}

constexpr Row receiver_table[] = {
    own(NAMED(grx_init_recepteur), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_init_recepteur(sized<GRX_RECEPTEUR>(n)); }, {1, Parametre}),
    own(NAMED(grx_affecte_recepteur), rounds, take_receiver, {1, Parametre}),
    own(NAMED(grx_retire_recepteur), 2,
        [](Bench& bench, unsigned n) -> Answer { return grx_retire_recepteur(n ? &bench : nullptr); }, {Absent}),
};

// --- paper --------------------------------------------------------------------------------------------------------------

DOUBLE length(unsigned n) {
    constexpr std::array values{10.0, 0.0, -1.0, 1e308, 1e-308, static_cast<double>(NAN), 50.0, 200.0};
    return values[n % values.size()];
}

// Most members are as they should be, another one of them hostile each time.
GRX_PAPIER hostile_paper(Bench& bench, unsigned n) {
    static std::string name;
    GRX_PAPIER p;
    grx_init_papier(&p);
    name = bench.folder + "paper";
    p.fichier = name.c_str();
    p.largeur_zone = p.hauteur_zone = 100;
    p.genre = static_cast<INT>(n / 16 % 4);
    switch (n % 16) {
    case 0: p.genre = number(n / 16); break;
    case 1: p.fichier = text(bench, 0, n / 16); break;
    case 2: p.format = number(n / 16); break;
    case 3: p.format = GRX_PAPIER_LIBRE, p.largeur = length(n / 16), p.hauteur = length(n / 64); break;
    case 4: p.marge_gauche = length(n / 16), p.marge_bas = length(n / 32); break;
    case 5: p.numero = number(n / 16), p.cible = static_cast<INT>(n / 16 % 2); break;
    case 6: p.largeur_zone = number(n / 16), p.hauteur_zone = number(n / 32); break;
    case 7: p.x = number(n / 16), p.y = number(n / 16 + 1); break;
    case 8: p.echelle = length(n / 16), p.mm_par_pixel = length(n / 64); break;
    case 9: p.recouvrement = length(n / 16), p.echelle = .4; break;
    case 10: p.nb_couleurs = number(n / 16), p.couleurs = GRX_PAPIER_COULEURS_TABLE; break;
    case 11: p.epaisseurs[n / 16 % 8] = length(n / 32); break;
    case 12: p.police = text(bench, 0, n / 16), p.hauteur_texte = length(n / 16); break;
    case 13: p.titre = text(bench, 0, n / 16), p.auteur = text(bench, 1, n / 8); break;
    case 14: p.nb_plumes = number(n / 16), p.hachures = length(n / 16); break;
    default: p.reperes = number(n / 16), p.unite_tirets = length(n / 16); break;
    }
    if (p.genre == GRX_PAPIER_IMPRIMANTE) p.genre = GRX_PAPIER_PDF; // nothing is printed here
    return p;
}

Answer make_paper(Bench& bench, unsigned n) {
    GRX_PAPIER paper = hostile_paper(bench, n);
    const INT answer = grx_commence_papier(with_size(paper, n));
    for (unsigned i = 0; i < 5; ++i) draw_anything(bench, n + i);
    if (n % 3 == 0) grx_page_papier();
    if (answer == 1 && (n % 2 ? grx_termine_papier() : grx_abandonne_papier()) != 1) return GRX_ECHEC_FORMAT;
    return answer;
}

constexpr unsigned many = 16 * 20;

constexpr Row paper_table[] = {
    own(NAMED(grx_commence_papier), many, make_paper, {1, Parametre, Numero, Fichier, GRX_ECHEC_GENRE}),
    own(NAMED(grx_recup_feuilles_papier), many,
        [](Bench& bench, unsigned n) -> Answer {
            GRX_PAPIER paper = hostile_paper(bench, n);
            GRX_FEUILLES_PAPIER sheets;
            grx_init_feuilles_papier(&sheets);
            return grx_recup_feuilles_papier(with_size(paper, n), n % 11 ? &sheets : nullptr);
        },
        {1, Parametre, Numero, GRX_ECHEC_GENRE}),
    own(NAMED(grx_init_papier), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_init_papier(sized<GRX_PAPIER>(n)); }, {1, Parametre}),
    own(NAMED(grx_init_feuilles_papier), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_init_feuilles_papier(sized<GRX_FEUILLES_PAPIER>(n)); },
        {1, Parametre}),
    ROW(grx_recup_taille_papier, 1, Parametre), ROW(grx_lien_papier, Absent), ROW(grx_signet_papier, Absent),
    ROW(grx_page_papier, Absent), ROW(grx_termine_papier, Absent), ROW(grx_abandonne_papier, Absent),
    ROW(grx_recup_texte_papier, a_number)};

} // namespace

std::span<const Row> receiver_rows() {
    return receiver_table;
}

std::span<const Row> paper_rows() {
    return paper_table;
}

} // namespace grxtest::hostile
