// Which entries carry which function number, in all menus, and what is set for each number: for those who make entries
// and those who change them.
#pragma once

#include <Xm/Xm.h>

#include <cstddef>

#include "system/block.h"
#include "host_t.h"

namespace grx {

/// One of the states of a number.
struct MenuSetting {
    bool is_set = false;
    bool kept = false; // it outlives the bar
    bool value = false;
};

struct MenuFunction {
    INT number = 0;
    int next = -1;        // in its chain
    int first_entry = -1; // the oldest
    int last_entry = -1;
    INT entries = 0;
    MenuSetting off;
    MenuSetting ticked;
    MenuSetting renamed;
    char* text = nullptr; // when it is renamed: with the mark of the mnemonic

    bool has_setting() const { return off.is_set || ticked.is_set || renamed.is_set; }
};

struct MenuEntry {
    Widget widget = nullptr;
    int function = -1; // -1: the place is free
    int next = -1;     // of the same number, or the next free place
    int previous = -1;
    XmString label = nullptr; // of the menu file, while the entry shows another
    KeySym mnemonic = NoSymbol;
};

/// A hash table of numbers with a list of entries for each. A place in the table stays the same while its entry lives.
class FunctionTable {
  public:
    static constexpr int kNone = -1;

    constexpr FunctionTable() = default;

    /// The place of the entry; kNone when memory is short.
    int add_entry(INT number, Widget widget);
    /// Does nothing for a place that holds no entry.
    void remove_entry(int place);
    bool holds(int place) const;
    MenuEntry& entry(int place) { return entries_[static_cast<std::size_t>(place)]; }
    MenuFunction& function_of(int place) { return function(entry(place).function); }

    /// Null when nothing is known of the number.
    MenuFunction* find(INT number);
    /// Null when memory is short.
    MenuFunction* find_or_add(INT number);
    /// Forgets a number without entries and settings, and the memory of a table without numbers.
    void drop_if_unused(INT number);

    /// False when memory is short. Null or "" forgets the text.
    static bool set_text(MenuFunction& function, const char* text);

    template <class Call>
    void for_each_entry(const MenuFunction& function, Call call) {
        for (int i = function.first_entry; i != kNone;) {
            MenuEntry& e = entries_[static_cast<std::size_t>(i)];
            i = e.next;
            call(e);
        }
    }

    /// `call` may drop the function that it gets.
    template <class Call>
    void for_each_function(Call call) {
        for (std::size_t chain = 0; chain < chains_.size(); ++chain) {
            for (int i = chains_[chain]; i != kNone;) {
                MenuFunction& f = function(i);
                i = f.next;
                call(f);
            }
        }
    }

  private:
    MenuFunction& function(int index) { return functions_[static_cast<std::size_t>(index)]; }
    std::size_t chain_of(INT number) const;
    int index_of(INT number) const;
    int take_entry_place();
    int take_function_place();
    bool room_for_functions();
    void chain_again();
    void link(int place, int function_index);
    void unlink(const MenuEntry& gone);
    void free_if_empty();

    Block<MenuEntry> entries_;
    Block<MenuFunction> functions_;
    Block<int> chains_; // the first function of each; their number is a power of 2
    int used_entries_ = 0;
    int used_functions_ = 0;
    int free_entry_ = kNone;
    int free_function_ = kNone;
    int living_functions_ = 0;
};

} // namespace grx
