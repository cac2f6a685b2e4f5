// The menu bar: built from its file, chosen from with pointer and keys, taken down and built again.
#include "tests/display/window_kit.h"
#include "tests/support/controls.h"

#include "tests/support/descriptors.h"
#include "tests/support/fake_visual.h"
#include "tests/support/xlib_calls.h"
#include "tests/support/stdout_capture.h"

#include "tools/verif/menu_check.h"
#include "xt_prive.h"

#include <X11/IntrinsicP.h>
#include <X11/XKBlib.h>
#include <Xm/RowColumnP.h>
#include <Xm/XmAll.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace grxtest;

std::string zone(const std::string& lines) {
    return "#:ZONE_MENU_BAR\n{\n" + lines + "}\n";
}

const std::string example = zone("POPUP|12||\n"
                                 "{\n"
                                 "ITEM|13||Ctrl+O|101|\n"
                                 "ITEM||&Save|Ctrl+S|102|\n"
                                 "ITEM||-|||\n"
                                 "POPUP||&Export|\n"
                                 "{\n"
                                 "ITEM||DXF...||120|\n"
                                 "}\n"
                                 "ITEM||Quit||999|\n"
                                 "}\n"
                                 "POPUP||&Help|\n"
                                 "{\n"
                                 "ITEM||About||900|\n"
                                 "}\n");
const std::string example_shown = "File_F{Open_O <Ctrl+O>, Save_S <Ctrl+S>, -, Export_E{DXF...}, Quit} Help_H{About}";

std::vector<Widget> children_of(Widget parent) {
    WidgetList list = nullptr;
    Cardinal count = 0;
    XtVaGetValues(parent, XmNchildren, &list, XmNnumChildren, &count, nullptr);
    return {list, list + count};
}

Widget submenu_of(Widget cascade) {
    return resource<Widget>(cascade, XmNsubMenuId);
}

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

std::string joined(const std::vector<std::string>& texts, const char* between) {
    std::string result;
    for (const auto& text : texts) result += (result.empty() ? "" : between) + text;
    return result;
}

std::string shown(Widget entry) {
    if (XtIsSubclass(entry, xmSeparatorWidgetClass)) return "-";
    std::string text = text_resource(entry, XmNlabelString);
    const KeySym mnemonic = resource<KeySym>(entry, XmNmnemonic);
    if (mnemonic != NoSymbol && mnemonic != XK_VoidSymbol) text += "_" + std::string(1, static_cast<char>(mnemonic));
    if (XtIsSubclass(entry, xmCascadeButtonWidgetClass)) {
        std::vector<std::string> inner;
        for (Widget child : children_of(submenu_of(entry))) inner.push_back(shown(child));
        return text + "{" + joined(inner, ", ") + "}";
    }
    const std::string key = text_resource(entry, XmNacceleratorText);
    return key == "(none)" || key.empty() ? text : text + " <" + key + ">";
}

// The whole bar as text: menus with their mnemonics, entries with their keys.
std::string shown_bar() {
    std::vector<std::string> menus;
    for (Widget cascade : children_of(grx_get_Glob_menu_bar())) menus.push_back(shown(cascade));
    return joined(menus, " ");
}

void gather(Widget menu, std::vector<Widget>& into) {
    for (Widget child : children_of(menu)) {
        into.push_back(child);
        if (XtIsSubclass(child, xmCascadeButtonWidgetClass)) gather(submenu_of(child), into);
    }
}

// Every cascade, entry and separator, in order.
std::vector<Widget> all_of_bar() {
    std::vector<Widget> result;
    gather(grx_get_Glob_menu_bar(), result);
    return result;
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

Widget entry_named(const std::string& label) {
    for (Widget widget : all_of_bar())
        if (!XtIsSubclass(widget, xmSeparatorWidgetClass) && text_resource(widget, XmNlabelString) == label)
            return widget;
    return nullptr;
}

// How many of each kind are in the bar, or taken by the checker of menu files.
using Counts = std::map<std::string, long>;

Counts built_counts() {
    Counts counts{{"menu", 0}, {"entry", 0}, {"separator", 0}};
    for (Widget w : all_of_bar()) {
        const bool menu = XtIsSubclass(w, xmCascadeButtonWidgetClass);
        ++counts[menu ? "menu" : XtIsSubclass(w, xmSeparatorWidgetClass) ? "separator" : "entry"];
    }
    return counts;
}

Counts checked_counts(const std::string& menu_file) {
    std::istringstream file(menu_file);
    Counts counts{{"menu", 0}, {"entry", 0}, {"separator", 0}};
    for (const auto& finding : verif::MenuCheck::check(file)) {
        if (finding.verdict != verif::Verdict::taken) continue;
        const auto kind = finding.text.substr(0, finding.text.find(' '));
        if (kind == "submenu") ++counts["menu"];
        if (counts.contains(kind)) ++counts[kind];
    }
    return counts;
}

class MenuTest : public DisplayTest {
  protected:
    void before_start() override { home().write("MSG_MENU.DAT", "12|&File\n13|&Open\n"); }

    // The main window, on the screen, with the pointer in it.
    INT main_window(const std::string& menu_file) {
        write_menu(menu_file);
        const INT window = main_window();
        EXPECT_EQ(built_counts(), checked_counts(menu_file)); // what grx-verif says of the file
        return window;
    }
    INT main_window() {
        const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE, 500, 300);
        EXPECT_GT(window, 0);
        grx_affecte_nofen_principale(window);
        EXPECT_TRUE(wait_visible(widget_of(window)));
        point_at(window);
        return window;
    }
    void point_at(INT window) {
        pointer().move_in(widget_of(window), 60, 200);
        drain();
        events.clear();
    }

    // Clicks the example's submenu open; its entry, on the screen.
    Widget open_submenu() {
        const Widget sub = entry_named("Export"), entry = entry_named("DXF...");
        pointer().click_in(children_of(grx_get_Glob_menu_bar()).at(0));
        EXPECT_TRUE(wait_visible(sub));
        pointer().click_in(sub);
        EXPECT_TRUE(wait_visible(entry));
        return entry;
    }

    int chosen(INT function) {
        return static_cast<int>(std::ranges::count_if(events.seen(), [=](const GRX_EVENEMENT& e) {
            return e.type_evenement == GRX_EVT_BOUTON_APPUI && e.bouton_appui.no_fo == function;
        }));
    }
    // How often pressing and releasing this key chooses the entry of this number.
    int chosen_by_key(INT function, KeySym symbol, unsigned modifiers = 0) {
        events.clear();
        keyboard().key(symbol, modifiers);
        drain();
        drain();
        return chosen(function);
    }
    void new_layout(const char* name) {
        keyboard().layout(name);
        drain();
    }
    void lock_numbers() {
        keyboard().num_lock();
        drain();
    }
    void lock_capitals() {
        keyboard().caps_lock();
        drain();
    }
    void release_locks() {
        XkbLockModifiers(test_display(), XkbUseCoreKbd, LockMask | Mod2Mask, 0);
        XSync(test_display(), False);
        drain();
    }
};

