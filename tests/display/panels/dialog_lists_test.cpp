// Dialogs: supports, their windows, toggles, drop-down choices and lists, from a real pointer and a real keyboard.
#include "tests/display/control_kit.h"
#include "tests/support/fake_visual.h"
#include "tests/support/stdout_capture.h"

#include <limits>
#include <optional>
#include <set>

namespace {

using namespace grxtest;

constexpr INT toggles = GRX_MSG_TYPE_BASCULES;

GRX_MSG dialog(INT type, INT attribut, INT x = 30, INT y = 40) {
    GRX_MSG message{};
    grx_init_message(&message);
    message.type = type;
    message.attribut = attribut;
    message.x = x;
    message.y = y;
    return message;
}

std::string name_of(Widget widget) {
    return widget ? XtName(widget) : "(none)";
}

Widget up(Widget widget, int levels) {
    for (int i = 0; i < levels && widget; ++i) widget = XtParent(widget);
    return widget;
}

// Complaints of the toolkit while it lives.
class Warnings {
  public:
    Warnings() : before_(XtAppSetWarningMsgHandler(contexte, note)) { count_ = 0; }
    ~Warnings() { XtAppSetWarningMsgHandler(contexte, before_); }
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;
    int count() const { return count_; }

  private:
    static void note(String, String, String, String, String*, Cardinal*) { ++count_; }
    static inline int count_ = 0;
    XtErrorMsgHandler before_;
};

class DialogTest : public ControlsInWindowTest {
  protected:
    // What the record holds before the next event is a pattern.
    void forget() {
        settle();
        evt_global = patterned_event();
    }

    std::size_t children() {
        drain();
        return children_of(widget_of(window)).size();
    }

    std::map<std::string, unsigned> resources() {
        auto counted = server_resources(test_display(), XtWindow(XmGetXmDisplay(x11_disp)));
        counted.erase("GC"); // replaced drawing contexts are not freed, on purpose
        return counted;
    }
};

// --- supports -----------------------------------------------------------------------------------------------------

class Supports : public DialogTest {
  protected:
    Widget support(const GRX_MSG& message) { return grx_cree_support_message(window, message); }
    Widget support(INT type, INT attribut) { return support(dialog(type, attribut)); }

    // The form around everything, with its frame in it.
    void expect_frame(Widget form, Widget frame) {
        ASSERT_TRUE(form && frame);
        EXPECT_EQ(name_of(form), "Support cadre");
        EXPECT_TRUE(is_a(form, xmFormWidgetClass));
        EXPECT_EQ(XtParent(form), widget_of(window));
        EXPECT_EQ(children_of(form), std::vector<Widget>{frame});
        EXPECT_EQ(name_of(frame), "Cadre");
        EXPECT_TRUE(is_a(frame, xmFrameWidgetClass));
        EXPECT_EQ(resource<unsigned char>(frame, XmNshadowType), XmSHADOW_ETCHED_IN);
        EXPECT_EQ(resource<unsigned char>(frame, XmNleftAttachment), XmATTACH_FORM);
        EXPECT_EQ(resource<unsigned char>(frame, XmNrightAttachment), XmATTACH_FORM);
        EXPECT_TRUE(XtIsManaged(form));
        EXPECT_TRUE(XtIsManaged(frame));
        EXPECT_EQ(resource<Position>(form, XmNx), 30);
        EXPECT_EQ(resource<Position>(form, XmNy), 40);
    }

    // A support inside the frame.
    void expect_inside(Widget inner, WidgetClass kind) {
        ASSERT_NE(inner, nullptr);
        EXPECT_EQ(name_of(inner), "Support");
        EXPECT_TRUE(is_a(inner, kind));
        EXPECT_TRUE(XtIsManaged(inner));
        expect_frame(up(inner, 2), up(inner, 1));
        EXPECT_EQ(children_of(up(inner, 1)), std::vector<Widget>{inner});
    }

    void expect_bare_frame(Widget frame) {
        expect_frame(up(frame, 1), frame);
        EXPECT_EQ(resource<unsigned char>(frame, XmNtopAttachment), XmATTACH_FORM);
        EXPECT_TRUE(children_of(frame).empty());
    }

    void expect_radio_box(Widget box, bool vertical) {
        expect_inside(box, xmRowColumnWidgetClass);
        EXPECT_TRUE(resource<Boolean>(box, XmNradioBehavior));
        EXPECT_EQ(resource<unsigned char>(box, XmNorientation), vertical ? XmVERTICAL : XmHORIZONTAL);
    }

    void expect_row(Widget row, bool vertical) {
        expect_inside(row, xmRowColumnWidgetClass);
        EXPECT_FALSE(resource<Boolean>(row, XmNradioBehavior));
        EXPECT_EQ(resource<unsigned char>(row, XmNrowColumnType), XmWORK_AREA);
        EXPECT_EQ(resource<WidgetClass>(row, XmNentryClass), xmToggleButtonGadgetClass);
        EXPECT_EQ(resource<unsigned char>(row, XmNorientation), vertical ? XmVERTICAL : XmHORIZONTAL);
        const auto top = resource<unsigned char>(XtParent(row), XmNtopAttachment);
        EXPECT_TRUE(top == XmATTACH_WIDGET || top == XmATTACH_FORM) << "without a widget named the form is taken";
    }

    INT toggle(Widget parent, const char* title, INT value = 0) {
        GRX_BOUTON description = control_of(GRX_BOU_BASCULE, 0, -1, title);
        description.ref_fen_mere = parent;
        description.x = description.y = description.largeur = description.hauteur = -1;
        description.tabi[GRX_BOU_TABI_VALEUR] = value;
        return placed(description);
    }

    bool set(INT nobou) { return XmToggleButtonGetState(control(nobou)) != 0; }

    void click(INT nobou) {
        pointer().click_in(control(nobou));
        drain();
    }

