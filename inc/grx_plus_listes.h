/* grx_plus_listes.h - additions: lists filled at once, changed and read entry by entry. */
#ifndef GRX_PLUS_LISTES_H
#define GRX_PLUS_LISTES_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

GRX_FIN_C

#endif
