// The dialog that returns with a directory.
#include <Xm/FileSB.h>
#include <Xm/Xm.h>

#include <cstring>

#include "pure/text.h"
#include "system/shut_down.h"
#include "toolkit/compound_string.h"
#include "dialogs/file_parts.h"
#include "xt_f.h"

using namespace grx::file_parts;

namespace {

PathDialog directory_dialog;

void on_ok(Widget w, XtPointer, XtPointer call_data) {
    if (call_data == nullptr) return;
    const grx::PlainText chosen(static_cast<XmFileSelectionBoxCallbackStruct*>(call_data)->value);
    if (std::strlen(chosen.c_str()) >= GRX_CHEMIN_DIALOGUE_MAX || has_controls(w)) return;
    keep_path(directory_dialog.path, chosen.c_str());
    directory_dialog.answer = kAccepted;
}

Widget make_directory_dialog(Widget parent, const char* title, const char* directory) {
    Widget dialog = make_dialog(parent, {title, "", directory, kMessageOk});
    if (dialog == nullptr) return nullptr;
    unmanage(child_of(dialog, XmDIALOG_LIST_LABEL));
    unmanage(XtParent(child_of(dialog, XmDIALOG_LIST)));
    XtAddCallback(dialog, XmNokCallback, on_ok, nullptr);
    add_end_callbacks(dialog, directory_dialog);
    return dialog;
}

void forget_directory_dialog() {
    forget(directory_dialog);
}

} // namespace

extern "C" {

INT select_repertoire_x11(char* titre, char* rep_def) {
    Widget parent = main_widget();
    if (parent == nullptr || one_is_on_show()) return 0;
    grx::at_shut_down(forget_directory_dialog);
    start(directory_dialog);
    directory_dialog.widget = make_directory_dialog(parent, text_or_empty(titre), text_or_empty(rep_def));
    if (directory_dialog.widget == nullptr || run(directory_dialog) != kAccepted) return 0;
    if (rep_def != nullptr) grx::copy_text(rep_def, GRX_CHEMIN_DIALOGUE_MAX, directory_dialog.path.data());
    return 1;
}
}
