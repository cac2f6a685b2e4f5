/* xt_fen_t.h - windows: description record, kinds, attributes, cursors, menu lines. */
#ifndef XT_FEN_T_H
#define XT_FEN_T_H

#include "grx_api.h"
#include "host_t.h"
#include "xt_mot_t.h"

/* Window kinds (GRX_FENETRE.type). */
#define GRX_FEN_BOUTONS 1   /* bulletin board: plain container for buttons */
#define GRX_FEN_GRAPHIQUE 2 /* drawing area with backing picture */
#define GRX_FEN_TEXTE 3     /* scrolled text */
#define GRX_FEN_ALPHA 4     /* form: character window, dialogs and panels */
#define GRX_FEN_MESSAGE 5   /* message box with "ABANDON" and "CONFIRM" */
#define GRX_FEN_MENU 7      /* scrolling menu window */

/* Window attribute bits (GRX_FENETRE.attrib). */
#define GRX_FEN_ATT_SANS_TITRE 1      /* no title bar */
#define GRX_FEN_ATT_SANS_BORD 2       /* no border and no resize handles */
#define GRX_FEN_ATT_SANS_BOITES 4     /* no window menu, no minimise and no maximise buttons */
#define GRX_FEN_ATT_SANS_RESIZE 8     /* no resize handles, not resizable */
#define GRX_FEN_ATT_VISIBLE 16        /* shown at creation (the default) */
#define GRX_FEN_ATT_SANS_MAXI 32      /* no maximise button */
#define GRX_FEN_ATT_SANS_MINI 64      /* no minimise button */
#define GRX_FEN_ATT_SCROLL 0x1000     /* with scroll bars; all but kind 2 scroll by themselves */
#define GRX_FEN_ATT_PRINCIPALE 0x2000 /* main window with the menu bar */
#define GRX_FEN_ATT_FILLE 0x4000      /* nested inside the widget of window fen_mere */

/* Sides of the parent form that a nested window or a button is attached to (attache). */
#define GRX_ATTACHE_BAS 1
#define GRX_ATTACHE_HAUT 2
#define GRX_ATTACHE_DROITE 4
#define GRX_ATTACHE_GAUCHE 8

/* Which scroll bar (orient): any non-zero value is the vertical one. */
#define GRX_SCROLL_HORIZONTAL 0
#define GRX_SCROLL_VERTICAL 1

/* Cursor numbers (GRX_FENETRE.curseur, grx_change_curseur). */
#define GRX_CURS_AUCUN 0 /* the parent's cursor */
#define GRX_CURS_CROIX 1 /* crosshair in the crosshair colour */
#define GRX_CURS_MONTRE 2
#define GRX_CURS_FLECHE 3
#define GRX_CURS_MAIN2 4
#define GRX_CURS_QUESTION 5
#define GRX_CURS_PIRATE 6
#define GRX_CURS_CRAYON 7
#define GRX_CURS_DEPLACE 8
#define GRX_CURS_SOURIS 9
#define GRX_CURS_MAIN1 10
#define GRX_CURS_CROIX_X 11
#define GRX_CURS_CONCENTRIQUE 12
#define GRX_CURS_EXTREMITE 13
#define GRX_CURS_MILIEU 14
#define GRX_CURS_PARALLELE 15
#define GRX_CURS_PERPENDIC 16
#define GRX_CURS_TANGENT 17
#define GRX_CURS_INTERSECTION 18
#define GRX_CURS_INTERDIT 19
#define GRX_CURS_ANGLE 20
#define GRX_CURS_CERCLE 21
#define GRX_CURS_CENTRE 22
#define GRX_NB_CURSEURS 25 /* places of the cursor table; 23 and 24 are empty */

/* Text fields of the records. */
#define GRX_TITRE_MAX 80

/* Description of a window: the caller's, read by grx_cree_fenetre, which writes nofen. */
typedef struct GRX_FENETRE {
    INT nofen;                   /* out: the window number */
    INT x;                       /* left edge of the client area, inside the frame, in pixels */
    INT y;                       /* its lower edge, upwards from the bottom of the screen or parent */
    INT droite;                  /* width in pixels, negative = not given, 0 = 1 */
    INT haut;                    /* height in pixels, the same */
    INT type;                    /* GRX_FEN_..., always to be given */
    INT attrib;                  /* GRX_FEN_ATT_... bits */
    char titre[GRX_TITRE_MAX];   /* title */
    char message[GRX_TITRE_MAX]; /* text of a message window */
    char icone[GRX_TITRE_MAX];   /* icon name */
    INT coul_fond;               /* background colour index, -1 = application colour */
    INT coul_trace;              /* foreground colour index, -1 = not set */
    INT curseur;                 /* GRX_CURS_..., -1 = none */
    INT fen_mere;                /* parent window number, -1 = top level */
    INT lar_util;                /* usable width and height */
    INT hau_util;
    INT attache; /* GRX_ATTACHE_... bits of a nested window */
    INT tabi[4]; /* the caller's */
} GRX_FENETRE;

/* Menu line kinds (LI_MENU.itype). */
#define GRX_MENU_AUCUN 0 /* structure line or comment */
#define GRX_MENU_POPUP 1 /* a menu or a submenu */
#define GRX_MENU_ITEM 2  /* an entry */

/* LI_MENU.mneumonic of an entry without mnemonic. */
#define GRX_MENU_SANS_MNEMO ((char)-1)

#define GRX_MENU_NOM_MAX 80
#define GRX_MENU_ACCE_MAX 40

/* One decoded line of a menu file. */
typedef struct LI_MENU {
    char nom_fonction[GRX_MENU_NOM_MAX];  /* label, mnemonic marker removed */
    char accelerateur[GRX_MENU_ACCE_MAX]; /* accelerator as written, "" = none */
    char mneumonic;                       /* mnemonic or GRX_MENU_SANS_MNEMO */
    INT no_fo;                            /* function number posted when chosen */
    INT itype;                            /* GRX_MENU_... */
} LI_MENU;

GRX_DEBUT_C

/* Number of entries of the window base (GRX_NB_FENETRES once allocated, 0 before): also the
 * answer of the lookups that find no window. */
extern GRX_API INT MAXOBJETFEN;

GRX_FIN_C

#endif
