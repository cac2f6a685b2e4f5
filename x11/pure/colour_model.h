// Two models of a colour, and how one becomes the other. The first has red, green and blue in 0..255. The second has
// the hue in 0..360, luminance and saturation in 0..100; its luminance is the largest component. Fractions are cut off.
#pragma once

#include <array>
#include <optional>

namespace grx {

using Triple = std::array<int, 3>;

Triple hls_of(const Triple& rgb);

/// Nothing when a colour has a hue but no saturation.
std::optional<Triple> rgb_of(const Triple& hls);

} // namespace grx
