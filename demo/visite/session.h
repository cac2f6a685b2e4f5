// atelier in use: the program that runs, its window, and what hands and eyes do with it. A check that fails throws what
// was expected and what was seen.
#ifndef VISITE_SESSION_H
#define VISITE_SESSION_H

#include <optional>
#include <random>

#include "clavier.h"
#include "ecran.h"
#include "lieux.h"
#include "menus.h"
#include "programme.h"

namespace visite {

struct Options {
    std::string programme;
    std::filesystem::path photos, place;
    int secondes = 60;
    unsigned graine = 1;
    std::string combinaison;
    int groupe = 0;
    std::vector<KeySym> verrous;
    std::string seule; // the one step to play
};

class Session {
  public:
    explicit Session(Options o);

    // --- the program ---

    void lance();
    bool lancee() const { return programme_.has_value(); }
    void remet();
    void tranquille();
    Programme& programme() { return *programme_; }
    std::string etat(const std::string& nom) { return programme_->etat(nom); }
    Window fenetre() const { return fenetre_; }
    std::filesystem::path place() const { return o_.place; }
    bool gestionnaire() const { return gestionnaire_; }

    Ecran& ecran() { return ecran_; }
    Clavier& clavier() { return clavier_; }
    Menus& menus() { return menus_; }

    // --- checks ---

    void attend_egal(const std::string& quoi, const std::string& voulu, const std::function<std::string()>& vu);
    void egal(const std::string& quoi, const std::string& voulu, const std::string& vu);
    // Exactly one line of the journal that begins so, and no action besides.
    void une_fois(const std::string& ligne, const std::function<void()>& geste, bool action_aussi = false);
    void aucune_action(const std::function<void()>& geste);
    // The gesture changes what the journal says of this.
    void autre(const std::string& nom, const std::function<void()>& geste);
    void sentinelle();

    // --- windows ---

    std::vector<Window> fenetres() const;
    // Waits for a window by a part of its title, all of it and on the screen.
    Window ouverte(const std::string& titre);
    void fermee(const std::string& titre);
    Cadre calme_place(Window w) const;
    Cadre feuille() const;

    // --- gestures ---

    void prend_clavier();
    void clavier_a(Window w);
    void clic(Window w, Pixels p);
    void clic_outil(Pixels p);
    void clic_panneau(Window w, Place p);
    void demande_fermeture(Window w);
    // The field that is clicked holds exactly what is typed.
    void remplit(const std::string& champ, const std::function<void()>& clic_dedans, const std::string& texte);

    // --- chance and pictures ---

    std::mt19937& generateur() { return hasard_; }
    int au_plus(int n);
    // Capitals, digits, signs and accents that the keyboard has.
    std::string hasard(int longueur);
    // The first two of each name are kept.
    void photo(const std::string& nom);

  private:
    bool a_un_gestionnaire() const;
    void a_sa_place(const std::string& titre, Window w);
    void va_sur_la_feuille();
    std::string pointeur() const;

    Options o_;
    Ecran ecran_;
    Clavier clavier_;
    Menus menus_;
    std::mt19937 hasard_;
    std::optional<Programme> programme_;
    Window fenetre_ = None;
    bool gestionnaire_ = false;
    std::string plaintes_;
    std::map<std::string, int> photos_;
};

} // namespace visite

#endif
