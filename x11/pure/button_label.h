// The label of a button with its mnemonic, a letter after '&', for the library's boxes.
#pragma once

#include <cstddef>
#include <string_view>

#include "pure/text.h"

namespace grx {

/// Writes the label without its marks to `out`, which has room for label.size() + 1 bytes, and returns its first
/// mnemonic, 0 for none. "&&" is one '&'; an '&' before a blank or at the end stands for itself.
constexpr char plain_label(std::string_view label, char* out) {
    char mnemonic = '\0';
    for (std::size_t i = 0; i < label.size(); ++i) {
        const char next = i + 1 < label.size() ? label[i + 1] : ' ';
        if (label[i] == '&' && !is_blank(next)) {
            ++i;
            if (mnemonic == '\0' && next != '&') mnemonic = next;
        }
        *out++ = label[i];
    }
    *out = '\0';
    return mnemonic;
}

} // namespace grx
