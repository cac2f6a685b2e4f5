// Icons of controls with transparency: laid on the control's own colour, with looks for pressed and insensitive ones.
#pragma once

#include "host_t.h"

namespace grx {

/// The control is held pressed by the application, or no longer: its icon, if it has one of these, follows.
void hold_icon_pressed(INT nobou, bool pressed);

} // namespace grx
