// Keeps the lines of outlines and strokes, for drawing them and for handing them to the application.
#pragma once

#include <cstddef>
#include <span>

#include "pure/path_sink.h"
#include "system/block.h"
#include "grx_plus_textes.h"

namespace grx {

class PathBuffer final : public PathSink {
  public:
    /// Empties the buffer, but keeps its memory.
    void begin() {
        nb_points_ = nb_paths_ = 0;
        complete_ = true;
    }
    void move(Vertex to) override;
    void line(Vertex to) override { add(to); }

    /// To be called after the last line. Closed paths do not repeat their first point. False when memory was short.
    bool end(bool closed);

    std::size_t paths() const { return nb_paths_; }
    std::span<const GRX_POINT_REEL> points() const { return points_.span().first(nb_points_); }
    std::span<const INT> starts() const { return starts_.span().first(nb_paths_ + 1); }
    std::span<const GRX_POINT_REEL> path(std::size_t i) const {
        const auto from = static_cast<std::size_t>(starts_[i]), to = static_cast<std::size_t>(starts_[i + 1]);
        return points_.span().subspan(from, to - from);
    }
    void reset() {
        points_.reset();
        starts_.reset();
        begin();
    }

  private:
    void add(Vertex point);
    void drop_repeated();

    Block<GRX_POINT_REEL> points_;
    Block<INT> starts_;
    std::size_t nb_points_ = 0, nb_paths_ = 0;
    bool complete_ = true;
};

} // namespace grx
