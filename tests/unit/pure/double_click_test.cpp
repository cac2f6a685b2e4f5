// The decisions of the double-click detector.
#include <gtest/gtest.h>

#include "pure/double_click.h"

#include <climits>
#include <optional>

namespace grxtest {
namespace {

using grx::ClickInput;
using grx::ClickOutcome;
using grx::FirstClick;
using grx::SecondClick;

constexpr uint64_t limit = 200000;

FirstClick first(int32_t mode) {
    return {mode, 100, 200, 1, 10, 12, limit};
}

std::optional<ClickOutcome> judge(int32_t mode, const SecondClick& now) {
    return grx::judge_click(first(mode), now);
}

TEST(DoubleClick, OutcomesHaveTheirNumbers) {
    EXPECT_EQ(static_cast<int>(ClickOutcome::DoubleClick), 0);
    EXPECT_EQ(static_cast<int>(ClickOutcome::MovedAway), 1);
    EXPECT_EQ(static_cast<int>(ClickOutcome::TimeOut), 2);
    EXPECT_EQ(static_cast<int>(ClickOutcome::TooLate), 3);
    EXPECT_EQ(static_cast<int>(ClickOutcome::ActivatedLate), 4);
    EXPECT_EQ(static_cast<int>(ClickOutcome::OtherButton), 5);
}

TEST(DoubleClick, SecondPressInTimeIsOne) {
    EXPECT_EQ(judge(3, {ClickInput::Press, 0, 0, 1, 150000}), ClickOutcome::DoubleClick);
    EXPECT_EQ(judge(3, {ClickInput::Press, 0, 0, 1, limit}), ClickOutcome::DoubleClick);
    EXPECT_EQ(judge(3, {ClickInput::Press, 0, 0, 1, limit + 1}), ClickOutcome::TooLate);
    EXPECT_EQ(judge(3, {ClickInput::Press, 0, 0, 1, 250000}), ClickOutcome::TooLate);
}

TEST(DoubleClick, OtherButtonIsToldInEveryMode) {
    for (const int32_t mode : {0, 1, 2, 3, -1, 99})
        EXPECT_EQ(judge(mode, {ClickInput::Press, 0, 0, 3, 900000}), ClickOutcome::OtherButton) << mode;
}

TEST(DoubleClick, SameButtonGoesOnInOtherModes) {
    for (const int32_t mode : {0, 1, 2, 4}) {
        EXPECT_EQ(judge(mode, {ClickInput::Press, 0, 0, 1, 0}), std::nullopt) << mode;
        EXPECT_EQ(judge(mode, {ClickInput::Press, 0, 0, 1, 900000}), std::nullopt) << mode;
    }
}

TEST(DoubleClick, ReleaseCountsInMode0Only) {
    EXPECT_EQ(judge(0, {ClickInput::Release, 0, 0, 1, limit}), ClickOutcome::DoubleClick);
    EXPECT_EQ(judge(0, {ClickInput::Release, 0, 0, 1, limit + 1}), ClickOutcome::TooLate);
    EXPECT_EQ(judge(3, {ClickInput::Release, 0, 0, 1, limit}), std::nullopt);
    EXPECT_EQ(judge(3, {ClickInput::Release, 0, 0, 1, limit + 1}), ClickOutcome::TimeOut);
}

TEST(DoubleClick, ActivationCountsInEveryMode) {
    for (const int32_t mode : {0, 1, 3}) {
        EXPECT_EQ(judge(mode, {ClickInput::Activation, 0, 0, 0, limit}), ClickOutcome::DoubleClick);
        EXPECT_EQ(judge(mode, {ClickInput::Activation, 0, 0, 0, limit + 1}), ClickOutcome::ActivatedLate);
    }
}

TEST(DoubleClick, MotionMustExceedTheReach) {
    EXPECT_EQ(judge(0, {ClickInput::Motion, 110, 212, 0, 0}), std::nullopt);
    EXPECT_EQ(judge(0, {ClickInput::Motion, 111, 200, 0, 0}), ClickOutcome::MovedAway);
    EXPECT_EQ(judge(0, {ClickInput::Motion, 89, 200, 0, 0}), ClickOutcome::MovedAway);
    EXPECT_EQ(judge(0, {ClickInput::Motion, 90, 188, 0, 0}), std::nullopt);
    EXPECT_EQ(judge(0, {ClickInput::Motion, 100, 213, 0, 0}), ClickOutcome::MovedAway);
    EXPECT_EQ(judge(0, {ClickInput::Motion, 100, 187, 0, 0}), ClickOutcome::MovedAway);
}

TEST(DoubleClick, MotionIsAnyOtherEventOtherwise) {
    EXPECT_EQ(judge(3, {ClickInput::Motion, 900, 900, 0, 0}), std::nullopt);
    EXPECT_EQ(judge(3, {ClickInput::Motion, 900, 900, 0, limit + 1}), ClickOutcome::TimeOut);
    EXPECT_EQ(judge(0, {ClickInput::Motion, 101, 201, 0, limit + 1}), ClickOutcome::TimeOut);
    EXPECT_EQ(judge(0, {ClickInput::Motion, 900, 900, 0, limit + 1}), ClickOutcome::MovedAway);
}

TEST(DoubleClick, NothingTimesOutAfterTheLimit) {
    EXPECT_EQ(judge(0, {ClickInput::Other, 0, 0, 0, limit}), std::nullopt);
    EXPECT_EQ(judge(0, {ClickInput::Other, 0, 0, 0, limit + 1}), ClickOutcome::TimeOut);
    EXPECT_EQ(judge(3, {ClickInput::Other, 0, 0, 0, limit + 1}), ClickOutcome::TimeOut);
}

TEST(DoubleClick, FarAwayDoesNotOverflow) {
    EXPECT_TRUE(grx::beyond(INT_MAX, INT_MIN, 10));
    EXPECT_TRUE(grx::beyond(INT_MIN, INT_MAX, INT_MAX));
    EXPECT_FALSE(grx::beyond(5, 5, 0));
}

} // namespace
} // namespace grxtest
