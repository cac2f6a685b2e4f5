// The call that returns when the text is left: each way out, what it gives back, and under a window manager.
#include "tests/display/dialogs/editor_kit.h"

#include <cstring>
#include <fstream>

namespace {

using namespace grxtest;
namespace fs = std::filesystem;

template <class Base>
class BlockingOn : public EditorOn<Base> {
  protected:
    struct Left {
        INT status = -1;
        std::string directory, name;
    };
    Left block(const std::string& directory, const std::string& name) {
        EXPECT_EQ(grx_debut_editeur(), 1);
        grx_editeur();
        char adr[GRX_MEMO_FILENAME_MAX] = "", nom[GRX_MEMO_FILENAME_MAX] = "";
        std::snprintf(adr, sizeof adr, "%s", directory.c_str());
        std::snprintf(nom, sizeof nom, "%s", name.c_str());
        Left left;
        left.status = this->script_.run([&] { return grx_file_editeur_bloquant(adr, nom); });
        left.directory = adr;
        left.name = nom;
        return left;
    }
    Script& when_ready(const std::string& what, Script::Action action) {
        return this->script_.when(
            what, [this] { return this->is_open(); }, std::move(action));
    }
    void key(KeySym symbol) {
        this->script_.then("key", [this, symbol] {
            this->pointer().move_in(this->text(), 8, 8);
            this->keyboard().key(symbol);
        });
    }
    void change() {
        when_ready("type", [this] {
            this->pointer().click_in(this->text(), 8, 8);
            this->keyboard().type("x");
        });
    }
    void pick(const std::string& entry) {
        this->script_.then("menu", [this] { this->click(widget_called("File")); });
        this->script_.when(
            "entry " + entry, [entry] { return is_viewable(widget_called(entry)); },
            [this, entry] { this->click(widget_called(entry)); });
    }
    // The same, then a name in the dialog that comes.
    void pick_name(const std::string& entry, const std::string& name) {
        when_ready("ready", [] {});
        pick(entry);
        this->script_.when(
            "prompt", [this] { return this->prompt() != nullptr; },
            [this, name] { this->retype(this->button(this->prompt(), XmDIALOG_TEXT), name); });
        this->script_.then("ok", [this] { this->click(this->button(this->prompt(), XmDIALOG_OK_BUTTON)); });
    }
    void respond(unsigned char which) {
        this->script_.when(
            "warning", [this] { return this->prompt() != nullptr; },
            [this, which] { this->click(this->button(this->prompt(), which)); });
    }
};

class Blocking : public BlockingOn<DisplayTest> {};

TEST_F(Blocking, FinAfterSavingGives1) {
    put("a.txt", "abc");
    change();
    pick("Save");
    key(XK_F3);
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.status, 1);
    EXPECT_EQ(left.directory, files_.text());
    EXPECT_EQ(left.name, "a.txt");
    EXPECT_EQ(bytes_of(path("a.txt")), "xabc\n");
    EXPECT_EQ(shell(), nullptr);
    EXPECT_EQ(grx_debut_editeur(), 1) << "the editor is free again";
    grx_fin_editeur();
}

TEST_F(Blocking, EachWayOutHasItsStatus) {
    const std::pair<unsigned char, INT> ways[] = {{XmDIALOG_OK_BUTTON, 1}, {XmDIALOG_APPLY_BUTTON, 0}};
    for (const auto& [button, status] : ways) {
        put("a.txt", "abc\n");
        change();
        pick("Exit");
        respond(button);
        const auto left = block(files_.text(), "a.txt");
        EXPECT_EQ(left.status, status);
        EXPECT_EQ(left.directory, files_.text());
        EXPECT_EQ(left.name, "a.txt");
        EXPECT_EQ(bytes_of(path("a.txt")), status ? "xabc\n" : "abc\n");
    }
    when_ready("finish", [] { EXPECT_EQ(grx_fin_editeur(), 1); });
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.status, 0);
    EXPECT_EQ(left.name, "a.txt");
    EXPECT_EQ(left.directory, files_.text());
}

