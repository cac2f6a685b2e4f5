// A keyboard as hands have it: layouts, lock keys, and the keys that give a character in the state in force.
#ifndef VISITE_CLAVIER_H
#define VISITE_CLAVIER_H

#include <X11/XKBlib.h>

#include <optional>

#include "ecran.h"

namespace visite {

class Clavier {
  public:
    explicit Clavier(Ecran& ecran) : ecran_(ecran) {}

    // Every lock key pressed once; the group locked, counted from 0. The layout is that of the server.
    void verrouille(const std::vector<KeySym>& verrous, int groupe) {
        for (const KeySym verrou : verrous) ecran_.touche(verrou);
        XkbLockGroup(ecran_.d(), XkbUseCoreKbd, static_cast<unsigned>(groupe));
        XSync(ecran_.d(), False);
    }

    unsigned etat() const {
        XkbStateRec s{};
        XkbGetState(ecran_.d(), XkbUseCoreKbd, &s);
        return XkbBuildCoreState(s.mods, s.group);
    }

    bool donne(unsigned char caractere) const { return touche_pour(caractere).has_value(); }

    // A character of Latin-1, as a typist has it: with Shift or the third level where the layout wants them.
    void tape(unsigned char caractere) {
        const auto t = touche_pour(caractere);
        if (!t) throw Echec("aucune touche pour le caractere " + std::to_string(caractere));
        if (t->majuscule) appuie(XK_Shift_L, true);
        if (t->troisieme) appuie(XK_ISO_Level3_Shift, true);
        ecran_.touche_code(t->code, true);
        ecran_.touche_code(t->code, false);
        if (t->troisieme) appuie(XK_ISO_Level3_Shift, false);
        if (t->majuscule) appuie(XK_Shift_L, false);
    }
    void tape(const std::string& texte) {
        for (const char c : texte) tape(static_cast<unsigned char>(c));
    }

    // The key that has the letter on it, held with a modifier.
    void avec(KeySym modificateur, char lettre) {
        const KeyCode code = touche_de(static_cast<KeySym>(lettre));
        appuie(modificateur, true);
        ecran_.touche_code(code, true);
        ecran_.touche_code(code, false);
        appuie(modificateur, false);
    }

    void seule(char lettre) {
        const KeyCode code = touche_de(static_cast<KeySym>(lettre));
        ecran_.touche_code(code, true);
        ecran_.touche_code(code, false);
    }

  private:
    struct Touche {
        KeyCode code = 0;
        bool majuscule = false, troisieme = false;
    };
    static constexpr int kPremiere = 8, kDerniere = 255;
    static constexpr unsigned kTroisieme = Mod5Mask;

    void appuie(KeySym symbole, bool appui) { ecran_.touche_code(XKeysymToKeycode(ecran_.d(), symbole), appui); }

    KeySym symbole(int code, unsigned etat_) const {
        XKeyEvent e{};
        e.type = KeyPress;
        e.display = ecran_.d();
        e.keycode = static_cast<unsigned>(code);
        e.state = etat_;
        KeySym s = NoSymbol;
        char octets[8];
        XLookupString(&e, octets, sizeof octets, &s, nullptr);
        return s;
    }

    std::optional<Touche> touche_pour(unsigned char caractere) const {
        const unsigned base = etat();
        for (const unsigned plus : {0U, static_cast<unsigned>(ShiftMask), kTroisieme, ShiftMask | kTroisieme})
            for (int code = kPremiere; code <= kDerniere; ++code)
                if (symbole(code, base | plus) == caractere)
                    return Touche{static_cast<KeyCode>(code), (plus & ShiftMask) != 0, (plus & kTroisieme) != 0};
        return std::nullopt;
    }

    KeyCode touche_de(KeySym lettre) const {
        const unsigned sans_verrou = etat() & ~static_cast<unsigned>(LockMask);
        for (int code = kPremiere; code <= kDerniere; ++code)
            if (symbole(code, sans_verrou) == lettre) return static_cast<KeyCode>(code);
        throw Echec(std::string("aucune touche pour la lettre ") + static_cast<char>(lettre));
    }

    Ecran& ecran_;
};

} // namespace visite

#endif
