#include "nomenclature.h"

#include <algorithm>
#include <map>

#include "texte.h"
#include "unites.h"

namespace atelier {

namespace {

double longueur(const Objet& o) {
    constexpr double kPart = 1e-4; // of the object, that lines may leave its curves by
    const double tolerance = std::max(kPart * std::max(o.boite.largeur(), o.boite.hauteur()), 1e-12);
    double somme = 0;
    o.chemin.aplatit({}, tolerance, [&](const std::vector<Point>& trait) {
        for (std::size_t i = 1; i < trait.size(); ++i) somme += norme(trait[i] - trait[i - 1]);
    });
    return somme;
}

const char* nature(const Objet& o) {
    switch (o.genre) {
    case Genre::Plein: return "Surfaces";
    case Genre::Point: return "Points";
    case Genre::Texte: return "Textes";
    case Genre::Trait: break;
    }
    return o.chemin.courbe() ? "Arcs" : "Lignes";
}

std::string groupe(const Dessin& d, const Objet& o, Critere critere) {
    if (critere == Critere::Couche) return d.calques[static_cast<std::size_t>(o.calque)].nom;
    if (critere == Critere::Nature) return nature(o);
    const Rgb c = d.couleurs[static_cast<std::size_t>(o.couleur)];
    return std::to_string(c.rouge) + " " + std::to_string(c.vert) + " " + std::to_string(c.bleu);
}

void compte(LigneTable& l, const Objet& o) {
    switch (o.genre) {
    case Genre::Plein:
    case Genre::Point: ++l.autres; return;
    case Genre::Texte: ++l.textes; return;
    case Genre::Trait: ++(o.chemin.courbe() ? l.arcs : l.lignes);
    }
    l.longueur += longueur(o);
}

void ajoute(LigneTable& somme, const LigneTable& l) {
    somme.lignes += l.lignes;
    somme.arcs += l.arcs;
    somme.textes += l.textes;
    somme.autres += l.autres;
    somme.longueur += l.longueur;
}

} // namespace

std::vector<LigneTable> nomenclature(const Dessin& dessin, Critere critere) {
    std::map<std::string, LigneTable> groupes;
    for (const Objet& o : dessin.objets) compte(groupes[groupe(dessin, o, critere)], o);
    std::vector<LigneTable> r;
    LigneTable somme;
    somme.nom = "Total";
    for (auto& [nom, ligne] : groupes) {
        ligne.nom = nom;
        ajoute(somme, ligne);
        r.push_back(ligne);
    }
    r.push_back(somme);
    return r;
}

std::string case_(const LigneTable& l, std::size_t colonne, const Mesure& mesure) {
    constexpr int kDecimales = 2;
    const std::array<std::string, kColonnes.size()> textes{l.nom, std::to_string(l.lignes), std::to_string(l.arcs),
        std::to_string(l.textes), std::to_string(l.autres),
        nombre(l.longueur * mesure.facteur, kDecimales) + mesure.symbole};
    return textes[colonne];
}

std::string aligne(std::string texte, std::size_t colonne) {
    const auto place = static_cast<std::size_t>(kColonnes[colonne].caracteres) - 2;
    const std::size_t longueur = en_unicode(texte).size();
    if (longueur > place) texte.resize(place);
    const std::string blancs(place - std::min(longueur, place), ' ');
    return colonne == 0 ? " " + texte + blancs + " " : " " + blancs + texte + " ";
}

std::string texte_nomenclature(const std::string& entete, const std::vector<LigneTable>& lignes, const Mesure& mesure) {
    std::string r = entete + "\n\n";
    const auto ajoute_ligne = [&](auto&& texte) {
        for (std::size_t i = 0; i < kColonnes.size(); ++i) r += aligne(texte(i), i);
        r += '\n';
    };
    ajoute_ligne([](std::size_t i) { return std::string(kColonnes[i].titre); });
    for (const LigneTable& l : lignes) ajoute_ligne([&](std::size_t i) { return case_(l, i, mesure); });
    return r;
}

} // namespace atelier
