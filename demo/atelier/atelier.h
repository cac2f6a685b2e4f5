// The application: its windows, what the mouse and the keys do, its loop.
#ifndef ATELIER_ATELIER_H
#define ATELIER_ATELIER_H

#include <optional>
#include <string>
#include <vector>

#include "bandeau.h"
#include "dessin.h"
#include "outils.h"
#include "vue.h"
#include "xt_ent_t.h"

namespace atelier {

struct Taille {
    int largeur = 0, hauteur = 0; // 0 = as the screen suggests
};

class Atelier {
  public:
    // icones: folder of the icons.
    Atelier(Dessin dessin, std::string nom, std::string icones);

    // Starts the library and makes the windows. Returns false, with a message on stderr, when that fails.
    bool ouvre(Taille taille);

    // Works until the user is done. Returns the exit code.
    int boucle();

  private:
    bool cree_fenetres(Taille taille);

    void traite(const GRX_EVENEMENT& e);
    void appui(const GRX_BOUTON_APPUI& e);
    void bouge(const GRX_SOURIS_BOUGE& e);
    void relache(const GRX_BOUTON_RELACHE& e);
    void touche(const GRX_CARAC_APPUI& e);
    void action(INT fonction);
    void controle(const GRX_EXEC_FONCTION& e);
    void couche_choisie(const GRX_ELEMENT_CLIQUE& e);
    void montre_couches(bool visibles);
    void change_module(INT module);
    void place_feuille();
    void taille_changee(INT nofen);
    void ferme();

    void debut_elastique(Point p);
    void tend_elastique(Point p);
    void fin_elastique(bool zoome);
    void trace_elastique() const;

    // What the user sees follows once all waiting events were handled.
    void rafraichit();
    void redessine();
    void montre_bandeau();
    void montre_outils();
    void montre_titre();
    double echelle_papier() const;
    std::string texte_position(Point p) const;

    // Pointer events count y from the bottom of the window, drawing counts it from the top.
    Point du_haut(INT x, INT y) const;
    void prend_taille();

    Dessin dessin_;
    std::string nom_;
    std::string titre_;
    Vue vue_;
    std::vector<int> indices_;
    INT principale_ = -1, graphique_ = -1;
    Bandeau bandeau_;
    Outils outils_;
    std::string icones_;
    INT module_ = 0;

    struct Elastique {
        Point coin, oppose;
    };
    std::optional<Elastique> elastique_;
    std::optional<Point> prise_;    // where the hand holds the drawing
    std::optional<Point> pointeur_; // none before the first move
    int hauteur_fenetre_ = 1;
    bool cadree_ = false;
    bool a_redessiner_ = false;
    bool fini_ = false;
};

} // namespace atelier

#endif
