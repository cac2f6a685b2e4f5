// Which decorations and functions of the window manager a window goes without, worked out from its attribute bits.
#pragma once

#include <array>
#include <cstdint>

namespace grx {

/// Bits of the Motif decoration and function masks. When `all` is set, each other bit takes something away.
namespace mwm {
inline constexpr int32_t all = 1;
inline constexpr int32_t border = 2, handles = 4, title = 8, menu = 16, minimise = 32, maximise = 64;
inline constexpr int32_t fn_resize = 2, fn_minimise = 8, fn_maximise = 16;
} // namespace mwm

struct DecorationRule {
    int32_t attribute;
    int32_t decorations;
    int32_t functions;
};

inline constexpr std::array<DecorationRule, 6> kDecorationRules{{
    {1, mwm::title, 0},
    {4, mwm::menu | mwm::minimise | mwm::maximise, 0},
    {2, mwm::border | mwm::handles, 0},
    {8, mwm::handles, mwm::fn_resize},
    {32, mwm::maximise, mwm::fn_maximise},
    {64, mwm::minimise, mwm::fn_minimise},
}};

struct Decorations {
    int32_t decorations = mwm::all;
    int32_t functions = mwm::all;
};

constexpr Decorations decorations_for(int32_t attributes) {
    Decorations result;
    for (const auto& rule : kDecorationRules) {
        if ((attributes & rule.attribute) == 0) continue;
        result.decorations |= rule.decorations;
        result.functions |= rule.functions;
    }
    return result;
}

} // namespace grx
