/* grx_plus_diagnostic.h - additions: bad news and bookkeeping: rescue, errors of the display, traces, what is alive. */
#ifndef GRX_PLUS_DIAGNOSTIC_H
#define GRX_PLUS_DIAGNOSTIC_H

#include "grx_api.h"
#include "host_t.h"

/* The application's own function for the end of the connection. */
typedef void (*GRX_FONCTION_SECOURS)(void* donnee);

/* What is known of the last error that the display has sent. */
typedef struct GRX_ERREUR_AFFICHAGE {
    INT taille;             /* of this record in bytes */
    INT nombre;             /* errors since start-up; also where there is no last one */
    INT code;               /* of the X protocol: 3 BadWindow, 9 BadDrawable ...; 0 = none */
    INT requete;            /* major code of the request; from 128 up an extension's */
    INT sous_requete;       /* minor code, of extensions */
    UNSIGNED_INT ressource; /* id of the window, pixmap ... that the error is about */
    UNSIGNED_INT numero;    /* serial number of the request, its lower 32 bits */
    CH80 texte;             /* "BadDrawable (invalid Pixmap or Window parameter)" */
    CH80 nom_requete;       /* "X_CopyArea", "MIT-SHM 3"; the number where no name is known */
} GRX_ERREUR_AFFICHAGE;

/* What is alive, counted by kind. */
typedef struct GRX_INVENTAIRE {
    INT taille;         /* of this record in bytes */
    INT nb_fenetres;    /* window numbers in use, 0 left out */
    INT nb_boutons;     /* button numbers in use */
    INT nb_images;      /* off-screen pictures of windows and buttons, icons of buttons included */
    INT nb_sauvegardes; /* pictures of windows put aside by grx_sauve_fenetre */
    INT nb_listes;      /* lists of dialogs and of panels */
    INT nb_icones;      /* icons kept by name (append_icon) */
    INT nb_menus;       /* menus of the menu bar, submenus included */
    INT nb_entrees;     /* entries of these menus, separators included */
} GRX_INVENTAIRE;

GRX_DEBUT_C

/* --- rescue ------------------------------------------------------------------------------------------------- */

/* Sets the function that is called once when the connection to the display is lost (server ended, network
 * broken, session closed); then the process ends as it always does, by exit(1), after an I/O error
 * handler that the application gave to Xlib before. It may be set before start-up, and then is also called when the
 * server goes while grx_init_application connects.
 * It is called from wherever the loss was noticed: in any call of the library, also inside one that has
 * called the application. It may read and write the application's data and files, and may end the process
 * itself. It has no display: functions of the library that it calls, and those called in functions
 * of atexit after it, answer as before start-up, as if no window, button or list had ever been made, and
 * grx_init_application gives 0, even where another server is there; it must not call X, Xt or Motif. It is never called twice, even if it causes another loss or calls this function.
 * fonction: null takes it back. donnee: given to it unread. Gives 1; GRX_ECHEC_OCCUPE once the connection
 * is lost.
 * An I/O error handler that the application installs in Xlib after start-up takes the library's place, and
 * the function is not called.
 * Depuis 1.1 */
GRX_API INT grx_affecte_fonction_secours(GRX_FONCTION_SECOURS fonction, void* donnee);

/* --- errors of the display ------------------------------------------------------------------------------------ */

/* Sets taille and empties the rest: before grx_recup_erreur_affichage. Gives 1, or GRX_ECHEC_PARAMETRE
 * for null.
 * Depuis 1.1 */
GRX_API INT grx_init_erreur_affichage(GRX_ERREUR_AFFICHAGE* erreur);

/* The last protocol error of the display, which the library survives silently. Errors arrive after the
 * request that caused them, at the latest with the next answer of the server; this function does not ask
 * for one. erreur: out, its taille set before. Gives 1; GRX_ECHEC_ABSENT when there was none, or none
 * since it was forgotten (nombre is filled all the same, the rest empty); GRX_ECHEC_PARAMETRE for null or
 * a taille that is none. An X error handler of the application, installed before start-up, is called as ever.
 * Depuis 1.1 */
