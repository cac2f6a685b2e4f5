// Decides for the double-click detector what one event means, given the first click and the time since then.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <optional>

namespace grx {

enum class ClickOutcome : int32_t {
    DoubleClick = 0,
    MovedAway = 1,
    TimeOut = 2,
    TooLate = 3,
    ActivatedLate = 4,
    OtherButton = 5
};

struct FirstClick {
    int32_t mode, x, y, button;
    int32_t reach_x, reach_y; // pixels that the pointer may move
    uint64_t limit;           // microseconds
};

enum class ClickInput { Motion, Press, Release, Activation, Other };

struct SecondClick {
    ClickInput input;
    int32_t x, y, button;
    uint64_t elapsed; // microseconds since the first click
};

constexpr bool beyond(int32_t a, int32_t b, int32_t reach) {
    const int64_t distance = int64_t{a} - b;
    return (distance < 0 ? -distance : distance) > reach;
}

constexpr std::optional<ClickOutcome> judge_press(const FirstClick& first, const SecondClick& now) {
    if (now.button != first.button) return ClickOutcome::OtherButton;
    if (first.mode != 3) return std::nullopt;
    return now.elapsed <= first.limit ? ClickOutcome::DoubleClick : ClickOutcome::TooLate;
}

/// The outcome of one event; no value when the detector goes on polling.
constexpr std::optional<ClickOutcome> judge_click(const FirstClick& first, const SecondClick& now) {
    const bool in_time = now.elapsed <= first.limit;
    if (now.input == ClickInput::Press) return judge_press(first, now);
    if (now.input == ClickInput::Activation) return in_time ? ClickOutcome::DoubleClick : ClickOutcome::ActivatedLate;
    if (now.input == ClickInput::Release && first.mode == 0)
        return in_time ? ClickOutcome::DoubleClick : ClickOutcome::TooLate;
    if (now.input == ClickInput::Motion && first.mode == 0
        && (beyond(now.x, first.x, first.reach_x) || beyond(now.y, first.y, first.reach_y)))
        return ClickOutcome::MovedAway;
    return in_time ? std::nullopt : std::optional(ClickOutcome::TimeOut);
}

} // namespace grx
