/* xt_fen_f.h - windows and the menu bar.
 *
 * A window is named by its number, 1..99, given by grx_cree_fenetre. Positions on the screen count
 * y upwards from the bottom; the sizes and positions of the _fille functions, which act on the
 * window's own widget instead of its shell, are the toolkit's (y downwards in the parent).
 * Everything is in pixels. An operation on a number that names no window does nothing and leaves
 * its out parameters as they are. A function whose result is not described returns 0. */
#ifndef XT_FEN_F_H
#define XT_FEN_F_H

#include <X11/Intrinsic.h>

#include "grx_api.h"
#include "host_t.h"
#include "xt_fen_t.h"
#include "xt_mot_t.h"

GRX_DEBUT_C

/* --- window base ------------------------------------------------------------------------- */

/* Allocates the window base (GRX_NB_FENETRES entries); the first call of an application. Returns 0,
 * or GRX_ERR_BASE_FENETRES (12) when memory is short; nothing is printed. */
GRX_API INT grx_alloue_base_fenetres(void);

/* Frees the window base; the windows must have been destroyed. */
GRX_API INT grx_desalloue_base_fenetres(void);

/* Marks every number as free, without destroying anything; part of start-up. */
GRX_API INT grx_init_objet_fen(void);

/* Stores the widget of a number, 0..MAXOBJETFEN-1. Returns 1, or 0 for a number outside. */
GRX_API INT grx_affecte_objet_fen(INT nofen, Widget w);

/* The widget of a window; null for a free number, for 0 and outside 1..MAXOBJETFEN-1. */
GRX_API Widget grx_recup_objet_fen(INT nofen);

/* The lowest number whose widget, or whose shell, is w; MAXOBJETFEN when there is none. */
GRX_API INT grx_recup_indice_fen(Widget w);

/* The lowest free number from 1, not yet reserved by the search; -1, with a line printed, when all
 * are taken. */
GRX_API INT grx_recup_indice_objet_fen_libre(void);

/* Marks the record of a number as in use. */
GRX_API INT grx_affecte_structure_fenetre(INT nofen);

/* Gives the record of a number in *s, untouched for a number outside the base. The library's. */
GRX_API INT grx_recup_structure_fenetre(INT nofen, STRUCTURE_FENETRE** s);

/* Frees a number and the backing pixmap of a graphic window; the widgets stay. Returns 1, or 0 for
 * a number outside 0..MAXOBJETFEN-1. */
GRX_API INT grx_libere_indice_objet_fen(INT nofen);

/* The highest number handed out so far, 0 at first. */
GRX_API INT grx_recup_max_objet(void);

/* --- creation ---------------------------------------------------------------------------- */

/* Fills a record with defaults: visible, top level, no size, no colours, no cursor, empty texts.
 * Leaves type alone, which the caller always gives. */
GRX_API void grx_init_fenetre(GRX_FENETRE* fenetre);

/* Creates a window from its description and writes its number into fenetre->nofen. x is the left edge,
 * y the LOWER edge, upwards from the bottom of the screen (of the parent, for a nested window), both
 * of the client area: the decoration that the settings state (grx_get_tabord and the like) goes
 * outside it, so grx_recup_position_fenetre, which tells the frame's left and top edge, gives another
 * x. A negative droite or haut is not given; 0 is taken as 1 pixel. Without a height y is ignored and
 * the window goes to the top. Without GRX_FEN_ATT_VISIBLE it is made but not shown. The record is not
 * kept. Returns 0; -1 when the kind or the parent is unknown or a widget cannot be made; -2 when all
 * numbers are taken. Posts later: types 1 to 5, 7, 10 to 16, 48 and 64 (xt_ent_t.h). */
GRX_API INT grx_cree_fenetre(GRX_FENETRE* fenetre);

/* --- redraw events ----------------------------------------------------------------------- */

/* Switch the handling of redraws of a window off and on again, around work that would cause
 * needless ones. */
GRX_API INT supprime_gestion_expose_pour_fenetre(INT nofen);
GRX_API INT ajoute_gestion_expose_pour_fenetre(INT nofen);

/* --- scroll bars and decorations --------------------------------------------------------- */

/* Get (1 or 0) and set (etat zero or not) two flags of a window: its scroll bars are shown; it is a
 * "bgi" window, which means nothing to the library. */
GRX_API INT grx_is_fenetre_avec_scroll(INT nofen);
GRX_API INT grx_affecte_fenetre_avec_scroll(INT nofen, INT etat);
GRX_API INT grx_is_fenetre_avec_bgi(INT nofen);
GRX_API INT grx_affecte_fenetre_avec_bgi(INT nofen, INT etat);

/* Hide the scroll bars of a graphic window when the flag says that they are shown, and the reverse;
 * the flag follows, also where there are none. */
