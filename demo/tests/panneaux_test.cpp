// Panel files: any bytes give a panel or a reason.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "panneaux_lecture.h"

namespace atelier {

namespace {

const char* const kPetit = "# essai\n\nPANNEAU|3|400|120|R\351glages\r\nITEM|30|1|702|200|15|8|-1|Pas\n"
                           "ITEM|31|0|703|200|30|12|-1|Trait- Continu - Tirets|a\nFIN\n";

std::string raison(const std::string& octets) {
    const PanneauLu p = lit_panneau(octets);
    EXPECT_EQ(p.numero, -1) << octets;
    EXPECT_TRUE(p.items.empty()) << octets;
    return p.raison;
}

std::string suite(const std::string& lignes) {
    return "PANNEAU|3|400|120|T\n" + lignes + "FIN\n";
}

class Dossier : public testing::Test {
  protected:
    void SetUp() override {
        std::string modele = (std::filesystem::temp_directory_path() / "panneaux-XXXXXX").string();
        ASSERT_NE(mkdtemp(modele.data()), nullptr);
        place_ = modele;
    }
    void TearDown() override { std::filesystem::remove_all(place_); }
    void ecrit(const std::string& nom, const std::string& contenu) const {
        std::ofstream(place_ / nom, std::ios::binary) << contenu;
    }
    std::filesystem::path place_;
};

} // namespace

TEST(Panneau, IsReadLineByLine) {
    const PanneauLu p = lit_panneau(kPetit);
    EXPECT_EQ(p.raison, "");
    EXPECT_EQ(p.numero, 3);
    EXPECT_EQ(p.largeur, 400);
    EXPECT_EQ(p.hauteur, 120);
    EXPECT_EQ(p.titre, "R\351glages");
    ASSERT_EQ(p.items.size(), 2U);
    EXPECT_EQ(p.items[0].type, 30);
    EXPECT_EQ(p.items[0].actif, 1);
    EXPECT_EQ(p.items[0].indice, 702);
    EXPECT_EQ(p.items[0].x, 200);
    EXPECT_EQ(p.items[0].y, 15);
    EXPECT_EQ(p.items[0].largeur, 8);
    EXPECT_EQ(p.items[0].hauteur, -1);
    EXPECT_EQ(p.items[1].actif, 0);
    EXPECT_EQ(p.items[1].texte, "Trait- Continu - Tirets|a") << "the text goes to the end of the line";
}

TEST(Panneau, TellsWhatIsWrongAndWhere) {
    EXPECT_EQ(raison(""), "pas de ligne PANNEAU");
    EXPECT_EQ(raison("FIN\n"), "pas de ligne PANNEAU");
    EXPECT_EQ(raison("PANNEAU|3|400|120|T\n"), "pas de ligne FIN");
    EXPECT_EQ(raison("ITEM|30|1|702|0|0|8|-1|Pas\n"), "ligne 1 : ITEM avant PANNEAU");
    EXPECT_EQ(raison(suite("PANNEAU|4|400|120|T\n")), "ligne 2 : deux lignes PANNEAU");
    EXPECT_EQ(raison(suite("BOUTON|1\n")), "ligne 2 : ni PANNEAU, ni ITEM, ni FIN");
    EXPECT_EQ(raison(suite("") + "ITEM|30|1|702|0|0|8|-1|Pas\n"), "ligne 3 : ligne apres FIN");
    EXPECT_EQ(raison(suite("ITEM|256|1|702|0|0|8|-1|Pas\n")), "ligne 2 : type hors de 0..255");
    EXPECT_EQ(raison(suite("ITEM|30|2|702|0|0|8|-1|Pas\n")), "ligne 2 : actif hors de 0..1");
    EXPECT_EQ(raison(suite("ITEM|30|1|1000|0|0|8|-1|Pas\n")), "ligne 2 : indice hors de 0..999");
    EXPECT_EQ(raison(suite("ITEM|30|1|702|-1|0|8|-1|Pas\n")), "ligne 2 : x hors de 0..10000");
    EXPECT_EQ(raison(suite("ITEM|30|1|702|0|9x|8|-1|Pas\n")), "ligne 2 : y hors de 0..10000");
    EXPECT_EQ(raison(suite("ITEM|30|1|702|0|0|99999999999|-1|Pas\n")), "ligne 2 : largeur hors de -1..10000");
    EXPECT_EQ(raison(suite("ITEM|30|1|702|0|0|8|-2|Pas\n")), "ligne 2 : hauteur hors de -1..10000");
    EXPECT_EQ(raison(suite("ITEM|30|1|702|0|0|8|-1\n")), "ligne 2 : ligne trop courte");
    EXPECT_EQ(raison(suite("ITEM|30\n")), "ligne 2 : ligne trop courte");
    EXPECT_EQ(raison(suite(std::string("ITEM|30|1|702|0|0|8|-1|P\0s\n", 25))), "ligne 2 : caractere de controle");
    EXPECT_EQ(raison("PANNEAU|16|400|120|T\nFIN\n"), "ligne 1 : numero hors de 0..15");
    EXPECT_EQ(raison("PANNEAU|8|400|120|T\nFIN\n"), "le panneau de selection a 7 items");
}

TEST(Panneau, TextsFitTheirPlaces) {
    EXPECT_EQ(lit_panneau("PANNEAU|3|1|1|" + std::string(39, 't') + "\nFIN\n").titre.size(), 39U);
    EXPECT_EQ(raison("PANNEAU|3|1|1|" + std::string(40, 't') + "\nFIN\n"), "ligne 1 : texte de plus de 39 octets");
    const std::string debut = "ITEM|90|1|0|0|0|-1|-1|";
    EXPECT_EQ(lit_panneau(suite(debut + std::string(499, 'i') + "\n")).items.at(0).texte.size(), 499U);
    EXPECT_EQ(raison(suite(debut + std::string(500, 'i') + "\n")), "ligne 2 : texte de plus de 499 octets");
}

TEST(Panneau, HoldsAsManyItemsAsARecordCanCount) {
    std::string items;
    for (int i = 0; i < 255; ++i) items += "ITEM|90|1|0|0|0|-1|-1|\n";
    EXPECT_EQ(lit_panneau(suite(items)).items.size(), 255U);
    EXPECT_EQ(raison(suite(items + "ITEM|90|1|0|0|0|-1|-1|\n")), "ligne 257 : plus de 255 items");
}

TEST(Panneau, AnyBytesGiveAPanelOrAReason) {
    std::mt19937 hasard(20);
    int panneaux = 0, raisons = 0;
    for (int tour = 0; tour < 20000; ++tour) {
        std::string octets = kPetit;
        for (std::size_t n = hasard() % 4; n-- > 0;) octets[hasard() % octets.size()] = static_cast<char>(hasard());
        if (hasard() % 8 == 0) octets.resize(hasard() % octets.size());
        const PanneauLu p = lit_panneau(octets);
        ASSERT_EQ(p.numero < 0, !p.raison.empty());
        ++(p.numero < 0 ? raisons : panneaux);
        for (const PanneauLu::Item& i : p.items) ASSERT_TRUE(i.type >= 0 && i.type < 256 && i.texte.size() < 500);
    }
    EXPECT_GT(panneaux, 1000);
    EXPECT_GT(raisons, 1000);
    EXPECT_EQ(raison(std::string(300 * 1024, '\n')), "trop grand");
}

TEST_F(Dossier, FillsTheTableOfTheLibrary) {
    ecrit("PAN_TEST.DAT", kPetit);
    ecrit("AUTRE.DAT", "rien");
    Panneaux p;
    EXPECT_TRUE(p.lit(place_.string()).empty());
    ASSERT_GT(p.nombre(), GRX_PANNEAU_SELECTION);
    EXPECT_EQ(p.panneau(2), nullptr);
    EXPECT_EQ(p.panneau(-1), nullptr);
    EXPECT_EQ(p.panneau(p.nombre()), nullptr);
    p.mesure(9, 30);
    const PANEL* const lu = p.panneau(3);
    ASSERT_NE(lu, nullptr);
    EXPECT_EQ(lu, p.table() + 3);
    EXPECT_STREQ(lu->titre, "R\351glages");
    EXPECT_EQ(lu->tx, 360);
    EXPECT_EQ(lu->ty, 360);
    ASSERT_EQ(lu->nb_items, 2);
    EXPECT_EQ(lu->tab_items[0].x, 180);
    EXPECT_EQ(lu->tab_items[0].y, 45);
    EXPECT_EQ(lu->tab_items[1].tx_item, 12) << "sizes stay as they are";
    EXPECT_STREQ(lu->tab_items[0].message, "Pas");
}

TEST_F(Dossier, LeavesOutWhatCannotBeRead) {
    ecrit("PAN_A.DAT", kPetit);
    ecrit("PAN_B.DAT", kPetit);
    ecrit("PAN_C.DAT", "Madame, Monsieur,\n");
    std::filesystem::create_directory(place_ / "PAN_D.DAT");
    ASSERT_EQ(mkfifo((place_ / "PAN_E.DAT").c_str(), 0600), 0);
    std::filesystem::create_symlink("absent", place_ / "PAN_F.DAT");
    Panneaux p;
    const std::vector<std::string> attendues{"PAN_B.DAT : deuxieme fichier du panneau 3",
        "PAN_C.DAT : ligne 1 : ni PANNEAU, ni ITEM, ni FIN", "PAN_D.DAT : pas un fichier ordinaire",
        "PAN_E.DAT : pas un fichier ordinaire", "PAN_F.DAT : pas un fichier ordinaire"};
    EXPECT_EQ(p.lit(place_.string()), attendues);
    EXPECT_NE(p.panneau(3), nullptr);
    Panneaux vide;
    EXPECT_TRUE(vide.lit((place_ / "absent").string()).empty());
    EXPECT_EQ(vide.panneau(3), nullptr);
}

TEST(PanneauxDAtelier, AreAllRead) {
    Panneaux p;
    EXPECT_EQ(p.lit(ATELIER_CONFIG), std::vector<std::string>{});
    for (const int numero : {0, 1, GRX_PANNEAU_SELECTION}) {
        ASSERT_NE(p.panneau(numero), nullptr) << numero;
        EXPECT_GT(p.panneau(numero)->nb_items, 0) << numero;
    }
    const PANEL& selection = *p.panneau(GRX_PANNEAU_SELECTION);
    EXPECT_EQ(selection.tab_items[0].type, GRX_ITEM_LISTE + GRX_LISTE_MULTIPLE);
    EXPECT_EQ(selection.tab_items[0].indice, GRX_CLEF_LISTE_SELECT - GRX_BASE_CLEF_LISTE);
}

} // namespace atelier
