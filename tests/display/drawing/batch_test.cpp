// Long runs of mixed primitives, between them whatever else an application sends. The library joins primitives into one
// request where it can: nobody may see it.
#include "tests/display/drawing/drawing_kit.h"

#include <Xm/PushB.h>
#include <Xm/Xm.h>

#include <cstdlib>
#include <memory>
#include <vector>

namespace {

using namespace grxtest;
using Kind = Primitive::Kind;

class LongRun : public DrawingTest {
  protected:
    // What a run draws into: a window, the backing picture of the active one, with what plain Xlib makes of it.
    struct Target {
        INT window;
        std::unique_ptr<PlainPicture> plain;
    };

    Target target(int x, int y) {
        return {graphic_window({x, y, width, height}),
            std::make_unique<PlainPicture>(x11_disp, width, height, background())};
    }

    // Draws a list at once with the library, then the same with plain Xlib.
    static void draw_both(Target& to, const std::vector<Primitive>& list) {
        for (const auto& p : list) draw(to.window, p);
        for (const auto& p : list) to.plain->draw(p);
    }

    static void expect_same(const Target& target) { EXPECT_TRUE(same(screen(target.window), target.plain->pixels())); }
};

TEST_F(LongRun, OfOneKindEach) {
    Target to = target(40, 60);
    for (int kind = 0; kind < Primitive::kinds; ++kind) {
        RandomPrimitives random(static_cast<unsigned>(100 + kind), width, height);
        std::vector<Primitive> list;
        for (int i = 0; i < 700; ++i) list.push_back(random.next(static_cast<Kind>(kind)));
        draw_both(to, list);
        EXPECT_TRUE(same(screen(to.window), to.plain->pixels())) << "kind " << kind;
    }
}

TEST_F(LongRun, OfOneKindEachInOneAttribute) {
    Target to = target(40, 60);
    for (const auto& attrib : {attributes(9), attributes(9, 0, xor_mode), attributes(9, 12, 0, 5, 0),
             attributes(9, 12, 0, 2, 3), attributes(12, 0, xor_mode, 0, 4)}) {
        for (int kind = 0; kind < Primitive::kinds; ++kind) {
            RandomPrimitives random(static_cast<unsigned>(200 + kind), width, height);
            std::vector<Primitive> list;
            for (int i = 0; i < 150; ++i) {
                list.push_back(random.next(static_cast<Kind>(kind)));
                list.back().attrib = attrib;
            }
            draw_both(to, list);
            ASSERT_TRUE(same(screen(to.window), to.plain->pixels()))
                << "kind " << kind << ", mode " << attrib.mode << ", style " << attrib.type_trait;
        }
    }
}

// Arcs that end where the next one begins: one request of both would join them like the sides of a polyline.
TEST_F(LongRun, ArcsThatTouchStayApart) {
    Target to = target(40, 60);
    for (const auto& attrib : {attributes(9, 0, 0, 0, 7), attributes(9, 0, xor_mode, 0, 7), attributes(9, 12, 0, 2, 7),
             attributes(9, 12, 0, 5, 0)}) {
        std::vector<Primitive> list;
        for (int i = 0; i < 4; ++i) {
            const int x = 20 + 50 * i;
            list.push_back({Kind::arc, attrib, {x, 30, 80, 100, 0, 90}, {}});
            list.push_back({Kind::arc, attrib, {x, 30, 80, 100, 90, 215}, {}});
            list.push_back({Kind::arc, attrib, {x - 40, 80, 40, 40, 0, 90}, {}});
            list.push_back({Kind::arc, attrib, {x, 30, 80, 100, 215, 360}, {}});
        }
        draw_both(to, list);
        ASSERT_TRUE(same(screen(to.window), to.plain->pixels())) << attrib.mode << ' ' << attrib.type_trait;
    }
}

TEST_F(LongRun, SegmentsThatTouchStayApart) {
    Target to = target(40, 60);
    for (const auto& attrib : {attributes(9, 0, 0, 0, 7), attributes(9, 0, xor_mode, 0, 7), attributes(9, 12, 0, 1, 0),
             attributes(9, 12, 0, 6, 4)}) {
        std::vector<Primitive> list;
        for (INT i = 0; i < 60; ++i)
            list.push_back({Kind::segment, attrib, {4 * i, 37 * i % 170, 4 * i + 4, 37 * (i + 1) % 170}, {}});
        draw_both(to, list);
        ASSERT_TRUE(same(screen(to.window), to.plain->pixels())) << attrib.mode << ' ' << attrib.type_trait;
    }
}

TEST_F(LongRun, FillsOverlappingThemselves) {
    Target to = target(40, 60);
    std::vector<Primitive> list;
    RandomPrimitives random(55, width, height);
    for (int i = 0; i < 900; ++i) {
        list.push_back(random.next(i % 2 ? Kind::filled_rectangle : Kind::filled_arc));
        list.back().attrib = attributes(9 + i / 100, 0, xor_mode);
    }
    draw_both(to, list);
    expect_same(to);
}

TEST_F(LongRun, OfThousandsMixed) {
    Target to = target(40, 60);
    RandomPrimitives random(1, width, height);
    for (int round = 0; round < 6; ++round) {
        random.keep_attributes(round * 20);
        std::vector<Primitive> list;
        for (int i = 0; i < 2000; ++i) list.push_back(random.next());
        draw_both(to, list);
        ASSERT_TRUE(same(screen(to.window), to.plain->pixels())) << "round " << round;
    }
}

TEST_F(LongRun, OfManyThousandSegments) {
    Target to = target(40, 60);
    RandomPrimitives random(2, width, height);
    std::vector<Primitive> list;
    for (int i = 0; i < 60000; ++i) {
        list.push_back(random.next(Kind::segment));
        list.back().attrib = attributes(8 + i / 7000);
    }
    draw_both(to, list);
    expect_same(to);
}

// The application draws in the library's window with a context of its own, right between two primitives.
TEST_F(LongRun, BetweenOtherContextsOnTheSameWindow) {
    Target to = target(40, 60);
    const Window window = x_window(to.window);
    XGCValues values{};
    values.foreground = drawn_pixel(12);
    values.graphics_exposures = False;
    const GC own = XCreateGC(x11_disp, window, GCForeground | GCGraphicsExposures, &values);
    for (int i = 0; i < 40; ++i) {
        const INT x = 6 * i, y = 4 * i;
        draw(to.window, {Kind::point, attributes(9), {x, 5}, {}});
        XDrawPoint(x11_disp, window, own, x + 2, 5);
        draw(to.window, {Kind::point, attributes(9), {x + 4, 5}, {}});
        XDrawLine(x11_disp, window, own, x, 20, x, 30);
        draw(to.window, {Kind::segment, attributes(9), {x + 2, 20, x + 2, 30}, {}});
        XDrawRectangle(x11_disp, window, own, x, 40, 3, 5);
        draw(to.window, {Kind::rectangle, attributes(9), {x, 50, x + 3, 55}, {}});
        XFillRectangle(x11_disp, window, own, x, 60, 3, 5);
        draw(to.window, {Kind::filled_rectangle, attributes(9), {x, 70, x + 3, 75}, {}});
        XFillArc(x11_disp, window, own, 200, y, 6, 6, 0, 360 * 64);
        draw(to.window, {Kind::filled_arc, attributes(9), {210, y, 6, 6, 0, 360}, {}});
    }
    const Pixels seen = screen(to.window);
    for (int i = 0; i < 30; ++i) {
        const INT x = 6 * i;
        EXPECT_EQ(seen.at(x, 5), drawn_pixel(9));
        EXPECT_EQ(seen.at(x + 2, 5), drawn_pixel(12));
        EXPECT_EQ(seen.at(x + 4, 5), drawn_pixel(9));
        EXPECT_EQ(seen.at(x, 25), drawn_pixel(12));
        EXPECT_EQ(seen.at(x + 2, 25), drawn_pixel(9));
        EXPECT_EQ(seen.at(x, 42), drawn_pixel(12));
        EXPECT_EQ(seen.at(x, 52), drawn_pixel(9));
        EXPECT_EQ(seen.at(x + 1, 62), drawn_pixel(12));
        EXPECT_EQ(seen.at(x + 1, 72), drawn_pixel(9));
    }
    EXPECT_EQ(seen.at(203, 103), drawn_pixel(12));
    EXPECT_EQ(seen.at(213, 103), drawn_pixel(9));
    XFreeGC(x11_disp, own);
}

// The context is exported: points relative to each other may be pending in it.
TEST_F(LongRun, AfterRelativePointsInTheSharedContext) {
    Target to = target(40, 60);
    draw(to.window, {Kind::point, attributes(9), {1, 1}, {}});
    XPoint steps[3] = {{20, 20}, {1, 1}, {1, 1}};
    XDrawPoints(x11_disp, x_window(to.window), g_c, steps, 3, CoordModePrevious);
    draw(to.window, {Kind::point, attributes(9), {50, 60}, {}});
    draw(to.window, {Kind::point, attributes(9), {51, 61}, {}});
    const Pixels seen = screen(to.window);
    EXPECT_EQ(seen.count(drawn_pixel(9)), 6);
    EXPECT_EQ(seen.at(22, 22), drawn_pixel(9));
    EXPECT_EQ(seen.at(50, 60), drawn_pixel(9));
    EXPECT_EQ(seen.at(51, 61), drawn_pixel(9));
}

// Xlib's buffer can hold more than one request can: the environment says how much.
class BigBuffer : public LongRun {
    void before_start() override { setenv("XLIBBUFFERSIZE", "4000000", 1); }
};

TEST_F(BigBuffer, RunsLongerThanARequest) {
    Target to = target(40, 60);
    RandomPrimitives random(21, width, height);
    for (const Kind kind : {Kind::segment, Kind::point, Kind::filled_rectangle, Kind::rectangle}) {
        std::vector<Primitive> list;
        for (int i = 0; i < 80000; ++i) {
            list.push_back(random.next(kind));
            list.back().attrib = attributes(9 + static_cast<int>(kind));
        }
        for (const auto& p : list) draw(to.window, p);
        XSync(x11_disp, False);
        for (const auto& p : list) to.plain->draw(p);
        ASSERT_TRUE(same(screen(to.window), to.plain->pixels())) << static_cast<int>(kind);
    }
}

class MixedRun : public LongRun {
  protected:
    MixedRun() : random_(3, width, height) {}

