// Copying, cutting and pasting between the editor and other programs.
#include "tests/display/dialogs/editor_kit.h"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

#include <X11/Xatom.h>
#include <Xm/CutPaste.h>

#include <clocale>
#include <fcntl.h>
#include <optional>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace grxtest;

XEvent answer_to(const XSelectionRequestEvent& asked) {
    XEvent answer{};
    answer.xselection.type = SelectionNotify;
    answer.xselection.requestor = asked.requestor;
    answer.xselection.selection = asked.selection;
    answer.xselection.target = asked.target;
    answer.xselection.time = asked.time;
    answer.xselection.property = asked.property;
    return answer;
}

// Another program that owns the clipboard and offers a text as one type. It may take its time, or never answer.
constexpr int never = -1;

class ClipboardOwner {
  public:
    ClipboardOwner(const std::string& server, const std::string& text, const char* type, int delay = 0) {
        int told[2];
        if (pipe2(told, O_CLOEXEC | O_NONBLOCK) != 0) throw std::runtime_error("pipe");
        pid_ = fork();
        if (pid_ == 0) serve(server, text, type, delay, told[1]);
        close(told[1]);
        told_ = told[0];
        EXPECT_TRUE(wait_until([&] { return count('r') == 1; }, [] { wait_readable(-1, Milliseconds(2)); }));
    }
    ~ClipboardOwner() {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
        close(told_);
    }
    ClipboardOwner(const ClipboardOwner&) = delete;
    ClipboardOwner& operator=(const ClipboardOwner&) = delete;

    // How often it was asked for the text, and has given it.
    long asked() { return count('q'); }
    long answered() { return count('a'); }

  private:
    long count(char what) {
        char byte = 0;
        while (read(told_, &byte, 1) == 1) log_ += byte;
        return std::ranges::count(log_, what);
    }
    static void tell(int told, const char* what) {
        if (write(told, what, 1) != 1) _exit(1);
    }
    [[noreturn]] static void serve(
        const std::string& server, const std::string& text, const char* type, int delay, int told) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        Display* display = XOpenDisplay(server.c_str());
        if (!display) _exit(1);
        const Atom clipboard = XInternAtom(display, "CLIPBOARD", False),
                   targets = XInternAtom(display, "TARGETS", False), offered = XInternAtom(display, type, False);
        const Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
        XSetSelectionOwner(display, clipboard, window, CurrentTime);
        XSync(display, False);
        tell(told, "r");
        for (;;) {
            XEvent event;
            XNextEvent(display, &event);
            if (event.type != SelectionRequest) continue;
            const auto& asked = event.xselectionrequest;
            const bool for_text = asked.target == offered;
            if (for_text) tell(told, "q");
            if (delay == never) continue;
            if (for_text && delay > 0) usleep(static_cast<useconds_t>(delay) * 1000);
            XEvent answer = answer_to(asked);
            if (asked.target == targets) {
                const Atom list[] = {targets, offered};
                XChangeProperty(display, asked.requestor, asked.property, XA_ATOM, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(list), 2);
            } else if (for_text) {
                XChangeProperty(display, asked.requestor, asked.property, offered, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
            } else {
                answer.xselection.property = None;
            }
            XSendEvent(display, asked.requestor, False, NoEventMask, &answer);
            XSync(display, False);
            if (for_text) tell(told, "a");
        }
    }
    pid_t pid_ = -1;
    int told_ = -1;
    std::string log_;
};

// The toolkit's clipboard never frees what it notes of a request for what the editor has copied: such leaks hold nothing
// but its own functions below its answer.
class ToolkitLeaks {
  public:
#ifdef __SANITIZE_ADDRESS__
    ToolkitLeaks() {
        __lsan_disable();
    }
    ~ToolkitLeaks() {
        __lsan_enable();
    }
#else
    ToolkitLeaks() = default;
    ~ToolkitLeaks() {} // not trivial: an unused one is no warning
#endif
    ToolkitLeaks(const ToolkitLeaks&) = delete;
    ToolkitLeaks& operator=(const ToolkitLeaks&) = delete;
};

class Clipboard : public Editor {
  private:
    ToolkitLeaks permitted_;

