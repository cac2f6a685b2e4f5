// The same drawing on the screen and on paper: its lines, areas, colours, pictures and texts are in the same places.
#include "tests/display/drawing/drawing_kit.h"
#include "tests/display/papier/paper_kit.h"

#include "grx_plus_textes.h"

#include <cmath>
#include <functional>

namespace {
using namespace grxtest;

constexpr int dots = 72;   // each a point, each a pixel of the window
constexpr int margin = 20; // pixels
constexpr double pixel = 25.4 / dots;

class PaperWindow : public DrawingTest, protected PaperKit {
  protected:
    void SetUp() override {
        DrawingTest::SetUp();
        window_ = active_window();
    }

    // A sheet on which a pixel is a dot, with thin lines a dot wide.
    GRX_PAPIER like_window() {
        GRX_PAPIER paper = described("plan.pdf", 0, 0);
        paper.numero = window_;
        paper.format = GRX_PAPIER_LIBRE;
        paper.largeur = (width + 2 * margin) * pixel;
        paper.hauteur = (height + 2 * margin) * pixel;
        paper.marge_gauche = paper.marge_droite = paper.marge_haut = paper.marge_bas = margin * pixel;
        paper.mm_par_pixel = pixel;
        for (INT i = 0; i < 8; ++i) paper.epaisseurs[i] = std::max(1, grx_recup_epaisseur(i)) * pixel;
        paper.unite_tirets = pixel;
        paper.blanc_en_noir = 0;
        return paper;
    }

    PagePicture printed(const GRX_PAPIER& paper, const std::function<void()>& draw) {
        print(paper, draw);
        return page_picture(file(), dots);
    }

    bool on_screen(const Pixels& seen, int x, int y) const {
        return x >= 0 && y >= 0 && x < seen.width && y < seen.height && seen.at(x, y) != background();
    }

    // Ink of either side that has none of the other within so many pixels.
    void expect_alike(const Pixels& seen, const PagePicture& page, int reach = 1) const {
        int ink = 0, screen_only = 0, paper_only = 0;
        const auto near = [reach](int x, int y, const auto& has) {
            for (int dy = -reach; dy <= reach; ++dy)
                for (int dx = -reach; dx <= reach; ++dx)
                    if (has(x + dx, y + dy)) return true;
            return false;
        };
        const auto shown = [&](int x, int y) { return on_screen(seen, x, y); };
        const auto on_paper = [&](int x, int y) { // a soft edge is enough
            if (x < 0 || y < 0 || x >= width || y >= height) return false;
            const auto [r, g, b] = page.at(x + margin, y + margin);
            return std::min({r, g, b}) < 235;
        };
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                ink += shown(x, y);
                screen_only += shown(x, y) && !near(x, y, on_paper);
                paper_only += page.inked(x + margin, y + margin) && !near(x, y, shown);
            }
        EXPECT_GT(ink, 300);
        EXPECT_EQ(screen_only, 0);
        EXPECT_EQ(paper_only, 0);
    }

    INT window_ = GRX_AUCUN;
};

TEST_F(PaperWindow, PrimitivesLieWhereTheyAreOnTheScreen) {
    RandomPrimitives random(7, width, height);
    std::vector<Primitive> all;
    for (int i = 0; i < 25; ++i) {
        Primitive p = random.next(static_cast<Primitive::Kind>(i % Primitive::kinds));
        p.attrib = attributes(black_ink + 9 + i % 6);
        if (i % Primitive::kinds >= 7) p.points.resize(3); // few areas, or nothing else is seen
        all.push_back(p);
    }
    const auto draw_all = [&] {
        for (const Primitive& p : all) draw(window_, p);
    };
    draw_all();
    const Pixels seen = screen(window_);
    expect_alike(seen, printed(like_window(), draw_all));
    EXPECT_TRUE(same(seen, screen(window_))); // the paper took it all
}

// On paper lines have round ends, half as long as they are wide.
TEST_F(PaperWindow, WideLinesToo) {
    const auto draw_all = [&] {
        for (INT i = 0; i < 8; ++i)
            draw(window_, segment(attributes(red_ink, 0, 0, 0, i), 20, 15 + 20 * i, 110, 10 + 20 * i));
        draw(window_, rectangle(attributes(black_ink, 0, 0, 0, 3), 125, 5, 230, 170));
    };
    draw_all();
    expect_alike(screen(window_), printed(like_window(), draw_all), 5);
}

TEST_F(PaperWindow, DashesToo) {
    const auto draw_all = [&] {
        for (INT i = 0; i < 8; ++i)
            draw(window_,
                segment(attributes(blue_ink, grx_recup_couleur_fond(), 0, i, 0), 30, 12 + 20 * i, 220, 12 + 20 * i));
    };
    draw_all();
    expect_alike(screen(window_), printed(like_window(), draw_all));
}

