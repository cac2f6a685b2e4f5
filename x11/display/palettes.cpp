// The palettes: the colours that the library asks the server for at start-up. The application may change them before.
#include "display/palettes.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "pure/palette.h"
#include "display/forget_display.h"
#include "xt_ini_f.h"

#define TEINTE(s, h)                                                                                                   \
    { grx::shade_component(s, h, 0), grx::shade_component(s, h, 1), grx::shade_component(s, h, 2) }
#define ICONE(k)                                                                                                       \
    { grx::icon_component(k, 0), grx::icon_component(k, 1), grx::icon_component(k, 2) }
#define SEIZE(F) F(0), F(1), F(2), F(3), F(4), F(5), F(6), F(7), F(8), F(9), F(10), F(11), F(12), F(13), F(14), F(15)
#define NUANCE(s)                                                                                                      \
    TEINTE(s, 0), TEINTE(s, 1), TEINTE(s, 2), TEINTE(s, 3), TEINTE(s, 4), TEINTE(s, 5), TEINTE(s, 6), TEINTE(s, 7),    \
        TEINTE(s, 8), TEINTE(s, 9), TEINTE(s, 10), TEINTE(s, 11), TEINTE(s, 12), TEINTE(s, 13), TEINTE(s, 14),         \
        TEINTE(s, 15)

#define RESERVE                                                                                                        \
    {134, 123, 66}, {0, 0, 0}, {0, 0, 0}, {228, 225, 159}, {119, 49, 49}, {255, 255, 255}, {255, 255, 0}, {            \
        128, 128, 128                                                                                                  \
    }

// The palettes are full from the start. So an application that computes no palette has colours, and one that sets its
// own before start-up keeps them.
INT palette_icone[GRX_NB_COULEURS][3] = {SEIZE(ICONE)};
INT palette_trace[GRX_NB_COULEURS][3] = {NUANCE(0), NUANCE(1), NUANCE(2), NUANCE(3), NUANCE(4), NUANCE(5), NUANCE(6),
    NUANCE(7), NUANCE(8), NUANCE(9), NUANCE(10), NUANCE(11), NUANCE(12), NUANCE(13), NUANCE(14), NUANCE(15)};
INT palette_reserve[GRX_NB_COULEURS_RESERVE][3] = {RESERVE};

namespace {

constexpr INT kMostColours = 65536;
constexpr INT kReserved[GRX_NB_COULEURS_RESERVE][3] = {RESERVE};

} // namespace

#undef TEINTE
#undef ICONE
#undef SEIZE
#undef NUANCE
#undef RESERVE

namespace grx {

INT drawing_colours() {
    return std::clamp<INT>(grx_recup_max_couleur_trace(), 0, kMostColours);
}

INT rendering_colours() {
    return std::clamp<INT>(grx_recup_max_couleur_rendu(), 0, kMostColours);
}

void forget_palettes() {
    std::memset(palette_icone, 0, sizeof palette_icone);
    grx_determine_palette_icone();
    grx_determine_palette_trace();
    std::memcpy(palette_reserve, kReserved, sizeof kReserved);
}

} // namespace grx

namespace {

void copy_palette(INT (*palette)[3], INT most, const INT* rgb, INT nb) {
    if (rgb == nullptr) return;
    const INT count = std::min(nb, most);
    for (INT k = 0; k < count; ++k) {
        for (INT c = 0; c < 3; ++c) palette[k][c] = std::min(rgb[3 * k + c], grx::kMaxComponent);
    }
}

} // namespace

extern "C" {

INT grx_determine_palette_icone(void) {
    for (INT k = 0; k < GRX_NB_COULEURS_ICONE; ++k) {
        for (std::size_t c = 0; c < 3; ++c) palette_icone[k][c] = grx::icon_component(k, c);
    }
    return 0;
}

INT grx_determine_palette_trace(void) {
    for (INT shade = 0; shade < grx::kShades; ++shade) {
        for (INT hue = 0; hue < grx::kShades; ++hue) {
            INT* rgb = palette_trace[shade * grx::kShades + hue];
            for (std::size_t c = 0; c < 3; ++c) rgb[c] = grx::shade_component(shade, hue, c);
        }
    }
    return 0;
}

INT grx_determine_palette_reserve(void) {
    return 0;
}

INT grx_affecte_palette_reserve(INT* rgb, INT nb) {
    copy_palette(palette_reserve, std::min<INT>(grx_recup_max_couleur_reserve(), GRX_NB_COULEURS_RESERVE), rgb, nb);
    return 0;
}

INT grx_affecte_palette_trace(INT* rgb, INT nb) {
    copy_palette(palette_trace, std::min<INT>(grx::drawing_colours(), GRX_NB_COULEURS), rgb, nb);
    return 0;
}
}
