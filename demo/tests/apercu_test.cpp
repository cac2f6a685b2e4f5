// The small picture of a drawing.
#include <gtest/gtest.h>

#include "apercu.h"

namespace atelier {

namespace {

constexpr uchar kVide = 0;

Image vide(int largeur, int hauteur) {
    return {largeur, hauteur, std::vector<uchar>(static_cast<std::size_t>(largeur * hauteur), kVide)};
}

uchar& point(Image& image, int x, int y) {
    return image.points[static_cast<std::size_t>(y * image.largeur + x)];
}

} // namespace

TEST(Apercu, KeepsTheProportions) {
    const Image r = reduite(vide(800, 400), 80, kVide);
    EXPECT_EQ(r.largeur, 80);
    EXPECT_EQ(r.hauteur, 40);
    EXPECT_EQ(r.points, std::vector<uchar>(80 * 40, kVide));
    EXPECT_EQ(reduite(vide(3, 900), 80, kVide).largeur, 1);
    EXPECT_EQ(reduite(vide(3, 900), 80, kVide).hauteur, 80);
}

TEST(Apercu, LeavesASmallPicture) {
    Image image = vide(80, 7);
    point(image, 3, 2) = 9;
    const Image r = reduite(image, 80, kVide);
    EXPECT_EQ(r.largeur, 80);
    EXPECT_EQ(r.hauteur, 7);
    EXPECT_EQ(r.points, image.points);
    EXPECT_TRUE(reduite(Image{}, 80, kVide).points.empty());
}

TEST(Apercu, KeepsAThinLineAndItsPlace) {
    Image image = vide(800, 800);
    for (int x = 0; x < 800; ++x) point(image, x, 405) = 12;
    Image r = reduite(image, 80, kVide);
    for (int x = 0; x < 80; ++x) {
        EXPECT_EQ(point(r, x, 40), 12) << x;
        EXPECT_EQ(point(r, x, 39), kVide) << x;
        EXPECT_EQ(point(r, x, 41), kVide) << x;
    }
}

TEST(Apercu, TheColourOfMostPointsWins) {
    Image image = vide(160, 160);
    for (int x = 0; x < 160; ++x) point(image, x, 0) = x < 80 ? 5 : 6;
    point(image, 0, 1) = 7;
    Image r = reduite(image, 40, kVide);
    EXPECT_EQ(point(r, 0, 0), 5);
    EXPECT_EQ(point(r, 39, 0), 6);
}

TEST(Apercu, AStrayPointIsNoLine) {
    Image image = vide(800, 800);
    point(image, 400, 400) = 12;
    EXPECT_EQ(reduite(image, 80, kVide).points, std::vector<uchar>(80 * 80, kVide));
}

} // namespace atelier