// --- building -------------------------------------------------------------------------------------------------------

TEST_F(MenuTest, ExampleIsBuiltInOrder) {
    main_window(example);
    EXPECT_EQ(shown_bar(), example_shown);
    EXPECT_TRUE(XtIsManaged(grx_get_Glob_menu_bar()));
}

TEST_F(MenuTest, LineEndsDoNotMatter) {
    std::string dos;
    for (char c : example) dos += c == '\n' ? std::string("\r\n") : std::string(1, c);
    main_window(dos);
    EXPECT_EQ(shown_bar(), example_shown);
}

TEST_F(MenuTest, LastLineNeedsNoEnd) {
    main_window("#:ZONE_MENU_BAR\n{\nPOPUP||A|\n{\nITEM||a||1|\nITEM||b||2|");
    EXPECT_EQ(shown_bar(), "A{a, b}");
}

TEST_F(MenuTest, UselessLinesAreSkipped) {
    main_window(
        "POPUP||before|\n{\nITEM||before||1|\n}\n#:ZONE_MENU_BAR\nDEBUT\n{\n# comment\n\n   \nPOPUP||A|\n  {  \n"
        "ITEM||a||1|\nrubbish\nITEM||open||2\nITEM||FIN DE SESSION||3|\n#:ZONE_MENU_BAR\nITEM||b||4|\n}\n}\n}\n}\n"
        "{\nPOPUP||B|\nFIN\n");
    EXPECT_EQ(shown_bar(), "A{a, b} B{}");
}

TEST_F(MenuTest, HugeLinesAreSurvived) {
    main_window(zone("POPUP||A|\n{\nITEM||" + std::string(100000, 'x') + "||1|\nITEM||b||2|\n"
                     + std::string(100000, '|') + "\n" + std::string(100000, '#') + "\nITEM||c||3|\n}\n"));
    const std::string bar = shown_bar();
    EXPECT_NE(bar.find("b, "), std::string::npos) << bar.substr(0, 500);
    EXPECT_TRUE(bar.ends_with("c}")) << bar.substr(0, 500);
    for (Widget entry : all_of_bar()) {
        if (!XtIsSubclass(entry, xmSeparatorWidgetClass)) {
            EXPECT_LT(text_resource(entry, XmNlabelString).size(), std::size_t{GRX_MENU_NOM_MAX});
        }
    }
}

TEST_F(MenuTest, EntryWithoutMenuIsSkipped) {
    main_window(zone("ITEM||lost||1|\nPOPUP||A|\nITEM||at depth 1||2|\n{\nITEM||a||3|\n}\n"));
    EXPECT_EQ(shown_bar(), "A{at depth 1, a}");
}

TEST_F(MenuTest, LinesOutsideTheBracesBuildNothing) {
    main_window(
        "#:ZONE_MENU_BAR\nPOPUP||Zero|\nITEM||zero||1|\n{\n{\nITEM||two||2|\nPOPUP||Two|\n{\nITEM||three||3|\n}\n}\n"
        "POPUP||A|\n{\nITEM||a||4|\n}\n}\n");
    EXPECT_EQ(shown_bar(), "A{a}");
}

TEST_F(MenuTest, DeeperLevelsBuildNothing) {
    main_window(zone(
        "POPUP||A|\n{\nPOPUP||B|\n{\nITEM||b||1|\nPOPUP||C|\n{\nITEM||c||2|\n}\nITEM||d||3|\n}\nITEM||e||4|\n}\n"));
    EXPECT_EQ(shown_bar(), "A{B{b, d}, e}");
}

// A submenu's button comes when the submenu ends.
TEST_F(MenuTest, SubmenusKeepTheirPlace) {
    main_window(zone("POPUP||A|\n{\nITEM||1||1|\nPOPUP||B|\n{\nITEM||b||2|\n}\nPOPUP||C|\n{\nITEM||c||3|\n}\n"
                     "ITEM||2||4|\nPOPUP||D|\n{\nITEM||d||5|\n}\n}\nPOPUP||E|\n{\nPOPUP||F|\n{\nITEM||f||6|\n}\n}\n"));
    EXPECT_EQ(shown_bar(), "A{1, B{b}, C{c}, 2, D{d}} E{F{f}}");
}

TEST_F(MenuTest, OpenMenusEndWithTheFile) {
    main_window("#:ZONE_MENU_BAR\n{\nPOPUP||A|\n{\nITEM||a||1|\nPOPUP||B|\n{\nITEM||b||2|\n");
    EXPECT_EQ(shown_bar(), "A{a, B{b}}");
}

TEST_F(MenuTest, MenusWithoutEntries) {
    main_window(zone("POPUP||A|\nPOPUP||B|\n{\n}\nPOPUP||C|\n{\nPOPUP||D|\nPOPUP||E|\n}\n"));
    EXPECT_EQ(shown_bar(), "A{} B{} C{D{}, E{}}");
    grx_detruit_menu_bar();
    EXPECT_TRUE(children_of(grx_get_Glob_menu_bar()).empty());
    grx_recree_menu_bar();
    EXPECT_EQ(shown_bar(), "A{} B{} C{D{}, E{}}");
}

TEST_F(MenuTest, EmptyZoneAndMissingMarkerGiveAnEmptyBar) {
    for (const char* file : {"#:ZONE_MENU_BAR\n{\n}\n", "{\nPOPUP||A|\n{\nITEM||a||1|\n}\n}\n", ""}) {
        const INT window = main_window(file);
        ASSERT_NE(grx_get_Glob_menu_bar(), nullptr);
        EXPECT_TRUE(XtIsManaged(grx_get_Glob_menu_bar()));
        EXPECT_TRUE(children_of(grx_get_Glob_menu_bar()).empty());
        grx_detruit_fenetre(window);
        drain();
    }
}

