/* xt_msg_t.h - dialogs: description record of a dialog element or panel item. */
#ifndef XT_MSG_T_H
#define XT_MSG_T_H

#include <X11/Intrinsic.h>

#include "host_t.h"

#define GRX_MSG_TITRE_MAX 500 /* size of GRX_MSG.titre */
#define GRX_NB_LISTES 10      /* list slots 0..9 of the dialogs */

/* GRX_MSG.type of a dialog element; panel items use GRX_ITEM_... (xt_pan_t.h). */
#define GRX_MSG_TYPE_DEFAUT 2
#define GRX_MSG_TYPE_BASCULES 8 /* container of toggles */

/* Presentation bits (GRX_MSG.attribut). */
#define GRX_MSG_ATT_VERTICAL 2 /* toggles one below the other */
#define GRX_MSG_ATT_CADRE 16   /* the frame itself is the support */
#define GRX_MSG_ATT_MULTI 32   /* toggles not exclusive; list: multiple selection */
#define GRX_MSG_ATT_RADIO 64   /* exclusive toggles */

/* Description of a dialog element: the caller's. */
typedef struct GRX_MSG {
    INT clef; /* key in the application's message files, list or item key */
    INT x;    /* place in the parent in pixels, -1 = not given */
    INT y;
    INT type;                      /* GRX_MSG_TYPE_... or GRX_ITEM_... */
    INT ival;                      /* integer value */
    DOUBLE rval;                   /* real value */
    CH80 cval;                     /* text value */
    char titre[GRX_MSG_TITRE_MAX]; /* title or label */
    char** choix;                  /* the choices, the caller's */
    char** rep;                    /* the answers, the caller's; not set by grx_init_message */
    INT largeur;                   /* -1 = free */
    INT hauteur;
    INT attribut;        /* GRX_MSG_ATT_... bits */
    INT couleur;         /* colour index; a panel item with 0 is insensitive */
    INT nb_cara;         /* characters of a field; list: its slot 0..9 */
    INT nb_deci;         /* decimals of a field; list: number of choices */
    INT2 prec;           /* previous message of a chain, -1 = none */
    INT2 suiv;           /* next message of a chain, -1 = none */
    INT fen_mere;        /* number of the window that holds it */
    Widget ref_fen_mere; /* widget that holds it; of toggles: their support */
    INT nobou;           /* button number; of a panel item: the panel number */
    INT prebou;          /* first button of a group; of a panel item: the item number */
} GRX_MSG;

#endif
