// The window base, and the creation of windows of every kind.
#include "tests/display/window_kit.h"
#include "tests/support/fake_visual.h"
#include "tests/support/stdout_capture.h"

#include "xt_prive.h"

#include <X11/IntrinsicP.h>

#include <climits>
#include <cstdlib>

namespace {

using namespace grxtest;

constexpr INT visible_bit = GRX_FEN_ATT_VISIBLE;
constexpr INT scroll_bit = GRX_FEN_ATT_SCROLL;
constexpr INT main_bit = GRX_FEN_ATT_PRINCIPALE;
constexpr INT nested_bit = GRX_FEN_ATT_FILLE;
constexpr const char* overflow_line = "Depassement de taille de la base des fenetres\n";

Widget fake_widget(std::uintptr_t n) {
    return reinterpret_cast<Widget>(n);
}

// --- the base without a display -----------------------------------------------------------------------------

class WindowBase : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(grx_alloue_base_fenetres(), 0); }
    void TearDown() override { grx_desalloue_base_fenetres(); }
};

TEST_F(WindowBase, HasAHundredEntries) {
    EXPECT_EQ(MAXOBJETFEN, 100);
    EXPECT_EQ(grx_recup_max_objet(), 0);
    grx_init_objet_fen();
    for (INT n = 0; n < 100; ++n) {
        EXPECT_EQ(grx_recup_objet_fen(n), nullptr);
        EXPECT_EQ(record_of(n).nofen, 100);
    }
}

TEST_F(WindowBase, StoresWidgetsOf0To99) {
    EXPECT_EQ(grx_affecte_objet_fen(0, fake_widget(8)), 1);
    EXPECT_EQ(grx_affecte_objet_fen(99, fake_widget(16)), 1);
    for (INT n : {-1, 100, 101, INT_MAX, INT_MIN}) EXPECT_EQ(grx_affecte_objet_fen(n, fake_widget(8)), 0);
    EXPECT_EQ(grx::Tableau_objet_fen[0], fake_widget(8));
    EXPECT_EQ(grx_recup_objet_fen(0), nullptr) << "number 0 names no window, whatever it holds";
    EXPECT_EQ(grx_recup_objet_fen(99), fake_widget(16));
    for (INT n : {-1, 1, 98, 100, INT_MAX, INT_MIN}) EXPECT_EQ(grx_recup_objet_fen(n), nullptr);
    EXPECT_EQ(grx_affecte_objet_fen(99, nullptr), 1);
    EXPECT_EQ(grx_recup_objet_fen(99), nullptr);
}

TEST_F(WindowBase, TheLowestFreeNumberIsFoundAndNotReserved) {
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 1) << "never 0, though it is free here";
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 1);
    grx_affecte_objet_fen(1, fake_widget(8));
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 2);
    grx_affecte_objet_fen(2, fake_widget(8));
    grx_affecte_objet_fen(3, fake_widget(8));
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 4);
    grx_libere_indice_objet_fen(2);
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 2);
}

TEST_F(WindowBase, TheHighestNumberHandedOutStays) {
    grx_affecte_objet_fen(1, fake_widget(8));
    grx_affecte_objet_fen(2, fake_widget(8));
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 3);
    EXPECT_EQ(grx_recup_max_objet(), 3);
    grx_libere_indice_objet_fen(2);
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 2);
    EXPECT_EQ(grx_recup_max_objet(), 3);
    ASSERT_EQ(grx_desalloue_base_fenetres(), 0);
    ASSERT_EQ(grx_alloue_base_fenetres(), 0);
    EXPECT_EQ(grx_recup_max_objet(), 0) << "a new base starts anew";
}

TEST_F(WindowBase, AFullBasePrintsItsLine) {
    for (INT n = 1; n < 100; ++n) grx_affecte_objet_fen(n, fake_widget(8));
    EXPECT_EQ(outcome_of(grx_recup_indice_objet_fen_libre).result, -1);
    EXPECT_EQ(outcome_of(grx_recup_indice_objet_fen_libre).printed, overflow_line);
    EXPECT_EQ(grx_recup_max_objet(), 0) << "nothing was handed out";
    grx_libere_indice_objet_fen(99);
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 99);
    EXPECT_EQ(grx_recup_max_objet(), 99);
}

TEST_F(WindowBase, RecordsCarryTheirNumberWhileInUse) {
    grx_affecte_structure_fenetre(7);
    EXPECT_EQ(record_of(7).nofen, 7);
    EXPECT_EQ(grx_libere_indice_objet_fen(7), 1);
    EXPECT_EQ(record_of(7).nofen, MAXOBJETFEN);
    grx_affecte_structure_fenetre(8);
    grx_affecte_objet_fen(8, fake_widget(8));
    grx_init_objet_fen();
    EXPECT_EQ(record_of(8).nofen, MAXOBJETFEN);
    EXPECT_EQ(grx_recup_objet_fen(8), nullptr);
}

