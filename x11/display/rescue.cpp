// Lets the application name the function that is called when the connection is lost.
#include "display/connection.h"
#include "display/lost_connection.h"
#include "grx_plus_diagnostic.h"
#include "grx_plus_erreurs.h"
#include "system/trace.h"

extern "C" {

INT grx_affecte_fonction_secours(GRX_FONCTION_SECOURS fonction, void* donnee) {
    if (!grx::set_rescue(fonction, donnee)) return grx::refused(GRX_ECHEC_OCCUPE, "fonction");
    if (fonction != nullptr) grx::install_end_handler(); // start-up may be cut off too
    return 1;
}
}
