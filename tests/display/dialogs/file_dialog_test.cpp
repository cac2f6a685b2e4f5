// The dialogs that choose files and directories: used by a real pointer and keyboard while they run their own loop.
#include "tests/display/dialog_kit.h"

#include "tests/support/fake_visual.h"

#include "host_f.h"

#include <clocale>
#include <cstring>
#include <map>
#include <optional>
#include <unistd.h>

namespace {

// Messages of the application; without them the default host's.
std::optional<std::map<INT, std::string>> messages;

} // namespace

extern "C" INT litmess(INT number, char* text) {
    if (!messages) return f_me_lire(number, text);
    const auto found = messages->find(number);
    text[0] = '\0';
    if (found == messages->end()) return 0;
    text[found->second.copy(text, HOST_MESSAGE_MAX - 1)] = '\0';
    return 1;
}

namespace {

using namespace grxtest;
namespace fs = std::filesystem;

struct Choice {
    INT result = -1;
    INT err = 77;
    std::string directory;
    std::vector<std::string> names;
};

struct Request {
    INT operation = HOST_CATAL_LECTURE;
    std::vector<Filter> filters{{"Plans", "DAT"}};
    std::string directory{};
    std::vector<std::string> names{};
    std::string title = "Choose";
};

using Names = std::vector<std::string>;

template <class Base>
class FileDialogs : public Dialogs<Base> {
  protected:
    Choice choose(const Request& request) {
        return this->script_.run([&] { return choose_now(request); });
    }

    Choice choose_now(const Request& request) {
        HostFiles proposed(request.directory.empty() ? this->files_.text() : request.directory, request.names);
        HostFilters filters(request.filters);
        HostFiles chosen;
        SCATAL catalogue{};
        catalogue.titre = host_text(request.title);
        catalogue.type_operation = static_cast<INT2>(request.operation);
        Choice choice;
        choice.result =
            select_fichier_x11(catalogue, proposed.record(), filters.record(), &chosen.record(), &choice.err);
        release(catalogue.titre);
        choice.directory = chosen.directory();
        choice.names = chosen.names();
        return choice;
    }

    Script& when_open(const std::string& what, Script::Action action) {
        return this->script_.when(
            "dialog: " + what, [this] { return this->file_box() != nullptr; }, std::move(action));
    }
    Script& when_asked(const std::string& what, Script::Action action) {
        return this->script_.when(
            "question: " + what, [this] { return this->question_box() != nullptr; }, std::move(action));
    }
    Script& when_answered(const std::string& what, Script::Action action) {
        return this->script_.when(
            "answered: " + what, [this] { return this->question_box() == nullptr; }, std::move(action));
    }
    void accept() { this->press(XmDIALOG_OK_BUTTON); }
    void cancel() { this->press(XmDIALOG_CANCEL_BUTTON); }
    void answer(unsigned char button) { this->click(XmMessageBoxGetChild(this->question_box(), button)); }
    void click_file(const std::string& name) { this->click_item(this->part(XmDIALOG_LIST), this->path(name)); }

    // Types a name of the folder, presses OK.
    void enter(const std::string& name) {
        this->retype_selection(this->path(name));
        accept();
    }
    Widget preview() {
        Widget box = this->file_box();
        std::vector<Widget> all;
        gather_tree(box, all);
        const auto found = std::ranges::find_if(all, [](Widget w) { return XmIsDrawnButton(w); });
        return found == all.end() ? nullptr : *found;
    }
    Window shell_window() { return XtWindow(XtParent(this->file_box())); }
    std::string shell_title() {
        char* name = nullptr;
        XFetchName(this->test_display(), shell_window(), &name);
        const std::string title(name != nullptr ? name : "");
        if (name != nullptr) XFree(name);
        return title;
    }
};

class FileDialog : public FileDialogs<DisplayTest> {
  protected:
    // As large as the screen, not mapped yet.
    Window covering_window() {
        XSetWindowAttributes attributes{};
        attributes.override_redirect = True;
        return XCreateWindow(test_display(), DefaultRootWindow(test_display()), 0, 0, 1280, 1024, 0, CopyFromParent,
            InputOutput, CopyFromParent, CWOverrideRedirect, &attributes);
    }
    bool stacked_over(Window upper, Window lower) {
        const auto order = children_of(test_display(), DefaultRootWindow(test_display()));
        return std::ranges::find(order, upper) > std::ranges::find(order, lower);
    }
    void TearDown() override {
        messages.reset();
        FileDialogs<DisplayTest>::TearDown();
    }
};

// --- reading ---------------------------------------------------------------------------------------------------------

TEST_F(FileDialog, AClickedFileIsChosen) {
    put("a.DAT");
    put("b.DAT");
    when_open("click", [&] { click_file("b.DAT"); });
    script_.then("ok", [&] {
        EXPECT_EQ(selection(), path("b.DAT"));
        accept();
    });
    const Choice choice = choose({});
    EXPECT_EQ(choice.result, 1);
    EXPECT_EQ(choice.err, 0);
    EXPECT_EQ(choice.directory, files_.text());
    EXPECT_EQ(choice.names, (Names{"b.DAT"}));
    EXPECT_EQ(file_box(), nullptr);
}

TEST_F(FileDialog, ADoubleClickChooses) {
    put("b.DAT");
    when_open("double click", [&] {
        click_file("b.DAT");
        pointer().click();
    });
    EXPECT_EQ(choose({}).names, (Names{"b.DAT"}));
}

TEST_F(FileDialog, TheChoiceIsAddedToTheRecord) {
    put("b.DAT");
    HostFiles proposed(files_.text()), chosen("/old", {"first"});
    HostFilters filters(std::vector<Filter>{{"Plans", "DAT"}});
    SCATAL catalogue{};
    INT err = 77;
    when_open("click", [&] { click_file("b.DAT"); });
    script_.then("ok", [&] { accept(); });
    EXPECT_EQ(script_.run([&] {
        return select_fichier_x11(catalogue, proposed.record(), filters.record(), &chosen.record(), &err);
    }),
        1);
    EXPECT_EQ(chosen.directory(), files_.text());
    EXPECT_EQ(chosen.names(), (Names{"first", "b.DAT"}));
    EXPECT_EQ(proposed.names(), Names{});
}

TEST_F(FileDialog, ATypedNameThatCanBeReadIsTakenAsItIs) {
    put("plan", "small");
    put("PLAN.DAT", "capitals");
    when_open("type", [&] { enter("plan"); });
    EXPECT_EQ(choose({}).names, (Names{"plan"}));
}

TEST_F(FileDialog, ATypedNameIsCompletedAndPutInCapitals) {
    put("Sub/PLAN.DAT");
    put("x.DAT");
    when_open("type", [&] { enter("Sub/plan"); });
    const Choice choice = choose({});
    EXPECT_EQ(choice.result, 1);
    EXPECT_EQ(choice.directory, path("Sub"));
    EXPECT_EQ(choice.names, (Names{"PLAN.DAT"}));
}

TEST_F(FileDialog, AnotherExtensionIsReplacedWhenReading) {
    put("PLAN.DAT");
    when_open("type", [&] { enter("plan.txt"); });
    EXPECT_EQ(choose({}).names, (Names{"PLAN.DAT"}));
}

TEST_F(FileDialog, ReturnInTheFieldChooses) {
    put("PLAN.DAT");
    when_open("type", [&] {
        retype_selection(path("plan"));
        keyboard().key(XK_Return);
    });
    EXPECT_EQ(choose({}).names, (Names{"PLAN.DAT"}));
}

TEST_F(FileDialog, AMissingFileKeepsTheDialogOpen) {
    when_open("type", [&] { enter("nowhere"); });
    script_.then("still open", [&] {
        ASSERT_NE(file_box(), nullptr);
        EXPECT_EQ(selection(), path("nowhere")) << "only writing corrects the field";
        cancel();
    });
    const Choice choice = choose({});
    EXPECT_EQ(choice.result, 0);
    EXPECT_EQ(choice.names, Names{});
}

TEST_F(FileDialog, AnEmptyNameKeepsTheDialogOpen) {
    for (INT operation : {HOST_CATAL_LECTURE, HOST_CATAL_ECRITURE}) {
        when_open("ok at once", [&] {
            EXPECT_EQ(selection(), files_.text() + "/");
            accept();
        });
        script_.then("nothing at all", [&] {
            ASSERT_NE(file_box(), nullptr);
            EXPECT_EQ(question_box(), nullptr);
            retype_selection("");
            accept();
        });
        script_.then("cancel", [&] {
            ASSERT_NE(file_box(), nullptr);
            cancel();
        });
        EXPECT_EQ(choose({.operation = operation}).result, 0);
    }
}

TEST_F(FileDialog, ADirectoryTypedWithoutItsFinalSlashIsTakenForReading) {
    put("Sub/a.DAT");
    when_open("type", [&] { enter("Sub"); });
    const Choice choice = choose({});
    EXPECT_EQ(choice.result, 1);
    EXPECT_EQ(choice.directory, files_.text());
    EXPECT_EQ(choice.names, (Names{"Sub"}));
}

TEST_F(FileDialog, AtTheRootTheDirectoryIsASlash) {
    when_open("type", [&] {
        retype_selection("/tmp");
        accept();
    });
    const Choice choice = choose({});
    EXPECT_EQ(choice.result, 1);
    EXPECT_EQ(choice.directory, "/");
    EXPECT_EQ(choice.names, (Names{"tmp"}));
}

TEST_F(FileDialog, EveryOtherOperationReads) {
    put("PLAN.DAT");
    for (INT operation : {0, 3, -1, 32767}) {
        when_open("type", [&] { enter("plan"); });
        EXPECT_EQ(choose({.operation = operation}).names, (Names{"PLAN.DAT"})) << operation;
    }
}

TEST_F(FileDialog, ANameWithoutADirectoryGivesNothing) {
    put("PLAN.DAT");
    ASSERT_EQ(chdir(files_.text().c_str()), 0);
    when_open("type", [&] {
        retype_selection("plan");
        accept();
    });
    const Choice choice = choose({});
    EXPECT_EQ(choice.result, 0);
    EXPECT_EQ(choice.directory, "");
    EXPECT_EQ(choice.err, 77);
    EXPECT_EQ(file_box(), nullptr);
}

// --- writing ---------------------------------------------------------------------------------------------------------

TEST_F(FileDialog, ANewFileIsWrittenInCapitalsWithTheExtension) {
    put("Sub/other");
    when_open("type", [&] { enter("Sub/plan"); });
    const Choice choice = choose({.operation = HOST_CATAL_ECRITURE});
    EXPECT_EQ(choice.result, 1);
    EXPECT_EQ(choice.err, 0);
    EXPECT_EQ(choice.directory, path("Sub"));
    EXPECT_EQ(choice.names, (Names{"PLAN.DAT"}));
    EXPECT_FALSE(there("Sub/PLAN.DAT")) << "choosing makes no file";
}

struct Correction {
    std::string extension, typed, corrected;
};

class CorrectedName : public FileDialogs<DisplayTest>, public testing::WithParamInterface<Correction> {};

TEST_P(CorrectedName, IsWrittenBackIntoTheField) {
    put(GetParam().corrected);
    when_open("type", [&] { enter(GetParam().typed); });
    when_asked("the field", [&] {
        EXPECT_EQ(selection(), path(GetParam().corrected));
        answer(XmDIALOG_OK_BUTTON);
    });
    const Choice choice = choose({.operation = HOST_CATAL_ECRITURE, .filters = {{"Plans", GetParam().extension}}});
    EXPECT_EQ(choice.names, (Names{GetParam().corrected}));
}

INSTANTIATE_TEST_SUITE_P(All, CorrectedName,
    testing::Values(Correction{"DAT", "plan", "PLAN.DAT"}, Correction{"DAT", "plan.dat", "PLAN.DAT"},
        Correction{"DAT", "plan.txt", "PLAN.DAT"}, Correction{"dat", "plan", "PLAN.dat"},
        Correction{"DAT", "a.b.c", "A.B.DAT"}, Correction{"", "plan.txt", "PLAN.TXT"}));

TEST_F(FileDialog, RefusingKeepsTheDialogOpen) {
    put("PLAN.DAT");
    for (const unsigned char button : {XmDIALOG_CANCEL_BUTTON, XmDIALOG_NONE}) {
        when_open("type", [&] { enter("plan"); });
        when_asked("no", [&, button] {
            if (button == XmDIALOG_NONE)
                ask_to_close(test_display(), XtWindow(XtParent(question_box())));
            else
                answer(button);
        });
        when_answered("still open", [&] {
            ASSERT_NE(file_box(), nullptr);
            EXPECT_EQ(selection(), path("PLAN.DAT"));
            enter("other");
        });
        EXPECT_EQ(choose({.operation = HOST_CATAL_ECRITURE}).names, (Names{"OTHER.DAT"}));
    }
}

TEST_F(FileDialog, ANewFileInAMissingDirectoryIsAcceptedWithoutAQuestion) {
    when_open("type", [&] { enter("missing/plan"); });
    const Choice choice = choose({.operation = HOST_CATAL_ECRITURE});
    EXPECT_EQ(choice.directory, path("missing"));
    EXPECT_EQ(choice.names, (Names{"PLAN.DAT"}));
}

TEST_F(FileDialog, ABareNameIsCorrectedAndGivesNothing) {
    ASSERT_EQ(chdir(files_.text().c_str()), 0);
    put("PLAN.DAT");
    when_open("type", [&] {
        retype_selection("plan");
        accept();
    });
    when_asked("the file in the working directory", [&] {
        EXPECT_EQ(selection(), "PLAN.DAT");
        answer(XmDIALOG_OK_BUTTON);
    });
    const Choice choice = choose({.operation = HOST_CATAL_ECRITURE});
    EXPECT_EQ(choice.result, 0);
    EXPECT_EQ(choice.err, 77);
}

// Who runs the tests may be allowed everything; what is asked for here counts for another user.
class AsSomebody {
  public:
    AsSomebody() {
        if (mine_ == 0) EXPECT_EQ(setreuid(nobody, static_cast<uid_t>(-1)), 0);
    }
    ~AsSomebody() {
        if (mine_ == 0) EXPECT_EQ(setreuid(mine_, static_cast<uid_t>(-1)), 0);
    }
    AsSomebody(const AsSomebody&) = delete;
    AsSomebody& operator=(const AsSomebody&) = delete;

