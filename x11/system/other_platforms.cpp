// Data files of an older generation of the application are not read.
#include "xt_f.h"

extern "C" {

INT ReadOldDaoDomoplanix(GRX_ARGS_LIBRES) {
    return 0;
}

INT ReadOldHuiDomoplanix(GRX_ARGS_LIBRES) {
    return 0;
}

INT ReadOldAccDomoplanix(GRX_ARGS_LIBRES) {
    return 0;
}
}
