// The menu bar: its size and names, many entries, choosing by pointer and keys, other visuals, under a window manager.
#include "tests/display/menus/menu_kit.h"
#include "tests/support/fake_visual.h"
#include "tests/support/layouts.h"

#include <Xm/RowColumnP.h>
#include <Xm/XmAll.h>

#include <climits>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace grxtest;

// The font that a font list begins with.
XtPointer entry_font(XmFontList fonts) {
    XmFontContext context = nullptr;
    XtPointer font = nullptr;
    if (!XmFontListInitFontContext(&context, fonts)) return nullptr;
    XmFontType type = XmFONT_IS_FONT;
    if (const XmFontListEntry entry = XmFontListNextEntry(context); entry != nullptr)
        font = XmFontListEntryGetFont(entry, &type);
    XmFontListFreeFontContext(context);
    return font;
}

template <class Check>
void for_each_label(Check check) {
    for (Widget widget : all_of_bar()) {
        if (XtIsSubclass(widget, xmSeparatorWidgetClass)) continue;
        XmString label = nullptr;
        XmFontList fonts = nullptr;
        XtVaGetValues(widget, XmNlabelString, &label, XmNfontList, &fonts, nullptr);
        check(widget, label, fonts);
        XmStringFree(label);
    }
}

TEST_F(MenuTest, SizeIsTheBars) {
    const INT window = main_window(example_menu);
    Dimension width = 0, height = 0;
    XtVaGetValues(grx_get_Glob_menu_bar(), XmNwidth, &width, XmNheight, &height, nullptr);
    EXPECT_GT(height, 10);
    for (INT number : {window, -1, 0, 99, INT_MAX}) {
        INT w = 0, h = 0;
        EXPECT_EQ(grx_recup_taille_menu_bar(number, &w, &h), 0);
        EXPECT_EQ(w, width);
        EXPECT_EQ(h, height);
    }
    EXPECT_EQ(grx_recup_tamenubar(), height);
    EXPECT_EQ(server_area(x11_disp, XtWindow(grx_get_Glob_menu_bar())).height, height);
}

TEST_F(MenuTest, NamesAreFixed) {
    main_window(example_menu);
    EXPECT_STREQ(XtName(grx_get_Glob_menu_bar()), "Menu_bar");
    for (Widget widget : all_of_bar()) {
        const std::string name = XtName(widget);
        if (XtIsSubclass(widget, xmCascadeButtonWidgetClass)) {
            EXPECT_EQ(name, "Fin sous_menu");
            EXPECT_STREQ(XtName(submenu_of(widget)), "Sous_menu_bar");
        } else if (XtIsSubclass(widget, xmSeparatorWidgetClass)) {
            EXPECT_EQ(name, "Gadget_Separateur");
            EXPECT_EQ(resource<unsigned char>(widget, XmNorientation), XmHORIZONTAL);
        } else {
            EXPECT_EQ(name, "atome");
            EXPECT_TRUE(XtIsSubclass(widget, xmPushButtonWidgetClass));
        }
    }
    EXPECT_EQ(all_of_bar().size(), 9U);
}

TEST_F(MenuTest, ModuleChoosesTheFile) {
    write_menu(menu_zone("POPUP||Common|\n"), "MNU_COMM.DAT");
    write_menu(menu_zone("POPUP||Mechanics|\n"), "MNU_MECA.DAT");
    write_menu(menu_zone("POPUP||Architecture|\n"), "MNU_ARCH.DAT");
    istate[IST_MODULE_MENU] = 1;
    main_window();
    EXPECT_EQ(shown_bar(), "Mechanics{}");
    const std::vector<std::pair<INT, std::string>> modules{{0, "Common{}"}, {1, "Mechanics{}"}, {2, "Architecture{}"},
        {-1, "Architecture{}"}, {INT_MAX, "Architecture{}"}, {0, "Common{}"}};
    for (const auto& [module, expected] : modules) {
        grx_detruit_menu_bar();
        istate[IST_MODULE_MENU] = module;
        grx_recree_menu_bar();
        EXPECT_EQ(shown_bar(), expected) << module;
    }
}

