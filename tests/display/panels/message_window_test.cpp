// Windows of message dialogs: placed by what the window manager will add to them.
#include "tests/display/panels/message_kit.h"

namespace {

using namespace grxtest;

struct Decoration {
    const char* name;
    INT attrib;
    INT dx, dy;
};
constexpr INT border = 7, title = 20;
constexpr std::array message_decorations{Decoration{"title and border", 0, border, border + title},
    Decoration{"border alone", 1, border - 1, border - 1}, Decoration{"title alone", 2, 0, title},
    Decoration{"none", 1 | 2, 0, 0}, Decoration{"not resizable", 8, border, border + title},
    Decoration{"border alone, not resizable", 1 | 8, border - 1, border - 1},
    Decoration{"no boxes", 4, border, border + title}};

class DialogWindows : public DialogTest {
  protected:
    void SetUp() override {
        DialogTest::SetUp();
        grx_set_tabord(border);
        grx_set_tatitre(title);
        grx_set_tabord_sans_resize(50);
        grx_set_tabord_sans_titre(60);
        grx_set_tabord_sans_decor(70);
    }

    // A dialog of the main window, made but not shown.
    GRX_FENETRE created(INT attrib, INT x = 300, INT y = 400, INT parent = -2) {
        GRX_FENETRE described = grxtest::described(GRX_FEN_ALPHA, attrib, 180, 120);
        described.fen_mere = parent == -2 ? window : parent;
        described.x = x;
        described.y = y;
        EXPECT_EQ(grx_cree_fenetre(&described), 0);
        return described;
    }

