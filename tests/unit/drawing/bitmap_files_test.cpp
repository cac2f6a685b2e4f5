// Bitmap files, byte by byte. The 256-colour writer needs colours: it is tested with a display.
#include <gtest/gtest.h>

#include "tests/support/descriptors.h"
#include "tests/support/heap.h"
#include "tests/support/stdout_capture.h"
#include "tests/support/temp_dir.h"
#include "tests/unit/c_text.h"

#include "host_f.h"
#include "xt_gfx_f.h"
#include "xt_loc_f.h"

#include <array>
#include <climits>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace grxtest {
namespace {

using Bytes = std::vector<uchar>;

std::string text(const Bytes& bytes) {
    return {bytes.begin(), bytes.end()};
}

// Little-endian numbers one after the other.
class Packer {
  public:
    Packer& u2(std::uint32_t value) { return put(value, 2); }
    Packer& u4(std::uint32_t value) { return put(value, 4); }
    Packer& raw(const Bytes& more) {
        bytes_.insert(bytes_.end(), more.begin(), more.end());
        return *this;
    }
    Packer& zeros(std::size_t count) { return raw(Bytes(count, 0)); }
    const Bytes& bytes() const { return bytes_; }

  private:
    Packer& put(std::uint32_t value, int width) {
        for (int i = 0; i < width; ++i) bytes_.push_back(static_cast<uchar>(value >> (8 * i)));
        return *this;
    }
    Bytes bytes_;
};

struct Headers {
    std::uint32_t type = 19778, size = 0, offset = 54;
    std::uint32_t width = 0, height = 0, bits = 4, compression = 0;
    std::uint32_t info_size = 40;
};

// Both headers, nothing behind them.
Bytes headers(const Headers& h) {
    return Packer()
        .u2(h.type)
        .u4(h.size)
        .u2(0)
        .u2(0)
        .u4(h.offset)
        .u4(h.info_size)
        .u4(h.width)
        .u4(h.height)
        .u2(1)
        .u2(h.bits)
        .u4(h.compression)
        .u4(0)
        .u4(0)
        .u4(0)
        .u4(0)
        .u4(0)
        .bytes();
}

struct Read {
    INT result = 77;
    uchar* pixels = nullptr;
    UNSIGNED_INT4 width = 77, height = 77, size = 77;
    INT colours = 77;

    bool untouched() const { return pixels == nullptr && width == 77 && height == 77 && size == 77 && colours == 77; }
    Bytes picture() const { return pixels ? Bytes(pixels, pixels + size) : Bytes(); }
};

class BitmapFile : public testing::Test {
  protected:
    ~BitmapFile() override { release(); }

    void release() {
        if (last_.pixels) grx_free(reinterpret_cast<char*>(last_.pixels), last_.size);
        last_.pixels = nullptr;
    }
    const Read& read(const Bytes& content, const std::string& name = "p.bmp") {
        folder_.write(name, text(content));
        return read_again(name);
    }
    const Read& read_again(const std::string& name = "p.bmp") {
        release();
        last_ = Read();
        std::string directory = folder_.text(), file = name;
        last_.result = lit_fichier_bitmap(
            directory.data(), file.data(), &last_.pixels, &last_.width, &last_.height, &last_.size, &last_.colours);
        return last_;
    }
    using Writer = INT (*)(char*, char*, uchar*, INT, INT);
    INT write(Writer writer, Bytes picture, INT width, INT height, const std::string& name = "out.bmp") {
        std::string directory = folder_.text(), file = name;
        return writer(directory.data(), file.data(), picture.data(), width, height);
    }
    Bytes written(const std::string& name = "out.bmp") const {
        const std::string content = folder_.read(name);
        return {content.begin(), content.end()};
    }
    bool exists(const std::string& name) const { return std::filesystem::exists(folder_.path() / name); }

    TempDir folder_;

