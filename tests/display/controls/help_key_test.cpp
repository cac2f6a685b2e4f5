// F1 and the texts of menu entries.
#include "tests/display/menus/menu_kit.h"
#include "tests/support/control_kit.h"

#include "grx_plus.h"

#include <X11/keysym.h>

#include <climits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace grxtest;

class HelpTest : public MenuTest {
  protected:
    void SetUp() override {
        MenuTest::SetUp();
        main_ = main_window(example_menu);
        panel_ = shown_panel();
    }

    INT shown_panel() {
        GRX_FENETRE described = grxtest::described(GRX_FEN_BOUTONS, GRX_FEN_ATT_VISIBLE, 300, 200);
        described.x = 700;
        const INT nofen = make(described);
        EXPECT_TRUE(wait_visible(widget_of(nofen)));
        return nofen;
    }
    INT control(const ControlKind& kind, bool sensitive = true) {
        GRX_BOUTON described = control_of(kind, panel_);
        described.no_fo = 731;
        if (!sensitive) described.attrib &= ~GRX_BOU_ATT_SENSIBLE;
        const INT nobou = make(described);
        EXPECT_TRUE(wait_visible(grx_recup_objet_bout(nobou)));
        return nobou;
    }
    std::optional<GRX_EVENEMENT> help() {
        events.clear();
        keyboard().key(XK_F1);
        drain();
        drain();
        for (const GRX_EVENEMENT& e : events.seen())
            if (e.type_evenement == GRX_EVT_AIDE) return e;
        return std::nullopt;
    }
    void expect_help(INT nofen, INT nobou, INT no_fo, const std::string& where) {
        const auto record = help();
        ASSERT_TRUE(record) << where << ": " << events.describe();
        EXPECT_EQ(record->exec_fonction.nofen, nofen) << where;
        EXPECT_EQ(record->exec_fonction.nobou, nobou) << where;
        EXPECT_EQ(record->exec_fonction.no_fo, no_fo) << where;
        EXPECT_EQ(record->exec_fonction.valeur, GRX_AIDE_TOUCHE) << where;
        EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 0) << where << ": the key does nothing else";
    }

    INT main_ = 0, panel_ = 0;
};

TEST_F(HelpTest, UnaskedTheKeyIsTheApplicationsAsEver) {
    pointer().move_in(widget_of(main_), 60, 100);
    EXPECT_FALSE(help());
    EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 1);
    EXPECT_EQ(grx_affecte_demande_aide(GRX_AIDE_TOUCHE), 1);
    expect_help(main_, -1, -1, "main window");
    EXPECT_EQ(grx_affecte_demande_aide(0), 1);
    EXPECT_FALSE(help());
    EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 1);
}

TEST_F(HelpTest, ItIsAboutTheControlUnderThePointer) {
    grx_affecte_demande_aide(GRX_AIDE_TOUCHE);
    for (const auto& kind : control_kinds) {
        for (const bool sensitive : {true, false}) {
            const INT nobou = control(kind, sensitive);
            pointer().move_in(grx_recup_objet_bout(nobou), 10, kind.type == GRX_BOU_SEPARATEUR ? 1 : 10);
            drain();
            expect_help(panel_, nobou, 731, std::string(kind.name) + (sensitive ? "" : ", insensitive"));
            grx_detruit_bouton(nobou);
            drain();
        }
    }
}

TEST_F(HelpTest, LocksMakeNoDifferenceModifiersDo) {
    grx_affecte_demande_aide(GRX_AIDE_TOUCHE);
    pointer().move_in(widget_of(panel_), 40, 50);
    lock_numbers();
    expect_help(panel_, -1, -1, "NumLock");
    lock_capitals();
    expect_help(panel_, -1, -1, "NumLock and CapsLock");
    release_locks();
    new_layout("fr");
    expect_help(panel_, -1, -1, "fr");
    for (const unsigned modifier : {ShiftMask, ControlMask, Mod1Mask}) {
        events.clear();
        keyboard().key(XK_F1, modifier);
        drain();
        EXPECT_EQ(events.count(GRX_EVT_AIDE), 0) << modifier;
    }
}

