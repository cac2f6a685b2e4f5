// Which entry of a menu is highlighted, as the toolkit tells it.
#include "menus/armed_entry.h"

#include <Xm/Xm.h>

#include "system/shut_down.h"
#include "toolkit/args.h"
#include "menus/living_entries.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

Widget armed = nullptr;
INT armed_no_fo = GRX_AUCUN;
void (*watcher)(INT no_fo) = nullptr;
bool following = false;

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

void follow(Widget entry, INT no_fo) {
    if (has_callback(entry, XmNarmCallback, on_arm)) return;
    XtAddCallback(entry, XmNarmCallback, on_arm, as_client_data(no_fo));
    XtAddCallback(entry, XmNdisarmCallback, on_end, nullptr);
    XtAddCallback(entry, XmNdestroyCallback, on_end, nullptr);
}

void follow_no_more() {
    following = false;
}

} // namespace

void follow_armed_entries() {
    if (following) return;
    at_shut_down(follow_no_more);
    following = true;
    for_each_living_entry(follow);
}

INT armed_entry() {
    return armed_no_fo;
}

void watch_armed_entry(void (*changed)(INT no_fo)) {
    watcher = changed;
    if (changed != nullptr) follow_armed_entries();
}

void note_armed(Widget entry, INT no_fo) {
    if (following) follow(entry, no_fo);
}

} // namespace grx
