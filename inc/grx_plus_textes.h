/* grx_plus_textes.h - additions: texts in drawings, which scale and turn, and their outlines. */
#ifndef GRX_PLUS_TEXTES_H
#define GRX_PLUS_TEXTES_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

struct GRX_TEXTE; /* xt_gfx_t.h */

/* A point with fractions of a pixel. */
typedef struct GRX_POINT_REEL {
    DOUBLE x;
    DOUBLE y;
} GRX_POINT_REEL;

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
 * until the next call of this function.
 * Depuis 1.1 */
GRX_API INT grx_recup_contours_texte(const struct GRX_TEXTE* texte, DOUBLE tolerance, GRX_CONTOURS_TEXTE* contours);

GRX_FIN_C

#endif
