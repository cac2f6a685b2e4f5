// Reads the characters of a text of the application, UTF-8 or Latin-1, for texts in drawings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace grx {

/// Writes the characters of a text, at most as many as `out` takes, and returns their number: UTF-8 where it is clearly that,
/// else Latin-1. A tab becomes a blank; other control characters are left out.
std::size_t read_characters(std::string_view text, std::span<uint32_t> out);

} // namespace grx
