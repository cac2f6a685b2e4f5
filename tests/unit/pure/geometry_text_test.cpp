// Geometries as users write them for X programs.
#include "pure/geometry_text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using grx::EdgeDistance;
using grx::Geometry;
using grx::read_geometry;

TEST(GeometryText, SizesPlacesAndBoth) {
    struct Row {
        const char* text;
        Geometry expected;
    };
    const Row rows[] = {
        {"300x200", {300, 200, false, {}, {}}},
        {"=300X200", {300, 200, false, {}, {}}},
        {"300x200+10+20", {300, 200, true, {false, 10}, {false, 20}}},
        {"300x200-0-0", {300, 200, true, {true, 0}, {true, 0}}},
        {"-0+7", {0, 0, true, {true, 0}, {false, 7}}},
        {"+0-7", {0, 0, true, {false, 0}, {true, 7}}},
        {"+-5--6", {0, 0, true, {false, -5}, {true, -6}}},
        {"=+1+2", {0, 0, true, {false, 1}, {false, 2}}},
        {"1x1+32767-32767", {1, 1, true, {false, 32767}, {true, 32767}}},
        {"0032767x001", {32767, 1, false, {}, {}}},
    };
    for (const Row& row : rows) {
        const auto read = read_geometry(row.text);
        ASSERT_TRUE(read) << row.text;
        EXPECT_EQ(*read, row.expected) << row.text;
    }
}

TEST(GeometryText, WhatIsNone) {
    for (const char* text : {"", "=", "12y", "12", "12x", "x12", "0x5", "5x0", "32768x5", "5x99999999999999999999",
             "+1", "+1+", "+1+2+3", "+1+2x", " 1x2", "1x2 ", "1x2+3", "1 x2", "-", "+-+1", "+--1+2", "1x2+32768+0",
             "1,2", "-1x5", "1x-5", "\xE9"})
        EXPECT_FALSE(read_geometry(text)) << text;
}

TEST(GeometryText, NoTextOfThreeSignsIsTakenForAPlaceByMistake) {
    int places = 0;
    const std::string signs = "+-x=09";
    for (char a : signs)
        for (char b : signs)
            for (char c : signs) {
                const auto read = read_geometry(std::string{a, b, c});
                const bool size = (a == '9') && b == 'x' && c == '9';
                EXPECT_EQ(read.has_value(), size) << a << b << c;
                places += read && read->placed ? 1 : 0;
            }
    EXPECT_EQ(places, 0) << "a place has four signs at least";
}

} // namespace
