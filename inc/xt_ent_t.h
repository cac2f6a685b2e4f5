/* xt_ent_t.h - input events: types, records, keys, double clicks. */
#ifndef XT_ENT_T_H
#define XT_ENT_T_H

#include "grx_api.h"
#include "host_t.h"

/* Event types (type_evenement), with the member of GRX_EVENEMENT that carries them. */
#define GRX_EVT_AUCUN 0           /* no event */
#define GRX_EVT_SOURIS_BOUGE 1    /* souris_bouge: the pointer moved */
#define GRX_EVT_BOUTON_APPUI 2    /* bouton_appui: mouse press; with no_fo >= 0: see below */
#define GRX_EVT_CARAC_APPUI 3     /* carac_appui: key */
#define GRX_EVT_AFFICHAGE 4       /* affichage: the window must be redrawn */
#define GRX_EVT_REPONSE 5         /* reponse_question: answer of a message window */
#define GRX_EVT_EXEC_FONCTION 6   /* exec_fonction: control activated */
#define GRX_EVT_DESTRUCTION 7     /* destruction: window closed or destroyed */
#define GRX_EVT_BOUTON_AFFICHE 8  /* bouton_affiche: button exposed */
#define GRX_EVT_CACHE 9           /* cache: free value, posted by nothing */
#define GRX_EVT_SORTIE 10         /* sortie: pointer left a window or button */
#define GRX_EVT_DEPLACEMENT 11    /* deplacement: window moved */
#define GRX_EVT_ICONIFICATION 12  /* iconification */
#define GRX_EVT_DESICONIF 13      /* desiconification */
#define GRX_EVT_COMMANDE 14       /* commande_entree: command line entered */
#define GRX_EVT_BOUTON_RELACHE 15 /* bouton_relache: mouse release */
#define GRX_EVT_CHGT_TAILLE 16    /* chgt_taille: window resized */
#define GRX_EVT_ELEMENT_CLIQUE 32 /* element_clique: list element chosen */
#define GRX_EVT_ENTREE 48         /* sortie (same layout): pointer entered a window or button */
#define GRX_EVT_ECHELLE 64        /* exec_fonction: scale or scroll bar moving */
#define GRX_EVT_TAB 80            /* exec_fonction: Tab in a text field, text in chaine */
#define GRX_EVT_BACKTAB 96        /* exec_fonction: back-tab in a text field, text in chaine */

/* What a function number comes with: a control acts by type 6 (its mouse presses are types 2 and 15
 * that carry its nobou and no_fo as well: do not act on these); a menu entry chosen is a type 2 with the
 * main window's nofen, nobou -1 and the entry's no_fo, which is 0 or more. A mouse press in a window has
 * nobou and no_fo -1. */

#define GRX_EVT_CHAINE_MAX 256 /* size of the chaine fields */

/* Modifier bits (etat) of mouse presses and releases; 0 in motions and keys. */
#define GRX_ETAT_AUCUN 0
#define GRX_ETAT_SHIFT 2
#define GRX_ETAT_CONTROL 4

/* Mouse buttons (bouton). */
#define GRX_SOURIS_GAUCHE 1
#define GRX_SOURIS_MILIEU 2
#define GRX_SOURIS_DROITE 3

/* Key codes (carac): characters are their byte 0..255, function and cursor keys their keysym. */
#define GRX_TOUCHE_TAB 9
#define GRX_TOUCHE_BACKTAB 65396

/* Results of grx_recup_etat_clavier. */
#define GRX_CLAVIER_AUCUN 0
#define GRX_CLAVIER_SHIFT 1
#define GRX_CLAVIER_CONTROL 2
#define GRX_CLAVIER_ALT 3

/* Modes and outcomes of grx_double_clic. */
#define GRX_DCLIC_MODE_RELACHE 0  /* decided by the next release; a move ends it */
#define GRX_DCLIC_MODE_APPUI 3    /* decided by the second press */
#define GRX_DCLIC_DOUBLE 0        /* a double click */
#define GRX_DCLIC_DEPLACE 1       /* the pointer moved away */
#define GRX_DCLIC_DELAI 2         /* time out */
#define GRX_DCLIC_TARD 3          /* the same button, too late */
#define GRX_DCLIC_FONCTION_TARD 4 /* push button activated too late */
#define GRX_DCLIC_AUTRE_BOUTON 5  /* another mouse button */

