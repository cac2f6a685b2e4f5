/* xt_fme_f.h - the message and information strip below the drawing: one row of controls, which the
 * user can enlarge to two. All sizes are in pixels. */
#ifndef XT_FME_F_H
#define XT_FME_F_H

#include "grx_api.h"
#include "host_t.h"
#include "xt_fen_t.h"
#include "xt_fme_t.h"

/* grx_affiche_cache_xy: what to do with the coordinate fields; any other value shows them. */
#define GRX_XY_CACHE 0
#define GRX_XY_AFFICHE 1

GRX_DEBUT_C

/* Gives place and size of a window that fills the screen inside its decoration. */
GRX_API void grx_recup_taille_position_fenetre_message_plein_ecran(INT* x, INT* y, INT* lar, INT* hau);

/* Creates the window of the strip from its description, whose height haut it sets to two rows; the
 * number is in fen_info->nofen, untouched when the window cannot be made. */
GRX_API void grx_cree_fenetre_info(GRX_FENETRE* fen_info);

/* Creates the nineteen controls that the application described in zone_info, and their separators
 * and frames; the second row is hidden. Writes nobou of each record, and moves the framed ones
 * (Bou_fonction, Bou_mess, Bou_aff_x, Bou_aff_y) by 2 and makes them 4 smaller. *haut_fenetre: out,
 * height of one row, for the application to resize the window. */
GRX_API void grx_cree_boutons_fenetre_info(GRX_ZONE_INFO* zone_info, INT* haut_fenetre);

/* Shows the second row, or hides it. *haut_fenetre: out, the present height of the window
 * fen_liste.nofen, or half of it; untouched for an unknown window. The application resizes it: to twice
 * the height given when enlarging, to the height given when reducing. With a line of L pixels
 * (grx_recup_hau_carac_alpha) the window is 2 L + 6 high when made, L + 4 after
 * grx_cree_boutons_fenetre_info, and from the first cycle on 2 L + 8 enlarged, L + 4 reduced. */
GRX_API void grx_agrandit_fenetre_info(GRX_FENETRE fen_liste, GRX_ZONE_INFO zone_info, INT* haut_fenetre);
GRX_API void grx_reduit_fenetre_info(GRX_FENETRE fen_liste, GRX_ZONE_INFO zone_info, INT* haut_fenetre);

/* Hides or shows the coordinate fields and their frames; cas: GRX_XY_... . */
GRX_API void grx_affiche_cache_xy(INT cas, GRX_ZONE_INFO zone_info);

GRX_FIN_C

#endif
