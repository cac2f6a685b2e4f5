// The question whether a file is to be replaced.
#include "tests/display/dialogs/file_dialog_kit.h"

namespace {

using namespace grxtest;

struct Question {
    std::string message; // "" for none
    std::string text, yes, no;
};

class QuestionText : public FileDialogs<DisplayTest>, public testing::WithParamInterface<Question> {
  protected:
    void TearDown() override {
        host_messages.reset();
        FileDialogs<DisplayTest>::TearDown();
    }
};

TEST_P(QuestionText, IsCutIntoQuestionAndLabels) {
    host_messages.emplace();
    if (!GetParam().message.empty()) (*host_messages)[83] = GetParam().message;
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

} // namespace
