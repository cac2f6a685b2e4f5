// Where atelier shows what, with the font of its settings, and where it writes.
#ifndef VISITE_LIEUX_H
#define VISITE_LIEUX_H

#include "ecran.h"

namespace visite {

// What atelier has at the left of its window: tools this wide, in them a row of icons.
constexpr int kOutils = 212;
constexpr int kBarre = 33, kIconePlus = 65, kIcones = 29; // height of the menu bar, middle of the icon
constexpr int kPasIcone = 38, kIconeGrille = 27;          // the panels' icons are in a second row

// The cell that panels measure in, and what they have where: tenths of a character and of a line.
constexpr int kCaractere = 9, kLigne = 23, kEntree = 25; // entries of a drop-down choice are this high, in pixels
struct Place {
    int x, y;
};
constexpr Pixels en_pixels(Place p) {
    return {p.x * kCaractere / 10, p.y * kLigne / 10};
}
constexpr Place kMetres{403, 18}, kPas{160, 51}, kTrait{207, 66}, kMontrer{40, 80}, kAccrocher{40, 93}, kGris{418, 58},
    kAppliquer{61, 155}, kReglagesFermer{165, 155};
constexpr Place kFiltre{190, 8}, kPremiereCouche{100, 44}, kSeules{458, 45}, kToutes{458, 59}, kAucune{458, 73},
    kFermer{458, 88};
constexpr Place kCritere{169, 10}, kTableFermer{745, 152};

// The dialog for drawings: the first file and the picture; the editor: its first menu. From the upper left corner of
// the window.
constexpr Pixels kFichiers{382, 104}, kApercu{18, 280}, kFichier{44, 16}, kPremierCalque{60, 296}, kBleu{251, 174},
    kRetablir{294, 241}, kFleche{16, 14};
constexpr int kGlissee = 200, kEntreeDeMenu = 23;
constexpr int kHauteurFichier = 15, kCoteApercu = 70, kBandeau = 28;

// Titles of the windows, as much as depends on no encoding.
constexpr const char *kTitrePrincipal = "atelier - ", *kTitreReglages = "glages du dessin",
                     *kTitreCouches = "Choix des couches", *kTitreTable = "Nomenclature", *kTitreCouleur = "Couleur - ",
                     *kTitreBande = "Informations", *kTitreOuvrir = "Ouvrir un plan",
                     *kTitreImage = "Enregistrer l'image", *kTitreEditeur = "Editeur",
                     *kTitreTraces = "pertoire des trac", *kTitrePdf = "Exporter en PDF", *kTitreNote = "Note",
                     *kTitreQuitter = "Quitter le plan", *kTitreAide = "Aide";

// The list of parts is in a directory of its own among the drawings; none before it was written.
inline std::filesystem::path liste_ecrite(const std::filesystem::path& plans) {
    for (const auto& e : std::filesystem::directory_iterator(plans))
        if (e.is_directory() && std::filesystem::exists(e.path() / "maison.txt")) return e.path() / "maison.txt";
    return {};
}

inline std::string premiere_ligne(const std::filesystem::path& fichier) {
    std::ifstream f(fichier);
    std::string r;
    std::getline(f, r);
    return r;
}

} // namespace visite

#endif