TEST_F(MenuTest, EveryPartTakesTheApplicationColour) {
    grx_affecte_couleur_application(11);
    main_window(example_menu);
    const auto expected = static_cast<Pixel>(grx_recup_couleur(11));
    EXPECT_EQ(resource<Pixel>(grx_get_Glob_menu_bar(), XmNbackground), expected);
    for (Widget widget : all_of_bar()) {
        EXPECT_EQ(resource<Pixel>(widget, XmNbackground), expected) << shown_entry(widget);
        EXPECT_EQ(resource<Pixel>(XtParent(widget), XmNbackground), expected);
    }
}

TEST_F(MenuTest, ShellsHaveTheDisplaysVisual) {
    main_window(example_menu);
    for (Widget widget : all_of_bar()) {
        if (!XtIsSubclass(widget, xmCascadeButtonWidgetClass)) continue;
        const Widget shell = XtParent(submenu_of(widget));
        EXPECT_EQ(resource<Colormap>(shell, XmNcolormap), x11_cmap);
        EXPECT_EQ(resource<int>(shell, XmNdepth), grx_recup_profondeur_ecran());
    }
}

TEST_F(MenuTest, LabelsHaveASize) {
    main_window(example_menu);
    for_each_label([](Widget widget, XmString label, XmFontList fonts) {
        Dimension width = 0, height = 0;
        XmStringExtent(fonts, label, &width, &height);
        EXPECT_GT(width, 10) << shown_entry(widget);
        EXPECT_GT(height, 5) << shown_entry(widget);
    });
}

TEST_F(MenuTest, MnemonicWithoutKeyIsLeftOut) {
    main_window(menu_zone("POPUP||&\311dition|\n{\n}\n"));
    EXPECT_EQ(shown_bar(), "\311dition{}");
}

// Even where the user's resources name another for everything.
TEST_F(MenuTest, LabelsAreInTheLibrarysFonts) {
    XrmDatabase resources = XtDatabase(x11_disp);
    XrmPutLineResource(&resources, "*fontList: cursor");
    XrmPutLineResource(&resources, "*buttonFontList: cursor");
    XrmPutLineResource(&resources, "*labelFontList: cursor");
    main_window(example_menu);
    for_each_label([](Widget widget, XmString label, XmFontList fonts) {
        EXPECT_EQ(XmStringWidth(fonts, label), XmStringWidth(fontlist, label)) << shown_entry(widget);
        EXPECT_EQ(entry_font(fonts), entry_font(fontlist)) << shown_entry(widget);
    });
}

TEST_F(MenuTest, BarIsTheMainWindowsAndStandsAboveItsWork) {
    const INT window = main_window(example_menu);
    const Widget bar = grx_get_Glob_menu_bar(), holder = XtParent(bar);
    EXPECT_STREQ(XtName(holder), "main");
    EXPECT_EQ(resource<Widget>(holder, XmNmenuBar), bar);
    const Area all = server_area(x11_disp, XtWindow(holder)), area = server_area(x11_disp, XtWindow(bar)),
               work = server_area(x11_disp, x_window(window));
    EXPECT_EQ(area.x, all.x);
    EXPECT_EQ(area.y, all.y);
    EXPECT_EQ(area.width, all.width);
    EXPECT_GE(work.y, area.y + area.height);
}

TEST_F(MenuTest, BarIsMadeUnmanaged) {
    const INT window = main_window(example_menu);
    const Widget bar = grx_debut_menu_bar(widget_of(window));
    ASSERT_NE(bar, nullptr);
    EXPECT_STREQ(XtName(bar), "Menu_bar");
    EXPECT_FALSE(XtIsManaged(bar));
    EXPECT_EQ(resource<unsigned char>(bar, XmNrowColumnType), XmMENU_BAR);
    EXPECT_NE(grx_get_Glob_menu_bar(), bar);
}

TEST_F(MenuTest, SeparatorsHaveNoKeyAndPostNothing) {
    main_window(menu_zone("POPUP||A|\n{\nITEM||-|Ctrl+Q|7|\nITEM||-x&y|Ctrl+R|8|\nITEM||x-|Ctrl+T|9|\n}\n"));
    EXPECT_EQ(shown_bar(), "A{-, -, x- <Ctrl+T>}");
    EXPECT_EQ(chosen_by_key(7, XK_q, ControlMask), 0);
    EXPECT_EQ(chosen_by_key(8, XK_r, ControlMask), 0);
    EXPECT_EQ(chosen_by_key(9, XK_t, ControlMask), 1);
}

