// What each kind of window is made of, its colours, and what single kinds have.
#include "tests/display/windows/window_creation_kit.h"

#include "registry/window_table.h"

#include <X11/IntrinsicP.h>

namespace {

using namespace grxtest;

constexpr INT visible_bit = GRX_FEN_ATT_VISIBLE;
constexpr INT scroll_bit = GRX_FEN_ATT_SCROLL;
constexpr INT main_bit = GRX_FEN_ATT_PRINCIPALE;

// --- the widget tree --------------------------------------------------------------------------------------------

bool is_clip(Widget widget) {
    return std::string_view(XtClass(widget)->core_class.class_name) == "XmClipWindow";
}

// Names from the work widget outwards, up to its shell or the widget given, without Motif's own clip windows.
std::string nesting(INT nofen, Widget until = nullptr) {
    std::string result;
    for (Widget w = widget_of(nofen); w && !XtIsShell(w) && w != until; w = XtParent(w)) {
        if (is_clip(w)) continue;
        if (!result.empty()) result += '<';
        result += XtName(w);
    }
    return result;
}

struct Kind {
    INT type;
    WidgetClass* work;
    const char* plain;
    const char* scrolled;
};

const std::array kinds{Kind{GRX_FEN_BOUTONS, &xmBulletinBoardWidgetClass, "fenetre", "fenetre<fenetre"},
    Kind{GRX_FEN_GRAPHIQUE, &xmDrawingAreaWidgetClass, "draw", "draw<fenetre"},
    Kind{GRX_FEN_TEXTE, &xmTextWidgetClass, "texte<texteSW", "texte<texteSW<fenetre"},
    Kind{GRX_FEN_ALPHA, &xmFormWidgetClass, "fen_alpha", "fen_alpha<Support_travail<Support"},
    Kind{GRX_FEN_MESSAGE, &xmMessageBoxWidgetClass, "texte", "texte<fenetre"},
    Kind{GRX_FEN_MENU, &xmFormWidgetClass, "fen_menu", "fen_menu<fenetre"}};

// A class of the toolkit, or one of the library's that answers to its name.
bool is_of_class(Widget widget, WidgetClass toolkit) {
    return XtIsSubclass(widget, toolkit)
           && std::string_view(XtClass(widget)->core_class.class_name) == toolkit->core_class.class_name;
}

TEST_F(Creation, EveryKindHasItsWidgets) {
    for (const Kind& kind : kinds)
        for (const bool scroll : {false, true})
            for (const bool main : {false, true})
                for (const bool child : {false, true})
                    for (const bool sized : {true, false}) {
                        SCOPED_TRACE(testing::Message()
                                     << "kind " << kind.type << (scroll ? " scroll" : "") << (main ? " main" : "")
                                     << (child ? " child" : "") << (sized ? "" : " no size"));
                        const INT parent = child ? make(GRX_FEN_ALPHA) : -1;
                        GRX_FENETRE window =
                            described(kind.type, visible_bit | (scroll ? scroll_bit : 0) | (main ? main_bit : 0));
                        window.fen_mere = parent;
                        if (!sized) window.droite = window.haut = -1;
                        ASSERT_EQ(grx_cree_fenetre(&window), 0);
                        const INT n = window.nofen;
                        EXPECT_EQ(n, child ? 2 : 1);
                        ASSERT_NE(widget_of(n), nullptr);
                        EXPECT_TRUE(is_of_class(widget_of(n), *kind.work));
                        EXPECT_EQ(nesting(n), std::string(scroll ? kind.scrolled : kind.plain) + (main ? "<main" : ""));
                        EXPECT_TRUE(wait_visible(widget_of(n)));
                        const Area place = server_area(test_display(), x_window(n));
                        EXPECT_GT(place.width, 1);
                        EXPECT_GT(place.height, 1);
                        grx_detruit_fenetre(n);
                        if (child) grx_detruit_fenetre(parent);
                        drain();
                    }
}

TEST_F(Creation, NestedWindowsAreBuiltInsideTheParentsWidget) {
    for (const Kind& kind : kinds)
        for (const bool scroll : {false, true})
            for (const bool sized : {true, false}) {
                SCOPED_TRACE(testing::Message()
                             << "kind " << kind.type << (scroll ? " scroll" : "") << (sized ? "" : " no size"));
                const INT outer = make(GRX_FEN_ALPHA, visible_bit, 400, 300);
                GRX_FENETRE window = nested_in(outer, kind.type);
                if (scroll) window.attrib |= scroll_bit;
                if (!sized) window.droite = window.haut = -1;
                ASSERT_EQ(grx_cree_fenetre(&window), 0);
                EXPECT_TRUE(is_of_class(widget_of(window.nofen), *kind.work));
                EXPECT_EQ(nesting(window.nofen, widget_of(outer)), scroll ? kind.scrolled : kind.plain);
                EXPECT_EQ(shell_of(window.nofen), shell_of(outer));
                EXPECT_TRUE(wait_visible(widget_of(window.nofen)));
                grx_detruit_fenetre_fille(window.nofen);
                grx_detruit_fenetre(outer);
                drain();
            }
}

// --- colours ----------------------------------------------------------------------------------------------------

std::uint32_t pixel_of(INT index) {
    return static_cast<std::uint32_t>(grx_recup_couleur(index));
}

TEST_F(Creation, TheBackgroundIsTheColourIndexOfTheRecord) {
    for (INT kind : {GRX_FEN_BOUTONS, GRX_FEN_ALPHA, GRX_FEN_MENU, GRX_FEN_MESSAGE}) {
        GRX_FENETRE window = described(kind);
        window.coul_fond = 3;
        const INT n = make(window);
        ASSERT_TRUE(wait_visible(widget_of(n)));
        EXPECT_EQ(resource<Pixel>(shell_of(n), XmNbackground), pixel_of(3)) << kind;
        drain();
        EXPECT_EQ(grab(x11_disp, x_window(n)).at(100, 3), pixel_of(3)) << kind;
        grx_detruit_fenetre(n);
    }
}

TEST_F(Creation, ScrollContainersTakeTheWindowsBackground) {
    for (INT kind : all_kinds) {
        GRX_FENETRE window = described(kind, visible_bit | scroll_bit);
        window.coul_fond = 3;
        const INT n = make(window);
        EXPECT_EQ(resource<Pixel>(scrolled_window(n), XmNbackground), pixel_of(3)) << kind;
        grx_detruit_fenetre(n);
    }
}

TEST_F(Creation, WithoutAColourTheApplicationsIsTaken) {
    grx_affecte_couleur_application(4);
    for (INT kind : {GRX_FEN_BOUTONS, GRX_FEN_ALPHA, GRX_FEN_MENU}) {
        const INT n = make(kind);
        ASSERT_TRUE(wait_visible(widget_of(n)));
        drain();
        EXPECT_EQ(resource<Pixel>(shell_of(n), XmNbackground), pixel_of(4)) << kind;
        EXPECT_EQ(grab(x11_disp, x_window(n)).at(50, 50), pixel_of(4)) << kind;
        grx_detruit_fenetre(n);
    }
    const INT n = make(GRX_FEN_ALPHA, visible_bit | main_bit);
    Widget main = XtParent(widget_of(n));
    ASSERT_TRUE(XmIsMainWindow(main));
    EXPECT_EQ(resource<Pixel>(main, XmNbackground), pixel_of(4));
}

TEST_F(Creation, WithoutAnyColourTheToolkitChooses) {
    const INT n = make(GRX_FEN_ALPHA);
    Widget form = XmCreateForm(shell_of(make(GRX_FEN_ALPHA)), const_cast<char*>("other"), nullptr, 0);
    EXPECT_EQ(resource<Pixel>(widget_of(n), XmNbackground), resource<Pixel>(form, XmNbackground));
}

TEST_F(Creation, AGraphicWindowHasTheBackgroundSetting) {
    grx_affecte_couleur_fond(5);
    GRX_FENETRE window = described(GRX_FEN_GRAPHIQUE);
    window.coul_fond = 3;
    const INT n = make(window);
    ASSERT_TRUE(wait_visible(widget_of(n)));
    drain();
    EXPECT_EQ(resource<Pixel>(widget_of(n), XmNbackground), pixel_of(5));
    EXPECT_EQ(grab(x11_disp, x_window(n)).count_other(pixel_of(5)), 0);
}

TEST_F(Creation, ANestedWindowTakesAForeground) {
    const INT outer = make(GRX_FEN_ALPHA, visible_bit, 400, 300);
    GRX_FENETRE window = nested_in(outer, GRX_FEN_ALPHA);
    window.coul_trace = 3;
    EXPECT_EQ(resource<Pixel>(widget_of(make(window)), XmNforeground), pixel_of(3));
    window.coul_trace = 0;
    EXPECT_EQ(resource<Pixel>(widget_of(make(window)), XmNforeground), pixel_of(0));
}

TEST_F(Creation, TheClipAreaIsPaintedWithTheApplicationColour) {
    grx_affecte_couleur_application(4);
    for (INT kind : {GRX_FEN_BOUTONS, GRX_FEN_ALPHA, GRX_FEN_MENU}) {
        const INT n = make(kind, visible_bit | scroll_bit);
        Widget clip = resource<Widget>(scrolled_window(n), XmNclipWindow);
        ASSERT_NE(clip, nullptr) << kind;
        EXPECT_EQ(resource<Pixel>(clip, XmNbackground), pixel_of(4)) << kind;
    }
}

// --- what single kinds have -----------------------------------------------------------------------------------

TEST_F(Creation, RecordsAreFilled) {
    for (INT kind : all_kinds) {
        const INT n = make(kind, visible_bit, 200, 150);
        const STRUCTURE_FENETRE& record = record_of(n);
        EXPECT_EQ(record.nofen, n);
        EXPECT_EQ(record.type, kind);
        EXPECT_EQ(record.affiche, 0) << "until the first redraw";
        EXPECT_EQ(record.fen_opengl, 0);
        EXPECT_EQ(record.image != nullptr, kind == GRX_FEN_GRAPHIQUE);
        EXPECT_EQ(record.backingstorable, kind == GRX_FEN_GRAPHIQUE ? 1 : 0);
        EXPECT_EQ(grx::known_size(n).width, 200);
        EXPECT_EQ(grx::known_size(n).height, 150);
    }
}

TEST_F(Creation, AFreshRecordForgetsTheLastWindowOfItsNumber) {
    const INT first = make(GRX_FEN_GRAPHIQUE, visible_bit | scroll_bit);
    record_of(first).fen_opengl = 1;
    record_of(first).affiche = 1;
    record_of(first).attributs_fen_graph = 3;
    grx_detruit_fenetre(first);
    drain();
    ASSERT_EQ(make(GRX_FEN_ALPHA), first);
    const STRUCTURE_FENETRE& record = record_of(first);
    EXPECT_EQ(record.type, GRX_FEN_ALPHA);
    EXPECT_EQ(record.affiche, 0);
    EXPECT_EQ(record.fen_opengl, 0);
    EXPECT_EQ(record.attributs_fen_graph, 0);
    EXPECT_EQ(record.image, nullptr);
    EXPECT_EQ(record.backingstorable, 0);
}

TEST_F(Creation, AGraphicWindowHasABackingPicture) {
    const INT n = make(GRX_FEN_GRAPHIQUE, visible_bit, 210, 160);
    ASSERT_NE(record_of(n).image, nullptr);
    Window root = None;
    int x = 0, y = 0;
    unsigned width = 0, height = 0, border = 0, depth = 0;
    ASSERT_TRUE(XGetGeometry(x11_disp, *record_of(n).image, &root, &x, &y, &width, &height, &border, &depth));
    EXPECT_EQ(width, 210U);
    EXPECT_EQ(height, 160U);
    EXPECT_EQ(depth, static_cast<unsigned>(grx_recup_profondeur_ecran()));
    EXPECT_EQ(grab(x11_disp, *record_of(n).image).count_other(pixel_of(grx_recup_couleur_fond())), 0);
    XWindowAttributes attributes{};
    XGetWindowAttributes(x11_disp, x_window(n), &attributes);
    EXPECT_EQ(attributes.backing_store, WhenMapped) << "the server keeps it too";
}

TEST_F(Creation, AGraphicWindowScrollsByTheCharacter) {
    grx_affecte_hau_carac_alpha(23);
    grx_affecte_largeur_scrollbar(0);
    const INT n = make(GRX_FEN_GRAPHIQUE, visible_bit | scroll_bit, 300, 200);
    Widget scrolled = scrolled_window(n);
    for (const char* side : {XmNverticalScrollBar, XmNhorizontalScrollBar}) {
        Widget bar = resource<Widget>(scrolled, side);
        ASSERT_NE(bar, nullptr);
        EXPECT_STREQ(XtName(bar), side == std::string(XmNverticalScrollBar) ? "vScrollBar" : "hScrollBar");
        EXPECT_TRUE(XtIsManaged(bar));
        EXPECT_EQ(resource<int>(bar, XmNvalue), 0);
        EXPECT_EQ(resource<int>(bar, XmNincrement), 23);
    }
    EXPECT_EQ(record_of(n).attributs_fen_graph & GRX_FENG_SCROLL, 1) << "its scroll bars are shown";
    EXPECT_EQ(
        grx_recup_largeur_scrollbar(), resource<Dimension>(resource<Widget>(scrolled, XmNverticalScrollBar), XmNwidth));
    EXPECT_GT(grx_recup_largeur_scrollbar(), 0);
    EXPECT_EQ(record_of(make(GRX_FEN_GRAPHIQUE)).attributs_fen_graph & GRX_FENG_SCROLL, 0);
}

TEST_F(Creation, ScrolledWindowsOfOtherKindsScrollBySelf) {
    for (INT kind : {GRX_FEN_BOUTONS, GRX_FEN_TEXTE, GRX_FEN_ALPHA, GRX_FEN_MESSAGE, GRX_FEN_MENU}) {
        const INT n = make(kind, visible_bit | scroll_bit);
        EXPECT_EQ(resource<unsigned char>(scrolled_window(n), XmNscrollingPolicy), XmAUTOMATIC) << kind;
        EXPECT_EQ(record_of(n).attributs_fen_graph & GRX_FENG_SCROLL, 0) << kind;
    }
    const INT graphic = make(GRX_FEN_GRAPHIQUE, visible_bit | scroll_bit);
    EXPECT_EQ(resource<unsigned char>(scrolled_window(graphic), XmNscrollingPolicy), XmAPPLICATION_DEFINED);
}

TEST_F(Creation, AScrollingMenuHasThickBars) {
    const INT n = make(GRX_FEN_MENU, visible_bit | scroll_bit, 300, 200);
    ASSERT_TRUE(wait_visible(widget_of(n)));
    EXPECT_EQ(resource<Dimension>(resource<Widget>(scrolled_window(n), XmNverticalScrollBar), XmNwidth), 44);
    EXPECT_EQ(resource<Dimension>(resource<Widget>(scrolled_window(n), XmNhorizontalScrollBar), XmNheight), 44);
}

TEST_F(Creation, ATextWindowTakesLines) {
    const INT n = make(GRX_FEN_TEXTE);
    EXPECT_EQ(resource<int>(widget_of(n), XmNeditMode), XmMULTI_LINE_EDIT);
    XmTextSetString(widget_of(n), const_cast<char*>("one\ntwo"));
    char* text = XmTextGetString(widget_of(n));
    EXPECT_STREQ(text, "one\ntwo");
    XtFree(text);
}

TEST_F(Creation, AMessageWindowHasItsTextAndLabels) {
    GRX_FENETRE window = described(GRX_FEN_MESSAGE);
    std::snprintf(window.message, sizeof window.message, "Save the drawing?");
    Widget box = widget_of(make(window));
    ASSERT_TRUE(wait_visible(box));
    EXPECT_EQ(text_resource(box, XmNmessageString), "Save the drawing?");
    EXPECT_EQ(text_resource(box, XmNokLabelString), "CONFIRM");
    EXPECT_EQ(text_resource(box, XmNcancelLabelString), "ABANDON");
    EXPECT_TRUE(XtIsManaged(XtNameToWidget(box, "OK")));
    for (const char* removed : {"Help", "Cancel"}) {
        Widget child = XtNameToWidget(box, removed);
        EXPECT_TRUE(child == nullptr || !XtIsManaged(child)) << removed;
    }
}

TEST_F(Creation, TextsUseTheApplicationFont) {
    GRX_FENETRE window = described(GRX_FEN_MESSAGE);
    std::snprintf(window.message, sizeof window.message, "m");
    Widget box = widget_of(make(window));
    XmString label = nullptr;
    XtVaGetValues(box, XmNokLabelString, &label, nullptr);
    ASSERT_NE(label, nullptr);
    XmString same_tag = XmStringCreate(const_cast<char*>("CONFIRM"), const_cast<char*>("tag1"));
    EXPECT_TRUE(XmStringCompare(label, same_tag)) << "the font-list tag of the application";
    XmStringFree(same_tag);
    XmStringFree(label);
}

} // namespace
