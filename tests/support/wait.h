// Waiting on a condition with a deadline: the only way a test waits for anything.
#pragma once

#include <chrono>
#include <functional>

namespace grxtest {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

// Long enough for a sanitizer build on a busy machine; only a failing test ever waits that long.
inline constexpr Milliseconds default_deadline{10000};

// Calls `condition` until it holds, and `step` between two calls. False when the deadline passed first.
bool wait_until(const std::function<bool()>& condition, const std::function<void()>& step,
    Milliseconds deadline = default_deadline);

// Blocks until `descriptor` can be read, at most `limit`.
bool wait_readable(int descriptor, Milliseconds limit);

// What is left of `deadline` since `start`, never negative.
Milliseconds left_of(Milliseconds deadline, Clock::time_point start);

} // namespace grxtest
