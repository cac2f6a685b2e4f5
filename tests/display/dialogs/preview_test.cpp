// The preview of images in the file dialog.
#include "tests/display/dialogs/file_dialog_kit.h"

#include <map>

namespace {

using namespace grxtest;

// Where `picture` is found whole in `area`; -1,-1 when it is not.
Point place_of(const Pixels& area, const Pixels& picture) {
    for (int y = 0; y + picture.height <= area.height; ++y)
        for (int x = 0; x + picture.width <= area.width; ++x)
            if (area.part({x, y, picture.width, picture.height}) == picture) return {x, y};
    return {-1, -1};
}

class Preview : public FileDialog {
  protected:
    static constexpr int width = 20, height = 10;

    void SetUp() override {
        FileDialog::SetUp();
        XtSetMultiClickTime(x11_disp, 1); // clicks on different files are no double click
    }

    static std::uint32_t pixel_of_rgb(const INT* rgb) {
        return static_cast<std::uint32_t>(rgb[0] << 16 | rgb[1] << 8 | rgb[2]);
    }
    static std::uint32_t expected_pixel(INT colours, INT index) {
        INT rgb[3] = {};
        if (test_planes() == 8)
            return static_cast<std::uint32_t>(
                colours == 16 ? grx_recup_couleur_icone(index) : grx_recup_couleur(index));
        colours == 16 ? grx_recup_rgb_icone(index, rgb) : grx_recup_rgb(index, rgb);
        return pixel_of_rgb(rgb);
    }
    static INT index_at(INT colours, int x, int y, int variant) {
        return (x + 3 * y + variant) % (colours == 16 ? 16 : 24);
    }

    Pixels picture(const std::string& name, INT colours, int variant = 0) {
        std::vector<uchar> pixels;
        Pixels expected{width, height, {}};
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const INT index = index_at(colours, x, y, variant);
                pixels.push_back(static_cast<uchar>(index));
                expected.values.push_back(expected_pixel(colours, index));
            }
        std::string full = path(name), nowhere;
        const auto write = colours == 16 ? ecrit_fichier_bitmap : ecrit_fichier_bitmap_256;
        EXPECT_EQ(write(nowhere.data(), full.data(), pixels.data(), width, height), 0);
        return expected;
    }
    Pixels shown() { return grab(x11_disp, XtWindow(preview())); }
    static bool in_the_middle(const Point& place) {
        return std::abs(place.x - (80 - width) / 2) <= 1 && std::abs(place.y - (80 - height) / 2) <= 1;
    }
};

TEST_F(Preview, ShowsTheImagesOfTheChosenFiles) {
    put("a.DAT");
    put("b.DAT");
    put("c.DAT");
    const Pixels first = picture("a.BMP", 16), second = picture("b.BMP", 256);
    Pixels kept;
    when_open("nothing yet", [&] {
        EXPECT_EQ(place_of(shown(), first), (Point{-1, -1}));
        click_file("a.DAT");
    });
    script_.then("16 colours", [&] {
        const Point place = place_of(shown(), first);
        EXPECT_TRUE(in_the_middle(place)) << place.x << "," << place.y;
        click_file("b.DAT");
    });
    script_.then("256 colours", [&] {
        const Point place = place_of(kept = shown(), second);
        EXPECT_TRUE(in_the_middle(place)) << place.x << "," << place.y;
        click_file("c.DAT");
    });
    script_.then("without an image it stays", [&] {
        EXPECT_EQ(selection(), path("c.DAT"));
        EXPECT_TRUE(same(shown(), kept));
        accept();
    });
    EXPECT_EQ(choose({}).names, (Names{"c.DAT"}));
}

TEST_F(Preview, IsEmptyAtFirst) {
    put("a.DAT");
    when_open("look", [&] {
        const Pixels inside = shown().part({8, 8, 64, 64});
        EXPECT_EQ(inside.count_other(inside.at(0, 0)), 0) << "not even its own name";
        cancel();
    });
    choose({});
}

