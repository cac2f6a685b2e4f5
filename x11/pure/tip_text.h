// Breaks a text into lines that are not too long, for tips.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace grx {

constexpr std::size_t kWrapColumns = 60;
constexpr std::size_t kWrapLines = 24;
constexpr std::size_t kWrappedMost = kWrapLines * (kWrapColumns + 1) + sizeof "...";

/// Writes `text` with a line feed wherever a line ends, with a final zero: at its own line feeds, else at the last
/// blank that fits, else in the word, never within a character of several bytes. What is left after the last line is
/// cut, which three dots tell.
void wrap_tip(std::string_view text, std::span<char, kWrappedMost> out);

} // namespace grx
