// Asks the owner of a selection for its content: the clipboard, the primary selection, what is being dragged. The answer
// comes as events, in one piece or in parts.
#pragma once

#include <X11/Intrinsic.h>

#include <chrono>
#include <cstddef>
#include <span>
#include <string_view>

#include "system/block.h"

namespace grx {

/// One request at a time, by a window of its own: what an owner sends too late goes to a window that is gone. Not the
/// toolkit's way, which waits for seconds for an owner that is silent and cannot be told to give up.
class SelectionFetch {
  public:
    enum class End : char { Open, Complete, Refused, Late, NoRoom };
    using Done = void (*)();

    SelectionFetch() = default;
    ~SelectionFetch() { stop(); }
    SelectionFetch(const SelectionFetch&) = delete;
    SelectionFetch& operator=(const SelectionFetch&) = delete;

    /// Begins a request. `done` is called when it has ended, within a second after the last sign of the owner; without it
    /// the caller waits (wait_for in events/selection_wait.h).
    void ask(Atom selection, Atom target, Time time, Done done = nullptr);

    /// Gives a request up, without a word.
    void stop();

    bool waiting() const { return window_ != None; }
    End end() const { return end_; }

    /// Milliseconds that the owner still has, 0 when it is too late.
    int patience() const;

    /// The owner is too late.
    void give_up() { finish(End::Late); }

    /// What was got: its type, 8, 16 or 32 bits an element, and its bytes, behind which there is a zero. Elements of 32
    /// bits are longs, as everywhere in Xlib.
    Atom type() const { return type_; }
    int format() const { return format_; }
    std::string_view bytes() const { return data_ ? std::string_view(data_.data(), used_) : std::string_view(); }
    /// Hands the memory of the bytes over; nothing is kept here.
    Block<char> take_block() { return std::move(data_); }

  private:
    using Clock = std::chrono::steady_clock;

    void watch();
    void arm(int ms);
    static void on_timer(XtPointer self, XtIntervalId*);
    static void on_event(Widget, XtPointer self, XEvent* event, Boolean*);
    void on_answer(const XSelectionEvent& event);
    void take_property();
    void take(Atom type, int format, const unsigned char* bytes, std::size_t count);
    bool append(const unsigned char* bytes, std::size_t count);
    void finish(End end);

    Window window_ = None; // None when nothing is asked for
    Widget receiver_ = nullptr;
    Atom selection_ = None;
    Done done_ = nullptr;
    XtIntervalId timer_ = 0;
    Clock::time_point patience_ends_{}, all_ends_{};
    bool in_parts_ = false;
    End end_ = End::Open;
    Atom type_ = None;
    int format_ = 0;
    Block<char> data_;
    std::size_t used_ = 0;
};

} // namespace grx