GRX_API INT grx_cache_scrollbars_fenetre_graphique(INT nofen);
GRX_API INT grx_reaffiche_scrollbars_fenetre_graphique(INT nofen);

/* Does nothing. */
GRX_API INT grx_active_modifications_shell(INT nofen);

/* Remove the title bar, or the resize border, of a top-level window, keeping the place and size of
 * its outer frame. The affiche functions toggle: called while the decoration is there, they take it
 * away. All but grx_supprime_titre_fenetre handle the pending events. The window is unmapped and
 * mapped again, and keeps its place among the windows of the screen and the keyboard. Under a window
 * manager that takes some time: the call waits for it, half a second at most for each of both. */
GRX_API INT grx_supprime_titre_fenetre(INT nofen);
GRX_API INT grx_affiche_titre_fenetre(INT nofen);
GRX_API INT grx_supprime_bord_fenetre(INT nofen);
GRX_API INT grx_affiche_bord_fenetre(INT nofen);

/* --- cursors ----------------------------------------------------------------------------- */

/* Empties the table of cursors, each of which is made when it is first used; part of start-up. */
GRX_API INT grx_definit_tous_curseurs(void);

/* Gives a cursor (GRX_CURS_..., others do nothing) to a realised widget, or to a window's shell. */
GRX_API INT grx_affecte_curseur(INT curseur, Widget w);
GRX_API INT grx_change_curseur(INT curseur, INT nofen);

/* Gives a cursor the foreground of a colour index. */
GRX_API INT grx_change_couleur_curseur(INT curseur, INT couleur);

/* The cursor number of drawing windows, GRX_CURS_CROIX. */
GRX_API INT grx_recup_curseur_graphique(void);

/* --- operations: numbers and widgets ------------------------------------------------------ */

/* Set and get the number of the application's main window, -1 at first: the parent of dialogs and
 * the window in whose name menu entries post. */
GRX_API INT grx_affecte_nofen_principale(INT nofen);
GRX_API INT grx_recup_nofen_principale(void);

/* Set and get the number of the active graphic window, -1 at first: where memory drawing, triangle
 * fills and picture reading work. */
GRX_API INT grx_affecte_nofen_active(INT nofen);
GRX_API INT grx_recup_nofen_active(void);

/* The nearest shell, or Motif form, among w and its ancestors; null when there is none. */
GRX_API Widget grx_recherche_shell(Widget w);
GRX_API Widget grx_recherche_form(Widget w);

/* The parent of a widget, null for null. */
GRX_API Widget grx_recup_parent(Widget fils);

/* --- operations: on screen ---------------------------------------------------------------- */

/* Show and hide a window; a nested one as a whole, scroll bars included. */
GRX_API INT grx_affiche_fenetre(INT nofen);
GRX_API INT grx_cache_fenetre(INT nofen);
GRX_API INT grx_affiche_fenetre_fille(INT nofen);
GRX_API INT grx_cache_fenetre_fille(INT nofen);

/* Destroy a window and free its number at once; the next creation may reuse it. Fills evt_global with
 * type 7, which the caller's own loop does not see, because the next grx_digitaliseur empties the record:
 * act on the end where the window is destroyed. (Called from a toolkit callback, that call delivers it.)
 * The numbers of its buttons are not freed: destroy them first. */
GRX_API INT grx_detruit_fenetre(INT nofen);
GRX_API INT grx_detruit_fenetre_fille(INT nofen);

/* Raises a window above the others. */
GRX_API INT grx_reaffiche_fenetre(INT nofen);

/* Moves and raises a window: x left edge, y TOP edge of its frame, upwards from the bottom of the
 * screen (the screen height = top of the screen). */
GRX_API INT grx_deplace_fenetre(INT nofen, INT x, INT y);

/* Resize a window; a graphic window's backing picture is made anew, empty. A width or height of 0 or
 * less, and nofen < 0, change nothing. */
GRX_API INT grx_change_taille_fenetre(INT nofen, INT largeur, INT hauteur);
GRX_API INT grx_change_taille_fenetre_fille(INT nofen, INT largeur, INT hauteur);

/* Size of a window's shell, or of its own widget: of the whole of a nested one, scroll bars
 * included. */
GRX_API INT grx_recup_taille_fenetre(INT nofen, INT* largeur, INT* hauteur);
GRX_API INT grx_recup_taille_fenetre_fille(INT nofen, INT* largeur, INT* hauteur);

/* Position of a window as grx_deplace_fenetre takes it: of the window manager's frame where there is
 * one. The server is asked at every call. */
GRX_API INT grx_recup_position_fenetre(INT nofen, INT* x, INT* y);

/* Position of a nested window, as a whole, in its parent, y downwards; 0, 0 for an unknown number. */
GRX_API INT grx_recup_position_fenetre_fille(INT nofen, INT* x, INT* y);

