// Dialogs that return with a file or a directory: their labels, and their run until there is an answer.
#include "dialogs/file_parts.h"

#include <Xm/FileSB.h>
#include <Xm/TextF.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <utility>

#include "pure/text.h"
#include "system/shut_down.h"
#include "toolkit/compound_string.h"
#include "toolkit/option_menu.h"
#include "toolkit/widgets.h"
#include "registry/window_table.h"
#include "session/nested_loop.h"
#include "host_f.h"
#include "xt_fen_f.h"

namespace grx::file_parts {

namespace {

PathDialog the_file_dialog;
bool on_show = false;

struct LabelMessage {
    const char* resource;
    INT message;
};

// KEEP: the label of the filter and the button that applies it are one message.
const std::array<LabelMessage, 6> kLabels{
    {{XmNapplyLabelString, 1251}, {XmNcancelLabelString, 1246}, {XmNfilterLabelString, 1251},
        {XmNselectionLabelString, 1335}, {XmNdirListLabelString, 1336}, {XmNfileListLabelString, 1066}}};

void set_label(Widget dialog, const LabelMessage& label) {
    const MessageText text(label.message);
    if (text.empty()) return;
    const CompoundString string(text.c_str());
    set_resource(dialog, label.resource, string.get());
}

constexpr int kColumns = 48; // of the field: whole paths are read there

void on_cancel(Widget, XtPointer client_data, XtPointer) {
    auto& dialog = *static_cast<PathDialog*>(client_data);
    dialog.path[0] = '\0';
    dialog.answer = kCancelled;
}

// The end of a dialog that was on show before says nothing of the present one.
void on_gone(Widget w, XtPointer client_data, XtPointer) {
    auto& dialog = *static_cast<PathDialog*>(client_data);
    if (w == dialog.widget) end_with(dialog.answer, kGone);
}

void on_death(Widget w, XtPointer client_data, XtPointer) {
    on_gone(w, client_data, nullptr);
    auto& dialog = *static_cast<PathDialog*>(client_data);
    if (w == dialog.widget) dialog.widget = nullptr;
}

void destroy(PathDialog& dialog) {
    Widget former = std::exchange(dialog.widget, nullptr);
    if (former != nullptr) XtDestroyWidget(XtParent(former));
}

} // namespace

void end_with(int& answer, int value) {
    if (answer == kWaiting) answer = value;
}

bool keep_path(Path& path, std::string_view name) {
    return copy_text(path.data(), path.size(), name);
}

Widget main_widget() {
    Widget w = grx::window_widget_if_any(grx_recup_nofen_principale());
    return can_hold_children(w) ? w : nullptr;
}

MessageText::MessageText(INT number) {
    if (litmess(number, text_) == 0) text_[0] = '\0';
}

const char* text_or_empty(const char* text) {
    return text != nullptr ? text : "";
}

void set_modal_look(Args& args) {
    args.set(XmNdialogStyle, XmDIALOG_FULL_APPLICATION_MODAL);
    set_dialog_look(args);
}

Widget child_of(Widget dialog, unsigned char which) {
    return XmFileSelectionBoxGetChild(dialog, which);
}

void unmanage(Widget w) {
    if (w != nullptr) XtUnmanageChild(w);
}

bool has_controls(Widget dialog) {
    char* const typed = XmTextFieldGetString(child_of(dialog, XmDIALOG_TEXT));
    const bool found = std::ranges::any_of(view(typed), is_control);
    XtFree(typed);
    return found;
}

Widget make_dialog(Widget parent, const Proposal& proposal) {
    const CompoundString pattern(proposal.pattern);
    const CompoundString directory(proposal.directory);
    Args args;
    set_modal_look(args);
    args.set(XmNtextColumns, kColumns);
    if (proposal.pattern[0] != '\0') args.set(XmNpattern, pattern.get());
    if (proposal.directory[0] != '\0') args.set(XmNdirectory, directory.get());
    Widget dialog = XmCreateFileSelectionDialog(parent, const_cast<char*>("file_selection"), args.list(), args.count());
    if (dialog == nullptr) return nullptr;
    // The shell takes the title as it is. A title given to the dialog is converted by the toolkit, which fails for
    // Latin-1 bytes in a UTF-8 locale.
    set_resource(XtParent(dialog), XmNtitle, proposal.title);
    set_label(dialog, {XmNokLabelString, proposal.ok_message});
    for (const LabelMessage& label : kLabels) set_label(dialog, label);
    unmanage(child_of(dialog, XmDIALOG_HELP_BUTTON));
    return dialog;
}

PathDialog& file_dialog() {
    return the_file_dialog;
}

bool one_is_on_show() {
    return on_show;
}

void add_end_callbacks(Widget w, PathDialog& dialog) {
    XtAddCallback(w, XmNcancelCallback, on_cancel, &dialog);
    XtAddCallback(w, XmNunmapCallback, on_gone, &dialog);
    XtAddCallback(w, XmNdestroyCallback, on_death, &dialog);
}

void forget(PathDialog& dialog) {
    destroy(dialog);
    dialog = PathDialog();
}

void start(PathDialog& dialog) {
    dialog.answer = kWaiting;
    dialog.path[0] = '\0';
    destroy(dialog);
}

int run(PathDialog& dialog) {
    on_show = true;
    XtManageChild(dialog.widget);
    run_until([&] { return dialog.answer != kWaiting || dialog.widget == nullptr || is_dying(dialog.widget); });
    on_show = false;
    end_with(dialog.answer, kGone);
    const int result = dialog.answer;
    take_off_screen(dialog.widget != nullptr ? XtParent(dialog.widget) : nullptr);
    if (result != kGone) destroy(dialog);
    return result;
}

} // namespace grx::file_parts
