// Over which window a box of the library stands, and where. For messages, prompts and work in progress.
#pragma once

#include <X11/Intrinsic.h>

#include <optional>

#include "host_t.h"

namespace grx {

struct BoxParent {
    Widget widget = nullptr; // the popup's parent; null when there is none to be had
    bool centred_on_it = false;
};

/// GRX_AUCUN or 0, which stand for no window, or the number of one.
bool can_be_parent(INT nofen);

/// The parent of a box over window `nofen`, GRX_AUCUN or 0 for none; nothing for a number that names no window.
std::optional<BoxParent> box_parent(INT nofen);

/// Has the box centred when it is mapped, wholly on the screen: over its parent or in the middle of the screen.
void centre_when_mapped(Widget box, bool on_parent);

/// The title: the one given, else that of the parent's window.
void set_box_title(Widget shell, Widget parent, const char* given);

} // namespace grx
