// How far work is that consists of pieces within pieces, for the window of work in progress.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace grx {

/// A stack of pieces: each inner one fills a part of the one around it. Shares go from 0 to 1.
template <std::size_t N>
class ProgressStack {
  public:
    bool full() const { return depth_ == N; }
    bool empty() const { return depth_ == 0; }
    std::size_t depth() const { return depth_; }

    /// `part` is what the whole of it is of the piece around it, in that one's units.
    void begin(double most, double part) {
        const bool known = std::isfinite(most) && most > 0;
        levels_[depth_++] = {known ? most : 0, std::isfinite(part) && part > 0 ? part : 0, 0};
    }
    void end() { --depth_; }

    bool known() const { return levels_[0].most > 0; }

    void set_done(double done) {
        Level& level = levels_[depth_ - 1];
        if (level.most > 0 && !std::isnan(done)) level.done = std::clamp(done, 0.0, level.most);
    }

    /// What is done of the outermost.
    double share() const {
        double inner = 0; // of the piece one further in
        for (std::size_t i = depth_; i-- > 0;) {
            const Level& level = levels_[i];
            const double part = i + 1 < depth_ ? levels_[i + 1].part : 0;
            inner =
                level.most > 0 ? std::min(1.0, level.done / level.most + std::min(1.0, part / level.most) * inner) : 0;
        }
        return inner;
    }

  private:
    struct Level {
        double most, part, done;
    };
    std::array<Level, N> levels_{};
    std::size_t depth_ = 0;
};

} // namespace grx
