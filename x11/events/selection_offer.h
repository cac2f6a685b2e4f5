// What this process offers to other programs on the clipboard and in the primary selection.
#pragma once

#include <X11/Intrinsic.h>

#include <string_view>

#include "system/block.h"
#include "xt_ent_t.h"

namespace grx {

/// Texts are UTF-8, pictures the bytes of a PNG file.
enum class Content : char { Nothing, Text, Png };

constexpr INT kSelections = 2; // the clipboard and the primary selection, by the numbers of the application

Atom selection_atom(INT selection);

/// Offers a content. `bytes` has a zero behind its content. False, with nothing changed, when the server gives the
/// selection to somebody else.
bool offer(INT selection, Content content, Block<char>&& bytes);

/// Takes back what is offered.
void withdraw(INT selection);

/// What is offered; asks the server whether somebody else has taken the selection meanwhile.
Content offered(INT selection);

/// The content of it, without the zero behind.
std::string_view offered_bytes(INT selection);

/// Posts a record whenever something offered is lost to another owner, from now on or no more.
void tell_losses(bool tell);

} // namespace grx
