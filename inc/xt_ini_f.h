/* xt_ini_f.h - start-up, settings and palettes.
 *
 * Order of a program's first calls: grx_alloue_base_fenetres (xt_fen_f.h), grx_alloue_base_boutons
 * (xt_bou_f.h), grx_initialise_globales, grx_init_application. A function whose result is not
 * described returns 0. Null out pointers are not written. */
#ifndef XT_INI_F_H
#define XT_INI_F_H

#include <X11/Intrinsic.h>

#include "grx_api.h"
#include "host_t.h"
#include "xt_ini_t.h"

GRX_DEBUT_C

/* --- start-up ---------------------------------------------------------------------------- */

/* Opens the display named by DISPLAY and makes the library ready: toolkit, visual (24-plane true
 * colour, else 8-plane pseudo colour), colormap, font, cursors, screen sizes, window base, size of
 * a character. Takes font, colour counts and crosshair colour from the settings; the window and
 * button bases must be allocated. From here on X protocol errors are ignored silently, and when the
 * connection is lost the process ends by exit(1) without a word. An application that called
 * XSetErrorHandler or XSetIOErrorHandler before is told first: its handler is called, that of the
 * lost connection once. There it may save its work, but call neither Xlib nor this library.
 * Returns 1; 0 when the display cannot be opened (error 11 printed) or has no usable visual
 * (error 5 printed). To be called once; there is no shutdown. */
GRX_API INT grx_init_application(void);

/* Loads the font, chooses the visual and builds the colormap and the cursors; part of
 * grx_init_application. Returns 1 when a visual was found, whatever cells the colormap got;
 * 0 after error 5. */
GRX_API INT grx_init_graphique(void);

/* Forgets the drawing attributes last sent and clears the saved pictures; part of start-up. */
GRX_API INT grx_init_param_graphique(void);

/* Marks the saved picture of every window as empty, without freeing any pixmap. */
GRX_API INT grx_init_sauvegarde_fenetre(void);

/* Hands control to the toolkit's main loop; does not return. The other way is a loop of one's
 * own on grx_digitaliseur (xt_ent_f.h). */
GRX_API INT grx_gere_application(void);

/* Measures the scroll bars and the character cell with throw-away controls and stores them in the
 * settings below, replacing what INI_SYST.DAT gave; part of start-up. */
GRX_API INT grx_affecte_carac_fenetre_systeme(void);

/* 1 when w is not null, else 0. */
GRX_API INT grx_is_objet_valide(Widget w);

/* --- screen ------------------------------------------------------------------------------ */

/* Asks the display for the size of its default screen, in pixels. Untouched without display. */
GRX_API INT grx_recup_taille_ecran(INT* lar, INT* hau);

/* The same in millimetres. */
GRX_API INT grx_recup_taille_ecran_mm(INT* lar_mm, INT* hau_mm);

/* Width and height of the screen as recorded at start-up, in pixels and in millimetres; 0 before. */
GRX_API INT grx_recup_lar_ecran(void);
GRX_API INT grx_recup_hau_ecran(void);
GRX_API INT grx_recup_lar_ecran_mm(void);
GRX_API INT grx_recup_hau_ecran_mm(void);

/* Number of planes in use, 8 or 24; 0 before start-up. */
GRX_API INT grx_recup_profondeur_ecran(void);

/* Overwrites the number of planes; windows already made keep theirs. */
GRX_API INT grx_affecte_profondeur_ecran(INT profondeur);

/* Two pixel counts that the library only keeps for the application; 0 at first. */
GRX_API INT grx_put_nbr_xpel_crt(INT nbr);
GRX_API INT grx_put_nbr_ypel_crt(INT nbr);
GRX_API INT grx_get_nbr_xpel_crt(void);
GRX_API INT grx_get_nbr_ypel_crt(void);

/* --- directories ------------------------------------------------------------------------- */

/* Does nothing (icons are read when they are needed). Returns 1. */
GRX_API INT grx_charge_icones(void);

/* Do nothing: there is one font. */
GRX_API INT grx_selection_fonte_dialogue(void);
GRX_API INT grx_selection_fonte_status(void);

/* Sets the icon directory, the one above "S", "M" and "L" (adr_icones); at most
 * GRX_ADR_ICONES_MAX - 1 characters are kept. */
GRX_API INT grx_init_repertoire_icones(char* adr);

