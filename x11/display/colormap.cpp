// Allocates the colours of the palettes in the colormap of the screen, for the start of the library, and makes do with
// fewer when the cells run out.
#include <X11/Xlib.h>

#include <algorithm>
#include <array>
#include <cstddef>

#include "pure/palette.h"
#include "display/colours.h"
#include "display/palettes.h"
#include "xt_err_f.h"
#include "xt_ini_f.h"

namespace {

constexpr INT kLeastDrawingColours = 8;

// The system positions where the kinds of colour begin.
INT first_reserved() {
    return grx_recup_max_couleur_icone();
}

INT first_drawing() {
    return first_reserved() + grx_recup_max_couleur_reserve();
}

constexpr INT kBlack[3] = {0, 0, 0};

const INT* colour_at(INT position) {
    if (position < first_reserved()) return palette_icone[position];
    if (position < first_drawing()) return palette_reserve[position - first_reserved()];
    if (position < grx_premier_index_rendu() && grx::in_colour_table(position - first_drawing()))
        return palette_trace[position - first_drawing()];
    return kBlack;
}

void compute_rendering_bounds() {
    const INT first = first_drawing() + grx::drawing_colours();
    grx::set_rendering_bounds(first, first + grx::rendering_colours());
}

// The application counts from the reserved colours on. Rendering colours keep their system positions.
void copy_to_drawing_table() {
    const INT icons = grx_recup_max_couleur_icone();
    const INT first = std::min<INT>(grx_premier_index_rendu(), GRX_NB_COULEURS);
    const INT last = std::min<INT>(grx_dernier_index_rendu(), GRX_NB_COULEURS);
    for (INT k = icons; k < first; ++k) trace_pix[k - icons] = grx::system_pix[k];
    for (INT k = first; k < last; ++k) trace_pix[k] = grx::system_pix[k];
}

char line_end[] = "\n";

void report_count(const char* what, INT count) {
    grx_affiche_chaine(const_cast<char*>(what));
    grx_affiche_entier(count);
    grx_affiche_chaine(line_end);
}

INT too_few_cells() {
    grx_erreur(GRX_ERR_TABLE_COULEURS);
    return 0;
}

// The server had no cell for system position k. Returns 0 when the interface cannot do without that colour.
INT accept_shortage(INT k) {
    if (k < first_drawing()) return too_few_cells();
    if (k < grx_premier_index_rendu()) {
        const INT drawing = k - first_drawing();
        if (drawing < kLeastDrawingColours) return too_few_cells();
        report_count("couleurs trace Maxi :", drawing);
        grx_affecte_max_couleur_trace(drawing);
        grx::set_rendering_bounds(k, grx_dernier_index_rendu());
    } else if (k < grx_dernier_index_rendu()) {
        const INT rendering = k - grx_premier_index_rendu();
        report_count("couleurs rendu Maxi :", rendering);
        grx_affecte_max_couleur_rendu(rendering);
        grx::set_rendering_bounds(grx_premier_index_rendu(), k);
    }
    return 1;
}

bool allocate_cell(unsigned long& pixel) {
    unsigned long planes = 0;
    return XAllocColorCells(x11_disp, x11_cmap, False, &planes, 0, &pixel, 1) != 0;
}

using ColourTable = std::array<XColor, GRX_NB_COULEURS>;

void record_cell(ColourTable& colours, INT k, unsigned long pixel) {
    if (!grx::in_colour_table(k)) return;
    grx::system_pix[k] = static_cast<INT>(pixel);
    if (pixel < GRX_NB_COULEURS) grx::pal_pix[pixel] = k;
    colours[static_cast<std::size_t>(k)] = grx::x_colour(grx::system_pix[k], colour_at(k));
}

} // namespace

extern "C" {

INT grx_init_colormap_8_plans(void) {
    if (x11_disp == nullptr) return 0;
    x11_cmap = DefaultColormap(x11_disp, x11_screen);
    XInstallColormap(x11_disp, x11_cmap);
    std::fill(std::begin(grx::pal_pix), std::end(grx::pal_pix), grx::kNoColour);
    compute_rendering_bounds();
    const INT wanted =
        grx_dernier_index_rendu(); // KEEP: a shortage lowers the bounds, not the number of cells that are asked for
    ColourTable colours{};
    unsigned long pixel = 0;
    for (INT k = 0; k < wanted; ++k) {
        if (!allocate_cell(pixel) && accept_shortage(k) == 0) return 0;
        record_cell(colours, k, pixel);
    }
    XStoreColors(x11_disp, x11_cmap, colours.data(), std::min<INT>(grx_dernier_index_rendu(), GRX_NB_COULEURS));
    for (INT k = wanted; k < GRX_NB_COULEURS - 1; ++k) grx::system_pix[k] = grx::kNoColour;
    copy_to_drawing_table();
    return 1;
}

INT grx_init_colormap_24_plans(void) {
    if (x11_disp == nullptr || x11_vis == nullptr) return 0;
    x11_cmap = XCreateColormap(x11_disp, DefaultRootWindow(x11_disp), x11_vis, AllocNone);
    XInstallColormap(x11_disp, x11_cmap);
    compute_rendering_bounds();
    const INT known = std::min<INT>(grx_premier_index_rendu(), GRX_NB_COULEURS);
    for (INT k = 0; k < known; ++k) grx::system_pix[k] = grx::compose_pixel(grx::component_shifts(), colour_at(k));
    copy_to_drawing_table();
    return 1;
}
}
