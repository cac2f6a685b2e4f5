// The message and information strip, seen by its pixels and felt by clicks.
#include "tests/support/control_kit.h"

#include <climits>
#include <memory>

namespace {

using namespace grxtest;

constexpr INT height = 20; // of a character, chosen here

struct Member {
    const char* name;
    GRX_BOUTON GRX_ZONE_INFO::*record;
};
#define MEMBER(name)                                                                                                   \
    Member {                                                                                                           \
#name, &GRX_ZONE_INFO::name                                                                                    \
    }

// The order in which they are made.
constexpr std::array members{MEMBER(Bou_fleche_haut), MEMBER(Bou_fonction), MEMBER(Bou_mess), MEMBER(Bou_saisie),
    MEMBER(Bou_aff_x), MEMBER(Bou_aff_y), MEMBER(Bou_fleche_bas), MEMBER(Bou_fen), MEMBER(Bou_saisie_fen),
    MEMBER(Bou_plan), MEMBER(Bou_saisie_plan), MEMBER(Bou_couche), MEMBER(Bou_saisie_couche), MEMBER(Bou_force),
    MEMBER(Bou_saisie_force), MEMBER(Bou_alt), MEMBER(Bou_saisie_alt), MEMBER(Bou_grille), MEMBER(Bou_polaire)};
constexpr std::size_t first_of_second_row = 6;

bool is_framed(const Member& member) {
    for (auto record :
        {&GRX_ZONE_INFO::Bou_fonction, &GRX_ZONE_INFO::Bou_mess, &GRX_ZONE_INFO::Bou_aff_x, &GRX_ZONE_INFO::Bou_aff_y})
        if (member.record == record) return true;
    return false;
}

class Strip : public ControlsTest {
  protected:
    void SetUp() override {
        ControlsTest::SetUp();
        if (HasFatalFailure()) return;
        grx_affecte_hau_carac_alpha(height);
        take_pointer_away();
        window_record = described(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 1000, 7);
        grx_cree_fenetre_info(&window_record);
        window = window_record.nofen;
        ASSERT_GT(window, 0);
        ASSERT_TRUE(wait_visible(widget_of(window)));
        describe();
    }

    // First row at the top, second below it; each control 48 wide.
    void describe() {
        INT x = 2, y = 0;
        for (std::size_t k = 0; k < members.size(); ++k) {
            if (k == first_of_second_row) {
                x = 2;
                y = height + 5;
            }
            zone.get()->*members[k].record = control_at(k, {x, y, 48, height});
            x += 50;
        }
        zone->Bou_mess.largeur = 48;
    }

    GRX_BOUTON control_at(std::size_t k, const Area& area) const {
        static constexpr std::array<INT, 19> types{GRX_BOU_FLECHE, GRX_BOU_LABEL, GRX_BOU_LABEL, GRX_BOU_TEXTE,
            GRX_BOU_LABEL, GRX_BOU_LABEL, GRX_BOU_FLECHE, GRX_BOU_LABEL, GRX_BOU_TEXTE, GRX_BOU_LABEL, GRX_BOU_TEXTE,
            GRX_BOU_LABEL, GRX_BOU_TEXTE, GRX_BOU_LABEL, GRX_BOU_TEXTE, GRX_BOU_LABEL, GRX_BOU_TEXTE, GRX_BOU_DESSINE,
            GRX_BOU_DESSINE};
        GRX_BOUTON button = button_at(types[k], window, area);
        button.no_fo = 800 + static_cast<INT>(k);
        set_title(button, "M");
        return button;
    }

    void create() {
        create_only();
        for (const Member& member : members) ASSERT_NE(control(number(member)), nullptr) << member.name;
        settle();
    }
    void create_only() {
        row_height = -77;
        grx_cree_boutons_fenetre_info(zone.get(), &row_height);
    }

    INT number(const Member& member) const { return (zone.get()->*member.record).nobou; }
    INT number(GRX_BOUTON GRX_ZONE_INFO::*record) const { return (zone.get()->*record).nobou; }

    // The frame of a field was made just before it.
    INT frame_of(GRX_BOUTON GRX_ZONE_INFO::*record) const { return number(record) - 1; }

    bool seen(INT nobou) { return visible(XtWindow(control(nobou))); }

