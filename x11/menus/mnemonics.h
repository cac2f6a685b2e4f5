// The letters that choose in an open menu.
#pragma once

#include <X11/Intrinsic.h>

#include "toolkit/args.h"

namespace grx {

/// The key symbol of a letter of Latin-1. None for GRX_MENU_SANS_MNEMO, and for one that this keyboard does not have: the
/// toolkit warns of it.
KeySym mnemonic_key(char letter);

/// The same letter, capital or small, as it stands in a label; none when it does not.
KeySym mnemonic_in(const char* label, KeySym wanted);

void set_mnemonic(Args& args, char letter);

} // namespace grx
