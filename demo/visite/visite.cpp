// visite DIRECTORY: visits a running atelier as a user would, with real mouse and keys, under mwm, and leaves pictures
// of the screen in DIRECTORY. Every step waits for what it should bring about; the exit code is 0 when all of them did.
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace {

using Horloge = std::chrono::steady_clock;
constexpr auto kDelai = std::chrono::seconds(20);
constexpr auto kPause = std::chrono::milliseconds(20);

struct Echec : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Cadre {
    int x = 0, y = 0, largeur = 0, hauteur = 0;
};

struct Image {
    int largeur = 0, hauteur = 0;
    std::vector<unsigned long> points;
    unsigned long en(int x, int y) const {
        return points[static_cast<std::size_t>(y) * static_cast<std::size_t>(largeur) + static_cast<std::size_t>(x)];
    }
    bool operator==(const Image&) const = default;
};

void attend(const std::string& quoi, const std::function<bool()>& condition) {
    const auto fin = Horloge::now() + kDelai;
    while (!condition()) {
        if (Horloge::now() > fin) throw Echec("rien ne vient : " + quoi);
        std::this_thread::sleep_for(kPause);
    }
}

int ignore_erreur(Display*, XErrorEvent*) {
    return 0; // windows may be gone by the time they are asked about
}

// --- the screen ---------------------------------------------------------------------------------------------------

class Ecran {
  public:
    Ecran() : d_(XOpenDisplay(nullptr)) {
        if (d_ == nullptr) throw Echec("pas d'ecran");
        XSetErrorHandler(ignore_erreur);
        // The window manager may grab the server. Never drag what it draws itself: where a request waits at the moment
        // of such a grab, the server forgets that this client need not care, and both wait for ever.
        XTestGrabControl(d_, True);
    }
    ~Ecran() { XCloseDisplay(d_); }
    Ecran(const Ecran&) = delete;
    Ecran& operator=(const Ecran&) = delete;

    Display* d() const { return d_; }
    Window racine() const { return DefaultRootWindow(d_); }

    std::vector<Window> filles(Window w) const {
        Window racine = None, mere = None, *liste = nullptr;
        unsigned int nombre = 0;
        if (XQueryTree(d_, w, &racine, &mere, &liste, &nombre) == 0) return {};
        std::vector<Window> r(liste, liste + nombre);
        if (liste != nullptr) XFree(liste);
        return r;
    }

    // The child of the root that holds w: the window manager's frame.
    Window cadre_de(Window w) const {
        for (;;) {
            Window racine = None, mere = None, *liste = nullptr;
            unsigned int nombre = 0;
            if (XQueryTree(d_, w, &racine, &mere, &liste, &nombre) == 0) return None;
            if (liste != nullptr) XFree(liste);
            if (mere == racine) return w;
            w = mere;
        }
    }

    Cadre place(Window w) const {
        XWindowAttributes a{};
        if (XGetWindowAttributes(d_, w, &a) == 0) return {};
        Cadre c{0, 0, a.width, a.height};
        Window fille = None;
        XTranslateCoordinates(d_, w, racine(), 0, 0, &c.x, &c.y, &fille);
        return c;
    }

    bool visible(Window w) const {
        XWindowAttributes a{};
        return XGetWindowAttributes(d_, w, &a) != 0 && a.map_state == IsViewable;
    }

    std::string titre(Window w) const {
        char* nom = nullptr;
        if (XFetchName(d_, w, &nom) == 0 || nom == nullptr) return {};
        const std::string r = nom;
        XFree(nom);
        return r;
    }

    // WM_STATE of ICCCM: 1 normal, 3 iconic, 0 unknown.
    long etat(Window w) const {
        const Atom wm_state = XInternAtom(d_, "WM_STATE", False);
        Atom type = None;
        int format = 0;
        unsigned long nombre = 0, reste = 0;
        unsigned char* valeur = nullptr;
        XGetWindowProperty(d_, w, wm_state, 0, 2, False, wm_state, &type, &format, &nombre, &reste, &valeur);
        const long r = valeur != nullptr && nombre > 0 ? *reinterpret_cast<long*>(valeur) : 0;
        if (valeur != nullptr) XFree(valeur);
        return r;
    }

    Image image(const Cadre& c) const {
        Image r{c.largeur, c.hauteur, {}};
        XImage* const lue = XGetImage(d_, racine(), c.x, c.y, static_cast<unsigned>(c.largeur),
            static_cast<unsigned>(c.hauteur), AllPlanes, ZPixmap);
        if (lue == nullptr) throw Echec("l'ecran ne se laisse pas lire");
        for (int y = 0; y < c.hauteur; ++y)
            for (int x = 0; x < c.largeur; ++x) r.points.push_back(XGetPixel(lue, x, y));
        XDestroyImage(lue);
        return r;
    }

    // --- input ---

    void va(int x, int y) {
        XTestFakeMotionEvent(d_, -1, x, y, CurrentTime);
        XSync(d_, False);
    }
    void glisse(int x1, int y1, int x2, int y2) {
        constexpr int kEtapes = 24;
        for (int i = 1; i <= kEtapes; ++i) va(x1 + (x2 - x1) * i / kEtapes, y1 + (y2 - y1) * i / kEtapes);
    }
    void bouton(unsigned numero, bool appui) {
        XTestFakeButtonEvent(d_, numero, appui ? True : False, CurrentTime);
        XSync(d_, False);
    }
    void clic(unsigned numero) {
        bouton(numero, true);
        bouton(numero, false);
    }
    void touche(KeySym symbole, KeySym avec = NoSymbol) {
        if (avec != NoSymbol) cle(avec, true);
        cle(symbole, true);
        cle(symbole, false);
        if (avec != NoSymbol) cle(avec, false);
    }

  private:
    void cle(KeySym symbole, bool appui) {
        XTestFakeKeyEvent(d_, XKeysymToKeycode(d_, symbole), appui ? True : False, CurrentTime);
        XSync(d_, False);
    }

    Display* d_;
};

// --- the visit ----------------------------------------------------------------------------------------------------

// Decorations of mwm, in pixels.
constexpr int kTitre = 17, kBord = 7;

// What atelier has at the left of its window: tools this wide, in them a row of icons.
constexpr int kOutils = 212;
constexpr int kBarre = 32, kIconePlus = 65, kIcones = 29; // height of the menu bar, middle of the icon

class Visite {
  public:
    explicit Visite(std::string repertoire) : repertoire_(std::move(repertoire)) {}

    void faite() {
        etape("fenetre et vue d'ensemble", [this] { arrivee(); });
        etape("elastique de zoom", [this] { elastique(); });
        etape("deplacement au bouton du milieu", [this] { deplacement(); });
        etape("zoom a la molette", [this] { molette(); });
        etape("icone, menu et touche de menu", [this] { outils(); });
        etape("grande taille et retour", [this] { taille(); });
        etape("iconification et retour", [this] { icone(); });
        etape("vue d'ensemble au clavier", [this] { clavier(); });
        etape("fermeture par le gestionnaire", [this] { fermeture(); });
    }

  private:
    void etape(const char* nom, const std::function<void()>& fait) {
        std::printf("%d. %s ... ", ++numero_, nom);
        std::fflush(stdout);
        fait();
        std::puts("fait");
    }

    // A picture of the whole screen.
    void photo(const char* nom) {
        const std::string fichier = repertoire_ + "/" + nom + ".png";
        const pid_t enfant = fork();
        if (enfant == 0) {
            execlp("import", "import", "-window", "root", fichier.c_str(), static_cast<char*>(nullptr));
            _exit(127);
        }
        int code = 0;
        if (enfant < 0 || waitpid(enfant, &code, 0) < 0 || code != 0) throw Echec("pas d'image " + fichier);
    }

    Window cherche(Window w) const {
        if (ecran_.titre(w).starts_with("atelier - ") && ecran_.etat(w) != 0) return w;
        for (const Window fille : ecran_.filles(w))
            if (const Window trouvee = cherche(fille); trouvee != None) return trouvee;
        return None;
    }

    // The drawing sheet: the window without the tools at the left, the menu bar above and the status strip below.
    Cadre feuille() const {
        constexpr int kMarge = 40;
        Cadre c = ecran_.place(fenetre_);
        c.x += kOutils;
        c.largeur -= kOutils;
        c.y += kMarge;
        c.hauteur -= 2 * kMarge;
        return c;
    }
    Image dessin() const { return ecran_.image(feuille()); }

    // The picture once it no longer changes.
    Image calme() const {
        Image avant = dessin(), apres;
        attend("une image qui ne change plus", [&] {
            apres = dessin();
            return std::exchange(avant, apres) == apres;
        });
        return avant;
    }

    static std::size_t couleurs(const Image& image) {
        std::vector<unsigned long> c = image.points;
        std::sort(c.begin(), c.end());
        return static_cast<std::size_t>(std::unique(c.begin(), c.end()) - c.begin());
    }

    // Part of the pixels of avant that are found again in apres, moved by dx, dy.
    static double retrouves(const Image& avant, const Image& apres, int dx, int dy) {
        long communs = 0, pareils = 0;
        for (int y = std::max(0, -dy); y < avant.hauteur - std::max(0, dy); ++y)
            for (int x = std::max(0, -dx); x < avant.largeur - std::max(0, dx); ++x) {
                ++communs;
                pareils += avant.en(x, y) == apres.en(x + dx, y + dy);
            }
        return static_cast<double>(pareils) / static_cast<double>(std::max(1L, communs));
    }

    template <class Geste>
    void attend_titre(Geste geste) {
        const std::string avant = ecran_.titre(fenetre_);
        geste();
        attend("une autre echelle dans le titre", [&] { return ecran_.titre(fenetre_) != avant; });
    }

    void arrivee() {
        attend("la fenetre d'atelier", [&] { return (fenetre_ = cherche(ecran_.racine())) != None; });
        attend("la fenetre a l'ecran", [&] { return ecran_.visible(fenetre_); });
        attend("l'echelle dans le titre",
            [&] { return ecran_.titre(fenetre_).rfind(" - ") > std::string_view("atelier").size(); });
        attend("un dessin", [&] { return couleurs(dessin()) > 1; });
        calme();
        photo("1-ensemble");
    }

    void elastique() {
        const Cadre c = feuille();
        const int x1 = c.x + c.largeur * 47 / 100, y1 = c.y + c.hauteur * 8 / 100;
        const int x2 = c.x + c.largeur * 79 / 100, y2 = c.y + c.hauteur * 39 / 100;
        ecran_.va(x1, y1);
        const Image avant = calme();
        ecran_.bouton(1, true);
        ecran_.glisse(x1, y1, x2, y2);
        attend("l'elastique", [&] {
            const Image image = dessin();
            const auto change = [&](int x, int y) { return image.en(x - c.x, y - c.y) != avant.en(x - c.x, y - c.y); };
            return change((x1 + x2) / 2, y1) && change((x1 + x2) / 2, y2) && change(x1, (y1 + y2) / 2)
                   && change(x2, (y1 + y2) / 2) && !change((x1 + x2) / 2, (y1 + y2) / 2);
        });
        photo("2-elastique");
        attend_titre([&] { ecran_.bouton(1, false); });
        calme();
        photo("3-zoom");
    }

    void deplacement() {
        constexpr int kDx = -150, kDy = 110;
        const Cadre c = feuille();
        const int x = c.x + c.largeur / 2, y = c.y + c.hauteur / 2;
        ecran_.va(x, y);
        const Image avant = calme();
        ecran_.bouton(2, true);
        ecran_.glisse(x, y, x + kDx, y + kDy);
        attend("le dessin sous la main", [&] { return retrouves(avant, dessin(), kDx, kDy) > 0.97; });
        ecran_.bouton(2, false);
        calme();
        photo("4-deplacement");
    }

    void molette() {
        const Cadre c = feuille();
        ecran_.va(c.x + c.largeur / 3, c.y + c.hauteur / 2);
        for (int i = 0; i < 3; ++i) attend_titre([&] { ecran_.clic(4); });
        calme();
        photo("5-molette");
        for (int i = 0; i < 6; ++i) attend_titre([&] { ecran_.clic(5); });
    }

    // An icon, an entry of a menu and its key do the same.
    void outils() {
        const Cadre c = ecran_.place(fenetre_);
        ecran_.va(c.x + kIconePlus, c.y + kBarre + kIcones);
        attend_titre([&] { ecran_.clic(1); });
        attend_titre([&] { ecran_.touche(XK_F3, XK_Control_L); });
        const Cadre sous_la_barre{c.x, c.y + kBarre, c.largeur / 3, c.hauteur / 4};
        const Image avant = ecran_.image(sous_la_barre);
        ecran_.touche(XK_a, XK_Alt_L);
        attend("le menu", [&] { return retrouves(avant, ecran_.image(sous_la_barre), 0, 0) < 0.98; });
        photo("6-menu");
        attend_titre([&] { ecran_.touche(XK_a); });
        calme();
    }

    // The box on the right of the title makes a window as large as the screen, and small again.
    void clic_maximise() {
        const Cadre cadre = ecran_.place(ecran_.cadre_de(fenetre_));
        ecran_.va(cadre.x + cadre.largeur - kBord - kTitre / 2, cadre.y + kBord + kTitre / 2);
        ecran_.clic(1);
    }

    void taille() {
        const Cadre avant = ecran_.place(fenetre_);
        clic_maximise();
        attend("la grande taille", [&] { return ecran_.place(fenetre_).largeur > avant.largeur + kTitre; });
        attend("le dessin", [&] { return couleurs(dessin()) > 1; });
        calme();
        photo("7-taille");
        clic_maximise();
        attend("la taille d'avant", [&] { return ecran_.place(fenetre_).largeur == avant.largeur; });
        attend("le dessin", [&] { return couleurs(dessin()) > 1; });
        calme();
    }

    // Small mapped windows on the root that were not there before.
    std::vector<Window> visibles() const {
        std::vector<Window> r;
        for (const Window w : ecran_.filles(ecran_.racine()))
            if (ecran_.visible(w)) r.push_back(w);
        return r;
    }

    void icone() {
        const Image avant = calme();
        const std::vector<Window> connues = visibles();
        const Cadre cadre = ecran_.place(ecran_.cadre_de(fenetre_));
        ecran_.va(cadre.x + cadre.largeur - kBord - kTitre - kTitre / 2, cadre.y + kBord + kTitre / 2);
        ecran_.clic(1);
        attend("l'icone", [&] { return ecran_.etat(fenetre_) == IconicState && !ecran_.visible(fenetre_); });
        Window icone = None;
        attend("la fenetre de l'icone", [&] {
            for (const Window w : visibles())
                if (std::find(connues.begin(), connues.end(), w) == connues.end()) icone = w;
            return icone != None;
        });
        photo("8-icone");
        const Cadre c = ecran_.place(icone);
        ecran_.va(c.x + c.largeur / 2, c.y + c.hauteur / 2);
        ecran_.clic(1);
        ecran_.clic(1);
        attend("le retour", [&] { return ecran_.etat(fenetre_) == NormalState && ecran_.visible(fenetre_); });
        ecran_.va(cadre.x + cadre.largeur / 2, cadre.y + kBord + kTitre / 2);
        attend("le meme dessin", [&] { return retrouves(avant, dessin(), 0, 0) > 0.999; });
        photo("9-retour");
    }

    void clavier() {
        const Cadre cadre = ecran_.place(ecran_.cadre_de(fenetre_));
        ecran_.va(cadre.x + cadre.largeur / 2, cadre.y + kBord + kTitre / 2);
        ecran_.clic(1); // mwm gives the focus to the window whose title is clicked
        attend_titre([&] { ecran_.touche(XK_f); });
        calme();
        photo("10-clavier");
    }

    void fermeture() {
        ecran_.touche(XK_F4, XK_Alt_L);
        attend("la fin de la fenetre", [&] { return cherche(ecran_.racine()) == None; });
    }

    Ecran ecran_;
    std::string repertoire_;
    Window fenetre_ = None;
    int numero_ = 0;
};

} // namespace

int main(int nombre, char** textes) try {
    if (nombre != 2) throw Echec("usage: visite REPERTOIRE");
    Visite(textes[1]).faite();
    return 0;
} catch (const std::exception& e) {
    std::printf("ECHEC\n");
    std::fflush(stdout);
    std::fprintf(stderr, "visite: %s\n", e.what());
    return 1;
}
