// What is set for function numbers, on the entries that carry them.
#include "tests/display/menus/context_kit.h"
#include "tests/support/sanitized.h"
#include "tests/support/toolkit_calls.h"

#include <algorithm>
#include <climits>
#include <clocale>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

namespace {

using namespace grxtest;

const std::string shared_menu = menu_zone("POPUP||&A|\n{\nITEM||Un&e|Ctrl+E|10|\nITEM||Deux||20|\nITEM||-|||\n}\n"
                                          "POPUP||&B|\n{\nITEM||Autre||10|\nPOPUP||S|\n{\nITEM||Profond||10|\n}\n}\n");

class EntryStates : public ContextMenuTest {
  protected:
    void rebuild() {
        grx_detruit_menu_bar();
        grx_recree_menu_bar();
        drain();
    }
    std::string kept_of(INT number) {
        const auto entry = state_of(number);
        return std::to_string(entry.active) + std::to_string(entry.coche) + entry.texte + "/"
               + std::to_string(entry.garde_active) + std::to_string(entry.garde_coche)
               + std::to_string(entry.garde_texte);
    }
    // Opens the first menu of the bar; what the widget around the entries shows.
    Pixels opened_menu(Widget any_entry) {
        pointer().click_in(children_of(grx_get_Glob_menu_bar()).at(0));
        EXPECT_TRUE(wait_visible(any_entry));
        take_pointer_away();
        settle();
        Widget menu = XtParent(any_entry);
        const Pixels picture = grab(x11_disp, XtWindow(menu));
        if (const char* folder = std::getenv("GRX_TEST_SHOTS"))
            write_ppm(x11_disp, picture, std::string(folder) + "/menu" + std::to_string(shots_++) + ".ppm");
        keyboard().key(XK_Escape);
        EXPECT_TRUE(wait_for([&] { return !visible(XtWindow(menu)); }));
        return picture;
    }

  private:
    int shots_ = 0;
};

TEST_F(EntryStates, AllEntriesOfANumberFollow) {
    main_window(shared_menu);
    EXPECT_EQ(grx_desactive_entree_menu(10, 1, 0), 1);
    for (const char* label : {"Une", "Autre", "Profond"}) EXPECT_FALSE(XtIsSensitive(entry_named(label))) << label;
    EXPECT_TRUE(XtIsSensitive(entry_named("Deux")));
    EXPECT_EQ(state_of(10).nb_entrees, 3);
    EXPECT_EQ(state_of(10).active, 0);
    EXPECT_EQ(grx_desactive_entree_menu(10, 0, 0), 1);
    for (const char* label : {"Une", "Autre", "Profond"}) EXPECT_TRUE(XtIsSensitive(entry_named(label))) << label;
    EXPECT_EQ(grx_change_texte_entree_menu(10, "Tous", 0), 1);
    EXPECT_EQ(shown_bar(), "A_A{Tous <Ctrl+E>, Deux, -} B_B{Tous, S{Tous}}");
    EXPECT_EQ(grx_change_texte_entree_menu(10, "", 0), 1);
    EXPECT_EQ(shown_bar(), "A_A{Une_e <Ctrl+E>, Deux, -} B_B{Autre, S{Profond}}");
}

TEST_F(EntryStates, InsensitiveEntriesAreNotChosen) {
    main_window(shared_menu);
    grx_desactive_entree_menu(10, 1, 0);
    pointer().click_in(children_of(grx_get_Glob_menu_bar()).at(0));
    ASSERT_TRUE(wait_visible(entry_named("Une")));
    events.clear();
    pointer().click_in(entry_named("Une"));
    keyboard().key(XK_e);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 0) << events.describe();
    keyboard().key(XK_Escape);
    drain();
    grx_desactive_entree_menu(10, 0, 0);
    pointer().click_in(children_of(grx_get_Glob_menu_bar()).at(0));
    ASSERT_TRUE(wait_visible(entry_named("Une")));
    pointer().click_in(entry_named("Une"));
    EXPECT_TRUE(wait_for([&] { return chosen(10) == 1; })) << events.describe();
}