/* Gives the icon directory, with the sub-directory "S", "M" or "L" for the icon formats 2, 3, 4.
 * adr: HOST_CHEMIN_MAX bytes. */
GRX_API INT grx_recup_repertoire_icones(char* adr);

/* Splits the language number off the end of a message path: "MSG12" becomes "MSG" and 12; a path
 * without one stays as it is and gives 1. adr: in and out. format: out. */
GRX_API INT grx_decompose_adresse_fichier_message(char* adr, INT* format);

/* Appends the numbered sub-directory *format to the path adr; nothing when the number is 1.
 * adr: in and out, HOST_CHEMIN_MAX bytes. */
GRX_API INT grx_recup_repertoire_message(char* adr, INT* format);

/* Gives the working directory named by the environment variable ZZCUR, in small letters, with '/'
 * for '\' and at its end. path: 64 bytes. Returns 0; 1 when the variable is missing, empty or of
 * 60 characters and more (error 6 printed); 2 when the directory is not usable. In both failures
 * path is "tmp", or "" when that is not usable either. */
GRX_API INT init_path(char* path);

/* --- settings ---------------------------------------------------------------------------- */

/* Reads INI_SYST.DAT in the directory sstate[SST_REP_SYSTEME] into the settings below. Keys not in
 * the file, and values outside what each accepts, leave a setting alone. Returns 0, or -1 without a
 * message when the file cannot be opened. */
GRX_API INT grx_initialise_globales(void);

/* Sets the icon format to 0; part of grx_initialise_globales. */
GRX_API INT grx_initialise_globales_systeme(void);

/* Font name handed to Motif, "" (the font "fixed") at first (key FONT_CARACTERE). font: GRX_FONTE_MAX
 * bytes. More than 39 characters are cut, and whole names of the server are longer: leave parts out with
 * "*", as in "-*-fixed-medium-r-*-15-*-iso8859-1" (34), or take an alias such as "9x15". A name that
 * no font has brings the toolkit's own font and its warning on standard error. Takes effect at start-up. */
GRX_API INT grx_recup_font(char* font);
GRX_API INT grx_affecte_font(char* font);

/* Width of a character, in pixels (key LARG_CARACTERE, measured at start-up). */
GRX_API INT grx_recup_lar_carac_alpha(void);
GRX_API INT grx_affecte_lar_carac_alpha(INT val);

/* Height of a one-line field, in pixels (key HAUT_CARACTERE, measured at start-up). */
GRX_API INT grx_recup_hau_carac_alpha(void);
GRX_API INT grx_affecte_hau_carac_alpha(INT val);

/* Height of a one-line label, in pixels (measured at start-up). */
GRX_API INT grx_recup_hau_exact_carac_alpha(void);
GRX_API INT grx_affecte_hau_exact_carac_alpha(INT val);

/* Width of a field besides its characters, in pixels (key ESPA_CARACTERE, measured at start-up). */
GRX_API INT grx_recup_lar_sup_alpha(void);
GRX_API INT grx_affecte_lar_sup_alpha(INT val);

/* Thickness of a scroll bar, in pixels (key LARG_SCROLLBAR, measured at start-up). */
GRX_API INT grx_recup_largeur_scrollbar(void);
GRX_API INT grx_affecte_largeur_scrollbar(INT val);

/* What the window manager adds around a window, in pixels, 0 at first: border of a normal window
 * (key BORD_NORMAL), of one without resize handles (BORD_SANS_RESIZE), without title
 * (BORD_SANS_TITRE), without any decoration (BORD_SANS_DECOR), and height of a title bar (TITRE). */
GRX_API INT grx_get_tabord(void);
GRX_API INT grx_set_tabord(INT val);
GRX_API INT grx_get_tabord_sans_resize(void);
GRX_API INT grx_set_tabord_sans_resize(INT val);
GRX_API INT grx_get_tabord_sans_titre(void);
GRX_API INT grx_set_tabord_sans_titre(INT val);
GRX_API INT grx_get_tabord_sans_decor(void);
GRX_API INT grx_set_tabord_sans_decor(INT val);
GRX_API INT grx_get_tatitre(void);
GRX_API INT grx_set_tatitre(INT val);

/* Number of drawing colours, 32 at first (key MAX_COULEUR_TRACE: 8, 16, 32, 64 or 128), and of
 * rendering colours, 0 at first (key MAX_COULEUR_RENDU: 17 or more). They take effect at start-up;
 * an 8-plane screen may lower both. */