TEST_F(MenuTest, MissingFileIsError2AndNoBar) {
    StdoutCapture capture;
    const INT window = main_window();
    ASSERT_GT(window, 0);
    EXPECT_EQ(capture.text(), "GFX ERROR\nCode 2: Opening problem on file 'MNU*.DAT' \n");
    capture.restore();
    EXPECT_EQ(grx_get_Glob_menu_bar(), nullptr);
    INT width = 77, height = 77;
    EXPECT_EQ(grx_recup_taille_menu_bar(window, &width, &height), 0);
    EXPECT_EQ(width, 0);
    EXPECT_EQ(height, 0);
    EXPECT_EQ(grx_recup_tamenubar(), 0);
    EXPECT_EQ(grx_detruit_menu_bar(), 0);
    EXPECT_EQ(grx_fin_menu_bar(), 0);
    write_menu(example);
    EXPECT_EQ(grx_recree_menu_bar(), 0);
    EXPECT_EQ(grx_get_Glob_menu_bar(), nullptr);
}

TEST_F(MenuTest, SizeIsTheBars) {
    const INT window = main_window(example);
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
    main_window(example);
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
    write_menu(zone("POPUP||Common|\n"), "MNU_COMM.DAT");
    write_menu(zone("POPUP||Mechanics|\n"), "MNU_MECA.DAT");
    write_menu(zone("POPUP||Architecture|\n"), "MNU_ARCH.DAT");
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
    main_window(example);
    const auto expected = static_cast<Pixel>(grx_recup_couleur(11));
    EXPECT_EQ(resource<Pixel>(grx_get_Glob_menu_bar(), XmNbackground), expected);
    for (Widget widget : all_of_bar()) {
        EXPECT_EQ(resource<Pixel>(widget, XmNbackground), expected) << shown(widget);
        EXPECT_EQ(resource<Pixel>(XtParent(widget), XmNbackground), expected);
    }
}

TEST_F(MenuTest, ShellsHaveTheDisplaysVisual) {
    main_window(example);
    for (Widget widget : all_of_bar()) {
        if (!XtIsSubclass(widget, xmCascadeButtonWidgetClass)) continue;
        const Widget shell = XtParent(submenu_of(widget));
        EXPECT_EQ(resource<Colormap>(shell, XmNcolormap), x11_cmap);
        EXPECT_EQ(resource<int>(shell, XmNdepth), grx_recup_profondeur_ecran());
    }
}

TEST_F(MenuTest, LabelsHaveASize) {
    main_window(example);
    for_each_label([](Widget widget, XmString label, XmFontList fonts) {
        Dimension width = 0, height = 0;
        XmStringExtent(fonts, label, &width, &height);
        EXPECT_GT(width, 10) << shown(widget);
        EXPECT_GT(height, 5) << shown(widget);
    });
}

TEST_F(MenuTest, MnemonicWithoutKeyIsLeftOut) {
    main_window(zone("POPUP||&\311dition|\n{\n}\n"));
    EXPECT_EQ(shown_bar(), "\311dition{}");
}

// Even where the user's resources name another for everything.
TEST_F(MenuTest, LabelsAreInTheLibrarysFonts) {
    XrmDatabase resources = XtDatabase(x11_disp);
    XrmPutLineResource(&resources, "*fontList: cursor");
    XrmPutLineResource(&resources, "*buttonFontList: cursor");
    XrmPutLineResource(&resources, "*labelFontList: cursor");
    main_window(example);
    for_each_label([](Widget widget, XmString label, XmFontList fonts) {
        EXPECT_EQ(XmStringWidth(fonts, label), XmStringWidth(fontlist, label)) << shown(widget);
        EXPECT_EQ(entry_font(fonts), entry_font(fontlist)) << shown(widget);
    });
}

TEST_F(MenuTest, BarIsTheMainWindowsAndStandsAboveItsWork) {
    const INT window = main_window(example);
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
    const INT window = main_window(example);
    const Widget bar = grx_debut_menu_bar(widget_of(window));
    ASSERT_NE(bar, nullptr);
    EXPECT_STREQ(XtName(bar), "Menu_bar");
    EXPECT_FALSE(XtIsManaged(bar));
    EXPECT_EQ(resource<unsigned char>(bar, XmNrowColumnType), XmMENU_BAR);
    EXPECT_NE(grx_get_Glob_menu_bar(), bar);
}

TEST_F(MenuTest, SeparatorsHaveNoKeyAndPostNothing) {
    main_window(zone("POPUP||A|\n{\nITEM||-|Ctrl+Q|7|\nITEM||-x&y|Ctrl+R|8|\nITEM||x-|Ctrl+T|9|\n}\n"));
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
        return zone(lines + "}\n");
    }
    // Bytes that taking the menus down gives back.
    std::size_t table_bytes(int count) {
        write_menu(menu_of(count));
        grx_detruit_menu_bar();
        grx_recree_menu_bar();
        EXPECT_EQ(all_of_bar().size(), static_cast<std::size_t>(count) + 1);
        const auto before = heap().bytes();
        grx_detruit_menu_bar();
        return before - heap().bytes();
    }
};

TEST_F(ManyEntries, TableDoublesWhenItIsFull) {
    main_window(menu_of(1));
    const std::vector<std::pair<int, std::size_t>> sizes{
        {1, 100}, {100, 100}, {101, 200}, {200, 200}, {201, 400}, {250, 400}};
    for (const auto& [entries, places] : sizes) EXPECT_EQ(table_bytes(entries), places * sizeof(Widget)) << entries;
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
    main_window(zone("POPUP||A|\n{\n}\nPOPUP||B|\n{\n}\n"));
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
        ASSERT_EQ(shown(entry), "e" + std::to_string(i));
        XtCallCallbacks(entry, const_cast<char*>(XmNactivateCallback), nullptr);
        ASSERT_EQ(evt_global.bouton_appui.no_fo, i);
    }
}

