#include <cctype>
#include <set>

#include "etapes.h"

namespace visite::etapes {

namespace {

namespace fs = std::filesystem;

constexpr int kSauver = 3; // entry of the editor's menu
constexpr int kEcart = 6;  // pixels that a menu may lie below its title

// The field for a path, emptied and typed into.
void nomme(Session& s, Window w, const std::string& nom) {
    constexpr int kCheminMax = 90;
    const Cadre c = s.ecran().place(w);
    s.clic(w, {c.largeur / 2, c.hauteur - 93});
    for (const KeySym efface : {XK_BackSpace, XK_Delete}) // End is a key of the dialog's lists
        for (int i = 0; i < kCheminMax; ++i) s.ecran().touche(efface);
    s.clavier().tape((s.place() / nom).string());
}

std::set<std::string> fichiers(const Session& s, const std::string& extension) {
    std::set<std::string> r;
    for (const auto& e : fs::directory_iterator(s.place()))
        if (e.path().extension() == extension) r.insert(e.path().filename().string());
    return r;
}

std::string liste_de(const std::set<std::string>& noms) {
    std::string r;
    for (const std::string& n : noms) r += n + " ";
    return r;
}

Window dialogue(Session& s, char lettre, const std::string& titre) {
    s.prend_clavier();
    s.clavier().avec(XK_Control_L, lettre);
    const Window w = s.ouverte(titre);
    s.clavier_a(w);
    return w;
}

// The window that was not there.
Window question_parmi(Session& s, const std::vector<Window>& connues) {
    for (const Window w : s.fenetres())
        if (std::find(connues.begin(), connues.end(), w) == connues.end()) return w;
    throw Echec("attendu: une question; vu: rien de neuf");
}

// The same name again: the question comes, and what is answered holds.
void remplace(Session& s, const std::string& titre, const std::string& nom, const std::string& grand) {
    const auto date = [&] { return fs::last_write_time(s.place() / (grand + ".BMP")); };
    const auto avant = date();
    const Window w = dialogue(s, 's', titre);
    nomme(s, w, nom);
    const std::vector<Window> connues = s.fenetres();
    const std::size_t combien = connues.size();
    s.ecran().touche(XK_Return);
    patiente("la question", [&] { return s.fenetres().size() > combien; });
    s.clavier_a(question_parmi(s, connues));
    s.photo("question");
    s.ecran().touche(XK_Escape);
    s.attend_egal("la question", "fermee", [&] { return s.fenetres().size() <= combien ? "fermee" : "ouverte"; });
    if (s.ecran().cherche(s.ecran().racine(), titre) != None) s.clavier_a(w), s.ecran().touche(XK_Escape);
    s.fermee(titre);
    if (date() != avant) throw Echec("le fichier " + grand + ".BMP: attendu inchange, vu remplace");
    s.prend_clavier();
}

void sauve(Session& s, Window w) {
    s.menus().note();
    s.clic(w, kFichier);
    const Cadre menu = s.ecran().place(s.menus().attend_un("le menu de l'editeur")), e = s.ecran().place(w);
    if (menu.x < e.x || menu.x > e.x + kFichier.x || menu.y < e.y || menu.y > e.y + kBarre + kEcart)
        throw Echec("place du menu de l'editeur: attendu dans " + texte_de(e) + ", vu " + texte_de(menu));
    s.menus().choisit(menu, kSauver);
}

} // namespace

void image(Session& s) {
    const std::string titre = kTitreImage;
    for (const auto& nom : fichiers(s, ".BMP")) fs::remove(s.place() / nom);
    std::string nom;
    for (int i = 0; i < 6; ++i) nom += "abcDEF1234"[s.au_plus(9)];
    std::string grand = nom;
    for (char& c : grand) c = static_cast<char>(std::toupper(c));
    const std::size_t depuis = s.programme().ici();
    nomme(s, dialogue(s, 's', titre), nom);
    s.photo("enregistrer");
    s.ecran().touche(XK_Return);
    s.attend_egal("fichiers", liste_de({grand + ".BMP", "maison.BMP"}), [&] { return liste_de(fichiers(s, ".BMP")); });
    s.fermee(titre);
    patiente("la nouvelle", [&] { return s.etat("message").starts_with("Image : "); });
    s.egal("actions", "action 202", s.programme().lignes(depuis, "action "));
    remplace(s, titre, nom, grand);
}

void ouvrir(Session& s) {
    const std::string titre = kTitreOuvrir;
    for (const char* const nom : {"Plan_A1.dxf", "casse.dxf", "maison.dxf"}) {
        nomme(s, dialogue(s, 'o', titre), nom);
        s.photo("ouvrir");
        s.ecran().touche(XK_Return);
        s.fermee(titre);
        patiente(std::string("la nouvelle de ") + nom,
            [&] { return s.etat("message").starts_with(std::string(nom) + " : "); });
        const bool casse = std::string(nom) == "casse.dxf";
        s.egal(
            "ouvert", casse ? "non" : "oui", s.etat("message").find("pas ouvert") == std::string::npos ? "oui" : "non");
        const std::string montre = casse ? "Plan_A1.dxf" : nom;
        s.attend_egal("titre", "oui", [&] {
            return s.ecran().titre(s.fenetre()).find(montre) != std::string::npos ? "oui"
                                                                                  : s.ecran().titre(s.fenetre());
        });
    }
}

void editeur(Session& s) {
    const std::string titre = kTitreEditeur;
    const std::string x = s.etat("x");
    while (!liste_ecrite(s.place()).empty()) fs::remove_all(liste_ecrite(s.place()).parent_path());
    const Window w = dialogue(s, 'l', titre);
    const std::size_t depuis = s.programme().ici();
    const Cadre c = s.ecran().place(w);
    s.clic(w, {c.largeur / 2, c.hauteur / 2});
    s.ecran().touche(XK_Home, XK_Control_L);
    s.ecran().touche(XK_Return);
    s.ecran().touche(XK_Home, XK_Control_L);
    const std::string l = s.hasard(10);
    s.clavier().tape(l);
    s.ecran().touche(XK_Home, XK_Shift_L);
    s.ecran().touche(XK_Insert, XK_Control_L);
    s.ecran().touche(XK_End);
    s.ecran().touche(XK_Insert, XK_Shift_L);
    s.photo("editeur");
    sauve(s, w);
    s.attend_egal("premiere ligne", l + l, [&] { return premiere_ligne(liste_ecrite(s.place())); });
    s.ecran().touche(XK_F3);
    s.fermee(titre);
    patiente("la nouvelle", [&] { return s.etat("message").starts_with("Liste enregistr"); });
    s.egal("champ x", x, s.etat("x"));
    s.egal("actions", "", s.programme().lignes(depuis, "action "));
    s.prend_clavier();
}

void trace(Session& s) {
    fs::remove_all(s.place() / "traceur");
    dialogue(s, 't', kTitreTraces);
    s.photo("tracer");
    s.ecran().touche(XK_Return);
    patiente("le trace", [&] { return fs::exists(s.place() / "traceur" / "maison.plt"); });
    patiente("la nouvelle", [&] { return s.etat("message").starts_with("Trac"); });
    s.prend_clavier();
}

void fermeture(Session& s) {
    s.prend_clavier();
    switch (s.au_plus(2)) {
    case 0: s.clavier().avec(XK_Control_L, 'q'); break;
    case 1: s.demande_fermeture(s.fenetre()); break;
    default: s.ecran().clic(1), s.clavier().tape("q");
    }
    patiente("la fin d'atelier", [&] { return !s.programme().vit(); });
    s.egal("code d'atelier", "0", std::to_string(s.programme().code()));
    s.egal("stderr", "", s.programme().plaintes());
}

} // namespace visite::etapes