GRX_API INT grx_recup_max_couleur_trace(void);
GRX_API INT grx_affecte_max_couleur_trace(INT val);
GRX_API INT grx_recup_max_couleur_rendu(void);
GRX_API INT grx_affecte_max_couleur_rendu(INT val);

/* Number of reserved colours (8) and of icon colours (16). */
GRX_API INT grx_recup_max_couleur_reserve(void);
GRX_API INT grx_recup_max_couleur_icone(void);

/* Background of the application's windows and controls: a colour index, or a pixel value where it
 * is no valid index; 0 (at first) = the toolkit's own (key COULEUR_APPLICATION). */
GRX_API INT grx_recup_couleur_application(void);
GRX_API INT grx_affecte_couleur_application(INT couleur);

/* Colour index of the background of graphic windows, 0 at first. */
GRX_API INT grx_recup_couleur_fond(void);
GRX_API INT grx_affecte_couleur_fond(INT couleur);

/* Position of the application's area, in pixels, 0 at first; centres the selection panel. */
GRX_API INT grx_get_pos_appli_x(void);
GRX_API INT grx_set_pos_appli_x(INT val);
GRX_API INT grx_get_pos_appli_y(void);
GRX_API INT grx_set_pos_appli_y(INT val);

/* Double-click time in milliseconds, 200 at first; call grx_reinit_double_clic after a change. */
GRX_API INT grx_recup_cst_dc(void);
GRX_API INT grx_affecte_cst_dc(INT val);

/* Sensitive margin of an icon, in pixels, 5 at first. */
GRX_API INT grx_recup_zone_sensible_icone(void);
GRX_API INT grx_affecte_zone_sensible_icone(INT val);

/* Default size of an icon, in pixels, 30 by 30 at first. */
GRX_API INT grx_recup_taille_icone_x(void);
GRX_API INT grx_recup_taille_icone_y(void);
GRX_API INT grx_affecte_taille_icone(INT x, INT y);

/* Icon format, 0 at first; 2, 3 and 4 choose the sub-directories "S", "M" and "L" of the icon
 * directory. Kept as a signed 8-bit value. */
GRX_API INT grx_recup_format_icone(void);
GRX_API INT grx_affecte_format_icone(INT format);

/* Fixed-menu switch, kept for the application, 0 at first. */
GRX_API INT grx_get_menu_fixe(void);
GRX_API INT grx_set_menu_fixe(INT val);

/* Special colour indices. The setters store a fixed value: crosshair 1, second crosshair 6, neutral
 * 4, contrasting 2; at first they are 1, 6, 5 and 5. */
GRX_API INT affecte_couleur_mires(void);
GRX_API INT affecte_couleur_mire2(void);
GRX_API INT affecte_couleur_neutre(void);
GRX_API INT affecte_couleur_contrastee(void);
GRX_API INT recup_couleur_mire(void);
GRX_API INT recup_couleur_mire2(void);
GRX_API INT recup_couleur_neutre(void);
GRX_API INT recup_couleur_contrastee(void);

/* Do nothing: the keypad needs no configuration. */
GRX_API INT grx_configure_clavier_munerique(void);
GRX_API INT grx_restitue_clavier_munerique(void);

/* --- palettes ---------------------------------------------------------------------------- */

/* A colour index is 0..7 for the reserved colours, then the drawing colours, and from
 * grx_premier_index_rendu() to grx_dernier_index_rendu() - 1 the rendering colours; icon colours
 * have indices of their own, 0..15. rgb is a triple red, green, blue, each 0..255. An index
 * outside 0..255 reads as 0 and writes nothing. The reserved colours are at first 0 olive (the
 * background of graphic windows), 1 and 2 black, 3 pale yellow, 4 dark red, 5 white, 6 yellow, 7 grey
 * (palette_reserve, xt_ini_t.h). */

/* Fill the icon palette (16 colours) and the drawing palette (256, sixteen shades of sixteen
 * colours) with their standard values. They hold these from the start. */
GRX_API INT grx_determine_palette_icone(void);
GRX_API INT grx_determine_palette_trace(void);

/* Does nothing: the reserved palette is built in. */
GRX_API INT grx_determine_palette_reserve(void);

/* Copy nb triples from rgb into the reserved or the drawing palette, at most as many as it has
 * colours; components above 255 become 255. Call before start-up, or follow with grx_maj_.... */
