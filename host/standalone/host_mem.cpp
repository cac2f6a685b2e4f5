// Memory of the default host, over the standard allocator. The size given to freeC is not looked at, unless the
// environment variable GRX_HOST_MEMCHECK is set: then a wrong size, a block freed twice or unknown, and what is not freed
// at the end of the process are told on the standard error, and with the value 2 the process then ends with status 86.
#include "host_prive.h"
#include "mem_check.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

using namespace grx_host;

namespace {

constexpr std::size_t at_least_one(UNSIGNED_INT size) {
    return std::max<std::size_t>(size, 1);
}

} // namespace

// The bytes are zero, so that what a caller never writes is at least always the same.
HOST_DEFAULT char* mallocC(UNSIGNED_INT taille) {
    auto* block = static_cast<char*>(std::calloc(at_least_one(taille), 1));
    if (block && checks_memory()) block_made(block, taille);
    return block;
}

HOST_DEFAULT INT freeC(char* adr, UNSIGNED_INT taille) {
    if (!adr) return done;
    if (checks_memory() && !block_given_back("freeC", adr, taille)) return done;
    std::free(adr);
    return done;
}

HOST_DEFAULT char* reallocC(char* oldadr, UNSIGNED_INT oldtaille, UNSIGNED_INT newtaille) {
    if (!oldadr) return mallocC(newtaille);
    if (!checks_memory()) return static_cast<char*>(std::realloc(oldadr, at_least_one(newtaille)));
    if (!block_given_back("reallocC", oldadr, oldtaille)) return nullptr;
    auto* block = static_cast<char*>(std::realloc(oldadr, at_least_one(newtaille)));
    if (block) {
        block_made(block, newtaille);
    } else {
        block_made(oldadr, oldtaille);
    }
    return block;
}

HOST_DEFAULT INT memcpyC(void* adr1, void* adr2, INT taille) {
    if (adr1 && adr2 && taille > 0) std::memmove(adr1, adr2, static_cast<std::size_t>(taille));
    return done;
}
