#include <cmath>
#include <sstream>

#include "etapes.h"

namespace visite::etapes {

namespace {

// Controls of the tools, from the upper left corner of what is below the menu bar.
constexpr Pixels kIconeTout{27, 29}, kIcone2{65, 29}, kIconeMoins{103, 29}, kChampX{120, 113}, kChampY{120, 149},
    kZoomDroite{190, 205}, kZoomGauche{22, 205}, kCouche{80, 264};
constexpr int kPasDeCouche = 16, kCouchesCliquees = 8;

// Of a menu by its title, with the mouse.
void choisit(Session& s, std::size_t titre, int entree) {
    const Cadre menu = s.menus().deroule(s.fenetre(), titre);
    s.photo("menu");
    s.menus().choisit(menu, entree);
}

// Of a menu, by the letters that are underlined.
void choisit_au_clavier(Session& s, char menu, char entree) {
    s.clavier().avec(XK_Alt_L, menu);
    s.menus().attend_un(std::string("le menu de Alt+") + menu);
    s.clavier().seule(entree);
    s.menus().attend_fin();
}

void attend_titres(Session& s, const char* combien) {
    s.attend_egal("titres de menus", combien, [&] { return std::to_string(s.menus().titres(s.fenetre()).size()); });
}

// Escape closes an open menu, and nothing happens.
void renonce(Session& s, const std::function<void()>& ouvre) {
    s.aucune_action([&] {
        ouvre();
        s.ecran().touche(XK_Escape);
        s.menus().attend_fin();
        s.sentinelle();
    });
    s.prend_clavier();
}

void redimensionne(Session& s, int largeur, int hauteur) {
    XResizeWindow(s.ecran().d(), s.fenetre(), static_cast<unsigned>(largeur), static_cast<unsigned>(hauteur));
    XSync(s.ecran().d(), False);
    s.attend_egal("taille de la fenetre", std::to_string(largeur) + "x" + std::to_string(hauteur), [&] {
        const Cadre c = s.ecran().place(s.fenetre());
        return std::to_string(c.largeur) + "x" + std::to_string(c.hauteur);
    });
    s.sentinelle();
}

} // namespace

std::string nombre_court(double v) {
    std::ostringstream s;
    s << v;
    return s.str();
}

void champs(Session& s) {
    const bool x = s.au_plus(1) == 0;
    const std::string champ = x ? "x" : "y", autre = x ? "y" : "x";
    const auto dedans = [&] { s.clic_outil(x ? kChampX : kChampY); };
    s.aucune_action([&] { s.remplit(champ, dedans, s.hasard(9) + kCommandes); });
    const std::string valeur_autre = s.etat(autre);
    const std::string nombre_ = std::to_string(1 + s.au_plus(998));
    s.remplit(champ, dedans, nombre_);
    s.egal("champ " + autre, valeur_autre, s.etat(autre));
    dedans();
    s.une_fois(x ? "controle 501 " : "controle 502 ", [&] { s.ecran().touche(XK_Return); });
    s.attend_egal(
        "valeur de " + champ, nombre_, [&] { return nombre_court(std::round(std::atof(s.etat(champ).c_str()))); });
    s.photo("champs");
    s.prend_clavier();
}

void mots(Session& s) {
    s.remplit(
        "x", [&] { s.clic_outil(kChampX); }, "aa bb cc");
    s.clic_outil(kChampX);
    s.ecran().touche(XK_Home);
    s.ecran().touche(XK_Right, XK_Control_L);
    s.clavier().tape("Z");
    s.attend_egal("champ x apres Ctrl+droite", "aa Zbb cc", [&] { return s.etat("x"); });
    s.prend_clavier();
}

void pave(Session& s) {
    if ((s.clavier().etat() & Mod2Mask) == 0) return;
    s.remplit(
        "y", [&] { s.clic_outil(kChampY); }, "");
    s.clic_outil(kChampY);
    for (const KeySym k : {XK_KP_1, XK_KP_0, XK_KP_7}) s.ecran().touche(k);
    s.attend_egal("champ y du pave", "107", [&] { return s.etat("y"); });
    s.prend_clavier();
}

void icones(Session& s) {
    s.une_fois("action 302", [&] { s.clic_outil(kIcone2); });
    s.une_fois("action 303", [&] { s.clic_outil(kIconeMoins); });
    s.une_fois("action 301", [&] { s.clic_outil(kIconeTout); });
}

void raccourcis(Session& s) {
    s.prend_clavier();
    s.une_fois("action 302", [&] { s.ecran().touche(XK_F3, XK_Control_L); });
    s.une_fois("action 303", [&] { s.ecran().touche(XK_F4, XK_Control_L); });
    s.une_fois("action 301", [&] { s.ecran().touche(XK_F3); });
}

void touches(Session& s) {
    s.prend_clavier();
    s.une_fois("action 302", [&] { s.clavier().tape("+"); });
    s.une_fois("action 303", [&] { s.clavier().tape("-"); });
    s.une_fois(
        "action 301", [&] { s.clavier().seule('f'); }, true);
    for (const char c : {'A', 'z', '7', '!'})
        s.une_fois("touche " + std::to_string(static_cast<int>(c)) + " ", [&] { s.clavier().tape(std::string(1, c)); });
}

void mnemoniques(Session& s) {
    s.prend_clavier();
    s.menus().note();
    s.une_fois("action 302", [&] { choisit_au_clavier(s, 'a', 'a'); });
    s.une_fois("action 303", [&] { choisit_au_clavier(s, 'a', 'r'); });
    s.une_fois("action 301", [&] { choisit_au_clavier(s, 'a', 't'); });
    renonce(s, [&] {
        s.clavier().avec(XK_Alt_L, 'f');
        s.menus().attend_un("le menu de Alt+f");
    });
}

void menus(Session& s) {
    s.une_fois("action 302", [&] { choisit(s, 1, 1); });
    s.une_fois("action 303", [&] { choisit(s, 1, 2); });
    s.une_fois("action 301", [&] { choisit(s, 1, 0); });
    renonce(s, [&] { s.menus().deroule(s.fenetre(), static_cast<std::size_t>(s.au_plus(2))); });
}

void modules(Session& s) {
    s.une_fois("action 402", [&] { choisit(s, 2, 1); });
    attend_titres(s, "4");
    s.une_fois("action 302", [&] { choisit(s, 1, 1); });
    s.une_fois("action 601", [&] { choisit(s, 3, 0); });
    s.prend_clavier();
    s.menus().note();
    s.une_fois("action 401", [&] { choisit_au_clavier(s, 'm', 'c'); });
    attend_titres(s, "3");
}

void souris(Session& s) {
    const Cadre c = s.feuille();
    s.ecran().va(c.x + c.largeur / 2, c.y + c.hauteur / 2);
    for (int i = 0; i < 3; ++i) s.autre("echelle", [&] { s.ecran().clic(4); });
    for (int i = 0; i < 3; ++i) s.autre("echelle", [&] { s.ecran().clic(5); });
    s.autre("centre", [&] {
        s.ecran().bouton(2, true);
        s.ecran().glisse(c.x + c.largeur / 2, c.y + c.hauteur / 2, c.x + c.largeur / 3, c.y + c.hauteur / 3);
        s.ecran().bouton(2, false);
    });
    s.autre("echelle", [&] {
        const int x = c.x + c.largeur / 3, y = c.y + c.hauteur / 3;
        s.ecran().va(x, y);
        s.ecran().bouton(1, true);
        s.ecran().glisse(x, y, x + c.largeur / 4, y + c.hauteur / 4);
        s.ecran().bouton(1, false);
    });
    s.photo("zoom");
    s.prend_clavier();
    s.une_fois(
        "action 301", [&] { s.clavier().seule('f'); }, true);
}

void zoom(Session& s) {
    s.une_fois("action 301", [&] { s.clic_outil(kIconeTout); });
    s.autre("echelle", [&] { s.clic_outil(s.au_plus(1) == 0 ? kZoomDroite : kZoomGauche); });
    s.autre("echelle", [&] { s.ecran().touche(XK_Left); });
    s.prend_clavier();
    s.une_fois("action 301", [&] { s.clic_outil(kIconeTout); });
}

void liste(Session& s) {
    const Pixels p{kCouche.x, kCouche.y + kPasDeCouche * s.au_plus(kCouchesCliquees)};
    s.une_fois("element ", [&] { s.clic_outil(p); });
    std::this_thread::sleep_for(kTenu); // the next click is a first one again
    for (int i = 0; i < 2; ++i) {
        s.autre("couches", [&] {
            s.clic_outil(p);
            s.ecran().clic(1);
        });
        std::this_thread::sleep_for(kTenu);
    }
    s.prend_clavier();
}

void taille(Session& s) {
    const Cadre avant = s.ecran().place(s.fenetre());
    for (int i = 0; i <= s.au_plus(2); ++i) redimensionne(s, 700 + s.au_plus(420), 600 + s.au_plus(280));
    s.photo("taille");
    icones(s);
    menus(s);
    redimensionne(s, avant.largeur, avant.hauteur);
    icones(s);
}

void iconifie(Session& s) {
    if (!s.gestionnaire()) return;
    XIconifyWindow(s.ecran().d(), s.fenetre(), DefaultScreen(s.ecran().d()));
    patiente("la fenetre en icone", [&] { return !s.ecran().visible(s.fenetre()); });
    XMapWindow(s.ecran().d(), s.fenetre());
    patiente("la fenetre revenue", [&] { return s.ecran().visible(s.fenetre()); });
    XRaiseWindow(s.ecran().d(), s.fenetre());
    s.prend_clavier();
    icones(s);
    menus(s);
}

void decorations(Session& s) {
    for (const KeySym k : {XK_F11, XK_F12})
        for (int i = 0; i < 2; ++i) {
            s.prend_clavier();
            s.une_fois(k == XK_F11 ? "action 326" : "action 327", [&] { s.ecran().touche(k); });
            patiente("la fenetre a l'ecran", [&] { return s.ecran().visible(s.fenetre()); });
            s.calme_place(s.fenetre());
            s.prend_clavier();
            icones(s);
        }
    menus(s);
}

} // namespace visite::etapes
