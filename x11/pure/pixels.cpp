#include "pure/pixels.h"

#include <bit>
#include <cstring>

namespace grx {

namespace {

void pack_four(uint32_t* out, const uchar* in) {
    std::array<uint32_t, 3> w{};
    std::memcpy(w.data(), in, sizeof w);
    out[0] = w[0] & 0xFFFFFFU;
    out[1] = (w[0] >> 24) | ((w[1] & 0xFFFFU) << 8);
    out[2] = (w[1] >> 16) | ((w[2] & 0xFFU) << 16);
    out[3] = w[2] >> 8;
}

uint32_t pixel_at(const uchar* in) {
    return static_cast<uint32_t>(in[0]) | static_cast<uint32_t>(in[1]) << 8 | static_cast<uint32_t>(in[2]) << 16;
}

void pack_plain(uint32_t* out, const uchar* in, std::size_t count) {
    std::size_t i = 0;
    if constexpr (std::endian::native == std::endian::little) {
        for (; i + 4 <= count; i += 4) pack_four(out + i, in + 3 * i);
    }
    for (; i < count; ++i) out[i] = pixel_at(in + 3 * i);
}

} // namespace

DeepPacker::DeepPacker(const Shifts& shifts)
    : plain_(shifts.red == 16 && shifts.green == 8 && shifts.blue == 0), red_{}, green_{}, blue_{} {
    for (std::size_t v = 0; v < red_.size(); ++v) {
        const auto component = static_cast<int32_t>(v);
        red_[v] = component_at(component, shifts.red);
        green_[v] = component_at(component, shifts.green);
        blue_[v] = component_at(component, shifts.blue);
    }
}

void DeepPacker::row(uint32_t* out, const uchar* in, std::size_t count) const {
    if (plain_) {
        pack_plain(out, in, count);
        return;
    }
    for (std::size_t i = 0; i < count; ++i, in += 3) out[i] = blue_[in[0]] | green_[in[1]] | red_[in[2]];
}

// Stepped instead of divided: quotient and remainder grow together.
void scale_map(std::span<int32_t> map, int64_t source_size) {
    const auto size = static_cast<int64_t>(map.size());
    int64_t quotient = 0;
    int64_t remainder = 0;
    for (int32_t& place : map) {
        place = static_cast<int32_t>(quotient);
        remainder += source_size;
        quotient += remainder / size;
        remainder %= size;
    }
}

IndexFinder::IndexFinder(const INT* pixels, std::size_t count, uint32_t mask) : mask_(mask) {
    for (std::size_t i = 0; i < count; ++i) {
        const uint32_t pixel = static_cast<uint32_t>(pixels[i]) & mask;
        std::size_t at = first_place(pixel);
        while (places_[at].used && places_[at].pixel != pixel) at = (at + 1) % kPlaces;
        if (!places_[at].used) places_[at] = {pixel, true, static_cast<uchar>(i)};
    }
}

uchar IndexFinder::find(uint32_t pixel) const {
    pixel &= mask_;
    std::size_t at = first_place(pixel);
    while (places_[at].used) {
        if (places_[at].pixel == pixel) return places_[at].index;
        at = (at + 1) % kPlaces;
    }
    return 0;
}

void IndexFinder::row(uchar* out, const uint32_t* in, std::size_t count) const {
    uint32_t last = count > 0 ? in[0] : 0;
    uchar index = find(last);
    for (std::size_t i = 0; i < count; ++i) {
        if (in[i] != last) {
            last = in[i];
            index = find(last);
        }
        out[i] = index;
    }
}

} // namespace grx
