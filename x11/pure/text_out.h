// Gives texts to callers who bring the room for them and want to know how much it takes.
#pragma once

#include <cstdint>
#include <string_view>

#include "pure/text.h"

namespace grx {

/// Copies what fits in `size` bytes, with its final zero, and returns the length of the whole text. Without room nothing
/// is written.
inline int32_t give_text(std::string_view text, char* out, int32_t size) {
    if (out != nullptr && size > 0) copy_text(out, static_cast<std::size_t>(size), text);
    return static_cast<int32_t>(text.size());
}

} // namespace grx
