// File names of the default host. What would be longer than 1023 characters is refused, never cut to another name.
#include "host_prive.h"

#include <algorithm>
#include <array>

namespace grx_host {

bool join(std::string_view directory, std::string_view name, char* result) {
    const bool needs_slash = !directory.empty() && directory.back() != '/';
    const auto length = directory.size() + (needs_slash ? 1 : 0) + name.size();
    if (length >= path_size) {
        result[0] = '\0';
        return false;
    }
    auto* end = std::copy(directory.begin(), directory.end(), result);
    if (needs_slash) *end++ = '/';
    end = std::copy(name.begin(), name.end(), end);
    *end = '\0';
    return true;
}

namespace {

// The room the callers of verifie_extension have, terminator included.
constexpr std::size_t verified_size = 1000;

// Where the extension's '.' is; npos without one. Dots of directories do not count.
std::size_t extension_dot(std::string_view path) {
    const auto slash = path.rfind('/');
    const auto dot = path.rfind('.');
    const bool in_directory = slash != std::string_view::npos && dot < slash;
    return in_directory ? std::string_view::npos : dot;
}

// Builds base + "." + extension in result; -1, and result as it was, when that needs more than size bytes.
INT store_with_extension(std::string_view base, std::string_view extension, char* result, std::size_t size) {
    std::array<char, path_size> whole{};
    if (base.size() + extension.size() + 2 > std::min(size, whole.size())) return failed;
    auto* end = std::copy(base.begin(), base.end(), whole.data());
    if (!extension.empty()) *end++ = '.';
    std::copy(extension.begin(), extension.end(), end);
    store(result, size, whole.data());
    return done;
}

// Equal but for capitals.
bool same_letters(std::string_view a, std::string_view b) {
    const auto same = [](char x, char y) { return lower_ascii(x) == lower_ascii(y); };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), same);
}

bool sets_no_extension(std::string_view extension) {
    return extension.empty() || extension == "*";
}

} // namespace
} // namespace grx_host

using namespace grx_host;

// resultat may be adr.
HOST_DEFAULT INT compose_adresse_fichier(char* adr, char* nom, char* resultat) {
    if (!resultat) return failed;
    std::array<char, path_size> path{};
    const bool whole = join(view(adr), view(nom), path.data());
    store(resultat, path_size, path.data());
    return whole ? done : failed;
}

// resultat may be nom. An empty extension takes the old one off.
HOST_DEFAULT INT nouvelle_extension(char* nom, char* ext, char* resultat) {
    if (!resultat) return failed;
    const auto name = view(nom);
    return store_with_extension(name.substr(0, extension_dot(name)), view(ext), resultat, path_size);
}

// In place: a name without this extension (in capitals or not) gets it instead of its own. Without a filter, extension
// empty or "*", the name stays. nom has room for 1000 characters.
HOST_DEFAULT INT verifie_extension(char* nom, char* ext) {
    const auto name = view(nom);
    const auto extension = view(ext);
    if (name.empty() || sets_no_extension(extension)) return done;
    const auto dot = extension_dot(name);
    const auto present = dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
    if (same_letters(present, extension)) return done;
    return store_with_extension(name.substr(0, dot), extension, nom, verified_size);
}
