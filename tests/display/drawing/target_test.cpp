// Where primitives draw: on the screen, into a backing picture, or nowhere while the library is not started.
#include "tests/display/drawing/drawing_kit.h"
#include "tests/support/window_kit.h"

#include "display/context.h"

namespace {

using namespace grxtest;
using Kind = Primitive::Kind;

class MemoryDrawing : public DrawingTest {};

TEST_F(MemoryDrawing, PrimitivesGoIntoTheBackingPicture) {
    const INT window = active_window();
    const Pixels before = screen(window);
    grx_alloue_image(window);
    PlainPicture plain(x11_disp, width, height, background());
    RandomPrimitives shapes(12, width, height);
    for (int i = 0; i < 400; ++i) {
        const Primitive p = shapes.next();
        draw(window, p);
        plain.draw(p);
    }
    EXPECT_TRUE(same(memory(window), plain.pixels()));
    EXPECT_TRUE(same(screen(window), before));
    grx_desalloue_image();
}

// KEEP: clearing and window texts act on the screen, whatever the target.
TEST_F(MemoryDrawing, ClearingAndTextsActOnTheScreen) {
    const INT window = active_window();
    draw(window, filled(attributes(13), 0, 0, 50, 50));
    grx_alloue_image(window);
    draw(window, filled(attributes(9), 0, 0, 9, 9));
    grx_efface_zone_graphique(window);
    EXPECT_EQ(screen(window).count_other(background()), 0);
    EXPECT_EQ(memory(window).count(drawn_pixel(9)), 100);
    grx_ecrit_fenetre(text_at(window, 20, 80, "abc", 12));
    EXPECT_GT(screen(window).count_other(background()), 10);
    EXPECT_EQ(memory(window).count_other(background()), 100);
    grx_desalloue_image();
}

TEST_F(MemoryDrawing, ErasingATextGoesIntoTheBackingPicture) {
    const INT window = active_window();
    grx_alloue_image(window);
    grx_efface_chaine(text_at(window, 20, 80, "abc", 9, 12));
    EXPECT_GT(memory(window).count(drawn_pixel(12)), 100);
    EXPECT_EQ(screen(window).count_other(background()), 0);
    grx_desalloue_image();
}

TEST_F(MemoryDrawing, TargetsAreChosenByTheTests) {
    const INT window = active_window();
    EXPECT_EQ(test_trace_memoire(x_window(window)), 0);
    EXPECT_EQ(grx::win_bidon, x_window(window));
    EXPECT_EQ(test_trace_memoire_bouton(1234), 0);
    EXPECT_EQ(grx::win_bidon_bouton, 1234U);
    grx_alloue_image(window);
    EXPECT_EQ(test_trace_memoire(x_window(window)), 0);
    EXPECT_EQ(grx::win_bidon, *record(window).image);
    EXPECT_EQ(test_trace_memoire_bouton(4321), 0); // a mode of its own
    EXPECT_EQ(grx::win_bidon_bouton, 4321U);
    grx_desalloue_image();
    test_trace_memoire(x_window(window));
    EXPECT_EQ(grx::win_bidon, x_window(window));
}

// --- before the library is started --------------------------------------------------------------------------------------

class DrawingBeforeStartUp : public XTest {};

TEST_F(DrawingBeforeStartUp, NothingIsDrawnAndNothingBreaks) {
    ASSERT_EQ(x11_disp, nullptr);
    RandomPrimitives random(5, 100, 100);
    for (const INT number : {0, 1, 5}) {
        for (int kind = 0; kind < Primitive::kinds; ++kind) {
            const Primitive p = random.next(static_cast<Kind>(kind));
            draw(number, p);
            if (has_button_twin(p.kind)) draw_on_button(number, p);
        }
        GRX_TEXTE text{};
        text.nofen = number;
        text.chaine[0] = 'A';
        grx_ecrit_fenetre(text);
        grx_trace_texte_bouton(text);
        grx_trace_texte(text);
        grx_efface_chaine(text);
        grx_efface_zone_graphique(number);
        grx_efface_zone_graphique_bouton(number);
    }
    grx_affecte_gc(attributes(9));
    grx_reinit_gc();
    grx_init_memo_attrib();
    dessine_rect(10, 10, 50, 50);
    GRX_POINT_POLY points[3] = {{1, 1}, {50, 1}, {1, 50}};
    EXPECT_EQ(remplit_tableau_polygone(points, 3, 9), 0);
    EXPECT_EQ(remplit_tableau_triangles(points[0], points[1], points[2], 9), 0);
    INT across = -1, above = -1, below = -1;
    grx_recup_taille_chaine(const_cast<char*>("abc"), &across, &above, &below);
    EXPECT_EQ(across + above + below, 0); // no font yet
    EXPECT_EQ(g_c, nullptr);
}

TEST_F(DrawingBeforeStartUp, BackingOperationsGiveTheirAnswersForNothing) {
    for (const INT number : {0, 1, 5, 100}) {
        EXPECT_EQ(grx_cree_bitmap_backingstore(number), 0);
        EXPECT_EQ(grx_affiche_bitmap_backingstore(number), 1);
        EXPECT_EQ(grx_interdit_backingstore(number, 1), 0);
        EXPECT_EQ(grx_alloue_image(number), 0);
        EXPECT_EQ(grx_alloue_image_bouton(number, 0), 0);
        EXPECT_EQ(grx_affiche_bitmap_backingstore_bouton(number), 0);
        EXPECT_EQ(grx_sauve_fenetre(number), 0);
        EXPECT_EQ(grx_restore_fenetre(number), 0);
        grx_supprime_bitmap_backingstore(number);
        grx_recree_bitmap_backingstore(number);
        grx_memorise_bitmap_backingstore(number);
        grx_cree_bitmap_backingstore_bouton(number, 10, 10, 9, 0);
        grx_detruit_bitmap_backingstore_bouton(number);
        grx_memorise_bitmap_backingstore_bouton(number);
    }
    EXPECT_EQ(grx_desalloue_image(), 0);
    EXPECT_EQ(grx_desalloue_image_bouton(), 0);
    EXPECT_EQ(grx_backingstore_deja_cours(), 0);
}

} // namespace
