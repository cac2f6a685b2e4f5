// The selection panel: what it is made of, where it opens, and that it remembers where the user left it.
#include "tests/display/panels/panel_kit.h"

#include <algorithm>
#include <memory>
#include <set>

namespace {

using namespace grxtest;

constexpr INT selection = GRX_PANNEAU_SELECTION;
constexpr INT list_key = 7;

struct Geometry {
    INT x = -7, y = -7, width = -7, height = -7;
    bool operator==(const Geometry&) const = default;
};
void PrintTo(const Geometry& g, std::ostream* out) {
    *out << g.width << " x " << g.height << " at " << g.x << "," << g.y;
}
Geometry saved() {
    Geometry g;
    EXPECT_EQ(grx_recup_position_taille_panel_selection(&g.x, &g.y, &g.width, &g.height), 0);
    return g;
}

// The application's panel 8, its list and a main window, on any of the fixtures of displays.
template <class Base>
class Selection : public Base {
  protected:
    void SetUp() override {
        Base::SetUp();
        if (this->HasFatalFailure()) return;
        Tab_pan = nullptr;
        ASSERT_EQ(grx_alloue_base_items_panels(panel_count, panels.table()), 0);
        PANEL& panel = panels[selection];
        panel.nb_items = 8;
        panel.tx = 420;
        panel.ty = 300;
        std::strcpy(panel.titre, "Selection");
        panel.tab_items[0].type = 70;
        panel.tab_items[2].message = writable("Name");
        panel.tab_items[3].message = writable("Type");
        main_window = make(GRX_FEN_BOUTONS, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE, 300, 200);
        ASSERT_GT(main_window, 0);
        ASSERT_TRUE(this->wait_visible(widget_of(main_window)));
        grx_affecte_nofen_principale(main_window);
        W = grx_recup_lar_carac_alpha();
        H = grx_recup_hau_carac_alpha();
        settle();
    }

    void settle() {
        this->drain();
        this->events.clear();
    }

    INT open() {
        EXPECT_EQ(grx_affiche_panel_selection(), 0);
        const INT n = panels[selection].nofen;
        EXPECT_GT(n, 0);
        EXPECT_TRUE(this->wait_visible(widget_of(n)));
        settle();
        return n;
    }

    // As an application does it.
    void close(INT n) {
        grx_supprime_items(selection);
        grx_supprime_item_liste(selection, list_key);
        grx_detruit_fenetre(n);
        settle();
    }

