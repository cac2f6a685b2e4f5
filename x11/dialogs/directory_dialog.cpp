// The dialog that returns with a directory.
#include <X11/StringDefs.h>
#include <Xm/FileSB.h>
#include <Xm/Xm.h>

#include <cstring>

#include "pure/text.h"
#include "toolkit/compound_string.h"
#include "dialogs/file_parts.h"
#include "xt_f.h"

using namespace grx::file_parts;

namespace {

int sortie_rep = kWaiting;
Path rep_retour_complet{};
Widget file_selection = nullptr;

void DialogDirAcceptCB(Widget dialog, XtPointer, XtPointer call_data) {
    if (call_data == nullptr) return;
    const grx::PlainText chosen(static_cast<XmFileSelectionBoxCallbackStruct*>(call_data)->value);
    if (std::strlen(chosen.c_str()) >= GRX_CHEMIN_DIALOGUE_MAX || has_controls(dialog)) return;
    keep_path(rep_retour_complet, chosen.c_str());
    sortie_rep = kAccepted;
}

void on_dir_cancel(Widget, XtPointer, XtPointer) {
    rep_retour_complet[0] = '\0';
    sortie_rep = kCancelled;
}

void on_dir_gone(Widget dialog, XtPointer, XtPointer) {
    if (dialog == file_selection) end_with(sortie_rep, kGone);
}

void forget_dir_dialog(Widget dialog, XtPointer, XtPointer) {
    on_dir_gone(dialog, nullptr, nullptr);
    if (file_selection == dialog) file_selection = nullptr;
}

Widget open_dir_dialog(Widget parent, const char* titre, const char* directory) {
    drop_former(file_selection);
    Widget dialog = make_dialog(parent, "file_selection", {titre, "", directory, kMessageOk});
    if (dialog == nullptr) return nullptr;
    remove(child_of(dialog, XmDIALOG_LIST_LABEL));
    remove(XtParent(child_of(dialog, XmDIALOG_LIST)));
    XtAddCallback(dialog, XmNokCallback, DialogDirAcceptCB, nullptr);
    XtAddCallback(dialog, XmNcancelCallback, on_dir_cancel, nullptr);
    XtAddCallback(dialog, XmNunmapCallback, on_dir_gone, nullptr);
    XtAddCallback(dialog, XmNdestroyCallback, forget_dir_dialog, nullptr);
    return dialog;
}

const char* text_or_empty(const char* text) {
    return text != nullptr ? text : "";
}

} // namespace

extern "C" {

INT select_repertoire_x11(char* titre, char* rep_def) {
    Widget parent = main_widget();
    if (parent == nullptr || choosing()) return 0;
    sortie_rep = kWaiting;
    rep_retour_complet[0] = '\0';
    file_selection = open_dir_dialog(parent, text_or_empty(titre), text_or_empty(rep_def));
    if (file_selection == nullptr || run(file_selection, sortie_rep) != kAccepted) return 0;
    if (rep_def != nullptr) grx::copy_text(rep_def, GRX_CHEMIN_DIALOGUE_MAX, rep_retour_complet.data());
    return 1;
}
}
