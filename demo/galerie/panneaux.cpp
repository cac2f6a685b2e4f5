// The second page: every kind of panel item, the supports and lists of dialogs, a drop-down choice of tables, and the
// selection panel.
#include "galerie.h"

#include <algorithm>
#include <array>

namespace galerie {

namespace {

constexpr INT kActif = GRX_BOU_ATT_ACTIF;

// --- panel items, placed in characters and lines --------------------------------------------------------------------

struct Element {
    INT type;
    INT clef;
    double colonne, ligne;
    const char* titre;
    INT largeur = -1, hauteur = -1;
    INT nb_cara = 0;
    INT ival = 0;
};

constexpr std::array<Element, 25> kElements{{
    {GRX_ITEM_TITRE, 1, 0, 0, "Nature des \351l\351ments de panneau"},
    {10, 2, 16, 1.2, "Nom du plan", -1, -1, 20},
    {30, 3, 16, 2.2, "Pas de grille", -1, -1, 10},
    {40, 4, 16, 3.2, "Copies", -1, -1, 5, 3},
    {GRX_ITEM_CHOIX, 5, 7, 4.2, "Hachure- Aucune - Briques - B\351ton arm\351 - Bois", 12, -1, 0, 2},
    {GRX_ITEM_BASCULES_HORIZ, 6, 8, 5.6, "Unit\351s- mm - cm - m", -1, -1, 0, 1},
    {GRX_ITEM_BASCULES, 7, 8, 6.7, "\311chelle- 1/50 - 1/100 - 1/200", -1, -1, 0, 0},
    {GRX_ITEM_BOUTON, 8, 26, 6.7, "Extr\351mit\351s", -1, -1, 0, 1},
    {GRX_ITEM_BOUTON, 9, 26, 7.6, "Milieux"},
    {GRX_ITEM_BOUTON, 10, 26, 8.5, "Centres", -1, -1, 0, 1},
    {GRX_ITEM_SEPARATEUR, 11, 0, 9.8, "", 400},
    {GRX_ITEM_ECHELLE_H, 12, 0, 10.2, "", 30, 1, 0, 30},
    {GRX_ITEM_SEPARATEUR_DOUBLE, 13, 0, 11.6, "", 400},
    {GRX_ITEM_FONCTION, 14, 0, 12, "Appliquer"},
    {GRX_ITEM_FONCTION_CLEF, 15, 12, 12, "Annuler"},
    {GRX_ITEM_ICONE, 16, 22, 12, "Enfonc\351", -1, -1, 0, 1},
    {GRX_ITEM_ICONE, 17, 33, 11.9, "@ GRILLE.BMP"},
    {10, 18, 21, 13.2, "Seulement un libell\351"},
    {50, 19, 33, 13.2, "@OUVRIR.BMP", 36, 14},
    {GRX_ITEM_SEPARATEUR_V, 20, 40.5, 0, "", -1, 130},
    {GRX_ITEM_LISTE + GRX_LISTE_SIMPLE, 21, 42, 0, "", 16, 4},
    {GRX_ITEM_LISTE + GRX_LISTE_MULTIPLE, 22, 42, 4.2, "", 16, 4},
    {GRX_ITEM_ZONE_DESSIN, 23, 42, 8.5, "", 12, 3},
    {GRX_ITEM_ECHELLE_V, 24, 57, 8.5, "", 2, 3, 0, 70},
    {GRX_ITEM_TITRE, 25, 42, 12.4, "Zone de dessin"},
}};

constexpr INT kPanneau = 0;
constexpr INT kNbPanneaux = GRX_PANNEAU_SELECTION + 1;
std::array<ITEM_PANEL, kElements.size()> elements_vides{};
std::array<ITEM_PANEL, 7> elements_selection{};
std::array<PANEL, kNbPanneaux> panneaux{};

// --- the application's lists ----------------------------------------------------------------------------------------

std::array<CH80, 12> couches{};
std::array<CH80*, HOST_NB_LISTES> textes{};
std::array<INT, HOST_NB_LISTES> longueurs{}, nombres_choisis{};
std::array<INT*, HOST_NB_LISTES> choisis{};
std::array<INT, 2> choisis_au_debut{1, 3};

void remplit_listes() {
    constexpr std::array<const char*, 12> noms{"Axes", "Murs porteurs", "Cloisons", "Menuiserie", "\311lectricit\351",
        "Plomberie", "Cotation", "Mobilier", "Terrain", "R\351seaux", "Textes", "Cartouche"};
    for (std::size_t i = 0; i < noms.size(); ++i) copie(couches[i], noms[i]);
    for (const INT clef : {7, 21, 22}) {
        const auto i = static_cast<std::size_t>(clef);
        textes[i] = couches.data();
        longueurs[i] = static_cast<INT>(couches.size());
        choisis[i] = choisis_au_debut.data();
        nombres_choisis[i] = clef == 21 ? 1 : 2;
    }
    lsstate = textes.data();
    lnstate = longueurs.data();
    listate = nombres_choisis.data();
    lcstate = choisis.data();
}

void remplit_panneaux() {
    constexpr std::array<const char*, 7> messages{"", "S\351lectionner", "Nom", "Filtre", "Tout", "Aucun", "Fermer"};
    for (std::size_t i = 0; i < messages.size(); ++i) {
        elements_selection[i].message = const_cast<char*>(messages[i]);
        elements_selection[i].indice = 3200 + static_cast<INT>(i);
    }
    elements_selection[0].type = GRX_ITEM_LISTE + GRX_LISTE_MULTIPLE;
    panneaux[kPanneau].tab_items = elements_vides.data();
    panneaux[kPanneau].nb_items = static_cast<uchar>(elements_vides.size());
    PANEL& selection = panneaux[GRX_PANNEAU_SELECTION];
    selection.tab_items = elements_selection.data();
    selection.nb_items = static_cast<uchar>(elements_selection.size());
    selection.tx = 56 * grx_recup_lar_carac_alpha();
    selection.ty = 13 * grx_recup_hau_carac_alpha();
    copie(selection.titre, "S\351lection des couches");
    grx_alloue_base_items_panels(kNbPanneaux, panneaux.data());
}

void cree_element(INT fenetre, const Element& e, INT numero) {
    constexpr INT marge_gauche = 580, marge_haut = 14, interligne = 9;
    GRX_MSG m{};
    grx_init_message(&m);
    m.type = e.type;
    m.clef = e.clef;
    m.x = marge_gauche + static_cast<INT>(e.colonne * grx_recup_lar_carac_alpha());
    m.y = marge_haut + static_cast<INT>(e.ligne * (grx_recup_hau_carac_alpha() + interligne));
    copie(m.titre, e.titre);
    copie(m.cval, "Maison");
    m.rval = 12.5;
    m.nb_deci = 2;
    m.ival = e.ival;
    m.largeur = e.largeur;
    m.hauteur = e.hauteur;
    m.nb_cara = e.nb_cara;
    m.fen_mere = fenetre;
    m.nobou = kPanneau;
    m.prebou = numero;
    grx_cree_item(&m);
}

// --- dialogs --------------------------------------------------------------------------------------------------------

struct Support {
    INT attribut;
    INT x, y;
    const char* legende;
};
constexpr std::array<Support, 5> kSupports{{
    {GRX_MSG_ATT_RADIO, 20, 36, "Exclusives"},
    {GRX_MSG_ATT_RADIO | GRX_MSG_ATT_VERTICAL, 20, 120, "Exclusives"},
    {GRX_MSG_ATT_MULTI, 220, 36, "Multiples"},
    {GRX_MSG_ATT_MULTI | GRX_MSG_ATT_VERTICAL, 220, 120, "Multiples"},
    {GRX_MSG_ATT_CADRE, 20, 260, "Cadre seul"},
}};

void enfant(Widget support, INT type, const char* titre, INT no_fo) {
    GRX_BOUTON b;
    grx_init_bouton(&b);
    b.ref_fen_mere = support;
    b.type = type;
    b.attrib = kActif;
    b.no_fo = no_fo;
    copie(b.titre, titre);
    grx_cree_bouton(&b);
}

void legende(INT fenetre, INT x, INT y, const char* texte) {
    bouton(fenetre, GRX_BOU_LABEL, kActif, {x, y, -1, -1}, texte, -1);
}

void cree_support(INT fenetre, const Support& s) {
    GRX_MSG m{};
    grx_init_message(&m);
    m.type = GRX_MSG_TYPE_BASCULES;
    m.attribut = s.attribut;
    m.x = s.x;
    m.y = s.y;
    legende(fenetre, s.x, s.y - 20, s.legende);
    const Widget support = grx_cree_support_message(fenetre, m);
    if (s.attribut == GRX_MSG_ATT_CADRE) return enfant(support, GRX_BOU_LABEL, " Un libell\351 encadr\351 ", -1);
    for (const char* choix : {"mm", "cm", "m"}) enfant(support, GRX_BOU_BASCULE, choix, 3100);
}

void cree_liste_deroulante(Widget support) {
    const Widget menu = grx_cree_support_bascule_liste(support);
    for (const char* choix : {"Plan", "Coupe", "Fa\347ade"}) enfant(menu, GRX_BOU_SIMPLE, choix, 3110);
    char titre[] = "Vue";
    grx_cree_titre_bascule_liste(support, menu, nullptr, titre);
}

void cree_support_simple(INT fenetre) {
    GRX_MSG m{};
    grx_init_message(&m);
    m.x = 20;
    m.y = 330;
    m.largeur = 170;
    m.hauteur = 60;
    legende(fenetre, m.x, m.y - 20, "Support simple");
    cree_liste_deroulante(grx_cree_support_message(fenetre, m));
}

void cree_liste_dialogue(INT fenetre, INT numero, INT attribut, INT y) {
    constexpr std::array<const char*, 4> choix{"Trait continu", "Tirets", "Pointill\351", "Axe"};
    GRX_MSG m{};
    grx_init_message(&m);
    copie(m.titre, "Liste");
    m.choix = const_cast<char**>(choix.data());
    m.nb_deci = static_cast<INT>(choix.size());
    m.nb_cara = numero;
    m.attribut = attribut;
    m.fen_mere = fenetre;
    m.x = 410;
    m.y = y;
    grx_cree_liste(&m);
}

void cree_choix_de_table(INT fenetre) {
    std::array<const char*, 3> choix{"Surface", "Volume", "Prix unitaire"};
    Itbl = 0;
    legende(fenetre, 220, 306, "Choix de table");
    grx_tbl_cree_boutons_choix(
        fenetre, 226, 330, 3120, static_cast<INT>(choix.size()), const_cast<char**>(choix.data()), 3);
}

void cree_dialogues(INT fenetre) {
    for (const Support& s : kSupports) cree_support(fenetre, s);
    cree_support_simple(fenetre);
    legende(fenetre, 410, 16, "Liste simple");
    cree_liste_dialogue(fenetre, 0, 0, 36);
    legende(fenetre, 410, 150, "Liste multiple");
    cree_liste_dialogue(fenetre, 1, GRX_MSG_ATT_MULTI, 170);
    cree_choix_de_table(fenetre);
}

// Below the items where these leave room for it, else over the events.
void montre_selection() {
    constexpr INT petite_ligne = 24;
    grx_affecte_position_taille_panel_selection(grx_recup_hau_carac_alpha() <= petite_ligne ? 690 : 15, 90, -1, -1);
    grx_affiche_panel_selection();
}

} // namespace

void cree_panneaux(INT fenetre, const std::string& icones) {
    std::string repertoire = icones;
    grx_init_repertoire_icones(repertoire.data());
    grx_affecte_format_icone(GRX_FORMAT_ICONE_S);
    remplit_listes();
    remplit_panneaux();
    INT numero = 0;
    for (const Element& e : kElements) cree_element(fenetre, e, numero++);
    cree_dialogues(fenetre);
    montre_selection();
}

} // namespace galerie
