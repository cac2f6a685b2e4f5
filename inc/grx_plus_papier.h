/* grx_plus_papier.h - additions: drawing on paper: PDF, SVG, PostScript, HPGL, printers. Functions of libgrxpapier.
 *
 * Between grx_commence_papier and grx_termine_papier everything that is drawn by primitives (those that
 * grx_plus_recepteur.h names) goes to the paper and nothing to the screen. The application draws as it draws its
 * window. No display and no window are needed; without a display the rectangle of the drawing must be given, and
 * colours are those of the palettes (palette_reserve, palette_trace).
 *
 * Coordinates of what is drawn are pixels of the window, origin top left, y downwards; all other lengths are
 * millimetres of the paper. An application that wants finer coordinates than its window has gives a rectangle
 * larger than the window (x, y, largeur_zone, hauteur_zone), maps its drawing to that, and draws.
 *
 * What differs from the screen:
 * - the window's background (grx_recup_couleur_fond, GRX_MODE_EFFACE) is the white of the paper; exclusive-or
 *   is not drawn; grx_efface_zone_graphique does nothing; the gaps of dashes stay empty;
 * - lines have round ends and corners, and widths in millimetres (epaisseurs), also the thin ones;
 * - texts of windows are in a font of the system, as high as on the screen and stretched to the width that they
 *   have there; in a PDF they can be searched and copied. A text that is not UTF-8 counts as Latin-1;
 * - what lies outside the rectangle is not drawn.
 *
 * PDF and PostScript are made by cairo, SVG too. Layers: cairo writes no optional content and no groups, so the
 * paper has none, neither PDF nor SVG; draw the layers wanted, or each on a page of its own, with a bookmark
 * (grx_signet_papier). SVG has a single page, and its texts are outlines.
 * HPGL: 40 units a millimetre, origin at the lower left of the sheet within its margins, pens by colour; dashes
 * are cut, arcs are chords, texts are strokes or outlines; filled areas are outlined, or hatched; of pictures
 * the frame is drawn. Several sheets are parted by PG. */
#ifndef GRX_PLUS_PAPIER_H
#define GRX_PLUS_PAPIER_H

#include "grx_api.h"
#include "host_t.h"

/* Paper formats. */
#define GRX_PAPIER_A4 4
#define GRX_PAPIER_A3 3
#define GRX_PAPIER_A2 2
#define GRX_PAPIER_A1 1
#define GRX_PAPIER_A0 0
#define GRX_PAPIER_LIBRE (-1) /* largeur and hauteur in millimetres */

/* What is made (genre). */
#define GRX_PAPIER_PDF 0
#define GRX_PAPIER_SVG 1
#define GRX_PAPIER_PS 2
#define GRX_PAPIER_HPGL 3
#define GRX_PAPIER_IMPRIMANTE 4 /* a PDF, given to the command lp */

#define GRX_PAPIER_PORTRAIT 0 /* the longer side upright */
#define GRX_PAPIER_PAYSAGE 1  /* across */

/* Colours. */
#define GRX_PAPIER_COULEURS_ECRAN 0 /* as on the screen */
#define GRX_PAPIER_COULEURS_NOIR 1  /* all black, but the background; pictures in greys */
#define GRX_PAPIER_COULEURS_TABLE 2 /* by couleurs_table */

#define GRX_PAPIER_AJUSTE (-1.0) /* echelle: as large as one sheet takes */

#define GRX_PAPIER_NB_EPAISSEURS 8
#define GRX_PAPIER_FEUILLES_MAX 400 /* sheets of one page */

GRX_DEBUT_C

