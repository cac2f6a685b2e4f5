// Dialogs that return with a file or a directory: their labels, and their run until there is an answer.
#include "dialogs/file_parts.h"

#include <X11/StringDefs.h>
#include <Xm/FileSB.h>
#include <Xm/TextF.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "pure/text.h"
#include "toolkit/compound_string.h"
#include "toolkit/option_menu.h"
#include "toolkit/widgets.h"
#include "session/nested_loop.h"
#include "xt_fen_f.h"

namespace grx::file_parts {

namespace {

Widget the_file_dialog = nullptr; // on show, or left by one that went away by itself
bool on_show = false;             // a dialog is on show: there is only one at a time

struct Label {
    const char* resource;
    INT message;
};

// KEEP: the label of the filter and the button that applies it are one message.
const std::array<Label, 6> kLabels{
    {{XmNapplyLabelString, 1251}, {XmNcancelLabelString, 1246}, {XmNfilterLabelString, 1251},
        {XmNselectionLabelString, 1335}, {XmNdirListLabelString, 1336}, {XmNfileListLabelString, 1066}}};

void set_label(Widget dialog, const Label& label) {
    const MessageText text(label.message);
    if (text.empty()) return;
    const grx::CompoundString string(text.c_str());
    grx::set_resource(dialog, label.resource, string.get());
}

constexpr int kColumns = 48; // of the selected name: whole paths are read

} // namespace

void end_with(int& answer, int value) {
    if (answer == kWaiting) answer = value;
}

bool keep_path(Path& path, std::string_view name) {
    return grx::copy_text(path.data(), path.size(), name);
}

Widget main_widget() {
    Widget w = grx_recup_objet_fen(grx_recup_nofen_principale());
    return grx::can_hold_children(w) ? w : nullptr;
}

MessageText::MessageText(INT number) {
    if (litmess(number, text_) == 0) text_[0] = '\0';
}

void set_modal_look(grx::Args& args) {
    args.set(XmNdialogStyle, XmDIALOG_FULL_APPLICATION_MODAL);
    grx::set_dialog_look(args);
}

Widget child_of(Widget dialog, unsigned char which) {
    return XmFileSelectionBoxGetChild(dialog, which);
}

void remove(Widget w) {
    if (w != nullptr) XtUnmanageChild(w);
}

bool has_controls(Widget dialog) {
    char* const typed = XmTextFieldGetString(child_of(dialog, XmDIALOG_TEXT));
    const bool found = std::ranges::any_of(grx::view(typed), grx::is_control);
    XtFree(typed);
    return found;
}

Widget make_dialog(Widget parent, const char* name, const Proposal& proposal) {
    const grx::CompoundString pattern(proposal.pattern);
    const grx::CompoundString directory(proposal.directory);
    grx::Args args;
    set_modal_look(args);
    args.set(XmNtextColumns, kColumns);
    if (proposal.pattern[0] != '\0') args.set(XmNpattern, pattern.get());
    if (proposal.directory[0] != '\0') args.set(XmNdirectory, directory.get());
    Widget dialog = XmCreateFileSelectionDialog(parent, const_cast<char*>(name), args.list(), args.count());
    if (dialog == nullptr) return nullptr;
    // As windows have it: the toolkit's own conversion of a dialog's title depends on the locale, and fails for Latin-1
    // bytes in a UTF-8 one.
    grx::set_resource(XtParent(dialog), XmNtitle, proposal.title);
    set_label(dialog, {XmNokLabelString, proposal.ok_message});
    for (const Label& label : kLabels) set_label(dialog, label);
    remove(child_of(dialog, XmDIALOG_HELP_BUTTON));
    return dialog;
}

Widget& file_dialog() {
    return the_file_dialog;
}

bool choosing() {
    return on_show;
}

void drop_former(Widget& dialog) {
    Widget former = std::exchange(dialog, nullptr);
    if (former != nullptr) XtDestroyWidget(XtParent(former));
}

int run(Widget& dialog, int& answer) {
    on_show = true;
    XtManageChild(dialog);
    grx::run_until([&] { return answer != kWaiting || dialog == nullptr || grx::is_dying(dialog); });
    on_show = false;
    end_with(answer, kGone);
    const int result = answer;
    grx::take_off_screen(dialog != nullptr ? XtParent(dialog) : nullptr);
    if (result != kGone) drop_former(dialog);
    return result;
}

} // namespace grx::file_parts
