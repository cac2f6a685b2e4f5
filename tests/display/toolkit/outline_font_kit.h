// What tests of outline fonts have in common.
#pragma once

#include "tests/support/controls.h"
#include "tests/support/window_kit.h"

#include "grx_plus.h"

#include <malloc.h>

#include <array>
#include <clocale>
#include <cstdio>
#include <set>

namespace grxtest {

inline constexpr const char* outline_11 = "xft:DejaVu Sans:size=11"; // 15 pixels at 96 dots per inch

// Different greys: letters that are blended have many, shadows a few.
inline int blended_colours(const Pixels& picture) {
    std::set<std::uint32_t> greys;
    for (const std::uint32_t pixel : picture.values) greys.insert(pixel & 0xFFFFFFU);
    return static_cast<int>(greys.size()) - 4; // letters, background, two shadows
}

// Its number, -1 when it cannot be made.
inline INT labelled(INT type, INT window, const char* text) {
    GRX_BOUTON button = button_at(type, window, {20, 20, 220, 80});
    button.attrib |= GRX_BOU_ATT_VISIBLE;
    if (type == GRX_BOU_ECHELLE) {
        button.attrib |= GRX_BOU_ATT_ECHELLE_HORIZ | GRX_BOU_ATT_ECHELLE_VALEUR;
        button.tabi[1] = 0;
        button.tabi[2] = 8888;
        button.tabi[3] = 6804;
    }
    set_title(button, text);
    if (grx_cree_bouton(&button) != 0) return -1;
    if (type == GRX_BOU_TEXTE) grx_affecte_champ_texte(button.nobou, const_cast<char*>(text));
    const std::array<const char*, 2> entries{text, "Axes"};
    if (type == GRX_BOU_LISTE) grx_remplit_liste(button.nobou, 2, entries.data());
    return button.nobou;
}

inline long bytes_in_use() {
    const auto info = mallinfo2();
    return static_cast<long>(info.uordblks + info.hblkhd);
}

} // namespace grxtest
