// The writer of bitmap files of 256 colours, which needs the colours of the screen.
#include "tests/display/drawing/icon_kit.h"

#include <string>

namespace {

using namespace grxtest;

void put(std::string& bytes, std::uint32_t value, int width) {
    for (int i = 0; i < width; ++i) bytes.push_back(static_cast<char>(value >> (8 * i)));
}

TEST_F(IconTest, TwoHundredAndFiftySixColoursByteByByte) {
    icon_file("deep.bmp", {1, 2, 3, 4, 5, 200, 7, 8, 9, 255}, 5, 2, true);
    std::string expected = "BM";
    for (std::uint32_t field : {1078U + 16U, 0U, 1078U, 40U, 5U, 2U}) put(expected, field, 4);
    put(expected, 1, 2);
    put(expected, 8, 2);
    for (std::uint32_t field : {0U, 16U, 0U, 0U, 256U, 256U}) put(expected, field, 4);
    for (INT i = 0; i < 256; ++i) {
        INT rgb[3]{};
        if (i < grx_recup_max_couleur_trace()) grx_recup_rgb(i, rgb);
        for (INT component : rgb) expected.push_back(static_cast<char>(component)); // red first
        expected.push_back('\0');
    }
    expected += std::string("\xC8\x07\x08\x09\xFF\0\0\0", 8) + std::string("\1\2\3\4\5\0\0\0", 8);
    const std::string file = home().read("deep.bmp");
    EXPECT_EQ(file.size(), expected.size());
    EXPECT_EQ(file, expected);
}

TEST_F(IconTest, RedIsTheFirstByteOfAPaletteEntry) {
    INT red[3] = {255, 10, 20};
    grx_modif_rgb(9, red);
    icon_file("deep.bmp", {1}, 1, 1, true);
    const std::string file = home().read("deep.bmp");
    EXPECT_EQ(static_cast<uchar>(file.at(54 + 36)), 255);
    EXPECT_LE(static_cast<uchar>(file.at(54 + 37)), 10);
    EXPECT_LE(static_cast<uchar>(file.at(54 + 38)), 20);
    EXPECT_EQ(file.at(54 + 39), 0);
}

TEST_F(IconTest, ShortageWhileWritingGives1) {
    icon_file("deep.bmp", Bytes(16, 1), 4, 4, true);
    std::string directory = home().text(), name = "deep.bmp";
    Bytes picture(16, 1);
    const auto before = heap().allocations();
    ASSERT_EQ(ecrit_fichier_bitmap_256(directory.data(), name.data(), picture.data(), 4, 4), 0);
    const auto count = heap().allocations() - before;
    EXPECT_GT(count, 0U);
    for (std::size_t n = 1; n <= count; ++n) {
        const NoLeak no_leak;
        heap().fail_at(n);
        EXPECT_EQ(ecrit_fichier_bitmap_256(directory.data(), name.data(), picture.data(), 4, 4), 1) << n;
        heap().fail_never();
    }
}

} // namespace
