// The program itself, without a display: what it says and the code it ends with.
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

struct Fin {
    int code = -1;
    std::string sortie, erreur;
};

class Programme : public testing::Test {
  protected:
    void SetUp() override {
        std::string modele = (std::filesystem::temp_directory_path() / "atelier-XXXXXX").string();
        ASSERT_NE(mkdtemp(modele.data()), nullptr);
        place_ = modele;
    }
    void TearDown() override { std::filesystem::remove_all(place_); }

    std::string fichier(const std::string& nom, const std::string& contenu) const {
        std::ofstream(place_ / nom, std::ios::binary) << contenu;
        return (place_ / nom).string();
    }

    std::string lu(const std::string& nom) const {
        std::ifstream f(place_ / nom, std::ios::binary);
        return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
    }

    Fin lance(const std::string& arguments) const {
        const std::string commande = "env -u DISPLAY '" ATELIER_PROGRAMME "' " + arguments + " >"
                                     + (place_ / "sortie").string() + " 2>" + (place_ / "erreur").string()
                                     + " </dev/null";
        const int etat = std::system(commande.c_str());
        return {WIFEXITED(etat) ? WEXITSTATUS(etat) : -1, lu("sortie"), lu("erreur")};
    }

    void refuse(const std::string& nom, const std::string& raison) const {
        const Fin f = lance("'" + nom + "'");
        EXPECT_EQ(f.code, 1) << nom;
        EXPECT_NE(f.erreur.find(nom), std::string::npos) << f.erreur;
        EXPECT_NE(f.erreur.find(raison), std::string::npos) << f.erreur;
    }

    std::filesystem::path place_;
};

const char* const kPetit = "0\nSECTION\n2\nENTITIES\n0\nHATCH\n8\n0\n0\nPOINT\n8\n0\n10\n1\n20\n1\n0\nENDSEC\n0\nEOF\n";

TEST_F(Programme, RefusesWhatIsNoDrawing) {
    refuse((place_ / "absent.dxf").string(), "introuvable");
    refuse(place_.string(), "repertoire");
    refuse(fichier("vide.dxf", ""), "vide");
    refuse(fichier("lettre.dxf", "Madame, Monsieur,\n"), "n'est pas un dessin DXF");
    refuse(fichier("binaire.dxf", std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16)), "binaire");
    refuse(fichier("entete.dxf", "0\nSECTION\n2\nHEADER\n0\nENDSEC\n0\nEOF\n"), "ENTITIES");
    ASSERT_EQ(mkfifo((place_ / "tube.dxf").c_str(), 0600), 0);
    refuse((place_ / "tube.dxf").string(), "ordinaire");
}

TEST_F(Programme, TellsWhatItDoesNotDraw) {
    const Fin f = lance(fichier("petit.dxf", kPetit));
    EXPECT_NE(f.sortie.find("1 entite non dessinee: HATCH 1\n"), std::string::npos) << f.sortie;
}

TEST_F(Programme, NeedsADisplay) {
    const Fin f = lance(fichier("petit.dxf", kPetit));
    EXPECT_EQ(f.code, 2);
    EXPECT_NE(f.erreur.find("DISPLAY"), std::string::npos);
}

TEST_F(Programme, ExplainsItsArguments) {
    for (const char* a : {"--geometry", "--geometry 12", "--geometry 0x5", "--geometry 10x10x10", "--geometry 99999x1",
             "--inconnu", "a.dxf b.dxf"}) {
        const Fin f = lance(a);
        EXPECT_EQ(f.code, 64) << a;
        EXPECT_NE(f.erreur.find("usage: atelier"), std::string::npos) << a;
    }
}

TEST_F(Programme, ShowsTheSamplePlanByDefault) {
    const Fin f = lance("--geometry 800x600");
    EXPECT_EQ(f.code, 2); // it was read, and there is no display
    EXPECT_EQ(f.sortie.find("entite"), std::string::npos) << f.sortie;
}

} // namespace
