// The dialogs of the editor, made when first needed, and what their answers do.
#include "dialogs/editor_questions.h"

#include <Xm/FileSB.h>
#include <Xm/Label.h>
#include <Xm/MessageB.h>
#include <Xm/RowColumn.h>
#include <Xm/SelectioB.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <utility>

#include "pure/text.h"
#include "pure/warning_bits.h"
#include "system/block.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/control_parts.h"
#include "toolkit/locale_text.h"
#include "toolkit/look.h"
#include "toolkit/option_menu.h"
#include "dialogs/editor_files.h"
#include "host_t.h"
#include "xt_f.h"
#include "xt_ini_f.h"
#include "xt_ini_t.h"
#include "xt_uti_f.h"

namespace grx::editor {

namespace {

Component component_in(XtPointer client) {
    return static_cast<Component>(number_in(client));
}

// A file that was named, but never read or written, is not reported as saved.
void leave(int status) {
    set_exit_status(!text_file().name || text_file().on_disk ? status : 0);
    close_file();
    grx_fin_editeur();
}

// A name longer than any path counts as none: cut short, it would be another file's.
std::string_view typed_in(const PlainText& text) {
    const std::string_view name(text.c_str());
    return name.size() < HOST_CHEMIN_MAX ? name : std::string_view();
}

// KEEP: a file that cannot be opened leaves the old text under the new name; unsaved text is not asked about.
void on_file_chosen(std::string_view name) {
    if (name.empty()) return;
    set_file_name(name);
    show_file();
    XtUnmanageChild(widget_of(kOpenDialog));
}

// A file that does not exist yet begins empty.
void on_new_name(std::string_view name) {
    if (name.empty()) return;
    set_file_name(name);
    if (!show_file()) {
        char nothing[] = "";
        text_file().encoding = TextEncoding::Unknown;
        show_text(nothing);
        allow_typing();
    }
    XtUnmanageChild(widget_of(kNewDialog));
}

// When saving under the new name fails, the file keeps its former one.
void on_other_name(std::string_view name) {
    if (name.empty()) return;
    TextFile& file = text_file();
    const bool was_on_disk = file.on_disk;
    Block<char> former = std::move(file.name);
    set_file_name(name);
    if (!save_or_tell()) {
        file.name = std::move(former);
        file.on_disk = was_on_disk;
    }
    XtUnmanageChild(widget_of(kSaveDialog));
}

void on_ok(Widget, XtPointer client, XtPointer call) {
    if (!is_on_show() || call == nullptr) return;
    const PlainText value(static_cast<XmSelectionBoxCallbackStruct*>(call)->value);
    switch (component_in(client)) {
    case kOpenDialog: on_file_chosen(typed_in(value)); break;
    case kNewDialog: on_new_name(typed_in(value)); break;
    case kSaveDialog: on_other_name(typed_in(value)); break;
    case kCloseWarning:
        if (save_or_tell()) close_file();
        break;
    case kExitWarning:
        if (save_or_tell()) leave(1);
        break;
    default: break;
    }
}

// "Discard".
void on_discard(Widget dialog, XtPointer client, XtPointer) {
    if (!is_on_show()) return;
    XtUnmanageChild(dialog); // the toolkit does not do it for this button
    if (component_in(client) == kCloseWarning) close_file();
    if (component_in(client) == kExitWarning) leave(0);
}

// The toolkit closes the other dialogs itself.
void on_cancel(Widget, XtPointer client, XtPointer) {
    if (component_in(client) == kOpenDialog && is_on_show()) XtUnmanageChild(widget_of(kOpenDialog));
}

void add_dialog_callbacks(Widget dialog, Component component) {
    XtAddCallback(dialog, XmNokCallback, on_ok, as_client_data(component));
    XtAddCallback(dialog, XmNcancelCallback, on_cancel, as_client_data(component));
}

Widget prompt_child(Widget dialog, unsigned char which) {
    return XmSelectionBoxGetChild(dialog, which);
}

Widget make_file_dialog() {
    Args args;
    set_dialog_look(args);
    Widget dialog = XmCreateFileSelectionDialog(
        widget_of(kShell), const_cast<char*>("file selection dialog"), args.list(), args.count());
    if (dialog == nullptr) return nullptr;
    XtUnmanageChild(XmFileSelectionBoxGetChild(dialog, XmDIALOG_HELP_BUTTON));
    add_dialog_callbacks(dialog, kOpenDialog);
    return dialog;
}

Widget make_prompt(const char* name, const char* prompt, Component component) {
    const CompoundString label(prompt);
    Args args;
    set_dialog_look(args);
    args.set(XmNselectionLabelString, label.get());
    Widget dialog = XmCreatePromptDialog(widget_of(kShell), const_cast<char*>(name), args.list(), args.count());
    if (dialog == nullptr) return nullptr;
    XtUnmanageChild(prompt_child(dialog, XmDIALOG_HELP_BUTTON));
    add_dialog_callbacks(dialog, component);
    return dialog;
}

// -- warnings

XImage* warning_image() {
    static XImage* image = nullptr;
    if (image != nullptr) return image;
    constexpr int bits = 8, row = kWarningSide / bits;
    image = XCreateImage(x11_disp, x11_vis, 1, XYBitmap, 0,
        reinterpret_cast<char*>(const_cast<unsigned char*>(warning_bits.data())), kWarningSide, kWarningSide, bits,
        row);
    if (image == nullptr) return nullptr;
    image->bitmap_bit_order = image->byte_order = LSBFirst;
    XmInstallImage(image, const_cast<char*>("warning_image"));
    return image;
}

Widget make_label(Widget row, const char* name, Args& args) {
    set_background(args, GRX_AUCUN);
    Widget label = XmCreateLabel(row, const_cast<char*>(name), args.list(), args.count());
    if (label != nullptr) XtManageChild(label);
    return label;
}

void make_picture_label(Widget row) {
    Args args;
    Widget label = make_label(row, "pixmap_label", args);
    if (label == nullptr || warning_image() == nullptr) return;
    const Pixmap pixmap = XmGetPixmapByDepth(XtScreen(label), const_cast<char*>("warning_image"),
        resource<Pixel>(label, XmNforeground), resource<Pixel>(label, XmNbackground), grx_recup_profondeur_ecran());
    if (pixmap != XmUNSPECIFIED_PIXMAP) show_pixmap(label, pixmap);
}

void make_warning_area(Widget dialog) {
    Args args;
    args.set(XmNorientation, XmHORIZONTAL);
    set_background(args, GRX_AUCUN);
    Widget row = XmCreateRowColumn(dialog, const_cast<char*>("workarea"), args.list(), args.count());
    if (row == nullptr) return;
    const CompoundString message("Sauvegarde des modifications?");
    Args text;
    text.set(XmNlabelString, message.get()).set(XmNfontList, fontlist);
    make_picture_label(row);
    make_label(row, "text_label", text);
    XtManageChild(row);
}

Widget make_warning(const char* name, Component component) {
    const CompoundString title("Avertissement"), discard("Discard"), save("Save");
    Args args;
    set_dialog_look(args);
    args.set(XmNdialogTitle, title.get()).set(XmNapplyLabelString, discard.get()).set(XmNokLabelString, save.get());
    args.set(XmNdialogStyle, XmDIALOG_PRIMARY_APPLICATION_MODAL);
    Widget dialog = XmCreatePromptDialog(widget_of(kShell), const_cast<char*>(name), args.list(), args.count());
    if (dialog == nullptr) return nullptr;
    for (const unsigned char child : {XmDIALOG_TEXT, XmDIALOG_SELECTION_LABEL, XmDIALOG_HELP_BUTTON})
        XtUnmanageChild(prompt_child(dialog, child));
    XtManageChild(prompt_child(dialog, XmDIALOG_APPLY_BUTTON));
    make_warning_area(dialog);
    add_dialog_callbacks(dialog, component);
    XtAddCallback(dialog, XmNapplyCallback, on_discard, as_client_data(component));
    return dialog;
}

// The message that saving failed. It does not block the editor.
Widget make_message() {
    const CompoundString title("Avertissement");
    Args args;
    set_dialog_look(args);
    args.set(XmNdialogTitle, title.get()).set(XmNdialogStyle, XmDIALOG_MODELESS);
    Widget dialog =
        XmCreateErrorDialog(widget_of(kShell), const_cast<char*>("general warning"), args.list(), args.count());
    if (dialog == nullptr) return nullptr;
    for (const unsigned char child : {XmDIALOG_CANCEL_BUTTON, XmDIALOG_HELP_BUTTON})
        XtUnmanageChild(XmMessageBoxGetChild(dialog, child));
    return dialog;
}

Widget make_dialog(Component component) {
    switch (component) {
    case kOpenDialog: return make_file_dialog();
    case kNewDialog: return make_prompt("new file dialog", "Entrer le nom du nouveau fichier", component);
    case kSaveDialog: return make_prompt("save dialog", "Sauver sous", component);
    case kCloseWarning: return make_warning("close warning", component);
    case kExitWarning: return make_warning("exit warning", component);
    case kGeneralWarning: return make_message();
    default: return nullptr;
    }
}

Widget dialog_of(Component component) {
    if (is_on_show() && widget_of(component) == nullptr) keep_widget(component, make_dialog(component));
    return widget_of(component);
}

void hide_dialog(Component component) {
    if (Widget dialog = widget_of(component)) XtUnmanageChild(dialog);
}

// One line that fits on the screen.
void tell_failure(std::string_view name, Reason reason) {
    constexpr int most = 60;
    char line[256] = "";
    const std::string_view shown = name.substr(name.rfind('/') + 1);
    std::snprintf(line, sizeof line, "%.*s n'a pas \351t\351 sauv\351 : %s",
        std::min(most, static_cast<int>(shown.size())), shown.data(), reason);
    std::replace_if(line, line + std::strlen(line), is_control, '?');
    grx_bipbip(0, 0);
    Widget dialog = dialog_of(kGeneralWarning);
    if (dialog == nullptr) return;
    const CompoundString message(line);
    set_resource(dialog, XmNmessageString, message.get());
    XtManageChild(dialog);
}

} // namespace

void show_dialog(Component component) {
    if (Widget dialog = dialog_of(component)) XtManageChild(dialog);
}

// A closed text is not saved, and no message says so.
bool save_or_tell() {
    TextFile& file = text_file();
    if (widget_of(kText) == nullptr || (!file.name && !XtIsSensitive(widget_of(kText)))) return false;
    hide_dialog(kGeneralWarning);
    const Reason reason = save_text();
    file.saved = reason == nullptr;
    file.on_disk = file.on_disk || file.saved;
    if (reason != nullptr) tell_failure(file.name ? file.name.data() : "Le texte", reason);
    return file.saved;
}

void show_save_dialog() {
    Widget dialog = dialog_of(kSaveDialog);
    if (dialog == nullptr) return;
    const CompoundString name(text_file().name ? text_file().name.data() : "");
    set_resource(dialog, XmNtextString, name.get());
    XtManageChild(dialog);
}

void exit_or_warn() {
    if (text_file().saved) {
        leave(1);
    } else {
        show_dialog(kExitWarning);
    }
}

void close_or_warn() {
    if (text_file().saved) {
        close_file();
    } else {
        show_dialog(kCloseWarning);
    }
}

} // namespace grx::editor
