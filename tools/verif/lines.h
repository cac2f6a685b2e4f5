// Lines of configuration files, as the text reader of the default host gives them.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "host_t.h"
#include "pure/number.h"

namespace verif {

inline constexpr std::size_t longest_line = HOST_LIGNE_MAX - 1;

/// Takes away what the reader does not give; true when the line was longer than it reads.
inline bool cut_line(std::string& line) {
    if (line.ends_with('\r')) line.pop_back();
    line.resize(std::min(line.size(), line.find('\0')));
    if (line.size() <= longest_line) return false;
    line.resize(longest_line);
    return true;
}

inline std::string what_is_cut() {
    return "what follows character " + std::to_string(longest_line);
}

inline std::string in_quotes(std::string_view text) {
    return '"' + std::string(text) + '"';
}

/// Tells when a number was not written as it is read.
inline std::string number_note(std::string_view text) {
    return text.empty() || text == std::to_string(grx::number_of(text)) ? "" : ", read from " + in_quotes(text);
}

} // namespace verif
