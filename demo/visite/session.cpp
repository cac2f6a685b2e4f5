#include "session.h"

#include <sstream>

namespace visite {

Session::Session(Options o) : o_(std::move(o)), clavier_(ecran_), menus_(ecran_), hasard_(o_.graine) {
    clavier_.verrouille(o_.verrous, o_.groupe);
    gestionnaire_ = a_un_gestionnaire();
}

// --- the program ---------------------------------------------------------------------------------------------------

bool Session::a_un_gestionnaire() const {
    for (const char* const nom : {"_MOTIF_WM_INFO", "_NET_SUPPORTING_WM_CHECK"}) {
        const Atom a = XInternAtom(ecran_.d(), nom, False);
        Atom type = None;
        int format = 0;
        unsigned long n = 0, reste = 0;
        unsigned char* v = nullptr;
        XGetWindowProperty(
            ecran_.d(), ecran_.racine(), a, 0, 1, False, AnyPropertyType, &type, &format, &n, &reste, &v);
        if (v != nullptr) XFree(v);
        if (type != None) return true;
    }
    return false;
}

void Session::lance() {
    programme_.emplace(o_.programme, o_.place, (o_.place / "maison.dxf").string());
    plaintes_.clear();
    fenetre_ = None;
    attend("la fenetre d'atelier",
        [&] { return !programme_->vit() || (fenetre_ = ecran_.cherche(ecran_.racine(), kTitrePrincipal)) != None; });
    attend("le dessin", [&] { return !programme_->vit() || !etat("echelle").empty(); });
    if (!programme_->vit()) throw Echec("atelier a fini en commencant");
    prend_clavier();
}

// After a fault another one would only follow from it: nothing is held, and a new atelier begins.
void Session::remet() {
    for (unsigned b = 1; b <= 3; ++b) ecran_.bouton(b, false);
    programme_.reset();
}

// What holds after every step: the program lives and says nothing, its window is on the screen, alone, and answers.
void Session::tranquille() {
    if (!programme_->vit()) throw Echec("atelier a fini, code " + std::to_string(programme_->code()));
    if (const std::string p = programme_->plaintes(); p != plaintes_) {
        plaintes_ = p;
        throw Echec("attendu: rien sur stderr; vu: " + p);
    }
    attend_egal("fenetres ouvertes", "1", [&] { return std::to_string(fenetres().size()); });
    attend_egal("la fenetre a l'ecran", "oui", [&] { return ecran_.visible(fenetre_) ? "oui" : "non"; });
    sentinelle();
}

// --- checks --------------------------------------------------------------------------------------------------------

void Session::attend_egal(const std::string& quoi, const std::string& voulu, const std::function<std::string()>& vu) {
    std::string dernier;
    try {
        patiente(quoi, [&] { return (dernier = vu()) == voulu; });
    } catch (const Echec&) {
        throw Echec(quoi + ": attendu \"" + voulu + "\", vu \"" + dernier + "\"");
    }
}

void Session::egal(const std::string& quoi, const std::string& voulu, const std::string& vu) {
    if (vu != voulu) throw Echec(quoi + ": attendu \"" + voulu + "\", vu \"" + vu + "\"");
}

void Session::une_fois(const std::string& ligne, const std::function<void()>& geste, bool action_aussi) {
    const std::size_t depuis = programme_->ici();
    geste();
    try {
        patiente(ligne, [&] { return programme_->nombre(depuis, ligne) > 0; });
    } catch (const Echec&) {
        throw Echec("attendu \"" + ligne + "\" une fois, vu \"" + programme_->lignes(depuis, "") + "\"");
    }
    sentinelle();
    if (programme_->nombre(depuis, ligne) != 1)
        throw Echec("attendu \"" + ligne + "\" une fois, vu \"" + programme_->lignes(depuis, ligne) + "\"");
    const long actions = ligne.starts_with("action") || action_aussi ? 1 : 0;
    if (programme_->nombre(depuis, "action ") != actions)
        throw Echec(
            "attendu " + std::to_string(actions) + " action, vu \"" + programme_->lignes(depuis, "action ") + "\"");
}

void Session::aucune_action(const std::function<void()>& geste) {
    const std::size_t depuis = programme_->ici();
    geste();
    egal("actions", "", programme_->lignes(depuis, "action "));
}

void Session::autre(const std::string& nom, const std::function<void()>& geste) {
    const std::string avant = etat(nom);
    geste();
    patiente("un changement de " + nom, [&] { return etat(nom) != avant; });
}

// Two moves over the sheet, each seen by the program: what was asked before them has happened. A window that was not
// there for a moment sees a later move.
void Session::sentinelle() {
    for (int i = 0; i < 2; ++i) {
        const std::string avant = etat("pointeur");
        Horloge::time_point encore = Horloge::now();
        const auto repond = [&] {
            if (!programme_->vit() || etat("pointeur") != avant) return true;
            if (Horloge::now() >= encore) va_sur_la_feuille(), encore = Horloge::now() + kPause * 25;
            return false;
        };
        try {
            patiente("une reponse au pointeur", repond);
        } catch (const Echec&) {
            throw Echec("attendu: le pointeur, deplace vers " + pointeur() + "; vu: " + avant);
        }
    }
    if (!programme_->vit()) throw Echec("atelier a fini, code " + std::to_string(programme_->code()));
}

// --- windows -------------------------------------------------------------------------------------------------------

// Windows of the application that are on the screen, menus excepted.
std::vector<Window> Session::fenetres() const {
    std::vector<Window> r;
    const auto prend = [&](Window w) {
        XWindowAttributes a{};
        if (XGetWindowAttributes(ecran_.d(), w, &a) == 0 || a.override_redirect || a.map_state != IsViewable)
            return false;
        if (ecran_.titre(w).empty()) return false;
        r.push_back(w);
        return true;
    };
    for (const Window cadre : ecran_.filles(ecran_.racine())) {
        if (prend(cadre)) continue;
        for (const Window w : ecran_.filles(cadre))
            if (!prend(w))
                for (const Window dedans : ecran_.filles(w)) prend(dedans);
    }
    return r;
}

Window Session::ouverte(const std::string& titre) {
    Window w = None;
    patiente("la fenetre " + titre,
        [&] { return (w = ecran_.cherche(ecran_.racine(), titre)) != None && ecran_.visible(w); });
    patiente("toute la fenetre " + titre, [&] { return couleurs(ecran_.image(ecran_.place(w))) > 2; });
    a_sa_place(titre, w);
    return w;
}

// A window comes back where it was, on the screen.
void Session::a_sa_place(const std::string& titre, Window w) {
    const Cadre c = calme_place(w);
    const bool sur_l_ecran = c.x >= 0 && c.y >= 0 && c.x + c.largeur <= DisplayWidth(ecran_.d(), 0)
                             && c.y + c.hauteur <= DisplayHeight(ecran_.d(), 0);
    if (!sur_l_ecran) throw Echec("place de " + titre + ": attendu sur l'ecran, vu " + texte_de(c));
}

Cadre Session::calme_place(Window w) const {
    Cadre avant = ecran_.place(w);
    attend("une place qui ne change plus", [&] {
        std::this_thread::sleep_for(kPause * 2);
        const Cadre c = ecran_.place(w);
        return texte_de(std::exchange(avant, c)) == texte_de(c);
    });
    return avant;
}

void Session::fermee(const std::string& titre) {
    attend_egal("fenetre " + titre, "fermee",
        [&] { return ecran_.cherche(ecran_.racine(), titre) == None ? "fermee" : "ouverte"; });
}

// --- the sheet and the pointer -------------------------------------------------------------------------------------

Cadre Session::feuille() const {
    Cadre c = ecran_.place(fenetre_);
    return {c.x + kOutils, c.y + kBarre, c.largeur - kOutils, c.hauteur - kBarre - kBandeau};
}

// A point where nothing covers the sheet, another one at each call.
void Session::va_sur_la_feuille() {
    const Cadre c = feuille();
    for (int essai = 0; essai < 200; ++essai) {
        const int x = c.x + 2 + au_plus(c.largeur - 5), y = c.y + 2 + au_plus(c.hauteur - 5);
        ecran_.va(x, y);
        Window racine = None, fille = None;
        int a = 0, b = 0, d = 0, e = 0;
        unsigned m = 0;
        XQueryPointer(ecran_.d(), ecran_.racine(), &racine, &fille, &a, &b, &d, &e, &m);
        if (fille == ecran_.cadre_de(fenetre_)) return;
    }
    throw Echec("la feuille est couverte");
}

// Where it is, and in which window.
std::string Session::pointeur() const {
    Window racine = None, dessous = ecran_.racine();
    int x = 0, y = 0, a = 0, b = 0;
    unsigned m = 0;
    std::string r;
    for (Window w = dessous; w != None; w = dessous) {
        if (XQueryPointer(ecran_.d(), w, &racine, &dessous, &x, &y, &a, &b, &m) == 0) break;
        std::ostringstream s;
        s << (r.empty() ? std::to_string(x) + "," + std::to_string(y) + " boutons " + std::to_string(m) + " dans" : "")
          << " 0x" << std::hex << dessous;
        r += s.str();
    }
    return r;
}

// --- gestures ------------------------------------------------------------------------------------------------------

void Session::prend_clavier() {
    va_sur_la_feuille();
    ecran_.clic(1);
    if (gestionnaire_)
        attend("le clavier", [&] { return ecran_.cadre_de(ecran_.clavier()) == ecran_.cadre_de(fenetre_); });
    sentinelle();
}

// As slow as a hand: a manager that passes clicks on can be late with them.
void Session::clic(Window w, Pixels p) {
    constexpr auto kMain = std::chrono::milliseconds(150);
    ecran_.va(w, p);
    ecran_.clic(1);
    if (!gestionnaire_) return;
    std::this_thread::sleep_for(kMain);
}

// Keys go to it: without a manager it is the window under the pointer that has them.
void Session::clavier_a(Window w) {
    const Cadre c = ecran_.place(w);
    ecran_.va(c.x + c.largeur - 4, c.y + c.hauteur - 4);
    if (gestionnaire_)
        patiente("le clavier a la fenetre", [&] { return ecran_.cadre_de(ecran_.clavier()) == ecran_.cadre_de(w); });
}

void Session::clic_outil(Pixels p) {
    clic(fenetre_, {p.x, p.y + kBarre});
}

void Session::clic_panneau(Window w, Place p) {
    clic(w, en_pixels(p));
}

void Session::demande_fermeture(Window w) {
    XEvent e{};
    e.xclient.type = ClientMessage;
    e.xclient.window = w;
    e.xclient.message_type = XInternAtom(ecran_.d(), "WM_PROTOCOLS", False);
    e.xclient.format = 32;
    e.xclient.data.l[0] = static_cast<long>(XInternAtom(ecran_.d(), "WM_DELETE_WINDOW", False));
    XSendEvent(ecran_.d(), w, False, NoEventMask, &e);
    XSync(ecran_.d(), False);
}

void Session::remplit(const std::string& champ, const std::function<void()>& clic_dedans, const std::string& texte_) {
    clic_dedans();
    ecran_.touche(XK_End);
    for (std::size_t i = etat(champ).size(); i > 0; --i) ecran_.touche(XK_BackSpace);
    attend_egal("champ " + champ + " vide", "", [&] { return etat(champ); });
    clavier_.tape(texte_);
    attend_egal("champ " + champ, texte_, [&] { return etat(champ); });
    sentinelle();
    egal("champ " + champ, texte_, etat(champ));
}

// --- chance and pictures -----------------------------------------------------------------------------------------------

int Session::au_plus(int n) {
    return n <= 0 ? 0 : static_cast<int>(hasard_() % static_cast<unsigned>(n + 1));
}

std::string Session::hasard(int longueur) {
    const std::string tous = "abcdefgmqwzABCDEFGMQWZ0123456789.,-!@#\351\350\340\347";
    std::string possibles, r;
    for (const char c : tous)
        if (clavier_.donne(static_cast<unsigned char>(c))) possibles += c;
    while (static_cast<int>(r.size()) < longueur)
        r += possibles[static_cast<std::size_t>(au_plus(static_cast<int>(possibles.size()) - 1))];
    return r;
}

void Session::photo(const std::string& nom) {
    if (++photos_[nom] > 2) return;
    visite::photo((o_.photos / (o_.combinaison + "-" + nom + "-" + std::to_string(photos_[nom]) + ".png")).string());
}

} // namespace visite
