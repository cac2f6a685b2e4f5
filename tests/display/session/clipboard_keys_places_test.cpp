// The keys of the clipboard wherever fields and lists are: in panels, in dialogs, behind dialogs.
#include "tests/display/session/clipboard_kit.h"
#include "tests/display/dialogs/file_dialog_kit.h"
#include "tests/display/panels/panel_list_kit.h"
#include "tests/support/controls.h"

namespace {

using namespace grxtest;

std::string on_clipboard() {
    return get_text(GRX_CODAGE_LATIN1).text;
}

class ClipboardKeysInPanels : public ClipboardOn<PanelLists> {
  protected:
    void SetUp() override {
        ClipboardOn::SetUp();
        if (x11_disp) ASSERT_EQ(grx_affecte_touches_presse_papiers(1), 1);
    }
    void ctrl(Widget list, KeySym symbol) {
        pointer().move_in(list, 5, 5);
        keyboard().key(symbol, ControlMask);
        drain();
        drain();
    }
    Widget with_focus(Widget list) {
        XmProcessTraversal(list, XmTRAVERSE_CURRENT);
        EXPECT_TRUE(wait_for([&] { return XmGetFocusWidget(list) == list; }));
        drain();
        events.clear();
        return list;
    }
};

TEST_F(ClipboardKeysInPanels, AListOfSeveralGivesItsSelectionInItsOrder) {
    const HostList host(key, {"first", "second", "third"});
    Widget list = with_focus(made(GRX_LISTE_MULTIPLE));
    XmListSelectPos(list, 3, False);
    XmListSelectPos(list, 1, False);
    ctrl(list, XK_c);
    EXPECT_EQ(on_clipboard(), "first\nthird");
}

TEST_F(ClipboardKeysInPanels, AllEntriesAreSelectedAndTold) {
    const HostList host(key, {"first", "second", "third"});
    Widget list = with_focus(made(GRX_LISTE_MULTIPLE));
    XmListSelectPos(list, 2, False);
    ctrl(list, XK_a);
    EXPECT_EQ(selected_in(list), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(Tab_liste[slot_of(panel, key)].nb_choix, 3);
    EXPECT_EQ(events.count(GRX_EVT_ELEMENT_CLIQUE), 1) << events.describe();
    ctrl(list, XK_c);
    EXPECT_EQ(on_clipboard(), "first\nsecond\nthird");
    ctrl(list, XK_a); // nothing new to tell
    EXPECT_EQ(events.count(GRX_EVT_ELEMENT_CLIQUE), 1) << events.describe();
}

TEST_F(ClipboardKeysInPanels, AListOfOneTakesNoMore) {
    const HostList host(key, {"first", "second"});
    Widget list = with_focus(made(GRX_LISTE_SIMPLE));
    XmListSelectPos(list, 2, False);
    ctrl(list, XK_a);
    ctrl(list, XK_c);
    EXPECT_EQ(on_clipboard(), "second");
    EXPECT_EQ(selected_in(list), std::vector<int>{1});
}

TEST_F(ClipboardKeysInPanels, LongListsAreCopiedWhole) {
    const HostList host(key, numbered_entries(5000));
    Widget list = with_focus(made(GRX_LISTE_MULTIPLE));
    ctrl(list, XK_a);
    ctrl(list, XK_c);
    const std::string text = on_clipboard();
    EXPECT_EQ(std::ranges::count(text, '\n'), 4999);
    EXPECT_EQ(asked("STRING")->bytes, text);
}

class ClipboardKeysInDialogs : public ClipboardOn<FileDialog> {
  protected:
    void SetUp() override {
        ClipboardOn::SetUp();
        if (x11_disp) ASSERT_EQ(grx_affecte_touches_presse_papiers(1), 1);
    }
};

TEST_F(ClipboardKeysInDialogs, TheNameOfAFileIsPastedAndCopied) {
    put("PLAN.DAT");
    ASSERT_EQ(put_text(path("PLAN.DAT")), 1);
    when_open("pasted", [&] {
        pointer().click_in(part(XmDIALOG_TEXT));
        keyboard().key(XK_a, ControlMask);
        keyboard().key(XK_v, ControlMask);
    });
    when_open("copied", [&] {
        EXPECT_EQ(selection(), path("PLAN.DAT"));
        ASSERT_EQ(put_text("another"), 1);
        keyboard().key(XK_a, ControlMask);
        keyboard().key(XK_c, ControlMask);
    });
    when_open("accepted", [&] {
        EXPECT_EQ(on_clipboard(), path("PLAN.DAT"));
        accept();
    });
    EXPECT_EQ(choose({}).names, Names{"PLAN.DAT"});
}

TEST_F(ClipboardKeysInDialogs, FieldsBehindADialogStayAsTheyAre) {
    GRX_BOUTON description = button_at(GRX_BOU_TEXTE, main_, {10, 10, 120, 30});
    set_title(description, "abc");
    ASSERT_EQ(grx_cree_bouton(&description), 0);
    Widget field = grx_recup_objet_bout(description.nobou);
    ASSERT_TRUE(wait_visible(field));
    grx_force_focus_sur_bouton(description.nobou);
    drain();
    ASSERT_EQ(put_text("pasted"), 1);
    when_open("typed behind", [&] {
        pointer().move_in(field, 5, 5);
        keyboard().key(XK_v, ControlMask);
    });
    when_open("unchanged", [&] {
        EXPECT_EQ(field_text(field), "abc");
        cancel();
    });
    choose({});
    EXPECT_EQ(field_text(field), "abc");
}

} // namespace
