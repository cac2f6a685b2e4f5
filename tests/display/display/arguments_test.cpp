// Arguments of X programs: what is taken, what stays, what is refused, what they do.
#include "tests/display/windows/manners_kit.h"
#include "tests/support/controls.h"
#include "tests/support/stdout_capture.h"

#include "system/shut_down.h"

#include <climits>

namespace {

using namespace grxtest;

using Texts = std::vector<std::string>;

std::string refusal() {
    char text[600] = "?";
    grx_recup_texte_arguments(text, sizeof text);
    return text;
}

std::string value_of(INT which) {
    char text[300] = "?";
    const INT result = grx_recup_argument(which, text, sizeof text);
    return result < 0 ? std::to_string(result) : text;
}

class ArgumentsOn24 : public XTest {};

TEST_F(ArgumentsOn24, OursAreTakenAndTheRestStaysInOrder) {
    Arguments arguments({"/usr/bin/plan", "a.dxf", "-geometry", "300x200-0+10", "-verbose", "-name", "second", "-xrm",
        "*background: red", "-display", ":7", "b.dxf", "-title", "Plan", "-xrm", "*foreground: blue"});
    ASSERT_EQ(arguments.take(), 1);
    EXPECT_EQ(arguments.rest(), (Texts{"/usr/bin/plan", "a.dxf", "-verbose", "b.dxf"}));
    EXPECT_EQ(arguments.pointers[4], nullptr);
    EXPECT_EQ(arguments.pointers[1], arguments.texts[1].data()) << "the texts are those of the caller";
    EXPECT_EQ(value_of(GRX_ARG_GEOMETRY), "300x200-0+10");
    EXPECT_EQ(value_of(GRX_ARG_NAME), "second");
    EXPECT_EQ(value_of(GRX_ARG_DISPLAY), ":7");
    EXPECT_EQ(value_of(GRX_ARG_TITLE), "Plan");
    EXPECT_EQ(refusal(), "");
}

TEST_F(ArgumentsOn24, WithoutAnyOfOursNothingMoves) {
    Arguments arguments({"plan", "-d", "x", "geometry", "-Geometry"});
    const auto before = arguments.pointers;
    ASSERT_EQ(arguments.take(), 1);
    EXPECT_EQ(arguments.pointers, before);
    EXPECT_EQ(arguments.count, 5);
    for (INT which : {GRX_ARG_DISPLAY, GRX_ARG_GEOMETRY, GRX_ARG_NAME, GRX_ARG_TITLE})
        EXPECT_EQ(value_of(which), std::to_string(GRX_ECHEC_ABSENT));
}

TEST_F(ArgumentsOn24, TheLastValueHoldsAndTwoDashesEndThem) {
    Arguments arguments({"plan", "-name", "a", "-name", "b", "--", "-name", "c", "-geometry"});
    ASSERT_EQ(arguments.take(), 1);
    EXPECT_EQ(arguments.rest(), (Texts{"plan", "--", "-name", "c", "-geometry"}));
    EXPECT_EQ(value_of(GRX_ARG_NAME), "b");
}

TEST_F(ArgumentsOn24, TheProgramIsNeverTaken) {
    Arguments arguments({"-name", "-name", "x"});
    ASSERT_EQ(arguments.take(), 1);
    EXPECT_EQ(arguments.rest(), (Texts{"-name"}));
}

TEST_F(ArgumentsOn24, WhatIsRefusedChangesNothing) {
    struct Row {
        Texts texts;
        const char* why;
    };
    const std::string long_name(80, 'n'), long_value(256, 'v');
    const Row rows[] = {
        {{"plan", "-name"}, "-name has no value"},
        {{"plan", "-title", "t", "-display"}, "-display has no value"},
        {{"plan", "-geometry", "12y"}, "-geometry '12y' is no geometry"},
        {{"plan", "-geometry", ""}, "-geometry '' is no geometry"},
        {{"plan", "-geometry", "-name", "x"}, "-geometry '-name' is no geometry"},
        {{"plan", "-xrm", "no colon"}, "-xrm 'no colon' is no resource"},
        {{"plan", "-xrm", " : x"}, "-xrm ' : x' is no resource"},
        {{"plan", "-xrm", "*a: b\n*c: d"}, "-xrm '*a: b\n*c: d' is no resource"},
        {{"plan", "-name", ""}, "-name '' is empty"},
        {{"plan", "-name", long_name}, nullptr},
        {{"plan", "-display", long_value}, nullptr},
        {{"plan", "-title", long_value}, nullptr},
    };
    for (const Row& row : rows) {
        Texts texts = row.texts;
        texts.insert(texts.begin() + 1, {"-title", "good", "-xrm", "*x: y"});
        Arguments arguments(texts);
        const auto before = arguments.pointers;
        StdoutCapture capture;
        EXPECT_EQ(arguments.take(), GRX_ECHEC_FORMAT) << row.texts.back();
        EXPECT_EQ(capture.text(), "");
        EXPECT_EQ(arguments.pointers, before);
        EXPECT_EQ(arguments.count, static_cast<INT>(texts.size()));
        EXPECT_EQ(value_of(GRX_ARG_TITLE), std::to_string(GRX_ECHEC_ABSENT));
        if (row.why)
            EXPECT_EQ(refusal(), row.why);
        else
            EXPECT_NE(refusal().find("is too long"), std::string::npos) << refusal();
    }
    char small[6] = "?";
    EXPECT_GT(grx_recup_texte_arguments(small, sizeof small), 100) << "the whole length";
    EXPECT_STREQ(small, "-titl");
}

TEST_F(ArgumentsOn24, TextsAsLongAsAllowedAreTaken) {
    Arguments arguments({"plan", "-name", std::string(79, 'n'), "-title", std::string(255, 't')});
    EXPECT_EQ(arguments.take(), 1);
    EXPECT_EQ(value_of(GRX_ARG_NAME), std::string(79, 'n'));
    EXPECT_EQ(value_of(GRX_ARG_TITLE), std::string(255, 't'));
}

TEST_F(ArgumentsOn24, HostileArguments) {
    INT count = 3;
    char name[] = "plan", title[] = "-title", value[] = "x";
    char* texts[] = {name, title, value, nullptr};
    EXPECT_EQ(grx_arguments(nullptr, nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_arguments(&count, nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_arguments(nullptr, texts), GRX_ECHEC_PARAMETRE);
    EXPECT_NE(refusal(), "");
    for (INT bad : {-1, INT_MIN}) {
        count = bad;
        EXPECT_EQ(grx_arguments(&count, texts), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(count, bad);
    }
    count = 0;
    EXPECT_EQ(grx_arguments(&count, texts), 1);
    EXPECT_EQ(count, 0);
    EXPECT_STREQ(texts[0], "plan");
    count = INT_MAX; // the null ends them
    EXPECT_EQ(grx_arguments(&count, texts), 1);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(texts[1], nullptr);
    char* none[] = {nullptr};
    count = 5;
    EXPECT_EQ(grx_arguments(&count, none), 1);
    EXPECT_EQ(count, 0);
    char* missing[] = {name, title, nullptr, value};
    count = 4;
    EXPECT_EQ(grx_arguments(&count, missing), GRX_ECHEC_FORMAT);
    for (INT which : {0, 5, -1, INT_MAX, INT_MIN}) EXPECT_EQ(grx_recup_argument(which, value, 2), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_argument(GRX_ARG_TITLE, nullptr, 10), 1);
    EXPECT_EQ(grx_recup_argument(GRX_ARG_TITLE, value, -3), 1);
    EXPECT_STREQ(value, "x");
}

TEST_F(ArgumentsOn24, MemoryThatFailsChangesNothing) {
    const int failures = fail_each_allocation([] {
        Arguments arguments({"plan", "-title", "t", "-xrm", "*a: b"});
        const INT result = arguments.take();
        if (heap().failed()) {
            EXPECT_EQ(result, GRX_ECHEC_MEMOIRE);
            EXPECT_EQ(arguments.count, 5);
            EXPECT_EQ(value_of(GRX_ARG_TITLE), std::to_string(GRX_ECHEC_ABSENT));
            EXPECT_EQ(refusal(), "no memory");
        } else {
            EXPECT_EQ(result, 1);
        }
    });
    EXPECT_EQ(failures, 1);
}

TEST_F(ArgumentsOn24, OnceStartedItIsTooLate) {
    ASSERT_TRUE(start_up());
    Arguments arguments({"plan", "-title", "t"});
    EXPECT_EQ(arguments.take(), GRX_ECHEC_OCCUPE);
    EXPECT_EQ(arguments.count, 3);
    EXPECT_NE(refusal(), "");
}

TEST_F(ArgumentsOn24, AShutDownForgetsThem) {
    ASSERT_EQ(Arguments({"plan", "-title", "t", "-name", "n", "-xrm", "*a: b"}).take(), 1);
    const std::size_t blocks = heap().blocks();
    grx::run_shut_down();
    EXPECT_EQ(heap().blocks(), blocks - 1);
    EXPECT_EQ(value_of(GRX_ARG_TITLE), std::to_string(GRX_ECHEC_ABSENT));
    EXPECT_EQ(value_of(GRX_ARG_NAME), std::to_string(GRX_ECHEC_ABSENT));
    ASSERT_EQ(Arguments({"plan", "-title", "u"}).take(), 1);
    EXPECT_EQ(value_of(GRX_ARG_TITLE), "u");
}

// --- what they do -------------------------------------------------------------------------------------------

TEST_F(ArgumentsOn24, TheDisplayWinsOverTheEnvironment) {
    setenv("DISPLAY", ":61234", 1);
    ASSERT_EQ(Arguments({"plan", "-display", server().name()}).take(), 1);
    ASSERT_TRUE(start_up());
    EXPECT_EQ(std::string(DisplayString(x11_disp)).substr(0, server().name().size()), server().name());
}

TEST_F(ArgumentsOn24, ADisplayThatIsNotThereIsNone) {
    ASSERT_EQ(Arguments({"plan", "-display", ":61234"}).take(), 1);
    ASSERT_EQ(grx_alloue_base_fenetres(), 0);
    EXPECT_EQ(outcome_of(grx_init_application).result, 0);
}

class ArgumentsWindows : public XTest {
  protected:
    void start(Texts texts) {
        write_menu("");
        texts.insert(texts.begin(), "plan");
        ASSERT_EQ(Arguments(texts).take(), 1);
        ASSERT_TRUE(start_up());
    }
    Area area(INT nofen) {
        XSync(x11_disp, False);
        return server_area(test_display(), shell_window(nofen));
    }
    static Widget push_button(INT nofen) {
        GRX_BOUTON button = button_at(GRX_BOU_SIMPLE, nofen, {20, 30, 120, 80});
        EXPECT_EQ(grx_cree_bouton(&button), 0);
        return grx_recup_objet_bout(button.nobou);
    }
    std::string title(INT nofen) { return property_of(test_display(), shell_window(nofen), "WM_NAME").bytes; }
};

constexpr INT main_attrib = GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE;

TEST_F(ArgumentsWindows, ResourcesReachTheWidgets) {
    start({"-xrm", "*shadowThickness: 7", "-xrm", "*shadowThickness: 5", "-xrm", "HB*marginLeft: 9"});
    const INT n = make(GRX_FEN_ALPHA);
    Widget button = push_button(n);
    EXPECT_EQ(resource<Dimension>(button, XmNshadowThickness), 5) << "the later one";
    EXPECT_EQ(resource<Dimension>(button, XmNmarginLeft), 9);
}

TEST_F(ArgumentsWindows, TheNameIsThatOfWindowsWithoutParentAndOfResources) {
    start({"-name", "second", "-xrm", "second*shadowThickness: 6", "-xrm", "HB*shadowThickness: 1"});
    const INT n = make(GRX_FEN_ALPHA);
    EXPECT_EQ(
        property_of(test_display(), shell_window(n), "WM_CLASS").bytes, std::string("second\0TopLevelShell\0", 21));
    Widget button = push_button(n);
    EXPECT_EQ(resource<Dimension>(button, XmNshadowThickness), 6);
}

TEST_F(ArgumentsWindows, TheGeometryIsTheMainWindows) {
    start({"-geometry", "300x250", "-title", "Atelier"});
    const INT before = make(GRX_FEN_ALPHA); // at 100,120 from the top, 200 x 150
    EXPECT_EQ(area(before), (Area{100, 120, 200, 150})) << "not a main window";
    GRX_FENETRE window = described(GRX_FEN_ALPHA, main_attrib);
    const GRX_FENETRE copy = window;
    ASSERT_EQ(grx_cree_fenetre(&window), 0);
    EXPECT_EQ(area(window.nofen), (Area{100, 120, 300, 250})) << "the upper left corner stays";
    EXPECT_EQ(title(window.nofen), "Atelier");
    window.nofen = copy.nofen;
    EXPECT_EQ(std::memcmp(&window, &copy, sizeof window), 0) << "the record is the caller's";
    const INT second = make(GRX_FEN_ALPHA, main_attrib);
    EXPECT_EQ(area(second), (Area{100, 120, 200, 150})) << "one main window only";
    EXPECT_NE(title(second), "Atelier");
}

class ArgumentsPlaces : public ArgumentsWindows, public testing::WithParamInterface<std::pair<const char*, Area>> {};

TEST_P(ArgumentsPlaces, OfTheMainWindow) {
    const auto& [geometry, expected] = GetParam();
    start({"-geometry", geometry});
    const INT n = make(GRX_FEN_GRAPHIQUE, main_attrib);
    EXPECT_EQ(area(n), expected) << geometry;
    XSizeHints hints{};
    long supplied = 0;
    ASSERT_TRUE(XGetWMNormalHints(test_display(), shell_window(n), &hints, &supplied));
    EXPECT_TRUE(hints.flags & USPosition);
    const bool right = std::string_view(geometry).find("-0") != std::string_view::npos;
    EXPECT_EQ(hints.win_gravity, right ? SouthEastGravity : NorthWestGravity);
    INT width = 0, height = 0;
    grx_recup_taille_fenetre(n, &width, &height);
    EXPECT_EQ(width, expected.width);
    EXPECT_LE(height, expected.height);
    EXPECT_GT(height, expected.height - 60) << "the menu bar has the rest";
}

INSTANTIATE_TEST_SUITE_P(All, ArgumentsPlaces,
    testing::Values(std::pair{"300x250+10+20", Area{10, 20, 300, 250}}, std::pair{"+10+20", Area{10, 20, 200, 150}},
        std::pair{"300x250-0-0", Area{980, 774, 300, 250}}, std::pair{"-0-0", Area{1080, 874, 200, 150}},
        std::pair{"300x250+-5+-6", Area{-5, -6, 300, 250}}, std::pair{"3000x2000+0+0", Area{0, 0, 3000, 2000}}));

TEST_F(ArgumentsWindows, WhatIsNoMainWindowKeepsItsPlace) {
    start({"-geometry", "300x250+10+20"});
    const INT top = make(GRX_FEN_ALPHA);
    GRX_FENETRE child = described(GRX_FEN_ALPHA, main_attrib);
    child.fen_mere = top;
    EXPECT_EQ(area(make(child)), (Area{100, 120, 200, 150}));
    GRX_FENETRE failing = described(99, main_attrib);
    EXPECT_EQ(grx_cree_fenetre(&failing), -1);
    EXPECT_EQ(area(make(GRX_FEN_ALPHA, main_attrib)), (Area{10, 20, 300, 250})) << "the first that is made";
}

} // namespace
