// What the lines of a menu file build.
#include "tests/display/menus/menu_kit.h"
#include "tests/support/stdout_capture.h"

#include <Xm/XmAll.h>

#include <cstring>
#include <string>

namespace {

using namespace grxtest;

TEST_F(MenuTest, ExampleIsBuiltInOrder) {
    main_window(example_menu);
    EXPECT_EQ(shown_bar(), example_menu_shown);
    EXPECT_TRUE(XtIsManaged(grx_get_Glob_menu_bar()));
}

TEST_F(MenuTest, LineEndsDoNotMatter) {
    std::string dos;
    for (char c : example_menu) dos += c == '\n' ? std::string("\r\n") : std::string(1, c);
    main_window(dos);
    EXPECT_EQ(shown_bar(), example_menu_shown);
}

TEST_F(MenuTest, LastLineNeedsNoEnd) {
    main_window("#:ZONE_MENU_BAR\n{\nPOPUP||A|\n{\nITEM||a||1|\nITEM||b||2|");
    EXPECT_EQ(shown_bar(), "A{a, b}");
}

TEST_F(MenuTest, UselessLinesAreSkipped) {
    main_window(
        "POPUP||before|\n{\nITEM||before||1|\n}\n#:ZONE_MENU_BAR\nDEBUT\n{\n# comment\n\n   \nPOPUP||A|\n  {  \n"
        "ITEM||a||1|\nrubbish\nITEM||open||2\nITEM||FIN DE SESSION||3|\n#:ZONE_MENU_BAR\nITEM||b||4|\n}\n}\n}\n}\n"
        "{\nPOPUP||B|\nFIN\n");
    EXPECT_EQ(shown_bar(), "A{a, b} B{}");
}

TEST_F(MenuTest, HugeLinesAreSurvived) {
    main_window(menu_zone("POPUP||A|\n{\nITEM||" + std::string(100000, 'x') + "||1|\nITEM||b||2|\n"
                          + std::string(100000, '|') + "\n" + std::string(100000, '#') + "\nITEM||c||3|\n}\n"));
    const std::string bar = shown_bar();
    EXPECT_NE(bar.find("b, "), std::string::npos) << bar.substr(0, 500);
    EXPECT_TRUE(bar.ends_with("c}")) << bar.substr(0, 500);
    for (Widget entry : all_of_bar()) {
        if (!XtIsSubclass(entry, xmSeparatorWidgetClass)) {
            EXPECT_LT(text_resource(entry, XmNlabelString).size(), std::size_t{GRX_MENU_NOM_MAX});
        }
    }
}

TEST_F(MenuTest, EntryWithoutMenuIsSkipped) {
    main_window(menu_zone("ITEM||lost||1|\nPOPUP||A|\nITEM||at depth 1||2|\n{\nITEM||a||3|\n}\n"));
    EXPECT_EQ(shown_bar(), "A{at depth 1, a}");
}

TEST_F(MenuTest, LinesOutsideTheBracesBuildNothing) {
    main_window(
        "#:ZONE_MENU_BAR\nPOPUP||Zero|\nITEM||zero||1|\n{\n{\nITEM||two||2|\nPOPUP||Two|\n{\nITEM||three||3|\n}\n}\n"
        "POPUP||A|\n{\nITEM||a||4|\n}\n}\n");
    EXPECT_EQ(shown_bar(), "A{a}");
}

TEST_F(MenuTest, DeeperLevelsBuildNothing) {
    main_window(menu_zone(
        "POPUP||A|\n{\nPOPUP||B|\n{\nITEM||b||1|\nPOPUP||C|\n{\nITEM||c||2|\n}\nITEM||d||3|\n}\nITEM||e||4|\n}\n"));
    EXPECT_EQ(shown_bar(), "A{B{b, d}, e}");
}

// A submenu's button comes when the submenu ends.
TEST_F(MenuTest, SubmenusKeepTheirPlace) {
    main_window(
        menu_zone("POPUP||A|\n{\nITEM||1||1|\nPOPUP||B|\n{\nITEM||b||2|\n}\nPOPUP||C|\n{\nITEM||c||3|\n}\n"
                  "ITEM||2||4|\nPOPUP||D|\n{\nITEM||d||5|\n}\n}\nPOPUP||E|\n{\nPOPUP||F|\n{\nITEM||f||6|\n}\n}\n"));
    EXPECT_EQ(shown_bar(), "A{1, B{b}, C{c}, 2, D{d}} E{F{f}}");
}

TEST_F(MenuTest, OpenMenusEndWithTheFile) {
    main_window("#:ZONE_MENU_BAR\n{\nPOPUP||A|\n{\nITEM||a||1|\nPOPUP||B|\n{\nITEM||b||2|\n");
    EXPECT_EQ(shown_bar(), "A{a, B{b}}");
}

TEST_F(MenuTest, MenusWithoutEntries) {
    main_window(menu_zone("POPUP||A|\nPOPUP||B|\n{\n}\nPOPUP||C|\n{\nPOPUP||D|\nPOPUP||E|\n}\n"));
    EXPECT_EQ(shown_bar(), "A{} B{} C{D{}, E{}}");
    grx_detruit_menu_bar();
    EXPECT_TRUE(children_of(grx_get_Glob_menu_bar()).empty());
    grx_recree_menu_bar();
    EXPECT_EQ(shown_bar(), "A{} B{} C{D{}, E{}}");
}

TEST_F(MenuTest, EmptyZoneAndMissingMarkerGiveAnEmptyBar) {
    for (const char* file : {"#:ZONE_MENU_BAR\n{\n}\n", "{\nPOPUP||A|\n{\nITEM||a||1|\n}\n}\n", ""}) {
        const INT window = main_window(file);
        ASSERT_NE(grx_get_Glob_menu_bar(), nullptr);
        EXPECT_TRUE(XtIsManaged(grx_get_Glob_menu_bar()));
        EXPECT_TRUE(children_of(grx_get_Glob_menu_bar()).empty());
        grx_detruit_fenetre(window);
        drain();
    }
}

// What the application reads of a menu file of its own, line by line: the depth after an opening brace.
INT depth_after_brace() {
    char marker[] = "#:ZONE_MENU_BAR", brace[] = "{";
    LI_MENU line{};
    INT depth = 0;
    EXPECT_EQ(decode_ligne_ressource_menu(marker, brace, &line, &depth), 0);
    return depth;
}

void begin_zone() {
    char marker[] = "#:ZONE_MENU_BAR";
    LI_MENU line{};
    INT depth = 0;
    EXPECT_EQ(decode_ligne_ressource_menu(marker, marker, &line, &depth), 0);
}

TEST_F(MenuTest, AFileOfTheApplicationGoesOnWhereNoBarIsBuilt) {
    write_menu(example_menu);
    begin_zone();
    EXPECT_EQ(grx_cree_menu_bar(nullptr), 0);
    EXPECT_EQ(depth_after_brace(), 1);
}

TEST_F(MenuTest, ABarThatIsBuiltEndsTheZoneOfTheApplicationsFile) {
    begin_zone();
    main_window(example_menu);
    EXPECT_EQ(shown_bar(), example_menu_shown);
    EXPECT_EQ(depth_after_brace(), 0);
}

TEST_F(MenuTest, MissingFileIsError2AndNoBar) {
    StdoutCapture capture;
    const INT window = main_window();
    ASSERT_GT(window, 0);
    EXPECT_EQ(capture.text(), "GFX ERROR\nCode 2: Opening problem on file 'MNU*.DAT' \n");
    capture.restore();
    EXPECT_EQ(grx_get_Glob_menu_bar(), nullptr);
    INT width = 77, height = 77;
    EXPECT_EQ(grx_recup_taille_menu_bar(window, &width, &height), 0);
    EXPECT_EQ(width, 0);
    EXPECT_EQ(height, 0);
    EXPECT_EQ(grx_recup_tamenubar(), 0);
    EXPECT_EQ(grx_detruit_menu_bar(), 0);
    EXPECT_EQ(grx_fin_menu_bar(), 0);
    write_menu(example_menu);
    EXPECT_EQ(grx_recree_menu_bar(), 0);
    EXPECT_EQ(grx_get_Glob_menu_bar(), nullptr);
}

} // namespace
