// Paints the pictures of messages: with smooth edges on a deep screen, elsewhere with a few cells of its palette.
#include "dialogs/message_picture.h"

#include <X11/Xutil.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <utility>

#include "display/colours.h"
#include "display/pixmaps.h"
#include "display/screen.h"
#include "toolkit/args.h"
#include "xt_ini_f.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

constexpr int kSide = 40;
constexpr int kSamples = 4;           // a pixel in each direction
constexpr unsigned short kWide = 257; // from 8 bits to 16

IconColour colour_of(unsigned long pixel) {
    XColor cell{};
    cell.pixel = pixel;
    XQueryColor(x11_disp, x11_cmap, &cell);
    const auto narrow = [](unsigned short value) { return static_cast<unsigned char>(value / kWide); };
    return {narrow(cell.red), narrow(cell.green), narrow(cell.blue)};
}

IconLayer layer_in(MessageKind kind, int x, int y, int sample_x, int sample_y) {
    const auto at = [](int pixel, int sample) { return (pixel + (sample + 0.5) / kSamples) / kSide; };
    return icon_layer(kind, at(x, sample_x), at(y, sample_y));
}

// How many samples of a pixel show each layer.
std::array<int, 4> layers_of_pixel(MessageKind kind, int x, int y) {
    std::array<int, 4> count{};
    for (int sample = 0; sample < kSamples * kSamples; ++sample)
        ++count[static_cast<std::size_t>(layer_in(kind, x, y, sample % kSamples, sample / kSamples))];
    return count;
}

unsigned long deep_pixel(IconColour colour) {
    const Shifts shift = component_shifts();
    return static_cast<unsigned long>(colour.red) << shift.red | static_cast<unsigned long>(colour.green) << shift.green
           | static_cast<unsigned long>(colour.blue) << shift.blue;
}

IconColour mixed(MessageKind kind, const std::array<int, 4>& count, IconColour background) {
    std::array<int, 3> sum{};
    for (std::size_t layer = 0; layer < count.size(); ++layer) {
        const IconColour colour = layer == 0 ? background : icon_colour(kind, static_cast<IconLayer>(layer));
        sum[0] += count[layer] * colour.red;
        sum[1] += count[layer] * colour.green;
        sum[2] += count[layer] * colour.blue;
    }
    const auto average = [](int value) { return static_cast<unsigned char>(value / (kSamples * kSamples)); };
    return {average(sum[0]), average(sum[1]), average(sum[2])};
}

} // namespace

// Where the palette is full, signs are white on black.
void MessagePicture::allocate(MessageKind kind) {
    for (int layer = 1; layer < kLayers; ++layer) {
        const IconColour colour = icon_colour(kind, static_cast<IconLayer>(layer));
        XColor cell{};
        cell.red = static_cast<unsigned short>(colour.red * kWide);
        cell.green = static_cast<unsigned short>(colour.green * kWide);
        cell.blue = static_cast<unsigned short>(colour.blue * kWide);
        const bool had = XAllocColor(x11_disp, x11_cmap, &cell) != 0;
        const bool sign = layer == static_cast<int>(IconLayer::Sign);
        const unsigned long other = sign ? WhitePixel(x11_disp, x11_screen) : BlackPixel(x11_disp, x11_screen);
        pixels_[static_cast<std::size_t>(layer)] = had ? cell.pixel : other;
        if (had) cells_[static_cast<std::size_t>(allocated_++)] = cell.pixel;
    }
}

unsigned long MessagePicture::pixel_at(MessageKind kind, int x, int y) const {
    const auto count = layers_of_pixel(kind, x, y);
    if (deep_screen()) return deep_pixel(mixed(kind, count, background_));
    return pixels_[static_cast<std::size_t>(std::max_element(count.begin(), count.end()) - count.begin())];
}

void MessagePicture::draw(MessageKind kind, Widget w) {
    pixels_[0] = resource<Pixel>(w, XmNbackground);
    if (deep_screen())
        background_ = colour_of(pixels_[0]);
    else
        allocate(kind);
    pixmap_ = make_pixmap(RootWindowOfScreen(XtScreen(w)), {kSide, kSide});
    XImage* const image = XGetImage(x11_disp, pixmap_, 0, 0, kSide, kSide, AllPlanes, ZPixmap);
    if (image == nullptr) return;
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) XPutPixel(image, x, y, pixel_at(kind, x, y));
    GC context = XCreateGC(x11_disp, pixmap_, 0, nullptr);
    XPutImage(x11_disp, pixmap_, context, image, 0, 0, 0, 0, kSide, kSide);
    XFreeGC(x11_disp, context);
    XDestroyImage(image);
}

void MessagePicture::free() {
    if (x11_disp != nullptr) {
        free_pixmap(pixmap_);
        if (allocated_ > 0) XFreeColors(x11_disp, x11_cmap, cells_.data(), allocated_, 0);
    }
    pixmap_ = None;
    allocated_ = 0;
}

} // namespace grx