/* How the paper is to be. The texts and tables are read, and copied, by grx_commence_papier. */
typedef struct GRX_PAPIER {
    INT taille;
    INT genre;              /* GRX_PAPIER_PDF */
    const char* fichier;    /* the file to make; not for printers */
    const char* imprimante; /* name for lp, null or empty: the user's own printer */
    INT copies;             /* of printers: 1 to 999 (1) */

    INT format;     /* GRX_PAPIER_A4 */
    DOUBLE largeur; /* of GRX_PAPIER_LIBRE: 10 to 5000 mm each */
    DOUBLE hauteur;
    INT orientation;     /* GRX_PAPIER_PORTRAIT; not looked at for GRX_PAPIER_LIBRE */
    DOUBLE marge_gauche; /* 0 or more (10); 5 mm at least must be left between them */
    DOUBLE marge_droite;
    DOUBLE marge_haut;
    DOUBLE marge_bas;

    INT cible;  /* GRX_CIBLE_FENETRE (1), or GRX_CIBLE_BOUTON (0): numero is a control */
    INT numero; /* only what is drawn there goes to the paper, the rest nowhere; -1: whatever is drawn */
    INT x;      /* top left of the rectangle of pixels that is drawn */
    INT y;
    INT largeur_zone; /* and its size; 0 x 0 (the default): all of the window */
    INT hauteur_zone;
    DOUBLE mm_par_pixel; /* millimetres of the thing that a pixel stands for (1) */
    DOUBLE echelle;      /* n of 1:n, so that mm_par_pixel / n are on the paper; or GRX_PAPIER_AJUSTE (the default) */
    INT centre;          /* 1: in the middle of the sheet (the default); 0: in its upper left corner */

    INT plusieurs_feuilles; /* 1: as many sheets as the drawing takes (the default); 0: one, the rest is cut */
    DOUBLE recouvrement;    /* what neighbouring sheets both show, mm (10); less than half of what a sheet shows */
    INT reperes; /* 1: crop marks and the place of the sheet on several sheets (the default); 2: crop marks on
                             * single sheets too; 0: none */

    INT couleurs;                       /* GRX_PAPIER_COULEURS_ECRAN */
    INT blanc_en_noir;                  /* 1: lines and texts that are white, or nearly, are black (the default) */
    INT nb_couleurs;                    /* entries of couleurs_table */
    const UNSIGNED_INT* couleurs_table; /* 0xRRGGBB by colour index; indices beyond it are as on the screen */

    DOUBLE epaisseurs[GRX_PAPIER_NB_EPAISSEURS]; /* line widths in mm by attrib.epaisseur: .18 .25 .35 .5 .7 1 1.4 2 */
    INT nb_epaisseurs;                           /* entries of epaisseurs_couleur */
    const DOUBLE* epaisseurs_couleur;            /* line widths in mm by colour index, which go before the others;
                                                  * 0: by attrib.epaisseur */
    DOUBLE unite_tirets; /* millimetres for one pixel of the dashes, as GRX_TRAIT_... states them (.25) */

    const char* police;   /* family of window texts; null or empty: "sans-serif" */
    DOUBLE hauteur_texte; /* their height in mm; 0 (the default): as on the screen */

    INT nb_plumes;     /* HPGL: entries of plumes */
    const INT* plumes; /* pens, 1 to 99, by colour index, 0: not drawn; others: index modulo 8, plus 1 */
    DOUBLE hachures;   /* distance of the lines that filled areas are hatched with, mm; 0 (the default): outlined */

    const char* titre; /* of PDF and PostScript, and of the printer's job; UTF-8 or Latin-1; may be null */
    const char* auteur;
    const char* sujet;
} GRX_PAPIER;

/* How a drawing lies on paper. */
typedef struct GRX_FEUILLES_PAPIER {
    INT taille;
    INT colonnes; /* sheets beside each other, and below each other */
    INT lignes;
    DOUBLE echelle; /* n of 1:n, also of GRX_PAPIER_AJUSTE */
    DOUBLE largeur; /* of a sheet, mm */
    DOUBLE hauteur;
    DOUBLE mm_par_pixel; /* on the paper */
    DOUBLE gauche;       /* where the rectangle's top left corner lies on the first sheet, mm from the sheet's */
    DOUBLE haut;
} GRX_FEUILLES_PAPIER;

/* The size of a format in millimetres, upright. Out pointers may be null. Gives 1, or GRX_ECHEC_PARAMETRE for
 * a format that is none.
 * Depuis 1.1 */
GRX_API INT grx_recup_taille_papier(INT format, DOUBLE* largeur, DOUBLE* hauteur);

