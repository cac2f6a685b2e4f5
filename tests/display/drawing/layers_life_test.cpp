// Layers while windows are covered, resized, moved, dragged over with the mouse and destroyed, and when memory is short.
#include "tests/display/drawing/layers_kit.h"
#include "tests/support/next_function.h"

#include "grx_plus_session.h"

namespace {

int pixmaps_to_make = -1; // until the server has no memory for more; -1 = as many as wanted

} // namespace

extern "C" Pixmap XCreatePixmap(
    Display* display, Drawable on, unsigned int width, unsigned int height, unsigned int depth) {
    static const auto next = grxtest::next_function<decltype(XCreatePixmap)>("XCreatePixmap");
    if (pixmaps_to_make < 0) return next(display, on, width, height, depth);
    if (pixmaps_to_make > 0) {
        --pixmaps_to_make;
        return next(display, on, width, height, depth);
    }
    constexpr unsigned int too_wide = 40000; // the server refuses it for lack of memory
    return next(display, on, too_wide, too_wide, depth);
}

namespace {

using namespace grxtest;

const Primitives cross{segment(attributes(12), 20, 40, 200, 40), segment(attributes(12), 110, 5, 110, 170)};

// --- what covers the window, and what becomes of it -------------------------------------------------------------------

class LayerLife : public LayersTest {
  protected:
    void TearDown() override {
        pixmaps_to_make = -1;
        LayersTest::TearDown();
    }

    unsigned server_pixmaps(INT window) {
        XSync(x11_disp, False);
        return server_resources(test_display(), x_window(window))["PIXMAP"];
    }

    void expect_drawing_with(INT window, const Primitives& primitives, const char* when) {
        EXPECT_TRUE(same(screen(window), drawn_directly(primitives))) << when;
    }

    // Part of the window lies below another one while the layer comes, moves and goes.
    void below_another_window() {
        const INT window = plan();
        const Pixels before = screen(window);
        const Primitives mark{box(9, 25, 25, 40, 40)};
        make_layer(window, 0, cross);
        {
            const Cover cover(test_display(), {60, 80, 120, 100});
            drain();
            make_layer(window, 1, mark);
            EXPECT_EQ(grx_deplace_calque(window, 0, 5, 5), 1);
            draw(window, box(9, 230, 170, 235, 175));
        }
        drain();
        Primitives all = moved(cross, 5, 5);
        all.insert(all.end(), mark.begin(), mark.end());
        const Pixels with = screen(window);
        EXPECT_TRUE(same(with.part({0, 0, 228, 168}), drawn_directly(all).part({0, 0, 228, 168})));
        EXPECT_EQ(grx_efface_calque(window, GRX_TOUS_CALQUES), 1);
        EXPECT_TRUE(same(screen(window).part({0, 0, 228, 168}), before.part({0, 0, 228, 168})));
    }

    void taken_away_below_another_window() {
        const INT window = plan();
        const Pixels before = screen(window);
        make_layer(window, 0, cross);
        {
            const Cover cover(test_display(), {60, 80, 120, 100});
            drain();
            EXPECT_EQ(grx_efface_calque(window, 0), 1);
        }
        drain();
        EXPECT_TRUE(same(screen(window), before));
    }

    void hidden_and_shown_window() {
        const INT window = plan();
        const Pixels before = screen(window);
        make_layer(window, 0, cross);
        grx_cache_fenetre(window);
        ASSERT_TRUE(wait_for([&] { return !visible(x_window(window)); }));
        EXPECT_EQ(grx_deplace_calque(window, 0, 3, 4), 1);
        grx_affiche_fenetre(window);
        ASSERT_TRUE(wait_visible(grx_recup_objet_fen(window)));
        drain();
        expect_drawing_with(window, moved(cross, 3, 4), "shown again");
        EXPECT_EQ(grx_efface_calque(window, 0), 1);
        EXPECT_TRUE(same(screen(window), before));
    }

    // The application draws again when it is told, as it has to.
    void resize(INT window, INT across, INT down) {
        grx_change_taille_fenetre(window, across, down);
        ASSERT_TRUE(events.wait(GRX_EVT_CHGT_TAILLE)) << events.describe();
        draw_plan(window, 5);
        drain();
        events.clear();
    }

