// The state of the one editor, from its reservation to its end.
#include "dialogs/editor_state.h"

#include <Xm/Text.h>

#include <utility>

#include "system/kept.h"
#include "pure/text.h"
#include "session/nested_loop.h"
#include "xt_f.h"

char memo_filename[GRX_MEMO_FILENAME_MAX] = "";

namespace grx::editor {

namespace {

struct State {
    Block<Widget> tab_wid;
    TextFile file;
    AcceleratorTable keys;
    SelectionText asked_text;
    int exit_status = 0;
    intptr_t generation = 0;
};

Kept<State> kept_state;
State& state = kept_state.value;

void destroy_at(const grx::Block<Widget>& widgets, std::size_t place) {
    if (widgets[place] != nullptr) XtDestroyWidget(widgets[place]);
}

// The window and its dialogs.
void take_all_off_screen(const grx::Block<Widget>& widgets) {
    for (std::size_t place = 0; place < widgets.size(); ++place) {
        Widget w = widgets[place];
        if (w != nullptr && !XtIsShell(w)) w = XtParent(w); // a dialog is a shell's child
        if (w != nullptr && XtIsShell(w)) grx::take_off_screen(w);
    }
    grx::take_off_screen(nullptr);
}

} // namespace

Widget at(Place place) {
    return state.tab_wid ? state.tab_wid[place] : nullptr;
}

void put(Place place, Widget w) {
    state.tab_wid[place] = w;
}

bool is_open() {
    return static_cast<bool>(state.tab_wid);
}

bool is_on_show() {
    return at(kShell) != nullptr;
}

TextFile& text_file() {
    return state.file;
}

bool set_filename(std::string_view name) {
    state.file.on_disk = false;
    state.file.name = grx::Block<char>(name.size() + 1);
    if (state.file.name) grx::copy_text(state.file.name.data(), state.file.name.size(), name);
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

SelectionText& asked_text() {
    return state.asked_text;
}

void forget_places() {
    ++state.generation;
    state.keys.clear(nullptr); // the grabs go with the window
    state.asked_text.forget();
    state.tab_wid.reset();
    state.file.name.reset();
}

void set_sensitive(Place place, bool sensitive) {
    if (Widget w = at(place)) XtSetSensitive(w, sensitive ? True : False);
}

void open_for_typing() {
    for (const Place place : {kText, kCutButton, kCopyButton, kClearButton}) set_sensitive(place, true);
}

void show_text(char* text) {
    state.asked_text.forget(); // what was asked for was for the text before
    XmTextSetString(at(kText), text);
    state.file.saved = true; // after it: the text tells of every change
}

void take_off_screen() {
    take_all_off_screen(state.tab_wid);
}

} // namespace grx::editor

using namespace grx::editor;

extern "C" {

INT grx_debut_editeur(void) {
    if (is_open()) return 0;
    state.tab_wid = grx::Block<Widget>(kPlaces);
    return is_open() ? 1 : 0;
}

INT grx_fin_editeur(void) {
    if (!is_open()) return 0;
    // The destruction of the window finds no places to free.
    const grx::Block<Widget> widgets = std::move(state.tab_wid);
    forget_places();
    take_all_off_screen(widgets);
    for (std::size_t place = 0; place < kPrin; ++place) destroy_at(widgets, place);
    for (const Place place : {kMenuBar, kPrin, kShell}) destroy_at(widgets, place); // from the inside outwards
    return 1;
}
}
