// Outlines, arcs and polylines strewn over a window that the server saves, where every place drawn to is noted: the
// library against Xlib's own call for each. Beside them what the same figures cost in the backing picture, and on the
// screen with the saving off. Usage: bench_screen_saving [--gate]   (--gate: fail when one is clearly not twice as fast)
#include "bench/chrono.h"
#include "bench/session.h"

#include "host_f.h"
#include "xt_f.h"

#include <X11/Xlib.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <random>
#include <vector>

namespace {

constexpr int kFigures = 1500; // as many as the connection holds while nobody reads it
constexpr int kRounds = 9;
constexpr int kWidth = 1000, kHeight = 800;
constexpr double kLeastRatio = 2;
constexpr double kNoise = 0.2;

INT window_number = -1;
Drawable target = None;

// Figures of the size that a drawing's have: no two at one place.
struct Scene {
    std::vector<GRX_RECTANGLE> outlines;
    std::vector<GRX_ARC> arcs;
    std::vector<std::array<GRX_POINT_POLY, 4>> corners;
    std::vector<GRX_POLY> polylines;
};
Scene scene;

void make_scene() {
    std::mt19937 random(1);
    const auto number = [&](int first, int last) { return std::uniform_int_distribution<INT>(first, last)(random); };
    const GRX_ATTRIBUTS_TRACER a{0, 15, 0, 0, 0, 0};
    for (int i = 0; i < kFigures; ++i) {
        const INT x = number(0, kWidth - 70), y = number(0, kHeight - 70), w = number(5, 64), h = number(5, 64);
        scene.outlines.push_back({window_number, x, y, x + w, y + h, 0, 0, 0, a});
        scene.arcs.push_back(
            {window_number, x, y, static_cast<UNSIGNED_INT>(w), static_cast<UNSIGNED_INT>(h), 0, 90, 0, 0, 0, a});
        const auto at = [&](INT dx, INT dy) {
            return GRX_POINT_POLY{static_cast<short>(x + dx), static_cast<short>(y + dy)};
        };
        scene.corners.push_back({at(0, 0), at(w, h / 2), at(w / 2, h), at(0, h)});
    }
    for (auto& corners : scene.corners) scene.polylines.push_back({window_number, corners.data(), 4, 0, 0, 0, a});
}

void plain_outline(std::size_t i) {
    const GRX_RECTANGLE& r = scene.outlines[i];
    XDrawRectangle(
        x11_disp, target, g_c, r.x1, r.y1, static_cast<unsigned>(r.x2 - r.x1), static_cast<unsigned>(r.y2 - r.y1));
}

void plain_arc(std::size_t i) {
    const GRX_ARC& a = scene.arcs[i];
    XDrawArc(x11_disp, target, g_c, a.x, a.y, a.lar, a.hau, 0, 90 * 64);
}

void plain_polyline(std::size_t i) {
    XDrawLines(x11_disp, target, g_c, reinterpret_cast<XPoint*>(scene.corners[i].data()), 4, CoordModeOrigin);
}

// The server is held until it has all of them: how much a place costs depends on how many it finds before it has a
// moment to deal with them.
Display* holder = nullptr;

template <class Draw>
double seconds_of_all(Draw draw) {
    XGrabServer(holder);
    XSync(holder, False);
    for (std::size_t i = 0; i < kFigures; ++i) draw(i);
    XFlush(x11_disp);
    XUngrabServer(holder);
    XFlush(holder);
    return grxbench::seconds([] { XSync(x11_disp, False); });
}

struct Figure {
    const char* name;
    void (*plain)(std::size_t);
    void (*library)(std::size_t);
};

constexpr std::array<Figure, 3> kFigureKinds{
    {{"rectangle outlines", plain_outline, [](std::size_t i) { grx_trace_rectangle(scene.outlines[i]); }},
        {"arcs", plain_arc, [](std::size_t i) { grx_trace_arc(scene.arcs[i]); }},
        {"polylines", plain_polyline, [](std::size_t i) { grx_trace_polyline(scene.polylines[i]); }}}};

grxbench::Comparison compare(void (*plain)(std::size_t), void (*library)(std::size_t)) {
    std::vector<double> first, second;
    for (int i = 0; i < kRounds; ++i) {
        first.push_back(seconds_of_all(plain));
        second.push_back(seconds_of_all(library));
    }
    return {grxbench::median(first), grxbench::median(second)};
}

// Where servers save nothing there is nothing to win.
bool server_saves() {
    return DoesBackingStore(DefaultScreenOfDisplay(x11_disp)) != NotUseful;
}

int measure(const char* where, double least) {
    int below = 0;
    for (const auto& [name, plain, library] : kFigureKinds) {
        const auto result = compare(plain, library);
        std::printf("%-24s %d %-18s plain %8.1f ms  grx %8.1f ms  ratio %.2f\n", where, kFigures, name,
            result.plain * 1e3, result.library * 1e3, result.ratio());
        if (result.ratio() < least) ++below;
    }
    return below;
}

void measure_in_memory() {
    STRUCTURE_FENETRE* record = nullptr;
    grx_recup_structure_fenetre(window_number, &record);
    grx_alloue_image(window_number);
    target = *record->image;
    measure("backing picture", 0);
    grx_desalloue_image();
}

} // namespace

int main(int argc, char** argv) {
    const bool gate = argc > 1 && std::strcmp(argv[1], "--gate") == 0;
    holder = XOpenDisplay(nullptr);
    if (holder == nullptr) return 2;
    window_number = grxbench::start_with_plan(kWidth, kHeight);
    if (window_number == GRX_AUCUN) return 2;
    make_scene();
    target = XtWindow(grx_recup_objet_fen(window_number));
    grx_affecte_gc(scene.outlines[0].attrib);
    const int below = measure("screen, saved", server_saves() ? kLeastRatio - kNoise : 0);
    grx_interdit_backingstore(window_number, 1);
    measure("screen, saving off", 0);
    grx_interdit_backingstore(window_number, 0);
    measure_in_memory();
    return gate && below > 0 ? 1 : 0;
}
