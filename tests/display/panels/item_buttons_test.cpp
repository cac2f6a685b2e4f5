// What is remembered of each panel item: its buttons, which are changed, measured and removed through it.
#include "tests/display/panels/item_kit.h"
#include "tests/support/sanitized.h"

namespace {

using namespace grxtest;

// --- changes -----------------------------------------------------------------------------------------------------------------------------

TEST_F(Items, TheLabelIsTheFirstThatIsNotValid) {
    const auto small = build(20, "Label"); // button, label
    EXPECT_EQ(grx_change_titre_item(1, last_item(), writable("New")), 0);
    EXPECT_EQ(label_of(control(small[1].first)), "New");
    EXPECT_NE(label_of(control(small[0].first)), "New");
    const auto field = build(10, "Label", [](GRX_MSG& m) { m.nb_cara = 5; });
    EXPECT_EQ(grx_change_titre_item(1, last_item(), writable("New")), 0);
    EXPECT_EQ(label_of(control(field[0].first)), "New");
    EXPECT_EQ(text_of(field[1].first), "");
    const auto button = build(60, "Only");
    EXPECT_EQ(grx_change_titre_item(1, last_item(), writable("New")), 0);
    EXPECT_EQ(label_of(control(button[0].first)), "New") << "all are valid: the first";
}

TEST_F(Items, TheFirstOfSeveralLabelsAndTheFirstOfSeveralValids) {
    std::array<INT, 4> n{};
    for (std::size_t i = 0; i < n.size(); ++i) n[i] = placed(control_of(GRX_BOU_LABEL, 0, window, "old"));
    grx_memorise_bouton_item(1, 0, 1, n[0]);
    grx_memorise_bouton_item(1, 0, 0, n[1]);
    grx_memorise_bouton_item(1, 0, 0, n[2]);
    grx_memorise_bouton_item(1, 1, 1, n[2]);
    grx_memorise_bouton_item(1, 1, 1, n[3]);
    grx_change_titre_item(1, 0, writable("first label"));
    grx_change_champ_label(1, 1, writable("first valid"));
    EXPECT_EQ(label_of(control(n[0])), "old");
    EXPECT_EQ(label_of(control(n[1])), "first label");
    EXPECT_EQ(label_of(control(n[2])), "first valid");
    EXPECT_EQ(label_of(control(n[3])), "old");
}

TEST_F(Items, ChangesOfALabel) {
    const std::string icon = plain_icon("pen.bmp", 4, 14, 9);
    const auto made = build(20, "Label");
    const INT button = made[0].first, label = made[1].first;
    EXPECT_EQ(grx_change_champ_label(1, 0, writable("Text")), 0);
    EXPECT_EQ(label_of(control(label)), "Text");
    EXPECT_EQ(grx_change_couleur_item(1, 0, 4), 0);
    EXPECT_EQ(resource<Pixel>(control(label), XmNbackground), pixel_of(4));
    EXPECT_NE(resource<Pixel>(control(button), XmNbackground), pixel_of(4));
    EXPECT_EQ(grx_change_icone_item(1, 0, writable(icon.c_str())), 0);
    EXPECT_EQ(resource<unsigned char>(control(label), XmNlabelType), XmPIXMAP);
    EXPECT_EQ(pixmap_extent(resource<Pixmap>(control(label), XmNlabelPixmap)), (Extent{14, 9}));
    EXPECT_NE(resource<unsigned char>(control(button), XmNlabelType), XmPIXMAP);
}

TEST_F(Items, TheStateOfAButtonWithoutLabel) {
    const auto made = build(60, "Only");
    EXPECT_EQ(grx_change_etat_fonction(1, 0, 1), 0);
    EXPECT_EQ(grx_bouton_est_il_enfonce(made[0].first), 1);
    EXPECT_EQ(grx_change_etat_fonction(1, 0, 0), 0);
    EXPECT_EQ(grx_bouton_est_il_enfonce(made[0].first), 0);
    EXPECT_EQ(resource<unsigned char>(control(made[0].first), XmNshadowType), XmSHADOW_OUT);
    EXPECT_EQ(grx_change_etat_fonction(1, 0, -5), 0);
    EXPECT_EQ(grx_bouton_est_il_enfonce(made[0].first), 1);
}

TEST_F(Items, TheStateActsOnTheLabelWhereThereIsOne) {
    const auto made = build(20, "Label");
    grx_change_etat_fonction(1, 0, 1);
    EXPECT_EQ(grx_bouton_est_il_enfonce(made[0].first), 0);
}

TEST_F(Items, TheDispatcherOfChanges) {
    const std::string icon = plain_icon("pen.bmp", 4, 14, 9);
    const auto made = build(60, "Only");
    const INT n = made[0].first;
    EXPECT_EQ(grx_change_attribut_item(3, 1, 0, 0, writable("Text")), 0);
    EXPECT_EQ(label_of(control(n)), "Text");
    EXPECT_EQ(grx_change_attribut_item(2, 1, 0, 6, nullptr), 0);
    EXPECT_EQ(resource<Pixel>(control(n), XmNbackground), pixel_of(6));
    EXPECT_EQ(grx_change_attribut_item(4, 1, 0, 1, nullptr), 0);
    EXPECT_EQ(grx_bouton_est_il_enfonce(n), 1);
    for (INT other : {0, 5, -1, INT_MAX}) EXPECT_EQ(grx_change_attribut_item(other, 1, 0, 0, writable("Other")), 0);
    EXPECT_EQ(label_of(control(n)), "Text");
    EXPECT_EQ(grx_bouton_est_il_enfonce(n), 1);
    EXPECT_EQ(grx_change_attribut_item(1, 1, 0, 0, writable(icon.c_str())), 0);
    EXPECT_EQ(resource<unsigned char>(control(n), XmNlabelType), XmPIXMAP);
}

TEST_F(Items, ChangesOfAnItemWithoutButtonsAndOfUnknownItems) {
    struct Place {
        INT panel, item;
    };
    const auto made = build(60, "Only");
    for (const Place& at : {Place{1, 5}, Place{2, 0}, Place{3, 0}, Place{-1, 0}, Place{1, -1}, Place{99, 0},
             Place{1, 45}, Place{INT_MAX, INT_MIN}}) {
        EXPECT_EQ(grx_change_titre_item(at.panel, at.item, writable("x")), 0);
        EXPECT_EQ(grx_change_icone_item(at.panel, at.item, writable("x")), 0);
        EXPECT_EQ(grx_change_couleur_item(at.panel, at.item, 3), 0);
        EXPECT_EQ(grx_change_champ_label(at.panel, at.item, writable("x")), 0);
        EXPECT_EQ(grx_change_etat_fonction(at.panel, at.item, 1), 0);
    }
    EXPECT_EQ(label_of(control(made[0].first)), "Only");
    EXPECT_EQ(grx_change_titre_item(1, 0, nullptr), 0);
    EXPECT_EQ(grx_change_icone_item(1, 0, nullptr), 0);
    EXPECT_EQ(grx_change_champ_label(1, 0, nullptr), 0);
    EXPECT_EQ(grx_bouton_est_il_enfonce(made[0].first), 0);
}

// --- what a control is ---------------------------------------------------------------------------------------------------------------------

TEST_F(Items, TheKindOfEachControl) {
    struct Kind {
        INT type, bits, choice, value;
    };
    for (const Kind& kind : {Kind{1, 0, 2, 1}, Kind{2, 0, 0, 1}, Kind{4, 0, 2, 1}, Kind{4, 0x2000, 2, 1},
             Kind{8, 0x100, 0, 1}, Kind{16, 0, 0, 1}, Kind{32, 0, 0, 0}, Kind{32, 0x100, 0, 1}, Kind{64, 0, 0, 2},
             Kind{128, 0, 0, 1}, Kind{512, 0, 2, 1}, Kind{768, 0, 0, 1}, Kind{1024, 0, 0, 1}, Kind{4096, 0, 2, 1}}) {
        const INT n = placed(control_of(kind.type, kind.bits, window));
        EXPECT_EQ(grx_recup_type_bstate(n), kind.choice) << kind.type;
        EXPECT_EQ(grx_recup_type_istate(n), kind.value) << kind.type;
        grx_detruit_bouton(n);
        drain();
    }
    for (INT n : no_controls) {
        EXPECT_EQ(grx_recup_type_bstate(n), 0) << n;
        EXPECT_EQ(grx_recup_type_istate(n), 1) << n;
    }
}

TEST_F(Items, TheKindOfControlsInARowOrColumn) {
    const auto group = build(21, "Units-mm-cm");
    EXPECT_EQ(grx_recup_type_bstate(group[1].first), 1);
    EXPECT_EQ(grx_recup_type_istate(group[1].first), 1);
    Widget column = XtVaCreateManagedWidget("column", xmRowColumnWidgetClass, widget_of(window), nullptr);
    for (INT type : {GRX_BOU_LABEL, GRX_BOU_BASCULE, GRX_BOU_FLECHE}) {
        GRX_BOUTON description = control_of(type, 0, window);
        description.ref_fen_mere = column;
        EXPECT_EQ(grx_recup_type_bstate(make(description)), 1) << type;
    }
    GRX_BOUTON description = control_of(GRX_BOU_DESSINE, 0, window);
    description.ref_fen_mere = column;
    EXPECT_EQ(grx_recup_type_bstate(make(description)), 2) << "a push button wherever it is";
}

// --- place and size --------------------------------------------------------------------------------------------------------------------------

struct Place {
    INT x = -7, y = -7, width = -7, height = -7;
    bool operator==(const Place&) const = default;
};
void PrintTo(const Place& p, std::ostream* out) {
    *out << p.width << " x " << p.height << " at " << p.x << "," << p.y;
}
INT place_of(INT panel, INT item, INT type, Place& place) {
    return grx_recup_position_taille_item(panel, item, type, &place.x, &place.y, &place.width, &place.height);
}

TEST_F(Items, PlaceAndSizeOfASingleButton) {
    build(60, "Valider");
    Place place;
    EXPECT_EQ(place_of(1, 0, 60, place), 1);
    EXPECT_EQ(place, (Place{201, 61, 8 * W, H}));
}

TEST_F(Items, TheWidthsOfAllButtonsAreAdded) {
    std::array<INT, 3> n{};
    for (std::size_t i = 0; i < 3; ++i) {
        GRX_BOUTON description = control_of(GRX_BOU_SIMPLE, 0, window);
        description.x = 40 + 100 * static_cast<INT>(i);
        description.y = 50 + static_cast<INT>(i);
        description.largeur = 30 + static_cast<INT>(i);
        description.hauteur = 20 + static_cast<INT>(i);
        n[i] = placed(description);
        grx_memorise_bouton_item(1, 0, i == 1, n[i]);
    }
    Place place;
    EXPECT_EQ(place_of(1, 0, 10, place), 1);
    EXPECT_EQ(place, (Place{40, 50, 93, 20}));
}

TEST_F(Items, PlaceAndSizeOfACompositeAreThoseOfItsForm) {
    for (INT type : {21, 23, 31}) {
        const auto made = build(type, "Units-mm-cm-m", [](GRX_MSG& m) { m.x = 220; });
        drain();
        Place place;
        EXPECT_EQ(place_of(1, last_item(), type, place), 1) << type;
        Widget form = control(made[1].first);
        while (form && !XmIsForm(form)) form = XtParent(form);
        const Rect expected = rect_of(form);
        EXPECT_EQ(place, (Place{expected.x, expected.y, expected.width, expected.height})) << type;
        EXPECT_NE(form, widget_of(window)) << type << ": a form of its own";
        EXPECT_EQ(place.x, 221) << type;
        EXPECT_EQ(place.y, 61) << type;
        EXPECT_GT(place.width, 2 * W) << type;
        EXPECT_LT(place.width, 400) << type;
    }
}

TEST_F(Items, PlaceAndSizeWithoutButtons) {
    Place place;
    EXPECT_EQ(place_of(1, 7, 10, place), 1);
    EXPECT_EQ(place, (Place{-1, -1, 0, 0}));
    for (INT type : {21, 23, 31}) EXPECT_EQ(place_of(1, 7, type, place), 0) << type;
    build(10, "Alone"); // one button: there is no second
    EXPECT_EQ(place_of(1, 0, 21, place), 0);
    build(21, "Alone");
    EXPECT_EQ(place_of(1, last_item(), 21, place), 0);
}

TEST_F(Items, PlaceAndSizeOfUnknownItems) {
    struct At {
        INT panel, item;
    };
    for (const At& at : {At{-1, 0}, At{panel_count, 0}, At{1, -1}, At{1, items_of_a_panel}, At{panel_without_items, 0}})
        for (INT type : {10, 20, 21, 31}) {
            INT x = 5, y = 6, width = 7, height = 8;
            EXPECT_EQ(grx_recup_position_taille_item(at.panel, at.item, type, &x, &y, &width, &height), 0);
            EXPECT_EQ((Rect{x, y, width, height}), (Rect{5, 6, 7, 8}));
        }
}

TEST_F(Items, PlaceAndSizeOfDestroyedButtons) {
    const auto made = build(60, "Valider");
    grx_detruit_bouton(made[0].first);
    Place place;
    EXPECT_EQ(place_of(1, 0, 60, place), 0);
    const auto group = build(21, "Units-mm-cm");
    grx_detruit_bouton(group[1].first);
    EXPECT_EQ(place_of(1, last_item(), 21, place), 0);
}

TEST_F(Items, AButtonOutsideAnyFormHasNoCompositePlace) {
    Widget shell = XtVaCreatePopupShell("shell", topLevelShellWidgetClass, widget_of(window), nullptr);
    Widget board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell, nullptr);
    ASSERT_NE(board, nullptr);
    GRX_BOUTON description = control_of(GRX_BOU_LABEL, 0, window);
    description.ref_fen_mere = board;
    const INT first = make(description), second = make(description);
    grx_memorise_bouton_item(1, 0, 0, first);
    grx_memorise_bouton_item(1, 0, 1, second);
    Place place;
    Widget up = board;
    while (up && !XmIsForm(up)) up = XtParent(up);
    EXPECT_EQ(place_of(1, 0, 21, place), up ? 1 : 0);
}

