/* xt_tbl_t.h - choice control of the application's tables (record TBL_TABLEUR_AFF: host_t.h). */
#ifndef XT_TBL_T_H
#define XT_TBL_T_H

#include "host_t.h"

#define GRX_NB_TABLES HOST_NB_TABLES /* table indices 0..9 */

#endif