  private:
    Read last_;
};

// --- writing --------------------------------------------------------------------------------------------------------

const Bytes pc_palette{0, 0, 0, 0, 0, 0, 191, 0, 0, 191, 0, 0, 0, 191, 191, 0, 191, 0, 0, 0, 191, 0, 191, 0, 191, 191,
    0, 0, 192, 192, 192, 0, 128, 128, 128, 0, 0, 0, 255, 0, 0, 255, 0, 0, 0, 255, 255, 0, 255, 0, 0, 0, 255, 0, 255, 0,
    255, 255, 0, 0, 255, 255, 255, 0};

TEST_F(BitmapFile, SixteenColoursByteByByte) {
    // 3 x 2: blue green cyan over red magenta white
    ASSERT_EQ(write(ecrit_fichier_bitmap, {1, 2, 3, 4, 5, 15}, 3, 2), 0);
    const Bytes expected = Packer()
                               .raw({'B', 'M'})
                               .u4(126)
                               .u2(0)
                               .u2(0)
                               .u4(118)
                               .u4(40)
                               .u4(3)
                               .u4(2)
                               .u2(1)
                               .u2(4)
                               .u4(0)
                               .u4(8)
                               .u4(0)
                               .u4(0)
                               .u4(16)
                               .u4(0)
                               .raw(pc_palette)
                               .raw({0x15, 0xF0, 0, 0}) // bottom row: 4 -> 1, 5 -> 5, 15 -> 15
                               .raw({0x42, 0x60, 0, 0}) // top row: 1 -> 4, 2 -> 2, 3 -> 6
                               .bytes();
    EXPECT_EQ(written(), expected);
}

TEST_F(BitmapFile, SixteenColoursTakeTheLowFourBits) {
    ASSERT_EQ(write(ecrit_fichier_bitmap, {0x11, 0xFF, 0x18, 0x80}, 4, 1), 0);
    const Bytes file = written();
    ASSERT_EQ(file.size(), 122U);
    EXPECT_EQ(Bytes(file.begin() + 118, file.end()), (Bytes{0x4F, 0x80, 0, 0}));
}

TEST_F(BitmapFile, SixteenColoursHaveRowsOfEightPixels) {
    for (const auto& [width, row] :
        std::vector<std::pair<INT, std::size_t>>{{1, 4}, {7, 4}, {8, 4}, {9, 8}, {10, 8}, {16, 8}, {17, 12}}) {
        ASSERT_EQ(write(ecrit_fichier_bitmap, Bytes(static_cast<std::size_t>(width) * 3, 9), width, 3), 0);
        EXPECT_EQ(written().size(), 118 + row * 3) << width;
    }
}

TEST_F(BitmapFile, MonochromeByteByByte) {
    Bytes picture(64, 0); // 32 x 2
    picture[0] = 1;
    picture[9] = 15;
    picture[10] = 16; // low four bits 0: white
    picture[63] = 0xFF;
    ASSERT_EQ(write(ecrit_fichier_bitmap_mono, picture, 32, 2), 0);
    const Bytes expected = Packer()
                               .raw({'B', 'M'})
                               .u4(70)
                               .u2(0)
                               .u2(0)
                               .u4(62)
                               .u4(40)
                               .u4(32)
                               .u4(2)
                               .u2(1)
                               .u2(1)
                               .u4(0)
                               .u4(8)
                               .u4(0)
                               .u4(0)
                               .u4(0)
                               .u4(0)
                               .raw({0, 0, 0, 0, 255, 255, 255, 0})
                               .raw({0xFF, 0xFF, 0xFF, 0xFE})
                               .raw({0x7F, 0xBF, 0xFF, 0xFF})
                               .bytes();
    EXPECT_EQ(written(), expected);
}

// A row is width / 8 bytes, the data width x height / 8: what lies between them is zero.
TEST_F(BitmapFile, MonochromeOfAnotherWidthHasNoPadding) {
    ASSERT_EQ(write(ecrit_fichier_bitmap_mono, Bytes(36, 0), 12, 3), 0);
    const Bytes file = written();
    ASSERT_EQ(file.size(), 62U + 4);
    EXPECT_EQ(Bytes(file.begin() + 62, file.end()), (Bytes{0xFF, 0xFF, 0xFF, 0}));
}

TEST_F(BitmapFile, WritingEmptiesTheFileBefore) {
    folder_.write("out.bmp", std::string(5000, 'x'));
    ASSERT_EQ(write(ecrit_fichier_bitmap, {1}, 1, 1), 0);
    EXPECT_EQ(written().size(), 122U);
}

TEST_F(BitmapFile, NothingToWriteMakesNoFile) {
    for (const Writer writer : {ecrit_fichier_bitmap, ecrit_fichier_bitmap_mono, ecrit_fichier_bitmap_256})
        for (const auto& [width, height] :
            std::vector<std::pair<INT, INT>>{{0, 1}, {1, 0}, {-1, 4}, {4, -1}, {INT_MIN, 1}, {INT_MAX, INT_MAX}}) {
            EXPECT_EQ(write(writer, {1, 2, 3, 4}, width, height), 1) << width << " x " << height;
            EXPECT_FALSE(exists("out.bmp"));
        }
}

TEST_F(BitmapFile, WritingWhereNothingCanBeGives1) {
    std::string missing = folder_.text() + "/no/such", name = "a.bmp";
    Bytes picture(64, 1);
    for (const Writer writer : {ecrit_fichier_bitmap, ecrit_fichier_bitmap_mono, ecrit_fichier_bitmap_256})
        EXPECT_EQ(writer(missing.data(), name.data(), picture.data(), 32, 2), 1);
    std::string device = "/dev", full = "full";
    EXPECT_EQ(ecrit_fichier_bitmap(device.data(), full.data(), picture.data(), 32, 2), 1);
    EXPECT_EQ(ecrit_fichier_bitmap_mono(device.data(), full.data(), picture.data(), 32, 2), 1);
}

TEST_F(BitmapFile, NullIsRefused) {
    std::string directory = folder_.text(), name = "a.bmp";
    Bytes picture(64, 1);
    for (const Writer writer : {ecrit_fichier_bitmap, ecrit_fichier_bitmap_mono, ecrit_fichier_bitmap_256}) {
        EXPECT_EQ(writer(directory.data(), name.data(), nullptr, 32, 2), 1);
        EXPECT_EQ(writer(directory.data(), nullptr, picture.data(), 32, 2), 1);
    }
    uchar* pixels = nullptr;
    UNSIGNED_INT4 width = 0, height = 0, size = 0;
    INT colours = 0;
    EXPECT_EQ(lit_fichier_bitmap(directory.data(), nullptr, &pixels, &width, &height, &size, &colours), 1);
    EXPECT_EQ(pixels, nullptr);
}

TEST_F(BitmapFile, ShortageWhileWritingGives1) {
    for (const Writer writer : {ecrit_fichier_bitmap, ecrit_fichier_bitmap_mono}) {
        ASSERT_EQ(write(writer, Bytes(64, 1), 32, 2), 0); // what is made once
        const auto before = heap().allocations();
        ASSERT_EQ(write(writer, Bytes(64, 1), 32, 2), 0);
        const auto count = heap().allocations() - before;
        EXPECT_GT(count, 0U);
        for (std::size_t n = 1; n <= count; ++n) {
            const NoLeak no_leak;
            heap().fail_at(n);
            EXPECT_EQ(write(writer, Bytes(64, 1), 32, 2), 1) << "allocation " << n;
            heap().fail_never();
        }
    }
}

// --- reading --------------------------------------------------------------------------------------------------------

Bytes four_bits(std::uint32_t width, std::uint32_t height, const Bytes& rows, std::uint32_t offset = 54) {
    return Packer()
        .raw(headers({.offset = offset, .width = width, .height = height, .bits = 4}))
        .zeros(offset - 54)
        .raw(rows)
        .bytes();
}

Bytes eight_bits(std::uint32_t width, std::uint32_t height, const Bytes& rows, std::uint32_t offset = 54) {
    return Packer()
        .raw(headers({.offset = offset, .width = width, .height = height, .bits = 8}))
        .zeros(offset - 54)
        .raw(rows)
        .bytes();
}

TEST_F(BitmapFile, FourBitsAreMappedAndTurnedUpsideDown) {
    const Read& r = read(four_bits(4, 2, {0x15, 0xF0, 9, 9, 0x42, 0x6C, 9, 9}, 118));
    ASSERT_EQ(r.result, 0);
    EXPECT_EQ(r.width, 4U);
    EXPECT_EQ(r.height, 2U);
    EXPECT_EQ(r.size, 8U);
    EXPECT_EQ(r.colours, 16);
    EXPECT_EQ(r.picture(), (Bytes{1, 2, 3, 9, 4, 5, 15, 0}));
}

TEST_F(BitmapFile, FourBitsMapAllSixteen) {
    const Read& r = read(four_bits(16, 1, {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF}));
    ASSERT_EQ(r.result, 0);
    EXPECT_EQ(r.picture(), (Bytes{0, 4, 2, 6, 1, 5, 3, 7, 8, 12, 10, 14, 9, 13, 11, 15}));
}

TEST_F(BitmapFile, FourBitRowsArePaddedToEightPixels) {
    Bytes rows;
    for (int row = 0; row < 2; ++row)
        for (int byte = 0; byte < 8; ++byte) rows.push_back(static_cast<uchar>(byte < 5 ? 0x88 : 0xFF));
    const Read& r = read(four_bits(10, 2, rows));
    ASSERT_EQ(r.result, 0);
    EXPECT_EQ(r.picture(), Bytes(20, 8));
}

TEST_F(BitmapFile, LastPixelOfAnOddFourBitRowIsLeftAsAllocated) {
    heap().fill(0x3C);
    const Read& r = read(four_bits(3, 2, {0x88, 0xFF, 0, 0, 0x88, 0xFF, 0, 0}));
    ASSERT_EQ(r.result, 0);
    EXPECT_EQ(r.picture(), (Bytes{8, 8, 0x3C, 8, 8, 0x3C}));
}

TEST_F(BitmapFile, OneFourBitPixelIsNotFilled) {
    heap().fill(0x3C);
    const Read& r = read(four_bits(1, 1, {0xFF, 0, 0, 0}));
    ASSERT_EQ(r.result, 0);
    EXPECT_EQ(r.picture(), (Bytes{0x3C}));
}

TEST_F(BitmapFile, EightBitsAreCopiedUpsideDown) {
    const Read& r = read(eight_bits(3, 2, {10, 11, 255, 99, 0, 1, 2, 99}, 1078));
    ASSERT_EQ(r.result, 0);
    EXPECT_EQ(r.width, 3U);
    EXPECT_EQ(r.height, 2U);
    EXPECT_EQ(r.size, 6U);
    EXPECT_EQ(r.colours, 256);
    EXPECT_EQ(r.picture(), (Bytes{0, 1, 2, 10, 11, 255}));
}

TEST_F(BitmapFile, EightBitRowsArePaddedToFour) {
    Bytes rows;
    for (int row = 0; row < 3; ++row)
        for (int x = 0; x < 12; ++x) rows.push_back(static_cast<uchar>(x < 10 ? 20 * row + x : 255));
    const Read& r = read(eight_bits(10, 3, rows));
    ASSERT_EQ(r.result, 0);
    Bytes expected;
    for (int row = 2; row >= 0; --row)
        for (int x = 0; x < 10; ++x) expected.push_back(static_cast<uchar>(20 * row + x));
    EXPECT_EQ(r.picture(), expected);
}

TEST_F(BitmapFile, TypeSizesAndCompressionAreNotChecked) {
    const Bytes rows{7, 8, 9, 10};
    for (const Headers& h :
        {Headers{.type = 0, .width = 4, .height = 1, .bits = 8}, Headers{.size = 1, .width = 4, .height = 1, .bits = 8},
            Headers{.width = 4, .height = 1, .bits = 8, .compression = 1},
            Headers{.width = 4, .height = 1, .bits = 8, .info_size = 12}}) {
        const Read& r = read(Packer().raw(headers(h)).raw(rows).bytes());
        ASSERT_EQ(r.result, 0);
        EXPECT_EQ(r.picture(), rows);
    }
}

TEST_F(BitmapFile, OtherDepthsAreRefused) {
    const auto before = open_descriptors();
    for (const std::uint32_t bits : {0U, 1U, 2U, 5U, 16U, 24U, 32U, 0xFFFFU}) {
        const NoLeak no_leak;
        const Read& r = read(Packer().raw(headers({.width = 8, .height = 1, .bits = bits})).zeros(64).bytes());
        EXPECT_EQ(r.result, 1) << bits;
        EXPECT_TRUE(r.untouched()) << bits;
    }
    EXPECT_EQ(open_descriptors(), before);
}

TEST_F(BitmapFile, MissingFileGives1) {
    const Read& r = read_again("none.bmp");
    EXPECT_EQ(r.result, 1);
    EXPECT_TRUE(r.untouched());
}

TEST_F(BitmapFile, EachCutOfAFileIsSurvived) {
    const Bytes whole = eight_bits(4, 2, {1, 2, 3, 4, 5, 6, 7, 8});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const NoLeak no_leak;
        const Read& r = read(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
        if (length <= 28) { // the depth is not in it
            EXPECT_EQ(r.result, 1) << length;
            EXPECT_TRUE(r.untouched()) << length;
        } else if (length >= 54) { // missing pixels are 0
            Bytes rows(whole.begin() + 54, whole.begin() + static_cast<std::ptrdiff_t>(length));
            rows.resize(8, 0);
            Bytes expected(rows.begin() + 4, rows.end());
            expected.insert(expected.end(), rows.begin(), rows.begin() + 4);
            ASSERT_EQ(r.result, 0) << length;
            EXPECT_EQ(r.picture(), expected) << length;
        }
        release();
    }
}

TEST_F(BitmapFile, PixelsBeyondTheEndAreZero) {
    for (const std::uint32_t offset : {1000U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        const Read& r = read(Packer().raw(headers({.offset = offset, .width = 4, .height = 2, .bits = 8})).bytes());
        ASSERT_EQ(r.result, 0) << offset;
        EXPECT_EQ(r.picture(), Bytes(8, 0)) << offset;
    }
}

TEST_F(BitmapFile, OffsetMayLieInTheHeaders) {
    const Bytes file = Packer().raw(headers({.offset = 0, .width = 4, .height = 1, .bits = 8})).bytes();
    const Read& r = read(file);
    ASSERT_EQ(r.result, 0);
    EXPECT_EQ(r.picture(), Bytes(file.begin(), file.begin() + 4));
}

struct Hostile {
    std::uint32_t width, height;
};

class HostileSize : public BitmapFile, public testing::WithParamInterface<Hostile> {};

// 1 for four bits; for eight bits it is the missing file buffer's 0. Either way nothing is asked of the heap for it.
TEST_P(HostileSize, IsRefusedBeforeAnyAllocation) {
    const auto [width, height] = GetParam();
    for (const std::uint32_t bits : {4U, 8U}) {
        const NoLeak no_leak;
        const auto before = heap().allocations();
        const Read& r = read(Packer().raw(headers({.width = width, .height = height, .bits = bits})).zeros(64).bytes());
        EXPECT_EQ(r.result, bits == 4 ? 1 : 0);
        EXPECT_TRUE(r.untouched());
        EXPECT_LE(heap().allocations() - before, 2U); // the two headers
    }
}

INSTANTIATE_TEST_SUITE_P(All, HostileSize,
    testing::Values(Hostile{0, 4}, Hostile{4, 0}, Hostile{0, 0}, Hostile{0xFFFFFFFF, 4}, Hostile{4, 0xFFFFFFFF},
        Hostile{4, 0x80000000}, Hostile{0x80000000, 4}, Hostile{0x7FFFFFFF, 0x7FFFFFFF}, Hostile{0x10000, 0x10000},
        Hostile{0x7FFFFFFF, 2}, Hostile{65536, 65536}, Hostile{0xFFFFFFF8, 0xFFFFFFF8}));

TEST_F(BitmapFile, FailuresReportNothing) {
    StdoutCapture capture;
    EXPECT_EQ(read_again("none.bmp").result, 1);
    for (const Writer writer : {ecrit_fichier_bitmap, ecrit_fichier_bitmap_256, ecrit_fichier_bitmap_mono})
        EXPECT_EQ(write(writer, Bytes(64, 1), 8, 8, "none/x.bmp"), 1);
    ASSERT_EQ(read(four_bits(8, 1, {1, 2, 3, 4})).result, 0);
    heap().fail_from(1);
    const INT without_memory = read_again().result;
    heap().fail_never();
    EXPECT_EQ(without_memory, 1);
    EXPECT_EQ(capture.text(), "");
}

TEST_F(BitmapFile, FilesLeaveNoDescriptorOpen) {
    const auto before = open_descriptors();
    for (int i = 0; i < 20; ++i) {
        ASSERT_EQ(read(four_bits(8, 1, {1, 2, 3, 4})).result, 0);
        ASSERT_EQ(write(ecrit_fichier_bitmap, Bytes(8, 1), 8, 1), 0);
        ASSERT_EQ(write(ecrit_fichier_bitmap_mono, Bytes(32, 1), 32, 1), 0);
    }
    EXPECT_EQ(open_descriptors(), before);
}

TEST_F(BitmapFile, MissingFileBufferOfEightBitsGivesNothingAndZero) {
    const Bytes file = eight_bits(4, 2, {1, 2, 3, 4, 5, 6, 7, 8});
    ASSERT_EQ(read(file).result, 0);
    release();
    const NoLeak no_leak;
    heap().fail_at(3);
    const Read& r = read(file);
    heap().fail_never();
    EXPECT_EQ(r.result, 0);
    EXPECT_TRUE(r.untouched());
}

TEST_F(BitmapFile, OtherMissingBuffersGive1) {
    for (const bool deep : {false, true}) {
        const Bytes file = deep ? eight_bits(4, 1, {1, 2, 3, 4}) : four_bits(8, 1, {1, 2, 3, 4});
        for (const std::size_t n : {1U, 2U, 3U, 4U}) {
            if (deep && n == 3) continue;
            const NoLeak no_leak;
            heap().fail_at(n);
            const Read& r = read(file);
            EXPECT_TRUE(heap().failed()) << n;
            heap().fail_never();
            EXPECT_EQ(r.result, 1) << n;
            EXPECT_TRUE(r.untouched()) << n;
        }
        EXPECT_EQ(read(file).result, 0);
    }
}

// A header buffer that is not had leaves the file open; the other failures close it.
TEST_F(BitmapFile, MissingHeaderBufferLeavesTheFileOpen) {
    const Bytes file = four_bits(8, 1, {1, 2, 3, 4});
    for (const std::size_t n : {1U, 2U, 3U, 4U}) {
        const auto before = open_descriptors();
        heap().fail_at(n);
        EXPECT_EQ(read(file).result, 1) << n;
        heap().fail_never();
        EXPECT_EQ(open_descriptors() - before, n <= 2 ? 1 : 0) << n;
    }
}

TEST_F(BitmapFile, WrittenPicturesAreReadBack) {
    std::mt19937 random(7);
    for (int i = 0; i < 60; ++i) {
        const INT width = static_cast<INT>(1 + random() % 40), height = static_cast<INT>(1 + random() % 12);
        Bytes picture(static_cast<std::size_t>(width * height));
        for (auto& pixel : picture) pixel = static_cast<uchar>(random() % 16);
        ASSERT_EQ(write(ecrit_fichier_bitmap, picture, width, height), 0);
        const Read& r = read_again("out.bmp");
        ASSERT_EQ(r.result, 0);
        Bytes back = r.picture();
        ASSERT_EQ(back.size(), picture.size());
        if (width % 2 == 1) // the last one of each row is not read
            for (INT y = 0; y < height; ++y) {
                const auto last = static_cast<std::size_t>(y * width + width - 1);
                back[last] = picture[last];
            }
        ASSERT_EQ(back, picture) << width << " x " << height;
    }
}

TEST_F(BitmapFile, RandomHeadersAreSurvived) {
    std::mt19937 random(11);
    const std::array<std::uint32_t, 8> sizes{0, 1, 3, 8, 100, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    const auto any = [&] { return sizes[random() % sizes.size()]; };
    for (int i = 0; i < 400; ++i) {
        const NoLeak no_leak;
        const Read& r =
            read(Packer()
                     .raw(headers({.offset = any(), .width = any(), .height = any(), .bits = random() % 2 ? 4U : 8U}))
                     .zeros(random() % 64)
                     .bytes());
        EXPECT_TRUE(r.result == 0 || r.result == 1);
        if (r.pixels) {
            EXPECT_EQ(r.size, r.width * r.height);
        }
        release();
    }
}

TEST(PictureSize, IsWidthTimesHeight) {
    EXPECT_EQ(pixel_size_image(32, 20), 640);
    EXPECT_EQ(pixel_size_image(0, 20), 0);
    EXPECT_EQ(pixel_size_image(1, 1), 1);
}

} // namespace
} // namespace grxtest
