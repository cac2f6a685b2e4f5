// What the dialogs for files, directories and questions share: they go with the main window, return to the application as
// it was, leave nothing on the screen or the heap, and stand on unusual screens.
#include "tests/display/dialogs/file_dialog_kit.h"
#include "tests/support/fake_visual.h"
#include "tests/support/sanitized.h"

#include <cstring>
#include <optional>

namespace {

using namespace grxtest;

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

// --- off the screen when the call has returned -------------------------------------------------------------------------

enum class Call { file, directory, question };

struct Leaving {
    const char* name;
    Call call;
    enum Way { accept, refuse, close, replace, destroy } way;
};

constexpr Leaving leavings[] = {{"accepted", Call::file, Leaving::accept}, {"refused", Call::file, Leaving::refuse},
    {"closed", Call::file, Leaving::close}, {"replaced", Call::file, Leaving::replace},
    {"directory accepted", Call::directory, Leaving::accept}, {"directory refused", Call::directory, Leaving::refuse},
    {"directory closed", Call::directory, Leaving::close}, {"yes", Call::question, Leaving::accept},
    {"no", Call::question, Leaving::refuse}, {"question closed", Call::question, Leaving::close},
    {"main window destroyed", Call::file, Leaving::destroy}};

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

    void leave_in_every_way(const std::vector<Window>& before) {
        for (const auto& leaving : leavings) {
            plan(leaving);
            script_.run([&] {
                ask(leaving);
                return 0;
            });
            EXPECT_TRUE(leaves_the_screen_as(before)) << leaving.name;
        }
    }
};

TEST_F(LeftOnScreen, NothingIs) {
    const auto before = windows_on_screen();
    ASSERT_FALSE(before.empty());
    leave_in_every_way(before);
}

// There what is destroyed lives on until the callback returns.
TEST_F(LeftOnScreen, NothingIsInsideACallbackEither) {
    const auto before = windows_on_screen();
    inside_a_callback([&] { leave_in_every_way(before); });
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
    expect_no_growth(once, amount(200));
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
