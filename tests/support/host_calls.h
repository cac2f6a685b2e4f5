// The application's functions that the test program has in place of the default host's. They do what those do unless a
// test asks for something else.
#pragma once

#include "host_t.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace grxtest {

// litmess: the application's messages; without them the default host's.
extern std::optional<std::map<INT, std::string>> host_messages;

// ftext_open: the modes in which text files were asked for, and, where not null, what every one of them holds: a file
// that has no size.
extern std::vector<INT> text_modes_asked;
extern const char* sizeless_text;

} // namespace grxtest