    void expect_row(bool second_row) {
        drain();
        for (std::size_t k = 0; k < members.size(); ++k) {
            const bool wanted = k == 0 ? !second_row : k < first_of_second_row || second_row;
            EXPECT_EQ(seen(number(members[k])), wanted) << members[k].name;
        }
        for (auto record : {&GRX_ZONE_INFO::Bou_fonction, &GRX_ZONE_INFO::Bou_mess, &GRX_ZONE_INFO::Bou_aff_x,
                 &GRX_ZONE_INFO::Bou_aff_y})
            EXPECT_TRUE(seen(frame_of(record)));
        EXPECT_EQ(seen(first_separator()), !second_row);
        EXPECT_EQ(seen(second_separator()), second_row);
    }

    INT first_separator() const { return number(&GRX_ZONE_INFO::Bou_fleche_haut) - 1; }
    INT second_separator() const { return number(&GRX_ZONE_INFO::Bou_fleche_bas) - 1; }

    GRX_FENETRE window_record{};
    INT window = -1;
    INT row_height = 0;
    const std::unique_ptr<GRX_ZONE_INFO> zone = std::make_unique<GRX_ZONE_INFO>();
};

// --- sizes --------------------------------------------------------------------------------------------------------

TEST_F(Strip, TheFullScreenIsWhatTheDecorationLeaves) {
    for (INT border : {0, 7, 13})
        for (INT title : {0, 17}) {
            grx_set_tabord(border);
            grx_set_tatitre(title);
            INT x = -1, y = -1, width = -1, tall = -1;
            grx_recup_taille_position_fenetre_message_plein_ecran(&x, &y, &width, &tall);
            EXPECT_EQ(x, border);
            EXPECT_EQ(y, border);
            EXPECT_EQ(width, 1280 - 2 * border);
            EXPECT_EQ(tall, 1024 - 2 * border - title);
        }
}

TEST_F(Strip, ItsWindowHasRoomForTwoRows) {
    EXPECT_EQ(window_record.haut, 2 * height + 6);
    EXPECT_EQ(server_area(test_display(), x_window(window)).height, 2 * height + 6);
    EXPECT_EQ(server_area(test_display(), x_window(window)).width, 1000);
}

TEST_F(Strip, AWindowThatCannotBeMadeIsTold) {
    GRX_FENETRE impossible = described(0);
    impossible.nofen = 55;
    grx_cree_fenetre_info(&impossible);
    EXPECT_EQ(impossible.haut, 2 * height + 6);
    EXPECT_EQ(impossible.nofen, 55) << "untouched";
    EXPECT_EQ(grx_recup_objet_fen(impossible.nofen), nullptr);
    grx_cree_fenetre_info(nullptr);
}

TEST_F(Strip, TheReducedHeightIsOneRow) {
    create();
    EXPECT_EQ(row_height, height + 4);
    grx_affecte_hau_carac_alpha(31);
    create_only();
    EXPECT_EQ(row_height, 35);
    grx_cree_boutons_fenetre_info(zone.get(), nullptr);
}

// --- creation -----------------------------------------------------------------------------------------------------

TEST_F(Strip, TheControlsAreMadeInTheirOrder) {
    const INT before = grx_recup_indice_objet_bout_libre();
    grx_libere_indice_objet_bout(before);
    create();
    INT expected = before + 1; // behind the first separator
    for (std::size_t k = 0; k < members.size(); ++k) {
        if (is_framed(members[k])) ++expected;    // its frame
        if (k == first_of_second_row) ++expected; // the second separator
        EXPECT_EQ(number(members[k]), expected++) << members[k].name;
    }
    EXPECT_EQ(control(expected), nullptr) << "25 in all";
    EXPECT_EQ(expected - before, 25);
}

TEST_F(Strip, ItStartsReduced) {
    create();
    expect_row(false);
}

TEST_F(Strip, TheSeparatorsAreThinLinesWiderThanAnyScreen) {
    create();
    grx_agrandit_fenetre_info(window_record, *zone, &row_height);
    drain();
    const Area strip = server_area(test_display(), x_window(window));
    for (INT n : {first_separator(), second_separator()}) {
        Widget w = control(n);
        ASSERT_TRUE(is_a(w, xmSeparatorWidgetClass));
        EXPECT_EQ(resource<unsigned char>(w, XmNorientation), XmHORIZONTAL);
        EXPECT_EQ(extent_of(w), (Extent{4000, 2}));
        EXPECT_EQ(button_record(n).type, 768);
        EXPECT_EQ(button_record(n).nofen, window);
        EXPECT_EQ(resource<Position>(w, XmNx), 0);
        EXPECT_EQ(resource<Position>(w, XmNy), n == first_separator() ? height + 2 : 0);
    }
    EXPECT_EQ(strip.width, 1000) << "the strip keeps its size";
    EXPECT_EQ(strip.height, 2 * height + 6);
}

TEST_F(Strip, FramedFieldsAreSmallerThanTheirFrames) {
    const GRX_ZONE_INFO before = *zone;
    create();
    for (const Member& member : members) {
        const GRX_BOUTON& was = before.*member.record;
        const GRX_BOUTON& is = zone.get()->*member.record;
        const INT by = is_framed(member) ? 2 : 0;
        EXPECT_EQ(is.x, was.x + by) << member.name;
        EXPECT_EQ(is.y, was.y + by) << member.name;
        EXPECT_EQ(is.largeur, was.largeur - 2 * by) << member.name;
        EXPECT_EQ(is.hauteur, was.hauteur - 2 * by) << member.name;
        GRX_BOUTON rest = is; // nothing else is written
        rest.nobou = was.nobou;
        rest.x = was.x;
        rest.y = was.y;
        rest.largeur = was.largeur;
        rest.hauteur = was.hauteur;
        EXPECT_EQ(std::memcmp(&rest, &was, sizeof rest), 0) << member.name;
        Widget w = control(is.nobou);
        EXPECT_EQ(resource<Position>(w, XmNx), was.x + by) << member.name;
        EXPECT_EQ(resource<Position>(w, XmNy), was.y + by) << member.name;
        EXPECT_EQ(extent_of(w), (Extent{was.largeur - 2 * by, was.hauteur - 2 * by})) << member.name;
        if (!by) continue;
        Widget frame = control(is.nobou - 1);
        ASSERT_TRUE(is_a(frame, xmDrawnButtonWidgetClass)) << member.name;
        EXPECT_EQ(resource<Position>(frame, XmNx), was.x) << member.name;
        EXPECT_EQ(resource<Position>(frame, XmNy), was.y) << member.name;
        EXPECT_EQ(extent_of(frame), (Extent{was.largeur, was.hauteur})) << member.name;
        EXPECT_EQ(grx_bouton_est_il_enfonce(is.nobou - 1), 1) << member.name;
        EXPECT_EQ(XtParent(frame), XtParent(w)) << member.name;
    }
}

TEST_F(Strip, SizesAndPlacesThatAreNotGivenAreChangedJustTheSame) {
    zone->Bou_fonction.x = zone->Bou_fonction.y = zone->Bou_fonction.largeur = zone->Bou_fonction.hauteur = -1;
    create();
    EXPECT_EQ(zone->Bou_fonction.x, 1);
    EXPECT_EQ(zone->Bou_fonction.y, 1);
    EXPECT_EQ(zone->Bou_fonction.largeur, -5);
    EXPECT_EQ(zone->Bou_fonction.hauteur, -5);
    const Extent size = extent_of(control(number(&GRX_ZONE_INFO::Bou_fonction)));
    EXPECT_TRUE(size.width >= 1 && size.width < 1000 && size.height >= 1 && size.height < 1000)
        << size.width << " x " << size.height;
}

// --- what is seen and felt ----------------------------------------------------------------------------------------

TEST_F(Strip, TheFieldIsSeenInsideItsFrame) {
    zone->Bou_fonction.coul_fond = 12;
    zone->Bou_aff_y.coul_fond = 13;
    create();
    for (auto record : {&GRX_ZONE_INFO::Bou_fonction, &GRX_ZONE_INFO::Bou_aff_y}) {
        const GRX_BOUTON& field = zone.get()->*record;
        const Pixels picture =
            grab(x11_disp, x_window(window), {field.x - 2, field.y - 2, field.largeur + 4, field.hauteur + 4});
        const auto background = static_cast<std::uint32_t>(pixel_of(field.coul_fond));
        EXPECT_EQ(picture.bounds(background), (Area{2, 2, field.largeur, field.hauteur}));
    }
}

TEST_F(Strip, TheFrameLooksSunken) {
    create();
    const GRX_BOUTON& field = zone->Bou_mess;
    Widget frame = control(frame_of(&GRX_ZONE_INFO::Bou_mess));
    EXPECT_TRUE(resource<Boolean>(frame, XmNsensitive));
    EXPECT_EQ(label_of(frame), "");
    const Pixels picture =
        grab(x11_disp, x_window(window), {field.x - 2, field.y - 2, field.largeur + 4, field.hauteur + 4});
    EXPECT_EQ(picture.at(field.largeur / 2, 0), resource<Pixel>(frame, XmNbottomShadowColor)) << "dark above";
    EXPECT_EQ(picture.at(field.largeur / 2, field.hauteur + 3), resource<Pixel>(frame, XmNtopShadowColor));
}

TEST_F(Strip, ClicksReachTheFieldNotItsFrame) {
    create();
    for (auto record : {&GRX_ZONE_INFO::Bou_fonction, &GRX_ZONE_INFO::Bou_mess, &GRX_ZONE_INFO::Bou_aff_x,
             &GRX_ZONE_INFO::Bou_aff_y}) {
        const GRX_BOUTON& field = zone.get()->*record;
        const Point origin = root_position(widget_of(window));
        for (const auto& [x, y] : {Point{0, 0}, Point{field.largeur - 1, field.hauteur - 1}, Point{20, 8}}) {
            events.clear();
            pointer().click(origin.x + field.x + x, origin.y + field.y + y, 3);
            const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
            ASSERT_TRUE(press) << events.describe();
            EXPECT_EQ(press->bouton_appui.nobou, field.nobou);
            EXPECT_EQ(press->bouton_appui.no_fo, field.no_fo);
            settle();
        }
    }
}

TEST_F(Strip, EveryControlOfTheHostIsReachedWhereItStands) {
    create();
    grx_agrandit_fenetre_info(window_record, *zone, &row_height);
    drain();
    const Point origin = root_position(widget_of(window));
    for (std::size_t k = 1; k < members.size(); ++k) {
        const GRX_BOUTON& field = zone.get()->*members[k].record;
        events.clear();
        pointer().click(origin.x + field.x + field.largeur / 2, origin.y + field.y + field.hauteur / 2, 3);
        const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
        ASSERT_TRUE(press) << members[k].name << ": " << events.describe();
        EXPECT_EQ(press->bouton_appui.nobou, field.nobou) << members[k].name;
        settle();
    }
}

// --- enlarging and reducing ---------------------------------------------------------------------------------------

TEST_F(Strip, IsEnlargedAndReducedAgainAndAgain) {
    create();
    for (int turn = 0; turn < 3; ++turn) {
        INT tall = -1;
        grx_agrandit_fenetre_info(window_record, *zone, &tall);
        EXPECT_EQ(tall, 2 * height + 6);
        expect_row(true);
        grx_agrandit_fenetre_info(window_record, *zone, &tall);
        EXPECT_EQ(tall, 2 * height + 6) << "once more";
        expect_row(true);
        grx_reduit_fenetre_info(window_record, *zone, &tall);
        EXPECT_EQ(tall, height + 3);
        expect_row(false);
        grx_reduit_fenetre_info(window_record, *zone, &tall);
        EXPECT_EQ(tall, height + 3) << "of the window as it still is";
        expect_row(false);
    }
    EXPECT_EQ(server_area(test_display(), x_window(window)).height, 2 * height + 6) << "the host resizes";
}

// As an application uses it: the arrow is clicked, the strip changes, the window gets the height that goes with it.
TEST_F(Strip, TheArrowsAnswerAfterTheWindowFollowed) {
    create();
    for (int turn = 0; turn < 3; ++turn) {
        for (const bool larger : {true, false}) {
            const INT arrow = number(larger ? &GRX_ZONE_INFO::Bou_fleche_haut : &GRX_ZONE_INFO::Bou_fleche_bas);
            take_pointer_away();
            settle();
            pointer().click_in(control(arrow));
            const auto pushed = events.wait(GRX_EVT_EXEC_FONCTION, Milliseconds(3000));
            ASSERT_TRUE(pushed) << "turn " << turn << ": " << events.describe();
            EXPECT_EQ(pushed->exec_fonction.nobou, arrow);
            (larger ? grx_agrandit_fenetre_info : grx_reduit_fenetre_info)(window_record, *zone, &row_height);
            grx_change_taille_fenetre(window, 1000, larger ? 2 * height + 6 : height + 4);
            ASSERT_TRUE(wait_for([&] { return seen(number(&GRX_ZONE_INFO::Bou_grille)) == larger; }));
        }
    }
}

TEST_F(Strip, TheHeightsAreThoseOfTheWindowThatIsNamed) {
    create();
    const INT other = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 200, 151);
    ASSERT_TRUE(wait_visible(widget_of(other)));
    GRX_FENETRE list = window_record;
    list.nofen = other;
    list.haut = 7; // not looked at
    INT tall = -1;
    grx_agrandit_fenetre_info(list, *zone, &tall);
    EXPECT_EQ(tall, 151);
    grx_reduit_fenetre_info(list, *zone, &tall);
    EXPECT_EQ(tall, 75) << "cut, not rounded";
    for (INT unknown : {-1, 0, 77, 100, INT_MIN, INT_MAX}) {
        list.nofen = unknown;
        tall = -9;
        grx_agrandit_fenetre_info(list, *zone, &tall);
        EXPECT_EQ(tall, -9) << unknown;
        grx_reduit_fenetre_info(list, *zone, &tall);
        EXPECT_EQ(tall, -9) << unknown;
    }
    expect_row(false);
    grx_agrandit_fenetre_info(window_record, *zone, nullptr);
    expect_row(true);
    grx_reduit_fenetre_info(window_record, *zone, nullptr);
    expect_row(false);
}

