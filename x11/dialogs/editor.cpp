// A small text editor in a window of its own.
#include "xt_prive.h"

#include <X11/Shell.h>
#include <X11/StringDefs.h>
#include <X11/Xatom.h>
#include <Xm/CascadeB.h>
#include <Xm/CutPaste.h>
#include <Xm/FileSB.h>
#include <Xm/Label.h>
#include <Xm/MainW.h>
#include <Xm/MessageB.h>
#include <Xm/Protocols.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/SelectioB.h>
#include <Xm/Text.h>
#include <Xm/Xm.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <utility>

#include "host_f.h"
#include "menus/accelerators.h"
#include "toolkit/args.h"
#include "system/block.h"
#include "toolkit/control_parts.h"
#include "toolkit/hidden_shell.h"
#include "system/kept.h"
#include "toolkit/locale_text.h"
#include "session/nested_loop.h"
#include "toolkit/option_menu.h"
#include "events/record.h"
#include "toolkit/look.h"
#include "dialogs/selection_text.h"
#include "system/shell_command.h"
#include "toolkit/compound_string.h"
#include "pure/text.h"
#include "pure/warning_bits.h"
#include "xt_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_uti_f.h"

char memo_filename[GRX_MEMO_FILENAME_MAX] = "";

// ------------------------------------------------------------------------------------------------- the editor's state

namespace {

// Places of tab_wid.
enum Place : std::size_t {
    kText = 0,
    kCutButton,
    kCopyButton,
    kPasteButton,
    kClearButton,
    kOpenDialog,
    kNewDialog,
    kCloseWarning,
    kExitWarning,
    kGeneralWarning, // tells that saving failed
    kSaveDialog,
    kPrintWarning, // nobody makes this one
    kPrin,
    kMenuBar,
    kShell,
    kPlaces
};

unsigned short editeur_ouvert = 0;
grx::Kept<grx::Block<Widget>> kept_widgets;
grx::Block<Widget>& tab_wid = kept_widgets.value;
grx::Kept<grx::Block<char>> kept_filename;
grx::Block<char>& filename = kept_filename.value;
grx::Kept<grx::AcceleratorTable> kept_keys;
grx::AcceleratorTable& keys = kept_keys.value;
int file_saved = 1;
bool on_disk = false; // there is such a file: it was read, or written
int exit_status = 0;
grx::TextEncoding encoding = grx::TextEncoding::Unknown; // of the file in the text
intptr_t generation = 0;                                 // which editor a destroy callback is of

Widget at(Place place) {
    return tab_wid ? tab_wid[place] : nullptr;
}

bool is_on_show() {
    return at(kShell) != nullptr;
}

grx::SelectionText clipboard; // what was asked of it

bool set_filename(std::string_view name) {
    on_disk = false;
    filename = grx::Block<char>(name.size() + 1);
    if (filename) grx::copy_text(filename.data(), filename.size(), name);
    return static_cast<bool>(filename);
}

void forget_places() {
    editeur_ouvert = 0;
    ++generation;
    keys.clear(nullptr); // the grabs go with the window
    clipboard.forget();
    tab_wid.reset();
    filename.reset();
}

void set_sensitive(Place place, bool sensitive) {
    if (Widget w = at(place)) XtSetSensitive(w, sensitive ? True : False);
}

void open_for_typing() {
    for (const Place place : {kText, kCutButton, kCopyButton, kClearButton}) set_sensitive(place, true);
}

void show_text(char* text) {
    clipboard.forget(); // what was asked for was for the text before
    XmTextSetString(at(kText), text);
    file_saved = 1; // after it: the text tells of every change
}

} // namespace

// --------------------------------------------------------------------------------------------------- files and text

