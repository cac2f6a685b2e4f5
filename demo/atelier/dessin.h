// A drawing as it is read: layers, blocks, entities; and as it is drawn: a flat list of objects.
#ifndef ATELIER_DESSIN_H
#define ATELIER_DESSIN_H

#include <array>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "geometrie.h"
#include "index.h"
#include "suivi.h"

namespace atelier {

struct Rgb {
    int rouge = 0, vert = 0, bleu = 0; // 0..255
    auto operator<=>(const Rgb&) const = default;
};

enum class Genre : std::uint8_t { Plein, Trait, Point, Texte };

// --- as it is read ------------------------------------------------------------------------------------------------

constexpr int kDuBloc = 0;     // colour numbers: as the insertion,
constexpr int kDuCalque = 256; // as the layer
constexpr int kSansRgb = -1;   // no true colour
constexpr int kPoidsDuCalque = -1, kPoidsDuBloc = -2;

struct Aspect {
    std::string calque = "0";
    int couleur = kDuCalque;
    int rgb = kSansRgb; // 0xRRGGBB, stronger than couleur
    std::string trait = "BYLAYER";
    int poids = kPoidsDuCalque; // hundredths of a millimetre
};

struct Figure {
    Genre genre = Genre::Trait;
    Chemin chemin;
    double hauteur = 0; // of capitals, for texts
};

struct Insertion {
    std::string bloc;
    Matrice place;
    int colonnes = 1, rangees = 1;
    double pas_x = 0, pas_y = 0;
};

struct Entite {
    Aspect aspect;
    std::variant<Figure, Insertion> contenu;
};

struct Bloc {
    Point base;
    std::vector<Entite> entites;
};

struct Calque {
    int couleur = 7;
    int rgb = kSansRgb;
    std::string trait = "CONTINUOUS";
    int poids = 0;
    bool visible = true;
};

using Compte = std::map<std::string, int>; // how many of each kind

// Names are kept in capitals: drawings do not tell them apart otherwise.
struct Brut {
    std::map<std::string, Calque> calques;
    std::map<std::string, std::vector<double>> motifs; // dashes of the line types
    std::map<std::string, Bloc> blocs;
    std::vector<Entite> entites;
    Compte non_dessinees;
    int unites = 0; // of the drawing, as files number them
    std::vector<std::string> remarques;
};

// --- as it is drawn -----------------------------------------------------------------------------------------------

struct Objet {
    Boite boite;
    Trace chemin;
    double hauteur = 0;
    int couleur = 0;    // index into Dessin::couleurs
    int calque = 0;     // index into Dessin::calques
    float courbure = 0; // of the path, or a little more
    Genre genre = Genre::Trait;
    std::uint8_t trait = 0;     // GRX_TRAIT_...
    std::uint8_t epaisseur = 0; // line-width index
};

constexpr double kTextesMax = 2; // times larger than in the drawing that texts may be shown

// A layer that has something on it, and whether the user wants to see it.
struct CalqueVu {
    std::string nom;
    bool visible = true;
};

struct Dessin {
    std::vector<Objet> objets; // in the order in which they are drawn
    Classeur chemins;          // of the objects
    Index index;               // of the objects, room for the largest texts included
    std::vector<CalqueVu> calques;
    std::vector<Rgb> couleurs; // the most used ones first
    Boite boite;
    int unites = 0;
    Compte non_dessinees;
    std::vector<std::string> remarques;
};

// Colours for a dark sheet.
constexpr Rgb kFond{22, 27, 34};
constexpr Rgb kAvantPlan{236, 238, 240};

// Puts every insertion in the place of its block, settles what layers and blocks pass on, and sorts. A block within
// itself is left out; a drawing without end is cut, which is remarked.
// suivi is told how far it is.
Dessin eclate(const Brut& brut, Suivi& suivi);

} // namespace atelier

#endif
