#include "etat_hote.h"

#include <array>
#include <cstdio>
#include <map>

namespace atelier {

namespace {

struct Texte {
    CH80 octets{};
};
static_assert(sizeof(Texte) == sizeof(CH80));

struct Liste {
    std::vector<Texte> textes;
    std::vector<INT> choisies;
};

std::array<double, HOST_NB_ISTATE> rstate{};
std::map<int, Liste> listes;
std::array<CH80*, HOST_NB_LISTES> textes{};
std::array<INT*, HOST_NB_LISTES> choisies{};
std::array<INT, HOST_NB_LISTES> longueurs{}, nombres_choisis{};

bool connu(int indice, std::size_t nombre) {
    return indice >= 0 && static_cast<std::size_t>(indice) < nombre;
}

} // namespace

double reel(int indice) {
    return connu(indice, rstate.size()) ? rstate[static_cast<std::size_t>(indice)] : 0;
}

void pose_reel(int indice, double valeur) {
    if (connu(indice, rstate.size())) rstate[static_cast<std::size_t>(indice)] = valeur;
}

void pose_listes() {
    lsstate = textes.data();
    lcstate = choisies.data();
    lnstate = longueurs.data();
    listate = nombres_choisis.data();
}

void pose_liste(int clef, const std::vector<std::string>& entrees, const std::vector<int>& places) {
    if (!connu(clef, textes.size())) return;
    Liste& liste = listes[clef];
    liste.textes.assign(entrees.size(), {});
    for (std::size_t i = 0; i < entrees.size(); ++i)
        std::snprintf(liste.textes[i].octets, sizeof(CH80), "%s", entrees[i].c_str());
    liste.choisies.assign(places.begin(), places.end());
    const auto i = static_cast<std::size_t>(clef);
    textes[i] = reinterpret_cast<CH80*>(liste.textes.data());
    choisies[i] = liste.choisies.data();
    longueurs[i] = static_cast<INT>(liste.textes.size());
    nombres_choisis[i] = static_cast<INT>(liste.choisies.size());
}

} // namespace atelier
