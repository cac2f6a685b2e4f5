// Pictures of 10,000 x 10,000 pixels: how much memory they take beside themselves.
#include <gtest/gtest.h>

#include "tests/support/image_kit.h"

#include <cstdio>

namespace {

using namespace grxtest;

constexpr INT side = 10000;
constexpr long mebibyte = 1024 * 1024;

// Bytes of this process that were in memory at most since clear().
class Peak {
  public:
    Peak() { clear(); }
    long bytes() const { return field("VmHWM:") - before_; }

  private:
    void clear() {
        if (FILE* const file = std::fopen("/proc/self/clear_refs", "w")) {
            std::fputs("5", file);
            std::fclose(file);
        }
        before_ = field("VmRSS:");
    }
    static long field(const std::string& name) {
        FILE* const file = std::fopen("/proc/self/status", "r");
        char line[256];
        long kilobytes = 0;
        while (std::fgets(line, sizeof line, file) != nullptr)
            if (std::string(line).rfind(name, 0) == 0) std::sscanf(line + name.size(), "%ld", &kilobytes);
        std::fclose(file);
        return kilobytes * 1024;
    }
    long before_ = 0;
};

// Something like a drawing: lines on white.
void fill_row(PictureRows& row, INT y) {
    std::fill(row.begin(), row.end(), static_cast<unsigned char>(255));
    for (INT x = y % 97; x < side; x += 97) row[static_cast<std::size_t>(3 * x)] = static_cast<unsigned char>(y);
}

class LargeImageTest : public testing::Test {
  protected:
    void write(const char* name) {
        Image form;
        form->largeur = form->hauteur = side;
        form->octets_par_pixel = 3;
        const INT number = grx_ouvre_ecriture_image(path(name).c_str(), form.get(), 0);
        ASSERT_EQ(number, 1);
        PictureRows row(std::size_t{3} * side);
        for (INT y = 0; y < side; ++y) {
            fill_row(row, y);
            ASSERT_EQ(grx_ecrit_bande_image(number, 1, row.data()), 1);
        }
        ASSERT_EQ(grx_ferme_image(number), 1);
    }
    std::string path(const char* name) const { return folder_.text() + "/" + name; }
    TempDir folder_;
};

TEST_F(LargeImageTest, ByBandsTakesNextToNothing) {
    const Peak peak;
    write("a.png");
    Image form;
    const INT number = grx_ouvre_image(path("a.png").c_str(), form.get());
    ASSERT_EQ(number, 1);
    PictureRows band(std::size_t{3} * side * 10), row(std::size_t{3} * side);
    for (INT y = 0; y < side; y += 10) {
        ASSERT_EQ(grx_lit_bande_image(number, 10, band.data()), 10);
        fill_row(row, y);
        ASSERT_EQ(std::memcmp(band.data(), row.data(), row.size()), 0) << y;
    }
    EXPECT_EQ(grx_ferme_image(number), 1);
    EXPECT_LT(peak.bytes(), 8 * mebibyte);
}

TEST_F(LargeImageTest, WholeTakesLittleMoreThanThePicture) {
    write("a.png");
    const Peak peak;
    Image whole;
    ASSERT_EQ(grx_lit_image(path("a.png").c_str(), whole.get()), 1);
    EXPECT_GT(peak.bytes(), 3L * side * side - 8 * mebibyte) << "nothing is measured";
    EXPECT_LT(peak.bytes(), 3L * side * side + 64 * mebibyte);
    PictureRows row(std::size_t{3} * side);
    fill_row(row, side - 1);
    EXPECT_EQ(std::memcmp(whole->pixels + std::size_t{3} * side * (side - 1), row.data(), row.size()), 0);
}

} // namespace
