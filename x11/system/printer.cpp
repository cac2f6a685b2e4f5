// The printer, which there is none of: it answers as one with a page of one unit by one, and drawing on it does
// nothing.
#include "pure/out.h"
#include "host_g.h"
#include "grx_api.h"
#include "xt_dev_t.h"
#include "xt_f.h"
#include "xt_gfx_t.h"
#include "xt_ini_f.h"

namespace {

constexpr INT kDone = 1;

} // namespace

extern "C" {

CH20* chnListPortSerie = nullptr;
char** chnListBaud = nullptr;
char** chnListDataBits = nullptr;
char** chnListStopBits = nullptr;
char** chnListPortParallele = nullptr;
char** chnListQueueReseau = nullptr;
int nbQueue = 0;

INT getimpdim(INT* a, INT* b, INT* c, INT* d) {
    grx::give(a, 0);
    grx::give(b, 0);
    grx::give(c, 1);
    grx::give(d, 1);
    return kDone;
}

DOUBLE getimpstepx(void) {
    return 1.0;
}

DOUBLE getimpstepy(void) {
    return 1.0;
}

INT getimpnbpen(void) {
    return grx_recup_max_couleur_reserve() + grx_recup_max_couleur_trace();
}

INT getimppalette(void) {
    return 1;
}

INT getimpwidth(void) {
    return 1;
}

INT InitDeviceOutput(void) {
    device_output = 0;
    return kDone;
}

INT ModifyDeviceOutput(GRX_ARGS_LIBRES) {
    return kDone;
}

INT StartDocumentOutput(GRX_ARGS_LIBRES) {
    return kDone;
}

int EndDocumentOutput(GRX_ARGS_LIBRES) {
    return kDone;
}

INT ReleaseDeviceOutput(GRX_ARGS_LIBRES) {
    return kDone;
}

INT ActualiseQueueReseau(void) {
    return 0;
}

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