  private:
    static constexpr uid_t nobody = 65534;
    const uid_t mine_ = getuid();
};

class FileRights : public FileDialog {
  protected:
    void SetUp() override {
        FileDialog::SetUp();
        fs::permissions(files_.path(), fs::perms(0755));
        for (const unsigned mode : {0000U, 0222U, 0444U}) fs::permissions(put(name_of(mode)), fs::perms(mode));
        somebody_.emplace();
    }
    void TearDown() override {
        somebody_.reset();
        FileDialog::TearDown();
    }
    static std::string name_of(unsigned mode) { return "F" + std::to_string(mode) + ".DAT"; }

  private:
    std::optional<AsSomebody> somebody_;
};

TEST_F(FileRights, WhatCanBeReadOrWrittenIsTakenForReading) {
    for (const unsigned mode : {0222U, 0444U}) {
        when_open("type", [&] { enter(name_of(mode)); });
        EXPECT_EQ(choose({}).names, (Names{name_of(mode)}));
    }
    when_open("type", [&] { enter(name_of(0)); });
    script_.then("still open", [&] {
        ASSERT_NE(file_box(), nullptr);
        cancel();
    });
    EXPECT_EQ(choose({}).result, 0);
}

TEST_F(FileRights, WhatCanBeReadOrWrittenIsAskedAboutForWriting) {
    for (const unsigned mode : {0222U, 0444U}) {
        when_open("type", [&] { enter(name_of(mode)); });
        when_asked("yes", [&] { answer(XmDIALOG_OK_BUTTON); });
        EXPECT_EQ(choose({.operation = HOST_CATAL_ECRITURE}).names, (Names{name_of(mode)}));
    }
    when_open("type", [&] { enter(name_of(0)); });
    EXPECT_EQ(choose({.operation = HOST_CATAL_ECRITURE}).names, (Names{name_of(0)})) << "counts as new";
}

// --- giving up -------------------------------------------------------------------------------------------------------

TEST_F(FileDialog, CancelLeavesTheRecordsAlone) {
    put("b.DAT");
    HostFiles proposed(files_.text(), {"b.DAT"}), chosen("/old", {"first"});
    HostFilters filters(std::vector<Filter>{{"Plans", "DAT"}});
    INT err = 77;
    when_open("cancel", [&] { cancel(); });
    EXPECT_EQ(script_.run(
                  [&] { return select_fichier_x11({}, proposed.record(), filters.record(), &chosen.record(), &err); }),
        0);
    EXPECT_EQ(err, 77);
    EXPECT_EQ(chosen.directory(), "/old");
    EXPECT_EQ(chosen.names(), (Names{"first"}));
}

TEST_F(FileDialog, ClosingGivesNothingAndTheNextOneWorks) {
    put("b.DAT");
    for (int i = 0; i < 3; ++i) {
        when_open("close", [&] { ask_to_close(test_display(), shell_window()); });
        EXPECT_EQ(choose({}).result, 0);
        EXPECT_EQ(std::ranges::count_if(whole_tree(), [](Widget w) { return XmIsFileSelectionBox(w); }), 1)
            << "it went away, it is not destroyed";
    }
    when_open("click", [&] { click_file("b.DAT"); });
    script_.then("ok", [&] { accept(); });
    EXPECT_EQ(choose({}).names, (Names{"b.DAT"}));
    EXPECT_EQ(std::ranges::count_if(whole_tree(), [](Widget w) { return XmIsFileSelectionBox(w); }), 0);
}

// What else happens meanwhile is the dialog's, but the application must not go on with a window that is gone.
TEST_F(FileDialog, TheEndOfAnotherWindowIsToldAfterwards) {
    const INT first = make(GRX_FEN_ALPHA), second = make(GRX_FEN_ALPHA), kept = make(GRX_FEN_ALPHA);
    drain();
    when_open("close others", [&] {
        grx_detruit_fenetre(second);
        grx_detruit_fenetre(first);
        cancel();
    });
    EXPECT_EQ(choose({}).result, 0);
    events.clear();
    GRX_EVENEMENT event{};
    for (const INT gone : {first, second}) {
        ASSERT_EQ(grx_digitaliseur(&event, 0), 1);
        EXPECT_EQ(event.destruction.type_evenement, GRX_EVT_DESTRUCTION);
        EXPECT_EQ(event.destruction.nofen, gone);
    }
    drain();
    EXPECT_EQ(events.count(GRX_EVT_DESTRUCTION), 0) << events.describe();
    EXPECT_NE(grx_recup_objet_fen(kept), nullptr);
}

TEST_F(FileDialog, AWindowThatTookTheNumberOfOneGoneIsNotToldGone) {
    const INT other = make(GRX_FEN_ALPHA);
    drain();
    when_open("close another", [&] {
        grx_detruit_fenetre(other);
        cancel();
    });
    EXPECT_EQ(choose({}).result, 0);
    ASSERT_EQ(make(GRX_FEN_ALPHA), other);
    events.clear();
    drain();
    EXPECT_EQ(events.count(GRX_EVT_DESTRUCTION), 0) << events.describe();
}

TEST_F(FileDialog, AWindowClosedAfterwardsIsNoneOfThoseThatWentMeanwhile) {
    const INT other = make(GRX_FEN_ALPHA);
    drain();
    const auto told = [&] {
        grx_detruit_fenetre(other);
        events.clear();
        drain();
        return events.count(GRX_EVT_DESTRUCTION);
    };
    const int usual = told();
    ASSERT_EQ(make(GRX_FEN_ALPHA), other);
    drain();
    when_open("cancel", [&] { cancel(); });
    EXPECT_EQ(choose({}).result, 0);
    EXPECT_EQ(told(), usual) << events.describe();
}

TEST_F(FileDialog, TheDeathOfTheMainWindowEndsIt) {
    when_open("destroy", [&] { grx_detruit_fenetre(main_); });
    const Choice choice = choose({});
    EXPECT_EQ(choice.result, 0);
    EXPECT_EQ(choice.names, Names{});
    EXPECT_EQ(choose_now({}).result, 0) << "there is no main window";
}

TEST_F(FileDialog, ANewMainWindowHasDialogsOfItsOwn) {
    char directory[GRX_CHEMIN_DIALOGUE_MAX] = "/tmp";
    char title[] = "Where";
    const auto choose_directory = [&] { return script_.run([&] { return select_repertoire_x11(title, directory); }); };
    for (const bool closed : {false, true}) {
        for (const bool directories : {false, true}) {
            when_open("end", [&] {
                if (closed) return ask_to_close(test_display(), shell_window());
                grx_detruit_fenetre(main_);
            });
            EXPECT_EQ(directories ? choose_directory() : choose({}).result, 0);
            if (closed) grx_detruit_fenetre(main_);
            drain();
            main_ = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE, 300, 200);
            grx_affecte_nofen_principale(main_);
            ASSERT_TRUE(wait_visible(widget_of(main_)));
            when_open("accept", [&] {
                retype_selection("/tmp");
                accept();
            });
            EXPECT_EQ(directories ? choose_directory() : choose({}).result, 1);
        }
    }
}

