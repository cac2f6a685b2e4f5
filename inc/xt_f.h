/* xt_f.h - the whole interface of grx.
 *
 * It includes every functions header and declares the rest: file dialogs, text editor, output
 * devices, table choices, readers of old data files. What holds everywhere:
 * - one thread; objects are named by small numbers, freed ones being given again, lowest first;
 * - a number that names nothing makes a function do nothing and give its stated answer;
 * - texts are zero-terminated bytes in the application's encoding, null reads as "";
 * - records that are passed are not kept, their texts are copied; what the library returns stays
 *   the library's unless a function says otherwise;
 * - failures are told by results and, by number, on standard output (xt_err_f.h); nothing stops the
 *   program but the end of the connection to the display (grx_init_application). */
#ifndef XT_F_H
#define XT_F_H

#include <X11/Intrinsic.h>

#include "grx_api.h"
#include "host_t.h"
#include "xt_bou_f.h"
#include "xt_dev_t.h"
#include "xt_dir_f.h"
#include "xt_ent_f.h"
#include "xt_err_f.h"
#include "xt_fen_f.h"
#include "xt_fme_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"
#include "xt_loc_f.h"
#include "xt_msg_f.h"
#include "xt_pan_f.h"
#include "xt_tbl_t.h"
#include "xt_uti_f.h"

/* Sizes of the paths exchanged with the dialogs and the editor. */
#define GRX_CHEMIN_DIALOGUE_MAX 1000
#define GRX_MEMO_FILENAME_MAX 255

/* Results of question_suppression. */
#define GRX_QUESTION_OUI 1
#define GRX_QUESTION_NON 2
#define GRX_QUESTION_FERMEE 3

GRX_DEBUT_C

/* --- file dialogs: they run a loop of their own and return with the answer ----------------- */

/* What happens in the application's windows meanwhile is not told, except that a window went:
 * grx_digitaliseur tells that next (type 7). When the call returns its windows are gone from the
 * screen. Both hold for grx_file_editeur_bloquant too. */

/* Lets the user choose a file to read or write (scat.type_operation, HOST_CATAL_...), title
 * scat.titre. sfic_def: directory and file proposed, which is put into the field whether there is
 * such a file or not; sfiltre: the kinds of files, 20 at most. When writing, the name is put in
 * capitals and ends with the extension of the FIRST filter, whichever the user chose (a name that has
 * it in any case keeps it, in capitals), and replacing a file is asked about (question_suppression);
 * when reading, the same is tried where no file has the name as it is. A bare name, without a
 * directory, ends the dialog with 0. Names with control characters, or too long for
 * GRX_CHEMIN_DIALOGUE_MAX, are not taken. In a UTF-8 locale the lists leave out file names that are not
 * UTF-8, as Latin-1 ones with accents: these cannot be chosen. Out: the directory is stored in
 * sfic->adrs and the name appended to sfic->fics, the application's to free; *err the result of
 * ajout_sfichier. Returns 1; 0, sfic and *err untouched, when the user gives up or there is no main
 * window. */
GRX_API INT select_fichier_x11(SCATAL scat, SFICHIER sfic_def, SFILTRE sfiltre, SFICHIER* sfic, INT* err);

/* Lets the user choose a directory. rep_def: in, the one proposed; out, the choice;
 * GRX_CHEMIN_DIALOGUE_MAX bytes. Returns 1; 0, rep_def untouched, when the user gives up. */
GRX_API INT select_repertoire_x11(char* titre, char* rep_def);

/* Asks whether a file is to be replaced (message 83, or "Replace File? -Yes -No"), under the title
 * of the file dialog on show, else of the main window; Return answers no. Returns
 * GRX_QUESTION_OUI, _NON (also when memory is short) or _FERMEE. */
GRX_API INT question_suppression(void);

/* Gives the name of the preview of a file: the same with the extension "BMP". nombitmap:
 * HOST_CHEMIN_MAX bytes. Returns 1 when that file can be read, else 0. */
GRX_API INT recup_bitmap_fichier(char* nomfic, char* nombitmap);

/* Shows a bitmap file on a button's widget; one that cannot be read leaves it as it is. */
GRX_API void affiche_bitmap_fichier(char* nom_fic, Widget wid);

/* --- text editor: grx_debut_editeur, grx_editeur, then one of the file functions ------------ */

/* A text that could not be saved stays unsaved, under the name it had; a message beside the editor
 * gives the reason, and the bell rings. Pasting waits at most a second for the program that has the
 * clipboard, and holds nothing up meanwhile. */

/* Whole name of the file last closed in the editor, cut to its size; "" before. */
extern GRX_API char memo_filename[GRX_MEMO_FILENAME_MAX];

/* Reserves the one editor. Returns 1, or 0 when it is in use. */
GRX_API INT grx_debut_editeur(void);

/* Opens its window, empty and closed for typing, over the main window. Returns 0 always, also when it
 * is not reserved, already open, or there is no main window. */
GRX_API INT grx_editeur(void);

/* Opens file name of directory adr in it; a name "" opens nothing. Returns 0. */
GRX_API INT grx_file_editeur(char* adr, char* name);

/* The same, then handles events until the editor is closed. When the file was closed under another
 * name, adr and name receive it, split at its last '/': GRX_MEMO_FILENAME_MAX bytes each; a name
 * under which nothing was ever read or written is not given. Returns 1 when the editor was left by
 * its exit entry with the text saved, else 0; 0 also when there is no such file. */
GRX_API INT grx_file_editeur_bloquant(char* adr, char* name);

/* Closes the editor, losing what is not saved. Returns 1, or 0 when there is none. */
GRX_API INT grx_fin_editeur(void);

