// Outlines, arcs and polylines go to the server in the requests that cost it least. That nobody sees it is proved
// against Xlib's own call for each figure, drawn with the same context.
#include "tests/display/drawing/drawing_kit.h"

#include "tests/support/counters.h"

#include "xt_prive.h"

#include <string>
#include <vector>

namespace {

using namespace grxtest;
using Kind = Primitive::Kind;

constexpr std::array<int, 5> functions{GXcopy, GXxor, GXinvert, GXor, GXequiv};
constexpr std::array<int, 4> caps{CapNotLast, CapButt, CapRound, CapProjecting};
constexpr std::array<int, 3> joins{JoinMiter, JoinRound, JoinBevel};
constexpr std::array<INT, 4> widths{0, 1, 2, 7}; // 0, 2, 3 and 8 pixels
constexpr std::array<INT, 4> styles{0, 3, 5, 6};

std::vector<Primitive> outlines() {
    std::vector<Primitive> list;
    const std::array<INT, 9> sides{0, 1, 2, 3, 4, 7, 8, 9, 25};
    for (INT i = 0; i < 9; ++i)
        for (INT k = 0; k < 9; ++k) {
            const INT x = -8 + 27 * i, y = -5 + 21 * k;
            const INT w = sides.at(static_cast<std::size_t>(i)), h = sides.at(static_cast<std::size_t>(k));
            list.push_back({Kind::rectangle, {},
                {x + (k % 2) * w, y + (i % 2) * h, x + (1 - k % 2) * w, y + (1 - i % 2) * h}, {}});
        }
    return list;
}

std::vector<Primitive> arcs() {
    std::vector<Primitive> list;
    const std::array<INT, 7> sides{0, 1, 2, 5, 14, 30, 59};
    const std::array<std::array<INT, 2>, 7> angles{
        {{0, 360}, {0, 90}, {90, 0}, {-45, 200}, {30, 30}, {200, 560}, {359, 361}}};
    for (INT i = 0; i < 49; ++i) {
        const INT x = -20 + 33 * (i % 7), y = -10 + 25 * (i / 7);
        const auto& [from, to] = angles.at(static_cast<std::size_t>(i * 3 % 7));
        list.push_back({Kind::arc, {},
            {x, y, sides.at(static_cast<std::size_t>(i % 7)), sides.at(static_cast<std::size_t>(i / 7)), from, to},
            {}});
    }
    for (INT x = 0; x < 200; x += 50) { // each begins where the one before it ends
        list.push_back({Kind::arc, {}, {x, 30, 80, 100, 0, 90}, {}});
        list.push_back({Kind::arc, {}, {x, 30, 80, 100, 90, 215}, {}});
        list.push_back({Kind::arc, {}, {x, 30, 80, 100, 215, 360}, {}});
        list.push_back({Kind::arc, {}, {x, 30, 80, 100, 0, 90}, {}}); // and once more
    }
    return list;
}

std::vector<Primitive> polylines() {
    std::vector<Primitive> list;
    const auto add = [&](std::vector<GRX_POINT_POLY> points) {
        list.push_back({Kind::polyline, {}, {}, std::move(points)});
    };
    add({{10, 10}});
    add({{20, 10}, {20, 10}});
    add({{30, 10}, {30, 10}, {30, 10}});
    add({{40, 10}, {60, 10}});
    add({{60, 20}, {40, 20}, {50, 20}});           // back over itself
    add({{40, 30}, {60, 44}, {60, 44}, {70, 31}}); // a side of no length
    add({{80, 10}, {120, 10}, {120, 50}, {80, 50}, {80, 10}});
    add({{130, 10}, {170, 50}, {130, 50}, {170, 10}, {130, 10}});
    for (const int count : {7, 40}) {
        std::vector<GRX_POINT_POLY> points;
        for (int i = 0; i < count; ++i)
            points.push_back({static_cast<short>(37 * i % 251 - 5), static_cast<short>(53 * i % 191 - 5)});
        add(points);
    }
    return list;
}

// Thin and solid only: the server takes minutes for others of them.
std::vector<Primitive> large_figures() {
    const auto many = [](int count) {
        std::vector<GRX_POINT_POLY> points;
        for (int i = 0; i < count; ++i)
            points.push_back({static_cast<short>(37 * i % 251 - 5), static_cast<short>(53 * i % 191 - 5)});
        return Primitive{Kind::polyline, {}, {}, points};
    };
    return {{Kind::arc, {}, {-500, -600, 900, 900, 0, 360}, {}},
        {Kind::arc, {}, {100, -2000, 4000, 4000, 170, 260}, {}}, {Kind::arc, {}, {-32768, 90, 65535, 300, 0, 360}, {}},
        {Kind::arc, {}, {-9000, 20, 10000, 100, 0, -90}, {}}, {Kind::arc, {}, {0, 0, 240, 180, 10, 100}, {}},
        {Kind::polyline, {}, {}, {{-32768, -32768}, {32767, 32767}, {32767, 90}, {-32768, 80}}},
        {Kind::polyline, {}, {}, {{200, -32768}, {190, 32767}, {-5, -9}, {300, 200}}}, many(256), many(257),
        many(5000)};
}

std::vector<Primitive> large_outlines() {
    std::vector<Primitive> list;
    for (const auto& v : {std::array<INT, 4>{-32768, 7, 32767, 170}, {13, -32768, 200, 32767},
             {-32768, -32768, 32767, 32767}, {-32768, -32768, 90, 90}, {150, 60, 32767, 32767}, {32767, 5, 32767, 9},
             {-32768, 3, -32760, 90}, {32761, 1, 32764, 4}, {-1, -1, 240, 180}, {-4, -4, 243, 183}})
        list.push_back({Kind::rectangle, {}, {v[0], v[1], v[2], v[3]}, {}});
    return list;
}

using List = std::vector<Primitive> (*)();

struct Setting {
    int function, cap, join;
    INT width, style;
    std::string text() const {
        return "function " + std::to_string(function) + ", cap " + std::to_string(cap) + ", join "
               + std::to_string(join) + ", width " + std::to_string(width) + ", style " + std::to_string(style);
    }
};

class SamePixels : public DrawingTest {
  protected:
    void SetUp() override {
        DrawingTest::SetUp();
        window_ = graphic_window();
    }