TEST_F(Blocking, NothingIsLeftOfTheTimeBefore) {
    put("a.txt", "abc\n");
    put("b.txt", "abc\n");
    when_ready("ready", [] {});
    key(XK_F3);
    EXPECT_EQ(block(files_.text(), "b.txt").status, 1);
    when_ready("finish", [] { EXPECT_EQ(grx_fin_editeur(), 1); });
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.status, 0);
    EXPECT_EQ(left.name, "a.txt");
}

TEST_F(Blocking, SauverSousGivesTheNewName) {
    put("a.txt", "abc\n");
    fs::create_directory(path("Sub"));
    pick_name("Save As...", path("Sub/b.txt"));
    key(XK_F3);
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.status, 1);
    EXPECT_EQ(left.directory, path("Sub"));
    EXPECT_EQ(left.name, "b.txt");
}

// A file that could not be written is not given back.
TEST_F(Blocking, AFailedSauverSousLeavesTheNames) {
    put("a.txt", "abc\n");
    const std::pair<unsigned char, INT> ways[] = {{XmDIALOG_APPLY_BUTTON, 0}, {XmDIALOG_OK_BUTTON, 1}};
    for (const auto& [button_of_warning, status] : ways) {
        pick_name("Save As...", path("Sub/b.txt"));
        script_.when(
            "told", [&] { return question_box() != nullptr; },
            [&] { click(XmMessageBoxGetChild(question_box(), XmDIALOG_OK_BUTTON)); });
        key(XK_F3);
        respond(button_of_warning);
        const auto left = block(files_.text(), "a.txt");
        EXPECT_EQ(left.status, status);
        EXPECT_EQ(left.directory, files_.text());
        EXPECT_EQ(left.name, "a.txt");
        EXPECT_EQ(std::string(memo_filename), path("a.txt"));
    }
}

TEST_F(Blocking, ANewFileThatWasNeverWrittenIsNotGivenBack) {
    put("a.txt", "abc\n");
    for (const bool saved : {false, true}) {
        pick_name("New", path("new.txt"));
        if (saved) pick("Save");
        key(XK_F3);
        const auto left = block(files_.text(), "a.txt");
        EXPECT_EQ(there("new.txt"), saved);
        EXPECT_EQ(left.status, saved ? 1 : 0);
        EXPECT_EQ(left.name, saved ? "new.txt" : "a.txt");
        EXPECT_EQ(left.directory, files_.text());
    }
}

TEST_F(Blocking, AFileThatIsNotThereIsNotReportedAsSaved) {
    when_ready("ready", [&] { EXPECT_FALSE(sensitive()); });
    key(XK_F3);
    const auto left = block(files_.text(), "missing.txt");
    EXPECT_EQ(left.status, 0);
    EXPECT_EQ(left.name, "missing.txt");
}

// --- off the screen when the call has returned -------------------------------------------------------------------------

TEST_F(Blocking, NothingIsLeftOnTheScreen) {
    put("a.txt", "abc\n");
    const auto before = windows_on_screen();
    const auto leave = [&] {
        when_ready("ready", [] {});
        key(XK_F3);
        block(files_.text(), "a.txt");
        EXPECT_TRUE(leaves_the_screen_as(before));
        change();
        pick("Exit");
        respond(XmDIALOG_APPLY_BUTTON);
        block(files_.text(), "a.txt");
        EXPECT_TRUE(leaves_the_screen_as(before));
        when_ready("close", [&] { ask_to_close(test_display(), XtWindow(shell())); });
        block(files_.text(), "a.txt");
        EXPECT_TRUE(leaves_the_screen_as(before));
        when_ready("finish", [] { grx_fin_editeur(); });
        block(files_.text(), "a.txt");
        EXPECT_TRUE(leaves_the_screen_as(before));
    };
    leave();
    inside_a_callback(leave);
    drain();
    when_ready("destroy", [&] { grx_detruit_fenetre(main_); });
    block(files_.text(), "a.txt");
    EXPECT_TRUE(leaves_the_screen_as(before));
}

