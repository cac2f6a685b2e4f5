// Papers for pen plotters: units, pens, dashes, hatching and sheets, read back from the file.
#include "tests/display/papier/paper_kit.h"

#include <cmath>
#include <sstream>

namespace {
using namespace grxtest;

struct Place {
    long x, y;
    bool operator==(const Place&) const = default;
};
struct Stroke {
    int pen = 0, sheet = 1;
    std::vector<Place> places;
};

// A plotter: what its pens draw.
std::vector<Stroke> plotted(const std::string& text) {
    std::vector<Stroke> strokes;
    std::istringstream in(text);
    int pen = 0, sheet = 1;
    for (std::string command; std::getline(in, command, ';');) {
        command.erase(std::remove(command.begin(), command.end(), '\n'), command.end());
        const std::string name = command.substr(0, 2);
        std::istringstream numbers(command.size() > 2 ? command.substr(2) : "");
        std::vector<long> values;
        for (std::string one; std::getline(numbers, one, ',');) values.push_back(std::stol(one));
        if (name == "SP") pen = static_cast<int>(values.at(0));
        if (name == "PG") ++sheet;
        if (name == "PU" && values.size() == 2) strokes.push_back({pen, sheet, {{values[0], values[1]}}});
        for (std::size_t i = 0; name == "PD" && i + 1 < values.size(); i += 2)
            strokes.back().places.push_back({values[i], values[i + 1]});
    }
    return strokes;
}

double length_of(const Stroke& s) {
    double length = 0;
    for (std::size_t i = 1; i < s.places.size(); ++i)
        length += std::hypot(s.places[i].x - s.places[i - 1].x, s.places[i].y - s.places[i - 1].y);
    return length;
}

class PaperHpglOn24 : public PaperOn24 {
  protected:
    GRX_PAPIER plotter(INT width = 190, INT height = 277) {
        GRX_PAPIER paper = described("plan.plt", width, height);
        paper.genre = GRX_PAPIER_HPGL;
        return paper;
    }
    std::vector<Stroke> strokes() const { return plotted(written()); }
};

// The origin is at the lower left of the sheet within its margins, 40 units are a millimetre.
TEST_F(PaperHpglOn24, HundredMillimetresAreFourThousandUnits) {
    print(plotter(), [] { line(20, 20, 120, 20); });
    const auto all = strokes();
    ASSERT_EQ(all.size(), 1U) << written();
    EXPECT_EQ(all[0].places, (std::vector<Place>{{820, 10260}, {4820, 10260}}));
    EXPECT_EQ(written().substr(0, 7), "IN;PA;\n");
    EXPECT_EQ(written().substr(written().size() - 8), "PU;SP0;\n");
}

TEST_F(PaperHpglOn24, PensAreByColourEachTakenOnce) {
    print(plotter(), [] {
        for (INT i = 0; i < 6; ++i) line(20, 20 + i, 120, 20 + i, drawn_in(i % 2 ? blue_ink : red_ink));
        line(5, 5, 10, 10, drawn_in(grx_recup_couleur_fond())); // the paper's own colour
        line(5, 5, 10, 10, drawn_in(blue_ink, 0, 0, GRX_MODE_EFFACE));
        line(5, 5, 10, 10, drawn_in(blue_ink, 0, 0, GRX_MODE_XOR));
    });
    const auto all = strokes();
    ASSERT_EQ(all.size(), 6U) << written();
    EXPECT_EQ(all[0].pen, blue_ink % 8 + 1);
    EXPECT_EQ(all[5].pen, red_ink % 8 + 1);
    EXPECT_EQ(written().find("SP2"), written().rfind("SP2"));
}

TEST_F(PaperHpglOn24, PensAreByTheTableWhereThereIsOne) {
    std::array<INT, 21> pens{};
    pens[red_ink] = 33;
    GRX_PAPIER paper = plotter();
    paper.plumes = pens.data();
    paper.nb_plumes = static_cast<INT>(pens.size());
    print(paper, [] {
        line(20, 20, 120, 20, drawn_in(red_ink));
        line(20, 30, 120, 30, drawn_in(blue_ink)); // pen 0
    });
    const auto all = strokes();
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].pen, 33);
}

TEST_F(PaperHpglOn24, DashesAreCut) {
    print(plotter(), [] { line(10, 20, 30, 20, drawn_in(black_ink, GRX_TRAIT_POINTILLE)); });
    const auto all = strokes();
    ASSERT_EQ(all.size(), 5U); // 2 mm each, 2 mm apart
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_EQ(all[i].places[0].x, 420 + 160 * static_cast<long>(i));
        EXPECT_DOUBLE_EQ(length_of(all[i]), 80);
    }
}

