/* xt_uti_f.h - time, environment, display connection, alarm, help. */
#ifndef XT_UTI_F_H
#define XT_UTI_F_H

#include "grx_api.h"
#include "host_t.h"

#define GRX_REPERTOIRE_MAX 256 /* buffer of getcurrentdir */
#define GRX_OS_UNIX 3          /* result of osname */

GRX_DEBUT_C

/* Current directory. s: GRX_REPERTOIRE_MAX bytes. Returns 0, or 1 with s "" when it cannot be had or
 * has more than 255 characters. */
GRX_API INT getcurrentdir(char* s);

/* Local date and time: year with 4 digits, month 1..12, day 1..31, hour, minute, second, hundredths
 * of a second. */
GRX_API void gettimedate(INT* annee, INT* mois, INT* jour, INT* heure, INT* minute, INT* seconde, INT* centiemes);

/* Local time of day. */
GRX_API void gettime(INT* heure, INT* minute, INT* seconde, INT* centiemes);

/* Waits tempo hundredths of a second, keeping the processor busy and handling no event. */
GRX_API void temporisation(DOUBLE tempo);

/* Current time in seconds, with its fraction, in *top. Returns 0. */
GRX_API int chrono_top(DOUBLE* top);

/* 1 when tempo seconds have passed since top, else 0. */
GRX_API int chrono_delai(DOUBLE top, DOUBLE tempo);

/* Returns GRX_OS_UNIX. */
GRX_API INT osname(void);

/* Value of an environment variable. contenu must be large enough for it: there is no limit.
 * Returns 0, or 1 with contenu "" when it is not set. */
GRX_API INT getvarsystem(char* nom_var, char* contenu);

/* Rings the display's bell at 20 percent; both arguments are ignored. */
GRX_API void grx_bipbip(INT freq, INT duree);

/* Send what is waiting to the X server; the second also waits until the server has done it. */
GRX_API void grx_flush_server(void);
GRX_API void grx_sync_server(void);

/* Makes every request wait for the server (etat non-zero) or not (0); for looking for errors. */
GRX_API void grx_synchronise(INT etat);

/* Writes r with nbdec decimals in total characters; "***" (total times) when it does not fit, "???"
 * when it cannot be written. s: total + 1 bytes; total <= 0 gives "". Returns 0. */
GRX_API INT encode_double_en_caractere(DOUBLE r, INT total, INT nbdec, char* s);

/* Has fct called once by the alarm signal, in intervalle seconds; and cancels that. fct runs in the
 * middle of anything: it must not call the library's display functions. */
GRX_API void grx_demarre_alarme(INT intervalle, void (*fct)(void));
GRX_API void grx_arrete_alarme(void);

/* Do nothing: waiting cursor on and off; help contents, help on, help on help, help on function. */
GRX_API void grx_selectionne_curseur_attente(void);
GRX_API void grx_deselectionne_curseur_attente(void);
GRX_API void grx_contenu_aide(void);
GRX_API void grx_aide_sur(void);
GRX_API void grx_utilisation_aide(void);
GRX_API void grx_aide_f1(INT nofo);

GRX_FIN_C

#endif
