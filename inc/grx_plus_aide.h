/* grx_plus_aide.h - additions: help on the spot: tips and the help key. */
#ifndef GRX_PLUS_AIDE_H
#define GRX_PLUS_AIDE_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

GRX_FIN_C

#endif
