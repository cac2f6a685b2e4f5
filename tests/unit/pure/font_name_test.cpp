// Names of fonts and resolutions, taken apart.
#include "pure/font_name.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>

namespace {

TEST(FontName, OutlineFontsHaveTheirPrefix) {
    EXPECT_TRUE(grx::names_outline_font("xft:DejaVu Sans:size=11"));
    EXPECT_TRUE(grx::names_outline_font("xft:"));
    for (const char* const other : {"", "9x15", "xft", " xft:a", "XFT:a", "-misc-fixed-*"})
        EXPECT_FALSE(grx::names_outline_font(other)) << other;
    EXPECT_EQ(grx::outline_pattern("xft:  DejaVu Sans:size=11"), "DejaVu Sans:size=11");
    EXPECT_EQ(grx::outline_pattern("xft:"), "");
    EXPECT_EQ(grx::outline_pattern("xft:   "), "");
    EXPECT_EQ(grx::outline_pattern(""), "");
}

TEST(FontName, GenericFamilies) {
    for (const char* const family : {"sans", "Sans", "SANS-SERIF", "Serif", "monospace", "Mono"})
        EXPECT_TRUE(grx::is_generic_family(family)) << family;
    for (const char* const family : {"", "sansa", "san", "DejaVu Sans"})
        EXPECT_FALSE(grx::is_generic_family(family)) << family;
}

TEST(FontName, HeightIsTheSeventhField) {
    EXPECT_EQ(grx::pixel_height_in("-misc-fixed-medium-r-normal--13-120-75-75-c-70-iso8859-1"), 13);
    EXPECT_EQ(grx::pixel_height_in("-misc-fixed-medium-r-normal--0-0-75-75-c-0-iso8859-1"), 0);
    for (const char* const name : {"", "9x15", "-------", "-a-b-c-d-e-f-x-", "-a-b-c-d-e-f-13x-", "-a-b-c-d-e-f--7-",
             "-a-b-c-d-e-f-99999999999-"})
        EXPECT_EQ(grx::pixel_height_in(name), 0) << name;
}

TEST(FontName, TheNearestHeightWinsThenTheFamilyFixed) {
    const std::array names{"-x-helvetica-medium-r-normal--14-", "-m-fixed-medium-r-normal--14-",
        "-m-fixed-medium-r-normal--20-", "9x15", "-x-helvetica-medium-r-normal--17-"};
    struct Row {
        int height;
        std::size_t place;
    };
    for (const Row& row : {Row{0, 1}, Row{14, 1}, Row{15, 1}, Row{16, 4}, Row{17, 4}, Row{19, 2}, Row{500, 2}})
        EXPECT_EQ(grx::nearest_in_height(names, row.height), row.place) << row.height;
    const std::array silent{"9x15", "fixed"};
    EXPECT_EQ(grx::nearest_in_height(silent, 14), silent.size());
    EXPECT_EQ(grx::nearest_in_height({}, 14), 0U);
}

TEST(Resolution, OfAScreen) {
    EXPECT_EQ(grx::resolution_of(1024, 271), 96);
    EXPECT_EQ(grx::resolution_of(2160, 286), 192);
    for (const auto& [pixels, millimetres] :
        {std::pair{0, 0}, {1024, 0}, {1024, -3}, {-5, 100}, {1024, 1}, {10, 1000}, {INT_MAX, 1}})
        EXPECT_EQ(grx::resolution_of(pixels, millimetres), 96) << pixels << " on " << millimetres;
}

TEST(Resolution, OfAText) {
    EXPECT_EQ(grx::resolution_in("144"), 144);
    EXPECT_EQ(grx::resolution_in(" 143.6\t"), 144);
    EXPECT_EQ(grx::resolution_in("40"), 40);
    EXPECT_EQ(grx::resolution_in("1000"), 1000);
    for (const char* const text : {"", " ", "abc", "39", "1001", "-96", "nan", "inf", "96dpi", "1e9", "96 96"})
        EXPECT_EQ(grx::resolution_in(text), 0) << text;
}

} // namespace