    static GRX_MSG record_with(GRX_MSG message, Widget made) {
        message.ref_fen_mere = made;
        return message;
    }
};

// Kind and bits of the four supports.
struct SupportKind {
    const char* name;
    INT type, attribut;
    int levels; // from the support to the outermost form
};
constexpr std::array support_kinds{SupportKind{"plain", 2, 0, 2}, SupportKind{"frame", toggles, 16, 1},
    SupportKind{"radio", toggles, 64, 2}, SupportKind{"multiple", toggles, 32, 2}};

TEST_F(Supports, APlainOneIsAFormInAFrameInAForm) {
    GRX_MSG message = dialog(2, 0);
    message.largeur = 170;
    message.hauteur = 90;
    const Widget inner = support(message);
    expect_inside(inner, xmFormWidgetClass);
    ASSERT_TRUE(wait_visible(inner));
    EXPECT_EQ(extent_of(inner), (Extent{170, 90}));
    EXPECT_GE(extent_of(up(inner, 2)).width, 170);
    EXPECT_LT(extent_of(up(inner, 2)).width, 190);
    EXPECT_LT(extent_of(up(inner, 2)).height, 110);
}

TEST_F(Supports, ASizeGivenIsNotTheContents) {
    GRX_MSG message = dialog(2, 0);
    message.largeur = 170;
    message.hauteur = 90;
    const Widget inner = support(message);
    GRX_BOUTON description = control_of(GRX_BOU_LABEL, 0, -1);
    description.ref_fen_mere = inner;
    description.x = description.y = 5;
    description.largeur = description.hauteur = 20;
    const INT small = placed(description);
    drain();
    EXPECT_EQ(extent_of(inner), (Extent{170, 90}));
    grx_detruit_bouton(small);
    drain();
    EXPECT_EQ(extent_of(inner), (Extent{170, 90}));
}

TEST_F(Supports, EveryKindBut8IsPlain) {
    for (INT type : {-1, 0, 1, 2, 7, 9, 16, 20, 100, INT_MIN, INT_MAX})
        for (INT attribut : {0, 2, 16, 32, 64, 16 + 64, 32 + 2, -1}) {
            const Widget inner = support(type, attribut);
            SCOPED_TRACE(testing::Message() << type << " with " << attribut);
            expect_inside(inner, xmFormWidgetClass);
            XtDestroyWidget(up(inner, 2));
            drain();
        }
}

TEST_F(Supports, ASizeNotGivenIsFree) {
    GRX_MSG message = dialog(2, 0);
    message.largeur = 170;
    const Widget wide = support(message);
    message.largeur = -1;
    message.hauteur = 90;
    message.y = 150;
    const Widget high = support(message);
    ASSERT_TRUE(wait_visible(wide) && wait_visible(high));
    EXPECT_EQ(extent_of(wide).width, 170);
    EXPECT_LT(extent_of(wide).height, 100);
    EXPECT_EQ(extent_of(high).height, 90);
    EXPECT_LT(extent_of(high).width, 100);
    EXPECT_EQ(extent_of(widget_of(window)), (Extent{400, 300}));
}

TEST_F(Supports, APlaceNotGivenIsTheContainers) {
    for (const SupportKind& kind : support_kinds) {
        const Widget bare = XtVaCreateManagedWidget("bare", xmFormWidgetClass, widget_of(window), nullptr);
        const auto place = [&](INT x, INT y) {
            const Widget made = support(dialog(kind.type, kind.attribut, x, y));
            const Widget form = up(made, kind.levels);
            const Point at{resource<Position>(form, XmNx), resource<Position>(form, XmNy)};
            XtDestroyWidget(form);
            drain();
            return at;
        };
        const Point nowhere{resource<Position>(bare, XmNx), resource<Position>(bare, XmNy)};
        EXPECT_EQ(place(-1, -1), nowhere) << kind.name;
        EXPECT_EQ(place(70, -1), (Point{70, nowhere.y})) << kind.name;
        EXPECT_EQ(place(-1, 70), (Point{nowhere.x, 70})) << kind.name;
        EXPECT_EQ(place(0, 0), (Point{0, 0})) << kind.name;
        XtDestroyWidget(bare);
        drain();
    }
}

TEST_F(Supports, ABareFrame) {
    expect_bare_frame(support(toggles, 16));
}

TEST_F(Supports, ARadioBox) {
    expect_radio_box(support(toggles, 64), false);
}

TEST_F(Supports, AVerticalRadioBox) {
    expect_radio_box(support(toggles, 64 + 2), true);
}

TEST_F(Supports, ARowOfToggles) {
    expect_row(support(toggles, 32), false);
}

TEST_F(Supports, AColumnOfToggles) {
    expect_row(support(toggles, 32 + 2), true);
}

TEST_F(Supports, TheFrameWinsOverTheRadioBoxAndThatOverTheRow) {
    for (INT more : {64, 32, 64 + 32, 64 + 32 + 2, 2, 1, 4, 8, 128, ~16}) {
        SCOPED_TRACE(more);
        const Widget frame = support(toggles, 16 | more);
        expect_bare_frame(frame);
        XtDestroyWidget(XtParent(frame));
        drain();
    }
    for (INT more : {32, 32 + 2, 1, 128}) {
        SCOPED_TRACE(more);
        const Widget box = support(toggles, 64 | more);
        expect_radio_box(box, (more & 2) != 0);
        XtDestroyWidget(up(box, 2));
        drain();
    }
}

TEST_F(Supports, WithNoneOfTheBitsNothingIsMade) {
    const auto before = children();
    for (INT attribut : {0, 1, 2, 4, 8, 128, 256, ~(16 | 32 | 64)}) EXPECT_EQ(support(toggles, attribut), nullptr);
    EXPECT_EQ(children(), before);
}

TEST_F(Supports, InAnUnknownWindowNothingIsMade) {
    const auto before = children();
    for (INT unknown : {-1, 0, 2, 99, 100, INT_MIN, INT_MAX})
        for (const SupportKind& kind : support_kinds)
            EXPECT_EQ(grx_cree_support_message(unknown, dialog(kind.type, kind.attribut)), nullptr) << unknown;
    EXPECT_EQ(children(), before);
}

TEST_F(Supports, HoldTheTogglesOnTheScreen) {
    for (const SupportKind& kind : support_kinds) {
        const Widget made = support(kind.type, kind.attribut);
        const INT n = toggle(made, "Un");
        EXPECT_EQ(XtParent(control(n)), made) << kind.name;
        EXPECT_TRUE(on_screen(n)) << kind.name;
        EXPECT_EQ(button_record(n).nofen, -1) << kind.name;
        grx_detruit_bouton(n);
        grx_detruit_bascule_complexe(record_with(dialog(kind.type, kind.attribut), made));
        drain();
    }
}

TEST_F(Supports, TogglesStandBesideOrBelowEachOther) {
    for (INT kind : {64, 32})
        for (INT vertical : {0, 2}) {
            const Widget made = support(toggles, kind | vertical);
            const Point a = root_position(control(toggle(made, "Un"))),
                        b = root_position(control(toggle(made, "Deux")));
            EXPECT_EQ(a.x == b.x, vertical != 0) << kind;
            EXPECT_EQ(a.y == b.y, vertical == 0) << kind;
            grx_detruit_bascule_complexe(record_with(dialog(toggles, kind | vertical), made));
            drain();
        }
}

TEST_F(Supports, TogglesOfARadioBoxExcludeEachOther) {
    const Widget box = support(toggles, 64);
    const INT a = toggle(box, "Un"), b = toggle(box, "Deux"), c = toggle(box, "Trois");
    drain();
    click(b);
    EXPECT_TRUE(!set(a) && set(b) && !set(c));
    click(c);
    EXPECT_TRUE(!set(a) && !set(b) && set(c));
}

TEST_F(Supports, TogglesOfARowDoNot) {
    const Widget row = support(toggles, 32);
    const INT a = toggle(row, "Un"), b = toggle(row, "Deux"), c = toggle(row, "Trois");
    drain();
    click(b);
    click(c);
    EXPECT_TRUE(!set(a) && set(b) && set(c));
    click(b);
    EXPECT_TRUE(!set(a) && !set(b) && set(c));
}

TEST_F(Supports, AToggleInAReportsItsValue) {
    for (INT kind : {64, 32}) {
        const Widget made = support(toggles, kind);
        const INT n = toggle(made, "Un", 5);
        forget();
        click(n);
        const auto done = events.wait(GRX_EVT_EXEC_FONCTION);
        ASSERT_TRUE(done) << events.describe();
        EXPECT_EQ(done->exec_fonction.nobou, n);
        EXPECT_EQ(done->exec_fonction.valeur, 5);
        EXPECT_EQ(done->exec_fonction.no_fo, 700);
        grx_detruit_bascule_complexe(record_with(dialog(toggles, kind), made));
        settle();
    }
}

TEST_F(Supports, DestructionTakesTheWholeContainer) {
    for (const SupportKind& kind : support_kinds) {
        const auto before = children();
        const GRX_MSG message = dialog(kind.type, kind.attribut);
        const GRX_MSG record = record_with(message, support(message));
        toggle(record.ref_fen_mere, "Un");
        EXPECT_EQ(children(), before + 1) << kind.name;
        EXPECT_EQ(grx_detruit_bascule_complexe(record), 0) << kind.name;
        EXPECT_EQ(children(), before) << kind.name;
        EXPECT_TRUE(visible(x_window(window))) << kind.name;
    }
}

TEST_F(Supports, DestructionOfAPlainOneTakesNoNoticeOfTheBits) {
    for (INT attribut : {16, 64, 32, 16 + 64, 2}) {
        const auto before = children();
        const GRX_MSG message = dialog(2, attribut);
        EXPECT_EQ(grx_detruit_bascule_complexe(record_with(message, support(message))), 0);
        EXPECT_EQ(children(), before) << attribut;
    }
}

TEST_F(Supports, DestructionLeavesTheOthers) {
    for (const SupportKind& kind : support_kinds) {
        const GRX_MSG message = dialog(kind.type, kind.attribut);
        const Widget other = support(dialog(kind.type, kind.attribut, 200, 200));
        const INT kept = toggle(other, "Reste");
        grx_detruit_bascule_complexe(record_with(message, support(message)));
        drain();
        EXPECT_TRUE(on_screen(kept)) << kind.name;
        grx_detruit_bascule_complexe(record_with(message, other));
        drain();
    }
}

TEST_F(Supports, ASecondDestructionDoesNothing) {
    for (const SupportKind& kind : support_kinds) {
        const GRX_MSG message = dialog(kind.type, kind.attribut);
        const auto before = children();
        const GRX_MSG record = record_with(message, support(message));
        EXPECT_EQ(grx_detruit_bascule_complexe(record), 0) << kind.name;
        EXPECT_EQ(grx_detruit_bascule_complexe(record), 0) << "at once, " << kind.name;
        drain();
        EXPECT_EQ(grx_detruit_bascule_complexe(record), 0) << "later, " << kind.name;
        EXPECT_EQ(children(), before) << kind.name;
    }
    EXPECT_TRUE(visible(x_window(window)));
}

TEST_F(Supports, DestructionOfWhatWasNeverMadeDoesNothing) {
    const auto before = children();
    for (const SupportKind& kind : support_kinds) {
        EXPECT_EQ(grx_detruit_bascule_complexe(dialog(kind.type, kind.attribut)), 0);
        EXPECT_EQ(grx_detruit_bascule_complexe(record_with(dialog(kind.type, kind.attribut), widget_of(window))), 0);
        EXPECT_EQ(grx_detruit_bascule_complexe(record_with(dialog(kind.type, kind.attribut), shell_of(window))), 0);
    }
    EXPECT_EQ(children(), before);
    EXPECT_TRUE(visible(x_window(window))) << "a widget that is no support takes no window with it";
}

TEST_F(Supports, DestructionAfterTheWindowWentDoesNothing) {
    for (const SupportKind& kind : support_kinds) {
        const INT other = shown();
        const GRX_MSG message = dialog(kind.type, kind.attribut);
        const GRX_MSG record = record_with(message, grx_cree_support_message(other, message));
        grx_detruit_fenetre(other);
        drain();
        EXPECT_EQ(grx_detruit_bascule_complexe(record), 0) << kind.name;
        drain();
    }
    EXPECT_TRUE(visible(x_window(window)));
}

TEST_F(Supports, ButtonsKeepTheirNumbersUntilTheCallerFreesThem) {
    const GRX_MSG message = dialog(toggles, 64);
    const GRX_MSG record = record_with(message, support(message));
    const INT n = toggle(record.ref_fen_mere, "Un");
    grx_detruit_bascule_complexe(record);
    drain();
    const INT next = placed(control_of(GRX_BOU_LABEL, 0, window));
    EXPECT_NE(next, n);
    grx_libere_indice_objet_bout(n);
    EXPECT_EQ(placed(control_of(GRX_BOU_LABEL, 0, window)), n);
}

TEST_F(Supports, AHundredLeaveNothing) {
    for (const SupportKind& kind : support_kinds) {
        const GRX_MSG message = dialog(kind.type, kind.attribut);
        const auto round = [&] {
            const Widget made = support(message);
            const INT n = toggle(made, "Un");
            grx_detruit_bouton(n);
            grx_detruit_bascule_complexe(record_with(message, made));
            drain();
        };
        for (int i = 0; i < 3; ++i) round();
        const auto blocks = heap().blocks(), bytes = heap().bytes();
        const auto before = resources();
        for (int i = 0; i < 100; ++i) round();
        EXPECT_EQ(heap().blocks(), blocks) << kind.name;
        EXPECT_EQ(heap().bytes(), bytes) << kind.name;
        EXPECT_EQ(resources(), before) << kind.name;
    }
}

TEST_F(Supports, EachFailingAllocationIsSurvived) {
    for (const SupportKind& kind : support_kinds) {
        const auto before = children();
        const GRX_MSG message = dialog(kind.type, kind.attribut);
        fail_each_allocation([&] {
            const NoLeak no_leak;
            const Widget made = support(message);
            if (made) grx_detruit_bascule_complexe(record_with(message, made));
            drain();
        });
        EXPECT_EQ(children(), before) << kind.name;
    }
}

// --- windows of dialogs -------------------------------------------------------------------------------------------

struct Decoration {
    const char* name;
    INT attrib;
    INT dx, dy;
};
constexpr INT border = 7, title = 20;
constexpr std::array message_decorations{Decoration{"title and border", 0, border, border + title},
    Decoration{"border alone", 1, border - 1, border - 1}, Decoration{"title alone", 2, 0, title},
    Decoration{"none", 1 | 2, 0, 0}, Decoration{"not resizable", 8, border, border + title},
    Decoration{"border alone, not resizable", 1 | 8, border - 1, border - 1},
    Decoration{"no boxes", 4, border, border + title}};

class DialogWindows : public DialogTest {
  protected:
    void SetUp() override {
        DialogTest::SetUp();
        grx_set_tabord(border);
        grx_set_tatitre(title);
        grx_set_tabord_sans_resize(50);
        grx_set_tabord_sans_titre(60);
        grx_set_tabord_sans_decor(70);
    }

