/* grx_plus_boucle.h - additions: waiting with a time limit, descriptors, timers and idle work. */
#ifndef GRX_PLUS_BOUCLE_H
#define GRX_PLUS_BOUCLE_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

GRX_FIN_C

#endif
