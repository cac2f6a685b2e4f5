// The work area: read from what a manager tells, and respected by new windows and by centring.
#include "tests/display/windows/manners_kit.h"

#include "windows/work_area.h"

#include <climits>

namespace {

using namespace grxtest;

struct Zone {
    INT x = -7, y = -7, width = -7, height = -7, result = 0;
};

Zone zone() {
    Zone read;
    read.result = grx_recup_zone_travail(&read.x, &read.y, &read.width, &read.height);
    return read;
}

void tell(Display* display, const char* name, const std::vector<long>& values) {
    XChangeProperty(display, DefaultRootWindow(display), XInternAtom(display, name, False), XA_CARDINAL, 32,
        PropModeReplace, reinterpret_cast<const unsigned char*>(values.data()), static_cast<int>(values.size()));
    XSync(display, False);
}

class WorkArea : public Creation {};

TEST_F(WorkArea, WithoutAManagerItIsTheScreen) {
    const Zone whole = zone();
    EXPECT_EQ(whole.result, 1);
    EXPECT_EQ(whole.x, 0);
    EXPECT_EQ(whole.y, 0);
    EXPECT_EQ(whole.width, 1280);
    EXPECT_EQ(whole.height, 1024);
    EXPECT_EQ(grx_recup_zone_travail(nullptr, nullptr, nullptr, nullptr), 1);
}

TEST_F(WorkArea, OfTheDesktopInForceWithYUpwards) {
    struct Row {
        std::vector<long> areas;
        std::vector<long> desktop;
        Zone expected;
    };
    const Row rows[] = {
        {{10, 40, 1000, 900}, {}, {10, 84, 1000, 900, 1}},
        {{10, 40, 1000, 900, 0, 0, 1280, 1000}, {1}, {0, 24, 1280, 1000, 1}},
        {{10, 40, 1000, 900, 0, 0, 1280, 1000}, {0}, {10, 84, 1000, 900, 1}},
        {{10, 40, 1000, 900, 0, 0, 1280, 1000}, {2}, {10, 84, 1000, 900, 1}}, // a desktop that has none
        {{10, 40, 1000, 900, 0, 0, 1280, 1000}, {0xFFFFFFFF}, {10, 84, 1000, 900, 1}},
        {{10, 40, 1000, 900, 7}, {}, {10, 84, 1000, 900, 1}},
        {{10, 40, 5000, 5000}, {}, {10, 0, 1270, 984, 1}}, // larger than the screen
        {{10, 40, 0, 0}, {}, {0, 0, 1280, 1024, 1}},
        {{5000, 40, 100, 100}, {}, {0, 0, 1280, 1024, 1}},
        {{10, 40}, {}, {0, 0, 1280, 1024, 1}},
        {{}, {}, {0, 0, 1280, 1024, 1}},
    };
    for (const Row& row : rows) {
        tell(test_display(), "_NET_WORKAREA", row.areas);
        tell(test_display(), "_NET_CURRENT_DESKTOP", row.desktop);
        const Zone read = zone();
        const auto index = &row - rows;
        EXPECT_EQ(read.result, 1) << index;
        EXPECT_EQ(read.x, row.expected.x) << index;
        EXPECT_EQ(read.y, row.expected.y) << index;
        EXPECT_EQ(read.width, row.expected.width) << index;
        EXPECT_EQ(read.height, row.expected.height) << index;
    }
}

TEST_F(WorkArea, ValuesOfAnotherTypeAreNone) {
    const long values[] = {10, 40, 1000, 900};
    Display* display = test_display();
    XChangeProperty(display, DefaultRootWindow(display), XInternAtom(display, "_NET_WORKAREA", False), XA_STRING, 8,
        PropModeReplace, reinterpret_cast<const unsigned char*>(values), sizeof values);
    XSync(display, False);
    EXPECT_EQ(zone().width, 1280);
}

TEST_F(WorkArea, WithoutAnIdentityWindowsStandWhereTheyAreToldTo) {
    tell(test_display(), "_NET_WORKAREA", {0, 200, 1280, 824});
    EXPECT_EQ(area(make(GRX_FEN_ALPHA)), (Area{100, 120, 200, 150}));
}

class WorkAreaKept : public WorkArea {
    void before_start() override {
        WorkArea::before_start();
        const GRX_IDENTITE who = identity("plan");
        ASSERT_EQ(grx_affecte_identite(&who), 1);
        tell(test_display(), "_NET_WORKAREA", {50, 200, 1000, 600});
    }
};

TEST_F(WorkAreaKept, NewWindowsStandInIt) {
    struct Row {
        INT x, top, width, height;
        Area expected;
    };
    for (const Row& row : {Row{100, 300, 200, 150, {100, 300, 200, 150}}, Row{0, 0, 200, 150, {50, 200, 200, 150}},
             Row{1200, 1000, 200, 150, {850, 650, 200, 150}}, Row{100, 300, 2000, 150, {50, 300, 2000, 150}},
             Row{100, 300, 200, 900, {100, 200, 200, 900}}}) {
        GRX_FENETRE window = described(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, row.width, row.height);
        window.x = row.x;
        window.y = 1024 - row.top - row.height;
        const INT n = make(window);
        EXPECT_EQ(area(n), row.expected);
        window.fen_mere = n;
        EXPECT_EQ(area(make(window)), row.expected) << "with a parent";
    }
}

TEST_F(WorkAreaKept, TheFrameIsReckonedWith) {
    grx_set_tatitre(20);
    grx_set_tabord(5);
    GRX_FENETRE window = described(GRX_FEN_ALPHA);
    window.x = 1200;
    window.y = 0;
    EXPECT_EQ(area(make(window)), (Area{1050 - 210, 800 - 180, 200, 150}));
}

TEST_F(WorkAreaKept, NestedWindowsAreNotMoved) {
    const INT top = make(GRX_FEN_ALPHA);
    const INT nested = make(nested_in(top, GRX_FEN_GRAPHIQUE, 0, 0));
    INT x = -1, y = -1;
    grx_recup_position_fenetre_fille(nested, &x, &y);
    EXPECT_EQ(x, 0);
}

TEST_F(WorkAreaKept, MessageWindowsStandInItToo) {
    GRX_FENETRE window = described(GRX_FEN_ALPHA, 0);
    window.fen_mere = make(GRX_FEN_ALPHA);
    const GRX_FENETRE placed = window;
    ASSERT_EQ(grx_cree_fenetre(&window), 0);
    GRX_FENETRE again = placed;
    again.nofen = window.nofen;
    again.x = 1200;
    again.y = 0;
    grx_cree_fenetre_message_alpha(&again);
    grx_affiche_fenetre(window.nofen);
    ASSERT_TRUE(wait_visible(widget_of(window.nofen)));
    EXPECT_EQ(area(window.nofen), (Area{850, 650, 200, 150}));
}

// --- centring -----------------------------------------------------------------------------------------------

TEST_F(WorkAreaKept, CentredOnTheAreaAndOnAWindowShownOrNot) {
    const INT top = make(GRX_FEN_ALPHA); // 100,200 after it was moved into the area
    ASSERT_EQ(area(top), (Area{100, 200, 200, 150}));
    for (INT attrib : {INT{GRX_FEN_ATT_VISIBLE}, INT{0}}) {
        GRX_FENETRE window = described(GRX_FEN_ALPHA, attrib, 120, 90);
        window.fen_mere = top;
        const INT n = make(window);
        EXPECT_EQ(grx_centre_fenetre(n, GRX_AUCUN), 1);
        EXPECT_EQ(area(n), (Area{490, 455, 120, 90}));
        EXPECT_EQ(position_flags(test_display(), n), PPosition);
        EXPECT_EQ(grx_centre_fenetre(n, top), 1);
        grx_affiche_fenetre(n);
        ASSERT_TRUE(wait_visible(widget_of(n)));
        EXPECT_EQ(area(n), (Area{140, 230, 120, 90}));
        EXPECT_EQ(grx_centre_fenetre(n, n), 1) << "on itself it stays";
        EXPECT_EQ(area(n), (Area{140, 230, 120, 90}));
    }
}

TEST_F(WorkAreaKept, CentringStaysInTheArea) {
    const INT top = make(GRX_FEN_ALPHA);
    const INT wide = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 600, 400);
    EXPECT_EQ(grx_centre_fenetre(wide, top), 1);
    EXPECT_EQ(area(wide), (Area{50, 200, 600, 400}));
}

