// The parts table.
#include <gtest/gtest.h>

#include <numbers>

#include "couleurs.h"
#include "dxf_lecture.h"
#include "nomenclature.h"

namespace atelier {

namespace {

Classeur classeur; // of the paths of all tests

Objet objet(Genre genre, int calque, int couleur, const Chemin& chemin) {
    Objet o;
    o.genre = genre;
    o.calque = calque;
    o.couleur = couleur;
    o.chemin = classeur.garde(chemin);
    o.boite = chemin.boite();
    return o;
}

Chemin ligne(Point p, Point q) {
    Chemin c;
    c.aller(p);
    c.ligne(q);
    return c;
}

Chemin cercle(double rayon) {
    Chemin c;
    c.arc({}, {rayon, 0}, {0, rayon}, 0, 2 * std::numbers::pi);
    return c;
}

Dessin petit() {
    Dessin d;
    d.calques = {{"MURS", true}, {"AXES", false}};
    d.couleurs = {{255, 0, 0}, {9, 90, 200}};
    d.objets = {objet(Genre::Trait, 0, 0, ligne({0, 0}, {3, 4})), objet(Genre::Trait, 0, 1, cercle(2)),
        objet(Genre::Texte, 1, 0, ligne({0, 0}, {9, 9})), objet(Genre::Plein, 0, 0, ligne({0, 0}, {1, 1})),
        objet(Genre::Trait, 1, 0, ligne({1, 1}, {1, 8}))};
    return d;
}

void attend(const LigneTable& l, const char* nom, std::array<int, 4> comptes, double longueur) {
    EXPECT_EQ(l.nom, nom);
    EXPECT_EQ((std::array{l.lignes, l.arcs, l.textes, l.autres}), comptes) << nom;
    EXPECT_NEAR(l.longueur, longueur, 1e-2) << nom;
}

} // namespace

TEST(Nomenclature, CountsByLayer) {
    const auto t = nomenclature(petit(), Critere::Couche);
    ASSERT_EQ(t.size(), 3U);
    attend(t[0], "AXES", {1, 0, 1, 0}, 7);
    attend(t[1], "MURS", {1, 1, 0, 1}, 5 + 4 * std::numbers::pi);
    attend(t[2], "Total", {2, 1, 1, 1}, 12 + 4 * std::numbers::pi);
}

TEST(Nomenclature, CountsByKindAndByColour) {
    const auto nature = nomenclature(petit(), Critere::Nature);
    ASSERT_EQ(nature.size(), 5U);
    attend(nature[0], "Arcs", {0, 1, 0, 0}, 4 * std::numbers::pi);
    attend(nature[1], "Lignes", {2, 0, 0, 0}, 12);
    attend(nature[2], "Surfaces", {0, 0, 0, 1}, 0);
    attend(nature[3], "Textes", {0, 0, 1, 0}, 0);
    const auto couleur = nomenclature(petit(), Critere::Couleur);
    ASSERT_EQ(couleur.size(), 3U);
    attend(couleur[0], "255 0 0", {2, 0, 1, 1}, 12);
    attend(couleur[1], "9 90 200", {0, 1, 0, 0}, 4 * std::numbers::pi);
}

TEST(Nomenclature, OfNothingIsTheSumOfNothing) {
    const auto t = nomenclature({}, Critere::Couche);
    ASSERT_EQ(t.size(), 1U);
    attend(t[0], "Total", {0, 0, 0, 0}, 0);
}

TEST(Nomenclature, AllWaysOfCountingAgreeOnThePlan) {
    const Dessin plan = lit_dessin(ATELIER_PLAN);
    const LigneTable somme = nomenclature(plan, Critere::Couche).back();
    EXPECT_EQ(static_cast<std::size_t>(somme.lignes + somme.arcs + somme.textes + somme.autres), plan.objets.size());
    for (const Critere c : {Critere::Nature, Critere::Couleur})
        attend(nomenclature(plan, c).back(), "Total", {somme.lignes, somme.arcs, somme.textes, somme.autres},
            somme.longueur);
}

TEST(Nomenclature, AsText) {
    const std::vector<LigneTable> lignes{{"MURS", 12, 3, 0, 1, 2500}, {"Total", 12, 3, 0, 1, 2500}};
    const std::string texte = texte_nomenclature("Plan A", lignes, {0.001, " m"});
    EXPECT_EQ(texte, "Plan A\n\n"
                     " Groupe                   Lignes     Arcs   Textes   Autres          Longueur \n"
                     " MURS                         12        3        0        1            2.50 m \n"
                     " Total                        12        3        0        1            2.50 m \n");
}

TEST(Nomenclature, ALongNameIsCutToItsColumn) {
    const std::string nom(60, 'N');
    EXPECT_EQ(aligne(nom, 0), " " + nom.substr(0, 22) + " ");
    EXPECT_EQ(aligne("7", 1), "       7 ");
}

TEST(Couleurs, ALayerHasTheColourOfMostOfItsObjects) {
    Dessin d = petit();
    EXPECT_EQ(couleur_du_calque(d, 0), 0);
    d.objets.push_back(objet(Genre::Trait, 0, 1, ligne({0, 0}, {1, 0})));
    d.objets.push_back(objet(Genre::Trait, 0, 1, ligne({0, 0}, {2, 0})));
    EXPECT_EQ(couleur_du_calque(d, 0), 1);
    EXPECT_EQ(couleur_du_calque(d, 1), 0);
    EXPECT_EQ(couleur_du_calque(d, 7), -1);
    EXPECT_EQ(couleur_du_calque(d, -1), -1);
    EXPECT_EQ(couleur_du_calque(Dessin{}, 0), -1);
}

} // namespace atelier
