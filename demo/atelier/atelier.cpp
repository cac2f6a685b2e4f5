#include "atelier.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <utility>

#include "controles.h"
#include "fonctions.h"
#include "grx_plus.h"
#include "icone.h"
#include "palette.h"
#include "secours.h"
#include "texte.h"
#include "xt_f.h"

namespace atelier {

namespace {

// Leaves room for the decorations.
Taille taille_pour_ecran(Taille voulue) {
    constexpr double kPart = 0.86;
    if (voulue.largeur > 0) return voulue;
    return {static_cast<int>(grx_recup_lar_ecran() * kPart), static_cast<int>(grx_recup_hau_ecran() * kPart)};
}

constexpr const char* kAideGenerale = "Roulette : agrandir ou r\351duire\nBouton du milieu : d\351placer\n"
                                      "Bouton gauche : zoom sur un rectangle\nBouton droit : menu";

// What entries of the menus are for; the strip shows it while they are highlighted.
struct AideMenu {
    INT fonction;
    const char* texte;
};
constexpr AideMenu kAidesMenu[]{{kFonctionOuvrir, "Montre un autre plan"},
    {kFonctionImage, "\311crit ce qui est vu dans un fichier BMP"},
    {kFonctionPieces, "Ouvre la nomenclature dans l'\351diteur"},
    {kFonctionCopierPieces, "Copie la nomenclature dans le presse-papiers"},
    {kFonctionTracer, "Envoie ce qui est vu au traceur"}, {kFonctionNote, "Pose une note au milieu de la feuille"},
    {kFonctionNoteIci, "Pose une note \340 cet endroit"},
    {kFonctionNotesEnregistrer, "\311crit les notes \340 c\364t\351 du plan"}, {kFonctionQuitter, "Ferme le plan"}};

// Who the program is, for window managers; and what its menus tell.
void presente() {
    GRX_IDENTITE identite;
    grx_init_identite(&identite);
    identite.nom = "atelier";
    identite.classe = "Atelier";
    grx_affecte_identite(&identite);
    pose_icone();
    for (const AideMenu& aide : kAidesMenu) grx_affecte_aide_menu(aide.fonction, aide.texte);
}

// Titles are short: a long name leaves room for what follows it.
std::string titre_pour(const std::string& nom) {
    constexpr std::size_t kLong = 44;
    return "atelier - " + (nom.size() <= kLong ? nom : nom.substr(0, kLong) + "...");
}

// The function of a key of the sheet.
std::optional<INT> fonction_de(INT carac) {
    constexpr INT kDebut = 0xFF50;
    switch (carac) {
    case 'f': // CapsLock may be on
    case 'F':
    case kDebut: return kFonctionToutVoir;
    case '+': return kFonctionAgrandir;
    case '-': return kFonctionReduire;
    case 'q':
    case 'Q': return kFonctionQuitter;
    default: return std::nullopt;
    }
}

// An entry of a menu comes as a press of the window that the menu belongs to, which names a function.
bool est_choix_de_menu(const GRX_EVENEMENT& e) {
    return e.type_evenement == GRX_EVT_BOUTON_APPUI && e.bouton_appui.nobou < 0 && e.bouton_appui.no_fo >= 0;
}

// The function that an event asks for.
std::optional<INT> fonction_de(const GRX_EVENEMENT& e) {
    const GRX_BOUTON_APPUI& b = e.bouton_appui;
    switch (e.type_evenement) {
    case GRX_EVT_BOUTON_APPUI: return est_choix_de_menu(e) ? std::optional(b.no_fo) : std::nullopt;
    case GRX_EVT_CARAC_APPUI: return fonction_de(e.carac_appui.carac);
    case GRX_EVT_EXEC_FONCTION:
    case GRX_EVT_ECHELLE: return e.exec_fonction.no_fo;
    default: return std::nullopt;
    }
}

} // namespace

Atelier::Atelier(Dessin dessin, const std::filesystem::path& chemin, std::string icones, Panneaux& panneaux)
    : plan_(std::move(dessin), chemin), feuille_(plan_), outils_(plan_), annexes_(plan_, panneaux),
      fichiers_(plan_, [this] { return reprend(); }), carnet_(plan_, [this] { return reprend(); }),
      icones_(std::move(icones)) {}

// --- start and end ------------------------------------------------------------------------------------------------

bool Atelier::ouvre(Taille taille) {
    if (grx_alloue_base_fenetres() != 0 || grx_alloue_base_boutons() != 0) return false;
    grx_initialise_globales();
    pose_reserve();
    presente();
    if (grx_init_application() == 0) {
        std::fputs("atelier: pas d'ecran utilisable (variable DISPLAY)\n", stderr);
        return false;
    }
    // The application colour of the settings is a pixel value, which says nothing on a screen with a palette.
    if (grx_recup_profondeur_ecran() == GRX_PROFONDEUR_8) {
        grx_affecte_couleur_application(kCoulGris);
        grx_init_palette_icone(grx_recup_couleur(kCoulGris)); // start-up learned the background of icons before
    }
    plan_.prend_couleurs();
    annexes_.prepare();
    prepare_secours(plan_, [this] { return annexes_.critere(); });
    grx_affecte_demande_aide(GRX_AIDE_TOUCHE | GRX_AIDE_MENU);
    grx_affecte_touches_presse_papiers(1);
    if (cree_fenetres(taille_pour_ecran(taille))) return true;
    std::fputs("atelier: les fenetres n'ont pas pu etre creees\n", stderr);
    return false;
}

// A form that fills the main window holds the tools, the sheet beside them, and above its foot the status strip.
bool Atelier::cree_fenetres(Taille taille) {
    return cree_principale(taille) && feuille_.cree(principale_, taille.largeur, Outils::kLargeur)
           && outils_.cree(principale_, icones_) && bandeau_.cree(principale_)
           && grx_affecte_depots_fenetre(feuille_.nofen(), GRX_DEPOT_FICHIERS) == 1;
}

bool Atelier::cree_principale(Taille taille) {
    GRX_FENETRE f;
    grx_init_fenetre(&f);
    f.type = GRX_FEN_ALPHA;
    f.attrib = GRX_FEN_ATT_PRINCIPALE | GRX_FEN_ATT_VISIBLE;
    f.droite = taille.largeur;
    f.haut = taille.hauteur;
    f.x = std::max(0, (grx_recup_lar_ecran() - taille.largeur) / 2);
    f.y = std::max(0, (grx_recup_hau_ecran() - taille.hauteur) / 2);
    f.curseur = GRX_CURS_CROIX_X;
    copie(f.titre, titre_pour(plan_.nom()));
    if (grx_cree_fenetre(&f) != 0) return false;
    principale_ = f.nofen;
    grx_affecte_demande_fermeture(principale_, 1);
    grx_affecte_nofen_principale(principale_);
    return true;
}

int Atelier::boucle() {
    GRX_EVENEMENT e{};
    journal_.suit(principale_, [this] { note_etat(); });
    while (!fini_) {
        // All that waits is handled before anything is drawn, so that the picture follows the hand.
        for (INT attente = 1; !fini_ && grx_digitaliseur(&e, attente) != 0; attente = 0) traite(e);
        if (!fini_) rafraichit();
    }
    annexes_.libere();
    grx_termine_application();
    return 0;
}

void Atelier::ferme() {
    if (!carnet_.peut_partir(principale_)) return;
    fini_ = true;
}

// --- events -------------------------------------------------------------------------------------------------------

void Atelier::traite(const GRX_EVENEMENT& e) {
    note(e);
    if (est_choix_de_menu(e)) return action(e.bouton_appui.no_fo);
    if (e.type_evenement == GRX_EVT_FERMETURE) return ferme();
    if (e.type_evenement == GRX_EVT_DEPOT) return depot();
    if (aide(e) || parts_prennent(e)) return;
    if (const auto fonction = fonction_de(e)) return action(*fonction);
    if (e.type_evenement == GRX_EVT_DESTRUCTION && e.destruction.nofen == principale_) fini_ = true;
}

// The windows around come first: a key over one of them means nothing to the sheet.
bool Atelier::parts_prennent(const GRX_EVENEMENT& e) {
    if (const Suite suite = annexes_.prend(e, feuille_); suite != Suite::PasPourMoi) return suit_annexes(suite), true;
    if (const Suite suite = outils_.prend(e, feuille_); suite != Suite::PasPourMoi) return suit_outils(suite), true;
    if (e.type_evenement == GRX_EVT_BOUTON_APPUI && feuille_.tient(e.bouton_appui.nofen)) {
        outils_.rend_le_clavier();
        dit("");
    }
    return feuille_.prend(e) || bandeau_.prend(e);
}

void Atelier::suit_annexes(Suite suite) {
    if (suite == Suite::Calques) outils_.montre_calques();
    if (suite == Suite::Refuse) dit("Attendu : X Y");
}

void Atelier::suit_outils(Suite suite) {
    if (suite == Suite::Choix || suite == Suite::Calques) annexes_.suit_choix();
    if (suite == Suite::Calques) annexes_.montre_calques();
}

// --- functions ----------------------------------------------------------------------------------------------------

void Atelier::action(INT fonction) {
    journal_.action(fonction);
    dit("");
    fonction_ = fonction;
    if (parts_font(fonction) || fichiers_font(fonction)) return;
    switch (fonction) {
    case kFonctionNote: return dit(carnet_.note(feuille_, feuille_.vue().centre(), principale_));
    case kFonctionNoteIci: return dit(carnet_.note(feuille_, feuille_.point_du_menu(), principale_));
    case kFonctionNotesEnregistrer: return dit(carnet_.enregistre());
    case kFonctionTitre:
        decorations_.bascule_titre(principale_);
        reprend();
        return;
    case kFonctionBord:
        decorations_.bascule_bord(principale_);
        reprend();
        return;
    case kFonctionQuitter: return ferme();
    default: return;
    }
}

bool Atelier::parts_font(INT fonction) {
    if (feuille_.action(fonction) || annexes_.action(fonction, principale_)) return true;
    const Suite suite = outils_.action(fonction, feuille_);
    suit_outils(suite);
    return suite != Suite::PasPourMoi;
}

bool Atelier::fichiers_font(INT fonction) {
    switch (fonction) {
    case kFonctionOuvrir: ouvre_plan(); return true;
    case kFonctionImage: dit(fichiers_.enregistre_image(feuille_)); return true;
    case kFonctionPieces: dit(fichiers_.edite_pieces(annexes_.critere())); return true;
    case kFonctionCopierPieces: dit(fichiers_.copie_pieces(annexes_.critere())); return true;
    case kFonctionPapier: dit(fichiers_.exporte(feuille_.vue().visible())); return true;
    case kFonctionTracer: dit(fichiers_.trace(feuille_.vue().visible())); return true;
    default: return false;
    }
}

void Atelier::ouvre_plan() {
    if (carnet_.peut_partir(principale_)) prend_plan(fichiers_.ouvre(principale_));
}

// A drawing that was dropped on the sheet.
void Atelier::depot() {
    const char* const texte = grx_recup_texte_detail_evenement(0);
    const std::string chemin = texte != nullptr ? texte : "";
    if (!chemin.empty() && carnet_.peut_partir(principale_)) prend_plan(fichiers_.lit(chemin, principale_));
}

void Atelier::prend_plan(Fichiers::Ouvert ouvert) {
    dit(ouvert.message);
    if (!ouvert.dessin) return;
    annexes_.ferme();
    plan_.remplace(std::move(*ouvert.dessin), ouvert.chemin);
    outils_.montre_calques();
    feuille_.cadre_tout();
}

// After a dialog, which handled events of its own: what they told is looked at anew. Returns false when one of them
// ended the application.
bool Atelier::reprend() {
    fini_ = grx_recup_objet_fen(principale_) == nullptr;
    if (fini_) return false;
    feuille_.retaille();
    bandeau_.redessine();
    return true;
}

// What an entry of the menus is for, in the strip; and F1, which tells of what is under the pointer.
bool Atelier::aide(const GRX_EVENEMENT& e) {
    if (e.type_evenement != GRX_EVT_AIDE) return false;
    if (e.exec_fonction.valeur == GRX_AIDE_MENU) {
        dit(e.exec_fonction.chaine);
        return true;
    }
    std::array<char, 256> texte{};
    if (grx_recup_bulle(e.exec_fonction.nobou, texte.data(), texte.size()) <= 0)
        std::snprintf(texte.data(), texte.size(), "%s", kAideGenerale);
    GRX_BOITE_MESSAGE message;
    grx_init_boite_message(&message);
    message.nofen_mere = principale_;
    message.titre = "Aide";
    message.texte = texte.data();
    grx_attend_boite_message(&message);
    reprend();
    return true;
}

// --- what the user sees -------------------------------------------------------------------------------------------

void Atelier::rafraichit() {
    const bool image = feuille_.peint();
    if (feuille_.montree()) {
        montre_titre();
        montre_menus();
        outils_.montre(feuille_);
        montre_bandeau();
        annexes_.montre(feuille_, fonction_, message_);
    }
    if (image) Feuille::annonce_image();
}

void Atelier::montre_titre() {
    const std::string titre = titre_pour(plan_.nom()) + " - " + feuille_.cotes().echelle();
    if (titre == titre_) return;
    titre_ = titre;
    std::array<char, GRX_TITRE_MAX> tampon{};
    std::snprintf(tampon.data(), tampon.size(), "%s", titre.c_str());
    grx_change_titre_fenetre(principale_, tampon.data());
}

void Atelier::montre_menus() {
    const auto& calques = plan_.dessin.calques;
    menus_.permet(kFonctionNotesEnregistrer, plan_.notes.modifiees());
    menus_.permet(kFonctionCouchesToutes, !std::ranges::all_of(calques, &CalqueVu::visible));
    menus_.permet(kFonctionCouchesAucune, std::ranges::any_of(calques, &CalqueVu::visible));
    menus_.coche(kFonctionBande, annexes_.bande().ouverte());
    menus_.coche(kFonctionTitre, decorations_.titre());
    menus_.coche(kFonctionBord, decorations_.bord());
    for (const INT module : {kFonctionModuleCommun, kFonctionModuleMeca, kFonctionModuleArch})
        menus_.coche(module, module == kFonctionModuleCommun + outils_.module());
}

void Atelier::montre_bandeau() {
    const Cotes cotes = feuille_.cotes();
    Bandeau::Contenu c;
    if (const auto p = feuille_.point_montre()) c.position = en_unicode(cotes.position(*p));
    c.echelle = en_unicode("\u00C9chelle " + cotes.echelle());
    c.nom = en_unicode(plan_.nom());
    c.message = en_unicode(message_);
    bandeau_.montre(c);
}

// --- journal ------------------------------------------------------------------------------------------------------

void Atelier::note(const GRX_EVENEMENT& e) {
    const GRX_CARAC_APPUI& t = e.carac_appui;
    const bool touche = e.type_evenement == GRX_EVT_CARAC_APPUI;
    journal_.note(e, touche && annexes_.tient(t.nofen), touche && outils_.est_champ(t.nobou));
}

void Atelier::note_etat() {
    const auto deux = [](const auto& p) { return std::to_string(p.x) + " " + std::to_string(p.y); };
    const auto pixels = [](Point p) { return Ecart{static_cast<int>(p.x), static_cast<int>(p.y)}; };
    const auto oui = [](bool valeur) { return valeur ? "oui" : "non"; };
    const auto pointeur = feuille_.pointeur();
    const std::vector<CalqueVu>& calques = plan_.dessin.calques;
    const auto vus = std::ranges::count_if(calques, [](const CalqueVu& c) { return c.visible; });
    journal_.etat("x", texte_de(outils_.champ_x()));
    journal_.etat("y", texte_de(outils_.champ_y()));
    journal_.etat("saisie", annexes_.bande().saisie());
    journal_.etat("pas", annexes_.pas_ecrit());
    journal_.etat("grille", oui(plan_.reglages.grille));
    journal_.etat("polaire", oui(annexes_.bande().polaire()));
    journal_.etat("module", std::to_string(outils_.module()));
    journal_.etat("message", message_);
    journal_.etat("echelle", std::to_string(feuille_.vue().echelle()));
    journal_.etat("centre", deux(feuille_.vue().centre()));
    journal_.etat("pointeur", pointeur ? deux(pixels(*pointeur)) : "");
    journal_.etat("couches", std::to_string(vus) + " " + std::to_string(calques.size()));
}

} // namespace atelier
