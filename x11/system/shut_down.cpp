// The list of what is to be done when the library shuts down, for all rooms.
#include "system/shut_down.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>

namespace grx {

namespace {

constexpr std::size_t kMost = 128; // more than there are files with a state
std::array<void (*)(), kMost> noted{};
std::size_t count = 0;

} // namespace

void at_shut_down(void (*forget)()) {
    const auto end = noted.begin() + static_cast<std::ptrdiff_t>(count);
    if (std::find(noted.begin(), end, forget) != end) return;
    assert(count < kMost);
    noted[count++] = forget;
}

void run_shut_down() {
    while (count > 0) noted[--count]();
}

} // namespace grx
