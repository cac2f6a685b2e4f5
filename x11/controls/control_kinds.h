// The kinds of controls, for the function that makes controls: which widget each is, and which callback tells the
// application of a press.
#pragma once

#include <X11/Intrinsic.h>

#include "pure/double_click.h"
#include "pure/size.h"
#include "toolkit/args.h"
#include "xt_bou_t.h"

namespace grx {

/// A control that is being made: what the application asked for, and where it goes.
struct Control {
    const GRX_BOUTON& bou;
    Widget parent;
    INT nofen; // the window of the control, -1 when the parent was given as a widget

    bool has(INT bit) const { return (bou.attrib & bit) != 0; }
};

/// What the application asked for, with the parent that it named by number or gave as a widget.
Control control_for(const GRX_BOUTON& bou);

/// Sets the coordinates that the application gave.
void set_control_position(Args& args, const GRX_BOUTON& bou);

/// Sets the sides that the application gave.
void set_control_size(Args& args, const GRX_BOUTON& bou);

enum class Press { Silent, Activate, ValueChanged }; // the callback that tells the application

/// One kind of control.
struct ControlClass {
    INT type;
    Widget (*make)(const Control&, Args&, char* name);
    Press press;
    EventMask events;
    bool labelled;
};

/// The kind of a type, null when there is none.
const ControlClass* class_of_control(INT type);

/// Makes the widget of a control without managing it. Null when that is impossible.
Widget make_control_widget(const Control& c, const ControlClass& control_class);

/// The size that the application gave, or else the one that the layout gave the widget.
Size drawing_area_size(Widget w, const GRX_BOUTON& bou);

} // namespace grx
