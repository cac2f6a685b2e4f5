// The selection of the editor's text and the clipboard: cut, copy, paste, delete.
#include "dialogs/editor_clipboard.h"

#include <X11/Xatom.h>
#include <Xm/CutPaste.h>
#include <Xm/Text.h>

#include <cstdlib>
#include <cstring>
#include <utility>

#include "system/block.h"
#include "display/pixmaps.h"
#include "toolkit/compound_string.h"
#include "toolkit/hidden_shell.h"
#include "toolkit/locale_text.h"
#include "session/clipboard.h"
#include "dialogs/editor_state.h"
#include "grx_plus_presse_papiers.h"
#include "xt_ini_t.h"

namespace grx::editor {

namespace {

constexpr int kTries = 10;       // while another client has locked the clipboard
char kStringFormat[] = "STRING"; // the toolkit takes no constant texts
char kUnicodeFormat[] = "UTF8_STRING";

template <class Operation>
bool with_clipboard(Operation operation) {
    for (int i = 0; i < kTries; ++i) {
        const int status = operation();
        if (status != ClipboardLocked) return status == ClipboardSuccess;
    }
    return false;
}

void put_format(Window window, long item, char* format, const char* data) {
    const auto length = static_cast<unsigned long>(std::strlen(data)) + 1; // with its zero
    with_clipboard(
        [&] { return XmClipboardCopy(x11_disp, window, item, format, const_cast<char*>(data), length, 0, nullptr); });
}

void put_on_clipboard(const char* text, Time time) {
    const Window window = window_of(widget_of(kText));
    const CompoundString label("XM_EDITOR");
    long item = 0;
    const bool begun = with_clipboard(
        [&] { return XmClipboardStartCopy(x11_disp, window, label.get(), time, nullptr, nullptr, &item); });
    if (!begun) return;
    const ApplicationText latin1(text, TextEncoding::Latin1); // as the format says
    put_format(window, item, kStringFormat, latin1.c_str());
    if (!latin1.lossless()) put_format(window, item, kUnicodeFormat, text);
    with_clipboard([&] { return XmClipboardEndCopy(x11_disp, window, item); });
}

void on_kill_done(Widget, XtPointer, Atom*, Atom*, XtPointer value, unsigned long*, int*) {
    XtFree(static_cast<char*>(value));
}

void insert_pasted(char* bytes) {
    LocaleText text(bytes);
    XmTextInsert(widget_of(kText), XmTextGetInsertionPosition(widget_of(kText)), text.data());
}

bool clipboard_is_own() {
    const Window owner = XGetSelectionOwner(x11_disp, XInternAtom(x11_disp, "CLIPBOARD", False));
    return owner != None && XtWindowToWidget(x11_disp, owner) != nullptr;
}

// What the application has put on the clipboard by its own call.
void paste_offered() {
    Block<char> text;
    const INT encoding = MB_CUR_MAX > 1 ? GRX_CODAGE_UTF8 : GRX_CODAGE_LATIN1;
    if (fetch_text(GRX_SEL_PRESSE_PAPIERS, encoding, text) == 1) insert_pasted(text.data());
}

// The application's own clipboard text in a format, with a zero behind it; empty when there is none.
Block<char> own_text(char* format) {
    const Window window = window_of(widget_of(kText));
    unsigned long length = 0, given = 0;
    const bool present = with_clipboard([&] { return XmClipboardInquireLength(x11_disp, window, format, &length); });
    Block<char> text(present && length > 0 ? length + 1 : 0);
    const bool got = text && with_clipboard([&] {
        return XmClipboardRetrieve(x11_disp, window, format, text.data(), length, &given, nullptr);
    });
    return got ? std::move(text) : Block<char>();
}

} // namespace

Time time_of(const XEvent* event) {
    if (event == nullptr) return XtLastTimestampProcessed(x11_disp);
    if (event->type == KeyPress || event->type == KeyRelease) return event->xkey.time;
    const bool button = event->type == ButtonPress || event->type == ButtonRelease;
    return button ? event->xbutton.time : XtLastTimestampProcessed(x11_disp);
}

// Without a selection the clipboard keeps what it has.
bool copy_selection(Time time) {
    char* const selected = XmTextGetSelection(widget_of(kText));
    if (selected == nullptr) return false;
    put_on_clipboard(selected, time);
    XtFree(selected);
    return true;
}

// Asks the owner of the selection to delete it. The text widget does not know that request: its part is removed here.
void delete_selection(Time time) {
    Widget text = widget_of(kText);
    const Atom request = XInternAtom(x11_disp, "KILL_SELECTION", False);
    XtGetSelectionValue(hidden_shell(), XA_PRIMARY, request, on_kill_done, nullptr, time);
    XmTextPosition left = 0, right = 0;
    if (XmTextGetSelectionPosition(text, &left, &right) && left != right) XmTextRemove(text);
}

// The application's own text is read directly: the toolkit leaks memory when an application asks itself.
void paste(Time time) {
    if (offered(GRX_SEL_PRESSE_PAPIERS) != Content::Nothing) return paste_offered();
    if (clipboard_is_own()) {
        Block<char> text = own_text(kStringFormat);
        if (!text) text = own_text(kUnicodeFormat);
        if (text) insert_pasted(text.data());
        return;
    }
    clipboard_text().ask("CLIPBOARD", {kStringFormat, kUnicodeFormat}, time, insert_pasted);
}

// Deletes the selection only after it was copied.
void cut(Time time) {
    if (copy_selection(time)) delete_selection(time);
}

} // namespace grx::editor
