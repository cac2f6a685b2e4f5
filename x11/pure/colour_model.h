// Two models of a colour: red, green, blue 0..255, and hue 0..360, luminance and saturation 0..100, where the luminance
// is the largest component. Fractions are cut off, not rounded.
#pragma once

#include <array>
#include <optional>

namespace grx {

using Triple = std::array<int, 3>;

Triple hls_of(const Triple& rgb);

/// Nothing for a colour without saturation that has a hue.
std::optional<Triple> rgb_of(const Triple& hls);

} // namespace grx
