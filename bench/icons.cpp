// Named icons appended to the list of them: how the time grows from n to 2n, beside a plain list that keeps its end.
// Usage: bench_icons [--gate]   (--gate: fail when twice as many take clearly more than twice as long)
#include "bench/chrono.h"

#include "host_f.h"
#include "xt_f.h"

#include <cstdio>
#include <cstring>
#include <list>
#include <vector>

namespace {

constexpr int kIcons = 50000;
constexpr int kRounds = 7;
constexpr double kMostGrowth = 2.6;

void append(int count) {
    for (int i = 0; i < count; ++i) {
        ENRICON icon{};
        std::snprintf(icon.nom_icon, sizeof icon.nom_icon, "icon %d", i);
        append_icon(icon);
    }
    desalloue_tab_icon();
}

void append_plainly(int count) {
    std::list<ENRICON> icons;
    for (int i = 0; i < count; ++i) {
        ENRICON icon{};
        std::snprintf(icon.nom_icon, sizeof icon.nom_icon, "icon %d", i);
        icons.push_back(icon);
    }
}

} // namespace

int main(int argc, char** argv) {
    const bool gate = argc > 1 && std::strcmp(argv[1], "--gate") == 0;
    std::vector<double> once, twice, plain;
    for (int i = 0; i < kRounds; ++i) {
        plain.push_back(grxbench::seconds([] { append_plainly(kIcons); }));
        once.push_back(grxbench::seconds([] { append(kIcons); }));
        twice.push_back(grxbench::seconds([] { append(2 * kIcons); }));
    }
    const double growth = grxbench::fastest(twice) / grxbench::fastest(once);
    std::printf(
        "%d icons appended: a plain list %.1f ms, grx %.1f ms; twice as many %.1f ms, growth %.2f (at most %.1f)\n",
        kIcons, grxbench::fastest(plain) * 1e3, grxbench::fastest(once) * 1e3, grxbench::fastest(twice) * 1e3, growth,
        kMostGrowth);
    return gate && growth > kMostGrowth ? 1 : 0;
}
