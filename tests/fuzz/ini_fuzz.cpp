// Random INI_SYST.DAT files: the library survives them, and takes exactly what grx-verif says it takes.
#include <gtest/gtest.h>

#include "tests/support/temp_dir.h"
#include "tools/verif/ini_check.h"

#include "host_g.h"
#include "xt_ini_f.h"

#include <array>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace grxtest {
namespace {

struct Key {
    const char* name;
    INT (*get)();
    INT (*set)(INT);
    INT initial;
};

const std::array<Key, 12> keys{{
    {"LARG_CARACTERE", grx_recup_lar_carac_alpha, grx_affecte_lar_carac_alpha, 0},
    {"HAUT_CARACTERE", grx_recup_hau_carac_alpha, grx_affecte_hau_carac_alpha, 0},
    {"ESPA_CARACTERE", grx_recup_lar_sup_alpha, grx_affecte_lar_sup_alpha, 0},
    {"LARG_SCROLLBAR", grx_recup_largeur_scrollbar, grx_affecte_largeur_scrollbar, 0},
    {"BORD_NORMAL", grx_get_tabord, grx_set_tabord, 0},
    {"BORD_SANS_RESIZE", grx_get_tabord_sans_resize, grx_set_tabord_sans_resize, 0},
    {"BORD_SANS_TITRE", grx_get_tabord_sans_titre, grx_set_tabord_sans_titre, 0},
    {"BORD_SANS_DECOR", grx_get_tabord_sans_decor, grx_set_tabord_sans_decor, 0},
    {"TITRE", grx_get_tatitre, grx_set_tatitre, 0},
    {"MAX_COULEUR_TRACE", grx_recup_max_couleur_trace, grx_affecte_max_couleur_trace, 32},
    {"MAX_COULEUR_RENDU", grx_recup_max_couleur_rendu, grx_affecte_max_couleur_rendu, 0},
    {"COULEUR_APPLICATION", grx_recup_couleur_application, grx_affecte_couleur_application, 0},
}};

class IniFuzz : public testing::TestWithParam<unsigned> {
  protected:
    void SetUp() override {
        sstate[SST_REP_SYSTEME] = directory_.data();
        random_.seed(GetParam());
    }
    void TearDown() override { sstate[SST_REP_SYSTEME] = nullptr; }

    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_); }

    std::string piece() {
        static const std::vector<std::string> others{"FONT_CARACTERE", "#", "\n", "\r\n", "\r", " ", "\t", "-", "+",
            "x", "0", "8", "16", "17", "48", "128", "2147483648", "-1", "99999999999999999999", "9x15", "BORD_SANS_",
            "="};
        switch (below(6)) {
        case 0: return keys[below(keys.size())].name;
        case 1: return std::string(1, static_cast<char>(below(256)));
        case 2: return std::string(below(3) == 0 ? below(1100) : 1, ' ');
        case 3: return "\n";
        default: return others[below(others.size())];
        }
    }

    std::string file() {
        std::string content;
        for (auto left = below(200); left > 0; --left) content += piece();
        return content;
    }

    TempDir dir_;
    std::string directory_ = dir_.text();
    std::mt19937 random_;
};

void set_initial() {
    for (const auto& key : keys) key.set(key.initial);
    char none[] = "";
    grx_affecte_font(none);
}

// What the findings leave behind: key and value.
std::map<std::string, std::string> taken(const std::string& content) {
    std::istringstream stream(content);
    std::map<std::string, std::string> values;
    for (const auto& finding : verif::IniCheck::check(stream)) {
        if (finding.verdict != verif::Verdict::taken) continue;
        const auto blank = finding.text.find(' ');
        const auto value = finding.text.substr(blank + 1);
        const bool quoted = value.starts_with('"');
        const auto end = quoted ? value.find_last_of('"', value.find("\", ")) : value.find(',');
        values[finding.text.substr(0, blank)] = quoted ? value.substr(1, end - 1) : value.substr(0, end);
    }
    return values;
}

std::map<std::string, std::string> settings() {
    std::map<std::string, std::string> values;
    for (const auto& key : keys) values[key.name] = std::to_string(key.get());
    std::array<char, GRX_FONTE_MAX> font{};
    grx_recup_font(font.data());
    values["FONT_CARACTERE"] = font.data();
    return values;
}

TEST_P(IniFuzz, LibraryAndCheckerAgree) {
    for (int i = 0; i < 40; ++i) {
        const auto content = file();
        dir_.write("INI_SYST.DAT", content);
        set_initial();
        auto expected = settings();
        for (const auto& [key, value] : taken(content)) expected[key] = value;
        ASSERT_EQ(grx_initialise_globales(), 0);
        ASSERT_EQ(settings(), expected) << "of this file:\n" << content;
    }
    set_initial();
}

INSTANTIATE_TEST_SUITE_P(Seeds, IniFuzz, testing::Range(1U, 26U));

} // namespace
} // namespace grxtest
