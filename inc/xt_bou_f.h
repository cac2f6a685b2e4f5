/* xt_bou_f.h - buttons: every kind of control placed in a window.
 *
 * A button is named by its number, 0..999, shared by all windows, given by grx_cree_bouton; -1 =
 * none. Positions are in the parent, in pixels from its top left, y downwards. An operation on a
 * number that names no button does nothing, leaves its out parameters as they are and returns 0
 * unless said otherwise; so does one on a control of the wrong type. A function whose result is not
 * described returns 0. Programmed changes post no event. */
#ifndef XT_BOU_F_H
#define XT_BOU_F_H

#include <X11/Intrinsic.h>

#include "grx_api.h"
#include "host_t.h"
#include "xt_bou_t.h"
#include "xt_mot_t.h"

GRX_DEBUT_C

/* --- button base ------------------------------------------------------------------------- */

/* Allocates the button base (GRX_NB_BOUTONS entries), once, before the first button and before
 * grx_init_application. Returns 0, or GRX_ERR_BASE_BOUTONS (13) when memory is short. */
GRX_API INT grx_alloue_base_boutons(void);

/* Frees the button base; buttons still alive are not destroyed. */
GRX_API INT grx_desalloue_base_boutons(void);

/* The lowest free number, not yet reserved; -1, with a line printed, when all are taken. */
GRX_API INT grx_recup_indice_objet_bout_libre(void);

/* Stores the widget of a number. Returns 1, or 0 for a number outside the base. */
GRX_API INT grx_affecte_objet_bout(INT iden, Widget w);

/* The widget of a button, null when there is none. */
GRX_API Widget grx_recup_objet_bout(INT iden);

/* The number of a widget, -1 when it is no button. */
GRX_API INT grx_recup_indice_bout(Widget w);

/* Frees a number and its icon; the widget stays (grx_detruit_bouton does both). Returns 1, or 0 for
 * a number outside the base. */
GRX_API INT grx_libere_indice_objet_bout(INT indice);

/* Fills the record of a number (function number, value, window); outside the base: nothing. */
GRX_API void grx_affecte_structure_bouton(INT indice, INT no_fo, INT valeur, INT fen_mere);

/* Gives the record of a number in *ptr, untouched outside the base. The library's; it never moves. */
GRX_API void grx_recup_structure_bouton(INT indice, STRUCTURE_BOUTON** ptr);

/* Set and get the active button, -1 at first: where memory drawing on buttons works. */
GRX_API void grx_affecte_nobou_actif(INT nobou);
GRX_API INT grx_recup_nobou_actif(void);

/* --- creation ---------------------------------------------------------------------------- */

/* Fills a record with defaults: drawn button, visible, sensitive, no place, no size, no colours, no
 * parent, no function number, empty texts, tabi all 0. */
GRX_API void grx_init_bouton(GRX_BOUTON* bouton);

/* Creates a control from its description and writes its number into bouton->nobou. The parent is
 * ref_fen_mere, else the window fen_mere. An icon that cannot be read leaves the label. The record
 * is not kept. Returns 0; -1 without parent; -2 for an unknown type or when the toolkit refuses; -3
 * when all numbers are taken. What is made in a row is laid out together, before the next event is
 * read or a place or size is asked for. Posts later: type 6 (activated), 32 (list), 64 (scale), 80
 * and 96 (Tab in a text field), 1, 2, 3, 10, 15, 48 (pointer and keys, x and y in the button, y
 * downwards). A mouse button let go of outside the control is told (type 15) by the window or control
 * under the pointer; by this one, with x and y outside it, where none of the application's is there. */
GRX_API INT grx_cree_bouton(GRX_BOUTON* bouton);

/* Creates a label or a separator that gets no number and posts nothing; other types do nothing.
 * Returns 0, or -1 when the window fen_mere is unknown. */
GRX_API INT grx_cree_gadget(GRX_BOUTON* gadget);

