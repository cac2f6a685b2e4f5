// Which file has the font of a name, and which families there are, for texts in drawings: by fontconfig.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "host_t.h"
#include "system/block.h"

namespace grx {

/// A file of fonts and the place of one in it.
struct FontFile {
    std::array<char, 1024> path{};
    long index = 0;
};

/// Finds the file of a family with its style, or the default font for an empty name; a name with a slash is the path. Gives 1,
/// GRX_ECHEC_ABSENT or GRX_ECHEC_FICHIER.
INT find_font_file(const char* name, FontFile& file);

/// The names of all families with outlines in alphabetical order, each ended by a zero. False when memory is short.
bool list_families(Block<char>& names, std::size_t& count);

} // namespace grx