    void SetUp() override {
        LongRun::SetUp();
        if (HasFatalFailure()) return;
        one_ = target(20, 40);
        two_ = target(300, 40);
        side_ = std::make_unique<PlainPicture>(x11_disp, width, height, background());
        side_plain_ = std::make_unique<PlainPicture>(x11_disp, width, height, background());
        controls_ = window_of(GRX_FEN_BOUTONS, {20, 300, 300, 200});
        label_ = label_in(controls_, {20, 100, width, 90});
        push_ = XmCreatePushButton(grx_recup_objet_fen(controls_), const_cast<char*>("push"), nullptr, 0);
        XtManageChild(push_);
        area_ = std::make_unique<PlainPicture>(x11_disp, width, height, background());
        grx_affecte_nofen_active(one_.window);
        backing_ = std::make_unique<PlainPicture>(x11_disp, width, height, background());
        draw_on_button(label_, {Kind::filled_rectangle, attributes(0), {0, 0, width - 1, height - 1}, {}});
        grx_sync_server();
    }

    // One thing that an application might do; the plain side does the same at once, on the other connection.
    void act() {
        const int what = random_.number(0, 99);
        if (what < 40) return on_window(one_);
        if (what < 70) return on_window(two_);
        if (what < 80) return on_label();
        if (what < 84) return in_memory();
        if (what < 88) return plain_drawing();
        if (what < 91) return void(XFlush(x11_disp));
        if (what < 92) return void(XSync(x11_disp, False));
        if (what < 94) return change_label();
        if (what < 95) return drain();
        if (what < 97) return text_in(two_);
        if (what < 98) return void(XNoOp(x11_disp));
        if (what < 99) return void(XClearArea(x11_disp, x_window(controls_), 0, 60, 20, 20, False));
        grx_reinit_gc();
    }

