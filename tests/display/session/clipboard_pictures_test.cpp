// Pictures on the clipboard: PNG files as they are, and pixels made into them and back.
#include "tests/display/session/clipboard_kit.h"

#include <numeric>

namespace {

using namespace grxtest;

using Bytes = std::vector<unsigned char>;
const Bytes png_start{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

std::string text_of(const Bytes& bytes) {
    return {bytes.begin(), bytes.end()};
}

INT put_png(const Bytes& bytes, INT selection = 0) {
    return grx_affecte_png_presse_papiers(selection, bytes.data(), static_cast<INT>(bytes.size()));
}

// A picture with every value of every colour.
Bytes pixels_of(INT width, INT height) {
    Bytes pixels(static_cast<std::size_t>(3 * width * height));
    for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = static_cast<unsigned char>(i * 37 + i / 256);
    return pixels;
}

struct Picture {
    INT result = 0, width = 0, height = 0;
    Bytes pixels;
};
Picture get_picture(INT selection = 0) {
    const unsigned char* pixels = nullptr;
    Picture picture;
    picture.result = grx_recup_image_presse_papiers(selection, &pixels, &picture.width, &picture.height);
    if (picture.result == 1) picture.pixels.assign(pixels, pixels + 3 * picture.width * picture.height);
    return picture;
}

// The file that the library makes of a picture.
std::string file_of(INT width, INT height) {
    EXPECT_EQ(grx_affecte_image_presse_papiers(0, pixels_of(width, height).data(), width, height), 1);
    const unsigned char* bytes = nullptr;
    INT count = 0;
    EXPECT_EQ(grx_recup_png_presse_papiers(0, &bytes, &count), 1);
    return {bytes, bytes + count};
}

TEST_F(ClipboardTest, AFileGoesOutAsItIs) {
    Bytes file = png_start;
    for (int i = 0; i < 700'000; ++i) file.push_back(static_cast<unsigned char>(i % 256)); // zeros as well
    ASSERT_EQ(put_png(file), 1);
    const auto got = asked("image/png");
    ASSERT_TRUE(got);
    EXPECT_EQ(got->type, "image/png");
    EXPECT_TRUE(got->in_parts);
    EXPECT_TRUE(got->bytes == text_of(file));
    EXPECT_FALSE(asked("UTF8_STRING"));
    EXPECT_EQ(grx_recup_contenu_presse_papiers(0), GRX_CONTENU_PNG | GRX_CONTENU_PROPRE);
    EXPECT_EQ(get_text().result, GRX_ECHEC_ABSENT);
}

TEST_F(ClipboardTest, AFileComesAsItIs) {
    Bytes file = png_start;
    for (int i = 0; i < 700'000; ++i) file.push_back(static_cast<unsigned char>(i % 256));
    for (const Manner manner : {Manner::well, Manner::in_parts}) {
        const OtherOwner owner(server().name(), {{"image/png", {"", text_of(file)}}}, manner);
        const unsigned char* bytes = nullptr;
        INT count = 0;
        ASSERT_EQ(grx_recup_png_presse_papiers(0, &bytes, &count), 1);
        EXPECT_TRUE(Bytes(bytes, bytes + count) == file) << count;
        EXPECT_EQ(bytes[count], 0);
    }
}

TEST_F(ClipboardTest, WhatIsNoPngIsRefused) {
    ASSERT_EQ(put_text("kept"), 1);
    EXPECT_EQ(put_png({0x89, 'P', 'N', 'G', '\r', '\n', 0x1A}), GRX_ECHEC_FORMAT);
    EXPECT_EQ(put_png({'G', 'I', 'F', '8', '9', 'a', 0, 0, 0}), GRX_ECHEC_FORMAT);
    EXPECT_EQ(grx_affecte_png_presse_papiers(0, png_start.data(), 0), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_affecte_png_presse_papiers(0, png_start.data(), -8), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_affecte_png_presse_papiers(0, nullptr, 8), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(put_png(png_start, 2), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(get_text().text, "kept");
    const unsigned char* bytes = nullptr;
    EXPECT_EQ(grx_recup_png_presse_papiers(0, &bytes, nullptr), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_recup_png_presse_papiers(0, nullptr, nullptr), GRX_ECHEC_PARAMETRE);
    const OtherOwner owner(server().name(), {{"image/png", {"", "<html>"}}});
    EXPECT_EQ(grx_recup_png_presse_papiers(0, &bytes, nullptr), GRX_ECHEC_FORMAT);
    EXPECT_EQ(get_picture().result, GRX_ECHEC_FORMAT);
    EXPECT_EQ(bytes, nullptr);
}

TEST_F(ClipboardTest, PicturesComeBackPixelForPixel) {
    for (const auto& [width, height] :
        std::vector<std::pair<INT, INT>>{{1, 1}, {7, 3}, {640, 480}, {1, 2000}, {32767, 1}}) {
        const Bytes pixels = pixels_of(width, height);
        ASSERT_EQ(grx_affecte_image_presse_papiers(0, pixels.data(), width, height), 1);
        const Picture own = get_picture();
        ASSERT_EQ(own.result, 1);
        EXPECT_EQ(own.width, width);
        EXPECT_EQ(own.height, height);
        EXPECT_TRUE(own.pixels == pixels);
        const auto got = asked("image/png");
        ASSERT_TRUE(got);
        const OtherOwner owner(server().name(), {{"image/png", {"", got->bytes}}});
        drain();
        const Picture again = get_picture();
        ASSERT_EQ(again.result, 1) << width;
        EXPECT_TRUE(again.pixels == pixels);
    }
}

// 2 x 1, one pixel red and half transparent, one wholly transparent.
const Bytes transparent{0x89, 0x50, 0x4E, 0x47, 0x0D, 0x0A, 0x1A, 0x0A, 0x00, 0x00, 0x00, 0x0D, 0x49, 0x48, 0x44, 0x52,
    0x00, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00, 0x01, 0x08, 0x06, 0x00, 0x00, 0x00, 0xF4, 0x22, 0x7F, 0x8A, 0x00, 0x00,
    0x00, 0x11, 0x49, 0x44, 0x41, 0x54, 0x78, 0x9C, 0x63, 0xF8, 0xCF, 0xC0, 0xD0, 0xC0, 0xC0, 0xF0, 0x9F, 0x01, 0x00,
    0x0C, 0x7F, 0x02, 0x7F, 0x88, 0xBA, 0x31, 0x9C, 0x00, 0x00, 0x00, 0x00, 0x49, 0x45, 0x4E, 0x44, 0xAE, 0x42, 0x60,
    0x82};

TEST_F(ClipboardTest, TransparentPicturesLieOnWhite) {
    ASSERT_EQ(put_png(transparent), 1);
    const Picture picture = get_picture();
    ASSERT_EQ(picture.result, 1);
    ASSERT_EQ(picture.pixels.size(), 6U);
    EXPECT_EQ(picture.pixels[0], 255);
    EXPECT_NEAR(picture.pixels[1], 188, 70); // between the colour and white, however it is mixed
    EXPECT_EQ(Bytes(picture.pixels.begin() + 3, picture.pixels.end()), (Bytes{255, 255, 255}));
}

TEST_F(ClipboardTest, DamagedFilesAreRefusedWherever) {
    const std::string file = file_of(20, 10);
    const auto put = [](const std::string& bytes) { return put_png(Bytes(bytes.begin(), bytes.end())); };
    for (std::size_t length = 8; length < file.size() - 12; length += 9) {
        ASSERT_EQ(put(file.substr(0, length)), 1);
        EXPECT_EQ(get_picture().result, GRX_ECHEC_FORMAT) << length;
    }
    std::string wide = file;
    wide[16] = '\x7F'; // a width of two milliards
    ASSERT_EQ(put(wide), 1);
    EXPECT_EQ(get_picture().result, GRX_ECHEC_FORMAT);
    std::string damaged = file;
    for (std::size_t i = 50; i < 60; ++i) damaged[i] = static_cast<char>(~damaged[i]);
    ASSERT_EQ(put(damaged), 1);
    EXPECT_EQ(get_picture().result, GRX_ECHEC_FORMAT);
}

TEST_F(ClipboardTest, SidesOfPicturesAreChecked) {
    const Bytes pixels = pixels_of(4, 4);
    const unsigned char* out = nullptr;
    INT side = 0;
    for (const auto& [width, height] : std::vector<std::pair<INT, INT>>{
             {0, 4}, {4, 0}, {-1, 4}, {4, INT_MIN}, {32768, 1}, {1, INT_MAX}, {32767, 32767}})
        EXPECT_EQ(grx_affecte_image_presse_papiers(0, pixels.data(), width, height), GRX_ECHEC_PARAMETRE) << width;
    EXPECT_EQ(grx_affecte_image_presse_papiers(0, nullptr, 4, 4), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_affecte_image_presse_papiers(3, pixels.data(), 4, 4), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_image_presse_papiers(0, nullptr, &side, &side), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_image_presse_papiers(0, &out, nullptr, &side), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_image_presse_papiers(0, &out, &side, nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_image_presse_papiers(0, &out, &side, &side), GRX_ECHEC_ABSENT);
}

TEST_F(ClipboardTest, ShortMemoryIsToldOfPictures) {
    const Bytes pixels = pixels_of(30, 30);
    ASSERT_EQ(grx_affecte_image_presse_papiers(0, pixels.data(), 30, 30), 1);
    heap().fail_at(1);
    EXPECT_EQ(grx_affecte_image_presse_papiers(0, pixels.data(), 30, 30), GRX_ECHEC_MEMOIRE);
    for (int n = 1; n <= 2; ++n) {
        heap().fail_at(n);
        EXPECT_EQ(get_picture().result, GRX_ECHEC_MEMOIRE) << n;
    }
    heap().fail_never();
    EXPECT_TRUE(get_picture().pixels == pixels);
}

TEST_F(ClipboardTest, FiveHundredPicturesDoNotGrow) {
    const Bytes pixels = pixels_of(50, 40);
    const auto round = [&] {
        ASSERT_EQ(grx_affecte_image_presse_papiers(0, pixels.data(), 50, 40), 1);
        ASSERT_EQ(get_picture().result, 1);
    };
    round();
    const auto blocks = heap().blocks();
    const auto bytes = heap().bytes();
    for (int i = 0; i < 500; ++i) round();
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(heap().bytes(), bytes);
}

} // namespace
