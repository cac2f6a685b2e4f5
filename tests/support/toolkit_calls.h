// What the process asks of Xt and Motif, whose functions the test program stands in front of.
#pragma once

#include <X11/Intrinsic.h>

#include <map>
#include <string>
#include <vector>

namespace grxtest {

struct WidgetCreation {
    std::string name;
    WidgetClass widget_class;
    std::map<std::string, XtArgVal> arguments;
    std::vector<std::string> names; // of the arguments, in order
};

struct HandlerAddition {
    Widget widget;
    EventMask mask;
    XtEventHandler function;
    XtPointer data;
};

// Notes the calls from its construction on. There is one at a time; without one the calls only pass.
class ToolkitCalls {
  public:
    ToolkitCalls();
    ~ToolkitCalls();
    ToolkitCalls(const ToolkitCalls&) = delete;
    ToolkitCalls& operator=(const ToolkitCalls&) = delete;

    // The first widget of this name; null when there was none.
    const WidgetCreation* creation_of(const std::string& name) const;
    void forget();
    void stop();

    std::vector<WidgetCreation> creations; // XtCreateWidget, but for the toolkit's own tips
    std::vector<HandlerAddition> handlers; // XtAddEventHandler
    int management_calls = 0;              // XtManageChildren
    int single_selections = 0;             // XmListSelectPos
    std::string refused_name;              // the toolkit cannot create a widget of this name
};

} // namespace grxtest
