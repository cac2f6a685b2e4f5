// The one instance of FreeType, for texts in drawings. It gets its memory from the application's allocator, which wants
// the size of a block back: each is noted in front of it.
#include "fonts/freetype.h"

#include FT_MODULE_H

#include <cstddef>
#include <cstring>
#include <limits>
#include <utility>

#include "xt_loc_f.h"

namespace grx {

namespace {

constexpr std::size_t kHead = alignof(std::max_align_t);

FT_Library library = nullptr;
bool refused = false;

UNSIGNED_INT with_head(std::size_t size) {
    return static_cast<UNSIGNED_INT>(size + kHead);
}

void* give(char* block, std::size_t size) {
    if (block == nullptr) {
        refused = true;
        return nullptr;
    }
    std::memcpy(block, &size, sizeof size);
    return block + kHead;
}

bool fits(long size) {
    return size >= 0 && static_cast<std::size_t>(size) < std::numeric_limits<UNSIGNED_INT>::max() - kHead;
}

void* allocate(FT_Memory, long size) {
    return give(
        fits(size) ? grx_malloc(with_head(static_cast<std::size_t>(size))) : nullptr, static_cast<std::size_t>(size));
}

char* block_of(void* memory, std::size_t& size) {
    char* const block = static_cast<char*>(memory) - kHead;
    std::memcpy(&size, block, sizeof size);
    return block;
}

void release(FT_Memory, void* memory) {
    std::size_t size = 0;
    char* const block = block_of(memory, size);
    grx_free(block, with_head(size));
}

void* resize(FT_Memory, long, long wanted, void* memory) {
    std::size_t size = 0;
    char* const block = block_of(memory, size);
    const auto now = static_cast<std::size_t>(wanted);
    return give(fits(wanted) ? grx_realloc(block, with_head(size), with_head(now)) : nullptr, now);
}

FT_MemoryRec_ memory{nullptr, allocate, release, resize};

} // namespace

FT_Library freetype() {
    if (library != nullptr) return library;
    refused = false;
    if (FT_New_Library(&memory, &library) != 0) return library = nullptr;
    FT_Add_Default_Modules(library); // tells of no failure
    if (std::exchange(refused, false)) end_freetype();
    return library;
}

void end_freetype() {
    if (library != nullptr) FT_Done_Library(library);
    library = nullptr;
    refused = false;
}

bool freetype_was_refused() {
    return std::exchange(refused, false);
}

} // namespace grx
