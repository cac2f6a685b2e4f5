// A window for the parts of message dialogs, and the records that describe them.
#pragma once

#include "tests/display/panels/server_kit.h"

namespace grxtest {

inline GRX_MSG dialog(INT type, INT attribut, INT x = 30, INT y = 40) {
    GRX_MSG message{};
    grx_init_message(&message);
    message.type = type;
    message.attribut = attribut;
    message.x = x;
    message.y = y;
    return message;
}

inline std::string name_of(Widget widget) {
    return widget ? XtName(widget) : "(none)";
}

inline Widget up(Widget widget, int levels) {
    for (int i = 0; i < levels && widget; ++i) widget = XtParent(widget);
    return widget;
}

// Complaints of the toolkit while it lives.
class Warnings {
  public:
    Warnings() : before_(XtAppSetWarningMsgHandler(contexte, note)) { count_ = 0; }
    ~Warnings() { XtAppSetWarningMsgHandler(contexte, before_); }
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;
    int count() const { return count_; }

  private:
    static void note(String, String, String, String, String*, Cardinal*) { ++count_; }
    static inline int count_ = 0;
    XtErrorMsgHandler before_;
};

class DialogTest : public ControlsInWindowTest {
  protected:
    // What the record holds before the next event is a pattern.
    void forget() {
        settle();
        evt_global = patterned_event();
    }

    std::size_t children() {
        drain();
        return children_of(widget_of(window)).size();
    }

    auto resources() { return resources_of_the_library(test_display()); }
};

inline constexpr INT toggles = GRX_MSG_TYPE_BASCULES;

// Kind and bits of the four supports.
struct SupportKind {
    const char* name;
    INT type, attribut;
    int levels; // from the support to the outermost form
};
inline constexpr std::array support_kinds{SupportKind{"plain", 2, 0, 2}, SupportKind{"frame", toggles, 16, 1},
    SupportKind{"radio", toggles, 64, 2}, SupportKind{"multiple", toggles, 32, 2}};

} // namespace grxtest
