// The clipboard and the primary selection as the application uses them, for the files that do so.
#pragma once

#include "events/selection_fetch.h"
#include "events/selection_offer.h"
#include "xt_ent_t.h"

namespace grx {

/// 1, or the code for a selection that is none and for a library that is not started.
INT selection_fault(INT selection);

/// Asks the owner of a selection for a target and waits. 1, or the code of what went wrong. One request at a time.
INT fetch_target(INT selection, const char* target, SelectionFetch& fetch);

/// What the application gets, in memory of the library that stays until the next time: `size` bytes with a zero behind.
const char* keep_given(Block<char>&& bytes);

/// The text of a selection, of Latin-1 or else UTF-8, with a zero behind; its size counts that zero. 1 or a code.
INT fetch_text(INT selection, INT encoding, Block<char>& text);

/// Offers a text in that encoding. 1 or a code.
INT offer_text(INT selection, INT encoding, std::string_view text);

/// Offers bytes, which have a zero behind. 1 or a code.
INT offer_block(INT selection, Content content, Block<char>&& bytes);

} // namespace grx
