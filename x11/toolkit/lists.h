// Scrolled lists filled from texts of the application.
#pragma once

#include <Xm/Xm.h>

#include <cstddef>
#include <span>
#include <utility>

#include "system/block.h"
#include "toolkit/args.h"

namespace grx {

/// The entries of a list as compound strings; a list copies them.
class ItemTable {
  public:
    ItemTable() = default;
    explicit ItemTable(std::size_t count) : strings_(count > 0 ? count : 1), count_(count) {}
    ItemTable(ItemTable&& other) noexcept
        : strings_(std::move(other.strings_)), count_(std::exchange(other.count_, 0)) {}
    ItemTable& operator=(ItemTable&& other) noexcept;
    ItemTable(const ItemTable&) = delete;
    ItemTable& operator=(const ItemTable&) = delete;
    ~ItemTable() { free_strings(); }

    explicit operator bool() const { return static_cast<bool>(strings_); }
    XmStringTable get() { return count_ > 0 ? strings_.data() : nullptr; }
    int count() const { return static_cast<int>(count_); }
    void set(std::size_t i, const char* text);

  private:
    void free_strings();

    Block<XmString> strings_;
    std::size_t count_ = 0;
};

unsigned char selection_policy(bool multiple);

/// Scroll bars as needed, in the application's font and colour.
void set_list_look(Args& args, bool multiple);

/// The three ways in which a choice in a list is told.
struct ListCallbacks {
    XtCallbackProc single;
    XtCallbackProc chosen; // double click or Return
    XtCallbackProc multiple;
};

void add_list_callbacks(Widget list, const ListCallbacks& callbacks, XtPointer client);

void remove_list_callbacks(Widget list, const ListCallbacks& callbacks, XtPointer client);

/// Selects entries by their positions from 0, the other way round each time one is named, as the toolkit does; without
/// callbacks. All at once: for each alone the toolkit would look through the whole list.
void select_several(Widget list, std::span<const INT> positions);

int selected_count(Widget list);

} // namespace grx