// --- many -----------------------------------------------------------------------------------------------------------

class ManyEntries : public MenuTest {
  protected:
    static std::string menu_of(int count) {
        std::string lines = "POPUP||A|\n{\n";
        for (int i = 0; i < count; ++i) lines += "ITEM||e" + std::to_string(i) + "||" + std::to_string(i) + "|\n";
        return menu_zone(lines + "}\n");
    }
    // How many blocks of a size live.
    static std::ptrdiff_t blocks_of(std::size_t bytes) {
        std::istringstream blocks(heap().living_since(0));
        const std::string size = std::to_string(bytes) + " bytes";
        std::ptrdiff_t count = 0;
        for (std::string line; std::getline(blocks, line);) count += line.find(size) == 0 ? 1 : 0;
        return count;
    }
    // Blocks of this size that taking the menus down gives back.
    std::ptrdiff_t tables_given_back(int entries, std::size_t bytes) {
        write_menu(menu_of(entries));
        grx_detruit_menu_bar();
        grx_recree_menu_bar();
        EXPECT_EQ(all_of_bar().size(), static_cast<std::size_t>(entries) + 1);
        const auto before = blocks_of(bytes);
        grx_detruit_menu_bar();
        return before - blocks_of(bytes);
    }
};

TEST_F(ManyEntries, TableDoublesWhenItIsFull) {
    main_window(menu_of(1));
    const std::vector<std::pair<int, std::size_t>> sizes{
        {1, 100}, {100, 100}, {101, 200}, {200, 200}, {201, 400}, {250, 400}};
    for (const auto& [entries, places] : sizes)
        EXPECT_EQ(tables_given_back(entries, places * sizeof(Widget)), 1) << entries;
}

TEST_F(ManyEntries, EndingReleasesTheTableAndLeavesTheMenus) {
    main_window(menu_of(150));
    const auto before = heap().bytes();
    EXPECT_EQ(grx_fin_menu_bar(), 0);
    EXPECT_EQ(before - heap().bytes(), 200 * sizeof(Widget));
    EXPECT_EQ(all_of_bar().size(), 151U);
    EXPECT_EQ(grx_fin_menu_bar(), 0);
    EXPECT_EQ(grx_detruit_menu_bar(), 0); // knows of none any more
    drain();
    EXPECT_EQ(all_of_bar().size(), 151U);
}

TEST_F(ManyEntries, EndingDoesNothingWithoutEntries) {
    main_window(menu_zone("POPUP||A|\n{\n}\nPOPUP||B|\n{\n}\n"));
    const auto before = heap().bytes();
    EXPECT_EQ(grx_fin_menu_bar(), 0);
    EXPECT_EQ(heap().bytes(), before);
    EXPECT_EQ(shown_bar(), "A{} B{}");
    EXPECT_EQ(grx_detruit_menu_bar(), 0); // still knows of the menus
    EXPECT_TRUE(children_of(grx_get_Glob_menu_bar()).empty());
}

TEST_F(ManyEntries, AllOfThemAreThereAndPost) {
    main_window(menu_of(250));
    const auto widgets = all_of_bar();
    ASSERT_EQ(widgets.size(), 251U);
    for (int i = 0; i < 250; ++i) {
        const Widget entry = widgets[static_cast<std::size_t>(i) + 1];
        ASSERT_EQ(shown_entry(entry), "e" + std::to_string(i));
        XtCallCallbacks(entry, const_cast<char*>(XmNactivateCallback), nullptr);
        ASSERT_EQ(evt_global.bouton_appui.no_fo, i);
    }
}

TEST_F(ManyEntries, AMenuIsLaidOutAsAWhole) {
    main_window(menu_of(1));
    const auto layouts = [&](int count) {
        write_menu(menu_of(count));
        grx_detruit_menu_bar();
        drain();
        const Layouts seen(xmRowColumnClassRec.composite_class.change_managed);
        grx_recree_menu_bar();
        grx_detruit_menu_bar();
        drain();
        return seen.count;
    };
    layouts(2);
    EXPECT_EQ(layouts(200), layouts(2));
}