GRX_API INT grx_affecte_palette_reserve(INT* rgb, INT nb);
GRX_API INT grx_affecte_palette_trace(INT* rgb, INT nb);

/* Send the reserved or the drawing palette to the screen. */
GRX_API INT grx_maj_palette_reserve(void);
GRX_API INT grx_maj_palette_trace(void);

/* Build the colormap of an 8-plane or a 24-plane screen; part of start-up. Return 1; the 8-plane
 * one returns 0 (error 5 printed) when the icon, the reserved or 8 drawing colours cannot be had,
 * and prints how many there are when it gets fewer drawing or rendering colours than asked. */
GRX_API INT grx_init_colormap_8_plans(void);
GRX_API INT grx_init_colormap_24_plans(void);

/* Changes a colour. On 8 planes what is drawn in it changes at once; on 24 planes what is drawn
 * from now on. */
GRX_API INT grx_modif_rgb(INT index, INT* rgb);

/* Read a colour, by colour index or by icon index. On 8 planes a full component may read 257. */
GRX_API INT grx_recup_rgb(INT index, INT* rgb);
GRX_API INT grx_recup_rgb_icone(INT index, INT* rgb);

/* The X pixel value of a colour index or an icon index. */
GRX_API INT grx_recup_couleur(INT index);
GRX_API INT grx_recup_couleur_icone(INT index);

/* Searches the reserved and drawing colours for exactly this triple. Returns 1 with the lowest
 * index in *index, 0 with *index 0 when there is none. */
GRX_API INT grx_recup_index_image(INT* rgb, INT* index);

/* Builds the icon colours' pixels, colour 8 (the background of icons) being the pixel couleur; done
 * at the first button creation. Returns the number of icon colours. */
GRX_API INT grx_init_palette_icone(INT couleur);

/* Replace the background colour of icons by icon colour index, keeping the old one, and put the
 * kept one back. */
GRX_API INT grx_change_couleur_8_icone(INT index);
GRX_API INT grx_restore_couleur_8_icone(void);

/* First rendering index, and one past the last. */
GRX_API INT grx_premier_index_rendu(void);
GRX_API INT grx_dernier_index_rendu(void);

/* Line width in pixels of width index i, taken modulo 8: 0, 2, 3, 4, 5, 6, 7, 8. */
GRX_API INT grx_recup_epaisseur(INT i);

/* Convert lar x hau one-byte pixels in place between indices (icon or colour) and pixel values of
 * an 8-plane screen. Nothing for lar x hau <= 0. Meaningful on 8 planes only. */
GRX_API INT grx_icone_oxa_to_system(INT lar, INT hau, uchar* buf);
GRX_API INT grx_image_oxa_to_system(INT lar, INT hau, uchar* buf);
GRX_API INT grx_icone_system_to_oxa(INT lar, INT hau, uchar* buf);
GRX_API INT grx_image_system_to_oxa(INT lar, INT hau, uchar* buf);

/* --- Toolkit side: callbacks and handlers, exported for applications that install them
 *     themselves, and helpers of start-up ------------------------------------------------- */

/* Position of the lowest set bit of a colour mask, 32 for 0. */
GRX_API INT decode_decalage(unsigned long mask);

/* Makes the drawing context g_c anew (on the realised shell), and gc (on the root window) the first
 * time. The g_c before stays usable. Those that windows were made with are freed with them, when
 * neither they nor their successor are g_c; those of calls of the application's are its own. */
GRX_API INT grx_init_gc(Widget shell);

/* Thickness in pixels of the vertical scroll bar of a window; 0 when it has none. */
GRX_API INT grx_recup_taille_scrollbar(INT nofen);

/* Read a line "... key value # comment" of INI_SYST.DAT; a line without the key gives 0. */
/* The value as an integer, 0 when it is no number. */
GRX_API INT traite_entier_chaine(char* ligne, char* clef);
/* The trimmed value copied into chaine, as large as ligne. Returns 1 when the key is there. */
GRX_API INT traite_chaine_chaine(char* ligne, char* clef, char* chaine);
/* A value such as "M32x24" stored as icon format (S, M, L = 1, 2, 3) and icon size. Returns 1 when
 * the key is there. */
GRX_API INT traite_taille_icone(char* ligne, char* clef);

GRX_FIN_C

#endif
