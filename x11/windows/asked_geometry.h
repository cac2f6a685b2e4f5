// Size, place and title that the user gave the main window on the command line, for the steps of making a window.
#pragma once

#include "windows/window_build.h"

namespace grx {

/// The description of a window that is to be made, with what the user gave the main window in place of the
/// application's.
GRX_FENETRE as_user_wants(const GRX_FENETRE& described);

/// Takes the user's place for the window that is being made, as text for the toolkit; false when it is not the main
/// window or has no place of the user's.
bool take_users_place(const WindowBuild& b);

/// Notes that a window has been made: what the user gave holds for one window only.
void note_made(const GRX_FENETRE& described);

/// True for the window that stands where the user wants it.
bool stands_where_user_wants(INT nofen);

} // namespace grx