TEST_F(FileDialog, TheDeathOfTheMainWindowEndsTheQuestionToo) {
    put("PLAN.DAT");
    when_open("type", [&] { enter("plan"); });
    when_asked("destroy", [&] { grx_detruit_fenetre(main_); });
    EXPECT_EQ(choose({.operation = HOST_CATAL_ECRITURE}).result, 0);
}

TEST_F(FileDialog, TheDeathOfTheMainWindowEndsTheDirectoryDialog) {
    char directory[GRX_CHEMIN_DIALOGUE_MAX] = "/tmp";
    char title[] = "Where";
    when_open("destroy", [&] { grx_detruit_fenetre(main_); });
    EXPECT_EQ(script_.run([&] { return select_repertoire_x11(title, directory); }), 0);
    EXPECT_STREQ(directory, "/tmp");
}

// There the end of a window is put off until the callback returns.
TEST_F(FileDialog, TheDeathOfTheMainWindowEndsItInsideACallbackToo) {
    inside_a_callback([&] {
        when_open("destroy", [&] { grx_detruit_fenetre(main_); });
        EXPECT_EQ(choose({}).result, 0);
    });
}

TEST_F(FileDialog, TheDeathOfTheMainWindowEndsTheDirectoryDialogInsideACallbackToo) {
    char directory[GRX_CHEMIN_DIALOGUE_MAX] = "/tmp";
    char title[] = "Where";
    inside_a_callback([&] {
        when_open("destroy", [&] { grx_detruit_fenetre(main_); });
        EXPECT_EQ(script_.run([&] { return select_repertoire_x11(title, directory); }), 0);
    });
    EXPECT_STREQ(directory, "/tmp");
}

TEST_F(FileDialog, TheDeathOfTheMainWindowEndsTheQuestionAloneInsideACallbackToo) {
    inside_a_callback([&] {
        when_asked("destroy", [&] { grx_detruit_fenetre(main_); });
        EXPECT_EQ(script_.run([] { return question_suppression(); }), GRX_QUESTION_FERMEE);
    });
}

TEST_F(FileDialog, ASecondCallFromWithinGivesNothing) {
    put("b.DAT");
    when_open("second", [&] {
        const Choice second = choose_now({});
        EXPECT_EQ(second.result, 0);
        EXPECT_EQ(second.err, 77);
        EXPECT_EQ(second.names, Names{});
        click_file("b.DAT");
    });
    script_.then("ok", [&] { accept(); });
    EXPECT_EQ(choose({}).names, (Names{"b.DAT"}));
}

TEST_F(FileDialog, TheApplicationsRecordIsTheSameAfterwards) {
    put("b.DAT");
    char title[] = "Where";
    const GRX_EVENEMENT before = evt_global = patterned_event();
    when_open("click beside it", [&] { pointer().click_in(widget_of(main_), 5, 190); });
    script_.then("click", [&] { click_file("b.DAT"); });
    script_.then("ok", [&] { accept(); });
    EXPECT_EQ(choose({}).result, 1);
    EXPECT_EQ(std::memcmp(&before, &evt_global, sizeof before), 0);
    char directory[GRX_CHEMIN_DIALOGUE_MAX] = "/tmp";
    when_open("click beside it", [&] { pointer().click_in(widget_of(main_), 5, 190); });
    script_.then("cancel", [&] { cancel(); });
    script_.run([&] { return select_repertoire_x11(title, directory); });
    EXPECT_EQ(std::memcmp(&before, &evt_global, sizeof before), 0);
    when_asked("click beside it", [&] { pointer().click_in(widget_of(main_), 5, 190); });
    script_.then("yes", [&] { answer(XmDIALOG_OK_BUTTON); });
    script_.run([] { return question_suppression(); });
    EXPECT_EQ(std::memcmp(&before, &evt_global, sizeof before), 0);
}

TEST_F(FileDialog, ItIsRaisedWhenSomethingCoversIt) {
    Window cover = None;
    when_open("cover", [&] {
        cover = covering_window();
        XMapRaised(test_display(), cover);
        XSync(test_display(), False);
    });
    script_.when(
        "raised", [&] { return stacked_over(shell_window(), cover); },
        [&] {
            XDestroyWindow(test_display(), cover);
            XSync(test_display(), False);
        });
    script_.then("cancel", [&] { cancel(); });
    EXPECT_EQ(choose({}).result, 0);
}

// --- what it looks like ----------------------------------------------------------------------------------------------

std::vector<Widget> entries_of(Widget pulldown) {
    std::vector<Widget> entries;
    WidgetList list = nullptr;
    Cardinal count = 0;
    XtVaGetValues(pulldown, XmNchildren, &list, XmNnumChildren, &count, nullptr);
    for (Cardinal i = 0; i < count; ++i)
        if (XtClass(list[i]) == xmPushButtonWidgetClass) entries.push_back(list[i]);
    return entries;
}

std::map<INT, std::string> application_messages() {
    std::map<INT, std::string> result;
    for (INT n : {1245, 1246, 1250, 1251, 1315, 1335, 1336, 1066}) result[n] = "Nr" + std::to_string(n);
    return result;
}

TEST_F(FileDialog, TheLabelsAreTheApplications) {
    messages = application_messages();
    const std::map<INT, std::string> ok_labels{{1, "Nr1245"}, {2, "Nr1315"}, {0, "Nr1250"}, {7, "Nr1250"}};
    for (const auto& [operation, ok] : ok_labels) {
        when_open("labels", [&] {
            Widget box = file_box();
            EXPECT_EQ(text_resource(box, XmNokLabelString), ok);
            EXPECT_EQ(text_resource(part(XmDIALOG_OK_BUTTON), XmNlabelString), ok);
            EXPECT_EQ(text_resource(part(XmDIALOG_APPLY_BUTTON), XmNlabelString), "Nr1251");
            EXPECT_EQ(text_resource(part(XmDIALOG_CANCEL_BUTTON), XmNlabelString), "Nr1246");
            EXPECT_EQ(text_resource(part(XmDIALOG_FILTER_LABEL), XmNlabelString), "Nr1251");
            EXPECT_EQ(text_resource(part(XmDIALOG_SELECTION_LABEL), XmNlabelString), "Nr1335");
            EXPECT_EQ(text_resource(part(XmDIALOG_DIR_LIST_LABEL), XmNlabelString), "Nr1336");
            EXPECT_EQ(text_resource(part(XmDIALOG_LIST_LABEL), XmNlabelString), "Nr1066");
            EXPECT_EQ(shell_title(), "Open a plan");
            for (unsigned char which : {XmDIALOG_OK_BUTTON, XmDIALOG_FILTER_LABEL, XmDIALOG_LIST, XmDIALOG_DIR_LIST})
                EXPECT_EQ(font_of(part(which)), fontstruct) << int(which);
            cancel();
        });
        choose({.operation = operation, .title = "Open a plan"});
    }
}

TEST_F(FileDialog, TheToolkitsLabelsStandInForMissingOnes) {
    messages.emplace();
    char title[] = "Where";
    const auto look = [&] {
        EXPECT_EQ(text_resource(part(XmDIALOG_OK_BUTTON), XmNlabelString), "OK");
        EXPECT_EQ(text_resource(part(XmDIALOG_APPLY_BUTTON), XmNlabelString), "Filter");
        EXPECT_EQ(text_resource(part(XmDIALOG_CANCEL_BUTTON), XmNlabelString), "Cancel");
        EXPECT_EQ(text_resource(part(XmDIALOG_FILTER_LABEL), XmNlabelString), "Filter");
        EXPECT_EQ(text_resource(part(XmDIALOG_SELECTION_LABEL), XmNlabelString), "Selection");
        EXPECT_EQ(text_resource(part(XmDIALOG_DIR_LIST_LABEL), XmNlabelString), "Directories");
        cancel();
    };
    when_open("labels", look);
    choose({});
    when_open("labels", look);
    char directory[GRX_CHEMIN_DIALOGUE_MAX] = "";
    script_.run([&] { return select_repertoire_x11(title, directory); });
}

TEST_F(FileDialog, ItsPartsAreTheStatedOnes) {
    when_open("parts", [&] {
        Widget box = file_box();
        EXPECT_EQ(XtParent(XtParent(box)), widget_of(main_)) << "the main window's widget is the parent";
        EXPECT_FALSE(XtIsManaged(part(XmDIALOG_HELP_BUTTON)));
        EXPECT_EQ(resource<unsigned char>(box, XmNdialogStyle), XmDIALOG_FULL_APPLICATION_MODAL);
        EXPECT_EQ(resource<short>(part(XmDIALOG_TEXT), XmNcolumns), 48) << "room for whole paths";
        Widget drawn = preview();
        ASSERT_NE(drawn, nullptr);
        EXPECT_EQ(resource<Dimension>(drawn, XmNwidth), 80);
        EXPECT_EQ(resource<Dimension>(drawn, XmNheight), 80);
        EXPECT_EQ(resource<Dimension>(drawn, XmNmarginWidth), 0);
        EXPECT_EQ(resource<Dimension>(drawn, XmNmarginHeight), 0);
        EXPECT_EQ(resource<Dimension>(drawn, XmNhighlightThickness), 0);
        EXPECT_EQ(resource<unsigned char>(drawn, XmNalignment), XmALIGNMENT_CENTER);
        EXPECT_FALSE(resource<Boolean>(drawn, XmNrecomputeSize));
        Widget row = XtParent(drawn);
        EXPECT_EQ(XtClass(row), xmRowColumnWidgetClass);
        EXPECT_EQ(resource<unsigned char>(row, XmNorientation), XmHORIZONTAL);
        EXPECT_EQ(XtParent(row), box);
        Widget pulldown = widget_called("PullMenu"), option = widget_called("OptionMenu");
        ASSERT_NE(pulldown, nullptr);
        ASSERT_NE(option, nullptr);
        EXPECT_TRUE(is_viewable(option));
        EXPECT_EQ(resource<Widget>(option, XmNsubMenuId), pulldown);
        cancel();
    });
    choose({});
}

