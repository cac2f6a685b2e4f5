// The messages and prompts on show: their table, and how each ends. For the two kinds of them.
#pragma once

#include <X11/Intrinsic.h>

#include <array>
#include <cstddef>

#include "host_t.h"
#include "toolkit/locale_text.h"
#include "dialogs/message_picture.h"

namespace grx {

inline constexpr std::size_t kMostButtons = 3;
inline constexpr INT kUnanswered = 0;

/// What a prompt has beyond the other boxes.
struct Prompt {
    Widget field = nullptr;
    Widget hint = nullptr;
    INT kind = 0;
    DOUBLE least = 0.0, most = 0.0;
    TextEncoding encoding = TextEncoding::Unknown;
    // where the answer of a prompt that is waited for goes; null for none
    char* text = nullptr;
    INT text_size = 0;
    DOUBLE* value = nullptr;
};

struct Box {
    /// Tells the application of an answer, a button from 1 or kUnanswered. False when that cannot be: the box then stays.
    using Tell = bool (*)(const Box& box, INT button);
    /// Says whether the button may end the box, and does what is to be done then.
    using Accept = bool (*)(Box& box, INT button);

    INT number = 0;          // 0 while the slot is free
    Widget widget = nullptr; // null once it is gone
    bool waited_for = false; // a loop waits for its answer
    bool answered = false;
    INT answer = kUnanswered;
    INT escape = 1; // the button of Escape and the close box
    std::array<Widget, kMostButtons> buttons{};
    std::array<char, kMostButtons> mnemonics{};
    Accept accept = nullptr; // null when any button ends it
    Tell tell = nullptr;     // null when nobody is told, as for one that is waited for
    MessagePicture picture;
    Prompt prompt;
};

/// A free slot with a number that was never given; null when all are taken.
Box* take_box();

/// Gives back a slot whose box could not be made.
void drop_box(Box& box);

/// The box of a number that is on show and not waited for; null when there is none.
Box* shown_box(INT number);

/// The window whose dialog shell `widget` is in has been made: has the box end with it, and by its close box.
void watch_box(Box& box, Widget widget);

/// A button of the box was chosen, by whatever way.
void answer_box(Box& box, INT button);

/// Takes the box off the screen, with nobody told, and frees its slot.
void remove_box(Box& box);

/// Shows the box and handles events until it has ended. Returns the button, or kUnanswered.
INT wait_for_box(Box& box);

} // namespace grx
