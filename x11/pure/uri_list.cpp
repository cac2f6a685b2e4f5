// Lists of addresses as programs drop them: lines cut, schemes and hosts compared, percent signs decoded.
#include "pure/uri_list.h"

#include "pure/text.h"

namespace grx {

namespace {

constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool same_name(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lower(x) == lower(y); });
}

// The value of a hexadecimal digit, -1 for none.
constexpr int digit(char c) {
    constexpr int ten = 10;
    if (c >= '0' && c <= '9') return c - '0';
    const char small = lower(c);
    return small >= 'a' && small <= 'f' ? small - 'a' + ten : -1;
}

// A percent sign without two digits stands for itself. False for an encoded zero.
bool decode(std::string_view text, char* out) {
    constexpr int base = 16;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool coded = text[i] == '%' && i + 2 < text.size() && digit(text[i + 1]) >= 0 && digit(text[i + 2]) >= 0;
        const char c = coded ? static_cast<char>(digit(text[i + 1]) * base + digit(text[i + 2])) : text[i];
        if (c == '\0') return false;
        *out++ = c;
        if (coded) i += 2;
    }
    *out = '\0';
    return true;
}

// What is behind the host of "//host/path"; empty for a host that is not this computer.
std::string_view behind_host(std::string_view address, std::string_view host) {
    address.remove_prefix(2);
    const std::size_t slash = address.find('/');
    if (slash == std::string_view::npos) return {};
    const std::string_view named = address.substr(0, slash);
    const std::string_view short_name = host.substr(0, host.find('.'));
    const bool here =
        named.empty() || same_name(named, "localhost") || same_name(named, host) || same_name(named, short_name);
    return here ? address.substr(slash) : std::string_view();
}

} // namespace

std::string_view take_uri(std::string_view& list) {
    while (!list.empty()) {
        const std::size_t end = list.find('\n');
        const std::string_view line = trimmed(list.substr(0, end));
        list = end == std::string_view::npos ? std::string_view() : list.substr(end + 1);
        if (!line.empty() && line.front() != '#') return line;
    }
    return {};
}

bool path_of_uri(std::string_view uri, std::string_view host, char* out) {
    constexpr std::string_view scheme = "file:";
    if (uri.size() <= scheme.size() || !same_name(uri.substr(0, scheme.size()), scheme)) return false;
    std::string_view path = uri.substr(scheme.size());
    if (path.substr(0, 2) == "//") path = behind_host(path, host);
    return !path.empty() && path.front() == '/' && decode(path, out);
}

} // namespace grx