TEST_F(WindowBase, FreeingKnowsItsBounds) {
    EXPECT_EQ(grx_libere_indice_objet_fen(0), 1);
    EXPECT_EQ(grx_libere_indice_objet_fen(99), 1);
    EXPECT_EQ(grx_libere_indice_objet_fen(99), 1) << "twice is harmless";
    for (INT n : {-1, 100, INT_MAX, INT_MIN}) EXPECT_EQ(grx_libere_indice_objet_fen(n), 0);
}

TEST_F(WindowBase, LookingForNothingGivesTheSizeOfTheBase) {
    EXPECT_EQ(grx_recup_indice_fen(nullptr), 100);
    MAXOBJETFEN = 1;
    EXPECT_EQ(grx_recup_indice_fen(fake_widget(8)), 1);
    MAXOBJETFEN = 100;
}

TEST(NoWindowBase, AnswersBeforeItsAllocation) {
    EXPECT_EQ(MAXOBJETFEN, 0);
    EXPECT_EQ(grx_recup_indice_fen(fake_widget(8)), 0);
    EXPECT_EQ(grx_recup_objet_fen(1), nullptr);
    EXPECT_EQ(grx_affecte_objet_fen(1, fake_widget(8)), 0);
    EXPECT_EQ(grx_libere_indice_objet_fen(1), 0);
    EXPECT_EQ(grx_recup_max_objet(), 0);
    const Outcome search = outcome_of(grx_recup_indice_objet_fen_libre);
    EXPECT_EQ(search.result, -1);
    EXPECT_EQ(search.printed, overflow_line);
    EXPECT_EQ(grx_init_objet_fen(), 0);
    EXPECT_EQ(grx_desalloue_base_fenetres(), 0);
}

TEST(NoWindowBase, MemoryComesFromTheHostAndGoesBack) {
    const NoLeak no_leak;
    ASSERT_EQ(grx_alloue_base_fenetres(), 0);
    EXPECT_GE(heap().blocks(), 7U);
    EXPECT_EQ(grx_desalloue_base_fenetres(), 0);
}

TEST(NoWindowBase, EachFailingAllocationBut7Gives12) {
    // KEEP: the last test looks at largeur_fen again, so that a missing hauteur_fen is not reported.
    for (std::size_t n = 1; n <= 7; ++n) {
        const NoLeak no_leak;
        heap().fail_at(n);
        const Outcome outcome = outcome_of(grx_alloue_base_fenetres);
        EXPECT_TRUE(heap().failed()) << n;
        EXPECT_EQ(outcome.result, n == 7 ? 0 : 12) << n;
        EXPECT_EQ(outcome.printed, "") << n;
        heap().fail_never();
        EXPECT_EQ(MAXOBJETFEN, 100) << n;
        grx_affecte_largeur_fenetre(5, 3);
        grx_affecte_hauteur_fenetre(5, 4);
        EXPECT_EQ(grx_recup_hauteur_fenetre(5), 0) << n;
        grx_affecte_objet_fen(5, nullptr);
        grx_libere_indice_objet_fen(5);
        grx_init_objet_fen();
        grx_init_sauvegarde_fenetre();
        EXPECT_EQ(grx_desalloue_base_fenetres(), 0);
    }
}

TEST(NoWindowBase, NoMemoryAtAllGives12) {
    const NoLeak no_leak;
    heap().fail_from(1);
    EXPECT_EQ(grx_alloue_base_fenetres(), 12);
    heap().fail_never();
    EXPECT_EQ(grx_recup_objet_fen(1), nullptr);
    grx_desalloue_base_fenetres();
}

// --- the base with real windows -----------------------------------------------------------------------------

class Base : public DisplayTest {
  protected:
    bool alive(Drawable drawable) {
        XSync(x11_disp, False);
        Window root = None;
        int x = 0, y = 0;
        unsigned width = 0, height = 0, border = 0, depth = 0;
        return XGetGeometry(test_display(), drawable, &root, &x, &y, &width, &height, &border, &depth) != 0;
    }
};

TEST_F(Base, AWindowIsFoundByItsWidgetAndByItsShell) {
    INT last = 0;
    for (int i = 0; i < 5; ++i) last = make(GRX_FEN_ALPHA);
    ASSERT_EQ(last, 5);
    EXPECT_EQ(grx_recup_indice_fen(widget_of(5)), 5);
    EXPECT_EQ(grx_recup_indice_fen(shell_of(5)), 5);
    EXPECT_EQ(grx_recup_indice_fen(XtParent(shell_of(5))), 100);
    grx_detruit_fenetre(5);
    EXPECT_EQ(grx_recup_indice_fen(shell_of(4)), 4);
}

