// The screen as a user's hands and eyes have it: windows, pictures, mouse and keys, through Xlib and XTest alone.
#ifndef VISITE_ECRAN_H
#define VISITE_ECRAN_H

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
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace visite {

using Horloge = std::chrono::steady_clock;
constexpr auto kDelai = std::chrono::seconds(20), kPatience = std::chrono::seconds(10);
constexpr auto kPause = std::chrono::milliseconds(20);
constexpr auto kTenu = std::chrono::milliseconds(1000); // a menu let go of earlier was clicked, and stays

struct Echec : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// From the upper left corner of a window.
struct Pixels {
    int x, y;
};

struct Cadre {
    int x = 0, y = 0, largeur = 0, hauteur = 0;
};

inline std::string texte_de(const Cadre& c) {
    return std::to_string(c.largeur) + "x" + std::to_string(c.hauteur) + "+" + std::to_string(c.x) + "+"
           + std::to_string(c.y);
}

struct Image {
    int largeur = 0, hauteur = 0;
    std::vector<unsigned long> points;
    unsigned long en(int x, int y) const {
        return points[static_cast<std::size_t>(y) * static_cast<std::size_t>(largeur) + static_cast<std::size_t>(x)];
    }
    bool operator==(const Image&) const = default;
};

inline void attend(
    const std::string& quoi, const std::function<bool()>& condition, std::chrono::seconds delai = kDelai) {
    const auto fin = Horloge::now() + delai;
    while (!condition()) {
        if (Horloge::now() > fin) throw Echec("rien ne vient : " + quoi);
        std::this_thread::sleep_for(kPause);
    }
}

// For what a user would not wait longer for.
inline void patiente(const std::string& quoi, const std::function<bool()>& condition) {
    attend(quoi, condition, kPatience);
}

inline int ignore_erreur(Display*, XErrorEvent*) {
    return 0; // windows may be gone by the time they are asked about
}

// A picture of the whole screen.
inline void photo(const std::string& fichier) {
    const pid_t enfant = fork();
    if (enfant == 0) {
        execlp("import", "import", "-window", "root", fichier.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    int code = 0;
    if (enfant < 0 || waitpid(enfant, &code, 0) < 0 || code != 0) throw Echec("pas d'image " + fichier);
}

inline std::size_t couleurs(const Image& image) {
    std::vector<unsigned long> c = image.points;
    std::sort(c.begin(), c.end());
    return static_cast<std::size_t>(std::unique(c.begin(), c.end()) - c.begin());
}

// Part of the pixels of avant that are found again in apres, moved by dx, dy.
inline double retrouves(const Image& avant, const Image& apres, int dx, int dy) {
    long communs = 0, pareils = 0;
    for (int y = std::max(0, -dy); y < avant.hauteur - std::max(0, dy); ++y)
        for (int x = std::max(0, -dx); x < avant.largeur - std::max(0, dx); ++x) {
            ++communs;
            pareils += avant.en(x, y) == apres.en(x + dx, y + dy);
        }
    return static_cast<double>(pareils) / static_cast<double>(std::max(1L, communs));
}

// A picture once it brings nothing new, twice in a row. One of the last few is nothing new: an insertion point blinks.
inline Image calme(const std::function<Image()>& image) {
    constexpr std::size_t kFois = 2, kConnues = 4;
    std::deque<Image> connues{image()};
    std::size_t pareilles = 0;
    attend("une image qui ne change plus", [&] {
        Image nouvelle = image();
        const bool connue = std::find(connues.begin(), connues.end(), nouvelle) != connues.end();
        pareilles = connue ? pareilles + 1 : 0;
        connues.push_back(std::move(nouvelle));
        if (connues.size() > kConnues) connues.pop_front();
        return pareilles == kFois;
    });
    return connues.back();
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

    // A window of the application by a part of its title; without a manager only what is seen counts as there.
    Window cherche(Window w, const std::string& nom) const {
        if (titre(w).find(nom) != std::string::npos && (etat(w) != 0 || visible(w))) return w;
        for (const Window fille : filles(w))
            if (const Window trouvee = cherche(fille, nom); trouvee != None) return trouvee;
        return None;
    }

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
        while (w != None) {
            Window racine = None, mere = None, *liste = nullptr;
            unsigned int nombre = 0;
            if (XQueryTree(d_, w, &racine, &mere, &liste, &nombre) == 0) return None;
            if (liste != nullptr) XFree(liste);
            if (mere == racine) return w;
            w = mere;
        }
        return None;
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
        XTextProperty nom{}; // of any encoding
        if (XGetWMName(d_, w, &nom) == 0 || nom.value == nullptr) return {};
        std::string r(reinterpret_cast<const char*>(nom.value), nom.nitems);
        XFree(nom.value);
        return r;
    }

    // The window that keys go to.
    Window clavier() const {
        Window w = None;
        int retour = 0;
        XGetInputFocus(d_, &w, &retour);
        return w == PointerRoot ? None : w;
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
        r.points.reserve(static_cast<std::size_t>(c.largeur) * static_cast<std::size_t>(c.hauteur));
        for (int y = 0; y < c.hauteur; ++y)
            for (int x = 0; x < c.largeur; ++x) r.points.push_back(XGetPixel(lue, x, y));
        XDestroyImage(lue);
        en_couleurs(r);
        return r;
    }

    // On a screen with a palette what is seen can change while the cells of the picture stay: their colours are taken.
    void en_couleurs(Image& image) const {
        constexpr unsigned kOctet = 8;
        if (DefaultDepth(d_, DefaultScreen(d_)) > static_cast<int>(kOctet)) return;
        std::vector<XColor> cellules(1U << kOctet);
        for (std::size_t i = 0; i < cellules.size(); ++i) cellules[i].pixel = i;
        XQueryColors(d_, DefaultColormap(d_, DefaultScreen(d_)), cellules.data(), static_cast<int>(cellules.size()));
        for (unsigned long& point : image.points) {
            const XColor& c = cellules[point % cellules.size()];
            point = (c.red * 0x100UL) | c.green | (c.blue / 0x100UL);
        }
    }

    // As a window manager is asked to.
    void deplace(Window w, int x, int y) {
        XMoveWindow(d_, w, x, y);
        XSync(d_, False);
    }

    // --- input ---

    void va(int x, int y) {
        XTestFakeMotionEvent(d_, -1, x, y, CurrentTime);
        XSync(d_, False);
    }
    void va(Window w, Pixels p) {
        const Cadre c = place(w);
        va(c.x + p.x, c.y + p.y);
    }
    void va_au_milieu(Window w) {
        const Cadre c = place(w);
        va(c.x + c.largeur / 2, c.y + c.hauteur / 2);
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
    void touche_code(KeyCode code, bool appui) {
        XTestFakeKeyEvent(d_, code, appui ? True : False, CurrentTime);
        XSync(d_, False);
    }
    void touche(KeySym symbole, KeySym avec = NoSymbol) {
        if (avec != NoSymbol) cle(avec, true);
        cle(symbole, true);
        cle(symbole, false);
        if (avec != NoSymbol) cle(avec, false);
    }

  private:
    void cle(KeySym symbole, bool appui) { touche_code(XKeysymToKeycode(d_, symbole), appui); }

    Display* d_;
};

} // namespace visite

#endif