// How often the toolkit lays a row or a column out while it lives.
class ColumnLayouts {
  public:
    ColumnLayouts() : toolkit_(xmRowColumnClassRec.composite_class.change_managed) {
        current = this;
        xmRowColumnClassRec.composite_class.change_managed = [](Widget column) {
            ++current->count;
            current->toolkit_(column);
        };
    }
    ~ColumnLayouts() { xmRowColumnClassRec.composite_class.change_managed = toolkit_; }
    ColumnLayouts(const ColumnLayouts&) = delete;
    ColumnLayouts& operator=(const ColumnLayouts&) = delete;

    int count = 0;

  private:
    static inline ColumnLayouts* current = nullptr;
    XtWidgetProc toolkit_;
};

TEST_F(ManyEntries, AMenuIsLaidOutAsAWhole) {
    main_window(menu_of(1));
    const auto layouts = [&](int count) {
        write_menu(menu_of(count));
        grx_detruit_menu_bar();
        drain();
        const ColumnLayouts seen;
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
    main_window(zone(lines));
    EXPECT_EQ(shown_bar(), joined(expected, " "));
    grx_detruit_menu_bar();
    EXPECT_TRUE(children_of(grx_get_Glob_menu_bar()).empty());
    grx_recree_menu_bar();
    EXPECT_EQ(shown_bar(), joined(expected, " "));
}

TEST_F(MenuTest, SubmenusCountAmongTheHundred) {
    std::string lines = "POPUP||A|\n{\n";
    std::vector<std::string> expected;
    for (int i = 0; i < 105; ++i) {
        const std::string n = std::to_string(i);
        lines += "POPUP||s" + n + "|\n{\nITEM||e" + n + "||" + n + "|\n}\n";
        if (i < 99) expected.push_back("s" + n + "{e" + n + "}");
    }
    main_window(zone(lines + "ITEM||last||7|\n}\nPOPUP||B|\n{\nITEM||b||8|\n}\n"));
    EXPECT_EQ(shown_bar(), "A{" + joined(expected, ", ") + ", last}");
}

// --- choosing -------------------------------------------------------------------------------------------------------

TEST_F(MenuTest, ChoosingWritesFourFieldsOnly) {
    const INT window = main_window(example);
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
    main_window(example);
    evt_global = patterned_event();
    const GRX_EVENEMENT before = evt_global;
    XEvent event{};
    Boolean go_on = True;
    grx_menu_est_appuie(entry_named("Open"), reinterpret_cast<XtPointer>(101L), &event, &go_on);
    EXPECT_EQ(std::memcmp(&evt_global, &before, sizeof before), 0);
    EXPECT_EQ(go_on, True);
}

TEST_F(MenuTest, PointerOpensAMenuAndChooses) {
    const INT window = main_window(example);
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
    main_window(example);
    const Widget entry = open_submenu();
    events.clear();
    pointer().click_in(entry);
    ASSERT_TRUE(wait_for([&] { return chosen(120) == 1; })) << events.describe();
}

TEST_F(MenuTest, KeysWalkThroughTheMenus) {
    main_window(example);
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
    main_window(example);
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

// --- accelerators ---------------------------------------------------------------------------------------------------

TEST_F(MenuTest, AcceleratorsReadBackAsStated) {
    main_window(zone("POPUP||A|\n{\nITEM||plain||1|\nITEM||key|F5|2|\nITEM||ctrl|Ctrl+S|3|\n"
                     "ITEM||list|Ctrl+W,Ctrl+F4|4|\nITEM||blanks|  Ctrl + K  |5|\nITEM||two|Ctrl+Shift+T|6|\n"
                     "ITEM||-|Ctrl+Q|7|\n}\n"));
    const std::vector<std::array<std::string, 3>> expected{{"key", "<Key>F5:", "F5"}, {"ctrl", "Ctrl<Key>S:", "Ctrl+S"},
        {"list", "Ctrl<Key>W:", "Ctrl+W"}, {"two", "Ctrl Shift<Key>T:", "Ctrl+Shift+T"}};
    for (const auto& [label, translation, text] : expected) {
        char* value = nullptr;
        XtVaGetValues(entry_named(label), XmNaccelerator, &value, nullptr);
        ASSERT_NE(value, nullptr) << label;
        EXPECT_EQ(value, translation);
        XtFree(value);
        EXPECT_EQ(text_resource(entry_named(label), XmNacceleratorText), text);
    }
    char* none = nullptr;
    XtVaGetValues(entry_named("plain"), XmNaccelerator, &none, nullptr);
    EXPECT_TRUE(none == nullptr || *none == '\0');
    XtFree(none);
}

const std::string keys = zone("POPUP||A|\n{\nITEM||s|Ctrl+S|11|\nITEM||f5|F5|12|\nITEM||x|Alt+X|13|\n"
                              "ITEM||w|Ctrl+W,Ctrl+F4|14|\nITEM||t|Ctrl+Shift+T|15|\nITEM||a|Ctrl+A|16|\n"
                              "ITEM||delete|Shift+Delete|17|\nITEM||f5c|Ctrl+F5|18|\nITEM||aa|Alt+A|19|\n}\n");

TEST_F(MenuTest, KeysChooseOncePerPress) {
    const INT window = main_window(keys);
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1);
    ASSERT_FALSE(events.seen().empty());
    const auto& record = *std::ranges::find_if(
        events.seen(), [](const GRX_EVENEMENT& e) { return e.type_evenement == GRX_EVT_BOUTON_APPUI; });
    EXPECT_EQ(record.bouton_appui.nofen, window);
    EXPECT_EQ(record.bouton_appui.bouton, 1);
    EXPECT_EQ(chosen_by_key(12, XK_F5), 1);
    EXPECT_EQ(chosen_by_key(13, XK_x, Mod1Mask), 1);
    EXPECT_EQ(chosen_by_key(15, XK_t, ControlMask | ShiftMask), 1);
    EXPECT_EQ(chosen_by_key(17, XK_Delete, ShiftMask), 1);
    EXPECT_EQ(chosen_by_key(18, XK_F5, ControlMask), 1);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1);
}

TEST_F(MenuTest, KeysWithOtherModifiersChooseNothing) {
    main_window(keys);
    const std::vector<std::pair<KeySym, unsigned>> others{{XK_s, 0}, {XK_s, Mod1Mask}, {XK_s, ControlMask | Mod1Mask},
        {XK_s, ControlMask | ShiftMask}, {XK_F5, Mod1Mask}, {XK_t, ControlMask}, {XK_x, 0}, {XK_q, ControlMask},
        {XK_Delete, 0}};
    for (const auto& [symbol, modifiers] : others) {
        chosen_by_key(0, symbol, modifiers);
        EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 0) << symbol << " with " << modifiers;
    }
}