TEST_F(ManyEntries, RequestsGrowWithTheEntriesAndNoFaster) {
    main_window(menu_of(1));
    const auto requests = [&](int count) {
        write_menu(menu_of(count));
        const Cost cost(x11_disp);
        grx_recree_menu_bar();
        grx_detruit_menu_bar();
        drain();
        return cost.requests();
    };
    grx_detruit_menu_bar();
    requests(2);
    const auto hundred = requests(100);
    EXPECT_LE(requests(200), 2 * hundred);
}

TEST_F(MenuTest, HundredMenusAndNoMore) {
    std::string lines;
    std::vector<std::string> expected;
    for (int i = 0; i < 105; ++i) {
        const std::string n = std::to_string(i);
        lines += "POPUP||m" + n + "|\n{\nITEM||e" + n + "||" + n + "|\n}\n";
        if (i < 100) expected.push_back("m" + n + "{e" + n + "}");
    }
    main_window(menu_zone(lines));
    EXPECT_EQ(shown_bar(), joined_texts(expected, " "));
    grx_detruit_menu_bar();
    EXPECT_TRUE(children_of(grx_get_Glob_menu_bar()).empty());
    grx_recree_menu_bar();
    EXPECT_EQ(shown_bar(), joined_texts(expected, " "));
}

TEST_F(MenuTest, SubmenusCountAmongTheHundred) {
    std::string lines = "POPUP||A|\n{\n";
    std::vector<std::string> expected;
    for (int i = 0; i < 105; ++i) {
        const std::string n = std::to_string(i);
        lines += "POPUP||s" + n + "|\n{\nITEM||e" + n + "||" + n + "|\n}\n";
        if (i < 99) expected.push_back("s" + n + "{e" + n + "}");
    }
    main_window(menu_zone(lines + "ITEM||last||7|\n}\nPOPUP||B|\n{\nITEM||b||8|\n}\n"));
    EXPECT_EQ(shown_bar(), "A{" + joined_texts(expected, ", ") + ", last}");
}

// --- choosing -------------------------------------------------------------------------------------------------------

TEST_F(MenuTest, ChoosingWritesFourFieldsOnly) {
    const INT window = main_window(example_menu);
    GRX_EVENEMENT expected = patterned_event();
    evt_global = expected;
    expected.bouton_appui.type_evenement = GRX_EVT_BOUTON_APPUI;
    expected.bouton_appui.nofen = window;
    expected.bouton_appui.bouton = 1;
    expected.bouton_appui.no_fo = 101;
    XtCallCallbacks(entry_named("Open"), const_cast<char*>(XmNactivateCallback), nullptr);
    EXPECT_EQ(std::memcmp(&evt_global, &expected, sizeof expected), 0);
    evt_global = patterned_event();
    grx_affecte_nofen_principale(-1);
    expected.bouton_appui.nofen = -1;
    expected.bouton_appui.no_fo = -5;
    grx_menu_est_active(nullptr, reinterpret_cast<XtPointer>(-5L), nullptr);
    EXPECT_EQ(std::memcmp(&evt_global, &expected, sizeof expected), 0);
}

TEST_F(MenuTest, PressHookDoesNothing) {
    main_window(example_menu);
    evt_global = patterned_event();
    const GRX_EVENEMENT before = evt_global;
    XEvent event{};
    Boolean go_on = True;
    grx_menu_est_appuie(entry_named("Open"), reinterpret_cast<XtPointer>(101L), &event, &go_on);
    EXPECT_EQ(std::memcmp(&evt_global, &before, sizeof before), 0);
    EXPECT_EQ(go_on, True);
}

