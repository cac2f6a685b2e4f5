/* grx_plus_calques.h - additions: layers above a drawing, and scrolling it. */
#ifndef GRX_PLUS_CALQUES_H
#define GRX_PLUS_CALQUES_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

GRX_FIN_C

#endif
