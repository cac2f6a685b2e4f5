// Reports errors to the user of the application: prints fixed texts on standard output and does nothing else.
#include <cstdio>

#include "pure/error_texts.h"
#include "xt_err_f.h"

extern "C" {

INT grx_erreur(INT code) {
    std::printf("%s\n", grx::kErrorHeading);
    const char* const text = grx::error_text(code);
    if (text != nullptr) {
        std::printf("%s\n", text);
    } else {
        std::printf(grx::kErrorUnknownFormat, code);
    }
    return 0;
}

INT grx_affiche_chaine(char* ch) {
    std::printf("%s", ch != nullptr ? ch : "");
    return 0;
}

INT grx_affiche_entier(INT ival) {
    std::printf("%d", ival);
    return 0;
}

INT grx_affiche_reel(DOUBLE rval) {
    std::printf("%lf", rval);
    return 0;
}
}
