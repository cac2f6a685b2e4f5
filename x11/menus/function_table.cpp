// Finds the entries of a function number without looking through all menus.
#include "menus/function_table.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

#include "pure/text.h"

namespace grx {

namespace {

constexpr std::size_t kFirstPlaces = 128;

template <class T>
bool has_place(Block<T>& block, int used) {
    if (static_cast<std::size_t>(used) < block.size()) return true;
    return block.resize(std::max(kFirstPlaces, 2 * block.size()));
}

} // namespace

// -- numbers

std::size_t FunctionTable::chain_of(INT number) const {
    constexpr std::uint32_t spread = 2654435769U; // 2^32 divided by the golden ratio
    constexpr int upper_half = 16;
    const std::uint32_t mixed = static_cast<std::uint32_t>(number) * spread;
    return (mixed ^ (mixed >> upper_half)) & (chains_.size() - 1);
}

int FunctionTable::index_of(INT number) const {
    if (chains_.size() == 0) return kNone;
    int i = chains_[chain_of(number)];
    while (i != kNone && functions_[static_cast<std::size_t>(i)].number != number)
        i = functions_[static_cast<std::size_t>(i)].next;
    return i;
}

MenuFunction* FunctionTable::find(INT number) {
    const int index = index_of(number);
    return index != kNone ? &function(index) : nullptr;
}

MenuFunction* FunctionTable::find_or_add(INT number) {
    if (MenuFunction* const known = find(number)) return known;
    if (!room_for_functions()) {
        free_if_empty();
        return nullptr;
    }
    const int index = take_function_place();
    MenuFunction& made = function(index) = MenuFunction{};
    made.number = number;
    int& first = chains_[chain_of(number)];
    made.next = first;
    first = index;
    ++living_functions_;
    return &made;
}

// As many chains as there are places for functions.
bool FunctionTable::room_for_functions() {
    if (free_function_ != kNone) return true;
    if (!has_place(functions_, used_functions_)) return false;
    if (chains_.size() == functions_.size()) return true;
    Block<int> more = Block<int>::raw(functions_.size());
    if (!more) return chains_.size() > 0; // fewer chains than there could be, and longer ones
    chains_ = std::move(more);
    chain_again();
    return true;
}

void FunctionTable::chain_again() {
    std::fill(chains_.begin(), chains_.end(), kNone);
    for (int i = 0; i < used_functions_; ++i) { // all of them live: a free place would have been taken
        int& first = chains_[chain_of(function(i).number)];
        function(i).next = first;
        first = i;
    }
}

int FunctionTable::take_function_place() {
    if (free_function_ == kNone) return used_functions_++;
    const int index = free_function_;
    free_function_ = function(index).next;
    return index;
}

void FunctionTable::drop_if_unused(INT number) {
    const int index = index_of(number);
    if (index == kNone || function(index).entries > 0 || function(index).has_setting()) return;
    int* at = &chains_[chain_of(number)];
    while (*at != index) at = &function(*at).next;
    *at = function(index).next;
    set_text(function(index), nullptr);
    function(index).next = free_function_;
    free_function_ = index;
    --living_functions_;
    free_if_empty();
}

void FunctionTable::free_if_empty() {
    if (living_functions_ > 0) return;
    entries_.reset();
    functions_.reset();
    chains_.reset();
    used_entries_ = used_functions_ = 0;
    free_entry_ = free_function_ = kNone;
}

bool FunctionTable::set_text(MenuFunction& function, const char* text) {
    char* copy = nullptr;
    if (const std::string_view given = view(text); !given.empty()) {
        copy = grx_malloc(static_cast<UNSIGNED_INT>(given.size() + 1));
        if (copy == nullptr) return false;
        copy_text(copy, given.size() + 1, given);
    }
    if (function.text != nullptr) grx_free(function.text, static_cast<UNSIGNED_INT>(std::strlen(function.text) + 1));
    function.text = copy;
    return true;
}

// -- entries

int FunctionTable::add_entry(INT number, Widget widget) {
    if (free_entry_ == kNone && !has_place(entries_, used_entries_)) return kNone;
    if (find_or_add(number) == nullptr) return kNone;
    const int place = take_entry_place();
    entry(place) = MenuEntry{};
    entry(place).widget = widget;
    link(place, index_of(number));
    return place;
}

int FunctionTable::take_entry_place() {
    if (free_entry_ == kNone) return used_entries_++;
    const int place = free_entry_;
    free_entry_ = entry(place).next;
    return place;
}

bool FunctionTable::holds(int place) const {
    return place >= 0 && place < used_entries_ && entries_[static_cast<std::size_t>(place)].function != kNone;
}

void FunctionTable::remove_entry(int place) {
    if (!holds(place)) return;
    const INT number = function_of(place).number;
    unlink(entry(place));
    entry(place) = MenuEntry{};
    entry(place).next = free_entry_;
    free_entry_ = place;
    drop_if_unused(number);
}

void FunctionTable::link(int place, int function_index) {
    MenuFunction& f = function(function_index);
    entry(place).function = function_index;
    entry(place).previous = f.last_entry;
    (f.last_entry != kNone ? entry(f.last_entry).next : f.first_entry) = place;
    f.last_entry = place;
    ++f.entries;
}

void FunctionTable::unlink(const MenuEntry& gone) {
    MenuFunction& f = function(gone.function);
    (gone.previous != kNone ? entry(gone.previous).next : f.first_entry) = gone.next;
    (gone.next != kNone ? entry(gone.next).previous : f.last_entry) = gone.previous;
    --f.entries;
}

} // namespace grx
