/* xt_ent_f.h - input: the digitizing routine and what stands around it.
 *
 * An application's loop:  while (...) if (grx_digitaliseur(&evt, 1)) dispatch(&evt);
 * There is one pending event, evt_global: handlers fill it, grx_digitaliseur copies it out, and a
 * second one of the same pass replaces the first. Fields that an event type does not use keep
 * older values. One thread only. A function whose result is not described returns 0. */
#ifndef XT_ENT_F_H
#define XT_ENT_F_H

#include <X11/Intrinsic.h>

#include "grx_api.h"
#include "host_t.h"
#include "xt_ent_t.h"

GRX_DEBUT_C

/* Takes one X event, lets the toolkit act on it, and gives the event record that came of it.
 * evt: out. attente: non-zero waits for an X event; 0 returns at once when none is there (due
 * timers are run). Returns 1 when evt holds an event; 0 with evt's type 0 otherwise, which also
 * happens while waiting, since many X events post nothing. The close request of a window whose
 * fen_opengl flag is set comes as type 7 and the window stays. */
GRX_API INT grx_digitaliseur(GRX_EVENEMENT* evt, INT attente);

/* The same, except that while a window is to be digitized (below) the close request of any other
 * window is dropped with a beep and gives 0; fen_opengl is not looked at. */
GRX_API INT grx_digitaliseur_fenetre(GRX_EVENEMENT* evt, INT attente);

/* Set and get the window that grx_digitaliseur_fenetre is restricted to, -1 (at first) = none. */
GRX_API INT grx_affecte_fenetre_a_digitaliser(INT nofen);
GRX_API INT grx_recup_fenetre_a_digitaliser(void);

/* Empties a record: type 0, nobou -1, etat 0; its other fields stay as they are. */
GRX_API INT grx_init_evenement(GRX_EVENEMENT* evt);

/* Looks for a key press (type GRX_EVT_CARAC_APPUI) or a mouse press (GRX_EVT_BOUTON_APPUI) only,
 * and handles it. bloquant: non-zero waits for one; no timer runs and nothing is redrawn meanwhile.
 * All other events stay in the queue: an application that polls with this function alone lets them pile
 * up, so let grx_digitaliseur or grx_flush_tous_evenements take them now and then. Returns 1 with the
 * event in evt; 2 when a mouse press was asked without waiting and a key press was found; 0 when there
 * is none or for any other type, evt's type then being 0. */
GRX_API INT grx_cherche_evenement(INT type, GRX_EVENEMENT* evt, INT bloquant);

/* Drops the pending redraw events of a window; type: GRX_EVT_AFFICHAGE, others drop nothing. */
GRX_API INT grx_supprime_tous_evenement_pour_fenetre(INT type, INT nofen);

/* Handles every pending X event except client messages, which are dropped. */
GRX_API INT grx_flush_tous_evenements(void);

/* Gives the key code of an X key event: the byte of the character (accented letters are their
 * Latin-1 byte in every locale), the keysym of function and cursor keys, Delete and Insert,
 * GRX_TOUCHE_TAB, GRX_TOUCHE_BACKTAB. Returns 1 with it in *touche; 0 with *touche 0 for modifiers
 * and keys without a code.
 * ev's state as it stands, locks and layout group with the modifiers, is the place in the core
 * keyboard mapping that must hold a symbol while Shift, Control or Alt is held. Where it holds none
 * the result is 0 and the state in ev is CUT to these three: pass a copy when the event is needed
 * afterwards. So Shift+A with NumLock on gives 0 here. Key events (type 3) do not depend on the
 * locks and the group: they carry the capital. */
GRX_API INT grx_translate_touche(XEvent* ev, INT* touche);

/* Modifier key held now: GRX_CLAVIER_SHIFT, GRX_CLAVIER_CONTROL, GRX_CLAVIER_ALT, the first that
 * holds in this order, or GRX_CLAVIER_AUCUN. */
GRX_API INT grx_recup_etat_clavier(void);

/* Sets the double-click tolerances (10 pixels in x, in y in proportion to the screen) and time.
 * Until it is called the tolerances are 0. */
GRX_API INT grx_init_double_clic(void);

/* Takes the double-click time from the setting (grx_affecte_cst_dc, xt_ini_f.h). */
GRX_API INT grx_reinit_double_clic(void);

/* Decides whether the click just read is the first of a double click, by reading further events,
 * which are lost, for the double-click time.
 * x, y, bouton: position and mouse button of the first click as its event gave them. In every mode a
 * control activated (type 6) in time is a double click, and too late is _FONCTION_TARD; a press of
 * another mouse button is _AUTRE_BOUTON; nothing in time is _DELAI. Besides, by mode:
 *   GRX_DCLIC_MODE_RELACHE (0)  a release of any button in time is a double click, too late is _TARD; a
 *                               move beyond the tolerances is _DEPLACE. ONE quick release counts: after
 *                               a press, read its own release before the call;
 *   1, 2                        nothing else: presses of the same button, releases and moves go by;
 *   GRX_DCLIC_MODE_APPUI (3)    a press of the same button in time is a double click, too late is _TARD.
 * Returns GRX_DCLIC_DOUBLE (0) for a double click, else GRX_DCLIC_... for why not. */
GRX_API INT grx_double_clic(INT mode, INT x, INT y, INT bouton);

/* Gives the position of the pointer on the screen, in pixels, y upwards from the bottom.
 * Returns the screen height. */
GRX_API INT grx_recup_position_absolue_souris(INT* x, INT* y);

/* Reads events, which are lost, until the first redraw event of the window, one second at most. */
GRX_API INT grx_attend_creation_fenetre(INT nofen);

/* Sends the last key press again, to a button, which gets the focus. Nothing for an unknown button
 * or the one that had it. */
GRX_API INT grx_envoie_dernier_evenement_a_bouton(INT nobou);

GRX_FIN_C

#endif
