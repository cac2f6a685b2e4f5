/* grx_plus_application.h - additions: who the application is: arguments, name, icon, manners under window managers.
 *
 * Order: grx_arguments, grx_affecte_identite and the icons of the application come before
 * grx_init_application; functions that take a window number come after it. */
#ifndef GRX_PLUS_APPLICATION_H
#define GRX_PLUS_APPLICATION_H

#include "grx_api.h"
#include "host_t.h"

/* Arguments that grx_arguments takes (grx_recup_argument). */
#define GRX_ARG_DISPLAY 1  /* -display: the X server, wins over DISPLAY */
#define GRX_ARG_GEOMETRY 2 /* -geometry: size and place of the main window */
#define GRX_ARG_NAME 3     /* -name: name of the application, wins over that of grx_affecte_identite */
#define GRX_ARG_TITLE 4    /* -title: title of the main window, wins over its record */

/* Kinds of windows for the window manager (grx_affecte_genre_fenetre). */
#define GRX_GENRE_NORMALE 1    /* a main window, or one of several equal ones */
#define GRX_GENRE_DIALOGUE 2   /* asks or tells something about another window */
#define GRX_GENRE_UTILITAIRE 3 /* a palette or a panel of tools that stays beside the work */
#define GRX_GENRE_OUTILS 4     /* a tool bar taken off a window */
#define GRX_GENRE_MENU 5       /* a menu taken off a window */
#define GRX_GENRE_ACCUEIL 6    /* shown while the application starts */

/* Who chose the place of a window (grx_marque_place_fenetre). */
#define GRX_PLACE_LIBRE 0       /* nobody: the window manager places it */
#define GRX_PLACE_PROGRAMME 1   /* the program */
#define GRX_PLACE_UTILISATEUR 2 /* the user, as when a place of the last session is brought back */

/* Longest side of an icon, in pixels. */
#define GRX_ICONE_COTE_MAX 2048

/* Who the application is. */
typedef struct GRX_IDENTITE {
    INT taille;         /* of this record in bytes */
    const char* nom;    /* name of the instance, 1 to 79 bytes; null or "": the last part of argv[0] as
                         * grx_arguments got it, else "HB" */
    const char* classe; /* class, 1 to 79 bytes; null or "": the name with a capital first letter */
    INT zone;           /* 1 (by init): new windows are kept within the work area; 0: they stand where their
                         * record says, under a panel of the desktop too */
} GRX_IDENTITE;

GRX_DEBUT_C

/* Takes the arguments of X programs out of those of main: -display, -geometry, -name, -title and -xrm,
 * each with the value that follows it. They may stand anywhere after argv[0]; nothing from "--" on is
 * read. The rest stays in its order, *argc becomes its count and argv[*argc] null. To be called before
 * grx_init_application; the texts are copied. Of an argument that comes twice the last value holds; -xrm
 * adds up, also over several calls.
 * -geometry ([=][WIDTHxHEIGHT][{+-}X{+-}Y], pixels of the client area, places of the frame; -X and -Y are
 * distances from the right and the lower edge of the screen) and -title hold for the first window that is
 * made with GRX_FEN_ATT_PRINCIPALE and without parent; its record is not changed. With a size alone the
 * upper left corner stays where the record puts it. The place is marked as the user's.
 * -xrm ("*shadowThickness: 1") goes into the resources of the toolkit and has an effect where the library
 * does not set a resource itself. -name wins over the name of grx_affecte_identite; without that function
 * it names the windows without parent only.
 * argc: in and out; argv: *argc texts; a null among them ends them.
 * Gives 1; GRX_ECHEC_FORMAT for an argument whose value is missing, too long (255 bytes; 79 for -name)
 * or cannot be read; GRX_ECHEC_PARAMETRE for null or a negative count; GRX_ECHEC_OCCUPE once the library
 * is started; GRX_ECHEC_MEMOIRE. With all of these nothing is changed and nothing is printed:
 * grx_recup_texte_arguments says why.
 * Depuis 1.1 */
GRX_API INT grx_arguments(INT* argc, char** argv);

/* Why the last grx_arguments was refused, in English, with the argument in it; "" when it was not.
 * texte: out, taille bytes with the final zero; what does not fit is cut. Returns the length of the whole
 * text in bytes (texte null or taille below 1 write nothing).
 * Depuis 1.1 */
GRX_API INT grx_recup_texte_arguments(char* texte, INT taille);

/* The value of one argument that grx_arguments has taken, as it was written. quel: GRX_ARG_...; texte and
 * taille as above. Returns the length of the whole text; GRX_ECHEC_ABSENT when it was not given;
 * GRX_ECHEC_PARAMETRE for another number.
 * Depuis 1.1 */
GRX_API INT grx_recup_argument(INT quel, char* texte, INT taille);

/* Sets taille and zone = 1 and empties the rest. Gives 1, or GRX_ECHEC_PARAMETRE for null.
 * Depuis 1.1 */
GRX_API INT grx_init_identite(GRX_IDENTITE* identite);