GRX_API INT grx_recup_erreur_affichage(GRX_ERREUR_AFFICHAGE* erreur);

/* Forgets the last error; the count goes on. Gives 1.
 * Depuis 1.1 */
GRX_API INT grx_oublie_erreur_affichage(void);

/* --- the trace ------------------------------------------------------------------------------------------------ */

/* Writes from now on one line each into the file of this name (adr, appended to, or made) for
 *   - a call with a window or button number that names nothing: function and number. Asking for the widget of
 *     a number (grx_recup_objet_fen, grx_recup_objet_bout) is no mistake and not told;
 *   - a value that a function of the additions has refused: function, argument, value, code;
 *   - an error of the display: text, request, resource, serial number and call. synchrone, when not 0, makes the call exact:
 *     the library then waits for the server after every request, which is slow. Else the line says in which call the
 *     error was noticed.
 * A line is in the file before the call goes on. A line just like the one before it is left out.
 * The environment does the same before the first call: GRX_TRACE=file, GRX_TRACE_SYNC=1 for synchrone.
 * Calls are named where the library is the shared one, or a program's own symbols are exported (-rdynamic);
 * else their address is written.
 * A trace that is open is closed first. Gives 1; GRX_ECHEC_PARAMETRE for null or an empty name, and
 * GRX_ECHEC_FICHIER for a file that cannot be opened: then a former trace goes on. A file of the environment that
 * cannot be opened is no trace. A disk that is full loses lines, nothing else.
 * Depuis 1.1 */
GRX_API INT grx_ouvre_journal(const char* adr, INT synchrone);

/* Ends the trace. Gives 1; GRX_ECHEC_ABSENT when there was none.
 * Depuis 1.1 */
GRX_API INT grx_ferme_journal(void);

/* Writes a line of the application into the trace, its control characters as blanks, cut after 400 bytes.
 * Gives 1; GRX_ECHEC_ABSENT without a trace; GRX_ECHEC_PARAMETRE for null.
 * Depuis 1.1 */
GRX_API INT grx_ecrit_journal(const char* texte);

/* --- what is alive ---------------------------------------------------------------------------------------------- */

/* Sets taille and empties the rest: before grx_recup_inventaire. Gives 1, or GRX_ECHEC_PARAMETRE for null.
 * Depuis 1.1 */
GRX_API INT grx_init_inventaire(GRX_INVENTAIRE* inventaire);

/* Counts what is alive; without start-up there is nothing. inventaire: out, its taille set before. Gives 1, or
 * GRX_ECHEC_PARAMETRE for null or a taille that is none.
 * Depuis 1.1 */
GRX_API INT grx_recup_inventaire(GRX_INVENTAIRE* inventaire);

/* The rank of a window or button in the order of making: what was made later has a greater one. The library
 * makes a few for itself, so that ranks have gaps. Gives
 * GRX_ECHEC_NUMERO for a number that is free or none.
 * Depuis 1.1 */
GRX_API INT grx_recup_rang_fenetre(INT nofen);
GRX_API INT grx_recup_rang_bouton(INT nobou);

/* Appends a list of what is alive to the file of this name (adr), a line each: number, kind, parent, title, pictures, and
 * its rank in the order of making. The environment asks for it too: with GRX_INVENTAIRE=1 the list goes to
 * standard error, with GRX_INVENTAIRE=file to that file, when a base is freed (what is in it still) and at the
 * end of the process (what was not released); a process that loses its display or calls _exit writes none.
 * Gives 1; GRX_ECHEC_PARAMETRE for null or an empty name; GRX_ECHEC_FICHIER when the file cannot be opened or written.
 * Depuis 1.1 */
GRX_API INT grx_ecrit_inventaire(const char* adr);

GRX_FIN_C

#endif
