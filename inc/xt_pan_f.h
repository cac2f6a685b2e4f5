/* xt_pan_f.h - panels: items, lists, the selection panel, the palette window.
 *
 * A panel is named by its index in Tab_pan, an item by its index in the panel, both from 0. An
 * unknown panel or item, and an item without buttons, does nothing. A function whose result is not
 * described returns 0. */
#ifndef XT_PAN_F_H
#define XT_PAN_F_H

#include <X11/Intrinsic.h>

#include "grx_api.h"
#include "host_t.h"
#include "xt_ent_t.h"
#include "xt_msg_t.h"
#include "xt_pan_t.h"

GRX_DEBUT_C

/* --- items -------------------------------------------------------------------------------- */

/* Prepares the tables for the application's nb_pan panels, and the panel lists. tab stays the
 * application's; Tab_pan is set to it when still null. Returns 0, or GRX_ERR_ALLOC_PANNEAUX (105)
 * when memory is short. */
GRX_API INT grx_alloue_base_items_panels(INT nb_pan, PANEL* tab);

/* Frees these tables; call grx_supprime_items for every panel first. */
GRX_API INT grx_desalloue_base_items_panels(void);

/* Notes that button nobou belongs to an item; valide: 1 = a choice or value, 0 = a label. Returns 0;
 * 105 when memory is short, the item unknown or its 255 places are taken. */
GRX_API INT grx_memorise_bouton_item(INT ipan, INT item, INT valide, INT nobou);

/* Gives the numbers of an item's valid buttons. *nb: in, places of tab; only that many of the item's
 * buttons are looked at, labels counted; out, numbers given. */
GRX_API INT recup_boutons_item(INT ipan, INT item, INT* nb, INT* tab);

/* Forgets the buttons of all items of a panel and frees their numbers; the widgets go with their
 * window. */
GRX_API INT grx_supprime_items(INT ipan);

/* Kind of a choice's button: GRX_BSTATE_POUSSOIR, GRX_BSTATE_GROUPE (in a row or column), else
 * GRX_BSTATE_BASCULE. Kind of a value's control: GRX_ISTATE_TEXTE, GRX_ISTATE_ECHELLE, else
 * GRX_ISTATE_CHOIX. */
GRX_API INT grx_recup_type_bstate(INT nobou);
GRX_API INT grx_recup_type_istate(INT nobou);

/* Change the label of an item, which is its first label or, without one, its first button: text,
 * icon (a whole path), colour index, text, and pressed (etat non-zero) or released. */
GRX_API INT grx_change_titre_item(INT ipan, INT item, char* titre);
GRX_API INT grx_change_icone_item(INT ipan, INT item, char* icone);
GRX_API INT grx_change_couleur_item(INT ipan, INT item, INT couleur);
GRX_API INT grx_change_champ_label(INT ipan, INT item, char* texte);
GRX_API INT grx_change_etat_fonction(INT ipan, INT item, INT etat);

/* Place and size of an item in its parent, in pixels from the top left; type: its kind. The choices
 * of one item count together. Returns 1; 0 when a needed widget is missing. An item without buttons
 * gives -1, -1, 0, 0 and 1, except for groups and drop-down choices. */
GRX_API INT grx_recup_position_taille_item(INT ipan, INT item, INT type, INT* x, INT* y, INT* lar, INT* hau);

/* Adds the margin of a panel (2 pixels) to each of two sizes. */
GRX_API void grx_demande_taille_optimale_panel(INT* lar, INT* hau);

/* Builds one item in window fen_mere. In the record: type its kind (GRX_ITEM_...), clef its key, x, y
 * its place in pixels from the top left, largeur and hauteur in characters (of icons and separators
 * in tenths of one; x of a kind with an entry field is the field's left edge, its label ends there and
 * needs room to the left), titre its texts, nobou the PANEL and prebou the ITEM number, couleur 0 for
 * insensitive buttons, toggles, choices and fields. Writes x + 1, y + 1, and prebou: the field's button
 * number for a kind with an entry field, else 0. The item's events carry the function number clef +
 * GRX_BASE_NOFO_..., kinds 50..59 nobou + GRX_BASE_NOFO_FONCTION, kinds 60..69 and fields of other
 * families clef alone; those of toggles and drop-down choices name no window (nofen -1) and their
 * choice, from 0, in valeur. Returns 0; 105 when memory is short, or when the item is unknown or has no
 * place left for its buttons (a list needs neither). */
GRX_API INT grx_cree_item(GRX_MSG* message);

/* The two composite kinds: a drop-down choice, a group of toggles. titre: title and choices,
 * separated by '-'; ival: the current choice, from 0. Return what grx_cree_item returns. */
GRX_API INT grx_cree_istate1(GRX_MSG* message);
GRX_API INT grx_cree_bstate1(GRX_MSG* message);

/* Cuts a text at every '-' into lines without blanks at their ends. *nb_lignes: in, lines wanted at
 * most; out, lines made. nb: the longest line after the first is filled with blanks up to this many
 * characters, 0 = none. lignes: *nb_lignes texts of GRX_ITEM_LIGNE_MAX bytes. */
GRX_API INT decode_message(char* message, INT nb, INT* nb_lignes, char lignes[][GRX_ITEM_LIGNE_MAX]);

/* --- lists -------------------------------------------------------------------------------- */

/* clef is the item's own key, index of the host's tables lsstate, listate, lcstate, lnstate. A function
 * that takes a key and no panel acts on the list with that key in every panel that shows it. */

/* Allocate and free the table of lists; done with the items. The first returns 0, or 1 when memory
 * is short. */
