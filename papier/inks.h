// Which colour, width and pen of a plotter the attributes of the screen become on paper.
#pragma once

#include <array>

#include "grx_plus_papier.h"
#include "papier/growing.h"
#include "papier/marks.h"
#include "xt_gfx_t.h"

namespace papier {

inline constexpr uint32_t kWhite = 0xFFFFFF, kBlack = 0;

class Inks {
  public:
    /// Takes the application's choices, with copies of its tables. False when memory is short.
    bool take(const GRX_PAPIER& paper);

    /// False for attributes that draw nothing on paper.
    static bool draws(const GRX_ATTRIBUTS_TRACER& attrib) { return attrib.mode != GRX_MODE_XOR; }

    Pen pen(const GRX_ATTRIBUTS_TRACER& attrib);
    Ink ink(const GRX_ATTRIBUTS_TRACER& attrib, bool even_odd);

    /// The colour of a text, or line, of a colour index; and that of an area.
    uint32_t line_colour(INT index);
    uint32_t area_colour(INT index);

    /// The pen of a plotter for a colour index, 0 for none.
    INT pen_number(INT index) const;

    /// A pixel of a picture as it is printed.
    uint32_t picture_colour(uint32_t rgb) const;
    /// The colour of an index on the screen, or without one in the palettes.
    uint32_t screen_colour(INT index);

  private:
    uint32_t chosen_colour(INT index);
    double width(const GRX_ATTRIBUTS_TRACER& attrib) const;
    bool is_background(INT index) const { return index == background_; }

    static constexpr std::size_t kIndices = 256;
    std::array<uint32_t, kIndices> known_; // colours that were asked for; kUnknown before
    static constexpr uint32_t kUnknown = UINT32_MAX;
    INT choice_ = 0, background_ = 0;
    bool white_to_black_ = false;
    std::array<double, GRX_PAPIER_NB_EPAISSEURS> widths_{};
    double dash_unit_ = 0;
    Growing<UNSIGNED_INT> colours_;
    Growing<DOUBLE> colour_widths_;
    Growing<INT> pens_;
};

} // namespace papier