TEST_F(MenuTest, OnlyTheFirstKeyOfAListCounts) {
    main_window(keys);
    EXPECT_EQ(chosen_by_key(14, XK_w, ControlMask), 1);
    EXPECT_EQ(chosen_by_key(14, XK_F4, ControlMask), 0);
}

TEST_F(MenuTest, LocksDoNotMatter) {
    main_window(keys);
    for (int locks = 0; locks < 4; ++locks) {
        if (locks & 1) lock_numbers();
        if (locks & 2) lock_capitals();
        EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1) << locks;
        EXPECT_EQ(chosen_by_key(12, XK_F5), 1) << locks;
        EXPECT_EQ(chosen_by_key(13, XK_x, Mod1Mask), 1) << locks;
        release_locks();
    }
}

TEST_F(MenuTest, InsensitiveAndUnmanagedEntriesAreNotChosen) {
    main_window(keys);
    XtSetSensitive(entry_named("s"), False);
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 0);
    XtSetSensitive(entry_named("s"), True);
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1);
    XtUnmanageChild(entry_named("f5"));
    EXPECT_EQ(chosen_by_key(12, XK_F5), 0);
    XtManageChild(entry_named("f5"));
    EXPECT_EQ(chosen_by_key(12, XK_F5), 1);
}

// A key without the modifier that was meant is another key.
TEST_F(MenuTest, UnknownModifiersChooseNothing) {
    main_window(zone("POPUP||A|\n{\nITEM||s|Maj+S|11|\nITEM||f5|Rien+F5|12|\nITEM||x|Ctrl+Rien+X|13|\n"
                     "ITEM||t|Super+T|14|\nITEM||w|Ctrl+W|15|\n}\n"));
    EXPECT_EQ(text_resource(entry_named("s"), XmNacceleratorText), "Maj+S");
    for (const unsigned modifiers : {0U, unsigned{ShiftMask}, unsigned{ControlMask}, unsigned{Mod1Mask}}) {
        EXPECT_EQ(chosen_by_key(11, XK_s, modifiers), 0) << modifiers;
        EXPECT_EQ(chosen_by_key(12, XK_F5, modifiers), 0) << modifiers;
        EXPECT_EQ(chosen_by_key(13, XK_x, modifiers), 0) << modifiers;
        EXPECT_EQ(chosen_by_key(14, XK_t, modifiers), 0) << modifiers;
    }
    EXPECT_EQ(chosen_by_key(15, XK_w, ControlMask), 1);
}

class FrenchKeys : public MenuTest {
  protected:
    void before_start() override { keyboard().layout("fr"); }
};

TEST_F(FrenchKeys, KeysAreThoseOfTheLayout) {
    main_window(keys);
    EXPECT_EQ(chosen_by_key(16, XK_a, ControlMask), 1);
    EXPECT_EQ(chosen_by_key(14, XK_w, ControlMask), 1);
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1);
    EXPECT_EQ(chosen_by_key(16, XK_q, ControlMask), 0);
}

TEST_F(FrenchKeys, AccentedMnemonicsWork) {
    main_window(zone("POPUP||&\351dition|\n{\nITEM||a&\350re||21|\n}\n"));
    EXPECT_EQ(shown_bar(), "\351dition_\351{a\350re_\350}");
    keyboard().key(XK_eacute, Mod1Mask);
    ASSERT_TRUE(wait_visible(all_of_bar().at(1)));
    drain();
    keyboard().key(XK_egrave);
    ASSERT_TRUE(wait_for([&] { return chosen(21) == 1; })) << events.describe();
}

// The layout that the keyboard gets while the bar is up.
TEST_F(MenuTest, KeysFollowANewLayout) {
    main_window(keys);
    for (int i = 0; i < 3; ++i) {
        new_layout("fr");
        EXPECT_EQ(chosen_by_key(16, XK_a, ControlMask), 1) << i;
        EXPECT_EQ(chosen_by_key(16, XK_q, ControlMask), 0) << i; // where the letter was
        EXPECT_EQ(chosen_by_key(14, XK_w, ControlMask), 1) << i;
        EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1) << i;
        new_layout("us");
        EXPECT_EQ(chosen_by_key(16, XK_a, ControlMask), 1) << i;
        EXPECT_EQ(chosen_by_key(14, XK_w, ControlMask), 1) << i;
        EXPECT_EQ(chosen_by_key(14, XK_z, ControlMask), 0) << i;
    }
}

TEST_F(MenuTest, KeyThatOnlyTheNewLayoutHasWorksThen) {
    main_window(zone("POPUP||A|\n{\nITEM||e|Ctrl+eacute|31|\n}\n"));
    new_layout("fr");
    EXPECT_EQ(chosen_by_key(31, XK_eacute, ControlMask), 1);
    new_layout("us");
    EXPECT_EQ(chosen_by_key(31, XK_2, ControlMask), 0);
}

TEST_F(MenuTest, ManyLayoutsLeaveNothing) {
    const INT window = main_window(keys);
    const auto bytes = heap().bytes();
    const auto grabs = server_resources(test_display(), x_window(window));
    for (const char* layout : {"fr", "us", "fr", "de", "us"}) new_layout(layout);
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(server_resources(test_display(), x_window(window)), grabs);
    grx_detruit_menu_bar();
    new_layout("fr");
    grx_recree_menu_bar();
    drain();
    EXPECT_EQ(chosen_by_key(16, XK_a, ControlMask), 1);
    grx_detruit_fenetre(grx_recup_nofen_principale());
    new_layout("fr"); // no bar any more
}

// --- from elsewhere -------------------------------------------------------------------------------------------------

class ForwardedKeys : public MenuTest {
  protected:
    void make_windows() {
        main_ = main_window(keys);
        GRX_FENETRE other = described(GRX_FEN_BOUTONS);
        other.x = 700;
        other_ = make(other);
        GRX_BOUTON button = button_at(GRX_BOU_DESSINE, other_, {10, 10, 60, 60});
        ASSERT_EQ(grx_cree_bouton(&button), 0);
        button_ = button.nobou;
        ASSERT_TRUE(wait_visible(grx_recup_objet_bout(button_)));
        pointer().move_in(grx_recup_objet_bout(button_), 30, 30);
        drain();
        events.clear();
    }

