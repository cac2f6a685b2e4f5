// The application: its windows, what the mouse and the keys do, its loop.
#ifndef ATELIER_ATELIER_H
#define ATELIER_ATELIER_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "apercu.h"
#include "bande_info.h"
#include "bandeau.h"
#include "dessin.h"
#include "journal.h"
#include "outils.h"
#include "panneau_couches.h"
#include "panneau_reglages.h"
#include "panneau_table.h"
#include "panneaux_lecture.h"
#include "reglages.h"
#include "vue.h"
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

    void traite(const GRX_EVENEMENT& e);
    void appui(const GRX_BOUTON_APPUI& e);
    void bouge(const GRX_SOURIS_BOUGE& e);
    void relache(const GRX_BOUTON_RELACHE& e);
    void touche(const GRX_CARAC_APPUI& e);
    void action(INT fonction);
    void controle(const GRX_EXEC_FONCTION& e);
    void element_choisi(const GRX_ELEMENT_CLIQUE& e);
    void couche_choisie(const GRX_ELEMENT_CLIQUE& e);
    void montre_couches(bool visibles);
    void change_module(INT module);
    void place_feuille();
    // --- panels ---
    void prepare_panneaux();
    void ouvre_reglages();
    bool panneau_controle(const GRX_EXEC_FONCTION& e);
    bool panneau_tient(INT nofen) const;
    void panneau_touche(const GRX_CARAC_APPUI& e);
    void applique_reglages();
    void detruite(INT nofen);
    void ferme_panneaux();
    void libere_panneaux();
    std::vector<PlumeNommee> plumes() const;

    // --- files ---
    void ouvre_plan();
    void prend_dessin(Dessin dessin, const std::filesystem::path& chemin);
    Image image_feuille();
    void enregistre_image();
    std::string liste_de_pieces() const;
    void edite_pieces();
    void trace_plan();
    // Shown in the strip until the user does something else.
    void dit(const std::string& message);
    void reprend();

    // --- colours ---
    struct CouleurNommee {
        int indice; // of the screen
        std::string nom;
    };
    CouleurNommee couleur_choisie() const;
    void ouvre_couleurs();
    void suit_choix();
    bool couleurs_prennent(const GRX_EVENEMENT& e);
    void note_couleur(int indice);

    // --- strip and decorations ---
    void bascule_bande();
    void montre_bande();
    void montre_coordonnees(BandeInfo::Contenu& c, Point p) const;
    bool bande_controle(const GRX_EXEC_FONCTION& e);
    void centre_sur_saisie();
    void bascule_titre();
    void bascule_bord();

    // --- journal ---
    void tient_journal();
    void note(const GRX_EVENEMENT& e);
    void note_etat();

    void taille_changee(INT nofen);
    void ferme();

    void debut_elastique(Point p);
    void tend_elastique(Point p);
    void fin_elastique(bool zoome);
    void trace_elastique() const;

    // What the user sees follows once all waiting events were handled.
    void rafraichit();
    void redessine();
    void glisse();
    void montre_vue();
    static void annonce_image();
    void montre_bandeau();
    void montre_outils();
    void montre_titre();
    double echelle_papier() const;
    std::string texte_position(Point p) const;
    void trace_feuille(const Boite& partie);
    // From coordinates of the drawing to those that the user reads, and how many decimals they need.
    double montre_en() const;
    int decimales() const;

    // Pointer events count y from the bottom of the window, drawing counts it from the top.
    Point du_haut(INT x, INT y) const;
    void prend_taille();

    Journal journal_;
    Dessin dessin_;
    std::filesystem::path chemin_;
    std::filesystem::path repertoire_traces_; // none before the first plot
    std::string nom_;
    std::string message_;
    std::string titre_;
    Vue vue_;
    std::vector<int> indices_;
    INT principale_ = -1, graphique_ = -1;
    Bandeau bandeau_;
    Outils outils_;
    std::string icones_;
    INT module_ = 0;

    Panneaux& panneaux_;
    Reglages reglages_;
    PanneauReglages panneau_reglages_;
    PanneauCouches panneau_couches_;
    PanneauTable panneau_table_;
    BandeInfo bande_;
    INT fonction_ = -1; // the last one
    bool polaire_ = false;
    bool sans_titre_ = false, sans_bord_ = false;
    int calque_choisi_ = -1; // in the list of the tools

    struct Elastique {
        Point coin, oppose;
    };
    std::optional<Elastique> elastique_;
    std::optional<Point> prise_;    // where the hand holds the drawing
    std::optional<Point> pointeur_; // none before the first move
    int hauteur_fenetre_ = 1;
    bool cadree_ = false;
    std::optional<Vue> peinte_; // what the backing picture shows
    bool a_redessiner_ = false; // all of it
    bool a_glisser_ = false;    // or only what a move of the view uncovers
    bool fini_ = false;
};

} // namespace atelier

#endif
