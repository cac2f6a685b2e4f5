/* xt_msg_f.h - dialogs: supports, toggles, drop-down choices, lists.
 *
 * An application fills a GRX_MSG, asks for the support (frame) and creates the controls in it with
 * grx_cree_bouton. Texts are taken as they are; records are not kept, their texts are copied. */
#ifndef XT_MSG_F_H
#define XT_MSG_F_H

#include <X11/Intrinsic.h>

#include "grx_api.h"
#include "host_t.h"
#include "xt_fen_t.h"
#include "xt_msg_t.h"

GRX_DEBUT_C

/* Fills a record with defaults (type 2, ival 1, couleur 1, no place, no size, no parent, empty
 * texts); rep is left alone. Returns 0. */
GRX_API INT grx_init_message(GRX_MSG* message);

/* Builds the framed container of a dialog element in window pere, at x, y (pixels from the top left
 * of the window, -1 = not given). type other than GRX_MSG_TYPE_BASCULES: a form of largeur x
 * hauteur. Type GRX_MSG_TYPE_BASCULES, by attribut: GRX_MSG_ATT_CADRE the bare frame, else
 * GRX_MSG_ATT_RADIO exclusive toggles, else GRX_MSG_ATT_MULTI toggles, in a row unless
 * GRX_MSG_ATT_VERTICAL. Returns the widget to create the controls in (also to be stored in
 * ref_fen_mere); null for an unknown window or a toggle container with none of these bits. */
GRX_API Widget grx_cree_support_message(INT pere, GRX_MSG msg);

/* Destroys a whole container, message.ref_fen_mere being what grx_cree_support_message returned. The
 * numbers of the buttons inside stay taken: free them with grx_libere_indice_objet_bout. Returns 0. */
GRX_API INT grx_detruit_bascule_complexe(GRX_MSG message);

/* Places and realises the window of a dialog already created, and reads events, which are lost, until
 * its first redraw event: one second at most, and always one second when none comes, because the window
 * is hidden (made without GRX_FEN_ATT_VISIBLE) or was drawn before the call. x, y: left and lower edge, y
 * upwards from the bottom of the screen; both are rewritten to the top left of the frame, y downwards, so
 * that a record is good for one call. Returns 0. */
GRX_API INT grx_cree_fenetre_message_alpha(GRX_FENETRE* fenetre);

/* Release, or press, a toggle button; nothing for other controls. No event is posted. The other toggles
 * of an exclusive group (GRX_MSG_ATT_RADIO, GRX_ITEM_BASCULES) stay as they are: release the one that is
 * pressed first, or the group shows two. Return 0. */
GRX_API INT grx_relache_bascule(INT nobou);
GRX_API INT grx_enfonce_bascule(INT nobou);

/* Creates the menu of a drop-down choice in pere. Returns it, for the choice buttons to be created
 * in (ref_fen_mere); null without parent. */
GRX_API Widget grx_cree_support_bascule_liste(Widget pere);

/* Creates the drop-down choice in support: its label, the menu of the choices, and the choice shown
 * at first. A press on it posts type 2 with x and y only. Returns it, null without support. */
GRX_API Widget grx_cree_titre_bascule_liste(Widget support, Widget menu, Widget btn_def, char* titre);

/* Creates a list in window fen_mere: nb_deci entries from choix, in the list slot nb_cara (0..9), at
 * x, y (-1 = not given), all entries visible, one or (GRX_MSG_ATT_MULTI) several to be selected.
 * Choosing posts type 32: nofen = -1 - slot, nobou = position from 1, double_click. Returns the list;
 * null for an unknown window or slot or when memory is short. */
GRX_API Widget grx_cree_liste(GRX_MSG* message);

/* Reads the selection of the list in slot ind: the number of selected entries in *nb and their
 * positions, from 1, in tab, which needs room for every entry. Returns 0. */
GRX_API INT grx_lit_liste(INT ind, Widget liste, INT* nb, INT* tab);

/* Frees what slot ind keeps; the list itself goes with its window. Returns 0. */
GRX_API INT grx_detruit_liste(INT ind, Widget liste);

GRX_FIN_C

#endif
