// Windows with a drawing, and layers above it.
#pragma once

#include "tests/display/drawing/backing_kit.h"

#include "grx_plus_calques.h"
#include "grx_plus_erreurs.h"

#include <vector>

namespace grxtest {

using Primitives = std::vector<Primitive>;

inline Primitives random_primitives(unsigned seed, int count, int width, int height) {
    RandomPrimitives random(seed, width, height);
    Primitives result;
    for (int i = 0; i < count; ++i) result.push_back(random.next());
    return result;
}

inline void draw_all(INT window, const Primitives& primitives) {
    for (const Primitive& primitive : primitives) draw(window, primitive);
}

// The same primitive elsewhere.
inline Primitive moved(Primitive p, INT dx, INT dy) {
    p.v[0] += dx;
    p.v[1] += dy;
    const bool second = p.kind == Primitive::Kind::segment || p.kind == Primitive::Kind::rectangle
                        || p.kind == Primitive::Kind::filled_rectangle;
    if (second) {
        p.v[2] += dx;
        p.v[3] += dy;
    }
    for (GRX_POINT_POLY& at : p.points) at = {static_cast<short>(at.x + dx), static_cast<short>(at.y + dy)};
    return p;
}

inline Primitives moved(Primitives all, INT dx, INT dy) {
    for (Primitive& p : all) p = moved(p, dx, dy);
    return all;
}

inline void make_layer(INT window, INT layer, const Primitives& primitives) {
    ASSERT_EQ(grx_commence_calque(window, layer), 1);
    draw_all(window, primitives);
    ASSERT_EQ(grx_termine_calque(), 1);
}

class LayersTest : public BackingTest {
  protected:
    // An active window with a drawing, in memory and on the screen.
    INT plan(unsigned seed = 5, const grxtest::Area& area = {40, 60, width, height}) {
        const INT window = active_window(area);
        draw_plan(window, seed);
        return window;
    }

    static void draw_plan(INT window, unsigned seed) {
        grx_alloue_image(window);
        draw_picture(window, seed);
        grx_desalloue_image();
        grx_affiche_bitmap_backingstore(window);
    }

    // What a window with the same drawing shows when these are drawn on it.
    Pixels drawn_directly(const Primitives& primitives, unsigned seed = 5) {
        const INT before = grx_recup_nofen_active();
        const INT twin = plan(seed, {400, 60, width, height});
        draw_all(twin, primitives);
        const Pixels result = screen(twin);
        grx_detruit_fenetre(twin);
        grx_affecte_nofen_active(before);
        drain();
        events.clear();
        return result;
    }
};

} // namespace grxtest
