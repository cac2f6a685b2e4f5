// What the dialogs for files and directories share: how they look, and how they run until there is an answer.
#pragma once

#include <X11/Intrinsic.h>

#include <array>
#include <string_view>

#include "host_f.h"
#include "toolkit/args.h"
#include "xt_f.h"

namespace grx::file_parts {

enum Answer : int { kWaiting = 0, kAccepted = 1, kCancelled = 2, kGone = 3 };

using Path = std::array<char, GRX_CHEMIN_DIALOGUE_MAX>;

/// Stores an answer unless there is one: a dialog that goes with its parent, or by itself, leaves the one that it had.
void end_with(int& answer, int value);

/// False when the name was cut.
bool keep_path(Path& path, std::string_view name);

/// The widget of the application's main window; null when it is none that holds others.
Widget main_widget();

/// Texts of the application; where it has none the toolkit's own stay.
class MessageText {
  public:
    explicit MessageText(INT number);
    const char* c_str() const { return text_; }
    bool empty() const { return text_[0] == '\0'; }

  private:
    char text_[HOST_MESSAGE_MAX] = "";
};

inline constexpr INT kMessageOk = 1250;

void set_modal_look(grx::Args& args);

/// A part of a file dialog, by the toolkit's name for it.
Widget child_of(Widget dialog, unsigned char which);

/// Takes a part out of its dialog; nothing for null.
void remove(Widget w);

/// Line feeds and the like stand for themselves in the field only: the answer has lost them, and would be another name.
bool has_controls(Widget dialog);

struct Proposal {
    const char* title;
    const char* pattern;   // "" = the toolkit's own
    const char* directory; // "" = the current one
    INT ok_message;
};

/// A file dialog with its labels; null when it cannot be made.
Widget make_dialog(Widget parent, const char* name, const Proposal& proposal);

/// The file dialog: on show, or left by one that went away by itself.
Widget& file_dialog();

/// A dialog is on show: there is only one at a time.
bool choosing();

/// Runs a dialog until its answer is there; one that went away by itself stays, to be destroyed with the next.
int run(Widget& dialog, int& answer);

/// A dialog that went away by itself was not destroyed then.
void drop_former(Widget& dialog);

} // namespace grx::file_parts