    void resized_window() {
        const INT window = plan();
        make_layer(window, 0, cross);
        for (const auto& [across, down] : std::vector<std::pair<INT, INT>>{{300, 220}, {150, 90}, {width, height}}) {
            resize(window, across, down);
            if (HasFatalFailure()) return;
            const INT twin = plan(5, {400, 60, across, down});
            const Pixels without = screen(twin);
            draw_all(twin, cross);
            EXPECT_TRUE(same(screen(window), screen(twin))) << across << " x " << down;
            EXPECT_EQ(grx_cache_calque(window, 0), 1);
            EXPECT_TRUE(same(screen(window), without)) << across << " x " << down;
            EXPECT_EQ(grx_affiche_calque(window, 0), 1);
            grx_detruit_fenetre(twin);
            grx_affecte_nofen_active(window);
            drain();
            events.clear();
        }
    }
};

class LayerLifeWithoutServer : public LayerLife {
    XServerOptions server_options() const override {
        XServerOptions options;
        options.arguments = {"-bs"};
        return options;
    }
};

TEST_F(LayerLife, BelowAnotherWindow) {
    below_another_window();
}
TEST_F(LayerLifeWithoutServer, BelowAnotherWindow) {
    below_another_window();
}
TEST_F(LayerLife, TakenAwayBelowAnotherWindow) {
    taken_away_below_another_window();
}
TEST_F(LayerLifeWithoutServer, TakenAwayBelowAnotherWindow) {
    taken_away_below_another_window();
}
TEST_F(LayerLife, HiddenAndShownWindow) {
    hidden_and_shown_window();
}
TEST_F(LayerLifeWithoutServer, HiddenAndShownWindow) {
    hidden_and_shown_window();
}
TEST_F(LayerLife, ResizedWindow) {
    resized_window();
}
TEST_F(LayerLifeWithoutServer, ResizedWindow) {
    resized_window();
}

TEST_F(LayerLifeWithoutServer, WhereTheApplicationDrawsItselfItIsAboveThat) {
    const INT window = plan();
    grx_interdit_backingstore(window, 1);
    make_layer(window, 0, cross);
    events.clear();
    {
        const Cover cover(test_display(), {60, 80, 120, 100});
        drain();
    }
    ASSERT_TRUE(events.wait(GRX_EVT_AFFICHAGE)) << events.describe();
    grx_efface_zone_graphique(window);
    draw_picture(window, 44);
    drain();
    EXPECT_EQ(screen(window).at(30, 40), drawn_pixel(12));
    EXPECT_EQ(screen(window).at(110, 100), drawn_pixel(12));
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
    const INT twin = active_window({400, 60, width, height});
    draw_picture(twin, 44);
    EXPECT_TRUE(same(screen(window), screen(twin)));
}

// --- with the mouse ----------------------------------------------------------------------------------------------------

// A rubber band from the press to the pointer, in each event record, and taken away at the release.
class RubberBand {
  public:
    explicit RubberBand(INT window) : window_(window) {}

    void operator()(const GRX_EVENEMENT& e) {
        if (e.type_evenement == GRX_EVT_BOUTON_APPUI) from_ = at(e.bouton_appui);
        if (e.type_evenement == GRX_EVT_SOURIS_BOUGE && from_.x >= 0) follow(at(e.souris_bouge));
        if (e.type_evenement == GRX_EVT_BOUTON_RELACHE) {
            EXPECT_EQ(grx_efface_calque(window_, 0), 1);
            from_.x = -1;
            ++releases;
        }
    }

    int frames = 0, releases = 0;
    Primitives last;

  private:
    struct Place {
        INT x, y;
    };

    Place at(const GRX_DIGIT& digit) const {
        INT across = 0, down = 0;
        grx_recup_taille_fenetre(window_, &across, &down);
        return {digit.x, down - digit.y};
    }

    void follow(Place to) {
        last = {segment(attributes(12), from_.x, from_.y, to.x, to.y)};
        make_layer(window_, 0, last);
        ++frames;
    }