TEST_F(FileDialog, HasTheApplicationsFontAndColour) {
    grx_affecte_couleur_application(6);
    const auto colour = static_cast<Pixel>(grx_recup_couleur(6));
    put("PLAN.DAT");
    when_open("look", [&] {
        Widget option = widget_called("OptionMenu"), pulldown = widget_called("PullMenu"), row = XtParent(preview());
        for (Widget w : {file_box(), preview(), row, option, pulldown, entries_of(pulldown)[0]})
            EXPECT_EQ(resource<Pixel>(w, XmNbackground), colour) << XtName(w);
        for (Widget w : {part(XmDIALOG_TEXT), entries_of(pulldown)[0], XmOptionButtonGadget(option)})
            EXPECT_EQ(font_of(w), fontstruct) << XtName(w);
        enter("plan");
    });
    when_asked("look", [&] {
        EXPECT_EQ(resource<Pixel>(question_box(), XmNbackground), colour);
        for (const unsigned char which : {XmDIALOG_MESSAGE_LABEL, XmDIALOG_OK_BUTTON})
            EXPECT_EQ(font_of(XmMessageBoxGetChild(question_box(), which)), fontstruct) << int(which);
        answer(XmDIALOG_CANCEL_BUTTON);
    });
    when_answered("cancel", [&] { cancel(); });
    choose({.operation = HOST_CATAL_ECRITURE});
}

TEST_F(FileDialog, ItsSizesStayWithAnImage) {
    std::vector<uchar> pixels(200 * 200, 3);
    std::string bmp = path("BIG.BMP"), nowhere;
    ecrit_fichier_bitmap(nowhere.data(), bmp.data(), pixels.data(), 200, 200);
    put("BIG.DAT");
    Area before{};
    when_open("click", [&] {
        before = server_area(test_display(), shell_window());
        click_file("BIG.DAT");
    });
    script_.then("look", [&] {
        EXPECT_EQ(resource<Dimension>(preview(), XmNwidth), 80);
        EXPECT_EQ(resource<Dimension>(preview(), XmNheight), 80);
        EXPECT_EQ(server_area(test_display(), shell_window()), before);
        cancel();
    });
    choose({});
}

// --- filters ---------------------------------------------------------------------------------------------------------

TEST_F(FileDialog, ASingleFilterCannotBeChanged) {
    when_open("look", [&] {
        EXPECT_FALSE(XtIsSensitive(widget_called("OptionMenu")));
        const auto entries = entries_of(widget_called("PullMenu"));
        ASSERT_EQ(entries.size(), 1U);
        EXPECT_FALSE(XtIsSensitive(entries[0]));
        EXPECT_EQ(text_resource(XmOptionButtonGadget(widget_called("OptionMenu")), XmNlabelString), "Plans");
        EXPECT_STREQ(XtName(entries[0]), "Plans");
        EXPECT_EQ(text_resource(entries[0], XmNlabelString), "Plans");
        EXPECT_EQ(text_resource(file_box(), XmNpattern), "*.DAT");
        cancel();
    });
    choose({});
}

TEST_F(FileDialog, ChoosingAFilterChangesThePatternOnly) {
    put("a.DAT");
    put("b.TXT");
    XtSetMultiClickTime(x11_disp, 1); // letting go is no click that leaves the menu open
    when_open("open the menu", [&] {
        EXPECT_EQ(list_items(part(XmDIALOG_LIST)), (Names{path("a.DAT")}));
        EXPECT_TRUE(XtIsSensitive(widget_called("OptionMenu")));
        Widget box = XmOptionButtonGadget(widget_called("OptionMenu"));
        pointer().move_in(widget_called("OptionMenu"), resource<Position>(box, XmNx) + 8,
            resource<Position>(box, XmNy) + resource<Dimension>(box, XmNheight) / 2);
        pointer().press();
    });
    script_.when(
        "posted", [&] { return is_viewable(widget_called("Texts")); },
        [&] { pointer().move_in(widget_called("Texts"), 10, 8); });
    script_.then("let go", [&] { pointer().release(); });
    script_.when(
        "filtered", [&] { return list_items(part(XmDIALOG_LIST)) == Names{path("b.TXT")}; },
        [&] {
            EXPECT_EQ(text_resource(file_box(), XmNpattern), "*.TXT");
            enter("new");
        });
    const Choice choice = choose({.operation = HOST_CATAL_ECRITURE, .filters = {{"Plans", "DAT"}, {"Texts", "TXT"}}});
    EXPECT_EQ(choice.names, (Names{"NEW.DAT"})) << "the extension stays the first filter's";
}

TEST_F(FileDialog, TwentyFiltersAtMost) {
    std::vector<Filter> filters;
    for (int i = 0; i < 21; ++i) filters.push_back({"Kind" + std::to_string(i), "E" + std::to_string(i)});
    put("x.E19");
    put("y.E0");
    when_open("open the menu", [&] {
        const auto entries = entries_of(widget_called("PullMenu"));
        ASSERT_EQ(entries.size(), 20U);
        for (std::size_t i = 0; i < entries.size(); ++i) {
            EXPECT_EQ(XtName(entries[i]), "Kind" + std::to_string(i));
            EXPECT_TRUE(XtIsSensitive(entries[i]));
        }
        XtCallActionProc(entries[19], "ArmAndActivate", nullptr, nullptr, 0);
    });
    script_.when(
        "filtered", [&] { return list_items(part(XmDIALOG_LIST)) == Names{path("x.E19")}; },
        [&] {
            EXPECT_EQ(text_resource(file_box(), XmNpattern), "*.E19");
            cancel();
        });
    choose({.filters = filters});
}

TEST_F(FileDialog, WithoutFiltersEveryFileIsShownAndNoExtensionEnforced) {
    put("a.DAT");
    put("b");
    when_open("look", [&] {
        EXPECT_EQ(text_resource(file_box(), XmNpattern), "*");
        EXPECT_EQ(list_items(part(XmDIALOG_LIST)), (Names{path("a.DAT"), path("b")}));
        EXPECT_EQ(widget_called("OptionMenu"), nullptr);
        EXPECT_NE(preview(), nullptr);
        enter("new.txt");
    });
    EXPECT_EQ(choose({.operation = HOST_CATAL_ECRITURE, .filters = {}}).names, (Names{"NEW.TXT"}));
}

TEST_F(FileDialog, FiltersOfNonsenseAreHarmless) {
    std::vector<STRING> nothing(3);
    std::vector<STRING> texts{host_text(std::string(500, 'm')), host_text("")};
    const SFILTRE records[] = {{nullptr, nullptr, 3}, {nothing.data(), nothing.data(), 3}, {nothing.data(), nullptr, 2},
        {nullptr, nullptr, -1}, {nullptr, nullptr, -32768}, {texts.data(), texts.data(), 2}};
    for (const SFILTRE& record : records) {
        HostFiles chosen;
        INT err = 77;
        when_open("cancel", [&] { cancel(); });
        EXPECT_EQ(script_.run([&] { return select_fichier_x11({}, {}, record, &chosen.record(), &err); }), 0);
    }
    when_open("cut", [&] {
        EXPECT_EQ(text_resource(file_box(), XmNpattern), "*." + std::string(77, 'm'));
        EXPECT_EQ(text_resource(entries_of(widget_called("PullMenu"))[0], XmNlabelString), std::string(79, 'm'));
        cancel();
    });
    script_.run([&] { return select_fichier_x11({}, {}, records[5], nullptr, nullptr); });
    for (auto& text : texts) release(text);
}

// --- default file ----------------------------------------------------------------------------------------------------

TEST_F(FileDialog, TheProposedFileIsSelected) {
    for (int i = 0; i < 60; ++i) put("f" + std::to_string(100 + i) + ".DAT");
    for (const char* end : {"", "/"}) {
        when_open("look", [&] {
            EXPECT_EQ(selected_items(part(XmDIALOG_LIST)), (Names{path("f150.DAT")}));
            EXPECT_EQ(selection(), path("f150.DAT"));
            Position x, y;
            Dimension w, h;
            EXPECT_TRUE(XmListPosToBounds(part(XmDIALOG_LIST), 51, &x, &y, &w, &h)) << "scrolled to it";
            accept();
        });
        const Choice choice = choose({.directory = files_.text() + end, .names = {"f150.DAT", "f151.DAT"}});
        EXPECT_EQ(choice.names, (Names{"f150.DAT"}));
        EXPECT_EQ(choice.directory, files_.text());
    }
}

TEST_F(FileDialog, AnOddProposalIsSelected) {
    for (const std::string name : {"\xe9t\xe9.DAT", "with blank.DAT", "star[1]?.DAT"}) {
        put("odd dir\xe9/" + name);
        when_open("look", [&] {
            EXPECT_EQ(selection(), path("odd dir\xe9/" + name));
            cancel();
        });
        choose({.directory = path("odd dir\xe9"), .names = {name}});
    }
}

TEST_F(FileDialog, AProposedFileOfTheRootIsSelected) {
    const std::string name = "grx-test-" + std::to_string(getpid()) + ".DAT";
    std::FILE* const made = std::fopen(("/" + name).c_str(), "w"); // not everybody may
    if (made) std::fclose(made);
    when_open("look", [&] {
        EXPECT_EQ(selected_items(part(XmDIALOG_LIST)), made ? Names{"/" + name} : Names{});
        cancel();
    });
    choose({.directory = "/", .names = {name}});
    if (made) fs::remove("/" + name);
}

TEST_F(FileDialog, AProposedFileThatIsNotThereStandsInTheField) {
    put("a.DAT");
    for (const INT operation : {HOST_CATAL_LECTURE, HOST_CATAL_ECRITURE}) {
        when_open("look", [&] {
            EXPECT_EQ(selected_items(part(XmDIALOG_LIST)), Names{});
            EXPECT_EQ(list_items(part(XmDIALOG_LIST)), (Names{path("a.DAT")}));
            EXPECT_EQ(selection(), path("b.DAT"));
            accept();
        });
        if (operation == HOST_CATAL_LECTURE)
            script_.then("there is no such file", [&] {
                ASSERT_NE(file_box(), nullptr);
                cancel();
            });
        const Choice choice = choose({.operation = operation, .names = {"b.DAT"}});
        EXPECT_EQ(choice.names, operation == HOST_CATAL_ECRITURE ? Names{"B.DAT"} : Names{});
    }
}

TEST_F(FileDialog, AProposedFileOfAnotherKindStandsInTheField) {
    put("letter.txt");
    when_open("ok", [&] {
        EXPECT_EQ(selection(), path("letter.txt"));
        accept();
    });
    EXPECT_EQ(choose({.names = {"letter.txt"}}).names, (Names{"letter.txt"}));
}

