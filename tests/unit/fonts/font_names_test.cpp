// Fonts by name: families, files, and what is none.
#include "tests/unit/fonts/text_kit.h"

#include "tests/support/heap.h"
#include "tests/support/temp_dir.h"
#include "xt_f.h"

#include <sys/stat.h>

#include <set>

namespace {

using namespace grxtest;

TEST(FontNames, FamiliesWithStylesAndFilesAreFound) {
    const std::string file = file_of_family("DejaVuSerif.ttf");
    ASSERT_FALSE(file.empty());
    for (const std::string& name : {std::string(), std::string("sans"), std::string("monospace:bold"),
             std::string(kSans), std::string("dejavu sans:bold"), std::string("DejaVu Sans Mono:oblique"),
             std::string(GRX_FONTE_TRAIT), file})
        EXPECT_EQ(grx_verifie_fonte_texte(name.c_str()), 1) << name;
    const Outlines by_file(text_of("Rg", file)), by_name(text_of("Rg", "DejaVu Serif"));
    EXPECT_EQ(by_file.points(), by_name.points());
    EXPECT_NE(Outlines(text_of("Rg", "DejaVu Sans:bold")).area(), Outlines(text_of("Rg", kSans)).area());
}

TEST(FontNames, WhatIsNotThereIsToldAndReplaced) {
    EXPECT_EQ(grx_verifie_fonte_texte("Pas Une Fonte"), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_verifie_fonte_texte("Pas Une Fonte:bold:size=12"), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_verifie_fonte_texte("/nulle/part.ttf"), GRX_ECHEC_FICHIER);
    EXPECT_EQ(grx_verifie_fonte_texte("/tmp"), GRX_ECHEC_FICHIER) << "a folder";
    EXPECT_EQ(grx_verifie_fonte_texte(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_verifie_fonte_texte(std::string(80, 'x').c_str()), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_verifie_fonte_texte(std::string(79, 'x').c_str()), GRX_ECHEC_ABSENT);
    const Outlines replaced(text_of("Mur", "Pas Une Fonte")), strokes(text_of("Mur", GRX_FONTE_TRAIT));
    EXPECT_EQ(replaced.result, GRX_TEXTE_REMPLACE);
    EXPECT_EQ(replaced.closed, 0);
    EXPECT_EQ(replaced.points(), strokes.points());
    EXPECT_NEAR(box_of(text_of("Mur", "Pas Une Fonte"), GRX_TEXTE_REMPLACE).longueur,
        box_of(text_of("Mur", GRX_FONTE_TRAIT)).longueur, 1e-9);
}

TEST(FontNames, APipeIsNotWaitedFor) {
    const TempDir folder;
    const std::string pipe = (folder.path() / "p").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(grx_verifie_fonte_texte(pipe.c_str()), GRX_ECHEC_FICHIER);
}

TEST(FontNames, FilesThatAreNoFontsAreTold) {
    const TempDir folder;
    const std::string whole = bytes_of(file_of_family("DejaVuSans.ttf"));
    ASSERT_GT(whole.size(), 100000U);
    const std::vector<std::pair<std::string, std::string>> files{{"empty.ttf", ""}, {"text.ttf", "a text file\n"},
        {"zeros.ttf", std::string(5000, '\0')}, {"header.ttf", whole.substr(0, 12)},
        {"tables.ttf", whole.substr(0, 300)}, {"third.ttf", whole.substr(0, whole.size() / 3)}};
    for (const auto& [name, bytes] : files) {
        folder.write(name, bytes);
        const std::string path = (folder.path() / name).string();
        EXPECT_EQ(grx_verifie_fonte_texte(path.c_str()), GRX_ECHEC_FORMAT) << name;
        EXPECT_EQ(Outlines(text_of("a", path)).result, GRX_TEXTE_REMPLACE) << name;
    }
}

TEST(FontNames, DamagedFontsDoNoHarm) {
    const TempDir folder;
    const std::string whole = bytes_of(file_of_family("DejaVuSansMono.ttf"));
    for (std::size_t i = 0; i < 24; ++i) {
        std::string damaged = whole;
        for (std::size_t at = 400 + i * 97; at < damaged.size(); at += 1500 + i * 311)
            damaged[at] = static_cast<char>(damaged[at] ^ 0x5A);
        const std::string name = std::to_string(i) + ".ttf";
        folder.write(name, damaged);
        const Outlines outlines(text_of("A\xC3\xA9g 8@", (folder.path() / name).string()));
        EXPECT_GE(outlines.result, 1);
        for (const auto& path : outlines.paths)
            for (const GRX_POINT_REEL& p : path) ASSERT_TRUE(std::isfinite(p.x) && std::isfinite(p.y));
    }
}

TEST(FontNames, AFontThatComesLaterIsFoundWhenItIsAskedFor) {
    const TempDir folder;
    const std::string path = (folder.path() / "late.ttf").string();
    EXPECT_EQ(grx_verifie_fonte_texte(path.c_str()), GRX_ECHEC_FICHIER);
    EXPECT_EQ(Outlines(text_of("a", path)).result, GRX_TEXTE_REMPLACE);
    folder.write("late.ttf", bytes_of(file_of_family("DejaVuSans.ttf")));
    EXPECT_EQ(grx_verifie_fonte_texte(path.c_str()), 1);
    EXPECT_EQ(Outlines(text_of("a", path)).result, 1);
}

TEST(FontNames, MoreFontsThanAreKeptGoOnBeingRight) {
    const Outlines sans(text_of("Rg", kSans));
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < 40; ++i) grx_verifie_fonte_texte(("Absente " + std::to_string(i)).c_str());
        for (const char* name : {"DejaVu Serif", "DejaVu Sans Mono", "DejaVu Serif:bold"})
            EXPECT_EQ(Outlines(text_of("\xCE\xA9g", name)).result, 1);
        EXPECT_EQ(Outlines(text_of("Rg", kSans)).points(), sans.points());
    }
}

