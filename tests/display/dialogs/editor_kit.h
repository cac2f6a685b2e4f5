// The text editor: opened, typed into, saved and left by a real pointer and keyboard.
#pragma once

#include "tests/display/dialogs/dialog_kit.h"

#include <fstream>
#include <malloc.h>
#include <set>

namespace grxtest {

namespace fs = std::filesystem;

inline std::string bytes_of(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The temporary files of now: of this test, and for a moment of others that run beside it.
inline std::set<std::string> temporary_files() {
    std::set<std::string> found;
    for (const auto& entry : fs::directory_iterator("/tmp"))
        if (entry.path().filename().string().starts_with("xmedit")) found.insert(entry.path().string());
    return found;
}

inline std::size_t heap_of_the_toolkit() {
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

template <class Base>
class EditorOn : public Dialogs<Base> {
  protected:
    void SetUp() override {
        Dialogs<Base>::SetUp();
        XtSetMultiClickTime(x11_disp, 1); // clicks that follow each other are no double clicks
    }
    Widget shell() const { return widget_called("Editeur"); }
    Widget text() const { return widget_called("text"); }
    Widget prompt() const { return on_screen_of(xmSelectionBoxWidgetClass); }
    std::string content() const { return field_text(text()); }
    bool sensitive() const { return XtIsSensitive(text()); }
    // Temporary files that came during this test and stay.
    std::set<std::string> left_behind() const {
        std::set<std::string> left = temporary_files();
        for (const auto& name : before_) left.erase(name);
        const auto all_gone = [&] {
            std::erase_if(left, [](const std::string& name) { return !fs::exists(name); });
            return left.empty();
        };
        wait_until(
            all_gone, [] { wait_readable(-1, Milliseconds(5)); }, Milliseconds(2000));
        return left;
    }
    bool is_open() const { return shell() != nullptr && is_viewable(shell()); }
    static Widget button(Widget box, unsigned char which) { return XmSelectionBoxGetChild(box, which); }

    void show() {
        ASSERT_EQ(grx_debut_editeur(), 1);
        ASSERT_EQ(grx_editeur(), 0);
        ASSERT_TRUE(this->wait_visible(shell()));
        this->drain();
    }
    INT load(const std::string& directory, const std::string& name) {
        std::string a = directory, n = name;
        const INT result = grx_file_editeur(a.data(), n.data());
        this->drain();
        return result;
    }
    void edit(const std::string& name) {
        show();
        EXPECT_EQ(load(this->files_.text(), name), 0);
    }
    void edit(const std::string& name, const std::string& bytes) {
        this->put(name, bytes);
        edit(name);
    }

    // By the mouse: the menu, then the entry.
    void choose(const std::string& menu, const std::string& entry) {
        this->drain();
        this->click(widget_called(menu));
        ASSERT_TRUE(this->wait_for([&] { return is_viewable(widget_called(entry)); })) << menu << " " << entry;
        this->click(widget_called(entry));
        ASSERT_TRUE(this->wait_for([&] { return !shell() || !is_viewable(widget_called(entry)); }));
        this->drain();
    }
    void save() { choose("File", "Save"); }

    void choose_open() {
        choose("File", "Open");
        ASSERT_TRUE(this->wait_for([&] { return this->file_box() != nullptr; }));
        this->drain();
    }
    void open_by_dialog(const std::string& name) {
        choose_open();
        this->retype_selection(this->path(name));
        this->drain();
        this->press(XmDIALOG_OK_BUTTON);
        ASSERT_TRUE(this->wait_for([&] { return this->file_box() == nullptr; }));
    }

    // Types at the start of the text.
    void type(const std::string& what) {
        this->pointer().click_in(text(), 8, 8);
        this->drain();
        this->keyboard().key(XK_Home, ControlMask);
        this->keyboard().type(what);
        this->drain();
    }
    void answer(unsigned char which) {
        ASSERT_TRUE(this->wait_for([&] { return prompt() != nullptr; }));
        this->drain();
        Widget box = prompt();
        this->click(button(box, which));
        this->wait_for([&] { return prompt() != box; }, Milliseconds(300));
        this->drain();
    }
    void fill_prompt(const std::string& name) {
        ASSERT_TRUE(this->wait_for([&] { return prompt() != nullptr; }));
        this->drain();
        this->retype(button(prompt(), XmDIALOG_TEXT), name);
        this->drain();
    }
    // Selects the first n characters as the user does, with Shift and the arrows.
    void select(int n) {
        this->pointer().click_in(text(), 8, 8);
        this->drain();
        this->keyboard().key(XK_Home, ControlMask);
        for (int i = 0; i < n; ++i) this->keyboard().key(XK_Right, ShiftMask);
        this->drain();
    }
    bool asks() {
        this->drain();
        return prompt() != nullptr;
    }
    bool closed() {
        return this->wait_for([&] { return shell() == nullptr; });
    }

  private:
    const std::set<std::string> before_ = temporary_files();
};

class Editor : public EditorOn<DisplayTest> {};

} // namespace grxtest
