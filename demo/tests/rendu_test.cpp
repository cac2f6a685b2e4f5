// Pictures of drawings, on the display of the environment: moved ones and those drawn anew are the same.
#include <gtest/gtest.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstdio>
#include <cstring>

#include "dxf_lecture.h"
#include "glissement.h"
#include "palette.h"
#include "rendu.h"
#include "xt_f.h"

namespace atelier {

namespace {

constexpr int kLargeur = 701, kHauteur = 503;
INT fenetre = -1;

class Ecran : public testing::Environment {
  public:
    void SetUp() override {
        ASSERT_EQ(grx_alloue_base_fenetres(), 0);
        ASSERT_EQ(grx_alloue_base_boutons(), 0);
        grx_initialise_globales();
        pose_reserve();
        ASSERT_EQ(grx_init_application(), 1);
        GRX_FENETRE f;
        grx_init_fenetre(&f);
        f.type = GRX_FEN_GRAPHIQUE;
        f.droite = kLargeur;
        f.haut = kHauteur;
        ASSERT_EQ(grx_cree_fenetre(&f), 0);
        fenetre = f.nofen;
        grx_attend_creation_fenetre(fenetre);
        grx_affecte_nofen_active(fenetre);
    }
};

const auto* const ecran = testing::AddGlobalTestEnvironment(new Ecran);

std::string genere(int entites, int graine) {
    const std::string commande = "python3 '" ATELIER_PLANS "/dessine_quartier.py' --graine " + std::to_string(graine)
                                 + " " + std::to_string(entites);
    std::string r;
    std::FILE* const f = popen(commande.c_str(), "r");
    for (int c = std::fgetc(f); c != EOF; c = std::fgetc(f)) r += static_cast<char>(c);
    return pclose(f) == 0 ? r : "";
}

const Dessin& quartier() {
    static const Dessin dessin = lit_texte(genere(4000, 3));
    return dessin;
}

const Dessin& maison() {
    static const Dessin dessin = lit_dessin(ATELIER_PLANS "/maison.dxf");
    return dessin;
}

using Image = std::vector<unsigned long>;

Image image() {
    STRUCTURE_FENETRE* f = nullptr;
    grx_recup_structure_fenetre(fenetre, &f);
    XImage* const x = XGetImage(x11_disp, *f->image, 0, 0, kLargeur, kHauteur, AllPlanes, ZPixmap);
    Image r;
    for (int j = 0; j < kHauteur; ++j)
        for (int i = 0; i < kLargeur; ++i) r.push_back(XGetPixel(x, i, j));
    XDestroyImage(x);
    return r;
}

std::size_t differents(const Image& a, const Image& b) {
    std::size_t r = 0;
    for (std::size_t i = 0; i < a.size(); ++i) r += a[i] != b[i] ? 1 : 0;
    return r;
}

// How much is drawn at all: pixels of other colours than the first one.
std::size_t dessines(const Image& a) {
    return a.size() - static_cast<std::size_t>(std::ranges::count(a, a.front()));
}

struct Reglage {
    double textes = 1;
    double pas_grille = 0; // none
};

class Table {
  public:
    Table(const Dessin& dessin, Reglage reglage)
        : dessin_(dessin), indices_(pose_couleurs(dessin.couleurs)), reglage_(reglage) {}

    void trace(const Vue& vue, const Boite& partie) const {
        grx_alloue_image(fenetre);
        Plume plume{fenetre, {}};
        plume.attrib.coul_trace = kCoulFilet;
        plume.attrib.type_trait = GRX_TRAIT_MIXTE_1_POINT;
        if (reglage_.pas_grille > 0) trace_grille(plume, vue, reglage_.pas_grille);
        trace_dessin({fenetre, dessin_, indices_, reglage_.textes}, vue, partie);
        grx_desalloue_image();
    }
    void neuve(const Vue& vue) const { trace(vue, tout_l_ecran(vue)); }
    bool glisse(const Vue& avant, const Vue& vue) const {
        const auto ecart = vue.deplacement_depuis(avant);
        const auto parties = ecart ? glisse_image(fenetre, *ecart) : std::nullopt;
        if (!parties) return false;
        for (const Boite& partie : *parties) {
            const Decoupe decoupe(fenetre, partie);
            trace(vue, partie);
        }
        return true;
    }
    const std::vector<int>& indices() const { return indices_; }

