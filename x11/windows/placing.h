// Works out place and size of a window that is being made, for the steps of its creation.
#pragma once

#include "toolkit/args.h"
#include "windows/window_build.h"
#include "xt_fen_t.h"

namespace grx {

/// Works out the position of a nested window in its parent.
void place_nested(WindowBuild& b);

/// Works out the position of a top-level window on the screen, where the frame has room too.
void place_shell(WindowBuild& b);

/// Sets the sides that the application gave; a negative one is left to the toolkit.
void set_given_size(Args& args, const GRX_FENETRE& fen);

/// The same for a shell, which may follow its contents when the application gave no side.
void set_wanted_size(Args& args, const GRX_FENETRE& fen);

/// Gives a nested window with its scroll bars the place and size that were asked for. What was put into it since made
/// it larger or smaller.
void size_nested(const WindowBuild& b);

/// Sets position, size and attachments of the outermost widget of a nested window.
void set_place_in_parent(Args& args, const WindowBuild& b);

} // namespace grx
