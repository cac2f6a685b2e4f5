/* grx_plus_polices.h - additions: outline fonts for the interface, and the resolution of the screen. */
#ifndef GRX_PLUS_POLICES_H
#define GRX_PLUS_POLICES_H

#include "grx_api.h"
#include "host_t.h"

/* What a name begins with that means an outline font; the rest is a pattern of fontconfig, a family and
 * properties: "xft:DejaVu Sans:size=11", "xft:Liberation Serif:pixelsize=18:bold". size is in points, which
 * grx_recup_resolution_ecran makes pixels; without size or pixelsize it is 12 points. */
#define GRX_POLICE_CONTOURS "xft:"

/* Kinds of the interface's font, the answers of grx_recup_genre_police. */
#define GRX_POLICE_AUCUNE 0  /* the library is not started */
#define GRX_POLICE_SERVEUR 1 /* a font of the X server */
#define GRX_POLICE_LISSE 2   /* an outline font, antialiased */

GRX_DEBUT_C

/* The font of controls, menus, lists, dialogs, panels and editors from the next grx_init_application on: the
 * name of an X font or GRX_POLICE_CONTOURS and a pattern, of any length. It is the setting of the key
 * FONT_CARACTERE, of which grx_affecte_font and grx_recup_font know the first 39 characters; who sets last
 * wins. A value of that key that begins with GRX_POLICE_CONTOURS is kept whole as well. null or "": the font
 * "fixed". The text is copied.
 *
 * With an outline font start-up measures the size of a character (grx_recup_lar_carac_alpha and its like) in
 * that font, so that places and sizes in characters follow. What is drawn with fontstruct, texts of
 * grx_trace_texte among them, has a font of the X server of the same height, the nearest that there is. Texts
 * may be Latin-1 or UTF-8, and come back as they went in. Text fields need a locale with characters of more
 * than one byte: where LC_CTYPE is another, start-up makes it "C.UTF-8", grx_termine_application puts it back.
 * A family that fontconfig has not is error 9 (GRX_ERR_FIC_FONTE), printed, and the font "fixed", nothing else.
 * Where the server cannot blend (8 planes, no RENDER) a font of the X server of about the same height serves.
 * Gives 1, or GRX_ECHEC_MEMOIRE and then the former name stays.
 * Depuis 1.1 */
GRX_API INT grx_affecte_police(const char* police);

/* The whole name of that font as it was set. police: out, taille bytes with the final zero; what does not fit
 * is cut, at any byte. Returns the length of the whole name in bytes, without the zero, so that a caller can ask
 * for the room first (police null or taille below 1 write nothing).
 * Depuis 1.1 */
GRX_API INT grx_recup_police(char* police, INT taille);

/* Which kind of font the interface has since start-up, one of GRX_POLICE_...: whether an outline font was had.
 * Depuis 1.1 */
GRX_API INT grx_recup_genre_police(void);

/* The resolution of the screen in dots per inch: Xft.dpi of the resources (xrdb, -xrm), which desktops set, else
 * the screen's pixels by its millimetres; 96 where that is not between 40 and 1000. Rounded to a whole number.
 * Asks nothing of the server. GRX_ECHEC_AFFICHAGE before start-up.
 * Depuis 1.1 */
GRX_API INT grx_recup_resolution_ecran(void);

GRX_FIN_C

#endif
