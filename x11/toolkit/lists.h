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
class EntryTable {
  public:
    EntryTable() = default;
    explicit EntryTable(std::size_t count) : strings_(count > 0 ? count : 1), count_(count) {}
    EntryTable(EntryTable&& other) noexcept
        : strings_(std::move(other.strings_)), count_(std::exchange(other.count_, 0)) {}
    EntryTable& operator=(EntryTable&& other) noexcept;
    EntryTable(const EntryTable&) = delete;
    EntryTable& operator=(const EntryTable&) = delete;
    ~EntryTable() { free_strings(); }

    explicit operator bool() const { return static_cast<bool>(strings_); }
    XmStringTable get() { return count_ > 0 ? strings_.data() : nullptr; }
    int count() const { return static_cast<int>(count_); }
    void set(std::size_t i, const char* text);
    void set_in_columns(std::size_t i, const char* text); // with tabs that list_columns lines up

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

/// Turns the selection of entries round, by their positions from 0, without callbacks: one named twice is as before.
/// All at once: the toolkit would look through the whole list for each alone.
void select_several(Widget list, std::span<const INT> positions);

int selected_count(Widget list);

} // namespace grx
