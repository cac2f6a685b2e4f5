// The window of work in progress: texts, a bar, and a button to cancel. For the functions of work in progress.
#pragma once

#include <X11/Intrinsic.h>

#include <array>

#include "host_t.h"

namespace grx {

struct ProgressLook {
    INT nofen;          // over which it stands, GRX_AUCUN for none
    const char* title;  // the application's texts
    const char* cancel; // label of the button
    bool can_cancel;
    void (*on_cancel)();
};

/// One at a time.
class ProgressWindow {
  public:
    bool on_show() const { return box_ != nullptr; }
    Widget shell() const { return XtParent(box_); }

    /// Makes it and puts it on the screen. False when memory is short.
    bool show(const ProgressLook& look);

    void hide();

    /// The text of the work, and of the work within it, "" for none.
    void set_texts(const char* text, const char* detail);

    /// `share` is what is done, 0 to 1; below 0 when that is unknown: a block then moves one step on.
    void set_share(double share);

    /// The button answers, or no longer does.
    void allow_cancel(bool allowed);

  private:
    static void on_death(Widget w, XtPointer self, XtPointer);
    static void on_expose(Widget, XtPointer self, XtPointer);
    static void on_button(Widget, XtPointer self, XtPointer);

    bool make_parts(const ProgressLook& look);
    bool make_bar(Widget form, Widget over);
    void draw();
    void draw_percents(int filled);
    void allocate_colour();
    void give_back();

    Widget box_ = nullptr;
    Widget text_ = nullptr;
    Widget detail_ = nullptr;
    Widget bar_ = nullptr;
    Widget button_ = nullptr;
    GC context_ = nullptr;
    void (*on_cancel_)() = nullptr;
    unsigned long fill_ = 0, fill_text_ = 0;
    bool has_cell_ = false;
    int percent_ = 0;
    int step_ = 0;     // of the moving block; 0 when what is done is known
    int drawn_to_ = 0; // where the filled part ends
};

} // namespace grx
