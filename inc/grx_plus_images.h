/* grx_plus_images.h - additions: pictures as files (PNG, BMP), icons with transparency, pictures of windows and of the screen.
 *
 * Files are those of the path given, as open() takes it (no directory of the settings is added). A file that is no
 * regular one (directory, pipe, device) or cannot be opened gives GRX_ECHEC_FICHIER; one that is neither PNG nor BMP, is
 * damaged or cut short, or says of itself what it cannot hold gives GRX_ECHEC_FORMAT; a picture of more bytes than
 * memory, or an INT, holds gives GRX_ECHEC_MEMOIRE. What a call refuses changes no record and leaves nothing allocated.
 *
 * What is written goes to a temporary file in the same folder, which takes the target's name when all of it is on
 * the disk: the target is the old file or the whole new one, never half of it. A link is followed, a file that is
 * replaced keeps its rights, one without the right to write is refused. A full disk, or a limit of file sizes, gives
 * GRX_ECHEC_FICHIER and the target stays as it was.
 *
 * No display is needed for files; showing and taking pictures give GRX_ECHEC_AFFICHAGE before start-up. */
#ifndef GRX_PLUS_IMAGES_H
#define GRX_PLUS_IMAGES_H

#include "grx_api.h"
#include "host_t.h"

/* Formats of files that are written. */
#define GRX_IMAGE_SELON_NOM 0 /* by the end of the name: ".bmp" in any case is BMP, everything else PNG */
#define GRX_IMAGE_PNG 1
#define GRX_IMAGE_BMP 2

#define GRX_IMAGE_COTE_MAX 1000000 /* longest side of a picture */
#define GRX_IMAGES_OUVERTES_MAX 8  /* files open for reading or writing by bands */

/* A picture. pixels: hauteur rows from the top, each largeur * octets_par_pixel bytes from the left, without gaps:
 *   1 byte: a place in palette, which has nb_couleurs entries;
 *   3 bytes: blue, green, red, as the 24-bit pictures of xt_gfx_f.h;
 *   4 bytes: blue, green, red, alpha: 0 transparent to 255 opaque; the colour is not multiplied by it.
 * An entry of palette is blue, green, red, alpha. Where the library takes a picture, a place that the palette lacks is
 * GRX_ECHEC_PARAMETRE. */
typedef struct GRX_IMAGE {
    INT taille;           /* set by grx_init_image */
    INT largeur, hauteur; /* in pixels, 1 to GRX_IMAGE_COTE_MAX */
    INT octets_par_pixel; /* 1, 3 or 4 */
    INT octets_voulus;    /* for reading: 0 as the file has it, 3 with what is transparent laid on white, or 4 */
    INT pixels_par_metre; /* of the paper that the picture is meant for; 0 when nobody says */
    INT nb_couleurs;      /* entries of palette, 1 to 256, when octets_par_pixel is 1; else 0 */
    unsigned char* pixels;
    unsigned char palette[256][4];
} GRX_IMAGE;

GRX_DEBUT_C

/* --- pictures in memory ------------------------------------------------------------------ */

/* Makes an empty record: taille is set, all else 0. What it held is not freed. Null does nothing.
 * Depuis 1.1 */
GRX_API void grx_init_image(GRX_IMAGE* image);

/* Allocates pixels for largeur, hauteur and octets_par_pixel as they stand, all bytes 0; pixels must be null.
 * grx_libere_image frees them. Gives 1, GRX_ECHEC_PARAMETRE or GRX_ECHEC_MEMOIRE.
 * Depuis 1.1 */
GRX_API INT grx_cree_image(GRX_IMAGE* image);

/* Frees pixels that a function of this header allocated, by the sides that the record still has, and makes the record
 * empty but for octets_voulus. Gives 1, also when there is nothing; GRX_ECHEC_PARAMETRE for no record.
 * Depuis 1.1 */
GRX_API INT grx_libere_image(GRX_IMAGE* image);

/* --- whole files ------------------------------------------------------------------------- */

/* Reads a PNG or BMP file, by its content, into a record from grx_init_image whose pixels are null (else
 * GRX_ECHEC_PARAMETRE); octets_voulus says in which form. pixels is the caller's then: grx_libere_image.
 *
 * PNG: all kinds. 16 bits a channel become 8; grey becomes a palette of greys; grey or colours with one transparent
 * colour, and grey with alpha, become what they look like (palette or 4 bytes). Interlaced ones too.
 * BMP: 1, 4, 8, 24 and 32 bits without compression, rows from below or from above; 32 bits with alpha only where the
 * header says where (a mask), else as 24. Compressed ones, 16 bits and OS/2 files give GRX_ECHEC_FORMAT.
 * Reading takes less than 1 MB beside the pixels.
 * Depuis 1.1 */
