// Pictures of other programs: files of every kind made by ImageMagick, read here as it reads them; and ours, read by it.
#include <gtest/gtest.h>

#include "tests/support/image_kit.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace grxtest;

class ImageFormatsTest : public testing::Test {
  protected:
    void SetUp() override { setenv("MAGICK_THREAD_LIMIT", "1", 1); }
    std::string path(const std::string& name) const { return folder_.text() + "/" + name; }

    void run(const std::string& command) const {
        ASSERT_EQ(std::system(("cd " + folder_.text() + " && " + command + " 2>/dev/null").c_str()), 0) << command;
    }

    // Red, green, blue and alpha of each pixel as ImageMagick reads the file.
    PictureRows read_elsewhere(const std::string& name) const {
        FILE* const pipe =
            popen(("convert " + path(name) + " -colorspace sRGB -alpha on -depth 8 rgba:-").c_str(), "r");
        PictureRows rows;
        std::array<unsigned char, 4096> some{};
        for (std::size_t got = 0; (got = std::fread(some.data(), 1, some.size(), pipe)) > 0;)
            rows.insert(rows.end(), some.begin(), some.begin() + static_cast<std::ptrdiff_t>(got));
        EXPECT_EQ(pclose(pipe), 0) << name;
        return rows;
    }

    void expect_same(const std::string& name, int tolerance = 0) const {
        const PictureRows other = read_elsewhere(name);
        for (const std::size_t bytes : {3U, 4U}) {
            Image image(static_cast<INT>(bytes));
            ASSERT_EQ(grx_lit_image(path(name).c_str(), image.get()), 1) << name;
            ASSERT_EQ(other.size() / 4 * bytes, image.bytes()) << name;
            for (std::size_t i = 0; i < other.size() / 4; ++i) {
                const unsigned char* const wanted = other.data() + 4 * i;
                const unsigned char* const got = image->pixels + bytes * i;
                const int alpha = wanted[3];
                if (bytes == 4) ASSERT_NEAR(got[3], alpha, tolerance) << name << ", alpha of pixel " << i;
                if (bytes == 4 && alpha <= tolerance) continue; // a colour that nobody sees
                for (std::size_t c = 0; c < 3; ++c) {
                    const int level =
                        bytes == 4 ? wanted[2 - c] : (wanted[2 - c] * alpha + 255 * (255 - alpha) + 127) / 255;
                    ASSERT_NEAR(got[c], level, tolerance) << name << ", " << bytes << " bytes, pixel " << i;
                }
            }
        }
    }
    TempDir folder_;
};

struct Made {
    const char* name;
    const char* how; // between "convert" and the name
};

TEST_F(ImageFormatsTest, KindsOfPng) {
    run("convert -size 37x29 plasma:red-blue -depth 8 plain.ppm");
    run("convert plain.ppm '(' -size 37x29 gradient: ')' -alpha off -compose CopyOpacity -composite -depth 8 "
        "alpha.miff");
    constexpr std::array<Made, 16> kinds{{{"rgb8.png", "plain.ppm -define png:format=png24"},
        {"rgb16.png", "plain.ppm -blur 0x2 -depth 16 -define png:format=png48"},
        {"rgba8.png", "alpha.miff -define png:format=png32"},
        {"rgba16.png", "alpha.miff -depth 16 -define png:format=png64"},
        {"grey1.png", "plain.ppm -monochrome -define png:color-type=0 -define png:bit-depth=1"},
        {"grey2.png", "plain.ppm -colorspace gray -define png:color-type=0 -define png:bit-depth=2"},
        {"grey4.png", "plain.ppm -colorspace gray -define png:color-type=0 -define png:bit-depth=4"},
        {"grey8.png", "plain.ppm -colorspace gray -depth 8 -define png:color-type=0 -define png:bit-depth=8"},
        {"grey16.png", "plain.ppm -blur 0x2 -colorspace gray -define png:color-type=0 -define png:bit-depth=16"},
        {"greya8.png", "alpha.miff -colorspace gray -depth 8 -define png:color-type=4 -define png:bit-depth=8"},
        {"greya16.png", "alpha.miff -colorspace gray -define png:color-type=4 -define png:bit-depth=16"},
        {"places1.png", "plain.ppm -monochrome -define png:color-type=3 -define png:bit-depth=1"},
        {"places4.png", "plain.ppm -colors 16 -depth 8 -define png:color-type=3 -define png:bit-depth=4"},
        {"places8.png", "plain.ppm -colors 200 -define png:color-type=3 -define png:bit-depth=8"},
        {"trans8.png", "plain.ppm -colors 20 -fuzz 20% -transparent red -define png:format=png8"},
        {"none8.png", "-size 37x29 xc:none -fill red -draw 'circle 15,15 20,20' -define png:format=png8"}}};
    for (const Made& kind : kinds) {
        run(std::string("convert ") + kind.how + " " + kind.name);
        expect_same(kind.name, 1); // 16 bits are rounded, or laid on white, before or after
        if (HasFatalFailure()) return;
    }
}

