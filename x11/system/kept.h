// State that lives until the process ends and is not taken down then: the application's allocator may be gone by that
// time, and the server cleans up after itself.
#pragma once

namespace grx {

template <class T>
union Kept {
    constexpr Kept() : value{} {}
    ~Kept() {}
    T value;
};

} // namespace grx