TEST_F(HelpTest, DetailsSayWhereThePointerIs) {
    grx_affecte_demande_aide(GRX_AIDE_TOUCHE);
    pointer().move_in(widget_of(panel_), 40, 50);
    drain();
    keyboard().key(XK_F1);
    XSync(x11_disp, False);
    GRX_EVENEMENT event{};
    while (event.type_evenement != GRX_EVT_AIDE) ASSERT_EQ(grx_digitaliseur_delai(&event, 5000), 1);
    GRX_DETAIL_EVENEMENT detail;
    grx_init_detail_evenement(&detail);
    ASSERT_EQ(grx_recup_detail_evenement(&detail), 1);
    EXPECT_EQ(detail.x, 40);
    INT width = 0, height = 0;
    grx_recup_taille_fenetre(panel_, &width, &height);
    EXPECT_EQ(detail.y, height - 50) << height;
}

TEST_F(HelpTest, AFieldWithTheKeyboardTypesNothingOfIt) {
    grx_affecte_demande_aide(GRX_AIDE_TOUCHE);
    const INT field = control({"field", GRX_BOU_TEXTE, 0});
    pointer().click_in(grx_recup_objet_bout(field), 10, 10);
    drain();
    expect_help(panel_, field, 731, "field");
    keyboard().type("x");
    drain();
    EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 1) << "other keys are as ever";
}

TEST_F(HelpTest, OverNothingItIsTheWindowWithTheKeyboard) {
    grx_affecte_demande_aide(GRX_AIDE_TOUCHE);
    XSetInputFocus(x11_disp, XtWindow(shell_of(panel_)), RevertToPointerRoot, CurrentTime);
    take_pointer_away();
    drain();
    expect_help(panel_, -1, -1, "pointer elsewhere");
}

TEST_F(HelpTest, InAnOpenMenuItIsAboutTheEntry) {
    grx_affecte_demande_aide(GRX_AIDE_TOUCHE);
    pointer().click_in(children_of(grx_get_Glob_menu_bar()).at(0));
    const Widget save = entry_named("Save");
    ASSERT_TRUE(wait_visible(save));
    keyboard().key(XK_Down);
    drain();
    expect_help(main_, -1, 102, "entry");
    EXPECT_TRUE(wait_for([&] { return !visible(XtWindow(save)); })) << "the menu closes";
    EXPECT_EQ(chosen(102), 0);
    pointer().move_in(widget_of(main_), 60, 200);
    drain();
    expect_help(main_, -1, -1, "afterwards");
}

TEST_F(HelpTest, TheKeyOfAnEntryGoesFirst) {
    write_menu(menu_zone("POPUP||A|\n{\nITEM||help|F1|77|\n}\n"));
    grx_detruit_menu_bar();
    grx_recree_menu_bar();
    grx_affecte_demande_aide(GRX_AIDE_TOUCHE);
    pointer().move_in(widget_of(main_), 60, 200);
    drain();
    EXPECT_FALSE(help());
    EXPECT_EQ(chosen(77), 1);
}

// -- texts of entries

class MenuTextsTest : public HelpTest {
  protected:
    void SetUp() override {
        HelpTest::SetUp();
        label_ = control({"label", GRX_BOU_LABEL, 0});
        EXPECT_EQ(grx_affecte_bouton_aide_menu(label_), 1);
        EXPECT_EQ(grx_affecte_aide_menu(101, "Opens a drawing"), 1);
        EXPECT_EQ(grx_affecte_aide_menu(102, "Saves \xE0 present"), 1);
    }
    std::string shown() { return text_resource(grx_recup_objet_bout(label_), XmNlabelString); }
    // With the mouse button held: without, the toolkit's menus do not follow the pointer.
    void open_menu() {
        drain();
        const Widget menu = children_of(grx_get_Glob_menu_bar()).at(0);
        ASSERT_TRUE(wait_visible(menu));
        pointer().move_in(menu, 10, 5);
        pointer().press();
        ASSERT_TRUE(wait_visible(entry_named("Save")));
    }
    void point_at_entry(const std::string& name) {
        pointer().move_in(entry_named(name), 10, 5);
        drain();
    }
    // A click on the menu opens it for the keyboard, with its first entry highlighted.
    void open_for_keys() {
        drain();
        ASSERT_TRUE(wait_visible(children_of(grx_get_Glob_menu_bar()).at(0)));
        pointer().click_in(children_of(grx_get_Glob_menu_bar()).at(0));
        ASSERT_TRUE(wait_visible(entry_named("Save")));
        drain();
    }
    void press_key(KeySym symbol) {
        keyboard().key(symbol);
        drain();
    }
    void let_go() {
        pointer().move_in(widget_of(main_), 300, 200);
        pointer().release();
        drain();
    }
    INT label_ = -1;
};