    void expect_all_same() {
        EXPECT_TRUE(same(screen(one_.window), one_.plain->pixels())) << "first window";
        EXPECT_TRUE(same(screen(two_.window), two_.plain->pixels())) << "second window";
        EXPECT_TRUE(same(memory(one_.window), backing_->pixels())) << "backing picture";
        EXPECT_TRUE(same(side_->pixels(), side_plain_->pixels())) << "the application's own pixmap";
        EXPECT_TRUE(same(button_screen(label_), grab(x11_disp, area_->pixmap(), {0, 0, width, 90}))) << "label";
    }

    void run(int steps) {
        for (int i = 0; i < steps; ++i) {
            act();
            if (later_.size() >= 200) settle();
        }
        settle();
        expect_all_same();
    }

  private:
    // The plain side draws later, so that the library's requests follow each other as an application's do.
    struct Later {
        PlainPicture* picture;
        Primitive primitive;
    };
    void settle() {
        for (const auto& [picture, primitive] : later_) picture->draw(primitive);
        later_.clear();
    }

    void on_window(Target& to) {
        const int count = random_.number(1, 12);
        for (int i = 0; i < count; ++i) {
            const Primitive p = random_.next();
            draw(to.window, p);
            later_.push_back({to.plain.get(), p});
        }
    }

