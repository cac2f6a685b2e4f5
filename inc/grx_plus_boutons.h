/* grx_plus_boutons.h - additions: the states of toggles, exclusive groups and check boxes.
 *
 * A toggle is a control of type GRX_BOU_BASCULE, by its button number. A group is exclusive: at most one of
 * its toggles is pressed. It is named by the number that grx_cree_groupe gave, or by the number of any
 * toggle in it: those of the panel kinds GRX_ITEM_BASCULES and GRX_ITEM_BASCULES_HORIZ, and those in a
 * support of GRX_MSG_ATT_RADIO. Its alternatives count from 0, in the order of their making.
 *
 * What the program sets makes no record. Codes (grx_plus_erreurs.h): GRX_ECHEC_NUMERO for a number that
 * names nothing, GRX_ECHEC_GENRE for one that names something else, GRX_ECHEC_AFFICHAGE before start-up. */
#ifndef GRX_PLUS_BOUTONS_H
#define GRX_PLUS_BOUTONS_H

#include "grx_api.h"
#include "host_t.h"

/* A check box: a single toggle, which says what it is. */
typedef struct GRX_CASE {
    INT taille;        /* of this record in bytes: set by grx_init_case */
    INT nofen;         /* window that holds it */
    INT x;             /* its place: pixels from the top left of the window, y downwards */
    INT y;             /* */
    INT no_fo;         /* function number of its records; -1 = none */
    INT etat;          /* 1 = ticked at first, 0 = not */
    INT sensible;      /* 1 = reacts to the user (as emptied), 0 = grey */
    INT ipan;          /* panel whose item it becomes; -1 (as emptied) = of no panel */
    INT item;          /* item of that panel */
    const char* texte; /* beside the box; copied */
} GRX_CASE;

/* An exclusive group of n alternatives. */
typedef struct GRX_GROUPE {
    INT taille;                /* of this record in bytes: set by grx_init_groupe */
    INT nofen;                 /* window that holds it */
    INT x;                     /* its place: pixels from the top left of the window, y downwards */
    INT y;                     /* */
    INT no_fo;                 /* function number of its records; -1 = none */
    INT nb;                    /* alternatives, 1 to GRX_GROUPE_MAX */
    INT choix;                 /* the one chosen at first, from 0; -1 = none */
    INT horizontal;            /* 1 = side by side, 0 (as emptied) = one below the other */
    INT sensible;              /* 1 = reacts to the user (as emptied), 0 = grey */
    const char* titre;         /* in the upper edge of a frame around the group; null or "" = no frame; copied */
    const char* const* textes; /* nb texts; copied */
} GRX_GROUPE;

#define GRX_GROUPE_MAX 100 /* alternatives of a group */

GRX_DEBUT_C

/* --- toggles ----------------------------------------------------------------------------- */

/* State of a toggle: 1 = pressed, 0 = released, else a code.
 * Depuis 1.1 */
GRX_API INT grx_recup_etat_bascule(INT nobou);

/* Presses (etat other than 0) or releases a toggle. In an exclusive group pressing one releases the others,
 * and releasing the pressed one leaves none; grx_enfonce_bascule and grx_relache_bascule, which touch this
 * one alone, stay as they are. Gives 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_affecte_etat_bascule(INT nobou, INT etat);

/* --- check boxes ------------------------------------------------------------------------- */

/* Sets taille, ipan, item and no_fo -1, sensible 1, and empties the rest. Gives 1, or GRX_ECHEC_PARAMETRE
 * for null.
 * Depuis 1.1 */
GRX_API INT grx_init_case(GRX_CASE* boite);

/* Makes a check box and gives its button number, 0 or more; all functions of buttons work on it, and
 * grx_recup_etat_bascule reads it. With ipan and item it is recorded as that item's button, as grx_cree_item
 * does it: grx_change_titre_item, recup_boutons_item and grx_supprime_items know it. It is as large as its
 * text. When the user ticks or clears it, a type 6 comes: nobou, no_fo, and in valeur the new state, 1 or 0.
 * Codes: GRX_ECHEC_NUMERO when the window, panel or item is unknown; GRX_ECHEC_PARAMETRE for null or a
 * taille that is none; GRX_ECHEC_PLEIN when all numbers of buttons, or all places of the item, are taken;
 * GRX_ECHEC_GENRE for a window that holds no controls; GRX_ECHEC_MEMOIRE.
 * Depuis 1.1 */
GRX_API INT grx_cree_case(const GRX_CASE* boite);

/* --- exclusive groups -------------------------------------------------------------------- */

/* Sets taille, choix 0, no_fo -1, sensible 1, and empties the rest. Gives 1, or GRX_ECHEC_PARAMETRE for null.
 * Depuis 1.1 */
GRX_API INT grx_init_groupe(GRX_GROUPE* groupe);

/* Makes an exclusive group and gives its number, a button number: the group is shown, hidden, moved, made
 * grey and destroyed as a whole by the functions of buttons. Its alternatives have no numbers of their own.
 * When the user chooses another one, a single type 6 comes: nobou the group, no_fo, and in valeur the
 * alternative from 0. Records of pointer and keys carry the group's number, their x and y are in the
 * alternative. Codes as of grx_cree_case; GRX_ECHEC_PARAMETRE also for nb, choix or textes out of range.
 * Depuis 1.1 */
GRX_API INT grx_cree_groupe(const GRX_GROUPE* groupe);

/* The chosen alternative, from 0; GRX_ECHEC_ABSENT when none is, or another code.
 * Depuis 1.1 */
GRX_API INT grx_recup_choix_groupe(INT nobou);

/* Chooses an alternative, from 0, and releases the others; -1 releases all. Gives 1 or a code;
 * GRX_ECHEC_PARAMETRE for an alternative that the group does not have.
 * Depuis 1.1 */
GRX_API INT grx_affecte_choix_groupe(INT nobou, INT choix);

/* Makes one alternative grey (bloquer other than 0) or sensitive again. Gives 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_desactive_choix_groupe(INT nobou, INT choix, INT bloquer);

/* --- items of panels --------------------------------------------------------------------- */

/* The same for a panel's item: a group of toggles, a drop-down choice (GRX_ITEM_CHOIX, which cannot show
 * none: -1 is GRX_ECHEC_PARAMETRE), or a check box (0 = not ticked, 1 = ticked). The first gives the choice,
 * the second 1; else a code. ipan, item: as in
 * xt_pan_f.h. GRX_ECHEC_NUMERO when there is no such item or it has no buttons, GRX_ECHEC_GENRE for an item
 * of another kind.
 * Depuis 1.1 */
GRX_API INT grx_recup_choix_item(INT ipan, INT item);
GRX_API INT grx_affecte_choix_item(INT ipan, INT item, INT choix);

GRX_FIN_C

#endif
