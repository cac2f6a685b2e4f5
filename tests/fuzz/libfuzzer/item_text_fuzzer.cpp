// Texts of panel items: whatever they hold, the lines are those that a reader of the interface expects.
#include "xt_pan_f.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t most_lines = 300;
constexpr std::size_t longest_line = GRX_ITEM_LIGNE_MAX - 1;
constexpr const char* blanks = " \t\r\n";

void require(bool holds) {
    if (!holds) std::abort();
}

std::string trimmed(std::string_view piece) {
    const auto first = piece.find_first_not_of(blanks);
    if (first == piece.npos) return "";
    piece = piece.substr(first, piece.find_last_not_of(blanks) - first + 1);
    return std::string(piece.substr(0, longest_line));
}

std::vector<std::string> expected_lines(std::string_view text, INT width, INT most) {
    std::vector<std::string> lines;
    for (bool more = true; more && static_cast<INT>(lines.size()) < most;) {
        const auto end = text.find('-');
        lines.push_back(trimmed(text.substr(0, end)));
        more = end != text.npos;
        if (more) text.remove_prefix(end + 1);
    }
    std::size_t longest = 0, length = 0;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (lines[i].size() <= length) continue;
        longest = i;
        length = lines[i].size();
    }
    const auto wanted = static_cast<std::size_t>(std::clamp<INT>(width, 0, static_cast<INT>(longest_line)));
    if (!lines.empty() && lines[longest].size() < wanted) lines[longest].resize(wanted, ' ');
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const INT width = static_cast<std::int8_t>(data[0]);
    const INT most = data[1] == 255 ? static_cast<INT>(most_lines) : data[1] - 5;
    std::string text(reinterpret_cast<const char*>(data) + 2, size - 2);
    text = text.c_str();
    const std::string before = text;
    std::vector<char[GRX_ITEM_LIGNE_MAX]> lines(static_cast<std::size_t>(std::max<INT>(most, 1)));
    INT count = most;
    require(decode_message(text.data(), width, &count, lines.data()) == 0);
    require(text == before);
    const auto expected = expected_lines(text, width, most);
    require(count == static_cast<INT>(expected.size()));
    for (std::size_t i = 0; i < expected.size(); ++i) require(expected[i] == lines[i]);
    return 0;
}
