// The directory dialog.
#include "tests/display/dialogs/file_dialog_kit.h"
#include "tests/support/sanitized.h"

namespace {

using namespace grxtest;

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
    host_messages = application_messages();
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

TEST_F(DirectoryDialog, HundredTimesLeaveNothing) {
    const auto once = [&](int way) {
        when_open("end", [&, way] {
            if (way == 0) accept();
            if (way == 1) cancel();
            if (way == 2) ask_to_close(test_display(), shell_window());
        });
        EXPECT_EQ(choose_directory("/tmp"), way == 0 ? 1 : 0);
    };
    expect_no_growth(once, amount(100));
}

} // namespace
