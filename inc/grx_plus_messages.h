/* grx_plus_messages.h - additions: messages, questions, prompts, and the progress of long work. */
#ifndef GRX_PLUS_MESSAGES_H
#define GRX_PLUS_MESSAGES_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

GRX_FIN_C

#endif
