#include "atelier.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "fonctions.h"
#include "glissement.h"
#include "host_g.h"
#include "palette.h"
#include "rendu.h"
#include "texte.h"
#include "unites.h"
#include "xt_f.h"

namespace atelier {

namespace {

constexpr INT kMoletteHaut = 4, kMoletteBas = 5; // the wheel comes as two more mouse buttons
constexpr double kZoomMolette = 1.2, kZoomTouche = 1.5;
constexpr double kPasTouche = 0.1;  // of the window that an arrow key moves
constexpr double kElastiqueMin = 4; // pixels; a smaller rubber band is a click

enum Touche { kEchap = 27, kDebut = 0xFF50, kGauche = 0xFF51, kHaut = 0xFF52, kDroite = 0xFF53, kBas = 0xFF54 };

// Leaves room for the decorations.
Taille taille_pour_ecran(Taille voulue) {
    constexpr double kPart = 0.86;
    if (voulue.largeur > 0) return voulue;
    return {static_cast<int>(grx_recup_lar_ecran() * kPart), static_cast<int>(grx_recup_hau_ecran() * kPart)};
}

// Titles are short: a long name leaves room for what follows it.
std::string nom_court(const std::string& nom) {
    constexpr std::size_t kLong = 44;
    return nom.size() <= kLong ? nom : nom.substr(0, kLong) + "...";
}

void titre_de(GRX_FENETRE& f, const std::string& titre) {
    std::snprintf(f.titre, sizeof f.titre, "%s", titre.c_str());
}

void curseur(INT nofen, INT numero) {
    grx_change_curseur(numero, nofen);
}

} // namespace

Atelier::Atelier(Dessin dessin, const std::filesystem::path& chemin, std::string icones, Panneaux& panneaux)
    : dessin_(std::move(dessin)), chemin_(std::filesystem::absolute(chemin)), nom_(chemin.filename().string()),
      icones_(std::move(icones)), panneaux_(panneaux), panneau_reglages_(panneaux), panneau_couches_(panneaux),
      panneau_table_(panneaux) {}

bool Atelier::ouvre(Taille taille) {
    if (grx_alloue_base_fenetres() != 0 || grx_alloue_base_boutons() != 0) return false;
    grx_initialise_globales();
    pose_reserve();
    if (grx_init_application() == 0) {
        std::fputs("atelier: pas d'ecran utilisable (variable DISPLAY)\n", stderr);
        return false;
    }
    // The application colour of the settings is a pixel value, which says nothing on a screen with a palette.
    if (grx_recup_profondeur_ecran() == GRX_PROFONDEUR_8) {
        grx_affecte_couleur_application(kCoulGris);
        grx_init_palette_icone(grx_recup_couleur(kCoulGris)); // start-up learned the background of icons before
    }
    indices_ = pose_couleurs(dessin_.couleurs);
    prepare_panneaux();
    if (cree_fenetres(taille_pour_ecran(taille))) return true;
    std::fputs("atelier: les fenetres n'ont pas pu etre creees\n", stderr);
    return false;
}

// A form that fills the main window holds the tools, the sheet beside them, and above its foot the status strip.
bool Atelier::cree_fenetres(Taille taille) {
    GRX_FENETRE f;
    grx_init_fenetre(&f);
    f.type = GRX_FEN_ALPHA;
    f.attrib = GRX_FEN_ATT_PRINCIPALE | GRX_FEN_ATT_VISIBLE;
    f.droite = taille.largeur;
    f.haut = taille.hauteur;
    f.x = std::max(0, (grx_recup_lar_ecran() - taille.largeur) / 2);
    f.y = std::max(0, (grx_recup_hau_ecran() - taille.hauteur) / 2);
    f.curseur = GRX_CURS_CROIX_X;
    titre_de(f, "atelier - " + nom_court(nom_));
    if (grx_cree_fenetre(&f) != 0) return false;
    principale_ = f.nofen;
    grx_affecte_nofen_principale(principale_);

    grx_init_fenetre(&f);
    f.type = GRX_FEN_GRAPHIQUE;
    f.attrib = GRX_FEN_ATT_FILLE | GRX_FEN_ATT_VISIBLE;
    f.fen_mere = principale_;
    f.attache = GRX_ATTACHE_BAS | GRX_ATTACHE_HAUT | GRX_ATTACHE_DROITE;
    f.droite = taille.largeur - Outils::kLargeur;
    if (grx_cree_fenetre(&f) != 0) return false;
    graphique_ = f.nofen;
    return outils_.cree(principale_, icones_, dessin_.calques) && bandeau_.cree(principale_);
}

int Atelier::boucle() {
    GRX_EVENEMENT e{};
    tient_journal();
    while (!fini_) {
        // All that waits is handled before anything is drawn, so that the picture follows the hand.
        for (INT attente = 1; !fini_ && grx_digitaliseur(&e, attente) != 0; attente = 0) traite(e);
        if (!fini_) rafraichit();
    }
    libere_panneaux();
    grx_desalloue_base_boutons();
    grx_desalloue_base_fenetres();
    return 0;
}

void Atelier::traite(const GRX_EVENEMENT& e) {
    note(e);
    if (couleurs_prennent(e)) return;
    switch (e.type_evenement) {
    case GRX_EVT_AFFICHAGE:
    case GRX_EVT_CHGT_TAILLE: return taille_changee(e.affichage.nofen);
    case GRX_EVT_BOUTON_APPUI: return appui(e.bouton_appui);
    case GRX_EVT_SOURIS_BOUGE: return bouge(e.souris_bouge);
    case GRX_EVT_BOUTON_RELACHE: return relache(e.bouton_relache);
    case GRX_EVT_CARAC_APPUI: return touche(e.carac_appui);
    case GRX_EVT_EXEC_FONCTION:
    case GRX_EVT_ECHELLE: return controle(e.exec_fonction);
    case GRX_EVT_ELEMENT_CLIQUE: return element_choisi(e.element_clique);
    case GRX_EVT_DESTRUCTION: return detruite(e.destruction.nofen);
    default: return;
    }
}

// --- windows ------------------------------------------------------------------------------------------------------

void Atelier::prend_taille() {
    INT largeur = 0, hauteur = 0;
    grx_recup_taille_fenetre_fille(graphique_, &largeur, &hauteur);
    hauteur_fenetre_ = hauteur;
    vue_.taille(largeur, hauteur - Bandeau::kHauteur);
}

// Drawn at once: the exposure that follows shows the backing picture, which a new size has emptied.
void Atelier::taille_changee(INT nofen) {
    if (nofen == principale_) return place_feuille();
    if (nofen == bandeau_.nofen()) return bandeau_.redessine();
    if (nofen != graphique_) return;
    elastique_.reset();
    prend_taille();
    if (!cadree_) vue_.cadre_tout(dessin_.boite);
    cadree_ = true;
    redessine();
    annonce_image();
}

// The sheet keeps to the right of the tools, whatever the size of the window.
void Atelier::place_feuille() {
    INT largeur = 0, hauteur = 0;
    grx_recup_taille_fenetre_fille(principale_, &largeur, &hauteur);
    grx_change_taille_fenetre_fille(graphique_, std::max(1, largeur - Outils::kLargeur), hauteur);
}

Point Atelier::du_haut(INT x, INT y) const {
    return {static_cast<double>(x), static_cast<double>(hauteur_fenetre_ - y)};
}

void Atelier::ferme() {
    libere_panneaux();
    grx_detruit_fenetre(principale_);
    fini_ = true;
}

// --- mouse and keys -----------------------------------------------------------------------------------------------

void Atelier::appui(const GRX_BOUTON_APPUI& e) {
    // An entry of the menu comes as a press of the main window that names a function; nobou is that of an older event.
    if (e.nofen == principale_ && e.no_fo >= 0) return action(e.no_fo);
    if (e.nofen != graphique_) return;
    outils_.rend_le_clavier();
    dit("");
    const Point p = du_haut(e.x, e.y);
    if (elastique_) return;
    switch (e.bouton) {
    case GRX_SOURIS_GAUCHE: return debut_elastique(p);
    case GRX_SOURIS_MILIEU: prise_ = p; return curseur(principale_, GRX_CURS_DEPLACE);
    case kMoletteHaut: vue_.zoome(kZoomMolette, p); break;
    case kMoletteBas: vue_.zoome(1 / kZoomMolette, p); break;
    default: return;
    }
    a_redessiner_ = true;
}

void Atelier::bouge(const GRX_SOURIS_BOUGE& e) {
    if (e.nofen != graphique_) return;
    const Point p = du_haut(e.x, e.y);
    pointeur_ = p;
    if (elastique_) tend_elastique(p);
    if (!prise_) return;
    vue_.deplace(p - *prise_);
    prise_ = p;
    a_glisser_ = true;
}

void Atelier::relache(const GRX_BOUTON_RELACHE& e) {
    if (e.bouton == GRX_SOURIS_GAUCHE && elastique_) return fin_elastique(true);
    if (e.bouton != GRX_SOURIS_MILIEU || !prise_) return;
    prise_.reset();
    curseur(principale_, GRX_CURS_CROIX_X);
}

void Atelier::touche(const GRX_CARAC_APPUI& e) {
    if (panneau_tient(e.nofen)) return panneau_touche(e);
    if (outils_.est_champ(e.nobou) || bande_.est_champ(e.nobou)) return;
    const double dx = kPasTouche * vue_.largeur(), dy = kPasTouche * vue_.hauteur();
    if (elastique_) fin_elastique(false);
    switch (e.carac) {
    case 'f':
    case kDebut: return action(kFonctionToutVoir);
    case '+': return action(kFonctionAgrandir);
    case '-': return action(kFonctionReduire);
    case kGauche: vue_.deplace({dx, 0}); break;
    case kDroite: vue_.deplace({-dx, 0}); break;
    case kHaut: vue_.deplace({0, dy}); break;
    case kBas: vue_.deplace({0, -dy}); break;
    case 'q': return action(kFonctionQuitter);
    default: return;
    }
    a_glisser_ = true;
}

// --- menus, icons and controls --------------------------------------------------------------------------------------

void Atelier::action(INT fonction) {
    journal_.note("action " + std::to_string(fonction));
    dit("");
    fonction_ = fonction;
    switch (fonction) {
    case kFonctionToutVoir: vue_.cadre_tout(dessin_.boite); break;
    case kFonctionAgrandir: vue_.zoome(kZoomTouche, vue_.milieu()); break;
    case kFonctionReduire: vue_.zoome(1 / kZoomTouche, vue_.milieu()); break;
    case kFonctionCouchesToutes: return montre_couches(true);
    case kFonctionCouchesAucune: return montre_couches(false);
    case kFonctionOuvrir: return ouvre_plan();
    case kFonctionImage: return enregistre_image();
    case kFonctionPieces: return edite_pieces();
    case kFonctionTracer: return trace_plan();
    case kFonctionReglages: return ouvre_reglages();
    case kFonctionCouleurs: return ouvre_couleurs();
    case kFonctionBande: return bascule_bande();
    case kFonctionTitre: return bascule_titre();
    case kFonctionBord: return bascule_bord();
    case kFonctionCouchesPanneau: return panneau_couches_.ouvre(dessin_.calques);
    case kFonctionNomenclature: return panneau_table_.ouvre(principale_, dessin_);
    case kFonctionModuleCommun:
    case kFonctionModuleMeca:
    case kFonctionModuleArch: return change_module(fonction - kFonctionModuleCommun);
    case kFonctionQuitter: return ferme();
    default: return;
    }
    a_redessiner_ = true;
}

void Atelier::controle(const GRX_EXEC_FONCTION& e) {
    if (bande_controle(e) || panneau_controle(e)) return;
    switch (e.no_fo) {
    case kFonctionZoom: vue_.fixe_rapport(Outils::rapport_de(e.valeur)); break;
    case kFonctionChampX:
    case kFonctionChampY:
        if (const auto centre = outils_.centre()) vue_.centre_sur(1 / montre_en() * *centre);
        break;
    default: return action(e.no_fo);
    }
    a_redessiner_ = true;
}

void Atelier::couche_choisie(const GRX_ELEMENT_CLIQUE& e) {
    const int calque = outils_.calque_de(e.nobou, e.chaine, dessin_.calques);
    if (calque < 0) return;
    calque_choisi_ = calque;
    suit_choix();
    if (e.double_click == 0) return;
    bool& visible = dessin_.calques[static_cast<std::size_t>(calque)].visible;
    visible = !visible;
    outils_.montre_calques(dessin_.calques);
    panneau_couches_.montre(dessin_.calques);
    a_redessiner_ = true;
}

void Atelier::montre_couches(bool visibles) {
    for (CalqueVu& calque : dessin_.calques) calque.visible = visibles;
    outils_.montre_calques(dessin_.calques);
    panneau_couches_.montre(dessin_.calques);
    a_redessiner_ = true;
}

// The menus of another module, in the bar that is there.
void Atelier::change_module(INT module) {
    constexpr int kSelecteur = 233; // of the host's state: which menu file is read
    if (module == module_) return;
    module_ = module;
    istate[kSelecteur] = module;
    grx_detruit_menu_bar();
    grx_recree_menu_bar();
}

// --- rubber band --------------------------------------------------------------------------------------------------

// Drawn with exclusive or on the screen only: the same again removes it.
void Atelier::trace_elastique() const {
    GRX_RECTANGLE r{};
    r.nofen = graphique_;
    r.x1 = static_cast<INT>(elastique_->coin.x);
    r.y1 = static_cast<INT>(elastique_->coin.y);
    r.x2 = static_cast<INT>(elastique_->oppose.x);
    r.y2 = static_cast<INT>(elastique_->oppose.y);
    r.attrib.coul_fond = kCoulFond;
    r.attrib.coul_trace = kCoulElastique;
    r.attrib.mode = GRX_MODE_XOR;
    grx_trace_rectangle(r);
}

void Atelier::debut_elastique(Point p) {
    rafraichit();
    elastique_ = Elastique{p, p};
    trace_elastique();
}

void Atelier::tend_elastique(Point p) {
    trace_elastique();
    elastique_->oppose = p;
    trace_elastique();
}

void Atelier::fin_elastique(bool zoome) {
    trace_elastique();
    const auto [coin, oppose] = *std::exchange(elastique_, {});
    const Point d = oppose - coin;
    if (!zoome || std::max(std::abs(d.x), std::abs(d.y)) < kElastiqueMin) return;
    vue_.cadre(Boite::entre(vue_.vers_dessin(coin), vue_.vers_dessin(oppose)));
    a_redessiner_ = true;
}

// --- picture ------------------------------------------------------------------------------------------------------

void Atelier::rafraichit() {
    const bool image = a_redessiner_ || a_glisser_;
    if (a_redessiner_)
        redessine();
    else if (a_glisser_)
        glisse();
    montre_bandeau();
    if (image) annonce_image();
}

// For who measures how long pictures take: a line for each, once the server has finished it.
void Atelier::annonce_image() {
    static const bool mesure = std::getenv("ATELIER_MESURE") != nullptr;
    if (!mesure) return;
    XSync(x11_disp, False);
    std::puts("image");
    std::fflush(stdout);
}

// Unseen into the backing picture, then shown at once; exposures show it again without asking.
void Atelier::redessine() {
    grx_affecte_nofen_active(graphique_);
    grx_alloue_image(graphique_);
    trace_feuille(tout_l_ecran(vue_));
    grx_desalloue_image();
    montre_vue();
}

// The picture moves, and only what comes to light is drawn.
void Atelier::glisse() {
    const auto ecart = peinte_ ? vue_.deplacement_depuis(*peinte_) : std::nullopt;
    if (!ecart || !glisse_image(graphique_, vue_, *ecart)) return redessine();
    grx_affecte_nofen_active(graphique_);
    for (const Boite& partie : parties_decouvertes(vue_, *ecart)) {
        const Decoupe decoupe(partie);
        grx_alloue_image(graphique_);
        trace_feuille(partie);
        grx_desalloue_image();
    }
    montre_vue();
}

void Atelier::montre_vue() {
    a_redessiner_ = a_glisser_ = false;
    peinte_ = vue_;
    grx_affiche_bitmap_backingstore(graphique_);
    montre_titre();
    montre_outils();
}

void Atelier::trace_feuille(const Boite& partie) {
    Plume plume{graphique_, {}};
    const std::vector<PlumeNommee> connues = plumes();
    plume.attrib.coul_trace = connues[static_cast<std::size_t>(reglages_.plume)].couleur;
    plume.attrib.type_trait = trait_grille(reglages_.trait);
    if (reglages_.grille) trace_grille(plume, vue_, reglages_.pas);
    trace_dessin({graphique_, dessin_, indices_, agrandissement_textes(reglages_.textes)}, vue_, partie);
}

double Atelier::montre_en() const {
    return facteur(reglages_, dessin_.unites);
}

int Atelier::decimales() const {
    return decimales_pour(vue_.echelle() / montre_en());
}

// How many times smaller than in nature the drawing is seen, 0 when its unit has no length.
double Atelier::echelle_papier() const {
    const double mm = millimetres(dessin_.unites);
    const double mm_par_pixel = grx_recup_lar_ecran() > 0 ? 1.0 * grx_recup_lar_ecran_mm() / grx_recup_lar_ecran() : 0;
    return mm > 0 && mm_par_pixel > 0 ? mm / (vue_.echelle() * mm_par_pixel) : 0;
}

void Atelier::montre_titre() {
    const std::string titre = "atelier - " + nom_court(nom_) + " - " + texte_echelle(echelle_papier(), vue_.echelle());
    if (titre == titre_) return;
    titre_ = titre;
    std::array<char, GRX_TITRE_MAX> tampon{};
    std::snprintf(tampon.data(), tampon.size(), "%s", titre.c_str());
    grx_change_titre_fenetre(principale_, tampon.data());
}

std::string Atelier::texte_position(Point p) const {
    const Point q = montre_en() * accroche(reglages_, p);
    return "X " + nombre(q.x, decimales()) + "   Y " + nombre(q.y, decimales())
           + symbole(unite_montree(reglages_, dessin_.unites));
}

void Atelier::montre_outils() {
    const Point centre = montre_en() * vue_.centre();
    outils_.montre_zoom(vue_.rapport());
    outils_.montre_centre(nombre(centre.x, decimales()), nombre(centre.y, decimales()));
}

void Atelier::montre_bandeau() {
    if (!cadree_) return;
    Bandeau::Contenu c;
    if (pointeur_) c.position = en_unicode(texte_position(vue_.vers_dessin(*pointeur_)));
    c.echelle = en_unicode("\u00C9chelle " + texte_echelle(echelle_papier(), vue_.echelle()));
    c.nom = en_unicode(nom_);
    c.message = en_unicode(message_);
    bandeau_.montre(c);
    montre_bande();
}

} // namespace atelier
