// Remembers the last error of the display, for the application and the trace.
#include "display/last_error.h"

#include <cstdio>
#include <span>

#include "grx_plus_diagnostic.h"
#include "grx_plus_erreurs.h"
#include "pure/sized_record.h"
#include "system/public_call.h"
#include "system/shut_down.h"
#include "system/trace.h"

#include <X11/Xlibint.h> // last: it has macros min and max

namespace grx {

namespace {

constexpr GRX_ERREUR_AFFICHAGE kNone{sizeof(GRX_ERREUR_AFFICHAGE), 0, 0, 0, 0, 0, 0, "", ""};
constexpr int kFirstOfExtensions = 128;

GRX_ERREUR_AFFICHAGE last = kNone;

const char* extension_name(const Display* display, int major) {
    for (const _XExtension* known = display->ext_procs; known != nullptr; known = known->next)
        if (known->codes.major_opcode == major && known->name != nullptr) return known->name;
    return "extension";
}

// The file of Xlib's error texts names the requests of the protocol and of some extensions.
void name_request(Display* display, const XErrorEvent& error, std::span<char> name) {
    CH40 key = "", plain = "";
    const int room = static_cast<int>(name.size());
    if (error.request_code < kFirstOfExtensions) {
        std::snprintf(key, sizeof key, "%d", error.request_code);
        XGetErrorDatabaseText(display, "XRequest", key, key, name.data(), room);
        return;
    }
    const char* const extension = extension_name(display, error.request_code);
    std::snprintf(plain, sizeof plain, "%.30s %d", extension, error.minor_code);
    std::snprintf(key, sizeof key, "%.30s.%d", extension, error.minor_code);
    XGetErrorDatabaseText(display, "XRequest", key, plain, name.data(), room);
}

void forget_errors() {
    last = kNone;
}

void trace_error(const Display* display) {
    const PublicCall call = public_call();
    const char* const name = call.name[0] != '\0' ? call.name.data() : "no call of the library";
    trace_line("error of the display: %s, request %d.%d %s, resource 0x%x, serial %u, %s %s", last.texte, last.requete,
        last.sous_requete, last.nom_requete, last.ressource, last.numero,
        display->synchandler != nullptr ? "caused by" : "noticed in", name);
}

} // namespace

void note_x_error(Display* display, const XErrorEvent& error) {
    at_shut_down(forget_errors);
    const INT count = last.nombre + 1;
    last = kNone;
    last.nombre = count;
    last.code = error.error_code;
    last.requete = error.request_code;
    last.sous_requete = error.minor_code;
    last.ressource = static_cast<UNSIGNED_INT>(error.resourceid);
    last.numero = static_cast<UNSIGNED_INT>(error.serial);
    XGetErrorText(display, error.error_code, last.texte, sizeof last.texte);
    name_request(display, error, last.nom_requete);
    if (tracing()) trace_error(display);
}

const char* last_x_error_text() {
    return last.texte;
}

INT x_error_count() {
    return last.nombre;
}

} // namespace grx

extern "C" {

INT grx_init_erreur_affichage(GRX_ERREUR_AFFICHAGE* erreur) {
    if (erreur == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "erreur");
    *erreur = grx::kNone;
    return 1;
}

INT grx_recup_erreur_affichage(GRX_ERREUR_AFFICHAGE* erreur) {
    if (!grx::write_sized(erreur, grx::last)) return grx::refused(GRX_ECHEC_PARAMETRE, "erreur");
    return grx::last.code != 0 ? 1 : GRX_ECHEC_ABSENT;
}

INT grx_oublie_erreur_affichage(void) {
    const INT count = grx::last.nombre;
    grx::last = grx::kNone;
    grx::last.nombre = count;
    return 1;
}
}
