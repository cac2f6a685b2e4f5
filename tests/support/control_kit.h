// Controls as the tests of their creation, their events and the operations on them need them.
#pragma once

#include "tests/support/window_kit.h"
#include "tests/support/controls.h"

#include <Xm/XmAll.h>

#include <climits>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace grxtest {

// A kind of control: its type, and its attribute bits besides visible and sensitive.
struct ControlKind {
    const char* name;
    INT type;
    INT bits;
};

// Every kind that a plain window can hold.
inline constexpr std::array control_kinds{ControlKind{"drawn", GRX_BOU_DESSINE, 0},
    ControlKind{"flat", GRX_BOU_DESSINE, GRX_BOU_ATT_PLAT}, ControlKind{"toggle", GRX_BOU_BASCULE, 0},
    ControlKind{"push", GRX_BOU_POUSSOIR, GRX_BOU_ATT_VRAI_POUSSOIR}, ControlKind{"drawn push", GRX_BOU_POUSSOIR, 0},
    ControlKind{"arrow", GRX_BOU_FLECHE, GRX_BOU_ATT_FLECHE_HAUT}, ControlKind{"label", GRX_BOU_LABEL, 0},
    ControlKind{"field", GRX_BOU_TEXTE, 0}, ControlKind{"scrolled text", GRX_BOU_TEXTE, GRX_BOU_ATT_TEXTE_MULTI},
    ControlKind{"scale", GRX_BOU_ECHELLE, 0}, ControlKind{"list", GRX_BOU_LISTE, 0},
    ControlKind{"scrolled list", GRX_BOU_LISTE, GRX_BOU_ATT_LISTE_SCROLL}, ControlKind{"simple", GRX_BOU_SIMPLE, 0},
    ControlKind{"separator", GRX_BOU_SEPARATEUR, 0}, ControlKind{"area", GRX_BOU_ZONE_DESSIN, 0},
    ControlKind{"colour", GRX_BOU_COULEUR, 0}};

inline bool has_label(INT type) {
    return type == 1 || type == 2 || type == 4 || type == 16 || type == 512 || type == 4096;
}

inline constexpr std::array<INT, 7> no_controls{-1, -2, 999, 1000, 1001, INT_MIN, INT_MAX};

// A visible and sensitive control with a place and a size, function 700, value 31.
inline GRX_BOUTON control_of(INT type, INT bits, INT window, const char* title = "Text") {
    GRX_BOUTON control = button_at(type, window, {20, 30, 120, 80});
    control.attrib |= bits;
    control.no_fo = 700;
    control.tabi[GRX_BOU_TABI_VALEUR] = 31;
    if (type == GRX_BOU_ECHELLE) control.tabi[GRX_BOU_TABI_MAXI] = 100;
    set_title(control, title);
    return control;
}

inline GRX_BOUTON control_of(const ControlKind& kind, INT window, const char* title = "Text") {
    return control_of(kind.type, kind.bits, window, title);
}

// Its number, or the result when that is not 0.
inline INT make(GRX_BOUTON control) {
    const INT result = grx_cree_bouton(&control);
    return result == 0 ? control.nobou : result;
}

inline Widget control(INT nobou) {
    return grx_recup_objet_bout(nobou);
}

inline bool is_a(Widget widget, WidgetClass kind) {
    return widget != nullptr && XtClass(widget) == kind;
}

// The widget that stands for a control in its parent: a list and a scrolled text are inside a scrolled window.
inline Widget outermost(Widget widget) {
    Widget parent = XtParent(widget);
    return is_a(parent, xmScrolledWindowWidgetClass) ? parent : widget;
}

// Text of a compound string resource under one font-list tag; "(other)" when it holds none under that tag.
inline std::string tagged_text(Widget widget, const char* resource_name, const char* tag) {
    XmString value = nullptr;
    XtVaGetValues(widget, resource_name, &value, nullptr);
    char* text = nullptr;
    std::string result = "(other)";
    if (value && XmStringGetLtoR(value, const_cast<char*>(tag), &text)) {
        result = text;
        XtFree(text);
    }
    if (value) XmStringFree(value);
    return result;
}

