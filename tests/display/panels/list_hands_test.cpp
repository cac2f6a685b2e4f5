// Lists of every kind under real hands: mouse and keys with locks on, on other layouts, under a window manager, after a
// resize, in a locale of several bytes a character.
#include "tests/display/panels/list_kit.h"

#include "tests/support/window_manager.h"

#include <X11/XKBlib.h>

#include <clocale>

namespace {

using namespace grxtest;
using Positions = std::vector<INT>;

struct Surroundings {
    const char* name;
    const char* layout = "us";
    unsigned group = 0;
    unsigned locks = 0;
    bool manager = false;
    bool resized = false;
    const char* locale = "C";
};

constexpr unsigned both_locks = LockMask | Mod2Mask;

constexpr Surroundings all_surroundings[] = {
    {"Plain"},
    {"NumLock", "us", 0, Mod2Mask},
    {"CapsLock", "us", 0, LockMask},
    {"French", "fr", 0, both_locks},
    {"SecondGroup", "us,fr", 1, both_locks},
    {"SecondGroupGreek", "us,gr", 1, both_locks},
    {"Resized", "us", 0, both_locks, false, true},
    {"Utf8", "fr", 0, both_locks, false, false, "C.UTF-8"},
    {"Manager", "us", 0, both_locks, true},
    {"All", "us,fr", 1, both_locks, true, true, "C.UTF-8"},
};

// Latin-1, UTF-8, columns, more than a line.
const std::vector<std::string> entries{"\xe9t\xe9 1", "\u00e9t\u00e9 2",
    "Pi\xe8"
    "ce\tde 3",
    "pi\u00e8ce\tde 4", "e\u20ac\xff 5"};

class ListHands : public ListTest, public testing::WithParamInterface<Surroundings> {
  public:
    void hit(INT list, INT position) {
        INT x = 0, y = 0, height = 0;
        ASSERT_EQ(grx_recup_cadre_element_liste(list, position, &x, &y, nullptr, &height), 1);
        pointer().move_in(widget_of_list(list), x + 10, y + height / 2);
        drain();
    }

    void click_at(INT list, INT position, KeySym held = 0) {
        hit(list, position);
        if (held != 0) keyboard().press(held);
        pointer().click();
        drain();
        if (held != 0) keyboard().release(held);
        drain();
    }

    void drag(INT list, INT from, INT to) {
        hit(list, from);
        pointer().press();
        drain();
        hit(list, to);
        pointer().release();
        drain();
    }

    void keys(KeySym symbol, unsigned modifiers = 0, int times = 1) {
        for (; times > 0; --times) {
            keyboard().key(symbol, modifiers);
            drain();
        }
    }

  protected:
    void before_start() override {
        ListTest::before_start();
        ASSERT_NE(std::setlocale(LC_ALL, GetParam().locale), nullptr);
        if (GetParam().manager) manager_.emplace(server());
        keyboard().layout(GetParam().layout);
    }

    void SetUp() override {
        ListTest::SetUp();
        if (HasFatalFailure()) return;
        if (GetParam().resized) resize();
        lock();
    }

    void lock() {
        keys(XK_Shift_L); // the server reads the layout with its first key
        XkbLockModifiers(test_display(), XkbUseCoreKbd, both_locks, GetParam().locks);
        XkbLockGroup(test_display(), XkbUseCoreKbd, GetParam().group);
        XSync(test_display(), False);
        settle();
    }

    // The outermost window around the shell.
    Window outermost(Window at) {
        for (;;) {
            Window root = None, parent = None, *children = nullptr;
            unsigned count = 0;
            if (!XQueryTree(test_display(), at, &root, &parent, &children, &count)) return None;
            XFree(children);
            if (parent == root) return at;
            at = parent;
        }
    }

    // By its corner where a manager is, else by the server.
    void resize() {
        Widget shell = shell_of(window);
        const int width = resource<Dimension>(shell, XmNwidth);
        if (GetParam().manager) {
            const Area frame = server_area(test_display(), outermost(XtWindow(shell)));
            const Point corner{frame.x + frame.width - 3, frame.y + frame.height - 3};
            ASSERT_TRUE(pointer().drag_frame(corner, {corner.x + 80, corner.y + 60}));
        } else {
            XResizeWindow(test_display(), XtWindow(shell), static_cast<unsigned>(width) + 80, 560);
            XSync(test_display(), False);
        }
        ASSERT_TRUE(wait_for([&] { return resource<Dimension>(shell, XmNwidth) > width + 40; }));
        ASSERT_TRUE(wait_for([&] { return resource<Dimension>(widget_of(window), XmNwidth) > width + 40; }));
    }