namespace {

constexpr int kForUpdate = 3;
constexpr int kForReading = 2;
constexpr long kSizeUnknown = 1000000;

FILE* open_file(char* name) {
    char nowhere[] = "";
    FILE* file = nullptr;
    if (ftext_open(&file, nowhere, name, kForUpdate) != -1) return file;
    return ftext_open(&file, nowhere, name, kForReading) != -1 ? file : nullptr;
}

std::size_t size_of_file(FILE* file) {
    struct stat status {};
    const bool known = fstat(fileno(file), &status) == 0 && status.st_size >= 0;
    return static_cast<std::size_t>(known ? status.st_size : kSizeUnknown);
}

// The bytes of a file with a zero behind them; nothing when memory is short or the file is no text.
grx::Block<char> read_text(FILE* file) {
    auto bytes = grx::Block<char>::raw(size_of_file(file) + 1);
    if (!bytes) return bytes;
    const std::size_t length = std::fread(bytes.data(), 1, bytes.size() - 1, file);
    bytes[length] = '\0';
    if (std::memchr(bytes.data(), '\0', length) != nullptr) return {}; // it would be cut there, and saved so
    return bytes;
}

bool OpenFile() {
    if (!filename || at(kText) == nullptr) return false;
    FILE* const file = open_file(filename.data());
    if (file == nullptr) return false;
    const auto bytes = read_text(file);
    ftext_close(file);
    if (!bytes) {
        filename.reset(); // saving must not destroy what could not be shown
        return false;
    }
    encoding = grx::encoding_of(bytes.data());
    grx::LocaleText text(bytes.data());
    on_disk = true;
    show_text(text.data());
    open_for_typing();
    return true;
}

// -- saving: all of it to a temporary file first, then over the target

// A link that leads nowhere is there too.
bool is_there(const char* name) {
    struct stat status {};
    return lstat(name, &status) == 0;
}

// What a failed copy has destroyed is put back, what it has left of a new file goes.
class FormerContent {
  public:
    explicit FormerContent(const char* name) : name_(name), is_new_(!is_there(name)) {
        FILE* const file = std::fopen(name, "rb");
        if (file == nullptr) return;
        bytes_ = grx::Block<char>::raw(size_of_file(file));
        length_ = bytes_ ? std::fread(bytes_.data(), 1, bytes_.size(), file) : 0;
        std::fclose(file);
    }

    void put_back() const {
        if (is_new_) unlink(name_);
        if (!bytes_) return;
        FILE* const file = std::fopen(name_, "wb");
        if (file == nullptr) return;
        std::fwrite(bytes_.data(), 1, length_, file);
        std::fclose(file);
    }

  private:
    const char* name_;
    bool is_new_;
    grx::Block<char> bytes_;
    std::size_t length_ = 0;
};

// The target loses its old content before it gets the new one: there must be room for that.
bool fits_on_disk(const char* name, std::size_t size) {
    constexpr uint64_t block = 512;
    char directory[HOST_CHEMIN_MAX] = ".";
    const std::string_view path(name);
    const auto slash = path.rfind('/');
    if (slash != std::string_view::npos) grx::copy_text(directory, path.substr(0, slash + 1));
    struct statvfs room {};
    const bool known = statvfs(name, &room) == 0 || statvfs(directory, &room) == 0; // a link may lead to another disk
    if (!known) return true;                                                        // the copy will say
    struct stat target {};
    const uint64_t own = stat(name, &target) == 0 ? static_cast<uint64_t>(target.st_blocks) * block : 0;
    return uint64_t{room.f_bavail} * room.f_frsize + own >= size;
}

// KEEP: nothing is written without a line feed at its end; an empty text is one byte.
bool write_all(FILE* file, std::string_view text) {
    bool done = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    if (!text.ends_with('\n')) done = std::fputc('\n', file) != EOF && done;
    return std::fclose(file) == 0 && done;
}

class TemporaryFile {
  public:
    TemporaryFile() : descriptor_(mkstemp(name_)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (made()) unlink(name_);
    }

    bool made() const { return descriptor_ >= 0; }
    const char* name() const { return name_; }

    // Once. Nobody but its reader needs a right on it, whatever rights the target has.
    bool write(std::string_view text) {
        fchmod(descriptor_, S_IRUSR);
        FILE* const file = fdopen(descriptor_, "wb");
        if (file != nullptr) return write_all(file, text);
        close(descriptor_);
        return false;
    }

