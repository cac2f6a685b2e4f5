// Menu bars as the tests of their files, their keys and themselves need them.
#pragma once

#include "tests/support/window_kit.h"

#include "tools/verif/menu_check.h"

#include <X11/XKBlib.h>
#include <Xm/XmAll.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace grxtest {

inline std::string menu_zone(const std::string& lines) {
    return "#:ZONE_MENU_BAR\n{\n" + lines + "}\n";
}

inline const std::string example_menu = menu_zone("POPUP|12||\n"
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
inline const std::string example_menu_shown =
    "File_F{Open_O <Ctrl+O>, Save_S <Ctrl+S>, -, Export_E{DXF...}, Quit} Help_H{About}";

inline Widget submenu_of(Widget cascade) {
    return resource<Widget>(cascade, XmNsubMenuId);
}

inline std::string joined_texts(const std::vector<std::string>& texts, const char* between) {
    std::string result;
    for (const auto& text : texts) result += (result.empty() ? "" : between) + text;
    return result;
}

inline std::string shown_entry(Widget entry) {
    if (XtIsSubclass(entry, xmSeparatorWidgetClass)) return "-";
    std::string text = text_resource(entry, XmNlabelString);
    const KeySym mnemonic = resource<KeySym>(entry, XmNmnemonic);
    if (mnemonic != NoSymbol && mnemonic != XK_VoidSymbol) text += "_" + std::string(1, static_cast<char>(mnemonic));
    if (XtIsSubclass(entry, xmCascadeButtonWidgetClass)) {
        std::vector<std::string> inner;
        for (Widget child : children_of(submenu_of(entry))) inner.push_back(shown_entry(child));
        return text + "{" + joined_texts(inner, ", ") + "}";
    }
    const std::string key = text_resource(entry, XmNacceleratorText);
    return key == "(none)" || key.empty() ? text : text + " <" + key + ">";
}

// The whole bar as text: menus with their mnemonics, entries with their keys.
inline std::string shown_bar() {
    std::vector<std::string> menus;
    for (Widget cascade : children_of(grx_get_Glob_menu_bar())) menus.push_back(shown_entry(cascade));
    return joined_texts(menus, " ");
}

inline void gather_entries(Widget menu, std::vector<Widget>& into) {
    for (Widget child : children_of(menu)) {
        into.push_back(child);
        if (XtIsSubclass(child, xmCascadeButtonWidgetClass)) gather_entries(submenu_of(child), into);
    }
}

// Every cascade, entry and separator, in order.
inline std::vector<Widget> all_of_bar() {
    std::vector<Widget> result;
    gather_entries(grx_get_Glob_menu_bar(), result);
    return result;
}

inline Widget entry_named(const std::string& label) {
    for (Widget widget : all_of_bar())
        if (!XtIsSubclass(widget, xmSeparatorWidgetClass) && text_resource(widget, XmNlabelString) == label)
            return widget;
    return nullptr;
}

// How many of each kind are in the bar, or taken by the checker of menu files.
using MenuCounts = std::map<std::string, long>;

inline MenuCounts built_counts() {
    MenuCounts counts{{"menu", 0}, {"entry", 0}, {"separator", 0}};
    for (Widget w : all_of_bar()) {
        const bool menu = XtIsSubclass(w, xmCascadeButtonWidgetClass);
        ++counts[menu ? "menu" : XtIsSubclass(w, xmSeparatorWidgetClass) ? "separator" : "entry"];
    }
    return counts;
}

inline MenuCounts checked_counts(const std::string& menu_file) {
    std::istringstream file(menu_file);
    MenuCounts counts{{"menu", 0}, {"entry", 0}, {"separator", 0}};
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

inline const std::string menu_of_keys =
    menu_zone("POPUP||A|\n{\nITEM||s|Ctrl+S|11|\nITEM||f5|F5|12|\nITEM||x|Alt+X|13|\n"
              "ITEM||w|Ctrl+W,Ctrl+F4|14|\nITEM||t|Ctrl+Shift+T|15|\nITEM||a|Ctrl+A|16|\n"
              "ITEM||delete|Shift+Delete|17|\nITEM||f5c|Ctrl+F5|18|\nITEM||aa|Alt+A|19|\n}\n");

} // namespace grxtest
