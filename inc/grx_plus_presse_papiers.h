/* grx_plus_presse_papiers.h - additions: the clipboard, and files dropped on windows.
 *
 * Two places are shared with the other programs of the screen, here called selections: the clipboard,
 * which holds what the user copied, and the primary selection, which holds what is marked with the mouse
 * and is pasted with the middle button. Each has one owner; who puts something takes it from the one
 * before. Another program fetches the content from its owner: what is offered here is answered while
 * events are handled, and is gone when the library is shut down or the process ends. */
#ifndef GRX_PLUS_PRESSE_PAPIERS_H
#define GRX_PLUS_PRESSE_PAPIERS_H

#include "grx_api.h"
#include "host_t.h"

/* Selections. */
#define GRX_SEL_PRESSE_PAPIERS 0 /* CLIPBOARD */
#define GRX_SEL_PRIMAIRE 1       /* PRIMARY */

/* Encodings of the texts that go in and come out. */
#define GRX_CODAGE_LATIN1 0
#define GRX_CODAGE_UTF8 1

/* What a selection offers: sums of these. */
#define GRX_CONTENU_TEXTE 1
#define GRX_CONTENU_PNG 2
#define GRX_CONTENU_PROPRE 4 /* it was put by this library's functions of below */

/* What may be dropped on a window, and what was: sums of these. */
#define GRX_DEPOT_AUCUN 0
#define GRX_DEPOT_FICHIERS 1
#define GRX_DEPOT_TEXTE 2

GRX_DEBUT_C

/* --- texts and pictures ------------------------------------------------------------------------------
 * selection: GRX_SEL_PRESSE_PAPIERS or GRX_SEL_PRIMAIRE, else GRX_ECHEC_PARAMETRE, in all of them.
 * Without a started library, or when the display is gone: GRX_ECHEC_AFFICHAGE.
 *
 * The get functions ask the owner, if it is not this library, and wait. An owner that does not answer
 * costs one second and gives GRX_ECHEC_DELAI; one that sends a large content in parts may take a second
 * for each part, 30 seconds in all. Meanwhile windows are redrawn and other programs that ask for the selections are
 * answered; input waits in the queue. Records that the redrawing makes come from the next calls of
 * grx_digitaliseur, each once; the pending record is not touched. A get function called while one waits (in a
 * callback of the application's own) gives GRX_ECHEC_OCCUPE.
 *
 * What they give is the library's and stays, unchanged, until the next get function of this header that
 * gives 1, grx_libere_presse_papiers, or the shut-down; a call that fails leaves it. It ends in a zero byte
 * that is not counted. The out parameters are written when 1 is given, and only then. */

/* Offers a text. codage: GRX_CODAGE_LATIN1 or GRX_CODAGE_UTF8, that of texte. texte: copied; null reads
 * as "". longueur: its bytes, or -1 for a text that ends with a zero byte. 0 bytes are a text too.
 * Other programs get UTF-8 (UTF8_STRING, text/plain;charset=utf-8), Latin-1 with '?' for each character
 * that it lacks (STRING, text/plain), what holds all of it (TEXT: STRING, else UTF8_STRING), and
 * COMPOUND_TEXT where Latin-1 holds all of it. Lines end with '\n'; nothing is changed of control characters.
 * Gives 1; GRX_ECHEC_PARAMETRE for another codage or a longueur below -1; GRX_ECHEC_FORMAT for a zero
 * byte within longueur or bytes that are not UTF-8; GRX_ECHEC_MEMOIRE; GRX_ECHEC_OCCUPE when the server
 * gives the selection to somebody else. After a failure the selection is what it was.
 * Depuis 1.1 */
GRX_API INT grx_affecte_texte_presse_papiers(INT selection, INT codage, const char* texte, INT longueur);

