// What is alive, for an application that looks for what it forgot to release: the rooms tell what kinds of things they
// keep, and the list is made of that.
#pragma once

#include "grx_plus_diagnostic.h"

namespace grx {

/// Where a list of things goes, a line each.
class InventoryList {
  public:
    explicit InventoryList(int descriptor) : descriptor_(descriptor) {}

    /// A line: the thing's rank in the order of making, 0 when nobody knows, and what `format` makes of the arguments.
    [[gnu::format(printf, 3, 4)]] void line(INT rank, const char* format, ...);
    bool complete() const { return complete_; }

  private:
    int descriptor_;
    bool complete_ = true; // nothing was refused by the file
};

/// A kind of things that a room keeps. Either function may be null.
struct AliveKind {
    const char* name; // "windows"
    void (*count)(GRX_INVENTAIRE& into);
    void (*list)(InventoryList& into);
};

/// Tells of a kind, at its first use or at the start; telling again changes nothing.
void tell_of(const AliveKind* kind);

/// The next rank in the order of making.
INT next_rank();

/// True when the environment asks for lists. Makes sure, the first time, that one is written at the end of the process.
bool inventory_wanted();

/// Writes what is there of a kind that is about to be freed as a whole, if the environment asks for lists.
void list_before_freeing(const char* kind);

/// Writes the list of what the application has not released, if it is wanted: the end of the library's work frees it.
void list_before_end_of_work();

/// Writes no list at the end of the process.
void cancel_inventory();

} // namespace grx
