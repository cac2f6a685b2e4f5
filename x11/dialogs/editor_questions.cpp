// The dialogs of the editor, made when first needed, and what their answers do.
#include "dialogs/editor_questions.h"

#include <X11/StringDefs.h>
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

#include "host_f.h"
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
#include "xt_f.h"
#include "xt_ini_f.h"
#include "xt_ini_t.h"
#include "xt_uti_f.h"

namespace grx::editor {

namespace {

enum Code : int { kOpenCode = 300, kCloseCode = 301, kExitCode = 302, kNewCode = 303, kSaveAsCode = 304 };

XtPointer as_data(Code code) {
    return grx::as_client_data(code);
}

int code_of(XtPointer client) {
    return grx::number_in(client);
}

// A file that there is none of is not told as saved.
void leave(int status) {
    set_exit_status(!text_file().name || text_file().on_disk ? status : 0);
    CloseFile();
    grx_fin_editeur();
}

// A name that no path has room for is none: cut short it would be another file's.
std::string_view typed_in(const grx::PlainText& text) {
    const std::string_view name(text.c_str());
    return name.size() < HOST_CHEMIN_MAX ? name : std::string_view();
}

// KEEP: a file that cannot be opened leaves the old text under the new name; unsaved text is not asked about.
void on_file_chosen(std::string_view name) {
    if (name.empty()) return;
    set_filename(name);
    OpenFile();
    XtUnmanageChild(at(kOpenDialog));
}

// A file that does not exist yet begins empty.
void on_new_name(std::string_view name) {
    if (name.empty()) return;
    set_filename(name);
    if (!OpenFile()) {
        char nothing[] = "";
        text_file().encoding = grx::TextEncoding::Unknown;
        show_text(nothing);
        open_for_typing();
    }
    XtUnmanageChild(at(kNewDialog));
}

// The name before stays when saving under the new one fails.
void on_other_name(std::string_view name) {
    if (name.empty()) return;
    const bool was_on_disk = text_file().on_disk;
    grx::Block<char> former = std::move(text_file().name);
    set_filename(name);
    if (!SaveFile()) {
        text_file().name = std::move(former);
        text_file().on_disk = was_on_disk;
    }
    XtUnmanageChild(at(kSaveDialog));
}

void DialogOkCB(Widget, XtPointer client, XtPointer call) {
    if (!is_on_show() || call == nullptr) return;
    const grx::PlainText value(static_cast<XmSelectionBoxCallbackStruct*>(call)->value);
    switch (code_of(client)) {
    case kOpenCode: on_file_chosen(typed_in(value)); break;
    case kNewCode: on_new_name(typed_in(value)); break;
    case kSaveAsCode: on_other_name(typed_in(value)); break;
    case kCloseCode:
        if (SaveFile()) CloseFile();
        break;
    case kExitCode:
        if (SaveFile()) leave(1);
        break;
    default: break;
    }
}

// "Discard".
void DialogApplyCB(Widget dialog, XtPointer client, XtPointer) {
    if (!is_on_show()) return;
    XtUnmanageChild(dialog); // this button leaves it on show
    if (code_of(client) == kCloseCode) CloseFile();
    if (code_of(client) == kExitCode) leave(0);
}

void DialogEditeurCancelCB(Widget, XtPointer client, XtPointer) {
    if (code_of(client) == kOpenCode && is_on_show()) XtUnmanageChild(at(kOpenDialog));
}

void add_dialog_callbacks(Widget dialog, Code code) {
    XtAddCallback(dialog, XmNokCallback, DialogOkCB, as_data(code));
    XtAddCallback(dialog, XmNcancelCallback, DialogEditeurCancelCB, as_data(code));
}

Widget prompt_child(Widget dialog, unsigned char which) {
    return XmSelectionBoxGetChild(dialog, which);
}

Widget make_file_dialog() {
    grx::Args args;
    grx::set_dialog_look(args);
    Widget dialog =
        XmCreateFileSelectionDialog(at(kShell), const_cast<char*>("file selection dialog"), args.list(), args.count());
    if (dialog == nullptr) return nullptr;
    XtUnmanageChild(XmFileSelectionBoxGetChild(dialog, XmDIALOG_HELP_BUTTON));
    add_dialog_callbacks(dialog, kOpenCode);
    return dialog;
}

Widget make_prompt(const char* name, const char* prompt, Code code) {
    const grx::CompoundString label(prompt);
    grx::Args args;
    grx::set_dialog_look(args);
    args.set(XmNselectionLabelString, label.get());
    Widget dialog = XmCreatePromptDialog(at(kShell), const_cast<char*>(name), args.list(), args.count());
    if (dialog == nullptr) return nullptr;
    XtUnmanageChild(prompt_child(dialog, XmDIALOG_HELP_BUTTON));
    add_dialog_callbacks(dialog, code);
    return dialog;
}

// -- warnings

XImage* warning_image() {
    static XImage* image = nullptr;
    if (image != nullptr) return image;
    constexpr int bits = 8, row = grx::kWarningSide / bits;
    image = XCreateImage(x11_disp, x11_vis, 1, XYBitmap, 0,
        reinterpret_cast<char*>(const_cast<unsigned char*>(grx::warning_bits.data())), grx::kWarningSide,
        grx::kWarningSide, bits, row);
    if (image == nullptr) return nullptr;
    image->bitmap_bit_order = image->byte_order = LSBFirst;
    XmInstallImage(image, const_cast<char*>("warning_image"));
    return image;
}

Widget make_label(Widget row, const char* name, grx::Args& args) {
    if (const auto pixel = grx::application_pixel()) args.set(XmNbackground, *pixel);
    Widget label = XmCreateLabel(row, const_cast<char*>(name), args.list(), args.count());
    if (label != nullptr) XtManageChild(label);
    return label;
}

void make_picture_label(Widget row) {
    grx::Args args;
    Widget label = make_label(row, "pixmap_label", args);
    if (label == nullptr || warning_image() == nullptr) return;
    const Pixmap pixmap = XmGetPixmapByDepth(XtScreen(label), const_cast<char*>("warning_image"),
        grx::resource<Pixel>(label, XmNforeground), grx::resource<Pixel>(label, XmNbackground),
        grx_recup_profondeur_ecran());
    if (pixmap != XmUNSPECIFIED_PIXMAP) grx::show_pixmap(label, pixmap);
}

void make_warning_area(Widget dialog) {
    grx::Args args;
    args.set(XmNorientation, XmHORIZONTAL);
    if (const auto pixel = grx::application_pixel()) args.set(XmNbackground, *pixel);
    Widget row = XmCreateRowColumn(dialog, const_cast<char*>("workarea"), args.list(), args.count());
    if (row == nullptr) return;
    const grx::CompoundString message("Sauvegarde des modifications?");
    grx::Args text;
    text.set(XmNlabelString, message.get()).set(XmNfontList, fontlist);
    make_picture_label(row);
    make_label(row, "text_label", text);
    XtManageChild(row);
}

Widget make_warning(const char* name, Code code) {
    const grx::CompoundString title("Avertissement"), discard("Discard"), save("Save");
    grx::Args args;
    grx::set_dialog_look(args);
    args.set(XmNdialogTitle, title.get()).set(XmNapplyLabelString, discard.get()).set(XmNokLabelString, save.get());
    args.set(XmNdialogStyle, XmDIALOG_PRIMARY_APPLICATION_MODAL);
    Widget dialog = XmCreatePromptDialog(at(kShell), const_cast<char*>(name), args.list(), args.count());
    if (dialog == nullptr) return nullptr;
    for (const unsigned char part : {XmDIALOG_TEXT, XmDIALOG_SELECTION_LABEL, XmDIALOG_HELP_BUTTON})
        XtUnmanageChild(prompt_child(dialog, part));
    XtManageChild(prompt_child(dialog, XmDIALOG_APPLY_BUTTON));
    make_warning_area(dialog);
    add_dialog_callbacks(dialog, code);
    XtAddCallback(dialog, XmNapplyCallback, DialogApplyCB, as_data(code));
    return dialog;
}

// A message beside which one can go on working.
Widget make_message() {
    const grx::CompoundString title("Avertissement");
    grx::Args args;
    grx::set_dialog_look(args);
    args.set(XmNdialogTitle, title.get()).set(XmNdialogStyle, XmDIALOG_MODELESS);
    Widget dialog = XmCreateErrorDialog(at(kShell), const_cast<char*>("general warning"), args.list(), args.count());
    if (dialog == nullptr) return nullptr;
    for (const unsigned char part : {XmDIALOG_CANCEL_BUTTON, XmDIALOG_HELP_BUTTON})
        XtUnmanageChild(XmMessageBoxGetChild(dialog, part));
    return dialog;
}

Widget make_dialog(Place place) {
    switch (place) {
    case kOpenDialog: return make_file_dialog();
    case kNewDialog: return make_prompt("new file dialog", "Entrer le nom du nouveau fichier", kNewCode);
    case kSaveDialog: return make_prompt("save dialog", "Sauver sous", kSaveAsCode);
    case kCloseWarning: return make_warning("close warning", kCloseCode);
    case kExitWarning: return make_warning("exit warning", kExitCode);
    case kGeneralWarning: return make_message();
    default: return nullptr;
    }
}

// A dialog is made when it is first needed.
Widget dialog_at(Place place) {
    if (is_on_show() && at(place) == nullptr) put(place, make_dialog(place));
    return at(place);
}

void hide(Place place) {
    if (Widget dialog = at(place)) XtUnmanageChild(dialog);
}

// In one line, of a length that the screen has room for.
void tell_failure(std::string_view name, Reason reason) {
    constexpr int most = 60;
    char line[256] = "";
    const std::string_view shown = name.substr(name.rfind('/') + 1);
    std::snprintf(line, sizeof line, "%.*s n'a pas \351t\351 sauv\351 : %s",
        std::min(most, static_cast<int>(shown.size())), shown.data(), reason);
    std::replace_if(line, line + std::strlen(line), grx::is_control, '?');
    grx_bipbip(0, 0);
    Widget dialog = dialog_at(kGeneralWarning);
    if (dialog == nullptr) return;
    const grx::CompoundString message(line);
    grx::set_resource(dialog, XmNmessageString, message.get());
    XtManageChild(dialog);
}

} // namespace

void show(Place place) {
    if (Widget dialog = dialog_at(place)) XtManageChild(dialog);
}

// A text that is closed is not saved, and nobody misses that.
bool SaveFile() {
    if (at(kText) == nullptr || (!text_file().name && !XtIsSensitive(at(kText)))) return false;
    hide(kGeneralWarning);
    const Reason reason = save_text();
    text_file().saved = reason == nullptr;
    text_file().on_disk = text_file().on_disk || text_file().saved;
    if (reason != nullptr) tell_failure(text_file().name ? text_file().name.data() : "Le texte", reason);
    return text_file().saved;
}

void show_save_dialog() {
    Widget dialog = dialog_at(kSaveDialog);
    if (dialog == nullptr) return;
    const grx::CompoundString name(text_file().name ? text_file().name.data() : "");
    grx::set_resource(dialog, XmNtextString, name.get());
    XtManageChild(dialog);
}

void exit_or_warn() {
    if (text_file().saved) {
        leave(1);
    } else {
        show(kExitWarning);
    }
}

void close_or_warn() {
    if (text_file().saved) {
        CloseFile();
    } else {
        show(kCloseWarning);
    }
}

} // namespace grx::editor
