// Bitmap files of any kind that pictures are read from, and of those that they are written as: headers and rows.
#include "pure/true_bmp.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "pure/bmp.h"

namespace grx {

namespace {

constexpr std::size_t kLargestInfo = 124;
constexpr std::size_t kMasked = 108; // the info header that has masks of its own, alpha too
constexpr std::size_t kMasksAt = kPaletteAt;
constexpr uint32_t kPlain = 0, kBitFields = 3;
constexpr uint32_t kMostSide = 1'000'000;
constexpr std::size_t kEntry = 4;

uint32_t field(std::span<const uchar> head, std::size_t at, std::size_t bytes) {
    uint32_t value = 0;
    for (std::size_t i = bytes; i-- > 0;) value = value << 8 | (at + i < head.size() ? head[at + i] : 0U);
    return value;
}
uint32_t two(std::span<const uchar> head, std::size_t at) {
    return field(head, at, 2);
}
uint32_t four(std::span<const uchar> head, std::size_t at) {
    return field(head, at, 4);
}

struct Info {
    std::size_t size;
    uint32_t width, bits, compression, used;
    int32_t height;
    bool masks_behind() const { return compression == kBitFields && size == kInfoHeader; }
    std::size_t palette_at() const { return kFileHeader + size + (masks_behind() ? 12 : 0); }
};

Info info_of(std::span<const uchar> head) {
    return {four(head, 14), four(head, 18), two(head, 28), four(head, 30), four(head, 46),
        static_cast<int32_t>(four(head, 22))};
}

bool readable(const Info& info) {
    if (info.size < kInfoHeader || info.size > kLargestInfo || info.width == 0 || info.width > kMostSide) return false;
    if (info.height == 0 || info.height > static_cast<int32_t>(kMostSide)
        || info.height < -static_cast<int32_t>(kMostSide))
        return false;
    if (info.compression == kBitFields) return info.bits == 32;
    constexpr std::array<uint32_t, 5> known{1, 4, 8, 24, 32};
    return info.compression == kPlain && std::find(known.begin(), known.end(), info.bits) != known.end();
}

// The byte that a mask is one of; nothing when it is none.
bool byte_of_mask(uint32_t mask, uchar& byte) {
    const int shift = std::countr_zero(mask);
    if (mask == 0 || shift % 8 != 0 || mask >> shift != 0xFFU) return false;
    byte = static_cast<uchar>(shift / 8);
    return true;
}

// Channels of 32 bits, told by masks. Alpha is in headers that are large enough for its mask.
bool read_masks(std::span<const uchar> head, const Info& info, BmpFile& file) {
    auto& [blue, green, red, alpha] = file.layout.channels;
    if (!byte_of_mask(four(head, kMasksAt), red) || !byte_of_mask(four(head, kMasksAt + 4), green)
        || !byte_of_mask(four(head, kMasksAt + 8), blue))
        return false;
    const uint32_t mask = info.size >= 56 ? four(head, kMasksAt + 12) : 0;
    if (mask == 0) return true;
    file.form.bytes = 4;
    return byte_of_mask(mask, alpha);
}

bool read_palette(std::span<const uchar> head, const Info& info, BmpFile& file) {
    const uint32_t most = 1U << info.bits;
    if (info.used > 256) return false;
    const uint32_t count = info.used == 0 ? most : std::min(info.used, most);
    const std::size_t at = info.palette_at();
    if (at + count * kEntry > file.layout.data_at || at + count * kEntry > head.size()) return false;
    file.form.colours = static_cast<int>(count);
    for (std::size_t i = 0; i < count; ++i) {
        std::memcpy(file.form.palette[i].data(), head.data() + at + kEntry * i, 3);
        file.form.palette[i][3] = 255;
    }
    return true;
}

void unpack_places(int bits, const uchar* in, uchar* out, std::size_t count) {
    const auto each = static_cast<std::size_t>(8 / bits);
    const unsigned int mask = (1U << bits) - 1;
    for (std::size_t i = 0; i < count; ++i) {
        const auto shift = static_cast<unsigned int>(bits) * (each - 1 - i % each);
        out[i] = static_cast<uchar>(in[i / each] >> shift & mask);
    }
}

class HeadWriter {
  public:
    explicit HeadWriter(BmpHead& head) : head_(head) {}
    void put(uint64_t value, std::size_t bytes) {
        for (std::size_t i = 0; i < bytes; ++i) head_.bytes[head_.size++] = static_cast<uchar>(value >> 8 * i);
    }
    void fours(std::initializer_list<uint64_t> values) {
        for (const uint64_t value : values) put(value, 4);
    }

