/* host_g.h - the globals that the library expects the application (or grx-host) to define. */
#ifndef HOST_G_H
#define HOST_G_H

#include "host_t.h"

#if defined(__GNUC__)
#define HOST_DONNEE __attribute__((visibility("default")))
#else
#define HOST_DONNEE
#endif

/* Input state: panel lists write the second and third element. */
#define HOST_NB_CARACS_ENTREE 8
#define HOST_CARACS_LISTE 1  /* set to 1 by every list event */
#define HOST_CARACS_DOUBLE 2 /* 1 after a double click in a list, 0 otherwise */

/* Integer state. */
#define HOST_NB_ISTATE 1000
#define IST_MODULE_MENU 233 /* menu file: 0 MNU_COMM.DAT, 1 MNU_MECA.DAT, others MNU_ARCH.DAT */

/* String state: paths of directories. A null entry reads as "" (the current directory). */
#define SST_REP_SYSTEME 0 /* directory of INI_SYST.DAT */
#define SST_REP_MENU 1    /* directory of the menu files */
#define SST_NB 2          /* entries that the library reads */

/* Panel lists known to the host: keys 0..HOST_NB_LISTES-1. */
#define HOST_NB_LISTES 1000

/* device_output before InitDeviceOutput. */
#define HOST_SORTIE_AUCUNE (-1)

#ifdef __cplusplus
extern "C" {
#endif

extern HOST_DONNEE INT caracs_entree[HOST_NB_CARACS_ENTREE];
extern HOST_DONNEE int device_output; /* current output device */
extern HOST_DONNEE INT Itbl;          /* current table, index of Taffiche */
extern HOST_DONNEE TBL_TABLEUR_AFF Taffiche[HOST_NB_TABLES];
extern HOST_DONNEE INT istate[HOST_NB_ISTATE];
extern HOST_DONNEE char* sstate[]; /* at least SST_NB entries */

/* The entries of the panel lists. Each of the four points at HOST_NB_LISTES elements indexed by
 * the list's key, or is null when the application has no list. */
extern HOST_DONNEE INT** lcstate;  /* positions from 0 of the entries selected at first, or null */
extern HOST_DONNEE INT* listate;   /* how many are selected at first */
extern HOST_DONNEE INT* lnstate;   /* number of entries */
extern HOST_DONNEE CH80** lsstate; /* the entries' texts, or null */

#ifdef __cplusplus
}
#endif

#endif
