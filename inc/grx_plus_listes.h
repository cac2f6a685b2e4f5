/* grx_plus_listes.h - additions: lists filled at once, changed and read entry by entry.
 *
 * liste names a list of any of the three kinds:
 * - a button of type GRX_BOU_LISTE: its button number;
 * - a list in a panel: grx_recup_liste_panneau, or GRX_LISTE_PANNEAU + the no_fo of its type 32;
 * - a list of a dialog (grx_cree_liste): GRX_LISTE_DIALOGUE + its slot, 0 to 9, which is -1 - nofen of its type 32.
 *
 * Positions count from 1 in all three, as in grx_recup_element_dans_liste, grx_lit_liste and the records of
 * dialog lists. Only the records of panel lists and Tab_liste count from 0: add 1 to what they say.
 *
 * Texts are of any length and come back as they went in, but one without a character (empty, null, only
 * tabs and line feeds) is kept with a blank at its end. A line feed begins another line of the entry, a tab
 * the next column. What is selected stays selected, wherever other entries are put in, taken out or replaced.
 * The functions of xt_bou_f.h, xt_msg_f.h and xt_pan_f.h go on working with the list, and Tab_liste and
 * grx_lit_liste tell what these functions did; only grx_modif_items_liste brings back the entries of the
 * host's tables.
 *
 * What the program changes or selects makes no record. Lists of controls and panels keep their size; one of a
 * dialog keeps its height, and gets as wide as its entries where the window has room.
 * Codes (grx_plus_erreurs.h): GRX_ECHEC_NUMERO when liste names nothing, GRX_ECHEC_GENRE for a button that is
 * no list, GRX_ECHEC_PARAMETRE for a position that is not there or a null table, GRX_ECHEC_MEMOIRE,
 * GRX_ECHEC_AFFICHAGE before start-up. */
#ifndef GRX_PLUS_LISTES_H
#define GRX_PLUS_LISTES_H

#include "grx_api.h"
#include "host_t.h"

#define GRX_LISTE_PANNEAU 10000  /* added to the slot of a panel list */
#define GRX_LISTE_DIALOGUE 20000 /* added to the slot of a dialog list, 0..9 */

/* Modes of selection. GRX_LISTE_SIMPLE and GRX_LISTE_MULTIPLE are those of xt_pan_t.h. */
#define GRX_LISTE_UNE 0       /* one entry at most (GRX_LISTE_SIMPLE) */
#define GRX_LISTE_PLUSIEURS 1 /* several, each click turns one round (GRX_LISTE_MULTIPLE) */
#define GRX_LISTE_ETENDUE 2   /* several: a click selects one, with Shift up to there, with Ctrl one more */

/* Units of column stops. */
#define GRX_COLONNE_CARACTERES 0 /* characters of the application's font, as grx_recup_lar_carac_alpha */
#define GRX_COLONNE_PIXELS 1

#define GRX_COLONNES_MAX 32 /* columns of a list that are lined up */

GRX_DEBUT_C

/* Number of the list with the key clef (the item's own) in panel ipan; GRX_ECHEC_NUMERO when there is none.
 * It holds as long as the list's slot in Tab_liste.
 * Depuis 1.1 */
GRX_API INT grx_recup_liste_panneau(INT ipan, INT clef);

/* --- entries ----------------------------------------------------------------------------- */

/* Replaces all entries by nb texts at once; nothing is selected, the list shows its beginning. nb 0 empties
 * it. 100 000 entries take less than a second; one by one they take the square of it. Gives 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_remplit_liste(INT liste, INT nb, const char* const* textes);

/* Takes all entries away. Gives 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_vide_liste(INT liste);

/* Puts nb entries behind the last one, or before the entry at a position (1 to number + 1). Give 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_ajoute_elements_liste(INT liste, INT nb, const char* const* textes);
GRX_API INT grx_insere_elements_liste(INT liste, INT position, INT nb, const char* const* textes);

/* Replaces the texts of nb entries from a position on; each stays selected or not as it was. Gives 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_remplace_elements_liste(INT liste, INT position, INT nb, const char* const* textes);

/* Takes away nb entries from a position on; and entries by their positions as they are before the call, in any order,
 * where one named twice is taken once. Give 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_supprime_elements_liste(INT liste, INT position, INT nb);
GRX_API INT grx_supprime_positions_liste(INT liste, INT nb, const INT* positions);

/* Number of entries, or a code.
 * Depuis 1.1 */
