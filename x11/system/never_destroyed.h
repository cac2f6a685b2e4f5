// Holds state that lives until the process ends and is never destroyed. When the process ends the application's
// allocator may be gone, and the server frees what it holds by itself.
#pragma once

namespace grx {

template <class T>
union NeverDestroyed {
    constexpr NeverDestroyed() : value{} {}
    ~NeverDestroyed() {}
    T value;
};

} // namespace grx