TEST_F(Blocking, ANameWithoutADirectoryEmptiesTheDirectory) {
    ASSERT_EQ(chdir(files_.text().c_str()), 0);
    put("a.txt", "abc\n");
    pick_name("Save As...", "b.txt");
    key(XK_F3);
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.directory, "");
    EXPECT_EQ(left.name, "b.txt");
    EXPECT_TRUE(there("b.txt"));
}

TEST_F(Blocking, AtTheRootTheDirectoryIsEmpty) {
    put("a.txt", "abc\n");
    const std::string target = "/grx-test-" + std::to_string(getpid());
    pick_name("Save As...", target);
    key(XK_F3);
    const bool writable = access("/", W_OK) == 0;
    if (!writable) respond(XmDIALOG_APPLY_BUTTON); // not everybody may write there: the text then counts as not saved
    const auto left = block(files_.text(), "a.txt");
    fs::remove(target);
    EXPECT_EQ(left.directory, writable ? "" : files_.text());
    EXPECT_EQ(left.name, writable ? target.substr(1) : "a.txt");
}

TEST_F(Blocking, LongNamesDoNotOverflow) {
    std::string deep = files_.text();
    while (deep.size() < 240) deep += "/" + std::string(60, 'd');
    fs::create_directories(deep);
    std::ofstream(deep + "/" + std::string(100, 'f')) << "abc\n";
    when_ready("leave", [&] {
        EXPECT_EQ(content(), "abc\n");
        pointer().move_in(text(), 8, 8);
        keyboard().key(XK_F3);
    });
    EXPECT_EQ(grx_debut_editeur(), 1);
    grx_editeur();
    std::vector<char> adr(1024, '\0'), name(1024, '\0');
    deep.copy(adr.data(), deep.size());
    std::string(100, 'f').copy(name.data(), 100);
    EXPECT_EQ(script_.run([&] { return grx_file_editeur_bloquant(adr.data(), name.data()); }), 1);
    EXPECT_EQ(std::string(adr.data()), deep);
    EXPECT_EQ(std::string(name.data()), std::string(100, 'f'));
    EXPECT_EQ(std::strlen(memo_filename), GRX_MEMO_FILENAME_MAX - 1U);
}

TEST_F(Blocking, TheDeathOfTheMainWindowEndsIt) {
    put("a.txt", "abc\n");
    when_ready("destroy", [&] { grx_detruit_fenetre(main_); });
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.status, 0);
    EXPECT_EQ(left.name, "a.txt");
    EXPECT_EQ(grx_fin_editeur(), 0);
}

// There the end of a window is put off until the callback returns.
TEST_F(Blocking, TheDeathOfTheMainWindowEndsItInsideACallbackToo) {
    put("a.txt", "abc\n");
    inside_a_callback([&] {
        when_ready("destroy", [&] { grx_detruit_fenetre(main_); });
        const auto left = block(files_.text(), "a.txt");
        EXPECT_EQ(left.status, 0);
        EXPECT_EQ(left.name, "a.txt");
    });
    drain();
    EXPECT_EQ(grx_fin_editeur(), 0);
}

TEST_F(Blocking, WithoutAWindowItReturnsAtOnce) {
    put("a.txt", "abc\n");
    grx_detruit_fenetre(main_);
    drain();
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.status, 0);
    EXPECT_EQ(left.name, "a.txt");
    grx_fin_editeur();
    char a[HOST_CHEMIN_MAX] = "", n[HOST_CHEMIN_MAX] = "x";
    EXPECT_EQ(grx_file_editeur_bloquant(a, n), 0) << "no editor at all";
}

TEST_F(Blocking, AnEmptyNameWaitsAllTheSame) {
    bool waited = false;
    when_ready("leave", [&] {
        waited = true;
        EXPECT_FALSE(sensitive());
        pointer().move_in(text(), 8, 8);
        keyboard().key(XK_F3);
    });
    EXPECT_EQ(block(files_.text(), "").status, 1);
    EXPECT_TRUE(waited);
}