    // A dialog of the main window, made but not shown.
    GRX_FENETRE created(INT attrib, INT x = 300, INT y = 400, INT parent = -2) {
        GRX_FENETRE described = grxtest::described(GRX_FEN_ALPHA, attrib, 180, 120);
        described.fen_mere = parent == -2 ? window : parent;
        described.x = x;
        described.y = y;
        EXPECT_EQ(grx_cree_fenetre(&described), 0);
        return described;
    }

    Area place_of(INT nofen) { return server_area(test_display(), XtWindow(shell_of(nofen))); }
};

// KEEP: one pixel less than the border without a title.
TEST_F(DialogWindows, ArePlacedByWhatTheManagerWillAdd) {
    for (const Decoration& decoration : message_decorations) {
        GRX_FENETRE record = created(decoration.attrib);
        GRX_FENETRE expected = record;
        expected.x = 300 - decoration.dx;
        expected.y = grx_recup_hau_ecran() - 400 - 120 - decoration.dy;
        EXPECT_EQ(grx_cree_fenetre_message_alpha(&record), 0);
        EXPECT_EQ(record.x, expected.x) << decoration.name;
        EXPECT_EQ(record.y, expected.y) << decoration.name;
        EXPECT_EQ(std::memcmp(&record, &expected, sizeof record), 0) << "nothing else is written, " << decoration.name;
        EXPECT_EQ(place_of(record.nofen), (Area{record.x, record.y, 180, 120})) << decoration.name;
        grx_detruit_fenetre(record.nofen);
        settle();
    }
}

TEST_F(DialogWindows, WithoutTitleAndBorderSizeAreMovedTheOtherWay) {
    grx_set_tabord(0);
    GRX_FENETRE record = created(1);
    grx_cree_fenetre_message_alpha(&record);
    EXPECT_EQ(record.x, 301);
    EXPECT_EQ(record.y, grx_recup_hau_ecran() - 400 - 120 + 1);
}

TEST_F(DialogWindows, TheirShellKnowsThePlaceAsText) {
    std::array<GRX_FENETRE, 2> records{created(3, 300, 400), created(3, 20, 500)};
    for (GRX_FENETRE& record : records) grx_cree_fenetre_message_alpha(&record);
    EXPECT_EQ(std::string(resource<char*>(shell_of(records[0].nofen), XmNgeometry)),
        "+300+" + std::to_string(grx_recup_hau_ecran() - 520));
    EXPECT_EQ(std::string(resource<char*>(shell_of(records[1].nofen), XmNgeometry)),
        "+20+" + std::to_string(grx_recup_hau_ecran() - 620));
}

TEST_F(DialogWindows, AShellThatIsNotOnTheServerYetIsMadeThere) {
    GRX_FENETRE record = described(GRX_FEN_ALPHA, 3, 180, 120);
    record.x = 250;
    record.y = 450;
    record.nofen = grx_recup_indice_objet_fen_libre();
    const Widget shell = XtVaAppCreateShell("late", "Late", topLevelShellWidgetClass, x11_disp, XmNwidth, 180,
        XmNheight, 120, XmNvisual, x11_vis, XmNcolormap, x11_cmap, XmNdepth, grx_recup_profondeur_ecran(), nullptr);
    const Widget form = XtVaCreateManagedWidget("form", xmFormWidgetClass, shell, nullptr);
    grx_affecte_objet_fen(record.nofen, form);
    EXPECT_EQ(grx_cree_fenetre_message_alpha(&record), 0);
    ASSERT_TRUE(XtIsRealized(shell));
    EXPECT_EQ(server_area(test_display(), XtWindow(shell)), (Area{250, grx_recup_hau_ecran() - 570, 180, 120}));
    EXPECT_TRUE(visible(XtWindow(form)));
    XWindowAttributes attributes{};
    ASSERT_TRUE(XGetWindowAttributes(test_display(), XtWindow(shell), &attributes));
    EXPECT_EQ(attributes.backing_store, WhenMapped);
    grx_affecte_objet_fen(record.nofen, nullptr);
    XtDestroyWidget(shell);
    drain();
}

TEST_F(DialogWindows, LeftOrAboveTheScreenAreAtItsEdge) {
    struct Edge {
        INT attrib, x, y, left, top;
    };
    const INT height = grx_recup_hau_ecran();
    for (const Edge& edge : {Edge{0, border - 1, 400, 0, height - 400 - 120 - border - title},
             Edge{0, border, 400, 0, -1}, Edge{0, border + 1, 400, 1, -1}, Edge{0, -500, 400, 0, -1},
             Edge{3, -1, 400, 0, height - 520}, Edge{0, 300, height - 120 - border - title + 1, 300 - border, 0},
             Edge{0, 300, height - 120 - border - title, 300 - border, 0},
             Edge{0, 300, height - 120 - border - title - 1, 300 - border, 1}, Edge{0, 300, 3000, 300 - border, 0},
             Edge{1, 2, 3000, 0, 0}}) {
        GRX_FENETRE record = created(edge.attrib, edge.x, edge.y);
        grx_cree_fenetre_message_alpha(&record);
        EXPECT_EQ(record.x, edge.left) << edge.x;
        if (edge.top >= 0) {
            EXPECT_EQ(record.y, edge.top) << edge.y;
        }
        EXPECT_EQ(place_of(record.nofen), (Area{record.x, record.y, 180, 120}));
        grx_detruit_fenetre(record.nofen);
        settle();
    }
}

TEST_F(DialogWindows, AreThereWhenTheCallReturns) {
    GRX_FENETRE record = created(GRX_FEN_ATT_VISIBLE);
    grx_cree_fenetre_message_alpha(&record);
    EXPECT_TRUE(visible(x_window(record.nofen)));
    EXPECT_TRUE(XtIsRealized(shell_of(record.nofen)));
}

TEST_F(DialogWindows, TheFirstRedrawIsWaitedFor) {
    GRX_FENETRE record = described(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 180, 120);
    ASSERT_EQ(grx_cree_fenetre(&record), 0);
    grx_cree_fenetre_message_alpha(&record);
    drain();
    for (const GRX_EVENEMENT& e : events.seen())
        EXPECT_FALSE(e.type_evenement == GRX_EVT_AFFICHAGE && e.affichage.nofen == record.nofen) << events.describe();
}

TEST_F(DialogWindows, HaveBackingStoreWhenMapped) {
    for (INT attrib : {0, GRX_FEN_ATT_VISIBLE}) {
        GRX_FENETRE record = created(attrib);
        grx_cree_fenetre_message_alpha(&record);
        drain();
        XWindowAttributes attributes{};
        ASSERT_TRUE(XGetWindowAttributes(test_display(), XtWindow(shell_of(record.nofen)), &attributes));
        EXPECT_EQ(attributes.backing_store, WhenMapped) << attrib;
    }
}

TEST_F(DialogWindows, OnTheScreenAlreadyAreMovedThere) {
    for (INT parent : {window, -1}) {
        GRX_FENETRE record = created(GRX_FEN_ATT_VISIBLE | 3, 500, 600, parent);
        ASSERT_TRUE(wait_visible(widget_of(record.nofen)));
        record.x = 222;
        record.y = 333;
        grx_cree_fenetre_message_alpha(&record);
        EXPECT_EQ(record.x, 222);
        EXPECT_EQ(record.y, grx_recup_hau_ecran() - 333 - 120);
        ASSERT_TRUE(wait_for([&] {
            return place_of(record.nofen) == (Area{record.x, record.y, 180, 120});
        })) << testing::PrintToString(place_of(record.nofen))
            << (parent < 0 ? " top level" : "");
    }
}

// KEEP: the record is rewritten, so that calling twice with it moves the window.
TEST_F(DialogWindows, ASecondCallWithTheRecordMovesThem) {
    GRX_FENETRE record = created(GRX_FEN_ATT_VISIBLE | 3, 300, 400);
    grx_cree_fenetre_message_alpha(&record);
    const INT first = record.y;
    EXPECT_EQ(first, grx_recup_hau_ecran() - 520);
    grx_cree_fenetre_message_alpha(&record);
    EXPECT_EQ(record.y, grx_recup_hau_ecran() - first - 120);
    EXPECT_NE(record.y, first);
    EXPECT_TRUE(wait_for([&] { return place_of(record.nofen).y == record.y; }));
}

TEST_F(DialogWindows, OfUnknownNumbersAreSurvived) {
    for (INT unknown : {-1, 0, 57, 99, 100, INT_MIN, INT_MAX}) {
        GRX_FENETRE record = described(GRX_FEN_ALPHA);
        record.nofen = unknown;
        EXPECT_EQ(grx_cree_fenetre_message_alpha(&record), 0) << unknown;
    }
    drain();
    EXPECT_TRUE(visible(x_window(window)));
}

class DialogWindowsWmTest : public WmTest {};

TEST_F(DialogWindowsWmTest, TheFrameIsWhereTheRecordSays) {
    write_menu("");
    const INT parent = make(GRX_FEN_ALPHA);
    ASSERT_TRUE(wait_visible(widget_of(parent)));
    GRX_FENETRE record = described(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_SANS_BOITES, 180, 120);
    record.fen_mere = parent;
    record.x = 420;
    record.y = 500;
    ASSERT_EQ(grx_cree_fenetre(&record), 0);
    grx_cree_fenetre_message_alpha(&record);
    ASSERT_TRUE(wait_visible(widget_of(record.nofen)));
    ASSERT_TRUE(wait_for([&] {
        const Area area = frame_area(shell_of(record.nofen));
        return area.x == record.x && area.y == record.y;
    })) << testing::PrintToString(frame_area(shell_of(record.nofen)))
        << " for " << record.x << "," << record.y;
}

// --- toggles ------------------------------------------------------------------------------------------------------

class ForcedToggles : public DialogTest {
  protected:
    bool set(INT nobou) { return XmToggleButtonGetState(control(nobou)) != 0; }
};

void count_call(Widget, XtPointer count, XtPointer) {
    ++*static_cast<int*>(count);
}

TEST_F(ForcedToggles, ArePressedAndReleased) {
    const INT n = placed(control_of(GRX_BOU_BASCULE, 0, window)),
              other = placed(control_of(GRX_BOU_BASCULE, 0, window));
    EXPECT_EQ(grx_enfonce_bascule(n), 0);
    EXPECT_TRUE(set(n));
    EXPECT_FALSE(set(other));
    EXPECT_EQ(grx_enfonce_bascule(n), 0);
    EXPECT_TRUE(set(n));
    EXPECT_EQ(grx_relache_bascule(n), 0);
    EXPECT_FALSE(set(n));
    EXPECT_EQ(grx_relache_bascule(n), 0);
    EXPECT_FALSE(set(n));
}

TEST_F(ForcedToggles, PostNothing) {
    const INT n = placed(control_of(GRX_BOU_BASCULE, 0, window));
    int calls = 0;
    XtAddCallback(control(n), XmNvalueChangedCallback, count_call, &calls);
    forget();
    for (int i = 0; i < 2; ++i) {
        grx_enfonce_bascule(n);
        grx_enfonce_bascule(n);
        grx_relache_bascule(n);
        grx_relache_bascule(n);
    }
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(same_record(patterned_event(), evt_global));
    drain();
    EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 0) << events.describe();
}

