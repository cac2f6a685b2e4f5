/* xt_loc_f.h - memory: every heap block of the library passes through here to the host's
 * allocator. A block is freed and resized with exactly the size that it has. */
#ifndef XT_LOC_F_H
#define XT_LOC_F_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

/* Allocates taille bytes with the host's mallocC. Returns the block, null when memory is short.
 * The contents are whatever the host gives. */
GRX_API char* grx_malloc(UNSIGNED_INT taille);

/* Frees a block of grx_malloc or grx_realloc; taille is its size. Returns 0. */
GRX_API INT grx_free(char* adr, UNSIGNED_INT taille);

/* Changes the size of a block with the host's reallocC. Returns the block at its new place, null
 * when memory is short (the old block is then still the caller's). */
GRX_API char* grx_realloc(char* oldadr, UNSIGNED_INT oldtaille, UNSIGNED_INT newtaille);

/* Copies taille bytes from adr2 to adr1 with the host's memcpyC. Returns what that returns. */
GRX_API INT grx_memcpy(void* adr1, void* adr2, INT taille);

GRX_FIN_C

#endif
