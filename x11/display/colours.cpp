// Palettes, the colormap, and the tables from colour indices to pixels.
#include "xt_prive.h"

#include <X11/Xlib.h>

#include <algorithm>
#include <array>
#include <cstddef>

#include "pure/palette.h"
#include "xt_err_f.h"
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

// Filled from the start, so that an application that computes no palette has colours, and one that sets its own
// before start-up keeps them.
INT palette_icone[GRX_NB_COULEURS][3] = {SEIZE(ICONE)};
INT palette_trace[GRX_NB_COULEURS][3] = {NUANCE(0), NUANCE(1), NUANCE(2), NUANCE(3), NUANCE(4), NUANCE(5), NUANCE(6),
    NUANCE(7), NUANCE(8), NUANCE(9), NUANCE(10), NUANCE(11), NUANCE(12), NUANCE(13), NUANCE(14), NUANCE(15)};
INT palette_reserve[GRX_NB_COULEURS_RESERVE][3] = {{134, 123, 66}, {0, 0, 0}, {0, 0, 0}, {228, 225, 159}, {119, 49, 49},
    {255, 255, 255}, {255, 255, 0}, {128, 128, 128}};
INT trace_pix[GRX_NB_COULEURS] = {};

#undef TEINTE
#undef ICONE
#undef SEIZE
#undef NUANCE

namespace grx {

INT system_pix[GRX_NB_COULEURS] = {};
INT icone_pix[GRX_NB_COULEURS] = {};
INT pal_pix[GRX_NB_COULEURS] = {};

} // namespace grx

using grx::icone_pix;
using grx::pal_pix;
using grx::system_pix;

namespace {

constexpr INT kNone = -1;
constexpr INT kLeastDrawingColours = 8;
constexpr INT kMostColours = 65536;
constexpr INT kBackgroundIcon = 8; // the icon colour that stands for the control's background
constexpr std::array<INT, GRX_NB_EPAISSEURS> Tab_epaisseur{0, 2, 3, 4, 5, 6, 7, 8};

INT premier_index_rendu = 0;
INT dernier_index_rendu = 0;
INT memo_couleur_8 = 0;

bool in_table(INT index) {
    return index >= 0 && index < GRX_NB_COULEURS;
}

INT table_value(const INT (&table)[GRX_NB_COULEURS], INT index) {
    return in_table(index) ? table[index] : 0;
}

bool deep_screen() {
    return grx_recup_profondeur_ecran() > GRX_PROFONDEUR_8;
}

grx::Shifts shifts() {
    return {dec_red, dec_green, dec_blue};
}

// Counts as set by the application, inside what any screen could give.
INT drawing_colours() {
    return std::clamp<INT>(grx_recup_max_couleur_trace(), 0, kMostColours);
}

INT rendering_colours() {
    return std::clamp<INT>(grx_recup_max_couleur_rendu(), 0, kMostColours);
}

// System positions of the four kinds of colour.
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
    if (position < premier_index_rendu && in_table(position - first_drawing()))
        return palette_trace[position - first_drawing()];
    return kBlack;
}

void set_rendering_bounds() {
    premier_index_rendu = first_drawing() + drawing_colours();
    dernier_index_rendu = premier_index_rendu + rendering_colours();
}

// The application's indices begin at the reserved colours; rendering colours keep their system positions.
void copy_to_drawing_table() {
    const INT icons = grx_recup_max_couleur_icone();
    const INT first = std::min<INT>(premier_index_rendu, GRX_NB_COULEURS);
    const INT last = std::min<INT>(dernier_index_rendu, GRX_NB_COULEURS);
    for (INT k = icons; k < first; ++k) trace_pix[k - icons] = system_pix[k];
    for (INT k = first; k < last; ++k) trace_pix[k] = system_pix[k];
}

// What is read as 257 goes back whole.
constexpr INT kMostStored = 0xFFFF / grx::kMaxComponent;

unsigned short x_component(INT component) {
    return static_cast<unsigned short>(std::clamp<INT>(component, 0, kMostStored) * grx::kMaxComponent);
}

