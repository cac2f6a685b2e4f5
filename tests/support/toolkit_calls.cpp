#include "tests/support/toolkit_calls.h"

#include "tests/support/next_function.h"

#include <Xm/List.h>

namespace {

using grxtest::next_function;

grxtest::ToolkitCalls* noting = nullptr;

void note_creation(const char* name, WidgetClass kind, ArgList arguments, Cardinal count) {
    grxtest::WidgetCreation creation{name ? name : "", kind, {}, {}};
    if (creation.name == "TipLabel") return; // the toolkit's own
    for (Cardinal i = 0; i < count; ++i) {
        creation.arguments[arguments[i].name] = arguments[i].value;
        creation.names.emplace_back(arguments[i].name);
    }
    noting->creations.push_back(creation);
}

bool is_refused(const char* name) {
    return noting && name && !noting->refused_name.empty() && noting->refused_name == name;
}

} // namespace

// --- in front of Xt and Motif -----------------------------------------------------------------------
extern "C" {

Widget XtCreateWidget(const char* name, WidgetClass kind, Widget parent, ArgList arguments, Cardinal count) {
    static const auto next = next_function<decltype(XtCreateWidget)>("XtCreateWidget");
    if (noting) note_creation(name, kind, arguments, count);
    return is_refused(name) ? nullptr : next(name, kind, parent, arguments, count);
}

void XtAddEventHandler(Widget widget, EventMask mask, _XtBoolean other, XtEventHandler function, XtPointer data) {
    static const auto next = next_function<decltype(XtAddEventHandler)>("XtAddEventHandler");
    if (noting) noting->handlers.push_back({widget, mask, function, data});
    next(widget, mask, other, function, data);
}

void XtManageChildren(WidgetList widgets, Cardinal count) {
    static const auto next = next_function<decltype(XtManageChildren)>("XtManageChildren");
    if (noting) ++noting->management_calls;
    next(widgets, count);
}

void XmListSelectPos(Widget list, int position, Boolean notify) {
    static const auto next = next_function<void(Widget, int, Boolean)>("XmListSelectPos");
    if (noting) ++noting->single_selections;
    next(list, position, notify);
}

} // extern "C"

namespace grxtest {

ToolkitCalls::ToolkitCalls() {
    noting = this;
}

ToolkitCalls::~ToolkitCalls() {
    stop();
}

const WidgetCreation* ToolkitCalls::creation_of(const std::string& name) const {
    for (const WidgetCreation& creation : creations)
        if (creation.name == name) return &creation;
    return nullptr;
}

void ToolkitCalls::forget() {
    creations.clear();
    handlers.clear();
    management_calls = single_selections = 0;
}

void ToolkitCalls::stop() {
    if (noting == this) noting = nullptr;
}

} // namespace grxtest