TEST_F(PaperHpglOn24, DashesGoRoundCornersAndFromFarAway) {
    GRX_POINT_POLY points[] = {{10, 20}, {13, 20}, {13, 40}};
    print(plotter(), [&] { grx_trace_polyline({1, points, 3, 0, 0, 0, drawn_in(black_ink, GRX_TRAIT_POINTILLE)}); });
    auto all = strokes();
    ASSERT_GE(all.size(), 2U);
    EXPECT_EQ(all[1].places[0].y, all[0].places[0].y - 40); // 3 mm across, 1 mm down
    print(plotter(), [] { line(-2000000, 20, 2000000, 20, drawn_in(black_ink, GRX_TRAIT_POINTILLE)); });
    all = strokes();
    ASSERT_NEAR(static_cast<double>(all.size()), 190 / 4.0, 2);
    for (const Stroke& s : all) EXPECT_LE(length_of(s), 81);
    const long first = all[1].places[0].x - 20; // half a pixel
    EXPECT_EQ(first % 160, 0) << first;         // the line begins a whole number of dashes away
}

TEST_F(PaperHpglOn24, ArcsAreChordsWithinAUnit) {
    print(plotter(), [] { grx_trace_arc({1, 20, 30, 120, 120, 0, 360, 0, 0, 0, drawn_in(black_ink)}); });
    const auto all = strokes();
    ASSERT_EQ(all.size(), 1U);
    const double cx = 80.5 * 40, cy = (277 - 90.5) * 40;
    for (std::size_t i = 1; i < all[0].places.size(); ++i) {
        const Place a = all[0].places[i - 1], b = all[0].places[i];
        EXPECT_NEAR(std::hypot(static_cast<double>(b.x) - cx, static_cast<double>(b.y) - cy), 2400, 1);
        const double mx = static_cast<double>(a.x + b.x) / 2, my = static_cast<double>(a.y + b.y) / 2;
        EXPECT_NEAR(std::hypot(mx - cx, my - cy), 2400, 2);
    }
    EXPECT_NEAR(length_of(all[0]), 2 * std::acos(-1) * 2400, 10);
}

TEST_F(PaperHpglOn24, AreasAreOutlinedOrHatched) {
    const auto draw = [] {
        GRX_POINT_POLY points[] = {
            {20, 20}, {60, 20}, {60, 60}, {20, 60}, {20, 20}, {30, 30}, {50, 30}, {50, 50}, {30, 50}, {30, 30}};
        grx_remplit_polygone({1, points, 10, 0, 0, 0, drawn_in(black_ink)});
    };
    GRX_PAPIER paper = plotter();
    print(paper, draw);
    EXPECT_EQ(strokes().size(), 1U);
    paper.hachures = 2;
    print(paper, draw);
    const auto all = strokes();
    double hatched = 0;
    for (std::size_t i = 1; i < all.size(); ++i) {
        hatched += length_of(all[i]);
        const auto& p = all[i].places;
        EXPECT_NEAR(
            std::fabs(static_cast<double>(p[1].x - p[0].x)), std::fabs(static_cast<double>(p[1].y - p[0].y)), 1);
        for (const Place& at : p) // none inside the hole
            EXPECT_FALSE(static_cast<double>(at.x) > 30.6 * 40 && static_cast<double>(at.x) < 50.4 * 40
                         && static_cast<double>(at.y) < (277 - 30.6) * 40
                         && static_cast<double>(at.y) > (277 - 50.4) * 40);
    }
    EXPECT_NEAR(hatched / 40 * 2, 40 * 40 - 20 * 20, 40); // its length is the area by the distance
}

TEST_F(PaperHpglOn24, SheetsFollowEachOther) {
    GRX_PAPIER paper = plotter(400, 200);
    paper.reperes = 0;
    print(paper, [] { line(20, 50, 380, 50); });
    const auto all = strokes();
    ASSERT_EQ(all.size(), 3U);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(all[static_cast<std::size_t>(i)].sheet, i + 1);
    EXPECT_EQ(all[0].places[1].x, 190 * 40);
    EXPECT_EQ(all[1].places[0].x, 0);
    paper.reperes = 1;
    print(paper, [] { line(20, 50, 380, 50); });
    EXPECT_EQ(strokes().size(), 3U + 3 * 8);
}

TEST_F(PaperHpglOn24, PagesFollowEachOtherAndPicturesAreFrames) {
    print(plotter(), [] {
        line(20, 20, 120, 20);
        EXPECT_EQ(grx_page_papier(), 1);
        std::array<uchar, 12> picture{};
        grx_stretch_image(1, 1, picture.data(), nullptr, 2, 2, 20, 30, 100, 50);
        EXPECT_EQ(grx_signet_papier("Toit"), 1);
        EXPECT_EQ(grx_lien_papier(1, 1, 5, 5, "x"), 1);
    });
    const auto all = strokes();
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[1].sheet, 2);
    EXPECT_DOUBLE_EQ(length_of(all[1]), 300 * 40);
}

} // namespace