GRX_API INT grx_alloue_base_liste_panels(void);
GRX_API INT grx_desalloue_base_liste_panels(void);

/* Doubles the table when it is full. Returns 0, or 1 when memory is short. */
GRX_API INT test_realloue_Tab_liste(void);

/* Slot of the list with the key cle (clef + GRX_BASE_CLEF_LISTE) in a panel, -1 when there is none. */
GRX_API INT test_liste_deja_affichee(INT ipan, INT cle);

/* Create a list in window fen_mere from the host's tables. In the record: clef = item key +
 * GRX_BASE_CLEF_LISTE, nb_cara its number of entries, nobou the panel, type GRX_LISTE_..., x, y,
 * largeur, hauteur in pixels, negative = distance from left, top, right, bottom edge. The window is to
 * be a form (GRX_FEN_ALPHA): elsewhere distances from the right and bottom edge are not kept. Choosing posts
 * type 32: no_fo = slot, nobou = position from 0, double_click; nofen is not written; caracs_entree
 * follows. cas is not used. Return the list, null when it cannot be made. */
GRX_API Widget grx_cree_item_liste(GRX_MSG* msg);
GRX_API Widget grx_cree_item_liste_general(INT cas, GRX_MSG* msg);

/* The list of a panel, null when there is none. */
GRX_API Widget grx_recup_objet_item_liste(INT ipan, INT clef);

/* Frees the slot of a list. */
GRX_API INT grx_supprime_item_liste(INT ipan, INT clef);

/* 1 when a list with this key is on show in some panel, else 0. */
GRX_API INT grx_test_liste_ouverte(INT clef);

/* Reload the entries and selection of every list with this key, whatever its panel, from the host's
 * tables; the second ignores item. */
GRX_API INT grx_modif_items_liste(INT clef);
GRX_API INT grx_modif_un_item_liste(INT clef, INT item);

/* Changes the selection mode of every list with this key, whatever its panel: GRX_LISTE_... . */
GRX_API INT grx_change_type_liste(INT clef, INT type);

/* --- selection panel ---------------------------------------------------------------------- */

/* Build and show panel GRX_PANNEAU_SELECTION in a window of its own: a list with fields and buttons.
 * Nothing when there is no such panel. Called while it is open: that window is destroyed without a type 7
 * and a new one opens where the user left it; its number is in Tab_pan, as after the first call. Closed by
 * the user or by its number, it opens at that place and size again. The arguments are not used. */
GRX_API INT grx_affiche_panel_selection_g(INT a1, INT a2, INT a3);
GRX_API INT grx_affiche_panel_selection(void);

/* Set and get the place and size, in pixels, that it opens with; a pair with a -1 is not set: then it
 * is centred, and has the panel's own size. */
GRX_API INT grx_affecte_position_taille_panel_selection(INT x, INT y, INT lar, INT hau);
GRX_API INT grx_recup_position_taille_panel_selection(INT* x, INT* y, INT* lar, INT* hau);

/* --- palette window ----------------------------------------------------------------------- */

/* Convert between red, green, blue (0..255) and hue (0..360), luminance, saturation (0..100), cutting
 * fractions off. Return 1; HLS_to_RVB returns 0 and writes nothing for saturation 0 with a hue
 * other than 0. */
GRX_API INT RVB_to_HLS(INT* rvb, INT* hls);
GRX_API INT HLS_to_RVB(INT* hls, INT* rvb);

/* Opens the window with its six sliders and reset button for the active colour, or redraws it when
 * open, and makes it the window to digitize. a1, a2: x and y as in GRX_FENETRE; titre: its title;
 * a4: number of the parent window, the main window when unknown. */
GRX_API INT grx_affiche_fenetre_modif_palette_couleurs(INT a1, INT a2, char titre[256], INT a4);

/* Closes it. Returns 1, or 0 when it is not open. */
GRX_API INT grx_detruit_fenetre_modif_palette_couleurs(void);

/* Hides it (cache non-zero) or shows it. */
GRX_API INT grx_cache_retrace_fenetre_modif_palette_couleurs(INT cache);

/* Redraws it. */
GRX_API INT grx_retrace_fenetre_modif_palette_couleurs(void);

/* Sets the colour index to be edited, without moving the sliders. Returns 1. */
GRX_API INT grx_affecte_couleur_active(INT couleur);

/* The colour index edited; the window's number, -1 when closed; 1 when it is open, else 0. */
GRX_API INT grx_recup_couleur_active(void);
GRX_API INT grx_recup_no_fenetre_modif_palette(void);
GRX_API INT grx_is_fenetre_modif_palette_ouverte(void);

/* Move the red, green, blue sliders, or the hue, luminance, saturation sliders, of the open window. */
GRX_API void grx_affecte_palette_rvb(INT r, INT v, INT b);
GRX_API void grx_affecte_palette_hls(INT h, INT l, INT s);

/* Moves all six to a triple red, green, blue. Returns 1. */
GRX_API INT grx_affecte_palette(INT* rvb);

/* To be given every event while the window may be open: acts on its sliders, its reset button and
 * its closing, changing the colour at once. Returns 1 when the event was the window's and is done
 * with, else 0. */
GRX_API INT grx_gere_action_modif_palette(GRX_EVENEMENT evt);

/* --- Toolkit side ------------------------------------------------------------------------- */

/* What the four change functions of items share; cas: GRX_CHANGE_ICONE and _TEXTE take cval,
 * _COULEUR and _ETAT take ival. */
GRX_API INT grx_change_attribut_item(INT cas, INT ipan, INT item, INT ival, char* cval);

GRX_FIN_C

#endif
