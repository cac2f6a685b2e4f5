#include "tests/support/wait.h"

#include <poll.h>

#include <algorithm>

namespace grxtest {

Milliseconds left_of(Milliseconds deadline, Clock::time_point start) {
    const auto spent = std::chrono::duration_cast<Milliseconds>(Clock::now() - start);
    return std::max(deadline - spent, Milliseconds{0});
}

bool wait_until(const std::function<bool()>& condition, const std::function<void()>& step, Milliseconds deadline) {
    const auto start = Clock::now();
    while (!condition()) {
        if (left_of(deadline, start).count() == 0) return false;
        step();
    }
    return true;
}

bool wait_readable(int descriptor, Milliseconds limit) {
    pollfd waited{descriptor, POLLIN, 0};
    return poll(&waited, 1, static_cast<int>(limit.count())) > 0;
}

} // namespace grxtest
