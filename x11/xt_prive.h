// What the library's sources share among themselves.
#pragma once

#include <X11/Intrinsic.h>

#include "display/colours.h"
#include "display/connection.h"
#include "display/context.h"
#include "events/input.h"
#include "registry/control_table.h"
#include "registry/window_table.h"
#include "drawing/control_pictures.h"
#include "windows/frame.h"
#include "windows/window_events.h"
#include "controls/contents.h"
#include "controls/control_creation.h"
#include "controls/looks.h"
#include "session/loop.h"
#include "toolkit/widgets.h"
#include "xt_bou_t.h"
#include "xt_ent_t.h"
#include "xt_fen_t.h"
#include "xt_gfx_t.h"
#include "xt_ini_t.h"
#include "xt_mot_t.h"

namespace grx {

// -- menu bar
extern XEvent evt_menu;                                       // last key event that no control took
bool forward_to_menu(const XEvent& event);                    // true when it chose an entry or opened a menu
bool was_forwarded(const XKeyEvent& event);                   // a key press that the library sent to the main window
INT key_for_application(const XEvent& event, Boolean* go_on); // its code; 0: it went to the menus

// -- panel lists
INT host_list_length(INT clef); // entries that the application has for a list, 0 for an unknown key

} // namespace grx
