/* grx_plus_session.h - additions: asking before a window closes, and the end of the library's work. */
#ifndef GRX_PLUS_SESSION_H
#define GRX_PLUS_SESSION_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

GRX_FIN_C

#endif
