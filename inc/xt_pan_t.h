/* xt_pan_t.h - panels: records, item kinds, exported tables, palette window state. */
#ifndef XT_PAN_T_H
#define XT_PAN_T_H

#include <X11/Intrinsic.h>

#include "grx_api.h"
#include "host_t.h"

/* Kinds of panel items (GRX_MSG.type, ITEM_PANEL.type). Any kind not named here is a label with,
 * when nb_cara > 0, an entry field for a text (10..19), a real (30, 34..39) or an integer (40..49). */
#define GRX_ITEM_BOUTON 20            /* small press button with its label beside it */
#define GRX_ITEM_BASCULES 21          /* group of toggles one below the other */
#define GRX_ITEM_ICONE 22             /* icon button ("@" first in titre) or text button */
#define GRX_ITEM_BASCULES_HORIZ 23    /* group of toggles side by side */
#define GRX_ITEM_CHOIX 31             /* drop-down choice */
#define GRX_ITEM_ECHELLE_H 32         /* horizontal scale 0..100 */
#define GRX_ITEM_ECHELLE_V 33         /* vertical scale 0..100 */
#define GRX_ITEM_FONCTION 50          /* 50..59: push button, function number nobou + base */
#define GRX_ITEM_FONCTION_CLEF 60     /* 60..69: push button, function number clef */
#define GRX_ITEM_LISTE 70             /* 70..79: list, the units digit is the selection mode */
#define GRX_ITEM_SEPARATEUR 80        /* horizontal line */
#define GRX_ITEM_SEPARATEUR_V 81      /* vertical line */
#define GRX_ITEM_SEPARATEUR_DOUBLE 82 /* horizontal double line */
#define GRX_ITEM_TITRE 90             /* 90..99: labels */
#define GRX_ITEM_ZONE_DESSIN 100      /* 100..109: drawing area */

/* Family (tens) of the items with an entry field. */
#define GRX_ITEM_FAMILLE_TEXTE 1
#define GRX_ITEM_FAMILLE_REEL 3
#define GRX_ITEM_FAMILLE_ENTIER 4

/* Selection modes of a panel list (units digit of its kind, grx_change_type_liste). */
#define GRX_LISTE_SIMPLE 0
#define GRX_LISTE_MULTIPLE 1

/* Added to a key to form the function number of an item's events, or a list's key. */
#define GRX_BASE_NOFO_FONCTION 51000
#define GRX_BASE_NOFO_TEXTE 51500
#define GRX_BASE_NOFO_BOUTON 52000 /* buttons, icons and toggles */
#define GRX_BASE_NOFO_REEL 53000   /* drop-down choices and scales as well */
#define GRX_BASE_NOFO_ENTIER 54000
#define GRX_BASE_CLEF_LISTE 55000
#define GRX_BASE_NOFO_DESSIN 55900

/* Results of grx_recup_type_bstate. */
#define GRX_BSTATE_BASCULE 0
#define GRX_BSTATE_GROUPE 1 /* toggle in a row-column */
#define GRX_BSTATE_POUSSOIR 2

/* Results of grx_recup_type_istate. */
#define GRX_ISTATE_TEXTE 0
#define GRX_ISTATE_CHOIX 1
#define GRX_ISTATE_ECHELLE 2

/* Change numbers of grx_change_attribut_item. */
#define GRX_CHANGE_ICONE 1
#define GRX_CHANGE_COULEUR 2
#define GRX_CHANGE_TEXTE 3
#define GRX_CHANGE_ETAT 4

#define GRX_ITEM_LIGNE_MAX 80       /* size of one line of decode_message */
#define GRX_PANNEAU_SELECTION 8     /* the panel shown by grx_affiche_panel_selection */
#define GRX_CLEF_LISTE_SELECT 55007 /* key of its list */
#define GRX_NB_LISTES_PANNEAUX 10   /* first capacity of Tab_liste */

/* Limits of the palette window's sliders. */
#define GRX_RVB_MAX 255
#define GRX_H_MAX 360
#define GRX_L_MAX 100
#define GRX_S_MAX 100

/* One item of a panel, the application's. */
typedef struct ITEM_PANEL {
    uchar type;  /* GRX_ITEM_... */
    uchar actif; /* item active */
    INT indice;  /* index of its value or message */
    INT x;       /* place in the panel; of a kind with an entry field, that of the field */
    INT y;
    INT tx_item; /* its size */
    INT ty_item;
    char* message; /* its text, lines separated by '-' */
} ITEM_PANEL;

/* One panel, the application's. Count items with an int: nb_items goes up to 255. */
typedef struct PANEL {
    INT nofen; /* window that shows it */
    INT tx;    /* size */
    INT ty;
    uchar type;
    CH40 titre;
    char confirme;
    INT reference; /* the application's reference number */
    uchar nb_items;
    ITEM_PANEL* tab_items;
    INT pere;      /* parent panel */
    INT* tab_fils; /* child panels */
    uchar nb_fils;
    uchar visible;
} PANEL;

/* The buttons that make up one item, kept by the library. */
typedef struct BOUTONS_PANEL {
    uchar nb_bout;       /* at most 255 */
    char* valide;        /* nb_bout flags: 1 = choice or value, 0 = label */
    INT* tab_bout;       /* nb_bout button numbers in creation order */
    Widget objet_defaut; /* default object of an option menu */
} BOUTONS_PANEL;

/* One panel list, kept by the library. The table moves when it grows. */
typedef struct LISTE_PANEL {
    INT isys;       /* own slot, -1 = free */
    INT ietat;      /* its key (item key + GRX_BASE_CLEF_LISTE), -1 = free */
    INT ind;        /* index of the list for the application */
    INT ipan;       /* panel that holds it */
    INT nb_item;    /* entries */
    INT nb_choix;   /* selected entries */
    INT* tab_choix; /* their positions from 0 */
    Widget obj;     /* the list */
} LISTE_PANEL;

GRX_DEBUT_C

extern GRX_API PANEL* Tab_pan;            /* the panels, the application's table */
extern GRX_API INT Nb_pan;                /* how many */
extern GRX_API BOUTONS_PANEL** Liste_btn; /* per panel: its items' buttons, null = none */
extern GRX_API INT* Nb_item;              /* per panel: number of items */
extern GRX_API LISTE_PANEL* Tab_liste;    /* the panel lists */

/* The palette window; numbers are -1 while it is closed. */
extern GRX_API INT No_fen_mod_coul; /* its window number */
extern GRX_API INT Rouge;           /* button numbers of its sliders */
extern GRX_API INT Vert;
extern GRX_API INT Bleu;
extern GRX_API INT Bou_h;
extern GRX_API INT Bou_l;
extern GRX_API INT Bou_s;
extern GRX_API INT Bou_reset;      /* button number of the reset button */
extern GRX_API INT Couleur_active; /* colour index being edited */
extern GRX_API INT rvb_glob[3];    /* red, green, blue 0..255 */
extern GRX_API INT hls_glob[3];    /* hue 0..360, luminance and saturation 0..100 */
extern GRX_API INT memo_rvb[3];    /* what the reset button brings back */

GRX_FIN_C

#endif
