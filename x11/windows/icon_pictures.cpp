// Keeps the sizes of an icon and makes pixmaps of one of them.
#include "windows/icon_pictures.h"

#include <X11/Xutil.h>

#include <array>
#include <cstdlib>
#include <cstring>

#include "display/pixmaps.h"
#include "display/screen.h"
#include "grx_plus_application.h"
#include "grx_plus_erreurs.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

constexpr std::size_t kHead = 2; // width and height before the pixels
constexpr std::size_t kMostSizes = 16;
constexpr std::size_t kMostValues = std::size_t{4} << 20; // 16 MB on the wire
constexpr int32_t kMostPixmapSide = 64;
// What shows through where a manager ignores the mask: mwm does, whose icons are light grey.
constexpr uint32_t kIconGround = 0xFFD3D3D3;
constexpr uint32_t kWhite = 0xFFFFFFFF;

std::size_t pixels_in(Size size) {
    return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
}

IconPicture picture_at(std::span<const UNSIGNED_INT> values) {
    const Size size{static_cast<int32_t>(values[0]), static_cast<int32_t>(values[1])};
    return {size, values.subspan(kHead, pixels_in(size))};
}

// A pixmap of the pixels that a function gives.
template <class PixelAt>
Pixmap make_pixmap_of(Size size, unsigned int depth, const PixelAt& pixel_at) {
    std::array<char, std::size_t{kMostPixmapSide} * kMostPixmapSide * sizeof(UNSIGNED_INT)> bytes{};
    const auto width = static_cast<unsigned int>(size.width), height = static_cast<unsigned int>(size.height);
    XImage* const image = XCreateImage(
        x11_disp, DefaultVisual(x11_disp, x11_screen), depth, ZPixmap, 0, bytes.data(), width, height, 32, 0);
    if (image == nullptr) return None;
    for (int32_t y = 0; y < size.height; ++y)
        for (int32_t x = 0; x < size.width; ++x) XPutPixel(image, x, y, pixel_at(x, y));
    const Pixmap pixmap = XCreatePixmap(x11_disp, root_window(), width, height, depth);
    GC context = XCreateGC(x11_disp, pixmap, 0, nullptr);
    XPutImage(x11_disp, pixmap, context, image, 0, 0, 0, 0, width, height);
    XFreeGC(x11_disp, context);
    image->data = nullptr;
    XDestroyImage(image);
    return pixmap;
}

// Puts 8 bits of a colour where a mask wants them.
unsigned long scaled_to(unsigned long mask, uint32_t level) {
    if (mask == 0) return 0;
    const unsigned long lowest = mask & (~mask + 1);
    return (level * (mask / lowest) + 127) / 255 * lowest;
}

unsigned long true_colour(const Visual& visual, uint32_t pixel) {
    return scaled_to(visual.red_mask, argb::red(pixel)) | scaled_to(visual.green_mask, argb::green(pixel))
           | scaled_to(visual.blue_mask, argb::blue(pixel));
}

} // namespace

template <class See>
void IconPictures::for_each(const See& see) const {
    for (std::size_t at = 0; at < values_.size();) {
        const IconPicture picture = picture_at(values_.span().subspan(at));
        see(picture, at);
        at += kHead + picture.pixels.size();
    }
}

INT IconPictures::add(Size size, const UNSIGNED_INT* pixels) {
    std::size_t sizes = 0, place = values_.size();
    const std::size_t count = pixels_in(size), end = place;
    for_each([&](const IconPicture& picture, std::size_t at) {
        ++sizes;
        if (picture.size == size) place = at;
    });
    if (place == end) {
        if (sizes == kMostSizes || end + kHead + count > kMostValues) return GRX_ECHEC_PLEIN;
        if (!values_.resize(end + kHead + count)) return GRX_ECHEC_MEMOIRE;
    }
    values_[place] = static_cast<UNSIGNED_INT>(size.width);
    values_[place + 1] = static_cast<UNSIGNED_INT>(size.height);
    std::memmove(values_.data() + place + kHead, pixels, count * sizeof *pixels);
    return 1;
}

IconPicture IconPictures::nearest_to(int32_t side) const {
    IconPicture nearest{};
    const auto distance = [side](Size size) { return std::abs(std::max(size.width, size.height) - side); };
    for_each([&](const IconPicture& picture, std::size_t) {
        if (nearest.pixels.empty() || distance(picture.size) < distance(nearest.size)) nearest = picture;
    });
    return nearest;
}

IconPixmaps make_icon_pixmaps(const IconPicture& picture) {
    if (picture.pixels.empty()) return {};
    const Size size = fitted(picture.size, kMostPixmapSide);
    const Visual& visual = *DefaultVisual(x11_disp, x11_screen);
    const uint32_t background = visual.c_class == TrueColor ? kIconGround : kWhite;
    const auto pixel_at = [&](int32_t x, int32_t y) { return sampled(picture, size, x, y); };
    const auto solid_at = [&](int32_t x, int32_t y) { return argb::over(pixel_at(x, y), background); };
    IconPixmaps made;
    if (visual.c_class == TrueColor) {
        made.picture = make_pixmap_of(size, static_cast<unsigned int>(DefaultDepth(x11_disp, x11_screen)),
            [&](int32_t x, int32_t y) { return true_colour(visual, solid_at(x, y)); });
    } else {
        made.picture =
            make_pixmap_of(size, 1, [&](int32_t x, int32_t y) { return black_at(solid_at(x, y), x, y) ? 1UL : 0UL; });
    }
    made.mask = make_pixmap_of(size, 1, [&](int32_t x, int32_t y) { return argb::opaque(pixel_at(x, y)) ? 1UL : 0UL; });
    return made;
}

void free_icon_pixmaps(const IconPixmaps& pixmaps) {
    if (x11_disp == nullptr) return;
    free_pixmap(pixmaps.picture);
    free_pixmap(pixmaps.mask);
}

} // namespace grx
