// Layers over a large drawing: how many frames a second one follows the pointer, and that a drawing twice as large makes
// no difference. Scrolling, too.
// Usage: bench_layers [--gate]   (--gate: fail below 60 frames a second, or when the larger drawing is slower)
#include "bench/report.h"
#include "bench/session.h"

#include "grx_plus_calques.h"
#include "host_f.h"
#include "xt_f.h"

#include <X11/Xlib.h>

#include <cstdio>
#include <cstring>
#include <random>

namespace {

constexpr int kEntities = 1000000;
constexpr INT kAcross = 620, kDown = 800;
constexpr int kFrames = 240;
constexpr int kRounds = 5;
constexpr double kLeastRate = 60;

INT window_number = -1;

void draw_plan(int entities) {
    std::mt19937 random(7);
    grx_alloue_image(window_number);
    GRX_SEGMENT s{};
    s.nofen = window_number;
    for (int i = 0; i < entities; ++i) {
        s.attrib = {0, 8 + static_cast<INT>(random() % 16), 0, 0, 0, 0};
        s.x1 = static_cast<INT>(random() % kAcross);
        s.y1 = static_cast<INT>(random() % kDown);
        s.x2 = s.x1 + static_cast<INT>(random() % 40) - 20;
        s.y2 = s.y1 + static_cast<INT>(random() % 40) - 20;
        grx_trace_segment(s);
    }
    grx_desalloue_image();
    grx_affiche_bitmap_backingstore(window_number);
}

GRX_SEGMENT segment(INT x1, INT y1, INT x2, INT y2) {
    return {window_number, x1, y1, x2, y2, 0, 0, 0, {0, 15, 0, 0, 0, 2}};
}

void rubber_band(int frame) {
    grx_commence_calque(window_number, 0);
    grx_trace_segment(segment(100, 100, 200 + frame * 3, 150 + frame * 2));
    GRX_TEXTE text{};
    text.nofen = window_number;
    text.x = 210 + frame;
    text.y = 140 + frame;
    std::strcpy(text.chaine, "12,50 m");
    text.coul_trace = 15;
    grx_ecrit_fenetre(text);
    grx_termine_calque();
}

void crosshair(int frame) {
    grx_commence_calque(window_number, 1);
    grx_trace_segment(segment(0, 100 + frame, kAcross, 100 + frame));
    grx_trace_segment(segment(100 + frame, 0, 100 + frame, kDown));
    grx_termine_calque();
}

void moved_part(int frame) {
    grx_deplace_calque(window_number, 2, frame % 2 == 0 ? 7 : -7, frame % 3 - 1);
}

void panning(int frame) {
    grx_defile_fenetre(window_number, frame % 2 == 0 ? 5 : -5, frame % 3 - 1, nullptr, nullptr);
}

// A thousand entities that are dragged together.
void make_part() {
    grx_commence_calque(window_number, 2);
    for (INT i = 0; i < 1000; ++i)
        grx_trace_segment(segment(300 + i % 40 * 5, 300 + i / 40 * 8, 304 + i % 40 * 5, 306 + i / 40 * 8));
    grx_termine_calque();
}

using Frame = void (*)(int);

void frames(INT window, Frame frame) {
    window_number = window;
    for (int i = 0; i < kFrames; ++i) {
        frame(i);
        XSync(x11_disp, False);
    }
}

struct Row {
    const char* name;
    Frame frame;
};

bool judge(const Row& row, INT of_n, INT of_2n) {
    const grxbench::Comparison c = grxbench::compare(
        kRounds, [&] { frames(of_n, row.frame); }, [&] { frames(of_2n, row.frame); });
    const double rate = kFrames / c.plain, ratio = c.library / c.plain;
    std::printf("%-34s n %7.0f frames/s  2n %7.0f frames/s  ratio %5.2f (at most 1.30)\n", row.name, rate,
        kFrames / c.library, ratio);
    return rate >= kLeastRate && ratio <= 1.30 + grxbench::kNoise;
}

// Windows side by side.
INT window_with(int entities, INT x) {
    GRX_FENETRE described;
    grx_init_fenetre(&described);
    described.type = GRX_FEN_GRAPHIQUE;
    described.x = x;
    described.y = 100;
    described.droite = kAcross;
    described.haut = kDown;
    if (grx_cree_fenetre(&described) != 0) return GRX_AUCUN;
    window_number = described.nofen;
    grx_affecte_nofen_active(window_number);
    grx_attend_creation_fenetre(window_number);
    draw_plan(entities);
    make_part();
    return window_number;
}

} // namespace

int main(int argc, char** argv) {
    const bool gate = argc > 1 && std::strcmp(argv[1], "--gate") == 0;
    if (!grxbench::start_library()) return 1;
    const INT of_n = window_with(kEntities, 0), of_2n = window_with(2 * kEntities, kAcross + 10);
    if (of_n == GRX_AUCUN || of_2n == GRX_AUCUN) return 1;
    const Row rows[] = {{"rubber band with its length", rubber_band}, {"crosshair over the whole window", crosshair},
        {"1000 entities moved", moved_part}, {"scrolling", panning}};
    std::printf("above %d entities (n), %d x %d\n", kEntities, kAcross, kDown);
    bool good = true;
    for (const Row& row : rows) good = judge(row, of_n, of_2n) && good;
    return gate && !good ? 1 : 0;
}
