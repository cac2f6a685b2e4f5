// Timing for comparisons inside one process: rounds of the two sides alternate, and the best round of each counts,
// so that a busy machine disturbs both alike.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace grxbench {

using Clock = std::chrono::steady_clock;

template <class Work>
double seconds(Work work) {
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

inline double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

inline double fastest(const std::vector<double>& values) {
    return *std::min_element(values.begin(), values.end());
}

struct Comparison {
    double plain = 0;
    double library = 0;
    double ratio() const { return plain / library; } // throughput of the library, plain = 1
};

template <class Plain, class Library>
Comparison compare(int rounds, Plain plain, Library library) {
    std::vector<double> first, second;
    plain();
    library();
    for (int i = 0; i < rounds; ++i) {
        first.push_back(seconds(plain));
        second.push_back(seconds(library));
    }
    return {fastest(first), fastest(second)};
}

} // namespace grxbench
