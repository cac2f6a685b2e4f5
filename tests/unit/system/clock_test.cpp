// Time, delays, the stopwatch, the alarm.
#include <gtest/gtest.h>

#include "tests/support/wait.h"

#include "xt_uti_f.h"

#include <poll.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <ctime>

namespace grxtest {
namespace {

struct Moment {
    INT year = -1, month = -1, day = -1, hour = -1, minute = -1, second = -1, hundredth = -1;

    time_t seconds() const {
        std::tm fields{};
        fields.tm_year = year - 1900;
        fields.tm_mon = month - 1;
        fields.tm_mday = day;
        fields.tm_hour = hour;
        fields.tm_min = minute;
        fields.tm_sec = second;
        fields.tm_isdst = -1;
        return mktime(&fields);
    }
};

Moment now() {
    Moment moment;
    gettimedate(
        &moment.year, &moment.month, &moment.day, &moment.hour, &moment.minute, &moment.second, &moment.hundredth);
    return moment;
}

double system_hundredths() {
    timeval moment{};
    gettimeofday(&moment, nullptr);
    return static_cast<double>(moment.tv_sec) * 100 + static_cast<double>(moment.tv_usec / 10000);
}

TEST(Time, IsLocalDateAndTimeToTheHundredth) {
    const auto before = system_hundredths();
    const auto moment = now();
    const auto after = system_hundredths();
    const auto told = static_cast<double>(moment.seconds()) * 100 + moment.hundredth;
    EXPECT_GE(told, before);
    EXPECT_LE(told, after);
    EXPECT_GE(moment.hundredth, 0);
    EXPECT_LE(moment.hundredth, 99);
    EXPECT_GE(moment.month, 1);
}

TEST(Time, FollowsTheTimeZone) {
    setenv("TZ", "EST-14", 1);
    tzset();
    const auto east = now();
    setenv("TZ", "WST10", 1);
    tzset();
    const auto west = now();
    unsetenv("TZ");
    tzset();
    EXPECT_NE(east.day, west.day); // a day lies between the two
}

TEST(Time, OfDayIsTheSame) {
    Moment before, after;
    INT hour = -1, minute = -1, second = -1, hundredth = -1;
    do { // until no second passes between the calls
        before = now();
        gettime(&hour, &minute, &second, &hundredth);
        after = now();
    } while (before.second != after.second);
    EXPECT_EQ(hour, before.hour);
    EXPECT_EQ(minute, before.minute);
    EXPECT_EQ(second, before.second);
    EXPECT_GE(hundredth, before.hundredth);
    EXPECT_LE(hundredth, after.hundredth);
}

TEST(Time, NullPlacesAreLeftOut) {
    INT year = 0;
    gettimedate(&year, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    EXPECT_GE(year, 2024);
    gettime(nullptr, nullptr, nullptr, nullptr);
}

TEST(Delay, LastsAtLeastItsHundredths) {
    for (const DOUBLE hundredths : {1.0, 5.0, 12.5}) {
        const auto start = system_hundredths();
        temporisation(hundredths);
        EXPECT_GE(system_hundredths() - start, hundredths);
    }
}

TEST(Delay, KeepsTheProcessorBusy) {
    const auto start = std::clock();
    temporisation(20);
    EXPECT_GT(std::clock() - start, CLOCKS_PER_SEC / 100);
}

TEST(Delay, OfNothingOrNonsenseIsNone) {
    const auto start = Clock::now();
    for (const DOUBLE hundredths : {0.0, -1.0, -1e300, std::nan(""), HUGE_VAL, -HUGE_VAL}) temporisation(hundredths);
    EXPECT_LT(Clock::now() - start, default_deadline);
}

TEST(Stopwatch, StartsAtTheTimeInSeconds) {
    DOUBLE start = 0;
    const auto before = system_hundredths();
    EXPECT_EQ(chrono_top(&start), 0);
    EXPECT_GE(start * 100, before);
    EXPECT_LE(start * 100, system_hundredths() + 1);
    EXPECT_EQ(chrono_top(nullptr), 0);
}

TEST(Stopwatch, TellsWhetherTheDelayHasPassed) {
    DOUBLE start = 0;
    chrono_top(&start);
    EXPECT_EQ(chrono_delai(start, 3600), 0);
    EXPECT_EQ(chrono_delai(start, 0), 1);
    EXPECT_EQ(chrono_delai(start, -1), 1);
    EXPECT_EQ(chrono_delai(start - 10, 10), 1);
    EXPECT_EQ(chrono_delai(start + 3600, 0), 0);
    EXPECT_EQ(chrono_delai(std::nan(""), 0), 0);
    EXPECT_TRUE(wait_until([&] { return chrono_delai(start, 0.02) == 1; }, [] {}));
    DOUBLE later = 0;
    chrono_top(&later);
    EXPECT_GE(later - start, 0.02);
}

volatile std::sig_atomic_t alarms = 0;

void count_alarm() {
    alarms = alarms + 1;
}

void rearm() {
    count_alarm();
    grx_demarre_alarme(1, rearm);
}

class Alarm : public testing::Test {
  protected:
    void SetUp() override { alarms = 0; }
    void TearDown() override {
        grx_arrete_alarme();
        std::signal(SIGALRM, SIG_DFL);
    }

    static void wait_for(int count) {
        EXPECT_TRUE(wait_until([&] { return alarms >= count; }, [] { poll(nullptr, 0, 10); }));
    }
};

TEST_F(Alarm, CallsItsFunctionOnce) {
    grx_demarre_alarme(1, count_alarm);
    wait_for(1);
    EXPECT_EQ(alarm(0), 0U); // nothing is pending any more
    EXPECT_EQ(alarms, 1);
}

TEST_F(Alarm, MayStartItselfAgain) {
    grx_demarre_alarme(1, rearm);
    wait_for(2);
}

TEST_F(Alarm, IsArmedForItsSeconds) {
    grx_demarre_alarme(1000, count_alarm);
    const auto left = alarm(0);
    EXPECT_LE(left, 1000U);
    EXPECT_GE(left, 999U);
}

TEST_F(Alarm, IsCancelled) {
    grx_demarre_alarme(1000, count_alarm);
    grx_arrete_alarme();
    EXPECT_EQ(alarm(0), 0U);
    grx_arrete_alarme();
    EXPECT_EQ(alarms, 0);
}

TEST_F(Alarm, OfNoSecondsIsNone) {
    grx_demarre_alarme(1000, count_alarm);
    grx_demarre_alarme(0, count_alarm);
    EXPECT_EQ(alarm(0), 0U);
    grx_demarre_alarme(-5, count_alarm);
    EXPECT_EQ(alarm(0), 0U);
    EXPECT_EQ(alarms, 0);
}

TEST_F(Alarm, LaterFunctionReplacesTheEarlier) {
    grx_demarre_alarme(1000, nullptr);
    grx_demarre_alarme(1, count_alarm);
    wait_for(1);
}

TEST_F(Alarm, WithoutFunctionTheSignalIsHarmless) {
    grx_demarre_alarme(1000, nullptr);
    EXPECT_EQ(raise(SIGALRM), 0);
    EXPECT_EQ(alarms, 0);
}

// A read that the signal interrupts goes on: the byte arrives, not EINTR.
TEST_F(Alarm, DoesNotBreakSystemCalls) {
    static int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    grx_demarre_alarme(1, [] {
        count_alarm();
        const auto written = write(ends[1], "x", 1);
        static_cast<void>(written);
    });
    char byte = 0;
    EXPECT_EQ(read(ends[0], &byte, 1), 1) << errno;
    EXPECT_EQ(byte, 'x');
    EXPECT_EQ(alarms, 1);
    close(ends[0]);
    close(ends[1]);
}

} // namespace
} // namespace grxtest
