/* grx_plus_menus.h - additions: menus that live: entries made insensitive, ticked and renamed by
 * function number, and context menus.
 *
 * The state of an entry belongs to its function number: what is set for a number holds for all entries
 * that carry it, in the menu bar, in menus built by hand (grx_cree_atome) and in context menus, for
 * those that stand and for those that are made later. So it can be set before there is a bar. Until it
 * is set, an entry is sensitive, has no mark and has the text of its menu file.
 *
 * garde, the last argument of the three setters, says what becomes of a state when the menu bar goes
 * (grx_detruit_menu_bar, the end of the window that holds it): 0 = it is forgotten, and entries made
 * later are as their file says; any other value = it is kept and holds in the next bar as well. Each of
 * the three states of a number has its own garde, that of the last call. A state set while there is no
 * bar holds for the next one in either case. */
#ifndef GRX_PLUS_MENUS_H
#define GRX_PLUS_MENUS_H

#include "grx_api.h"
#include "host_t.h"

#define GRX_MENU_TEXTE_MAX 256 /* room for the text of an entry, with its final zero */

/* What is known of a function number in menus. */
typedef struct GRX_ENTREE_MENU {
    INT taille;                     /* of this record in bytes */
    INT nb_entrees;                 /* entries that carry the number now, in all menus */
    INT active;                     /* 1 = sensitive, 0 = insensitive */
    INT coche;                      /* 1 = ticked, 0 = not */
    INT garde_active;               /* 1 = this state outlives the bar, 0 = it does not, or none was set */
    INT garde_coche;                /* the same of the mark */
    INT garde_texte;                /* the same of the text */
    char texte[GRX_MENU_TEXTE_MAX]; /* without '&': that of grx_change_texte_entree_menu, else that of the
                                       oldest entry; "" without entries */
} GRX_ENTREE_MENU;

GRX_DEBUT_C

/* Makes the entries of a function number insensitive (desactive not 0) or sensitive again (0). An
 * insensitive entry is shown faint and cannot be chosen. Its accelerator, where no sensitive entry has
 * the same, does nothing: no record comes, in a field nothing is typed. A key without Ctrl and Alt
 * ("F5") is the application's in windows other than the main one, as ever. no_fo: any number. Gives 1,
 * or GRX_ECHEC_MEMOIRE.
 * Depuis 1.1 */
GRX_API INT grx_desactive_entree_menu(INT no_fo, INT desactive, INT garde);

/* Ticks the entries of a function number (coche not 0), or takes their mark away (0). The mark stands in
 * a column left of the texts of a menu; the first call for one of its entries, also with 0, gives a menu
 * that column, which stays. A menu without such entries looks as ever. Choosing an entry does not change
 * its mark: the application does. no_fo: any number. Gives 1, or GRX_ECHEC_MEMOIRE.
 * Depuis 1.1 */
GRX_API INT grx_coche_entree_menu(INT no_fo, INT coche, INT garde);

/* Gives the entries of a function number another text. '&' makes the next letter the mnemonic and is not
 * shown; without '&' each entry keeps the mnemonic of its menu file if the text has that letter, and has
 * none otherwise. The accelerator stays, and so does its text. A text that begins with '-' makes no
 * separator. texte: in Latin-1 or in the encoding of the locale; what goes beyond 255 bytes is cut. Null
 * or "": the text of the menu file again. no_fo: any number. Gives 1, or GRX_ECHEC_MEMOIRE.
 * Depuis 1.1 */
GRX_API INT grx_change_texte_entree_menu(INT no_fo, const char* texte, INT garde);

/* Makes all entries sensitive, takes all marks away, gives all entries the texts of their menu files and
 * forgets what was to be kept. Columns for marks stay. Gives 1.
 * Depuis 1.1 */
GRX_API INT grx_initialise_entrees_menu(void);

/* Sets taille and empties the rest: before grx_recup_entree_menu. Gives 1, or GRX_ECHEC_PARAMETRE for
 * null.
 * Depuis 1.1 */
GRX_API INT grx_init_entree_menu(GRX_ENTREE_MENU* entree);

/* The state of the entries of a function number. entree: out, its taille set before. Gives 1;
 * GRX_ECHEC_NUMERO for a number that no entry carries and for which nothing is set (the record then says
 * 0 entries, sensitive, not ticked); GRX_ECHEC_MEMOIRE when memory does not suffice to find the entries;
 * GRX_ECHEC_PARAMETRE for null or a taille that is none.
 * Depuis 1.1 */
GRX_API INT grx_recup_entree_menu(INT no_fo, GRX_ENTREE_MENU* entree);

/* Opens a context menu in a window and returns at once. It is built anew each time from a zone of a menu
 * file: the lines between the braces that follow the line beginning with the zone's marker. They are
 * those of the bar: ITEM is an entry, ITEM with a text that begins with '-' a separator, POPUP with
 * lines in braces behind it a submenu (as deep as the bar: entries inside three braces are the deepest).
 * Accelerators are shown; their keys work where the bar has them. A zone in the file of the bar stands
 * before the bar's own, which goes to the end of the file.
 *
 * An entry chosen comes like one of the bar: a record of type 2 with nobou -1, the entry's no_fo, and
 * nofen, the window given here; its bouton, x and y say nothing. Without a choice (Escape, a click elsewhere) nothing comes. While it is
 * open it has pointer and keyboard: arrows, Return, mnemonics, Escape. A button that is held when it
 * opens chooses where it is released; released where it was, or at once, it leaves the menu open. The
 * release is the menu's and gives no record. One that is open is closed first, and so are menus of the bar. It goes with its window.
 *
 * nofen: the window, on the screen. fichier: a file in the directory of the menu files
 * (sstate[SST_REP_MENU]); null or "": that of the bar (istate[IST_MODULE_MENU]). zone: the marker, such as
 * "#:ZONE_MENU_PIECE". x, y: where its upper left corner comes, in pixels from the left edge and upwards
 * from the lower edge of the window's drawing area, as in the records of the mouse; where the screen
 * ends, it opens to the other side.
 *
 * Gives 1; GRX_ECHEC_AFFICHAGE before start-up; GRX_ECHEC_NUMERO for no window; GRX_ECHEC_GENRE for one
 * that is not on the screen; GRX_ECHEC_PARAMETRE for a zone null or ""; GRX_ECHEC_FICHIER for a file that
 * cannot be read; GRX_ECHEC_ABSENT for a zone that is not there or has no entry; GRX_ECHEC_MEMOIRE;
 * GRX_ECHEC_OCCUPE while another program holds pointer or keyboard. Nothing is open then.
 * Depuis 1.1 */
GRX_API INT grx_ouvre_menu_contextuel(INT nofen, const char* fichier, const char* zone, INT x, INT y);

/* The same where the pointer is, wherever that is, as for a menu over a control. Gives what
 * grx_ouvre_menu_contextuel gives.
 * Depuis 1.1 */
GRX_API INT grx_ouvre_menu_contextuel_souris(INT nofen, const char* fichier, const char* zone);

/* Closes the context menu; no record comes. Gives 1, or GRX_ECHEC_ABSENT when none is open.
 * Depuis 1.1 */
GRX_API INT grx_ferme_menu_contextuel(void);

/* The window whose context menu is open, GRX_AUCUN (-1) when none is.
 * Depuis 1.1 */
GRX_API INT grx_recup_fenetre_menu_contextuel(void);

GRX_FIN_C

#endif