TEST_F(ForcedToggles, ShowIt) {
    const INT n = placed(control_of(GRX_BOU_BASCULE, 0, window));
    const Pixels clear = picture(n);
    grx_enfonce_bascule(n);
    const Pixels pressed = picture(n);
    EXPECT_GT(differences(clear, pressed), 0);
    grx_relache_bascule(n);
    EXPECT_TRUE(same(clear, picture(n)));
}

TEST_F(ForcedToggles, FollowAClick) {
    const INT n = placed(control_of(GRX_BOU_BASCULE, 0, window));
    pointer().click_in(control(n));
    drain();
    ASSERT_TRUE(set(n));
    grx_relache_bascule(n);
    EXPECT_FALSE(set(n));
    grx_enfonce_bascule(n);
    pointer().click_in(control(n));
    drain();
    EXPECT_FALSE(set(n));
}

TEST_F(ForcedToggles, OtherControlsAreLeftAlone) {
    for (const ControlKind& kind : control_kinds) {
        if (kind.type == GRX_BOU_BASCULE) continue;
        const INT n = placed(control_of(kind, window));
        forget();
        const Warnings warnings;
        EXPECT_EQ(grx_enfonce_bascule(n), 0);
        EXPECT_EQ(grx_relache_bascule(n), 0);
        EXPECT_EQ(warnings.count(), 0) << kind.name;
        EXPECT_TRUE(same_record(patterned_event(), evt_global)) << kind.name;
        grx_detruit_bouton(n);
        drain();
    }
}

TEST_F(ForcedToggles, UnknownNumbersAreNothing) {
    for (INT unknown : no_controls) {
        EXPECT_EQ(grx_enfonce_bascule(unknown), 0) << unknown;
        EXPECT_EQ(grx_relache_bascule(unknown), 0) << unknown;
    }
    const INT gone = placed(control_of(GRX_BOU_BASCULE, 0, window));
    grx_detruit_bouton(gone);
    EXPECT_EQ(grx_enfonce_bascule(gone), 0);
    EXPECT_EQ(grx_relache_bascule(gone), 0);
}

// --- drop-down choices --------------------------------------------------------------------------------------------

constexpr std::array choice_texts{"Rouge", "Vert", "Bleu"};

class DropDown : public DialogTest {
  protected:
    void make_drop_down(int by_default, const char* label = "Couleur") {
        holder = widget_of(window);
        menu = grx_cree_support_bascule_liste(holder);
        ASSERT_NE(menu, nullptr);
        for (std::size_t i = 0; i < choice_texts.size(); ++i) {
            GRX_BOUTON description = control_of(GRX_BOU_SIMPLE, 0, -1, choice_texts[i]);
            description.ref_fen_mere = menu;
            description.x = description.y = description.largeur = description.hauteur = -1;
            description.tabi[GRX_BOU_TABI_VALEUR] = static_cast<INT>(i) + 1;
            choices[i] = make(description);
            ASSERT_GE(choices[i], 0);
        }
        option = titled(by_default < 0 ? nullptr : control(choices[static_cast<std::size_t>(by_default)]), label);
        ASSERT_NE(option, nullptr);
        ASSERT_TRUE(wait_visible(option));
        settle();
    }

    Widget titled(Widget by_default, const char* label) {
        return grx_cree_titre_bascule_liste(holder, menu, by_default, const_cast<char*>(label));
    }

    Widget label_gadget() { return XmOptionLabelGadget(option); }
    Widget box() { return XmOptionButtonGadget(option); }

    // The middle of one of its two gadgets.
    Point middle_of(Widget gadget) {
        const Extent extent = extent_of(gadget);
        return {
            resource<Position>(gadget, XmNx) + extent.width / 2, resource<Position>(gadget, XmNy) + extent.height / 2};
    }

    void over(Widget gadget) {
        const Point at = middle_of(gadget);
        pointer().move_in(option, at.x, at.y);
    }

    GRX_EVENEMENT title_press(Point at) {
        GRX_EVENEMENT record = old_record();
        record.bouton_appui.type_evenement = 2;
        record.bouton_appui.x = at.x;
        record.bouton_appui.y = at.y;
        return record;
    }

