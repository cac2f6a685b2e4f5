// The texts of messages and prompts, as the toolkit shows them: in the characters of the font, with usual labels where
// the application gives none.
#pragma once

#include "system/block.h"
#include "toolkit/locale_text.h"

namespace grx {

/// A text in Latin-1, lines ended by line feeds, other control characters made blanks. Empty when memory is short.
Block<char> shown_text(const char* text);

/// The same on one line.
Block<char> shown_line(const char* text);

/// For text widgets, in the locale's encoding. Empty when memory is short.
Block<char> typed_text(const char* text);

/// What the texts of an application tell of its encoding; the first that tells something counts.
TextEncoding encoding_among(std::initializer_list<const char*> texts);

/// What the user typed, in the application's encoding. Empty when memory is short.
Block<char> answered_text(const char* typed, TextEncoding encoding);

enum class UsualLabel { Ok, Cancel, Yes, No };

/// `given`, or the usual label where that is empty; as shown_line.
Block<char> button_text(const char* given, UsualLabel usual);

} // namespace grx
