// The functions of pictures with hostile arguments: records of wrong sizes and sides, names of what is no file, files that are none.
#include "tests/display/hostile/hostile_addition_arguments.h"
#include "tests/display/hostile/hostile_rows.h"

#include <algorithm>
#include <array>
#include <climits>

namespace grxtest::hostile {
namespace {

constexpr long long Numero = GRX_ECHEC_NUMERO, Genre = GRX_ECHEC_GENRE, Parametre = GRX_ECHEC_PARAMETRE,
                    Affichage = GRX_ECHEC_AFFICHAGE, Format = GRX_ECHEC_FORMAT, Absent = GRX_ECHEC_ABSENT,
                    Fichier = GRX_ECHEC_FICHIER, Memoire = GRX_ECHEC_MEMOIRE;

std::array<unsigned char, std::size_t{300} * 200 * 4> room;

// A picture, or what is none. Its pixels are room enough where its sides and its form are right.
GRX_IMAGE picture(unsigned n) {
    constexpr std::array<Sides, 9> sides{{{1, 1}, {7, 3}, {300, 200}, {200, 300}, {0, 5}, {-1, 5}, {INT_MIN, INT_MIN},
        {INT_MAX, INT_MAX}, {GRX_IMAGE_COTE_MAX + 1, 1}}};
    GRX_IMAGE image;
    grx_init_image(&image);
    room.fill(static_cast<unsigned char>(n));
    image.largeur = sides[n % sides.size()].width;
    image.hauteur = sides[n % sides.size()].height;
    image.octets_par_pixel = n % 7 == 6 ? number(n) : std::array{1, 3, 4}[n / 2 % 3];
    if (n % 7 == 6 && image.octets_par_pixel == 1) image.octets_par_pixel = 0;
    image.nb_couleurs = n % 3 ? 256 : number(n);
    image.octets_voulus = n % 2 ? 0 : number(n);
    image.pixels = n % 13 == 12 ? nullptr : room.data();
    return image;
}

// A record that a picture is put into; `use` is called with it, or with none.
template <class Use>
Answer filled(unsigned n, const Use& use) {
    GRX_IMAGE image;
    grx_init_image(&image);
    image.octets_voulus = n % 2 ? 0 : number(n);
    image.taille = std::array<INT, 5>{image.taille, image.taille, 0, -1, image.taille - 1}[n % 5];
    const INT size = image.taille;
    const INT result = use(n % 11 == 10 ? nullptr : &image);
    if (size == static_cast<INT>(sizeof(GRX_IMAGE))) grx_libere_image(&image);
    return result;
}

const char* name(Bench& bench, unsigned n) {
    constexpr std::array names{"", "/", "/dev/null", "/dev/full", "/nowhere/at/all.png", "/proc/self/mem", "."};
    if (n % 9 == 8) return nullptr;
    if (n % 9 != 7) return names[n % names.size()];
    bench.texts[0].fill('z');
    bench.texts[0].back() = '\0';
    return bench.texts[0].data();
}

const unsigned char* bytes(unsigned n) {
    room.fill(static_cast<unsigned char>(n));
    if (n % 3 == 0) std::copy_n("\x89PNG\r\n\x1A\n", 8, room.data());
    if (n % 3 == 1) std::copy_n("BM", 2, room.data());
    return n % 7 == 6 ? nullptr : room.data();
}

INT count(unsigned n) {
    return std::min<INT>(number(n), static_cast<INT>(room.size()));
}

constexpr Row table[] = {
    own(NAMED(grx_init_image), rounds,
        [](Bench&, unsigned n) -> Answer {
            GRX_IMAGE image;
            grx_init_image(n % 2 ? &image : nullptr);
            return std::nullopt;
        }),
    own(NAMED(grx_cree_image), rounds,
        [](Bench&, unsigned n) -> Answer {
            GRX_IMAGE image = picture(n);
            if (n % 2) image.pixels = nullptr;
            const INT result = grx_cree_image(n % 11 == 10 ? nullptr : &image);
            if (result == 1) grx_libere_image(&image);
            return result;
        },
        {1, Parametre, Memoire}),
    own(NAMED(grx_libere_image), rounds,
        [](Bench&, unsigned n) -> Answer {
            GRX_IMAGE image = picture(n);
            image.pixels = nullptr;
            return grx_libere_image(with_size(image, n) != nullptr ? &image : nullptr);
        },
        {1, Parametre}),
    own(NAMED(grx_lit_image), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            return filled(n, [&](GRX_IMAGE* image) { return grx_lit_image(name(bench, n / 2), image); });
        },
        {Parametre, Fichier, Format}),
    own(NAMED(grx_lit_image_memoire), rounds,
        [](Bench&, unsigned n) -> Answer {
            return filled(n, [&](GRX_IMAGE* image) { return grx_lit_image_memoire(bytes(n), count(n), image); });
        },
        {Parametre, Format}),
    own(NAMED(grx_ecrit_image), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            GRX_IMAGE image = picture(n);
            return grx_ecrit_image(name(bench, n / 2), with_size(image, n), number(n));
        },
        {Parametre, Fichier, Format}),
    own(NAMED(grx_ouvre_image), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            return filled(n, [&](GRX_IMAGE* image) { return grx_ouvre_image(name(bench, n / 2), image); });
        },
        {Parametre, Fichier, Format}),
    own(NAMED(grx_lit_bande_image), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_lit_bande_image(number(n), number(n / 2), room.data()); },
        {Numero}),
    own(NAMED(grx_ouvre_ecriture_image), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            GRX_IMAGE image = picture(n);
            return grx_ouvre_ecriture_image(name(bench, n / 2), with_size(image, n), number(n));
        },
        {Parametre, Fichier, Format}),
    own(NAMED(grx_ecrit_bande_image), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_ecrit_bande_image(number(n), number(n / 2), room.data()); },
        {Numero}),
    ROW(grx_ferme_image, Numero),
    ROW(grx_abandonne_image, Numero),
    own(NAMED(grx_affiche_image), rounds,
        [](Bench&, unsigned n) -> Answer {
            GRX_IMAGE image = picture(n);
            return grx_affiche_image(
                n % 3 ? 1 : number(n), number(n / 2), with_size(image, n), number(n), number(n + 3));
        },
        {1, Numero, Absent, Parametre, Affichage}),
    own(NAMED(grx_affiche_image_etiree), rounds,
        [](Bench&, unsigned n) -> Answer {
            GRX_IMAGE image = picture(n);
            return grx_affiche_image_etiree(n % 3 ? 1 : number(n), number(n / 2), with_size(image, n), number(n),
                number(n + 3), number(n + 5), number(n / 3));
        },
        {1, Numero, Absent, Parametre, Affichage}),
    own(NAMED(grx_affecte_icone_bouton), rounds,
        [](Bench& bench, unsigned n) -> Answer { return grx_affecte_icone_bouton(number(n), name(bench, n / 2)); },
        {Numero, Genre, Parametre, Fichier, Format, Affichage}),
    own(NAMED(grx_affecte_icone_memoire_bouton), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_affecte_icone_memoire_bouton(number(n), bytes(n), count(n)); },
        {Numero, Genre, Parametre, Format, Affichage}),
    own(NAMED(grx_affecte_icone_image_bouton), rounds,
        [](Bench&, unsigned n) -> Answer {
            GRX_IMAGE image = picture(n);
            return grx_affecte_icone_image_bouton(number(n / 2), with_size(image, n));
        },
        {1, Numero, Genre, Parametre, Affichage}),
    ROW(grx_supprime_icone_bouton, 1, Numero, Absent, Affichage),
    ROW(grx_affecte_icones_png, 1),
    ROW(grx_recup_icones_png, 0, 1),
    own(NAMED(grx_recup_image_fenetre), rounds,
        [](Bench&, unsigned n) -> Answer {
            return filled(n, [&](GRX_IMAGE* image) { return grx_recup_image_fenetre(number(n / 2), image); });
        },
        {1, Numero, Absent, Parametre, Affichage}),
    own(NAMED(grx_recup_image_bouton), rounds,
        [](Bench&, unsigned n) -> Answer {
            return filled(n, [&](GRX_IMAGE* image) { return grx_recup_image_bouton(number(n / 2), image); });
        },
        {1, Numero, Absent, Parametre, Affichage}),
    own(NAMED(grx_recup_image_ecran_fenetre), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            INT* const part = n % 3 ? bench.integers[0].data() : nullptr;
            return filled(
                n, [&](GRX_IMAGE* image) { return grx_recup_image_ecran_fenetre(number(n / 2), image, part); });
        },
        {1, Numero, Absent, Parametre, Affichage}),
    own(NAMED(grx_recup_image_ecran), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            INT* const part = n % 3 ? bench.integers[0].data() : nullptr;
            return filled(n, [&](GRX_IMAGE* image) {
                return grx_recup_image_ecran(number(n), number(n / 2), number(n / 3), number(n + 1), image, part);
            });
        },
        {1, Absent, Parametre, Affichage}),
};

} // namespace

std::span<const Row> image_rows() {
    return table;
}

} // namespace grxtest::hostile