    template <class Draw>
    Pixels picture(const std::vector<Primitive>& list, const Setting& s, Draw draw_one) const {
        grx_reinit_gc();
        XFillRectangle(x11_disp, x_window(window_), g_c, 0, 0, width, height);
        grx_affecte_gc(list[0].attrib);
        XGCValues values{};
        values.function = s.function;
        values.cap_style = s.cap;
        values.join_style = s.join;
        XChangeGC(x11_disp, g_c, GCFunction | GCCapStyle | GCJoinStyle, &values);
        for (const auto& p : list) draw_one(p);
        values.cap_style = CapButt;
        values.join_style = JoinMiter;
        XChangeGC(x11_disp, g_c, GCCapStyle | GCJoinStyle, &values);
        grx::context_changed();
        return screen(window_);
    }

    void compare(std::vector<Primitive> list, const Setting& s) const {
        for (auto& p : list) p.attrib = attributes(9, 12, s.function == GXxor ? xor_mode : 0, s.style, s.width);
        const Pixels plain =
            picture(list, s, [&](const Primitive& p) { draw_plainly(x11_disp, x_window(window_), g_c, p); });
        const Pixels seen = picture(list, s, [&](const Primitive& p) { draw(window_, p); });
        EXPECT_GT(plain.count_other(background()), 0) << s.text();
        ASSERT_TRUE(same(seen, plain)) << s.text();
    }

    // The ends and corners of lines, and what is done with a pixel twice: all of one with all of the other would take
    // minutes.
    void compare_in_every_setting(List list) const {
        std::vector<Setting> settings;
        for (const INT width : widths)
            for (const INT style : styles) {
                for (const int function : functions) settings.push_back({function, CapButt, JoinMiter, width, style});
                for (const int cap : caps)
                    for (const int join : joins) settings.push_back({GXcopy, cap, join, width, style});
                settings.push_back({GXxor, CapNotLast, JoinRound, width, style});
                settings.push_back({GXxor, CapProjecting, JoinBevel, width, style});
            }
        for (const auto& setting : settings) {
            compare(list(), setting);
            if (HasFatalFailure()) return;
        }
    }

