// Quotes words of shell commands, for the commands that the library builds from names the user chose.
#include "pure/shell_quote.h"

#include <algorithm>

namespace grx {

namespace {

constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_./+,:=@%-";
constexpr std::string_view kQuotedQuote = "'\\''"; // closes the quotes, writes one, opens them again

char* write(char* out, std::string_view text) {
    return std::copy(text.begin(), text.end(), out);
}

} // namespace

bool is_plain_word(std::string_view word) {
    return !word.empty() && word.find_first_not_of(kPlain) == std::string_view::npos;
}

std::size_t word_length(std::string_view word) {
    if (is_plain_word(word)) return word.size();
    const auto quotes = static_cast<std::size_t>(std::count(word.begin(), word.end(), '\''));
    return word.size() + quotes * (kQuotedQuote.size() - 1) + 2;
}

char* write_word(char* out, std::string_view word) {
    if (is_plain_word(word)) return write(out, word);
    *out++ = '\'';
    for (const char c : word) out = c == '\'' ? write(out, kQuotedQuote) : write(out, {&c, 1});
    *out++ = '\'';
    return out;
}

} // namespace grx