    Panels panels;
    HostList host{list_key, numbered_entries(30), {2}};
    INT main_window = -1;
    INT W = 0, H = 0;
};

class SelectionPanel : public Selection<ControlsTest> {};

// --- saved values ---------------------------------------------------------------------------------------------------------------

TEST(SelectionGeometry, IsNotSetAtFirstAndReadsBack) {
    EXPECT_EQ(saved(), (Geometry{-1, -1, -1, -1}));
    for (const Geometry& g : {Geometry{1, 2, 3, 4}, Geometry{-1, -1, -1, -1}, Geometry{INT_MIN, INT_MAX, 0, -5}}) {
        EXPECT_EQ(grx_affecte_position_taille_panel_selection(g.x, g.y, g.width, g.height), 0);
        EXPECT_EQ(saved(), g);
    }
    grx_affecte_position_taille_panel_selection(5, 6, 7, 8);
    INT one = -7;
    EXPECT_EQ(grx_recup_position_taille_panel_selection(nullptr, nullptr, nullptr, nullptr), 0);
    grx_recup_position_taille_panel_selection(nullptr, &one, nullptr, nullptr);
    EXPECT_EQ(one, 6);
}

// --- the window -------------------------------------------------------------------------------------------------------------------

TEST_F(SelectionPanel, OpensAWindowOfItsOwn) {
    const INT n = open();
    EXPECT_NE(n, main_window);
    EXPECT_EQ(record_of(n).type, 4);
    EXPECT_EQ(panels[selection].type, 2);
    constexpr int without_boxes = 1 + 16 + 32 + 64; // all but the window menu and the boxes
    EXPECT_EQ(resource<int>(shell_of(n), XmNmwmDecorations), without_boxes);
    char title[200] = "";
    grx_recup_titre_fenetre(n, title);
    EXPECT_STREQ(title, "Selection");
    EXPECT_EQ(resource<Widget>(shell_of(n), XmNtransientFor) != nullptr
                  || XtParent(shell_of(n)) == shell_of(main_window) || XtParent(shell_of(n)) == widget_of(main_window),
        true)
        << "its mother is the main window";
    EXPECT_EQ(extent_of(widget_of(n)), (Extent{420, 300}));
}

TEST_F(SelectionPanel, IsCentredAndThePlaceIsSaved) {
    grx_set_pos_appli_x(40);
    grx_set_pos_appli_y(30);
    ASSERT_EQ(saved(), (Geometry{-1, -1, -1, -1}));
    const INT n = open();
    const INT x = 40 + (grx_recup_lar_ecran() - 420) / 2, y = 30 + (grx_recup_hau_ecran() - 300) / 2;
    EXPECT_EQ(saved().x, x);
    EXPECT_EQ(saved().y, y);
    const Area area = server_area(test_display(), XtWindow(shell_of(n)));
    EXPECT_EQ(area.x, x);
    EXPECT_EQ(area.y + area.height, grx_recup_hau_ecran() - y) << "y upwards";
}

TEST_F(SelectionPanel, HalvesAreRoundedTowardZero) {
    PANEL& panel = panels[selection];
    for (INT extra : {1, 2, 3}) {
        grx_affecte_position_taille_panel_selection(-1, -1, -1, -1);
        panel.tx = grx_recup_lar_ecran() + extra;
        panel.ty = grx_recup_hau_ecran() + extra;
        const INT n = open();
        close(n);
        if (extra == 1) EXPECT_EQ(std::pair(saved().x, saved().y), std::pair(0, 0));
        if (extra == 3) EXPECT_EQ(std::pair(saved().x, saved().y), std::pair(-1, -1));
    }
}

TEST_F(SelectionPanel, TwoOpeningsInARowAreAtTheSamePlace) {
    const Area first = server_area(test_display(), XtWindow(shell_of(open())));
    close(panels[selection].nofen);
    const Geometry between = saved();
    const INT n = open();
    EXPECT_EQ(server_area(test_display(), XtWindow(shell_of(n))), first);
    EXPECT_EQ(saved(), between);
}

TEST_F(SelectionPanel, ASavedPlaceAndSizeAreUsed) {
    grx_affecte_position_taille_panel_selection(150, 260, 500, 400);
    const INT n = open();
    EXPECT_EQ(
        server_area(test_display(), XtWindow(shell_of(n))), (Area{150, grx_recup_hau_ecran() - 260 - 400, 500, 400}));
    grx_affecte_position_taille_panel_selection(-1, -1, -1, -1);
    close(n);
    grx_affecte_position_taille_panel_selection(-1, -1, -1, -1);
    const INT again = open();
    EXPECT_EQ(extent_of(widget_of(again)), (Extent{420, 300}));
    EXPECT_EQ(saved().x, (grx_recup_lar_ecran() - 420) / 2);
}

TEST_F(SelectionPanel, AHalfSetPairIsNotSet) {
    struct Case {
        Geometry given;
        Extent size;
        bool centred;
    };
    for (const Case& c : {Case{{150, 260, 500, -1}, {420, 300}, false}, Case{{150, 260, -1, 400}, {420, 300}, false},
             Case{{150, -1, 500, 400}, {500, 400}, true}, Case{{-1, 260, 500, 400}, {500, 400}, true}}) {
        grx_affecte_position_taille_panel_selection(c.given.x, c.given.y, c.given.width, c.given.height);
        const INT n = open();
        const Area area = server_area(test_display(), XtWindow(shell_of(n)));
        EXPECT_EQ((Extent{area.width, area.height}), c.size);
        EXPECT_EQ(area.x, c.centred ? (grx_recup_lar_ecran() - c.size.width) / 2 : 150);
        close(n);
    }
}

TEST_F(SelectionPanel, TheArgumentsChangeNothing) {
    EXPECT_EQ(grx_affiche_panel_selection_g(1, 2, 3), 0);
    const Geometry first = saved();
    const Extent size = extent_of(widget_of(panels[selection].nofen));
    close(panels[selection].nofen);
    EXPECT_EQ(grx_affiche_panel_selection_g(INT_MIN, INT_MAX, 0), 0);
    EXPECT_EQ(saved(), first);
    EXPECT_EQ(extent_of(widget_of(panels[selection].nofen)), size);
}

// --- its list ---------------------------------------------------------------------------------------------------------------------------

TEST_F(SelectionPanel, TheListIsKeptOffTheEdges) {
    const INT n = open();
    Widget list = grx_recup_objet_item_liste(selection, list_key);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(Tab_liste[slot_of(selection, list_key)].ietat, GRX_CLEF_LISTE_SELECT);
    EXPECT_EQ(entries_in(list), numbered_entries(30));
    EXPECT_EQ(selected_in(list), std::vector<int>{2});
    const Extent form = extent_of(widget_of(n));
    EXPECT_EQ(rect_of(XtParent(list)), (Rect{10, 4 * H, form.width - 10 - 20 * W, form.height - 4 * H - 2 * H}));
}

TEST_F(SelectionPanel, TheListFollowsTheWindow) {
    const INT n = open();
    Widget list = grx_recup_objet_item_liste(selection, list_key);
    for (const Extent& size : {Extent{600, 500}, Extent{380, 320}}) {
        grx_change_taille_fenetre(n, size.width, size.height);
        EXPECT_TRUE(wait_for([&] {
            return rect_of(XtParent(list)) == Rect{10, 4 * H, size.width - 10 - 20 * W, size.height - 6 * H};
        })) << testing::PrintToString(rect_of(XtParent(list)));
    }
}

TEST_F(SelectionPanel, TheModeIsTheUnitsOfTheFirstItem) {
    struct Kind {
        uchar type;
        unsigned char policy;
    };
    for (const Kind& kind : {Kind{70, XmSINGLE_SELECT}, Kind{71, XmMULTIPLE_SELECT}, Kind{1, XmMULTIPLE_SELECT},
             Kind{251, XmMULTIPLE_SELECT}, Kind{250, XmSINGLE_SELECT}}) {
        panels[selection].tab_items[0].type = kind.type;
        const INT n = open();
        EXPECT_EQ(
            resource<unsigned char>(grx_recup_objet_item_liste(selection, list_key), XmNselectionPolicy), kind.policy)
            << int{kind.type};
        close(n);
    }
}

TEST_F(SelectionPanel, ChoosingAnEntryPosts) {
    open();
    Widget list = grx_recup_objet_item_liste(selection, list_key);
    Position x = 0, y = 0;
    Dimension width = 0, height = 0;
    ASSERT_TRUE(XmListPosToBounds(list, 1, &x, &y, &width, &height));
    pointer().click_in(list, x + 5, y + height / 2);
    const auto event = events.wait(GRX_EVT_ELEMENT_CLIQUE);
    ASSERT_TRUE(event) << events.describe();
    EXPECT_EQ(event->element_clique.nobou, 0);
    EXPECT_EQ(event->element_clique.no_fo, slot_of(selection, list_key));
}

// --- its buttons ------------------------------------------------------------------------------------------------------------------------

TEST_F(SelectionPanel, TheItemsAreRecordedInOrderWithTheirFlags) {
    open();
    EXPECT_EQ(flags(selection, 0), std::vector<int>());
    EXPECT_EQ(flags(selection, 1), std::vector<int>{1});
    EXPECT_EQ(flags(selection, 2), (std::vector<int>{0, 1}));
    EXPECT_EQ(flags(selection, 3), (std::vector<int>{0, 1}));
    for (INT item : {4, 5, 6}) EXPECT_EQ(flags(selection, item), std::vector<int>{1}) << item;
    EXPECT_EQ(flags(selection, 7), std::vector<int>());
    std::vector<INT> order;
    for (INT item = 1; item <= 6; ++item)
        for (const Recorded& button : recorded(selection, item)) order.push_back(button.first);
    EXPECT_TRUE(std::ranges::is_sorted(order)) << "made in this order";
    EXPECT_EQ(std::set<INT>(order.begin(), order.end()).size(), 8U);
    for (INT n : order) {
        EXPECT_TRUE(on_screen(n)) << n;
        EXPECT_EQ(resource<Boolean>(control(n), XmNsensitive), True) << n;
    }
    for (INT item : {2, 3}) {
        EXPECT_EQ(button_record(button_of(selection, item, 0)).type, GRX_BOU_LABEL);
        EXPECT_EQ(button_record(button_of(selection, item, 1)).type, GRX_BOU_TEXTE);
    }
    EXPECT_EQ(label_of(control(button_of(selection, 2, 0))), "Name");
    EXPECT_EQ(label_of(control(button_of(selection, 3, 0))), "Type");
    for (INT item : {1, 4, 5, 6}) EXPECT_EQ(grx_recup_type_bstate(button_of(selection, item, 0)), 2) << item;
}

TEST_F(SelectionPanel, ALabelWithoutMessageIsThereAllTheSame) {
    panels[selection].tab_items[2].message = nullptr;
    open();
    EXPECT_EQ(flags(selection, 2), (std::vector<int>{0, 1}));
    EXPECT_EQ(label_of(control(button_of(selection, 3, 0))), "Type");
}

TEST_F(SelectionPanel, NoControlCoversAnother) {
    for (const Extent& size : {Extent{-1, -1}, Extent{700, 600}}) {
        grx_affecte_position_taille_panel_selection(-1, -1, size.width, size.height);
        const INT n = open();
        drain();
        std::vector<std::pair<std::string, Rect>> places{
            {"list", rect_of(XtParent(grx_recup_objet_item_liste(selection, list_key)))}};
        for (INT item = 1; item <= 6; ++item)
            for (std::size_t i = 0; i < recorded(selection, item).size(); ++i)
                places.emplace_back(
                    "item " + std::to_string(item) + "." + std::to_string(i), rect_of(button_of(selection, item, i)));
        const Extent form = extent_of(widget_of(n));
        for (std::size_t i = 0; i < places.size(); ++i) {
            const Rect& a = places[i].second;
            EXPECT_GE(a.x, 0) << places[i].first;
            EXPECT_GE(a.y, 0) << places[i].first;
            EXPECT_LE(a.x + a.width, form.width) << places[i].first;
            EXPECT_LE(a.y + a.height, form.height) << places[i].first;
            for (std::size_t k = 0; k < i; ++k) {
                const Rect& b = places[k].second;
                EXPECT_TRUE(
                    a.x >= b.x + b.width || b.x >= a.x + a.width || a.y >= b.y + b.height || b.y >= a.y + a.height)
                    << places[i].first << " on " << places[k].first << ": " << testing::PrintToString(a) << " and "
                    << testing::PrintToString(b);
            }
        }
        close(n);
    }
}

TEST_F(SelectionPanel, ItsButtonsPostAndItsFieldsTakeText) {
    const INT n = open();
    std::set<INT> functions;
    for (INT item : {1, 4, 5, 6}) {
        const INT button = button_of(selection, item, 0);
        settle();
        pointer().click_in(control(button), 4, 4);
        const auto done = events.wait(GRX_EVT_EXEC_FONCTION);
        ASSERT_TRUE(done) << item << ": " << events.describe();
        EXPECT_EQ(done->exec_fonction.nobou, button);
        EXPECT_EQ(done->exec_fonction.no_fo, button_record(button).no_fo);
        functions.insert(done->exec_fonction.no_fo);
    }
    EXPECT_EQ(button_record(button_of(selection, 1, 0)).nofen, n);
    const INT field = button_of(selection, 2, 1);
    pointer().click_in(control(field), 5, 5);
    ASSERT_TRUE(wait_for([&] { return XmGetFocusWidget(control(field)) == control(field); }));
    const std::string before = text_of(field);
    keyboard().type("abc\n");
    const auto done = events.wait([&](const GRX_EVENEMENT& e) {
        return e.type_evenement == GRX_EVT_EXEC_FONCTION && e.exec_fonction.nobou == field;
    });
    ASSERT_TRUE(done) << events.describe();
    EXPECT_NE(std::string(done->exec_fonction.chaine).find("abc"), std::string::npos);
}

TEST_F(SelectionPanel, TheItemsCanBeChangedLikeAnyOthers) {
    open();
    grx_change_titre_item(selection, 2, writable("Other"));
    EXPECT_EQ(label_of(control(button_of(selection, 2, 0))), "Other");
    INT count = 5;
    std::array<INT, 5> numbers{};
    recup_boutons_item(selection, 2, &count, numbers.data());
    EXPECT_EQ(count, 1);
    EXPECT_EQ(numbers[0], button_of(selection, 2, 1));
}

// --- what is not there -------------------------------------------------------------------------------------------------------------------

TEST_F(SelectionPanel, WithoutThePanelNothingIsBuilt) {
    const int numbers = taken_numbers();
    const auto nothing = [&](const char* what) {
        EXPECT_EQ(grx_affiche_panel_selection(), 0) << what;
        EXPECT_EQ(taken_numbers(), numbers) << what;
        EXPECT_EQ(grx_test_liste_ouverte(list_key), 0) << what;
    };
    Tab_pan = nullptr;
    nothing("no table");
    Tab_pan = panels.table();
    grx_desalloue_base_items_panels();
    Tab_pan = panels.table();
    nothing("no bases");
    ASSERT_EQ(grx_alloue_base_items_panels(8, panels.table()), 0);
    nothing("eight panels");
    grx_desalloue_base_items_panels();
    for (uchar items : {uchar{0}, uchar{3}, uchar{6}}) {
        panels[selection].nb_items = items;
        Tab_pan = panels.table();
        ASSERT_EQ(grx_alloue_base_items_panels(panel_count, panels.table()), 0);
        nothing("too few items");
        grx_desalloue_base_items_panels();
    }
}

TEST_F(SelectionPanel, WithoutEntries) {
    lnstate[list_key] = 0;
    listate[list_key] = 0;
    open();
    EXPECT_EQ(entries_in(grx_recup_objet_item_liste(selection, list_key)).size(), 0U);
}

TEST_F(SelectionPanel, OpeningAgainWhileOpenLeavesNoNumbersBehind) {
    const int numbers = taken_numbers();
    const INT first = open();
    const INT second = open();
    EXPECT_EQ(flags(selection, 1), std::vector<int>{1});
    EXPECT_EQ(flags(selection, 2), (std::vector<int>{0, 1}));
    EXPECT_TRUE(first == second || widget_of(first) == nullptr) << "one selection panel at a time";
    EXPECT_EQ(panels[selection].nofen, second);
    grx_supprime_items(selection);
    grx_supprime_item_liste(selection, list_key);
    grx_detruit_fenetre(first);
    grx_detruit_fenetre(second);
    settle();
    EXPECT_EQ(taken_numbers(), numbers);
}

TEST_F(SelectionPanel, OpeningAndClosingLeavesNothing) {
    for (int i = 0; i < 2; ++i) close(open());
    const int numbers = taken_numbers();
    const std::size_t blocks = heap().blocks(), bytes = heap().bytes();
    const auto before = server_resources(test_display(), x_window(main_window));
    for (int i = 0; i < 20; ++i) close(open());
    EXPECT_EQ(taken_numbers(), numbers);
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(heap().bytes(), bytes);
    auto after = server_resources(test_display(), x_window(main_window));
    for (const auto& [kind, count] : before) EXPECT_LE(after[kind], count) << kind;
}

TEST_F(SelectionPanel, EachFailingAllocationLosesNothing) {
    close(open());
    const int numbers = taken_numbers();
    const std::size_t blocks = heap().blocks();
    EXPECT_GT(fail_each_allocation([&] {
        panels[selection].nofen = -1;
        EXPECT_EQ(grx_affiche_panel_selection(), 0);
        grx_supprime_items(selection);
        grx_supprime_item_liste(selection, list_key);
        if (panels[selection].nofen > 0) grx_detruit_fenetre(panels[selection].nofen);
        drain();
    }),
        10);
    EXPECT_EQ(taken_numbers(), numbers);
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(heap().damage(), "");
}

// --- moved and resized without a window manager -----------------------------------------------------------------------------------------------

TEST_F(SelectionPanel, AMovedAndResizedWindowOpensThereAgain) {
    const INT n = open();
    grx_deplace_fenetre(n, 210, 830);
    grx_change_taille_fenetre(n, 470, 350);
    ASSERT_TRUE(wait_for([&] {
        const Area area = server_area(test_display(), XtWindow(shell_of(n)));
        return area.x == 210 && area.y == 194 && area.width == 470 && area.height == 350;
    }));
    settle();
    const Area left = server_area(test_display(), XtWindow(shell_of(n)));
    close(n);
    const INT again = open();
    EXPECT_EQ(server_area(test_display(), XtWindow(shell_of(again))), left);
}

// A window manager tells a window its place again and again.
void tell_its_place(INT n) {
    Widget shell = shell_of(n);
    const Area area = server_area(x11_disp, XtWindow(shell));
    XEvent event{};
    event.type = ConfigureNotify;
    event.xconfigure.event = event.xconfigure.window = XtWindow(shell);
    event.xconfigure.x = area.x;
    event.xconfigure.y = area.y;
    event.xconfigure.width = area.width;
    event.xconfigure.height = area.height;
    XSendEvent(x11_disp, XtWindow(shell), False, StructureNotifyMask, &event);
}

TEST_F(SelectionPanel, WhatTheApplicationSetsWhileItIsOpenHolds) {
    const INT n = open();
    for (const Geometry& g : {Geometry{-1, -1, -1, -1}, Geometry{150, 260, 500, 400}}) {
        grx_affecte_position_taille_panel_selection(g.x, g.y, g.width, g.height);
        tell_its_place(n);
        settle();
        EXPECT_EQ(saved(), g);
    }
}

// --- under mwm ---------------------------------------------------------------------------------------------------------------------------

class SelectionWmTest : public Selection<WmTest> {
  protected:
    void before_start() override {
        write_menu("");
        grx_set_tatitre(17); // what mwm draws
        grx_set_tabord(7);
    }

