// Writes numbers as text of a given width, for applications that show them in columns.
#include <algorithm>
#include <array>

#include "pure/text.h"
#include "host_f.h"
#include "xt_uti_f.h"

namespace {

constexpr INT kMostDecimals = 700; // the buffer of str_ftoa holds that many after the longest double

constexpr char kTooWide = '*';
constexpr char kNotWritten = '?';

void fill(char* s, INT count, char c) {
    std::fill_n(s, count, c);
    s[count] = '\0';
}

} // namespace

extern "C" {

// `s` has room for `total` characters and the final zero.
INT encode_double_en_caractere(DOUBLE r, INT total, INT nbdec, char* s) {
    if (s == nullptr) return 0;
    const auto width = std::max(total, 0);
    std::array<char, HOST_NOMBRE_MAX> text{};
    const auto field = std::min(width, static_cast<INT>(text.size()) - 1);
    if (nbdec > kMostDecimals || str_ftoa(text.data(), r, field, nbdec) != 1) {
        fill(s, width, kNotWritten);
    } else if (const auto number = grx::view(text.data()); number.size() > static_cast<std::size_t>(width)) {
        fill(s, width, kTooWide);
    } else {
        grx::copy_text(s, static_cast<std::size_t>(width) + 1, number);
    }
    return 0;
}
}
