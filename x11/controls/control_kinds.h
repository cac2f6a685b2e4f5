// Each kind of control: which widget it is, with which resources, and what tells the application of a press.
#pragma once

#include <X11/Intrinsic.h>

#include "pure/double_click.h"
#include "pure/size.h"
#include "toolkit/args.h"
#include "toolkit/widgets.h"
#include "xt_bou_t.h"

namespace grx {

struct Control {
    const GRX_BOUTON& bou;
    Widget parent;
    INT nofen; // window recorded with the control, -1 for a parent given as a widget

    bool has(INT bit) const { return (bou.attrib & bit) != 0; }
};

Control control_for(const GRX_BOUTON& bou);

void set_position(Args& args, const GRX_BOUTON& bou);

void set_size(Args& args, const GRX_BOUTON& bou);

enum class Press { Silent, Activate, ValueChanged }; // the callback that tells the application

struct ControlClass {
    INT type;
    Widget (*make)(const Control&, Args&, char* name);
    Press press;
    EventMask events;
    bool labelled;
};

const ControlClass* class_of_control(INT type);

Widget make_control_widget(const Control& c, const ControlClass& control_class);

/// The size that is given, or else the one that the layout gives.
Size drawing_area_size(Widget w, const GRX_BOUTON& bou);

} // namespace grx