    Area place_of(INT nofen) { return server_area(test_display(), XtWindow(shell_of(nofen))); }
};

// KEEP: one pixel less than the border without a title.
TEST_F(DialogWindows, ArePlacedByWhatTheManagerWillAdd) {
    for (const Decoration& decoration : message_decorations) {
        GRX_FENETRE record = created(decoration.attrib);
        GRX_FENETRE expected = record;
        expected.x = 300 - decoration.dx;
        expected.y = grx_recup_hau_ecran() - 400 - 120 - decoration.dy;
        EXPECT_EQ(grx_cree_fenetre_message_alpha(&record), 0);
        EXPECT_EQ(record.x, expected.x) << decoration.name;
        EXPECT_EQ(record.y, expected.y) << decoration.name;
        EXPECT_EQ(std::memcmp(&record, &expected, sizeof record), 0) << "nothing else is written, " << decoration.name;
        EXPECT_EQ(place_of(record.nofen), (Area{record.x, record.y, 180, 120})) << decoration.name;
        grx_detruit_fenetre(record.nofen);
        settle();
    }
}

TEST_F(DialogWindows, WithoutTitleAndBorderSizeAreMovedTheOtherWay) {
    grx_set_tabord(0);
    GRX_FENETRE record = created(1);
    grx_cree_fenetre_message_alpha(&record);
    EXPECT_EQ(record.x, 301);
    EXPECT_EQ(record.y, grx_recup_hau_ecran() - 400 - 120 + 1);
}

TEST_F(DialogWindows, TheirShellKnowsThePlaceAsText) {
    std::array<GRX_FENETRE, 2> records{created(3, 300, 400), created(3, 20, 500)};
    for (GRX_FENETRE& record : records) grx_cree_fenetre_message_alpha(&record);
    EXPECT_EQ(std::string(resource<char*>(shell_of(records[0].nofen), XmNgeometry)),
        "+300+" + std::to_string(grx_recup_hau_ecran() - 520));
    EXPECT_EQ(std::string(resource<char*>(shell_of(records[1].nofen), XmNgeometry)),
        "+20+" + std::to_string(grx_recup_hau_ecran() - 620));
}

TEST_F(DialogWindows, AShellThatIsNotOnTheServerYetIsMadeThere) {
    GRX_FENETRE record = described(GRX_FEN_ALPHA, 3, 180, 120);
    record.x = 250;
    record.y = 450;
    record.nofen = grx_recup_indice_objet_fen_libre();
    const Widget shell = XtVaAppCreateShell("late", "Late", topLevelShellWidgetClass, x11_disp, XmNwidth, 180,
        XmNheight, 120, XmNvisual, x11_vis, XmNcolormap, x11_cmap, XmNdepth, grx_recup_profondeur_ecran(), nullptr);
    const Widget form = XtVaCreateManagedWidget("form", xmFormWidgetClass, shell, nullptr);
    grx_affecte_objet_fen(record.nofen, form);
    EXPECT_EQ(grx_cree_fenetre_message_alpha(&record), 0);
    ASSERT_TRUE(XtIsRealized(shell));
    EXPECT_EQ(server_area(test_display(), XtWindow(shell)), (Area{250, grx_recup_hau_ecran() - 570, 180, 120}));
    EXPECT_TRUE(visible(XtWindow(form)));
    XWindowAttributes attributes{};
    ASSERT_TRUE(XGetWindowAttributes(test_display(), XtWindow(shell), &attributes));
    EXPECT_EQ(attributes.backing_store, WhenMapped);
    grx_affecte_objet_fen(record.nofen, nullptr);
    XtDestroyWidget(shell);
    drain();
}

TEST_F(DialogWindows, LeftOrAboveTheScreenAreAtItsEdge) {
    struct Edge {
        INT attrib, x, y, left, top;
    };
    const INT height = grx_recup_hau_ecran();
    for (const Edge& edge : {Edge{0, border - 1, 400, 0, height - 400 - 120 - border - title},
             Edge{0, border, 400, 0, -1}, Edge{0, border + 1, 400, 1, -1}, Edge{0, -500, 400, 0, -1},
             Edge{3, -1, 400, 0, height - 520}, Edge{0, 300, height - 120 - border - title + 1, 300 - border, 0},
             Edge{0, 300, height - 120 - border - title, 300 - border, 0},
             Edge{0, 300, height - 120 - border - title - 1, 300 - border, 1}, Edge{0, 300, 3000, 300 - border, 0},
             Edge{1, 2, 3000, 0, 0}}) {
        GRX_FENETRE record = created(edge.attrib, edge.x, edge.y);
        grx_cree_fenetre_message_alpha(&record);
        EXPECT_EQ(record.x, edge.left) << edge.x;
        if (edge.top >= 0) {
            EXPECT_EQ(record.y, edge.top) << edge.y;
        }
        EXPECT_EQ(place_of(record.nofen), (Area{record.x, record.y, 180, 120}));
        grx_detruit_fenetre(record.nofen);
        settle();
    }
}

TEST_F(DialogWindows, AreThereWhenTheCallReturns) {
    GRX_FENETRE record = created(GRX_FEN_ATT_VISIBLE);
    grx_cree_fenetre_message_alpha(&record);
    EXPECT_TRUE(visible(x_window(record.nofen)));
    EXPECT_TRUE(XtIsRealized(shell_of(record.nofen)));
}

TEST_F(DialogWindows, TheFirstRedrawIsWaitedFor) {
    GRX_FENETRE record = described(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 180, 120);
    ASSERT_EQ(grx_cree_fenetre(&record), 0);
    grx_cree_fenetre_message_alpha(&record);
    drain();
    for (const GRX_EVENEMENT& e : events.seen())
        EXPECT_FALSE(e.type_evenement == GRX_EVT_AFFICHAGE && e.affichage.nofen == record.nofen) << events.describe();
}

TEST_F(DialogWindows, HaveBackingStoreWhenMapped) {
    for (INT attrib : {0, GRX_FEN_ATT_VISIBLE}) {
        GRX_FENETRE record = created(attrib);
        grx_cree_fenetre_message_alpha(&record);
        drain();
        XWindowAttributes attributes{};
        ASSERT_TRUE(XGetWindowAttributes(test_display(), XtWindow(shell_of(record.nofen)), &attributes));
        EXPECT_EQ(attributes.backing_store, WhenMapped) << attrib;
    }
}

TEST_F(DialogWindows, OnTheScreenAlreadyAreMovedThere) {
    for (INT parent : {window, -1}) {
        GRX_FENETRE record = created(GRX_FEN_ATT_VISIBLE | 3, 500, 600, parent);
        ASSERT_TRUE(wait_visible(widget_of(record.nofen)));
        record.x = 222;
        record.y = 333;
        grx_cree_fenetre_message_alpha(&record);
        EXPECT_EQ(record.x, 222);
        EXPECT_EQ(record.y, grx_recup_hau_ecran() - 333 - 120);
        ASSERT_TRUE(wait_for([&] {
            return place_of(record.nofen) == (Area{record.x, record.y, 180, 120});
        })) << testing::PrintToString(place_of(record.nofen))
            << (parent < 0 ? " top level" : "");
    }
}

// KEEP: the record is rewritten, so that calling twice with it moves the window.
TEST_F(DialogWindows, ASecondCallWithTheRecordMovesThem) {
    GRX_FENETRE record = created(GRX_FEN_ATT_VISIBLE | 3, 300, 400);
    grx_cree_fenetre_message_alpha(&record);
    const INT first = record.y;
    EXPECT_EQ(first, grx_recup_hau_ecran() - 520);
    grx_cree_fenetre_message_alpha(&record);
    EXPECT_EQ(record.y, grx_recup_hau_ecran() - first - 120);
    EXPECT_NE(record.y, first);
    EXPECT_TRUE(wait_for([&] { return place_of(record.nofen).y == record.y; }));
}

TEST_F(DialogWindows, OfUnknownNumbersAreSurvived) {
    for (INT unknown : {-1, 0, 57, 99, 100, INT_MIN, INT_MAX}) {
        GRX_FENETRE record = described(GRX_FEN_ALPHA);
        record.nofen = unknown;
        EXPECT_EQ(grx_cree_fenetre_message_alpha(&record), 0) << unknown;
    }
    drain();
    EXPECT_TRUE(visible(x_window(window)));
}

class DialogWindowsWmTest : public WmTest {};

TEST_F(DialogWindowsWmTest, TheFrameIsWhereTheRecordSays) {
    write_menu("");
    const INT parent = make(GRX_FEN_ALPHA);
    ASSERT_TRUE(wait_visible(widget_of(parent)));
    GRX_FENETRE record = described(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_SANS_BOITES, 180, 120);
    record.fen_mere = parent;
    record.x = 420;
    record.y = 500;
    ASSERT_EQ(grx_cree_fenetre(&record), 0);
    grx_cree_fenetre_message_alpha(&record);
    ASSERT_TRUE(wait_visible(widget_of(record.nofen)));
    ASSERT_TRUE(wait_for([&] {
        const Area area = frame_area(shell_of(record.nofen));
        return area.x == record.x && area.y == record.y;
    })) << testing::PrintToString(frame_area(shell_of(record.nofen)))
        << " for " << record.x << "," << record.y;
}

} // namespace
