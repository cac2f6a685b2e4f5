// A text of the application that the library keeps.
#pragma once

#include <cstring>

#include "system/block.h"

namespace grx {

/// A copy of a text in a line of a table, which moves its lines as bytes: freed by hand.
struct OwnText {
    char* text;
    UNSIGNED_INT bytes;

    const char* c_str() const { return text != nullptr ? text : ""; }

    /// Replaces the text; false, with nothing changed, when memory is short.
    bool set(const char* given) {
        Block<char> copy = Block<char>::raw(std::strlen(given) + 1);
        if (!copy) return false;
        std::memcpy(copy.data(), given, copy.size());
        free();
        bytes = static_cast<UNSIGNED_INT>(copy.size());
        text = copy.release();
        return true;
    }

    void free() {
        if (text != nullptr) grx_free(text, bytes);
        text = nullptr;
        bytes = 0;
    }
};

} // namespace grx