/* Every record begins with its type and the window number. nobou and no_fo are -1 when none. */
typedef struct GRX_DIGIT {
    INT type_evenement;
    INT nofen;
    INT nobou;
    INT no_fo;
    INT x; /* pixels; y from the bottom in a window, from the top in a button and for keys */
    INT y;
    INT bouton; /* GRX_SOURIS_..., 0 = none */
    INT carac;  /* key code, see above */
    INT etat;   /* GRX_ETAT_... bits of presses and releases, else 0 */
} GRX_DIGIT;
typedef GRX_DIGIT GRX_SOURIS_BOUGE;
typedef GRX_DIGIT GRX_BOUTON_APPUI;
typedef GRX_DIGIT GRX_BOUTON_RELACHE;
typedef GRX_DIGIT GRX_CARAC_APPUI;

typedef struct GRX_AFFICHAGE {
    INT type_evenement;
    INT nofen;
    INT x;
    INT y;
    INT largeur;
    INT hauteur;
} GRX_AFFICHAGE;

typedef struct GRX_REPONSE_QUESTION {
    INT type_evenement;
    INT nofen;
    INT reponse;
} GRX_REPONSE_QUESTION;

typedef struct GRX_EXEC_FONCTION {
    INT type_evenement;
    INT nofen;
    INT nobou;
    INT no_fo;
    INT valeur;
    char chaine[GRX_EVT_CHAINE_MAX];
} GRX_EXEC_FONCTION;

typedef struct GRX_DESTRUCTION {
    INT type_evenement;
    INT nofen;
} GRX_DESTRUCTION;

typedef struct GRX_BOUTON_AFFICHE {
    INT type_evenement;
    INT nofen;
    INT nobou;
    INT no_fo;
} GRX_BOUTON_AFFICHE;

typedef struct GRX_CACHE {
    INT type_evenement;
    INT nofen;
} GRX_CACHE;

typedef struct GRX_SORTIE {
    INT type_evenement;
    INT nofen;
    INT nobou;
    INT no_fo;
} GRX_SORTIE;

typedef struct GRX_DEPLACEMENT {
    INT type_evenement;
    INT nofen;
    INT x;
    INT y;
    INT largeur;
    INT hauteur;
} GRX_DEPLACEMENT;

typedef struct GRX_CHGT_TAILLE {
    INT type_evenement;
    INT nofen;
    INT x;
    INT y;
    INT largeur;
    INT hauteur;
} GRX_CHGT_TAILLE;

typedef struct GRX_ICONIFICATION {
    INT type_evenement;
    INT nofen;
} GRX_ICONIFICATION;

typedef struct GRX_DESICONIFICATION {
    INT type_evenement;
    INT nofen;
} GRX_DESICONIFICATION;

typedef struct GRX_COMMANDE_ENTREE {
    INT type_evenement;
    INT nofen;
    char chaine[GRX_EVT_CHAINE_MAX];
} GRX_COMMANDE_ENTREE;

typedef struct GRX_ELEMENT_CLIQUE {
    INT type_evenement;
    INT nofen; /* a dialog list in slot k gives -1-k */
    INT nobou; /* list button, or position of the element (dialog and panel lists) */
    INT no_fo;
    INT double_click; /* 1 = double click or Return */
    char chaine[GRX_EVT_CHAINE_MAX];
} GRX_ELEMENT_CLIQUE;

typedef struct GRX_ACTIVATION_SOURIS {
    INT type_evenement;
    INT nofen;
} GRX_ACTIVATION_SOURIS;

/* One event: read type_evenement, then the member that the type names. */
typedef union GRX_EVENEMENT {
    INT type_evenement;
    GRX_SOURIS_BOUGE souris_bouge;
    GRX_BOUTON_APPUI bouton_appui;
    GRX_BOUTON_RELACHE bouton_relache;
    GRX_CARAC_APPUI carac_appui;
    GRX_AFFICHAGE affichage;
    GRX_REPONSE_QUESTION reponse_question;
    GRX_EXEC_FONCTION exec_fonction;
    GRX_DESTRUCTION destruction;
    GRX_BOUTON_AFFICHE bouton_affiche;
    GRX_CACHE cache;
    GRX_SORTIE sortie;
    GRX_DEPLACEMENT deplacement;
    GRX_CHGT_TAILLE chgt_taille;
    GRX_ICONIFICATION iconification;
    GRX_DESICONIFICATION desiconification;
    GRX_COMMANDE_ENTREE commande_entree;
    GRX_ELEMENT_CLIQUE element_clique;
    GRX_ACTIVATION_SOURIS activation_souris;
} GRX_EVENEMENT;

GRX_DEBUT_C

/* The one pending event: filled by the library's callbacks, copied out by grx_digitaliseur. */
extern GRX_API GRX_EVENEMENT evt_global;

GRX_FIN_C

#endif