  private:
    BmpHead& head_;
};

void put_masks(HeadWriter& out) {
    out.fours({0xFF0000, 0xFF00, 0xFF, 0xFF000000, 0x73524742 /* sRGB */});
    out.fours({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}); // end points and gammas
}

} // namespace

bool is_bmp(std::span<const uchar> head) {
    return head.size() >= 2 && head[0] == 'B' && head[1] == 'M';
}

std::optional<BmpFile> read_bmp_head(std::span<const uchar> head, uint64_t file_size) {
    const Info info = info_of(head);
    if (!is_bmp(head) || head.size() < kPaletteAt || !readable(info)) return std::nullopt;
    BmpFile file;
    file.form.width = info.width;
    file.form.height = info.height < 0 ? -int64_t{info.height} : info.height;
    file.form.bytes = info.bits <= 8 ? 1 : 3;
    file.form.per_metre = static_cast<int32_t>(four(head, 38)) > 0 ? four(head, 38) : 0;
    file.layout.from_top = info.height < 0;
    file.layout.bits = static_cast<int>(info.bits);
    file.layout.data_at = four(head, 10);
    file.layout.row_bytes = static_cast<uint64_t>(rounded_up(int64_t{info.width} * info.bits, 32) / 8);
    if (info.compression == kBitFields && !read_masks(head, info, file)) return std::nullopt;
    if (info.bits <= 8 && !read_palette(head, info, file)) return std::nullopt;
    const uint64_t end = file.layout.data_at + file.layout.row_bytes * static_cast<uint64_t>(file.form.height);
    if (file.layout.data_at < info.palette_at() || end > file_size) return std::nullopt;
    return file;
}

void unpack_bmp_row(const BmpFile& file, const uchar* in, uchar* out) {
    const auto count = static_cast<std::size_t>(file.form.width);
    if (file.layout.bits == 24) {
        std::memcpy(out, in, 3 * count);
    } else if (file.layout.bits != 32) {
        unpack_places(file.layout.bits, in, out, count);
    } else {
        for (std::size_t i = 0; i < count; ++i, in += 4)
            for (std::size_t c = 0; c < static_cast<std::size_t>(file.form.bytes); ++c)
                *out++ = in[file.layout.channels[c]];
    }
}

std::optional<BmpHead> make_bmp_head(const PictureForm& form) {
    const bool alpha = form.bytes == 4;
    const uint64_t info = alpha ? kMasked : kInfoHeader;
    BmpHead head;
    head.layout.bits = 8 * form.bytes;
    head.layout.row_bytes = static_cast<uint64_t>(rounded_up(form.width * form.bytes, 4));
    head.layout.data_at = kFileHeader + info + kEntry * static_cast<uint64_t>(form.colours);
    const uint64_t data = head.layout.row_bytes * static_cast<uint64_t>(form.height);
    if (head.layout.data_at + data > UINT32_MAX) return std::nullopt;
    HeadWriter out(head);
    out.put('B' | 'M' << 8, 2);
    out.fours({head.layout.data_at + data, 0, head.layout.data_at, info});
    out.fours({static_cast<uint64_t>(form.width), static_cast<uint64_t>(form.height)});
    out.put(1, 2);
    out.put(static_cast<uint64_t>(head.layout.bits), 2);
    const auto per_metre = static_cast<uint64_t>(form.per_metre), colours = static_cast<uint64_t>(form.colours);
    out.fours({alpha ? kBitFields : kPlain, data, per_metre, per_metre, colours, 0});
    if (alpha) put_masks(out);
    for (int i = 0; i < form.colours; ++i) {
        const auto& [blue, green, red, opacity] = form.palette[static_cast<std::size_t>(i)];
        out.fours({uint64_t{blue} | uint64_t{green} << 8 | uint64_t{red} << 16});
    }
    return head;
}

} // namespace grx