    INT main_ = 0, other_ = 0, button_ = 0;
};

TEST_F(ForwardedKeys, KeysThatAButtonDoesNotTakeChooseOnce) {
    make_windows();
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1) << i << ": " << events.describe();
        EXPECT_EQ(chosen_by_key(13, XK_x, Mod1Mask), 1) << i << ": " << events.describe();
    }
}

TEST_F(ForwardedKeys, LocksDoNotMatterThereEither) {
    make_windows();
    for (int locks = 1; locks < 4; ++locks) {
        if (locks & 1) lock_numbers();
        if (locks & 2) lock_capitals();
        EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1) << locks << ": " << events.describe();
        release_locks();
    }
}

TEST_F(ForwardedKeys, FollowANewLayout) {
    make_windows();
    new_layout("fr");
    EXPECT_EQ(chosen_by_key(19, XK_a, Mod1Mask), 1) << events.describe();
    EXPECT_EQ(chosen_by_key(19, XK_q, Mod1Mask), 0) << events.describe();
}

TEST_F(ForwardedKeys, KeysThatTranslateGoToTheApplication) {
    make_windows();
    EXPECT_EQ(chosen_by_key(12, XK_F5), 0);
    EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 1) << events.describe();
}

TEST_F(ForwardedKeys, InsensitiveEntriesAreNotChosen) {
    make_windows();
    XtSetSensitive(entry_named("s"), False);
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 0);
}

// The event is sent to the main window, once, under its name; what comes back is no key of any widget.
TEST_F(ForwardedKeys, TheEventIsSentToTheMainWindowAndGoesNoFurther) {
    make_windows();
    int keys_seen = 0;
    XtAddEventHandler(
        widget_of(main_), KeyPressMask, False,
        [](Widget, XtPointer seen, XEvent*, Boolean*) { ++*static_cast<int*>(seen); }, &keys_seen);
    XSelectInput(test_display(), x_window(main_), KeyPressMask);
    XSync(test_display(), False);
    drain();
    LastSent last_sent;
    chosen_by_key(13, XK_x, Mod1Mask);
    XSync(test_display(), False);
    XEvent sent{}, last{};
    int count = 0;
    while (XCheckWindowEvent(test_display(), x_window(main_), KeyPressMask, &sent)) {
        last = sent;
        ++count;
    }
    EXPECT_EQ(count, 2) << "Alt, and the key";
    EXPECT_EQ(last.xkey.window, x_window(main_));
    EXPECT_NE(last.xkey.send_event, 0);
    EXPECT_EQ(last.xkey.keycode, XKeysymToKeycode(x11_disp, XK_x));
    EXPECT_EQ(last.xkey.state, unsigned{Mod1Mask});
    EXPECT_EQ(keys_seen, 0);
    EXPECT_EQ(chosen(13), 1);
    EXPECT_EQ(grx::evt_menu.xkey.window, x_window(main_));
    EXPECT_EQ(last_sent.to, x_window(main_));
    EXPECT_EQ(last_sent.propagate, True);
    EXPECT_EQ(last_sent.mask, KeyPressMask);
}

TEST_F(ForwardedKeys, KeyOfTheMainWindowItselfIsNotSentAgain) {
    make_windows();
    grx::evt_menu = {};
    grx::evt_menu.xkey.type = KeyPress;
    grx::evt_menu.xkey.display = x11_disp;
    grx::evt_menu.xkey.window = x_window(main_);
    grx::evt_menu.xkey.keycode = XKeysymToKeycode(x11_disp, XK_s);
    grx::evt_menu.xkey.state = ControlMask;
    const Cost cost(x11_disp);
    grx_envoie_dernier_evenement_a_fenetre_menu();
    EXPECT_EQ(cost.requests(), 0U);
    drain();
    EXPECT_EQ(chosen(11), 0);
}

TEST_F(ForwardedKeys, NothingWithoutAMainWindow) {
    make_windows();
    grx_affecte_nofen_principale(-1);
    chosen_by_key(0, XK_q, ControlMask);
    grx_affecte_nofen_principale(77);
    chosen_by_key(0, XK_q, ControlMask);
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 0);
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
        main_window(example);
        EXPECT_EQ(shown_bar(), example_shown);
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
    const INT window = main_window(example);
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
    click_into(main_window(keys));
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
    click_into(main_window(example));
    keyboard().key(XK_f, Mod1Mask);
    ASSERT_TRUE(wait_visible(entry_named("Save")));
    drain();
    events.clear();
    keyboard().key(XK_s);
    ASSERT_TRUE(wait_for([&] { return chosen(102) == 1; })) << events.describe();
}