std::vector<Window> windows_of(Display* asker, int type) {
    std::vector<Window> order;
    XSync(asker, False);
    XEvent event{};
    while (XCheckTypedEvent(asker, type, &event))
        order.push_back(type == MapNotify ? event.xmap.window : event.xunmap.window);
    return order;
}

TEST_F(Strip, EnlargingShowsInItsOrder) {
    create();
    XSelectInput(test_display(), x_window(window), SubstructureNotifyMask);
    XSync(test_display(), False);
    grx_agrandit_fenetre_info(window_record, *zone, &row_height);
    drain();
    std::vector<Window> expected;
    for (auto record : {&GRX_ZONE_INFO::Bou_fleche_bas, &GRX_ZONE_INFO::Bou_fen, &GRX_ZONE_INFO::Bou_saisie_fen,
             &GRX_ZONE_INFO::Bou_plan, &GRX_ZONE_INFO::Bou_saisie_plan, &GRX_ZONE_INFO::Bou_couche,
             &GRX_ZONE_INFO::Bou_saisie_couche, &GRX_ZONE_INFO::Bou_alt, &GRX_ZONE_INFO::Bou_saisie_alt,
             &GRX_ZONE_INFO::Bou_force, &GRX_ZONE_INFO::Bou_saisie_force, &GRX_ZONE_INFO::Bou_grille,
             &GRX_ZONE_INFO::Bou_polaire})
        expected.push_back(XtWindow(control(number(record))));
    expected.push_back(XtWindow(control(second_separator())));
    EXPECT_EQ(windows_of(test_display(), UnmapNotify),
        (std::vector{
            XtWindow(control(number(&GRX_ZONE_INFO::Bou_fleche_haut))), XtWindow(control(first_separator()))}));
    EXPECT_EQ(windows_of(test_display(), MapNotify), expected);
}

