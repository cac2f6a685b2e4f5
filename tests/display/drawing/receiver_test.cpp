// What is drawn while a receiver is set: its functions get the records as they came, and the server nothing.
#include "tests/display/drawing/drawing_kit.h"
#include "tests/support/controls.h"

#include "grx_plus_erreurs.h"
#include "grx_plus_recepteur.h"
#include "grx_plus_session.h"
#include "grx_plus_textes.h"

#include <algorithm>
#include <functional>

namespace {
using namespace grxtest;

struct Taken {
    std::string what;
    INT target = -1, number = -1;
    std::array<INT, 4> numbers{};
    bool operator==(const Taken&) const = default;
};

void PrintTo(const Taken& t, std::ostream* out) {
    *out << t.what << " target " << t.target << " number " << t.number << " " << testing::PrintToString(t.numbers);
}

struct Log {
    std::vector<Taken> all;
    std::function<void()> inside;
    GRX_IMAGE_RECUE picture{};
    int ends = 0;

    void note(const Taken& taken) {
        all.push_back(taken);
        if (inside) inside();
    }
};

Log& log_of(void* data) {
    return *static_cast<Log*>(data);
}

// The receiver that notes everything.
GRX_RECEPTEUR noting(Log& log) {
    GRX_RECEPTEUR r{};
    EXPECT_EQ(grx_init_recepteur(&r), 1);
    r.donnee = &log;
    r.point = [](void* d, INT t, const GRX_POINT* p) { log_of(d).note({"point", t, p->nofen, {p->x, p->y}}); };
    r.segment = [](void* d, INT t, const GRX_SEGMENT* s) {
        log_of(d).note({"segment", t, s->nofen, {s->x1, s->y1, s->x2, s->y2}});
    };
    r.rectangle = [](void* d, INT t, const GRX_RECTANGLE* s) {
        log_of(d).note({"rectangle", t, s->nofen, {s->x1, s->y1, s->x2, s->y2}});
    };
    r.rectangle_plein = [](void* d, INT t, const GRX_RECTANGLE* s) {
        log_of(d).note({"filled", t, s->nofen, {s->x1, s->y1, s->x2, s->y2}});
    };
    r.arc = [](void* d, INT t, const GRX_ARC* a) { log_of(d).note({"arc", t, a->nofen, {a->x, a->y, a->angle_arr}}); };
    r.arc_plein = [](void* d, INT t, const GRX_ARC* a) {
        log_of(d).note({"pie", t, a->nofen, {a->x, a->y, a->angle_arr}});
    };
    r.polyline = [](void* d, INT t, const GRX_POLY* p) {
        log_of(d).note({"polyline", t, p->nofen, {p->npoints, p->points[0].x, p->points[0].y, p->attrib.coul_trace}});
    };
    r.polygone = [](void* d, INT t, const GRX_POLY* p) {
        log_of(d).note({"polygon", t, p->nofen, {p->npoints, p->points[0].x, p->points[0].y, p->attrib.coul_trace}});
    };
    r.texte = [](void* d, INT t, const GRX_TEXTE* s) { log_of(d).note({s->chaine, t, s->nofen, {s->x, s->y}}); };
    r.texte_dessin = [](void* d, INT t, const GRX_TEXTE* s) {
        log_of(d).note({s->chaine, t, s->nofen, {s->x, s->y, static_cast<INT>(s->hauteurlabel)}});
    };
    r.image = [](void* d, INT t, const GRX_IMAGE_RECUE* p) {
        log_of(d).picture = *p;
        log_of(d).note({"picture", t, p->numero, {p->x, p->y, p->largeur_finale, p->hauteur_finale}});
    };
    r.efface = [](void* d, INT t, INT number) { log_of(d).note({"clear", t, number, {}}); };
    r.fin = [](void* d) { ++log_of(d).ends; };
    return r;
}

class Receiving {
  public:
    explicit Receiving(Log& log) : log_(&log) {
        const GRX_RECEPTEUR r = noting(log);
        EXPECT_EQ(grx_affecte_recepteur(&r), 1);
    }
    ~Receiving() { grx_retire_recepteur(log_); }
    Receiving(const Receiving&) = delete;
    Receiving& operator=(const Receiving&) = delete;