// --- removing --------------------------------------------------------------------------------------------------------------------------------

TEST_F(Items, RemovedItemsKeepTheirWidgetsUntilTheWindowGoes) {
    const auto made = build(20, "Press");
    Widget button = control(made[0].first);
    EXPECT_EQ(grx_supprime_items(1), 0);
    EXPECT_EQ(control(made[0].first), nullptr);
    EXPECT_EQ(control(made[1].first), nullptr);
    EXPECT_TRUE(visible(XtWindow(button)));
    EXPECT_TRUE(recorded(1, 0).empty());
    EXPECT_EQ(item_record(1, 0).objet_defaut, nullptr);
    grx_detruit_fenetre(window);
    drain();
}

TEST_F(Items, AClickOnARemovedItemPostsNothingOfIt) {
    const auto made = build(60, "Press");
    ASSERT_TRUE(wait_visible(control(made[0].first)));
    Widget button = control(made[0].first);
    grx_supprime_items(1);
    settle();
    pointer().click_in(button, 5, 5);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 0) << events.describe();
}

// --- life of a whole panel ------------------------------------------------------------------------------------------------------------------

class PanelLife : public PanelsTest {
  protected:
    void before_start() override {
        PanelsTest::before_start();
        plain = std::make_unique<HostList>(5, numbered_entries(20), std::vector<INT>{3});
    }

