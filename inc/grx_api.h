/* grx_api.h - what every public header of grx needs first. */
#ifndef GRX_API_H
#define GRX_API_H

/* Marks what the library exports; everything else of it is hidden. */
#if defined(__GNUC__)
#define GRX_API __attribute__((visibility("default")))
#else
#define GRX_API
#endif

/* C linkage for functions and globals, whatever the language. */
#ifdef __cplusplus
#define GRX_DEBUT_C extern "C" {
#define GRX_FIN_C }
#else
#define GRX_DEBUT_C
#define GRX_FIN_C
#endif

/* Parameter list of the few functions that accept any arguments and read none of them. */
#ifdef __cplusplus
#define GRX_ARGS_LIBRES ...
#else
#define GRX_ARGS_LIBRES
#endif

#endif
