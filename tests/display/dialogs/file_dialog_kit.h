// The dialogs for files and directories, and a user who chooses in them.
#pragma once

#include "tests/display/dialogs/dialog_kit.h"
#include "tests/support/host_calls.h"

#include <functional>
#include <map>

namespace grxtest {

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
    // Calls it with 0, 1, 2 over and over: after the first rounds nothing more stays at the server or on the heap.
    void expect_no_growth(const std::function<void(int)>& once, int rounds) {
        for (int i = 0; i < 6; ++i) once(i % 3);
        once(0);
        drain();
        const auto before = server_resources(test_display(), x_window(main_));
        const std::size_t blocks = heap().blocks();
        for (int i = 0; i < rounds; ++i) once(i % 3);
        once(0);
        drain();
        EXPECT_EQ(server_resources(test_display(), x_window(main_)), before);
        EXPECT_EQ(heap().blocks(), blocks);
    }
    void TearDown() override {
        host_messages.reset();
        FileDialogs<DisplayTest>::TearDown();
    }
};

inline std::vector<Widget> entries_of(Widget pulldown) {
    std::vector<Widget> entries;
    WidgetList list = nullptr;
    Cardinal count = 0;
    XtVaGetValues(pulldown, XmNchildren, &list, XmNnumChildren, &count, nullptr);
    for (Cardinal i = 0; i < count; ++i)
        if (XtClass(list[i]) == xmPushButtonWidgetClass) entries.push_back(list[i]);
    return entries;
}

inline std::map<INT, std::string> application_messages() {
    std::map<INT, std::string> result;
    for (INT n : {1245, 1246, 1250, 1251, 1315, 1335, 1336, 1066}) result[n] = "Nr" + std::to_string(n);
    return result;
}

} // namespace grxtest