XColor x_colour(INT pixel, const INT* rgb) {
    XColor colour{};
    colour.pixel = static_cast<unsigned long>(static_cast<UNSIGNED_INT>(pixel));
    colour.red = x_component(rgb[GRX_ROUGE]);
    colour.green = x_component(rgb[GRX_VERT]);
    colour.blue = x_component(rgb[GRX_BLEU]);
    colour.flags = DoRed | DoGreen | DoBlue;
    return colour;
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

// No cell was had for system position k: 0 when the interface cannot do without it.
INT accept_shortage(INT k) {
    if (k < first_drawing()) return too_few_cells();
    if (k < premier_index_rendu) {
        const INT drawing = k - first_drawing();
        if (drawing < kLeastDrawingColours) return too_few_cells();
        report_count("couleurs trace Maxi :", drawing);
        grx_affecte_max_couleur_trace(drawing);
        premier_index_rendu = k;
    } else if (k < dernier_index_rendu) {
        const INT rendering = k - premier_index_rendu;
        report_count("couleurs rendu Maxi :", rendering);
        grx_affecte_max_couleur_rendu(rendering);
        dernier_index_rendu = k;
    }
    return 1;
}

bool allocate_cell(unsigned long& pixel) {
    unsigned long planes = 0;
    return XAllocColorCells(x11_disp, x11_cmap, False, &planes, 0, &pixel, 1) != 0;
}

using ColourTable = std::array<XColor, GRX_NB_COULEURS>;

void record_cell(ColourTable& colours, INT k, unsigned long pixel) {
    if (!in_table(k)) return;
    system_pix[k] = static_cast<INT>(pixel);
    if (pixel < GRX_NB_COULEURS) pal_pix[pixel] = k;
    colours[static_cast<std::size_t>(k)] = x_colour(system_pix[k], colour_at(k));
}

using Conversion = INT (*)(uchar);

void convert(INT lar, INT hau, uchar* buf, Conversion conversion) {
    if (buf == nullptr || lar <= 0 || hau <= 0) return;
    const auto count = static_cast<std::size_t>(lar) * static_cast<std::size_t>(hau);
    for (std::size_t i = count; i-- > 0;) buf[i] = static_cast<uchar>(conversion(buf[i]));
}

void copy_palette(INT (*palette)[3], INT most, const INT* rgb, INT nb) {
    if (rgb == nullptr) return;
    const INT count = std::min(nb, most);
    for (INT k = 0; k < count; ++k) {
        for (INT c = 0; c < 3; ++c) palette[k][c] = std::min(rgb[3 * k + c], grx::kMaxComponent);
    }
}

void store_cell(INT index, const INT* rgb) {
    if (x11_disp == nullptr || x11_cmap == None || trace_pix[index] < 0) return;
    XColor colour = x_colour(trace_pix[index], rgb);
    XStoreColor(x11_disp, x11_cmap, &colour);
}

void compute_pixel(INT index, const INT* rgb) {
    const INT pixel = grx::compose_pixel(shifts(), rgb);
    trace_pix[index] = pixel;
    const INT named = drawing_colours() + grx_recup_max_couleur_reserve();
    const INT position = index < named ? index + grx_recup_max_couleur_icone() : index;
    if ((index < named || index >= premier_index_rendu) && in_table(position)) system_pix[position] = pixel;
    grx::colours_changed();
}

// KEEP: integer division of c + 1 by 255, so that a full component reads 257.
INT component_read_back(unsigned short c) {
    return (static_cast<INT>(c) + 1) / grx::kMaxComponent;
}

void read_cell(INT pixel, INT* rgb) {
    if (x11_disp == nullptr || pixel < 0) return;
    XColor colour{};
    colour.pixel = static_cast<unsigned long>(pixel);
    XQueryColor(x11_disp, x11_cmap, &colour);
    rgb[GRX_ROUGE] = component_read_back(colour.red);
    rgb[GRX_VERT] = component_read_back(colour.green);
    rgb[GRX_BLEU] = component_read_back(colour.blue);
}

void read_triple(INT pixel, INT* rgb) {
    if (!deep_screen()) {
        read_cell(pixel, rgb);
        return;
    }
    rgb[GRX_ROUGE] = grx::component_of(pixel, dec_red);
    rgb[GRX_VERT] = grx::component_of(pixel, dec_green);
    rgb[GRX_BLEU] = grx::component_of(pixel, dec_blue);
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
    copy_palette(palette_trace, std::min<INT>(drawing_colours(), GRX_NB_COULEURS), rgb, nb);
    return 0;
}

INT grx_maj_palette_reserve(void) {
    for (INT k = 0; k < grx_recup_max_couleur_reserve(); ++k) grx_modif_rgb(k, palette_reserve[k]);
    return 0;
}

INT grx_maj_palette_trace(void) {
    const INT count = std::min<INT>(drawing_colours(), GRX_NB_COULEURS);
    for (INT k = 0; k < count; ++k) grx_modif_rgb(grx_recup_max_couleur_reserve() + k, palette_trace[k]);
    return 0;
}

INT grx_init_colormap_8_plans(void) {
    if (x11_disp == nullptr) return 0;
    x11_cmap = DefaultColormap(x11_disp, x11_screen);
    XInstallColormap(x11_disp, x11_cmap);
    std::fill(std::begin(pal_pix), std::end(pal_pix), kNone);
    set_rendering_bounds();
    const INT wanted = dernier_index_rendu; // KEEP: a shortage lowers the bounds, not the number of cells asked for
    ColourTable colours{};
    unsigned long pixel = 0;
    for (INT k = 0; k < wanted; ++k) {
        if (!allocate_cell(pixel) && accept_shortage(k) == 0) return 0;
        record_cell(colours, k, pixel);
    }
    XStoreColors(x11_disp, x11_cmap, colours.data(), std::min<INT>(dernier_index_rendu, GRX_NB_COULEURS));
    for (INT k = wanted; k < GRX_NB_COULEURS - 1; ++k) system_pix[k] = kNone;
    copy_to_drawing_table();
    return 1;
}

INT grx_init_colormap_24_plans(void) {
    if (x11_disp == nullptr || x11_vis == nullptr) return 0;
    x11_cmap = XCreateColormap(x11_disp, DefaultRootWindow(x11_disp), x11_vis, AllocNone);
    XInstallColormap(x11_disp, x11_cmap);
    set_rendering_bounds();
    const INT known = std::min<INT>(premier_index_rendu, GRX_NB_COULEURS);
    for (INT k = 0; k < known; ++k) system_pix[k] = grx::compose_pixel(shifts(), colour_at(k));
    copy_to_drawing_table();
    return 1;
}

INT grx_modif_rgb(INT index, INT* rgb) {
    if (!in_table(index) || rgb == nullptr) return 0;
    if (deep_screen()) {
        compute_pixel(index, rgb);
    } else {
        store_cell(index, rgb);
    }
    return 0;
}

INT grx_recup_rgb(INT index, INT* rgb) {
    if (rgb != nullptr) read_triple(table_value(trace_pix, index), rgb);
    return 0;
}

INT grx_recup_rgb_icone(INT index, INT* rgb) {
    if (rgb != nullptr) read_triple(table_value(icone_pix, index), rgb);
    return 0;
}

INT grx_recup_couleur(INT index) {
    return table_value(trace_pix, index);
}

INT grx_recup_couleur_icone(INT index) {
    return table_value(icone_pix, index);
}

INT grx_recup_index_image(INT* rgb, INT* index) {
    if (rgb == nullptr || index == nullptr) return 0;
    const INT pixel = grx::compose_pixel(shifts(), rgb); // KEEP: the deep-screen pixel, on 8 planes as well
    const INT count = std::min<INT>(grx_recup_max_couleur_reserve() + drawing_colours(), GRX_NB_COULEURS);
    const INT* const end = trace_pix + count;
    const INT* const found = std::find<const INT*>(trace_pix, end, pixel);
    *index = found == end ? 0 : static_cast<INT>(found - trace_pix);
    return found == end ? 0 : 1;
}

INT grx_init_palette_icone(INT couleur) {
    const INT count = grx_recup_max_couleur_icone();
    for (INT k = 0; k < GRX_NB_COULEURS - 1; ++k) icone_pix[k] = k < count ? system_pix[k] : kNone;
    icone_pix[kBackgroundIcon] = couleur;
    system_pix[kBackgroundIcon] = couleur;
    return count;
}

INT grx_change_couleur_8_icone(INT index) {
    memo_couleur_8 = icone_pix[kBackgroundIcon];
    if (in_table(index)) icone_pix[kBackgroundIcon] = icone_pix[index];
    return 0;
}

INT grx_restore_couleur_8_icone(void) {
    icone_pix[kBackgroundIcon] = memo_couleur_8;
    return 0;
}

INT grx_premier_index_rendu(void) {
    return premier_index_rendu;
}

INT grx_dernier_index_rendu(void) {
    return dernier_index_rendu;
}

INT grx_recup_epaisseur(INT i) {
    const INT remainder = i % GRX_NB_EPAISSEURS;
    return Tab_epaisseur[static_cast<std::size_t>(remainder < 0 ? remainder + GRX_NB_EPAISSEURS : remainder)];
}

INT grx_icone_oxa_to_system(INT lar, INT hau, uchar* buf) {
    convert(lar, hau, buf, [](uchar b) { return icone_pix[b]; });
    return 0;
}

INT grx_image_oxa_to_system(INT lar, INT hau, uchar* buf) {
    convert(lar, hau, buf, [](uchar b) { return trace_pix[b]; });
    return 0;
}

INT grx_icone_system_to_oxa(INT lar, INT hau, uchar* buf) {
    convert(lar, hau, buf, [](uchar b) { return pal_pix[b]; });
    return 0;
}

INT grx_image_system_to_oxa(INT lar, INT hau, uchar* buf) {
    convert(lar, hau, buf, [](uchar b) { return pal_pix[b] - grx_recup_max_couleur_icone(); });
    return 0;
}
}