TEST_F(ImageFormatsTest, InterlacedOnes) {
    for (const char* const kind : {"PNG24:a.png", "PNG32:a.png", "PNG8:a.png", "PNG64:a.png"}) {
        run(std::string("convert -size 37x29 xc:none -fill red -draw 'circle 15,15 20,20' -interlace PNG ") + kind);
        expect_same("a.png", 1);
        if (HasFatalFailure()) return;
        Image whole, band;
        ASSERT_EQ(grx_lit_image(path("a.png").c_str(), whole.get()), 1);
        const INT number = grx_ouvre_image(path("a.png").c_str(), band.get());
        ASSERT_GT(number, 0);
        PictureRows rows(whole.bytes());
        EXPECT_EQ(grx_lit_bande_image(number, 10, rows.data()), 10);
        EXPECT_EQ(grx_lit_bande_image(number, 100, rows.data() + whole.bytes() / 29 * 10), 19);
        EXPECT_EQ(grx_ferme_image(number), 1);
        EXPECT_EQ(rows, whole.rows());
    }
}

TEST_F(ImageFormatsTest, EightBitsAreExact) {
    run("convert -size 61x17 plasma:red-blue -depth 8 PNG24:a.png");
    expect_same("a.png");
    run("convert a.png -colors 200 -interlace PNG PNG8:b.png");
    expect_same("b.png");
}

TEST_F(ImageFormatsTest, KindsOfBitmaps) {
    run("convert -size 37x29 plasma:red-blue -depth 8 plain.ppm");
    run("convert -size 37x29 xc:none -fill red -draw 'circle 15,15 20,20' alpha.png");
    constexpr std::array<Made, 6> kinds{
        {{"b24.bmp", "plain.ppm -type truecolor"}, {"b8.bmp", "plain.ppm -colors 200 -compress none -type palette"},
            {"b4.bmp", "plain.ppm -colors 16 -compress none -type palette"}, {"b1.bmp", "plain.ppm -monochrome"},
            {"v3.bmp", "plain.ppm -type truecolor"}, {"b32.bmp", "alpha.png -type truecoloralpha"}}};
    for (const Made& kind : kinds) {
        const std::string format = std::string(kind.name) == "v3.bmp" ? "BMP3:" : "";
        run(std::string("convert ") + kind.how + " " + format + kind.name);
        expect_same(kind.name);
        if (HasFatalFailure()) return;
    }
}

TEST_F(ImageFormatsTest, OtherProgramsReadOurs) {
    for (const char* const name : {"a.png", "a.bmp"})
        for (const INT bytes : {1, 3, 4})
            for (const INT width : {13}) {
                Image image;
                make_random(image, width, 9, bytes, 77);
                if (bytes == 1) image->palette[5][3] = std::string(name) == "a.png" ? 100 : 255;
                ASSERT_EQ(grx_ecrit_image(path(name).c_str(), image.get(), 0), 1);
                expect_same(name, 1);
                if (HasFatalFailure()) return;
            }
}

// One made by hand: the place 3 of a palette of 2, in two bits.
TEST_F(ImageFormatsTest, APlaceThatThePaletteLacksIsRefused) {
    run("convert -size 4x4 xc:red -fill blue -draw 'point 1,1' -fill green -draw 'point 2,2' -fill white -draw 'point "
        "3,3'"
        " -define png:color-type=3 -define png:bit-depth=2 four.png");
    std::string bytes = folder_.read("four.png");
    const std::size_t at = bytes.find("PLTE");
    ASSERT_NE(at, std::string::npos);
    ASSERT_EQ(bytes[at - 1], 12);
    // Two entries instead of four; the checksum is that of "PLTE" and six zero bytes.
    bytes.replace(at - 4, 4 + 4 + 12 + 4, std::string("\0\0\0\6PLTE\0\0\0\0\0\0\xA4\x8D\x87\xE4", 18).substr(0, 18));
    unsigned long sum = 0xFFFFFFFFUL;
    for (std::size_t i = at; i < at + 10; ++i) {
        sum ^= static_cast<unsigned char>(bytes[i]);
        for (int bit = 0; bit < 8; ++bit) sum = sum & 1UL ? 0xEDB88320UL ^ sum >> 1 : sum >> 1;
    }
    sum ^= 0xFFFFFFFFUL;
    for (std::size_t i = 0; i < 4; ++i) bytes[at + 10 + i] = static_cast<char>(sum >> (24 - 8 * i));
    for (const INT wanted : {0, 3, 4}) {
        Image image(wanted);
        EXPECT_EQ(grx_lit_image_memoire(reinterpret_cast<const unsigned char*>(bytes.data()),
                      static_cast<INT>(bytes.size()), image.get()),
            GRX_ECHEC_FORMAT);
    }
}

} // namespace
