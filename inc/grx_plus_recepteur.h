/* grx_plus_recepteur.h - additions: what is drawn given to functions of the application instead of the screen. */
#ifndef GRX_PLUS_RECEPTEUR_H
#define GRX_PLUS_RECEPTEUR_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

GRX_FIN_C

#endif