/* The text that a selection offers, in the encoding codage: '?' stands for each character that Latin-1
 * lacks. texte: out. longueur: out, its bytes, may be null. Zero bytes at the end of what an owner sends
 * are dropped. The owner is asked for UTF8_STRING, text/plain;charset=utf-8, STRING, TEXT, COMPOUND_TEXT
 * and text/plain (UTF-8 where it is that, else Latin-1), until it has one; the type of its answer tells the
 * encoding.
 * Gives 1; GRX_ECHEC_PARAMETRE for another codage or texte null; GRX_ECHEC_ABSENT when nothing, or no
 * text, is offered; GRX_ECHEC_FORMAT for a text with a zero byte inside or not in the encoding that its
 * owner says; GRX_ECHEC_DELAI; GRX_ECHEC_MEMOIRE, also for more than 256 MB; GRX_ECHEC_OCCUPE.
 * Depuis 1.1 */
GRX_API INT grx_recup_texte_presse_papiers(INT selection, INT codage, const char** texte, INT* longueur);

/* Offers a picture as the bytes of a PNG file (image/png). octets: copied. nombre: how many.
 * Gives 1; GRX_ECHEC_PARAMETRE for null or a nombre below 1; GRX_ECHEC_FORMAT when they do not begin as
 * a PNG file does (its first eight bytes; nothing more is looked at); GRX_ECHEC_MEMOIRE; GRX_ECHEC_OCCUPE.
 * Depuis 1.1 */
GRX_API INT grx_affecte_png_presse_papiers(INT selection, const unsigned char* octets, INT nombre);

/* The PNG file that a selection offers. octets: out. nombre: out, may be null.
 * Gives 1; GRX_ECHEC_PARAMETRE for octets null; GRX_ECHEC_ABSENT when no PNG is offered;
 * GRX_ECHEC_FORMAT when it does not begin as one; GRX_ECHEC_DELAI; GRX_ECHEC_MEMOIRE, also for more than
 * 256 MB; GRX_ECHEC_OCCUPE.
 * Depuis 1.1 */
GRX_API INT grx_recup_png_presse_papiers(INT selection, const unsigned char** octets, INT* nombre);

/* Offers a picture, made into a PNG file. rvb: largeur * hauteur pixels of three bytes, red, green, blue,
 * 0 to 255; rows from the top, each from the left, without gaps.
 * Gives what grx_affecte_png_presse_papiers gives, and GRX_ECHEC_PARAMETRE for a side below 1 or above
 * 32767 or more than 64 million pixels.
 * Depuis 1.1 */
GRX_API INT grx_affecte_image_presse_papiers(INT selection, const unsigned char* rvb, INT largeur, INT hauteur);

/* The picture that a selection offers as PNG, as grx_affecte_image_presse_papiers takes it; what is
 * transparent lies on white. rvb, largeur, hauteur: out, none null.
 * Gives what grx_recup_png_presse_papiers gives; GRX_ECHEC_FORMAT also for a PNG file that is damaged,
 * has a side above 32767 or more than 64 million pixels.
 * Depuis 1.1 */
GRX_API INT grx_recup_image_presse_papiers(INT selection, const unsigned char** rvb, INT* largeur, INT* hauteur);

/* Frees what the last get function gave. Gives 1, also when there is nothing.
 * Depuis 1.1 */
GRX_API INT grx_libere_presse_papiers(void);

/* What a selection offers now, for the state of a "Paste" entry: the sum of GRX_CONTENU_..., 0 for
 * nothing that this header knows; or GRX_ECHEC_PARAMETRE, GRX_ECHEC_DELAI, GRX_ECHEC_AFFICHAGE,
 * GRX_ECHEC_OCCUPE. Asks the owner and waits as the get functions do.
 * Depuis 1.1 */
GRX_API INT grx_recup_contenu_presse_papiers(INT selection);

/* Takes back what was offered in a selection. What other programs offer stays. Gives 1, also when
 * nothing was offered.
 * Depuis 1.1 */
GRX_API INT grx_vide_presse_papiers(INT selection);

