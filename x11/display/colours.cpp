// Turns colour indices into pixels and back for all drawing, and lets the application change and read colours.
#include "display/colours.h"

#include <X11/Xlib.h>

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "pure/palette.h"
#include "display/colours_state.h"
#include "display/context.h"
#include "display/palettes.h"
#include "display/screen.h"
#include "display/forget_display.h"
#include "xt_ini_f.h"

INT trace_pix[GRX_NB_COULEURS] = {};

namespace {

constexpr INT kBackgroundIcon = 8; // the icon colour that stands for the control's background

INT premier_index_rendu = 0;
INT dernier_index_rendu = 0;
INT memo_couleur_8 = 0;

INT table_value(const INT (&table)[GRX_NB_COULEURS], INT index) {
    return grx::in_colour_table(index) ? table[index] : 0;
}

// A full component reads 257; it must become a full one again when the application sets it.
constexpr INT kMostStored = 0xFFFF / grx::kMaxComponent;

unsigned short x_component(INT component) {
    return static_cast<unsigned short>(std::clamp<INT>(component, 0, kMostStored) * grx::kMaxComponent);
}

using Conversion = INT (*)(uchar);

void convert(INT lar, INT hau, uchar* buf, Conversion conversion) {
    if (buf == nullptr || lar <= 0 || hau <= 0) return;
    const auto count = static_cast<std::size_t>(lar) * static_cast<std::size_t>(hau);
    for (std::size_t i = count; i-- > 0;) buf[i] = static_cast<uchar>(conversion(buf[i]));
}

void store_cell(INT index, const INT* rgb) {
    if (x11_disp == nullptr || x11_cmap == None || trace_pix[index] < 0) return;
    XColor colour = grx::x_colour(trace_pix[index], rgb);
    XStoreColor(x11_disp, x11_cmap, &colour);
}

void compute_pixel(INT index, const INT* rgb) {
    const INT pixel = grx::compose_pixel(grx::component_shifts(), rgb);
    trace_pix[index] = pixel;
    const INT named = grx::drawing_colours() + grx_recup_max_couleur_reserve();
    const INT position = index < named ? index + grx_recup_max_couleur_icone() : index;
    if ((index < named || index >= premier_index_rendu) && grx::in_colour_table(position))
        grx::system_pix[position] = pixel;
    grx::colours_changed();
}

// KEEP: c + 1 is divided by 255 in integers, so that a full component reads 257.
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
    if (!grx::deep_screen()) {
        read_cell(pixel, rgb);
        return;
    }
    rgb[GRX_ROUGE] = grx::component_of(pixel, dec_red);
    rgb[GRX_VERT] = grx::component_of(pixel, dec_green);
    rgb[GRX_BLEU] = grx::component_of(pixel, dec_blue);
}

} // namespace

namespace grx {

INT system_pix[GRX_NB_COULEURS] = {};
INT icone_pix[GRX_NB_COULEURS] = {};
INT pal_pix[GRX_NB_COULEURS] = {};

bool in_colour_table(INT index) {
    return index >= 0 && index < GRX_NB_COULEURS;
}

Shifts component_shifts() {
    return {dec_red, dec_green, dec_blue};
}

void set_rendering_bounds(INT first, INT last) {
    premier_index_rendu = first;
    dernier_index_rendu = last;
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

void forget_colours() {
    for (auto* const table : {&trace_pix, &system_pix, &icone_pix, &pal_pix})
        std::fill(std::begin(*table), std::end(*table), 0);
    premier_index_rendu = dernier_index_rendu = memo_couleur_8 = 0;
}

} // namespace grx

extern "C" {

INT grx_maj_palette_reserve(void) {
    for (INT k = 0; k < grx_recup_max_couleur_reserve(); ++k) grx_modif_rgb(k, palette_reserve[k]);
    return 0;
}

INT grx_maj_palette_trace(void) {
    const INT count = std::min<INT>(grx::drawing_colours(), GRX_NB_COULEURS);
    for (INT k = 0; k < count; ++k) grx_modif_rgb(grx_recup_max_couleur_reserve() + k, palette_trace[k]);
    return 0;
}

INT grx_modif_rgb(INT index, INT* rgb) {
    if (!grx::in_colour_table(index) || rgb == nullptr) return 0;
    if (grx::deep_screen()) {
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
    if (rgb != nullptr) read_triple(table_value(grx::icone_pix, index), rgb);
    return 0;
}

INT grx_recup_couleur(INT index) {
    return table_value(trace_pix, index);
}

INT grx_recup_couleur_icone(INT index) {
    return table_value(grx::icone_pix, index);
}

INT grx_recup_index_image(INT* rgb, INT* index) {
    if (rgb == nullptr || index == nullptr) return 0;
    const INT pixel =
        grx::compose_pixel(grx::component_shifts(), rgb); // KEEP: the pixel of a deep screen, on 8 planes too
    const INT count = std::min<INT>(grx_recup_max_couleur_reserve() + grx::drawing_colours(), GRX_NB_COULEURS);
    const INT* const end = trace_pix + count;
    const INT* const found = std::find<const INT*>(trace_pix, end, pixel);
    *index = found == end ? 0 : static_cast<INT>(found - trace_pix);
    return found == end ? 0 : 1;
}

INT grx_init_palette_icone(INT couleur) {
    const INT count = grx_recup_max_couleur_icone();
    for (INT k = 0; k < GRX_NB_COULEURS - 1; ++k) grx::icone_pix[k] = k < count ? grx::system_pix[k] : grx::kNoColour;
    grx::icone_pix[kBackgroundIcon] = couleur;
    grx::system_pix[kBackgroundIcon] = couleur;
    return count;
}

INT grx_change_couleur_8_icone(INT index) {
    memo_couleur_8 = grx::icone_pix[kBackgroundIcon];
    if (grx::in_colour_table(index)) grx::icone_pix[kBackgroundIcon] = grx::icone_pix[index];
    return 0;
}

INT grx_restore_couleur_8_icone(void) {
    grx::icone_pix[kBackgroundIcon] = memo_couleur_8;
    return 0;
}

INT grx_premier_index_rendu(void) {
    return premier_index_rendu;
}

INT grx_dernier_index_rendu(void) {
    return dernier_index_rendu;
}

INT grx_icone_oxa_to_system(INT lar, INT hau, uchar* buf) {
    convert(lar, hau, buf, [](uchar b) { return grx::icone_pix[b]; });
    return 0;
}

INT grx_image_oxa_to_system(INT lar, INT hau, uchar* buf) {
    convert(lar, hau, buf, [](uchar b) { return trace_pix[b]; });
    return 0;
}

INT grx_icone_system_to_oxa(INT lar, INT hau, uchar* buf) {
    convert(lar, hau, buf, [](uchar b) { return grx::pal_pix[b]; });
    return 0;
}

INT grx_image_system_to_oxa(INT lar, INT hau, uchar* buf) {
    convert(lar, hau, buf, [](uchar b) { return grx::pal_pix[b] - grx_recup_max_couleur_icone(); });
    return 0;
}
}
