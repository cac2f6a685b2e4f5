// The file dialog: what is chosen, typed, refused and given up in it, its filters and the file it proposes.
#include "tests/display/dialogs/file_dialog_kit.h"

#include <optional>
#include <unistd.h>

namespace {

using namespace grxtest;
namespace fs = std::filesystem;

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

} // namespace