TEST_F(MenuTest, PointerOpensAMenuAndChooses) {
    const INT window = main_window(example_menu);
    const Widget cascade = children_of(grx_get_Glob_menu_bar()).at(0), entry = entry_named("Save");
    pointer().click_in(cascade);
    ASSERT_TRUE(wait_visible(entry));
    EXPECT_GT(
        grab(x11_disp, XtWindow(entry)).count_other(static_cast<std::uint32_t>(resource<Pixel>(entry, XmNbackground))),
        10);
    events.clear();
    pointer().click_in(entry);
    const auto chosen = events.wait(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(chosen) << events.describe();
    EXPECT_EQ(chosen->bouton_appui.nofen, window);
    EXPECT_EQ(chosen->bouton_appui.no_fo, 102);
    EXPECT_EQ(chosen->bouton_appui.bouton, 1);
    EXPECT_EQ(chosen->bouton_appui.nobou, -1);
    EXPECT_EQ(chosen->bouton_appui.etat, 0);
    ASSERT_TRUE(wait_for([&] { return !visible(XtWindow(entry)); }));
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 1) << events.describe();
}

TEST_F(MenuTest, PointerChoosesFromASubmenu) {
    main_window(example_menu);
    const Widget entry = open_submenu();
    events.clear();
    pointer().click_in(entry);
    ASSERT_TRUE(wait_for([&] { return chosen(120) == 1; })) << events.describe();
}

TEST_F(MenuTest, KeysWalkThroughTheMenus) {
    main_window(example_menu);
    keyboard().key(XK_F10);
    ASSERT_TRUE(wait_for([&] {
        XEvent event;
        return !XCheckTypedEvent(x11_disp, KeyPress, &event);
    }));
    drain();
    keyboard().key(XK_Down);
    ASSERT_TRUE(wait_visible(entry_named("Open")));
    keyboard().key(XK_Down);
    drain();
    keyboard().key(XK_Return);
    ASSERT_TRUE(wait_for([&] { return chosen(102) == 1; })) << events.describe();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 1);
}

TEST_F(MenuTest, MnemonicsOpenAndChoose) {
    main_window(example_menu);
    keyboard().key(XK_f, Mod1Mask);
    ASSERT_TRUE(wait_visible(entry_named("Save")));
    drain();
    events.clear();
    keyboard().key(XK_s);
    ASSERT_TRUE(wait_for([&] { return chosen(102) == 1; })) << events.describe();
    ASSERT_TRUE(wait_for([&] { return !visible(XtWindow(entry_named("Save"))); }));
    keyboard().key(XK_h, Mod1Mask);
    ASSERT_TRUE(wait_visible(entry_named("About")));
}

// --- on a visual that is not the root's, and under a window manager ---------------------------------------------------

class OtherVisualMenus : public MenuTest {
  protected:
    void fake(FakeVisual::Kind kind) {
        MenuTest::before_start();
        fake_.emplace(kind);
    }
    void expect_visual(Widget widget) {
        XWindowAttributes attributes{};
        ASSERT_NE(XGetWindowAttributes(x11_disp, XtWindow(widget), &attributes), 0);
        EXPECT_EQ(attributes.visual, x11_vis) << XtName(widget);
        EXPECT_EQ(attributes.depth, grx_recup_profondeur_ecran()) << XtName(widget);
        EXPECT_EQ(attributes.colormap, x11_cmap) << XtName(widget);
    }
    // Menus and submenus come up on it, and every way of choosing chooses.
    void expect_working_menus() {
        main_window(example_menu);
        EXPECT_EQ(shown_bar(), example_menu_shown);
        expect_visual(grx_get_Glob_menu_bar());
        const Widget sub = entry_named("Export"), entry = open_submenu();
        for (Widget shown_part : {sub, entry, XtParent(XtParent(sub)), XtParent(XtParent(entry))})
            expect_visual(shown_part);
        pointer().click_in(entry);
        ASSERT_TRUE(wait_for([&] { return chosen(120) == 1; })) << events.describe();
        ASSERT_TRUE(wait_for([&] { return !visible(XtWindow(entry)); }));
        EXPECT_EQ(chosen_by_key(102, XK_s, ControlMask), 1);
        grx_detruit_menu_bar();
        grx_recree_menu_bar();
        drain();
        EXPECT_EQ(chosen_by_key(102, XK_s, ControlMask), 1);
        EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
    }

  private:
    std::optional<FakeVisual> fake_;
};

class Alt24MenusOn24 : public OtherVisualMenus {
    void before_start() override { fake(FakeVisual::Kind::alt24); }
};
TEST_F(Alt24MenusOn24, Work) {
    EXPECT_NE(x11_vis, DefaultVisual(x11_disp, x11_screen));
    expect_working_menus();
}

