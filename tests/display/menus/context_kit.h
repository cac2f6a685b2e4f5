// Context menus as the tests of them need them.
#pragma once

#include "tests/display/menus/menu_kit.h"

#include <X11/IntrinsicP.h>

#include "grx_plus_erreurs.h"
#include "grx_plus_menus.h"

#include <string>

namespace grxtest {

inline GRX_ENTREE_MENU state_of(INT number) {
    GRX_ENTREE_MENU entry{};
    grx_init_entree_menu(&entry);
    grx_recup_entree_menu(number, &entry);
    return entry;
}

inline const std::string context_zones = "#:ZONE_MENU_PIECE\n{\nITEM||&Ouvrir|Ctrl+O|101|\nITEM||&Grille||102|\n"
                                         "ITEM||-|||\nPOPUP||&Exporter|\n{\nITEM||&DXF||120|\nPOPUP||&Image|\n{\n"
                                         "ITEM||&PNG||130|\n}\n}\nITEM||&Supprimer||103|\n}\n"
                                         "#:ZONE_MENU_VIDE\n{\n}\n";
inline const std::string context_shown =
    "Ouvrir_O <Ctrl+O>, Grille_G, -, Exporter_E{DXF_D, Image_I{PNG_P}}, Supprimer_S";

class ContextMenuTest : public MenuTest {
  protected:
    static constexpr const char* zone = "#:ZONE_MENU_PIECE";

    void before_start() override {
        MenuTest::before_start();
        write_menu(context_zones + example_menu);
    }
    // A window on the screen, its work's place in the server.
    INT graphic_window(INT x = 300, INT top = 300, INT width = 400, INT height = 300) {
        GRX_FENETRE description = described(GRX_FEN_GRAPHIQUE, GRX_FEN_ATT_VISIBLE, width, height);
        description.x = x;
        description.y = grx_recup_hau_ecran() - top - height;
        const INT window = make(description);
        EXPECT_TRUE(wait_visible(widget_of(window)));
        settle();
        return window;
    }
    // The shell of the open context menu; null when none is on the screen.
    Widget menu() {
        for (INT window = 1; window < GRX_NB_FENETRES; ++window) {
            Widget work = widget_of(window);
            for (Cardinal i = 0; work != nullptr && i < work->core.num_popups; ++i) {
                for (Widget child : children_of(work->core.popup_list[i]))
                    if (std::string(XtName(child)) == "Menu_contextuel" && !child->core.being_destroyed) return child;
            }
        }
        return nullptr;
    }
    bool shown() { return menu() != nullptr && XtIsRealized(menu()) && visible(XtWindow(menu())); }
    bool wait_shown() {
        return wait_for([this] { return shown(); });
    }
    bool wait_closed() {
        const bool closed = wait_for([this] { return menu() == nullptr; });
        EXPECT_EQ(grx_recup_fenetre_menu_contextuel(), GRX_AUCUN);
        return closed;
    }
    Widget entry(const std::string& label) { return entry_in(menu(), label); }
    static Widget entry_in(Widget holder, const std::string& label) {
        for (Widget child : children_of(holder)) {
            if (XtIsSubclass(child, xmSeparatorWidgetClass)) continue;
            if (text_resource(child, XmNlabelString) == label) return child;
            if (!XtIsSubclass(child, xmCascadeButtonWidgetClass)) continue;
            if (Widget inner = entry_in(submenu_of(child), label)) return inner;
        }
        return nullptr;
    }
    std::string shown_menu() {
        std::vector<std::string> texts;
        for (Widget child : children_of(menu())) texts.push_back(shown_entry(child));
        return joined_texts(texts, ", ");
    }
    // Nobody holds pointer or keyboard any more.
    bool input_is_free() {
        drain();
        const Window root = DefaultRootWindow(test_display());
        const bool pointer_free =
            XGrabPointer(test_display(), root, False, 0, GrabModeAsync, GrabModeAsync, None, None, CurrentTime)
            == GrabSuccess;
        const bool keys_free =
            XGrabKeyboard(test_display(), root, False, GrabModeAsync, GrabModeAsync, CurrentTime) == GrabSuccess;
        XUngrabPointer(test_display(), CurrentTime);
        XUngrabKeyboard(test_display(), CurrentTime);
        XSync(test_display(), False);
        return pointer_free && keys_free;
    }
};

} // namespace grxtest