TEST_F(PaperWindow, ColoursAreThoseOfTheScreen) {
    const auto page = printed(like_window(), [&] {
        for (INT i = 0; i < 12; ++i) draw(window_, filled(attributes(i), 10 + 15 * i, 10, 20 + 15 * i, 30));
        draw(window_, filled(attributes(black_ink), 10, 50, 60, 90));
        draw(window_, filled(attributes(grx_recup_couleur_fond()), 20, 60, 50, 80));
        draw(window_, filled(attributes(red_ink, 0, erase_mode), 30, 50, 40, 90));
        draw(window_, filled(attributes(red_ink, 0, xor_mode), 10, 50, 20, 90));
    });
    for (INT i = 0; i < 12; ++i) {
        INT rgb[3] = {0, 0, 0};
        grx_recup_rgb(i, rgb);
        if (i == grx_recup_couleur_fond()) rgb[0] = rgb[1] = rgb[2] = 255; // the paper's own
        const auto at = page.at(margin + 15 + 15 * i, margin + 20);
        for (std::size_t c = 0; c < 3; ++c) EXPECT_NEAR(at[c], std::min<INT>(rgb[c], 255), 1) << i;
    }
    const std::array<int, 3> white{255, 255, 255}, black{0, 0, 0};
    EXPECT_EQ(page.at(margin + 25, margin + 70), white);
    EXPECT_EQ(page.at(margin + 35, margin + 55), white);
    EXPECT_EQ(page.at(margin + 15, margin + 70), black);
}

TEST_F(PaperWindow, ColoursMayBeBlackOrOfATable) {
    GRX_PAPIER paper = like_window();
    const auto draw_all = [&] {
        draw(window_, filled(attributes(red_ink), 10, 10, 30, 30));
        draw(window_, filled(attributes(blue_ink), 50, 10, 70, 30));
        draw(window_, filled(attributes(white_ink), 90, 10, 110, 30));
        draw(window_, segment(attributes(white_ink, 0, 0, 0, 7), 10, 60, 110, 60));
    };
    paper.couleurs = GRX_PAPIER_COULEURS_NOIR;
    PagePicture page = printed(paper, draw_all);
    const std::array<int, 3> white{255, 255, 255}, black{0, 0, 0}, blue{0, 0, 0xAA}, green{0, 0x80, 0};
    EXPECT_EQ(page.at(margin + 20, margin + 20), black);
    EXPECT_EQ(page.at(margin + 60, margin + 20), black);
    std::array<UNSIGNED_INT, red_ink + 1> table{};
    table[red_ink] = 0x008000;
    table[blue_ink] = 0x0000AA;
    table[white_ink] = 0xFFFFFF;
    paper.couleurs = GRX_PAPIER_COULEURS_TABLE;
    paper.couleurs_table = table.data();
    paper.nb_couleurs = static_cast<INT>(table.size());
    page = printed(paper, draw_all);
    EXPECT_EQ(page.at(margin + 20, margin + 20), green);
    EXPECT_EQ(page.at(margin + 60, margin + 20), blue);
    EXPECT_EQ(page.at(margin + 60, margin + 60), white);
    paper.blanc_en_noir = 1;
    page = printed(paper, draw_all);
    EXPECT_EQ(page.at(margin + 100, margin + 20), white); // areas stay
    EXPECT_EQ(page.at(margin + 60, margin + 60), black);
}

TEST_F(PaperWindow, PicturesAreTheirPixels) {
    std::vector<uchar> deep(3 * 20 * 10), shallow(20 * 10);
    for (std::size_t i = 0; i < shallow.size(); ++i) {
        shallow[i] = static_cast<uchar>(i % 16);
        deep[3 * i] = static_cast<uchar>(i), deep[3 * i + 1] = 40, deep[3 * i + 2] = static_cast<uchar>(200 - i);
    }
    const auto page = printed(like_window(), [&] {
        grx_stretch_image(GRX_CIBLE_FENETRE, window_, deep.data(), shallow.data(), 20, 10, 60, 90, 80, 40);
        grx_stretch_image(GRX_CIBLE_FENETRE, window_, nullptr, shallow.data(), 20, 10, 60, 20, 80, 40);
    });
    for (const int i : {0, 1, 19, 20, 199}) {
        const auto byte = [&](std::size_t c) { return static_cast<int>(deep[3 * static_cast<std::size_t>(i) + c]); };
        EXPECT_EQ(page.at(margin + 60 + i % 20 * 4 + 2, margin + 90 + i / 20 * 4 + 2),
            (std::array<int, 3>{byte(2), byte(1), byte(0)}))
            << i;
        INT rgb[3] = {0, 0, 0};
        grx_recup_rgb(i % 16, rgb);
        const auto large = page.at(margin + 60 + i % 20 * 4 + 2, margin + 20 + i / 20 * 4 + 2);
        for (std::size_t c = 0; c < 3; ++c) EXPECT_NEAR(large[c], std::min<INT>(rgb[c], 255), 1) << i;
    }
}

