// Writes results through pointers of the caller, for functions that let the caller pass null for what it does not want.
#pragma once

namespace grx {

template <class T, class Value>
void give(T* where, Value value) {
    if (where != nullptr) *where = static_cast<T>(value);
}

} // namespace grx