    // Opens the menu with a click, and clicks on a choice.
    void choose(std::size_t i) {
        over(box());
        settle();
        StdoutCapture printed;
        const bool open = click_open(control(choices[i]));
        printed.restore();
        ASSERT_TRUE(open) << events.describe();
        pointer().move_in(control(choices[i]), 5, 5);
        forget();
        pointer().click(1);
    }

    Widget holder = nullptr, menu = nullptr, option = nullptr;
    std::array<INT, choice_texts.size()> choices{};
};

TEST_F(DropDown, ItsMenuIsAPulldownNotManaged) {
    menu = grx_cree_support_bascule_liste(widget_of(window));
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(name_of(menu), "Support bascule liste");
    EXPECT_TRUE(is_a(menu, xmRowColumnWidgetClass));
    EXPECT_EQ(resource<unsigned char>(menu, XmNrowColumnType), XmMENU_PULLDOWN);
    EXPECT_FALSE(XtIsManaged(menu));
    EXPECT_EQ(up(menu, 2), widget_of(window));
}

TEST_F(DropDown, IsAnOptionMenu) {
    make_drop_down(1);
    EXPECT_EQ(name_of(option), "Bascule liste");
    EXPECT_TRUE(is_a(option, xmRowColumnWidgetClass));
    EXPECT_EQ(resource<unsigned char>(option, XmNrowColumnType), XmMENU_OPTION);
    EXPECT_EQ(XtParent(option), widget_of(window));
    EXPECT_TRUE(XtIsManaged(option));
    EXPECT_EQ(resource<Widget>(option, XmNsubMenuId), menu);
    EXPECT_EQ(resource<Widget>(option, XmNmenuHistory), control(choices[1]));
    EXPECT_EQ(text_resource(label_gadget(), XmNlabelString), "Couleur");
    EXPECT_EQ(text_resource(box(), XmNlabelString), "Vert");
}

TEST_F(DropDown, ShowsEachChoiceAsTheDefault) {
    for (std::size_t i = 0; i < choice_texts.size(); ++i) {
        make_drop_down(static_cast<int>(i));
        EXPECT_EQ(text_resource(box(), XmNlabelString), choice_texts[i]);
        for (INT n : choices) grx_detruit_bouton(n);
        XtDestroyWidget(option);
        drain();
    }
}

TEST_F(DropDown, ShowsTheFirstWithoutADefault) {
    make_drop_down(-1);
    EXPECT_EQ(text_resource(box(), XmNlabelString), "Rouge");
}

TEST_F(DropDown, ADefaultThatIsNoneOfItsChoicesIsLeftOut) {
    const INT other = placed(control_of(GRX_BOU_SIMPLE, 0, window, "Autre"));
    make_drop_down(-1);
    for (Widget foreign : {control(other), widget_of(window), menu}) {
        const Widget second = titled(foreign, "Titre");
        ASSERT_NE(second, nullptr);
        EXPECT_NE(resource<Widget>(second, XmNmenuHistory), foreign);
        EXPECT_EQ(text_resource(XmOptionButtonGadget(second), XmNlabelString), "Rouge");
        XtDestroyWidget(second);
        drain();
    }
}

TEST_F(DropDown, AMenuThatIsNoneIsLeftOut) {
    make_drop_down(0);
    const Widget bar = XmCreateMenuBar(widget_of(window), const_cast<char*>("bar"), nullptr, 0);
    for (Widget none : {widget_of(window), bar, control(choices[0]), static_cast<Widget>(nullptr)}) {
        const Warnings warnings;
        menu = none;
        const Widget second = titled(nullptr, "Titre");
        ASSERT_NE(second, nullptr);
        EXPECT_EQ(resource<Widget>(second, XmNsubMenuId), nullptr);
        EXPECT_EQ(warnings.count(), 0);
        XtDestroyWidget(second);
        drain();
    }
}

TEST_F(DropDown, ItsTitleIsDrawn) {
    make_drop_down(0);
    const Pixels with = grab(x11_disp, XtWindow(option));
    const Point at = middle_of(label_gadget());
    const Pixels label = with.part({at.x - 10, at.y - 8, 20, 16});
    EXPECT_GT(label.count(static_cast<std::uint32_t>(resource<Pixel>(label_gadget(), XmNforeground))), 5);
    EXPECT_NE(text_resource(label_gadget(), XmNlabelString), "");
}

TEST_F(DropDown, TitlesOfAllSortsAreTaken) {
    for (const char* label : {static_cast<const char*>(nullptr), "", "%s%n", "L\xE9gende"}) {
        make_drop_down(0, label);
        EXPECT_EQ(text_resource(label_gadget(), XmNlabelString), label ? label : "");
        for (INT n : choices) grx_detruit_bouton(n);
        XtDestroyWidget(option);
        drain();
    }
    const std::string longest(4000, 'l');
    make_drop_down(0, longest.c_str());
    EXPECT_EQ(text_resource(label_gadget(), XmNlabelString), longest);
}

// KEEP: the window is the one of the event before.
TEST_F(DropDown, APressOnTheTitleTellsItsPlaceAndNothingElse) {
    make_drop_down(0);
    for (unsigned button : {1U, 2U, 3U}) {
        over(label_gadget());
        forget();
        StdoutCapture printed;
        pointer().press(button);
        const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
        printed.restore();
        pointer().release(button);
        ASSERT_TRUE(press) << button << ": " << events.describe();
        EXPECT_TRUE(same_record(title_press(middle_of(label_gadget())), *press)) << button;
        EXPECT_EQ(printed.text(), "Digit sur titre bascule\n") << button;
        drain();
        keyboard().key(XK_Escape);
        drain();
    }
}

TEST_F(DropDown, APressTellsYFromTheTop) {
    make_drop_down(0);
    const Point at = middle_of(label_gadget());
    pointer().move_in(option, at.x - 3, 4);
    forget();
    StdoutCapture silence;
    pointer().press(3);
    const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
    pointer().release(3);
    ASSERT_TRUE(press) << events.describe();
    EXPECT_EQ(press->bouton_appui.x, at.x - 3);
    EXPECT_EQ(press->bouton_appui.y, 4);
}

TEST_F(DropDown, APressOnTheChoiceTellsItsPlaceToo) {
    make_drop_down(0);
    over(box());
    forget();
    StdoutCapture printed;
    pointer().press(1);
    const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
    printed.restore();
    pointer().release(1);
    ASSERT_TRUE(press) << events.describe();
    EXPECT_TRUE(same_record(title_press(middle_of(box())), *press));
    EXPECT_EQ(printed.text(), "Digit sur titre bascule\n");
    drain();
    keyboard().key(XK_Escape);
    drain();
}

TEST_F(DropDown, AReleaseTellsNothing) {
    make_drop_down(0);
    over(label_gadget());
    settle();
    StdoutCapture printed;
    pointer().press(3);
    ASSERT_TRUE(events.wait(GRX_EVT_BOUTON_APPUI));
    settle();
    const std::string before = printed.text();
    pointer().release(3);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 0) << events.describe();
    EXPECT_EQ(printed.text(), before);
}

TEST_F(DropDown, AChoiceIsReportedAndShown) {
    make_drop_down(0);
    for (std::size_t i : {2U, 1U, 0U}) {
        choose(i);
        const auto done = events.wait(GRX_EVT_EXEC_FONCTION);
        ASSERT_TRUE(done) << events.describe();
        EXPECT_EQ(done->exec_fonction.nofen, -1);
        EXPECT_EQ(done->exec_fonction.nobou, choices[i]);
        EXPECT_EQ(done->exec_fonction.no_fo, 700);
        EXPECT_EQ(done->exec_fonction.valeur, static_cast<INT>(i) + 1);
        drain();
        EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 1) << events.describe();
        EXPECT_EQ(resource<Widget>(option, XmNmenuHistory), control(choices[i]));
        EXPECT_EQ(text_resource(box(), XmNlabelString), choice_texts[i]);
    }
}

TEST_F(DropDown, AChoiceIsMadeWithTheButtonHeld) {
    make_drop_down(0);
    XtSetMultiClickTime(x11_disp, 0); // or a quick release leaves the menu open
    over(box());
    settle();
    StdoutCapture printed;
    pointer().press(1);
    const bool open = wait_visible(control(choices[2]));
    printed.restore();
    ASSERT_TRUE(open) << events.describe();
    pointer().move_in(control(choices[2]), 5, 5);
    forget();
    pointer().release(1);
    const auto done = events.wait(GRX_EVT_EXEC_FONCTION);
    ASSERT_TRUE(done) << events.describe();
    EXPECT_EQ(done->exec_fonction.nobou, choices[2]);
    EXPECT_EQ(done->exec_fonction.valeur, 3);
    EXPECT_EQ(text_resource(box(), XmNlabelString), "Bleu");
}

TEST_F(DropDown, InEachKindOfSupport) {
    for (const SupportKind& kind : support_kinds) {
        GRX_MSG message = dialog(kind.type, kind.attribut);
        message.ref_fen_mere = grx_cree_support_message(window, message);
        menu = grx_cree_support_bascule_liste(message.ref_fen_mere);
        holder = message.ref_fen_mere;
        option = titled(nullptr, "Titre");
        ASSERT_NE(option, nullptr) << kind.name;
        EXPECT_EQ(XtParent(option), message.ref_fen_mere) << kind.name;
        drain();
        grx_detruit_bascule_complexe(message);
        drain();
    }
}