  private:
    Log* log_;
};

constexpr INT on_window = GRX_CIBLE_FENETRE, on_button = GRX_CIBLE_BOUTON;
GRX_POINT_POLY corners[] = {{1, 2}, {30, 4}, {5, 60}};

GRX_POLY poly_of(INT number) {
    return {number, corners, 3, 0, 0, 0, attributes(12)};
}

// Every primitive of windows, and of controls; and what is taken of them.
void draw_everything(INT window, INT button) {
    const auto a = attributes(12);
    grx_trace_point({window, 1, 2, 0, 0, 0, a});
    grx_trace_segment({window, 1, 2, INT_MAX, INT_MIN, 0, 0, 0, a});
    grx_trace_segment_bouton({button, 1, 2, 3, 4, 0, 0, 0, a});
    grx_trace_rectangle({window, 9, 2, 3, 4, 0, 0, 0, a});
    grx_trace_rectangle_bouton({button, 9, 2, 3, 4, 0, 0, 0, a});
    grx_remplit_rectangle({window, 9, 2, 3, 4, 0, 0, 0, a});
    grx_remplit_rectangle_bouton({button, 9, 2, 3, 4, 0, 0, 0, a});
    grx_trace_arc({window, 1, 2, 30, 40, 10, 250, 0, 0, 0, a});
    grx_remplit_arc({window, 1, 2, 30, 40, 10, 250, 0, 0, 0, a});
    grx_trace_polyline(poly_of(window));
    grx_remplit_polygone(poly_of(window));
    grx_remplit_polygone_bouton(poly_of(button));
    grx_remplit_triangle(poly_of(window));
    remplit_tableau_polygone(corners, 2, 14);
    remplit_tableau_triangles({5, 6}, corners[1], corners[2], 14);
    grx_ecrit_fenetre(text_at(window, 7, 8, "mur", 3));
    grx_trace_texte_bouton(text_at(button, 7, 8, "toit", 3));
    GRX_TEXTE text = text_at(window, 9, 10, "cote", 3);
    text.hauteurlabel = 25;
    EXPECT_EQ(grx_trace_texte_dessin(&text), 1);
    text.nofen = button;
    EXPECT_EQ(grx_trace_texte_dessin_bouton(&text), 1);
    grx_efface_zone_graphique(window);
    grx_efface_zone_graphique_bouton(button);
}

std::vector<Taken> everything(INT window, INT button) {
    return {{"point", on_window, window, {1, 2}}, {"segment", on_window, window, {1, 2, INT_MAX, INT_MIN}},
        {"segment", on_button, button, {1, 2, 3, 4}}, {"rectangle", on_window, window, {9, 2, 3, 4}},
        {"rectangle", on_button, button, {9, 2, 3, 4}}, {"filled", on_window, window, {9, 2, 3, 4}},
        {"filled", on_button, button, {9, 2, 3, 4}}, {"arc", on_window, window, {1, 2, 250}},
        {"pie", on_window, window, {1, 2, 250}}, {"polyline", on_window, window, {3, 1, 2, 12}},
        {"polygon", on_window, window, {3, 1, 2, 12}}, {"polygon", on_button, button, {3, 1, 2, 12}},
        {"polygon", on_window, window, {3, 1, 2, 12}}, {"polyline", on_window, window, {2, 1, 2, 14}},
        {"polygon", on_window, window, {3, 5, 6, 14}}, {"mur", on_window, window, {7, 8}},
        {"toit", on_button, button, {7, 8}}, {"cote", on_window, window, {9, 10, 25}},
        {"cote", on_button, button, {9, 10, 25}}, {"clear", on_window, window, {}}, {"clear", on_button, button, {}}};
}

class ReceiverTest : public DrawingTest {
  protected:
    Log log_;
};

TEST_F(ReceiverTest, TakesEveryPrimitiveAndTheServerNone) {
    const INT window = active_window();
    const INT button = label_in(window, {10, 10, 80, 40});
    const Pixels before = screen(window), memory_before = memory(window);
    {
        const Receiving receiving(log_);
        XSync(x11_disp, False);
        const Cost cost(x11_disp);
        draw_everything(window, button);
        EXPECT_EQ(cost.requests(), 0U);
        EXPECT_EQ(cost.round_trips(), 0U);
    }
    EXPECT_EQ(log_.all, everything(window, button));
    EXPECT_TRUE(same(before, screen(window)));
    EXPECT_TRUE(same(memory_before, memory(window)));
    EXPECT_EQ(log_.ends, 0);
}

TEST_F(ReceiverTest, DrawingGoesToTheScreenAgainAfterwards) {
    const INT window = active_window();
    { const Receiving receiving(log_); }
    grx_remplit_rectangle({window, 10, 10, 19, 19, 0, 0, 0, attributes(12)});
    EXPECT_EQ(screen(window).count(drawn_pixel(12)), 100);
    EXPECT_TRUE(log_.all.empty());
}

TEST_F(ReceiverTest, MemoryDrawingShowsAndEmptiesNothing) {
    const INT window = active_window();
    grx_alloue_image(window);
    grx_remplit_rectangle({window, 10, 10, 19, 19, 0, 0, 0, attributes(12)});
    grx_trace_image(1);
    grx_desalloue_image();
    const Pixels before = screen(window), memory_before = memory(window);
    {
        const Receiving receiving(log_);
        grx_alloue_image(window);
        grx_trace_segment({window, 1, 2, 3, 4, 0, 0, 0, attributes(12)});
        grx_trace_image(0);
        grx_desalloue_image();
    }
    EXPECT_EQ(log_.all.size(), 1U);
    EXPECT_TRUE(same(before, screen(window)));
    EXPECT_TRUE(same(memory_before, memory(window)));
    EXPECT_EQ(grx_backingstore_deja_cours(), 0);
}

TEST_F(ReceiverTest, PicturesComeInTheFormsThatWereGiven) {
    const INT window = active_window();
    std::array<uchar, 12> deep{};
    std::array<uchar, 4> shallow{};
    const Receiving receiving(log_);
    grx_alloue_image_reel(GRX_CIBLE_FENETRE, window);
    grx_trace_image_reel_xy(GRX_CIBLE_FENETRE, window, deep.data(), shallow.data(), 2, 2, 5, 6);
    ASSERT_EQ(log_.all.size(), 1U);
    EXPECT_EQ(log_.all[0], (Taken{"picture", on_window, window, {5, 6, 2, 2}}));
    EXPECT_EQ(log_.picture.pixels_24, deep.data());
    EXPECT_EQ(log_.picture.pixels_8, shallow.data());
    grx_stretch_image(77, 3, deep.data(), nullptr, 2, 2, -5, -6, 20, 30);
    EXPECT_EQ(log_.all.back(), (Taken{"picture", on_button, 3, {-5, -6, 20, 30}}));
    grx_trace_image_dans_widget(GRX_CIBLE_FENETRE, window, deep.data(), 2, 2, 5, 6);
    EXPECT_EQ(log_.picture.pixels_24, test_planes() == 24 ? deep.data() : nullptr);
    EXPECT_EQ(log_.picture.pixels_8, test_planes() == 24 ? nullptr : deep.data());
    grx_trace_image_dans_widget(GRX_CIBLE_FENETRE, window, nullptr, 2, 2, 5, 6);
    grx_trace_image_dans_widget(GRX_CIBLE_FENETRE, window, deep.data(), 0, -2, 5, 6);
    grx_stretch_image(GRX_CIBLE_FENETRE, window, deep.data(), nullptr, 2, 2, 0, 0, 0, INT_MIN);
    EXPECT_EQ(log_.all.size(), 3U);
}

TEST_F(ReceiverTest, WhatAFunctionOfTheReceiverDrawsGoesToTheScreen) {
    const INT window = active_window();
    log_.inside = [&] { grx_remplit_rectangle({window, 10, 10, 19, 19, 0, 0, 0, attributes(12)}); };
    const Receiving receiving(log_);
    grx_trace_point({window, 1, 2, 0, 0, 0, attributes(13)});
    EXPECT_EQ(log_.all.size(), 1U);
    EXPECT_EQ(screen(window).count(drawn_pixel(12)), 100);
    grx_trace_point({window, 1, 2, 0, 0, 0, attributes(13)});
    EXPECT_EQ(log_.all.size(), 2U);
}

TEST_F(ReceiverTest, AFunctionOfTheReceiverMayTakeItAway) {
    const INT window = active_window();
    const Receiving receiving(log_);
    log_.inside = [&] { EXPECT_EQ(grx_retire_recepteur(&log_), 1); };
    grx_trace_point({window, 1, 2, 0, 0, 0, attributes(13)});
    log_.inside = nullptr;
    grx_remplit_rectangle({window, 10, 10, 19, 19, 0, 0, 0, attributes(12)});
    EXPECT_EQ(log_.all.size(), 1U);
    EXPECT_EQ(screen(window).count(drawn_pixel(12)), 100);
    EXPECT_EQ(grx_retire_recepteur(&log_), GRX_ECHEC_ABSENT);
}

TEST_F(ReceiverTest, TheEndOfTheLibrarysWorkEndsIt) {
    const GRX_RECEPTEUR r = noting(log_);
    ASSERT_EQ(grx_affecte_recepteur(&r), 1);
    ASSERT_EQ(grx_termine_application(), 1);
    EXPECT_EQ(log_.ends, 1);
    EXPECT_EQ(grx_retire_recepteur(&log_), GRX_ECHEC_ABSENT);
    ASSERT_EQ(grx_termine_application(), 1);
    EXPECT_EQ(log_.ends, 1);
}

class ReceiverWithoutDisplayOn24 : public testing::Test {};

TEST_F(ReceiverWithoutDisplayOn24, TakesEverythingBeforeStartUp) {
    Log log;
    {
        const Receiving receiving(log);
        draw_everything(4, 700);
    }
    EXPECT_EQ(log.all, everything(4, 700));
    grx_trace_point({4, 1, 1, 0, 0, 0, attributes(1)}); // no receiver takes it any more
    EXPECT_EQ(log.all.size(), everything(4, 700).size());
}

TEST_F(ReceiverWithoutDisplayOn24, PolygonsWithoutPointsDoNotCome) {
    Log log;
    const Receiving receiving(log);
    grx_trace_polyline({1, nullptr, 4, 0, 0, 0, attributes(1)});
    grx_remplit_polygone({1, corners, 0, 0, 0, 0, attributes(1)});
    grx_remplit_triangle({1, corners, -3, 0, 0, 0, attributes(1)});
    remplit_tableau_polygone(nullptr, 3, 1);
    remplit_tableau_polygone(corners, 1, 1);
    EXPECT_TRUE(log.all.empty());
    remplit_tableau_polygone(corners, 2, 1);
    ASSERT_EQ(log.all.size(), 1U);
    EXPECT_EQ(log.all[0].number, GRX_AUCUN); // nothing came that a window took
}

TEST_F(ReceiverWithoutDisplayOn24, MembersThatAreNullTakeNothing) {
    GRX_RECEPTEUR r;
    ASSERT_EQ(grx_init_recepteur(&r), 1);
    ASSERT_EQ(grx_affecte_recepteur(&r), 1);
    draw_everything(4, 700);
    EXPECT_EQ(grx_retire_recepteur(nullptr), 1);
}

TEST_F(ReceiverWithoutDisplayOn24, RefusesWhatIsNoRecordAndASecondOne) {
    Log log;
    EXPECT_EQ(grx_init_recepteur(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_affecte_recepteur(nullptr), GRX_ECHEC_PARAMETRE);
    GRX_RECEPTEUR r = noting(log);
    r.taille = 8;
    EXPECT_EQ(grx_affecte_recepteur(&r), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_retire_recepteur(&log), GRX_ECHEC_ABSENT);
    r = noting(log);
    ASSERT_EQ(grx_affecte_recepteur(&r), 1);
    EXPECT_EQ(grx_affecte_recepteur(&r), GRX_ECHEC_OCCUPE);
    EXPECT_EQ(grx_retire_recepteur(nullptr), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_retire_recepteur(&log), 1);
}

} // namespace
