#include "galerie.h"

#include <array>
#include <functional>

namespace galerie {

GRX_BOUTON decrit(INT fenetre, INT type, INT attrib, const Boite& boite) {
    GRX_BOUTON b;
    grx_init_bouton(&b);
    b.fen_mere = fenetre;
    b.type = type;
    b.attrib = attrib;
    b.x = boite.x;
    b.y = boite.y;
    b.largeur = boite.largeur;
    b.hauteur = boite.hauteur;
    return b;
}

INT bouton(INT fenetre, INT type, INT attrib, const Boite& boite, std::string_view titre, INT no_fo) {
    GRX_BOUTON b = decrit(fenetre, type, attrib, boite);
    b.no_fo = no_fo;
    b.tabi[GRX_BOU_TABI_VALEUR] = no_fo % 100;
    if (type == GRX_BOU_TEXTE) b.tabi[GRX_BOU_TABI_COLONNES] = -1;
    copie(b.titre, titre);
    const INT resultat = grx_cree_bouton(&b);
    return resultat == 0 ? b.nobou : resultat;
}

namespace {

constexpr INT kActif = GRX_BOU_ATT_ACTIF;

struct Modele {
    INT type;
    INT attrib;
    Boite boite;
    const char* titre;
};

// Texts are bytes in Latin-1.
constexpr std::array<Modele, 24> kModeles{{
    {GRX_BOU_DESSINE, kActif, {20, 20, 120, 28}, "Dessin\351"},
    {GRX_BOU_DESSINE, kActif | GRX_BOU_ATT_PLAT, {150, 20, 120, 28}, "Plat"},
    {GRX_BOU_DESSINE, GRX_BOU_ATT_VISIBLE, {280, 20, 120, 28}, "Insensible"},
    {GRX_BOU_SIMPLE, kActif, {410, 20, 120, 28}, "Simple"},
    {GRX_BOU_POUSSOIR, GRX_BOU_ATT_DEFAUT, {20, 58, 120, 28}, "Poussoir"},
    {GRX_BOU_POUSSOIR, kActif, {150, 58, 120, 28}, "Pouss. dess."},
    {GRX_BOU_POUSSOIR, GRX_BOU_ATT_DEFAUT, {280, 58, 120, 28}, "Enfonc\351"},
    {GRX_BOU_DESSINE, kActif, {410, 58, 120, 28}, "Soulign\351"},
    {GRX_BOU_BASCULE, kActif, {20, 96, 130, 28}, "Accrochage"},
    {GRX_BOU_BASCULE, kActif, {150, 96, 120, 28}, "Grille"},
    {GRX_BOU_FLECHE, kActif | GRX_BOU_ATT_FLECHE_HAUT, {290, 96, 28, 28}, "haut"},
    {GRX_BOU_FLECHE, kActif | GRX_BOU_ATT_FLECHE_BAS, {322, 96, 28, 28}, "bas"},
    {GRX_BOU_FLECHE, kActif | GRX_BOU_ATT_FLECHE_GAUCHE, {354, 96, 28, 28}, "gauche"},
    {GRX_BOU_FLECHE, kActif | GRX_BOU_ATT_FLECHE_DROITE, {386, 96, 28, 28}, "droite"},
    {GRX_BOU_LABEL, kActif, {20, 142, 110, 20}, "Coordonn\351e X"},
    {GRX_BOU_TEXTE, kActif, {140, 136, 130, 28}, "12,50"},
    {GRX_BOU_TEXTE, kActif | GRX_BOU_ATT_TEXTE_LECTURE, {280, 136, 130, 28}, "en lecture"},
    {GRX_BOU_TEXTE, kActif | GRX_BOU_ATT_TEXTE_MULTI, {20, 176, 230, 90}, "Plusieurs lignes,\nla seconde."},
    {GRX_BOU_ECHELLE, kActif | GRX_BOU_ATT_ECHELLE_HORIZ | GRX_BOU_ATT_ECHELLE_VALEUR, {290, 176, 200, 18}, "Zoom"},
    {GRX_BOU_ECHELLE, kActif | GRX_BOU_ATT_ECHELLE_HORIZ, {290, 246, 200, 18}, "Sans valeur"},
    {GRX_BOU_ECHELLE, kActif, {520, 176, 20, 150}, "Verticale"},
    {GRX_BOU_SEPARATEUR, kActif | GRX_BOU_ATT_SEPARATEUR_HORIZ, {20, 286, 480, 4}, "s"},
    {GRX_BOU_ZONE_DESSIN, kActif, {290, 300, 200, 110}, "zone"},
    {GRX_BOU_COULEUR, kActif, {500, 340, 60, 28}, "Rouge"},
}};
constexpr std::size_t kEnfonce = 6, kSouligne = 7;

// Scales and colours need more of the record than the others.
INT cree(INT fenetre, const Modele& modele, INT no_fo) {
    if (modele.type != GRX_BOU_ECHELLE && modele.type != GRX_BOU_COULEUR)
        return bouton(fenetre, modele.type, modele.attrib, modele.boite, modele.titre, no_fo);
    GRX_BOUTON b = decrit(fenetre, modele.type, modele.attrib, modele.boite);
    b.no_fo = no_fo;
    b.tabi[GRX_BOU_TABI_MAXI] = 200;
    b.tabi[GRX_BOU_TABI_INITIAL] = 75;
    b.coul_fond = modele.type == GRX_BOU_COULEUR ? GRX_NB_COULEURS_RESERVE + 12 : -1;
    copie(b.titre, modele.titre);
    return grx_cree_bouton(&b) == 0 ? b.nobou : -1;
}

void cree_liste(INT fenetre) {
    const INT liste =
        bouton(fenetre, GRX_BOU_LISTE, kActif | GRX_BOU_ATT_LISTE_SCROLL, {20, 300, 230, 110}, "couches", 1100);
    // The newest entry stands first.
    for (const char* couche :
        {"Mobilier", "Cotation", "\311lectricit\351", "Menuiserie", "Cloisons", "Murs porteurs", "Axes"})
        grx_ajoute_element_dans_liste(liste, const_cast<char*>(couche));
}

void dessine_zone(INT zone) {
    GRX_SEGMENT s{};
    s.nofen = zone;
    s.attrib = {1, GRX_NB_COULEURS_RESERVE + 14, 0, 0, 0, 1};
    for (INT i = 0; i <= 10; ++i) {
        s.x1 = 20 * i;
        s.y1 = 0;
        s.x2 = 200;
        s.y2 = 11 * i;
        grx_trace_segment_bouton(s);
    }
}

} // namespace

void cree_controles(INT fenetre) {
    std::array<INT, kModeles.size()> numeros{};
    for (std::size_t i = 0; i < kModeles.size(); ++i)
        numeros[i] = cree(fenetre, kModeles[i], 1000 + static_cast<INT>(i));
    cree_liste(fenetre);
    grx_enfonce_bouton(numeros[kEnfonce]);
    grx_souligne_bouton(numeros[kSouligne]);
    const INT zone = numeros[numeros.size() - 2];
    grx_affecte_nobou_actif(zone);
    grx_alloue_image_bouton(zone, 1);
    dessine_zone(zone);
    grx_desalloue_image_bouton();
    grx_affiche_bitmap_backingstore_bouton(zone);
}

} // namespace galerie
