// The dashes of line styles, in the units that the styles are stated in.
#include "papier/dashes.h"

#include <array>
#include <numeric>

#include "xt_gfx_t.h"

namespace {

constexpr std::array<double, 4> kMixed{16, 6, 6, 6};
constexpr std::array<double, 2> kDashed{8, 8}, kShort{4, 4}, kLong{16, 16};
constexpr std::array<double, 4> kOneDot{16, 4, 1, 4};
constexpr std::array<double, 6> kTwoDots{16, 4, 1, 4, 1, 4}, kTwoDashes{16, 8, 4, 8, 4, 8};

constexpr std::array<std::span<const double>, 8> kStyles{
    std::span<const double>{}, kMixed, kDashed, kShort, kLong, kOneDot, kTwoDots, kTwoDashes};

} // namespace

namespace papier {

std::span<const double> dashes_of(INT style) {
    const bool dashed = style >= GRX_TRAIT_MIXTE && style <= GRX_TRAIT_MIXTE_2_TIRETS;
    return dashed ? kStyles[static_cast<std::size_t>(style)] : std::span<const double>{};
}

double dash_period(INT style) {
    const auto dashes = dashes_of(style);
    return std::accumulate(dashes.begin(), dashes.end(), 0.0);
}

} // namespace papier
