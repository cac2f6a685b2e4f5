// The part of the application that has to do with the information strip and the decorations of its window.
#include "atelier.h"

#include <Xm/MwmUtil.h>
#include <Xm/Xm.h>

#include <cmath>
#include <sstream>

#include "fonctions.h"
#include "texte.h"
#include "unites.h"
#include "xt_f.h"

namespace atelier {

namespace {

struct Fonction_ {
    INT numero;
    const char* nom;
};
constexpr Fonction_ kNoms[]{{kFonctionToutVoir, "Tout voir"}, {kFonctionAgrandir, "Agrandir"},
    {kFonctionReduire, "R\351duire"}, {kFonctionOuvrir, "Ouvrir"}, {kFonctionImage, "Enregistrer l'image"},
    {kFonctionPieces, "Liste des pi\350ces"}, {kFonctionTracer, "Tracer"}, {kFonctionCouleurs, "Couleurs"},
    {kFonctionReglages, "R\351glages"}, {kFonctionCouchesPanneau, "Couches"}, {kFonctionNomenclature, "Nomenclature"},
    {kFonctionBande, "Bande d'information"}, {kFonctionTitre, "Titre"}, {kFonctionBord, "Bord"}};

const char* nom_de(INT fonction) {
    for (const Fonction_& f : kNoms)
        if (f.numero == fonction) return f.nom;
    return "Navigation";
}

// Characters of Latin-1 as single bytes, others as a question mark.
std::string en_latin1(const std::u32string& texte) {
    std::string r;
    for (const char32_t c : texte) r += c < 256 ? static_cast<char>(c) : '?';
    return r;
}

// The boxes of a title: mwm keeps a title for as long as there are any. Set among all, a bit takes its box away.
void ote_boites(INT nofen, bool otees) {
    Widget const fenetre = grx_recherche_shell(grx_recup_objet_fen(nofen));
    int decorations = 0;
    if (fenetre == nullptr) return;
    XtVaGetValues(fenetre, XmNmwmDecorations, &decorations, nullptr);
    constexpr int kBoites = MWM_DECOR_MINIMIZE | MWM_DECOR_MAXIMIZE;
    XtVaSetValues(fenetre, XmNmwmDecorations, otees ? decorations | kBoites : decorations & ~kBoites, nullptr);
}

} // namespace

void Atelier::bascule_bande() {
    bande_.bascule(principale_);
    bande_.montre_bascules(reglages_.grille, polaire_);
    montre_bande();
}

void Atelier::montre_bande() {
    if (!bande_.ouverte()) return;
    const int unite = unite_montree(reglages_, dessin_.unites);
    BandeInfo::Contenu c;
    c[BandeInfo::kFonction] = nom_de(fonction_);
    c[BandeInfo::kMessage] = en_latin1(en_unicode(message_));
    c[BandeInfo::kPlan] = nom_;
    c[BandeInfo::kEchelle] = texte_echelle(echelle_papier(), vue_.echelle());
    if (calque_choisi_ >= 0) c[BandeInfo::kCouche] = dessin_.calques[static_cast<std::size_t>(calque_choisi_)].nom;
    c[BandeInfo::kUnite] = symbole(unite);
    c[BandeInfo::kPas] = nombre(reglages_.pas * montre_en(), decimales());
    if (pointeur_) montre_coordonnees(c, vue_.vers_dessin(*pointeur_));
    bande_.montre(c);
}

// From the origin: right and up, or distance and angle.
void Atelier::montre_coordonnees(BandeInfo::Contenu& c, Point p) const {
    constexpr int kDecimalesAngle = 1;
    const Point q = montre_en() * accroche(reglages_, p);
    const double angle = std::atan2(q.y, q.x) / radians(1);
    c[BandeInfo::kX] = polaire_ ? "D " + nombre(norme(q), decimales()) : "X " + nombre(q.x, decimales());
    c[BandeInfo::kY] = polaire_ ? "A " + nombre(angle, kDecimalesAngle) + "\260" : "Y " + nombre(q.y, decimales());
}

bool Atelier::bande_controle(const GRX_EXEC_FONCTION& e) {
    if (bande_.controle(e) != Suite::PasPourMoi) return true;
    if (!bande_.tient(e.nofen)) return false;
    switch (e.no_fo) {
    case kFonctionBandeSaisie: centre_sur_saisie(); break;
    case kFonctionBandeGrille: reglages_.grille = !reglages_.grille; break;
    case kFonctionBandePolaire: polaire_ = !polaire_; break;
    default: break;
    }
    bande_.montre_bascules(reglages_.grille, polaire_);
    a_redessiner_ = true;
    return true;
}

// Two numbers with a blank between.
void Atelier::centre_sur_saisie() {
    std::istringstream mots(bande_.saisie());
    std::string x, y;
    mots >> x >> y;
    const auto nx = lit_nombre(x), ny = lit_nombre(y);
    if (!nx || !ny) return dit("Attendu : X Y");
    vue_.centre_sur(1 / montre_en() * Point{*nx, *ny});
}

// Shown again by what takes it away: the library's functions toggle.
void Atelier::bascule_titre() {
    ote_boites(principale_, !sans_titre_);
    (sans_titre_ ? grx_affiche_titre_fenetre : grx_supprime_titre_fenetre)(principale_);
    sans_titre_ = !sans_titre_;
    reprend();
}

void Atelier::bascule_bord() {
    (sans_bord_ ? grx_affiche_bord_fenetre : grx_supprime_bord_fenetre)(principale_);
    sans_bord_ = !sans_bord_;
    reprend();
}

} // namespace atelier
