// Sessions with an outline font: whatever the library shows is written in it.
#include "tests/display/session/ending_additions_kit.h"
#include "tests/display/toolkit/outline_font_kit.h"

namespace {

using namespace grxtest;

class OutlineSessionsOn24 : public AddingSessions {
  protected:
    void restart_with(const char* font) {
        end();
        write_ini(std::string("FONT_CARACTERE ") + font + "\n");
        start_again();
    }

    static int greys(const Pixels& picture) {
        std::set<std::uint32_t> seen;
        for (const std::uint32_t pixel : picture.values)
            if ((pixel & 0xFFU) == (pixel >> 8U & 0xFFU) && (pixel & 0xFFU) == (pixel >> 16U & 0xFFU))
                seen.insert(pixel);
        return static_cast<int>(seen.size());
    }

    static int colours(const Pixels& picture) {
        return static_cast<int>(std::set<std::uint32_t>(picture.values.begin(), picture.values.end()).size());
    }

    void boxes_in(Album& album) {
        GRX_BOITE_MESSAGE box;
        ASSERT_EQ(grx_init_boite_message(&box), 1);
        box.texte = "Enregistrer ?";
        box.nofen_mere = main_;
        const INT asked = grx_affiche_boite_message(&box);
        ASSERT_GT(asked, 0);
        photograph(album, "box");
        ASSERT_EQ(grx_detruit_boite(asked), 1);
    }
};

TEST_F(OutlineSessionsOn24, EverythingIsWrittenInIt) {
    Album core = everything();
    boxes_in(core);
    ASSERT_FALSE(HasFatalFailure());
    restart_with(outline_11);
    ASSERT_FALSE(HasFatalFailure());
    Album outline = everything();
    boxes_in(outline);
    ASSERT_EQ(outline.size(), core.size());
    for (const auto& [name, picture] : core) {
        EXPECT_GT(colours(outline.at(name)), colours(picture) + 20) << name;
        if (const char* const folder = std::getenv("GRX_TEST_SHOTS"))
            write_ppm(test_display(), outline.at(name), std::string(folder) + "/outline " + name + ".ppm");
    }
    EXPECT_LT(greys(core.at("box")), 8);
    EXPECT_GT(greys(outline.at("box")), 8);
}

TEST_F(OutlineSessionsOn24, KeysOfEntriesDoNotGetBolder) {
    restart_with(outline_11);
    ASSERT_FALSE(HasFatalFailure());
    pointer().click_in(children_of(grx_get_Glob_menu_bar()).front());
    ASSERT_TRUE(wait_for([&] { return on_screen_of(xmMenuShellWidgetClass) != nullptr; }));
    settle();
    Widget shell = on_screen_of(xmMenuShellWidgetClass);
    Widget entry = children_of(children_of(shell).front()).front();
    const Pixels before = grab(x11_disp, XtWindow(entry));
    for (int i = 0; i < 4; ++i) {
        XClearArea(x11_disp, XtWindow(entry), 0, 0, 3, 3, True); // has it drawn anew
        settle();
    }
    EXPECT_TRUE(same(grab(x11_disp, XtWindow(entry)), before));
    keyboard().key(XK_Escape);
    ASSERT_TRUE(wait_for([&] { return on_screen_of(xmMenuShellWidgetClass) == nullptr; }));
}

TEST_F(OutlineSessionsOn24, LooksTheSameTheSecondTime) {
    restart_with(outline_11);
    ASSERT_FALSE(HasFatalFailure());
    const Album first = everything();
    restart_with(outline_11);
    ASSERT_FALSE(HasFatalFailure());
    expect_same(everything(), first);
}

} // namespace
