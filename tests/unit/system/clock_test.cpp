// Time, environment, numbers as text, alarm, and the display functions without a display.
#include <gtest/gtest.h>

#include "tests/support/temp_dir.h"
#include "tests/support/wait.h"
#include "tests/unit/c_text.h"

#include "host_f.h"
#include "xt_ini_t.h"
#include "xt_uti_f.h"

#include <poll.h>
#include <sys/time.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

namespace grxtest {
namespace {

namespace fs = std::filesystem;

class CurrentDirectory : public testing::Test {
  protected:
    void TearDown() override { fs::current_path(before_); }

    // Goes to a directory whose name has that many characters.
    void go_to(std::size_t length) {
        std::string path = dir_.text();
        while (path.size() < length) {
            const auto missing = length - path.size() - 1;
            path += '/' + std::string(missing > 100 && missing != 101 ? 100 : missing, 'd');
        }
        fs::create_directories(path);
        fs::current_path(path);
    }

    TempDir dir_;
    fs::path before_ = fs::current_path();
};

TEST_F(CurrentDirectory, IsCopied) {
    fs::current_path(dir_.path());
    std::array<char, GRX_REPERTOIRE_MAX> text{};
    EXPECT_EQ(getcurrentdir(text.data()), 0);
    EXPECT_EQ(text.data(), fs::current_path().string());
}

TEST_F(CurrentDirectory, MayHave255Characters) {
    go_to(255);
    std::array<char, GRX_REPERTOIRE_MAX> text{};
    EXPECT_EQ(getcurrentdir(text.data()), 0);
    EXPECT_EQ(std::string(text.data()).size(), 255U);
}

TEST_F(CurrentDirectory, LongerIsEmptyAndOne) {
    go_to(256);
    std::array<char, GRX_REPERTOIRE_MAX> text{'?'};
    EXPECT_EQ(getcurrentdir(text.data()), 1);
    EXPECT_STREQ(text.data(), "");
}

TEST_F(CurrentDirectory, RemovedIsEmptyAndOne) {
    fs::create_directory(dir_.path() / "gone");
    fs::current_path(dir_.path() / "gone");
    fs::remove(dir_.path() / "gone");
    std::array<char, GRX_REPERTOIRE_MAX> text{'?'};
    EXPECT_EQ(getcurrentdir(text.data()), 1);
    EXPECT_STREQ(text.data(), "");
    EXPECT_EQ(getcurrentdir(nullptr), 1);
}

TEST(SystemName, IsThree) {
    EXPECT_EQ(osname(), 3);
}

TEST(Environment, VariableIsCopied) {
    std::array<char, 64> value{'?'};
    setenv("GRX_TEST_VARIABLE", " as it is ", 1);
    EXPECT_EQ(getvarsystem(in("GRX_TEST_VARIABLE"), value.data()), 0);
    EXPECT_STREQ(value.data(), " as it is ");
    setenv("GRX_TEST_VARIABLE", "", 1);
    EXPECT_EQ(getvarsystem(in("GRX_TEST_VARIABLE"), value.data()), 0);
    EXPECT_STREQ(value.data(), "");
    unsetenv("GRX_TEST_VARIABLE");
}

TEST(Environment, MissingVariableIsEmptyAndOne) {
    for (char* name : {in("GRX_TEST_NO_SUCH"), in(""), static_cast<char*>(nullptr)}) {
        std::array<char, 8> value{'?'};
        EXPECT_EQ(getvarsystem(name, value.data()), 1);
        EXPECT_STREQ(value.data(), "");
    }
    EXPECT_EQ(getvarsystem(in("GRX_TEST_NO_SUCH"), nullptr), 1);
}

TEST(Environment, LongValueIsCopiedWhole) {
    const std::string longest(100000, 'v');
    setenv("GRX_TEST_VARIABLE", longest.c_str(), 1);
    std::vector<char> value(longest.size() + 1);
    EXPECT_EQ(getvarsystem(in("GRX_TEST_VARIABLE"), value.data()), 0);
    EXPECT_EQ(value.data(), longest);
    unsetenv("GRX_TEST_VARIABLE");
}

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

TEST(WithoutDisplay, DisplayFunctionsDoNothing) {
    ASSERT_EQ(x11_disp, nullptr);
    grx_bipbip(440, 100);
    grx_flush_server();
    grx_sync_server();
    grx_synchronise(1);
    grx_synchronise(0);
    EXPECT_EQ(x11_disp, nullptr);
}

std::string encoded(DOUBLE number, INT total, INT decimals) {
    std::array<char, 2048> text{};
    text.fill('~');
    EXPECT_EQ(encode_double_en_caractere(number, total, decimals, text.data()), 0);
    return text.data();
}

TEST(EncodedNumber, IsRightAligned) {
    EXPECT_EQ(encoded(3.14159, 8, 2), "    3.14");
    EXPECT_EQ(encoded(-1, 2, 0), "-1");
    EXPECT_EQ(encoded(123.456, 7, 3), "123.456");
    EXPECT_EQ(encoded(0, 4, 1), " 0.0");
}

TEST(EncodedNumber, TooWideIsStars) {
    EXPECT_EQ(encoded(123456.789, 5, 2), "*****");
    EXPECT_EQ(encoded(1e308, 10, 4), "**********");
    EXPECT_EQ(encoded(-std::numeric_limits<DOUBLE>::max(), 1, 300), "*");
    EXPECT_EQ(encoded(10, 1, 0), "*");
}

TEST(EncodedNumber, UnwritableIsQuestionMarks) {
    EXPECT_EQ(encoded(std::nan(""), 3, 1), "???");
    EXPECT_EQ(encoded(HUGE_VAL, 3, 1), "???");
    EXPECT_EQ(encoded(1, 3, -1), "???");
    EXPECT_EQ(encoded(1, 3, 301), "???");
    EXPECT_EQ(encoded(1, 3, INT_MAX), "???");
    EXPECT_EQ(encoded(1, 3, INT_MIN), "???");
}

TEST(EncodedNumber, NoRoomIsEmpty) {
    for (const INT total : {0, -1, INT_MIN}) {
        EXPECT_EQ(encoded(1, total, 0), "");
        EXPECT_EQ(encoded(std::nan(""), total, 0), "");
    }
}

TEST(EncodedNumber, WritesNoMoreThanItsRoom) {
    std::array<char, 8> text{};
    text.fill('~');
    encode_double_en_caractere(1e300, 5, 100, text.data());
    EXPECT_EQ(std::string(text.data(), 8), std::string("*****\0~~", 8));
    EXPECT_EQ(encode_double_en_caractere(1, 5, 2, nullptr), 0);
}

TEST(EncodedNumber, WideFieldsAreWritten) {
    EXPECT_EQ(encoded(1.5, 1000, 1), std::string(997, ' ') + "1.5");
    EXPECT_EQ(encoded(1.5, 1023, 1).size(), 1023U);
    EXPECT_EQ(encoded(1.5, 1500, 1).substr(1020), "1.5");
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

TEST(Stubs, HelpAndWaitingCursorDoNothing) {
    testing::internal::CaptureStdout();
    grx_selectionne_curseur_attente();
    grx_deselectionne_curseur_attente();
    grx_contenu_aide();
    grx_aide_sur();
    grx_utilisation_aide();
    grx_aide_f1(INT_MAX);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

} // namespace
} // namespace grxtest
