// Every setting: what it is before anything was read, and its pair of functions.
#include <gtest/gtest.h>

#include "tests/unit/c_text.h"

#include "xt_ini_f.h"

#include <array>
#include <climits>
#include <string>
#include <vector>

namespace grxtest {
namespace {

using Getter = INT (*)();
using Setter = INT (*)(INT);

struct Setting {
    const char* name;
    INT initial;
    Getter get;
    Setter set; // null: there is none
};

const std::array<Setting, 30> settings{{
    {"lar_carac_alpha", 0, grx_recup_lar_carac_alpha, grx_affecte_lar_carac_alpha},
    {"hau_carac_alpha", 0, grx_recup_hau_carac_alpha, grx_affecte_hau_carac_alpha},
    {"hau_exact_carac_alpha", 0, grx_recup_hau_exact_carac_alpha, grx_affecte_hau_exact_carac_alpha},
    {"lar_sup_alpha", 0, grx_recup_lar_sup_alpha, grx_affecte_lar_sup_alpha},
    {"lar_scroll", 0, grx_recup_largeur_scrollbar, grx_affecte_largeur_scrollbar},
    {"tabord", 0, grx_get_tabord, grx_set_tabord},
    {"tabord_sans_resize", 0, grx_get_tabord_sans_resize, grx_set_tabord_sans_resize},
    {"tabord_sans_titre", 0, grx_get_tabord_sans_titre, grx_set_tabord_sans_titre},
    {"tabord_sans_decor", 0, grx_get_tabord_sans_decor, grx_set_tabord_sans_decor},
    {"tatitre", 0, grx_get_tatitre, grx_set_tatitre},
    {"max_couleur_trace", 32, grx_recup_max_couleur_trace, grx_affecte_max_couleur_trace},
    {"max_couleur_rendu", 0, grx_recup_max_couleur_rendu, grx_affecte_max_couleur_rendu},
    {"max_couleur_reserve", 8, grx_recup_max_couleur_reserve, nullptr},
    {"max_couleur_icone", 16, grx_recup_max_couleur_icone, nullptr},
    {"couleur_application", 0, grx_recup_couleur_application, grx_affecte_couleur_application},
    {"couleur_fond", 0, grx_recup_couleur_fond, grx_affecte_couleur_fond},
    {"pos_appli_x", 0, grx_get_pos_appli_x, grx_set_pos_appli_x},
    {"pos_appli_y", 0, grx_get_pos_appli_y, grx_set_pos_appli_y},
    {"constante_dc", 200, grx_recup_cst_dc, grx_affecte_cst_dc},
    {"sensibilite_icone", 5, grx_recup_zone_sensible_icone, grx_affecte_zone_sensible_icone},
    {"taille_icone_x", 30, grx_recup_taille_icone_x, nullptr},
    {"taille_icone_y", 30, grx_recup_taille_icone_y, nullptr},
    {"format_icone", 0, grx_recup_format_icone, nullptr},
    {"menu_fixe", 0, grx_get_menu_fixe, grx_set_menu_fixe},
    {"couleur_mires", 1, recup_couleur_mire, nullptr},
    {"couleur_mire2", 6, recup_couleur_mire2, nullptr},
    {"couleur_neutre", 5, recup_couleur_neutre, nullptr},
    {"couleur_contrastee", 5, recup_couleur_contrastee, nullptr},
    {"keypad_configured", 0, grx_configure_clavier_munerique, nullptr},
    {"keypad_restored", 0, grx_restitue_clavier_munerique, nullptr},
}};

// Read before main, so that no other test has set anything.
const std::vector<INT> at_start = [] {
    std::vector<INT> values;
    for (const auto& setting : settings) values.push_back(setting.get());
    return values;
}();

const std::string font_at_start = [] {
    std::array<char, GRX_FONTE_MAX> font{};
    font.fill('?');
    grx_recup_font(font.data());
    return std::string(font.data());
}();

std::string name_of(const testing::TestParamInfo<std::size_t>& info) {
    return settings[info.param].name;
}

std::vector<std::size_t> with_setter() {
    std::vector<std::size_t> indices;
    for (std::size_t i = 0; i < settings.size(); ++i)
        if (settings[i].set) indices.push_back(i);
    return indices;
}

std::vector<INT> values_except(std::size_t left_out) {
    std::vector<INT> values;
    for (std::size_t i = 0; i < settings.size(); ++i) values.push_back(i == left_out ? 0 : settings[i].get());
    return values;
}

class SettingDefault : public testing::TestWithParam<std::size_t> {};

TEST_P(SettingDefault, IsTheStatedOne) {
    EXPECT_EQ(at_start[GetParam()], settings[GetParam()].initial);
}

INSTANTIATE_TEST_SUITE_P(All, SettingDefault, testing::Range(std::size_t{0}, settings.size()), name_of);

class SettingStored : public testing::TestWithParam<std::size_t> {};

TEST_P(SettingStored, IsReadBackAndNoOtherChanges) {
    const auto& setting = settings[GetParam()];
    const auto others = values_except(GetParam());
    for (const INT value : {7, 0, -1, INT_MAX, INT_MIN}) {
        EXPECT_EQ(setting.set(value), 0);
        EXPECT_EQ(setting.get(), value);
        EXPECT_EQ(values_except(GetParam()), others);
    }
    setting.set(setting.initial);
}

INSTANTIATE_TEST_SUITE_P(All, SettingStored, testing::ValuesIn(with_setter()), name_of);

std::string font() {
    std::array<char, GRX_FONTE_MAX> name{};
    EXPECT_EQ(grx_recup_font(name.data()), 0);
    return name.data();
}

TEST(Settings, FontIsEmptyAtFirst) {
    EXPECT_EQ(font_at_start, "");
}

TEST(Settings, FontIsCopiedInAndOut) {
    EXPECT_EQ(grx_affecte_font(in("-misc-fixed")), 0);
    EXPECT_EQ(font(), "-misc-fixed");
    EXPECT_EQ(grx_affecte_font(in("9x15")), 0);
    EXPECT_EQ(font(), "9x15");
}

TEST(Settings, FontKeepsThirtyNineCharacters) {
    const std::string whole(39, 'a');
    grx_affecte_font(in(whole));
    EXPECT_EQ(font(), whole);
    grx_affecte_font(in(std::string(40, 'b')));
    EXPECT_EQ(font(), std::string(39, 'b'));
    grx_affecte_font(in(std::string(100000, 'c')));
    EXPECT_EQ(font(), std::string(39, 'c'));
}

TEST(Settings, NullFontIsTheEmptyOne) {
    grx_affecte_font(in("x"));
    EXPECT_EQ(grx_affecte_font(nullptr), 0);
    EXPECT_EQ(font(), "");
    EXPECT_EQ(grx_recup_font(nullptr), 0);
}

TEST(Settings, IconSizeIsStoredAsAPair) {
    EXPECT_EQ(grx_affecte_taille_icone(24, 48), 0);
    EXPECT_EQ(grx_recup_taille_icone_x(), 24);
    EXPECT_EQ(grx_recup_taille_icone_y(), 48);
    grx_affecte_taille_icone(30, 30);
}

TEST(Settings, IconFormatIsASignedByte) {
    EXPECT_EQ(grx_affecte_format_icone(4), 0);
    EXPECT_EQ(grx_recup_format_icone(), 4);
    grx_affecte_format_icone(-1);
    EXPECT_EQ(grx_recup_format_icone(), -1);
    grx_affecte_format_icone(258);
    EXPECT_EQ(grx_recup_format_icone(), 2);
    EXPECT_EQ(grx_initialise_globales_systeme(), 0);
    EXPECT_EQ(grx_recup_format_icone(), 0);
}

// Deliberate: the neutral and the contrasting colour are not set to what they start at.
TEST(Settings, FeedbackColoursHaveSettersWithoutArgument) {
    EXPECT_EQ(affecte_couleur_mires(), 0);
    EXPECT_EQ(recup_couleur_mire(), 1);
    EXPECT_EQ(affecte_couleur_mire2(), 0);
    EXPECT_EQ(recup_couleur_mire2(), 6);
    EXPECT_EQ(affecte_couleur_neutre(), 0);
    EXPECT_EQ(recup_couleur_neutre(), 4);
    EXPECT_EQ(affecte_couleur_contrastee(), 0);
    EXPECT_EQ(recup_couleur_contrastee(), 2);
}

} // namespace
} // namespace grxtest