TEST_F(WorkArea, CentringRefusesWhatIsNoWindow) {
    const INT top = make(GRX_FEN_ALPHA);
    const INT nested = make(nested_in(top, GRX_FEN_GRAPHIQUE));
    for (INT n : {0, -2, 99, 100, INT_MAX, INT_MIN}) {
        EXPECT_EQ(grx_centre_fenetre(n, GRX_AUCUN), GRX_ECHEC_NUMERO);
        EXPECT_EQ(grx_centre_fenetre(top, n), GRX_ECHEC_NUMERO);
    }
    EXPECT_EQ(grx_centre_fenetre(GRX_AUCUN, top), GRX_ECHEC_NUMERO);
    EXPECT_EQ(grx_centre_fenetre(nested, top), GRX_ECHEC_GENRE);
    EXPECT_EQ(grx_centre_fenetre(top, nested), GRX_ECHEC_GENRE);
    EXPECT_EQ(area(top), (Area{100, 120, 200, 150}));
}

class NotStartedOn24 : public XTest {};

TEST_F(NotStartedOn24, NothingIsThere) {
    const Zone read = zone();
    EXPECT_EQ(read.result, GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(read.x, 0);
    EXPECT_EQ(read.y, 0);
    EXPECT_EQ(read.width, 0);
    EXPECT_EQ(read.height, 0);
    const UNSIGNED_INT pixel = 0;
    EXPECT_EQ(grx_centre_fenetre(1, GRX_AUCUN), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_affecte_genre_fenetre(1, GRX_GENRE_NORMALE), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_rattache_fenetre(1, 2), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_marque_place_fenetre(1, GRX_PLACE_LIBRE), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_ajoute_icone_fenetre(1, 1, 1, &pixel), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_supprime_icones_fenetre(1), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_supprime_icones_fenetre(GRX_AUCUN), 1);
}

} // namespace
