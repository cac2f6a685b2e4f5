// Reads numbers from text that need not be terminated, for the readers of settings, menus and panels.
#include "pure/number.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "host_t.h"

namespace grx {

namespace {

// A number is at most as long as a line of a text file.
constexpr std::size_t kLongestNumber = HOST_LIGNE_MAX - 1;

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

} // namespace

int number_of(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\n\v\f\r");
    if (first == std::string_view::npos) return 0;
    std::array<char, kLongestNumber + 1> copy{};
    text.substr(first, kLongestNumber).copy(copy.data(), kLongestNumber);
    return std::atoi(copy.data());
}

std::size_t trailing_digits(std::string_view text) {
    const auto other = std::find_if_not(text.rbegin(), text.rend(), is_digit);
    return static_cast<std::size_t>(other - text.rbegin());
}

} // namespace grx
