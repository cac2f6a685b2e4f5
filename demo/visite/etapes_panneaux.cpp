#include "etapes.h"

namespace visite::etapes {

namespace {

constexpr int kEcartDePlace = 2; // borders of managers that the settings do not know

void ferme_de_l_une_des_facons(Session& s, Window w, Place bouton_fermer, const std::string& titre) {
    switch (s.au_plus(2)) {
    case 0: s.clic_panneau(w, bouton_fermer); break;
    case 1: s.demande_fermeture(w); break;
    default: {
        const Cadre c = s.ecran().place(w);
        s.ecran().va(c.x + c.largeur - 3, c.y + c.hauteur - 3);
        if (s.gestionnaire()) s.ecran().clic(1);
        s.ecran().touche(XK_Escape);
    }
    }
    s.fermee(titre);
    s.prend_clavier();
}

Window par_touche(Session& s, KeySym touche, const std::string& action, const std::string& titre) {
    s.prend_clavier();
    const std::size_t depuis = s.programme().ici();
    s.ecran().touche(touche);
    const Window w = s.ouverte(titre);
    s.egal("actions", "action " + action, s.programme().lignes(depuis, "action "));
    return w;
}

} // namespace

void reglages(Session& s) {
    const std::string titre = kTitreReglages;
    const std::string x = s.etat("x");
    const Window w = par_touche(s, XK_F5, "321", titre);
    s.aucune_action([&] {
        s.remplit(
            "pas", [&] { s.clic_panneau(w, kPas); }, s.hasard(5) + kCommandes);
    });
    s.egal("champ x", x, s.etat("x"));
    s.photo("reglages");
    const std::string pas = nombre_court((1 + s.au_plus(20)) / 4.0);
    s.remplit(
        "pas", [&] { s.clic_panneau(w, kPas); }, pas);
    const std::string grille = s.etat("grille");
    s.clic_panneau(w, kMontrer);
    s.clic_panneau(w, kAppliquer);
    s.attend_egal("grille", grille == "oui" ? "non" : "oui", [&] { return s.etat("grille"); });
    s.egal("pas", pas, s.etat("pas"));
    s.une_fois("action 302", [&] {
        s.ecran().va(s.ecran().place(w).x + 300, s.ecran().place(w).y + 80), s.ecran().touche(XK_F3, XK_Control_L);
    });
    ferme_de_l_une_des_facons(s, w, kReglagesFermer, titre);
}

void couches(Session& s) {
    const std::string titre = kTitreCouches;
    const std::string x = s.etat("x");
    const Window w = par_touche(s, XK_F6, "322", titre);
    s.clic_panneau(w, kFiltre);
    const std::string t = s.hasard(9);
    s.clavier().tape(t);
    s.photo("couches");
    const std::size_t depuis = s.programme().ici();
    s.ecran().touche(XK_Return);
    s.attend_egal("filtre des couches", t, [&] {
        const std::string l = s.programme().lignes(depuis, "controle 342");
        return l.substr(std::min(l.size(), l.find(' ', std::string_view("controle 342 ").size()) + 1));
    });
    s.egal("champ x", x, s.etat("x"));
    s.une_fois("controle 344", [&] { s.clic_panneau(w, kToutes); });
    ferme_de_l_une_des_facons(s, w, kFermer, titre);
}

void nomenclature(Session& s) {
    const Window w = par_touche(s, XK_F7, "323", kTitreTable);
    s.menus().note();
    s.clic_panneau(w, kCritere);
    const Window m = s.menus().attend_un("les choix");
    std::this_thread::sleep_for(kTenu); // the next click is a first one again
    const Cadre c = s.ecran().place(m), p = s.ecran().place(w);
    const int x = p.x + kCritere.x * kCaractere / 10, y = p.y + kCritere.y * kLigne / 10;
    if (x < c.x || x > c.x + c.largeur || std::abs(y - c.y) > 4 * kEntree)
        throw Echec(
            "place des choix: attendu vers " + std::to_string(x) + "," + std::to_string(y) + ", vu " + texte_de(c));
    s.photo("nomenclature");
    const int choix = s.au_plus(2);
    s.une_fois("controle 335 " + std::to_string(choix + 1), [&] {
        s.ecran().va(c.x + c.largeur / 2, c.y + c.hauteur * (2 * choix + 1) / 6);
        s.photo("choix");
        s.ecran().clic(1);
        s.menus().attend_fin();
    });
    ferme_de_l_une_des_facons(s, w, kTableFermer, kTitreTable);
}

void palette(Session& s) {
    const Window w = par_touche(s, XK_F8, "324", kTitreCouleur);
    const Cadre p = s.ecran().place(w);
    const auto image = [&] { return s.ecran().image(p); };
    const Image avant = calme(image);
    const int x = p.x + kBleu.x, y = p.y + kBleu.y;
    s.ecran().va(x, y);
    s.ecran().bouton(1, true);
    s.ecran().glisse(x, y, x - kGlissee, y);
    s.ecran().bouton(1, false);
    patiente("une autre palette", [&] { return image() != avant; });
    s.photo("palette");
    s.clic(w, kRetablir);
    calme(image);
    s.ecran().touche(XK_Escape);
    s.fermee(kTitreCouleur);
    s.prend_clavier();
}

void bande(Session& s) {
    const Window w = par_touche(s, XK_F9, "325", kTitreBande);
    const std::string x = s.etat("x");
    const Cadre c = s.ecran().place(w);
    s.clavier_a(w);
    const auto dedans = [&] { s.clic(w, {4 + 67 * kCaractere, c.hauteur / 2}); };
    s.aucune_action([&] { s.remplit("saisie", dedans, s.hasard(7) + kCommandes); });
    s.egal("champ x", x, s.etat("x"));
    s.remplit("saisie", dedans, "3 4");
    dedans();
    s.une_fois("controle 353", [&] { s.ecran().touche(XK_Return); });
    s.photo("bande");
    s.clic(w, kFleche);
    s.attend_egal(
        "deux rangees", "oui", [&] { return s.ecran().place(w).hauteur > c.hauteur * 3 / 2 ? "oui" : "non"; });
    s.calme_place(w);
    for (int i = 0; i < 2; ++i) {
        const std::string grille = s.etat("grille");
        s.une_fois("controle 354", [&] { s.clic(w, {4 + 88 * kCaractere, c.hauteur * 3 / 2}); });
        s.attend_egal("grille", grille == "oui" ? "non" : "oui", [&] { return s.etat("grille"); });
    }
    s.clic(w, {kFleche.x, c.hauteur + kFleche.y});
    s.attend_egal("une rangee", "a sa place", [&] {
        const Cadre r = s.ecran().place(w);
        const bool la = r.largeur == c.largeur && r.hauteur == c.hauteur && std::abs(r.x - c.x) <= kEcartDePlace
                        && std::abs(r.y - c.y) <= kEcartDePlace;
        return la ? "a sa place" : texte_de(r) + ", avant " + texte_de(c);
    });
    s.prend_clavier();
    s.ecran().touche(XK_F9);
    s.attend_egal("bande", "cachee", [&] { return s.ecran().visible(w) ? "vue" : "cachee"; });
    s.prend_clavier();
}

} // namespace visite::etapes
