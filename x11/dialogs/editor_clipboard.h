// Cut, copy and paste in the editor.
#pragma once

#include <X11/Intrinsic.h>

namespace grx::editor {

/// When an event happened; the last time known when it is null or tells none.
Time time_of(const XEvent* event);

/// False when nothing is selected.
bool copy_selection(Time time);

void delete_selection(Time time);
void paste(Time time);
void cut(Time time);

} // namespace grx::editor
