/* host_f.h - the services that the library expects the application (or grx-host) to define.
 *
 * libgrxhost holds a default of each one; an application that defines any of them itself wins,
 * function by function. Texts are zero-terminated bytes in the application's encoding. Unless a
 * function says otherwise, a null text reads as "", and a null result buffer is not written. */
#ifndef HOST_F_H
#define HOST_F_H

#include <stdio.h>

#include "host_t.h"

#if defined(__GNUC__)
#define HOST_SERVICE __attribute__((visibility("default")))
#else
#define HOST_SERVICE
#endif

/* Modes of ftext_open and text_open. */
#define HOST_MODE_ECRITURE 1  /* create or empty the file and write it */
#define HOST_MODE_LECTURE 2   /* read */
#define HOST_MODE_LECT_ECRI 3 /* read and write an existing file */

#ifdef __cplusplus
extern "C" {
#endif

/* --- texts ------------------------------------------------------------------------------- */

/* Copies src without the blanks at both ends (space, tab, CR, LF).
 * dest: as large as src; may be src itself. Returns the length of the result. */
HOST_SERVICE INT str_trim(char* dest, char* src);

/* Copies src in small letters. dest: as large as src; may be src itself. Returns the length. */
HOST_SERVICE INT str_lwr(char* dest, char* src);

/* Copies src in capitals, ASCII letters only so that names in any encoding survive.
 * dest: as large as src; may be src itself. Returns the length. */
HOST_SERVICE INT str_upr(char* dest, char* src);

/* Finds sous_chaine in chaine. Returns the index from 0 of its first place, -1 when absent. */
HOST_SERVICE INT str_pos(char* chaine, char* sous_chaine);

/* Copies the characters debut to fin of src, indices from 0, both included: (d, "MSG12", 0, 2)
 * gives "MSG". Indices beyond src are cut to it. dest may be src. Returns the length. */
HOST_SERVICE INT str_sub(char* dest, char* src, INT debut, INT fin);

/* Fills dest with nb blanks and a final zero (nb + 1 bytes). Returns nb; a negative nb counts 0. */
HOST_SERVICE INT str_blanc(char* dest, INT nb);

/* Writes r with nbdec decimals, right-aligned in total characters; a number that does not fit is
 * written in full all the same. s: HOST_NOMBRE_MAX bytes. Returns 1; 0 with s empty when r is not
 * a finite number or nbdec is not 0..300. */
HOST_SERVICE INT str_ftoa(char* s, DOUBLE r, INT total, INT nbdec);

/* Puts a copy of texte into s, creating (all-zero record) or resizing its buffer; the application
 * owns it. Returns 0, or 105 when memory is short (s unchanged). */
HOST_SERVICE INT string_realloc(STRING* s, char* texte);

/* Writes a real number for an entry field: nb_deci decimals without blanks when nb_cara characters
 * are enough, else the shortest form that fits. texte: HOST_NOMBRE_MAX bytes. Returns 1. */
HOST_SERVICE INT clc_convert_to_string(DOUBLE valeur, INT nb_cara, INT nb_deci, char* texte);

/* --- files ------------------------------------------------------------------------------- */

/* Opens file nom_fic of directory adr as bytes; adr "" means that nom_fic is a whole path.
 * mode: HOST_MODE_... . Returns 0 with *fd set; -1 with *fd null when it cannot be opened, is not
 * a regular file, the name is empty or the mode unknown. Close with ftext_close. */
HOST_SERVICE INT ftext_open(FILE** fd, char* adr, char* nom_fic, INT mode);

/* Reads the next line without its line end; what goes beyond the buffer is skipped.
 * ligne: HOST_LIGNE_MAX bytes. Returns 1, or 0 at the end of the file. */
HOST_SERVICE INT ftext_lec(FILE* fd, char* ligne);

/* Closes; null is accepted. Returns 0, -1 when the last bytes could not be written. */
HOST_SERVICE INT ftext_close(FILE* fd);

/* As ftext_open on the one implicit file, closing one left open. Returns 0 or -1. */
HOST_SERVICE INT text_open(char* adr, char* nom, INT mode);

/* As ftext_lec on the implicit file. Returns 1, or 0 at its end or when none is open. */
HOST_SERVICE INT text_lec(char* ligne);

/* Closes the implicit file. Returns 0. */
HOST_SERVICE INT text_close(void);

/* Joins a directory and a name: no second '/' after a final one, and an empty adr gives nom alone.
 * resultat: HOST_CHEMIN_MAX bytes; may be adr or nom. Returns 0. */
HOST_SERVICE INT compose_adresse_fichier(char* adr, char* nom, char* resultat);

/* Gives nom with its extension replaced by ext (no dot), or with ext appended when it has none;
 * dots of directories do not count. resultat: HOST_CHEMIN_MAX bytes; may be nom. Returns 0. */
HOST_SERVICE INT nouvelle_extension(char* nom, char* ext, char* resultat);

/* Makes nom end in extension ext (no dot), in place: appended when nom has none, replaced when
 * it has another, kept when it has ext in any case; ext "" or "*" leaves nom alone.
 * nom: HOST_CHEMIN_MAX bytes, or 1000 at least. Returns 0. */
HOST_SERVICE INT verifie_extension(char* nom, char* ext);

/* Appends a name to a file list. Returns 0, 105 when memory is short or the list is full. */
HOST_SERVICE INT ajout_sfichier(SFICHIER* sfic, char* nom);

/* --- messages ---------------------------------------------------------------------------- */

/* Text of message nummess. texte: HOST_MESSAGE_MAX bytes. Returns 1; 0 with texte empty when there
 * is none, and the library then keeps the toolkit's own text. It asks for 1245 "Save",
 * 1246 "Cancel", 1250 "OK", 1251 "Filter", 1315 "Open", 1335 "Selection", 1336 "Directories",
 * 1066 "Files", and 83, the question before a file is replaced with the labels of its buttons:
 * "Replace it? -Yes -No". */
HOST_SERVICE INT litmess(INT nummess, char* texte);

/* As litmess; for applications, the library does not call it. */
HOST_SERVICE INT f_me_lire(INT nummess, char* texte);

/* Text of message nummess of a menu message file; '&' marks the mnemonic. The library asks for
 * module 0. texte: HOST_MESSAGE_MAX bytes. Returns 1; 0 with texte empty when there is none. */
HOST_SERVICE INT f_mess_menu_lire(INT module, INT nummess, char* texte);

/* --- memory ------------------------------------------------------------------------------ */

/* Allocates taille bytes, at least 1. Returns null when memory is short. Every block of the
 * library comes from here and goes back with the size that it has. */
HOST_SERVICE char* mallocC(UNSIGNED_INT taille);

/* Frees a block of mallocC or reallocC; taille is its exact size. Null is accepted. Returns 0. */
HOST_SERVICE INT freeC(char* adr, UNSIGNED_INT taille);

/* Changes the size of a block, keeping its contents; null oldadr allocates. Returns the block,
 * null when memory is short (the old block lives on). */
HOST_SERVICE char* reallocC(char* oldadr, UNSIGNED_INT oldtaille, UNSIGNED_INT newtaille);

/* Copies taille bytes from adr2 to adr1, which may overlap; nothing for taille <= 0. Returns 0. */
HOST_SERVICE INT memcpyC(void* adr1, void* adr2, INT taille);

/* --- byte order -------------------------------------------------------------------------- */

/* Value read from a little-endian file to the machine's order ... */
HOST_SERVICE UNSIGNED_INT2 pc2uxint2(UNSIGNED_INT2 v);
HOST_SERVICE UNSIGNED_INT4 pc2uxint4(UNSIGNED_INT4 v);
/* ... and the machine's value to little-endian, before it is written. */
HOST_SERVICE UNSIGNED_INT2 ux2pcint2(UNSIGNED_INT2 v);
HOST_SERVICE UNSIGNED_INT4 ux2pcint4(UNSIGNED_INT4 v);

#ifdef __cplusplus
}
#endif

#endif
