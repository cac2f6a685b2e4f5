// The printer, which there is none of: it answers as one with a page of one unit by one.
#include "host_g.h"
#include "pure/out.h"
#include "xt_dev_t.h"
#include "xt_f.h"
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
}