inline std::string label_of(Widget widget) {
    return tagged_text(widget, XmNlabelString, "tag1");
}

inline std::string text_of(INT nobou) {
    std::vector<char> text(20000, '?');
    text[0] = '\0';
    grx_recup_texte_bouton(nobou, text.data());
    return text.data();
}

inline Pixel pixel_of(INT colour) {
    return static_cast<Pixel>(grx_recup_couleur(colour));
}

struct Extent {
    int width, height;
    bool operator==(const Extent&) const = default;
};
inline void PrintTo(const Extent& extent, std::ostream* out) {
    *out << extent.width << " x " << extent.height;
}
inline Extent extent_of(Widget widget) {
    return {resource<Dimension>(widget, XmNwidth), resource<Dimension>(widget, XmNheight)};
}
inline Extent pixmap_extent(Pixmap pixmap, int* depth = nullptr) {
    Window root = None;
    int x = 0, y = 0;
    unsigned width = 0, height = 0, border = 0, planes = 0;
    if (!XGetGeometry(x11_disp, pixmap, &root, &x, &y, &width, &height, &border, &planes)) return {0, 0};
    if (depth) *depth = static_cast<int>(planes);
    return {static_cast<int>(width), static_cast<int>(height)};
}

// The library started, the main parts of a window of controls at hand.
class ControlsTest : public DisplayTest {
  protected:
    void before_start() override { write_menu(""); }

    // A shown window, everything it posts at first taken away.
    INT shown(INT kind = GRX_FEN_ALPHA, INT width = 400, INT height = 300) {
        const INT n = make(kind, GRX_FEN_ATT_VISIBLE, width, height);
        EXPECT_GE(n, 1);
        EXPECT_TRUE(wait_visible(widget_of(n)));
        settle();
        return n;
    }

    // A control that must come about, on the screen when it is visible.
    INT placed(const GRX_BOUTON& description) {
        const INT n = make(description);
        EXPECT_GE(n, 0);
        if (n >= 0 && (description.attrib & GRX_BOU_ATT_VISIBLE)) {
            EXPECT_TRUE(wait_visible(control(n)));
        }
        return n;
    }

    // Clicks where the pointer is, which opens a menu with `entry` in it. Letting go quickly leaves it open, but a quick
    // second click would, too: however fast the two are, the next one chooses.
    bool click_open(Widget entry) {
        XtSetMultiClickTime(x11_disp, 60000);
        pointer().click(1);
        const bool open = wait_visible(entry);
        drain();
        XtSetMultiClickTime(x11_disp, 0);
        return open;
    }

    bool on_screen(INT nobou) {
        drain();
        return visible(XtWindow(control(nobou)));
    }

    Pixels picture(INT nobou) {
        drain();
        return grab(x11_disp, XtWindow(control(nobou)));
    }

    // An icon file of 16 colours, its pixels the colour that `index` gives for each place; its whole path.
    template <class Index>
    std::string icon_file(const std::string& name, int width, int height, Index index) {
        std::vector<uchar> pixels;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) pixels.push_back(static_cast<uchar>(index(x, y)));
        std::string path = (home().path() / name).string();
        std::string nowhere;
        EXPECT_EQ(ecrit_fichier_bitmap(nowhere.data(), path.data(), pixels.data(), width, height), 0);
        return path;
    }

    std::string plain_icon(const std::string& name, int colour, int width = 16, int height = 8) {
        return icon_file(name, width, height, [=](int, int) { return colour; });
    }
};

// With a shown window from the start, `window`, and the pointer elsewhere.
class ControlsInWindowTest : public ControlsTest {
  protected:
    void SetUp() override {
        ControlsTest::SetUp();
        if (HasFatalFailure()) return;
        window = shown();
        take_pointer_away();
        settle();
    }

    INT window = -1;
};

} // namespace grxtest