TEST_F(MenusWmTest, KeysOfAnotherWindowGoToTheMenusOnce) {
    main_window(keys);
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

// --- taking down and building again ---------------------------------------------------------------------------------

TEST_F(MenuTest, TakingDownLeavesTheBar) {
    main_window(example);
    const Widget bar = grx_get_Glob_menu_bar();
    EXPECT_EQ(grx_detruit_menu_bar(), 0);
    EXPECT_EQ(grx_get_Glob_menu_bar(), bar);
    EXPECT_TRUE(children_of(bar).empty());
    EXPECT_EQ(grx_detruit_menu_bar(), 0);
    EXPECT_EQ(grx_recree_menu_bar(), 0);
    EXPECT_EQ(grx_get_Glob_menu_bar(), bar);
    EXPECT_EQ(shown_bar(), example_shown);
}

// Posted by pointer or key, with a submenu or without: they go first.
TEST_F(MenuTest, OpenMenusAreTakenDown) {
    main_window(example);
    const auto taken_down_and_built_again = [&] {
        grx_detruit_menu_bar();
        drain();
        EXPECT_TRUE(children_of(grx_get_Glob_menu_bar()).empty());
        grx_recree_menu_bar();
        drain();
        EXPECT_EQ(shown_bar(), example_shown);
        point_at(grx_recup_nofen_principale());
        keyboard().key(XK_k);
        EXPECT_TRUE(events.wait(GRX_EVT_CARAC_APPUI)) << "the keyboard is free again";
        EXPECT_EQ(chosen_by_key(102, XK_s, ControlMask), 1);
    };
    for (int i = 0; i < 3; ++i) {
        open_submenu();
        taken_down_and_built_again();
        pointer().click_in(children_of(grx_get_Glob_menu_bar()).at(1));
        ASSERT_TRUE(wait_visible(entry_named("About")));
        taken_down_and_built_again();
        keyboard().key(XK_f, Mod1Mask);
        ASSERT_TRUE(wait_visible(entry_named("Save")));
        taken_down_and_built_again();
    }
}

TEST_F(MenuTest, OpenMenusAreBuiltAgain) {
    main_window(example);
    open_submenu();
    EXPECT_EQ(grx_recree_menu_bar(), 0);
    drain();
    EXPECT_EQ(children_of(grx_get_Glob_menu_bar()).size(), 4U);
    grx_detruit_menu_bar();
    drain();
    grx_recree_menu_bar();
    drain();
    EXPECT_EQ(shown_bar(), example_shown);
}

TEST_F(MenuTest, TheWindowOfAnOpenMenuMayGo) {
    const INT window = main_window(example);
    open_submenu();
    grx_detruit_fenetre(window);
    drain();
    EXPECT_EQ(grx_get_Glob_menu_bar(), nullptr);
    main_window();
    EXPECT_EQ(shown_bar(), example_shown);
    open_submenu();
}

TEST_F(MenuTest, KeysOfMenusTakenDownAreGone) {
    main_window(keys);
    grx_detruit_menu_bar();
    drain();
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 0);
    grx_recree_menu_bar();
    drain();
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1);
}

// Building in place ends with each rebuilding, done or failed.
TEST_F(MenuTest, NewMainWindowAfterRebuildingHasABarOfItsOwn) {
    for (const INT module : {0, 1}) {
        istate[IST_MODULE_MENU] = 0;
        const INT window = main_window(example);
        istate[IST_MODULE_MENU] = module; // there is no file of module 1
        StdoutCapture silence;
        grx_detruit_menu_bar();
        grx_recree_menu_bar();
        silence.restore();
        grx_detruit_fenetre(window);
        drain();
    }
    istate[IST_MODULE_MENU] = 0;
    main_window(example);
    EXPECT_EQ(shown_bar(), example_shown);
}

class Rebuilding : public MenuTest {
  protected:
    static void rebuild(Events& events) {
        grx_detruit_menu_bar();
        grx_recree_menu_bar();
        events.drain();
    }
    static Cardinal popups_of(Widget w) { return w->core.num_popups; }
    // What the server keeps for us before and after a hundred times.
    using Resources = std::map<std::string, unsigned>;
    std::pair<Resources, Resources> a_hundred_times(INT window) {
        rebuild(events);
        const auto bytes = heap().bytes();
        const auto before = server_resources(test_display(), x_window(window));
        const Widget bar = grx_get_Glob_menu_bar();
        const auto files = open_descriptors();
        const Cardinal in_bar = popups_of(bar), beside = popups_of(XtParent(bar));
        for (int i = 0; i < 100; ++i) rebuild(events);
        EXPECT_EQ(open_descriptors(), files);
        EXPECT_EQ(popups_of(bar), in_bar);
        EXPECT_EQ(popups_of(XtParent(bar)), beside);
        EXPECT_EQ(grx_get_Glob_menu_bar(), bar);
        EXPECT_EQ(heap().bytes(), bytes);
        return {before, server_resources(test_display(), x_window(window))};
    }
};

TEST_F(Rebuilding, MainWindowsWithMenusLeaveNothingInTheServer) {
    const Widget own = XmGetXmDisplay(x11_disp);
    const auto once = [this] {
        const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE, 300, 200);
        ASSERT_GT(window, 0);
        grx_affecte_nofen_principale(window);
        drain();
        grx_detruit_fenetre(window);
        drain();
    };
    write_menu(example);
    for (int i = 0; i < 3; ++i) once();
    const auto before = server_resources(test_display(), XtWindow(own));
    for (int i = 0; i < 50; ++i) once();
    EXPECT_EQ(server_resources(test_display(), XtWindow(own)), before);
}

TEST_F(Rebuilding, AHundredTimesChangesNothing) {
    const auto [before, after] = a_hundred_times(main_window(keys));
    EXPECT_EQ(before, after);
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1);
}

TEST_F(Rebuilding, SubmenusComeBackTheSame) {
    const auto [before, after] = a_hundred_times(main_window(example));
    EXPECT_EQ(shown_bar(), example_shown);
    EXPECT_EQ(before, after);
    EXPECT_EQ(chosen_by_key(102, XK_s, ControlMask), 1);
}

// Every depth is built again in turn: a bar without submenus and one with them.
TEST_F(Rebuilding, ModulesTakeTurns) {
    write_menu(example, "MNU_MECA.DAT");
    const INT window = main_window(keys);
    const auto take_turns = [&] {
        for (const INT module : {1, 0}) {
            istate[IST_MODULE_MENU] = module;
            rebuild(events);
        }
    };
    take_turns();
    const auto before = server_resources(test_display(), x_window(window));
    for (int i = 0; i < 50; ++i) take_turns();
    EXPECT_EQ(server_resources(test_display(), x_window(window)), before);
}

TEST_F(Rebuilding, ANewColourCostsItsArrowsOnce) {
    const INT window = main_window(keys);
    rebuild(events);
    grx_affecte_couleur_application(11);
    rebuild(events);
    rebuild(events);
    const auto before = server_resources(test_display(), x_window(window));
    for (int i = 0; i < 20; ++i) rebuild(events);
    EXPECT_EQ(server_resources(test_display(), x_window(window)), before);
}

TEST_F(MenuTest, RebuildingWithoutFileEmptiesTheBar) {
    main_window(example);
    const Widget bar = grx_get_Glob_menu_bar();
    grx_detruit_menu_bar();
    istate[IST_MODULE_MENU] = 1;
    StdoutCapture capture;
    EXPECT_EQ(grx_recree_menu_bar(), 0);
    EXPECT_EQ(capture.text(), "GFX ERROR\nCode 2: Opening problem on file 'MNU*.DAT' \n");
    capture.restore();
    EXPECT_EQ(grx_get_Glob_menu_bar(), bar);
    EXPECT_TRUE(children_of(bar).empty());
    istate[IST_MODULE_MENU] = 0;
    grx_recree_menu_bar();
    EXPECT_EQ(shown_bar(), example_shown);
}

