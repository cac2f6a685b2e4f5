/* grx_plus_polices.h - additions: outline fonts for the interface, and the resolution of the screen. */
#ifndef GRX_PLUS_POLICES_H
#define GRX_PLUS_POLICES_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

GRX_FIN_C

#endif