    // Forty items of every kind in a window of their own.
    INT open() {
        const INT n = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 800, 700);
        constexpr std::array<INT, 10> kinds{10, 20, 21, 31, 32, 22, 70, 81, 90, 100};
        for (INT item = 0; item < 40; ++item) {
            GRX_MSG message = item_of(kinds[static_cast<std::size_t>(item) % 10], "Title-one-two-three", item);
            message.fen_mere = n;
            message.clef = message.type == 70 ? 5 : item;
            message.nb_cara = 5;
            message.x = 100 + item % 4 * 150;
            message.y = item / 4 * 60;
            message.largeur = message.hauteur = 5;
            if (message.type == 22) std::strcpy(message.titre, "@pen.bmp");
            grx_cree_item(&message);
        }
        return n;
    }

    void close(INT n) {
        grx_supprime_items(1);
        grx_supprime_item_liste(1, 5);
        grx_detruit_fenetre(n);
        drain();
    }

    std::unique_ptr<HostList> plain;
};

constexpr int rounds = sanitized ? 60 : 1000; // each takes several times as long there

TEST_F(PanelLife, OpeningAndClosingAThousandTimesLeavesNothing) {
    plain_icon("pen.bmp", 4);
    grx_init_repertoire_icones(writable(home().text().c_str()));
    for (int i = 0; i < 2; ++i) close(open()); // what the toolkit keeps from the first time
    settle();
    const int numbers = taken_numbers();
    const std::size_t blocks = heap().blocks(), bytes = heap().bytes();
    const auto resources = server_resources(test_display(), x_window(window));
    ASSERT_FALSE(resources.empty());
    for (int i = 0; i < rounds; ++i) grx_detruit_fenetre(make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 800, 700));
    settle();
    auto of_windows = server_resources(test_display(), x_window(window)); // what empty windows cost
    for (auto& [kind, count] : of_windows) count -= resources.at(kind);
    const auto start = server_resources(test_display(), x_window(window));
    for (int i = 0; i < rounds; ++i) {
        const INT n = open();
        if (i == 0) {
            ASSERT_TRUE(wait_visible(widget_of(n)));
            EXPECT_GT(taken_numbers(), numbers + 50);
        }
        close(n);
    }
    settle();
    EXPECT_EQ(taken_numbers(), numbers);
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(heap().bytes(), bytes);
    auto after = server_resources(test_display(), x_window(window));
    for (const auto& [kind, count] : start) EXPECT_LE(after[kind], count + of_windows[kind]) << kind;
    for (const char* kind : {"WINDOW", "PIXMAP", "CURSOR"}) EXPECT_EQ(of_windows[kind], 0U) << kind;
}

