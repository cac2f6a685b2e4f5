#include "tests/support/heap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <sstream>
#include <unordered_map>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t tail_guard = 0; // the sanitizer sees the end of the block itself
#else
constexpr std::size_t tail_guard = 16;
#endif

namespace {

constexpr std::size_t head_guard = 16;
constexpr int guard_byte = 0xFD;
constexpr int freed_byte = 0xDD;

struct Block {
    std::size_t size;
    std::size_t serial;
};

// Keyed by the inverted address, so that the leak sanitizer does not take this table for an owner of the blocks.
using Blocks = std::unordered_map<std::uintptr_t, Block>;

struct State {
    Blocks blocks;
    std::size_t bytes = 0;
    std::size_t allocations = 0;
    std::size_t fail_first = 0; // serial numbers that fail; 0 means none
    std::size_t fail_last = 0;
    bool failed = false;
    int fill = 0xA5;
};

State& state() {
    static State* made = new State; // lives as long as the process: the library frees in its last moments too
    return *made;
}

std::uintptr_t key_of(const char* address) {
    return ~reinterpret_cast<std::uintptr_t>(address);
}
const char* address_of(std::uintptr_t key) {
    return reinterpret_cast<const char*>(~key);
}

bool guarded(const char* from, std::size_t count) {
    return std::all_of(from, from + count, [](char byte) { return static_cast<unsigned char>(byte) == guard_byte; });
}

std::string damage_of(const char* address, const Block& block) {
    const std::string name =
        std::to_string(block.size) + " bytes of allocation " + std::to_string(block.serial) + " written ";
    std::string result;
    if (!guarded(address - head_guard, head_guard)) result += name + "before their start\n";
    if (!guarded(address + block.size, tail_guard)) result += name + "behind their end\n";
    return result;
}

bool must_fail() {
    const auto serial = ++state().allocations;
    if (serial < state().fail_first || serial > state().fail_last) return false;
    state().failed = true;
    return true;
}

char* make(std::size_t size) {
    char* start = static_cast<char*>(std::malloc(head_guard + size + tail_guard));
    if (!start) return nullptr;
    char* address = start + head_guard;
    std::memset(start, guard_byte, head_guard);
    std::memset(address, state().fill, size);
    std::memset(address + size, guard_byte, tail_guard);
    state().blocks[key_of(address)] = {size, state().allocations};
    state().bytes += size;
    return address;
}

// The live block at `address`, checked against the size the caller believes in; the end of the table when unknown.
Blocks::iterator checked(const char* function, char* address, std::size_t size) {
    const auto found = state().blocks.find(key_of(address));
    if (found == state().blocks.end()) {
        ADD_FAILURE() << function << ": no live block at this address (given with " << size << " bytes)";
        return found;
    }
    EXPECT_EQ(found->second.size, size) << function << ": wrong size for allocation " << found->second.serial;
    EXPECT_EQ(damage_of(address, found->second), "") << function;
    return found;
}

void drop(Blocks::iterator found) {
    char* address = const_cast<char*>(address_of(found->first));
    const std::size_t size = found->second.size;
    std::memset(address, freed_byte, size);
    state().bytes -= size;
    state().blocks.erase(found);
    std::free(address - head_guard);
}

} // namespace

// --- the host's allocator -----------------------------------------------------------------------------
extern "C" {

char* mallocC(unsigned int size);
int freeC(char* address, unsigned int size);
char* reallocC(char* old_address, unsigned int old_size, unsigned int new_size);

char* mallocC(unsigned int size) {
    EXPECT_GT(size, 0U) << "mallocC: nothing asked for";
    return must_fail() ? nullptr : make(size);
}

int freeC(char* address, unsigned int size) {
    if (!address) return 0;
    const auto found = checked("freeC", address, size);
    if (found != state().blocks.end()) drop(found);
    return 0;
}

char* reallocC(char* old_address, unsigned int old_size, unsigned int new_size) {
    EXPECT_GT(new_size, 0U) << "reallocC: nothing asked for";
    if (must_fail()) return nullptr;
    if (!old_address) return make(new_size);
    const auto found = checked("reallocC", old_address, old_size);
    if (found == state().blocks.end()) return nullptr;
    const std::size_t kept = std::min<std::size_t>(found->second.size, new_size);
    char* moved = make(new_size);
    if (!moved) return nullptr;
    std::memcpy(moved, old_address, kept);
    drop(state().blocks.find(key_of(old_address)));
    return moved;
}

} // extern "C"

namespace grxtest {

Heap& heap() {
    static Heap only;
    return only;
}

std::size_t Heap::blocks() const {
    return state().blocks.size();
}
std::size_t Heap::bytes() const {
    return state().bytes;
}
std::size_t Heap::allocations() const {
    return state().allocations;
}
bool Heap::failed() const {
    return state().failed;
}
void Heap::fill(int byte) {
    state().fill = byte;
}

void Heap::fail_at(std::size_t n) {
    state().fail_first = state().fail_last = state().allocations + n;
    state().failed = false;
}

void Heap::fail_from(std::size_t n) {
    fail_at(n);
    state().fail_last = std::numeric_limits<std::size_t>::max();
}

void Heap::fail_never() {
    state().fail_first = state().fail_last = 0;
}

std::string Heap::living_since(std::size_t allocations_before) const {
    std::vector<Block> living;
    for (const auto& [key, block] : state().blocks)
        if (block.serial > allocations_before) living.push_back(block);
    std::sort(living.begin(), living.end(), [](auto& a, auto& b) { return a.serial < b.serial; });
    std::ostringstream text;
    for (const auto& block : living) text << block.size << " bytes, allocation " << block.serial << '\n';
    return text.str();
}

std::string Heap::damage() const {
    std::string result;
    for (const auto& [key, block] : state().blocks) result += damage_of(address_of(key), block);
    return result;
}

NoLeak::NoLeak() : start_(heap().allocations()) {}
NoLeak::~NoLeak() {
    EXPECT_EQ(heap().living_since(start_), "") << "left over";
}

int fail_each_allocation(const std::function<void()>& action, int limit) {
    for (int n = 1; n <= limit; ++n) {
        heap().fail_at(static_cast<std::size_t>(n));
        action();
        const bool failed = heap().failed();
        heap().fail_never();
        if (!failed) return n - 1;
    }
    ADD_FAILURE() << "still allocating after " << limit << " allocations";
    return limit;
}

} // namespace grxtest
