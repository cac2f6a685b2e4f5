// Keeps the messages and prompts on show, and ends them: by a button, by the close box, with their window, or at the
// application's wish.
#include "dialogs/boxes.h"

#include <Xm/Protocols.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <utility>

#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "toolkit/args.h"
#include "toolkit/widgets.h"
#include "session/nested_loop.h"
#include "grx_plus_messages.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

using Boxes = std::array<Box, GRX_BOITES_MAX>;
NeverDestroyed<Boxes> lasting_boxes;
Boxes& boxes = lasting_boxes.value;
INT last_number = 0;

void free_slot(Box& box) {
    box.picture.free();
    box = Box{};
}

void forget_boxes() {
    for (Box& box : boxes)
        if (box.number != 0) remove_box(box);
    last_number = 0;
}

// The slot of a box that is waited for is freed by the loop.
void end_gone_box(Box& box) {
    box.widget = nullptr;
    if (box.waited_for) return;
    if (box.tell != nullptr && !box.answered) box.tell(box, kUnanswered);
    free_slot(box);
}

// The slot may be another box's by now.
void on_death(Widget w, XtPointer client_data, XtPointer) {
    Box& box = *static_cast<Box*>(client_data);
    if (box.widget == w) end_gone_box(box);
}

void on_close(Widget shell, XtPointer client_data, XtPointer) {
    Box& box = *static_cast<Box*>(client_data);
    if (box.widget != nullptr && XtParent(box.widget) == shell) answer_box(box, box.escape);
}

void take_widget_away(Widget widget) {
    take_off_screen(XtParent(widget));
    XtDestroyWidget(XtParent(widget));
}

Widget main_work_widget() {
    return grx_recup_objet_fen(grx_recup_nofen_principale());
}

// An application without a main window has none that could end.
bool ends(Widget main) {
    return main != nullptr && (main_work_widget() != main || is_dying(main));
}

} // namespace

Box* take_box() {
    const auto slot = std::find_if(boxes.begin(), boxes.end(), [](const Box& box) { return box.number == 0; });
    if (slot == boxes.end()) return nullptr;
    at_shut_down(forget_boxes);
    last_number = last_number < INT32_MAX ? last_number + 1 : 1;
    slot->number = last_number;
    return &*slot;
}

void drop_box(Box& box) {
    free_slot(box);
}

Box* shown_box(INT number) {
    const auto slot = std::find_if(boxes.begin(), boxes.end(),
        [number](const Box& box) { return box.number == number && box.number != 0 && !box.waited_for; });
    return slot != boxes.end() ? &*slot : nullptr;
}

void watch_box(Box& box, Widget widget) {
    box.widget = widget;
    Widget shell = XtParent(widget);
    XtAddCallback(widget, XmNdestroyCallback, on_death, &box);
    XmAddWMProtocolCallback(shell, XInternAtom(x11_disp, "WM_DELETE_WINDOW", False), on_close, &box);
    end_with_its_window(shell);
}

void answer_box(Box& box, INT button) {
    if (box.answered || (box.accept != nullptr && !box.accept(box, button))) return;
    if (!box.waited_for && box.tell != nullptr && !box.tell(box, button)) return;
    box.answered = true;
    box.answer = button;
    if (!box.waited_for) remove_box(box);
}

void remove_box(Box& box) {
    Widget widget = std::exchange(box.widget, nullptr);
    if (widget != nullptr && x11_disp != nullptr) take_widget_away(widget);
    if (!box.waited_for) free_slot(box);
}

INT wait_for_box(Box& box) {
    Widget main = main_work_widget();
    box.waited_for = true;
    run_until([&box, main] { return box.answered || box.widget == nullptr || is_dying(box.widget) || ends(main); });
    const INT answer = box.answer;
    box.waited_for = false;
    remove_box(box);
    return answer;
}

} // namespace grx
