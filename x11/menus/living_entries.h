// The menu entries that are alive, for those who begin to look at them after they were made.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

/// Calls for every entry of every menu, those of the bar first, the oldest first. It may call twice for one, and `call` makes
/// and ends no widgets.
void for_each_living_entry(void (*call)(Widget entry, INT no_fo));

/// True when `callback` is among those of `name`, which is one of the widget's lists of callbacks.
bool has_callback(Widget w, const char* name, XtCallbackProc callback);

/// Entries are told from other push buttons by what is called, with their number, when they are chosen.
void note_chooser(XtCallbackProc chosen);

} // namespace grx