// --- the coordinates ----------------------------------------------------------------------------------------------

TEST_F(Strip, TheCoordinatesAreHiddenAndShownWithTheirFrames) {
    create();
    const auto expect_coordinates = [&](bool shown) {
        drain();
        for (auto record : {&GRX_ZONE_INFO::Bou_aff_x, &GRX_ZONE_INFO::Bou_aff_y}) {
            EXPECT_EQ(seen(number(record)), shown);
            EXPECT_EQ(seen(frame_of(record)), shown);
        }
        for (auto record : {&GRX_ZONE_INFO::Bou_fonction, &GRX_ZONE_INFO::Bou_mess}) {
            EXPECT_TRUE(seen(number(record)));
            EXPECT_TRUE(seen(frame_of(record)));
        }
        EXPECT_TRUE(seen(number(&GRX_ZONE_INFO::Bou_saisie)));
    };
    const Pixels before = grab(x11_disp, x_window(window));
    for (INT show : {1, -1, 2, INT_MIN, INT_MAX}) {
        grx_affiche_cache_xy(0, *zone);
        expect_coordinates(false);
        grx_affiche_cache_xy(show, *zone);
        expect_coordinates(true);
    }
    EXPECT_TRUE(wait_for([&] { return grab(x11_disp, x_window(window)) == before; })) << "the field above its frame";
    grx_affiche_cache_xy(0, *zone);
    grx_agrandit_fenetre_info(window_record, *zone, &row_height);
    expect_coordinates(false);
    grx_reduit_fenetre_info(window_record, *zone, &row_height);
    expect_coordinates(false);
}

