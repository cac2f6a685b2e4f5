// usage PROGRAM PICTURES PLACE SECONDS SEED COMBINATION [GROUP [LOCK...]]: uses atelier for a while as a hand does, with real
// mouse and keys, in an order that the seed gives, and checks what every step brought about: in atelier's journal, in
// files, in places of windows, in pictures. PLACE is a folder with drawings. A check that fails is told with its step,
// what was expected and what was seen, and leaves a picture; the use goes on. The exit code is 0 when none failed.
#include <cmath>
#include <random>
#include <set>
#include <sstream>

#include "clavier.h"
#include "ecran.h"
#include "lieux.h"
#include "programme.h"

using namespace visite;

namespace {

namespace fs = std::filesystem;

constexpr auto kPatience = std::chrono::seconds(10);

// Controls of the tools, from the upper left corner of what is below the menu bar.
constexpr Pixels kIconeTout{27, 29}, kIcone2{65, 29}, kIconeMoins{103, 29}, kChampX{120, 113}, kChampY{120, 149},
    kZoomDroite{190, 205}, kZoomGauche{22, 205}, kCouche{80, 264};
constexpr int kPasDeCouche = 16, kCouchesCliquees = 8;
constexpr int kBarreDuHaut = 33;
constexpr Place kMarge{4, 6}; // pixels that a menu may lie beside and below its title

struct Options {
    std::string programme;
    fs::path photos, place;
    int secondes = 60;
    unsigned graine = 1;
    std::string combinaison;
    int groupe = 0;
    std::vector<KeySym> verrous;
    std::string seule; // the one step to play
};

std::string nombre_court(double v) {
    std::ostringstream s;
    s << v;
    return s.str();
}

class Usage {
  public:
    explicit Usage(Options o) : o_(std::move(o)), clavier_(ecran_), hasard_(o_.graine) {}

    // Returns how many checks failed.
    int fait() {
        clavier_.verrouille(o_.verrous, o_.groupe);
        gestionnaire_ = a_un_gestionnaire();
        const auto fin = Horloge::now() + std::chrono::seconds(o_.secondes);
        lance();
        while (Horloge::now() < fin) tour(fin);
        if (programme_) essaie("fermeture", [this] { fermeture(); });
        memoire_stable();
        std::printf(
            "%s: %d tours, %d etapes, %d manquees, memoire (ko)", o_.combinaison.c_str(), tours_, etapes_, manquees_);
        for (const long ko : memoires_) std::printf(" %ld", ko);
        std::puts("");
        return manquees_;
    }

  private:
    using Fait = void (Usage::*)();
    struct Etape {
        const char* nom;
        Fait fait;
    };
    // --- the frame ---

    void tour(Horloge::time_point fin) {
        static const Etape kEtapes[] = {{"champs X et Y", &Usage::champs}, {"mots d'un champ", &Usage::mots},
            {"pave numerique", &Usage::pave}, {"icones", &Usage::icones}, {"touches de menu", &Usage::raccourcis},
            {"touches du dessin", &Usage::touches}, {"menus au clavier", &Usage::mnemoniques},
            {"menus a la souris", &Usage::menus}, {"module", &Usage::module}, {"souris sur la feuille", &Usage::souris},
            {"echelle du zoom", &Usage::zoom}, {"liste des couches", &Usage::liste}, {"autre taille", &Usage::taille},
            {"icone et retour", &Usage::iconifie}, {"reglages", &Usage::reglages},
            {"choix des couches", &Usage::couches}, {"nomenclature", &Usage::nomenclature},
            {"palette", &Usage::palette}, {"enregistrer l'image", &Usage::image}, {"ouvrir", &Usage::ouvrir},
            {"editeur", &Usage::editeur}, {"tracer", &Usage::trace}, {"bande d'information", &Usage::bande},
            {"titre et bord", &Usage::decorations}};
        std::vector<Etape> ordre(std::begin(kEtapes), std::end(kEtapes));
        std::shuffle(ordre.begin(), ordre.end(), hasard_);
        for (const Etape& e : ordre) {
            if (Horloge::now() > fin) return;
            if (!o_.seule.empty() && o_.seule != e.nom) continue;
            if (!programme_) lance();
            essaie(e.nom, [&] {
                (this->*e.fait)();
                tranquille();
            });
        }
        ++tours_;
        if (programme_) memoires_.push_back(programme_->memoire());
    }

    void essaie(const char* nom, const std::function<void()>& geste) {
        ++etapes_;
        etape_ = nom;
        try {
            geste();
        } catch (const std::exception& e) {
            manque(e.what());
        }
    }

    void manque(const std::string& raison) {
        const std::string photo_ = "manque-" + std::to_string(++manquees_);
        std::printf("MANQUE %s, graine %u, tour %d, etape \"%s\": %s (%s-%s.png)\n", o_.combinaison.c_str(), o_.graine,
            tours_ + 1, etape_.c_str(), raison.c_str(), o_.combinaison.c_str(), photo_.c_str());
        std::fflush(stdout);
        visite::photo((o_.photos / (o_.combinaison + "-" + photo_ + ".png")).string());
        remet();
    }

    // After a fault another one would only follow from it: nothing is held, and a new atelier begins.
    void remet() {
        for (unsigned b = 1; b <= 3; ++b) ecran_.bouton(b, false);
        programme_.reset();
        memoires_.clear();
    }

