// The operations on the decorations of a window.
#pragma once

#include "tests/support/window_kit.h"

namespace grxtest {

using DecorationOperation = INT (*)(INT);
inline constexpr std::array<DecorationOperation, 4> decoration_operations{
    grx_supprime_titre_fenetre, grx_affiche_titre_fenetre, grx_supprime_bord_fenetre, grx_affiche_bord_fenetre};

} // namespace grxtest
