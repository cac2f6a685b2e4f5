// Names of fonts, and what they tell without a display: for the settings and for whoever opens the font.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace grx {

/// True for a name that means an outline font: "xft:" and a pattern.
bool names_outline_font(std::string_view name);

/// What follows "xft:", without blanks before it.
std::string_view outline_pattern(std::string_view name);

/// True for the families that fontconfig has an answer for on every system, whatever that is called.
bool is_generic_family(std::string_view family);

/// The height in pixels in the name of an X font with all of its fourteen fields; 0 where there is none.
int pixel_height_in(std::string_view x_name);

/// The place of the name whose height is nearest to the one wanted; of several, one of family "fixed", whose height is that
/// of its lines. names.size() when none tells its height.
std::size_t nearest_in_height(std::span<const char* const> names, int height);

/// Dots per inch of so many pixels on so many millimetres, within what a screen can have; 96 otherwise.
int resolution_of(int pixels, int millimetres);

/// The resolution that a text of the resources says, rounded; 0 when it says none that a screen can have.
int resolution_in(std::string_view text);

} // namespace grx