class Alt32MenusOn24 : public OtherVisualMenus {
    void before_start() override { fake(FakeVisual::Kind::alt32); }
};
TEST_F(Alt32MenusOn24, Work) {
    EXPECT_EQ(grx_recup_profondeur_ecran(), 32);
    expect_working_menus();
}

class Default8MenusOn24 : public OtherVisualMenus {
    void before_start() override { fake(FakeVisual::Kind::default8); }
};
TEST_F(Default8MenusOn24, Work) {
    EXPECT_EQ(grx_recup_profondeur_ecran(), 24);
    expect_working_menus();
}

class MenusWmTest : public MenuTest {
  protected:
    void before_start() override {
        MenuTest::before_start();
        manager_.emplace(server());
    }
    // mwm gives the keys to the window that was clicked.
    void click_into(INT window) {
        pointer().click_in(widget_of(window), 60, 200);
        ASSERT_TRUE(wait_for([&] { return has_keys(window); }));
        drain();
        events.clear();
    }
    bool has_keys(INT window) {
        Window owner = None;
        int revert = 0;
        XGetInputFocus(test_display(), &owner, &revert);
        return owner == XtWindow(shell_of(window));
    }

  private:
    std::optional<WindowManager> manager_;
};

TEST_F(MenusWmTest, PointerChooses) {
    const INT window = main_window(example_menu);
    click_into(window);
    for (int i = 0; i < 2; ++i) {
        const Widget entry = open_submenu();
        events.clear();
        pointer().click_in(entry);
        ASSERT_TRUE(wait_for([&] { return chosen(120) == 1; })) << events.describe();
        ASSERT_TRUE(wait_for([&] { return !visible(XtWindow(entry)); }));
        grx_detruit_menu_bar();
        grx_recree_menu_bar();
        drain();
    }
}

TEST_F(MenusWmTest, KeysChooseOncePerPress) {
    click_into(main_window(menu_of_keys));
    for (int locks = 0; locks < 4; ++locks) {
        if (locks & 1) lock_numbers();
        if (locks & 2) lock_capitals();
        EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1) << locks;
        EXPECT_EQ(chosen_by_key(12, XK_F5), 1) << locks;
        EXPECT_EQ(chosen_by_key(13, XK_x, Mod1Mask), 1) << locks;
        EXPECT_EQ(chosen_by_key(15, XK_t, ControlMask | ShiftMask), 1) << locks;
        release_locks();
    }
    new_layout("fr");
    EXPECT_EQ(chosen_by_key(16, XK_a, ControlMask), 1);
}

TEST_F(MenusWmTest, MnemonicsOpenAndChoose) {
    click_into(main_window(example_menu));
    keyboard().key(XK_f, Mod1Mask);
    ASSERT_TRUE(wait_visible(entry_named("Save")));
    drain();
    events.clear();
    keyboard().key(XK_s);
    ASSERT_TRUE(wait_for([&] { return chosen(102) == 1; })) << events.describe();
}

TEST_F(MenusWmTest, KeysOfAnotherWindowGoToTheMenusOnce) {
    main_window(menu_of_keys);
    GRX_FENETRE other = described(GRX_FEN_GRAPHIQUE);
    other.x = 700;
    const INT window = make(other);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    GRX_BOUTON button{};
    grx_init_bouton(&button);
    button.type = GRX_BOU_DESSINE;
    button.attrib = GRX_BOU_ATT_ACTIF;
    button.fen_mere = window;
    button.x = button.y = 10;
    button.largeur = button.hauteur = 60;
    ASSERT_EQ(grx_cree_bouton(&button), 0);
    ASSERT_TRUE(wait_visible(grx_recup_objet_bout(button.nobou)));
    pointer().click_in(grx_recup_objet_bout(button.nobou), 30, 30);
    ASSERT_TRUE(wait_for([&] { return has_keys(window); }));
    drain();
    for (int i = 0; i < 3; ++i) EXPECT_EQ(chosen_by_key(13, XK_x, Mod1Mask), 1) << i << ": " << events.describe();
}

} // namespace