GRX_API INT grx_recup_nombre_elements_liste(INT liste);

/* Text of an entry. texte: out, taille bytes with the final zero; what does not fit is cut. Gives the length
 * of the whole text in bytes, without the zero (texte null or taille below 1 write nothing), or a code.
 * Depuis 1.1 */
GRX_API INT grx_recup_texte_element_liste(INT liste, INT position, char* texte, INT taille);

/* --- selection --------------------------------------------------------------------------- */

/* Selects nb entries beside those that are selected; in a list of one the last one named is selected alone. Gives
 * 1 or a code. The view stays: grx_montre_element_liste.
 * Depuis 1.1 */
GRX_API INT grx_selectionne_elements_liste(INT liste, INT nb, const INT* positions);

/* Deselects nb entries, or all. Give 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_deselectionne_elements_liste(INT liste, INT nb, const INT* positions);
GRX_API INT grx_deselectionne_tout_liste(INT liste);

/* Positions of the selected entries, upwards. positions: out, at most nb_max of them (null: none). Gives the number of
 * selected entries, also when it is larger than nb_max, or a code.
 * Depuis 1.1 */
GRX_API INT grx_recup_selection_liste(INT liste, INT nb_max, INT* positions);

/* 1 when the entry at a position is selected, else 0, or a code.
 * Depuis 1.1 */
GRX_API INT grx_is_element_selectionne(INT liste, INT position);

/* How many entries the user can select: GRX_LISTE_UNE, GRX_LISTE_PLUSIEURS, GRX_LISTE_ETENDUE. Each choice of
 * the user in a list button posts type 32 then as in a list of one: nobou the list, no_fo -1 (never that of its
 * record), the text of the entry in chaine; read the selection. Going back to one keeps the first selected entry. The first gives 1 or a code
 * (GRX_ECHEC_PARAMETRE for another mode), the second the mode.
 * Depuis 1.1 */
GRX_API INT grx_affecte_mode_liste(INT liste, INT mode);
GRX_API INT grx_recup_mode_liste(INT liste);

/* --- view -------------------------------------------------------------------------------- */

/* Scrolls as little as needed to show the entry at a position, and moves the keyboard's place in the list
 * there. Gives 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_montre_element_liste(INT liste, INT position);

/* Position of the entry at a point, in pixels from the top left of the list, y downwards (as in the records of
 * a press in a button); 0 when there is none, or a code.
 * Depuis 1.1 */
GRX_API INT grx_recup_position_point_liste(INT liste, INT x, INT y);

/* Place and size of an entry that is in view, in the same pixels; pointers may be null. Gives 1,
 * GRX_ECHEC_ABSENT when it is not in view, or another code.
 * Depuis 1.1 */
GRX_API INT grx_recup_cadre_element_liste(INT liste, INT position, INT* x, INT* y, INT* largeur, INT* hauteur);

/* Position of the first entry in view and the number of entries in view, also those that are cut below;
 * pointers may be null; 0 and 0 in an empty list. Gives 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_recup_vue_liste(INT liste, INT* position, INT* nb);

/* --- columns ----------------------------------------------------------------------------- */

/* Texts with tabs are shown in columns. As long as nothing else is said, each column is as wide as its widest
 * text so far, and two characters stand between columns. arrets: nb distances of the second and further
 * columns from the left edge of the first, growing, in unite (GRX_COLONNE_...); a text that is longer than
 * its column pushes the rest of its line to the right. nb 0: by their widths again. Holds for entries that
 * these functions have put in, before or after; those with tabs from elsewhere are shown as they come.
 * Gives 1 or a code; GRX_ECHEC_PARAMETRE for nb above GRX_COLONNES_MAX - 1, or distances that do not grow.
 * Depuis 1.1 */
GRX_API INT grx_affecte_colonnes_liste(INT liste, INT nb, const INT* arrets, INT unite);

GRX_FIN_C

#endif
