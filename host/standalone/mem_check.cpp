#include "mem_check.h"

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

#include <unistd.h>

namespace grx_host {

namespace {

enum class State : unsigned char { unused, live, freed };

struct Entry {
    char* address;
    UNSIGNED_INT size;
    State state;
};

// Open addressing, at most half full. Freed addresses stay known until the allocator uses them again.
struct Register {
    Entry* entries = nullptr;
    std::size_t capacity = 0; // a power of two
    std::size_t used = 0;
    std::size_t findings = 0;
};

constexpr std::size_t first_capacity = 1024;
constexpr std::size_t alignment = 16;
constexpr int status_of_findings = 86;

Register blocks;

std::size_t start_of(const char* address) {
    constexpr std::uint64_t golden = 0x9E3779B97F4A7C15u;
    const auto number = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(address)) / alignment;
    return static_cast<std::size_t>((number * golden) >> 32) & (blocks.capacity - 1);
}

// The entry of address, or the unused one where it belongs.
Entry& entry_of(const char* address) {
    auto place = start_of(address);
    while (blocks.entries[place].state != State::unused && blocks.entries[place].address != address)
        place = (place + 1) & (blocks.capacity - 1);
    return blocks.entries[place];
}

void give_up() {
    std::fputs("grx host memory: no room for the register of blocks\n", stderr);
    std::abort();
}

void set_capacity(std::size_t capacity) {
    auto* fresh = static_cast<Entry*>(std::calloc(capacity, sizeof(Entry)));
    if (!fresh) give_up();
    Entry* const old = std::exchange(blocks.entries, fresh);
    const auto old_capacity = std::exchange(blocks.capacity, capacity);
    for (std::size_t i = 0; i < old_capacity; ++i)
        if (old[i].state != State::unused) entry_of(old[i].address) = old[i];
    std::free(old);
}

void report(const char* caller, const char* what, const void* address, UNSIGNED_INT given) {
    ++blocks.findings;
    std::fprintf(stderr, "grx host memory: %s: %s (block %p, %" PRIu32 " bytes given)\n", caller, what, address, given);
}

void report_size(const char* caller, const Entry& entry, UNSIGNED_INT given) {
    ++blocks.findings;
    std::fprintf(stderr, "grx host memory: %s: wrong size, %" PRIu32 " bytes given for a block of %" PRIu32 " bytes\n",
        caller, given, entry.size);
}

void report_leaks() {
    std::size_t count = 0;
    std::uint64_t total = 0;
    for (std::size_t i = 0; i < blocks.capacity; ++i) {
        const auto& entry = blocks.entries[i];
        if (entry.state != State::live) continue;
        std::fprintf(stderr, "grx host memory: leak of %" PRIu32 " bytes (block %p)\n", entry.size,
            static_cast<void*>(entry.address));
        ++count;
        total += entry.size;
    }
    if (count == 0) return;
    blocks.findings += count;
    std::fprintf(stderr, "grx host memory: %zu blocks leaked, %" PRIu64 " bytes in all\n", count, total);
}

const char* setting() {
    const char* const text = std::getenv("GRX_HOST_MEMCHECK");
    return text ? text : "";
}

// After every exit handler and every destructor of the program, so that what they free is no leak.
__attribute__((destructor)) void at_the_end() {
    if (!blocks.entries) return;
    report_leaks();
    if (blocks.findings == 0 || std::strcmp(setting(), "2") != 0) return;
    std::fflush(nullptr);
    _exit(status_of_findings);
}

} // namespace

bool checks_memory() {
    static const bool wanted = *setting() != '\0' && std::strcmp(setting(), "0") != 0;
    return wanted;
}

void block_made(char* address, UNSIGNED_INT size) {
    if (blocks.capacity == 0) set_capacity(first_capacity);
    if (blocks.used * 2 >= blocks.capacity) set_capacity(blocks.capacity * 2);
    auto& entry = entry_of(address);
    if (entry.state == State::unused) ++blocks.used;
    entry = {address, size, State::live};
}

bool block_given_back(const char* caller, char* address, UNSIGNED_INT size) {
    static Entry nothing{};
    auto& entry = blocks.capacity > 0 ? entry_of(address) : nothing;
    if (entry.state == State::unused) {
        report(caller, "unknown block", address, size);
        return false;
    }
    if (entry.state == State::freed) {
        report(caller, "block freed before", address, size);
        return false;
    }
    if (entry.size != size) report_size(caller, entry, size);
    entry.state = State::freed;
    return true;
}

} // namespace grx_host