/* Says who the application is, and gives its windows manners from then on. Every window that a window
 * manager sees, those of the library's own dialogs too, gets before it is shown:
 * - class and name (WM_CLASS), process and machine, its titles in UTF-8 beside the old ones, also when they
 *   change later (texts that are not UTF-8 are read as Latin-1);
 * - an answer to the manager's question whether the application still lives, given by the loop, and by
 *   grx_avancement_avance while the work's window is on show;
 * - a kind: GRX_GENRE_NORMALE without parent, GRX_GENRE_DIALOGUE with one and for messages,
 *   GRX_GENRE_UTILITAIRE for menu windows with a parent;
 * - the window that it belongs to, when it has a parent;
 * - a mark that its place is the program's (GRX_PLACE_PROGRAMME), or the user's with -geometry.
 * Places of new windows are kept within the work area where zone says so: as far as the window fits,
 * the upper left corner first. The name is also that of the application in resources, and the class finds
 * its application defaults file.
 * To be called before grx_init_application: once the library is started it gives GRX_ECHEC_OCCUPE and
 * changes nothing. A second call before that replaces the first. identite: read, its texts are copied.
 * Gives 1; GRX_ECHEC_PARAMETRE for null, a taille that is none or a text that is too long.
 * Depuis 1.1 */
GRX_API INT grx_affecte_identite(const GRX_IDENTITE* identite);

/* The name and the class in force, "HB" and "" when nobody gave any. texte: out, taille bytes with the
 * final zero; what does not fit is cut. Return the length of the whole text.
 * Depuis 1.1 */
GRX_API INT grx_recup_nom_application(char* texte, INT taille);
GRX_API INT grx_recup_classe_application(char* texte, INT taille);

/* Gives a window one more size of its icon; managers take the one that suits them. nofen: a window with a
 * shell of its own, or GRX_AUCUN (-1) for the application: all windows that have no icon of their own, those
 * made later too; this also before grx_init_application. largeur, hauteur: 1 to GRX_ICONE_COTE_MAX pixels.
 * pixels: largeur * hauteur values 0xAARRGGBB (opacity, red, green, blue), rows from the top, read and copied.
 * A second picture of the same size replaces the first. The size nearest to 48 pixels is also shown by
 * managers that know pixmaps only, in black and white on 8 planes.
 * Gives 1; GRX_ECHEC_NUMERO, GRX_ECHEC_GENRE for a nested window; GRX_ECHEC_PARAMETRE;
 * GRX_ECHEC_PLEIN when there are 16 sizes or 16 MB by then; GRX_ECHEC_MEMOIRE; GRX_ECHEC_AFFICHAGE.
 * Depuis 1.1 */
GRX_API INT grx_ajoute_icone_fenetre(INT nofen, INT largeur, INT hauteur, const UNSIGNED_INT* pixels);

/* Takes all sizes of the icon away again: of a window, which then has the application's, or (GRX_AUCUN) of the
 * application. Gives 1 (also when there was none), or what grx_ajoute_icone_fenetre gives.
 * Depuis 1.1 */
GRX_API INT grx_supprime_icones_fenetre(INT nofen);

/* Tells the window manager of what kind a window is: how it is framed, kept above others, listed. Managers
 * look at it when they begin to show the window: make it without GRX_FEN_ATT_VISIBLE, say its kind, show it with
 * grx_affiche_fenetre. nofen: a window with a shell of its own; genre: GRX_GENRE_....
 * Gives 1; GRX_ECHEC_NUMERO, GRX_ECHEC_GENRE for a nested window; GRX_ECHEC_PARAMETRE; GRX_ECHEC_AFFICHAGE.
 * Depuis 1.1 */
GRX_API INT grx_affecte_genre_fenetre(INT nofen, INT genre);

/* Says which window a window belongs to: managers keep it above that one and minimise both together. Windows
 * made with a parent belong to it from the beginning. maitresse: a window with a shell of its own, or GRX_AUCUN:
 * to none. Gives 1; GRX_ECHEC_NUMERO, GRX_ECHEC_GENRE for nested windows; GRX_ECHEC_PARAMETRE for a window that
 * would belong to itself, at whatever remove; GRX_ECHEC_AFFICHAGE.
 * Depuis 1.1 */
GRX_API INT grx_rattache_fenetre(INT nofen, INT maitresse);

/* Says who chose the place of a window. Of a window that is not shown yet a manager places those that are
 * GRX_PLACE_LIBRE, many of them a dialog over the window it belongs to. Moving or resizing the window later marks
 * it as GRX_PLACE_PROGRAMME again. marque: GRX_PLACE_....
 * Gives 1; GRX_ECHEC_NUMERO, GRX_ECHEC_GENRE for a nested window; GRX_ECHEC_PARAMETRE; GRX_ECHEC_AFFICHAGE.
 * Depuis 1.1 */
GRX_API INT grx_marque_place_fenetre(INT nofen, INT marque);

/* Moves a window, shown or not, so that its frame stands centred on that of window sur, or (GRX_AUCUN) in the work
 * area, and in either case within the work area. The place is marked as the program's. A window sur that is
 * not on the screen yet may be put elsewhere by the manager afterwards (grx_attend_creation_fenetre waits for it).
 * Gives 1; GRX_ECHEC_NUMERO, GRX_ECHEC_GENRE for nested windows; GRX_ECHEC_AFFICHAGE.
 * Depuis 1.1 */
GRX_API INT grx_centre_fenetre(INT nofen, INT sur);

/* The part of the screen that panels of the desktop leave free, on the desktop in force; the whole screen when the
 * window manager says nothing of it. x: left edge; y: lower edge, upwards from the bottom of the screen; in pixels;
 * null pointers are passed over. On several monitors it is the area of all of them.
 * Gives 1, or GRX_ECHEC_AFFICHAGE (0 everywhere).
 * Depuis 1.1 */
GRX_API INT grx_recup_zone_travail(INT* x, INT* y, INT* largeur, INT* hauteur);

GRX_FIN_C

#endif