    // The last choice that was posted names this list.
    void expect_record(INT list) {
        const GRX_EVENEMENT* last = nullptr;
        for (const GRX_EVENEMENT& event : events.seen())
            if (event.type_evenement == GRX_EVT_ELEMENT_CLIQUE) last = &event;
        ASSERT_NE(last, nullptr) << events.describe();
        const auto& choice = last->element_clique;
        if (list >= GRX_LISTE_DIALOGUE) {
            EXPECT_EQ(choice.nofen, -1 - (list - GRX_LISTE_DIALOGUE));
            EXPECT_TRUE(choice.nobou >= 1 && choice.nobou <= 5) << choice.nobou;
        } else if (list >= GRX_LISTE_PANNEAU) {
            EXPECT_EQ(choice.no_fo, list - GRX_LISTE_PANNEAU);
        } else {
            EXPECT_EQ(choice.nobou, list);
            EXPECT_TRUE(std::ranges::find(entries, choice.chaine) != entries.end()) << choice.chaine;
        }
    }

  private:
    std::optional<WindowManager> manager_;
};

struct Deed {
    const char* what;
    INT mode;
    void (*done)(ListHands& hands, INT list);
    Positions selected;
};

const Deed deeds[] = {
    {"a click", GRX_LISTE_UNE, [](ListHands& h, INT l) { h.click_at(l, 3); }, {3}},
    {"arrows", GRX_LISTE_UNE,
        [](ListHands& h, INT l) {
            h.click_at(l, 2);
            h.keys(XK_Down, 0, 3);
            h.keys(XK_Up);
            h.keys(XK_space);
        },
        {4}},
    {"to the end", GRX_LISTE_UNE,
        [](ListHands& h, INT l) {
            h.click_at(l, 2);
            h.keys(XK_End, ControlMask);
            h.keys(XK_space);
        },
        {5}},
    {"clicks turn entries round", GRX_LISTE_PLUSIEURS,
        [](ListHands& h, INT l) {
            for (const INT position : {1, 3, 5, 3}) h.click_at(l, position);
        },
        {1, 5}},
    {"the blank turns entries round", GRX_LISTE_PLUSIEURS,
        [](ListHands& h, INT l) {
            h.click_at(l, 1);
            h.keys(XK_Down, 0, 2);
            h.keys(XK_space);
            h.keys(XK_Down);
            h.keys(XK_space);
            h.keys(XK_Up);
            h.keys(XK_space);
        },
        {1, 4}},
    {"clicks with Shift and Ctrl", GRX_LISTE_ETENDUE,
        [](ListHands& h, INT l) {
            h.click_at(l, 2);
            h.click_at(l, 4, XK_Shift_L);
            h.click_at(l, 3, XK_Control_L);
        },
        {2, 4}},
    {"a click begins anew", GRX_LISTE_ETENDUE,
        [](ListHands& h, INT l) {
            h.click_at(l, 1);
            h.click_at(l, 5, XK_Control_L);
            h.click_at(l, 3);
        },
        {3}},
    {"a drag", GRX_LISTE_ETENDUE, [](ListHands& h, INT l) { h.drag(l, 2, 4); }, {2, 3, 4}},
    {"arrows with Shift", GRX_LISTE_ETENDUE,
        [](ListHands& h, INT l) {
            h.click_at(l, 2);
            h.keys(XK_Down, ShiftMask, 3);
            h.keys(XK_Up, ShiftMask);
        },
        {2, 3, 4}},
    {"arrows move what is selected", GRX_LISTE_ETENDUE,
        [](ListHands& h, INT l) {
            h.click_at(l, 1);
            h.keys(XK_Down, 0, 3);
            h.keys(XK_Up);
        },
        {3}},
    {"to the beginning", GRX_LISTE_ETENDUE,
        [](ListHands& h, INT l) {
            h.click_at(l, 3);
            h.keys(XK_Home, ControlMask);
        },
        {1}},
    {"everything", GRX_LISTE_ETENDUE,
        [](ListHands& h, INT l) {
            h.click_at(l, 2);
            h.keys(XK_Home, ControlMask);
            h.keys(XK_End, ControlMask | ShiftMask);
        },
        {1, 2, 3, 4, 5}},
    {"from where the program selected", GRX_LISTE_ETENDUE,
        [](ListHands& h, INT l) {
            h.click_at(l, 1);
            grx_deselectionne_tout_liste(l);
            selected(l, {2});
            h.click_at(l, 4, XK_Shift_L);
        },
        {2, 3, 4}},
    {"keys from where the program selected", GRX_LISTE_ETENDUE,
        [](ListHands& h, INT l) {
            h.click_at(l, 5);
            grx_deselectionne_tout_liste(l);
            selected(l, {2});
            grx_montre_element_liste(l, 2);
            h.keys(XK_Down, ShiftMask, 2);
        },
        {2, 3, 4}},
    {"after the program deselected", GRX_LISTE_ETENDUE,
        [](ListHands& h, INT l) {
            h.click_at(l, 3);
            grx_deselectionne_tout_liste(l);
            h.click_at(l, 4, XK_Shift_L);
            h.click_at(l, 5, XK_Shift_L);
        },
        {4, 5}},
    {"keys after the program deselected", GRX_LISTE_ETENDUE,
        [](ListHands& h, INT l) {
            h.click_at(l, 3);
            grx_deselectionne_tout_liste(l);
            grx_montre_element_liste(l, 2);
            h.keys(XK_Down);
        },
        {3}},
    {"arrows after the program deselected", GRX_LISTE_UNE,
        [](ListHands& h, INT l) {
            h.click_at(l, 3);
            grx_deselectionne_tout_liste(l);
            grx_montre_element_liste(l, 2);
            h.keys(XK_Down);
            h.keys(XK_space);
        },
        {3}},
    {"arrows after the program selected", GRX_LISTE_UNE,
        [](ListHands& h, INT l) {
            h.click_at(l, 3);
            selected(l, {5});
            h.keys(XK_Down);
            h.keys(XK_space);
        },
        {4}},
    {"a click after the program selected", GRX_LISTE_UNE,
        [](ListHands& h, INT l) {
            h.click_at(l, 3);
            selected(l, {5});
            h.click_at(l, 2);
        },
        {2}},
    {"the place stays in a replaced entry", GRX_LISTE_ETENDUE,
        [](ListHands& h, INT l) {
            h.click_at(l, 3);
            replaced(l, 2, {entries[1], entries[2], entries[3]});
            h.keys(XK_Down, ShiftMask);
            h.click_at(l, 5, XK_Shift_L);
        },
        {3, 4, 5}},
    {"the place moves with the entries", GRX_LISTE_ETENDUE,
        [](ListHands& h, INT l) {
            h.click_at(l, 2);
            inserted(l, 1, {entries[0]});
            h.click_at(l, 5, XK_Shift_L);
            grx_supprime_elements_liste(l, 1, 1);
        },
        {2, 3, 4}},
};

TEST_P(ListHands, SelectAsEverywhere) {
    for (const ListOf kind : list_kinds) {
        const INT list = list_of(kind);
        ASSERT_EQ(filled(list, entries), 1);
        EXPECT_EQ(texts_of(list), entries);
        for (const Deed& deed : deeds) {
            SCOPED_TRACE(std::string(deed.what) + ", kind " + std::to_string(static_cast<int>(kind)));
            ASSERT_EQ(grx_affecte_mode_liste(list, deed.mode), 1);
            ASSERT_EQ(grx_deselectionne_tout_liste(list), 1);
            settle();
            deed.done(*this, list);
            EXPECT_EQ(selection_of(list), deed.selected);
            EXPECT_EQ(told_selection(list), selection_of(list));
            expect_record(list);
        }
        EXPECT_EQ(texts_of(list), entries);
    }
}

TEST_P(ListHands, ReturnChoosesWhereTheKeysAre) {
    for (const ListOf kind : list_kinds) {
        SCOPED_TRACE(static_cast<int>(kind));
        const INT list = list_of(kind);
        ASSERT_EQ(filled(list, entries), 1);
        click_at(list, 1);
        keys(XK_Down, 0, 2);
        events.clear();
        keys(XK_Return);
        EXPECT_EQ(selection_of(list), Positions{3});
        const auto chosen = events.wait([](const GRX_EVENEMENT& e) {
            return e.type_evenement == GRX_EVT_ELEMENT_CLIQUE && e.element_clique.double_click == 1;
        });
        ASSERT_TRUE(chosen) << events.describe();
        expect_record(list);
    }
}

// Letters go to the next entry that begins with them; a letter that no entry has changes nothing.
TEST_P(ListHands, LettersHarmNothing) {
    for (const ListOf kind : list_kinds) {
        SCOPED_TRACE(static_cast<int>(kind));
        const INT list = list_of(kind);
        ASSERT_EQ(filled(list, entries), 1);
        click_at(list, 1);
        for (const KeySym letter : {XK_p, XK_e, XK_z}) keys(letter);
        EXPECT_EQ(texts_of(list), entries);
        EXPECT_EQ(selection_of(list).size(), 1U);
        click_at(list, 4);
        EXPECT_EQ(selection_of(list), Positions{4});
        expect_record(list);
    }
}

INSTANTIATE_TEST_SUITE_P(
    In, ListHands, testing::ValuesIn(all_surroundings), [](const auto& info) { return std::string(info.param.name); });

} // namespace