/* Iconify a window and bring it back. Need a window manager. Post types 12 and 13. */
GRX_API INT grx_iconifie_fenetre(INT nofen);
GRX_API INT grx_desiconifie_fenetre(INT nofen);

/* Puts the first window just above the second. */
GRX_API INT grx_restack_fenetre(INT nofen1, INT nofen2);

/* Set and get the title. titre: GRX_TITRE_MAX bytes on reading, "" for an unknown number. */
GRX_API INT grx_change_titre_fenetre(INT nofen, char* titre);
GRX_API INT grx_recup_titre_fenetre(INT nofen, char* titre);

/* Turns a point of a window (y upwards from its bottom) into a point of the screen (y upwards from
 * the bottom of the screen). An unknown number gives the point itself. */
GRX_API INT grx_coord_relative_to_absolues(INT nofen, INT x1, INT y1, INT* x2, INT* y2);

/* --- operations: scroll bars -------------------------------------------------------------- */

/* Sets the step and the page step of both scroll bars of a window. Where the window scrolls by itself
 * (GRX_FEN_ATT_SCROLL, kinds GRX_FEN_BOUTONS, _ALPHA, _MENU) the Page keys scroll it, wherever the
 * keyboard focus is in it, and post nothing; in a graphic window they are keys like any other. */
GRX_API INT grx_affecte_increment_scrollbar(INT nofen, INT valeur);

/* Read and set a scroll bar; orient: 0 horizontal, others vertical. len is the slider size, read
 * but never set. The outputs are 0 when there is no such scroll bar. */
GRX_API INT grx_recup_carac_scroll_fenetre(INT nofen, INT orient, INT* len, INT* min, INT* max, INT* val);
GRX_API INT grx_affecte_carac_scroll_fenetre(INT nofen, INT orient, INT len, INT min, INT max, INT val);

/* Height of the horizontal scroll bar in *lar, width of the vertical one in *hau; untouched for one
 * that is not there. */
GRX_API INT grx_recup_taille_scrollbars_fenetre(INT nofen, INT* lar, INT* hau);

/* --- operations: others ------------------------------------------------------------------- */

/* Let the X server keep the contents of a window while it is covered, or not. */
GRX_API INT grx_autorise_sauvegarde_auto(INT nofen);
GRX_API INT grx_supprime_sauvegarde_auto(INT nofen);

/* A width and a height kept per window number for the application; 0 outside 0..MAXOBJETFEN-1. */
GRX_API INT grx_affecte_largeur_fenetre(INT nofen, INT valeur);
GRX_API INT grx_affecte_hauteur_fenetre(INT nofen, INT valeur);
GRX_API INT grx_recup_largeur_fenetre(INT nofen);
GRX_API INT grx_recup_hauteur_fenetre(INT nofen);

/* Replace the text of a text window (GRX_FEN_TEXTE), or insert at its insertion point, which moves
 * behind the insertion and into view. */
GRX_API INT grx_affiche_texte_dans_fenetre(INT nofen, char* texte);
GRX_API INT grx_ajoute_texte_dans_fenetre(INT nofen, char* texte);

/* Height of the menu bar, 0 without one. */
GRX_API INT grx_recup_tamenubar(void);

/* Gives a window's shell another visual. */
GRX_API INT grx_change_visual_fenetre(INT nofen, Visual* visual);

/* Kept for applications: do nothing and return 0 ... */
GRX_API INT grx_reactive_topmost(void);
GRX_API INT grx_desactive_topmost(void);
GRX_API INT grx_flush_fenetres_graphiques(void);
GRX_API INT grx_ote_mire_si_necessaire(GRX_ARGS_LIBRES);
GRX_API INT grx_met_mire_si_necessaire(GRX_ARGS_LIBRES);
GRX_API INT test_fenetre_principale(INT nofen);
GRX_API void grx_iconifie_application(INT etat);
/* ... or 1. */
GRX_API INT test_client_fenetre_graphique(GRX_ARGS_LIBRES);

/* --- menu files --------------------------------------------------------------------------- */

/* Decodes one line of a menu file. debut: the zone marker ("#:ZONE_MENU_BAR"); lines before the one
 * that contains it are ignored. ligne: the line, not changed. ligne_menu: out, emptied for structure
 * lines. ind_para: depth of the braces, in and out. A null ligne is an empty one. Returns 0 = line
 * taken; 1 = comment, or a line with DEBUT or FIN, ligne_menu untouched; -1 = neither POPUP nor ITEM,
 * or a field without its closing '|'; -2 = one closing brace too many. */
GRX_API INT decode_ligne_ressource_menu(char* debut, char* ligne, LI_MENU* ligne_menu, INT* ind_para);