TEST_F(EntryStates, WhatIsSetBeforeThereIsABarHoldsInIt) {
    EXPECT_EQ(grx_desactive_entree_menu(10, 1, 0), 1);
    EXPECT_EQ(grx_coche_entree_menu(20, 1, 0), 1);
    EXPECT_EQ(grx_change_texte_entree_menu(20, "&Avant", 0), 1);
    EXPECT_EQ(kept_of(20), "11Avant/000");
    EXPECT_EQ(state_of(20).nb_entrees, 0);
    main_window();
    write_menu(shared_menu);
    rebuild(); // the bar of the example goes, and with it what was set
    EXPECT_EQ(kept_of(20), "10Deux/000");
    grx_detruit_menu_bar();
    EXPECT_EQ(grx_desactive_entree_menu(10, 1, 0), 1);
    EXPECT_EQ(grx_change_texte_entree_menu(20, "&Avant", 0), 1);
    grx_recree_menu_bar();
    EXPECT_FALSE(XtIsSensitive(entry_named("Profond")));
    EXPECT_EQ(shown_bar(), "A_A{Une_e <Ctrl+E>, Avant_A, -} B_B{Autre, S{Profond}}");
}

// The bar taken down and built again; the window that holds it destroyed and made again.
TEST_F(EntryStates, WhatIsKeptOutlivesTheBar) {
    const auto set_all = [](INT garde) {
        grx_desactive_entree_menu(20, 1, garde);
        grx_coche_entree_menu(20, 1, garde);
        grx_change_texte_entree_menu(20, "Autrement", garde);
    };
    for (const bool window_goes : {false, true}) {
        INT window = main_window(shared_menu);
        const auto again = [&] {
            if (!window_goes) return rebuild();
            grx_detruit_fenetre(window);
            drain();
            window = main_window();
        };
        set_all(0);
        EXPECT_EQ(kept_of(20), "01Autrement/000");
        again();
        EXPECT_EQ(kept_of(20), "10Deux/000");
        EXPECT_TRUE(XtIsSensitive(entry_named("Deux")));
        set_all(1);
        EXPECT_EQ(kept_of(20), "01Autrement/111");
        again();
        EXPECT_EQ(kept_of(20), "01Autrement/111");
        ASSERT_NE(entry_named("Autrement"), nullptr);
        EXPECT_FALSE(XtIsSensitive(entry_named("Autrement")));
        grx_coche_entree_menu(20, 1, 0); // the last call counts, for its own state
        again();
        EXPECT_EQ(kept_of(20), "00Autrement/101");
        EXPECT_EQ(grx_initialise_entrees_menu(), 1);
        EXPECT_EQ(kept_of(20), "10Deux/000");
        again();
        EXPECT_EQ(kept_of(20), "10Deux/000");
        grx_detruit_fenetre(window);
        drain();
        EXPECT_EQ(state_of(20).nb_entrees, 0);
    }
}

TEST_F(EntryStates, MenusBuiltByHandFollowAsWell) {
    main_window(shared_menu);
    char title[] = "Extra", label[] = "More", key[] = "Ctrl+M";
    const Widget bar = grx_get_Glob_menu_bar(), menu = grx_debut_sous_menu_bar(bar);
    grx_desactive_entree_menu(55, 1, 0);
    grx_cree_atome(label, key, 'M', 55, menu);
    grx_fin_sous_menu_bar(title, menu, bar);
    grx_fin_menu_bar();
    EXPECT_EQ(state_of(55).nb_entrees, 1);
    EXPECT_FALSE(XtIsSensitive(entry_named("More")));
    grx_desactive_entree_menu(55, 0, 0);
    EXPECT_TRUE(XtIsSensitive(entry_named("More")));
    XtDestroyWidget(menu);
    drain();
    EXPECT_EQ(state_of(55).nb_entrees, 0);
    EXPECT_EQ(grx_desactive_entree_menu(55, 1, 0), 1);
}

// --- texts

struct Renaming {
    const char* given;
    const char* label; // in the application's font, with its mnemonic
    const char* told;
};

class Renamings : public EntryStates {
  protected:
    void check(const std::vector<Renaming>& rows) {
        main_window(menu_zone("POPUP||A|\n{\nITEM||Un&e|Ctrl+E|10|\n}\n"));
        for (const auto& [given, label, told] : rows) {
            EXPECT_EQ(grx_change_texte_entree_menu(10, given, 0), 1);
            EXPECT_EQ(shown_bar(), "A{" + std::string(label) + " <Ctrl+E>}") << given;
            EXPECT_STREQ(state_of(10).texte, told) << given;
            EXPECT_EQ(chosen_by_key(10, XK_e, ControlMask), 1) << given;
        }
    }
};

