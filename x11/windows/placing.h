// Place and size of a window that is being made.
#pragma once

#include "toolkit/args.h"
#include "toolkit/widgets.h"
#include "windows/window_build.h"
#include "xt_fen_t.h"

namespace grx {

void place_nested(WindowBuild& b);

void place_shell(WindowBuild& b);

void set_given_size(Args& args, const GRX_FENETRE& fen);

void set_size(Args& args, const GRX_FENETRE& fen);

/// The whole of a nested window, scroll bars included, has the place and size asked for: what was put into it meanwhile
/// made it larger or smaller.
void size_nested(const WindowBuild& b);

/// Position, size and attachments of whatever stands outermost in the parent of a nested window.
void set_place_in_parent(Args& args, const WindowBuild& b);

} // namespace grx
