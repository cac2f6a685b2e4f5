// The library under a window manager of another family: one that follows the extended hints and frames otherwise.
#include "tests/support/display_test.h"

#include <cstring>

namespace grxtest {
namespace {

class SecondManagerWmTest : public WmTest {
  protected:
    WindowManager::Kind manager_kind() const override { return WindowManager::Kind::openbox; }

    INT open_graphic_window() {
        GRX_FENETRE fenetre;
        grx_init_fenetre(&fenetre);
        fenetre.type = GRX_FEN_GRAPHIQUE;
        fenetre.x = 200;
        fenetre.y = 300;
        fenetre.droite = 320;
        fenetre.haut = 240;
        std::strcpy(fenetre.titre, "Plan");
        EXPECT_EQ(grx_cree_fenetre(&fenetre), 0);
        return fenetre.nofen;
    }

    Widget shell_of(INT nofen) { return grx_recherche_shell(grx_recup_objet_fen(nofen)); }

    void ask_to_close(INT nofen) {
        XEvent request{};
        request.xclient.type = ClientMessage;
        request.xclient.window = XtWindow(shell_of(nofen));
        request.xclient.message_type = XInternAtom(test_display(), "WM_PROTOCOLS", False);
        request.xclient.format = 32;
        request.xclient.data.l[0] = static_cast<long>(XInternAtom(test_display(), "WM_DELETE_WINDOW", False));
        XSendEvent(test_display(), request.xclient.window, False, NoEventMask, &request);
        XSync(test_display(), False);
    }
};

TEST_F(SecondManagerWmTest, OpensMovesResizesIconifiesAndCloses) {
    const INT nofen = open_graphic_window();
    ASSERT_TRUE(events.wait(GRX_EVT_AFFICHAGE)) << events.describe();
    ASSERT_TRUE(wait_for([&] { return frame(shell_of(nofen)) != None; }));

    grx_deplace_fenetre(nofen, 400, 800);
    INT x = 0, y = 0;
    EXPECT_TRUE(wait_for([&] {
        grx_recup_position_fenetre(nofen, &x, &y);
        return x == 400 && y == 800;
    })) << x
        << ' ' << y;

    grx_change_taille_fenetre(nofen, 500, 300);
    const auto resized = events.wait(GRX_EVT_CHGT_TAILLE);
    ASSERT_TRUE(resized) << events.describe();
    EXPECT_EQ(resized->chgt_taille.largeur, 500);
    EXPECT_EQ(resized->chgt_taille.hauteur, 300);

    grx_iconifie_fenetre(nofen);
    ASSERT_TRUE(events.wait(GRX_EVT_ICONIFICATION)) << events.describe();
    grx_desiconifie_fenetre(nofen);
    ASSERT_TRUE(events.wait(GRX_EVT_DESICONIF)) << events.describe();

    ask_to_close(nofen);
    const auto closed = events.wait(GRX_EVT_DESTRUCTION);
    ASSERT_TRUE(closed) << events.describe();
    EXPECT_EQ(closed->destruction.nofen, nofen);
    EXPECT_EQ(grx_recup_objet_fen(nofen), nullptr);
    EXPECT_EQ(open_graphic_window(), nofen); // the process goes on, and the number is free
}

} // namespace
} // namespace grxtest
