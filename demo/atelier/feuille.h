// The sheet: the window that shows the drawing. The hand moves it, the wheel and a rubber band magnify it; it keeps what
// it shows in a backing picture, and draws of it only what changed.
#ifndef ATELIER_FEUILLE_H
#define ATELIER_FEUILLE_H

#include <optional>
#include <string>

#include "apercu.h"
#include "cotes.h"
#include "elastique.h"
#include "plan.h"
#include "vue.h"
#include "xt_ent_t.h"

namespace atelier {

class Feuille {
  public:
    explicit Feuille(const Plan& plan) : plan_(plan) {}

    // Makes it in window mere, which is so wide, leaving place at the left. Returns false when it cannot be made.
    bool cree(INT mere, int largeur, int gauche);
    bool tient(INT nofen) const { return nofen == nofen_; }
    INT nofen() const { return nofen_; }

    // Takes what the mouse and the arrow keys do to the drawing, and new sizes. Returns false for what is not its own.
    bool prend(const GRX_EVENEMENT& e);
    // Functions of menus, icons and keys. Returns false for those of others.
    bool action(INT fonction);
    // To its place and size in its window, drawn at once.
    void retaille();

    // What is seen of the drawing; points in its coordinates.
    void cadre_tout();
    void centre_sur(Point p);
    void fixe_rapport(double rapport);

    // The picture is out of date: something that it shows changed.
    void perime() { a_redessiner_ = true; }
    // Draws what is out of date. Returns false when nothing was.
    bool peint();
    // For who measures how long pictures take: a line for each, once the server has finished it.
    static void annonce_image();
    // The menu of the right button, where it was pressed.
    void ouvre_menu(const GRX_BOUTON_APPUI& e);
    // Where that was, in the drawing.
    Point point_du_menu() const { return vue_.vers_dessin(menu_); }
    // What it shows at this moment, drawn anew.
    Image image();

    // Before the first size nothing is seen.
    bool montree() const { return cadree_; }
    const Vue& vue() const { return vue_; }
    Cotes cotes() const { return {plan_, vue_.echelle()}; }
    // Where the mouse was last, in pixels of the sheet and in the drawing; nothing before the first move.
    std::optional<Point> pointeur() const { return pointeur_; }
    std::optional<Point> point_montre() const;

  private:
    // --- mouse, keys, sizes ---
    void appui(const GRX_BOUTON_APPUI& e);
    void bouge(const GRX_SOURIS_BOUGE& e);
    bool relache(const GRX_BOUTON_RELACHE& e);
    bool touche(INT carac);
    bool taille_changee(INT nofen);
    void place();
    void prend_taille();
    void zoome_dans(const Boite& pixels);
    std::string cote(Point p) const;
    void mesure();
    Point du_haut(INT x, INT y) const;

    // --- picture ---
    Boite toute() const;
    void redessine();
    void redessine_partie(const Boite& partie);
    void glisse();
    void a_jour();
    void trace(const Boite& partie) const;

    const Plan& plan_;
    INT mere_ = -1, nofen_ = -1;
    int gauche_ = 0, largeur_fenetre_ = 1, hauteur_fenetre_ = 1;

    Vue vue_;
    bool cadree_ = false;
    Elastique elastique_;
    bool a_mesurer_ = false;     // the next rubber band is a line
    Point menu_;                 // of the last menu, in pixels
    std::optional<Point> prise_; // where the hand holds the drawing
    std::optional<Point> pointeur_;

    std::optional<Vue> peinte_; // what the backing picture shows
    bool a_redessiner_ = false; // all of it
    bool a_glisser_ = false;    // or only what a move of the view uncovers
};

} // namespace atelier

#endif
