// Finds out which public function the application is in, for the trace. It looks through the stack and so costs nothing
// until it is asked.
#pragma once

#include <array>

namespace grx {

struct PublicCall {
    std::array<char, 128> name{}; // the function's, else where it is; empty when the library was not called
    bool direct = false;          // the application's call, with no toolkit between it and here
};

/// The public function that the application called, from anywhere below it: also inside a handler of the toolkit or of
/// Xlib.
PublicCall public_call();

} // namespace grx