  protected:
    // What another client gets when it asks for the clipboard as that type; nothing when it is refused.
    std::optional<std::string> asked(const char* type) {
        Display* other = open_connection(server().name());
        const Window window = XCreateSimpleWindow(other, DefaultRootWindow(other), 0, 0, 1, 1, 0, 0, 0);
        const Atom place = XInternAtom(other, "PLACE", False);
        XConvertSelection(
            other, XInternAtom(other, "CLIPBOARD", False), XInternAtom(other, type, False), place, window, CurrentTime);
        XEvent event{};
        const bool answered = wait_for([&] { return XCheckTypedEvent(other, SelectionNotify, &event) != 0; });
        std::optional<std::string> result;
        if (answered && event.xselection.property != None) {
            Atom actual = None;
            int format = 0;
            unsigned long count = 0, rest = 0;
            unsigned char* data = nullptr;
            XGetWindowProperty(
                other, window, place, 0, 1000000, False, AnyPropertyType, &actual, &format, &count, &rest, &data);
            const std::size_t size = format == 32 ? sizeof(long) : static_cast<std::size_t>(format / 8);
            result.emplace(reinterpret_cast<char*>(data), count * size);
            XFree(data);
        }
        XCloseDisplay(other);
        return result;
    }
};

TEST_F(Clipboard, CopyingGivesOtherProgramsTheText) {
    edit("a.txt", "abcdef\n");
    select(3);
    choose("Edit", "Copier");
    EXPECT_EQ(content(), "abcdef\n");
    const auto got = asked("STRING");
    ASSERT_TRUE(got);
    EXPECT_EQ(*got, std::string("abc\0", 4)) << "the text and its zero";
}

TEST_F(Clipboard, CopyingBearsTheTimeOfItsEvent) {
    edit("a.txt", "abcdef\n");
    for (const bool by_key : {true, false}) {
        select(3);
        if (by_key) {
            keyboard().key(XK_Insert, ControlMask);
            drain();
        } else {
            choose("Edit", "Copier");
        }
        const auto got = asked("TIMESTAMP");
        ASSERT_TRUE(got);
        EXPECT_EQ(got->size(), sizeof(long));
        EXPECT_NE(*got, std::string(sizeof(long), '\0')) << (by_key ? "key" : "menu");
    }
}

TEST_F(Clipboard, CopyingKeepsNoCopyOfItsOwn) {
    constexpr std::size_t length = 1U << 18;
    edit("a.txt", std::string(length, 't'));
    XmTextSetSelection(text(), 0, length, CurrentTime);
    const auto copy = [&] { choose("Edit", "Copier"); };
    copy();
    copy();
    const std::size_t before = heap_of_the_toolkit();
    for (int i = 0; i < 4; ++i) copy();
    EXPECT_LT(heap_of_the_toolkit(), before + 2 * length);
}

TEST_F(Clipboard, CuttingCopiesAndDeletes) {
    edit("a.txt", "abcdef\n");
    select(3);
    choose("Edit", "Couper");
    EXPECT_EQ(content(), "def\n");
    const auto got = asked("STRING");
    ASSERT_TRUE(got);
    EXPECT_EQ(std::string(got->c_str()), "abc");
    choose("Edit", "Coller");
    EXPECT_EQ(content(), "abcdef\n");
}

TEST_F(Clipboard, DeletingLeavesTheClipboard) {
    edit("a.txt", "abcdef\n");
    select(1);
    choose("Edit", "Copier");
    select(3);
    choose("Edit", "Clear");
    EXPECT_EQ(content(), "def\n");
    choose("Edit", "Coller");
    EXPECT_EQ(content(), "adef\n");
    choose("Edit", "Clear");
    EXPECT_EQ(content(), "adef\n") << "nothing is selected";
}

// Another program whose text is selected; what it is asked for.
TEST_F(Editor, DeletingAsksTheOwnerOfTheSelection) {
    edit("a.txt", "abcdef\n");
    Display* other = open_connection(server().name());
    const Window window = XCreateSimpleWindow(other, DefaultRootWindow(other), 0, 0, 1, 1, 0, 0, 0);
    XSetSelectionOwner(other, XA_PRIMARY, window, CurrentTime);
    XSync(other, False);
    XEvent event{};
    choose("Edit", "Couper");
    XSync(other, False);
    EXPECT_FALSE(XCheckTypedEvent(other, SelectionRequest, &event)) << "there is nothing to cut";
    choose("Edit", "Clear");
    ASSERT_TRUE(wait_for([&] { return XCheckTypedEvent(other, SelectionRequest, &event) != 0; }));
    const XSelectionRequestEvent asked = event.xselectionrequest;
    EXPECT_EQ(asked.selection, XA_PRIMARY);
    EXPECT_EQ(asked.target, XInternAtom(other, "KILL_SELECTION", False));
    EXPECT_NE(asked.time, Time{CurrentTime}) << "the time of the event that asks for it";
    XEvent answer = answer_to(asked);
    XChangeProperty(other, asked.requestor, asked.property, XA_STRING, 8, PropModeReplace,
        reinterpret_cast<const unsigned char*>("done"), 4);
    XSendEvent(other, asked.requestor, False, NoEventMask, &answer);
    XSync(other, False);
    drain();
    EXPECT_EQ(content(), "abcdef\n");
    XCloseDisplay(other);
}

