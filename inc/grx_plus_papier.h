/* grx_plus_papier.h - additions: drawing on paper: PDF, SVG, PostScript, HPGL, printers. Functions of libgrxpapier. */
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

GRX_DEBUT_C

/* The size of a format in millimetres, upright. Out pointers may be null. Gives 1, or GRX_ECHEC_PARAMETRE for
 * a format that is none.
 * Depuis 1.1 */
GRX_API INT grx_recup_taille_papier(INT format, DOUBLE* largeur, DOUBLE* hauteur);

GRX_FIN_C

#endif
