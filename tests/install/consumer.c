/* A customer in C that brings nothing of its own: prints the three lines of error 8 without any display. */
#include "xt_f.h"

int main(void) {
    return grx_erreur(8);
}
