// A text that another program has selected or put on the clipboard: asked for, and waited for without holding anything
// up.
#pragma once

#include <X11/Intrinsic.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace grx {

/// One request at a time: a new one, or a second without an answer, ends the one before. A widget that is never
/// destroyed asks: the toolkit uses it for seconds when the owner does not answer, and would not notice its end.
class SelectionText {
  public:
    using Formats = std::array<const char*, 2>; // in the order in which they are asked for
    using Receiver = void (*)(char* text);

    /// Asks the owner of a selection. `receiver` gets the text when it comes within a second; else it is never called.
    void ask(const char* selection, const Formats& formats, Time time, Receiver receiver);

    /// An answer that is still to come is dropped.
    void forget();

  private:
    bool waiting() const { return limit_ != 0; }

    void ask_for(std::size_t format);
    void wait_for_a_ready_answer();
    static Bool is_ours(Display*, XEvent* event, XPointer);
    static void give_up(XtPointer self, XtIntervalId*);
    static void on_answer(
        Widget, XtPointer attempt, Atom*, Atom* type, XtPointer value, unsigned long* length, int* format);
    void take(const char* bytes, unsigned long length);

    static SelectionText* asking_;

    Atom selection_ = None;
    Formats formats_{};
    std::size_t format_ = 0;
    Time time_ = 0;
    Receiver receiver_ = nullptr;
    XtIntervalId limit_ = 0;
    int32_t attempt_ = 0; // tells the answer awaited from late ones
};

} // namespace grx