TEST_F(Renamings, ShowTextAndMnemonic) {
    check({{"&Ouvrir", "Ouvrir_O", "Ouvrir"}, {"Tout &fermer", "Tout fermer_f", "Tout fermer"},
        {"Fermer", "Fermer_e", "Fermer"}, {"FERMER", "FERMER_E", "FERMER"}, {"Oui", "Oui", "Oui"},
        {"-Non", "-Non", "-Non"}, {"Fin&", "Fin", "Fin"}, {"&", "", ""}, {"\351t\351", "\351t\351", "\351t\351"},
        {"", "Une_e", "Une"}, {nullptr, "Une_e", "Une"}});
}

class Utf8Renamings : public Renamings {
    void before_start() override {
        ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
        Renamings::before_start();
    }
};

TEST_F(Utf8Renamings, AreShownInLatin1AndToldAsGiven) {
    keyboard().layout("fr");
    check({{"\u00e9t\u00e9", "\351t\351", "\u00e9t\u00e9"}, {"&\u00e9t\u00e9", "\351t\351_\351", "\u00e9t\u00e9"},
        {"\351t\351", "\351t\351", "\351t\351"}, {"\u20acuro", "?uro", "\u20acuro"}, {"", "Une_e", "Une"}});
}

TEST_F(Utf8Renamings, AreCutBetweenCharacters) {
    main_window(shared_menu);
    std::string text = "a";
    for (int i = 0; i < 200; ++i) text += "\u00e9";
    grx_change_texte_entree_menu(20, text.c_str(), 0);
    EXPECT_EQ(std::string(state_of(20).texte), text.substr(0, 255));
    grx_change_texte_entree_menu(20, text.substr(1).c_str(), 0);
    EXPECT_EQ(std::string(state_of(20).texte), text.substr(1, 254));
}

// --- marks

TEST_F(EntryStates, AMarkStandsLeftOfTheTextsWhichStayInLine) {
    main_window(shared_menu);
    const Pixels before = opened_menu(entry_named("Une"));
    grx_coche_entree_menu(20, 0, 0);
    const Pixels with_column = opened_menu(entry_named("Une"));
    const int column = static_cast<int>(resource<Dimension>(entry_named("Deux"), XmNmarginLeft));
    EXPECT_GT(column, 6);
    EXPECT_EQ(resource<Dimension>(entry_named("Une"), XmNmarginLeft), column);
    EXPECT_EQ(resource<Dimension>(entry_named("Autre"), XmNmarginLeft), 0) << "the other menu is as ever";
    const int height = before.height, top = 2, width = before.width;
    EXPECT_EQ(with_column.width, width + column);
    // The texts have moved by the column, and nothing stands in it.
    EXPECT_TRUE(
        same(before.part({4, top, width - 8, height - 4}), with_column.part({4 + column, top, width - 8, height - 4})));
    grx_coche_entree_menu(20, 1, 0);
    const Pixels ticked = opened_menu(entry_named("Une"));
    EXPECT_EQ(ticked.width, with_column.width);
    const Area first{4, 4, column - 2, 16},
        second{4, 4 + resource<Position>(entry_named("Deux"), XmNy), column - 2, 16};
    EXPECT_TRUE(same(ticked.part(first), with_column.part(first)));
    const auto ink = static_cast<std::uint32_t>(resource<Pixel>(entry_named("Deux"), XmNforeground));
    EXPECT_GT(ticked.part(second).count(ink), 8);
    EXPECT_EQ(with_column.part(second).count(ink), 0);
    EXPECT_EQ(state_of(20).coche, 1);
    grx_coche_entree_menu(20, 0, 0);
    EXPECT_TRUE(same(opened_menu(entry_named("Une")), with_column));
}

