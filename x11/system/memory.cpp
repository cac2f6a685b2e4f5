// The one way from the library to the host's allocator: every heap block is asked for and freed here, with its exact
// size.
#include "host_f.h"
#include "xt_loc_f.h"

extern "C" {

char* grx_malloc(UNSIGNED_INT taille) {
    return mallocC(taille);
}

INT grx_free(char* adr, UNSIGNED_INT taille) {
    freeC(adr, taille);
    return 0;
}

char* grx_realloc(char* oldadr, UNSIGNED_INT oldtaille, UNSIGNED_INT newtaille) {
    return reallocC(oldadr, oldtaille, newtaille);
}

INT grx_memcpy(void* adr1, void* adr2, INT taille) {
    return memcpyC(adr1, adr2, taille);
}
}
