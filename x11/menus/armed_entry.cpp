// Which entry of a menu is highlighted, as the toolkit tells it.
#include "menus/armed_entry.h"

#include <Xm/Xm.h>

#include "toolkit/args.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

Widget armed = nullptr;
INT armed_no_fo = GRX_AUCUN;
void (*watcher)(INT no_fo) = nullptr;

void note(Widget entry, INT no_fo) {
    armed = entry;
    armed_no_fo = no_fo;
    if (watcher != nullptr) watcher(no_fo);
}

void on_arm(Widget entry, XtPointer client, XtPointer) {
    if (entry != armed) note(entry, number_in(client));
}

void on_end(Widget entry, XtPointer, XtPointer) {
    if (entry == armed) note(nullptr, GRX_AUCUN);
}

} // namespace

INT armed_entry() {
    return armed_no_fo;
}

void watch_armed_entry(void (*changed)(INT no_fo)) {
    watcher = changed;
}

void follow_armed(Widget entry, INT no_fo) {
    XtAddCallback(entry, XmNarmCallback, on_arm, as_client_data(no_fo));
    XtAddCallback(entry, XmNdisarmCallback, on_end, nullptr);
    XtAddCallback(entry, XmNdestroyCallback, on_end, nullptr);
}

} // namespace grx
