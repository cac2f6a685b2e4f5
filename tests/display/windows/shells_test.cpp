// Shells: their kind, icon, title, decorations and visual.
#include "tests/display/windows/window_creation_kit.h"
#include "tests/support/fake_visual.h"

namespace {

using namespace grxtest;

constexpr INT visible_bit = GRX_FEN_ATT_VISIBLE;
constexpr INT scroll_bit = GRX_FEN_ATT_SCROLL;
constexpr INT main_bit = GRX_FEN_ATT_PRINCIPALE;

TEST_F(Creation, ShellsAreTopLevelOrTransient) {
    const INT top = make(GRX_FEN_ALPHA);
    EXPECT_TRUE(XtIsTopLevelShell(shell_of(top)));
    EXPECT_FALSE(XtIsTransientShell(shell_of(top)));
    EXPECT_EQ(XtParent(shell_of(top)), nullptr) << "a root of its own";
    XClassHint hint{};
    ASSERT_TRUE(XGetClassHint(x11_disp, XtWindow(shell_of(top)), &hint));
    EXPECT_STREQ(hint.res_class, "TopLevelShell");
    XFree(hint.res_class);
    XFree(hint.res_name);
    GRX_FENETRE window = described(GRX_FEN_ALPHA);
    window.fen_mere = top;
    const INT child = make(window);
    EXPECT_TRUE(XtIsTransientShell(shell_of(child)));
    EXPECT_EQ(XtParent(shell_of(child)), widget_of(top));
}

TEST_F(Creation, ANegativeParentIsNoParent) {
    GRX_FENETRE window = described(GRX_FEN_ALPHA);
    window.fen_mere = -5;
    EXPECT_TRUE(XtIsTopLevelShell(shell_of(make(window))));
}

TEST_F(Creation, ATopLevelShellHasA64x64Icon) {
    const INT top = make(GRX_FEN_ALPHA);
    const std::unique_ptr<XWMHints, int (*)(void*)> hints(XGetWMHints(x11_disp, XtWindow(shell_of(top))), XFree);
    ASSERT_TRUE(hints);
    ASSERT_TRUE(hints->flags & IconPixmapHint);
    Window root = None;
    int x = 0, y = 0;
    unsigned width = 0, height = 0, border = 0, depth = 0;
    ASSERT_TRUE(XGetGeometry(x11_disp, hints->icon_pixmap, &root, &x, &y, &width, &height, &border, &depth));
    EXPECT_EQ(width, 64U);
    EXPECT_EQ(height, 64U);
    EXPECT_EQ(depth, 1U);
    const Pixels icon = grab(x11_disp, hints->icon_pixmap);
    EXPECT_GT(icon.count(1), 0);
    EXPECT_GT(icon.count(0), 0);
}

TEST_F(Creation, TheTitleIsShown) {
    GRX_FENETRE window = described(GRX_FEN_ALPHA);
    std::snprintf(window.titre, sizeof window.titre, "Plan %s", "N\xB0 1");
    const INT n = make(window);
    char* name = nullptr;
    ASSERT_TRUE(XFetchName(x11_disp, XtWindow(shell_of(n)), &name));
    EXPECT_STREQ(name, "Plan N\xB0 1");
    XFree(name);
    std::memset(window.titre, 'x', sizeof window.titre);
    window.titre[79] = 0;
    const INT longest = make(window);
    ASSERT_TRUE(XFetchName(x11_disp, XtWindow(shell_of(longest)), &name));
    EXPECT_EQ(std::string(name), std::string(79, 'x'));
    XFree(name);
}

TEST_F(Creation, TheCloseButtonIsAskedFor) {
    const INT top = make(GRX_FEN_ALPHA);
    Atom* protocols = nullptr;
    int count = 0;
    ASSERT_TRUE(XGetWMProtocols(x11_disp, XtWindow(shell_of(top)), &protocols, &count));
    const Atom wanted = XInternAtom(x11_disp, "WM_DELETE_WINDOW", False);
    EXPECT_EQ(std::count(protocols, protocols + count, wanted), 1);
    XFree(protocols);
}

// --- decorations --------------------------------------------------------------------------------------------

struct Hints {
    long flags, functions, decorations;
    bool operator==(const Hints&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Hints& hints) {
    return out << "flags " << hints.flags << " functions " << hints.functions << " decorations " << hints.decorations;
}

Hints hints_of(Display* display, Window window) {
    const Atom property = XInternAtom(display, "_MOTIF_WM_HINTS", False);
    Atom type = None;
    int format = 0;
    unsigned long items = 0, left = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, window, property, 0, 5, False, AnyPropertyType, &type, &format, &items, &left, &data);
    if (!data || items < 3) return {};
    const auto* values = reinterpret_cast<const long*>(data);
    const Hints result{values[0] & 3, values[1], values[2]};
    XFree(data);
    return result;
}

Hints expected_hints(INT attrib) {
    Hints result{3, 1, 1};
    if (attrib & GRX_FEN_ATT_SANS_TITRE) result.decorations |= 8;
    if (attrib & GRX_FEN_ATT_SANS_BOITES) result.decorations |= 16 | 32 | 64;
    if (attrib & GRX_FEN_ATT_SANS_BORD) result.decorations |= 2 | 4;
    if (attrib & GRX_FEN_ATT_SANS_RESIZE) result.decorations |= 4, result.functions |= 2;
    if (attrib & GRX_FEN_ATT_SANS_MAXI) result.decorations |= 64, result.functions |= 16;
    if (attrib & GRX_FEN_ATT_SANS_MINI) result.decorations |= 32, result.functions |= 8;
    return result;
}

TEST_F(Creation, EveryAttributeBitReachesTheWindowManager) {
    constexpr std::array bits{1, 2, 4, 8, 32, 64};
    for (unsigned set = 0; set < 64; ++set) {
        INT attrib = visible_bit;
        for (std::size_t i = 0; i < bits.size(); ++i)
            if (set >> i & 1U) attrib |= bits[i];
        const INT top = make(GRX_FEN_ALPHA, attrib);
        ASSERT_GT(top, 0);
        EXPECT_EQ(hints_of(x11_disp, XtWindow(shell_of(top))), expected_hints(attrib)) << "attrib " << attrib;
        EXPECT_EQ(resource<int>(shell_of(top), XmNmwmDecorations), expected_hints(attrib).decorations);
        EXPECT_EQ(resource<int>(shell_of(top), XmNmwmFunctions), expected_hints(attrib).functions);
        grx_detruit_fenetre(top);
    }
}

TEST_F(Creation, ChildWindowsHaveDecorationsToo) {
    const INT top = make(GRX_FEN_ALPHA);
    GRX_FENETRE window = described(GRX_FEN_ALPHA, visible_bit | 1 | 8);
    window.fen_mere = top;
    const INT child = make(window);
    EXPECT_EQ(hints_of(x11_disp, XtWindow(shell_of(child))), (Hints{3, 3, 13}));
}

TEST_F(Creation, EveryShellHasTheVisualTheDepthAndTheColormap) {
    for (INT kind : all_kinds)
        for (const bool child : {false, true}) {
            GRX_FENETRE window = described(kind);
            window.fen_mere = child ? 1 : -1;
            const INT n = make(window);
            EXPECT_EQ(resource<Colormap>(shell_of(n), XmNcolormap), x11_cmap);
            EXPECT_EQ(resource<int>(shell_of(n), XmNdepth), grx_recup_profondeur_ecran());
            EXPECT_EQ(resource<Visual*>(shell_of(n), XmNvisual), x11_vis);
        }
}

// --- visuals that are not the root's ----------------------------------------------------------------------------

class OtherVisual : public On24 {
  protected:
    void expect_visual_everywhere() {
        write_menu("");
        for (INT kind : all_kinds)
            for (const INT extra : {0, scroll_bit, main_bit, main_bit | scroll_bit})
                for (const INT shown : {visible_bit, 0})
                    for (const bool child : {false, true}) {
                        SCOPED_TRACE(testing::Message() << "kind " << kind << " extra " << extra << " shown " << shown
                                                        << (child ? " child" : ""));
                        const INT parent = child ? make(GRX_FEN_ALPHA) : -1;
                        GRX_FENETRE window = described(kind, extra | shown);
                        window.fen_mere = parent;
                        const INT n = make(window);
                        ASSERT_GT(n, 0);
                        if (!shown) grx_affiche_fenetre(n);
                        ASSERT_TRUE(wait_visible(widget_of(n)));
                        expect_windows(XtWindow(shell_of(n)));
                        EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
                        grx_detruit_fenetre(n);
                        if (child) grx_detruit_fenetre(parent);
                        drain();
                    }
        const INT outer = make(GRX_FEN_ALPHA, visible_bit, 400, 300);
        for (INT kind : all_kinds) make(nested_in(outer, kind));
        drain();
        expect_windows(XtWindow(shell_of(outer)));
    }