TEST_F(FileDialog, TheDirectoriesAreWalked) {
    put("Sub/deep.DAT");
    put("up.DAT");
    when_open("go down", [&] {
        click_item(part(XmDIALOG_DIR_LIST), path("Sub"));
        pointer().click();
    });
    script_.when(
        "down", [&] { return list_items(part(XmDIALOG_LIST)) == Names{path("Sub/deep.DAT")}; },
        [&] { click_file("Sub/deep.DAT"); });
    script_.then("ok", [&] { accept(); });
    const Choice choice = choose({});
    EXPECT_EQ(choice.directory, path("Sub"));
    EXPECT_EQ(choice.names, (Names{"deep.DAT"}));
}

// --- names -----------------------------------------------------------------------------------------------------------

TEST_F(FileDialog, AnyNameCanBeChosen) {
    const Names names{"with blank.DAT", "\xe9t\xe9.DAT", "caf\xc3\xa9.DAT", "a;b&c|d.DAT", "$HOME`id`.DAT", "'q\"u.DAT",
        "-leading.DAT", "back\\slash.DAT", "star[1]?.DAT", "100%s%n.DAT", ".DAT.DAT"};
    for (const auto& name : names) put("odd dir\xe9/" + name);
    for (const auto& name : names) {
        when_open(name, [&] { click_item(part(XmDIALOG_LIST), path("odd dir\xe9/" + name)); });
        script_.then("ok", [&] { accept(); });
        const Choice choice = choose({.directory = path("odd dir\xe9")});
        EXPECT_EQ(choice.names, (Names{name}));
        EXPECT_EQ(choice.directory, path("odd dir\xe9"));
    }
}

TEST_F(FileDialog, ControlCharactersAreRefused) {
    const Names names{"tab\tbed.DAT", "line\nfeed.DAT", "esc\033ape.DAT", "del\177ete.DAT", "\001.DAT"};
    for (const auto& name : names) put(name);
    for (const INT operation : {HOST_CATAL_LECTURE, HOST_CATAL_ECRITURE}) {
        for (const auto& name : names) {
            when_open(name, [&] {
                XmTextFieldSetString(part(XmDIALOG_TEXT), const_cast<char*>(path(name).c_str()));
                accept();
            });
            script_.then("refused", [&] {
                EXPECT_EQ(question_box(), nullptr);
                ASSERT_NE(file_box(), nullptr);
                cancel();
            });
            EXPECT_EQ(choose({.operation = operation}).result, 0);
        }
    }
    when_open("proposed", [&] { accept(); });
    script_.then("refused", [&] {
        ASSERT_NE(file_box(), nullptr);
        cancel();
    });
    EXPECT_EQ(choose({.operation = HOST_CATAL_ECRITURE, .names = {"new\nname.DAT"}}).result, 0);
}

TEST_F(FileDialog, LongNamesAreTakenWholeOrNotAtAll) {
    std::string deep = files_.text();
    while (deep.size() + 1 + 200 < 990) deep += "/" + std::string(200, 'd');
    for (INT operation : {HOST_CATAL_LECTURE, HOST_CATAL_ECRITURE}) {
        const std::string fits = std::string(999 - 4 - deep.size() - 1, 'N') + ".DAT";
        const std::string too_long = std::string(1000 - 4 - deep.size() - 1, 'N') + ".DAT";
        const std::string no_room(998 - deep.size() - 1, 'N'); // for an extension
        ASSERT_EQ((deep + "/" + fits).size(), 999U);
        if (operation == HOST_CATAL_LECTURE) {
            fs::create_directories(deep);
            ASSERT_NE(std::fclose(std::fopen((deep + "/" + fits).c_str(), "w")), EOF);
            ASSERT_NE(std::fclose(std::fopen((deep + "/" + too_long).c_str(), "w")), EOF);
            ASSERT_NE(std::fclose(std::fopen((deep + "/" + no_room).c_str(), "w")), EOF);
        } else {
            fs::remove(deep + "/" + fits);
            fs::remove(deep + "/" + too_long);
            fs::remove(deep + "/" + no_room);
        }
        when_open("too long", [&] {
            XmTextFieldSetString(part(XmDIALOG_TEXT), const_cast<char*>((deep + "/" + too_long).c_str()));
            accept();
        });
        script_.then("refused", [&] {
            ASSERT_NE(file_box(), nullptr);
            EXPECT_EQ(question_box(), nullptr);
            XmTextFieldSetString(part(XmDIALOG_TEXT), const_cast<char*>((deep + "/" + std::string(5000, 'N')).c_str()));
            accept();
        });
        script_.then("much too long", [&] {
            ASSERT_NE(file_box(), nullptr);
            const std::string bare = deep + "/" + std::string(no_room.size(), 'n');
            XmTextFieldSetString(part(XmDIALOG_TEXT), const_cast<char*>(bare.c_str()));
            accept();
        });
        script_.then("too long with its extension", [&] {
            ASSERT_NE(file_box(), nullptr);
            XmTextFieldSetString(part(XmDIALOG_TEXT), const_cast<char*>((deep + "/" + fits).c_str()));
            accept();
        });
        const Choice choice = choose({.operation = operation});
        EXPECT_EQ(choice.result, 1);
        EXPECT_EQ(choice.directory, deep);
        EXPECT_EQ(choice.names, (Names{fits}));
    }
}

TEST_F(FileDialog, FiveThousandFiles) {
    for (int i = 0; i < 5000; ++i) put("file" + std::to_string(10000 + i) + ".DAT", "");
    when_open("all there", [&] {
        EXPECT_EQ(list_items(part(XmDIALOG_LIST)).size(), 5000U);
        click_file("file14999.DAT");
    });
    script_.then("ok", [&] { accept(); });
    EXPECT_EQ(choose({}).names, (Names{"file14999.DAT"}));
}

class FileDialogInUtf8 : public FileDialog {
  protected:
    void before_start() override {
        FileDialog::before_start();
        ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    }
};

// Window managers run in locales of their own: a title reaches them as that of every window does.
TEST_F(FileDialogInUtf8, ItsTitleIsWrittenAsThatOfTheMainWindow) {
    struct Title {
        std::string bytes;
        Atom encoding = None;
    };
    const auto title_of = [this](Window window) {
        XTextProperty property{};
        XGetWMName(test_display(), window, &property);
        const Title title{property.value ? reinterpret_cast<char*>(property.value) : "", property.encoding};
        XFree(property.value);
        return title;
    };
    char accented[] = "R\351pertoire";
    grx_change_titre_fenetre(main_, accented);
    Title dialog;
    when_open("look", [&] {
        dialog = title_of(shell_window());
        cancel();
    });
    choose({.title = accented});
    drain();
    const Title window = title_of(XtWindow(shell_of(main_)));
    EXPECT_EQ(dialog.bytes, window.bytes);
    EXPECT_EQ(dialog.encoding, window.encoding);
    EXPECT_NE(dialog.bytes.find("pertoire"), std::string::npos);
}

TEST_F(FileDialogInUtf8, AccentedNamesCanBeChosen) {
    const Names names{"caf\xc3\xa9.DAT", "plan.DAT"};
    for (const auto& name : names) put(name);
    for (const auto& name : names) {
        when_open(name, [&] { click_file(name); });
        script_.then("ok", [&] { accept(); });
        EXPECT_EQ(choose({}).names, (Names{name}));
    }
}

TEST_F(FileDialogInUtf8, AnAccentedProposalIsSelected) {
    put("plan.DAT");
    put("d\u00e9p\u00f4t/caf\u00e9.DAT");
    when_open("look", [&] {
        EXPECT_EQ(selected_items(part(XmDIALOG_LIST)), (Names{path("d\u00e9p\u00f4t/caf\u00e9.DAT")}));
        accept();
    });
    const Choice choice = choose({.directory = path("d\u00e9p\u00f4t"), .names = {"caf\u00e9.DAT"}});
    EXPECT_EQ(choice.names, (Names{"caf\u00e9.DAT"}));
}

// The bytes of the application's one-byte font.
TEST_F(FileDialogInUtf8, LatinLabelsAreWhole) {
    when_open("labels", [&] {
        EXPECT_EQ(text_resource(part(XmDIALOG_SELECTION_LABEL), XmNlabelString), "S\xe9lection");
        EXPECT_EQ(text_resource(part(XmDIALOG_DIR_LIST_LABEL), XmNlabelString), "R\xe9pertoires");
        EXPECT_EQ(font_of(part(XmDIALOG_DIR_LIST_LABEL)), fontstruct);
        cancel();
    });
    choose({});
}

// --- preview ---------------------------------------------------------------------------------------------------------

// Where `picture` is found whole in `area`; -1,-1 when it is not.
Point place_of(const Pixels& area, const Pixels& picture) {
    for (int y = 0; y + picture.height <= area.height; ++y)
        for (int x = 0; x + picture.width <= area.width; ++x)
            if (area.part({x, y, picture.width, picture.height}) == picture) return {x, y};
    return {-1, -1};
}

class Preview : public FileDialog {
  protected:
    static constexpr int width = 20, height = 10;

    void SetUp() override {
        FileDialog::SetUp();
        XtSetMultiClickTime(x11_disp, 1); // clicks on different files are no double click
    }

    static std::uint32_t pixel_of_rgb(const INT* rgb) {
        return static_cast<std::uint32_t>(rgb[0] << 16 | rgb[1] << 8 | rgb[2]);
    }
    static std::uint32_t expected_pixel(INT colours, INT index) {
        INT rgb[3] = {};
        if (test_planes() == 8)
            return static_cast<std::uint32_t>(
                colours == 16 ? grx_recup_couleur_icone(index) : grx_recup_couleur(index));
        colours == 16 ? grx_recup_rgb_icone(index, rgb) : grx_recup_rgb(index, rgb);
        return pixel_of_rgb(rgb);
    }
    static INT index_at(INT colours, int x, int y, int variant) {
        return (x + 3 * y + variant) % (colours == 16 ? 16 : 24);
    }

    Pixels picture(const std::string& name, INT colours, int variant = 0) {
        std::vector<uchar> pixels;
        Pixels expected{width, height, {}};
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const INT index = index_at(colours, x, y, variant);
                pixels.push_back(static_cast<uchar>(index));
                expected.values.push_back(expected_pixel(colours, index));
            }
        std::string full = path(name), nowhere;
        const auto write = colours == 16 ? ecrit_fichier_bitmap : ecrit_fichier_bitmap_256;
        EXPECT_EQ(write(nowhere.data(), full.data(), pixels.data(), width, height), 0);
        return expected;
    }
    Pixels shown() { return grab(x11_disp, XtWindow(preview())); }
    static bool in_the_middle(const Point& place) {
        return std::abs(place.x - (80 - width) / 2) <= 1 && std::abs(place.y - (80 - height) / 2) <= 1;
    }
};

