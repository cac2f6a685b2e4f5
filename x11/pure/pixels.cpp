// Packs, scales and looks up rows of pixels, for the functions that show pictures and read the screen. Four pixels go
// at a time where the processor can.
#include "pure/pixels.h"

#if defined(__x86_64__)
#include <tmmintrin.h>
#endif

namespace grx {

namespace {

uint32_t pixel_at(const uchar* in) {
    return static_cast<uint32_t>(in[0]) | static_cast<uint32_t>(in[1]) << 8 | static_cast<uint32_t>(in[2]) << 16;
}

#if defined(__x86_64__)

// Packs four pixels a step. A step reads 16 bytes and uses 12, so that the last few pixels are left to the caller.
__attribute__((target("ssse3"))) std::size_t pack_shuffled(uint32_t* out, const uchar* in, std::size_t count) {
    const __m128i spread = _mm_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1);
    std::size_t i = 0;
    for (; i + 6 <= count; i += 4) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in + 3 * i));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + i), _mm_shuffle_epi8(bytes, spread));
    }
    return i;
}

__attribute__((target("ssse3"))) std::size_t spread_shuffled(
    uint32_t* out, const uint32_t* in, std::span<const SpreadStep> steps) {
    for (const SpreadStep& step : steps) {
        const __m128i source = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in + step.base));
        const __m128i shuffle = _mm_loadu_si128(reinterpret_cast<const __m128i*>(step.shuffle.data()));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_shuffle_epi8(source, shuffle));
        out += 4;
    }
    return 4 * steps.size();
}

bool shuffles() {
    static const bool can = __builtin_cpu_supports("ssse3") != 0;
    return can;
}

std::size_t pack_quickly(uint32_t* out, const uchar* in, std::size_t count) {
    return shuffles() ? pack_shuffled(out, in, count) : 0;
}

std::size_t spread_quickly(uint32_t* out, const uint32_t* in, std::span<const SpreadStep> steps) {
    return shuffles() ? spread_shuffled(out, in, steps) : 0;
}

#else

std::size_t pack_quickly(uint32_t*, const uchar*, std::size_t) {
    return 0;
}

std::size_t spread_quickly(uint32_t*, const uint32_t*, std::span<const SpreadStep>) {
    return 0;
}

#endif

void pack_plain(uint32_t* out, const uchar* in, std::size_t count) {
    for (std::size_t i = pack_quickly(out, in, count); i < count; ++i) out[i] = pixel_at(in + 3 * i);
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

// Counts quotient and remainder up instead of dividing for each column.
void scale_map(std::span<int32_t> map, const Scaling& scaling) {
    const int64_t size = scaling.destination;
    const int64_t whole = scaling.source / size;
    const int64_t rest = scaling.source % size;
    int64_t quotient = scaling.source * scaling.first / size;
    int64_t remainder = scaling.source * scaling.first % size;
    for (int32_t& place : map) {
        place = static_cast<int32_t>(quotient);
        remainder += rest;
        const bool full = remainder >= size;
        quotient += full ? whole + 1 : whole;
        remainder -= full ? size : 0;
    }
}

bool make_spread_steps(std::span<SpreadStep> steps, std::span<const int32_t> columns) {
    constexpr std::size_t group = 4;
    for (std::size_t g = 0; g < steps.size(); ++g) {
        const int32_t base = columns[g * group];
        steps[g].base = base;
        for (std::size_t i = 0; i < group; ++i) {
            const int32_t offset = columns[g * group + i] - base;
            if (offset < 0 || offset >= static_cast<int32_t>(group)) return false;
            for (std::size_t byte = 0; byte < group; ++byte)
                steps[g].shuffle[i * group + byte] =
                    static_cast<uchar>(static_cast<std::size_t>(offset) * group + byte);
        }
    }
    return true;
}

void spread_row(
    uint32_t* out, const uint32_t* in, std::span<const int32_t> columns, std::span<const SpreadStep> steps) {
    for (std::size_t i = spread_quickly(out, in, steps); i < columns.size(); ++i)
        out[i] = in[static_cast<std::size_t>(columns[i])];
}

IndexFinder::IndexFinder(const INT* pixels, std::size_t count, uint32_t mask) : mask_(mask) {
    for (std::size_t i = 0; i < count; ++i) {
        const uint32_t pixel = static_cast<uint32_t>(pixels[i]) & mask;
        std::size_t at = first_place(pixel);
        while (slots_[at].used && slots_[at].pixel != pixel) at = (at + 1) % kSlots;
        if (!slots_[at].used) slots_[at] = {pixel, true, static_cast<uchar>(i)};
    }
}

uchar IndexFinder::find(uint32_t pixel) const {
    pixel &= mask_;
    std::size_t at = first_place(pixel);
    while (slots_[at].used) {
        if (slots_[at].pixel == pixel) return slots_[at].index;
        at = (at + 1) % kSlots;
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
