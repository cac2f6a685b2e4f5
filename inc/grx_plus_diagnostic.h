/* grx_plus_diagnostic.h - additions: bad news and bookkeeping: rescue, errors of the display, traces, what is alive. */
#ifndef GRX_PLUS_DIAGNOSTIC_H
#define GRX_PLUS_DIAGNOSTIC_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

GRX_FIN_C

#endif