/* Set taille and the defaults. Give 1, or GRX_ECHEC_PARAMETRE for null.
 * Depuis 1.1 */
GRX_API INT grx_init_papier(GRX_PAPIER* papier);
GRX_API INT grx_init_feuilles_papier(GRX_FEUILLES_PAPIER* feuilles);

/* How many sheets the paper would take, and at which scale; nothing is made. Gives 1, or the codes of
 * grx_commence_papier for records that are wrong.
 * Depuis 1.1 */
GRX_API INT grx_recup_feuilles_papier(const GRX_PAPIER* papier, GRX_FEUILLES_PAPIER* feuilles);

/* Begins a paper: makes a temporary file in the folder of the target, which stays as it is until the end, and sets a
 * receiver. Gives 1, or with nothing begun:
 * GRX_ECHEC_PARAMETRE: null, another size, a member out of range or not a number, margins that leave nothing, a scale
 * that makes the drawing more than GRX_PAPIER_FEUILLES_MAX sheets or larger than 100 m, no file name, no rectangle
 * where no window says it;
 * GRX_ECHEC_NUMERO: cible and numero name nothing, and there is no rectangle;
 * GRX_ECHEC_GENRE: an SVG of several sheets;
 * GRX_ECHEC_OCCUPE: a paper has been begun already, or a receiver is set;
 * GRX_ECHEC_FICHIER: the folder is not there or does not take the file, or the target is there and no file (a
 * folder, a device);
 * GRX_ECHEC_MEMOIRE.
 * Depuis 1.1 */
GRX_API INT grx_commence_papier(const GRX_PAPIER* papier);

/* Ends the page; what is drawn from now on is on another one of the same kind. Gives 1; GRX_ECHEC_ABSENT when no paper
 * has been begun; GRX_ECHEC_GENRE for SVG; or the code of what went wrong so far.
 * Depuis 1.1 */
GRX_API INT grx_page_papier(void);

/* Makes a rectangle of pixels a link to a URI, in PDF; other kinds have none, and give 1 as well; cairo passes over
 * links of pages that nothing is drawn on. uri: ASCII without
 * blanks and control characters, up to 2000 bytes; quotes, backslashes and parentheses become %27, %5C, %28, %29. Gives 1, GRX_ECHEC_ABSENT when no paper has been begun, or
 * GRX_ECHEC_PARAMETRE.
 * Depuis 1.1 */
GRX_API INT grx_lien_papier(INT x, INT y, INT largeur, INT hauteur, const char* uri);

/* Enters the present page into the list of bookmarks that viewers of PDF show; other kinds have none. Gives 1,
 * GRX_ECHEC_ABSENT, or GRX_ECHEC_PARAMETRE for an empty text or one of more than 255 bytes.
 * Depuis 1.1 */
GRX_API INT grx_signet_papier(const char* titre);

/* Ends the paper: drawing goes to the screen again, the file is written whole and takes its name, or the printer's
 * command is run, whose end is waited for, two minutes at most. Gives 1, or with no file made and one of that name left
 * as it was:
 * GRX_ECHEC_ABSENT: none has been begun;
 * GRX_ECHEC_FICHIER: the disk is full, or the file could not be written for another reason;
 * GRX_ECHEC_MEMOIRE: at any time since the beginning, for drawing on goes through without a word;
 * GRX_ECHEC_COMMANDE: lp is not there or refuses; GRX_ECHEC_DELAI: it does not end;
 * GRX_ECHEC_FORMAT: cairo refused something.
 * Depuis 1.1 */
GRX_API INT grx_termine_papier(void);

/* Ends it without a file or a print. Gives 1, or GRX_ECHEC_ABSENT. grx_termine_application does the same.
 * Depuis 1.1 */
GRX_API INT grx_abandonne_papier(void);

/* More about what the last of these functions has answered, in English, or what the printer's command said; empty after
 * 1. texte: out, taille bytes with the final zero, what does not fit is cut. Gives the length of the whole text.
 * Depuis 1.1 */
GRX_API INT grx_recup_texte_papier(char* texte, INT taille);

GRX_FIN_C

#endif
