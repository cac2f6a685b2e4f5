// visite DIRECTORY DRAWINGS: visits a running atelier as a user would, with real mouse and keys, under mwm, and leaves pictures
// of the screen in DIRECTORY; the drawing is a file of the folder DRAWINGS. Every step waits for what it should bring about; the exit code is 0 when all of them did.
#include "clavier.h"
#include "ecran.h"
#include "lieux.h"

using namespace visite;

namespace {

// --- the visit ----------------------------------------------------------------------------------------------------

// Decorations of mwm, in pixels.
constexpr int kTitre = 17, kBord = 7, kBordSansResize = 5;

class Visite {
  public:
    Visite(std::string repertoire, std::filesystem::path plans)
        : repertoire_(std::move(repertoire)), plans_(std::move(plans)) {}

    void faite() {
        static constexpr Etape kEtapes[] = {{"fenetre et vue d'ensemble", &Visite::arrivee},
            {"elastique de zoom", &Visite::elastique}, {"deplacement au bouton du milieu", &Visite::deplacement},
            {"zoom a la molette", &Visite::molette}, {"icone, menu et touche de menu", &Visite::outils},
            {"grande taille et retour", &Visite::taille}, {"iconification et retour", &Visite::icone},
            {"vue d'ensemble au clavier", &Visite::clavier}, {"reglages: pas, trait, plume", &Visite::reglages},
            {"choix des couches", &Visite::couches}, {"choix des couches a la meme place", &Visite::meme_place},
            {"nomenclature", &Visite::nomenclature}, {"image et apercu", &Visite::image},
            {"ouvrir un plan", &Visite::ouvrir}, {"liste des pieces dans l'editeur", &Visite::editeur},
            {"couleur d'une couche", &Visite::couleurs_de_couche}, {"trace", &Visite::trace},
            {"feuille en PDF", &Visite::pdf}, {"mesure", &Visite::mesure}, {"bande d'information", &Visite::bande},
            {"titre et bord", &Visite::decorations}, {"bulle et aide", &Visite::aide},
            {"note par le menu de la feuille", &Visite::note}, {"notes pas enregistrees", &Visite::question},
            {"fermeture par le gestionnaire", &Visite::fermeture}};
        for (const Etape& e : kEtapes) etape(e);
    }

  private:
    struct Etape {
        const char* nom;
        void (Visite::*faite)();
    };

    void etape(const Etape& e) {
        std::printf("%d. %s ... ", ++numero_, e.nom);
        std::fflush(stdout);
        try {
            (this->*e.faite)();
        } catch (const Echec&) {
            visite::photo(fichier("echec"));
            throw;
        }
        std::puts("fait");
    }

    std::string fichier(const char* nom) const { return repertoire_ + "/" + nom + ".png"; }
    // Of the whole screen, once it is at rest.
    void photo(const char* nom) {
        visite::calme([this] { return ecran_.image(ecran_.place(ecran_.racine())); });
        visite::photo(fichier(nom));
    }
    Window cherche(Window w, const std::string& titre = kTitrePrincipal) const { return ecran_.cherche(w, titre); }

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