TEST_F(MenuTextsTest, TheHighlightedEntrysIsShown) {
    EXPECT_EQ(shown(), "Text");
    open_menu();
    point_at_entry("Open");
    EXPECT_EQ(shown(), "Opens a drawing");
    point_at_entry("Save");
    EXPECT_EQ(shown(), "Saves \xE0 present");
    point_at_entry("Quit");
    EXPECT_EQ(shown(), "Text") << "an entry without a text";
    point_at_entry("Open");
    EXPECT_EQ(shown(), "Opens a drawing");
    let_go();
    EXPECT_EQ(shown(), "Text");
}

TEST_F(MenuTextsTest, TheKeyboardHighlightsAsWell) {
    open_for_keys();
    EXPECT_EQ(shown(), "Opens a drawing");
    press_key(XK_Down);
    EXPECT_EQ(shown(), "Saves \xE0 present");
    press_key(XK_Down);
    EXPECT_EQ(shown(), "Text") << "a submenu";
    press_key(XK_Up);
    EXPECT_EQ(shown(), "Saves \xE0 present");
    press_key(XK_Escape);
    EXPECT_EQ(shown(), "Text");
}

TEST_F(MenuTextsTest, ChoosingPutsTheOldTextBack) {
    open_menu();
    point_at_entry("Save");
    EXPECT_EQ(shown(), "Saves \xE0 present");
    pointer().release();
    drain();
    EXPECT_EQ(chosen(102), 1);
    EXPECT_EQ(shown(), "Text");
}

TEST_F(MenuTextsTest, WhatTheApplicationWritesMeanwhileStays) {
    open_menu();
    point_at_entry("Save");
    grx_change_texte(label_, writable("Working"));
    let_go();
    EXPECT_EQ(shown(), "Working");
}

TEST_F(MenuTextsTest, TextsOutliveTheBarAndCanBeTakenAway) {
    grx_detruit_menu_bar();
    grx_recree_menu_bar();
    open_for_keys();
    EXPECT_EQ(shown(), "Opens a drawing");
    grx_detruit_menu_bar();
    drain();
    EXPECT_EQ(shown(), "Text") << "with its entry gone";
    grx_recree_menu_bar();
    EXPECT_EQ(grx_affecte_aide_menu(101, nullptr), 1);
    drain();
    open_for_keys();
    EXPECT_EQ(shown(), "Text");
    press_key(XK_Escape);
}

TEST_F(MenuTextsTest, AFieldOfTextShowsThemAndMayGo) {
    const INT field = control({"field", GRX_BOU_TEXTE, 0});
    grx_change_texte(field, writable("before"));
    EXPECT_EQ(grx_affecte_bouton_aide_menu(field), 1);
    open_menu();
    point_at_entry("Open");
    char text[256] = "";
    grx_recup_texte_bouton(field, text);
    EXPECT_STREQ(text, "Opens a drawing");
    point_at_entry("Quit");
    grx_recup_texte_bouton(field, text);
    EXPECT_STREQ(text, "before");
    point_at_entry("Open");
    grx_detruit_bouton(field);
    point_at_entry("Save");
    let_go();
    EXPECT_EQ(shown(), "Text");
}