  private:
    const Dessin& dessin_;
    std::vector<int> indices_;
    Reglage reglage_;
};

Vue vue_de(const Dessin& dessin, double zoom, Point ecran) {
    Vue vue;
    vue.taille(kLargeur, kHauteur);
    vue.cadre_tout(dessin.boite);
    vue.zoome(zoom, ecran);
    return vue;
}

struct Cas {
    const Dessin& (*dessin)();
    double zoom;
    Reglage reglage;
};

// Each object by itself, in the same order, without anything left out.
void trace_un_par_un(const Dessin& dessin, const std::vector<int>& indices, const Vue& vue) {
    grx_alloue_image(fenetre);
    for (std::size_t i = 0; i < dessin.objets.size(); ++i) {
        const Objet& o = dessin.objets[i];
        if (o.genre == Genre::Point || o.genre == Genre::Texte) continue;
        Plume plume{fenetre, {}};
        plume.attrib.coul_trace = indices[static_cast<std::size_t>(o.couleur)];
        plume.attrib.type_trait = o.trait;
        plume.attrib.epaisseur = o.epaisseur;
        std::vector<GRX_POINT_POLY> p;
        o.chemin.aplatit(vue.vers_ecran(), 0.2, [&](const std::vector<Point>& trait) {
            for (const Point q : trait)
                p.push_back({static_cast<short>(std::lround(q.x)), static_cast<short>(std::lround(q.y))});
        });
        const auto meme = [](GRX_POINT_POLY a, GRX_POINT_POLY b) { return a.x == b.x && a.y == b.y; };
        p.erase(std::unique(p.begin(), p.end(), meme), p.end());
        GRX_POLY poly{};
        poly.nofen = fenetre;
        poly.attrib = plume.attrib;
        if (p.size() > 2 && o.genre == Genre::Plein) {
            poly.points = p.data();
            poly.npoints = static_cast<INT>(p.size());
            grx_remplit_polygone(poly);
        }
        if (p.size() == 1 || o.genre == Genre::Plein) p.push_back(GRX_POINT_POLY(p.front()));
        const bool point = p.size() == 2 && meme(p[0], p[1]);
        if (point) {
            GRX_POINT un{};
            un.nofen = fenetre;
            un.x = p[0].x;
            un.y = p[0].y;
            un.attrib = plume.attrib;
            grx_trace_point(un);
            continue;
        }
        poly.points = p.data();
        poly.npoints = static_cast<INT>(p.size());
        grx_trace_polyline(poly);
    }
    grx_desalloue_image();
}

} // namespace

TEST(Rendu, AMovedPictureIsTheOneDrawnAnew) {
    const Cas cas[] = {{quartier, 1, {}}, {quartier, 0.2, {}}, {quartier, 9, {2, 1000}}, {quartier, 60, {0.5, 100}},
        {maison, 1, {1.4, 500}}, {maison, 7, {}}};
    constexpr Ecart kPas[] = {{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {14, 8}, {-37, 120}, {300, -250}, {-kLargeur + 1, 3},
        {-5, -kHauteur + 1}, {64, 64}};
    for (const Cas& c : cas) {
        const Table table(c.dessin(), c.reglage);
        Vue vue = vue_de(c.dessin(), c.zoom, {200, 320});
        table.neuve(vue);
        for (const Ecart pas : kPas) {
            const Vue avant = vue;
            vue.deplace({1.0 * pas.x, 1.0 * pas.y});
            if (!table.glisse(avant, vue)) table.neuve(vue);
            const Image glissee = image();
            table.neuve(vue);
            ASSERT_EQ(differents(glissee, image()), 0U) << c.zoom << ' ' << pas.x << ' ' << pas.y;
        }
    }
}

TEST(Rendu, WhatIsDrawnOnceLooksAsDrawnOverAndOver) {
    const Cas cas[] = {
        {quartier, 1, {}}, {quartier, 0.1, {}}, {quartier, 0.01, {}}, {maison, 1, {}}, {maison, 0.1, {}}};
    for (const auto& [dessin, zoom, reglage] : cas) {
        Dessin sans_textes = lit_texte("0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n");
        const Dessin& tout = dessin();
        std::vector<Boite> boites;
        for (const Objet& o : tout.objets)
            if (o.genre != Genre::Point && o.genre != Genre::Texte) {
                sans_textes.objets.push_back(o);
                boites.push_back(o.boite);
            }
        sans_textes.calques = tout.calques;
        sans_textes.couleurs = tout.couleurs;
        sans_textes.index = Index(boites);
        const Table table(sans_textes, reglage);
        const Vue vue = vue_de(tout, zoom, {350, 250});
        trace_un_par_un(sans_textes, table.indices(), vue);
        const Image une_par_une = image();
        EXPECT_GT(dessines(une_par_une), zoom > 0.05 ? 500U : 10U);
        table.neuve(vue);
        EXPECT_EQ(differents(une_par_une, image()), 0U) << zoom;
    }
}

TEST(Rendu, LinesThatEndAtOnePointBeyondTheLeftEdgeAreAllDrawn) {
    std::string texte = "0\nSECTION\n2\nENTITIES\n";
    for (int i = 0; i < 20; ++i)
        texte += "0\nLINE\n8\n0\n10\n100\n20\n" + std::to_string(10 * i) + "\n11\n-100\n21\n100\n";
    const Dessin dessin = lit_texte(texte + "0\nENDSEC\n0\nEOF\n");
    const Vue vue = vue_de(dessin, 2, {350, 250});
    const Table table(dessin, {});
    trace_un_par_un(dessin, table.indices(), vue);
    const Image une_par_une = image();
    EXPECT_GT(dessines(une_par_une), 1000U);
    table.neuve(vue);
    EXPECT_EQ(differents(une_par_une, image()), 0U);
}

TEST(Rendu, AHiddenLayerIsNotDrawn) {
    Dessin dessin = lit_texte(genere(500, 3));
    const Vue vue = vue_de(dessin, 1, {0, 0});
    Table(dessin, {}).neuve(vue);
    EXPECT_GT(dessines(image()), 1000U);
    for (CalqueVu& calque : dessin.calques) calque.visible = false;
    Table(dessin, {}).neuve(vue);
    EXPECT_EQ(dessines(image()), 0U);
}

TEST(Rendu, APartLeavesTheRestAsItWas) {
    const Table table(quartier(), {});
    const Vue vue = vue_de(quartier(), 3, {300, 300});
    table.neuve(vue);
    const Image avant = image();
    Vue ailleurs = vue;
    ailleurs.zoome(2, {10, 10});
    const Boite partie{{300, 200}, {400, 280}};
    {
        const Decoupe decoupe(fenetre, partie);
        table.trace(ailleurs, partie);
    }
    const Image apres = image();
    EXPECT_NE(avant, apres);
    for (std::size_t i = 0; i < avant.size(); ++i) {
        const int x = static_cast<int>(i % kLargeur), y = static_cast<int>(i / kLargeur);
        const bool dedans = x >= 300 && x < 400 && y >= 200 && y < 280;
        ASSERT_TRUE(dedans || avant[i] == apres[i]) << x << ' ' << y;
    }
}

TEST(Quartier, HasExactlyTheEntitiesAskedForAndIsDrawnWhole) {
    for (const int n : {1, 2, 77, 2500}) {
        const std::string texte = genere(n, 5);
        const std::size_t debut = texte.find("ENTITIES");
        ASSERT_NE(debut, std::string::npos);
        int entites = 0;
        for (std::size_t i = texte.find("\n8\n", debut); i != std::string::npos; i = texte.find("\n8\n", i + 1))
            ++entites;
        EXPECT_EQ(entites, n);
        const Dessin d = lit_texte(texte);
        EXPECT_TRUE(d.non_dessinees.empty()) << bilan(d.non_dessinees);
        EXPECT_TRUE(d.remarques.empty());
        EXPECT_GE(d.objets.size(), static_cast<std::size_t>(n));
    }
    EXPECT_EQ(genere(300, 5), genere(300, 5));
    EXPECT_NE(genere(300, 5), genere(300, 6));
    const Dessin& d = quartier();
    EXPECT_GE(d.calques.size(), 12U);
    EXPECT_GE(d.couleurs.size(), 12U);
}

} // namespace atelier