TEST_F(Base, ASharedShellGivesTheLowestNumber) {
    const INT outer = make(GRX_FEN_ALPHA);
    const INT inner = make(nested_in(outer, GRX_FEN_ALPHA));
    EXPECT_EQ(grx_recup_indice_fen(widget_of(inner)), inner);
    EXPECT_EQ(grx_recup_indice_fen(shell_of(inner)), outer);
    EXPECT_EQ(shell_of(inner), shell_of(outer));
}

TEST_F(Base, FreeingAGraphicWindowFreesItsPicture) {
    const INT window = make(GRX_FEN_GRAPHIQUE);
    ASSERT_NE(record_of(window).image, nullptr);
    const Pixmap picture = *record_of(window).image;
    ASSERT_TRUE(alive(picture));
    EXPECT_EQ(grx_libere_indice_objet_fen(window), 1);
    EXPECT_EQ(record_of(window).image, nullptr);
    EXPECT_FALSE(alive(picture));
    EXPECT_EQ(grx_recup_objet_fen(window), nullptr);
}

TEST_F(Base, FreeingAWindowOfAnotherKindLeavesAPictureAlone) {
    const INT window = make(GRX_FEN_GRAPHIQUE);
    const Pixmap picture = *record_of(window).image;
    record_of(window).type = GRX_FEN_ALPHA;
    grx_libere_indice_objet_fen(window);
    EXPECT_TRUE(alive(picture));
    record_of(window).type = GRX_FEN_GRAPHIQUE;
    grx_libere_indice_objet_fen(window);
    EXPECT_FALSE(alive(picture));
}

TEST_F(Base, Number0MayBeFreedAndIsStillNotGiven) {
    EXPECT_EQ(grx_libere_indice_objet_fen(0), 1);
    EXPECT_EQ(make(GRX_FEN_ALPHA), 1);
}

// --- the description ------------------------------------------------------------------------------------------

TEST(Description, HasItsDefaults) {
    GRX_FENETRE window;
    std::memset(static_cast<void*>(&window), 0x5A, sizeof window);
    grx_init_fenetre(&window);
    EXPECT_EQ(window.nofen, -1);
    EXPECT_EQ(window.x, 0);
    EXPECT_EQ(window.y, 0);
    EXPECT_EQ(window.droite, -1);
    EXPECT_EQ(window.haut, -1);
    EXPECT_EQ(window.type, untouched) << "the caller always gives it";
    EXPECT_EQ(window.attrib, 16);
    EXPECT_STREQ(window.titre, "");
    EXPECT_EQ(window.coul_fond, -1);
    EXPECT_EQ(window.coul_trace, -1);
    EXPECT_EQ(window.curseur, -1);
    EXPECT_EQ(window.fen_mere, -1);
    EXPECT_EQ(window.lar_util, -1);
    EXPECT_EQ(window.hau_util, -1);
    EXPECT_EQ(window.attache, 0);
    for (INT value : window.tabi) EXPECT_EQ(value, 0);
}

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

class Creation : public DisplayTest {
  protected:
    void before_start() override { write_menu(""); }

    static Widget scrolled_window(INT nofen) {
        Widget w = widget_of(nofen);
        while (w
               && !(XmIsScrolledWindow(w) && !XmIsMainWindow(w)
                    && std::string_view(XtName(w)).find("texteSW") == std::string_view::npos))
            w = XtParent(w);
        return w;
    }

    Area area(INT nofen) {
        XSync(x11_disp, False); // what was asked for has reached the server
        return server_area(test_display(), XtWindow(shell_of(nofen)));
    }
};

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

// --- place and size -----------------------------------------------------------------------------------------

struct Decoration {
    INT attrib, dx, dy;
};

void set_decoration_sizes(INT title, INT border, INT no_resize, INT no_title, INT nothing) {
    grx_set_tatitre(title);
    grx_set_tabord(border);
    grx_set_tabord_sans_resize(no_resize);
    grx_set_tabord_sans_titre(no_title);
    grx_set_tabord_sans_decor(nothing);
}