    // What holds after every step: the program lives and says nothing, its window is on the screen, alone, and answers.
    void tranquille() {
        if (!programme_->vit()) throw Echec("atelier a fini, code " + std::to_string(programme_->code()));
        if (const std::string p = programme_->plaintes(); p != plaintes_) {
            plaintes_ = p;
            throw Echec("attendu: rien sur stderr; vu: " + p);
        }
        attend_egal("fenetres ouvertes", "1", [&] { return std::to_string(fenetres().size()); });
        attend_egal("la fenetre a l'ecran", "oui", [&] { return ecran_.visible(fenetre_) ? "oui" : "non"; });
        sentinelle();
    }

    void lance() {
        programme_.emplace(o_.programme, o_.place, (o_.place / "maison.dxf").string());
        plaintes_.clear();
        fenetre_ = None;
        attend("la fenetre d'atelier", [&] {
            return !programme_->vit() || (fenetre_ = ecran_.cherche(ecran_.racine(), kTitrePrincipal)) != None;
        });
        attend("le dessin", [&] { return !programme_->vit() || !programme_->etat("echelle").empty(); });
        if (!programme_->vit()) throw Echec("atelier a fini en commencant");
        prend_clavier();
    }

    bool a_un_gestionnaire() const {
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

    void memoire_stable() {
        constexpr std::size_t kChauffe = 3, kAssez = 6;
        constexpr long kParTour = 300; // kilobytes
        if (memoires_.size() < kAssez) return;
        const long de_plus =
            (memoires_.back() - memoires_[kChauffe - 1]) / static_cast<long>(memoires_.size() - kChauffe);
        if (de_plus <= kParTour) return;
        ++manquees_;
        std::printf("MANQUE %s, graine %u: attendu: moins de %ld ko de plus par tour; vu: %ld\n",
            o_.combinaison.c_str(), o_.graine, kParTour, de_plus);
    }

    // --- looking ---

    void attend_egal(const std::string& quoi, const std::string& voulu, const std::function<std::string()>& vu) {
        std::string dernier;
        try {
            attend(
                quoi, [&] { return (dernier = vu()) == voulu; }, kPatience);
        } catch (const Echec&) {
            throw Echec(quoi + ": attendu \"" + voulu + "\", vu \"" + dernier + "\"");
        }
    }
    void egal(const std::string& quoi, const std::string& voulu, const std::string& vu) {
        if (vu != voulu) throw Echec(quoi + ": attendu \"" + voulu + "\", vu \"" + vu + "\"");
    }

    // Windows of the application that are on the screen, menus excepted.
    std::vector<Window> fenetres() const {
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

    // Menus that are down.
    std::vector<Window> menus_ouverts() const {
        std::vector<Window> r;
        for (const Window w : ecran_.filles(ecran_.racine())) {
            XWindowAttributes a{};
            if (XGetWindowAttributes(ecran_.d(), w, &a) != 0 && a.override_redirect && a.map_state == IsViewable
                && a.c_class == InputOutput && a.width > 20 && ecran_.titre(w).empty() && !connues_.contains(w))
                r.push_back(w);
        }
        return r;
    }
    // Those of the manager are there before the menus.
    void note_connues() {
        connues_.clear();
        for (const Window w : menus_ouverts()) connues_.insert(w);
    }

    Window ouverte(const std::string& titre) {
        Window w = None;
        attend(
            "la fenetre " + titre,
            [&] { return (w = ecran_.cherche(ecran_.racine(), titre)) != None && ecran_.visible(w); }, kPatience);
        attend(
            "toute la fenetre " + titre, [&] { return couleurs(ecran_.image(ecran_.place(w))) > 2; }, kPatience);
        a_sa_place(titre, w);
        return w;
    }

    // A window comes back where it was, on the screen.
    void a_sa_place(const std::string& titre, Window w) {
        const Cadre c = calme_place(w);
        const bool sur_l_ecran = c.x >= 0 && c.y >= 0 && c.x + c.largeur <= DisplayWidth(ecran_.d(), 0)
                                 && c.y + c.hauteur <= DisplayHeight(ecran_.d(), 0);
        if (!sur_l_ecran) throw Echec("place de " + titre + ": attendu sur l'ecran, vu " + texte(c));
    }
    Cadre calme_place(Window w) const {
        Cadre avant = ecran_.place(w);
        attend("une place qui ne change plus", [&] {
            std::this_thread::sleep_for(kPause * 2);
            const Cadre c = ecran_.place(w);
            return texte(std::exchange(avant, c)) == texte(c);
        });
        return avant;
    }
    static std::string texte(const Cadre& c) {
        return std::to_string(c.largeur) + "x" + std::to_string(c.hauteur) + "+" + std::to_string(c.x) + "+"
               + std::to_string(c.y);
    }
    void fermee(const std::string& titre) {
        attend_egal("fenetre " + titre, "fermee",
            [&] { return ecran_.cherche(ecran_.racine(), titre) == None ? "fermee" : "ouverte"; });
    }

    // Two moves over the sheet, each seen by the program: what was asked before them has happened. A window that was not
    // there for a moment sees a later move.
    void sentinelle() {
        for (int i = 0; i < 2; ++i) {
            const std::string avant = programme_->etat("pointeur");
            Horloge::time_point encore = Horloge::now();
            const auto repond = [&] {
                if (!programme_->vit() || programme_->etat("pointeur") != avant) return true;
                if (Horloge::now() >= encore) va_sur_la_feuille(), encore = Horloge::now() + kPause * 25;
                return false;
            };
            try {
                attend("une reponse au pointeur", repond, kPatience);
            } catch (const Echec&) {
                throw Echec("attendu: le pointeur, deplace vers " + pointeur() + "; vu: " + avant);
            }
        }
        if (!programme_->vit()) throw Echec("atelier a fini, code " + std::to_string(programme_->code()));
    }

    Cadre feuille() const {
        Cadre c = ecran_.place(fenetre_);
        return {c.x + kOutils, c.y + kBarreDuHaut, c.largeur - kOutils, c.hauteur - kBarreDuHaut - kBandeau};
    }

    // A point where nothing covers the sheet, another one at each call.
    void va_sur_la_feuille() {
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
    std::string pointeur() const {
        Window racine = None, dessous = ecran_.racine();
        int x = 0, y = 0, a = 0, b = 0;
        unsigned m = 0;
        std::string r;
        for (Window w = dessous; w != None; w = dessous) {
            if (XQueryPointer(ecran_.d(), w, &racine, &dessous, &x, &y, &a, &b, &m) == 0) break;
            std::ostringstream s;
            s << (r.empty() ? std::to_string(x) + "," + std::to_string(y) + " boutons " + std::to_string(m) + " dans"
                            : "")
              << " 0x" << std::hex << dessous;
            r += s.str();
        }
        return r;
    }

    int au_plus(int n) { return n <= 0 ? 0 : static_cast<int>(hasard_() % static_cast<unsigned>(n + 1)); }

    void photo(const std::string& nom) {
        if (++photos_[nom] > 2) return;
        visite::photo(
            (o_.photos / (o_.combinaison + "-" + nom + "-" + std::to_string(photos_[nom]) + ".png")).string());
    }

    // --- gestures ---

    void prend_clavier() {
        va_sur_la_feuille();
        ecran_.clic(1);
        if (gestionnaire_)
            attend("le clavier", [&] { return ecran_.cadre_de(ecran_.clavier()) == ecran_.cadre_de(fenetre_); });
        sentinelle();
    }

    // As slow as a hand: a manager that passes clicks on can be late with them.
    void clic(Window w, Pixels p) {
        constexpr auto kMain = std::chrono::milliseconds(150);
        const Cadre c = ecran_.place(w);
        ecran_.va(c.x + p.x, c.y + p.y);
        ecran_.clic(1);
        if (!gestionnaire_) return;
        std::this_thread::sleep_for(kMain);
    }
    // Keys go to it: without a manager it is the window under the pointer that has them.
    void clavier_a(Window w) {
        const Cadre c = ecran_.place(w);
        ecran_.va(c.x + c.largeur - 4, c.y + c.hauteur - 4);
        if (gestionnaire_)
            attend(
                "le clavier a la fenetre", [&] { return ecran_.cadre_de(ecran_.clavier()) == ecran_.cadre_de(w); },
                kPatience);
    }
    void clic_outil(Pixels p) { clic(fenetre_, {p.x, p.y + kBarreDuHaut}); }
    void clic_panneau(Window w, Place p) { clic(w, {p.x * kCaractere / 10, p.y * kLigne / 10}); }

    void demande_fermeture(Window w) {
        XEvent e{};
        e.xclient.type = ClientMessage;
        e.xclient.window = w;
        e.xclient.message_type = XInternAtom(ecran_.d(), "WM_PROTOCOLS", False);
        e.xclient.format = 32;
        e.xclient.data.l[0] = static_cast<long>(XInternAtom(ecran_.d(), "WM_DELETE_WINDOW", False));
        XSendEvent(ecran_.d(), w, False, NoEventMask, &e);
        XSync(ecran_.d(), False);
    }

    // Exactly one line of the journal that begins so, and no action besides.
    void une_fois(const std::string& ligne, const std::function<void()>& geste, bool action_aussi = false) {
        const std::size_t depuis = programme_->ici();
        geste();
        try {
            attend(
                ligne, [&] { return programme_->nombre(depuis, ligne) > 0; }, kPatience);
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

    void aucune_action(const std::function<void()>& geste) {
        const std::size_t depuis = programme_->ici();
        geste();
        egal("actions", "", programme_->lignes(depuis, "action "));
    }

    // Capitals, digits, signs and accents that the keyboard has.
    std::string hasard(int longueur) {
        const std::string tous = "abcdefgmqwzABCDEFGMQWZ0123456789.,-!@#\351\350\340\347";
        std::string possibles, r;
        for (const char c : tous)
            if (clavier_.donne(static_cast<unsigned char>(c))) possibles += c;
        while (static_cast<int>(r.size()) < longueur)
            r += possibles[static_cast<std::size_t>(au_plus(static_cast<int>(possibles.size()) - 1))];
        return r;
    }

    // The field that is clicked holds exactly what is typed.
    void remplit(const std::string& champ, const std::function<void()>& clic_dedans, const std::string& texte_) {
        clic_dedans();
        ecran_.touche(XK_End);
        for (std::size_t i = programme_->etat(champ).size(); i > 0; --i) ecran_.touche(XK_BackSpace);
        attend_egal("champ " + champ + " vide", "", [&] { return programme_->etat(champ); });
        clavier_.tape(texte_);
        attend_egal("champ " + champ, texte_, [&] { return programme_->etat(champ); });
        sentinelle();
        egal("champ " + champ, texte_, programme_->etat(champ));
    }

    // --- steps: the main window ---

    void champs() {
        const bool x = au_plus(1) == 0;
        const std::string champ = x ? "x" : "y", autre = x ? "y" : "x";
        const auto dedans = [&] { clic_outil(x ? kChampX : kChampY); };
        aucune_action([&] { remplit(champ, dedans, hasard(9) + kCommandes); });
        const std::string valeur_autre = programme_->etat(autre);
        const std::string nombre_ = std::to_string(1 + au_plus(998));
        remplit(champ, dedans, nombre_);
        egal("champ " + autre, valeur_autre, programme_->etat(autre));
        dedans();
        une_fois(x ? "controle 501 " : "controle 502 ", [&] { ecran_.touche(XK_Return); });
        attend_egal("valeur de " + champ, nombre_,
            [&] { return nombre_court(std::round(std::atof(programme_->etat(champ).c_str()))); });
        photo("champs");
        prend_clavier();
    }

    void mots() {
        remplit(
            "x", [&] { clic_outil(kChampX); }, "aa bb cc");
        clic_outil(kChampX);
        ecran_.touche(XK_Home);
        ecran_.touche(XK_Right, XK_Control_L);
        clavier_.tape("Z");
        attend_egal("champ x apres Ctrl+droite", "aa Zbb cc", [&] { return programme_->etat("x"); });
        prend_clavier();
    }

    void pave() {
        if ((clavier_.etat() & Mod2Mask) == 0) return;
        remplit(
            "y", [&] { clic_outil(kChampY); }, "");
        clic_outil(kChampY);
        for (const KeySym k : {XK_KP_1, XK_KP_0, XK_KP_7}) ecran_.touche(k);
        attend_egal("champ y du pave", "107", [&] { return programme_->etat("y"); });
        prend_clavier();
    }

    void icones() {
        une_fois("action 302", [&] { clic_outil(kIcone2); });
        une_fois("action 303", [&] { clic_outil(kIconeMoins); });
        une_fois("action 301", [&] { clic_outil(kIconeTout); });
    }

    void raccourcis() {
        prend_clavier();
        une_fois("action 302", [&] { ecran_.touche(XK_F3, XK_Control_L); });
        une_fois("action 303", [&] { ecran_.touche(XK_F4, XK_Control_L); });
        une_fois("action 301", [&] { ecran_.touche(XK_F3); });
    }

    void touches() {
        prend_clavier();
        une_fois("action 302", [&] { clavier_.tape("+"); });
        une_fois("action 303", [&] { clavier_.tape("-"); });
        une_fois(
            "action 301", [&] { clavier_.seule('f'); }, true);
        for (const char c : {'A', 'z', '7', '!'})
            une_fois("touche " + std::to_string(static_cast<int>(c)) + " ", [&] { clavier_.tape(std::string(1, c)); });
    }

    void mnemoniques() {
        prend_clavier();
        note_connues();
        const auto choisit = [&](char menu, char entree) {
            clavier_.avec(XK_Alt_L, menu);
            attend_menu(menu);
            clavier_.seule(entree);
            sans_menu();
        };
        une_fois("action 302", [&] { choisit('a', 'a'); });
        une_fois("action 303", [&] { choisit('a', 'r'); });
        une_fois("action 301", [&] { choisit('a', 't'); });
        aucune_action([&] {
            clavier_.avec(XK_Alt_L, 'f');
            attend_menu('f');
            ecran_.touche(XK_Escape);
            sans_menu();
            sentinelle();
        });
        prend_clavier();
    }

    void attend_menu(char menu) {
        attend(
            std::string("le menu de Alt+") + menu, [&] { return !menus_ouverts().empty(); }, kPatience);
    }
    void sans_menu() {
        attend(
            "la fin du menu", [&] { return menus_ouverts().empty(); }, kPatience);
    }

    // Titles of the menu bar, from left to right.
    std::vector<Cadre> titres() const {
        std::vector<Cadre> r;
        const Cadre c = ecran_.place(fenetre_);
        const auto visite_ = [&](auto&& encore, Window w) -> void {
            const Cadre f = ecran_.place(w);
            if (ecran_.visible(w) && f.y == c.y && f.hauteur == kBarreDuHaut)
                for (const Window t : ecran_.filles(w)) r.push_back(ecran_.place(t));
            for (const Window fille : ecran_.filles(w)) encore(encore, fille);
        };
        visite_(visite_, fenetre_);
        std::sort(r.begin(), r.end(), [](const Cadre& a, const Cadre& b) { return a.x < b.x; });
        return r;
    }

    // Opens a menu by its title and checks that it hangs below it.
    Cadre deroule(std::size_t numero) {
        const std::vector<Cadre> t = titres();
        if (numero >= t.size()) throw Echec("titres de menus: attendu plus de " + std::to_string(numero));
        note_connues();
        ecran_.va(t[numero].x + t[numero].largeur / 2, t[numero].y + t[numero].hauteur / 2);
        ecran_.clic(1);
        std::vector<Window> m;
        attend(
            "le menu", [&] { return !(m = menus_ouverts()).empty(); }, kPatience);
        const Cadre menu = ecran_.place(m.front());
        const int sous = t[numero].y + t[numero].hauteur;
        if (std::abs(menu.x - t[numero].x) > kMarge.x || std::abs(menu.y - sous) > kMarge.y)
            throw Echec("place du menu: attendu sous le titre " + texte(t[numero]) + ", vu " + texte(menu));
        return menu;
    }

    void choisit(std::size_t titre, int entree) {
        const Cadre menu = deroule(titre);
        photo("menu");
        ecran_.va(menu.x + menu.largeur / 3, menu.y + 2 + entree * kEntreeDeMenu + kEntreeDeMenu / 2);
        ecran_.clic(1);
        sans_menu();
    }

    void menus() {
        une_fois("action 302", [&] { choisit(1, 1); });
        une_fois("action 303", [&] { choisit(1, 2); });
        une_fois("action 301", [&] { choisit(1, 0); });
        aucune_action([&] {
            deroule(static_cast<std::size_t>(au_plus(2)));
            ecran_.touche(XK_Escape);
            sans_menu();
            sentinelle();
        });
        prend_clavier();
    }

    void module() {
        une_fois("action 402", [&] { choisit(2, 1); });
        attend_egal("titres de menus", "4", [&] { return std::to_string(titres().size()); });
        une_fois("action 302", [&] { choisit(1, 1); });
        une_fois("action 601", [&] { choisit(3, 0); });
        prend_clavier();
        note_connues();
        une_fois("action 401", [&] {
            clavier_.avec(XK_Alt_L, 'm');
            attend_menu('m');
            clavier_.seule('c');
            sans_menu();
        });
        attend_egal("titres de menus", "3", [&] { return std::to_string(titres().size()); });
    }

    void autre(const std::string& etat, const std::function<void()>& geste) {
        const std::string avant = programme_->etat(etat);
        geste();
        attend(
            "un changement de " + etat, [&] { return programme_->etat(etat) != avant; }, kPatience);
    }

    void souris() {
        const Cadre c = feuille();
        ecran_.va(c.x + c.largeur / 2, c.y + c.hauteur / 2);
        for (int i = 0; i < 3; ++i) autre("echelle", [&] { ecran_.clic(4); });
        for (int i = 0; i < 3; ++i) autre("echelle", [&] { ecran_.clic(5); });
        autre("centre", [&] {
            ecran_.bouton(2, true);
            ecran_.glisse(c.x + c.largeur / 2, c.y + c.hauteur / 2, c.x + c.largeur / 3, c.y + c.hauteur / 3);
            ecran_.bouton(2, false);
        });
        autre("echelle", [&] {
            const int x = c.x + c.largeur / 3, y = c.y + c.hauteur / 3;
            ecran_.va(x, y);
            ecran_.bouton(1, true);
            ecran_.glisse(x, y, x + c.largeur / 4, y + c.hauteur / 4);
            ecran_.bouton(1, false);
        });
        photo("zoom");
        prend_clavier();
        une_fois(
            "action 301", [&] { clavier_.seule('f'); }, true);
    }

    void zoom() {
        une_fois("action 301", [&] { clic_outil(kIconeTout); });
        autre("echelle", [&] { clic_outil(au_plus(1) == 0 ? kZoomDroite : kZoomGauche); });
        autre("echelle", [&] { ecran_.touche(XK_Left); });
        prend_clavier();
        une_fois("action 301", [&] { clic_outil(kIconeTout); });
    }

    void liste() {
        const Pixels p{kCouche.x, kCouche.y + kPasDeCouche * au_plus(kCouchesCliquees)};
        une_fois("element ", [&] { clic_outil(p); });
        std::this_thread::sleep_for(kTenu); // the next click is a first one again
        for (int i = 0; i < 2; ++i) {
            autre("couches", [&] {
                clic_outil(p);
                ecran_.clic(1);
            });
            std::this_thread::sleep_for(kTenu);
        }
        prend_clavier();
    }

    void taille() {
        const Cadre avant = ecran_.place(fenetre_);
        for (int i = 0; i <= au_plus(2); ++i) redimensionne(700 + au_plus(420), 600 + au_plus(280));
        photo("taille");
        icones();
        menus();
        redimensionne(avant.largeur, avant.hauteur);
        icones();
    }

    void redimensionne(int largeur, int hauteur) {
        XResizeWindow(ecran_.d(), fenetre_, static_cast<unsigned>(largeur), static_cast<unsigned>(hauteur));
        XSync(ecran_.d(), False);
        attend_egal("taille de la fenetre", std::to_string(largeur) + "x" + std::to_string(hauteur), [&] {
            const Cadre c = ecran_.place(fenetre_);
            return std::to_string(c.largeur) + "x" + std::to_string(c.hauteur);
        });
        sentinelle();
    }

    void iconifie() {
        if (!gestionnaire_) return;
        XIconifyWindow(ecran_.d(), fenetre_, DefaultScreen(ecran_.d()));
        attend(
            "la fenetre en icone", [&] { return !ecran_.visible(fenetre_); }, kPatience);
        XMapWindow(ecran_.d(), fenetre_);
        attend(
            "la fenetre revenue", [&] { return ecran_.visible(fenetre_); }, kPatience);
        XRaiseWindow(ecran_.d(), fenetre_);
        prend_clavier();
        icones();
        menus();
    }

    void decorations() {
        for (const KeySym k : {XK_F11, XK_F12})
            for (int i = 0; i < 2; ++i) {
                prend_clavier();
                une_fois(k == XK_F11 ? "action 326" : "action 327", [&] { ecran_.touche(k); });
                attend(
                    "la fenetre a l'ecran", [&] { return ecran_.visible(fenetre_); }, kPatience);
                calme_place(fenetre_);
                prend_clavier();
                icones();
            }
        menus();
    }

    // --- steps: panels ---

    void ferme_de_l_une_des_facons(Window w, Place bouton_fermer, const std::string& titre) {
        switch (au_plus(2)) {
        case 0: clic_panneau(w, bouton_fermer); break;
        case 1: demande_fermeture(w); break;
        default: {
            const Cadre c = ecran_.place(w);
            ecran_.va(c.x + c.largeur - 3, c.y + c.hauteur - 3);
            if (gestionnaire_) ecran_.clic(1);
            ecran_.touche(XK_Escape);
        }
        }
        fermee(titre);
        prend_clavier();
    }

    Window par_touche(KeySym touche, const std::string& action, const std::string& titre) {
        prend_clavier();
        const std::size_t depuis = programme_->ici();
        ecran_.touche(touche);
        const Window w = ouverte(titre);
        egal("actions", "action " + action, programme_->lignes(depuis, "action "));
        return w;
    }

    void reglages() {
        const std::string titre = "glages du dessin";
        const std::string x = programme_->etat("x");
        const Window w = par_touche(XK_F5, "321", titre);
        aucune_action([&] {
            remplit(
                "pas", [&] { clic_panneau(w, kPas); }, hasard(5) + kCommandes);
        });
        egal("champ x", x, programme_->etat("x"));
        photo("reglages");
        const std::string pas = nombre_court((1 + au_plus(20)) / 4.0);
        remplit(
            "pas", [&] { clic_panneau(w, kPas); }, pas);
        const std::string grille = programme_->etat("grille");
        clic_panneau(w, kMontrer);
        clic_panneau(w, kAppliquer);
        attend_egal("grille", grille == "oui" ? "non" : "oui", [&] { return programme_->etat("grille"); });
        egal("pas", pas, programme_->etat("pas"));
        une_fois("action 302",
            [&] { ecran_.va(ecran_.place(w).x + 300, ecran_.place(w).y + 80), ecran_.touche(XK_F3, XK_Control_L); });
        ferme_de_l_une_des_facons(w, kReglagesFermer, titre);
    }

    void couches() {
        const std::string titre = "Choix des couches";
        const std::string x = programme_->etat("x");
        const Window w = par_touche(XK_F6, "322", titre);
        clic_panneau(w, kFiltre);
        const std::string t = hasard(9);
        clavier_.tape(t);
        photo("couches");
        const std::size_t depuis = programme_->ici();
        ecran_.touche(XK_Return);
        attend_egal("filtre des couches", t, [&] {
            const std::string l = programme_->lignes(depuis, "controle 342");
            return l.substr(std::min(l.size(), l.find(' ', std::string_view("controle 342 ").size()) + 1));
        });
        egal("champ x", x, programme_->etat("x"));
        une_fois("controle 344", [&] { clic_panneau(w, kToutes); });
        ferme_de_l_une_des_facons(w, kFermer, titre);
    }

    void nomenclature() {
        const Window w = par_touche(XK_F7, "323", "Nomenclature");
        note_connues();
        clic_panneau(w, kCritere);
        std::vector<Window> m;
        attend(
            "les choix", [&] { return !(m = menus_ouverts()).empty(); }, kPatience);
        std::this_thread::sleep_for(kTenu); // the next click is a first one again
        const Cadre c = ecran_.place(m.front()), p = ecran_.place(w);
        const int x = p.x + kCritere.x * kCaractere / 10, y = p.y + kCritere.y * kLigne / 10;
        if (x < c.x || x > c.x + c.largeur || std::abs(y - c.y) > 4 * kEntree)
            throw Echec(
                "place des choix: attendu vers " + std::to_string(x) + "," + std::to_string(y) + ", vu " + texte(c));
        photo("nomenclature");
        const int choix = au_plus(2);
        une_fois("controle 335 " + std::to_string(choix + 1), [&] {
            ecran_.va(c.x + c.largeur / 2, c.y + c.hauteur * (2 * choix + 1) / 6);
            photo("choix");
            ecran_.clic(1);
            sans_menu();
        });
        ferme_de_l_une_des_facons(w, kTableFermer, "Nomenclature");
    }

    void palette() {
        const Window w = par_touche(XK_F8, "324", "Couleur - ");
        const Cadre p = ecran_.place(w);
        const auto image = [&] { return ecran_.image(p); };
        const Image avant = calme(image);
        const int x = p.x + kBleu.x, y = p.y + kBleu.y;
        ecran_.va(x, y);
        ecran_.bouton(1, true);
        ecran_.glisse(x, y, x - kGlissee, y);
        ecran_.bouton(1, false);
        attend(
            "une autre palette", [&] { return image() != avant; }, kPatience);
        photo("palette");
        clic(w, kRetablir);
        calme(image);
        ecran_.touche(XK_Escape);
        fermee("Couleur - ");
        prend_clavier();
    }

    void bande() {
        const Window w = par_touche(XK_F9, "325", "Informations");
        const std::string x = programme_->etat("x");
        const Cadre c = ecran_.place(w);
        clavier_a(w);
        const auto dedans = [&] { clic(w, {4 + 67 * kCaractere, c.hauteur / 2}); };
        aucune_action([&] { remplit("saisie", dedans, hasard(7) + kCommandes); });
        egal("champ x", x, programme_->etat("x"));
        remplit("saisie", dedans, "3 4");
        dedans();
        une_fois("controle 353", [&] { ecran_.touche(XK_Return); });
        photo("bande");
        clic(w, kFleche);
        attend_egal("deux rangees", "oui", [&] { return ecran_.place(w).hauteur > c.hauteur * 3 / 2 ? "oui" : "non"; });
        calme_place(w);
        for (int i = 0; i < 2; ++i) {
            const std::string grille = programme_->etat("grille");
            une_fois("controle 354", [&] { clic(w, {4 + 88 * kCaractere, c.hauteur * 3 / 2}); });
            attend_egal("grille", grille == "oui" ? "non" : "oui", [&] { return programme_->etat("grille"); });
        }
        clic(w, {kFleche.x, c.hauteur + kFleche.y});
        attend_egal("une rangee", "a sa place", [&] {
            const Cadre r = ecran_.place(w);
            const bool la = r.largeur == c.largeur && r.hauteur == c.hauteur && std::abs(r.x - c.x) <= kEcartDePlace
                            && std::abs(r.y - c.y) <= kEcartDePlace;
            return la ? "a sa place" : texte(r) + ", avant " + texte(c);
        });
        prend_clavier();
        ecran_.touche(XK_F9);
        attend_egal("bande", "cachee", [&] { return ecran_.visible(w) ? "vue" : "cachee"; });
        prend_clavier();
    }

    // --- steps: files ---

    // The field for a path, emptied and typed into.
    void nomme(Window w, const std::string& nom) {
        constexpr int kCheminMax = 90;
        const Cadre c = ecran_.place(w);
        clic(w, {c.largeur / 2, c.hauteur - 93});
        for (const KeySym efface : {XK_BackSpace, XK_Delete}) // End is a key of the dialog's lists
            for (int i = 0; i < kCheminMax; ++i) ecran_.touche(efface);
        clavier_.tape((o_.place / nom).string());
    }

    std::set<std::string> fichiers(const std::string& extension) const {
        std::set<std::string> r;
        for (const auto& e : fs::directory_iterator(o_.place))
            if (e.path().extension() == extension) r.insert(e.path().filename().string());
        return r;
    }
    static std::string liste_de(const std::set<std::string>& noms) {
        std::string r;
        for (const std::string& n : noms) r += n + " ";
        return r;
    }

    Window dialogue(char lettre, const std::string& titre) {
        prend_clavier();
        clavier_.avec(XK_Control_L, lettre);
        const Window w = ouverte(titre);
        clavier_a(w);
        return w;
    }

    void image() {
        const std::string titre = "Enregistrer l'image";
        for (const auto& nom : fichiers(".BMP")) fs::remove(o_.place / nom);
        std::string nom;
        for (int i = 0; i < 6; ++i) nom += "abcDEF1234"[au_plus(9)];
        std::string grand = nom;
        for (char& c : grand) c = static_cast<char>(std::toupper(c));
        const std::size_t depuis = programme_->ici();
        nomme(dialogue('s', titre), nom);
        photo("enregistrer");
        ecran_.touche(XK_Return);
        attend_egal("fichiers", liste_de({grand + ".BMP", "maison.BMP"}), [&] { return liste_de(fichiers(".BMP")); });
        fermee(titre);
        attend(
            "la nouvelle", [&] { return programme_->etat("message").starts_with("Image : "); }, kPatience);
        egal("actions", "action 202", programme_->lignes(depuis, "action "));
        remplace(titre, nom, grand);
    }

    // The window that was not there.
    Window question_parmi(const std::vector<Window>& connues) {
        for (const Window w : fenetres())
            if (std::find(connues.begin(), connues.end(), w) == connues.end()) return w;
        throw Echec("attendu: une question; vu: rien de neuf");
    }

    // The same name again: the question comes, and what is answered holds.
    void remplace(const std::string& titre, const std::string& nom, const std::string& grand) {
        const auto date = [&] { return fs::last_write_time(o_.place / (grand + ".BMP")); };
        const auto avant = date();
        const Window w = dialogue('s', titre);
        nomme(w, nom);
        const std::vector<Window> connues = fenetres();
        const std::size_t combien = connues.size();
        ecran_.touche(XK_Return);
        attend(
            "la question", [&] { return fenetres().size() > combien; }, kPatience);
        clavier_a(question_parmi(connues));
        photo("question");
        ecran_.touche(XK_Escape);
        attend_egal("la question", "fermee", [&] { return fenetres().size() <= combien ? "fermee" : "ouverte"; });
        if (ecran_.cherche(ecran_.racine(), titre) != None) clavier_a(w), ecran_.touche(XK_Escape);
        fermee(titre);
        if (date() != avant) throw Echec("le fichier " + grand + ".BMP: attendu inchange, vu remplace");
        prend_clavier();
    }

    void ouvrir() {
        const std::string titre = "Ouvrir un plan";
        for (const char* const nom : {"Plan_A1.dxf", "casse.dxf", "maison.dxf"}) {
            nomme(dialogue('o', titre), nom);
            photo("ouvrir");
            ecran_.touche(XK_Return);
            fermee(titre);
            attend(
                std::string("la nouvelle de ") + nom,
                [&] { return programme_->etat("message").starts_with(std::string(nom) + " : "); }, kPatience);
            const bool casse = std::string(nom) == "casse.dxf";
            egal("ouvert", casse ? "non" : "oui",
                programme_->etat("message").find("pas ouvert") == std::string::npos ? "oui" : "non");
            const std::string montre = casse ? "Plan_A1.dxf" : nom;
            attend_egal("titre", "oui", [&] {
                return ecran_.titre(fenetre_).find(montre) != std::string::npos ? "oui" : ecran_.titre(fenetre_);
            });
        }
    }

    static std::string premiere_ligne(const fs::path& fichier) {
        std::ifstream f(fichier);
        std::string r;
        std::getline(f, r);
        return r;
    }
    fs::path liste_ecrite() const {
        for (const auto& e : fs::directory_iterator(o_.place))
            if (e.is_directory() && fs::exists(e.path() / "maison.txt")) return e.path() / "maison.txt";
        return {};
    }

    void editeur() {
        const std::string titre = "Editeur";
        const std::string x = programme_->etat("x");
        while (!liste_ecrite().empty()) fs::remove_all(liste_ecrite().parent_path());
        const Window w = dialogue('l', titre);
        const std::size_t depuis = programme_->ici();
        const Cadre c = ecran_.place(w);
        clic(w, {c.largeur / 2, c.hauteur / 2});
        ecran_.touche(XK_Home, XK_Control_L);
        ecran_.touche(XK_Return);
        ecran_.touche(XK_Home, XK_Control_L);
        const std::string l = hasard(10);
        clavier_.tape(l);
        ecran_.touche(XK_Home, XK_Shift_L);
        ecran_.touche(XK_Insert, XK_Control_L);
        ecran_.touche(XK_End);
        ecran_.touche(XK_Insert, XK_Shift_L);
        photo("editeur");
        sauve(w);
        attend_egal("premiere ligne", l + l, [&] { return premiere_ligne(liste_ecrite()); });
        ecran_.touche(XK_F3);
        fermee(titre);
        attend(
            "la nouvelle", [&] { return programme_->etat("message").starts_with("Liste enregistr"); }, kPatience);
        egal("champ x", x, programme_->etat("x"));
        egal("actions", "", programme_->lignes(depuis, "action "));
        prend_clavier();
    }

    void sauve(Window w) {
        note_connues();
        clic(w, kFichier);
        std::vector<Window> m;
        attend(
            "le menu de l'editeur", [&] { return !(m = menus_ouverts()).empty(); }, kPatience);
        const Cadre menu = ecran_.place(m.front()), e = ecran_.place(w);
        if (menu.x < e.x || menu.x > e.x + kFichier.x || menu.y < e.y || menu.y > e.y + kBarreDuHaut + kMarge.y)
            throw Echec("place du menu de l'editeur: attendu dans " + texte(e) + ", vu " + texte(menu));
        ecran_.va(menu.x + menu.largeur / 3, menu.y + 2 + 3 * kEntreeDeMenu + kEntreeDeMenu / 2);
        ecran_.clic(1);
        sans_menu();
    }

    void trace() {
        fs::remove_all(o_.place / "traceur");
        dialogue('t', "pertoire des trac");
        photo("tracer");
        ecran_.touche(XK_Return);
        attend(
            "le trace", [&] { return fs::exists(o_.place / "traceur" / "maison.plt"); }, kPatience);
        attend(
            "la nouvelle", [&] { return programme_->etat("message").starts_with("Trac"); }, kPatience);
        prend_clavier();
    }

    void fermeture() {
        prend_clavier();
        switch (au_plus(2)) {
        case 0: clavier_.avec(XK_Control_L, 'q'); break;
        case 1: demande_fermeture(fenetre_); break;
        default: ecran_.clic(1), clavier_.tape("q");
        }
        attend(
            "la fin d'atelier", [&] { return !programme_->vit(); }, kPatience);
        egal("code d'atelier", "0", std::to_string(programme_->code()));
        egal("stderr", "", programme_->plaintes());
    }

    static constexpr int kEcartDePlace = 2;          // borders of managers that the settings do not know
    static constexpr const char* kCommandes = "q-f"; // on the sheet these are commands
    static constexpr const char* kTitrePrincipal = "atelier - ";

    Options o_;
    Ecran ecran_;
    Clavier clavier_;
    std::mt19937 hasard_;
    std::optional<Programme> programme_;
    Window fenetre_ = None;
    bool gestionnaire_ = false;
    std::string etape_, plaintes_;
    std::set<Window> connues_;
    std::map<std::string, int> photos_;
    std::vector<long> memoires_;
    int tours_ = 0, etapes_ = 0, manquees_ = 0;
};

Options options(int nombre, char** textes) {
    if (nombre < 7) throw Echec("usage: usage PROGRAMME IMAGES PLACE SECONDES GRAINE COMBINAISON [GROUPE [VERROU...]]");
    Options o{textes[1], textes[2], textes[3], std::atoi(textes[4]), static_cast<unsigned>(std::atoi(textes[5])),
        textes[6], nombre > 7 ? std::atoi(textes[7]) : 0, {}, ""};
    if (const char* const seule = std::getenv("USE_STEP")) o.seule = seule;
    for (int i = 8; i < nombre; ++i) o.verrous.push_back(XStringToKeysym(textes[i]));
    return o;
}

} // namespace

int main(int nombre, char** textes) try {
    return Usage(options(nombre, textes)).fait() == 0 ? 0 : 1;
} catch (const std::exception& e) {
    std::fprintf(stderr, "usage: %s\n", e.what());
    return 1;
}
