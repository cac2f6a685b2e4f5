/* grx_plus_session.h - additions: asking before a window closes, and the end of the library's work. */
#ifndef GRX_PLUS_SESSION_H
#define GRX_PLUS_SESSION_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

/* Asks before a window closes. From now on the window manager's request to close window nofen (its menu,
 * its button, Alt+F4) changes nothing on the screen and gives a record GRX_EVT_FERMETURE, with the
 * number in the member destruction, as soon as the digitizing loop is asked for records. What becomes of the
 * window is the application's: grx_detruit_fenetre, or nothing.
 *
 * nofen: a window of any kind with a shell of its own. etat: 0 = the request destroys the window, as it
 * is without this call; anything else = ask. The setting ends with the window: a later window of the same number
 * begins without it. While a record of the window waits to be delivered, further requests add none; it
 * waits no longer once the window is gone or etat has become 0.
 *
 * - grx_digitaliseur_fenetre: a request for another window than the one chosen is dropped with a beep, as
 *   always, and gives no record.
 * - A dialog that returns with an answer (files, directories, editor) stays while the window is asked
 *   for; the record comes when the dialog has returned. The same holds for grx_double_clic and
 *   grx_attend_creation_fenetre, which keep no records of types below 200 but leave these.
 * - grx_flush_tous_evenements drops the requests that wait on the connection, as always.
 * - A window whose record has its flag fen_opengl set goes on giving type 7 to grx_digitaliseur, and this
 *   record in every other loop.
 * - A client that destroys the window by its own means asks nobody: type 7 comes.
 *
 * Gives 1; GRX_ECHEC_NUMERO for a number without a window; GRX_ECHEC_GENRE for a nested window, which has
 * no shell to be closed.
 * Depuis 1.1 */
GRX_API INT grx_affecte_demande_fermeture(INT nofen, INT etat);

/* 1 when window nofen asks before it closes, 0 when not, GRX_ECHEC_NUMERO for a number without a window.
 * Depuis 1.1 */
GRX_API INT grx_recup_demande_fermeture(INT nofen);

/* Ends the library's work. Everything that it owns is freed: windows with their controls, menus, panels
 * and dialogs (numbers, shells, callbacks; no records tell of them), both bases, the editor, fonts, colours,
 * cursors, pixmaps; waiting records; then the connection to the display and the toolkit's application context are closed.
 * The state afterwards is that of a process that has not called the library: the same calls as the first time start it again,
 * on the display that DISPLAY names then, which may be another with another number of planes. As often as
 * one likes.
 *
 * - Settings (colours, sizes, font, directories of icons, what INI_SYST.DAT said) are back at their
 *   defaults: an application that has set or read them does so again.
 * - What was said before start-up is forgotten too and must be said again: identity, icons, arguments, the
 *   rescue function. grx_arguments takes its words out of argv: keep a copy of argv, or what
 *   grx_recup_argument gives, to say them again; without that DISPLAY counts. The trace goes on.
 * - The globals are what they are at first: x11_disp, contexte, x11_vis, fontlist, fontstruct, gc, g_c null,
 *   MAXOBJETFEN 0, evt_global without type. What an application has kept of them, and any widget, pixmap or
 *   number, must not be used again.
 * - What belongs to the host stays: its state (sstate, istate ...), its files, its locale, its memory; what it made with
 *   Xt in application contexts of its own as well. Timers, inputs and work procedures that it added to
 *   contexte, and shells that it made on x11_disp, end with them.
 *
 * Gives 1, also when the library was not started; GRX_ECHEC_OCCUPE, with nothing changed, when it is called
 * from inside: from a callback, handler or timer that runs in a loop of the library or is dispatched by
 * the toolkit, from the end of the connection, or from a second call. Return a sign to the application's own
 * loop and call it there. It cannot know of timers, inputs and work procedures in a loop that the
 * application itself runs on contexte, nor of functions of the host that the library calls (memory, files, messages):
 * call it from none of these.
 * Depuis 1.1 */
GRX_API INT grx_termine_application(void);

GRX_FIN_C

#endif