/* Measures the character cell with throw-away controls in pere and stores it in the settings. */
GRX_API void affecte_carac_font(Widget pere);

/* Default background and foreground pixel of a button, known after the first creation, 0 before. */
GRX_API INT grx_recup_couleur_init_fond_bouton(void);
GRX_API INT grx_recup_couleur_init_trace_bouton(void);

/* --- showing, hiding, life --------------------------------------------------------------- */

/* Manages several buttons at once; nobou: nb_bout numbers, unknown ones are skipped. A hidden one
 * stays hidden: grx_affiche_bouton shows it. */
GRX_API INT grx_affiche_boutons(INT* nobou, INT nb_bout);

/* Shows a button. */
GRX_API INT grx_affiche_bouton(INT nobou);

/* Both hide a button; it keeps its place and its number. */
GRX_API INT grx_cache_bouton(INT nobou);
GRX_API INT grx_efface_bouton(INT nobou);

/* Destroys a button and frees its number, which the next creation may reuse. */
GRX_API INT grx_detruit_bouton(INT nobou);

/* Makes a button insensitive (bloquer > 0) or sensitive. */
GRX_API INT grx_desactive_bouton(INT nobou, INT bloquer);

/* Gives a button the keyboard focus. */
GRX_API INT grx_force_focus_sur_bouton(INT nobou);

/* Handles all pending events; the number is ignored. */
GRX_API INT grx_flush_dessin_bouton(INT nobou);

/* --- texts and fields -------------------------------------------------------------------- */

/* Replaces the text of a field, the insertion point going to its end, or a button's label. The control
 * keeps its size, also a label created without one: what is longer is cut off on the screen. Give a
 * label that changes the size of its longest text, or call grx_change_taille_bouton. */
GRX_API INT grx_change_texte(INT nobou, char* texte);

/* Replaces a label; the control keeps its size. */
GRX_API INT grx_affecte_champ_bouton(INT ind, char* s);

/* Replaces the text of a field. */
GRX_API INT grx_affecte_champ_texte(INT ind, char* s);

/* Inserts at the insertion point of a field, which moves behind the insertion and into view. */
GRX_API INT grx_ajoute_texte(INT nobou, char* texte);

/* Copies the whole text of a field; texte must be large enough: there is no limit. */
GRX_API INT grx_recup_texte_bouton(INT nobou, char* texte);

/* Selects the whole text of a text field, or of the text field that has the focus in its window. */
GRX_API INT grx_selectionne_champ(INT nobou);
GRX_API INT grx_selectionne_champ_focus(INT nobou);

/* Width in pixels of a field of nbcar characters, one more allowed as margin. */
GRX_API INT grx_calc_larg_saisie(INT nbcar);

/* --- lists ------------------------------------------------------------------------------- */

/* Sizes of a list (at its creation, grx_change_taille_bouton, grx_recup_taille_bouton) are those of the
 * list itself, its shadow included, without the scroll bars that its frame adds at the right and below
 * (19 pixels each with the toolkit's defaults; as long as they are needed, or always with
 * GRX_BOU_ATT_LISTE_SCROLL). Positions are the frame's. */

/* Adds an element, not selected, as the FIRST one; an empty text is ignored. */
GRX_API INT grx_ajoute_element_dans_liste(INT nobou, char* texte);

/* Number of elements, -1 for a number that names no list. */
GRX_API INT grx_recup_nombre_elements_dans_list(INT nobou);

/* Copies the element at a position counted from 1; texte must be large enough. Returns 1; 0 when
 * there is no such position; -1 for a number that names no list. */
GRX_API INT grx_recup_element_dans_liste(INT nobou, INT position, char* texte);

/* --- colours ----------------------------------------------------------------------------- */

/* Background (also while pressed) and foreground, by colour index. */
GRX_API INT grx_change_couleur_bouton(INT nobou, INT couleur);
GRX_API INT grx_change_couleur_trace_bouton(INT nobou, INT couleur);