TEST_F(Blocking, TheApplicationsRecordIsTheSameAfterwards) {
    put("a.txt", "abc\n");
    const GRX_EVENEMENT before = evt_global = patterned_event();
    when_ready("click beside it", [&] { pointer().click_in(widget_of(main_), 5, 190); });
    key(XK_F3);
    block(files_.text(), "a.txt");
    EXPECT_EQ(std::memcmp(&before, &evt_global, sizeof before), 0);
}

TEST_F(Blocking, AFinishAndAStartInsideACallback) {
    put("a.txt", "abc\n");
    const NoLeak no_leak;
    show();
    load(files_.text(), "a.txt");
    XtAddCallback(
        widget_called("Save"), XmNactivateCallback,
        [](Widget, XtPointer, XtPointer) {
            EXPECT_EQ(grx_fin_editeur(), 1);
            EXPECT_EQ(grx_debut_editeur(), 1);
            EXPECT_EQ(grx_editeur(), 0);
        },
        nullptr);
    click(widget_called("File"));
    ASSERT_TRUE(wait_for([&] { return is_viewable(widget_called("Save")); }));
    Widget old = shell();
    click(widget_called("Save"));
    ASSERT_TRUE(wait_for([&] { return shell() && shell() != old && is_viewable(shell()); }));
    drain();
    load(files_.text(), "a.txt");
    EXPECT_EQ(content(), "abc\n");
    EXPECT_EQ(grx_debut_editeur(), 0);
    EXPECT_EQ(grx_fin_editeur(), 1);
    drain();
}

// --- the window manager --------------------------------------------------------------------------------------------

class EditorWmTest : public BlockingOn<WmTest> {
  protected:
    bool framed() { return shell() && frame(shell()) != None; }
    void close_by_keys() {
        pointer().click_in(frame(shell()), 60, 12);
        keyboard().key(XK_F4, Mod1Mask);
    }
};

TEST_F(EditorWmTest, ClosingASavedTextLeavesTheNames) {
    put("a.txt", "abc\n");
    script_.when(
        "framed", [&] { return framed(); }, [&] { close_by_keys(); });
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.directory, files_.text());
    EXPECT_EQ(left.name, "a.txt");
    EXPECT_EQ(grx_fin_editeur(), 0);
}

TEST_F(EditorWmTest, ClosingAnUnsavedTextAsks) {
    put("a.txt", "abc\n");
    script_.when("framed", [&] { return framed(); });
    change();
    script_.then("close", [&] { close_by_keys(); });
    respond(XmDIALOG_CANCEL_BUTTON);
    script_.when(
        "still there", [&] { return prompt() == nullptr; },
        [&] {
            EXPECT_TRUE(is_open());
            EXPECT_EQ(content(), "xabc\n");
        });
    script_.then("again", [&] { close_by_keys(); });
    respond(XmDIALOG_OK_BUTTON);
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(bytes_of(path("a.txt")), "xabc\n");
    EXPECT_EQ(left.name, "a.txt");
}

TEST_F(EditorWmTest, KeysAndMenusUnderTheManager) {
    put("a.txt", "abc\n");
    script_.when("framed", [&] { return framed(); });
    change();
    pick("Save");
    script_.then("cut", [&] {
        keyboard().key(XK_Home, ControlMask);
        keyboard().key(XK_Right, ShiftMask);
        keyboard().key(XK_Delete, ShiftMask);
    });
    script_.then("paste twice", [&] {
        EXPECT_EQ(content(), "abc\n");
        keyboard().key(XK_Insert, ShiftMask);
        keyboard().key(XK_Insert, ShiftMask);
    });
    script_.then("save", [&] { EXPECT_EQ(content(), "xxabc\n"); });
    pick("Save");
    key(XK_F3);
    EXPECT_EQ(block(files_.text(), "a.txt").status, 1);
    EXPECT_EQ(bytes_of(path("a.txt")), "xxabc\n");
}

} // namespace