// --- what may go wrong --------------------------------------------------------------------------------------------

TEST_F(Strip, WithoutAParentNothingIsMade) {
    for (const Member& member : members) {
        GRX_BOUTON& record = zone.get()->*member.record;
        record.fen_mere = 77;
        record.nobou = -1;
    }
    create_only();
    for (const Member& member : members) EXPECT_EQ(number(member), -1) << member.name;
    EXPECT_EQ(row_height, height + 4);
    grx_agrandit_fenetre_info(window_record, *zone, &row_height);
    grx_reduit_fenetre_info(window_record, *zone, &row_height);
    grx_affiche_cache_xy(0, *zone);
    grx_affiche_cache_xy(1, *zone);
    grx_cree_boutons_fenetre_info(nullptr, &row_height);
    grx_cree_boutons_fenetre_info(nullptr, nullptr);
}

TEST_F(Strip, AStripWhoseWindowIsGoneIsSurvived) {
    create();
    grx_detruit_fenetre(window);
    drain();
    INT tall = -9;
    grx_agrandit_fenetre_info(window_record, *zone, &tall);
    grx_reduit_fenetre_info(window_record, *zone, &tall);
    grx_affiche_cache_xy(0, *zone);
    grx_affiche_cache_xy(1, *zone);
    EXPECT_EQ(tall, -9);
}