// The toolkit keeps the label of a clipboard's item at the root window.
TEST_F(Clipboard, WhatIsCopiedBearsTheEditorsLabel) {
    edit("a.txt", "abcdef\n");
    select(3);
    choose("Edit", "Copier");
    int count = 0;
    Atom* const names = XListProperties(test_display(), DefaultRootWindow(test_display()), &count);
    bool found = false;
    for (int i = 0; i < count; ++i) {
        Atom type = None;
        int format = 0;
        unsigned long length = 0, rest = 0;
        unsigned char* data = nullptr;
        XGetWindowProperty(test_display(), DefaultRootWindow(test_display()), names[i], 0, 10000, False,
            AnyPropertyType, &type, &format, &length, &rest, &data);
        const std::string bytes(reinterpret_cast<char*>(data), format == 8 ? length : 0);
        found = found || bytes.find("XM_EDITOR") != std::string::npos;
        XFree(data);
    }
    XFree(names);
    EXPECT_TRUE(found);
}

TEST_F(Clipboard, WithoutASelectionItStaysAsItWas) {
    edit("a.txt", "abcdef\n");
    select(2);
    choose("Edit", "Copier");
    select(0);
    choose("Edit", "Copier");
    choose("Edit", "Couper");
    EXPECT_EQ(content(), "abcdef\n");
    const auto got = asked("STRING");
    ASSERT_TRUE(got);
    EXPECT_EQ(std::string(got->c_str()), "ab");
}

TEST_F(Clipboard, PastingAnEmptyClipboardDoesNothing) {
    edit("a.txt", "abc\n");
    type("");
    choose("Edit", "Coller");
    EXPECT_EQ(content(), "abc\n");
}

TEST_F(Clipboard, PastingIsAChange) {
    edit("a.txt", "abc\n");
    const ClipboardOwner owner(server().name(), "from outside", "STRING");
    type("");
    choose("Edit", "Coller");
    EXPECT_EQ(content(), "from outsideabc\n");
    choose("File", "Exit");
    EXPECT_TRUE(asks());
}

TEST_F(Clipboard, LongAndAccentedTextComesIn) {
    edit("a.txt", "\n");
    std::string big = "d\xe9j\xe0 ";
    while (big.size() < 100000) big += "0123456789";
    const ClipboardOwner owner(server().name(), big, "STRING");
    type("");
    choose("Edit", "Coller");
    EXPECT_TRUE(content() == big + "\n") << content().size();
}

TEST_F(Clipboard, TextOfAProgramThatOffersOnlyUtf8ComesIn) {
    edit("a.txt", "abc\n");
    const ClipboardOwner owner(server().name(), "utf8", "UTF8_STRING");
    type("");
    choose("Edit", "Coller");
    EXPECT_EQ(content(), "utf8abc\n");
}

// An owner that lets one wait. Another window of the application, that goes on meanwhile.
class SlowClipboard : public Clipboard {
  protected:
    void SetUp() override {
        Clipboard::SetUp();
        beside_ = make(GRX_FEN_GRAPHIQUE);
        ASSERT_TRUE(wait_visible(widget_of(beside_)));
        edit("a.txt", "abc\n");
        type("");
    }
    // Chooses "Coller" without waiting for what comes of it.
    void paste() {
        click(widget_called("Edit"));
        ASSERT_TRUE(wait_for([&] { return is_viewable(widget_called("Coller")); }));
        drain();
        click(widget_called("Coller"));
        begun_ = Clock::now();
    }
    // That a press in the other window is told while the clipboard is waited for.
    void expect_the_other_window_answers() {
        events.clear();
        pointer().click_in(widget_of(beside_), 5, 100);
        EXPECT_TRUE(wait_for([&] { return events.count(GRX_EVT_BOUTON_RELACHE) > 0; })) << events.describe();
        EXPECT_GT(events.count(GRX_EVT_BOUTON_APPUI), 0);
        EXPECT_LT(Clock::now() - begun_, Milliseconds(1000));
    }
    // Lets time pass, with the application in its loop.
    void pass(Milliseconds time) {
        const auto until = Clock::now() + time;
        EXPECT_TRUE(wait_for([&] { return Clock::now() > until; }));
    }
    static constexpr Milliseconds most{1000};

