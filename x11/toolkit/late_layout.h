// Containers that lay their children out once for a burst of changes: controls made one by one would else cost the
// square, or the cube, of their number. Children are realised, mapped and destroyed as always; their places are settled
// before the next event is read, or when lay_out_pending() is called.
#pragma once

#include <X11/Intrinsic.h>

#include "toolkit/args.h"

namespace grx {

/// Before events are read, and before a size or a place is asked for.
void lay_out_pending();

Widget create_form(Widget parent, const char* name, Args& args);
Widget create_bulletin_board(Widget parent, const char* name, Args& args);

bool is_form(Widget container);

/// Changes what a widget asks of its container. A form would be laid out for each request: it is asked for nothing
/// while the widget is not managed.
template <class Change>
void change_unasked(Widget w, Change change) {
    const bool in_form = is_form(XtParent(w));
    if (in_form) XtUnmanageChild(w);
    change();
    if (in_form) XtManageChild(w);
}

} // namespace grx
