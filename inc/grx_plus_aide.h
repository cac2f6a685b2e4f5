/* grx_plus_aide.h - additions: help on the spot: tips and the help key.
 *
 * Texts are copied. Their lines end where they have line feeds, and else where a line would be too long;
 * what does not fit on the screen is cut. */
#ifndef GRX_PLUS_AIDE_H
#define GRX_PLUS_AIDE_H

#include "grx_api.h"
#include "host_t.h"

/* What asks for help: bits for grx_affecte_demande_aide, and valeur of GRX_EVT_AIDE. */
#define GRX_AIDE_TOUCHE 1 /* the user has pressed F1 or Help */
#define GRX_AIDE_MENU 2   /* a menu entry is highlighted, or no longer */

/* Delays of tips at first, milliseconds. */
#define GRX_BULLE_APPARITION 600 /* the pointer has rested this long when a tip appears */
#define GRX_BULLE_DUREE 8000     /* a tip goes after this long */

GRX_DEBUT_C

/* -- tips */

/* Gives a control the text of its tip, a small window that appears below the pointer when it rests on
 * the control, sensitive or not, and goes when the pointer leaves the control, at any press of a key or
 * of the mouse, or after some seconds. None appears while a menu is open, or a modal dialog that the
 * control is not in, or while work in progress is shown. Soon after a tip has gone that of a neighbour
 * comes at once. texte: null or "" takes the tip away; a tip on show changes. It goes with the control.
 * Gives 1; GRX_ECHEC_NUMERO for a number without a control; GRX_ECHEC_MEMOIRE; GRX_ECHEC_AFFICHAGE
 * when the library is not started.
 * Depuis 1.1 */
GRX_API INT grx_affecte_bulle(INT nobou, const char* texte);

/* The text of a control's tip. texte: out, taille bytes with the final zero; what does not fit is cut;
 * null or taille below 1 write nothing. Gives the length of the whole text; GRX_ECHEC_ABSENT, with texte
 * "", when the control has no tip.
 * Depuis 1.1 */
GRX_API INT grx_recup_bulle(INT nobou, char* texte, INT taille);

/* Switches all tips off (0) or on (anything else; they are at first); the texts stay. Gives 1.
 * Depuis 1.1 */
GRX_API INT grx_affecte_etat_bulles(INT actives);

/* 1 when tips are on, else 0.
 * Depuis 1.1 */
GRX_API INT grx_recup_etat_bulles(void);

/* Sets how long the pointer rests before a tip appears, and how long it stays; milliseconds. apparition:
 * 0 shows it at once. duree: 0 leaves it there until the pointer goes. Negative: as at first. Holds for
 * the next tip. Gives 1.
 * Depuis 1.1 */
GRX_API INT grx_affecte_delais_bulles(INT apparition, INT duree);

/* -- texts of menu entries */

/* Gives the menu entries of a function number, in the bar and in context menus, a text, which is shown
 * while one of them is highlighted, by pointer or keyboard: in the message field of the information
 * strip (Bou_mess of grx_cree_boutons_fenetre_info), or in the control of grx_affecte_bouton_aide_menu.
 * What stood in the field comes back afterwards, unless the application has changed it meanwhile. Menus
 * that are made later have the text as well. texte: null or "" takes it away. no_fo: 0 or more.
 * Gives 1; GRX_ECHEC_PARAMETRE for a negative no_fo; GRX_ECHEC_MEMOIRE.
 * Depuis 1.1 */
GRX_API INT grx_affecte_aide_menu(INT no_fo, const char* texte);

/* The control (a label or a text field) that shows the texts of menu entries; -1: the information strip's
 * again. Gives 1, GRX_ECHEC_NUMERO for a number without a control, GRX_ECHEC_GENRE for another kind.
 * Depuis 1.1 */
GRX_API INT grx_affecte_bouton_aide_menu(INT nobou);

/* -- help on demand */

/* Says what of GRX_AIDE_... comes as a record, bits; 0, as at first, nothing. The record is GRX_EVT_AIDE,
 * member exec_fonction, valeur telling which:
 * - GRX_AIDE_TOUCHE: nofen is the window under the pointer, or the one that has the keyboard when the
 *   pointer is over none, -1 when that is a dialog of the library; nobou and no_fo are the control's
 *   under the pointer, sensitive or not, -1 when there is none. In an open menu, which closes, nofen is
 *   the main window's, or that of the context menu, nobou -1, and no_fo the highlighted entry's. x and y
 *   of the details are the pointer's place in the window, y upwards from the bottom of its drawing area;
 *   0 without a window.
 *   The key then does nothing else, in whatever window, field, list or menu it is pressed, with locks on
 *   as well. With Shift, Ctrl or Alt it is left alone; F1 is too when it is the key of a menu entry,
 *   even an insensitive one.
 * - GRX_AIDE_MENU: an entry is highlighted: nofen is the main window's, or that of the context menu,
 *   nobou -1, no_fo the entry's, chaine its text ("" when it has none; whole as text 0 of the details);
 *   no_fo -1 and chaine "" when none is any more. The text is shown besides where there is a field for it.
 * Gives 1; GRX_ECHEC_PARAMETRE for other bits; GRX_ECHEC_AFFICHAGE when the library is not started.
 * Depuis 1.1 */
GRX_API INT grx_affecte_demande_aide(INT sources);

GRX_FIN_C

#endif