TEST_F(MenuTextsTest, TheInformationStripShowsThemByItself) {
    EXPECT_EQ(grx_affecte_bouton_aide_menu(-1), 1);
    GRX_ZONE_INFO zone{};
    GRX_BOUTON described = control_of(GRX_BOU_LABEL, 0, panel_, "Ready");
    for (auto member : {&GRX_ZONE_INFO::Bou_fleche_haut, &GRX_ZONE_INFO::Bou_fonction, &GRX_ZONE_INFO::Bou_mess,
             &GRX_ZONE_INFO::Bou_saisie, &GRX_ZONE_INFO::Bou_aff_x, &GRX_ZONE_INFO::Bou_aff_y}) {
        described.x += 40;
        zone.*member = described;
    }
    INT strip_height = 0;
    grx_cree_boutons_fenetre_info(&zone, &strip_height);
    const Widget message = grx_recup_objet_bout(zone.Bou_mess.nobou);
    ASSERT_NE(message, nullptr);
    open_for_keys();
    EXPECT_EQ(text_resource(message, XmNlabelString), "Opens a drawing");
    EXPECT_EQ(shown(), "Text") << "no longer here";
    press_key(XK_Escape);
    EXPECT_EQ(text_resource(message, XmNlabelString), "Ready");
}

TEST_F(MenuTextsTest, AsRecordsForWhoAsked) {
    EXPECT_EQ(grx_affecte_demande_aide(GRX_AIDE_MENU), 1);
    open_menu();
    point_at_entry("Save");
    let_go();
    std::vector<std::pair<INT, std::string>> told;
    for (const GRX_EVENEMENT& e : events.seen())
        if (e.type_evenement == GRX_EVT_AIDE) {
            EXPECT_EQ(e.exec_fonction.nofen, main_);
            EXPECT_EQ(e.exec_fonction.nobou, -1);
            EXPECT_EQ(e.exec_fonction.valeur, GRX_AIDE_MENU);
            told.emplace_back(e.exec_fonction.no_fo, e.exec_fonction.chaine);
        }
    ASSERT_GE(told.size(), 2U);
    EXPECT_EQ(told[told.size() - 2], (std::pair<INT, std::string>{102, "Saves \xE0 present"}));
    EXPECT_EQ(told.back(), (std::pair<INT, std::string>{-1, ""}));
}

TEST_F(MenuTextsTest, HostileArguments) {
    for (const INT n : {-1, INT_MIN}) EXPECT_EQ(grx_affecte_aide_menu(n, "text"), GRX_ECHEC_PARAMETRE);
    for (const INT n : no_controls)
        if (n != -1) EXPECT_EQ(grx_affecte_bouton_aide_menu(n), GRX_ECHEC_NUMERO) << n;
    EXPECT_EQ(grx_affecte_bouton_aide_menu(control({"list", GRX_BOU_LISTE, 0})), GRX_ECHEC_GENRE);
    EXPECT_EQ(grx_affecte_bouton_aide_menu(-1), 1);
    for (const INT bits : {4, -1, INT_MIN, INT_MAX}) EXPECT_EQ(grx_affecte_demande_aide(bits), GRX_ECHEC_PARAMETRE);
    EXPECT_GT(fail_each_allocation([] {
        for (INT n = 1000; n < 1100; ++n) {
            const INT result = grx_affecte_aide_menu(n, "text");
            EXPECT_TRUE(result == 1 || result == GRX_ECHEC_MEMOIRE);
        }
    }),
        0);
    for (INT n = 1000; n < 1100; ++n) EXPECT_EQ(grx_affecte_aide_menu(n, nullptr), 1);
    const NoLeak no_leak;
    for (int round = 0; round < 500; ++round) {
        ASSERT_EQ(grx_affecte_aide_menu(1000, "text"), 1);
        ASSERT_EQ(grx_affecte_aide_menu(1000, ""), 1);
    }
    EXPECT_EQ(grx_affecte_aide_menu(INT_MAX, nullptr), 1);
}

TEST(HelpAlone, WithoutADisplayItSaysSo) {
    EXPECT_EQ(grx_affecte_demande_aide(GRX_AIDE_TOUCHE), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_affecte_bulle(1, "text"), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_recup_bulle(1, nullptr, 0), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_affecte_bouton_aide_menu(1), GRX_ECHEC_NUMERO);
    EXPECT_EQ(grx_affecte_aide_menu(5, "text"), 1);
    EXPECT_EQ(grx_affecte_aide_menu(5, nullptr), 1);
}

} // namespace