TEST_F(EntryStates, MarksComeWhileTheMenuIsOpen) {
    main_window(shared_menu);
    pointer().click_in(children_of(grx_get_Glob_menu_bar()).at(0));
    ASSERT_TRUE(wait_visible(entry_named("Une")));
    take_pointer_away();
    settle();
    const auto ink = static_cast<std::uint32_t>(resource<Pixel>(entry_named("Deux"), XmNforeground));
    const auto dark = [&] { return grab(x11_disp, XtWindow(entry_named("Deux"))).count(ink); };
    const int plain = dark();
    grx_coche_entree_menu(20, 1, 0);
    settle();
    const int ticked = dark();
    EXPECT_GT(ticked, plain + 8);
    grx_desactive_entree_menu(20, 1, 0);
    settle();
    EXPECT_LT(dark(), plain);
    grx_desactive_entree_menu(20, 0, 0);
    settle();
    EXPECT_EQ(dark(), ticked);
    grx_coche_entree_menu(20, 0, 0);
    grx_change_texte_entree_menu(20, "Un texte bien plus long", 0);
    settle();
    EXPECT_EQ(resource<Dimension>(entry_named("Un texte bien plus long"), XmNwidth),
        resource<Dimension>(entry_named("Une"), XmNwidth));
    pointer().click_in(entry_named("Un texte bien plus long"));
    EXPECT_TRUE(wait_for([&] { return chosen(20) == 1; }));
}

// A mark is faint like the text of its entry.
TEST_F(EntryStates, MarksOfInsensitiveEntriesAreFaint) {
    main_window(shared_menu);
    grx_coche_entree_menu(20, 1, 0);
    grx_desactive_entree_menu(20, 1, 0);
    const Pixels picture = opened_menu(entry_named("Deux"));
    const Widget entry = entry_named("Deux");
    const int top = resource<Position>(entry, XmNy), column = resource<Dimension>(entry, XmNmarginLeft);
    const Pixels mark = picture.part({4, 4 + top, column - 2, 16});
    EXPECT_EQ(mark.count(static_cast<std::uint32_t>(resource<Pixel>(entry, XmNforeground))), 0);
    EXPECT_GT(mark.count(static_cast<std::uint32_t>(resource<Pixel>(entry, XmNbottomShadowColor))), 8);
}

// --- asking, bad input, memory, cost

