// The setting of the interface's font: names of any length, and the record of the contract beside it.
#include "tests/support/heap.h"

#include "system/font_setting.h"
#include "system/forget_system.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_polices.h"
#include "xt_ini_f.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

using grxtest::heap;

class FontSetting : public testing::Test {
  protected:
    ~FontSetting() override {
        grx::forget_font_setting();
        EXPECT_EQ(heap().bytes(), 0U);
    }

    static std::string told() {
        std::array<char, 400> text{};
        const INT length = grx_recup_police(text.data(), text.size());
        EXPECT_EQ(length, static_cast<INT>(std::string(text.data()).size()));
        return text.data();
    }

    static std::string recorded() {
        std::array<char, GRX_FONTE_MAX> text{};
        EXPECT_EQ(grx_recup_font(text.data()), 0);
        return text.data();
    }

    const std::string x_name_ = "-misc-fixed-medium-r-semicondensed--13-120-75-75-c-60-iso8859-1";
    const std::string outline_ = "xft:DejaVu Sans Condensed:size=11:weight=bold:antialias=true";
};

TEST_F(FontSetting, IsEmptyAtFirst) {
    EXPECT_EQ(told(), "");
    EXPECT_EQ(recorded(), "");
    EXPECT_EQ(grx_recup_police(nullptr, 10), 0);
}

TEST_F(FontSetting, KeepsNamesOfAnyLength) {
    for (const std::string& name : {x_name_, outline_, std::string("9x15"), std::string(300, 'a')}) {
        EXPECT_EQ(grx_affecte_police(name.c_str()), 1);
        EXPECT_EQ(told(), name);
        EXPECT_EQ(recorded(), name.substr(0, 39));
        EXPECT_EQ(grx::font_setting(), name);
    }
    EXPECT_EQ(grx_affecte_police(nullptr), 1);
    EXPECT_EQ(told(), "");
}

TEST_F(FontSetting, OfTheContractIsCutUnlessItIsAnOutlineFont) {
    std::string name = x_name_, outline = outline_;
    EXPECT_EQ(grx_affecte_font(name.data()), 0);
    EXPECT_EQ(told(), x_name_.substr(0, 39));
    EXPECT_EQ(grx_affecte_font(outline.data()), 0);
    EXPECT_EQ(told(), outline_);
    EXPECT_EQ(recorded(), outline_.substr(0, 39));
    EXPECT_EQ(grx_affecte_font(nullptr), 0);
    EXPECT_EQ(told(), "");
}

TEST_F(FontSetting, WhoSetsLastWins) {
    std::string plain = "8x13";
    EXPECT_EQ(grx_affecte_police(outline_.c_str()), 1);
    EXPECT_EQ(grx_affecte_font(plain.data()), 0);
    EXPECT_EQ(told(), "8x13");
}

TEST_F(FontSetting, TellsTheWholeLengthOfWhatItCuts) {
    ASSERT_EQ(grx_affecte_police(outline_.c_str()), 1);
    std::array<char, 5> small{'?', '?', '?', '?', '?'};
    EXPECT_EQ(grx_recup_police(small.data(), 4), static_cast<INT>(outline_.size()));
    EXPECT_STREQ(small.data(), "xft");
    EXPECT_EQ(small[4], '?');
    small.fill('?');
    EXPECT_EQ(grx_recup_police(small.data(), 0), static_cast<INT>(outline_.size()));
    EXPECT_EQ(grx_recup_police(small.data(), -1), static_cast<INT>(outline_.size()));
    EXPECT_EQ(small[0], '?');
}

TEST_F(FontSetting, StaysWhenMemoryIsShort) {
    ASSERT_EQ(grx_affecte_police("9x15"), 1);
    heap().fail_from(1);
    const INT refused = grx_affecte_police(x_name_.c_str());
    const INT has_room = grx_affecte_police("8x13");
    heap().fail_never();
    EXPECT_EQ(refused, GRX_ECHEC_MEMOIRE);
    EXPECT_EQ(has_room, 1) << "a short name needs none";
    EXPECT_EQ(told(), "8x13");
}

TEST_F(FontSetting, NeedsNoMemoryForNamesOfTheContract) {
    const auto before = heap().allocations();
    std::string name = x_name_;
    grx_affecte_font(name.data());
    EXPECT_EQ(heap().allocations(), before);
}

TEST_F(FontSetting, NothingIsStartedHere) {
    EXPECT_EQ(grx_recup_genre_police(), GRX_POLICE_AUCUNE);
    EXPECT_EQ(grx_recup_resolution_ecran(), GRX_ECHEC_AFFICHAGE);
}

} // namespace
