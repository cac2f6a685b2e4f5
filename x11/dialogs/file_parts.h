// What the dialogs for files and directories share: how they look, and how they run until there is an answer.
#pragma once

#include <X11/Intrinsic.h>

#include <array>
#include <string_view>

#include "host_t.h"
#include "toolkit/args.h"
#include "xt_f.h"

namespace grx::file_parts {

enum Answer : int { kWaiting = 0, kAccepted = 1, kCancelled = 2, kGone = 3 };

/// Stores an answer unless there is one: what a dialog had when it went with its parent, or by itself, stays.
void end_with(int& answer, int value);

using Path = std::array<char, GRX_CHEMIN_DIALOGUE_MAX>;

/// A dialog that returns with a path.
struct PathDialog {
    Widget widget = nullptr; // on show, or left by a dialog that went away by itself
    int answer = kWaiting;
    Path path{};
};

/// Destroys what a dialog has left, and forgets its answer: for the end of the library's work.
void forget(PathDialog& dialog);

/// The dialog for files: the question stands over it.
PathDialog& file_dialog();

/// True while a dialog for files or directories is on show: there is only one at a time.
bool one_is_on_show();

/// False when the name was cut.
bool keep_path(Path& path, std::string_view name);

/// The widget of the application's main window; null when it cannot hold others.
Widget main_widget();

/// A text of the application; empty where it has none: the toolkit's own then stays.
class MessageText {
  public:
    explicit MessageText(INT number);
    const char* c_str() const { return text_; }
    bool empty() const { return text_[0] == '\0'; }

  private:
    char text_[HOST_MESSAGE_MAX] = "";
};

inline constexpr INT kMessageOk = 1250;

const char* text_or_empty(const char* text);

void set_modal_look(grx::Args& args);

/// A child of a file dialog, by the toolkit's name for it.
Widget child_of(Widget dialog, unsigned char which);

/// Takes a child out of its dialog; nothing for null.
void unmanage(Widget w);

/// True when the name typed holds line feeds or the like. The dialog's answer has lost them, and would be another name.
bool has_controls(Widget dialog);

struct Proposal {
    const char* title;
    const char* pattern;   // "" = the toolkit's own
    const char* directory; // "" = the current one
    INT ok_message;
};

/// A file dialog with its labels; null when it cannot be made.
Widget make_dialog(Widget parent, const Proposal& proposal);

/// Cancelling, going away and dying answer for a dialog.
void add_end_callbacks(Widget w, PathDialog& dialog);

/// No answer, no path; what is left of a former dialog is destroyed.
void start(PathDialog& dialog);

/// Shows a dialog and handles events until there is an answer, which is returned. A dialog that went away by itself is
/// destroyed when the next one starts.
int run(PathDialog& dialog);

} // namespace grx::file_parts
