// What messages and prompts consist of: the frame with its picture and text, a row of buttons, and their keys.
#pragma once

#include <X11/Intrinsic.h>

#include <optional>
#include <span>

#include "pure/message_icons.h"
#include "system/block.h"
#include "dialogs/boxes.h"

namespace grx {

struct BoxLook {
    Widget parent;
    const char* title;
    const char* text; // the application's
    std::optional<MessageKind> picture{};
};

/// Makes the frame of a box, without buttons and not shown. Null when memory is short.
Widget make_box_frame(Box& box, const BoxLook& look);

/// Adds a button for each label; `chosen` is the default, from 1. False when one cannot be made.
bool add_box_buttons(Box& box, std::span<const Block<char>> labels, INT chosen);

/// Has Alt and the letter of a button choose it while `w` has the keyboard.
void watch_mnemonics(Box& box, Widget w);

} // namespace grx