  private:
    char name_[25] = "/tmp/xmeditXXXXXX";
    int descriptor_;
};

// A name that begins with '-' is no option.
bool copy_over(const char* from, const char* to) {
    grx::ShellCommand command("cp");
    command.add(from);
    char guarded[HOST_CHEMIN_MAX + 2] = "./";
    grx::copy_text(guarded + 2, HOST_CHEMIN_MAX, to);
    return command.add(to[0] == '-' ? guarded : to).run() == 0;
}

// Why a text was not saved, in ISO 8859-1; null when it was.
using Reason = const char*;
constexpr Reason kNoMemory = "la m\351moire manque";
constexpr Reason kNoName = "il n'a pas de nom";
constexpr Reason kNoTemporary = "le fichier temporaire n'a pas pu \352tre \351crit";
constexpr Reason kDiskFull = "le disque est plein";
constexpr Reason kDirectory = "c'est un r\351pertoire";
constexpr Reason kNoFile = "ce n'est pas un fichier";
constexpr Reason kNoPath = "le chemin n'existe pas";
constexpr Reason kNotPermitted = "l'\351criture n'est pas permise";
constexpr Reason kNotCopied = "la copie a \351chou\351";

Reason reason_of(int error) {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ELOOP: return kNoPath;
    case EACCES:
    case EPERM:
    case EROFS:
    case ETXTBSY: return kNotPermitted;
    case ENOSPC:
    case EDQUOT: return kDiskFull;
    default: return kNotCopied;
    }
}

// The copy would be put into a directory, under the temporary name, and would wait for a reader of a pipe.
Reason takes_no_text(const char* name) {
    struct stat status {};
    if (stat(name, &status) != 0) return nullptr;
    return S_ISDIR(status.st_mode) ? kDirectory : S_ISFIFO(status.st_mode) ? kNoFile : nullptr;
}

// That a file can be written. One that is not there yet is made, with the rights that new files have: the copy into it
// leaves them.
Reason open_target(const char* name) {
    constexpr mode_t everybody = 0666;
    const int making = is_there(name) ? 0 : O_CREAT | O_EXCL;
    const int descriptor = open(name, O_WRONLY | O_NOCTTY | O_CLOEXEC | making, everybody);
    if (descriptor < 0) return reason_of(errno);
    close(descriptor);
    return nullptr;
}

Reason replace(const char* name, const char* by) {
    const FormerContent former(name);
    Reason reason = open_target(name);
    if (reason != nullptr) return reason;
    if (copy_over(by, name)) return nullptr;
    former.put_back();
    return kNotCopied;
}

Reason save(std::string_view text) {
    if (Reason reason = takes_no_text(filename.data())) return reason;
    TemporaryFile temporary;
    if (!temporary.made() || !temporary.write(text)) return kNoTemporary;
    return fits_on_disk(filename.data(), text.size() + 1) ? replace(filename.data(), temporary.name()) : kDiskFull;
}

Reason save_text() {
    if (!filename) return kNoName;
    char* const text = XmTextGetString(at(kText));
    if (text == nullptr) return kNoMemory;
    const grx::ApplicationText bytes(text, encoding);
    const Reason reason = save(bytes.lossless() ? bytes.c_str() : text);
    XtFree(text);
    return reason;
}

void tell_failure(std::string_view name, Reason reason);
void hide(Place place);

// A text that is closed is not saved, and nobody misses that.
bool SaveFile() {
    if (at(kText) == nullptr || (!filename && !XtIsSensitive(at(kText)))) return false;
    hide(kGeneralWarning);
    const Reason reason = save_text();
    file_saved = reason == nullptr;
    on_disk = on_disk || file_saved != 0;
    if (reason != nullptr) tell_failure(filename ? filename.data() : "Le texte", reason);
    return file_saved != 0;
}

void CloseFile() {
    char nothing[] = "";
    show_text(nothing);
    grx::copy_text(memo_filename, filename ? std::string_view(filename.data()) : std::string_view());
    filename.reset();
    set_sensitive(kText, false);
}

} // namespace

// ------------------------------------------------------------------------------------------------------- clipboard