    INT window_;
    Place from_{-1, -1};
};

template <class Fixture>
void serve(Fixture& band) {
    GRX_EVENEMENT record{};
    while (grx_digitaliseur(&record, 0) != 0) band(record);
}

template <class Check>
void drag_over(Pointer& mouse, Widget widget, RubberBand& band, Check check) {
    mouse.move_in(widget, 30, 30);
    mouse.press(1);
    serve(band);
    for (int i = 1; i <= 12; ++i) {
        const int before = band.frames;
        mouse.move_in(widget, 30 + 12 * i, 30 + 9 * i);
        EXPECT_TRUE(wait_until(
            [&] {
                serve(band);
                return band.frames > before;
            },
            [] {}));
        check();
    }
    mouse.release(1);
    EXPECT_TRUE(wait_until(
        [&] {
            serve(band);
            return band.releases > 0;
        },
        [] {}));
}

TEST_F(LayerLife, FollowsADragOfThePointer) {
    const INT window = plan();
    const Pixels before = screen(window);
    for (const bool locks : {false, true}) {
        if (locks) {
            keyboard().num_lock();
            keyboard().caps_lock();
        }
        RubberBand band(window);
        drag_over(
            pointer(), grx_recup_objet_fen(window), band, [&] { EXPECT_GT(differences(screen(window), before), 3); });
        EXPECT_GE(band.frames, 12);
        EXPECT_TRUE(same(screen(window), before));
    }
}

class LayersWmTest : public WmTest {};

TEST_F(LayersWmTest, FollowsADragAndItsWindow) {
    GRX_FENETRE described;
    grx_init_fenetre(&described);
    described.type = GRX_FEN_GRAPHIQUE;
    described.droite = 300;
    described.haut = 200;
    ASSERT_EQ(grx_cree_fenetre(&described), 0);
    const INT window = described.nofen;
    Widget work = grx_recup_objet_fen(window);
    ASSERT_TRUE(wait_visible(work));
    drain();
    const Pixels before = grab(x11_disp, XtWindow(work));
    RubberBand band(window);
    drag_over(pointer(), work, band, [&] { EXPECT_EQ(grab(x11_disp, XtWindow(work)).at(30, 30), drawn_pixel(12)); });
    EXPECT_TRUE(same(grab(x11_disp, XtWindow(work)), before));
    make_layer(window, 0, cross);
    const Pixels with = grab(x11_disp, XtWindow(work));
    const grxtest::Area frame = frame_area(grx_recherche_shell(work));
    const Point title{frame.x + frame.width / 2, frame.y + 12};
    ASSERT_TRUE(pointer().drag_frame(title, {title.x + 90, title.y + 80}));
    ASSERT_TRUE(wait_for([&] { return frame_area(grx_recherche_shell(work)).x != frame.x; }));
    drain();
    EXPECT_TRUE(same(grab(x11_disp, XtWindow(work)), with));
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
    EXPECT_TRUE(same(grab(x11_disp, XtWindow(work)), before));
}

// --- what is refused -----------------------------------------------------------------------------------------------------

TEST_F(LayerLife, NumbersOfNothingAreRefused) {
    const INT window = plan();
    const INT plain = window_of(GRX_FEN_ALPHA, {400, 60, width, height});
    const NoLeak no_leak;
    for (const INT number : unknown_windows) {
        if (number == window || number == plain) continue;
        EXPECT_EQ(grx_commence_calque(number, 0), GRX_ECHEC_NUMERO);
        EXPECT_EQ(grx_deplace_calque(number, 0, 1, 1), GRX_ECHEC_NUMERO);
        EXPECT_EQ(grx_cache_calque(number, 0), GRX_ECHEC_NUMERO);
        EXPECT_EQ(grx_affiche_calque(number, 0), GRX_ECHEC_NUMERO);
        EXPECT_EQ(grx_efface_calque(number, 0), GRX_ECHEC_NUMERO);
    }
    for (const INT layer : {-1, -2, GRX_NB_CALQUES, 999, INT_MAX, INT_MIN}) {
        EXPECT_EQ(grx_commence_calque(window, layer), GRX_ECHEC_NUMERO);
        EXPECT_EQ(grx_deplace_calque(window, layer, 1, 1), GRX_ECHEC_NUMERO);
        if (layer != GRX_TOUS_CALQUES) EXPECT_EQ(grx_cache_calque(window, layer), GRX_ECHEC_NUMERO);
        if (layer != GRX_TOUS_CALQUES) EXPECT_EQ(grx_efface_calque(window, layer), GRX_ECHEC_NUMERO);
    }
    EXPECT_EQ(grx_commence_calque(plain, 0), GRX_ECHEC_GENRE);
    EXPECT_EQ(grx_efface_calque(plain, 0), GRX_ECHEC_GENRE);
    EXPECT_EQ(grx_deplace_calque(window, 0, 1, 1), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_cache_calque(window, GRX_TOUS_CALQUES), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_affiche_calque(window, 7), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_termine_calque(), GRX_ECHEC_ABSENT);
    ASSERT_EQ(grx_commence_calque(window, 0), 1);
    EXPECT_EQ(grx_commence_calque(window, 0), GRX_ECHEC_OCCUPE);
    EXPECT_EQ(grx_commence_calque(window, 1), GRX_ECHEC_OCCUPE);
    EXPECT_EQ(grx_termine_calque(), 1);
    EXPECT_EQ(grx_termine_calque(), GRX_ECHEC_ABSENT);
}

TEST_F(LayerLife, AWindowWithoutItsPictureIsRefusedButKeepsItsLayers) {
    const INT window = plan();
    make_layer(window, 0, cross);
    grx_supprime_bitmap_backingstore(window);
    EXPECT_EQ(grx_commence_calque(window, 1), GRX_ECHEC_GENRE);
    EXPECT_EQ(grx_deplace_calque(window, 0, 2, 2), 1);
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
    EXPECT_EQ(grx_commence_calque(window, 0), GRX_ECHEC_GENRE);
    EXPECT_EQ(grx_defile_fenetre(window, 1, 1, nullptr, nullptr), GRX_ECHEC_GENRE);
    EXPECT_EQ(grx_cree_bitmap_backingstore(window), 1);
    make_layer(window, 0, cross);
}

TEST_F(LayerLife, GoesWithItsWindow) {
    const NoLeak no_leak;
    for (const bool drawing : {false, true}) {
        const INT window = plan();
        make_layer(window, 0, cross);
        if (drawing) {
            ASSERT_EQ(grx_commence_calque(window, 1), 1);
            draw_all(window, cross);
        }
        grx_detruit_fenetre(window);
        drain();
        EXPECT_EQ(grx_termine_calque(), GRX_ECHEC_ABSENT);
        EXPECT_EQ(grx_deplace_calque(window, 0, 1, 1), GRX_ECHEC_NUMERO);
        const INT next = plan();
        EXPECT_EQ(next, window);
        EXPECT_EQ(grx_deplace_calque(next, 0, 1, 1), GRX_ECHEC_ABSENT);
        EXPECT_TRUE(same(screen(next), drawn_directly({})));
        draw_all(next, cross);
        EXPECT_EQ(screen(next).at(30, 40), drawn_pixel(12));
        grx_detruit_fenetre(next);
        drain();
    }
}

TEST_F(LayerLife, ANumberGivenUpDoesNotHandItsLayersOn) {
    const INT window = plan();
    make_layer(window, 0, cross);
    grx_libere_indice_objet_fen(window);
    EXPECT_EQ(grx_efface_calque(window, 0), GRX_ECHEC_NUMERO);
    const INT next = plan(6, {400, 60, width, height});
    ASSERT_EQ(next, window);
    EXPECT_EQ(grx_deplace_calque(next, 0, 1, 1), GRX_ECHEC_ABSENT);
    make_layer(next, 0, {box(9, 50, 50, 60, 60)});
    EXPECT_EQ(screen(next).at(55, 55), drawn_pixel(9));
}

TEST_F(LayerLife, ShutDownWhileALayerIsDrawn) {
    const INT window = plan();
    make_layer(window, 0, cross);
    draw(window, box(9, 50, 50, 60, 60)); // it is to come back later
    ASSERT_EQ(grx_limite_trace(window, 1, 1, 20, 20), 1);
    ASSERT_EQ(grx_commence_calque(window, 1), 1);
    draw_all(window, cross);
    ASSERT_EQ(grx_termine_application(), 1);
    EXPECT_EQ(grx_termine_calque(), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_commence_calque(window, 1), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_efface_calque(window, 1), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_deplace_calque(window, 1, 0, 0), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_limite_trace(window, 0, 0, 1, 1), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_libere_limite_trace(), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_defile_fenetre(window, 1, 1, nullptr, nullptr), GRX_ECHEC_AFFICHAGE);
    ASSERT_TRUE(start_up());
    const INT again = plan();
    EXPECT_EQ(grx_termine_calque(), GRX_ECHEC_ABSENT);
    make_layer(again, 1, cross);
    EXPECT_EQ(screen(again).at(30, 40), drawn_pixel(12));
}

// --- when memory is short ------------------------------------------------------------------------------------------------

TEST_F(LayerLife, WithoutMemoryTheLayerStaysWhatItWas) {
    const INT window = plan();
    const Primitives many = random_primitives(4, 60, width, height);
    make_layer(window, 1, cross); // what is noted for the end of the work is noted
    EXPECT_EQ(grx_efface_calque(window, 1), 1);
    const NoLeak no_leak;
    make_layer(window, 0, cross);
    const Pixels with = screen(window);
    const int failures = fail_each_allocation([&] {
        EXPECT_EQ(grx_commence_calque(window, 0), 1);
        draw_all(window, many);
        const INT code = grx_termine_calque();
        EXPECT_EQ(code, heap().failed() ? GRX_ECHEC_MEMOIRE : 1);
        if (code != 1) EXPECT_TRUE(same(screen(window), with));
        heap().fail_never();
        make_layer(window, 0, cross);
        EXPECT_TRUE(same(screen(window), with));
    });
    EXPECT_GE(failures, 3);
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
}

TEST_F(LayerLife, WithoutPixmapsNothingIsBegun) {
    const INT window = plan();
    const Pixels before = screen(window);
    permit_x_errors();
    for (const int made : {0, 1}) {
        pixmaps_to_make = made;
        EXPECT_EQ(grx_commence_calque(window, 0), GRX_ECHEC_MEMOIRE) << made;
        EXPECT_EQ(grx_termine_calque(), GRX_ECHEC_ABSENT);
        draw(window, box(9, 50, 50, 60, 60));
        EXPECT_EQ(screen(window).at(55, 55), drawn_pixel(9)) << "drawn on the screen";
        grx_affiche_bitmap_backingstore(window);
    }
    GRX_ZONE zones[2];
    INT count = 7;
    pixmaps_to_make = 0;
    EXPECT_EQ(grx_defile_fenetre(window, 3, 3, zones, &count), GRX_ECHEC_MEMOIRE);
    EXPECT_EQ(count, 0);
    EXPECT_TRUE(same(screen(window), before));
    pixmaps_to_make = -1;
    make_layer(window, 0, cross);
    pixmaps_to_make = 0;
    EXPECT_EQ(grx_deplace_calque(window, 0, 1, 1), 1) << "needs none";
    pixmaps_to_make = -1;
    EXPECT_EQ(screen(window).at(40, 41), drawn_pixel(12));
}

TEST_F(LayerLife, FiveHundredRoundsLeaveNothing) {
    const INT window = plan();
    const Pixels before = screen(window);
    make_layer(window, 0, cross);
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
    const NoLeak no_leak;
    const auto pixmaps = server_pixmaps(window);
    for (int i = 0; i < 500; ++i) {
        make_layer(window, i % GRX_NB_CALQUES, cross);
        ASSERT_EQ(grx_deplace_calque(window, i % GRX_NB_CALQUES, i % 7, i % 5), 1);
        if (i % 3 == 0) draw(window, segment(attributes(9, 0, erase_mode), 0, 0, 0, 0));
        if (i % 10 == 9) ASSERT_EQ(grx_efface_calque(window, GRX_TOUS_CALQUES), 1);
    }
    EXPECT_EQ(server_pixmaps(window), pixmaps);
    grx_affiche_bitmap_backingstore(window);
    EXPECT_TRUE(same(screen(window), before));
}

} // namespace
