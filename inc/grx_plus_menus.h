/* grx_plus_menus.h - additions: menus that live: entries made insensitive, ticked and renamed by function number, context menus. */
#ifndef GRX_PLUS_MENUS_H
#define GRX_PLUS_MENUS_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

GRX_FIN_C

#endif