  private:
    void expect_windows(Window top) {
        std::vector<Window> windows;
        gather_windows(test_display(), top, windows);
        for (Window window : windows) {
            XWindowAttributes attributes{};
            ASSERT_TRUE(XGetWindowAttributes(test_display(), window, &attributes));
            if (attributes.c_class == InputOnly) continue;
            EXPECT_EQ(attributes.depth, vtemp.depth);
            EXPECT_EQ(XVisualIDFromVisual(attributes.visual), vtemp.visualid);
            EXPECT_EQ(attributes.colormap, x11_cmap);
        }
    }
};

class Alt24VisualOn24 : public OtherVisual {
    void before_start() override { fake_.emplace(FakeVisual::Kind::alt24); }
    std::optional<FakeVisual> fake_;
};

TEST_F(Alt24VisualOn24, EveryWindowHasIt) {
    EXPECT_NE(x11_vis, DefaultVisual(x11_disp, x11_screen));
    expect_visual_everywhere();
}

class Alt32VisualOn24 : public OtherVisual {
    void before_start() override { fake_.emplace(FakeVisual::Kind::alt32); }
    std::optional<FakeVisual> fake_;
};

TEST_F(Alt32VisualOn24, EveryWindowHasIt) {
    EXPECT_EQ(vtemp.depth, 32);
    EXPECT_EQ(grx_recup_profondeur_ecran(), 32) << "the depth of the matched visual";
    expect_visual_everywhere();
}

class Default8VisualOn24 : public OtherVisual {
    void before_start() override { fake_.emplace(FakeVisual::Kind::default8); }
    std::optional<FakeVisual> fake_;
};

TEST_F(Default8VisualOn24, EveryWindowHasTrueColour) {
    EXPECT_EQ(vtemp.depth, 24);
    expect_visual_everywhere();
}

} // namespace
