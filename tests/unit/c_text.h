// Literals and strings for an interface that takes char*.
#pragma once

#include <string>

namespace grxtest {

// Only for functions that must not write: they would fail on a literal.
inline char* in(const char* text) {
    return const_cast<char*>(text);
}
inline char* in(const std::string& text) {
    return const_cast<char*>(text.c_str());
}

} // namespace grxtest
