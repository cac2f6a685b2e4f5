// Which colour, width and pen of a plotter the attributes of the screen become on paper.
#include "papier/inks.h"

#include <algorithm>

#include "xt_ini_f.h"
#include "xt_ini_t.h"

namespace {

constexpr INT kPens = 8;              // that indices are given to in turn
constexpr uint32_t kNearlyFull = 240; // a colour with all components from here on is white to the eye

uint32_t component(INT value) {
    return static_cast<uint32_t>(std::clamp<INT>(value, 0, 255));
}

uint32_t rgb_of(const INT* triple) {
    return component(triple[GRX_ROUGE]) << 16 | component(triple[GRX_VERT]) << 8 | component(triple[GRX_BLEU]);
}

uint32_t colour_of_palettes(INT index) {
    if (index >= 0 && index < GRX_NB_COULEURS_RESERVE) return rgb_of(palette_reserve[index]);
    const INT drawing = index - GRX_NB_COULEURS_RESERVE;
    return drawing >= 0 && drawing < GRX_NB_COULEURS ? rgb_of(palette_trace[drawing]) : papier::kBlack;
}

uint32_t colour_of_screen(INT index) {
    INT triple[3] = {0, 0, 0};
    grx_recup_rgb(index, triple);
    return rgb_of(triple);
}

bool nearly_white(uint32_t rgb) {
    return (rgb >> 16 & 255) >= kNearlyFull && (rgb >> 8 & 255) >= kNearlyFull && (rgb & 255) >= kNearlyFull;
}

template <class T>
bool has_entry(const papier::Growing<T>& table, INT index) {
    return index >= 0 && static_cast<std::size_t>(index) < table.size();
}

template <class T>
bool copy(papier::Growing<T>& into, const T* from, INT count) {
    into.clear();
    return count == 0 || into.append(std::span<const T>(from, static_cast<std::size_t>(count)));
}

} // namespace

namespace papier {

bool Inks::take(const GRX_PAPIER& p) {
    known_.fill(kUnknown);
    choice_ = p.couleurs;
    background_ = grx_recup_couleur_fond();
    white_to_black_ = p.blanc_en_noir != 0;
    std::copy(std::begin(p.epaisseurs), std::end(p.epaisseurs), widths_.begin());
    dash_unit_ = p.unite_tirets;
    return copy(colours_, p.couleurs_table, p.nb_couleurs)
           && copy(colour_widths_, p.epaisseurs_couleur, p.nb_epaisseurs) && copy(pens_, p.plumes, p.nb_plumes);
}

uint32_t Inks::screen_colour(INT index) {
    if (index < 0 || static_cast<std::size_t>(index) >= kIndices) return kBlack;
    uint32_t& known = known_[static_cast<std::size_t>(index)];
    if (known == kUnknown) known = x11_disp != nullptr ? colour_of_screen(index) : colour_of_palettes(index);
    return known;
}

uint32_t Inks::chosen_colour(INT index) {
    if (choice_ == GRX_PAPIER_COULEURS_TABLE && has_entry(colours_, index))
        return colours_[static_cast<std::size_t>(index)] & kWhite;
    if (is_background(index)) return kWhite;
    return choice_ == GRX_PAPIER_COULEURS_NOIR ? kBlack : screen_colour(index);
}

uint32_t Inks::area_colour(INT index) {
    return chosen_colour(index);
}

uint32_t Inks::line_colour(INT index) {
    const uint32_t rgb = chosen_colour(index);
    return white_to_black_ && !is_background(index) && nearly_white(rgb) ? kBlack : rgb;
}

INT Inks::pen_number(INT index) const {
    if (has_entry(pens_, index)) return pens_[static_cast<std::size_t>(index)];
    if (is_background(index)) return 0;
    return (index % kPens + kPens) % kPens + 1;
}

uint32_t Inks::picture_colour(uint32_t rgb) const {
    if (choice_ != GRX_PAPIER_COULEURS_NOIR) return rgb;
    const uint32_t grey = ((rgb >> 16 & 255) * 299 + (rgb >> 8 & 255) * 587 + (rgb & 255) * 114) / 1000;
    return grey << 16 | grey << 8 | grey;
}

double Inks::width(const GRX_ATTRIBUTS_TRACER& attrib) const {
    if (has_entry(colour_widths_, attrib.coul_trace)) {
        const double own = colour_widths_[static_cast<std::size_t>(attrib.coul_trace)];
        if (own > 0) return own;
    }
    constexpr INT count = GRX_PAPIER_NB_EPAISSEURS;
    return widths_[static_cast<std::size_t>((attrib.epaisseur % count + count) % count)];
}

Pen Inks::pen(const GRX_ATTRIBUTS_TRACER& attrib) {
    if (attrib.mode == GRX_MODE_EFFACE) return {width(attrib), kWhite, 0, attrib.type_trait, dash_unit_};
    return {
        width(attrib), line_colour(attrib.coul_trace), pen_number(attrib.coul_trace), attrib.type_trait, dash_unit_};
}

Ink Inks::ink(const GRX_ATTRIBUTS_TRACER& attrib, bool even_odd) {
    if (attrib.mode == GRX_MODE_EFFACE) return {kWhite, 0, even_odd};
    return {area_colour(attrib.coul_trace), pen_number(attrib.coul_trace), even_odd};
}

} // namespace papier