TEST_F(PanelLife, EachFailingAllocationLeavesThePanelUsable) {
    const int numbers = taken_numbers();
    const int failures = fail_each_allocation(
        [&] {
            const INT n = open();
            heap().fail_never();
            close(n);
        },
        250);
    EXPECT_GT(failures, 40);
    heap().fail_never();
    EXPECT_EQ(taken_numbers(), numbers);
    const INT n = open();
    EXPECT_TRUE(wait_visible(widget_of(n)));
    EXPECT_EQ(flags(1, 0), (std::vector<int>{0, 1}));
    close(n);
}

TEST_F(PanelLife, AFullButtonBaseLeavesItemsOut) {
    std::vector<INT> fillers;
    for (;;) {
        GRX_BOUTON description = control_of(GRX_BOU_SEPARATEUR, 0, window);
        if (taken_numbers() >= 1000) break;
        fillers.push_back(make(description));
    }
    for (INT type : every_kind) {
        GRX_MSG message = item_of(type, "Title-one-two", 0);
        message.nb_cara = 5;
        EXPECT_EQ(grx_cree_item(&message), 0) << type;
        EXPECT_TRUE(recorded(1, 0).empty()) << type;
        EXPECT_EQ(message.prebou, message.type / 10 == 7 ? 0 : message.prebou);
    }
    EXPECT_EQ(taken_numbers(), 1000);
}

} // namespace
