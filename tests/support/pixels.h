// Pixels read back from the server as plain numbers.
#pragma once

#include <gtest/gtest.h>

#include <X11/Xlib.h>

#include <cstdint>
#include <string>
#include <vector>

namespace grxtest {

struct Area {
    int x = 0, y = 0, width = 0, height = 0;
    bool operator==(const Area&) const = default;
};

struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> values; // row after row, from the top left

    bool empty() const { return values.empty(); }
    std::uint32_t at(int x, int y) const; // throws std::out_of_range outside
    int count(std::uint32_t pixel) const;
    int count_other(std::uint32_t pixel) const { return static_cast<int>(values.size()) - count(pixel); }
    Area bounds(std::uint32_t pixel) const;       // smallest area that holds every such pixel; 0 wide when none
    Area bounds_other(std::uint32_t pixel) const; // smallest area that holds every different pixel
    Pixels part(const Area& area) const;
    bool operator==(const Pixels&) const = default;
};

// Reads an area of a window, pixmap or the root. Empty when the server refuses (unmapped window, outside the screen
// without backing store). `display` is brought up to date by the reading itself.
Pixels grab(Display* display, Drawable drawable, const Area& area);
Pixels grab(Display* display, Drawable drawable); // all of it
Pixels grab_root(Display* display);

int differences(const Pixels& a, const Pixels& b); // pixels that differ; all of them when the sizes do

// EXPECT_TRUE(same(a, b)): says where the first difference is. With GRX_TEST_SHOTS naming a folder both are left there.
testing::AssertionResult same(const Pixels& a, const Pixels& b);

// Binary PPM, colours by the default visual and colormap.
void write_ppm(Display* display, const Pixels& pixels, const std::string& file);

} // namespace grxtest
