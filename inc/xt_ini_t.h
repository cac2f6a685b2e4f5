/* xt_ini_t.h - start-up: sizes, error codes, and the exported display and colour state.
 * The globals are the library's: applications read them, only the library writes them (prof_24 and,
 * before start-up, the palettes excepted). */
#ifndef XT_INI_T_H
#define XT_INI_T_H

#include <X11/Intrinsic.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <Xm/Xm.h>

#include "grx_api.h"
#include "host_t.h"
#include "xt_mot_t.h"

/* Sizes of the bases. */
#define GRX_NB_FENETRES 100 /* window numbers 0..99; 0 is reserved */
#define GRX_NB_BOUTONS 1000 /* button numbers 0..999 */

/* "No such number" on input and output of most functions. */
#define GRX_AUCUN (-1)

/* Colour tables. */
#define GRX_NB_COULEURS 256       /* entries of a palette and of a pixel table */
#define GRX_NB_COULEURS_RESERVE 8 /* reserved colours: indices 0..7 of trace_pix */
#define GRX_NB_COULEURS_ICONE 16  /* icon colours 0..15 */
#define GRX_NB_EPAISSEURS 8       /* line-width indices 0..7 */
#define GRX_ROUGE 0               /* order of a colour triple, each 0..255 */
#define GRX_VERT 1
#define GRX_BLEU 2

/* Screen depths that the library works with. */
#define GRX_PROFONDEUR_8 8
#define GRX_PROFONDEUR_24 24

/* Texts of the settings. */
#define GRX_ADR_ICONES_MAX 255 /* adr_icones, final zero included */
#define GRX_FONTE_MAX 40       /* font name of the settings: 39 characters and the final zero */

/* Icon formats (grx_affecte_format_icone); any other uses the icon directory itself. */
#define GRX_FORMAT_ICONE_S 2 /* sub-directory "S" */
#define GRX_FORMAT_ICONE_M 3 /* sub-directory "M" */
#define GRX_FORMAT_ICONE_L 4 /* sub-directory "L" */

/* Error codes of grx_erreur (xt_err_f.h). */
#define GRX_ERR_FIC_PANNEAUX 1          /* "Opening problem on file 'PAN*.DAT'" */
#define GRX_ERR_FIC_MENU 2              /* "Opening problem on file 'MNU*.DAT' " */
#define GRX_ERR_LECT_CONFIG 3           /* "Reading problem on config file" */
#define GRX_ERR_INIT_CLAVIER 4          /* "Keyboard initialisation problem" */
#define GRX_ERR_TABLE_COULEURS 5        /* "Error on table color allocation" */
#define GRX_ERR_VAR_ENV_LONGUE 6        /* "Environment variable(XXSYS) too long" */
#define GRX_ERR_CLAVIER_INCOMPLET 7     /* "Keyboard definition incomplete" */
#define GRX_ERR_CONFIG_DEFAUT 8         /* as 3, then "->Default values setting" */
#define GRX_ERR_FIC_FONTE 9             /* "Font file unreachable" */
#define GRX_ERR_CONFIG_CLAVIER 10       /* "Incorrect keyboard configuration" */
#define GRX_ERR_DISPLAY 11              /* "Error opening DISPLAY" */
#define GRX_ERR_BASE_FENETRES 12        /* "Error on window base allocation" */
#define GRX_ERR_BASE_BOUTONS 13         /* "Error on button base allocation" */
#define GRX_ERR_CALCULATRICE 14         /* "Error on calculator initialisation" */
#define GRX_ERR_FIC_MESSAGES 15         /* "Opening problem on file 'MSG*.DAT'" */
#define GRX_ERR_INIT_GRAPHIQUE 16       /* "Graphic initialisation problem" */
#define GRX_ERR_FIC_PAN_FCAN 17         /* "Opening problem on file 'PAN_FCAN.DAT'" */
#define GRX_ERR_FIC_PAN_TABL 18         /* "Opening problem on file 'PAN_TABL.DAT'" */
#define GRX_ERR_TROP_BOUTONS 100        /* "Too many buttons defined" */
#define GRX_ERR_DECODAGE_LIGNE 101      /* "Line decoding error" */
#define GRX_ERR_ZONE_DEBUT 102          /* "Starting zone not found" */
#define GRX_ERR_INFOS_INSUFFISANTES 103 /* "Not enough informations" */
#define GRX_ERR_INDICE_DEBUT 104        /* "Starting index not found" */
#define GRX_ERR_ALLOC_PANNEAUX 105      /* "Error on panels allocation"; also the panel code's result */

GRX_DEBUT_C

/* The display, null or 0 until grx_init_application. */
extern GRX_API Display* x11_disp;       /* connection to the X server */
extern GRX_API XtAppContext contexte;   /* the one application context */
extern GRX_API Visual* x11_vis;         /* visual of every window */
extern GRX_API Colormap x11_cmap;       /* colormap of every window */
extern GRX_API INT x11_screen;          /* number of the default screen */
extern GRX_API XmFontList fontlist;     /* the application font, font-list tag "tag1" */
extern GRX_API XFontStruct* fontstruct; /* the same font for drawn text */
extern GRX_API GC g_c;                  /* context of all drawing in windows and buttons */
extern GRX_API GC gc;                   /* context of the rubber band drawn on the root window */
extern GRX_API XVisualInfo vtemp;       /* description of the chosen visual */

/* The screen. */
extern GRX_API INT profondeur_ecran; /* depth in planes, 8 or 24 */
/* A switch that the application may set before grx_init_application: 1 (from the start) tries a
 * 24-plane true-colour visual first, 0 takes an 8-plane pseudo-colour one or, where the server has
 * none, fails with error 5. Nothing changes it; not read after start-up. */
extern GRX_API INT prof_24;
extern GRX_API INT dec_red; /* bit position of red in a pixel of a 24-plane screen */
extern GRX_API INT dec_green;
extern GRX_API INT dec_blue;
extern GRX_API INT lar_ecran;    /* screen width in pixels */
extern GRX_API INT hau_ecran;    /* screen height in pixels */
extern GRX_API INT lar_ecran_mm; /* screen width in millimetres */
extern GRX_API INT hau_ecran_mm;
extern GRX_API INT nbr_xpel_crt; /* the application's own pixel counts (grx_put_nbr_xpel_crt) */
extern GRX_API INT nbr_ypel_crt;

/* The icon directory as it was given to grx_init_repertoire_icones, "" before: always the base
 * directory, whatever the icon format. That of the size in use is what grx_recup_repertoire_icones
 * gives. */
extern GRX_API char adr_icones[GRX_ADR_ICONES_MAX];

/* Colours: triples red, green, blue 0..255, and the pixel of each colour index. palette_reserve is,
 * from index 0: olive 134, 123, 66; black; black; pale yellow 228, 225, 159; dark red 119, 49, 49;
 * white; yellow 255, 255, 0; grey 128, 128, 128 (pictures: docs/host-guide.md). */
extern GRX_API INT palette_icone[GRX_NB_COULEURS][3];
extern GRX_API INT palette_reserve[GRX_NB_COULEURS_RESERVE][3];
extern GRX_API INT palette_trace[GRX_NB_COULEURS][3];
extern GRX_API INT trace_pix[GRX_NB_COULEURS];

GRX_FIN_C

#endif
