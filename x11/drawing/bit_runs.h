// Draws pixels that are set or not as rectangles, for texts where there is no soft way to draw them.
#pragma once

#include <X11/Xlib.h>

#include <array>
#include <cstddef>

#include "drawing/batch.h"
#include "xt_ini_t.h"

namespace grx {

/// Gathers rectangles and draws them in the present attributes, many with one request.
class RunDrawer {
  public:
    explicit RunDrawer(Drawable target) : target_(target) {}
    ~RunDrawer() { flush(); }
    RunDrawer(const RunDrawer&) = delete;
    RunDrawer& operator=(const RunDrawer&) = delete;

    void add(int x, int y, int width) {
        if (count_ == runs_.size()) flush();
        runs_[count_++] = {static_cast<short>(x), static_cast<short>(y), static_cast<unsigned short>(width), 1};
    }

    /// Draws rows of bits, the first of a byte highest, with their top left at x, y.
    void add_bits(const unsigned char* rows, std::size_t pitch, int width, int height, int x, int y) {
        for (int row = 0; row < height; ++row, rows += pitch) add_row(rows, width, x, y + row);
    }

  private:
    static bool is_set(const unsigned char* row, int i) { return (row[i / 8] >> (7 - i % 8) & 1) != 0; }

    void add_row(const unsigned char* row, int width, int x, int y) {
        for (int i = 0; i < width; ++i) {
            if (!is_set(row, i)) continue;
            const int first = i;
            while (i < width && is_set(row, i)) ++i;
            add(x + first, y, i - first);
        }
    }
    void flush() {
        if (count_ > 0) XFillRectangles(x11_disp, target_, g_c, runs_.data(), static_cast<int>(count_));
        count_ = 0;
    }

    Drawable target_;
    std::size_t count_ = 0;
    std::array<XRectangle, 1024> runs_;
};

} // namespace grx
