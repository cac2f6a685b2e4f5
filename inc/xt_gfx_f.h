/* xt_gfx_f.h - drawing, backing pictures, images, bitmap files, icons.
 *
 * Coordinates are pixels of the target's own window, origin top left, y downwards (dessine_rect
 * excepted). Records are passed by value; what they point at stays the caller's. An unknown window
 * or button number draws nothing and gives 0 unless said otherwise. Nothing is drawn before the
 * first top-level window was created. A function whose result is not described returns 0. */
#ifndef XT_GFX_F_H
#define XT_GFX_F_H

#include <X11/Intrinsic.h>

#include "grx_api.h"
#include "host_t.h"
#include "xt_gfx_t.h"

GRX_DEBUT_C

/* --- attributes --------------------------------------------------------------------------- */

/* Applies attributes to the drawing context; only what changed since the last time is sent. */
GRX_API void grx_affecte_gc(GRX_ATTRIBUTS_TRACER att);

/* Applies the window background as both colours, plain mode, solid thin line. */
GRX_API void grx_reinit_gc(void);

/* Forgets what was applied, so that the next attributes are sent whole. To be called after g_c was
 * changed by other means. */
GRX_API void grx_init_memo_attrib(void);

/* --- primitives --------------------------------------------------------------------------- */

/* Draw with the record's attrib, on the screen, or in the backing picture while memory drawing is
 * on. nofen is a window number, in the _bouton functions a button number. */
GRX_API void grx_trace_point(GRX_POINT point);
GRX_API void grx_trace_segment(GRX_SEGMENT segment);
GRX_API void grx_trace_segment_bouton(GRX_SEGMENT segment);

/* Outline and fill of a rectangle cover the same pixels, both corners included. */
GRX_API void grx_trace_rectangle(GRX_RECTANGLE rectangle);
GRX_API void grx_trace_rectangle_bouton(GRX_RECTANGLE rectangle);
GRX_API void grx_remplit_rectangle(GRX_RECTANGLE rectangle);
GRX_API void grx_remplit_rectangle_bouton(GRX_RECTANGLE rectangle);

/* Arc of an ellipse, and the pie slice. */
GRX_API void grx_trace_arc(GRX_ARC arc);
GRX_API void grx_remplit_arc(GRX_ARC arc);

/* Lines through points; any polygon (even-odd); a polygon that does not cross itself. */
GRX_API void grx_trace_polyline(GRX_POLY poly);
GRX_API void grx_remplit_polygone(GRX_POLY poly);
GRX_API void grx_remplit_polygone_bouton(GRX_POLY poly);
GRX_API void grx_remplit_triangle(GRX_POLY poly);

/* Text on a button; x, y: bottom left of its box. */
GRX_API void grx_trace_texte_bouton(GRX_TEXTE texte);

/* Does nothing; window text is drawn with grx_ecrit_fenetre. */
GRX_API void grx_trace_texte(GRX_TEXTE texte);

/* Text in a window, always on the screen; x, y: start of the baseline. Uses the record's coul_trace
 * and coul_fond, not attrib; of the pixel values only the low 8 bits. */
GRX_API void grx_ecrit_fenetre(GRX_TEXTE texte);

/* Size of a text: its width, the font's ascent and descent. */
GRX_API void grx_recup_taille_chaine(char* chaine, INT* largeur, INT* haut, INT* bas);

/* Fills the box of a text whose baseline starts at x, y with coul_fond, one descent higher than
 * needed. */
GRX_API void grx_efface_chaine(GRX_TEXTE texte);

/* Clears a window, or a button, on the screen; the backing picture stays. */
GRX_API void grx_efface_zone_graphique(INT nofen);
GRX_API void grx_efface_zone_graphique_bouton(INT nobou);

/* Draws, and drawn again removes, a rectangle on the root window: x, y its top left corner, y
 * UPWARDS from the bottom of the screen. */
GRX_API void dessine_rect(INT x, INT y, INT lar, INT hau);

/* Draw an open outline, and fill a triangle, in colour index coul on the window drawn to last,
 * without other attributes. The triangle is clipped to rows 1..1499 of the active window. Return 0. */
GRX_API int remplit_tableau_polygone(GRX_POINT_POLY* p, int nbelt, uchar coul);
GRX_API int remplit_tableau_triangles(GRX_POINT_POLY p0, GRX_POINT_POLY p1, GRX_POINT_POLY p2, uchar coul);

/* The same into a picture tab of lar x hau bytes, top row first, clipped to it. Return 0. */
GRX_API int remplit_tableau_triangles_reel(
    uchar* tab, int lar, int hau, GRX_POINT_POLY p0, GRX_POINT_POLY p1, GRX_POINT_POLY p2, uchar coul);
GRX_API int remplit_tableau_polygone_reel(uchar* tab, int lar, int hau, GRX_POINT_POLY* p, int nbelt, uchar coul);

