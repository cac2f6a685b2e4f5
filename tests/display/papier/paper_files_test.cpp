// Where papers go: files that are whole or absent, printers, and what is wrong with what the application says.
#include "tests/display/papier/paper_kit.h"

#include "grx_plus_recepteur.h"
#include "grx_plus_session.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <cmath>
#include <fstream>
#include <functional>

namespace {
using namespace grxtest;

class PaperFilesOn24 : public PaperOn24 {
  protected:
    void TearDown() override { EXPECT_EQ(grx_abandonne_papier(), GRX_ECHEC_ABSENT) << "a paper is left"; }

    static void draw_much() {
        for (INT i = 0; i < 20000; ++i) line(i % 150, i % 190, (i * 7) % 150, (i * 13) % 190);
    }
};

using Names = std::vector<std::string>;

TEST_F(PaperFilesOn24, TheFileIsThereWholeAtTheEndOnly) {
    const GRX_PAPIER paper = described();
    ASSERT_EQ(grx_commence_papier(&paper), 1);
    draw_much();
    EXPECT_FALSE(std::filesystem::exists(file()));
    ASSERT_EQ(grx_termine_papier(), 1);
    EXPECT_EQ(names(), (Names{"plan.pdf"}));
    EXPECT_EQ(written().substr(0, 5), "%PDF-");
    EXPECT_EQ(told_of_paper(), "");
    const mode_t mask = umask(0);
    umask(mask);
    struct stat found {};
    ASSERT_EQ(stat(file().c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777, 0666 & ~mask);
}

TEST_F(PaperFilesOn24, EveryKindIsWhatItSays) {
    const std::array<std::pair<INT, std::string>, 4> kinds{{{GRX_PAPIER_PDF, "%PDF-"}, {GRX_PAPIER_SVG, "<?xml"},
        {GRX_PAPIER_PS, "%!PS-Adobe"}, {GRX_PAPIER_HPGL, "IN;"}}};
    for (const auto& [kind, begin] : kinds) {
        GRX_PAPIER paper = described();
        paper.genre = kind;
        print(paper, draw_much);
        EXPECT_EQ(written().substr(0, begin.size()), begin);
    }
}

TEST_F(PaperFilesOn24, AnotherFileOfTheNameGoesAndItsRightsStay) {
    folder().write("plan.pdf", "old");
    const GRX_PAPIER paper = described();
    ASSERT_EQ(chmod(file().c_str(), 0640), 0);
    print(paper, draw_much);
    EXPECT_EQ(written().substr(0, 5), "%PDF-");
    struct stat found {};
    ASSERT_EQ(stat(file().c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777, 0640U);
}

TEST_F(PaperFilesOn24, ALinkGoesOnLeadingToTheFile) {
    folder().write("there/real.pdf", "old");
    std::filesystem::create_symlink("there/real.pdf", folder().path() / "plan.pdf");
    print(described(), draw_much);
    EXPECT_TRUE(std::filesystem::is_symlink(file()));
    EXPECT_EQ(folder().read("there/real.pdf").substr(0, 5), "%PDF-");
}

TEST_F(PaperFilesOn24, RefusesWhatIsNoPlaceForAFile) {
    std::filesystem::create_directory(folder().path() / "folder");
    std::filesystem::create_symlink("nowhere", folder().path() / "link");
    GRX_PAPIER paper = described();
    const std::string base = folder().text() + "/";
    for (const std::string& name : {base + "absent/plan.pdf", base + "folder", std::string("/dev/null"),
             std::string("/dev/full"), base + "link", base + std::string(5000, 'x'), base + "folder/x/../../y.pdf"}) {
        paper.fichier = name.c_str();
        EXPECT_EQ(grx_commence_papier(&paper), GRX_ECHEC_FICHIER) << name;
        EXPECT_NE(told_of_paper(), "") << name;
    }
    EXPECT_EQ(names(), (Names{"folder", "link"}));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

// A disk that takes no more after some thousand bytes.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
};

TEST_F(PaperFilesOn24, AFullDiskLeavesWhatWasThere) {
    folder().write("plan.pdf", "old");
    for (const INT kind : {GRX_PAPIER_PDF, GRX_PAPIER_SVG, GRX_PAPIER_PS, GRX_PAPIER_HPGL})
        for (const rlim_t room : {rlim_t{0}, rlim_t{1000}, rlim_t{70000}}) {
            GRX_PAPIER paper = described();
            paper.genre = kind;
            const FullDisk full(room);
            ASSERT_EQ(grx_commence_papier(&paper), 1);
            draw_much();
            EXPECT_EQ(grx_termine_papier(), GRX_ECHEC_FICHIER) << kind << " " << room;
            EXPECT_NE(told_of_paper(), "");
            if (kind != GRX_PAPIER_PS) EXPECT_EQ(told_of_paper(), "File too large");
            EXPECT_EQ(names(), (Names{"plan.pdf"}));
            EXPECT_EQ(written(), "old");
        }
}

TEST_F(PaperFilesOn24, AFullDiskIsToldBetweenPages) {
    const GRX_PAPIER paper = described();
    const FullDisk full(1000);
    ASSERT_EQ(grx_commence_papier(&paper), 1);
    INT code = 1;
    for (int i = 0; i < 10 && code == 1; ++i) {
        draw_much();
        code = grx_page_papier();
    }
    EXPECT_EQ(code, GRX_ECHEC_FICHIER);
    EXPECT_EQ(grx_termine_papier(), GRX_ECHEC_FICHIER);
    EXPECT_EQ(names(), Names{});
}

TEST_F(PaperFilesOn24, GivenUpNothingIsLeft) {
    folder().write("plan.pdf", "old");
    const GRX_PAPIER paper = described();
    ASSERT_EQ(grx_commence_papier(&paper), 1);
    draw_much();
    EXPECT_EQ(grx_abandonne_papier(), 1);
    EXPECT_EQ(written(), "old");
    EXPECT_EQ(names(), (Names{"plan.pdf"}));
    EXPECT_EQ(grx_termine_papier(), GRX_ECHEC_ABSENT);
}

TEST_F(PaperFilesOn24, TheEndOfTheLibrarysWorkGivesItUp) {
    const NoLeak no_leak;
    const GRX_PAPIER paper = described();
    ASSERT_EQ(grx_commence_papier(&paper), 1);
    draw_much();
    ASSERT_EQ(grx_termine_application(), 1);
    EXPECT_EQ(grx_termine_papier(), GRX_ECHEC_ABSENT);
    EXPECT_EQ(names(), Names{});
    print(described(), draw_much);
    EXPECT_EQ(names(), (Names{"plan.pdf"}));
}

TEST_F(PaperFilesOn24, ThereIsOneAtATime) {
    const GRX_PAPIER paper = described();
    GRX_PAPIER second = paper;
    const std::string second_file = folder().text() + "/second.pdf";
    second.fichier = second_file.c_str();
    ASSERT_EQ(grx_commence_papier(&paper), 1);
    EXPECT_EQ(grx_commence_papier(&second), GRX_ECHEC_OCCUPE);
    EXPECT_EQ(grx_commence_papier(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_abandonne_papier(), 1);
    EXPECT_EQ(names(), Names{});
    GRX_RECEPTEUR other{};
    grx_init_recepteur(&other);
    ASSERT_EQ(grx_affecte_recepteur(&other), 1);
    EXPECT_EQ(grx_commence_papier(&paper), GRX_ECHEC_OCCUPE);
    EXPECT_EQ(names(), Names{});
    EXPECT_EQ(grx_retire_recepteur(nullptr), 1);
}

TEST_F(PaperFilesOn24, WithoutABeginningThereIsNoEnd) {
    EXPECT_EQ(grx_termine_papier(), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_page_papier(), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_lien_papier(0, 0, 1, 1, "https://example.org"), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_signet_papier("Toit"), GRX_ECHEC_ABSENT);
}

// --- memory -------------------------------------------------------------------------------------------------------------

TEST_F(PaperFilesOn24, ShortMemoryIsAnAnswerAndLeavesNothing) {
    int done = 0, short_of_memory = 0;
    for (const INT kind : {GRX_PAPIER_PDF, GRX_PAPIER_HPGL}) {
        const int driven = fail_each_allocation([&] {
            GRX_PAPIER paper = described("plan.pdf", 400, 300);
            paper.genre = kind;
            paper.titre = "Plan";
            INT code = grx_commence_papier(&paper);
            if (code == 1) {
                for (INT i = 0; i < 500; ++i) line(i % 150, i % 190, (i * 7) % 150, (i * 13) % 190);
                std::array<uchar, 3 * 64> picture{};
                grx_stretch_image(1, 1, picture.data(), nullptr, 8, 8, 20, 20, 40, 40);
                code = grx_termine_papier();
            }
            (code == 1 ? done : short_of_memory) += 1;
            EXPECT_TRUE(code == 1 || code == GRX_ECHEC_MEMOIRE) << code;
            EXPECT_EQ(names(), code == 1 ? (Names{"plan.pdf"}) : Names{});
            std::filesystem::remove(file());
        });
        EXPECT_GT(driven, 10);
    }
    EXPECT_GT(short_of_memory, 10);
    EXPECT_GT(done, 1); // there is one without a failure in each
}

TEST_F(PaperFilesOn24, RoundsKeepNothing) {
    const NoLeak no_leak;
    for (int i = 0; i < 500; ++i) print(described(), [] { line(1, 1, 100, 100); });
}

// --- bad records ----------------------------------------------------------------------------------------------------------

struct Wrong {
    const char* what;
    void (*spoil)(GRX_PAPIER&);
};

const std::vector<Wrong> wrong{{"size", [](GRX_PAPIER& p) { p.taille = 12; }},
    {"kind", [](GRX_PAPIER& p) { p.genre = 5; }}, {"no file", [](GRX_PAPIER& p) { p.fichier = nullptr; }},
    {"empty name", [](GRX_PAPIER& p) { p.fichier = ""; }}, {"format", [](GRX_PAPIER& p) { p.format = 9; }},
    {"no free size", [](GRX_PAPIER& p) { p.format = GRX_PAPIER_LIBRE; }},
    {"free size", [](GRX_PAPIER& p) { p.format = GRX_PAPIER_LIBRE, p.largeur = NAN, p.hauteur = 100; }},
    {"orientation", [](GRX_PAPIER& p) { p.orientation = 2; }},
    {"margins meet", [](GRX_PAPIER& p) { p.marge_gauche = p.marge_droite = 103; }},
    {"margin", [](GRX_PAPIER& p) { p.marge_haut = -1; }}, {"margin", [](GRX_PAPIER& p) { p.marge_bas = INFINITY; }},
    {"target", [](GRX_PAPIER& p) { p.cible = 2; }}, {"area", [](GRX_PAPIER& p) { p.largeur_zone = 0; }},
    {"area", [](GRX_PAPIER& p) { p.hauteur_zone = -5; }},
    {"no area", [](GRX_PAPIER& p) { p.largeur_zone = p.hauteur_zone = 0; }},
    {"pixel", [](GRX_PAPIER& p) { p.mm_par_pixel = 0; }}, {"pixel", [](GRX_PAPIER& p) { p.mm_par_pixel = NAN; }},
    {"scale", [](GRX_PAPIER& p) { p.echelle = 0; }}, {"scale", [](GRX_PAPIER& p) { p.echelle = NAN; }},
    {"scale", [](GRX_PAPIER& p) { p.echelle = -2; }}, {"scale", [](GRX_PAPIER& p) { p.echelle = INFINITY; }},
    {"too large", [](GRX_PAPIER& p) { p.echelle = 1e-300; }}, {"sheets", [](GRX_PAPIER& p) { p.echelle = .02; }},
    {"too small", [](GRX_PAPIER& p) { p.mm_par_pixel = 1e-300, p.echelle = 1e300; }},
    {"overlap", [](GRX_PAPIER& p) { p.echelle = .5, p.recouvrement = 95; }},
    {"overlap", [](GRX_PAPIER& p) { p.recouvrement = NAN; }}, {"marks", [](GRX_PAPIER& p) { p.reperes = 3; }},
    {"colours", [](GRX_PAPIER& p) { p.couleurs = 3; }}, {"table", [](GRX_PAPIER& p) { p.nb_couleurs = 3; }},
    {"table", [](GRX_PAPIER& p) { p.nb_plumes = -3; }}, {"width", [](GRX_PAPIER& p) { p.epaisseurs[3] = 0; }},
    {"width", [](GRX_PAPIER& p) { p.epaisseurs[7] = NAN; }}, {"dashes", [](GRX_PAPIER& p) { p.unite_tirets = 0; }},
    {"text", [](GRX_PAPIER& p) { p.hauteur_texte = -1; }}, {"hatching", [](GRX_PAPIER& p) { p.hachures = 1e-9; }},
    {"copies", [](GRX_PAPIER& p) { p.genre = GRX_PAPIER_IMPRIMANTE, p.copies = 0; }}};

TEST_F(PaperFilesOn24, RefusesRecordsThatAreWrong) {
    for (const auto& [what, spoil] : wrong) {
        GRX_PAPIER paper = described();
        spoil(paper);
        EXPECT_EQ(grx_commence_papier(&paper), GRX_ECHEC_PARAMETRE) << what;
        GRX_FEUILLES_PAPIER sheets{};
        grx_init_feuilles_papier(&sheets);
        EXPECT_EQ(grx_recup_feuilles_papier(&paper, &sheets), GRX_ECHEC_PARAMETRE) << what;
        EXPECT_EQ(sheets.colonnes, 0) << what;
    }
    EXPECT_EQ(grx_init_papier(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_init_feuilles_papier(nullptr), GRX_ECHEC_PARAMETRE);
    const GRX_PAPIER paper = described();
    EXPECT_EQ(grx_recup_feuilles_papier(&paper, nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(names(), Names{});
}

TEST_F(PaperFilesOn24, AnSvgHasOnePage) {
    GRX_PAPIER paper = described("plan.svg", 400, 300);
    paper.genre = GRX_PAPIER_SVG;
    EXPECT_EQ(grx_commence_papier(&paper), GRX_ECHEC_GENRE);
    paper.plusieurs_feuilles = 0;
    ASSERT_EQ(grx_commence_papier(&paper), 1);
    EXPECT_EQ(grx_page_papier(), GRX_ECHEC_GENRE);
    EXPECT_EQ(grx_termine_papier(), 1);
}

TEST_F(PaperFilesOn24, LinksAndBookmarksAreLookedAt) {
    const GRX_PAPIER paper = described();
    ASSERT_EQ(grx_commence_papier(&paper), 1);
    line(1, 1, 100, 100);
    const std::string long_uri(2001, 'x'), long_title(256, 'x');
    for (const char* uri : {static_cast<const char*>(nullptr), "", "a b", "a\nb", "\xe9", long_uri.c_str()})
        EXPECT_EQ(grx_lien_papier(0, 0, 10, 10, uri), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_lien_papier(0, 0, 0, 10, "x"), GRX_ECHEC_PARAMETRE);
    for (const char* title : {static_cast<const char*>(nullptr), "", long_title.c_str()})
        EXPECT_EQ(grx_signet_papier(title), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_lien_papier(INT_MIN, INT_MIN, INT_MAX, INT_MAX, "far"), 1);
    EXPECT_EQ(grx_lien_papier(0, 0, INT_MAX, INT_MAX, "https://example.org/it's\\'],uri='x"), 1);
    EXPECT_EQ(grx_termine_papier(), 1);
    const std::string links = output_of("pdfinfo -url '" + file() + "'");
    EXPECT_NE(links.find("https://example.org/it%27s%5C%27],uri=%27x"), std::string::npos) << links;
}

} // namespace
