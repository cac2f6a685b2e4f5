// The look and the filling of scrolled lists, as dialogs and panels make them.
#include "toolkit/lists.h"

#include <Xm/ListP.h>

#include <algorithm>
#include <cstring>

#include "toolkit/compound_string.h"
#include "toolkit/look.h"
#include "toolkit/widgets.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

constexpr const char* kBlank = " "; // the toolkit never ends laying out a list whose entries have no height

} // namespace

EntryTable& EntryTable::operator=(EntryTable&& other) noexcept {
    free_strings();
    strings_ = std::move(other.strings_);
    count_ = std::exchange(other.count_, 0);
    return *this;
}

void EntryTable::set(std::size_t i, const char* text) {
    strings_[i] = string_in_font(text);
}

void EntryTable::set_in_columns(std::size_t i, const char* text) {
    if (text == nullptr) text = "";
    strings_[i] = string_in_columns(text);
    if (text[std::strspn(text, "\t\n")] == '\0')
        strings_[i] = XmStringConcatAndFree(
            strings_[i], XmStringCreateLtoR(const_cast<char*>(kBlank), const_cast<char*>(kFontTag)));
}

void EntryTable::free_strings() {
    for (XmString& string : strings_) {
        if (string != nullptr) XmStringFree(string);
    }
}

unsigned char selection_policy(bool multiple) {
    return multiple ? XmMULTIPLE_SELECT : XmSINGLE_SELECT;
}

void set_list_look(Args& args, bool multiple) {
    args.set(XmNscrollBarDisplayPolicy, XmAS_NEEDED).set(XmNselectionPolicy, selection_policy(multiple));
    args.set(XmNfontList, fontlist);
    if (const auto pixel = application_pixel()) args.set(XmNbackground, *pixel);
}

void add_list_callbacks(Widget list, const ListCallbacks& callbacks, XtPointer client) {
    XtAddCallback(list, XmNsingleSelectionCallback, callbacks.single, client);
    XtAddCallback(list, XmNdefaultActionCallback, callbacks.chosen, client);
    XtAddCallback(list, XmNmultipleSelectionCallback, callbacks.multiple, client);
}

void remove_list_callbacks(Widget list, const ListCallbacks& callbacks, XtPointer client) {
    XtRemoveCallback(list, XmNsingleSelectionCallback, callbacks.single, client);
    XtRemoveCallback(list, XmNdefaultActionCallback, callbacks.chosen, client);
    XtRemoveCallback(list, XmNmultipleSelectionCallback, callbacks.multiple, client);
}

void select_several(Widget list, std::span<const INT> positions) {
    XmListPart& part = reinterpret_cast<XmListWidget>(list)->list;
    const std::span<ElementPtr> entries(part.InternalList, static_cast<std::size_t>(part.itemCount));
    for (const INT position : positions) {
        if (position < 0 || position >= part.itemCount) continue;
        Boolean& selected = entries[static_cast<std::size_t>(position)]->selected;
        selected = selected ? False : True;
    }
    const auto last =
        std::find_if(entries.rbegin(), entries.rend(), [](const Element* entry) { return entry->selected != False; });
    if (last == entries.rend()) return;
    (*last)->selected = False; // the toolkit selects it, and reads what the others are
    XmListSelectPos(list, static_cast<int>(entries.rend() - last), False);
    redraw(list);
}

int selected_count(Widget list) {
    return resource<int>(list, XmNselectedItemCount);
}

} // namespace grx
