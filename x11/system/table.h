// Allocates and frees the fixed tables of the window and control bases. They never move, because callbacks point at
// their entries.
#pragma once

#include <algorithm>
#include <cstddef>

#include "xt_loc_f.h"

namespace grx {

/// The index of the entry of a number that is not negative.
constexpr std::size_t as_index(INT number) {
    return static_cast<std::size_t>(number);
}

template <class T, INT Count>

/// Allocates the table with cleared entries. False, with a null table, when memory is short.
bool allocate_table(T*& table) {
    table = reinterpret_cast<T*>(grx_malloc(static_cast<UNSIGNED_INT>(sizeof(T) * Count)));
    if (table == nullptr) return false;
    std::fill_n(table, Count, T{});
    return true;
}

template <class T, INT Count>
void free_table(T*& table) {
    if (table != nullptr) grx_free(reinterpret_cast<char*>(table), static_cast<UNSIGNED_INT>(sizeof(T) * Count));
    table = nullptr;
}

} // namespace grx
