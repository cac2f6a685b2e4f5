// The lines that measured programs print, and how many of their ratios are above what they may be.
#pragma once

#include "bench/chrono.h"

#include <cstdio>

namespace grxbench {

inline constexpr double kNoise = 0.10;
inline int above = 0;

inline void judge(double ratio, double most) {
    std::printf("ratio %5.2f (at most %.2f)\n", ratio, most);
    if (ratio > most + kNoise) ++above;
}

/// Both sides of a comparison, named.
inline void report(const char* name, const Comparison& c, double most, const char* plain = "plain Motif",
    const char* library = "grx") {
    std::printf("%-34s %s %8.1f ms  %s %8.1f ms  ", name, plain, c.plain * 1e3, library, c.library * 1e3);
    judge(c.library / c.plain, most);
}

/// The same work for n and for 2n: what is linear takes twice as long.
template <class Work>
void report_growth(const char* name, int rounds, int n, Work work, double most) {
    const Comparison c = compare(
        rounds, [&] { work(n); }, [&] { work(2 * n); });
    report(name, c, most, "n", "2n");
}

} // namespace grxbench