    INT window_ = 0;
};

TEST_F(SamePixels, OfOutlinesInEverySetting) {
    compare_in_every_setting(outlines);
}

TEST_F(SamePixels, OfArcsInEverySetting) {
    compare_in_every_setting(arcs);
}

TEST_F(SamePixels, OfLargeFigures) {
    for (const int function : functions) compare(large_figures(), {function, CapButt, JoinMiter, 0, 0});
    for (const int function : functions)
        for (const INT width : widths) compare(large_outlines(), {function, CapButt, JoinMiter, width, 0});
}

TEST_F(SamePixels, OfPolylinesInEverySetting) {
    compare_in_every_setting(polylines);
}

TEST_F(SamePixels, OfWhatTheApplicationTiles) {
    const Pixmap tile =
        XCreatePixmap(x11_disp, x_window(window_), 3, 3, static_cast<unsigned>(grx_recup_profondeur_ecran()));
    grx_affecte_gc(attributes(10));
    XFillRectangle(x11_disp, tile, g_c, 0, 0, 3, 3);
    grx_affecte_gc(attributes(11));
    XDrawLine(x11_disp, tile, g_c, 0, 0, 2, 2);
    XSetTile(x11_disp, g_c, tile);
    XSetFillStyle(x11_disp, g_c, FillTiled);
    for (const List list : {outlines, arcs, polylines})
        for (const INT width : widths) compare(list(), {GXcopy, CapButt, JoinMiter, width, 0});
    XSetFillStyle(x11_disp, g_c, FillSolid);
    XFreePixmap(x11_disp, tile);
}

// --- what they cost ------------------------------------------------------------------------------------------------

class FewRequests : public DrawingTest {
  protected:
    static constexpr int figures = 100;

    static unsigned long requests_of(INT window, const Primitive& p) {
        draw(window, p);
        const Cost cost(x11_disp);
        for (int i = 0; i < figures; ++i) draw(window, p);
        return cost.requests();
    }
};

TEST_F(FewRequests, ForManyFiguresOfOneContext) {
    const INT window = graphic_window();
    const Primitive outline{Kind::rectangle, attributes(9), {10, 20, 50, 60}, {}};
    const Primitive arc{Kind::arc, attributes(9), {10, 20, 40, 30, 0, 90}, {}};
    const Primitive polyline{Kind::polyline, attributes(9), {}, {{5, 5}, {40, 60}, {70, 20}, {90, 90}}};
    for (auto p : {outline, arc, polyline}) {
        EXPECT_LE(requests_of(window, p), 2U) << static_cast<int>(p.kind);
        p.attrib.mode = erase_mode;
        EXPECT_LE(requests_of(window, p), 2U) << static_cast<int>(p.kind) << " erased";
    }
}

// Sent as the segments that they are, they join the segments between them.
TEST_F(FewRequests, ForFiguresAndSegmentsMixed) {
    const INT window = graphic_window();
    for (const auto mode : {0, erase_mode}) {
        const Cost cost(x11_disp);
        for (INT i = 0; i < figures; ++i) {
            const auto attrib = attributes(9, 0, mode);
            draw(window, {Kind::segment, attrib, {i, 1, 9, 5}, {}});
            draw(window, {Kind::rectangle, attrib, {i, 20, i + 5, 60}, {}});
            draw(window, {Kind::polyline, attrib, {}, {{5, 5}, {40, 60}, {70, 20}}});
        }
        EXPECT_LE(cost.requests(), 3U);
    }
}

TEST_F(FewRequests, ForWideOutlinesAndFilledRectangles) {
    const INT window = graphic_window();
    const Cost cost(x11_disp);
    const auto attrib = attributes(9, 0, 0, 0, 3);
    for (INT i = 0; i < figures; ++i) {
        draw(window, {Kind::filled_rectangle, attrib, {i, 1, 9, 5}, {}});
        draw(window, {Kind::rectangle, attrib, {i, 20, i + 30, 60}, {}});
    }
    EXPECT_LE(cost.requests(), 3U);
}

} // namespace
