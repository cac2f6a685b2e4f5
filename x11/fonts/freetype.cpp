// The one instance of FreeType, for texts in drawings. It gets its memory from the application's allocator, which wants
// the size of a block back: each is noted in front of it. With some fonts FreeType does not survive being refused memory.
// So it gets what the application cannot give from the C library, and what it then says does not count.
#include "fonts/freetype.h"

#include FT_MODULE_H

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include "xt_loc_f.h"

namespace grx {

namespace {

// What stands in front of each block.
struct alignas(std::max_align_t) Head {
    UNSIGNED_INT size; // with the head
    bool spare;        // from the C library
};

FT_Library library = nullptr;
bool refused = false;

Head* head_of(void* memory) {
    return static_cast<Head*>(memory) - 1;
}

void* allocate(FT_Memory, long size) {
    if (size < 0 || static_cast<std::size_t>(size) >= std::numeric_limits<UNSIGNED_INT>::max() - sizeof(Head))
        return nullptr;
    const auto whole = static_cast<UNSIGNED_INT>(static_cast<std::size_t>(size) + sizeof(Head));
    void* block = grx_malloc(whole);
    const bool spare = block == nullptr;
    if (spare) {
        refused = true;
        block = std::malloc(whole);
        if (block == nullptr) return nullptr;
    }
    return new (block) Head{whole, spare} + 1;
}

void release(FT_Memory, void* memory) {
    Head* const head = head_of(memory);
    if (head->spare)
        std::free(head);
    else
        grx_free(reinterpret_cast<char*>(head), head->size);
}

void* resize(FT_Memory owner, long before, long wanted, void* memory) {
    void* const moved = allocate(owner, wanted);
    if (moved == nullptr) return nullptr;
    std::memcpy(moved, memory, static_cast<std::size_t>(std::min(before, wanted)));
    release(owner, memory);
    return moved;
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
