// Dates and durations as applications count them, worked out from the times of the system.
#pragma once

#include <ctime>

#include <sys/time.h>

namespace grx {

struct Calendar {
    int year = 0;  // four digits
    int month = 0; // 1..12
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

inline constexpr int kFirstYearOfTm = 1900;
inline constexpr int kMicrosecondsPerHundredth = 10000;
inline constexpr double kHundredthsPerSecond = 100.0;
inline constexpr double kMicrosecondsPerSecond = 1000000.0;

/// The moment in local time. All members are zero when the system cannot work it out.
inline Calendar local_calendar(std::time_t moment) {
    std::tm fields{};
    if (!localtime_r(&moment, &fields)) return {};
    return {fields.tm_year + kFirstYearOfTm, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min,
        fields.tm_sec};
}

inline int hundredths_of(const timeval& now) {
    return static_cast<int>(now.tv_usec / kMicrosecondsPerHundredth);
}

inline double in_hundredths(const timeval& now) {
    const long whole = now.tv_usec / kMicrosecondsPerHundredth; // the application counts whole hundredths
    return static_cast<double>(now.tv_sec) * kHundredthsPerSecond + static_cast<double>(whole);
}

inline double in_seconds(const timeval& now) {
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_usec) / kMicrosecondsPerSecond;
}

} // namespace grx