    INT beside_ = 0;
    Clock::time_point begun_{};
};

TEST_F(SlowClipboard, AnOwnerThatNeverAnswersHoldsNothingUp) {
    ClipboardOwner owner(server().name(), "from outside", "STRING", never);
    paste();
    expect_the_other_window_answers();
    pass(most + most / 2);
    EXPECT_EQ(owner.asked(), 1) << "one attempt";
    EXPECT_EQ(content(), "abc\n");
    const ClipboardOwner another(server().name(), "at last ", "STRING");
    choose("Edit", "Coller");
    EXPECT_TRUE(wait_for([&] { return content() == "at last abc\n"; })) << content();
}

TEST_F(SlowClipboard, AnAnswerWithinASecondComesIn) {
    ClipboardOwner owner(server().name(), "from outside ", "STRING", 500);
    paste();
    expect_the_other_window_answers();
    EXPECT_EQ(content(), "abc\n");
    EXPECT_TRUE(wait_for([&] { return content() == "from outside abc\n"; })) << content();
    EXPECT_EQ(owner.asked(), 1);
}

TEST_F(SlowClipboard, AnAnswerAfterASecondIsTooLate) {
    ClipboardOwner owner(server().name(), "from outside ", "STRING", 1600);
    paste();
    ASSERT_TRUE(wait_for([&] { return owner.answered() == 1; }));
    drain();
    EXPECT_EQ(content(), "abc\n");
}

TEST_F(SlowClipboard, AnotherFileDoesNotGetIt) {
    put("b.txt", "other\n");
    ClipboardOwner owner(server().name(), "from outside ", "STRING", 500);
    paste();
    ASSERT_TRUE(wait_for([&] { return owner.asked() == 1; }));
    load(files_.text(), "b.txt");
    ASSERT_TRUE(wait_for([&] { return owner.answered() == 1; }));
    drain();
    EXPECT_EQ(content(), "other\n");
    choose("File", "Exit");
    EXPECT_TRUE(closed()) << "nothing changed";
}

TEST_F(SlowClipboard, TheEndOfTheEditorIsSurvived) {
    ClipboardOwner owner(server().name(), "from outside ", "STRING", 500);
    paste();
    ASSERT_TRUE(wait_for([&] { return owner.asked() == 1; }));
    grx_fin_editeur();
    ASSERT_TRUE(closed());
    edit("b.txt", "other\n");
    ASSERT_TRUE(wait_for([&] { return owner.answered() == 1; }));
    pass(most);
    EXPECT_EQ(content(), "other\n");
}

TEST_F(SlowClipboard, WhatIsTypedNextStandsBehind) {
    const ClipboardOwner owner(server().name(), "from outside", "STRING", 20);
    keyboard().key(XK_Insert, ShiftMask);
    keyboard().type("x");
    EXPECT_TRUE(wait_for([&] { return content().find('x') != std::string::npos; }));
    EXPECT_EQ(content(), "from outsidexabc\n");
}

class ClipboardInUtf8 : public Clipboard {
  protected:
    void before_start() override {
        Clipboard::before_start();
        ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    }
};

TEST_F(ClipboardInUtf8, TextOutsideLatin1GoesOutAsUtf8) {
    edit("a.txt", "10 \u20ac\n");
    select(4);
    choose("Edit", "Copier");
    const auto got = asked("UTF8_STRING");
    ASSERT_TRUE(got);
    EXPECT_EQ(std::string(got->c_str()), "10 \u20ac");
}

TEST_F(Clipboard, ALockedOneIsGivenUp) {
    edit("a.txt", "abc\n");
    const Window window = x_window(main_);
    ASSERT_EQ(XmClipboardLock(x11_disp, window), ClipboardSuccess);
    select(2);
    choose("Edit", "Copier");
    choose("Edit", "Coller");
    EXPECT_EQ(content(), "abc\n");
    XmClipboardUnlock(x11_disp, window, True);
    select(2);
    choose("Edit", "Copier");
    const auto got = asked("STRING");
    ASSERT_TRUE(got);
    EXPECT_EQ(std::string(got->c_str()), "ab");
}

} // namespace
