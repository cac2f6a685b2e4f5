// Kinds of windows, the window that one belongs to and marks of places, as the application sets them.
#include "tests/display/windows/manners_kit.h"
#include "tests/support/counters.h"

#include <climits>

namespace {

using namespace grxtest;

class WindowManners : public Creation {
  protected:
    long master(INT nofen) {
        const Property told = property_of(test_display(), shell_window(nofen), "WM_TRANSIENT_FOR");
        return told.there ? told.longs.front() : 0;
    }
    static long id(INT nofen) { return static_cast<long>(shell_window(nofen)); }
};

TEST_F(WindowManners, EveryKindHasItsName) {
    const INT top = make(GRX_FEN_ALPHA);
    const std::pair<INT, const char*> kinds[] = {{GRX_GENRE_NORMALE, "_NET_WM_WINDOW_TYPE_NORMAL"},
        {GRX_GENRE_DIALOGUE, "_NET_WM_WINDOW_TYPE_DIALOG"}, {GRX_GENRE_UTILITAIRE, "_NET_WM_WINDOW_TYPE_UTILITY"},
        {GRX_GENRE_OUTILS, "_NET_WM_WINDOW_TYPE_TOOLBAR"}, {GRX_GENRE_MENU, "_NET_WM_WINDOW_TYPE_MENU"},
        {GRX_GENRE_ACCUEIL, "_NET_WM_WINDOW_TYPE_SPLASH"}};
    EXPECT_FALSE(property_of(test_display(), shell_window(top), "_NET_WM_WINDOW_TYPE").there);
    for (const auto& [kind, name] : kinds) {
        EXPECT_EQ(grx_affecte_genre_fenetre(top, kind), 1);
        EXPECT_EQ(atoms_in(test_display(), shell_window(top), "_NET_WM_WINDOW_TYPE"), std::vector<std::string>{name});
    }
    Cost cost(x11_disp);
    grx_affecte_genre_fenetre(top, GRX_GENRE_DIALOGUE);
    EXPECT_EQ(cost.requests(), 1U);
    EXPECT_EQ(cost.round_trips(), 0U);
}

TEST_F(WindowManners, AWindowBelongsToAnother) {
    const INT a = make(GRX_FEN_ALPHA), b = make(GRX_FEN_ALPHA), c = make(GRX_FEN_ALPHA);
    EXPECT_EQ(grx_rattache_fenetre(b, a), 1);
    EXPECT_EQ(grx_rattache_fenetre(c, b), 1);
    EXPECT_EQ(master(b), id(a));
    EXPECT_EQ(master(c), id(b));
    EXPECT_EQ(grx_rattache_fenetre(a, c), GRX_ECHEC_PARAMETRE) << "in a circle";
    EXPECT_EQ(grx_rattache_fenetre(a, b), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_rattache_fenetre(a, a), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(master(a), 0);
    EXPECT_EQ(grx_rattache_fenetre(b, GRX_AUCUN), 1);
    EXPECT_EQ(master(b), 0);
    EXPECT_EQ(grx_rattache_fenetre(a, c), 1) << "the circle is open";
    EXPECT_EQ(grx_rattache_fenetre(a, GRX_AUCUN), 1);
    EXPECT_EQ(grx_rattache_fenetre(a, GRX_AUCUN), 1);
}

TEST_F(WindowManners, AWindowWithAParentCanBelongToAnother) {
    const INT a = make(GRX_FEN_ALPHA), b = make(GRX_FEN_ALPHA);
    GRX_FENETRE window = described(GRX_FEN_ALPHA);
    window.fen_mere = a;
    const INT child = make(window);
    EXPECT_EQ(master(child), id(a));
    EXPECT_EQ(grx_rattache_fenetre(child, b), 1);
    EXPECT_EQ(master(child), id(b));
    grx_cache_fenetre(child);
    grx_affiche_fenetre(child);
    ASSERT_TRUE(wait_visible(widget_of(child)));
    EXPECT_EQ(master(child), id(b)) << "also when it is shown again";
}

TEST_F(WindowManners, MarksOfPlacesAreSet) {
    const INT top = make(GRX_FEN_ALPHA);
    const std::pair<INT, long> marks[] = {{GRX_PLACE_LIBRE, 0}, {GRX_PLACE_PROGRAMME, PPosition},
        {GRX_PLACE_UTILISATEUR, USPosition}, {GRX_PLACE_LIBRE, 0}};
    for (const auto& [mark, flags] : marks) {
        EXPECT_EQ(grx_marque_place_fenetre(top, mark), 1);
        EXPECT_EQ(position_flags(test_display(), top), flags);
    }
    grx_change_taille_fenetre(top, 300, 250);
    EXPECT_EQ(position_flags(test_display(), top), PPosition) << "a window that is resized stays where it is";
    EXPECT_EQ(area(top), (Area{100, 120, 300, 250}));
}

TEST_F(WindowManners, WhatIsRefused) {
    const INT top = make(GRX_FEN_ALPHA);
    const INT nested = make(nested_in(top, GRX_FEN_GRAPHIQUE));
    for (INT n : {0, -1, -2, 99, 100, INT_MAX, INT_MIN}) {
        EXPECT_EQ(grx_affecte_genre_fenetre(n, GRX_GENRE_NORMALE), GRX_ECHEC_NUMERO) << n;
        EXPECT_EQ(grx_rattache_fenetre(n, top), GRX_ECHEC_NUMERO) << n;
        EXPECT_EQ(grx_marque_place_fenetre(n, GRX_PLACE_LIBRE), GRX_ECHEC_NUMERO) << n;
        if (n != GRX_AUCUN) EXPECT_EQ(grx_rattache_fenetre(top, n), GRX_ECHEC_NUMERO) << n;
    }
    EXPECT_EQ(grx_affecte_genre_fenetre(nested, GRX_GENRE_NORMALE), GRX_ECHEC_GENRE);
    EXPECT_EQ(grx_rattache_fenetre(nested, top), GRX_ECHEC_GENRE);
    EXPECT_EQ(grx_rattache_fenetre(top, nested), GRX_ECHEC_GENRE);
    EXPECT_EQ(grx_marque_place_fenetre(nested, GRX_PLACE_LIBRE), GRX_ECHEC_GENRE);
    for (INT bad : {-1, 0, 7, INT_MAX, INT_MIN}) EXPECT_EQ(grx_affecte_genre_fenetre(top, bad), GRX_ECHEC_PARAMETRE);
    for (INT bad : {-1, 3, INT_MAX, INT_MIN}) EXPECT_EQ(grx_marque_place_fenetre(top, bad), GRX_ECHEC_PARAMETRE);
    EXPECT_FALSE(property_of(test_display(), shell_window(top), "_NET_WM_WINDOW_TYPE").there);
    grx_detruit_fenetre(top);
    drain();
    EXPECT_EQ(grx_affecte_genre_fenetre(top, GRX_GENRE_NORMALE), GRX_ECHEC_NUMERO);
    EXPECT_EQ(grx_centre_fenetre(top, GRX_AUCUN), GRX_ECHEC_NUMERO);
}

} // namespace
