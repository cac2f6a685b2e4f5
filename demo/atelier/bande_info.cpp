#include "bande_info.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <sstream>

#include "controles.h"
#include "fonctions.h"
#include "texte.h"
#include "unites.h"
#include "xt_f.h"

namespace atelier {

namespace {

using Zone = GRX_ZONE_INFO;
using Place = GRX_BOUTON Zone::*;

constexpr INT kActif = GRX_BOU_ATT_ACTIF, kLu = GRX_BOU_ATT_VISIBLE; // kLu: to be read only
constexpr INT kSansFonction = -1;
constexpr INT kMarge = 4; // pixels between and beside the rows
constexpr INT kCaracteres = 107;

struct Champ {
    Place place;
    INT type;
    INT attrib;
    INT colonne, largeur; // in characters
    INT rangee;
    INT fonction;
    const char* titre;
};

constexpr std::array<Champ, 19> kChamps{{
    {&Zone::Bou_fleche_haut, GRX_BOU_FLECHE, kActif | GRX_BOU_ATT_FLECHE_HAUT, 0, 3, 0, kFonctionBandeAgrandir, ""},
    {&Zone::Bou_fonction, GRX_BOU_LABEL, kActif, 4, 22, 0, kSansFonction, ""},
    {&Zone::Bou_mess, GRX_BOU_LABEL, kActif, 27, 34, 0, kSansFonction, ""},
    {&Zone::Bou_saisie, GRX_BOU_TEXTE, kActif, 62, 14, 0, kFonctionBandeSaisie, ""},
    {&Zone::Bou_aff_x, GRX_BOU_LABEL, kActif, 77, 14, 0, kSansFonction, ""},
    {&Zone::Bou_aff_y, GRX_BOU_LABEL, kActif, 92, 14, 0, kSansFonction, ""},
    {&Zone::Bou_fleche_bas, GRX_BOU_FLECHE, kActif | GRX_BOU_ATT_FLECHE_BAS, 0, 3, 1, kFonctionBandeReduire, ""},
    {&Zone::Bou_plan, GRX_BOU_LABEL, kActif, 4, 5, 1, kSansFonction, "Plan"},
    {&Zone::Bou_saisie_plan, GRX_BOU_TEXTE, kLu, 9, 14, 1, kSansFonction, ""},
    {&Zone::Bou_fen, GRX_BOU_LABEL, kActif, 24, 8, 1, kSansFonction, "\311chelle"},
    {&Zone::Bou_saisie_fen, GRX_BOU_TEXTE, kLu, 32, 9, 1, kSansFonction, ""},
    {&Zone::Bou_couche, GRX_BOU_LABEL, kActif, 42, 7, 1, kSansFonction, "Couche"},
    {&Zone::Bou_saisie_couche, GRX_BOU_TEXTE, kLu, 49, 13, 1, kSansFonction, ""},
    {&Zone::Bou_alt, GRX_BOU_LABEL, kActif, 63, 6, 1, kSansFonction, "Unit\351"},
    {&Zone::Bou_saisie_alt, GRX_BOU_TEXTE, kLu, 69, 4, 1, kSansFonction, ""},
    {&Zone::Bou_force, GRX_BOU_LABEL, kActif, 74, 4, 1, kSansFonction, "Pas"},
    {&Zone::Bou_saisie_force, GRX_BOU_TEXTE, kLu, 78, 8, 1, kSansFonction, ""},
    {&Zone::Bou_grille, GRX_BOU_BASCULE, kActif, 87, 9, 1, kFonctionBandeGrille, "Grille"},
    {&Zone::Bou_polaire, GRX_BOU_BASCULE, kActif, 97, 10, 1, kFonctionBandePolaire, "Polaire"},
}};

// Where the texts stand, in the order of their names.
constexpr std::array<Place, BandeInfo::kNbTextes> kTextes{&Zone::Bou_fonction, &Zone::Bou_mess, &Zone::Bou_aff_x,
    &Zone::Bou_aff_y, &Zone::Bou_saisie_plan, &Zone::Bou_saisie_fen, &Zone::Bou_saisie_couche, &Zone::Bou_saisie_alt,
    &Zone::Bou_saisie_force};

GRX_BOUTON decrit(INT fenetre, const Champ& champ) {
    const INT caractere = grx_recup_lar_carac_alpha(), ligne = grx_recup_hau_carac_alpha();
    GRX_BOUTON b = bouton(fenetre, champ.type, kMarge + champ.colonne * caractere, champ.rangee * (ligne + kMarge),
        champ.largeur * caractere, ligne);
    b.attrib = champ.attrib;
    b.no_fo = champ.fonction;
    if (champ.type == GRX_BOU_TEXTE) b.tabi[GRX_BOU_TABI_COLONNES] = -1;
    copie(b.titre, champ.titre);
    return b;
}

// Characters of Latin-1 as single bytes, others as a question mark.
std::string en_latin1(const std::u32string& texte) {
    std::string r;
    for (const char32_t c : texte) r += c < 256 ? static_cast<char>(c) : '?';
    return r;
}

// Two numbers with a blank between.
std::optional<Point> lit_point(const std::string& texte) {
    std::istringstream mots(texte);
    std::string x, y;
    mots >> x >> y;
    const auto nx = lit_nombre(x), ny = lit_nombre(y);
    return nx && ny ? std::optional(Point{*nx, *ny}) : std::nullopt;
}

} // namespace

// --- the window ---------------------------------------------------------------------------------------------------

void BandeInfo::ouvre(INT mere) {
    constexpr INT kBordEcran = 30, kPied = 4; // pixels beside and below
    cachee_ = false;
    grx_init_fenetre(&fenetre_);
    fenetre_.type = GRX_FEN_ALPHA;
    fenetre_.attrib |= GRX_FEN_ATT_SANS_RESIZE | GRX_FEN_ATT_SANS_MAXI | GRX_FEN_ATT_SANS_MINI;
    fenetre_.fen_mere = mere;
    fenetre_.x = kBordEcran;
    fenetre_.y = kPied;
    fenetre_.droite = kCaracteres * grx_recup_lar_carac_alpha() + 2 * kMarge;
    copie(fenetre_.titre, "Informations");
    fenetre_.nofen = -1;
    grx_cree_fenetre_info(&fenetre_);
    if (!ouverte()) return;
    for (const Champ& champ : kChamps) zone_.*champ.place = decrit(fenetre_.nofen, champ);
    INT hauteur = 0;
    grx_cree_boutons_fenetre_info(&zone_, &hauteur);
    contenu_.fill("");
    change_hauteur(hauteur);
}

void BandeInfo::bascule(INT mere, const Reglages& reglages) {
    if (!ouverte()) {
        ouvre(mere);
    } else {
        cachee_ = !cachee_;
        (cachee_ ? grx_cache_fenetre : grx_affiche_fenetre)(fenetre_.nofen);
    }
    montre_bascules(reglages);
}

// The numbers of its buttons are given back; their widgets go with the window.
void BandeInfo::oublie() {
    for (const Champ& champ : kChamps) grx_libere_indice_objet_bout((zone_.*champ.place).nobou);
    fenetre_.nofen = -1;
}

// The height given back is that of the one row on show: the second one needs as much again.
void BandeInfo::agrandit() {
    INT hauteur = 0;
    grx_agrandit_fenetre_info(fenetre_, zone_, &hauteur);
    change_hauteur(2 * hauteur);
}

void BandeInfo::reduit() {
    INT hauteur = 0;
    grx_reduit_fenetre_info(fenetre_, zone_, &hauteur);
    change_hauteur(hauteur);
}

void BandeInfo::change_hauteur(INT hauteur) {
    grx_change_taille_fenetre(fenetre_.nofen, fenetre_.droite, hauteur);
}

// --- what the user does -------------------------------------------------------------------------------------------

bool BandeInfo::est_champ(INT nobou) const {
    return ouverte() && nobou >= 0 && std::ranges::any_of(kChamps, [&](const Champ& champ) {
        return champ.type == GRX_BOU_TEXTE && (zone_.*champ.place).nobou == nobou;
    });
}

std::string BandeInfo::saisie() const {
    return ouverte() ? texte_de(zone_.Bou_saisie.nobou) : "";
}

Suite BandeInfo::controle(const GRX_EXEC_FONCTION& e, Reglages& reglages, Feuille& feuille) {
    if (!tient(e.nofen)) return Suite::PasPourMoi;
    bool compris = true;
    switch (e.no_fo) {
    case kFonctionBandeAgrandir: agrandit(); return Suite::Fait;
    case kFonctionBandeReduire: reduit(); return Suite::Fait;
    case kFonctionBandeSaisie: compris = centre_sur_saisie(feuille); break;
    case kFonctionBandeGrille: reglages.grille = !reglages.grille; break;
    case kFonctionBandePolaire: polaire_ = !polaire_; break;
    default: break;
    }
    montre_bascules(reglages);
    feuille.perime();
    return compris ? Suite::Fait : Suite::Refuse;
}

bool BandeInfo::centre_sur_saisie(Feuille& feuille) const {
    const auto p = lit_point(saisie());
    if (p) feuille.centre_sur(feuille.cotes().du_dessin(*p));
    return p.has_value();
}

// --- what it shows ------------------------------------------------------------------------------------------------

void BandeInfo::montre(const Plan& plan, const Feuille& feuille, INT fonction, const std::string& message) {
    if (!ouverte()) return;
    const Cotes cotes = feuille.cotes();
    Contenu c;
    c[kFonction] = nom_de(fonction);
    c[kMessage] = en_latin1(en_unicode(message));
    c[kPlan] = plan.nom();
    c[kEchelle] = cotes.echelle();
    if (plan.calque_choisi >= 0) c[kCouche] = plan.dessin.calques[static_cast<std::size_t>(plan.calque_choisi)].nom;
    c[kUnite] = cotes.unite();
    c[kPas] = cotes.pas();
    if (const auto p = feuille.point_montre()) pose_coordonnees(c, cotes, *p);
    ecrit(c);
}

// From the origin: right and up, or distance and angle.
void BandeInfo::pose_coordonnees(Contenu& c, const Cotes& cotes, Point p) const {
    constexpr int kDecimalesAngle = 1;
    const Point q = cotes.accrochees(p);
    const double angle = std::atan2(q.y, q.x) / radians(1);
    c[kX] = polaire_ ? "D " + cotes.texte(norme(q)) : "X " + cotes.texte(q.x);
    c[kY] = polaire_ ? "A " + nombre(angle, kDecimalesAngle) + "\260" : "Y " + cotes.texte(q.y);
}

void BandeInfo::ecrit(const Contenu& contenu) {
    for (std::size_t i = 0; i < kTextes.size(); ++i) {
        if (contenu[i] == contenu_[i]) continue;
        std::string texte = contenu_[i] = contenu[i];
        grx_change_texte((zone_.*kTextes[i]).nobou, texte.data());
    }
}

void BandeInfo::montre_bascules(const Reglages& reglages) const {
    if (!ouverte()) return;
    (reglages.grille ? grx_enfonce_bascule : grx_relache_bascule)(zone_.Bou_grille.nobou);
    (polaire_ ? grx_enfonce_bascule : grx_relache_bascule)(zone_.Bou_polaire.nobou);
}

} // namespace atelier
