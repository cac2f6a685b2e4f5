// Texts, layers, limits, receivers and pictures together: each knows what the others do.
#include "tests/display/drawing/layers_kit.h"

#include "grx_plus_images.h"
#include "grx_plus_recepteur.h"
#include "grx_plus_textes.h"

#include <cstring>

namespace {

using namespace grxtest;

class TextLayers : public LayersTest {
  protected:
    static GRX_TEXTE text(INT window, const char* font = "", INT mode = 0) {
        GRX_TEXTE t;
        grx_init_texte_dessin(&t);
        t.nofen = window;
        t.x = 60;
        t.y = 90;
        t.hauteurlabel = 30;
        std::strcpy(t.chaine, "Mur 12");
        std::strcpy(t.fontlabel, font);
        t.attrib = {0, 9, mode, 0, 0, 0};
        return t;
    }
};

TEST_F(TextLayers, TextsOfALayerLookAsDrawnAndGoWithIt) {
    for (const char* font : {"", GRX_FONTE_TRAIT}) {
        const INT window = plan();
        const Pixels before = screen(window);
        const GRX_TEXTE t = text(window, font);
        ASSERT_EQ(grx_commence_calque(window, 0), 1);
        EXPECT_EQ(grx_trace_texte_dessin(&t), 1);
        EXPECT_TRUE(screen(window) == before) << "shown before the layer is";
        ASSERT_EQ(grx_termine_calque(), 1);
        const Pixels above = screen(window);
        EXPECT_FALSE(above == before);
        ASSERT_EQ(grx_efface_calque(window, 0), 1);
        EXPECT_TRUE(screen(window) == before) << font;
        EXPECT_EQ(grx_trace_texte_dessin(&t), 1);
        EXPECT_TRUE(screen(window) == above) << font;
    }
}

TEST_F(TextLayers, TextsAreHeldToALimit) {
    const INT window = plan();
    const Pixels before = screen(window);
    const GRX_TEXTE t = text(window);
    ASSERT_EQ(grx_limite_trace(window, 70, 70, 40, 12), 1);
    EXPECT_EQ(grx_trace_texte_dessin(&t), 1);
    ASSERT_EQ(grx_libere_limite_trace(), 1);
    const Pixels held = screen(window);
    int inside = 0, outside = 0;
    for (int y = 0; y < held.height; ++y)
        for (int x = 0; x < held.width; ++x) {
            const bool in = x >= 70 && x < 110 && y >= 70 && y < 82;
            (in ? inside : outside) += held.at(x, y) != before.at(x, y);
        }
    EXPECT_GT(inside, 20);
    EXPECT_EQ(outside, 0);
    EXPECT_EQ(grx_trace_texte_dessin(&t), 1); // the limit is off again
    EXPECT_FALSE(screen(window) == held);
}

TEST_F(TextLayers, LayersAreShownOnTheScreenWhileAReceiverTakesTheDrawing) {
    const INT window = plan();
    make_layer(window, 0, random_primitives(7, 20, width, height));
    const Pixels above = screen(window);
    ASSERT_EQ(grx_cache_calque(window, 0), 1);
    static int taken = 0;
    taken = 0;
    GRX_RECEPTEUR r;
    ASSERT_EQ(grx_init_recepteur(&r), 1);
    r.segment = [](void*, INT, const GRX_SEGMENT*) { ++taken; };
    r.polyline = [](void*, INT, const GRX_POLY*) { ++taken; };
    ASSERT_EQ(grx_affecte_recepteur(&r), 1);
    EXPECT_EQ(grx_affiche_calque(window, 0), 1);
    EXPECT_TRUE(screen(window) == above);
    EXPECT_EQ(taken, 0);
    EXPECT_EQ(grx_retire_recepteur(nullptr), 1);
}

TEST_F(TextLayers, PicturesOfAnyFormGoToAReceiverWithTheirTransparency) {
    static std::vector<UNSIGNED_INT> seen;
    seen.clear();
    GRX_RECEPTEUR r;
    ASSERT_EQ(grx_init_recepteur(&r), 1);
    r.image = [](void*, INT, const GRX_IMAGE_RECUE* p) {
        if (p->pixels_argb != nullptr) seen.assign(p->pixels_argb, p->pixels_argb + p->largeur * p->hauteur);
    };
    ASSERT_EQ(grx_affecte_recepteur(&r), 1);
    unsigned char pixels[] = {1, 2, 3, 4, 5, 6, 7, 8};
    GRX_IMAGE image;
    grx_init_image(&image);
    image.largeur = 2;
    image.hauteur = 1;
    image.octets_par_pixel = 4;
    image.pixels = pixels;
    EXPECT_EQ(grx_affiche_image(1, 3, &image, 0, 0), 1);
    EXPECT_EQ(seen, (std::vector<UNSIGNED_INT>{0x04030201, 0x08070605}));
    image.octets_par_pixel = 3;
    EXPECT_EQ(grx_affiche_image_etiree(1, 3, &image, 0, 0, 9, 9), 1);
    EXPECT_EQ(seen, (std::vector<UNSIGNED_INT>{0xFF030201, 0xFF060504}));
    EXPECT_EQ(grx_retire_recepteur(nullptr), 1);
}

} // namespace