/* --- backing picture of a window ---------------------------------------------------------- */

/* Makes the backing picture, of the window's size and in its background. Returns 1, or 0 when the
 * window keeps none. Done at the creation of a graphic window. */
GRX_API INT grx_cree_bitmap_backingstore(INT nofen);

/* Frees it; frees it and makes it anew, empty. */
GRX_API void grx_supprime_bitmap_backingstore(INT nofen);
GRX_API void grx_recree_bitmap_backingstore(INT nofen);

/* Copies it to the screen. Returns 0 when done, 1 when it is forbidden or there is none. */
GRX_API INT grx_affiche_bitmap_backingstore(INT nofen);

/* Copies the screen into it. */
GRX_API void grx_memorise_bitmap_backingstore(INT nofen);

/* Forbids (non-zero) or allows showing it, and the X server's own saving with it. */
GRX_API INT grx_interdit_backingstore(INT nofen, INT interdire);

/* Switches memory drawing of windows on (activer non-zero) or off; the number is ignored. */
GRX_API INT grx_enable_backingstore(INT nofen, INT activer);

/* 1 while memory drawing of windows is on, else 0. */
GRX_API INT grx_backingstore_deja_cours(void);

/* Always 0. */
GRX_API INT grx_redess_necessaire(void);

/* --- memory drawing: draw unseen, then show at once --------------------------------------- */

/* Start: empties the backing picture of the ACTIVE window, whatever nofen, and directs all window
 * primitives into it. End: directs them to the screen again. Both return 0, whether done or not: when
 * the active window has no backing picture (no graphic window is active) drawing goes on the screen. */
GRX_API INT grx_alloue_image(INT nofen);
GRX_API INT grx_desalloue_image(void);

/* Shows the picture drawn so far while memory drawing is on, and empties it for the next one unless
 * efface_pas is non-zero. */
GRX_API void grx_trace_image(INT efface_pas);

/* The same for the active button; efface_pas non-zero keeps the picture. */
GRX_API INT grx_alloue_image_bouton(INT nobou, INT efface_pas);
GRX_API INT grx_desalloue_image_bouton(void);
GRX_API void grx_trace_image_bouton(INT efface_pas);

/* --- backing picture of a button ---------------------------------------------------------- */

/* Makes one of lar x hau, filled with colour index coul_trace; frees it. */
GRX_API void grx_cree_bitmap_backingstore_bouton(INT nobou, INT lar, INT hau, INT coul_trace, INT coul_fond);
GRX_API void grx_detruit_bitmap_backingstore_bouton(INT nobou);

/* Copies it to the screen. Returns 1 when done, 0 when there is none. */
GRX_API INT grx_affiche_bitmap_backingstore_bouton(INT nobou);

/* Copies the screen into it. */
GRX_API void grx_memorise_bitmap_backingstore_bouton(INT nobou);

/* --- saving a window's picture ------------------------------------------------------------ */

/* Puts a copy of a window's picture aside, replacing an older one. Returns 1, or 0 when it cannot. */
GRX_API INT grx_sauve_fenetre(INT nofen);

/* Brings it back, as often as wanted. Returns 1; 0 when nothing is saved or the window has another
 * size, in which case the copy is discarded. */
GRX_API INT grx_restore_fenetre(INT nofen);

/* --- images ------------------------------------------------------------------------------- */

/* Pictures are arrays, top row first: one byte per pixel, a colour index (the _8 form), or three
 * bytes blue, green, red (the _24 form). Target: type GRX_CIBLE_FENETRE and a window number, or any
 * other type and a button number. A target without backing picture gets nothing. */

/* Prepare the target for pictures; ends that (does nothing). */
GRX_API void grx_alloue_image_reel(INT type, INT bou_fen);
GRX_API void grx_desalloue_image_reel(INT type, INT bou_fen);

/* Draws a picture, in the form of the screen, with its top left at x, y, on the screen and in the
 * backing picture. */
GRX_API void grx_trace_image_dans_widget(
    INT type, INT bou_fen, uchar* tab_pix_fac, INT largeur, INT hauteur, INT x, INT y);

/* The same from both forms, the one that suits the screen being used. */
GRX_API void grx_trace_image_reel_xy(
    INT type, INT bou_fen, uchar* tab_pixfac_24, uchar* tab_pixfac_8, INT largeur, INT hauteur, INT x, INT y);

/* The same, scaled to l_finale x h_finale (nearest pixel) at dx, dy. */
GRX_API void grx_stretch_image(INT type, INT bou_fen, uchar* tab_pix_fac_24, uchar* tab_pix_fac_8, INT largeur,
    INT hauteur, INT dx, INT dy, INT l_finale, INT h_finale);

/* Reads a rectangle of the active window as colour indices, clipped to the window; a colour that is
 * in no palette reads as 0. On 8 planes the bytes are pixel values, which grx_image_system_to_oxa
 * converts. tab_pix: largeur x hauteur bytes; a negative x or y counts as 0. What lies outside the
 * window or the screen is left as it was: a row takes largeur bytes all the same. */
