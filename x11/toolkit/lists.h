// Scrolled lists filled from texts of the application.
#pragma once

#include <X11/Intrinsic.h>
#include <Xm/ListP.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

#include "toolkit/args.h"
#include "system/block.h"
#include "toolkit/look.h"
#include "toolkit/widgets.h"
#include "toolkit/compound_string.h"

namespace grx {

/// The entries of a list as compound strings; a list copies them.
class ItemTable {
  public:
    ItemTable() = default;
    explicit ItemTable(std::size_t count) : strings_(count > 0 ? count : 1), count_(count) {}
    ItemTable(ItemTable&& other) noexcept
        : strings_(std::move(other.strings_)), count_(std::exchange(other.count_, 0)) {}
    ItemTable& operator=(ItemTable&& other) noexcept {
        free_strings();
        strings_ = std::move(other.strings_);
        count_ = std::exchange(other.count_, 0);
        return *this;
    }
    ItemTable(const ItemTable&) = delete;
    ItemTable& operator=(const ItemTable&) = delete;
    ~ItemTable() { free_strings(); }

    explicit operator bool() const { return static_cast<bool>(strings_); }
    XmStringTable get() { return count_ > 0 ? strings_.data() : nullptr; }
    int count() const { return static_cast<int>(count_); }
    void set(std::size_t i, const char* text) {
        strings_[i] = XmStringCreateLtoR(const_cast<char*>(text != nullptr ? text : ""), const_cast<char*>(kFontTag));
    }

  private:
    void free_strings() {
        for (XmString& string : strings_) {
            if (string != nullptr) XmStringFree(string);
        }
    }

    Block<XmString> strings_;
    std::size_t count_ = 0;
};

inline unsigned char selection_policy(bool multiple) {
    return multiple ? XmMULTIPLE_SELECT : XmSINGLE_SELECT;
}

/// Scroll bars as needed, in the application's font and colour.
inline void set_list_look(Args& args, bool multiple) {
    args.set(XmNscrollBarDisplayPolicy, XmAS_NEEDED).set(XmNselectionPolicy, selection_policy(multiple));
    args.set(XmNfontList, fontlist);
    if (const auto pixel = application_pixel()) args.set(XmNbackground, *pixel);
}

/// The three ways in which a choice in a list is told.
struct ListCallbacks {
    XtCallbackProc single;
    XtCallbackProc chosen; // double click or Return
    XtCallbackProc multiple;
};

inline void add_list_callbacks(Widget list, const ListCallbacks& callbacks, XtPointer client) {
    XtAddCallback(list, XmNsingleSelectionCallback, callbacks.single, client);
    XtAddCallback(list, XmNdefaultActionCallback, callbacks.chosen, client);
    XtAddCallback(list, XmNmultipleSelectionCallback, callbacks.multiple, client);
}

inline void remove_list_callbacks(Widget list, const ListCallbacks& callbacks, XtPointer client) {
    XtRemoveCallback(list, XmNsingleSelectionCallback, callbacks.single, client);
    XtRemoveCallback(list, XmNdefaultActionCallback, callbacks.chosen, client);
    XtRemoveCallback(list, XmNmultipleSelectionCallback, callbacks.multiple, client);
}

/// Selects entries by their positions from 0, the other way round each time one is named, as the toolkit does; without
/// callbacks. All at once: for each alone the toolkit would look through the whole list.
inline void select_several(Widget list, std::span<const INT> positions) {
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

inline int selected_count(Widget list) {
    return resource<int>(list, XmNselectedItemCount);
}

} // namespace grx
