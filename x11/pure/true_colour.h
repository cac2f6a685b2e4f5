// Colours of pictures with transparency, as bytes blue, green, red, alpha: laid over each other, and changed for icons that
// are pressed or insensitive.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "host_t.h"

namespace grx {

inline constexpr uchar kOpaque = 255;
inline constexpr std::size_t kTrueBytes = 3, kAlphaBytes = 4;

struct Bgr {
    uchar blue = 0, green = 0, red = 0;
    bool operator==(const Bgr&) const = default;
};

struct Bgra {
    Bgr colour;
    uchar alpha = kOpaque;
};

/// A mean of two levels: `share` of 255 of the first.
constexpr uchar mixed(unsigned int first, unsigned int second, unsigned int share) {
    return static_cast<uchar>((first * share + second * (kOpaque - share) + kOpaque / 2) / kOpaque);
}

constexpr Bgr mixed(const Bgr& first, const Bgr& second, unsigned int share) {
    return {mixed(first.blue, second.blue, share), mixed(first.green, second.green, share),
        mixed(first.red, second.red, share)};
}

constexpr Bgr over(const Bgra& front, const Bgr& behind) {
    return mixed(front.colour, behind, front.alpha);
}

inline constexpr Bgr kWhite{kOpaque, kOpaque, kOpaque};

/// How an icon looks.
enum class IconLook : uchar { Normal, Pressed, Faint };

constexpr Bgr grey_of(const Bgr& c) {
    const auto light = static_cast<uchar>((299U * c.red + 587U * c.green + 114U * c.blue + 500U) / 1000U);
    return {light, light, light};
}

/// A pixel of an icon in another look: pressed it is lighter, insensitive grey and half as opaque.
constexpr Bgra in_look(const Bgra& pixel, IconLook look) {
    constexpr unsigned int lighter = 160; // of 255: what stays of the colour
    if (look == IconLook::Pressed) return {mixed(pixel.colour, kWhite, lighter), pixel.alpha};
    if (look == IconLook::Faint) return {grey_of(pixel.colour), static_cast<uchar>(pixel.alpha / 2)};
    return pixel;
}

/// True for colours that nobody tells apart.
constexpr bool alike(const Bgr& a, const Bgr& b) {
    const auto near = [](int first, int second) { return first - second <= 4 && second - first <= 4; };
    return near(a.blue, b.blue) && near(a.green, b.green) && near(a.red, b.red);
}

/// A colour made lighter or darker by its place, in a pattern whose mean is the colour, for screens of few colours.
constexpr Bgr shifted(const Bgr& colour, int x, int y) {
    constexpr int pattern[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
    const int by = (2 * pattern[y & 3][x & 3] - 15) * 5;
    const auto level = [by](int given) {
        return static_cast<uchar>(given + by < 0 ? 0 : given + by > 255 ? 255 : given + by);
    };
    return {level(colour.blue), level(colour.green), level(colour.red)};
}

/// Reads and writes the bytes of a pixel.
constexpr Bgr bgr_at(const uchar* bytes) {
    return {bytes[0], bytes[1], bytes[2]};
}
constexpr Bgra bgra_at(const uchar* bytes) {
    return {bgr_at(bytes), bytes[3]};
}
constexpr void put_bgr(uchar* out, const Bgr& c) {
    out[0] = c.blue;
    out[1] = c.green;
    out[2] = c.red;
}

/// The nearest of some colours, for screens that have no others. A colour found once is remembered.
class NearestColour {
  public:
    static constexpr std::size_t kMost = 512;

    void add(const Bgr& colour, unsigned int value) {
        if (count_ < kMost) entries_[count_++] = {colour, value};
    }
    bool empty() const { return count_ == 0; }

    unsigned int value_of(const Bgr& wanted) {
        Found& slot = found_[place_of(wanted)];
        if (!slot.known || !(slot.colour == wanted)) slot = {wanted, true, search(wanted)};
        return slot.value;
    }

  private:
    struct Entry {
        Bgr colour;
        unsigned int value;
    };
    struct Found {
        Bgr colour;
        bool known;
        unsigned int value;
    };
    static constexpr std::size_t kPlaces = 2048;

    static std::size_t place_of(const Bgr& c) {
        const uint32_t key = uint32_t{c.red} << 16 | uint32_t{c.green} << 8 | c.blue;
        return key * 2654435761U >> 21;
    }
    static int distance(const Bgr& a, const Bgr& b) {
        const int blue = a.blue - b.blue, green = a.green - b.green, red = a.red - b.red;
        return blue * blue + green * green + red * red;
    }
    unsigned int search(const Bgr& wanted) const {
        const Entry* nearest = entries_.data();
        for (std::size_t i = 1; i < count_; ++i)
            if (distance(entries_[i].colour, wanted) < distance(nearest->colour, wanted)) nearest = &entries_[i];
        return nearest->value;
    }

    std::array<Entry, kMost> entries_{};
    std::size_t count_ = 0;
    std::array<Found, kPlaces> found_{};
};

} // namespace grx