// The frames and separators are known to nobody else: their numbers go with the window.
TEST_F(Strip, WithItsWindowTheNumbersOfItsFramesAndSeparatorsGo) {
    create();
    for (const Member& member : members) grx_libere_indice_objet_bout(number(member));
    grx_detruit_fenetre(window);
    settle();
    const INT other = make(GRX_FEN_ALPHA);
    ASSERT_TRUE(wait_visible(widget_of(other)));
    for (INT i = 0; i < 30; ++i) {
        GRX_BOUTON button = button_at(GRX_BOU_LABEL, other, {10 + 5 * i, 10, 4, 20});
        ASSERT_EQ(grx_cree_bouton(&button), 0);
        EXPECT_EQ(button.nobou, i) << "the lowest free one";
    }
    grx_affiche_cache_xy(GRX_XY_CACHE, {}); // touches none of those that have the numbers now
    grx_agrandit_fenetre_info(window_record, {}, nullptr);
    for (INT i = 1; i < 30; ++i) EXPECT_TRUE(resource<Boolean>(control(i), XmNmappedWhenManaged)) << i;
}

TEST_F(Strip, AWindowMadeButNotShownStartsReducedToo) {
    GRX_FENETRE hidden = described(GRX_FEN_ALPHA, 0, 1000, 7);
    hidden.x = 100;
    grx_cree_fenetre_info(&hidden);
    window = hidden.nofen;
    window_record = hidden;
    describe();
    create();
    grx_affiche_fenetre(window);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    expect_row(false);
    const GRX_BOUTON& field = zone->Bou_mess;
    settle();
    pointer().move_in(widget_of(window), field.x + 10, field.y + 5);
    pointer().click(3);
    const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(press) << events.describe();
    EXPECT_EQ(press->bouton_appui.nobou, field.nobou) << "above its frame";
    grx_agrandit_fenetre_info(hidden, *zone, &row_height);
    expect_row(true);
}

TEST_F(Strip, FailingMemoryIsSurvived) {
    fail_each_allocation([&] {
        describe();
        create_only();
        for (INT n = 0; n < 100; ++n)
            if (control(n)) grx_detruit_bouton(n);
    });
}

} // namespace