TEST_F(DropDown, WithoutAParentNothingIsMade) {
    const auto before = children();
    EXPECT_EQ(grx_cree_support_bascule_liste(nullptr), nullptr);
    menu = grx_cree_support_bascule_liste(widget_of(window));
    EXPECT_EQ(titled(nullptr, "Titre"), nullptr);
    EXPECT_EQ(children(), before);
}

TEST_F(DropDown, GoesWithItsWindow) {
    const std::size_t blocks = heap().blocks();
    make_drop_down(1);
    for (INT n : choices) grx_detruit_bouton(n);
    grx_detruit_fenetre(window);
    drain();
    EXPECT_LE(heap().blocks(), blocks);
}

TEST_F(DropDown, AHundredLeaveNothing) {
    const auto round = [&] {
        make_drop_down(1);
        for (INT n : choices) grx_detruit_bouton(n);
        XtDestroyWidget(option);
        XtDestroyWidget(menu);
        drain();
    };
    for (int i = 0; i < 3; ++i) round();
    const auto blocks = heap().blocks();
    const auto before = resources();
    for (int i = 0; i < 100; ++i) round();
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(resources(), before);
}

// --- lists --------------------------------------------------------------------------------------------------------

constexpr INT multiple = GRX_MSG_ATT_MULTI;

class Lists : public DialogTest {
  protected:
    void SetUp() override {
        DialogTest::SetUp();
        if (HasFatalFailure()) return;
        XtSetMultiClickTime(x11_disp, 0); // two quick clicks on different entries are no double click
        for (std::size_t i = 0; i < texts_.size(); ++i) {
            texts_[i] = "Choix " + std::to_string(i + 1);
            pointers_[i] = texts_[i].data();
        }
    }

    GRX_MSG described_list(INT slot, INT count, INT attribut = 0, INT x = 20, INT y = 30) {
        GRX_MSG message = dialog(2, attribut, x, y);
        message.nb_cara = slot;
        message.nb_deci = count;
        message.fen_mere = window;
        message.choix = pointers_.data();
        std::strcpy(message.titre, "Liste des choix");
        return message;
    }

    Widget list_of(INT slot, INT count = 4, INT attribut = 0, INT x = 20, INT y = 30) {
        GRX_MSG message = described_list(slot, count, attribut, x, y);
        return list_of(message);
    }
    Widget list_of(GRX_MSG& message) {
        const Widget list = grx_cree_liste(&message);
        EXPECT_NE(list, nullptr);
        if (list) {
            EXPECT_TRUE(wait_visible(list));
        }
        settle();
        return list;
    }

    void over(Widget list, int position) {
        Position x = 0, y = 0;
        Dimension width = 0, height = 0;
        ASSERT_TRUE(XmListPosToBounds(list, position, &x, &y, &width, &height));
        pointer().move_in(list, x + width / 2, y + height / 2);
    }

    // One real click; the record it gives.
    std::optional<GRX_EVENEMENT> click(Widget list, int position) {
        over(list, position);
        forget();
        pointer().click(1);
        auto chosen = events.wait(GRX_EVT_ELEMENT_CLIQUE);
        drain();
        EXPECT_EQ(events.count(GRX_EVT_ELEMENT_CLIQUE), 1) << events.describe();
        return chosen;
    }

    static GRX_EVENEMENT list_record(INT slot, INT position, INT twice) {
        GRX_EVENEMENT record = old_record();
        record.element_clique.type_evenement = 32;
        record.element_clique.nofen = -1 - slot;
        record.element_clique.nobou = position;
        record.element_clique.double_click = twice;
        return record;
    }

    // The positions that grx_lit_liste gives; what it leaves is checked.
    static std::vector<INT> read(INT slot, Widget list) {
        std::array<INT, 40> tab{};
        tab.fill(untouched);
        INT count = untouched;
        EXPECT_EQ(grx_lit_liste(slot, list, &count, tab.data()), 0);
        EXPECT_GE(count, 0);
        EXPECT_LE(count, 40);
        const auto n = static_cast<std::size_t>(std::clamp(count, 0, 40));
        for (std::size_t i = n; i < tab.size(); ++i) EXPECT_EQ(tab[i], untouched) << i;
        return {tab.begin(), tab.begin() + static_cast<std::ptrdiff_t>(n)};
    }

    static std::vector<INT> positions(std::vector<INT> list) { return list; }

    // The form's own place of a child that gives none.
    Point place_of_none() {
        const Widget bare = XtVaCreateManagedWidget("bare", xmFormWidgetClass, widget_of(window), nullptr);
        const Point at{resource<Position>(bare, XmNx), resource<Position>(bare, XmNy)};
        XtDestroyWidget(bare);
        drain();
        return at;
    }

    std::array<std::string, 40> texts_;
    std::array<char*, 40> pointers_{};
};

TEST_F(Lists, AreScrolledLists) {
    const Widget list = list_of(3, 5);
    EXPECT_EQ(name_of(list), "Liste des choix");
    EXPECT_TRUE(is_a(list, xmListWidgetClass));
    const Widget outer = XtParent(list);
    EXPECT_TRUE(is_a(outer, xmScrolledWindowWidgetClass));
    EXPECT_EQ(XtParent(outer), widget_of(window));
    EXPECT_EQ(resource<unsigned char>(list, XmNscrollBarDisplayPolicy), XmAS_NEEDED);
    EXPECT_EQ(resource<int>(list, XmNitemCount), 5);
    EXPECT_EQ(resource<int>(list, XmNvisibleItemCount), 5);
    EXPECT_EQ(resource<unsigned char>(list, XmNselectionPolicy), XmSINGLE_SELECT);
    EXPECT_TRUE(XtIsManaged(list));
    EXPECT_EQ(read(3, list), positions({}));
}

TEST_F(Lists, HoldTheTextsInOrder) {
    const Widget list = list_of(0, 7);
    auto* items = resource<XmStringTable>(list, XmNitems);
    for (std::size_t i = 0; i < 7; ++i) {
        char* text = nullptr;
        ASSERT_TRUE(XmStringGetLtoR(items[i], const_cast<char*>("tag1"), &text)) << i;
        EXPECT_EQ(std::string(text), texts_[i]);
        XtFree(text);
    }
}

TEST_F(Lists, AreDrawn) {
    const Widget list = list_of(0);
    drain();
    const Pixels pixels = grab(x11_disp, XtWindow(list));
    EXPECT_GT(pixels.count(static_cast<std::uint32_t>(resource<Pixel>(list, XmNforeground))), 40);
}