/* --- output devices ------------------------------------------------------------------------ */

/* There is no printer here: these answer as one that has a page from 0, 0 to 1, 1 and draw
 * nothing. getimpdim writes 0, 0, 1, 1 and returns 1. */
GRX_API INT getimpdim(INT* a, INT* b, INT* c, INT* d);
GRX_API DOUBLE getimpstepx(void); /* 1.0 */
GRX_API DOUBLE getimpstepy(void); /* 1.0 */
GRX_API INT getimpnbpen(void);    /* reserved and drawing colours together */
GRX_API INT getimppalette(void);  /* 1 */
GRX_API INT getimpwidth(void);    /* 1 */

/* InitDeviceOutput sets device_output to 0 and returns 1; the next four return 1; the last 0. */
GRX_API INT InitDeviceOutput(void);
GRX_API INT ModifyDeviceOutput(GRX_ARGS_LIBRES);
GRX_API INT StartDocumentOutput(GRX_ARGS_LIBRES);
GRX_API int EndDocumentOutput(GRX_ARGS_LIBRES);
GRX_API INT ReleaseDeviceOutput(GRX_ARGS_LIBRES);
GRX_API INT ActualiseQueueReseau(void);

/* Do nothing. */
GRX_API void imp_trace_point(GRX_POINT point);
GRX_API void imp_trace_segment(GRX_SEGMENT segment);
GRX_API void imp_trace_polyline(GRX_POLY poly);
GRX_API void imp_trace_rectangle(GRX_RECTANGLE rect);
GRX_API void imp_trace_arc(GRX_ARC arc);
GRX_API void imp_remplit_rectangle(GRX_RECTANGLE rect);
GRX_API void imp_remplit_arc(GRX_ARC arc);
GRX_API void imp_remplit_polygone(GRX_POLY poly);
GRX_API void imp_remplit_triangle(GRX_POLY poly);
GRX_API void imp_trace_texte(GRX_TEXTE texte);
GRX_API void imp_stretch_image(uchar* pixels24bits, uchar* pixels8bits, INT largeur, INT hauteur, INT dx, INT dy,
    INT l_image_fin, INT h_image_fin);
GRX_API void LoadAbortPlotterComm(INT no_fo_prec, INT no_fo, char* chn);

/* Returns null: there is no device message; *nummess is untouched. */
GRX_API char* getDevMessOrChn(INT type, INT soustype, INT* nummess);

/* Replaces every blank by "_", in place. Returns 0. */
GRX_API INT remplace_blancs(char* chaine);

/* Hands a plot file to the command "pltspool directory file plotter format port" and waits for it.
 * typesortie: GRX_SORTIE_TRACEUR, others do nothing and return 0. Blanks in nplotter and nformat
 * are replaced by "_" in the caller's texts; the line settings are not used. Returns the shell's
 * status as system() gives it, 0 = done. */
GRX_API INT OutputFileOnPort(INT typesortie, char* tmpdir, char* tmpfile, char* nplotter, char* nformat, INT nport,
    INT nvitesse, INT nbitdonnees, INT nparite, INT nstopbits, INT ctrlflux);

/* --- choice control of the tables ---------------------------------------------------------- */

/* These work on the table Itbl of Taffiche; nothing when Itbl is outside 0..GRX_NB_TABLES-1.
 * All return 0. */

/* Forget the controls of all tables, or of table ind, without destroying them; for the start. */
GRX_API INT grx_tbl_init_boutons_choix(void);
GRX_API INT grx_tbl_init_bouton_choix(INT ind);

/* Builds a drop-down choice of nb texts in window nofen at pox, poy (pixels from its top left),
 * showing choice idef at first, counted from 1, others = the first. Fills nb_choix and tbou_choix of
 * the table. Choosing posts type 6 with nofen -1, function number nofo and valeur = the choice from 1. */
GRX_API INT grx_tbl_cree_boutons_choix(INT nofen, INT pox, INT poy, INT nofo, INT nb, char** tab, INT idef);

/* Destroys the control, and frees tbou_choix. */
GRX_API INT grx_tbl_detruit_boutons_choix(void);

/* Destroys and creates. */
GRX_API INT grx_tbl_change_boutons_choix(INT nofen, INT pox, INT poy, INT nofo, INT nb, char** tab, INT idef);

/* --- readers of an older generation of data files: read nothing ---------------------------- */

/* Returns 1. */
GRX_API INT reconnait_fichier_domoplanix(GRX_ARGS_LIBRES);
/* Return 0. */
GRX_API INT ReadOldDaoDomoplanix(GRX_ARGS_LIBRES);
GRX_API INT ReadOldHuiDomoplanix(GRX_ARGS_LIBRES);
GRX_API INT ReadOldAccDomoplanix(GRX_ARGS_LIBRES);
GRX_API INT ReadOldFtvDomoplanix(GRX_ARGS_LIBRES);
GRX_API INT ReadOldNivDomoplanix(GRX_ARGS_LIBRES);
GRX_API INT ReadOldB3DDomoplanix(GRX_ARGS_LIBRES);

/* --- Toolkit side: callbacks, exported for applications that install them themselves --------- */

/* Browse callback of a file list; client_data: the preview button, which shows the bitmap that goes
 * with the chosen file. */
GRX_API void grx_element_fileliste_clique(Widget w, XtPointer client_data, XtPointer call_data);

/* Destroy callback of the editor's window: frees the editor. */
GRX_API void grx_editeur_est_detruit(Widget w, XtPointer client_data, XtPointer call_data);

GRX_FIN_C

#endif