TEST_F(Creation, TheLowerEdgeIsWhereYSaysWithTheDecorationAllowedFor) {
    set_decoration_sizes(17, 9, 5, 6, 3);
    for (const Decoration& d : {Decoration{0, 9, 26}, Decoration{1, 6, 6}, Decoration{2, 0, 17}, Decoration{3, 0, 0},
             Decoration{4, 9, 26}, Decoration{8, 5, 22}, Decoration{9, 5, 5}, Decoration{10, 0, 17},
             Decoration{32, 9, 26}, Decoration{64, 9, 26}, Decoration{5, 6, 6}}) {
        GRX_FENETRE window = described(GRX_FEN_ALPHA, visible_bit | d.attrib, 200, 150);
        window.y = 300;
        const INT n = make(window);
        EXPECT_EQ(area(n), (Area{100 - d.dx, 1024 - 300 - 150 - d.dy, 200, 150})) << "attrib " << d.attrib;
        GRX_FENETRE child = window;
        child.fen_mere = n;
        const INT m = make(child);
        ASSERT_TRUE(wait_visible(widget_of(m)));
        EXPECT_EQ(area(m), (Area{100 - d.dx, 1024 - 300 - 150 - d.dy, 200, 150})) << "child, attrib " << d.attrib;
        grx_detruit_fenetre(m);
        grx_detruit_fenetre(n);
    }
}

TEST_F(Creation, WithoutDecorationSizesTheWindowIsWhereItSays) {
    GRX_FENETRE window = described(GRX_FEN_ALPHA, visible_bit, 200, 150);
    window.x = 33;
    window.y = 0;
    EXPECT_EQ(area(make(window)), (Area{33, 1024 - 150, 200, 150})) << "lower edge on the bottom of the screen";
}

TEST_F(Creation, APlaceBeyondTheTopOrTheLeftIsTheEdge) {
    set_decoration_sizes(17, 7, 5, 7, 5);
    GRX_FENETRE window = described(GRX_FEN_ALPHA, visible_bit, 200, 150);
    window.x = 6;
    window.y = 900;
    EXPECT_EQ(area(make(window)), (Area{0, 0, 200, 150}));
    window.x = 7;
    window.y = 1024 - 150 - 24 - 1;
    EXPECT_EQ(area(make(window)), (Area{0, 1, 200, 150}));
    window.x = -400;
    window.y = 1024;
    EXPECT_EQ(area(make(window)), (Area{0, 0, 200, 150}));
}

TEST_F(Creation, AWindowBelowTheScreenIsThere) {
    GRX_FENETRE window = described(GRX_FEN_ALPHA, visible_bit, 200, 150);
    window.y = -100;
    EXPECT_EQ(area(make(window)), (Area{100, 1024 + 100 - 150, 200, 150}));
}

TEST_F(Creation, ARecordWithOnlyItsKindIsShownAtTheTopLeft) {
    for (INT kind : all_kinds) {
        GRX_FENETRE window{};
        grx_init_fenetre(&window);
        window.type = kind;
        const INT n = make(window);
        ASSERT_TRUE(wait_visible(widget_of(n))) << kind;
        const Area place = area(n);
        EXPECT_EQ(place.x, 0) << kind;
        EXPECT_EQ(place.y, 0) << kind;
        EXPECT_GT(place.width, 1) << kind;
        EXPECT_GT(place.height, 1) << kind;
        grx_detruit_fenetre(n);
    }
}

TEST_F(Creation, EachSizeIsGivenForItself) {
    GRX_FENETRE window = described(GRX_FEN_ALPHA);
    window.haut = -1;
    const Area wide = area(make(window));
    EXPECT_EQ(wide.width, 200);
    EXPECT_EQ(wide.x, 100);
    EXPECT_EQ(wide.y, 0) << "without a height the lower edge cannot be placed";
    window = described(GRX_FEN_ALPHA);
    window.droite = -1;
    const Area high = area(make(window));
    EXPECT_EQ(high.height, 150);
    EXPECT_EQ(high.y, 120);
}

TEST_F(Creation, EveryKindGetsTheSizeItAskedFor) {
    for (INT kind : all_kinds)
        for (const INT extra : {0, scroll_bit, main_bit, scroll_bit | main_bit}) {
            const INT n = make(kind, visible_bit | extra, 410, 320);
            ASSERT_TRUE(wait_visible(widget_of(n)));
            EXPECT_EQ(area(n), (Area{100, 120, 410, 320})) << "kind " << kind << " extra " << extra;
            INT width = 0, height = 0;
            grx_recup_taille_fenetre(n, &width, &height);
            EXPECT_EQ(width, 410);
            EXPECT_EQ(height, 320);
            grx_detruit_fenetre(n);
            drain();
        }
}

