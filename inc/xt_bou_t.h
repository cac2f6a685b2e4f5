/* xt_bou_t.h - buttons: description record, types, attributes. */
#ifndef XT_BOU_T_H
#define XT_BOU_T_H

#include <X11/Intrinsic.h>

#include "host_t.h"
#include "xt_fen_t.h"
#include "xt_mot_t.h"

/* Button types (GRX_BOUTON.type). */
#define GRX_BOU_DESSINE 1        /* drawn button (the default) */
#define GRX_BOU_BASCULE 2        /* toggle */
#define GRX_BOU_POUSSOIR 4       /* push button, real or drawn */
#define GRX_BOU_FLECHE 8         /* arrow */
#define GRX_BOU_LABEL 16         /* label */
#define GRX_BOU_TEXTE 32         /* text field, or scrolled text */
#define GRX_BOU_ECHELLE 64       /* scale: tabi[1] minimum, [2] maximum, [3] value */
#define GRX_BOU_LISTE 128        /* scrolled list */
#define GRX_BOU_DIALOGUE 256     /* push button of a dialog's bottom row: tabi[1] its place */
#define GRX_BOU_SIMPLE 512       /* plain push button */
#define GRX_BOU_SEPARATEUR 768   /* separator */
#define GRX_BOU_ZONE_DESSIN 1024 /* drawing area with off-screen copy */
#define GRX_BOU_COULEUR 4096     /* colour button: painted with coul_fond */

/* Attribute bits (GRX_BOUTON.attrib): for every type ... */
#define GRX_BOU_ATT_VISIBLE 0x1   /* shown when managed */
#define GRX_BOU_ATT_SENSIBLE 0x10 /* reacts to the user */
/* ... and for one type each. */
#define GRX_BOU_ATT_FLECHE_HAUT 0x100      /* arrow up */
#define GRX_BOU_ATT_FLECHE_BAS 0x200       /* arrow down */
#define GRX_BOU_ATT_FLECHE_GAUCHE 0x400    /* arrow left */
#define GRX_BOU_ATT_FLECHE_DROITE 0x800    /* arrow right */
#define GRX_BOU_ATT_TEXTE_MULTI 0x100      /* text: several lines with scroll bars */
#define GRX_BOU_ATT_TEXTE_LECTURE 0x200    /* text: read only */
#define GRX_BOU_ATT_ECHELLE_HORIZ 0x200    /* scale: horizontal */
#define GRX_BOU_ATT_ECHELLE_VALEUR 0x400   /* scale: shows its value and title */
#define GRX_BOU_ATT_LISTE_SCROLL 0x100     /* list: scroll bars always there */
#define GRX_BOU_ATT_SEPARATEUR_HORIZ 0x200 /* separator: horizontal */
#define GRX_BOU_ATT_PLAT 0x1000            /* drawn button: no shadow */
#define GRX_BOU_ATT_VRAI_POUSSOIR 0x2000   /* GRX_BOU_POUSSOIR: a real push button */

/* What panels and dialogs give their controls. */
#define GRX_BOU_ATT_ACTIF (GRX_BOU_ATT_SENSIBLE | GRX_BOU_ATT_VISIBLE)     /* 17 */
#define GRX_BOU_ATT_DEFAUT (GRX_BOU_ATT_VRAI_POUSSOIR | GRX_BOU_ATT_ACTIF) /* 8209 */

/* Place of a GRX_BOU_DIALOGUE button (tabi[1]). */
#define GRX_BOU_PLACE_GAUCHE 1
#define GRX_BOU_PLACE_CENTRE 2
#define GRX_BOU_PLACE_DROITE 3

/* Meaning of the elements of tabi. */
#define GRX_BOU_TABI_BAS 0 /* offset of the side attached by GRX_ATTACHE_BAS */
#define GRX_BOU_TABI_HAUT 1
#define GRX_BOU_TABI_DROITE 2
#define GRX_BOU_TABI_GAUCHE 3
#define GRX_BOU_TABI_VALEUR 4   /* the application's value, posted with the events */
#define GRX_BOU_TABI_COLONNES 0 /* text field: columns, -1 = from largeur */
#define GRX_BOU_TABI_MINI 1     /* scale */
#define GRX_BOU_TABI_MAXI 2
#define GRX_BOU_TABI_INITIAL 3
#define GRX_BOU_TABI_PLACE 1 /* GRX_BOU_DIALOGUE */

/* Description of a button: the caller's, read by grx_cree_bouton, which writes nobou only. */
typedef struct GRX_BOUTON {
    INT nobou; /* out: the button number */
    INT x;     /* place in the parent, pixels from its top left, -1 = not given */
    INT y;
    INT largeur; /* size in pixels, -1 = not given; 0 and less = 1. Of lists: inside, see xt_bou_f.h */
    INT hauteur;
    INT type;                   /* GRX_BOU_... */
    INT attrib;                 /* GRX_BOU_ATT_... bits */
    INT coul_fond;              /* background colour index, -1 = application colour */
    INT coul_trace;             /* foreground colour index, -1 = toolkit default */
    INT fen_mere;               /* parent window number, -1 = ref_fen_mere is given */
    INT tabi[5];                /* GRX_BOU_TABI_... */
    INT no_fo;                  /* function number posted with the events */
    char titre[GRX_TITRE_MAX];  /* label, or first text of a text field */
    char icone[GRX_TITRE_MAX];  /* icon file shown instead of the label, "" = none */
    char icone2[GRX_TITRE_MAX]; /* the application's: not read, a pressed control shows icone */
    INT attache;                /* GRX_ATTACHE_... bits (xt_fen_t.h) */
    Widget ref_fen_mere;        /* parent widget; when set it wins over fen_mere */
} GRX_BOUTON;

#endif
