// Records of the additions that begin with their size, so that later releases can add members: reading one that the
// application has filled, and filling one of its.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <type_traits>

#include "host_t.h"

namespace grx {

/// True for a record whose size is that of some release. `first` is the size that it had in the first one.
template <class Record>
constexpr bool has_known_size(const Record* record, std::size_t first = sizeof(Record)) {
    return record != nullptr && record->taille >= static_cast<INT>(first);
}

/// Reads the members that both know into `into`, whose others stay; false, with nothing read, for another size.
template <class Record>
bool read_sized(const Record* given, Record& into, std::size_t first = sizeof(Record)) {
    static_assert(std::is_trivially_copyable_v<Record>);
    if (!has_known_size(given, first)) return false;
    std::memcpy(&into, given, std::min(static_cast<std::size_t>(given->taille), sizeof(Record)));
    into.taille = static_cast<INT>(sizeof(Record));
    return true;
}

/// Fills the members that both know; the record keeps its size. False, with nothing written, for another size.
template <class Record>
bool write_sized(Record* out, const Record& value, std::size_t first = sizeof(Record)) {
    static_assert(std::is_trivially_copyable_v<Record>);
    if (!has_known_size(out, first)) return false;
    const INT size = out->taille;
    std::memcpy(out, &value, std::min(static_cast<std::size_t>(size), sizeof(Record)));
    out->taille = size;
    return true;
}

} // namespace grx
