/* grx_plus_calques.h - additions: layers above a drawing, and scrolling it.
 *
 * A layer is what an application shows above a drawing for a while: a rubber band, a snap mark, a dimension while
 * dragging. It is drawn with the ordinary primitives of windows between grx_commence_calque and grx_termine_calque,
 * in their colours, widths and dashes; it can be moved, hidden and taken away, and what is below comes back as it
 * was, without the application drawing it again. Nothing flickers, and nothing is asked of the server meanwhile.
 *
 * Layers belong to graphic windows (GRX_FEN_GRAPHIQUE) that have their backing picture. Each window has
 * GRX_NB_CALQUES of them, numbered from 0; a higher number is above a lower one, all are above the drawing and
 * below the controls that stand in the window. They are on the screen only, never in the backing picture.
 *
 * What is below is what the screen shows without the layers, where it was drawn on the screen as well as where it
 * came from the backing picture; of parts that another window covers it is the backing picture. A layer stays where
 * it is, above, when the window is exposed, moved or resized (from the window's upper left corner), when
 * grx_affiche_bitmap_backingstore, grx_trace_image or a picture show something new, and when grx_defile_fenetre
 * scrolls. While the application draws on the screen itself, memory drawing being off, the window's layers are taken
 * away; they are above again before the next event is read. grx_memorise_bitmap_backingstore, grx_sauve_fenetre and
 * grx_recup_image get the drawing without its layers, the pictures of the screen with them. An application that draws
 * into the window with Xlib itself, while layers are shown, hides them before and shows them afterwards.
 *
 * Axes: x to the right, y DOWNWARDS, in window pixels, as in all primitives.
 * Codes (grx_plus_erreurs.h): GRX_ECHEC_AFFICHAGE before start-up, GRX_ECHEC_NUMERO for the number of no window, or
 * of no layer (0..GRX_NB_CALQUES-1), GRX_ECHEC_GENRE for a window that is not graphic or whose backing picture was
 * taken away, GRX_ECHEC_MEMOIRE when memory is short here or in the server. */
#ifndef GRX_PLUS_CALQUES_H
#define GRX_PLUS_CALQUES_H

#include "grx_api.h"
#include "host_t.h"

#define GRX_NB_CALQUES 8      /* layers of a window */
#define GRX_TOUS_CALQUES (-1) /* instead of the number of a layer, where it says so */

/* A rectangle in window pixels, y downwards. It stays these four members for good, hence no taille. */
typedef struct GRX_ZONE {
    INT x; /* upper left corner */
    INT y;
    INT lar;
    INT hau;
} GRX_ZONE;

GRX_DEBUT_C

/* --- layers ------------------------------------------------------------------------------ */

/* From here on all that is drawn into window nofen goes into layer calque and not to the screen, memory drawing or
 * not: grx_trace_point, ..segment, ..rectangle, ..arc, ..polyline, grx_remplit_rectangle, ..arc, ..polygone,
 * ..triangle, grx_ecrit_fenetre, grx_efface_chaine, and the texts of grx_plus_textes.h; not pictures. Other windows
 * and controls are drawn as always, and remplit_tableau_polygone and ..triangles draw on the window drawn to last.
 * What the layer held before stays on show until grx_termine_calque. One layer is drawn at a time: GRX_ECHEC_OCCUPE.
 * Gives 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_commence_calque(INT nofen, INT calque);

/* Ends that, and shows the layer in the place of what it held before, at once and where it was drawn; a layer that
 * was moved before is at its place again, one that was hidden stays so. Nothing drawn since: the layer is empty, as
 * by grx_efface_calque.
 * GRX_ECHEC_ABSENT when no layer is being drawn, also when its window has gone meanwhile; GRX_ECHEC_MEMOIRE when
 * there was none for all of it, and then the layer is what it was before. Gives 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_termine_calque(void);

/* Moves a layer by dx, dy from where it is, at once. What is moved out of the window is kept.
 * A frame costs a few requests and what the layer itself takes to draw, whatever the drawing below: layers of up to
 * some thousand primitives follow the pointer.
 * GRX_ECHEC_ABSENT for a layer that holds nothing; GRX_ECHEC_PARAMETRE, nothing moved, when it would be more than
 * 1 000 000 pixels from where it was drawn. Gives 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_deplace_calque(INT nofen, INT calque, INT dx, INT dy);

/* Hides a layer without losing it; shows it again. calque may be GRX_TOUS_CALQUES, all that hold something.
 * GRX_ECHEC_ABSENT for a layer that holds nothing; hiding or showing twice is no error. Gives 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_cache_calque(INT nofen, INT calque);
GRX_API INT grx_affiche_calque(INT nofen, INT calque);

/* Takes a layer away, from the screen and for good; GRX_TOUS_CALQUES: all of the window. What the drawing shows
 * there is back at once. A layer that is hidden or never was is not hidden afterwards; when one is being drawn it
 * goes on. Windows that end take their layers with them. Gives 1, also when there was nothing, or a code.
 * Depuis 1.1 */
GRX_API INT grx_efface_calque(INT nofen, INT calque);

/* --- panning ----------------------------------------------------------------------------- */

/* Scrolls what a graphic window shows, on the screen and in its backing picture, by dx to the right and dy
 * downwards; layers stay where they are. The parts that came to light are emptied in the window's background, on
 * both, and given: zones, room for 2, gets them, nb their number, 0 to 2; they do not overlap, and are the whole
 * window when it is scrolled by more than its size. Either pointer may be null. What a window in front covers is
 * scrolled as well: it is right when that goes. What was drawn on the screen only is scrolled there.
 * The application then draws these parts, each between grx_limite_trace and grx_libere_limite_trace.
 * Gives 1 or a code; zones and nb are set to nothing then.
 * Depuis 1.1 */
GRX_API INT grx_defile_fenetre(INT nofen, INT dx, INT dy, GRX_ZONE* zones, INT* nb);

/* Holds what is drawn into window nofen to a rectangle: primitives, texts and pictures, on the screen and in
 * memory, the emptying by grx_alloue_image and grx_trace_image, and what grx_affiche_bitmap_backingstore and
 * grx_trace_image show. So a part is drawn anew by limiting, grx_alloue_image, drawing, grx_desalloue_image,
 * grx_affiche_bitmap_backingstore. Other windows, controls, layers, exposures and grx_efface_zone_graphique are not
 * held. In memory drawing goes by the window that the primitive names. One limit at a time: another replaces it, and
 * it goes with its window. Drawing costs no more while it holds; g_c may carry it, but grx_affecte_gc and
 * grx_reinit_gc give g_c without it.
 * x, y may lie outside the window; GRX_ECHEC_PARAMETRE for lar or hau below 1. Works for windows of any kind.
 * Gives 1 or a code.
 * Depuis 1.1 */
GRX_API INT grx_limite_trace(INT nofen, INT x, INT y, INT lar, INT hau);

/* Ends the limit. Gives 1, also when there was none.
 * Depuis 1.1 */
GRX_API INT grx_libere_limite_trace(void);

GRX_FIN_C

#endif
