// Data files of an older generation of the application are recognised and left alone.
#include "xt_f.h"

extern "C" {

INT reconnait_fichier_domoplanix(GRX_ARGS_LIBRES) {
    return 1;
}
}
