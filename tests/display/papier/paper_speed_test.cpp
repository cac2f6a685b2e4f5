// How long a large drawing takes on paper, and how much memory: in the process's own time, for other programs run besides.
#include "tests/display/papier/paper_kit.h"
#include "tests/support/sanitized.h"

#include <sys/resource.h>

namespace {
using namespace grxtest;

double seconds_used() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return static_cast<double>(used.ru_utime.tv_sec + used.ru_stime.tv_sec)
           + static_cast<double>(used.ru_utime.tv_usec + used.ru_stime.tv_usec) / 1e6;
}

long most_kilobytes() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return used.ru_maxrss;
}

class PaperSpeedOn24 : public PaperOn24 {
  protected:
    // A hundred thousand entities, another pen after each `run`.
    void draw_many(INT run) {
        for (INT i = 0; i < amount(100000); ++i) {
            const INT x = i * 37 % 4000, y = i * 91 % 3000;
            line(x, y, x + i % 50, y + i % 33, drawn_in(8 + i / run % 15, 0, i / run % 4));
        }
    }
};

// Without a mark that covers all, cairo takes the square of the number of marks: half a minute.
TEST_F(PaperSpeedOn24, AHundredThousandEntitiesTakeSeconds) {
    for (const INT run : {1000, 1}) {
        GRX_PAPIER paper = described("plan.pdf", 4000, 3000);
        paper.echelle = GRX_PAPIER_AJUSTE;
        const double before = seconds_used();
        print(paper, [&] { draw_many(run); });
        EXPECT_LT(seconds_used() - before, 6) << "another pen after " << run;
    }
}

TEST_F(PaperSpeedOn24, LinesOfOnePenTakeLittleMemory) {
    print(described(), [] { line(1, 1, 5, 5); }); // what is kept for good
    GRX_PAPIER paper = described("plan.pdf", 4000, 3000);
    paper.echelle = GRX_PAPIER_AJUSTE;
    const long before = most_kilobytes();
    print(paper, [&] { draw_many(1000); });
    EXPECT_LT(most_kilobytes() - before, sanitized ? 200000 : 30000); // what is freed stays a while with sanitizers
}

} // namespace
