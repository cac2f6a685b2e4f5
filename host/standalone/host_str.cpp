// Strings of the default host. Null reads as the empty string; dest and src may be the same.
#include "host_prive.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace grx_host {

INT store(char* destination, std::size_t size, std::string_view source) {
    if (!destination || size == 0) return 0;
    const auto length = std::min(source.size(), size - 1);
    if (length > 0) std::memmove(destination, source.data(), length);
    destination[length] = '\0';
    return static_cast<INT>(length);
}

namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr int case_distance = 'a' - 'A';
constexpr unsigned char latin_first_capital = 0xC0;
constexpr unsigned char latin_last_capital = 0xDE;
constexpr unsigned char latin_times_sign = 0xD7;

// The result never is longer than the source.
INT store_all(char* destination, std::string_view source) {
    return store(destination, std::numeric_limits<std::size_t>::max(), source);
}

// How many bytes follow a first byte of UTF-8; -1 for a byte that begins nothing.
int utf8_followers(unsigned char first) {
    if (first < 0x80) return 0;
    if (first >= 0xC2 && first <= 0xDF) return 1;
    if (first >= 0xE0 && first <= 0xEF) return 2;
    return first >= 0xF0 && first <= 0xF4 ? 3 : -1;
}

bool is_utf8(std::string_view text) {
    int expected = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (expected > 0) {
            if ((byte & 0xC0) != 0x80) return false;
            --expected;
        } else if ((expected = utf8_followers(byte)) < 0) {
            return false;
        }
    }
    return expected == 0;
}

char lower_latin(char c) {
    const auto byte = static_cast<unsigned char>(c);
    const bool capital = byte >= latin_first_capital && byte <= latin_last_capital && byte != latin_times_sign;
    return capital ? static_cast<char>(byte + case_distance) : lower_ascii(c);
}

INT convert(char* dest, const char* src, char (*change)(char)) {
    if (!dest) return 0;
    const auto length = store_all(dest, view(src));
    std::transform(dest, dest + length, dest, change);
    return length;
}

} // namespace
} // namespace grx_host

using namespace grx_host;

HOST_DEFAULT INT str_trim(char* dest, char* src) {
    auto text = view(src);
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    text = text.substr(0, text.find_last_not_of(blanks) + 1);
    return store_all(dest, text);
}

// Accented capitals of ISO 8859-1 are lowered too, except in text that is UTF-8, whose bytes must not be touched.
HOST_DEFAULT INT str_lwr(char* dest, char* src) {
    return convert(dest, src, is_utf8(view(src)) ? lower_ascii : lower_latin);
}

// Used on file names: bytes from 0x80 on stay as they are.
HOST_DEFAULT INT str_upr(char* dest, char* src) {
    return convert(dest, src, upper_ascii);
}

HOST_DEFAULT INT str_pos(char* chaine, char* sous_chaine) {
    const auto place = view(chaine).find(view(sous_chaine));
    return place == std::string_view::npos ? -1 : static_cast<INT>(place);
}

// fin is the index of the last character kept.
HOST_DEFAULT INT str_sub(char* dest, char* src, INT debut, INT fin) {
    const auto text = view(src);
    const auto first = static_cast<std::size_t>(std::max(debut, 0));
    if (fin < 0 || first >= text.size() || static_cast<std::size_t>(fin) < first) return store_all(dest, {});
    return store_all(dest, text.substr(first, static_cast<std::size_t>(fin) - first + 1));
}

HOST_DEFAULT INT str_blanc(char* dest, INT nb) {
    if (!dest) return 0;
    const auto count = std::max(nb, 0);
    std::fill_n(dest, count, ' ');
    dest[count] = '\0';
    return count;
}
