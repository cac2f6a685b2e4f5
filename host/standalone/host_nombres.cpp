// Numbers as text. The results have a '.' as decimal sign wherever the application left the numeric locale at "C".
#include "host_prive.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

using namespace grx_host;

namespace {

constexpr INT most_decimals = 300;
constexpr INT most_digits = 17; // what tells any two doubles apart

bool can_be_written(DOUBLE value, INT decimals) {
    return std::isfinite(value) && decimals >= 0 && decimals <= most_decimals;
}

std::string_view written(const std::array<char, number_size>& text, int length) {
    return {text.data(), static_cast<std::size_t>(std::max(length, 0))};
}

// The shortest loss: as many significant digits as the width allows, one at the least.
INT store_general(DOUBLE value, std::size_t width, char* text) {
    std::array<char, number_size> general{};
    int length = 0;
    for (INT digits = most_digits; digits > 0; --digits) {
        length = std::snprintf(general.data(), general.size(), "%.*g", digits, value);
        if (static_cast<std::size_t>(length) <= width) break;
    }
    return store(text, number_size, written(general, length));
}

} // namespace

// Right-aligned in total characters; a number that needs more is written in full.
HOST_DEFAULT INT str_ftoa(char* s, DOUBLE r, INT total, INT nbdec) {
    if (!s) return 0;
    s[0] = '\0';
    if (!can_be_written(r, nbdec)) return 0;
    const auto field = std::clamp(total, 0, static_cast<INT>(number_size) - 1);
    std::snprintf(s, number_size, "%*.*f", field, nbdec, r);
    return 1;
}

// nb_cara 0 or less sets no width.
HOST_DEFAULT INT clc_convert_to_string(DOUBLE valeur, INT nb_cara, INT nb_deci, char* texte) {
    if (!texte) return 0;
    texte[0] = '\0';
    if (!can_be_written(valeur, nb_deci)) return 0;
    const auto width = nb_cara > 0 ? std::min(static_cast<std::size_t>(nb_cara), number_size - 1) : number_size - 1;
    std::array<char, number_size> fixed{};
    const auto length = std::snprintf(fixed.data(), fixed.size(), "%.*f", nb_deci, valeur);
    if (static_cast<std::size_t>(length) > width) {
        store_general(valeur, width, texte);
    } else {
        store(texte, number_size, written(fixed, length));
    }
    return 1;
}
