/* xt_err_f.h - reporting on standard output. */
#ifndef XT_ERR_F_H
#define XT_ERR_F_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

/* Prints "GFX ERROR" on a line of its own, then the line of the code (GRX_ERR_..., xt_ini_t.h);
 * an unknown code prints "Code value:" and the number. Never stops the program. Returns 0. */
GRX_API INT grx_erreur(INT code);

/* Print a text, an integer ("%d") or a real number ("%lf"), without a line end. Return 0. */
GRX_API INT grx_affiche_chaine(char* ch);
GRX_API INT grx_affiche_entier(INT ival);
GRX_API INT grx_affiche_reel(DOUBLE rval);

GRX_FIN_C

#endif
