// The text editor: opened and closed, its parts, its keys, and what is left of it.
#include "tests/display/dialogs/editor_kit.h"
#include "tests/support/descriptors.h"
#include "tests/support/fake_visual.h"
#include "tests/support/host_calls.h"

#include <X11/XKBlib.h>

#include <optional>

namespace {

using namespace grxtest;

// --- opening and closing -------------------------------------------------------------------------------------------

TEST_F(Editor, OnlyOneExists) {
    EXPECT_EQ(grx_fin_editeur(), 0);
    EXPECT_EQ(grx_debut_editeur(), 1);
    EXPECT_EQ(grx_debut_editeur(), 0);
    EXPECT_EQ(grx_fin_editeur(), 1);
    EXPECT_EQ(grx_fin_editeur(), 0);
    show();
    EXPECT_EQ(grx_debut_editeur(), 0);
    EXPECT_EQ(grx_editeur(), 0);
    drain();
    EXPECT_TRUE(is_open());
    EXPECT_EQ(std::ranges::count_if(whole_tree(), [](Widget w) { return std::string("Editeur") == XtName(w); }), 1);
    EXPECT_EQ(grx_fin_editeur(), 1);
    EXPECT_TRUE(closed());
    EXPECT_EQ(grx_fin_editeur(), 0);
}

TEST_F(Editor, IsNotMadeBeforeItsStart) {
    EXPECT_EQ(grx_editeur(), 0);
    drain();
    EXPECT_EQ(shell(), nullptr);
    put("a.txt");
    EXPECT_EQ(load(files_.text(), "a.txt"), 0);
    EXPECT_EQ(grx_debut_editeur(), 1);
    EXPECT_EQ(load(files_.text(), "a.txt"), 0);
    EXPECT_EQ(grx_fin_editeur(), 1);
}

TEST_F(Editor, ItsPartsAreTheStatedOnes) {
    show();
    EXPECT_TRUE(XtIsTransientShell(shell()));
    EXPECT_EQ(XtParent(shell()), widget_of(main_));
    Widget main = XtParent(widget_called("menu_bar"));
    EXPECT_STREQ(XtName(main), "main");
    EXPECT_EQ(XtClass(main), xmMainWindowWidgetClass);
    EXPECT_EQ(XtParent(main), shell());
    EXPECT_EQ(resource<Dimension>(main, XmNshadowThickness), 0);
    EXPECT_EQ(XtClass(text()), xmTextWidgetClass);
    EXPECT_EQ(XtClass(XtParent(text())), xmScrolledWindowWidgetClass);
    EXPECT_EQ(resource<int>(text(), XmNeditMode), XmMULTI_LINE_EDIT);
    EXPECT_EQ(resource<unsigned char>(text(), XmNnavigationType), XmEXCLUSIVE_TAB_GROUP);
    EXPECT_FALSE(sensitive());
    EXPECT_EQ(content(), "");
    EXPECT_TRUE(is_viewable(text()));
}

TEST_F(Editor, ItStandsInTheMiddleOfTheScreen) {
    show();
    const Area area = server_area(test_display(), XtWindow(shell()));
    EXPECT_NEAR(area.x + area.width / 2, grx_recup_lar_ecran() / 2, 2);
    EXPECT_NEAR(area.y + area.height / 2, grx_recup_hau_ecran() / 2, 2);
    EXPECT_EQ(resource<short>(text(), XmNcolumns), 80);
    EXPECT_EQ(resource<short>(text(), XmNrows), 24);
}

TEST_F(Editor, HasTheApplicationsFontAndColour) {
    grx_affecte_couleur_application(6);
    const auto colour = static_cast<Pixel>(grx_recup_couleur(6));
    edit("a.txt", "one\n");
    type("x");
    choose("File", "Exit");
    ASSERT_TRUE(asks());
    EXPECT_EQ(resource<Pixel>(XtParent(widget_called("menu_bar")), XmNbackground), colour);
    for (const char* name : {"menu_bar", "menu_pane1", "File", "Open", "Exit", "Clear", "text", "exit warning",
             "workarea", "pixmap_label", "text_label"})
        EXPECT_EQ(resource<Pixel>(widget_called(name), XmNbackground), colour) << name;
    for (const char* name : {"File", "Open", "Clear", "text", "text_label"})
        EXPECT_EQ(font_of(widget_called(name)), fontstruct) << name;
    EXPECT_EQ(font_of(button(prompt(), XmDIALOG_APPLY_BUTTON)), fontstruct);
    answer(XmDIALOG_CANCEL_BUTTON);
    choose("File", "New");
    ASSERT_TRUE(asks());
    EXPECT_EQ(resource<Pixel>(prompt(), XmNbackground), colour);
    for (const unsigned char part : {XmDIALOG_SELECTION_LABEL, XmDIALOG_TEXT, XmDIALOG_OK_BUTTON})
        EXPECT_EQ(font_of(button(prompt(), part)), fontstruct) << int(part);
    answer(XmDIALOG_CANCEL_BUTTON);
    choose("File", "Open");
    ASSERT_TRUE(wait_for([&] { return file_box() != nullptr; }));
    EXPECT_EQ(resource<Pixel>(file_box(), XmNbackground), colour);
    for (const unsigned char which : {XmDIALOG_LIST, XmDIALOG_TEXT, XmDIALOG_OK_BUTTON, XmDIALOG_FILTER_LABEL})
        EXPECT_EQ(font_of(part(which)), fontstruct) << int(which);
}

TEST_F(Editor, TheApplicationLivesBesideIt) {
    const INT beside = make(GRX_FEN_GRAPHIQUE);
    ASSERT_TRUE(wait_visible(widget_of(beside)));
    edit("a.txt", "one\n");
    events.clear();
    pointer().click_in(widget_of(beside), 5, 100);
    drain();
    EXPECT_GT(events.count(GRX_EVT_BOUTON_APPUI), 0) << events.describe();
}

TEST_F(Editor, NothingIsUnsavedInANewOne) {
    edit("a.txt", "one\n");
    type("x");
    grx_fin_editeur();
    ASSERT_TRUE(closed());
    show();
    choose("File", "Exit");
    EXPECT_TRUE(closed());
}

TEST_F(Editor, ItsMenusAreTheStatedOnes) {
    show();
    const auto shown = [](Widget pane) {
        std::string result;
        WidgetList list = nullptr;
        Cardinal count = 0;
        XtVaGetValues(pane, XmNchildren, &list, XmNnumChildren, &count, nullptr);
        for (Cardinal i = 0; i < count; ++i) {
            if (!XmIsPushButton(list[i])) continue;
            result += std::string(XtName(list[i])) + "=" + text_resource(list[i], XmNlabelString);
            const std::string key = text_resource(list[i], XmNacceleratorText);
            if (key != "(none)" && !key.empty()) {
                char* accelerator = nullptr;
                XtVaGetValues(list[i], XmNaccelerator, &accelerator, nullptr);
                result += "[" + key + " " + (accelerator ? accelerator : "") + "]";
                XtFree(accelerator);
            }
            result += "; ";
        }
        return result;
    };
    EXPECT_EQ(shown(widget_called("menu_pane1")),
        "Open=Ouvrir; New=Nouveau; close=Fermeture; Save=Sauver; Save As...=Sauver sous; Exit=Fin[F3 <Key>F3:]; ");
    EXPECT_EQ(shown(widget_called("menu_pane2")),
        "Couper=Couper[Shift+Del Shift<Key>Delete:]; Copier=Copier[Ctrl+Ins Ctrl<Key>Insert:]; "
        "Coller=Coller[Shift+Ins Shift<Key>Insert:]; Clear=Supprimer; ");
    EXPECT_EQ(text_resource(widget_called("File"), XmNlabelString), "Fichier");
    EXPECT_EQ(text_resource(widget_called("Edit"), XmNlabelString), "Editer");
    EXPECT_EQ(resource<Widget>(widget_called("File"), XmNsubMenuId), widget_called("menu_pane1"));
    EXPECT_EQ(resource<Widget>(widget_called("Edit"), XmNsubMenuId), widget_called("menu_pane2"));
}

TEST_F(Editor, AFileMakesItReady) {
    put("a.txt", "one\ntwo\n");
    show();
    const auto ready = [&] {
        return std::array{XtIsSensitive(text()), XtIsSensitive(widget_called("Couper")),
            XtIsSensitive(widget_called("Copier")), XtIsSensitive(widget_called("Clear")),
            XtIsSensitive(widget_called("Coller"))};
    };
    EXPECT_EQ(ready(), (std::array<Boolean, 5>{0, 0, 0, 0, 1}));
    load(files_.text(), "a.txt");
    EXPECT_EQ(content(), "one\ntwo\n");
    EXPECT_EQ(ready(), (std::array<Boolean, 5>{1, 1, 1, 1, 1}));
    choose("File", "close");
    EXPECT_FALSE(asks());
    EXPECT_EQ(content(), "");
    EXPECT_FALSE(sensitive());
    EXPECT_EQ(std::string(memo_filename), path("a.txt"));
    EXPECT_TRUE(is_open());
}

TEST_F(Editor, AnEmptyNameOpensNothing) {
    put("a.txt", "one\n");
    show();
    EXPECT_EQ(load(files_.text(), ""), 0);
    EXPECT_FALSE(sensitive());
    EXPECT_EQ(load(files_.text() + "/", "a.txt"), 0);
    EXPECT_EQ(content(), "one\n");
    load(files_.text(), "");
    EXPECT_EQ(content(), "one\n");
}

TEST_F(Editor, AFileThatCannotBeOpenedLeavesItEmpty) {
    for (const char* name : {"missing.txt", "no/where.txt", "."}) {
        edit(name);
        EXPECT_EQ(content(), "") << name;
        EXPECT_FALSE(sensitive()) << name;
        EXPECT_EQ(prompt(), nullptr);
        EXPECT_EQ(on_screen_of(xmMessageBoxWidgetClass), nullptr);
        grx_fin_editeur();
        ASSERT_TRUE(closed());
    }
}

TEST_F(Editor, AFailedOpeningLeavesTheOldTextUnderTheNewName) {
    edit("a.txt", "old\n");
    load(files_.text(), "missing.txt");
    EXPECT_EQ(content(), "old\n");
    save();
    EXPECT_EQ(bytes_of(path("missing.txt")), "old\n");
}

// Files of the system that nobody can open for writing, whose size is said to be a page.
TEST_F(Editor, AFileThatCanOnlyBeReadIsOpened) {
    for (const char* name : {"kexec_loaded", "fscaps", "profiling", "rcu_expedited"}) {
        const std::string whole = std::string("/sys/kernel/") + name, bytes = bytes_of(whole);
        FILE* const both = std::fopen(whole.c_str(), "r+");
        if (both) std::fclose(both);
        if (both || bytes.empty()) continue;
        show();
        load("/sys/kernel", name);
        EXPECT_EQ(content(), bytes);
        EXPECT_TRUE(sensitive());
        return;
    }
    FAIL() << "no such file on this system";
}

TEST_F(Editor, AFileIsOpenedForUpdateElseForReading) {
    put("a.txt", "one\n");
    show();
    TextFiles asked;
    load(files_.text(), "a.txt");
    EXPECT_EQ(asked.modes, (std::vector<INT>{3}));
    asked.modes.clear();
    load(files_.text(), "missing.txt");
    EXPECT_EQ(asked.modes, (std::vector<INT>{3, 2}));
}

TEST_F(Editor, AFileIsClosedWhenItIsRead) {
    put("a.txt", "one\n");
    show();
    load(files_.text(), "a.txt");
    const long before = open_descriptors();
    load(files_.text(), "a.txt");
    load(files_.text(), "missing.txt");
    EXPECT_EQ(open_descriptors(), before);
}

TEST_F(Editor, AFileWithoutASizeIsRead) {
    const std::string text(200000, 't');
    show();
    TextFiles sizeless(text);
    load(files_.text(), "anything");
    EXPECT_TRUE(content() == text) << content().size();
}

// --- keys ----------------------------------------------------------------------------------------------------------

class EditorKeys : public Editor {
  protected:
    void press_key(KeySym key, unsigned modifiers = 0) {
        keyboard().key(key, modifiers);
        drain();
    }
    void release_locks() {
        XkbLockModifiers(test_display(), XkbUseCoreKbd, LockMask | Mod2Mask, 0);
        XSync(test_display(), False);
        drain();
    }
};

TEST_F(EditorKeys, EachActsExactlyOnce) {
    edit("a.txt", "abcdef\n");
    select(2);
    press_key(XK_Delete, ShiftMask);
    EXPECT_EQ(content(), "cdef\n");
    press_key(XK_Insert, ShiftMask);
    EXPECT_EQ(content(), "abcdef\n");
    press_key(XK_Insert, ShiftMask);
    EXPECT_EQ(content(), "ababcdef\n");
    select(3);
    press_key(XK_Insert, ControlMask);
    EXPECT_EQ(content(), "ababcdef\n");
    press_key(XK_End, ControlMask);
    press_key(XK_Insert, ShiftMask);
    EXPECT_EQ(content(), "ababcdef\naba");
    press_key(XK_F3);
    EXPECT_TRUE(asks());
    EXPECT_EQ(std::ranges::count_if(
                  whole_tree(), [](Widget w) { return XtClass(w) == xmSelectionBoxWidgetClass && is_viewable(w); }),
        1);
    answer(XmDIALOG_CANCEL_BUTTON);
}

TEST_F(EditorKeys, F3LeavesASavedText) {
    edit("a.txt", "abc\n");
    pointer().move_in(text(), 8, 8);
    press_key(XK_F3);
    EXPECT_TRUE(closed());
    EXPECT_EQ(std::string(memo_filename), path("a.txt"));
}

TEST_F(EditorKeys, F3WorksWithoutAFile) {
    show();
    pointer().move_in(text(), 8, 8);
    press_key(XK_F3);
    EXPECT_TRUE(closed());
}

TEST_F(EditorKeys, LocksDoNotMatter) {
    edit("a.txt", "abcdef\n");
    for (const unsigned locks : {1U, 2U, 3U}) {
        if (locks & 1U) keyboard().num_lock();
        if (locks & 2U) keyboard().caps_lock();
        drain();
        select(1);
        press_key(XK_Delete, ShiftMask);
        EXPECT_EQ(content(), "bcdef\n");
        press_key(XK_Insert, ShiftMask);
        EXPECT_EQ(content(), "abcdef\n");
        press_key(XK_F3);
        EXPECT_TRUE(asks()) << "the text itself does not know this key";
        release_locks();
        answer(XmDIALOG_CANCEL_BUTTON);
    }
}

TEST_F(EditorKeys, NothingWorksOnAClosedText) {
    edit("a.txt", "abcdef\n");
    select(2);
    press_key(XK_Insert, ControlMask);
    choose("File", "close");
    pointer().move_in(text(), 8, 8);
    press_key(XK_Delete, ShiftMask);
    press_key(XK_Insert, ControlMask);
    EXPECT_EQ(content(), "");
    EXPECT_FALSE(sensitive());
}

TEST_F(EditorKeys, MenusAreUsableByKeys) {
    edit("a.txt", "abc\n");
    type("x");
    press_key(XK_F10);
    ASSERT_TRUE(wait_for(
        [&] { return is_viewable(widget_called("Open")) || XmGetFocusWidget(shell()) == widget_called("File"); }));
    if (!is_viewable(widget_called("Open"))) press_key(XK_Down);
    ASSERT_TRUE(wait_for([&] { return is_viewable(widget_called("Open")); }));
    for (int i = 0; i < 3; ++i) press_key(XK_Down);
    press_key(XK_Return);
    ASSERT_TRUE(wait_for([&] { return bytes_of(path("a.txt")) == "xabc\n"; }));
}

// --- memory --------------------------------------------------------------------------------------------------------

// With a menu bar, as every application has one: the toolkit loses the arrows of its cascades with the last of them.
class EditorBesideMenus : public Editor {
  protected:
    void before_start() override { write_menu("#:ZONE_MENU_BAR\n{\nPOPUP||Menu|\n{\nITEM||One||1|\n}\n}\n"); }
};

TEST_F(EditorBesideMenus, TwoHundredTimesLeaveNothing) {
    put("a.txt", "abc\n");
    const auto once = [&](int way) {
        edit("a.txt");
        if (way == 0) {
            grx_fin_editeur();
        } else {
            type("x");
            choose("File", "Exit");
            answer(XmDIALOG_APPLY_BUTTON);
        }
        ASSERT_TRUE(closed());
        drain();
    };
    for (int i = 0; i < 6; ++i) once(i % 6 == 5);
    once(0);
    const auto before = server_resources(test_display(), x_window(main_));
    const std::size_t blocks = heap().blocks();
    for (int i = 0; i < 200; ++i) once(i % 10 == 5);
    once(0);
    EXPECT_EQ(server_resources(test_display(), x_window(main_)), before);
    EXPECT_EQ(heap().blocks(), blocks);
}

TEST_F(Editor, EachFailingAllocationIsSurvived) {
    put("a.txt", "abc\n");
    const int failures = fail_each_allocation([&] {
        const NoLeak no_leak;
        put("a.txt", "abc\n");
        if (grx_debut_editeur() == 1) {
            grx_editeur();
            drain();
            load(files_.text(), "a.txt");
            if (shell() && sensitive()) {
                type("x");
                choose("File", "Save");
                const std::string after = bytes_of(path("a.txt"));
                EXPECT_TRUE(after == "abc\n" || after == content()) << after;
                choose("File", "Exit");
                if (asks()) answer(XmDIALOG_APPLY_BUTTON);
            }
        }
        grx_fin_editeur();
        drain();
        EXPECT_EQ(shell(), nullptr);
    });
    EXPECT_GT(failures, 3);
}

TEST_F(Editor, TheDeathOfTheMainWindowClosesIt) {
    const NoLeak no_leak;
    edit("a.txt", "abc\n");
    grx_detruit_fenetre(main_);
    drain();
    EXPECT_EQ(grx_fin_editeur(), 0);
}

class EditorOn32On24 : public EditorOn<DisplayTest> {
  protected:
    void before_start() override {
        EditorOn<DisplayTest>::before_start();
        fake_.emplace(FakeVisual::Kind::alt32);
    }
    std::optional<FakeVisual> fake_;
};

TEST_F(EditorOn32On24, HasTheApplicationsVisual) {
    edit("a.txt", "abc\n");
    for (const char* entry : {"New", "Save As..."}) {
        choose("File", entry);
        answer(XmDIALOG_CANCEL_BUTTON);
    }
    type("x");
    choose("File", "Exit");
    ASSERT_TRUE(asks());
    for (Widget w : {shell(), XtParent(prompt())}) {
        XWindowAttributes attributes{};
        XGetWindowAttributes(x11_disp, XtWindow(w), &attributes);
        EXPECT_EQ(attributes.depth, 32);
    }
}

} // namespace