GRX_API INT grx_lit_image(const char* fichier, GRX_IMAGE* image);

/* The same of the bytes of such a file. Depuis 1.1 */
GRX_API INT grx_lit_image_memoire(const unsigned char* octets, INT nombre, GRX_IMAGE* image);

/* Writes a picture. format: GRX_IMAGE_... PNG has the form of the record: palette (with alpha, if an entry has any),
 * 24 bits, or alpha. BMP has 8 bits, 24, or 32 with alpha. Gives 1, GRX_ECHEC_PARAMETRE, GRX_ECHEC_FICHIER,
 * GRX_ECHEC_FORMAT for a BMP of more than 2^32 bytes, or GRX_ECHEC_MEMOIRE.
 * Depuis 1.1 */
GRX_API INT grx_ecrit_image(const char* fichier, const GRX_IMAGE* image, INT format);

/* --- by bands ---------------------------------------------------------------------------- */

/* Opens a file for reading by bands: fills image as grx_lit_image does (octets_voulus too), but pixels stays null.
 * Gives the number of the open file, from 1, or a code; GRX_ECHEC_PLEIN when GRX_IMAGES_OUVERTES_MAX are open. Takes
 * less than 1 MB and a few rows; an interlaced PNG is held whole, since its last rows are read last.
 * Depuis 1.1 */
GRX_API INT grx_ouvre_image(const char* fichier, GRX_IMAGE* image);

/* Reads the next nb_lignes rows, from the top, into pixels (largeur * octets_par_pixel bytes each). Gives the number
 * of rows read, 0 behind the last one, or a code: GRX_ECHEC_NUMERO, GRX_ECHEC_GENRE for a file that is written,
 * GRX_ECHEC_PARAMETRE, GRX_ECHEC_FORMAT or GRX_ECHEC_MEMOIRE: no more rows come after one of the last two.
 * Depuis 1.1 */
GRX_API INT grx_lit_bande_image(INT noimage, INT nb_lignes, unsigned char* pixels);

/* Begins a file that is written by bands, of the sides, form, palette and pixels_par_metre of image, whose pixels are
 * not looked at. Gives its number, or a code. The target is touched by grx_ferme_image only.
 * Depuis 1.1 */
GRX_API INT grx_ouvre_ecriture_image(const char* fichier, const GRX_IMAGE* image, INT format);

/* Writes the next nb_lignes rows, from the top. Gives 1 or a code: GRX_ECHEC_NUMERO, GRX_ECHEC_GENRE for a file that
 * is read, GRX_ECHEC_PARAMETRE for more rows than are missing or a place that the palette lacks, GRX_ECHEC_FICHIER,
 * GRX_ECHEC_MEMOIRE: after such a place, or one of the last two, the file can only be closed.
 * Depuis 1.1 */
GRX_API INT grx_ecrit_bande_image(INT noimage, INT nb_lignes, const unsigned char* pixels);

/* Ends reading or writing; the number is free then, whatever the answer. One that is written takes the target's name:
 * 1, or GRX_ECHEC_FICHIER; with rows missing GRX_ECHEC_ABSENT, and the target stays as it was. One that is read gives
 * 1. GRX_ECHEC_NUMERO for no open file. The end of the library's work gives up all that are open.
 * Depuis 1.1 */
GRX_API INT grx_ferme_image(INT noimage);

/* Gives up a file that is written, or read: the target stays as it was. Gives 1 or GRX_ECHEC_NUMERO.
 * Depuis 1.1 */
GRX_API INT grx_abandonne_image(INT noimage);

/* --- showing ----------------------------------------------------------------------------- */

/* Draws a picture of any form with its top left at x, y, y downwards, on the screen and in the backing picture; what is
 * transparent lets through what the backing picture has there. Target as in grx_trace_image_dans_widget: type
 * GRX_CIBLE_FENETRE and a window, or any other type and a button. On 8 planes each pixel gets the nearest of the
 * library's icon, reserved and drawing colours as they are at the call. Gives 1, also when nothing of it is on the target;
 * GRX_ECHEC_NUMERO; GRX_ECHEC_ABSENT for a target without backing picture; GRX_ECHEC_PARAMETRE for no picture;
 * GRX_ECHEC_MEMOIRE.
 * Depuis 1.1 */
GRX_API INT grx_affiche_image(INT type, INT bou_fen, const GRX_IMAGE* image, INT x, INT y);

/* The same, scaled to largeur x hauteur pixels, 1 to 32767 (nearest pixel, as grx_stretch_image).
 * Depuis 1.1 */
GRX_API INT grx_affiche_image_etiree(
    INT type, INT bou_fen, const GRX_IMAGE* image, INT x, INT y, INT largeur, INT hauteur);

