// Events during work in progress, taken from the queue one by one: those of the window of the work are handled, what can
// be redrawn without the application is, input elsewhere is dropped; all others stay for the digitizing loop.
#pragma once

#include <X11/Intrinsic.h>

#include <bitset>

#include "xt_ini_t.h"

namespace grx {

class ProgressEvents {
  public:
    /// The window of the work has come. What the user typed or clicked before is kept.
    void begin(Widget shell);

    /// True when Escape was pressed, in whatever window of the application.
    bool serve(Widget shell);

  private:
    enum class Fate : char { Stays, Handled, Redrawn, Dropped, Escape };

    static Bool goes(Display*, XEvent* event, XPointer self);
    static Bool note_input(Display*, XEvent* event, XPointer self);

    Fate fate_of(const XEvent& event) const;
    Fate fate_of_input(const XEvent& event) const;
    bool is_new(Time time) const;
    void drop(const XEvent& event);
    void redraw(const XEvent& event);

    Widget shell_ = nullptr;
    bool had_input_ = false;
    Time last_input_ = 0;              // before the window came
    std::bitset<256> dropped_keys_;    // by keycode, while they are held
    unsigned int dropped_buttons_ = 0; // by number, the same
};

} // namespace grx
