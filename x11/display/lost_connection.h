// What is done when the connection is lost, before the process ends: the rooms forget what they made on it, so that the
// library answers as before its start, and the application is called.
#pragma once

#include "grx_plus_diagnostic.h"

namespace grx {

/// Has `hide` called when the connection is lost; noting it again changes nothing. `hide` brings the state of its file back
/// to what it is in a fresh process, and frees nothing: the calls that are under way may still hold it.
void at_lost_connection(void (*hide)());

/// Remembers memory that is hidden and stays, for tools that look for memory which nobody points at.
void keep_hidden(void* memory);

/// Sets the application's function, null for none; false, with nothing changed, once the connection is lost.
bool set_rescue(GRX_FONCTION_SECOURS function, void* data);

/// Has the rooms forget and calls the application's function, the first time and if there is one.
void call_rescue();

/// Whether the application's function was called: from then on no display opens, not even where another server has taken
/// the place of the lost one.
bool rescue_was_called();

} // namespace grx