TEST_F(Creation, ANestedWindowIsPlacedFromTheBottomOfItsParent) {
    for (INT parent_kind : {GRX_FEN_ALPHA, GRX_FEN_GRAPHIQUE}) {
        const INT outer = make(parent_kind, visible_bit, 400, 300);
        ASSERT_TRUE(wait_visible(widget_of(outer)));
        for (INT kind : {GRX_FEN_BOUTONS, GRX_FEN_GRAPHIQUE, GRX_FEN_ALPHA, GRX_FEN_MENU}) {
            const INT inner = make(nested_in(outer, kind, 30, 0, 80, 50));
            ASSERT_TRUE(wait_visible(widget_of(inner)));
            EXPECT_EQ(server_area(test_display(), x_window(inner)), (Area{130, 120 + 300 - 50, 80, 50}))
                << "kind " << kind << " sits on the bottom of kind " << parent_kind;
            const INT higher = make(nested_in(outer, kind, 5, 70, 80, 50));
            ASSERT_TRUE(wait_visible(widget_of(higher)));
            EXPECT_EQ(server_area(test_display(), x_window(higher)), (Area{105, 120 + 300 - 70 - 50, 80, 50}));
            grx_detruit_fenetre_fille(inner);
            grx_detruit_fenetre_fille(higher);
        }
        grx_detruit_fenetre(outer);
        drain();
    }
}

TEST_F(Creation, NestedWindowsIgnoreTheDecorationSizes) {
    set_decoration_sizes(17, 7, 5, 7, 5);
    const INT outer = make(GRX_FEN_ALPHA, visible_bit, 400, 300);
    ASSERT_TRUE(wait_visible(widget_of(outer)));
    const Area around = server_area(test_display(), x_window(outer));
    const INT inner = make(nested_in(outer, GRX_FEN_ALPHA, 30, 0, 80, 50));
    ASSERT_TRUE(wait_visible(widget_of(inner)));
    EXPECT_EQ(server_area(test_display(), x_window(inner)), (Area{around.x + 30, around.y + 250, 80, 50}));
}

TEST_F(Creation, ANestedWindowAboveItsParentKeepsTheToolkitsPlace) {
    const INT outer = make(GRX_FEN_GRAPHIQUE, visible_bit, 400, 300);
    const INT inner = make(nested_in(outer, GRX_FEN_GRAPHIQUE, -20, 290, 80, 50));
    ASSERT_TRUE(wait_visible(widget_of(inner)));
    const Area place = server_area(test_display(), x_window(inner));
    EXPECT_GE(place.x, 100) << "a negative x is not given";
    EXPECT_GE(place.y, 120) << "nor is a negative y";
    EXPECT_EQ(place.width, 80);
}

TEST_F(Creation, AttachmentsNameTheSidesOfTheParentForm) {
    struct Side {
        INT bit;
        const char* attachment;
    };
    const std::array sides{Side{GRX_ATTACHE_BAS, XmNbottomAttachment}, Side{GRX_ATTACHE_HAUT, XmNtopAttachment},
        Side{GRX_ATTACHE_DROITE, XmNrightAttachment}, Side{GRX_ATTACHE_GAUCHE, XmNleftAttachment}};
    const INT outer = make(GRX_FEN_ALPHA, visible_bit, 400, 300);
    for (INT bits = 1; bits < 16; ++bits) {
        GRX_FENETRE window = nested_in(outer, GRX_FEN_ALPHA);
        window.attache = bits;
        const INT inner = make(window);
        for (const Side& side : sides) {
            const bool attached = resource<unsigned char>(widget_of(inner), side.attachment) == XmATTACH_FORM;
            // The form itself holds a child with a place by its top and its left.
            const bool by_the_form = side.bit == GRX_ATTACHE_HAUT || side.bit == GRX_ATTACHE_GAUCHE;
            if ((bits & side.bit) != 0 || !by_the_form)
                EXPECT_EQ(attached, (bits & side.bit) != 0) << side.attachment << " bits " << bits;
        }
        grx_detruit_fenetre_fille(inner);
        drain();
    }
}

TEST_F(Creation, AnAttachedWindowFollowsItsParent) {
    const INT outer = make(GRX_FEN_ALPHA, visible_bit, 400, 300);
    GRX_FENETRE window = nested_in(outer, GRX_FEN_GRAPHIQUE);
    window.attache = GRX_ATTACHE_BAS | GRX_ATTACHE_HAUT | GRX_ATTACHE_DROITE | GRX_ATTACHE_GAUCHE;
    const INT inner = make(window);
    ASSERT_TRUE(wait_visible(widget_of(inner)));
    const auto fills = [&](Area wanted) {
        return wait_for([&] { return server_area(test_display(), x_window(inner)) == wanted; });
    };
    EXPECT_TRUE(fills({100, 120, 400, 300}));
    grx_change_taille_fenetre(outer, 350, 260);
    EXPECT_TRUE(fills({100, 120, 350, 260}));
}

// --- under mwm ------------------------------------------------------------------------------------------------

class CreationWmTest : public WmTest {};

