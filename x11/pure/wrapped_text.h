// Breaks long lines of a text at blanks, for labels, which do not do so themselves.
#pragma once

#include <cstddef>
#include <string_view>

namespace grx {

namespace wrapping {

/// The length of the longest beginning of a line for which `fits` is true, at least one character; by halving, for the
/// question is dear.
template <class Fits>
std::size_t longest_that_fits(std::string_view line, std::size_t most, Fits fits) {
    std::size_t good = 1, bad = most + 1;
    if (most <= 1 || fits(line.substr(0, most))) return most;
    while (good + 1 < bad) {
        const std::size_t middle = good + (bad - good) / 2;
        (fits(line.substr(0, middle)) ? good : bad) = middle;
    }
    return good;
}

/// The length of the part of a line that comes before its break. A word that is longer than a line is cut.
template <class Fits>
std::size_t part_of_line(std::string_view line, std::size_t most, Fits fits) {
    const std::size_t room = longest_that_fits(line, line.size() < most ? line.size() : most, fits);
    if (room == line.size() || line[room] == ' ') return room;
    const std::size_t blank = line.substr(0, room).rfind(' ');
    return blank != std::string_view::npos && blank > 0 ? blank : room;
}

} // namespace wrapping

/// Writes `text`, one byte a character, to `out` with a line feed at each break, and a zero; `out` has room for
/// 2 * text.size() + 1 bytes. `fits` says whether a piece fits a line, none of which gets more than `most` characters.
/// Returns the number of lines.
template <class Fits>
std::size_t wrap_text(std::string_view text, std::size_t most, Fits fits, char* out) {
    std::size_t lines = 1;
    const auto break_line = [&] {
        *out++ = '\n';
        ++lines;
    };
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        while (!line.empty()) {
            const std::size_t length = wrapping::part_of_line(line, most, fits);
            out = line.substr(0, length).copy(out, length) + out;
            line.remove_prefix(length);
            while (line.starts_with(' ')) line.remove_prefix(1); // those at the break
            if (!line.empty()) break_line();
        }
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
        break_line();
    }
    *out = '\0';
    return lines;
}

} // namespace grx
