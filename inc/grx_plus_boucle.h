/* grx_plus_boucle.h - additions: waiting with a time limit, descriptors, timers and idle work.
 *
 * Timers, watched descriptors and idle works are numbered from 1, each kind by itself; the lowest free
 * number is given first. What they have to tell comes as a record, type 201 to 203, from
 * grx_digitaliseur, grx_digitaliseur_fenetre and the two functions below: its member is exec_fonction
 * with no_fo the number, nofen and nobou -1, chaine "". Each has at most one record waiting, whatever
 * happens meanwhile, and between two records of the same one an event of the display is handled, if one
 * waits: neither can keep the other from the application.
 * While a dialog waits for its answer inside a call, timers and descriptors go on: their records wait
 * and come from the application's own loop afterwards. grx_double_clic, grx_attend_creation_fenetre,
 * grx_flush_tous_evenements and grx_cherche_evenement leave them waiting.
 * Timers, inputs and work procedures that the application has in contexte go on as before. */
#ifndef GRX_PLUS_BOUCLE_H
#define GRX_PLUS_BOUCLE_H

#include "grx_api.h"
#include "host_t.h"
#include "xt_ent_t.h"

/* Conditions of a watched descriptor (bits). */
#define GRX_DESCRIPTEUR_LECTURE 1  /* there is something to read, or the end of it */
#define GRX_DESCRIPTEUR_ECRITURE 2 /* there is room to write */
#define GRX_DESCRIPTEUR_RUPTURE 4  /* told only: the other end is gone or broken, nothing is left to read */
#define GRX_DESCRIPTEUR_FERME 8    /* told only: the application has closed the descriptor */

GRX_DEBUT_C

/* grx_digitaliseur with a limit: waits until there is a record, delai milliseconds at most, and handles
 * all that posts none meanwhile. delai: 0 handles what waits and returns; negative waits for ever.
 * evt: out, as for grx_digitaliseur; null: the record is lost. Gives 1 with a record; 0 when the time is
 * over, evt's type then being 0; GRX_ECHEC_AFFICHAGE when the library is not started;
 * GRX_ECHEC_MEMOIRE when the system has no descriptor left to wait with.
 * It returns some milliseconds after the limit at the latest, unless the handling of one event takes
 * longer.
 * Depuis 1.1 */
GRX_API INT grx_digitaliseur_delai(GRX_EVENEMENT* evt, INT delai);

/* The same of grx_digitaliseur_fenetre. The beep for the close request of another window is no record:
 * the wait goes on. Gives what grx_digitaliseur_delai gives.
 * Depuis 1.1 */
GRX_API INT grx_digitaliseur_fenetre_delai(GRX_EVENEMENT* evt, INT delai);

/* Starts a timer. duree: milliseconds, 0 or more, at least 1 when it repeats. repetee: 0 = due once,
 * else every duree milliseconds counted from now, without drift. When it is due comes
 * GRX_EVT_MINUTERIE: valeur tells how many periods have passed since the record before (1, or more when
 * the application was busy or a dialog was open); no period is told twice or left out.
 * Time is that of a clock that setting the time of day does not move.
 * Gives the timer's number; GRX_ECHEC_PARAMETRE; GRX_ECHEC_AFFICHAGE when the library is not started;
 * GRX_ECHEC_MEMOIRE. The number is the application's until grx_detruit_minuterie; that of a timer due
 * once is free as soon as its record is delivered.
 * Depuis 1.1 */
GRX_API INT grx_cree_minuterie(INT duree, INT repetee);

/* Stops a timer; its record, should one wait, never comes. Gives 1, or GRX_ECHEC_NUMERO.
 * Depuis 1.1 */
GRX_API INT grx_detruit_minuterie(INT minuterie);

/* Watches an open descriptor of the application (a pipe, a socket, a terminal, a device).
 * conditions: GRX_DESCRIPTEUR_LECTURE, GRX_DESCRIPTEUR_ECRITURE, or both. When one of them holds comes
 * GRX_EVT_DESCRIPTEUR, valeur telling which. After that record it is looked again: as long as a
 * condition holds another record comes, so an application may read a part only. To stop hearing of
 * room to write when there is nothing to write, change the conditions.
 * RUPTURE, alone or with ECRITURE, is the last record: the watch rests until its conditions are
 * changed or it is stopped. FERME as well: the descriptor was closed without stopping the watch first,
 * which is noticed when the loop is called next.
 * The descriptor stays the application's: the library neither reads, writes nor closes it.
 * Gives the number of the watch; GRX_ECHEC_NUMERO for a descriptor that is not open; GRX_ECHEC_GENRE
 * for one that is always ready, as a file on a disk; GRX_ECHEC_OCCUPE when it is watched already;
 * GRX_ECHEC_PARAMETRE for other conditions; GRX_ECHEC_AFFICHAGE when the library is not started;
 * GRX_ECHEC_MEMOIRE.
 * Depuis 1.1 */
GRX_API INT grx_surveille_descripteur(INT descripteur, INT conditions);

/* Changes what a watch is for; 0 lets it rest. A record that waits is dropped: what holds is told anew.
 * Gives 1, GRX_ECHEC_NUMERO for an unknown watch or a descriptor that is closed, GRX_ECHEC_PARAMETRE.
 * Depuis 1.1 */
GRX_API INT grx_change_surveillance(INT surveillance, INT conditions);

/* Stops watching; to be called before the descriptor is closed. A record that waits never comes. Gives 1,
 * or GRX_ECHEC_NUMERO.
 * Depuis 1.1 */
GRX_API INT grx_arrete_surveillance(INT surveillance);

/* Registers idle work, done in portions: GRX_EVT_OISIF (valeur 0) comes whenever nothing else waits, no
 * event of the display, no other record, no timer that is due. Several works take turns. While one is
 * registered the loop never sleeps: stop it when the work is done.
 * Gives its number; GRX_ECHEC_AFFICHAGE when the library is not started; GRX_ECHEC_MEMOIRE.
 * Depuis 1.1 */
GRX_API INT grx_cree_tache_oisive(void);

/* Stops idle work. Gives 1, or GRX_ECHEC_NUMERO.
 * Depuis 1.1 */
GRX_API INT grx_detruit_tache_oisive(INT tache);

GRX_FIN_C

#endif
