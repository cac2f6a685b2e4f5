/* xt_dev_t.h - output devices: the lists that a plotter dialog offers, all empty here. */
#ifndef XT_DEV_T_H
#define XT_DEV_T_H

#include "grx_api.h"
#include "host_t.h"

/* OutputFileOnPort: the only kind of output that runs the spooling command. */
#define GRX_SORTIE_TRACEUR 1

GRX_DEBUT_C

extern GRX_API CH20* chnListPortSerie;      /* serial ports */
extern GRX_API char** chnListBaud;          /* baud rates */
extern GRX_API char** chnListDataBits;      /* data bits */
extern GRX_API char** chnListStopBits;      /* stop bits */
extern GRX_API char** chnListPortParallele; /* parallel ports */
extern GRX_API char** chnListQueueReseau;   /* network queues */
extern GRX_API int nbQueue;                 /* number of network queues, 0 */

GRX_FIN_C

#endif