namespace {

constexpr int kTries = 10; // while another client holds the clipboard
char string_format[] = "STRING";
char unicode_format[] = "UTF8_STRING";

template <class Operation>
bool with_clipboard(Operation operation) {
    for (int i = 0; i < kTries; ++i) {
        const int status = operation();
        if (status != ClipboardLocked) return status == ClipboardSuccess;
    }
    return false;
}

Time time_of(const XEvent* event) {
    if (event == nullptr) return XtLastTimestampProcessed(x11_disp);
    if (event->type == KeyPress || event->type == KeyRelease) return event->xkey.time;
    const bool button = event->type == ButtonPress || event->type == ButtonRelease;
    return button ? event->xbutton.time : XtLastTimestampProcessed(x11_disp);
}

void put_format(Window window, long item, char* format, const char* data) {
    const auto length = static_cast<unsigned long>(std::strlen(data)) + 1; // with its zero
    with_clipboard(
        [&] { return XmClipboardCopy(x11_disp, window, item, format, const_cast<char*>(data), length, 0, nullptr); });
}

void put_on_clipboard(const char* text, Time time) {
    const Window window = grx::window_of(at(kText));
    const grx::CompoundString label("XM_EDITOR");
    long item = 0;
    const bool begun = with_clipboard(
        [&] { return XmClipboardStartCopy(x11_disp, window, label.get(), time, nullptr, nullptr, &item); });
    if (!begun) return;
    const grx::ApplicationText latin1(text, grx::TextEncoding::Latin1); // as the format says
    put_format(window, item, string_format, latin1.c_str());
    if (!latin1.lossless()) put_format(window, item, unicode_format, text);
    with_clipboard([&] { return XmClipboardEndCopy(x11_disp, window, item); });
}

// Without a selection the clipboard keeps what it has.
bool copy_selection(Time time) {
    char* const selected = XmTextGetSelection(at(kText));
    if (selected == nullptr) return false;
    put_on_clipboard(selected, time);
    XtFree(selected);
    return true;
}

void on_kill_done(Widget, XtPointer, Atom*, Atom*, XtPointer value, unsigned long*, int*) {
    XtFree(static_cast<char*>(value));
}

// The owner of the selection is asked to delete it. The text itself does not know that request.
void delete_selection(Time time) {
    Widget text = at(kText);
    const Atom request = XInternAtom(x11_disp, "KILL_SELECTION", False);
    XtGetSelectionValue(grx::hidden_shell(), XA_PRIMARY, request, on_kill_done, nullptr, time);
    XmTextPosition left = 0, right = 0;
    if (XmTextGetSelectionPosition(text, &left, &right) && left != right) XmTextRemove(text);
}

void insert(char* bytes) {
    grx::LocaleText text(bytes);
    XmTextInsert(at(kText), XmTextGetInsertionPosition(at(kText)), text.data());
}

bool clipboard_is_own() {
    const Window owner = XGetSelectionOwner(x11_disp, XInternAtom(x11_disp, "CLIPBOARD", False));
    return owner != None && XtWindowToWidget(x11_disp, owner) != nullptr;
}

// What the application itself put there, with a zero behind it; nothing when there is none in this format.
grx::Block<char> own_text(char* format) {
    const Window window = grx::window_of(at(kText));
    unsigned long length = 0, given = 0;
    const bool present = with_clipboard([&] { return XmClipboardInquireLength(x11_disp, window, format, &length); });
    grx::Block<char> text(present && length > 0 ? length + 1 : 0);
    const bool got = text && with_clipboard([&] {
        return XmClipboardRetrieve(x11_disp, window, format, text.data(), length, &given, nullptr);
    });
    return got ? std::move(text) : grx::Block<char>();
}

// Asking oneself through the toolkit loses memory.
void paste(Time time) {
    if (clipboard_is_own()) {
        grx::Block<char> text = own_text(string_format);
        if (!text) text = own_text(unicode_format);
        if (text) insert(text.data());
        return;
    }
    clipboard.ask("CLIPBOARD", {string_format, unicode_format}, time, insert);
}

} // namespace

// --------------------------------------------------------------------------------------------------------- dialogs

namespace {

enum Code : int {
    kExit = 201,
    kOpen = 202,
    kNew = 203,
    kClose = 204,
    kSave = 205,
    kSaveAs = 206,
    kCut = 208,
    kCopy = 209,
    kPaste = 210,
    kDelete = 211,
    kOpenCode = 300,
    kCloseCode = 301,
    kExitCode = 302,
    kNewCode = 303,
    kSaveAsCode = 304
};

XtPointer as_data(Code code) {
    return grx::as_client_data(code);
}

int code_of(XtPointer client) {
    return grx::number_in(client);
}

// A file that there is none of is not told as saved.
void leave(int status) {
    exit_status = !filename || on_disk ? status : 0;
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
        encoding = grx::TextEncoding::Unknown;
        show_text(nothing);
        open_for_typing();
    }
    XtUnmanageChild(at(kNewDialog));
}

