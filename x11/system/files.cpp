// Files, directories and drives for the application's portable layer. A null name counts as an empty one.
#include <array>
#include <cstdint>
#include <dirent.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include "pure/calendar.h"
#include "pure/out.h"
#include "pure/text.h"
#include "system/block.h"
#include "system/forget_system.h"
#include "host_f.h"
#include "xt_dir_f.h"

namespace {

const char* or_empty(const char* text) {
    return text != nullptr ? text : "";
}

bool examine(const char* path, struct stat& status) {
    return stat(or_empty(path), &status) == 0;
}

// -- the names in a directory

constexpr std::size_t kNameSize = sizeof(dirent::d_name);

// Only one iteration runs at a time. The filter may be longer than any name; then it matches none.
DIR* directory = nullptr;
std::array<char, kNameSize + 1> filter{};

bool passes(const char* name) {
    const auto extension = grx::view(filter.data());
    return extension.empty() || grx::has_extension(grx::view(name), extension);
}

INT next_name(char* file) {
    if (file == nullptr) return 1;
    file[0] = '\0';
    if (directory == nullptr) return 1;
    while (const auto* const entry = readdir(directory)) {
        if (!passes(entry->d_name)) continue;
        grx::copy_text(file, kNameSize, grx::view(entry->d_name));
        return 0;
    }
    return 1;
}

constexpr mode_t kMaskOfExecution = 0111;

mode_t remembered_mask = 0;
bool has_remembered_mask = false;

} // namespace

namespace grx {

void forget_listing() {
    ferme_sysdir();
    filter.fill('\0');
    remembered_mask = 0;
    has_remembered_mask = false;
}

} // namespace grx

extern "C" {

// -- what a name stands for

INT taille_fichier(char* filename, DOUBLE* taille) {
    struct stat status {};
    if (!examine(filename, status)) return 1;
    grx::give(taille, static_cast<DOUBLE>(status.st_size));
    return 0;
}

INT date_sys_fic(char* filename, INT* a, INT* m, INT* j, INT* he, INT* mn) {
    struct stat status {};
    if (!examine(filename, status)) return 1;
    const auto date = grx::local_calendar(status.st_mtime);
    grx::give(a, date.year);
    grx::give(m, date.month);
    grx::give(j, date.day);
    grx::give(he, date.hour);
    grx::give(mn, date.minute);
    return 0;
}

INT verif_si_dir(char* filename) {
    struct stat status {};
    return examine(filename, status) && S_ISDIR(status.st_mode) ? 1 : 0;
}

INT verif_si_fic(char* filename) {
    struct stat status {};
    return examine(filename, status) && S_ISREG(status.st_mode) ? 1 : 0;
}

// An empty name stands for the current directory, so it is accepted.
INT verif_repertoire(char* adr, INT mode) {
    if (grx::view(adr).empty()) return 0;
    if (!verif_si_dir(adr)) return -1;
    return access(adr, mode);
}

INT test_directorie(char* adr) {
    return verif_repertoire(adr, R_OK);
}

INT test_directorie_w(char* adr) {
    return verif_repertoire(adr, W_OK);
}

int test_fichier_r(char* fic) {
    return access(or_empty(fic), R_OK);
}

int test_fichier_w(char* adr) {
    return access(or_empty(adr), W_OK);
}

INT suppfic(char* fic) {
    return unlink(or_empty(fic));
}

INT ouvre_sysdir(char* dir, char* extension) {
    ferme_sysdir();
    const auto wanted = grx::view(extension);
    grx::copy_text(filter.data(), filter.size(), wanted == GRX_TOUS_FICHIERS ? std::string_view() : wanted);
    directory = opendir(or_empty(dir));
    return directory ? 0 : 1;
}

// KEEP: the first name is the next one, because the iteration is never wound back.
INT lect_dir_premier(char* file) {
    return next_name(file);
}

INT lect_dir_suivant(char* file) {
    return next_name(file);
}

INT ferme_sysdir(void) {
    if (directory != nullptr) closedir(directory);
    directory = nullptr;
    return 0;
}

// -- drives, masks

// On this platform nobody announces files, and no drive can be missing.
INT ouvre_sysfic(char*) {
    return 0;
}

INT ferme_sysfic(void) {
    return 0;
}

INT verif_drive(char*) {
    return 1;
}

INT set_umask_rw(void) {
    remembered_mask = umask(kMaskOfExecution);
    has_remembered_mask = true;
    return 0;
}

INT set_old_umask(void) {
    if (has_remembered_mask) umask(remembered_mask);
    return 0;
}

// KEEP: the bytes wrap at 32 bits, so that -1 and 4 GB less one byte look the same.
LONG disk_free_spc(char* d) {
    const auto path = grx::view(d);
    grx::Block<char> trimmed(path.size() + 1);
    if (!trimmed) return -1;
    grx::copy_text(trimmed.data(), trimmed.size(), path);
    if (str_trim(trimmed.data(), trimmed.data()) == 0) return 0;
    struct statfs space {};
    if (statfs(trimmed.data(), &space) != 0) return -1;
    const auto bytes = static_cast<std::uint64_t>(space.f_bfree) * static_cast<std::uint64_t>(space.f_bsize);
    return static_cast<LONG>(static_cast<std::uint32_t>(bytes));
}
}