    INT open_framed() {
        const INT n = open();
        EXPECT_TRUE(wait_for([&] { return frame(shell_of(n)) != None; }));
        settle();
        return n;
    }

    Area all_of(INT n) { return frame_area(shell_of(n)); }

    void drag_title(INT n, int dx, int dy) {
        const Area before = all_of(n);
        const Point title{before.x + before.width / 2, before.y + 15};
        ASSERT_TRUE(pointer().drag_frame(title, {title.x + dx, title.y + dy}));
        ASSERT_TRUE(wait_for([&] { return all_of(n).x == before.x + dx && all_of(n).y == before.y + dy; }));
        settle();
    }

    void drag_corner(INT n, int dx, int dy) {
        const Area before = all_of(n);
        const Point corner{before.x + before.width - 3, before.y + before.height - 3};
        ASSERT_TRUE(pointer().drag_frame(corner, {corner.x + dx, corner.y + dy}));
        ASSERT_TRUE(wait_for([&] { return all_of(n).width != before.width; }));
        ASSERT_TRUE(wait_for([&] { return extent_of(widget_of(n)).width == extent_of(shell_of(n)).width; }));
        settle();
    }
};

TEST_F(SelectionWmTest, OpenedAndClosedWithoutDrift) {
    const Area first = all_of(open_framed());
    for (int i = 0; i < 4; ++i) {
        close(panels[selection].nofen);
        ASSERT_EQ(all_of(open_framed()), first) << i;
    }
    grx_set_tatitre(0); // an application that says nothing of the decoration
    grx_set_tabord(0);
    close(panels[selection].nofen);
    const Area bare = all_of(open_framed());
    for (int i = 0; i < 3; ++i) {
        close(panels[selection].nofen);
        ASSERT_EQ(all_of(open_framed()), bare) << i;
    }
}

TEST_F(SelectionWmTest, TheUserMovesItAndItOpensThereAgain) {
    INT n = open_framed();
    drag_title(n, 90, -60);
    const Area moved = all_of(n);
    for (int i = 0; i < 3; ++i) {
        close(n);
        n = open_framed();
        EXPECT_EQ(all_of(n), moved) << i;
    }
    drag_title(n, -35, 20);
    const Area again = all_of(n);
    close(n);
    EXPECT_EQ(all_of(open_framed()), again);
}

TEST_F(SelectionWmTest, TheUserResizesItAndItOpensThatLarge) {
    INT n = open_framed();
    drag_corner(n, 70, 50);
    const Area grown = all_of(n);
    const Extent inside = extent_of(widget_of(n));
    for (int i = 0; i < 3; ++i) {
        close(n);
        n = open_framed();
        EXPECT_EQ(all_of(n), grown) << i;
        EXPECT_EQ(extent_of(widget_of(n)), inside) << i;
    }
    Widget list = grx_recup_objet_item_liste(selection, list_key);
    EXPECT_EQ(rect_of(XtParent(list)), (Rect{10, 4 * H, inside.width - 10 - 20 * W, inside.height - 6 * H}));
}

TEST_F(SelectionWmTest, TheUserClosesItAndItOpensThereAgain) {
    const INT n = open_framed();
    drag_title(n, 60, 40);
    const Area moved = all_of(n);
    ask_to_close(test_display(), XtWindow(shell_of(n)));
    ASSERT_TRUE(wait_for([&] { return widget_of(n) == nullptr; }));
    grx_supprime_items(selection);
    settle();
    EXPECT_EQ(grx_test_liste_ouverte(list_key), 0);
    EXPECT_EQ(all_of(open_framed()), moved);
}

} // namespace