// The name before stays when saving under the new one fails.
void on_other_name(std::string_view name) {
    if (name.empty()) return;
    const bool was_on_disk = on_disk;
    grx::Block<char> former = std::move(filename);
    set_filename(name);
    if (!SaveFile()) {
        filename = std::move(former);
        on_disk = was_on_disk;
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
    if (is_on_show() && tab_wid[place] == nullptr) tab_wid[place] = make_dialog(place);
    return at(place);
}

void show(Place place) {
    if (Widget dialog = dialog_at(place)) XtManageChild(dialog);
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

void show_save_dialog() {
    Widget dialog = dialog_at(kSaveDialog);
    if (dialog == nullptr) return;
    const grx::CompoundString name(filename ? filename.data() : "");
    grx::set_resource(dialog, XmNtextString, name.get());
    XtManageChild(dialog);
}

void exit_or_warn() {
    if (file_saved != 0) {
        leave(1);
    } else {
        show(kExitWarning);
    }
}

void close_or_warn() {
    if (file_saved != 0) {
        CloseFile();
    } else {
        show(kCloseWarning);
    }
}

// What is cut is on the clipboard first.
void cut(Time time) {
    if (copy_selection(time)) delete_selection(time);
}

void MenuCB(Widget, XtPointer client, XtPointer call) {
    if (!is_on_show()) return;
    const Time time = time_of(call != nullptr ? static_cast<XmAnyCallbackStruct*>(call)->event : nullptr);
    switch (code_of(client)) {
    case kOpen: show(kOpenDialog); break;
    case kNew: show(kNewDialog); break;
    case kClose: close_or_warn(); break;
    case kSave: SaveFile(); break;
    case kSaveAs: show_save_dialog(); break;
    case kExit: exit_or_warn(); break;
    case kCut: cut(time); break;
    case kCopy: copy_selection(time); break;
    case kPaste: paste(time); break;
    case kDelete: delete_selection(time); break;
    default: break;
    }
}

} // namespace

// ------------------------------------------------------------------------------------------------------- the window

namespace {

struct Entry {
    const char* name;
    const char* label;
    Code code;
    const char* shown_key;   // "" = none
    const char* translation; // as the entry holds it
    const char* key;         // as the library matches it
    Place place;             // kPlaces = none of its own
};
constexpr std::array<Entry, 6> kFileEntries{{
    {"Open", "Ouvrir", kOpen, "", "", "", kPlaces},
    {"New", "Nouveau", kNew, "", "", "", kPlaces},
    {"close", "Fermeture", kClose, "", "", "", kPlaces},
    {"Save", "Sauver", kSave, "", "", "", kPlaces},
    {"Save As...", "Sauver sous", kSaveAs, "", "", "", kPlaces},
    {"Exit", "Fin", kExit, "F3", "<Key>F3:", "F3", kPlaces},
}};
constexpr std::array<Entry, 4> kEditEntries{{
    {"Couper", "Couper", kCut, "Shift+Del", "Shift<Key>Delete:", "Shift+Delete", kCutButton},
    {"Copier", "Copier", kCopy, "Ctrl+Ins", "Ctrl<Key>Insert:", "Ctrl+Insert", kCopyButton},
    {"Coller", "Coller", kPaste, "Shift+Ins", "Shift<Key>Insert:", "Shift+Insert", kPasteButton},
    {"Clear", "Supprimer", kDelete, "", "", "", kClearButton},
}};

void make_entry(Widget pane, const Entry& entry) {
    const grx::CompoundString label(entry.label), key(entry.shown_key);
    grx::Args args;
    args.set(XmNlabelString, label.get()).set(XmNfontList, fontlist);
    if (entry.shown_key[0] != '\0') args.set(XmNacceleratorText, key.get()).set(XmNaccelerator, entry.translation);
    grx::set_menu_look(args);
    Widget button = XmCreatePushButton(pane, const_cast<char*>(entry.name), args.list(), args.count());
    if (button == nullptr) return;
    XtAddCallback(button, XmNactivateCallback, MenuCB, as_data(entry.code));
    XtManageChild(button);
    if (entry.key[0] != '\0') keys.add(at(kPrin), grx::accelerator_for(button, entry.key));
    if (entry.place != kPlaces) tab_wid[entry.place] = button;
}

struct Pane {
    const char* name;
    const char* cascade;
    const char* label;
};

template <std::size_t N>
void make_pane(const Pane& pane, const std::array<Entry, N>& entries) {
    Widget menu = grx::make_pulldown(at(kMenuBar), pane.name);
    if (menu == nullptr) return;
    for (const Entry& entry : entries) make_entry(menu, entry);
    const grx::CompoundString label(pane.label);
    grx::Args args;
    args.set(XmNlabelString, label.get()).set(XmNfontList, fontlist).set(XmNsubMenuId, menu);
    grx::set_menu_look(args);
    Widget cascade = XmCreateCascadeButton(at(kMenuBar), const_cast<char*>(pane.cascade), args.list(), args.count());
    if (cascade != nullptr) XtManageChild(cascade);
}

void make_menu_bar() {
    grx::Args args;
    grx::set_menu_look(args);
    tab_wid[kMenuBar] = XmCreateMenuBar(at(kPrin), const_cast<char*>("menu_bar"), args.list(), args.count());
    if (at(kMenuBar) == nullptr) return;
    make_pane({"menu_pane1", "File", "Fichier"}, kFileEntries);
    make_pane({"menu_pane2", "Edit", "Editer"}, kEditEntries);
    XtManageChild(at(kMenuBar));
}

void on_change(Widget, XtPointer, XtPointer) {
    file_saved = 0;
}

void make_text() {
    constexpr int rows = 24, columns = 80;
    grx::Args args;
    args.set(XmNrows, rows).set(XmNcolumns, columns).set(XmNeditMode, XmMULTI_LINE_EDIT).set(XmNfontList, fontlist);
    if (const auto pixel = grx::application_pixel()) args.set(XmNbackground, *pixel);
    tab_wid[kText] = XmCreateScrolledText(at(kPrin), const_cast<char*>("text"), args.list(), args.count());
    Widget text = at(kText);
    if (text == nullptr) return;
    XtAddCallback(text, XmNmodifyVerifyCallback, on_change, nullptr);
    XtManageChild(text);
    XmAddTabGroup(text);
    XtSetSensitive(text, False);
    for (const Place place : {kCutButton, kCopyButton, kClearButton}) set_sensitive(place, false);
}

void on_key(Widget, XtPointer, XEvent* event, Boolean*) {
    if (event->type == KeyPress) keys.activate(*event);
}

void on_window_death(Widget w, XtPointer client, XtPointer call) {
    if (reinterpret_cast<intptr_t>(client) == generation) grx_editeur_est_detruit(w, nullptr, call);
}

void make_main() {
    grx::Args args;
    args.set(XmNshadowThickness, 0);
    if (const auto pixel = grx::application_pixel()) args.set(XmNbackground, *pixel);
    tab_wid[kPrin] = XmCreateMainWindow(at(kShell), const_cast<char*>("main"), args.list(), args.count());
    Widget main = at(kPrin);
    if (main == nullptr) return;
    XtAddCallback(main, XmNdestroyCallback, on_window_death, reinterpret_cast<XtPointer>(generation));
    XtAddEventHandler(main, KeyPressMask, False, on_key, nullptr);
    make_menu_bar();
    make_text();
    XtManageChild(main);
}

// The window manager's close loses nothing that is not saved.
void on_close_request(Widget shell, XtPointer, XtPointer) {
    if (file_saved != 0) {
        XtDestroyWidget(shell);
    } else {
        show(kExitWarning);
    }
}

void make_shell(Widget over) {
    grx::Args args;
    args.set(XmNdeleteResponse, XmDO_NOTHING);
    grx::set_menu_look(args);
    tab_wid[kShell] = XtCreatePopupShell("Editeur", transientShellWidgetClass, over, args.list(), args.count());
    if (at(kShell) == nullptr) return;
    grx::end_with_its_window(at(kShell));
    const Atom close = XmInternAtom(x11_disp, const_cast<char*>("WM_DELETE_WINDOW"), False);
    XmAddWMProtocolCallback(at(kShell), close, on_close_request, nullptr);
}

void put_in_the_middle(Widget shell) {
    XtRealizeWidget(shell);
    const grx::Size size = grx::size_of(shell);
    grx::Args args;
    args.set(XmNx, std::max((grx_recup_lar_ecran() - size.width) / 2, 0));
    args.set(XmNy, std::max((grx_recup_hau_ecran() - size.height) / 2, 0));
    XtSetValues(shell, args.list(), args.count());
}

void destroy_at(const grx::Block<Widget>& widgets, std::size_t place) {
    if (widgets[place] != nullptr) XtDestroyWidget(widgets[place]);
}

// The window and its dialogs.
void take_off_screen(const grx::Block<Widget>& widgets) {
    for (std::size_t place = 0; place < widgets.size(); ++place) {
        Widget w = widgets[place];
        if (w != nullptr && !XtIsShell(w)) w = XtParent(w); // a dialog is a shell's child
        if (w != nullptr && XtIsShell(w)) grx::take_off_screen(w);
    }
    grx::take_off_screen(nullptr);
}

void open_named(char* adr, char* name) {
    char path[HOST_CHEMIN_MAX] = "";
    if (grx::view(adr).size() + grx::view(name).size() + 2 > sizeof path) return;
    char nowhere[] = "";
    compose_adresse_fichier(adr != nullptr ? adr : nowhere, name, path);
    if (!set_filename(path)) return;
    XFlush(x11_disp);
    OpenFile();
}

// The name under which the file was closed goes back to the caller, when it is another and there is such a file.
void give_name_back(std::string_view opened, char* adr, char* name) {
    const std::string_view closed(memo_filename);
    if (!on_disk || closed.empty() || closed == opened.substr(0, GRX_MEMO_FILENAME_MAX - 1)) return;
    const auto slash = closed.rfind('/'); // KEEP: a file of the root directory empties adr
    const bool has_directory = slash != std::string_view::npos;
    grx::copy_text(adr, GRX_MEMO_FILENAME_MAX, has_directory ? closed.substr(0, slash) : std::string_view());
    grx::copy_text(name, GRX_MEMO_FILENAME_MAX, has_directory ? closed.substr(slash + 1) : closed);
}

} // namespace

extern "C" {

INT grx_debut_editeur(void) {
    if (editeur_ouvert != 0) return 0;
    tab_wid = grx::Block<Widget>(kPlaces);
    if (!tab_wid) return 0;
    editeur_ouvert = 1;
    return 1;
}

INT grx_editeur(void) {
    Widget over = grx_recup_objet_fen(grx_recup_nofen_principale());
    if (!tab_wid || is_on_show() || over == nullptr) return 0;
    exit_status = 0;
    file_saved = 1;
    make_shell(over);
    if (!is_on_show()) return 0;
    make_main();
    put_in_the_middle(at(kShell));
    XtPopup(at(kShell), XtGrabNone);
    return 0;
}

INT grx_file_editeur(char* adr, char* name) {
    if (at(kText) != nullptr && !grx::view(name).empty()) open_named(adr, name);
    return 0;
}

INT grx_file_editeur_bloquant(char* adr, char* name) {
    memo_filename[0] = '\0';
    grx_file_editeur(adr, name);
    grx::Block<char> opened(HOST_CHEMIN_MAX);
    if (opened && filename) grx::copy_text(opened.data(), opened.size(), filename.data());
    grx::run_until([] { return editeur_ouvert == 0 || !is_on_show() || grx::is_dying(at(kShell)); });
    take_off_screen(tab_wid);
    give_name_back(opened ? opened.data() : "", adr, name);
    return exit_status;
}

INT grx_fin_editeur(void) {
    if (editeur_ouvert == 0) return 0;
    const grx::Block<Widget> widgets = std::move(tab_wid); // the destruction of the window finds no places to free
    forget_places();
    take_off_screen(widgets);
    for (std::size_t place = 0; place < kPrin; ++place) destroy_at(widgets, place);
    for (const Place place : {kMenuBar, kPrin, kShell}) destroy_at(widgets, place); // from the inside outwards
    return 1;
}

void grx_editeur_est_detruit(Widget, XtPointer, XtPointer) {
    forget_places();
}
}