TEST_F(Preview, ShowsTheImagesOfTheChosenFiles) {
    put("a.DAT");
    put("b.DAT");
    put("c.DAT");
    const Pixels first = picture("a.BMP", 16), second = picture("b.BMP", 256);
    Pixels kept;
    when_open("nothing yet", [&] {
        EXPECT_EQ(place_of(shown(), first), (Point{-1, -1}));
        click_file("a.DAT");
    });
    script_.then("16 colours", [&] {
        const Point place = place_of(shown(), first);
        EXPECT_TRUE(in_the_middle(place)) << place.x << "," << place.y;
        click_file("b.DAT");
    });
    script_.then("256 colours", [&] {
        const Point place = place_of(kept = shown(), second);
        EXPECT_TRUE(in_the_middle(place)) << place.x << "," << place.y;
        click_file("c.DAT");
    });
    script_.then("without an image it stays", [&] {
        EXPECT_EQ(selection(), path("c.DAT"));
        EXPECT_TRUE(same(shown(), kept));
        accept();
    });
    EXPECT_EQ(choose({}).names, (Names{"c.DAT"}));
}

TEST_F(Preview, IsEmptyAtFirst) {
    put("a.DAT");
    when_open("look", [&] {
        const Pixels inside = shown().part({8, 8, 64, 64});
        EXPECT_EQ(inside.count_other(inside.at(0, 0)), 0) << "not even its own name";
        cancel();
    });
    choose({});
}

TEST_F(Preview, GivesEachImageUpForTheNext) {
    for (const std::string name : {"a", "b"}) {
        put(name + ".DAT");
        picture(name + ".BMP", 16, name == "a" ? 0 : 5);
    }
    std::map<std::string, unsigned> before;
    const auto click_both = [&] {
        when_open("first", [&] { click_file("a.DAT"); });
        script_.then("second", [&] { click_file("b.DAT"); });
    };
    click_both();
    script_.then("count", [&] { before = server_resources(test_display(), x_window(main_)); });
    click_both();
    click_both();
    script_.then("count again", [&] {
        EXPECT_EQ(server_resources(test_display(), x_window(main_)), before);
        cancel();
    });
    choose({});
}

// What the application draws afterwards is drawn as it had set it.
TEST_F(Preview, LeavesTheDrawingContextReset) {
    put("a.DAT");
    const Pixels image = picture("a.BMP", 16);
    when_open("click", [&] {
        XSetFunction(x11_disp, g_c, GXxor);
        click_file("a.DAT");
    });
    script_.then("look", [&] {
        EXPECT_TRUE(in_the_middle(place_of(shown(), image)));
        XGCValues values{};
        ASSERT_NE(XGetGCValues(x11_disp, g_c, GCFunction, &values), 0);
        EXPECT_EQ(values.function, GXcopy);
        cancel();
    });
    choose({});
}

TEST_F(Preview, SurvivesBeingCovered) {
    put("a.DAT");
    const Pixels image = picture("a.BMP", 16);
    when_open("click", [&] { click_file("a.DAT"); });
    script_.then("expose", [&] { XClearArea(x11_disp, XtWindow(preview()), 0, 0, 0, 0, True); });
    script_.then("look", [&] {
        EXPECT_TRUE(in_the_middle(place_of(shown(), image)));
        cancel();
    });
    choose({});
}

TEST_F(Preview, FollowsTheProposedFile) {
    put("a.DAT");
    const Pixels image = picture("a.BMP", 16);
    when_open("look", [&] {
        EXPECT_TRUE(in_the_middle(place_of(shown(), image)));
        cancel();
    });
    choose({.names = {"a.DAT"}});
}

TEST_F(Preview, ABrokenImageLeavesItAlone) {
    put("a.DAT");
    put("b.DAT");
    put("b.BMP", "BM, but nothing more");
    const Pixels image = picture("a.BMP", 16);
    Pixels kept;
    when_open("click", [&] { click_file("a.DAT"); });
    script_.then("click", [&] {
        kept = shown();
        click_file("b.DAT");
    });
    script_.then("look", [&] {
        EXPECT_EQ(selection(), path("b.DAT"));
        EXPECT_TRUE(same(shown(), kept));
        cancel();
    });
    choose({});
}

TEST_F(Preview, ShortMemoryLeavesItAlone) {
    put("a.DAT");
    put("b.DAT");
    const Pixels first = picture("a.BMP", 256), second = picture("b.BMP", 16, 5);
    when_open("click", [&] { click_file("a.DAT"); });
    script_.then("fail", [&] {
        ASSERT_TRUE(in_the_middle(place_of(shown(), first)));
        std::string image = path("b.BMP");
        const int failures = fail_each_allocation([&] {
            affiche_bitmap_fichier(image.data(), preview());
            if (!heap().failed()) return;
            XClearArea(x11_disp, XtWindow(preview()), 0, 0, 0, 0, True);
            XSync(x11_disp, False);
            while (XtAppPending(contexte) & XtIMXEvent) XtAppProcessEvent(contexte, XtIMXEvent);
            EXPECT_TRUE(in_the_middle(place_of(shown(), first)));
        });
        EXPECT_GT(failures, 1);
    });
    script_.then("all is there", [&] {
        EXPECT_TRUE(in_the_middle(place_of(shown(), second)));
        cancel();
    });
    choose({});
}

TEST_F(FileDialog, TheNameOfTheImageIsBMP) {
    char image[HOST_CHEMIN_MAX] = "?";
    std::string name = put("dir.d/plan.DAT");
    EXPECT_EQ(recup_bitmap_fichier(name.data(), image), 0);
    EXPECT_EQ(std::string(image), path("dir.d/plan.BMP"));
    put("dir.d/plan.BMP");
    EXPECT_NE(recup_bitmap_fichier(name.data(), image), 0);
    EXPECT_EQ(std::string(image), path("dir.d/plan.BMP"));
    name = path("dir.d/none");
    EXPECT_EQ(recup_bitmap_fichier(name.data(), image), 0);
    EXPECT_EQ(std::string(image), path("dir.d/none.BMP"));
}

// --- the question ----------------------------------------------------------------------------------------------------

struct Question {
    std::string message; // "" for none
    std::string text, yes, no;
};

class QuestionText : public FileDialogs<DisplayTest>, public testing::WithParamInterface<Question> {
  protected:
    void TearDown() override {
        messages.reset();
        FileDialogs<DisplayTest>::TearDown();
    }
};

TEST_P(QuestionText, IsCutIntoQuestionAndLabels) {
    messages.emplace();
    if (!GetParam().message.empty()) (*messages)[83] = GetParam().message;
    when_asked("look", [&] {
        Widget box = question_box();
        EXPECT_EQ(text_resource(box, XmNmessageString), GetParam().text);
        EXPECT_EQ(text_resource(XmMessageBoxGetChild(box, XmDIALOG_OK_BUTTON), XmNlabelString), GetParam().yes);
        EXPECT_EQ(text_resource(XmMessageBoxGetChild(box, XmDIALOG_CANCEL_BUTTON), XmNlabelString), GetParam().no);
        EXPECT_EQ(resource<unsigned char>(box, XmNdialogType), XmDIALOG_QUESTION);
        EXPECT_FALSE(is_viewable(XmMessageBoxGetChild(box, XmDIALOG_HELP_BUTTON)));
        answer(XmDIALOG_OK_BUTTON);
    });
    EXPECT_EQ(script_.run([] { return question_suppression(); }), 1);
}

INSTANTIATE_TEST_SUITE_P(All, QuestionText,
    testing::Values(Question{"", "Replace File?", "Yes", "No"},
        Question{"Ecraser ? -Oui -Non", "Ecraser ?", "Oui", "Non"},
        Question{"Remplace-t-on ? -Oui, oui -Non-non", "Remplace-t-on ?", "Oui, oui", "Non-non"},
        Question{"Vraiment?-Ja-Nein", "Vraiment?", "Ja", "Nein"}, Question{"Vraiment?", "Vraiment?", "OK", "Cancel"},
        Question{"Vraiment? -Ja", "Vraiment?", "Ja", "Cancel"},
        Question{"\xe9"
                 "craser ? -Oui -Non",
            "\xe9"
            "craser ?",
            "Oui", "Non"}));

TEST_F(FileDialog, TheQuestionHasThreeAnswers) {
    for (int i = 0; i < 2; ++i) {
        when_asked("yes", [&] { answer(XmDIALOG_OK_BUTTON); });
        EXPECT_EQ(script_.run([] { return question_suppression(); }), GRX_QUESTION_OUI);
        when_asked("no", [&] { answer(XmDIALOG_CANCEL_BUTTON); });
        EXPECT_EQ(script_.run([] { return question_suppression(); }), GRX_QUESTION_NON);
        when_asked("close", [&] { ask_to_close(test_display(), XtWindow(XtParent(question_box()))); });
        EXPECT_EQ(script_.run([] { return question_suppression(); }), GRX_QUESTION_FERMEE);
    }
}

TEST_F(FileDialog, WithoutMemoryTheAnswerIsNoAndNothingIsAsked) {
    const NoLeak no_leak;
    heap().fail_at(1);
    EXPECT_EQ(question_suppression(), GRX_QUESTION_NON);
    EXPECT_TRUE(heap().failed());
    heap().fail_never();
    EXPECT_EQ(question_box(), nullptr);
}

TEST_F(FileDialog, TheQuestionHasTheTitleOfWhatAsks) {
    const auto title_of_question = [&] {
        char* name = nullptr;
        XFetchName(test_display(), XtWindow(XtParent(question_box())), &name);
        const std::string title(name != nullptr ? name : "");
        if (name != nullptr) XFree(name);
        return title;
    };
    put("PLAN.DAT");
    when_open("type", [&] { enter("plan"); });
    when_asked("of the dialog", [&] {
        EXPECT_EQ(title_of_question(), "Enregistrer sous");
        answer(XmDIALOG_OK_BUTTON);
    });
    EXPECT_EQ(choose({.operation = HOST_CATAL_ECRITURE, .title = "Enregistrer sous"}).result, 1);
    char* main_title = nullptr;
    XFetchName(test_display(), XtWindow(grx_recherche_shell(widget_of(main_))), &main_title);
    ASSERT_NE(main_title, nullptr);
    when_asked("alone", [&] {
        EXPECT_EQ(title_of_question(), main_title);
        answer(XmDIALOG_OK_BUTTON);
    });
    EXPECT_EQ(script_.run([] { return question_suppression(); }), GRX_QUESTION_OUI);
    XFree(main_title);
}