TEST_F(Preview, GivesEachImageUpForTheNext) {
    for (const std::string name : {"a", "b"}) {
        put(name + ".DAT");
        picture(name + ".BMP", 16, name == "a" ? 0 : 5);
    }
    std::map<std::string, unsigned> before;
    const auto click_both = [&] {
        when_open("first", [&] { click_file("a.DAT"); });
        script_.then("second", [&] { click_file("b.DAT"); });
    };
    click_both();
    script_.then("count", [&] { before = server_resources(test_display(), x_window(main_)); });
    click_both();
    click_both();
    script_.then("count again", [&] {
        EXPECT_EQ(server_resources(test_display(), x_window(main_)), before);
        cancel();
    });
    choose({});
}

// What the application draws afterwards is drawn as it had set it.
TEST_F(Preview, LeavesTheDrawingContextReset) {
    put("a.DAT");
    const Pixels image = picture("a.BMP", 16);
    when_open("click", [&] {
        XSetFunction(x11_disp, g_c, GXxor);
        click_file("a.DAT");
    });
    script_.then("look", [&] {
        EXPECT_TRUE(in_the_middle(place_of(shown(), image)));
        XGCValues values{};
        ASSERT_NE(XGetGCValues(x11_disp, g_c, GCFunction, &values), 0);
        EXPECT_EQ(values.function, GXcopy);
        cancel();
    });
    choose({});
}

TEST_F(Preview, SurvivesBeingCovered) {
    put("a.DAT");
    const Pixels image = picture("a.BMP", 16);
    when_open("click", [&] { click_file("a.DAT"); });
    script_.then("expose", [&] { XClearArea(x11_disp, XtWindow(preview()), 0, 0, 0, 0, True); });
    script_.then("look", [&] {
        EXPECT_TRUE(in_the_middle(place_of(shown(), image)));
        cancel();
    });
    choose({});
}

TEST_F(Preview, FollowsTheProposedFile) {
    put("a.DAT");
    const Pixels image = picture("a.BMP", 16);
    when_open("look", [&] {
        EXPECT_TRUE(in_the_middle(place_of(shown(), image)));
        cancel();
    });
    choose({.names = {"a.DAT"}});
}

TEST_F(Preview, ABrokenImageLeavesItAlone) {
    put("a.DAT");
    put("b.DAT");
    put("b.BMP", "BM, but nothing more");
    const Pixels image = picture("a.BMP", 16);
    Pixels kept;
    when_open("click", [&] { click_file("a.DAT"); });
    script_.then("click", [&] {
        kept = shown();
        click_file("b.DAT");
    });
    script_.then("look", [&] {
        EXPECT_EQ(selection(), path("b.DAT"));
        EXPECT_TRUE(same(shown(), kept));
        cancel();
    });
    choose({});
}

TEST_F(Preview, ShortMemoryLeavesItAlone) {
    put("a.DAT");
    put("b.DAT");
    const Pixels first = picture("a.BMP", 256), second = picture("b.BMP", 16, 5);
    when_open("click", [&] { click_file("a.DAT"); });
    script_.then("fail", [&] {
        ASSERT_TRUE(in_the_middle(place_of(shown(), first)));
        std::string image = path("b.BMP");
        const int failures = fail_each_allocation([&] {
            affiche_bitmap_fichier(image.data(), preview());
            if (!heap().failed()) return;
            XClearArea(x11_disp, XtWindow(preview()), 0, 0, 0, 0, True);
            XSync(x11_disp, False);
            while (XtAppPending(contexte) & XtIMXEvent) XtAppProcessEvent(contexte, XtIMXEvent);
            EXPECT_TRUE(in_the_middle(place_of(shown(), first)));
        });
        EXPECT_GT(failures, 1);
    });
    script_.then("all is there", [&] {
        EXPECT_TRUE(in_the_middle(place_of(shown(), second)));
        cancel();
    });
    choose({});
}

TEST_F(FileDialog, TheNameOfTheImageIsBMP) {
    char image[HOST_CHEMIN_MAX] = "?";
    std::string name = put("dir.d/plan.DAT");
    EXPECT_EQ(recup_bitmap_fichier(name.data(), image), 0);
    EXPECT_EQ(std::string(image), path("dir.d/plan.BMP"));
    put("dir.d/plan.BMP");
    EXPECT_NE(recup_bitmap_fichier(name.data(), image), 0);
    EXPECT_EQ(std::string(image), path("dir.d/plan.BMP"));
    name = path("dir.d/none");
    EXPECT_EQ(recup_bitmap_fichier(name.data(), image), 0);
    EXPECT_EQ(std::string(image), path("dir.d/none.BMP"));
}

} // namespace
