/* grx_plus_presse_papiers.h - additions: the clipboard, and files dropped on windows. */
#ifndef GRX_PLUS_PRESSE_PAPIERS_H
#define GRX_PLUS_PRESSE_PAPIERS_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

GRX_FIN_C

#endif