TEST_F(PaperWindow, TextsAreAsHighAndAsWideAndCanBeSearched) {
    const GRX_TEXTE text = text_at(window_, 30, 60, "Cloison 12,5 \xe9paisse", black_ink);
    INT wide = 0, above = 0, below = 0;
    grx_recup_taille_chaine(const_cast<char*>(text.chaine), &wide, &above, &below);
    const auto page = printed(like_window(), [&] { grx_ecrit_fenetre(text); });
    const Area ink = page.ink();
    EXPECT_NEAR(ink.x, margin + 30, 3);
    EXPECT_NEAR(ink.width, wide, 6);
    EXPECT_GE(ink.y, margin + 60 - above - 1);
    EXPECT_LE(ink.y + ink.height, margin + 60 + below + 1);
    EXPECT_NE(output_of("pdftotext '" + file() + "' -").find("Cloison 12,5 \xc3\xa9paisse"), std::string::npos);
}

TEST_F(PaperWindow, DrawingTextsAreTheirOutlines) {
    GRX_TEXTE text{};
    ASSERT_EQ(grx_init_texte_dessin(&text), 1);
    text.nofen = window_;
    text.x = 60;
    text.y = 140;
    std::strcpy(text.chaine, "OB");
    text.hauteurlabel = 60;
    text.cosinuslabel = 1;
    text.sinuslabel = .5;
    text.filllabel = 1;
    text.attrib = attributes(red_ink);
    const auto draw_it = [&] { grx_trace_texte_dessin(&text); };
    draw_it();
    expect_alike(screen(window_), printed(like_window(), draw_it), 2);
    std::strcpy(text.fontlabel, GRX_FONTE_TRAIT);
    grx_efface_zone_graphique(window_);
    std::strcpy(text.chaine, "Mur");
    text.attrib = attributes(black_ink, 0, 0, 0, 2);
    draw_it();
    expect_alike(screen(window_), printed(like_window(), draw_it), 4); // the corners of wide lines are round on paper
}

TEST_F(PaperWindow, OnlyTheWindowsOwnDrawingIsPrinted) {
    const INT other = graphic_window({400, 300, 100, 80});
    GRX_PAPIER paper = like_window();
    const auto draw_all = [&] {
        draw(window_, filled(attributes(red_ink), 10, 10, 30, 30));
        draw(other, filled(attributes(red_ink), 50, 10, 70, 30));
        grx_remplit_rectangle_bouton({window_, 90, 10, 110, 30, 0, 0, 0, attributes(red_ink)});
    };
    PagePicture page = printed(paper, draw_all);
    const std::array<int, 3> white{255, 255, 255};
    EXPECT_NE(page.at(margin + 20, margin + 20), white);
    EXPECT_EQ(page.at(margin + 60, margin + 20), white);
    EXPECT_EQ(page.at(margin + 100, margin + 20), white);
    paper.numero = GRX_AUCUN;
    paper.largeur_zone = width;
    paper.hauteur_zone = height;
    page = printed(paper, draw_all);
    EXPECT_NE(page.at(margin + 60, margin + 20), white);
    EXPECT_NE(page.at(margin + 100, margin + 20), white);
}

TEST_F(PaperWindow, AWindowOrAControlSaysItsSize) {
    GRX_PAPIER paper = like_window();
    GRX_FEUILLES_PAPIER sheets{};
    grx_init_feuilles_papier(&sheets);
    paper.echelle = GRX_PAPIER_AJUSTE;
    ASSERT_EQ(grx_recup_feuilles_papier(&paper, &sheets), 1);
    EXPECT_NEAR(sheets.mm_par_pixel, pixel, 1e-9);
    paper.cible = GRX_CIBLE_BOUTON;
    paper.numero = label_in(window_, {10, 10, 80, 40});
    ASSERT_EQ(grx_recup_feuilles_papier(&paper, &sheets), 1);
    EXPECT_NEAR(sheets.mm_par_pixel, width * pixel / 80, 1e-9);
    paper.numero = 900;
    EXPECT_EQ(grx_recup_feuilles_papier(&paper, &sheets), GRX_ECHEC_NUMERO);
    paper.cible = GRX_CIBLE_FENETRE;
    paper.numero = 77;
    EXPECT_EQ(grx_recup_feuilles_papier(&paper, &sheets), GRX_ECHEC_NUMERO);
    EXPECT_EQ(grx_commence_papier(&paper), GRX_ECHEC_NUMERO);
}

} // namespace
