/* xt_mot_t.h - the records that the library keeps for each of its objects. */
#ifndef XT_MOT_T_H
#define XT_MOT_T_H

#include <X11/Intrinsic.h>

#include "host_t.h"

/* Bits of STRUCTURE_FENETRE.attributs_fen_graph: test with &, never compare the whole value. */
#define GRX_FENG_SCROLL 1 /* the scroll bars are shown */
#define GRX_FENG_BGI 2    /* "bgi" window */

/* One window of the window base. */
typedef struct STRUCTURE_FENETRE {
    INT nofen;                /* own number; MAXOBJETFEN when the entry is free */
    Pixmap* image;            /* holder of ONE pixmap id, the backing picture; null = none */
    INT type;                 /* window kind, GRX_FEN_... (xt_fen_t.h) */
    INT affiche;              /* shown flag: 1 from the first exposure on */
    INT backingstorable;      /* non-zero: the backing picture may be shown */
    char attributs_fen_graph; /* GRX_FENG_... bits */
    /* Non-zero: drawn by a 3-D renderer, or any window whose application wants to be asked before it
     * is closed: grx_digitaliseur tells the close request as type 7 and the window stays. */
    char fen_opengl;
} STRUCTURE_FENETRE;

/* One button of the button base. Its address is the client data of every callback of the button. */
typedef struct STRUCTURE_BOUTON {
    INT nobou;    /* own number */
    INT nofen;    /* number of the window that holds it, -1 = parent given as a widget */
    INT no_fo;    /* the application's function number, posted with its events */
    INT valeur;   /* the application's value (GRX_BOUTON.tabi[4]) */
    Pixmap image; /* icon or off-screen copy; 0 = none */
    INT type;     /* button type, GRX_BOU_... (xt_bou_t.h) */
} STRUCTURE_BOUTON;

/* A window's picture put aside by grx_sauve_fenetre. */
typedef struct GRX_SAUVE_ZONE {
    Pixmap image; /* 0 = nothing saved */
    INT lar;      /* size of the window when it was saved, in pixels */
    INT hau;
} GRX_SAUVE_ZONE;

#endif