    Image calme() const {
        return visite::calme([this] { return dessin(); });
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

    void ouvre_menu() {
        const Cadre c = ecran_.place(fenetre_);
        const Cadre sous_la_barre{c.x, c.y + kBarre, c.largeur / 3, c.hauteur / 4};
        const Image avant = ecran_.image(sous_la_barre);
        ecran_.touche(XK_a, XK_Alt_L);
        attend("le menu", [&] { return retrouves(avant, ecran_.image(sous_la_barre), 0, 0) < 0.98; });
    }

    // An icon, an entry of a menu and its key do the same.
    void outils() {
        ecran_.va(fenetre_, {kIconePlus, kBarre + kIcones});
        attend_titre([&] { ecran_.clic(1); });
        attend_titre([&] { ecran_.touche(XK_F3, XK_Control_L); });
        ouvre_menu();
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
        ecran_.va_au_milieu(icone);
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

    // --- panels ---

    // The part of the sheet that no panel hides.
    Image haut_du_dessin() const {
        Cadre c = feuille();
        c.hauteur /= 5;
        return ecran_.image(c);
    }

    Window panneau(const std::string& titre) const {
        Window w = None;
        attend("le panneau " + titre, [&] { return (w = cherche(ecran_.racine(), titre)) != None; });
        attend("le panneau a l'ecran", [&] { return ecran_.visible(w); });
        attend("tout le panneau", [&] { return couleurs(ecran_.image(ecran_.place(w))) > 2; });
        return w;
    }

    void va_sur(Window w, Place p) { ecran_.va(w, en_pixels(p)); }

    // Waits for what the click changes in the panel.
    void clic_visible(Window w, Place p) {
        va_sur(w, p);
        const Image avant = ecran_.image(ecran_.place(w));
        ecran_.clic(1);
        attend("un panneau qui change", [&] { return ecran_.image(ecran_.place(w)) != avant; });
    }

    void clic_qui_dessine(Window w, Place p) {
        va_sur(w, p);
        const Image avant = haut_du_dessin();
        ecran_.clic(1);
        attend("un autre dessin", [&] { return haut_du_dessin() != avant; });
    }

    // Drags from the box of a drop-down choice to another entry, and waits until the choices are gone again.
    void choisit(Window w, Place p, int entrees, const char* nom_photo) {
        constexpr int kSousLaBoite = 18; // from its middle, free of the frame that it has with the keyboard
        va_sur(w, p);
        const Cadre c = ecran_.place(w);
        const int x = c.x + p.x * kCaractere / 10, y = c.y + p.y * kLigne / 10;
        const Cadre dessous{x - kEntree, y + kSousLaBoite, 2 * kEntree, kEntree / 2};
        const Image avant = ecran_.image(dessous);
        ecran_.bouton(1, true);
        attend("les choix", [&] { return ecran_.image(dessous) != avant; });
        std::this_thread::sleep_for(kTenu);
        ecran_.glisse(x, y, x, y + entrees * kEntree);
        photo(nom_photo);
        ecran_.bouton(1, false);
        attend("le choix fait", [&] { return ecran_.image(dessous) == avant; });
    }

    void ferme_panneau(Window w, Place p, const std::string& titre) {
        va_sur(w, p);
        ecran_.clic(1);
        attend("la fin du panneau", [&] { return cherche(ecran_.racine(), titre) == None; });
    }

    void clic_icone(int numero) {
        ecran_.va(fenetre_, {kIconeGrille + numero * kPasIcone, kBarre + kIcones + kPasIcone});
        ecran_.clic(1);
    }

    void tape(const std::string& texte) {
        for (const char c : texte) ecran_.touche(c == '.' ? XK_period : static_cast<KeySym>(c));
    }

    void reglages() {
        ouvre_menu();
        ecran_.touche(XK_g);
        const Window w = panneau(kTitreReglages);
        photo("11-reglages");
        for (const Place p : {kMetres, kMontrer, kAccrocher, kGris}) clic_visible(w, p);
        choisit(w, kTrait, 2, "12-trait");
        va_sur(w, kPas);
        ecran_.clic(1);
        for (int i = 0; i < 4; ++i) ecran_.touche(XK_BackSpace);
        tape("0.5");
        clic_qui_dessine(w, kAppliquer);
        photo("13-grille");
        ferme_panneau(w, kReglagesFermer, kTitreReglages);
    }

    void couches() {
        clic_icone(1);
        const Window w = panneau(kTitreCouches);
        clic_visible(w, kFiltre);
        tape("cadre");
        const Image avant = haut_du_dessin();
        ecran_.touche(XK_Return);
        clic_qui_dessine(w, kAucune);
        clic_visible(w, kPremiereCouche);
        photo("14-couches");
        clic_qui_dessine(w, kSeules);
        photo("15-couches-seules");
        clic_qui_dessine(w, kToutes);
        attend("le dessin d'avant", [&] { return haut_du_dessin() == avant; });
    }

    void meme_place() {
        Window w = panneau(kTitreCouches);
        const Cadre avant = ecran_.place(w);
        ecran_.deplace(w, avant.x - 70, avant.y + 50);
        attend("le panneau ailleurs", [&] { return ecran_.place(w).x < avant.x - 30; });
        const Cadre ailleurs = ecran_.place(w);
        ferme_panneau(w, kFermer, kTitreCouches);
        clic_icone(1);
        w = panneau(kTitreCouches);
        attend("la meme place", [&] {
            const Cadre c = ecran_.place(w);
            return c.x == ailleurs.x && c.y == ailleurs.y && c.largeur == ailleurs.largeur;
        });
        photo("16-meme-place");
        ferme_panneau(w, kFermer, kTitreCouches);
    }

    void nomenclature() {
        clic_icone(2);
        const Window w = panneau(kTitreTable);
        photo("17-nomenclature");
        choisit(w, kCritere, 1, "18-critere");
        photo("19-par-nature");
        ferme_panneau(w, kTableFermer, kTitreTable);
    }

    // --- files ---

    void attend_fichier(const std::string& nom) const {
        const std::filesystem::path fichier = plans_ / nom;
        attend(fichier.string(), [&] {
            std::error_code erreur;
            return std::filesystem::file_size(fichier, erreur) > 0 && !erreur;
        });
    }

    void image() {
        ecran_.touche(XK_s, XK_Control_L);
        panneau(kTitreImage);
        photo("20-image");
        constexpr int kCheminMax = 90;
        for (int i = 0; i < kCheminMax; ++i) ecran_.touche(XK_BackSpace);
        Clavier(ecran_).tape((plans_ / "vue").string());
        ecran_.touche(XK_Return);
        attend_fichier("VUE.BMP");
        attend_fichier("maison.BMP");
        photo("21-image-ecrite");
    }

    Cadre bandeau() const {
        Cadre c = ecran_.place(fenetre_);
        c.y += c.hauteur - kBandeau;
        c.hauteur = kBandeau;
        return c;
    }

    // Opens the dialog and clicks a file of its list, counted from 0.
    Window ouvre_dialogue(int fichier) {
        ecran_.touche(XK_o, XK_Control_L);
        const Window w = panneau(kTitreOuvrir);
        ecran_.va(w, {kFichiers.x, kFichiers.y + fichier * kHauteurFichier});
        ecran_.clic(1);
        return w;
    }

    Image apercu(Window w) const {
        const Cadre c = ecran_.place(w);
        return ecran_.image({c.x + kApercu.x, c.y + kApercu.y, kCoteApercu, kCoteApercu});
    }

    void attend_plan(const std::string& nom) {
        attend("le plan " + nom, [&] { return ecran_.titre(fenetre_).find(nom) != std::string::npos; });
        attend("la fin du dialogue", [&] { return cherche(ecran_.racine(), kTitreOuvrir) == None; });
        calme();
    }

    // Files in the order of the list: one that cannot be read, the sample plan, a small one without picture.
    void ouvrir() {
        const Image avant = ecran_.image(bandeau());
        ouvre_dialogue(0);
        ecran_.touche(XK_Return);
        attend("la raison", [&] { return ecran_.image(bandeau()) != avant; });
        photo("22-pas-ouvert");
        attend_plan("maison");
        ouvre_dialogue(2);
        ecran_.touche(XK_Return);
        attend_plan("petit");
        photo("23-petit");
        const Window w = ouvre_dialogue(1);
        attend("l'apercu", [&] { return couleurs(apercu(w)) > 4; });
        photo("24-ouvrir");
        ecran_.touche(XK_Escape);
        attend_plan("petit");
        ouvre_dialogue(1);
        ecran_.touche(XK_Return);
        attend_plan("maison");
    }

    // A line typed at the start, saved by the menu, the end by its key.
    void editeur() {
        ecran_.touche(XK_l, XK_Control_L);
        const Window w = panneau(kTitreEditeur);
        ecran_.va_au_milieu(w);
        ecran_.clic(1);
        ecran_.touche(XK_Home, XK_Control_L);
        tape("revu");
        ecran_.touche(XK_Return);
        photo("25-editeur");
        choix_de_menu(w, kFichier, 3, "26-sauver");
        attend("la liste avec la ligne", [&] { return premiere_ligne(liste_ecrite(plans_)) == "revu"; });
        const Image avant = ecran_.image(bandeau());
        ecran_.touche(XK_F3);
        attend("la fin de l'editeur", [&] { return cherche(ecran_.racine(), kTitreEditeur) == None; });
        attend("la nouvelle", [&] { return ecran_.image(bandeau()) != avant; });
        photo("27-liste-enregistree");
    }

    // Drags from a menu to an entry, by its place.
    void choix_de_menu(Window w, Pixels menu, int entree, const char* nom_photo) {
        const Cadre c = ecran_.place(w);
        const int x = c.x + menu.x, y = c.y + menu.y;
        const Cadre dessous{x, y + kEntree, kEntree, kEntree};
        const Image avant = ecran_.image(dessous);
        ecran_.va(x, y);
        ecran_.bouton(1, true);
        attend("le menu", [&] { return ecran_.image(dessous) != avant; });
        std::this_thread::sleep_for(kTenu);
        ecran_.glisse(x, y, x, y + kEntree + entree * kEntreeDeMenu);
        photo(nom_photo);
        ecran_.bouton(1, false);
    }

    // The walls get another colour while the slider is dragged.
    void couleurs_de_couche() {
        const Cadre c = ecran_.place(fenetre_);
        ecran_.va(c.x + kPremierCalque.x, c.y + kPremierCalque.y);
        ecran_.clic(1);
        ecran_.touche(XK_F8);
        const Window w = panneau(kTitreCouleur);
        const Image avant = visite::calme([this] { return haut_du_dessin(); });
        const Cadre p = ecran_.place(w);
        const int x = p.x + kBleu.x, y = p.y + kBleu.y;
        ecran_.va(x, y);
        ecran_.bouton(1, true);
        ecran_.glisse(x, y, x - kGlissee, y);
        attend("des murs d'une autre couleur", [&] { return haut_du_dessin() != avant; });
        photo("28-couleurs");
        ecran_.bouton(1, false);
        ecran_.va(w, kRetablir);
        ecran_.clic(1);
        attend("les couleurs d'avant", [&] { return haut_du_dessin() == avant; });
        ecran_.touche(XK_Escape);
        attend("la fin de la palette", [&] { return cherche(ecran_.racine(), kTitreCouleur) == None; });
    }

    // Into the directory of the drawing; the sample spooling command keeps the plot.
    void trace() {
        ecran_.touche(XK_t, XK_Control_L);
        panneau(kTitreTraces);
        photo("29-repertoire");
        const Image avant = ecran_.image(bandeau());
        ecran_.touche(XK_Return);
        attend_fichier("maison.plt");
        attend_fichier("traceur/maison.plt");
        attend("la nouvelle", [&] { return ecran_.image(bandeau()) != avant; });
        photo("30-trace");
    }

    void pdf() {
        ecran_.touche(XK_p, XK_Control_L);
        panneau(kTitrePdf);
        const Image avant = ecran_.image(bandeau());
        ecran_.touche(XK_Return);
        attend_fichier("MAISON.PDF");
        attend("la nouvelle", [&] { return ecran_.image(bandeau()) != avant; });
    }

    // A line with its length above the drawing, which is the same again once a key takes the line away.
    void mesure() {
        const Cadre c = feuille();
        const int x1 = c.x + c.largeur * 3 / 10, y1 = c.y + c.hauteur * 3 / 10;
        const int x2 = c.x + c.largeur * 6 / 10, y2 = c.y + c.hauteur * 6 / 10;
        prend_clavier();
        ecran_.va(x1, y1);
        const Image avant = calme();
        ecran_.touche(XK_F2);
        ecran_.bouton(1, true);
        ecran_.glisse(x1, y1, x2, y2);
        const auto change = [&] {
            const Image image = dessin();
            const int x = (x1 + x2) / 2 - c.x, y = (y1 + y2) / 2 - c.y;
            for (int d = -2; d <= 2; ++d) {
                if (image.en(x + d, y) != avant.en(x + d, y)) return true;
            }
            return false;
        };
        attend("la ligne", change);
        ecran_.bouton(1, false);
        calme();
        attend("la ligne encore", change);
        photo("30-mesure");
        ecran_.touche(XK_space);
        attend("le dessin d'avant", [&] { return retrouves(avant, dessin(), 0, 0) > 0.999; });
    }

    void bande() {
        ecran_.touche(XK_F9);
        const Window w = panneau(kTitreBande);
        const Cadre avant = ecran_.place(w);
        const Cadre c = feuille();
        const auto image = [&] { return ecran_.image(ecran_.place(w)); };
        const Image sans = visite::calme(image);
        ecran_.va(c.x + c.largeur / 2, c.y + c.hauteur / 3);
        attend("d'autres coordonnees", [&] { return image() != sans; });
        photo("31-bande");
        ecran_.va(avant.x + kFleche.x, avant.y + kFleche.y);
        ecran_.clic(1);
        attend("deux rangees", [&] { return ecran_.place(w).hauteur > avant.hauteur * 3 / 2; });
        visite::calme(image);
        photo("32-bande-agrandie");
        ecran_.va(avant.x + kFleche.x, avant.y + avant.hauteur + kFleche.y);
        ecran_.clic(1);
        attend("une rangee", [&] { return ecran_.place(w).hauteur == avant.hauteur; });
        prend_clavier();
        ecran_.touche(XK_F9);
        attend("plus de bande", [&] { return !ecran_.visible(w); });
    }

    // A click on the sheet is too short to zoom.
    void prend_clavier() {
        const Cadre c = feuille();
        ecran_.va(c.x + c.largeur / 2, c.y + 1);
        ecran_.clic(1);
        attend("le clavier", [&] { return ecran_.cadre_de(ecran_.clavier()) == ecran_.cadre_de(fenetre_); });
    }

    // Away with a key and back: the outer frame stays, the window takes the place that becomes free.
    void decoration(KeySym touche, Pixels dans_le_cadre, const char* nom_photo) {
        const Cadre avant = ecran_.place(fenetre_), cadre = ecran_.place(ecran_.cadre_de(fenetre_));
        const Pixels gain{avant.x - cadre.x - dans_le_cadre.x, avant.y - cadre.y - dans_le_cadre.y};
        ecran_.touche(touche);
        attend("moins de decorations", [&] {
            const Cadre c = ecran_.place(fenetre_), autour = ecran_.place(ecran_.cadre_de(fenetre_));
            return c.x - autour.x == dans_le_cadre.x && c.y - autour.y == dans_le_cadre.y;
        });
        attend("une plus grande fenetre", [&] {
            const Cadre c = ecran_.place(fenetre_);
            return c.largeur == avant.largeur + 2 * gain.x && c.hauteur == avant.hauteur + gain.x + gain.y;
        });
        attend("la fenetre a l'ecran", [&] { return ecran_.visible(fenetre_); });
        calme();
        photo(nom_photo);
        prend_clavier();
        ecran_.touche(touche);
        attend("la taille d'avant", [&] {
            const Cadre c = ecran_.place(fenetre_);
            return c.hauteur == avant.hauteur && c.largeur == avant.largeur && c.y == avant.y && c.x == avant.x;
        });
        attend("la fenetre a l'ecran", [&] { return ecran_.visible(fenetre_); });
        calme();
        prend_clavier();
    }

    void decorations() {
        decoration(XK_F11, {kBord, kBord}, "33-sans-titre");
        decoration(XK_F12, {kBordSansResize, kBordSansResize + kTitre}, "34-sans-bord");
    }

    // The pointer rests on a tool: a tip comes, and goes with it; F1 says the same in a window.
    void aide() {
        const Cadre c = ecran_.place(fenetre_);
        const int x = c.x + kIconePlus, y = c.y + kBarre + kIcones;
        const Cadre dessous{x, y + kIcones, kOutils / 2, kIcones};
        prend_clavier();
        const Image avant = ecran_.image(dessous);
        ecran_.va(x, y);
        attend("la bulle", [&] { return ecran_.image(dessous) != avant; });
        photo("35-bulle");
        ecran_.touche(XK_F1);
        panneau(kTitreAide);
        photo("36-aide");
        ecran_.touche(XK_Return);
        attend("la fin de l'aide", [&] { return cherche(ecran_.racine(), kTitreAide) == None; });
    }

    // The menu at the pointer, its first entry, and a prompt; the note shows where the menu was opened.
    void note() {
        const Cadre c = feuille();
        const int x = c.x + c.largeur / 2, y = c.y + c.hauteur / 2;
        prend_clavier();
        const Cadre autour{x - kEntree, y - kEntree, kGlissee, 2 * kEntree};
        const Image avant = ecran_.image(autour);
        ecran_.va(x, y);
        ecran_.clic(3);
        attend("le menu de la feuille", [&] { return ecran_.image(autour) != avant; });
        photo("37-menu-de-la-feuille");
        ecran_.touche(XK_Return);
        panneau(kTitreNote);
        tape("fissure");
        photo("38-note");
        ecran_.touche(XK_Return);
        attend(
            "la note", [&] { return cherche(ecran_.racine(), kTitreNote) == None && ecran_.image(autour) != avant; });
        photo("39-note-posee");
    }

    // The close box asks first: given up, the window stays; then the notes are saved.
    void question() {
        prend_clavier();
        ecran_.touche(XK_F4, XK_Alt_L);
        panneau(kTitreQuitter);
        photo("40-question");
        ecran_.touche(XK_Escape);
        attend("la fin de la question", [&] { return cherche(ecran_.racine(), kTitreQuitter) == None; });
        attend("la fenetre", [&] { return ecran_.visible(fenetre_); });
        if (!premiere_ligne(notes_ecrites()).empty()) throw Echec("les notes sont ecrites sans qu'on l'ait demande");
        ouvre_fichier_notes();
        attend("les notes dans leur fichier",
            [&] { return premiere_ligne(notes_ecrites()).find("fissure") != std::string::npos; });
    }

    std::filesystem::path notes_ecrites() const { return plans_ / "maison.notes"; }

    void ouvre_fichier_notes() {
        prend_clavier();
        ecran_.touche(XK_f, XK_Alt_L);
        calme();
        ecran_.touche(XK_s);
    }

    // With the strip and the palette open: they go with it.
    void fermeture() {
        ecran_.touche(XK_F9);
        panneau(kTitreBande);
        prend_clavier();
        ecran_.touche(XK_F8);
        panneau(kTitreCouleur);
        prend_clavier();
        ecran_.touche(XK_F4, XK_Alt_L);
        attend("la fin de la fenetre", [&] { return cherche(ecran_.racine()) == None; });
    }

    Ecran ecran_;
    std::string repertoire_;
    std::filesystem::path plans_;
    Window fenetre_ = None;
    int numero_ = 0;
};

} // namespace

int main(int nombre, char** textes) try {
    if (nombre != 3) throw Echec("usage: visite REPERTOIRE PLANS");
    Visite(textes[1], textes[2]).faite();
    return 0;
} catch (const std::exception& e) {
    std::printf("ECHEC\n");
    std::fflush(stdout);
    std::fprintf(stderr, "visite: %s\n", e.what());
    return 1;
}
