#include "tests/support/pixels.h"

#include <X11/Xutil.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <stdexcept>

namespace grxtest {
namespace {

using Rgb = std::array<unsigned char, 3>;

Area bounds_where(const Pixels& pixels, const std::function<bool(std::uint32_t)>& wanted) {
    int left = pixels.width, top = pixels.height, right = -1, bottom = -1;
    for (int y = 0; y < pixels.height; ++y)
        for (int x = 0; x < pixels.width; ++x) {
            if (!wanted(pixels.at(x, y))) continue;
            left = std::min(left, x), right = std::max(right, x);
            top = std::min(top, y), bottom = std::max(bottom, y);
        }
    return right < 0 ? Area{} : Area{left, top, right - left + 1, bottom - top + 1};
}

unsigned char channel(std::uint32_t pixel, unsigned long mask) {
    if (mask == 0) return 0;
    const auto value = (pixel & mask) >> std::countr_zero(mask);
    return static_cast<unsigned char>(value * 255 / (mask >> std::countr_zero(mask)));
}

std::array<Rgb, 256> colormap_colours(Display* display) {
    std::array<XColor, 256> cells{};
    for (unsigned i = 0; i < cells.size(); ++i) cells[i].pixel = i;
    XQueryColors(display, DefaultColormap(display, DefaultScreen(display)), cells.data(), cells.size());
    std::array<Rgb, 256> result{};
    std::transform(cells.begin(), cells.end(), result.begin(), [](const XColor& cell) {
        return Rgb{static_cast<unsigned char>(cell.red >> 8), static_cast<unsigned char>(cell.green >> 8),
            static_cast<unsigned char>(cell.blue >> 8)};
    });
    return result;
}

std::function<Rgb(std::uint32_t)> colours_of(Display* display) {
    const Visual* visual = DefaultVisual(display, DefaultScreen(display));
    if (visual->c_class != TrueColor)
        return [table = colormap_colours(display)](std::uint32_t pixel) { return table[pixel & 0xFF]; };
    return [visual](std::uint32_t pixel) {
        return Rgb{
            channel(pixel, visual->red_mask), channel(pixel, visual->green_mask), channel(pixel, visual->blue_mask)};
    };
}

int ignore_error(Display*, XErrorEvent*) {
    return 0;
}

// XGetImage on what cannot be read is an X error; here it is an answer.
XImage* image_of(Display* display, Drawable drawable, const Area& area) {
    XSync(display, False);
    const XErrorHandler before = XSetErrorHandler(ignore_error);
    XImage* image = XGetImage(display, drawable, area.x, area.y, static_cast<unsigned>(area.width),
        static_cast<unsigned>(area.height), AllPlanes, ZPixmap);
    XSync(display, False);
    XSetErrorHandler(before);
    return image;
}

void leave_shot(const Pixels& pixels, const char* name) {
    const char* folder = std::getenv("GRX_TEST_SHOTS");
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    if (!folder || !test) return;
    Display* display = XOpenDisplay(nullptr);
    if (!display) return;
    write_ppm(display, pixels,
        std::string(folder) + "/" + test->test_suite_name() + "." + test->name() + "." + name + ".ppm");
    XCloseDisplay(display);
}

} // namespace

std::uint32_t Pixels::at(int x, int y) const {
    if (x < 0 || y < 0 || x >= width || y >= height)
        throw std::out_of_range("pixel " + std::to_string(x) + "," + std::to_string(y));
    return values[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)];
}

int Pixels::count(std::uint32_t pixel) const {
    return static_cast<int>(std::count(values.begin(), values.end(), pixel));
}

Area Pixels::bounds(std::uint32_t pixel) const {
    return bounds_where(*this, [pixel](std::uint32_t value) { return value == pixel; });
}

Area Pixels::bounds_other(std::uint32_t pixel) const {
    return bounds_where(*this, [pixel](std::uint32_t value) { return value != pixel; });
}

Pixels Pixels::part(const Area& area) const {
    Pixels result{area.width, area.height, {}};
    for (int y = 0; y < area.height; ++y)
        for (int x = 0; x < area.width; ++x) result.values.push_back(at(area.x + x, area.y + y));
    return result;
}

Pixels grab(Display* display, Drawable drawable, const Area& area) {
    const std::unique_ptr<XImage, int (*)(XImage*)> image(
        image_of(display, drawable, area), [](XImage* made) { return XDestroyImage(made); });
    if (!image) return {};
    Pixels result{area.width, area.height, {}};
    result.values.reserve(static_cast<std::size_t>(area.width) * static_cast<std::size_t>(area.height));
    for (int y = 0; y < area.height; ++y)
        for (int x = 0; x < area.width; ++x)
            result.values.push_back(static_cast<std::uint32_t>(XGetPixel(image.get(), x, y)));
    return result;
}

Pixels grab(Display* display, Drawable drawable) {
    Window root = None;
    int x = 0, y = 0;
    unsigned width = 0, height = 0, border = 0, depth = 0;
    if (!XGetGeometry(display, drawable, &root, &x, &y, &width, &height, &border, &depth)) return {};
    return grab(display, drawable, {0, 0, static_cast<int>(width), static_cast<int>(height)});
}

Pixels grab_root(Display* display) {
    return grab(display, DefaultRootWindow(display));
}

int differences(const Pixels& a, const Pixels& b) {
    if (a.width != b.width || a.height != b.height) return static_cast<int>(std::max(a.values.size(), b.values.size()));
    int result = 0;
    for (std::size_t i = 0; i < a.values.size(); ++i) result += a.values[i] != b.values[i];
    return result;
}

testing::AssertionResult same(const Pixels& a, const Pixels& b) {
    if (a == b) return testing::AssertionSuccess();
    leave_shot(a, "a");
    leave_shot(b, "b");
    if (a.width != b.width || a.height != b.height)
        return testing::AssertionFailure()
               << "sizes differ: " << a.width << "x" << a.height << " and " << b.width << "x" << b.height;
    const auto first = std::mismatch(a.values.begin(), a.values.end(), b.values.begin()).first - a.values.begin();
    const int x = static_cast<int>(first) % a.width, y = static_cast<int>(first) / a.width;
    return testing::AssertionFailure() << differences(a, b) << " pixels differ, first at " << x << "," << y << std::hex
                                       << ": 0x" << a.at(x, y) << " and 0x" << b.at(x, y);
}

void write_ppm(Display* display, const Pixels& pixels, const std::string& file) {
    std::ofstream out(file, std::ios::binary);
    out << "P6\n" << pixels.width << " " << pixels.height << "\n255\n";
    const auto colour = colours_of(display);
    for (const std::uint32_t pixel : pixels.values) {
        const Rgb rgb = colour(pixel);
        out.write(reinterpret_cast<const char*>(rgb.data()), 3);
    }
    if (!out) throw std::runtime_error("cannot write " + file);
}

} // namespace grxtest
