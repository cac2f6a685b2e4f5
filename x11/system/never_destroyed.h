// State that lives until the process ends and is not taken down then: the application's allocator may be gone by that
// time, and the server cleans up after itself.
#pragma once

namespace grx {

template <class T>
union NeverDestroyed {
    constexpr NeverDestroyed() : value{} {}
    ~NeverDestroyed() {}
    T value;
};

} // namespace grx
