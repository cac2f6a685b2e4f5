// The state of the one editor, from its reservation to its end.
#include "dialogs/editor_state.h"

#include <Xm/Text.h>

#include <utility>

#include "pure/text.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "display/lost_connection.h"
#include "session/nested_loop.h"
#include "xt_f.h"

char memo_filename[GRX_MEMO_FILENAME_MAX] = "";

namespace grx::editor {

namespace {

struct State {
    Block<Widget> widgets;
    TextFile file;
    AcceleratorTable keys;
    SelectionText clipboard_text;
    int exit_status = 0;
    intptr_t generation = 0;
};

NeverDestroyed<State> lasting_state;
State& state = lasting_state.value;

// The widgets stay in memory: what happens while the connection is lost may still hold them.
void hide_editor_widgets() {
    grx::keep_hidden(state.widgets.release());
}

void destroy(Widget w) {
    if (w != nullptr) XtDestroyWidget(w);
}

void take_shells_off_screen(const Block<Widget>& widgets) {
    for (Widget w : widgets) {
        if (w != nullptr && !XtIsShell(w)) w = XtParent(w); // a dialog is a shell's child
        if (w != nullptr && XtIsShell(w)) grx::take_off_screen(w);
    }
    grx::take_off_screen(nullptr);
}

void end_editor() {
    grx_fin_editeur();
    state.exit_status = 0;
    state.generation = 0;
    state.file = TextFile();
    state.keys = AcceleratorTable();
    state.clipboard_text = SelectionText();
    memo_filename[0] = '\0';
}

} // namespace

Widget widget_of(Component component) {
    return state.widgets ? state.widgets[component] : nullptr;
}

void keep_widget(Component component, Widget w) {
    state.widgets[component] = w;
}

void set_sensitive(Component component, bool sensitive) {
    if (Widget w = widget_of(component)) XtSetSensitive(w, sensitive ? True : False);
}

bool is_reserved() {
    return static_cast<bool>(state.widgets);
}

bool is_on_show() {
    return widget_of(kShell) != nullptr;
}

TextFile& text_file() {
    return state.file;
}

bool set_file_name(std::string_view name) {
    state.file.on_disk = false;
    state.file.name = Block<char>(name.size() + 1);
    if (state.file.name) copy_text(state.file.name.data(), state.file.name.size(), name);
    return static_cast<bool>(state.file.name);
}

int exit_status() {
    return state.exit_status;
}

void set_exit_status(int status) {
    state.exit_status = status;
}

intptr_t generation() {
    return state.generation;
}

AcceleratorTable& keys() {
    return state.keys;
}

SelectionText& clipboard_text() {
    return state.clipboard_text;
}

void allow_typing() {
    for (const Component component : {kText, kCutButton, kCopyButton, kClearButton}) set_sensitive(component, true);
}

void show_text(char* text) {
    state.clipboard_text.forget(); // it was asked for the text before
    XmTextSetString(widget_of(kText), text);
    state.file.saved = true; // last: the text widget reports the new text as a change
}

void hide_editor() {
    take_shells_off_screen(state.widgets);
}

void forget_editor() {
    ++state.generation;
    state.keys.clear(nullptr); // the grabs go with the window
    state.clipboard_text.forget();
    state.widgets.reset();
    state.file.name.reset();
}

} // namespace grx::editor

using namespace grx::editor;

extern "C" {

INT grx_debut_editeur(void) {
    if (is_reserved()) return 0;
    grx::at_shut_down(end_editor);
    state.widgets = grx::Block<Widget>(kComponents);
    grx::at_lost_connection(hide_editor_widgets);
    return is_reserved() ? 1 : 0;
}

INT grx_fin_editeur(void) {
    if (!is_reserved()) return 0;
    const grx::Block<Widget> widgets = std::move(state.widgets); // they are destroyed when the state is empty
    forget_editor();
    take_shells_off_screen(widgets);
    for (std::size_t component = 0; component < kMainWindow; ++component) destroy(widgets[component]);
    for (const Component outwards : {kMenuBar, kMainWindow, kShell}) destroy(widgets[outwards]);
    return 1;
}
}
