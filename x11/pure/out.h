// Answers through pointers, any of which the caller may leave null.
#pragma once

namespace grx {

template <class T, class Value>
void give(T* where, Value value) {
    if (where != nullptr) *where = static_cast<T>(value);
}

} // namespace grx
