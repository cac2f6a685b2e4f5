// Lists of all three kinds by one number, for the functions that work on any of them.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

enum class ListKind { Control, Panel, Dialog };

/// A list of the application; without a widget `code` says why.
struct ListNumber {
    Widget list = nullptr;
    INT code = 0;
    ListKind kind = ListKind::Control;
    INT slot = 0; // or the number of the control
};

ListNumber find_list(INT liste);

/// True when a list has an entry at each of these positions; they may be none.
bool are_positions(const ListNumber& found, INT nb, const INT* positions);

/// Before a list gets so many entries. False when memory is short.
bool make_room(const ListNumber& found, int count);

/// After a change: for those who keep what is in a list.
void note_change(const ListNumber& found);

/// Before several can be selected.
void tell_several(const ListNumber& found);

} // namespace grx
