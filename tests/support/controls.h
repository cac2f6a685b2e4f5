// Controls as every test of them begins: described, and looked up by their number.
#pragma once

#include "tests/support/pixels.h"

#include "xt_f.h"

#include <string_view>

namespace grxtest {

// The record of a control, or of any number of the base.
inline STRUCTURE_BOUTON& button_record(INT nobou) {
    STRUCTURE_BOUTON* record = nullptr;
    grx_recup_structure_bouton(nobou, &record);
    return *record;
}

inline void expect_free(INT nobou) {
    EXPECT_EQ(button_record(nobou).nobou, -1) << nobou;
    EXPECT_EQ(button_record(nobou).nofen, 1) << nobou << ": neither -1 nor 0";
    EXPECT_EQ(button_record(nobou).no_fo, -1) << nobou;
    EXPECT_EQ(button_record(nobou).valeur, 0) << nobou;
}

inline void set_title(GRX_BOUTON& button, std::string_view title) {
    const std::size_t length = title.copy(button.titre, GRX_TITRE_MAX - 1);
    button.titre[length] = '\0';
}

// A visible and sensitive control at a place of a window.
inline GRX_BOUTON button_at(INT type, INT window, const Area& area) {
    GRX_BOUTON button{};
    grx_init_bouton(&button);
    button.type = type;
    button.attrib = GRX_BOU_ATT_ACTIF;
    button.fen_mere = window;
    button.x = area.x;
    button.y = area.y;
    button.largeur = area.width;
    button.hauteur = area.height;
    return button;
}

} // namespace grxtest
