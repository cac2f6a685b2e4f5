// Keys of the menus.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

bool forward_to_menu(const XEvent& event);
bool was_forwarded(const XKeyEvent& event);
INT key_for_application(const XEvent& event, Boolean* go_on);

} // namespace grx
