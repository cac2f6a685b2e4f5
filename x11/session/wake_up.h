// What ends a wait of the toolkit besides events: one descriptor that the toolkit watches, which is ready when a moment
// has come or a descriptor of the application is. For the digitizing loop, timers and watches.
#pragma once

#include <cstdint>

namespace grx {

/// Nanoseconds of a clock that is never set.
int64_t moment_now();

constexpr int64_t kMillisecond = 1'000'000;
constexpr int64_t kNever = INT64_MAX;

/// Has the toolkit watch from now on. False when the system has no descriptor left.
bool start_wake_up();

enum class Alarm : unsigned char { Timers, Limit, Retry };

/// Has the wait end at a moment, or not any more; returns what was set before. When the moment comes the alarm is over.
int64_t set_alarm(Alarm alarm, int64_t moment);

/// The set of watched descriptors; -1 before start_wake_up().
int watched_set();

/// Who is told that the moment of Alarm::Timers may have come, and that a descriptor of the set is ready, with its key,
/// which is not 0.
void on_due(void (*due)());
void on_ready(void (*ready)(uint64_t key, uint32_t events));

/// Tells them, as the toolkit has it done when the wait ends. Alarms that are over are taken.
void serve_wake_up();

} // namespace grx
