// The application: it starts the library, makes the windows, and reads events, which it hands to its parts one after the
// other until one takes them. What the parts do not take is a function to perform, or nothing.
//
// The parts, each with its own state: the sheet (Feuille), the tools beside it (Outils), the status strip below it
// (Bandeau), the windows around (Annexes), what is done with files (Fichiers), the title and border of the window
// (Decorations), its menus (EtatMenus), the notes (Carnet), and the Journal. They share the Plan and know nothing of the application: what concerns another part
// they answer, as a Suite.
#ifndef ATELIER_ATELIER_H
#define ATELIER_ATELIER_H

#include <filesystem>
#include <string>

#include "annexes.h"
#include "bandeau.h"
#include "carnet.h"
#include "decorations.h"
#include "etat_menus.h"
#include "feuille.h"
#include "fichiers.h"
#include "journal.h"
#include "outils.h"
#include "plan.h"
#include "xt_ent_t.h"

namespace atelier {

struct Taille {
    int largeur = 0, hauteur = 0; // 0 = as the screen suggests
};

class Atelier {
  public:
    // chemin: file of the drawing; icones: folder of the icons; panneaux: the panels, which live as long as this.
    Atelier(Dessin dessin, const std::filesystem::path& chemin, std::string icones, Panneaux& panneaux);

    // Starts the library and makes the windows. Returns false, with a message on stderr, when that fails.
    bool ouvre(Taille taille);

    // Works until the user is done. Returns the exit code.
    int boucle();

  private:
    bool cree_fenetres(Taille taille);
    bool cree_principale(Taille taille);

    // --- events and functions ---
    void traite(const GRX_EVENEMENT& e);
    bool parts_prennent(const GRX_EVENEMENT& e);
    void action(INT fonction);
    bool parts_font(INT fonction);
    bool fichiers_font(INT fonction);
    bool aide(const GRX_EVENEMENT& e);
    void depot();
    void suit_annexes(Suite suite);
    void suit_outils(Suite suite);
    void ouvre_plan();
    void prend_plan(Fichiers::Ouvert ouvert);
    bool reprend();
    void ferme();

    // --- what the user sees, once all waiting events were handled ---
    void rafraichit();
    void montre_titre();
    void montre_menus();
    void montre_bandeau();
    // Shown in the strips until the user does something else.
    void dit(const std::string& message) { message_ = message; }

    void note(const GRX_EVENEMENT& e);
    void note_etat();

    Plan plan_;
    Feuille feuille_;
    Outils outils_;
    Bandeau bandeau_;
    Annexes annexes_;
    Fichiers fichiers_;
    Carnet carnet_;
    Decorations decorations_;
    EtatMenus menus_;
    Journal journal_;

    std::string icones_;
    INT principale_ = -1;
    INT fonction_ = -1; // the last one
    std::string message_, titre_;
    bool fini_ = false;
};

} // namespace atelier

#endif
