// Entries of list widgets: many at once, each by its position, in a time that grows with their number and no faster.
#include "toolkit/list_entries.h"

#include <Xm/ListP.h>

#include <algorithm>

#include "system/block.h"
#include "toolkit/args.h"
#include "toolkit/late_layout.h"
#include "toolkit/widgets.h"

namespace grx {

namespace {

XmListPart& part_of(Widget list) {
    return reinterpret_cast<XmListWidget>(list)->list;
}

// The toolkit's own entries: its functions look through the whole list for each one that is to be selected.
std::span<ElementPtr> elements_of(Widget list) {
    XmListPart& part = part_of(list);
    return {part.InternalList, static_cast<std::size_t>(std::max(part.itemCount, 0))};
}

ElementPtr element_at(Widget list, int position) {
    return elements_of(list)[static_cast<std::size_t>(position - 1)];
}

void put_in(Widget list, int position, EntryTable& entries) {
    XmListAddItemsUnselected(list, entries.get(), entries.count(), position);
}

int first_selected(Widget list) {
    const auto elements = elements_of(list);
    const auto found =
        std::find_if(elements.begin(), elements.end(), [](const Element* e) { return e->selected != False; });
    return found != elements.end() ? static_cast<int>(found - elements.begin()) + 1 : 0;
}

void clear_selection(Widget list) {
    for (ElementPtr const element : elements_of(list)) element->selected = False;
}

// After changes of what is selected.
void tell_selection(Widget list) {
    XmListUpdateSelectedList(list);
    redraw(list);
}

unsigned char policy_of(Widget list) {
    return resource<unsigned char>(list, XmNselectionPolicy);
}

// -- where the user's next range begins: the toolkit moves that with the user's own choices only

void begin_range_at(Widget list, int item) {
    XmListPart& part = part_of(list);
    part.StartItem = part.EndItem = part.OldStartItem = part.OldEndItem = part.LastHLItem = item;
}

void shift_range(Widget list, int first, int count) {
    XmListPart& part = part_of(list);
    for (int* const place : {&part.StartItem, &part.EndItem, &part.OldStartItem, &part.OldEndItem}) {
        if (*place >= first) *place += count;
    }
}

// The toolkit takes no key that leads to where it was last, though nothing is selected there any more.
void forget_last_place(Widget list) {
    XmListPart& part = part_of(list);
    if (policy_of(list) == XmEXTENDED_SELECT || part.selectedItemCount == 0) part.LastHLItem = part.CurrentKbdItem;
}

void keep_places(Widget list, const XmListPart& before) {
    XmListPart& part = part_of(list);
    part.StartItem = before.StartItem;
    part.EndItem = before.EndItem;
    part.OldStartItem = before.OldStartItem;
    part.OldEndItem = before.OldEndItem;
    part.LastHLItem = before.LastHLItem;
    part.CurrentKbdItem = before.CurrentKbdItem;
}

// With Shift the toolkit gives a range the state of its beginning, which would select nothing where nothing is.
void on_press(Widget list, XtPointer, XEvent* event, Boolean*) {
    const bool extends =
        event->xbutton.button == Button1 && (event->xbutton.state & (ShiftMask | Mod1Mask)) == ShiftMask;
    if (!extends || policy_of(list) != XmEXTENDED_SELECT) return;
    const int position = XmListYToPos(list, static_cast<Position>(event->xbutton.y));
    if (part_of(list).selectedItemCount > 0 || position < 1 || position > entry_count(list)) return;
    begin_range_at(list, position - 1);
    element_at(list, position)->selected = True;
}

} // namespace

int entry_count(Widget list) {
    return resource<int>(list, XmNitemCount);
}

void fill_list(Widget list, EntryTable& entries) {
    XmListDeselectAllItems(list);
    Args args;
    args.set(XmNitems, entries.get()).set(XmNitemCount, entries.count());
    XtSetValues(list, args.list(), args.count());
    if (entries.count() > 0) XmListSetPos(list, 1);
    XmListSetHorizPos(list, 0);
}

void insert_entries(Widget list, int position, EntryTable& entries) {
    if (entries.count() == 0) return;
    const bool first_ones = entry_count(list) == 0;
    put_in(list, position, entries);
    if (!first_ones) shift_range(list, position - 1, entries.count());
}

bool replace_entries(Widget list, int position, EntryTable& entries) {
    const int count = entries.count();
    if (count == 0) return true;
    Block<Boolean> selected(static_cast<std::size_t>(count));
    if (!selected) return false;
    const auto old = elements_of(list).subspan(static_cast<std::size_t>(position - 1), selected.size());
    std::transform(old.begin(), old.end(), selected.begin(), [](const Element* e) { return e->selected; });
    const XmListPart before = part_of(list);
    put_in(list, position, entries);
    XmListDeleteItemsPos(list, count, position + count);
    keep_places(list, before);
    for (int i = 0; i < count; ++i) element_at(list, position + i)->selected = selected[static_cast<std::size_t>(i)];
    tell_selection(list);
    return true;
}

void delete_entries(Widget list, int position, int count) {
    if (count > 0) XmListDeleteItemsPos(list, count, position);
}

void delete_positions(Widget list, std::span<INT> positions) {
    if (!positions.empty()) XmListDeletePositions(list, positions.data(), static_cast<int>(positions.size()));
}

void select_entries(Widget list, std::span<const INT> positions, bool selected) {
    if (positions.empty()) return;
    if (selected && !selects_several(list)) {
        clear_selection(list);
        positions = positions.last(1);
    }
    for (const INT position : positions) element_at(list, position)->selected = selected ? True : False;
    tell_selection(list);
    if (selected) begin_range_at(list, positions.back() - 1);
    if (!selected) forget_last_place(list);
}

void deselect_all(Widget list) {
    clear_selection(list);
    tell_selection(list);
    forget_last_place(list);
}

bool is_selected(Widget list, int position) {
    return element_at(list, position)->selected != False;
}

void set_selection_policy(Widget list, unsigned char policy) {
    if (policy_of(list) == policy) return;
    const int first = first_selected(list);
    Args args; // the toolkit would keep the mode of a list of one, in which keys move without selecting
    args.set(XmNselectionPolicy, policy).set(XmNselectionMode, XmNORMAL_MODE);
    XtSetValues(list, args.list(), args.count());
    XtAddEventHandler(list, ButtonPressMask, False, on_press, nullptr);
    if (selects_several(list) || first == 0) return;
    clear_selection(list);
    element_at(list, first)->selected = True;
    tell_selection(list);
}

bool selects_several(Widget list) {
    const unsigned char policy = policy_of(list);
    return policy == XmMULTIPLE_SELECT || policy == XmEXTENDED_SELECT;
}

void show_entry(Widget list, int position) {
    lay_out_pending();
    const int top = resource<int>(list, XmNtopItemPosition);
    const int whole = std::max(resource<int>(list, XmNvisibleItemCount), 1);
    if (position < top) XmListSetPos(list, position);
    if (position >= top + whole) XmListSetBottomPos(list, position);
    XmListSetKbdItemPos(list, position);
    forget_last_place(list);
}

bool find_entry_box(Widget list, int position, EntryBox& box) {
    lay_out_pending();
    return XmListPosToBounds(list, position, &box.x, &box.y, &box.width, &box.height) != False;
}

int entry_at(Widget list, int x, int y) {
    const Size size = size_of(list);
    if (x < 0 || y < 0 || x >= size.width || y >= size.height) return 0;
    const int position = XmListYToPos(list, static_cast<Position>(y));
    EntryBox box;
    if (position < 1 || position > entry_count(list) || !find_entry_box(list, position, box)) return 0;
    const bool inside = x >= box.x && x < box.x + box.width && y >= box.y && y < box.y + box.height;
    return inside ? position : 0;
}

} // namespace grx