TEST_F(CreationWmTest, TheClientIsWhereTheRecordSays) {
    set_decoration_sizes(17, 7, 5, 7, 5);
    struct Frame {
        INT attrib;
        int left, top;
    };
    for (const Frame& f :
        {Frame{0, 7, 24}, Frame{8, 5, 22}, Frame{1 | 4, 7, 7}, Frame{1 | 4 | 8, 5, 5}, Frame{2, 0, 17},
            Frame{1 | 2 | 4, 0, 0}, Frame{4, 7, 24}, Frame{32, 7, 24}, Frame{64, 7, 24}, Frame{32 | 64, 7, 24}}) {
        const INT n = make(GRX_FEN_ALPHA, visible_bit | f.attrib);
        ASSERT_TRUE(wait_visible(widget_of(n)));
        const Area wanted{100 - f.left, 120 - f.top, 200 + 2 * f.left, 150 + f.top + f.left};
        EXPECT_TRUE(wait_for([&] {
            return server_area(test_display(), x_window(n)) == Area{100, 120, 200, 150};
        })) << "attrib "
            << f.attrib << " client at " << server_area(test_display(), x_window(n)).x << ","
            << server_area(test_display(), x_window(n)).y;
        if (frame(shell_of(n)) != None) {
            EXPECT_EQ(frame_area(shell_of(n)), wanted) << "attrib " << f.attrib;
        }
        grx_detruit_fenetre(n);
        drain();
    }
}

TEST_F(CreationWmTest, AChildWindowIsPlacedTheSameWay) {
    set_decoration_sizes(17, 7, 5, 7, 5);
    const INT top = make(GRX_FEN_ALPHA);
    GRX_FENETRE window = described(GRX_FEN_ALPHA);
    window.fen_mere = top;
    window.x = 400;
    const INT child = make(window);
    ASSERT_TRUE(wait_visible(widget_of(child)));
    EXPECT_TRUE(wait_for([&] { return server_area(test_display(), x_window(child)) == Area{400, 120, 200, 150}; }));
}

TEST_F(CreationWmTest, AWindowWithoutASizeIsLargeEnoughToSee) {
    GRX_FENETRE window{};
    grx_init_fenetre(&window);
    window.type = GRX_FEN_BOUTONS;
    const INT n = make(window);
    ASSERT_TRUE(wait_visible(widget_of(n)));
    EXPECT_GT(server_area(test_display(), x_window(n)).width, 1);
}

// --- shown or not ---------------------------------------------------------------------------------------------

TEST_F(Creation, WithoutItsBitAWindowIsMadeAndNotShown) {
    for (INT kind : all_kinds)
        for (const INT extra : {0, scroll_bit, main_bit, main_bit | scroll_bit})
            for (const bool child : {false, true}) {
                SCOPED_TRACE(testing::Message() << "kind " << kind << " extra " << extra << (child ? " child" : ""));
                const INT parent = child ? make(GRX_FEN_ALPHA) : -1;
                GRX_FENETRE window = described(kind, extra);
                window.fen_mere = parent;
                const INT n = make(window);
                ASSERT_GT(n, 0);
                drain();
                EXPECT_FALSE(visible(x_window(n)));
                XWindowAttributes attributes{};
                if (XtWindow(shell_of(n)) != None) {
                    XGetWindowAttributes(test_display(), XtWindow(shell_of(n)), &attributes);
                    EXPECT_EQ(attributes.map_state, IsUnmapped);
                }
                grx_affiche_fenetre(n);
                EXPECT_TRUE(wait_visible(widget_of(n)));
                grx_detruit_fenetre(n);
                if (child) grx_detruit_fenetre(parent);
                drain();
            }
}

TEST_F(Creation, ANestedWindowWithoutItsBitIsMadeAndNotShown) {
    const INT outer = make(GRX_FEN_ALPHA, visible_bit, 400, 300);
    for (INT kind : {GRX_FEN_BOUTONS, GRX_FEN_GRAPHIQUE, GRX_FEN_ALPHA, GRX_FEN_MESSAGE, GRX_FEN_MENU}) {
        GRX_FENETRE window = nested_in(outer, kind);
        window.attrib = nested_bit;
        const INT inner = make(window);
        ASSERT_GT(inner, 0);
        drain();
        EXPECT_FALSE(visible(x_window(inner))) << kind;
        grx_affiche_fenetre_fille(inner);
        EXPECT_TRUE(wait_visible(widget_of(inner))) << kind;
    }
}

// --- refusals -------------------------------------------------------------------------------------------------

class Refusal : public Creation {
  protected:
    void SetUp() override {
        Creation::SetUp();
        make(GRX_FEN_ALPHA);
        drain();
        blocks_ = heap().blocks();
        gather_windows(test_display(), DefaultRootWindow(test_display()), windows_);
    }

