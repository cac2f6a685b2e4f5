/* grx_plus_application.h - additions: who the application is: arguments, name, icon, manners under window managers. */
#ifndef GRX_PLUS_APPLICATION_H
#define GRX_PLUS_APPLICATION_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

GRX_FIN_C

#endif