TEST_F(FileDialog, ReturnInTheQuestionIsNo) {
    put("PLAN.DAT");
    when_open("type", [&] { enter("plan"); });
    when_asked("return", [&] {
        EXPECT_EQ(resource<unsigned char>(question_box(), XmNdefaultButtonType), XmDIALOG_CANCEL_BUTTON);
        pointer().move_in(question_box(), 5, 5);
        keyboard().key(XK_Return);
    });
    when_answered("still there", [&] {
        ASSERT_NE(file_box(), nullptr);
        cancel();
    });
    EXPECT_EQ(choose({.operation = HOST_CATAL_ECRITURE}).result, 0);
    when_asked("return", [&] {
        pointer().move_in(question_box(), 5, 5);
        keyboard().key(XK_Return);
    });
    EXPECT_EQ(script_.run([] { return question_suppression(); }), GRX_QUESTION_NON);
}

TEST_F(FileDialog, TheDefaultHostAsksInFrench) {
    when_asked("look", [&] {
        Widget box = question_box();
        EXPECT_EQ(text_resource(box, XmNmessageString), "Remplacer le fichier ?");
        EXPECT_EQ(text_resource(XmMessageBoxGetChild(box, XmDIALOG_OK_BUTTON), XmNlabelString), "Oui");
        EXPECT_EQ(text_resource(XmMessageBoxGetChild(box, XmDIALOG_CANCEL_BUTTON), XmNlabelString), "Non");
        answer(XmDIALOG_OK_BUTTON);
    });
    EXPECT_EQ(script_.run([] { return question_suppression(); }), GRX_QUESTION_OUI);
}

// --- off the screen when the call has returned -------------------------------------------------------------------------

enum class Call { file, directory, question };

struct Leaving {
    const char* name;
    Call call;
    enum Way { accept, refuse, close, replace, destroy } way;
};

class LeftOnScreen : public FileDialogs<DisplayTest> {
  protected:
    void ask(const Leaving& leaving) {
        if (leaving.call == Call::question) {
            question_suppression();
        } else if (leaving.call == Call::directory) {
            char title[] = "Choose", directory[GRX_CHEMIN_DIALOGUE_MAX] = "/tmp";
            select_repertoire_x11(title, directory);
        } else {
            choose_now({.operation = HOST_CATAL_ECRITURE});
        }
    }
    Widget box(Call call) { return call == Call::question ? question_box() : file_box(); }

    void leave(const Leaving& leaving) {
        Widget asks = box(leaving.call);
        const auto button = [&](unsigned char which) {
            return leaving.call == Call::question ? XmMessageBoxGetChild(asks, which)
                                                  : XmFileSelectionBoxGetChild(asks, which);
        };
        switch (leaving.way) {
        case Leaving::accept:
            if (leaving.call == Call::file) retype_selection(path("new"));
            return click(button(XmDIALOG_OK_BUTTON));
        case Leaving::replace: put("PLAN.DAT"); return enter("plan");
        case Leaving::refuse: return click(button(XmDIALOG_CANCEL_BUTTON));
        case Leaving::close: return ask_to_close(test_display(), XtWindow(XtParent(asks)));
        case Leaving::destroy: grx_detruit_fenetre(main_);
        }
    }

    void plan(const Leaving& leaving) {
        script_.when(
            leaving.name, [=, this] { return box(leaving.call) != nullptr; }, [=, this] { leave(leaving); });
        if (leaving.way == Leaving::replace) when_asked("replace", [this] { answer(XmDIALOG_OK_BUTTON); });
    }
};

constexpr Leaving leavings[] = {{"accepted", Call::file, Leaving::accept}, {"refused", Call::file, Leaving::refuse},
    {"closed", Call::file, Leaving::close}, {"replaced", Call::file, Leaving::replace},
    {"directory accepted", Call::directory, Leaving::accept}, {"directory refused", Call::directory, Leaving::refuse},
    {"directory closed", Call::directory, Leaving::close}, {"yes", Call::question, Leaving::accept},
    {"no", Call::question, Leaving::refuse}, {"question closed", Call::question, Leaving::close},
    {"main window destroyed", Call::file, Leaving::destroy}};

TEST_F(LeftOnScreen, NothingIs) {
    const auto before = windows_on_screen();
    ASSERT_FALSE(before.empty());
    for (const auto& leaving : leavings) {
        plan(leaving);
        script_.run([&] {
            ask(leaving);
            return 0;
        });
        EXPECT_TRUE(leaves_the_screen_as(before)) << leaving.name;
    }
}

// There what is destroyed lives on until the callback returns.
TEST_F(LeftOnScreen, NothingIsInsideACallbackEither) {
    const auto before = windows_on_screen();
    inside_a_callback([&] {
        for (const auto& leaving : leavings) {
            plan(leaving);
            script_.run([&] {
                ask(leaving);
                return 0;
            });
            EXPECT_TRUE(leaves_the_screen_as(before)) << leaving.name;
        }
    });
}

// So it stays in front of what it is about.
TEST_F(FileDialog, TheQuestionBelongsToWhatAsks) {
    put("PLAN.DAT");
    when_open("type", [&] { enter("plan"); });
    when_asked("of the dialog", [&] {
        EXPECT_EQ(XtParent(XtParent(question_box())), file_box());
        answer(XmDIALOG_CANCEL_BUTTON);
    });
    when_answered("close", [&] { ask_to_close(test_display(), shell_window()); });
    EXPECT_EQ(choose({.operation = HOST_CATAL_ECRITURE}).result, 0);
    when_asked("of the main window", [&] {
        EXPECT_EQ(XtParent(XtParent(question_box())), widget_of(main_)) << "the dialog is no longer on show";
        answer(XmDIALOG_OK_BUTTON);
    });
    EXPECT_EQ(script_.run([] { return question_suppression(); }), GRX_QUESTION_OUI);
}

TEST_F(FileDialog, TheDialogIsNotRaisedOverItsQuestion) {
    put("PLAN.DAT");
    Window cover = None, shell = None;
    when_open("type", [&] {
        shell = shell_window();
        enter("plan");
    });
    when_asked("cover the dialog", [&] {
        cover = covering_window();
        XWindowChanges below{};
        below.sibling = XtWindow(XtParent(question_box()));
        below.stack_mode = Below;
        XConfigureWindow(test_display(), cover, CWSibling | CWStackMode, &below);
        XMapWindow(test_display(), cover);
        XSync(test_display(), False);
    });
    script_.then("look", [&] {
        EXPECT_TRUE(stacked_over(cover, shell));
        XDestroyWindow(test_display(), cover);
        XSync(test_display(), False);
        answer(XmDIALOG_OK_BUTTON);
    });
    EXPECT_EQ(choose({.operation = HOST_CATAL_ECRITURE}).result, 1);
}

TEST_F(FileDialog, ASecondQuestionFromWithinIsNotAsked) {
    when_asked("again", [&] {
        EXPECT_NE(question_suppression(), GRX_QUESTION_OUI);
        answer(XmDIALOG_OK_BUTTON);
    });
    EXPECT_EQ(script_.run([] { return question_suppression(); }), GRX_QUESTION_OUI);
}

// --- directories -----------------------------------------------------------------------------------------------------

class DirectoryDialog : public FileDialog {
  protected:
    INT choose_directory(const std::string& proposed) {
        std::snprintf(directory_, sizeof directory_, "%s", proposed.c_str());
        char title[] = "Where to";
        return script_.run([&] { return select_repertoire_x11(title, directory_); });
    }
    char directory_[GRX_CHEMIN_DIALOGUE_MAX] = "";
};

TEST_F(DirectoryDialog, HasNoFiles) {
    messages = application_messages();
    put("a.DAT");
    put("Sub/b");
    when_open("look", [&] {
        EXPECT_EQ(shell_title(), "Where to");
        EXPECT_EQ(XtParent(XtParent(file_box())), widget_of(main_));
        EXPECT_EQ(text_resource(part(XmDIALOG_OK_BUTTON), XmNlabelString), "Nr1250");
        EXPECT_EQ(text_resource(part(XmDIALOG_APPLY_BUTTON), XmNlabelString), "Nr1251");
        EXPECT_EQ(text_resource(part(XmDIALOG_CANCEL_BUTTON), XmNlabelString), "Nr1246");
        EXPECT_EQ(text_resource(part(XmDIALOG_FILTER_LABEL), XmNlabelString), "Nr1251");
        EXPECT_EQ(text_resource(part(XmDIALOG_SELECTION_LABEL), XmNlabelString), "Nr1335");
        EXPECT_EQ(text_resource(part(XmDIALOG_DIR_LIST_LABEL), XmNlabelString), "Nr1336");
        EXPECT_FALSE(is_viewable(part(XmDIALOG_HELP_BUTTON)));
        EXPECT_FALSE(is_viewable(part(XmDIALOG_LIST)));
        EXPECT_FALSE(is_viewable(XtParent(part(XmDIALOG_LIST))));
        EXPECT_FALSE(XtIsManaged(part(XmDIALOG_LIST_LABEL)));
        EXPECT_TRUE(is_viewable(part(XmDIALOG_DIR_LIST)));
        EXPECT_EQ(font_of(part(XmDIALOG_OK_BUTTON)), fontstruct);
        const auto directories = list_items(part(XmDIALOG_DIR_LIST));
        EXPECT_TRUE(std::ranges::find(directories, path("Sub")) != directories.end()) << "the proposed one is shown";
        cancel();
    });
    EXPECT_EQ(choose_directory(files_.text()), 0);
    EXPECT_EQ(std::string(directory_), files_.text());
}

TEST_F(DirectoryDialog, GivesWhatStandsInItsField) {
    put("Sub/b");
    std::string shown;
    when_open("go down", [&] {
        click_item(part(XmDIALOG_DIR_LIST), path("Sub"));
        pointer().click();
    });
    script_.when(
        "down", [&] { return selection() == path("Sub") + "/"; },
        [&] {
            shown = selection();
            accept();
        });
    EXPECT_EQ(choose_directory(files_.text()), 1);
    EXPECT_EQ(std::string(directory_), shown);
    EXPECT_EQ(file_box(), nullptr);
}

TEST_F(DirectoryDialog, GivesATypedDirectory) {
    when_open("type", [&] {
        retype_selection("/usr/lib");
        accept();
    });
    EXPECT_EQ(choose_directory(""), 1);
    EXPECT_STREQ(directory_, "/usr/lib");
}