/* Background and foreground, by X pixel value. */
GRX_API INT grx_change_couleur_bouton_indice_direct(INT nobou, INT index);
GRX_API INT grx_change_couleur_trace_bouton_indice_direct(INT nobou, INT couleur);

/* Sets the foreground to a pixel: grx_recup_couleur_init_trace_bouton() for the default. */
GRX_API INT grx_remet_couleur_initiale_bouton(INT nobou, INT couleur_x11);

/* Background and foreground pixel, 0 for an unknown number. */
GRX_API INT grx_recup_couleur_bouton(INT nobou);
GRX_API INT grx_recup_couleur_trace_bouton(INT nobou);

/* --- geometry ---------------------------------------------------------------------------- */

/* Set and get size and place. A size of which one part is below 1 changes nothing. */
GRX_API INT grx_change_taille_bouton(INT nobou, INT largeur, INT hauteur);
GRX_API INT grx_recup_taille_bouton(INT nobou, INT* largeur, INT* hauteur);
GRX_API INT grx_change_position_bouton(INT nobou, INT x, INT y);
GRX_API INT grx_recup_position_bouton(INT nobou, INT* x, INT* y);

/* --- look -------------------------------------------------------------------------------- */

/* Make a push button look pressed, raised, highlighted, and flush (which looks as highlighted); it
 * keeps that look until changed again. */
GRX_API INT grx_enfonce_bouton(INT nobou);
GRX_API INT grx_relache_bouton(INT nobou);
GRX_API INT grx_souligne_bouton(INT nobou);
GRX_API INT grx_relache_bouton_ras(INT nobou);

/* 1 when a button looks pressed, else 0. */
GRX_API INT grx_bouton_est_il_enfonce(INT nobou);

/* Replaces the icon by the file nom_icone (a whole path); one that cannot be read leaves
 * the button without a picture. */
GRX_API INT grx_change_icone_bouton(INT nobou, char* nom_icone);

/* The same with icon colour `couleur` as background of the icon, -1 = the usual one. A button that
 * shows its label goes on showing that. */
GRX_API INT grx_change_couleur_fond_icone_bouton(INT nobou, char* nom_icone, int couleur);

/* Shows the icon of button 1 on button 2 as well, which shares the picture until it is released. */
GRX_API INT grx_affecte_icone_bouton1_bouton2(INT nobou1, INT nobou2);

/* --- scales ------------------------------------------------------------------------------ */

/* Set the value, and the bounds, of a scale. A value outside the bounds leaves it as it is, and so do
 * bounds that are not in their order. */
GRX_API INT grx_change_valeur_echelle(INT nobou, INT val);
GRX_API INT grx_change_bornes_echelle(INT nobou, INT mini, INT maxi);

/* --- Toolkit side: callbacks and handlers, exported for applications that install them
 *     themselves; client: the button's STRUCTURE_BOUTON ------------------------------------- */

/* Activated: posts type 6, with the text of a field in chaine, else a scale's or the record's value
 * in valeur. A key on a drawn button is ignored. */
GRX_API void grx_bouton_est_enfonce(Widget w, XtPointer client, XtPointer call);

/* Scale dragged: posts type 64 with its value. */
GRX_API void grx_echelle_bouge(Widget w, XtPointer client, XtPointer call);

/* List element chosen: posts type 32 with no_fo -1, double_click, the text in chaine. */
GRX_API void grx_element_liste_clique(Widget w, XtPointer client, XtPointer call);

/* Field left: posts nothing. */
GRX_API void grx_focus_quitte_bouton(Widget w, XtPointer client, XtPointer call);

/* Button exposed: posts type 8. Installed by nobody but the application. */
GRX_API void grx_bouton_est_affiche(Widget w, XtPointer client, XtPointer call);

/* Event handler: pointer, keys, and the repainting of drawing areas. */
GRX_API void grx_gere_evenements_bouton(Widget w, XtPointer client, XEvent* ev, Boolean* cont);

GRX_FIN_C

#endif