    void expect_refused(const GRX_FENETRE& description, INT result) {
        GRX_FENETRE window = description;
        EXPECT_EQ(grx_cree_fenetre(&window), result);
        drain();
        EXPECT_EQ(heap().blocks(), blocks_);
        std::vector<Window> now;
        gather_windows(test_display(), DefaultRootWindow(test_display()), now);
        EXPECT_EQ(now, windows_) << "no widget is left on the server";
        EXPECT_EQ(grx_recup_objet_fen(2), nullptr) << "no number is taken";
        EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 2);
    }

  private:
    std::size_t blocks_ = 0;
    std::vector<Window> windows_;
};

TEST_F(Refusal, OfUnknownKinds) {
    for (INT kind : {0, 6, 8, -1, 9, 16, 256, INT_MAX, INT_MIN})
        for (const INT extra : {0, scroll_bit, main_bit}) expect_refused(described(kind, visible_bit | extra), -1);
    for (INT kind : {0, 6, 8}) expect_refused(nested_in(1, kind), -1);
}

TEST_F(Refusal, OfUnknownParents) {
    for (INT parent : {0, 2, 50, 99, 100, 101, INT_MAX}) {
        GRX_FENETRE window = described(GRX_FEN_ALPHA);
        window.fen_mere = parent;
        expect_refused(window, -1);
        expect_refused(nested_in(parent, GRX_FEN_ALPHA), -1);
    }
    for (INT parent : {-1, -2, INT_MIN}) expect_refused(nested_in(parent, GRX_FEN_ALPHA), -1);
}

TEST_F(Refusal, OfNoRecord) {
    EXPECT_EQ(grx_cree_fenetre(nullptr), -1);
    grx_init_fenetre(nullptr);
    EXPECT_EQ(grx_recup_objet_fen(2), nullptr);
}

TEST_F(Creation, AFullBaseGivesMinus2AndItsLine) {
    const INT first = make(GRX_FEN_ALPHA);
    for (INT n = 2; n < 100; ++n) grx_affecte_objet_fen(n, widget_of(first));
    drain();
    std::vector<Window> before, after;
    gather_windows(test_display(), DefaultRootWindow(test_display()), before);
    for (INT kind : all_kinds) {
        GRX_FENETRE window = described(kind);
        const Outcome outcome = outcome_of([&] { return grx_cree_fenetre(&window); });
        EXPECT_EQ(outcome.result, -2);
        EXPECT_EQ(outcome.printed, overflow_line);
    }
    drain();
    gather_windows(test_display(), DefaultRootWindow(test_display()), after);
    EXPECT_EQ(before, after);
    grx_affecte_objet_fen(42, nullptr);
    EXPECT_EQ(make(GRX_FEN_ALPHA), 42);
    for (INT n = 2; n < 100; ++n)
        if (n != 42) grx_affecte_objet_fen(n, nullptr);
}

TEST_F(Creation, NinetyNineRealWindowsFitAndTheNextDoesNot) {
    for (INT n = 1; n < 100; ++n) ASSERT_EQ(make(GRX_FEN_ALPHA, 0, 20, 20), n);
    GRX_FENETRE window = described(GRX_FEN_ALPHA);
    EXPECT_EQ(outcome_of([&] { return grx_cree_fenetre(&window); }).result, -2);
    grx_detruit_fenetre(57);
    EXPECT_EQ(make(GRX_FEN_ALPHA), 57);
}

// --- main windows ---------------------------------------------------------------------------------------------

TEST_F(Creation, AMainWindowHasAnEmptyMenuBar) {
    write_menu("#:ZONE_MENU_BAR\n{\n}\n");
    for (INT kind : all_kinds) {
        const INT n = make(kind, visible_bit | main_bit, 400, 300);
        ASSERT_TRUE(wait_visible(widget_of(n)));
        Widget main = widget_of(n);
        while (main && !XmIsMainWindow(main)) main = XtParent(main);
        ASSERT_NE(main, nullptr);
        EXPECT_STREQ(XtName(main), "main");
        EXPECT_TRUE(XtIsManaged(main));
        EXPECT_TRUE(XtIsShell(XtParent(main)));
        Widget bar = resource<Widget>(main, XmNmenuBar);
        ASSERT_NE(bar, nullptr);
        EXPECT_STREQ(XtName(bar), "Menu_bar");
        EXPECT_TRUE(XtIsManaged(bar));
        EXPECT_EQ(XtParent(bar), main);
        EXPECT_EQ(resource<unsigned char>(bar, XmNrowColumnType), XmMENU_BAR);
        EXPECT_EQ(grx_get_Glob_menu_bar(), bar);
        Widget work = resource<Widget>(main, XmNworkWindow);
        ASSERT_NE(work, nullptr);
        bool inside = false;
        for (Widget w = widget_of(n); w != main; w = XtParent(w)) inside = inside || w == work;
        EXPECT_TRUE(inside) << "the work area holds the window";
        grx_detruit_fenetre(n);
        drain();
    }
}