TEST_F(DirectoryDialog, ControlCharactersAreRefused) {
    for (const std::string name : {"/tm\tp", "/tmp\n", "/\033tmp"}) {
        when_open("type", [&] {
            XmTextFieldSetString(part(XmDIALOG_TEXT), const_cast<char*>(name.c_str()));
            accept();
        });
        script_.then("refused", [&] {
            ASSERT_NE(file_box(), nullptr);
            cancel();
        });
        EXPECT_EQ(choose_directory("/tmp"), 0);
    }
}

TEST_F(DirectoryDialog, ClosingLeavesTheProposalAlone) {
    for (int i = 0; i < 2; ++i) {
        when_open("close", [&] { ask_to_close(test_display(), shell_window()); });
        EXPECT_EQ(choose_directory("/tmp"), 0);
        EXPECT_STREQ(directory_, "/tmp");
    }
}

TEST_F(DirectoryDialog, ATooLongDirectoryIsNotCut) {
    when_open("too long", [&] {
        XmTextFieldSetString(part(XmDIALOG_TEXT), const_cast<char*>(("/" + std::string(999, 'd')).c_str()));
        accept();
    });
    script_.then("fits", [&] {
        ASSERT_NE(file_box(), nullptr);
        XmTextFieldSetString(part(XmDIALOG_TEXT), const_cast<char*>(("/" + std::string(998, 'd')).c_str()));
        accept();
    });
    EXPECT_EQ(choose_directory("/tmp"), 1);
    EXPECT_EQ(std::string(directory_), "/" + std::string(998, 'd'));
}

TEST_F(DirectoryDialog, ASecondCallFromWithinGivesNothing) {
    char title[] = "t", other[GRX_CHEMIN_DIALOGUE_MAX] = "/usr";
    when_open("second", [&] {
        EXPECT_EQ(select_repertoire_x11(title, other), 0);
        EXPECT_EQ(choose_now({}).result, 0);
        EXPECT_STREQ(other, "/usr");
        cancel();
    });
    EXPECT_EQ(choose_directory("/tmp"), 0);
}

// --- memory ----------------------------------------------------------------------------------------------------------

TEST_F(FileDialog, TheHostsResultIsHandedBack) {
    put("b.DAT");
    bool no_memory_seen = false;
    for (std::size_t n = 1; n < 8; ++n) {
        when_open("click", [&] { click_file("b.DAT"); });
        script_.then("ok", [&] {
            heap().fail_at(n);
            accept();
        });
        // Failing inside the dialog may keep it open.
        bool done = false;
        script_.start();
        const NoLeak no_leak;
        script_.when(
            "kept open", [&] { return !done; },
            [&] {
                heap().fail_never();
                if (file_box()) cancel();
            });
        const Choice choice = choose_now({});
        done = true;
        script_.stop();
        script_.clear();
        heap().fail_never();
        if (choice.result == 1 && choice.err == 105) no_memory_seen = true;
        if (choice.result == 1 && choice.err == 0) {
            EXPECT_EQ(choice.names, (Names{"b.DAT"}));
            EXPECT_EQ(choice.directory, files_.text()) << "without its directory a name is not added";
        }
        if (choice.result == 0) {
            EXPECT_EQ(choice.names, Names{});
        }
    }
    EXPECT_TRUE(no_memory_seen);
}

TEST_F(FileDialog, EachFailingAllocationIsSurvived) {
    put("b.DAT");
    put("PLAN.DAT");
    std::string image = path("b.BMP"), nowhere;
    std::vector<uchar> pixels(64, 3);
    ecrit_fichier_bitmap(nowhere.data(), image.data(), pixels.data(), 8, 8);
    const int failures = fail_each_allocation([&] {
        HostFiles proposed, chosen;
        SFILTRE filters{};
        INT err = 0;
        when_open("click", [&] { click_file("b.DAT"); });
        script_.then("type", [&] { enter("plan"); });
        script_.when(
            "asked or not", [&] { return true; },
            [&] {
                if (question_box()) answer(XmDIALOG_OK_BUTTON);
            });
        script_.then("end", [&] {
            if (file_box()) cancel();
        });
        script_.start();
        char title[] = "t";
        SCATAL catalogue{};
        catalogue.titre.str = title;
        catalogue.type_operation = HOST_CATAL_ECRITURE;
        std::string directory = files_.text();
        SFICHIER from{};
        from.adrs.str = directory.data();
        select_fichier_x11(catalogue, from, filters, &chosen.record(), &err);
        script_.stop();
        script_.clear();
        EXPECT_EQ(question_box(), nullptr);
    });
    EXPECT_GT(failures, 0);
}

TEST_F(FileDialog, TwoHundredTimesLeaveNothing) {
    put("b.DAT");
    std::string image = path("b.BMP"), nowhere;
    std::vector<uchar> pixels(64, 3);
    ecrit_fichier_bitmap(nowhere.data(), image.data(), pixels.data(), 8, 8);
    const auto once = [&](int way) {
        when_open("click", [&] { click_file("b.DAT"); });
        script_.then("end", [&, way] {
            if (way == 0) accept();
            if (way == 1) cancel();
            if (way == 2) ask_to_close(test_display(), shell_window());
        });
        EXPECT_EQ(choose({}).result, way == 0 ? 1 : 0);
    };
    for (int i = 0; i < 6; ++i) once(i % 3);
    once(0);
    drain();
    const auto before = server_resources(test_display(), x_window(main_));
    const std::size_t blocks = heap().blocks();
    for (int i = 0; i < 200; ++i) once(i % 3);
    once(0);
    drain();
    EXPECT_EQ(server_resources(test_display(), x_window(main_)), before);
    EXPECT_EQ(heap().blocks(), blocks);
}

TEST_F(FileDialog, AHundredQuestionsLeaveNothing) {
    const auto once = [&](int way) {
        when_asked("end", [&, way] {
            if (way == 0) answer(XmDIALOG_OK_BUTTON);
            if (way == 1) answer(XmDIALOG_CANCEL_BUTTON);
            if (way == 2) ask_to_close(test_display(), XtWindow(XtParent(question_box())));
        });
        EXPECT_EQ(script_.run([] { return question_suppression(); }), way + 1);
    };
    for (int i = 0; i < 6; ++i) once(i % 3);
    drain();
    const auto before = server_resources(test_display(), x_window(main_));
    const std::size_t widgets = whole_tree().size();
    for (int i = 0; i < 99; ++i) once(i % 3);
    drain();
    EXPECT_EQ(server_resources(test_display(), x_window(main_)), before);
    EXPECT_EQ(whole_tree().size(), widgets);
}

TEST_F(DirectoryDialog, HundredTimesLeaveNothing) {
    const auto once = [&](int way) {
        when_open("end", [&, way] {
            if (way == 0) accept();
            if (way == 1) cancel();
            if (way == 2) ask_to_close(test_display(), shell_window());
        });
        EXPECT_EQ(choose_directory("/tmp"), way == 0 ? 1 : 0);
    };
    for (int i = 0; i < 6; ++i) once(i % 3);
    once(0);
    drain();
    const auto before = server_resources(test_display(), x_window(main_));
    const std::size_t blocks = heap().blocks();
    for (int i = 0; i < 100; ++i) once(i % 3);
    once(0);
    drain();
    EXPECT_EQ(server_resources(test_display(), x_window(main_)), before);
    EXPECT_EQ(heap().blocks(), blocks);
}

// --- unusual screens, window manager ---------------------------------------------------------------------------------

class FileDialogOn32On24 : public FileDialogs<DisplayTest> {
  protected:
    void before_start() override {
        FileDialogs<DisplayTest>::before_start();
        fake_.emplace(FakeVisual::Kind::alt32);
    }
    std::optional<FakeVisual> fake_;
};

TEST_F(FileDialogOn32On24, HasTheApplicationsVisual) {
    put("b.DAT");
    put("PLAN.DAT");
    std::string image = path("b.BMP"), nowhere;
    std::vector<uchar> pixels(64, 3);
    ecrit_fichier_bitmap(nowhere.data(), image.data(), pixels.data(), 8, 8);
    const auto depth_of = [](Window window) {
        XWindowAttributes attributes{};
        XGetWindowAttributes(x11_disp, window, &attributes);
        return attributes.depth;
    };
    when_open("click", [&] {
        EXPECT_EQ(depth_of(shell_window()), 32);
        click_file("b.DAT");
    });
    script_.then("type", [&] { enter("plan"); });
    when_asked("yes", [&] {
        EXPECT_EQ(depth_of(XtWindow(XtParent(question_box()))), 32);
        answer(XmDIALOG_OK_BUTTON);
    });
    EXPECT_EQ(choose({.operation = HOST_CATAL_ECRITURE, .filters = {{"Plans", "DAT"}, {"Texts", "TXT"}}}).result, 1);
}

class FileDialogWmTest : public FileDialogs<WmTest> {
  protected:
    // The manager closes the window that has the keyboard.
    void close_by_keys(Widget inside) {
        pointer().click_in(frame(XtParent(inside)), 60, 12);
        keyboard().key(XK_F4, Mod1Mask);
    }
};

TEST_F(FileDialogWmTest, ClosedByTheManager) {
    put("PLAN.DAT");
    const auto framed = [this](Widget box) { return box && frame(XtParent(box)) != None; };
    script_.when(
        "framed", [&] { return framed(file_box()); }, [&] { close_by_keys(file_box()); });
    EXPECT_EQ(choose({}).result, 0);
    char title[] = "Where", directory[GRX_CHEMIN_DIALOGUE_MAX] = "/tmp";
    script_.when(
        "framed", [&] { return framed(file_box()); }, [&] { close_by_keys(file_box()); });
    EXPECT_EQ(script_.run([&] { return select_repertoire_x11(title, directory); }), 0);
    script_.when(
        "framed", [&] { return framed(question_box()); }, [&] { close_by_keys(question_box()); });
    EXPECT_EQ(script_.run([] { return question_suppression(); }), GRX_QUESTION_FERMEE);
}

TEST_F(FileDialogWmTest, ChosenUnderTheManager) {
    put("PLAN.DAT");
    script_.when(
        "framed", [&] { return file_box() && frame(XtParent(file_box())) != None; }, [&] { enter("plan"); });
    script_.when(
        "question", [&] { return question_box() && frame(XtParent(question_box())) != None; },
        [&] { answer(XmDIALOG_OK_BUTTON); });
    EXPECT_EQ(choose({.operation = HOST_CATAL_ECRITURE}).names, (Names{"PLAN.DAT"}));
}

} // namespace
