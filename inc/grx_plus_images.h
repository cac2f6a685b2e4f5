/* grx_plus_images.h - additions: pictures as files (PNG, BMP), icons with transparency, pictures of windows and of the screen. */
#ifndef GRX_PLUS_IMAGES_H
#define GRX_PLUS_IMAGES_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

GRX_FIN_C

#endif
