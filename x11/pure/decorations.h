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

/// Attribute bits of a window: what it is to be without.
namespace without {
inline constexpr int32_t title = 1, border = 2, boxes = 4, resizing = 8, maximising = 32, minimising = 64;
} // namespace without

struct DecorationRule {
    int32_t attribute;
    int32_t decorations;
    int32_t functions;
};

inline constexpr std::array<DecorationRule, 6> kDecorationRules{{
    {without::title, mwm::title, 0},
    {without::boxes, mwm::menu | mwm::minimise | mwm::maximise, 0},
    {without::border, mwm::border | mwm::handles, 0},
    {without::resizing, mwm::handles, mwm::fn_resize},
    {without::maximising, mwm::maximise, mwm::fn_maximise},
    {without::minimising, mwm::minimise, mwm::fn_minimise},
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
