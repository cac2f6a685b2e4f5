#include "papier.h"

#include <array>

#include "grx_plus_papier.h"
#include "reglages.h"
#include "rendu.h"
#include "vue.h"

namespace atelier {

namespace {

// A3 landscape without its margins, in places of a tenth of a millimetre.
constexpr double kParMillimetre = 10;
constexpr double kMarge = 10;
constexpr INT kLargeur = 4000, kHauteur = 2770;

GRX_PAPIER feuille(Papier genre, const std::string& fichier, const std::string& titre) {
    GRX_PAPIER p;
    grx_init_papier(&p);
    p.genre = genre == Papier::Traceur ? GRX_PAPIER_HPGL : GRX_PAPIER_PDF;
    p.fichier = fichier.c_str();
    p.format = GRX_PAPIER_A3;
    p.orientation = GRX_PAPIER_PAYSAGE;
    p.marge_gauche = p.marge_droite = p.marge_haut = p.marge_bas = kMarge;
    p.numero = -1;
    p.largeur_zone = kLargeur;
    p.hauteur_zone = kHauteur;
    p.mm_par_pixel = 1 / kParMillimetre;
    p.echelle = 1;
    p.plusieurs_feuilles = 0;
    p.titre = titre.c_str();
    p.auteur = "atelier";
    return p;
}

Vue vue_sur(const Plan& plan, const Boite& cadre) {
    Vue vue;
    vue.taille(kLargeur, kHauteur);
    vue.cadre_tout(plan.dessin.boite);
    vue.cadre(cadre);
    return vue;
}

std::string raison() {
    std::array<char, 200> texte{};
    grx_recup_texte_papier(texte.data(), texte.size());
    return texte.data();
}

} // namespace

std::string met_sur_papier(const Plan& plan, const Boite& cadre, Papier genre, const std::filesystem::path& fichier) {
    const std::string nom = fichier.string(), titre = plan.nom();
    const GRX_PAPIER papier = feuille(genre, nom, titre);
    if (grx_commence_papier(&papier) != 1) return raison();
    const Vue vue = vue_sur(plan, cadre);
    trace_dessin({papier.numero, plan.dessin, plan.indices, agrandissement_textes(plan.reglages.textes)}, vue,
        tout_l_ecran(vue));
    return grx_termine_papier() == 1 ? "" : raison();
}

} // namespace atelier