/* Asks for (actif not 0) or stops records GRX_EVT_PRESSE_PAPIERS: one comes when a selection that this
 * library's functions, or its fields, offered something in was taken by somebody else; exec_fonction.valeur
 * is the selection, nofen, nobou and no_fo are GRX_AUCUN. Owners that follow each other outside of this process
 * are not told of. Stopping drops records that wait. At first there are none. Gives 1, or
 * GRX_ECHEC_AFFICHAGE.
 * Depuis 1.1 */
GRX_API INT grx_affecte_suivi_presse_papiers(INT actif);

/* --- keys ---------------------------------------------------------------------------------------------
 * Ctrl+C, Ctrl+X, Ctrl+V and Ctrl+A in text fields and lists, by the letter that the keyboard layout has
 * on the key, with any locks on, without Shift and Alt:
 * - C copies what is selected in a field, or the selected entries of a list, one a line; without a
 *   selection the clipboard keeps what it has;
 * - X in a field copies and removes what is selected; in a field that is only read, and in a list, it
 *   does nothing;
 * - V puts the clipboard's text in the place of what is selected in a field; a field of one line gets
 *   the first line of it, and no more than its greatest length takes; nothing in a field that is only
 *   read, and in a list;
 * - A selects all of a field, all entries of a list that takes several, which tells of it as of a click
 *   on its last entry; nothing in a list that takes one.
 * The field or list that has the keyboard has these keys before an entry of the menus with the same key,
 * and the application gets no record of the key; in every other place they are the menu's, or the
 * application's, as ever. Fields and lists are those of buttons, panels, the information strip, the
 * selection panel, prompts and the file dialogs. Windows of text and the editor keep their own keys. */

/* Switches these keys on (actif not 0) or off, for all fields and lists there are and will be. At first
 * they are off. Gives 1, or GRX_ECHEC_AFFICHAGE.
 * Depuis 1.1 */
GRX_API INT grx_affecte_touches_presse_papiers(INT actif);

/* 1 when they are on, else 0.
 * Depuis 1.1 */
GRX_API INT grx_recup_touches_presse_papiers(void);

/* --- drops ------------------------------------------------------------------------------------------ */

/* Opens a graphic window for what other programs' users drag onto it (XDND, versions 3 to 5), or closes it.
 * genres: the sum of what it takes: GRX_DEPOT_FICHIERS, GRX_DEPOT_TEXTE; GRX_DEPOT_AUCUN closes it, as every window
 * is at first. What the drag offers is taken as a copy; of a drag that offers both, files are taken. A drop gives
 * a record GRX_EVT_DEPOT: exec_fonction.nofen is the window, valeur is GRX_DEPOT_FICHIERS or
 * GRX_DEPOT_TEXTE, nobou and no_fo are GRX_AUCUN, chaine is the first text, cut at its size. The details
 * (grx_recup_detail_evenement) have the place in the axes of mouse presses of this window (y from the bottom
 * up), and the texts: for files one each, whole: the path for a file of this computer, decoded, byte for byte; for
 * anything else the address as it came ("http://..."); at most 4096. For a text one, in UTF-8. Nobody waits for
 * it: the record comes when the other program has sent the content; one that does not send it within a second is
 * forgotten, and told so. The end of the window closes it.
 * Gives 1; GRX_ECHEC_NUMERO for no window; GRX_ECHEC_GENRE for a window that is not graphic;
 * GRX_ECHEC_PARAMETRE for other genres; GRX_ECHEC_MEMOIRE; GRX_ECHEC_AFFICHAGE.
 * Depuis 1.1 */
GRX_API INT grx_affecte_depots_fenetre(INT nofen, INT genres);

/* What a window takes: the sum of GRX_DEPOT_..., GRX_DEPOT_AUCUN also for a number without a window.
 * Depuis 1.1 */
GRX_API INT grx_recup_depots_fenetre(INT nofen);

GRX_FIN_C

#endif
