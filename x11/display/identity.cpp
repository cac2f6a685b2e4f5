// Keeps who the application is, as the application says before the start.
#include "display/identity.h"

#include <cstring>

#include "display/arguments.h"
#include "grx_plus_application.h"
#include "grx_plus_erreurs.h"
#include "pure/sized_record.h"
#include "pure/text.h"
#include "pure/text_out.h"
#include "system/shut_down.h"
#include "system/trace.h"
#include "xt_ini_t.h"

namespace {

constexpr std::size_t kRoom = 80;

struct Identity {
    bool declared;
    bool keeps_to_work_area;
    char name[kRoom];        // empty: that of the program
    char application[kRoom]; // class; empty: made of the name
};

Identity identity{};
char class_in_force[kRoom] = "";

void forget_identity() {
    identity = {};
    std::memset(class_in_force, 0, sizeof class_in_force);
}

bool fits(const char* text) {
    return grx::view(text).size() < kRoom;
}

void make_class_of_name() {
    grx::copy_text(class_in_force, grx::application_name());
    constexpr char to_capital = 'a' - 'A';
    if (class_in_force[0] >= 'a' && class_in_force[0] <= 'z') class_in_force[0] -= to_capital;
}

} // namespace

namespace grx {

const char* application_name() {
    if (const char* const given = given_argument(GRX_ARG_NAME)) return given;
    if (identity.name[0] != '\0') return identity.name;
    return identity.declared && program_name()[0] != '\0' ? program_name() : "HB";
}

const char* application_class() {
    if (!identity.declared) return nullptr;
    if (identity.application[0] != '\0') return identity.application;
    make_class_of_name();
    return class_in_force;
}

bool identity_declared() {
    return identity.declared;
}

bool keeps_to_work_area() {
    return identity.declared && identity.keeps_to_work_area;
}

} // namespace grx

extern "C" {

INT grx_init_identite(GRX_IDENTITE* identite) {
    if (identite == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "identite");
    *identite = GRX_IDENTITE{};
    identite->taille = sizeof(GRX_IDENTITE);
    identite->zone = 1;
    return 1;
}

INT grx_affecte_identite(const GRX_IDENTITE* identite) {
    GRX_IDENTITE given{};
    if (!grx::read_sized(identite, given)) return grx::refused(GRX_ECHEC_PARAMETRE, "identite");
    if (!fits(given.nom)) return grx::refused(GRX_ECHEC_PARAMETRE, "nom");
    if (!fits(given.classe)) return grx::refused(GRX_ECHEC_PARAMETRE, "classe");
    if (x11_disp != nullptr) return grx::refused(GRX_ECHEC_OCCUPE, "identite");
    identity.declared = true;
    identity.keeps_to_work_area = given.zone != 0;
    grx::copy_text(identity.name, grx::view(given.nom));
    grx::copy_text(identity.application, grx::view(given.classe));
    grx::at_shut_down(forget_identity);
    return 1;
}

INT grx_recup_nom_application(char* texte, INT taille) {
    return grx::give_text(grx::application_name(), texte, taille);
}

INT grx_recup_classe_application(char* texte, INT taille) {
    return grx::give_text(grx::view(grx::application_class()), texte, taille);
}
}