TEST_F(Lists, ShowAllTheirEntries) {
    for (INT count : {1, 2, 10}) {
        const Widget list = list_of(0, count);
        EXPECT_EQ(resource<int>(list, XmNvisibleItemCount), count);
        Position x = 0, y = 0;
        Dimension width = 0, height = 0;
        EXPECT_TRUE(XmListPosToBounds(list, 1, &x, &y, &width, &height)) << count;
        EXPECT_TRUE(XmListPosToBounds(list, count, &x, &y, &width, &height)) << count;
        EXPECT_LE(y + height, extent_of(list).height) << count;
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(Lists, PolicyIsTheAttributes) {
    for (INT attribut : {0, 2, 16, 64, ~multiple}) {
        EXPECT_EQ(resource<unsigned char>(list_of(0, 2, attribut), XmNselectionPolicy), XmSINGLE_SELECT) << attribut;
    }
    for (INT attribut : {32, 32 + 2, 32 + 64, -1}) {
        EXPECT_EQ(resource<unsigned char>(list_of(1, 2, attribut), XmNselectionPolicy), XmMULTIPLE_SELECT) << attribut;
    }
}

TEST_F(Lists, AreWhereTheRecordSays) {
    const Point none = place_of_none();
    for (const auto& [x, y] :
        {std::pair{60, 70}, std::pair{0, 0}, std::pair{60, -1}, std::pair{-1, 70}, std::pair{-1, -1}}) {
        const Widget list = list_of(0, 3, 0, x, y);
        const Widget outer = XtParent(list);
        EXPECT_EQ(resource<Position>(outer, XmNx), x < 0 ? none.x : x) << x << "," << y;
        EXPECT_EQ(resource<Position>(outer, XmNy), y < 0 ? none.y : y) << x << "," << y;
        EXPECT_LT(extent_of(outer).width, 300);
        XtDestroyWidget(outer);
        drain();
    }
}

TEST_F(Lists, AClickTellsSlotAndPosition) {
    for (INT slot : {0, 4, 9}) {
        const Widget list = list_of(slot);
        for (INT position : {1, 4, 2}) {
            const auto chosen = click(list, position);
            ASSERT_TRUE(chosen) << events.describe();
            EXPECT_TRUE(same_record(list_record(slot, position, 0), *chosen)) << slot << " " << position;
            EXPECT_EQ(chosen->element_clique.nofen, ~slot);
            EXPECT_EQ(read(slot, list), positions({position}));
        }
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(Lists, ADoubleClickTellsBoth) {
    XtSetMultiClickTime(x11_disp, 5000);
    const Widget list = list_of(2);
    over(list, 3);
    forget();
    pointer().double_click();
    const auto first = events.wait(GRX_EVT_ELEMENT_CLIQUE), second = events.wait(GRX_EVT_ELEMENT_CLIQUE);
    ASSERT_TRUE(first && second) << events.describe();
    EXPECT_TRUE(same_record(list_record(2, 3, 0), *first));
    EXPECT_TRUE(same_record(list_record(2, 3, 1), *second));
    drain();
    EXPECT_EQ(events.count(GRX_EVT_ELEMENT_CLIQUE), 2) << events.describe();
    EXPECT_EQ(read(2, list), positions({3}));
}

TEST_F(Lists, ReturnIsADoubleClick) {
    const Widget list = list_of(1);
    pointer().move_in(list, 5, 5);
    ASSERT_TRUE(click(list, 2));
    ASSERT_TRUE(XmProcessTraversal(list, XmTRAVERSE_CURRENT));
    drain();
    forget();
    keyboard().key(XK_Return);
    const auto chosen = events.wait(GRX_EVT_ELEMENT_CLIQUE);
    ASSERT_TRUE(chosen) << events.describe();
    EXPECT_EQ(chosen->element_clique.nofen, -2);
    EXPECT_EQ(chosen->element_clique.nobou, 2);
    EXPECT_EQ(chosen->element_clique.double_click, 1);
}

TEST_F(Lists, TheSelectionFollowsTheClicks) {
    const Widget list = list_of(0);
    EXPECT_EQ(read(0, list), positions({}));
    click(list, 3);
    EXPECT_EQ(read(0, list), positions({3}));
    click(list, 1);
    EXPECT_EQ(read(0, list), positions({1}));
}

TEST_F(Lists, AClickOnTheSelectedEntryDeselectsIt) {
    const Widget list = list_of(5);
    click(list, 3);
    const auto again = click(list, 3);
    ASSERT_TRUE(again);
    EXPECT_TRUE(same_record(list_record(5, 3, 0), *again));
    EXPECT_EQ(read(5, list), positions({}));
}

// KEEP: what was selected last is remembered, whatever the program or the toolkit did since.
TEST_F(Lists, TheLastPositionOutlivesItsDeselection) {
    const Widget list = list_of(0);
    click(list, 3);
    click(list, 3);
    XmListSelectPos(list, 1, False);
    EXPECT_EQ(read(0, list), positions({3}));
    click(list, 2);
    XmListSelectPos(list, 4, False);
    EXPECT_EQ(read(0, list), positions({2}));
}

TEST_F(Lists, ADeselectionIsRememberedAsAPosition) {
    const Widget list = list_of(0);
    click(list, 3);
    XmListSelectPos(list, 1, False);
    const auto chosen = click(list, 1);
    ASSERT_TRUE(chosen);
    EXPECT_TRUE(same_record(list_record(0, 1, 0), *chosen));
    EXPECT_EQ(read(0, list), positions({}));
    XmListSelectPos(list, 2, False);
    EXPECT_EQ(read(0, list), positions({1}));
}

TEST_F(Lists, WhatTheProgramSelectedFirstReadsAsNothing) {
    const Widget list = list_of(0);
    XmListSelectPos(list, 2, False);
    EXPECT_EQ(read(0, list), positions({0}));
}

TEST_F(Lists, ADoubleClickAloneRemembersNothing) {
    const Widget list = list_of(0);
    XmListCallbackStruct call{};
    call.reason = XmCR_DEFAULT_ACTION;
    call.item_position = 4;
    XtCallCallbacks(list, XmNdefaultActionCallback, &call);
    EXPECT_EQ(evt_global.element_clique.nobou, 4);
    XmListSelectPos(list, 2, False);
    EXPECT_EQ(read(0, list), positions({0}));
}

TEST_F(Lists, SeveralAreSelectedWhereAsked) {
    const Widget list = list_of(7, 5, multiple);
    struct Step {
        INT position;
        std::vector<INT> selected;
    };
    for (const Step& step :
        {Step{4, {4}}, Step{2, {2, 4}}, Step{5, {2, 4, 5}}, Step{1, {1, 2, 4, 5}}, Step{3, {1, 2, 3, 4, 5}},
            Step{2, {1, 3, 4, 5}}, Step{5, {1, 3, 4}}, Step{1, {3, 4}}, Step{4, {3}}, Step{3, {}}}) {
        const auto chosen = click(list, step.position);
        ASSERT_TRUE(chosen) << events.describe();
        EXPECT_TRUE(same_record(list_record(7, step.position, 0), *chosen)) << step.position;
        EXPECT_EQ(read(7, list), step.selected) << step.position;
    }
}

TEST_F(Lists, ADoubleClickAmongSeveralTellsBoth) {
    XtSetMultiClickTime(x11_disp, 5000);
    const Widget list = list_of(9, 4, multiple);
    over(list, 2);
    forget();
    pointer().double_click();
    const auto first = events.wait(GRX_EVT_ELEMENT_CLIQUE), second = events.wait(GRX_EVT_ELEMENT_CLIQUE);
    ASSERT_TRUE(first && second) << events.describe();
    EXPECT_TRUE(same_record(list_record(9, 2, 0), *first));
    EXPECT_TRUE(same_record(list_record(9, 2, 1), *second));
}

TEST_F(Lists, TenSlotsAreIndependent) {
    std::array<Widget, GRX_NB_LISTES> lists{};
    for (INT slot = 0; slot < GRX_NB_LISTES; ++slot)
        lists[static_cast<std::size_t>(slot)] =
            list_of(slot, 3, slot % 2 ? multiple : 0, 5 + 78 * (slot % 5), 5 + 120 * (slot / 5));
    for (INT slot = 0; slot < GRX_NB_LISTES; ++slot) {
        const auto chosen = click(lists[static_cast<std::size_t>(slot)], 1 + slot % 3);
        ASSERT_TRUE(chosen) << slot << ": " << events.describe();
        EXPECT_TRUE(same_record(list_record(slot, 1 + slot % 3, 0), *chosen)) << slot;
    }
    for (INT slot = 0; slot < GRX_NB_LISTES; ++slot)
        EXPECT_EQ(read(slot, lists[static_cast<std::size_t>(slot)]), positions({1 + slot % 3})) << slot;
}

TEST_F(Lists, OtherSlotsAreRefused) {
    const NoLeak no_leak;
    const auto before = children();
    for (INT slot : {10, 11, -1, -2, 1000, INT_MIN, INT_MAX}) {
        GRX_MSG message = described_list(slot, 3);
        EXPECT_EQ(grx_cree_liste(&message), nullptr) << slot;
        INT count = untouched, tab = untouched;
        EXPECT_EQ(grx_lit_liste(slot, nullptr, &count, &tab), 0);
        EXPECT_EQ(tab, untouched);
        EXPECT_EQ(grx_detruit_liste(slot, nullptr), 0);
    }
    EXPECT_EQ(children(), before);
}

TEST_F(Lists, InAnUnknownWindowAreRefused) {
    const NoLeak no_leak;
    for (INT unknown : {-1, 0, 2, 99, 100, INT_MIN, INT_MAX}) {
        GRX_MSG message = described_list(0, 3);
        message.fen_mere = unknown;
        EXPECT_EQ(grx_cree_liste(&message), nullptr) << unknown;
    }
}

TEST_F(Lists, TheRecordIsLeftAlone) {
    GRX_MSG message = described_list(2, 4);
    GRX_MSG before;
    std::memcpy(static_cast<void*>(&before), &message, sizeof before);
    list_of(message);
    EXPECT_EQ(std::memcmp(&before, &message, sizeof before), 0);
}

TEST_F(Lists, TheTextsAreCopied) {
    const Widget list = list_of(0, 3);
    texts_[1] = "autre";
    EXPECT_TRUE(click(list, 2));
    auto* items = resource<XmStringTable>(list, XmNitems);
    char* text = nullptr;
    ASSERT_TRUE(XmStringGetLtoR(items[1], const_cast<char*>("tag1"), &text));
    EXPECT_EQ(std::string(text), "Choix 2");
    XtFree(text);
}

TEST_F(Lists, ASlotIsUsedAgain) {
    Widget list = list_of(0, 8, multiple);
    click(list, 8);
    XtDestroyWidget(XtParent(list));
    list = list_of(0, 2);
    const std::size_t blocks = heap().blocks(), bytes = heap().bytes();
    for (INT count : {1, 8, 3, 2}) {
        XtDestroyWidget(XtParent(list));
        drain();
        list = list_of(0, count);
        EXPECT_EQ(read(0, list), positions({})) << "nothing is left of the one before";
        const auto chosen = click(list, count);
        ASSERT_TRUE(chosen);
        EXPECT_TRUE(same_record(list_record(0, count, 0), *chosen));
    }
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(heap().blocks(), blocks);
}

TEST_F(Lists, AListWhoseSlotWentToAnotherIsToldNoMore) {
    const Widget before = list_of(0, 3, 0, 10, 10);
    click(before, 2);
    const Widget after = list_of(0, 3, 0, 150, 10);
    over(before, 1);
    forget();
    pointer().click(1);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_ELEMENT_CLIQUE), 0) << events.describe();
    EXPECT_EQ(read(0, before), positions({}));
    const auto chosen = click(after, 3);
    ASSERT_TRUE(chosen);
    EXPECT_TRUE(same_record(list_record(0, 3, 0), *chosen));
    XtDestroyWidget(XtParent(before));
    drain();
    EXPECT_EQ(read(0, after), positions({3})) << "the death of the other changes nothing";
}

TEST_F(Lists, DestructionFreesTheSelectionAndLeavesTheList) {
    const Widget list = list_of(6);
    const std::size_t blocks = heap().blocks();
    click(list, 2);
    EXPECT_EQ(grx_detruit_liste(6, list), 0);
    EXPECT_EQ(heap().blocks(), blocks - 1);
    drain();
    EXPECT_TRUE(visible(XtWindow(list)));
    EXPECT_EQ(grx_detruit_liste(6, list), 0) << "a second time";
    EXPECT_EQ(heap().blocks(), blocks - 1);
}

TEST_F(Lists, AfterDestructionAClickIsToldAndNothingIsRemembered) {
    for (INT attribut : {0, multiple}) {
        const Widget list = list_of(6, 4, attribut);
        grx_detruit_liste(6, list);
        const auto chosen = click(list, 3);
        ASSERT_TRUE(chosen);
        EXPECT_TRUE(same_record(list_record(6, 3, 0), *chosen));
        INT count = untouched, tab = untouched;
        EXPECT_EQ(grx_lit_liste(6, list, &count, &tab), 0);
        EXPECT_EQ(count, 1);
        EXPECT_EQ(tab, untouched);
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(Lists, GrowingBehindTheLibrarysBackIsSurvived) {
    const Widget list = list_of(0, 2, multiple);
    for (int i = 0; i < 6; ++i) XmListAddItemUnselected(list, resource<XmStringTable>(list, XmNitems)[0], 0);
    drain();
    XmListSelectPos(list, 1, False);
    XmListSelectPos(list, 3, False);
    XmListSelectPos(list, 4, False);
    click(list, 2);
    std::array<INT, 8> tab{};
    tab.fill(untouched);
    INT count = untouched;
    grx_lit_liste(0, list, &count, tab.data());
    EXPECT_EQ(count, 4);
    EXPECT_EQ(tab[0], 1);
    EXPECT_EQ(tab[1], 2);
    for (std::size_t i = 4; i < tab.size(); ++i) EXPECT_EQ(tab[i], untouched) << i;
    EXPECT_EQ(heap().damage(), "");
    EXPECT_EQ(grx_detruit_liste(0, list), 0) << "with the size it was allocated with";
}

TEST_F(Lists, ReadingWithNowhereToPutIt) {
    const Widget list = list_of(0);
    click(list, 3);
    INT count = untouched, tab = untouched;
    EXPECT_EQ(grx_lit_liste(0, list, nullptr, &tab), 0);
    EXPECT_EQ(grx_lit_liste(0, list, &count, nullptr), 0);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(grx_lit_liste(0, nullptr, &count, &tab), 0);
    EXPECT_EQ(grx_lit_liste(0, widget_of(window), &count, &tab), 0) << "no list";
}

TEST_F(Lists, DieWithTheirWindow) {
    std::size_t settled = 0;
    for (int i = 0; i < 3; ++i) { // the first rounds fill what the library keeps
        window = shown();
        const Widget list = list_of(4);
        click(list, 2);
        grx_detruit_fenetre(window);
        drain();
        INT count = untouched, tab = untouched;
        EXPECT_EQ(grx_lit_liste(4, list, &count, &tab), 0);
        EXPECT_EQ(tab, untouched) << "the list is gone";
        EXPECT_EQ(grx_detruit_liste(4, list), 0);
        EXPECT_EQ(grx_detruit_liste(4, list), 0);
        if (i == 1) settled = heap().blocks();
    }
    EXPECT_EQ(heap().blocks(), settled);
}

TEST_F(Lists, WithoutEntries) {
    for (INT attribut : {0, multiple}) {
        const Widget list = list_of(0, 0, attribut);
        ASSERT_NE(list, nullptr);
        EXPECT_EQ(resource<int>(list, XmNitemCount), 0);
        EXPECT_EQ(read(0, list), positions({}));
        EXPECT_EQ(grx_detruit_liste(0, list), 0);
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(Lists, ANegativeCountHasNoEntries) {
    for (INT count : {-1, -1000, INT_MIN}) {
        GRX_MSG message = described_list(0, count);
        const Widget list = grx_cree_liste(&message);
        drain();
        if (!list) continue;
        EXPECT_EQ(resource<int>(list, XmNitemCount), 0);
        EXPECT_EQ(read(0, list), positions({}));
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(Lists, MissingTextsAreEmpty) {
    pointers_[1] = nullptr;
    const Widget list = list_of(0, 3);
    EXPECT_EQ(resource<int>(list, XmNitemCount), 3);
    const auto chosen = click(list, 3);
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->element_clique.nobou, 3);
    GRX_MSG message = described_list(1, 3);
    message.choix = nullptr;
    grx_cree_liste(&message);
    drain();
}

TEST_F(Lists, TooManyEntriesAreRefused) {
    const NoLeak no_leak;
    const auto before = children();
    GRX_MSG message = described_list(0, INT_MAX);
    message.choix = nullptr;
    EXPECT_EQ(grx_cree_liste(&message), nullptr);
    EXPECT_EQ(children(), before);
}

TEST_F(Lists, EachFailingAllocationIsSurvived) {
    const auto before = children();
    int refused = 0;
    for (INT attribut : {0, multiple}) {
        const int failures = fail_each_allocation([&] {
            GRX_MSG message = described_list(3, 6, attribut);
            const std::size_t blocks = heap().blocks();
            const Widget list = grx_cree_liste(&message);
            if (!list) {
                ++refused;
                EXPECT_EQ(heap().blocks(), blocks) << "nothing is kept of a list that was refused";
                EXPECT_EQ(children(), before);
                EXPECT_EQ(grx_detruit_liste(3, nullptr), 0);
                return;
            }
            grx_detruit_liste(3, list);
            XtDestroyWidget(XtParent(list));
            drain();
        });
        EXPECT_GE(failures, 2);
    }
    EXPECT_GE(refused, 4) << "of the table of texts, and of the selection";
}

TEST_F(Lists, AHundredLeaveTheServerAsItWas) {
    const auto round = [&] {
        const Widget list = list_of(3, 6, multiple);
        grx_detruit_liste(3, list);
        XtDestroyWidget(XtParent(list));
        drain();
    };
    for (int i = 0; i < 3; ++i) round();
    const auto before = resources();
    for (int i = 0; i < 100; ++i) round();
    EXPECT_EQ(resources(), before);
}

// --- visuals other than the root's --------------------------------------------------------------------------------

class DialogVisualOn24 : public On24 {
  protected:
    void before_start() override {
        write_menu("");
        visual.emplace(FakeVisual::Kind::alt32);
    }

    void expect_visual(Widget widget) {
        XWindowAttributes attributes{};
        ASSERT_NE(XtWindow(widget), None) << name_of(widget);
        ASSERT_TRUE(XGetWindowAttributes(test_display(), XtWindow(widget), &attributes));
        EXPECT_EQ(attributes.depth, vtemp.depth) << name_of(widget);
        EXPECT_EQ(XVisualIDFromVisual(attributes.visual), vtemp.visualid) << name_of(widget);
        EXPECT_EQ(attributes.colormap, x11_cmap) << name_of(widget);
    }

    std::optional<FakeVisual> visual;
};

TEST_F(DialogVisualOn24, OptionMenuAndPulldownHaveIt) {
    const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    const Widget menu = grx_cree_support_bascule_liste(widget_of(window));
    GRX_BOUTON description = control_of(GRX_BOU_SIMPLE, 0, -1, "Rouge");
    description.ref_fen_mere = menu;
    const INT n = make(description);
    const Widget option =
        grx_cree_titre_bascule_liste(widget_of(window), menu, control(n), const_cast<char*>("Couleur"));
    ASSERT_TRUE(wait_visible(option));
    const Widget box = XmOptionButtonGadget(option);
    const StdoutCapture silence;
    pointer().move_in(option, resource<Position>(box, XmNx) + 10, resource<Position>(box, XmNy) + 10);
    drain();
    pointer().press(1);
    ASSERT_TRUE(wait_visible(control(n)));
    for (Widget widget : {option, menu, XtParent(menu), control(n)}) expect_visual(widget);
    pointer().release(1);
    drain();
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(DialogVisualOn24, SupportsListsAndWindowsHaveIt) {
    const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    for (const SupportKind& kind : support_kinds) {
        const Widget made = grx_cree_support_message(window, dialog(kind.type, kind.attribut));
        drain();
        for (int i = 0; i <= kind.levels; ++i) expect_visual(up(made, i));
    }
    GRX_FENETRE record = described(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE);
    record.fen_mere = window;
    ASSERT_EQ(grx_cree_fenetre(&record), 0);
    grx_cree_fenetre_message_alpha(&record);
    drain();
    expect_visual(shell_of(record.nofen));
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

} // namespace
