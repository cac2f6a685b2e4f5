/* grx_plus_textes.h - additions: texts in drawings, which scale and turn, their sizes and their outlines.
 *
 * A text is described by the record of the older text primitives, GRX_TEXTE (xt_gfx_t.h), whose ...label fields say how it
 * stands. Each is read as follows; grx_init_texte_dessin sets them.
 * - x, y: start of the baseline, in pixels of the target, y downwards.
 * - chaine: UTF-8 where it has characters beyond ASCII and all its bytes are well-formed UTF-8, else Latin-1. It ends at the
 *   first zero, or with the array. A tab is a blank; other control characters are nothing.
 * - fontlabel: a family of fonts as fontconfig understands it, with a style if wanted ("DejaVu Sans:bold"); a name with a slash
 *   is the path of a font file; GRX_FONTE_TRAIT is the font of single strokes that is built in; "" the default font.
 * - hauteurlabel: height of a capital letter in pixels, above 0 and at most GRX_HAUTEUR_TEXTE_MAX.
 * - largeurlabel: the same for the width: letters are largeurlabel / hauteurlabel times as wide as the font has them. 0, or
 *   the height: as the font has them. Not negative.
 * - cosinuslabel, sinuslabel: the direction, counter-clockwise from 3 o'clock; of any length, both 0: from left to right.
 * - slantlabel: the tangent of the slant, 0 upright, 0.27 about 15 degrees to the right; -10 to 10.
 * - mirorlabel: not 0: mirrored at a line across the baseline through its start, so that the text runs backwards from there.
 * - filllabel: not 0: filled; 0: the outlines of the letters. The built-in font has strokes, whatever this says.
 * - extentslabel: one for each character (not byte): its advance along the baseline in pixels, 0 = as the font has it. What
 *   lies behind the last character is not read.
 * - attrib: the colour, the mode (erasing and exclusive or too), and for outlines and strokes the style and width of lines.
 *   coul_trace and coul_fond of the text itself are not read.
 * A number that is infinite or none, or out of range, gives GRX_ECHEC_PARAMETRE.
 *
 * A character that the font lacks is taken from the default font; one that this lacks too is the box that the font has for
 * it. Letters are neither kerned nor joined.
 *
 * A font that is not there, or a file that is none, does not keep a text from being seen: the built-in font takes its place,
 * in drawing and in asking, and the result is GRX_TEXTE_REMPLACE instead of 1. grx_verifie_fonte_texte tells why.
 * Below, "gives 1" means 1 or GRX_TEXTE_REMPLACE. Other codes: GRX_ECHEC_PARAMETRE, also for null; GRX_ECHEC_MEMOIRE, with
 * nothing written, and letters missing in what is drawn. */
#ifndef GRX_PLUS_TEXTES_H
#define GRX_PLUS_TEXTES_H

#include "grx_api.h"
#include "host_t.h"

#define GRX_FONTE_TRAIT "grx-trait"    /* the built-in font, in fontlabel */
#define GRX_HAUTEUR_TEXTE_MAX 100000.0 /* pixels; the same for largeurlabel */
#define GRX_TEXTE_REMPLACE 2           /* done, with the built-in font in the place of one that cannot be had */

GRX_DEBUT_C

struct GRX_TEXTE; /* xt_gfx_t.h */

/* Makes a text that only wants its place, characters and colour: default font, capitals of 10 pixels, from left to right,
 * upright, filled, natural advances, thin solid lines, the number 0. Gives 1, or GRX_ECHEC_PARAMETRE for null.
 * Depuis 1.1 */
GRX_API INT grx_init_texte_dessin(struct GRX_TEXTE* texte);

/* --- drawing ------------------------------------------------------------------------------ */

/* Draw a text into window, or button, nofen: on the screen, or in memory while memory drawing is on, as the other primitives
 * (grx_alloue_image). Where the server has RENDER and the screen more than 8 planes, filled letters are antialiased; elsewhere, and
 * in exclusive or, their pixels are set or not. Letters out of the
 * target are not sent. Erasing takes away every pixel that antialiased letters have touched. Nothing is waited for but, at the
 * first text, what the server can do. Give 1 or a code: GRX_ECHEC_NUMERO for a number that names nothing,
 * GRX_ECHEC_AFFICHAGE before start-up, and before there is a drawing context.
 * Depuis 1.1 */
GRX_API INT grx_trace_texte_dessin(const struct GRX_TEXTE* texte);
GRX_API INT grx_trace_texte_dessin_bouton(const struct GRX_TEXTE* texte);

/* --- asking: needs no display, and nofen is not read ---------------------------------------- */

