/* grx_plus_erreurs.h - additions: the codes that additions answer with, and their texts. */
#ifndef GRX_PLUS_ERREURS_H
#define GRX_PLUS_ERREURS_H

#include "grx_api.h"
#include "host_t.h"

/* Where an addition's header says no more, it gives 1 for done, or one of these, all negative, and then
 * has changed nothing. They are apart from the error numbers that are printed (xt_err_f.h): additions
 * print nothing. */
#define GRX_ECHEC_NUMERO (-101)    /* a number that names nothing */
#define GRX_ECHEC_GENRE (-102)     /* a thing of a kind that the function is not for */
#define GRX_ECHEC_PARAMETRE (-103) /* a null pointer, or a value out of range */
#define GRX_ECHEC_MEMOIRE (-104)   /* no memory */
#define GRX_ECHEC_PLEIN (-105)     /* the table of such things is full */
#define GRX_ECHEC_AFFICHAGE (-106) /* the library is not started, or the display is gone */
#define GRX_ECHEC_FICHIER (-107)   /* a file cannot be read or written */
#define GRX_ECHEC_FORMAT (-108)    /* a file or text that is not what it should be */
#define GRX_ECHEC_ABSENT (-109)    /* nothing there to give */
#define GRX_ECHEC_DELAI (-110)     /* another program has not answered in time */
#define GRX_ECHEC_OCCUPE (-111)    /* not now: what the function would do is going on already */
#define GRX_ECHEC_COMMANDE (-112)  /* a command of the system is not there or has failed */

GRX_DEBUT_C

/* The text of a code of above, in English, for logs and messages to developers; of 1, "done"; of any
 * other number, "unknown code". texte: out, taille bytes with the final zero; what does not fit is cut.
 * Returns the length of the whole text in bytes, without the zero, so that a caller can ask for the
 * room first (texte null or taille below 1 write nothing).
 * Depuis 1.1 */
GRX_API INT grx_recup_texte_erreur(INT code, char* texte, INT taille);

GRX_FIN_C

#endif