TEST_F(Creation, WindowsWithoutTheBitHaveNoMenuBar) {
    make(GRX_FEN_ALPHA);
    EXPECT_EQ(grx_get_Glob_menu_bar(), nullptr);
    EXPECT_EQ(grx_recup_tamenubar(), 0);
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

// --- events and cursor ------------------------------------------------------------------------------------------

TEST_F(Creation, TheEventMasksAreSelected) {
    const INT outer = make(GRX_FEN_ALPHA, visible_bit, 400, 300);
    const INT inner = make(nested_in(outer, GRX_FEN_GRAPHIQUE));
    for (INT n : {outer, inner, make(GRX_FEN_GRAPHIQUE), make(GRX_FEN_BOUTONS), make(GRX_FEN_MENU)}) {
        EXPECT_EQ(XtBuildEventMask(widget_of(n)) & 0x2877DU, 0x2877DU) << n;
        XWindowAttributes attributes{};
        XGetWindowAttributes(x11_disp, x_window(n), &attributes);
        EXPECT_EQ(attributes.your_event_mask & 0x2877D, 0x2877D) << n;
        EXPECT_EQ(XtBuildEventMask(shell_of(n)) & 0x90000U, 0x90000U) << n;
    }
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

// --- memory and server resources --------------------------------------------------------------------------------

TEST_F(Creation, EachFailingAllocationIsSurvived) {
    make(GRX_FEN_ALPHA, visible_bit, 400, 300);
    drain();
    for (INT kind : all_kinds)
        for (const INT extra : {0, scroll_bit, main_bit, nested_bit}) {
            const auto attempt = [&] {
                const NoLeak no_leak;
                GRX_FENETRE window = extra == nested_bit ? nested_in(1, kind) : described(kind, visible_bit | extra);
                StdoutCapture silence;
                const INT result = grx_cree_fenetre(&window);
                silence.restore();
                EXPECT_TRUE(result == 0 || result == -1 || result == -2) << result;
                if (result == 0) {
                    EXPECT_EQ(window.nofen, 2);
                    EXPECT_NE(widget_of(2), nullptr);
                    if (extra == nested_bit)
                        grx_detruit_fenetre_fille(2);
                    else
                        grx_detruit_fenetre(2);
                }
                drain();
                EXPECT_EQ(grx_recup_objet_fen(2), nullptr);
            };
            SCOPED_TRACE(testing::Message() << "kind " << kind << " extra " << extra);
            fail_each_allocation(attempt);
        }
}

TEST_F(Creation, TwoHundredWindowsOfEachKindLeaveNothing) {
    for (INT kind : all_kinds) {
        SCOPED_TRACE(testing::Message() << "kind " << kind);
        const auto round = [&] {
            const INT n = make(kind, visible_bit | scroll_bit);
            ASSERT_EQ(n, 1);
            grx_detruit_fenetre(n);
            drain();
        };
        const auto resources = [&] {
            auto counted = server_resources(test_display(), XtWindow(XmGetXmDisplay(x11_disp)));
            return counted;
        };
        for (int i = 0; i < 3; ++i) round();
        const auto blocks = heap().blocks();
        const auto bytes = heap().bytes();
        const auto before = resources();
        ASSERT_GT(before.size(), 0U);
        for (int i = 0; i < 200; ++i) round();
        EXPECT_EQ(heap().blocks(), blocks);
        EXPECT_EQ(heap().bytes(), bytes);
        EXPECT_EQ(resources(), before);
    }
}

TEST_F(Creation, TwoHundredNestedWindowsLeaveNothing) {
    const INT outer = make(GRX_FEN_ALPHA, visible_bit, 400, 300);
    for (INT kind : all_kinds) {
        const auto round = [&] {
            const INT n = make(nested_in(outer, kind));
            ASSERT_EQ(n, 2);
            grx_detruit_fenetre_fille(n);
            drain();
        };
        const auto resources = [&] { return server_resources(test_display(), XtWindow(XmGetXmDisplay(x11_disp))); };
        for (int i = 0; i < 3; ++i) round();
        const auto blocks = heap().blocks();
        const auto before = resources();
        for (int i = 0; i < 200; ++i) round();
        EXPECT_EQ(heap().blocks(), blocks) << kind;
        EXPECT_EQ(resources(), before) << kind;
    }
}

} // namespace
