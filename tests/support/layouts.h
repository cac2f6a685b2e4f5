// How often the toolkit lays the children of a composite widget out.
#pragma once

#include <X11/IntrinsicP.h>

namespace grxtest {

// Counts while it lives; there is one at a time.
class Layouts {
  public:
    // The procedure of a class of widgets that lays out; of one widget of the class, or of all.
    explicit Layouts(XtWidgetProc& procedure, Widget only = nullptr)
        : procedure_(procedure), toolkit_(procedure), only_(only) {
        current = this;
        procedure = [](Widget widget) {
            if (current->only_ == nullptr || current->only_ == widget) ++current->count;
            current->toolkit_(widget);
        };
    }
    ~Layouts() { procedure_ = toolkit_; }
    Layouts(const Layouts&) = delete;
    Layouts& operator=(const Layouts&) = delete;

    int count = 0;

  private:
    static inline Layouts* current = nullptr;
    XtWidgetProc& procedure_;
    XtWidgetProc toolkit_;
    Widget only_;
};

} // namespace grxtest
