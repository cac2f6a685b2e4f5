// Numbers as users type them, whatever the locale: with a decimal point or comma. For prompts.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace grx {

/// The number that a text says, with nothing but blanks around it; nothing for any other text, for one that is too large
/// for a double, and, where no decimals are allowed, for one with a point, a comma or an exponent.
std::optional<double> typed_number(std::string_view text, bool decimals_allowed);

using NumberText = std::array<char, 400>; // the largest double has 309 digits before the point

/// The number with `decimals` digits after the point, with as many as it takes to read it back for -1.
NumberText number_text(double value, int decimals);

/// "Entre 1 et 100" and the like in Latin-1; empty when there is no bound. Bounds beyond `widest` count as none.
NumberText bounds_text(double least, double most, double widest);

} // namespace grx
