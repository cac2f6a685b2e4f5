// Drawing on the printer, which there is none of.
#include "xt_f.h"

extern "C" {

void imp_trace_point(GRX_POINT) {}

void imp_trace_segment(GRX_SEGMENT) {}

void imp_trace_polyline(GRX_POLY) {}

void imp_trace_rectangle(GRX_RECTANGLE) {}

void imp_trace_arc(GRX_ARC) {}

void imp_remplit_rectangle(GRX_RECTANGLE) {}

void imp_remplit_arc(GRX_ARC) {}

void imp_remplit_polygone(GRX_POLY) {}

void imp_remplit_triangle(GRX_POLY) {}

void imp_trace_texte(GRX_TEXTE) {}

void imp_stretch_image(uchar*, uchar*, INT, INT, INT, INT, INT, INT) {}
}