TEST_F(EntryStates, UnknownNumbersAndBadRecordsAreTold) {
    main_window(shared_menu);
    GRX_ENTREE_MENU entry{};
    EXPECT_EQ(grx_init_entree_menu(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_entree_menu(10, nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_entree_menu(10, &entry), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_init_entree_menu(&entry), 1);
    EXPECT_EQ(entry.taille, static_cast<INT>(sizeof entry));
    EXPECT_EQ(grx_recup_entree_menu(10, &entry), 1);
    for (const INT number : {-1, 11, INT_MIN, INT_MAX}) {
        EXPECT_EQ(grx_recup_entree_menu(number, &entry), GRX_ECHEC_NUMERO);
        EXPECT_EQ(entry.nb_entrees, 0);
        EXPECT_EQ(entry.active, 1);
        EXPECT_STREQ(entry.texte, "");
        EXPECT_EQ(grx_desactive_entree_menu(number, INT_MIN, INT_MAX), 1);
        EXPECT_EQ(grx_recup_entree_menu(number, &entry), 1);
        EXPECT_EQ(entry.active, 0);
        EXPECT_EQ(grx_coche_entree_menu(number, INT_MAX, INT_MIN), 1);
        EXPECT_EQ(grx_change_texte_entree_menu(number, std::string(100000, 'x').c_str(), 1), 1);
        EXPECT_EQ(state_of(number).texte, std::string(255, 'x'));
    }
    EXPECT_EQ(grx_initialise_entrees_menu(), 1);
    EXPECT_EQ(grx_recup_entree_menu(-1, &entry), GRX_ECHEC_NUMERO);
    grx_change_texte_entree_menu(20, std::string(300, 'W').c_str(), 0); // on an entry
    EXPECT_GT(resource<Dimension>(XtParent(entry_named("Une")), XmNwidth), 255 * 5);
}

class StatesBeforeStart : public XTest {};

TEST_F(StatesBeforeStart, AreRemembered) {
    EXPECT_EQ(grx_desactive_entree_menu(101, 1, 0), 1);
    EXPECT_EQ(grx_change_texte_entree_menu(101, "Avant", 1), 1);
    EXPECT_STREQ(state_of(101).texte, "Avant");
    EXPECT_EQ(grx_initialise_entrees_menu(), 1);
    EXPECT_EQ(grx_ouvre_menu_contextuel(1, nullptr, "#:Z", 0, 0), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_ouvre_menu_contextuel_souris(1, nullptr, "#:Z"), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_ferme_menu_contextuel(), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_recup_fenetre_menu_contextuel(), GRX_AUCUN);
}

TEST_F(EntryStates, ShortageOfMemoryIsTold) {
    const NoLeak no_leak;
    fail_each_allocation([] {
        for (INT number = 0; number < 3; ++number) {
            const INT results[] = {grx_desactive_entree_menu(number, 1, 1), grx_coche_entree_menu(number, 1, 1),
                grx_change_texte_entree_menu(number, "Texte", 1)};
            for (const INT result : results) EXPECT_TRUE(result == 1 || result == GRX_ECHEC_MEMOIRE) << result;
        }
        grx_initialise_entrees_menu();
    });
}

TEST_F(EntryStates, FiveHundredRoundsLeaveNothing) {
    const INT window = main_window(shared_menu);
    const auto round = [&] {
        for (const INT on : {1, 0}) {
            grx_desactive_entree_menu(10, on, on);
            grx_coche_entree_menu(10, on, on);
            grx_change_texte_entree_menu(10, on != 0 ? "Autre texte" : "", on);
        }
    };
    round();
    rebuild();
    drain();
    const auto bytes = heap().bytes();
    const auto before = server_resources(test_display(), x_window(window));
    for (int i = 0; i < 500; ++i) {
        round();
        if (i % 50 == 0) rebuild();
    }
    drain();
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(server_resources(test_display(), x_window(window)), before);
}

// A state that is changed on a closed menu sends what concerns its entry, however many there are.
TEST_F(EntryStates, AChangeCostsTheSameAmongManyEntries) {
    const auto cost_among = [this](int entries) {
        std::string lines = "POPUP||A|\n{\n";
        for (int i = 0; i < entries; ++i) lines += "ITEM||e" + std::to_string(i) + "||" + std::to_string(i) + "|\n";
        const INT window = main_window(menu_zone(lines + "}\n"));
        grx_coche_entree_menu(3, 1, 0); // the column
        drain();
        Cost cost(x11_disp);
        for (INT i = 0; i < 100; ++i) {
            grx_desactive_entree_menu(i, 1, 0);
            grx_coche_entree_menu(i, 1, 0);
        }
        const auto requests = cost.requests();
        EXPECT_EQ(cost.round_trips(), 0U);
        grx_detruit_fenetre(window);
        drain();
        return requests;
    };
    EXPECT_EQ(cost_among(500), cost_among(1000));
}

// 5,000 entries in a bar and in one menu: all of them made insensitive and ticked, twice as many in twice the time.
TEST_F(EntryStates, TimeGrowsWithTheEntries) {
    const auto milliseconds = [this](int entries, int in_menu) {
        std::string lines;
        for (int i = 0; i < entries; ++i) {
            if (i % in_menu == 0) lines += (i > 0 ? "}\n" : "") + std::string("POPUP||M|\n{\n");
            lines += "ITEM||e||" + std::to_string(i) + "|\n";
        }
        write_menu(menu_zone(lines + "}\n"));
        const INT window = main_window();
        grx_coche_entree_menu(0, 0, 0);
        const std::clock_t start = std::clock(); // of this process: other programs share the machine
        for (INT i = 0; i < entries; ++i) {
            grx_desactive_entree_menu(i, 1, 0);
            grx_coche_entree_menu(i, 1, 0);
        }
        const auto taken = static_cast<double>(std::clock() - start);
        grx_detruit_fenetre(window);
        drain();
        return taken * 1000.0 / CLOCKS_PER_SEC;
    };
    const int all = amount(5000);
    for (const int in_menu : {50, all}) {
        double half = milliseconds(all / 2, in_menu), whole = milliseconds(all, in_menu);
        for (int again = 0; again < 2; ++again) {
            half = std::min(half, milliseconds(all / 2, in_menu));
            whole = std::min(whole, milliseconds(all, in_menu));
        }
        RecordProperty("ms_of_all_by_" + std::to_string(in_menu), std::to_string(whole));
        EXPECT_LT(whole, 3.2 * half + (sanitized ? 100 : 20))
            << half << " and " << whole << " ms, " << in_menu << " in a menu";
    }
}

} // namespace