GRX_API void grx_recup_image(INT x, INT y, INT largeur, INT hauteur, uchar* tab_pix);

/* Pixel values of black and white, 0 without display. */
GRX_API INT grx_noir_systeme(void);
GRX_API INT grx_blanc_systeme(void);

/* --- outline fonts: none is ever available ------------------------------------------------ */

/* Returns 0, *contour untouched. */
GRX_API INT get_contours_texte_truetype(GRX_TEXTE texte, DEF_CONTOURS** contour);
/* Returns -1. */
GRX_API int grx_select_font_truetype(char* nom_font);
/* Does nothing; extents stays as it is. */
GRX_API void grx_texte_extent_truetype(
    INT len, char* chaine, DOUBLE hauteur, DOUBLE ratio, char* font, DOUBLE* extents);
/* Returns 0. */
GRX_API INT grx_verifie_truetype(char* nom_font);

/* --- bitmap files ------------------------------------------------------------------------- */

/* Uncompressed BMP files. adr: directory, or "" when nom_fic is a whole path. Pictures are lar x hau
 * bytes, colour indices, top row first. */

/* Reads a 4-bit (16 colours) or 8-bit (256) file. Out: the picture, to be freed with grx_free and
 * its size *taille_tab_pix; its size; *nb_coul 16 or 256. The file's palette is not read. Returns 0;
 * 1 with nothing written when it cannot be read. Set *tab_pix to null first: when there is no memory
 * for an 8-bit file, or its sizes are impossible, the result is 0 with nothing written. */
GRX_API INT lit_fichier_bitmap(char* adr, char* nom_fic, uchar** tab_pix, UNSIGNED_INT4* lar, UNSIGNED_INT4* hau,
    UNSIGNED_INT4* taille_tab_pix, INT* nb_coul);

/* Write a 16-colour file (low 4 bits of the indices), a 256-colour file with the colours of the indices
 * below grx_recup_max_couleur_trace() (the others are black), and a monochrome file (index 0 white, others
 * black; lar a multiple of 32). Return 0, or 1. Other programs show a 256-colour file with red and blue
 * exchanged: its palette has red first, where the format has blue. The files of 16 and of 2 colours are
 * right everywhere, and lit_fichier_bitmap reads indices only. */
GRX_API INT ecrit_fichier_bitmap(char* adr, char* nom_fic, uchar* tab_pix, INT lar, INT hau);
GRX_API INT ecrit_fichier_bitmap_256(char* adr, char* nom_fic, uchar* tab_pix, INT lar, INT hau);
GRX_API INT ecrit_fichier_bitmap_mono(char* adr, char* nom_fic, uchar* tab_pix, INT lar, INT hau);

/* --- icons -------------------------------------------------------------------------------- */

/* Allocates the table of button pictures; part of grx_alloue_base_boutons. Returns 0, or 13. */
GRX_API INT grx_alloue_tab_image_boutons(INT maxbouton);

/* Frees the table with the copies of the pictures that it holds in memory. Buttons go on showing
 * theirs, which are the server's; grx_desinstalle_bitmap no longer frees those. */
GRX_API void grx_desalloue_tab_image_boutons(INT maxbouton);

/* Reads the bitmap file nom_fic (a whole path) into the pixmap of a button's record; nobou below 0:
 * into a pixmap of no button. Labels that showed the button's former picture show the new one, and
 * the former one is freed. Returns 1, or 0 when it cannot be read: a button's picture then stays. */
GRX_API INT grx_installe_bitmap(char* nom_fic, int nobou);

/* Frees a button's picture; nothing for a number without one. */
GRX_API void grx_desinstalle_bitmap(INT nobou);

/* Empties the list of named icons without freeing it; for the start. */
GRX_API INT init_tab_icon(void);

/* Appends an icon; the list takes over its tab_pix, made by grx_malloc with taille_buffer bytes. A
 * name may come twice: the first is found. Returns 0, or 1 when memory is short. */
GRX_API INT append_icon(ENRICON enr_icon);

/* Finds an icon by its name. Returns 1 with a record of the library in *enr_icon, good until the
 * next search; 0, *enr_icon untouched, when there is none. */
GRX_API INT cherche_icon(char* nom_icon, ENRICON** enr_icon);

/* Frees the list. */
GRX_API INT desalloue_tab_icon(void);

/* Bytes of a picture: largeur x hauteur. */
GRX_API INT pixel_size_image(INT largeur, INT hauteur);

/* --- Toolkit side: what the primitives do before drawing --------------------------------- */

/* Choose the target of window, or button, primitives: win, or the backing picture while memory
 * drawing is on. Return 0. */
GRX_API INT test_trace_memoire(Window win);
GRX_API INT test_trace_memoire_bouton(Window win);

GRX_FIN_C

#endif
