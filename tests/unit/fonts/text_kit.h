// Texts of drawings for tests without a display, and files that are fonts or not.
#pragma once

#include "xt_gfx_t.h"
#include "grx_plus.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <numbers>
#include <string>
#include <vector>

namespace grxtest {

inline constexpr const char* kSans = "DejaVu Sans";

inline GRX_TEXTE text_of(const std::string& characters, const std::string& font = kSans, double height = 20) {
    GRX_TEXTE text;
    EXPECT_EQ(grx_init_texte_dessin(&text), 1);
    characters.copy(text.chaine, sizeof text.chaine);
    font.copy(text.fontlabel, sizeof text.fontlabel);
    text.hauteurlabel = text.largeurlabel = height;
    return text;
}

inline void turn(GRX_TEXTE& text, double degrees) {
    text.cosinuslabel = std::cos(degrees * std::numbers::pi / 180);
    text.sinuslabel = std::sin(degrees * std::numbers::pi / 180);
}

inline GRX_BOITE_TEXTE box_of(const GRX_TEXTE& text, INT result = 1) {
    GRX_BOITE_TEXTE box;
    EXPECT_EQ(grx_init_boite_texte(&box), 1);
    EXPECT_EQ(grx_recup_boite_texte(&text, &box), result);
    return box;
}

// The outlines of a text, copied.
struct Outlines {
    INT result = 0;
    INT closed = -1;
    std::vector<std::vector<GRX_POINT_REEL>> paths;

    explicit Outlines(const GRX_TEXTE& text, double tolerance = 0) {
        GRX_CONTOURS_TEXTE found;
        EXPECT_EQ(grx_init_contours_texte(&found), 1);
        result = grx_recup_contours_texte(&text, tolerance, &found);
        if (result < 1) return;
        closed = found.ferme;
        for (INT i = 0; i < found.nb_contours; ++i)
            paths.emplace_back(found.points + found.debuts[i], found.points + found.debuts[i + 1]);
        EXPECT_EQ(found.debuts[found.nb_contours], found.nb_points);
    }

    std::size_t points() const {
        std::size_t count = 0;
        for (const auto& path : paths) count += path.size();
        return count;
    }
    // Added up over closed outlines; holes count against.
    double area() const {
        double twice = 0;
        for (const auto& path : paths)
            for (std::size_t i = 0; i < path.size(); ++i) {
                const auto &a = path[i], &b = path[(i + 1) % path.size()];
                twice += a.x * b.y - b.x * a.y;
            }
        return std::abs(twice / 2);
    }
};

inline std::string file_of_family(const std::string& name) {
    for (const char* folder : {"/usr/share/fonts/truetype/dejavu/", "/usr/share/fonts/TTF/"}) {
        const std::string path = folder + name;
        if (std::ifstream(path).good()) return path;
    }
    return {};
}

inline std::string bytes_of(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace grxtest
