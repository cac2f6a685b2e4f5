// Data files of an older generation of the application are not read.
#include "xt_f.h"

extern "C" {

INT ReadOldFtvDomoplanix(GRX_ARGS_LIBRES) {
    return 0;
}

INT ReadOldNivDomoplanix(GRX_ARGS_LIBRES) {
    return 0;
}

INT ReadOldB3DDomoplanix(GRX_ARGS_LIBRES) {
    return 0;
}
}
