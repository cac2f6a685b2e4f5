// Keeps the lines of outlines and strokes, for drawing them and for handing them to the application.
#include "fonts/path_buffer.h"

#include <algorithm>

namespace grx {

namespace {

template <class T>
bool make_room(Block<T>& block, std::size_t wanted) {
    constexpr std::size_t first = 64;
    return wanted <= block.size() || block.resize(std::max({first, wanted, 2 * block.size()}));
}

bool same(const GRX_POINT_REEL& a, const GRX_POINT_REEL& b) {
    return a.x == b.x && a.y == b.y;
}

} // namespace

void PathBuffer::add(Vertex point) {
    complete_ = complete_ && make_room(points_, nb_points_ + 1);
    if (complete_) points_[nb_points_++] = {point.x, point.y};
}

void PathBuffer::move(Vertex to) {
    complete_ = complete_ && make_room(starts_, nb_paths_ + 2);
    if (!complete_) return;
    starts_[nb_paths_++] = static_cast<INT>(nb_points_);
    add(to);
}

// Outlines come back to where they began.
void PathBuffer::drop_repeated() {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < nb_paths_; ++i) {
        const auto from = static_cast<std::size_t>(starts_[i]);
        auto to = i + 1 < nb_paths_ ? static_cast<std::size_t>(starts_[i + 1]) : nb_points_;
        if (to - from > 1 && same(points_[from], points_[to - 1])) --to;
        std::copy(points_.begin() + from, points_.begin() + to, points_.begin() + kept);
        starts_[i] = static_cast<INT>(kept);
        kept += to - from;
    }
    nb_points_ = kept;
}

bool PathBuffer::end(bool closed) {
    complete_ = complete_ && make_room(starts_, nb_paths_ + 1);
    if (!complete_) return false;
    if (closed) drop_repeated();
    starts_[nb_paths_] = static_cast<INT>(nb_points_);
    return true;
}

} // namespace grx