TEST(FontNames, FamiliesAreListedInOrder) {
    const INT count = grx_recup_nombre_fontes_texte();
    ASSERT_GT(count, 2);
    std::vector<std::string> names;
    for (INT i = 0; i < count; ++i) {
        char name[200] = "";
        ASSERT_GT(grx_recup_nom_fonte_texte(i, name, sizeof name), 0);
        names.emplace_back(name);
    }
    EXPECT_EQ(names[0], GRX_FONTE_TRAIT);
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
    EXPECT_TRUE(std::ranges::find(names, kSans) != names.end());
    EXPECT_EQ(grx_verifie_fonte_texte(names.back().c_str()), 1) << names.back();
    char short_name[3];
    EXPECT_EQ(grx_recup_nom_fonte_texte(0, short_name, sizeof short_name), static_cast<INT>(names[0].size()));
    EXPECT_STREQ(short_name, "gr");
    EXPECT_EQ(grx_recup_nom_fonte_texte(0, nullptr, 0), static_cast<INT>(names[0].size()));
    for (const INT rank : {-1, count, count + 5})
        EXPECT_EQ(grx_recup_nom_fonte_texte(rank, short_name, 3), GRX_ECHEC_PARAMETRE) << rank;
}

TEST(FontNames, TheOlderEntryPointsAnswerAsBefore) {
    GRX_TEXTE text = text_of("a");
    DEF_CONTOURS* contours = nullptr;
    char name[] = "DejaVu Sans";
    DOUBLE extents[2] = {5, 5};
    EXPECT_EQ(get_contours_texte_truetype(text, &contours), 0);
    EXPECT_EQ(contours, nullptr);
    EXPECT_EQ(grx_select_font_truetype(name), -1);
    EXPECT_EQ(grx_verifie_truetype(name), 0);
    grx_texte_extent_truetype(1, name, 10, 1, name, extents);
    EXPECT_EQ(extents[0], 5);
}

} // namespace
