// Each drawing primitive against Xlib's own call for it, in one process on one server.
// Usage: bench_primitives [--gate]   (--gate: fail when one falls clearly below 0.95 of plain Xlib)
#include "bench/chrono.h"
#include "bench/session.h"

#include "host_f.h"
#include "xt_f.h"

#include <X11/Xlib.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr int kRepeats = 200000;
constexpr int kRounds = 9;
constexpr int kSide = 500;
constexpr double kLeastRatio = 0.95;
constexpr double kNoise = 0.10; // what two runs of the same side differ by on a shared machine

INT window_number = -1;
Drawable target = None; // what plain Xlib draws into: the window, or its backing picture

GRX_ATTRIBUTS_TRACER attributes() {
    return {0, 15, 0, 0, 0, 0};
}

template <class Draw>
void draw_all(Draw draw) {
    for (int i = 0; i < kRepeats; ++i) draw(i % kSide);
    XSync(x11_disp, False);
}

struct Row {
    std::string name;
    grxbench::Comparison result;
};

template <class Plain, class Library>
Row measure(const char* name, Plain plain, Library library) {
    return {name, grxbench::compare(
                      kRounds, [&] { draw_all(plain); }, [&] { draw_all(library); })};
}

// The application's display list, made beforehand: filling its records is no part of drawing them.
struct Scene {
    std::vector<GRX_POINT> points;
    std::vector<GRX_SEGMENT> segments;
    std::vector<GRX_RECTANGLE> rectangles;
    std::vector<GRX_ARC> arcs;
    std::vector<GRX_POLY> polygons;
    std::vector<GRX_POLY> triangles;
};

Scene scene;

GRX_POINT_POLY corners[] = {{10, 10}, {20, 12}, {24, 30}, {12, 26}};

XPoint* x_corners() {
    return reinterpret_cast<XPoint*>(corners);
}

std::size_t at(int i) {
    return static_cast<std::size_t>(i);
}

GRX_POLY polygon(int count) {
    return {window_number, corners, count, 0, 0, 0, attributes()};
}

void make_scene() {
    const auto a = attributes();
    for (int i = 0; i < kSide; ++i) {
        scene.points.push_back({window_number, i, 10, 0, 0, 0, a});
        scene.segments.push_back({window_number, 0, i, 40, kSide - i, 0, 0, 0, a});
        scene.rectangles.push_back({window_number, i, 10, i + 8, 14, 0, 0, 0, a});
        scene.arcs.push_back({window_number, i, 10, 8, 6, 0, 90, 0, 0, 0, a});
        scene.polygons.push_back(polygon(4));
        scene.triangles.push_back(polygon(3));
    }
}

std::vector<Row> measure_all() {
    std::vector<Row> rows;
    rows.push_back(measure(
        "point", [](int i) { XDrawPoint(x11_disp, target, g_c, i, 10); },
        [](int i) { grx_trace_point(scene.points[at(i)]); }));
    rows.push_back(measure(
        "segment", [](int i) { XDrawLine(x11_disp, target, g_c, 0, i, 40, kSide - i); },
        [](int i) { grx_trace_segment(scene.segments[at(i)]); }));
    rows.push_back(measure(
        "rectangle", [](int i) { XDrawRectangle(x11_disp, target, g_c, i, 10, 8, 4); },
        [](int i) { grx_trace_rectangle(scene.rectangles[at(i)]); }));
    rows.push_back(measure(
        "filled rectangle", [](int i) { XFillRectangle(x11_disp, target, g_c, i, 10, 9, 5); },
        [](int i) { grx_remplit_rectangle(scene.rectangles[at(i)]); }));
    rows.push_back(measure(
        "arc", [](int i) { XDrawArc(x11_disp, target, g_c, i, 10, 8, 6, 0, 90 * 64); },
        [](int i) { grx_trace_arc(scene.arcs[at(i)]); }));
    rows.push_back(measure(
        "filled arc", [](int i) { XFillArc(x11_disp, target, g_c, i, 10, 8, 6, 0, 90 * 64); },
        [](int i) { grx_remplit_arc(scene.arcs[at(i)]); }));
    rows.push_back(measure(
        "polyline", [](int) { XDrawLines(x11_disp, target, g_c, x_corners(), 4, CoordModeOrigin); },
        [](int i) { grx_trace_polyline(scene.polygons[at(i)]); }));
    rows.push_back(measure(
        "filled polygon", [](int) { XFillPolygon(x11_disp, target, g_c, x_corners(), 4, Complex, CoordModeOrigin); },
        [](int i) { grx_remplit_polygone(scene.polygons[at(i)]); }));
    rows.push_back(measure(
        "filled triangle", [](int) { XFillPolygon(x11_disp, target, g_c, x_corners(), 3, Nonconvex, CoordModeOrigin); },
        [](int i) { grx_remplit_triangle(scene.triangles[at(i)]); }));
    return rows;
}

// Text goes to the window only, and sends its colours each time: plain Xlib does the same.
Row measure_text() {
    static GRX_TEXTE text{};
    text.nofen = window_number;
    text.y = 40;
    text.coul_trace = 15;
    std::strcpy(text.chaine, "Cloison 12,5");
    return measure(
        "text",
        [](int i) {
            XGCValues values{};
            values.function = GXcopy;
            values.foreground = 255;
            XChangeGC(x11_disp, g_c, GCFunction | GCForeground | GCBackground, &values);
            XDrawString(x11_disp, target, g_c, i, 40, text.chaine, 12);
        },
        [](int i) {
            text.x = i;
            grx_ecrit_fenetre(text);
        });
}

int report(const char* where, const std::vector<Row>& rows) {
    int below = 0;
    for (const auto& row : rows) {
        const bool enough = row.result.ratio() >= kLeastRatio;
        below += row.result.ratio() < kLeastRatio - kNoise ? 1 : 0;
        std::printf("%-8s %-18s plain %8.1f ms  grx %8.1f ms  ratio %.3f%s\n", where, row.name.c_str(),
            row.result.plain * 1e3, row.result.library * 1e3, row.result.ratio(), enough ? "" : "  BELOW 0.95");
    }
    return below;
}

bool open_window() {
    window_number = grxbench::start_with_plan(kSide, kSide);
    if (window_number == GRX_AUCUN) return false;
    grx_affecte_gc(attributes());
    make_scene();
    return true;
}

} // namespace

int main(int argc, char** argv) {
    const bool gate = argc > 1 && std::strcmp(argv[1], "--gate") == 0;
    if (!open_window()) return 2;
    target = XtWindow(grx_recup_objet_fen(window_number));
    auto rows = measure_all();
    rows.push_back(measure_text());
    int below = report("window", rows);
    STRUCTURE_FENETRE* record = nullptr;
    grx_recup_structure_fenetre(window_number, &record);
    grx_alloue_image(window_number);
    target = *record->image;
    below += report("pixmap", measure_all());
    return gate && below > 0 ? 1 : 0;
}
