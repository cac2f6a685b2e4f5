// Tells the application which directories hold its icons and messages and which one it works in. Settings and
// environment say so.
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <iterator>

#include "pure/number.h"
#include "pure/text.h"
#include "system/block.h"
#include "system/forget_system.h"
#include "host_f.h"
#include "xt_dir_f.h"
#include "xt_err_f.h"
#include "xt_ini_f.h"
#include "xt_uti_f.h"

char adr_icones[GRX_ADR_ICONES_MAX] = "";

namespace {

struct IconDirectory {
    INT format;
    char name[2];
};

constexpr std::array<IconDirectory, 3> kIconDirectories{{{2, "S"}, {3, "M"}, {4, "L"}}};

constexpr INT kFirstMessageFormat = 1; // its messages lie in the directory itself
constexpr std::size_t kDigitsOfInt = 12;

constexpr char path_variable[] = "ZZCUR";
constexpr std::size_t kPathTooLong = 60;
constexpr char fallback_path[] = "tmp";

// What init_path answers.
constexpr INT kPathUsable = 0;
constexpr INT kPathRefused = 1;
constexpr INT kPathUnusable = 2;

// getvarsystem writes values of any length, so the room is measured first.
grx::Block<char> variable(const char* wanted) {
    const auto size = grx::view(std::getenv(wanted)).size() + 1;
    grx::Block<char> value(size);
    std::array<char, sizeof(path_variable)> name{};
    grx::copy_text(name.data(), name.size(), wanted);
    if (value && getvarsystem(name.data(), value.data()) != 0) value.reset();
    return value;
}

// Makes all slashes forward ones and ends the path with one. `path` has room for one character more.
void end_with_slash(char* path) {
    const auto length = grx::view(path).size();
    std::replace(path, path + length, '\\', '/');
    if (!grx::view(path).ends_with('/')) grx::copy_text(path + length, 2, "/");
}

INT path_of_variable(char* path) {
    auto value = variable(path_variable);
    if (!value) return kPathRefused;
    if (grx::view(value.data()).size() >= kPathTooLong) {
        grx_erreur(GRX_ERR_VAR_ENV_LONGUE);
        return kPathRefused;
    }
    str_trim(path, value.data());
    if (path[0] == '\0') return kPathRefused;
    str_lwr(path, path);
    end_with_slash(path);
    return test_directorie(path) == 0 ? kPathUsable : kPathUnusable;
}

} // namespace

namespace grx {

void forget_directories() {
    std::fill(std::begin(adr_icones), std::end(adr_icones), '\0');
}

} // namespace grx

extern "C" {

// There is nothing to load: an icon is read when a button needs it.
INT grx_charge_icones(void) {
    return 1;
}

INT grx_init_repertoire_icones(char* adr) {
    grx::copy_text(adr_icones, sizeof(adr_icones), grx::view(adr));
    return 0;
}

INT grx_recup_repertoire_icones(char* adr) {
    grx::copy_text(adr, sizeof(adr_icones), adr_icones);
    const auto format = grx_recup_format_icone();
    for (auto entry : kIconDirectories)
        if (adr && entry.format == format) compose_adresse_fichier(adr_icones, entry.name, adr);
    return 0;
}

INT grx_decompose_adresse_fichier_message(char* adr, INT* format) {
    if (!adr || !format) return 0;
    const auto path = grx::view(adr);
    const auto kept = path.size() - grx::trailing_digits(path);
    *format = kept < path.size() ? grx::number_of(path.substr(kept)) : kFirstMessageFormat;
    adr[kept] = '\0';
    return 0;
}

INT grx_recup_repertoire_message(char* adr, INT* format) {
    if (!adr || !format || *format == kFirstMessageFormat) return 0;
    std::array<char, kDigitsOfInt> number{};
    std::snprintf(number.data(), number.size(), "%d", *format);
    compose_adresse_fichier(adr, number.data(), adr);
    return 0;
}

// KEEP: the result is that of the first check, although path then is "tmp" or empty.
INT init_path(char* path) {
    if (path == nullptr) return kPathRefused;
    const auto result = path_of_variable(path);
    if (result == kPathUsable) return result;
    grx::copy_text(path, sizeof(fallback_path), fallback_path);
    if (test_directorie(path) != 0) path[0] = '\0';
    return result;
}
}