/* Decodes "POPUP|number|text|" or "ITEM|number|text|accelerator|function number|". A message number
 * takes the label from f_mess_menu_lire; '&' marks the mnemonic; longer texts are cut. Returns 0, or
 * -1 as above. */
GRX_API INT decode_chaine_ressource_menu(char* chaine, LI_MENU* ligne_menu);

/* Copies li2 into li1. */
GRX_API INT copie_li_menu(LI_MENU* li1, LI_MENU li2);

/* --- menu bar ----------------------------------------------------------------------------- */

/* Builds the menu bar in parent from the menu file that istate[IST_MODULE_MENU] selects, in the
 * directory sstate[SST_REP_MENU]; done by the creation of a main window. Lines that cannot be used
 * are skipped; a file that cannot be opened prints error 2. Choosing an entry posts type 2 with the
 * number given to grx_affecte_nofen_principale, nobou -1, bouton 1 and the entry's no_fo (0 or more,
 * which tells it from a mouse press; controls act by type 6). Returns 0 in every case. */
GRX_API INT grx_cree_menu_bar(Widget parent);

/* Empties the menu bar, and fills it again, as after a change of the selected file. Menus that are
 * open are closed first. */
GRX_API INT grx_detruit_menu_bar(void);
GRX_API INT grx_recree_menu_bar(void);

/* Steps of the building. Create the bar in mere; a menu in mere; end a menu, mere: its button,
 * labelled texte, in support; an entry of the menu mere, a separator when texte begins with '-'
 * (acce: key such as "Ctrl+S" or "", mneu: mnemonic or GRX_MENU_SANS_MNEMO, nofo: function number);
 * free the tables. The widgets are the library's. Null when one cannot be made, or mere is no menu. A
 * key may have the modifiers Ctrl, Shift, Alt and Meta; with any other it is shown but does nothing.
 * Keys with Ctrl or Alt choose from every window and control, a field with the focus among them, and
 * so do Alt and the mnemonic of a menu. Keys without them, "F5", choose in the main window; in any
 * other one they are key events (type 3). Keys are those that carry the letter in the layout group in
 * force, or in the first group that has it; NumLock and CapsLock do not matter. */
GRX_API Widget grx_debut_menu_bar(Widget mere);
GRX_API Widget grx_debut_sous_menu_bar(Widget mere);
GRX_API Widget grx_fin_sous_menu_bar(char* texte, Widget mere, Widget support);
GRX_API INT grx_cree_atome(char* texte, char* acce, char mneu, int nofo, Widget mere);
GRX_API INT grx_fin_menu_bar(void);

/* The menu bar, null without one. */
GRX_API Widget grx_get_Glob_menu_bar(void);

/* Size of the menu bar, 0, 0 without one; nofen is ignored. */
GRX_API INT grx_recup_taille_menu_bar(INT nofen, INT* lar, INT* hau);

/* Sends the last key event that no control took to the main window. Its menus have seen it by then:
 * when it comes back it goes no further, nothing is typed and no event is posted. */
GRX_API INT grx_envoie_dernier_evenement_a_fenetre_menu(void);

/* --- Toolkit side: callbacks and handlers, exported for applications that install them
 *     themselves ---------------------------------------------------------------------------- */

/* Event handler of every window; client: its STRUCTURE_FENETRE. Pointer events count y upwards from
 * the bottom of the drawing area, key events downwards from its top. */
GRX_API void grx_gere_evenements_fenetre(Widget w, XtPointer client, XEvent* ev, Boolean* cont);

/* Callbacks with the address of an INT window number as client data: a scroll bar moved (posts type
 * 64, nobou 0 = horizontal, 1 = vertical, valeur = its value); the shell is destroyed (type 7, the
 * number is freed); answer of a message box (type 5: 1 = OK, 2 = Cancel); command entered (type 14,
 * text in chaine). */
GRX_API void grx_scroll_change(Widget w, XtPointer client, XtPointer call);
GRX_API void grx_shell_est_detruit(Widget w, XtPointer client, XtPointer call);
GRX_API void grx_reponse_a_message(Widget w, XtPointer client, XtPointer call);
GRX_API void grx_commande_entree(Widget w, XtPointer client, XtPointer call);

/* Callback of the scroll bars of a menu window; posts nothing. */
GRX_API void grx_gere_evenement_scroll_menu(Widget w, XtPointer client, XtPointer call);

/* Callback of a menu entry; client_data: its function number as a pointer-sized integer. Posts type
 * 2. The handler of mouse presses on an entry does nothing. */
GRX_API void grx_menu_est_active(Widget w, XtPointer client_data, XtPointer call_data);
GRX_API void grx_menu_est_appuie(Widget w, XtPointer client_data, XEvent* event, Boolean* continuer);

GRX_FIN_C

#endif
