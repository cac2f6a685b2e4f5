/* grx_plus_boutons.h - additions: the states of toggles, exclusive groups and check boxes. */
#ifndef GRX_PLUS_BOUTONS_H
#define GRX_PLUS_BOUTONS_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

GRX_FIN_C

#endif