/* A point with fractions of a pixel. */
typedef struct GRX_POINT_REEL {
    DOUBLE x;
    DOUBLE y;
} GRX_POINT_REEL;

/* The room that a text takes, in pixels of the target, y downwards. Letters drawn small may be hinted, and strokes are as
 * wide as attrib says: allow a pixel, or half the width of the line, around. */
typedef struct GRX_BOITE_TEXTE {
    INT taille;
    INT nb_caracteres;
    DOUBLE x_min; /* the smallest upright box that holds the ink; all four 0 when there is none */
    DOUBLE y_min;
    DOUBLE x_max;
    DOUBLE y_max;
    GRX_POINT_REEL coins[4]; /* the smallest box along the text: bottom and top of its start, top and bottom of its end,
                                as the reader sees it; slanted with it. All at x, y when there is no ink */
    GRX_POINT_REEL avance;   /* from x, y to where a text that goes on would start */
    DOUBLE longueur;         /* of the baseline: the advances added up */
    DOUBLE haut;             /* of the font, from the baseline up, across the text: letters with accents */
    DOUBLE bas;              /* and down, not negative */
} GRX_BOITE_TEXTE;

/* Sets taille and empties the rest. Gives 1, or GRX_ECHEC_PARAMETRE for null.
 * Depuis 1.1 */
GRX_API INT grx_init_boite_texte(GRX_BOITE_TEXTE* boite);

/* The room of a text as grx_trace_texte_dessin would draw it. Gives 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_recup_boite_texte(const struct GRX_TEXTE* texte, GRX_BOITE_TEXTE* boite);

/* The advances that the font has for the characters of a text, in pixels along the baseline, whatever its extentslabel
 * says: what extentslabel takes. avances: out, at most nb_max of them (null: none). Gives the number of characters, or a code.
 * A font that cannot be had is replaced here without a word.
 * Depuis 1.1 */
GRX_API INT grx_recup_avances_texte(const struct GRX_TEXTE* texte, INT nb_max, DOUBLE* avances);

/* The outlines, or strokes, of a text. Outline i has the points debuts[i] up to debuts[i + 1] - 1. */
typedef struct GRX_CONTOURS_TEXTE {
    INT taille;
    INT nb_contours;
    const INT* debuts; /* nb_contours + 1 of them; the library's */
    INT nb_points;
    const GRX_POINT_REEL* points; /* pixels of the target, y downwards; the library's */
    INT ferme;                    /* 1: closed outlines, to be filled by the non-zero rule; 0: strokes of a pen */
} GRX_CONTOURS_TEXTE;

/* Sets taille and empties the rest. Gives 1, or GRX_ECHEC_PARAMETRE for null.
 * Depuis 1.1 */
GRX_API INT grx_init_contours_texte(GRX_CONTOURS_TEXTE* contours);

/* What grx_trace_texte_dessin would draw, as lines, without drawing: curves become lines that stay within
 * tolerance pixels of them (0 or less: a quarter). Needs no display. The tables are the library's and stay
 * until the next call of this function. A closed outline does not repeat its first point. Where filllabel is 0 the outlines
 * are the same, and meant to be drawn instead of filled.
 * Gives 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_recup_contours_texte(const struct GRX_TEXTE* texte, DOUBLE tolerance, GRX_CONTOURS_TEXTE* contours);

/* --- fonts -------------------------------------------------------------------------------- */

/* Whether a font can be had under a name as in fontlabel. Gives 1; GRX_ECHEC_ABSENT for a family that is not there (fontconfig
 * would take another one), GRX_ECHEC_FICHIER for a path that is no file or cannot be read, GRX_ECHEC_FORMAT for a file that
 * is no font with outlines, or a damaged one, GRX_ECHEC_PARAMETRE for null or a name of 80 bytes and more, GRX_ECHEC_MEMOIRE.
 * What was found is kept until shut-down; what was not is looked for again once other fonts have been asked for.
 * Depuis 1.1 */
GRX_API INT grx_verifie_fonte_texte(const char* nom);

/* Number of families that texts can be drawn in, at least 1. Looks what there is; the order stays until the next call.
 * GRX_ECHEC_MEMOIRE.
 * Depuis 1.1 */
GRX_API INT grx_recup_nombre_fontes_texte(void);

/* Name of a family, rang from 0: first the built-in font, then the others in alphabetical order. nom: out, taille bytes with
 * the final zero; what does not fit is cut. Gives the length of the whole name (nom null or taille below 1 write nothing),
 * or GRX_ECHEC_PARAMETRE for a rank that is not there.
 * Depuis 1.1 */
GRX_API INT grx_recup_nom_fonte_texte(INT rang, char* nom, INT taille);

GRX_FIN_C

#endif