/* --- icons of controls ------------------------------------------------------------------- */

/* Gives a control its icon: a PNG or BMP file, the bytes of one, or a picture, of at most 1024 x 1024 pixels. The control
 * is one that shows a label: drawn, push or plain button, toggle, label, colour, dialog. The icon is shown in the
 * middle, instead of the text; the control keeps its size and cuts what is larger. What is transparent shows the control's
 * own colour. While the control is pressed (by the user, grx_enfonce_bouton, a toggle that is on) the icon is lighter; while
 * it is insensitive it is grey and faint. All three follow when the control's colour changes, by whatever call.
 * The icon is copied; it goes with the control, so that one made again under the number has none. The functions of
 * xt_gfx_f.h and xt_bou_f.h that give an icon replace it, and the other way round; grx_affecte_icone_bouton1_bouton2 copies the
 * normal look only. Give 1; GRX_ECHEC_NUMERO; GRX_ECHEC_GENRE for another kind of control; GRX_ECHEC_PARAMETRE,
 * also for a larger picture; GRX_ECHEC_FICHIER, GRX_ECHEC_FORMAT or GRX_ECHEC_MEMOIRE: the icon stays as it was.
 * Depuis 1.1 */
GRX_API INT grx_affecte_icone_bouton(INT nobou, const char* fichier);
GRX_API INT grx_affecte_icone_memoire_bouton(INT nobou, const unsigned char* octets, INT nombre);
GRX_API INT grx_affecte_icone_image_bouton(INT nobou, const GRX_IMAGE* image);

/* Takes away the icon that one of these gave: the text is shown again. Gives 1; GRX_ECHEC_NUMERO; GRX_ECHEC_ABSENT.
 * Depuis 1.1 */
GRX_API INT grx_supprime_icone_bouton(INT nobou);

/* Icons as PNG files wherever the contract reads NAME.BMP for a control with a number (icone of GRX_BOUTON, items of panels,
 * grx_installe_bitmap, grx_change_icone_bouton ...): with actif not 0, NAME.PNG (NAME.png where the name given
 * ends in small letters) is looked for first, through the host's files like the other, and shown as
 * grx_affecte_icone_bouton shows it; NAME.BMP is read when there is no such file, or none that can be read. A
 * label without a number takes it too, in its normal look. Off at first, when no other file is looked for.
 * Icons on show stay. Gives 1.
 * Depuis 1.1 */
GRX_API INT grx_affecte_icones_png(INT actif);

/* 1 when they are on, else 0.
 * Depuis 1.1 */
GRX_API INT grx_recup_icones_png(void);

/* --- pictures of what is on show ---------------------------------------------------------
 * They fill a record from grx_init_image whose pixels are null (else GRX_ECHEC_PARAMETRE), with 3 bytes a pixel in
 * true colours, on 8 planes those of the cells at the call. grx_libere_image frees it. The form wanted is not looked at. */

/* The picture of a window, or of a drawing area, from its backing picture, whatever covers it on the screen, shown or
 * not. What was drawn straight on the window, controls and nested windows are not in it. Give 1; GRX_ECHEC_NUMERO;
 * GRX_ECHEC_ABSENT without backing picture; GRX_ECHEC_PARAMETRE; GRX_ECHEC_MEMOIRE.
 * Depuis 1.1 */
GRX_API INT grx_recup_image_fenetre(INT nofen, GRX_IMAGE* image);
GRX_API INT grx_recup_image_bouton(INT nobou, GRX_IMAGE* image);

/* What the screen shows where a window is: controls, and what covers it, too. partie as below, in the window's
 * axes, y downwards from its top left. Gives what grx_recup_image_ecran gives, GRX_ECHEC_NUMERO, and
 * GRX_ECHEC_ABSENT for a window that is not shown.
 * Depuis 1.1 */
GRX_API INT grx_recup_image_ecran_fenetre(INT nofen, GRX_IMAGE* image, INT partie[4]);

/* What the screen shows in the rectangle whose lower left corner is x, y, upwards from the bottom of the screen (as
 * windows are placed), of lar x hau pixels. What lies outside the screen is cut off: the picture is the rest. partie:
 * out, x, y, width and height of what was taken, in the same axes (y of its lower edge), to be compared with what was
 * asked; may be null. Gives 1; GRX_ECHEC_ABSENT when nothing of it is on the screen; GRX_ECHEC_PARAMETRE, also for
 * a side below 1; GRX_ECHEC_MEMOIRE.
 * Depuis 1.1 */
GRX_API INT grx_recup_image_ecran(INT x, INT y, INT lar, INT hau, GRX_IMAGE* image, INT partie[4]);

GRX_FIN_C

#endif
