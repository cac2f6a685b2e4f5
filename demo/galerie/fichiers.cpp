// The third page: information strip, palette window, text editor, file and directory dialogs, decorations.
#include "galerie.h"

#include <array>

namespace galerie {

namespace {

constexpr INT kActif = GRX_BOU_ATT_ACTIF;

// --- the information strip ------------------------------------------------------------------------------------------

struct Champ {
    GRX_BOUTON GRX_ZONE_INFO::*place;
    INT type;
    INT attrib;
    INT colonne, largeur; // in characters
    INT rangee;
    const char* titre;
};
using Zone = GRX_ZONE_INFO;

constexpr std::array<Champ, 19> kChamps{{
    {&Zone::Bou_fleche_haut, GRX_BOU_FLECHE, kActif | GRX_BOU_ATT_FLECHE_HAUT, 0, 3, 0, ""},
    {&Zone::Bou_fonction, GRX_BOU_LABEL, kActif, 4, 16, 0, "Ligne bris\351e"},
    {&Zone::Bou_mess, GRX_BOU_LABEL, kActif, 21, 34, 0, "Premier point ?"},
    {&Zone::Bou_saisie, GRX_BOU_TEXTE, kActif, 56, 18, 0, ""},
    {&Zone::Bou_aff_x, GRX_BOU_LABEL, kActif, 75, 13, 0, "X   12,50"},
    {&Zone::Bou_aff_y, GRX_BOU_LABEL, kActif, 89, 13, 0, "Y    3,00"},
    {&Zone::Bou_fleche_bas, GRX_BOU_FLECHE, kActif | GRX_BOU_ATT_FLECHE_BAS, 0, 3, 1, ""},
    {&Zone::Bou_plan, GRX_BOU_LABEL, kActif, 4, 5, 1, "Plan"},
    {&Zone::Bou_saisie_plan, GRX_BOU_TEXTE, kActif, 9, 8, 1, "1"},
    {&Zone::Bou_fen, GRX_BOU_LABEL, kActif, 19, 8, 1, "Fen\352tre"},
    {&Zone::Bou_saisie_fen, GRX_BOU_TEXTE, kActif, 27, 6, 1, "2"},
    {&Zone::Bou_couche, GRX_BOU_LABEL, kActif, 35, 7, 1, "Couche"},
    {&Zone::Bou_saisie_couche, GRX_BOU_TEXTE, kActif, 42, 10, 1, "Murs"},
    {&Zone::Bou_alt, GRX_BOU_LABEL, kActif, 54, 9, 1, "Altitude"},
    {&Zone::Bou_saisie_alt, GRX_BOU_TEXTE, kActif, 63, 8, 1, "0,00"},
    {&Zone::Bou_force, GRX_BOU_LABEL, kActif, 73, 6, 1, "Force"},
    {&Zone::Bou_saisie_force, GRX_BOU_TEXTE, kActif, 79, 5, 1, "1"},
    {&Zone::Bou_grille, GRX_BOU_BASCULE, kActif, 86, 9, 1, "Grille"},
    {&Zone::Bou_polaire, GRX_BOU_BASCULE, kActif, 96, 10, 1, "Polaire"},
}};

GRX_ZONE_INFO zone{};
GRX_FENETRE bande{};

GRX_BOUTON decrit_champ(const Champ& champ) {
    const INT caractere = grx_recup_lar_carac_alpha(), ligne = grx_recup_hau_carac_alpha();
    GRX_BOUTON b = decrit(bande.nofen, champ.type, champ.attrib,
        {4 + champ.colonne * caractere, champ.rangee * (ligne + 4), champ.largeur * caractere, ligne});
    b.no_fo = kFonctionBande + champ.rangee;
    if (champ.type == GRX_BOU_TEXTE) b.tabi[GRX_BOU_TABI_COLONNES] = -1;
    copie(b.titre, champ.titre);
    return b;
}

void ouvre_bande(INT principale) {
    grx_init_fenetre(&bande);
    bande.type = GRX_FEN_ALPHA;
    bande.attrib |= GRX_FEN_ATT_SANS_RESIZE;
    bande.fen_mere = principale;
    bande.x = 60;
    bande.y = 790;
    bande.droite = 107 * grx_recup_lar_carac_alpha();
    copie(bande.titre, "Informations");
    grx_cree_fenetre_info(&bande);
    for (const Champ& champ : kChamps) zone.*champ.place = decrit_champ(champ);
    INT hauteur = 0;
    grx_cree_boutons_fenetre_info(&zone, &hauteur);
}

void change_bande(bool agrandit) {
    INT hauteur = 0;
    if (agrandit)
        grx_agrandit_fenetre_info(bande, zone, &hauteur);
    else
        grx_reduit_fenetre_info(bande, zone, &hauteur);
}

// --- palette, editor, decorations -----------------------------------------------------------------------------------

void ouvre_palette(INT principale) {
    constexpr INT cyan = GRX_NB_COULEURS_RESERVE + 4;
    char titre[256] = "Couleur active";
    grx_affecte_couleur_active(cyan);
    grx_affiche_fenetre_modif_palette_couleurs(640, 120, titre, principale);
    grx_affecte_fenetre_a_digitaliser(-1); // the other windows answer as well
}

void ouvre_editeur() {
    char repertoire[GRX_MEMO_FILENAME_MAX] = GALERIE_REP, nom[GRX_MEMO_FILENAME_MAX] = "MNU_COMM.DAT";
    if (grx_debut_editeur() == 0) return;
    grx_editeur();
    grx_file_editeur(repertoire, nom);
}

struct Action {
    const char* titre;
    INT (*fait)(INT nofen);
};
constexpr std::array<Action, 4> kDecorations{
    {{"Sans titre", grx_supprime_titre_fenetre}, {"Titre", grx_affiche_titre_fenetre},
        {"Sans bord", grx_supprime_bord_fenetre}, {"Bord", grx_affiche_bord_fenetre}}};
constexpr std::array<const char*, 3> kDialogues{"Ouvrir un plan...", "Enregistrer...", "R\351pertoire..."};

// --- dialogs --------------------------------------------------------------------------------------------------------

STRING texte(const char* t) {
    return {const_cast<char*>(t), 0, 0};
}

void note_choix(Journal& journal, const char* resultat) {
    char ligne[HOST_CHEMIN_MAX + 40];
    std::snprintf(ligne, sizeof ligne, "choisi : %s\n", resultat);
    journal.ecrit(ligne);
}

void choisit_fichier(Journal& journal, INT2 operation) {
    std::array<STRING, 2> extensions{texte("BMP"), texte("DAT")}, messages{texte("Images"), texte("Donn\351es")};
    SFILTRE filtres{messages.data(), extensions.data(), static_cast<INT2>(extensions.size())};
    SCATAL catalogue{};
    catalogue.titre = texte(operation == HOST_CATAL_ECRITURE ? "Enregistrer sous" : "Ouvrir");
    catalogue.type_operation = operation;
    STRING propose = texte("OUVRIR.BMP");
    SFICHIER depart{texte(GALERIE_ICONES "/L"), &propose, 1};
    SFICHIER choisi{};
    INT erreur = 0;
    if (select_fichier_x11(catalogue, depart, filtres, &choisi, &erreur) == 1 && choisi.nb_fics > 0)
        note_choix(journal, choisi.fics[0].str);
}

void choisit_repertoire(Journal& journal) {
    char titre[] = "Choisir un r\351pertoire", repertoire[GRX_CHEMIN_DIALOGUE_MAX] = GALERIE_ICONES;
    if (select_repertoire_x11(titre, repertoire) == 1) note_choix(journal, repertoire);
}

} // namespace

void cree_fichiers(INT fenetre, bool avec_editeur) {
    for (std::size_t i = 0; i < kDialogues.size(); ++i)
        bouton(fenetre, GRX_BOU_SIMPLE, kActif, {20, 130 + 40 * static_cast<INT>(i), 220, 30}, kDialogues[i],
            kFonctionDialogue + static_cast<INT>(i));
    for (std::size_t i = 0; i < kDecorations.size(); ++i)
        bouton(fenetre, GRX_BOU_SIMPLE, kActif, {260 + 150 * static_cast<INT>(i), 130, 140, 30}, kDecorations[i].titre,
            kFonctionDecoration + static_cast<INT>(i));
    ouvre_bande(fenetre);
    change_bande(true);
    if (avec_editeur)
        ouvre_editeur();
    else
        ouvre_palette(fenetre);
}

bool action_fichiers(INT fenetre, INT no_fo, Journal& journal) {
    const INT decoration = no_fo - kFonctionDecoration;
    if (decoration >= 0 && decoration < static_cast<INT>(kDecorations.size()))
        return kDecorations[static_cast<std::size_t>(decoration)].fait(fenetre), true;
    switch (no_fo) {
    case kFonctionDialogue: choisit_fichier(journal, HOST_CATAL_LECTURE); return true;
    case kFonctionDialogue + 1: choisit_fichier(journal, HOST_CATAL_ECRITURE); return true;
    case kFonctionDialogue + 2: choisit_repertoire(journal); return true;
    case kFonctionBande: change_bande(true); return true;
    case kFonctionBande + 1: change_bande(false); return true;
    default: return false;
    }
}

} // namespace galerie
