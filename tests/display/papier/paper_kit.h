// What the tests of paper share: papers in a folder of the test's own, and their pages read back as pictures.
#pragma once

#include "tests/support/display_test.h"

#include "grx_plus_erreurs.h"
#include "grx_plus_papier.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

namespace grxtest {

// What a command writes.
inline std::string output_of(const std::string& command) {
    std::string result;
    FILE* const from = popen(command.c_str(), "r");
    if (from == nullptr) return result;
    std::array<char, 4096> part{};
    for (std::size_t got = 0; (got = fread(part.data(), 1, part.size(), from)) > 0;) result.append(part.data(), got);
    pclose(from);
    return result;
}

// A page as it is printed: three bytes a pixel.
struct PagePicture {
    int width = 0, height = 0;
    std::string bytes;

    std::array<int, 3> at(int x, int y) const {
        const std::size_t i =
            3 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x));
        const auto part = [&](std::size_t c) { return static_cast<int>(static_cast<unsigned char>(bytes.at(i + c))); };
        return {part(0), part(1), part(2)};
    }
    bool inked(int x, int y) const {
        if (x < 0 || y < 0 || x >= width || y >= height) return false;
        const auto [r, g, b] = at(x, y);
        return std::min({r, g, b}) < 128;
    }
    // The smallest area that holds all ink within an area.
    Area ink(Area in) const {
        int left = width, top = height, right = -1, bottom = -1;
        for (int y = std::max(in.y, 0); y < std::min(in.y + in.height, height); ++y)
            for (int x = std::max(in.x, 0); x < std::min(in.x + in.width, width); ++x) {
                if (!inked(x, y)) continue;
                left = std::min(left, x), right = std::max(right, x);
                top = std::min(top, y), bottom = std::max(bottom, y);
            }
        return right < 0 ? Area{} : Area{left, top, right - left + 1, bottom - top + 1};
    }
    Area ink() const { return ink({0, 0, width, height}); }
    // Lengths of ink and paper in turn along a row, from the first ink on.
    std::vector<int> runs(int y) const {
        std::vector<int> result;
        for (int x = 0; x < width; ++x) {
            const bool on = inked(x, y);
            if (result.empty() && !on) continue;
            const bool counting_ink = result.size() % 2 == 1;
            if (result.empty() || on != counting_ink) result.push_back(0);
            ++result.back();
        }
        return result;
    }
};

// A page of a PDF, by another program than the one that wrote it.
inline PagePicture page_picture(const std::string& file, int dots_per_inch, int page = 1) {
    const std::string number = std::to_string(page);
    const std::string read = output_of("pdftoppm -r " + std::to_string(dots_per_inch) + " -f " + number + " -l "
                                       + number + " -singlefile '" + file + "'");
    PagePicture picture;
    int most = 0, used = 0;
    if (std::sscanf(read.c_str(), "P6 %d %d %d%n", &picture.width, &picture.height, &most, &used) == 3)
        picture.bytes = read.substr(static_cast<std::size_t>(used) + 1);
    return picture;
}

constexpr int fine = 254; // dots per inch: ten for each millimetre

inline GRX_ATTRIBUTS_TRACER drawn_in(INT colour, INT style = 0, INT width = 0, INT mode = 0) {
    return {0, colour, mode, 0, style, width};
}
constexpr INT black_ink = 8, blue_ink = 8 + 9, red_ink = 8 + 12, white_ink = 5;

inline void line(INT x1, INT y1, INT x2, INT y2, const GRX_ATTRIBUTS_TRACER& attrib = drawn_in(black_ink)) {
    grx_trace_segment({1, x1, y1, x2, y2, 0, 0, 0, attrib});
}

inline std::string told_of_paper() {
    std::array<char, 256> text{};
    grx_recup_texte_papier(text.data(), static_cast<INT>(text.size()));
    return text.data();
}

// Papers without a display: a pixel is a millimetre, the scale 1:1, the sheet an A4 upright.
class PaperKit {
  public:
    GRX_PAPIER described(const std::string& name = "plan.pdf", INT width = 190, INT height = 277) {
        GRX_PAPIER paper{};
        EXPECT_EQ(grx_init_papier(&paper), 1);
        file_ = (folder_.path() / name).string();
        paper.fichier = file_.c_str();
        paper.largeur_zone = width;
        paper.hauteur_zone = height;
        paper.echelle = 1;
        paper.centre = 0;
        return paper;
    }
    const std::string& file() const { return file_; }
    const TempDir& folder() const { return folder_; }
    std::string written() const { return folder_.read(std::filesystem::path(file_).filename()); }

    // What is in the folder.
    std::vector<std::string> names() const {
        std::vector<std::string> result;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
            result.push_back(entry.path().filename().string());
        std::sort(result.begin(), result.end());
        return result;
    }

    template <class Draw>
    void print(const GRX_PAPIER& paper, Draw draw) {
        ASSERT_EQ(grx_commence_papier(&paper), 1) << told_of_paper();
        draw();
        ASSERT_EQ(grx_termine_papier(), 1) << told_of_paper();
    }

  private:
    TempDir folder_;
    std::string file_;
};

class PaperOn24 : public testing::Test, protected PaperKit {};

} // namespace grxtest
