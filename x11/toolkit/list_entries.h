// Entries of list widgets: put in, taken out, selected, found and scrolled to. Positions are the toolkit's, from 1; those
// who call have checked them. What is selected stays so.
#pragma once

#include <Xm/Xm.h>

#include <span>

#include "toolkit/lists.h"
#include "host_t.h"

namespace grx {

int entry_count(Widget list);

/// Replaces all entries; nothing is selected, the beginning is in view.
void fill_list(Widget list, EntryTable& entries);

void insert_entries(Widget list, int position, EntryTable& entries);

/// Replaces as many entries as there are new ones. False, with nothing changed, when memory is short.
bool replace_entries(Widget list, int position, EntryTable& entries);

void delete_entries(Widget list, int position, int count);

/// The positions grow.
void delete_positions(Widget list, std::span<INT> positions);

/// Selects or deselects; in a list of one the last one named is selected alone.
void select_entries(Widget list, std::span<const INT> positions, bool selected);

void deselect_all(Widget list);

bool is_selected(Widget list, int position);

/// Several, one, or as many as Shift and Ctrl take: XmMULTIPLE_SELECT and its like. Going to one keeps the first.
void set_selection_policy(Widget list, unsigned char policy);

bool selects_several(Widget list);

/// Scrolls as little as needed.
void show_entry(Widget list, int position);

struct EntryBox {
    Position x = 0;
    Position y = 0;
    Dimension width = 0;
    Dimension height = 0;
};

/// False for an entry that is not in view.
bool find_entry_box(Widget list, int position, EntryBox& box);

/// The entry at a point in the list; 0 when there is none.
int entry_at(Widget list, int x, int y);

} // namespace grx
