// What is alive, counted and listed for an application that looks for what it forgot to release.
#include "system/inventory.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cassert>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>

#include "grx_plus_erreurs.h"
#include "pure/sized_record.h"
#include "system/forget_system.h"
#include "system/quiet_write.h"
#include "system/trace.h"

namespace grx {

namespace {

constexpr std::size_t kMost = 16;
constexpr std::size_t kLine = 400;
std::array<const AliveKind*, kMost> kinds{};
std::size_t kind_count = 0;
INT last_rank = 0;

std::span<const AliveKind* const> told() {
    return std::span(kinds).first(kind_count);
}

void list_all(InventoryList& list) {
    for (const AliveKind* kind : told())
        if (kind->list != nullptr) kind->list(list);
}

// The file of a name, opened for one list.
class ListFile {
  public:
    explicit ListFile(const char* name) : descriptor_(open_to_append(name)) {}
    ListFile(const ListFile&) = delete;
    ListFile& operator=(const ListFile&) = delete;
    ~ListFile() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    int descriptor() const { return descriptor_; }

  private:
    int descriptor_;
};

// What the environment says; empty for nothing.
const char* wanted_file() {
    const char* const value = std::getenv("GRX_INVENTAIRE");
    return value == nullptr || std::strcmp(value, "0") == 0 ? "" : value;
}

// Writes a list to where the environment wants it.
template <class Fill>
void write_wanted(const char* heading, Fill fill) {
    const char* const name = wanted_file();
    const bool to_standard_error = std::strcmp(name, "1") == 0;
    const ListFile file(to_standard_error ? "" : name);
    InventoryList list(to_standard_error ? STDERR_FILENO : file.descriptor());
    list.line(0, "-- %s, process %ld", heading, static_cast<long>(getpid()));
    fill(list);
}

pid_t owner = 0; // a child of the application that ends by exit has made nothing

void write_at_end() {
    if (getpid() == owner) write_wanted("not released at the end", list_all);
}

} // namespace

void InventoryList::line(INT rank, const char* format, ...) {
    std::array<char, kLine> text{};
    std::size_t length = 0;
    if (rank > 0) length = static_cast<std::size_t>(std::snprintf(text.data(), text.size(), "#%-5d ", rank));
    va_list arguments;
    va_start(arguments, format);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): the analyzer does not see va_start
    std::vsnprintf(text.data() + length, text.size() - length - 1, format, arguments);
    va_end(arguments);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c != '\0' && static_cast<unsigned char>(c) < ' '; }, ' ');
    length = std::strlen(text.data());
    text[length++] = '\n';
    complete_ = write_quietly(descriptor_, text.data(), length) && complete_;
}

void tell_of(const AliveKind* kind) {
    if (std::ranges::find(told(), kind) != told().end()) return;
    assert(kind_count < kMost);
    kinds[kind_count++] = kind;
}

INT next_rank() {
    return ++last_rank;
}

bool inventory_wanted() {
    if (owner != 0) return true;
    if (wanted_file()[0] == '\0') return false;
    owner = getpid();
    std::atexit(write_at_end);
    return true;
}

void list_before_freeing(const char* kind) {
    const auto told_of =
        std::ranges::find_if(told(), [=](const AliveKind* k) { return std::strcmp(k->name, kind) == 0; });
    if (told_of == told().end() || (*told_of)->list == nullptr || !inventory_wanted()) return;
    CH80 heading = "";
    std::snprintf(heading, sizeof heading, "%s when their base is freed", kind);
    write_wanted(heading, (*told_of)->list);
}

void cancel_inventory() {
    owner = 0;
}

void list_before_end_of_work() {
    if (inventory_wanted()) write_wanted("not released before the end of the library's work", list_all);
}

void forget_inventory() {
    kinds = {};
    kind_count = 0;
    last_rank = 0;
}

} // namespace grx

extern "C" {

INT grx_init_inventaire(GRX_INVENTAIRE* inventaire) {
    if (inventaire == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "inventaire");
    *inventaire = GRX_INVENTAIRE{};
    inventaire->taille = static_cast<INT>(sizeof *inventaire);
    return 1;
}

INT grx_recup_inventaire(GRX_INVENTAIRE* inventaire) {
    GRX_INVENTAIRE counted{};
    for (const grx::AliveKind* kind : grx::told())
        if (kind->count != nullptr) kind->count(counted);
    return grx::write_sized(inventaire, counted) ? 1 : grx::refused(GRX_ECHEC_PARAMETRE, "inventaire");
}

INT grx_ecrit_inventaire(const char* adr) {
    if (adr == nullptr || adr[0] == '\0') return grx::refused(GRX_ECHEC_PARAMETRE, "adr");
    const grx::ListFile file(adr);
    if (file.descriptor() < 0) return grx::refused(GRX_ECHEC_FICHIER, "adr");
    grx::InventoryList list(file.descriptor());
    list.line(0, "-- alive, process %ld", static_cast<long>(getpid()));
    grx::list_all(list);
    return list.complete() ? 1 : grx::refused(GRX_ECHEC_FICHIER, "adr");
}
}
