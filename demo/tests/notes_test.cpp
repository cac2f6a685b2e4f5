// Notes on a drawing: what is kept in their file, and what survives a file that is damaged.
#include <gtest/gtest.h>

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "notes.h"

namespace {

namespace fs = std::filesystem;
using atelier::Notes;

class NotesTest : public testing::Test {
  protected:
    void SetUp() override {
        std::string modele = (fs::temp_directory_path() / "notes-XXXXXX").string();
        ASSERT_NE(mkdtemp(modele.data()), nullptr);
        place_ = modele;
    }
    void TearDown() override {
        fs::permissions(place_, fs::perms::owner_all);
        fs::remove_all(place_);
    }
    fs::path plan() const { return place_ / "maison.dxf"; }
    std::string lu() const {
        std::ifstream f(place_ / "maison.notes", std::ios::binary);
        return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
    }
    void pose(const std::string& contenu) const { std::ofstream(place_ / "maison.notes", std::ios::binary) << contenu; }

    fs::path place_;
};

TEST_F(NotesTest, ComeBackAsTheyWereSaved) {
    Notes n;
    EXPECT_FALSE(n.modifiees());
    n.ajoute({1.0 / 3, -2.5e-7}, "Mur \xc3\xa0 d\xc3\xa9molir, 2 m");
    n.ajoute({12, 7}, "  x");
    EXPECT_TRUE(n.modifiees());
    ASSERT_TRUE(n.ecrit(plan()));
    EXPECT_FALSE(n.modifiees());
    const Notes lues = Notes::de(plan());
    ASSERT_EQ(lues.toutes().size(), 2U);
    EXPECT_EQ(lues.toutes()[0].place, (atelier::Point{1.0 / 3, -2.5e-7}));
    EXPECT_EQ(lues.toutes()[0].texte, "Mur \xc3\xa0 d\xc3\xa9molir, 2 m");
    EXPECT_EQ(lues.toutes()[1].texte, "x");
    EXPECT_FALSE(lues.modifiees());
}

TEST_F(NotesTest, AreOneLineEachAndNotEmpty) {
    Notes n;
    n.ajoute({0, 0}, "une\nligne\r\tseule");
    n.ajoute({0, 0}, "");
    n.ajoute({0, 0}, " \n ");
    ASSERT_EQ(n.toutes().size(), 1U);
    EXPECT_EQ(n.toutes()[0].texte, "une ligne  seule");
}

TEST_F(NotesTest, WhatIsNoNoteIsPassedOver) {
    pose("1 2 bon\n\n1 2\nx y z\n1e999 0 loin\nnan 0 rien\n3 4 aussi bon");
    const Notes n = Notes::de(plan());
    ASSERT_EQ(n.toutes().size(), 2U);
    EXPECT_EQ(n.toutes()[1].texte, "aussi bon");
}

TEST_F(NotesTest, WithoutAFileThereAreNone) {
    EXPECT_TRUE(Notes::de(plan()).toutes().empty());
    EXPECT_TRUE(Notes::de("/nowhere/at/all.dxf").toutes().empty());
}

TEST_F(NotesTest, AFileThatCannotBeWrittenStaysAsItIs) {
    pose("1 2 bon\n");
    Notes n = Notes::de(plan());
    n.ajoute({5, 5}, "neuve");
    fs::create_directory(place_ / "maison.notes.neuf"); // in the way of the new file
    EXPECT_FALSE(n.ecrit(plan()));
    EXPECT_TRUE(n.modifiees());
    EXPECT_EQ(lu(), "1 2 bon\n");
}

} // namespace