TEST_F(MenuTest, MainWindowIsDestroyedAndMadeAgain) {
    INT window = main_window(example);
    for (int i = 0; i < 5; ++i) {
        grx_detruit_fenetre(window);
        drain();
        EXPECT_EQ(grx_get_Glob_menu_bar(), nullptr);
        EXPECT_EQ(grx_recup_tamenubar(), 0);
        EXPECT_EQ(grx_detruit_menu_bar(), 0);
        EXPECT_EQ(grx_recree_menu_bar(), 0);
        EXPECT_EQ(grx_get_Glob_menu_bar(), nullptr);
        window = main_window();
        EXPECT_EQ(shown_bar(), example_shown);
        EXPECT_EQ(chosen_by_key(102, XK_s, ControlMask), 1);
    }
}

TEST_F(MenuTest, NothingOfADestroyedMainWindowStays) {
    INT window = main_window(example);
    grx_detruit_fenetre(window);
    drain();
    const auto bytes = heap().bytes();
    for (int i = 0; i < 10; ++i) {
        window = main_window();
        grx_detruit_fenetre(window);
        drain();
    }
    EXPECT_EQ(heap().bytes(), bytes);
}

// --- the steps by hand ----------------------------------------------------------------------------------------------

TEST_F(MenuTest, StepsAreOpenToTheApplication) {
    main_window(zone("POPUP||A|\n{\nITEM||a||1|\n}\n"));
    char title[] = "Extra", label[] = "More", key[] = "Ctrl+M", line[] = "-", none[] = "";
    const Widget bar = grx_get_Glob_menu_bar(), menu = grx_debut_sous_menu_bar(bar);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(grx_cree_atome(label, key, 'M', 55, menu), 0);
    EXPECT_EQ(grx_cree_atome(line, none, GRX_MENU_SANS_MNEMO, 0, menu), 0);
    const Widget cascade = grx_fin_sous_menu_bar(title, menu, bar);
    ASSERT_NE(cascade, nullptr);
    EXPECT_TRUE(XtIsManaged(cascade));
    EXPECT_EQ(shown_bar(), "A{a} Extra{More_M <Ctrl+M>, -}");
    EXPECT_STREQ(key, "Ctrl+M");
    drain();
    EXPECT_EQ(chosen_by_key(55, XK_m, ControlMask), 1);
}

// A menu that the application made may go before the bar does, with its entries and their keys.
TEST_F(MenuTest, EntriesTheApplicationDestroysAreForgotten) {
    main_window(example);
    char title[] = "Extra", label[] = "More", key[] = "Ctrl+M", none[] = "", line[] = "-";
    const Widget bar = grx_get_Glob_menu_bar(), menu = grx_debut_sous_menu_bar(bar);
    const Widget cascade = grx_fin_sous_menu_bar(title, menu, bar);
    for (int i = 0; i < 20; ++i) {
        grx_cree_atome(label, key, GRX_MENU_SANS_MNEMO, 55, menu);
        grx_cree_atome(line, none, GRX_MENU_SANS_MNEMO, 0, menu);
    }
    drain();
    EXPECT_EQ(chosen_by_key(55, XK_m, ControlMask), 1);
    XtDestroyWidget(cascade);
    XtDestroyWidget(menu);
    drain();
    EXPECT_EQ(chosen_by_key(55, XK_m, ControlMask), 0);
    EXPECT_EQ(chosen_by_key(102, XK_s, ControlMask), 1);
    new_layout("fr");
    EXPECT_EQ(chosen_by_key(102, XK_s, ControlMask), 1);
    grx_detruit_menu_bar();
    drain();
    grx_recree_menu_bar();
    EXPECT_EQ(shown_bar(), example_shown);
}

TEST_F(MenuTest, NullIsSurvived) {
    main_window(example);
    char text[] = "x", none[] = "";
    EXPECT_EQ(grx_debut_sous_menu_bar(nullptr), nullptr);
    EXPECT_EQ(grx_debut_menu_bar(nullptr), nullptr);
    EXPECT_EQ(grx_cree_atome(text, none, GRX_MENU_SANS_MNEMO, 1, nullptr), 0);
    EXPECT_EQ(grx_fin_sous_menu_bar(text, nullptr, nullptr), nullptr);
    EXPECT_EQ(grx_recup_taille_menu_bar(1, nullptr, nullptr), 0);
    Widget const bar = grx_get_Glob_menu_bar();
    EXPECT_EQ(grx_cree_menu_bar(nullptr), 0);
    ASSERT_EQ(grx_get_Glob_menu_bar(), bar);
    EXPECT_EQ(shown_bar(), example_shown);
    EXPECT_EQ(chosen_by_key(102, XK_s, ControlMask), 1) << "its keys are still there";
}

// The toolkit would not survive it.
TEST_F(MenuTest, NothingButAMenuCanBeEndedAsOne) {
    const INT window = main_window(example);
    Widget const bar = grx_get_Glob_menu_bar(), work = grx_recup_objet_fen(window);
    char text[] = "x", name[] = "other";
    for (Widget other : {bar, work, XtParent(work), XmCreatePopupMenu(work, name, nullptr, 0),
             XmCreateRowColumn(work, name, nullptr, 0), XmCreateRadioBox(work, name, nullptr, 0),
             XmCreatePushButton(work, name, nullptr, 0)})
        EXPECT_EQ(grx_fin_sous_menu_bar(text, other, bar), nullptr) << XtName(other);
    EXPECT_EQ(shown_bar(), example_shown);
    Widget const menu = grx_debut_sous_menu_bar(bar);
    EXPECT_NE(grx_fin_sous_menu_bar(text, menu, bar), nullptr);
    EXPECT_EQ(shown_bar(), example_shown + " x{}");
}

TEST_F(MenuTest, ShortageOfMemoryIsSurvived) {
    const INT window = main_window(keys);
    const std::string whole = shown_bar();
    fail_each_allocation([] {
        grx_detruit_menu_bar();
        grx_recree_menu_bar();
    });
    grx_detruit_menu_bar();
    grx_recree_menu_bar();
    EXPECT_EQ(shown_bar(), whole);
    grx_detruit_fenetre(window);
}

} // namespace
