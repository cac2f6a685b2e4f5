// Polygons cut to one side of a line.
#include "pure/polygon_clip.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<grx::Vertex> cut(const std::vector<grx::Vertex>& polygon, const grx::HalfPlane& side) {
    std::vector<grx::Vertex> out(2 * polygon.size() + 1);
    out.resize(grx::clip_polygon(polygon, side, out.data()));
    return out;
}

double area(const std::vector<grx::Vertex>& polygon) {
    double twice = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const auto &a = polygon[i], &b = polygon[(i + 1) % polygon.size()];
        twice += a.x * b.y - b.x * a.y;
    }
    return twice / 2;
}

const std::vector<grx::Vertex> kSquare{{0, 0}, {10, 0}, {10, 10}, {0, 10}};

TEST(PolygonClip, KeepsWhatIsInside) {
    EXPECT_EQ(cut(kSquare, {1, 0, 5}).size(), 4U);
    EXPECT_TRUE(cut(kSquare, {1, 0, -11}).empty());
    EXPECT_TRUE(cut({}, {1, 0, 0}).empty());
    EXPECT_DOUBLE_EQ(area(cut(kSquare, {1, 0, -4})), 60);
    EXPECT_DOUBLE_EQ(area(cut(kSquare, {-1, 0, 4})), 40);
    EXPECT_DOUBLE_EQ(area(cut(kSquare, {0, -1, 2})), 20);
}

TEST(PolygonClip, TwoHalvesAreTheWholeAndKeepTheirDirection) {
    const std::vector<grx::Vertex> comb{{0, 0}, {9, 0}, {9, 8}, {6, 2}, {5, 8}, {3, 2}, {2, 8}, {1, 1}};
    for (const double height : {1.0, 3.0, 5.5, 7.9}) {
        const auto above = cut(comb, {0, 1, -height}), below = cut(comb, {0, -1, height});
        EXPECT_NEAR(area(above) + area(below), area(comb), 1e-9) << height;
        EXPECT_GE(area(above), 0);
        EXPECT_LE(above.size(), 2 * comb.size());
    }
}

} // namespace
