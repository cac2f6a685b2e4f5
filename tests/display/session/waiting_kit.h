// Waiting by the clock, timers, descriptors and idle work.
#pragma once

#include "tests/display/session/digitizer_kit.h"

#include "grx_plus.h"

#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <vector>

namespace grxtest {

inline constexpr std::array<INT, 8> numbers_of_nothing{0, -1, -101, 2, 1000, INT_MAX, INT_MIN, 99999};

class Pipe {
  public:
    Pipe() { ok_ = pipe(ends_.data()) == 0; }
    ~Pipe() {
        close_reading();
        close_writing();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    bool ok() const { return ok_; }
    int reading() const { return ends_[0]; }
    int writing() const { return ends_[1]; }
    void put(char c = 'x') { EXPECT_EQ(write(ends_[1], &c, 1), 1); }
    void take() {
        char c = 0;
        EXPECT_EQ(read(ends_[0], &c, 1), 1);
    }
    void close_reading() { shut(ends_[0]); }
    void close_writing() { shut(ends_[1]); }

  private:
    static void shut(int& fd) {
        if (fd >= 0) close(fd);
        fd = -1;
    }
    std::array<int, 2> ends_{-1, -1};
    bool ok_ = false;
};

class WaitingTest : public Digitizer {
  protected:
    // One call with a limit; what came is in got_.
    INT within(INT limit) {
        got_ = GRX_EVENEMENT{};
        return grx_digitaliseur_delai(&got_, limit);
    }
    bool is(INT type, INT number) const {
        const GRX_EXEC_FONCTION& record = got_.exec_fonction;
        return record.type_evenement == type && record.no_fo == number && record.nofen == -1 && record.nobou == -1
               && record.chaine[0] == '\0';
    }
    static double since(Clock::time_point start) {
        return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    }
    static double used_milliseconds() {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        const auto ms = [](const timeval& t) {
            return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_usec) * 1e-3;
        };
        return ms(usage.ru_utime) + ms(usage.ru_stime);
    }
    // Puts a press into the queue.
    void press() {
        pointer().click();
        arrive();
    }
    GRX_EVENEMENT got_{};
};

} // namespace grxtest
