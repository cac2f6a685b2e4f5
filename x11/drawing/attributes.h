// Colour, style and width of what is drawn, for all primitives. They are sent to the drawing context only when they
// change.
#pragma once

#include "pure/clip.h"
#include "display/context.h"
#include "xt_gfx_t.h"

namespace grx {

/// The pixel of a colour index.
unsigned long drawing_pixel(INT colour);

/// Attributes of thin solid lines that replace what is under them. The arguments are colour indices.
GRX_ATTRIBUTS_TRACER plain_attributes(INT background, INT foreground);

/// Makes the next drawing send the background colour again.
void forget_background();

/// Sets the copy function, for whole pictures that are put or copied, without a limit.
void set_copy_function();

/// True when the context has these attributes already.
inline bool applied(const GRX_ATTRIBUTS_TRACER& att) {
    return !context_stale && att.coul_fond == memo_attrib.coul_fond && att.coul_trace == memo_attrib.coul_trace
           && att.mode == memo_attrib.mode && att.type_trait == memo_attrib.type_trait
           && att.epaisseur == memo_attrib.epaisseur;
}

void send_changes(const GRX_ATTRIBUTS_TRACER& att);

inline void apply_attributes(const GRX_ATTRIBUTS_TRACER& att) {
    if (!applied(att)) send_changes(att);
}

/// Applies attributes whose foreground and background are both the background colour, for erasing, without a limit.
void apply_background();

/// How the dashes of such a line repeat; the period is 0 for a solid one.
Dashes dashes_of(const GRX_ATTRIBUTS_TRACER& att);

} // namespace grx