    void on_label() {
        const Primitive p = random_.next();
        if (!has_button_twin(p.kind)) return;
        draw_on_button(label_, p);
        later_.push_back({area_.get(), p});
    }

    void in_memory() {
        settle();
        grx_alloue_image(one_.window);
        backing_->clear(background());
        for (int i = 0; i < 10; ++i) {
            const Primitive p = random_.next();
            draw(i % 2 ? one_.window : two_.window, p); // whichever window it names
            later_.push_back({backing_.get(), p});
        }
        grx_desalloue_image();
    }

    // The application's own drawing on the same connection, with a context of its own.
    void plain_drawing() {
        Primitive p = random_.next();
        if (random_.number(0, 1) == 0) {
            side_->draw(p);
        } else { // without anything between it and the library's requests
            p = random_.next(Kind::segment);
            side_->apply(p.attrib);
            XDrawLine(x11_disp, side_->pixmap(), side_->context(), p.v[0], p.v[1], p.v[2], p.v[3]);
        }
        later_.push_back({side_plain_.get(), p});
    }

    void change_label() {
        XmString text = XmStringCreateLocalized(const_cast<char*>(random_.number(0, 1) ? "on" : "off"));
        XtVaSetValues(push_, XmNlabelString, text, nullptr);
        XmStringFree(text);
    }

    void text_in(Target& to) {
        settle();
        GRX_TEXTE text{};
        text.nofen = to.window;
        text.x = random_.number(0, width);
        text.y = random_.number(0, height);
        text.coul_trace = random_.number(0, 39);
        text.chaine[0] = 'A';
        text.chaine[1] = 'g';
        grx_ecrit_fenetre(text);
        to.plain->apply(attributes(0));
        XSetForeground(x11_disp, to.plain->context(), drawn_pixel(text.coul_trace) & 0xFF);
        XSetFont(x11_disp, to.plain->context(), fontstruct->fid);
        XDrawString(x11_disp, to.plain->pixmap(), to.plain->context(), text.x, text.y, "Ag", 2);
    }

    RandomPrimitives random_;
    std::vector<Later> later_;
    Target one_{}, two_{};
    std::unique_ptr<PlainPicture> side_, side_plain_, backing_, area_;
    INT controls_ = 0, label_ = 0;
    Widget push_ = nullptr;
};

TEST_F(MixedRun, BetweenXlibMotifAndFlushes) {
    run(3000);
}

TEST_F(LongRun, SynchronousPrimitivesAreThereAtOnce) {
    const INT window = graphic_window();
    grx_synchronise(1);
    for (INT i = 0; i < 20; ++i) {
        draw(window, {Kind::segment, attributes(9), {0, i, 9, i}, {}});
        EXPECT_EQ(grab(test_display(), x_window(window)).count(drawn_pixel(9)), 10 * (i + 1));
    }
    grx_synchronise(0);
}

TEST_F(MixedRun, WithSynchronousRequests) {
    grx_synchronise(1);
    run(600);
    grx_synchronise(0);
    run(600);
}

} // namespace
