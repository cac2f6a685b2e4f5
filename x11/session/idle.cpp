// The application's idle work: which is to go on when nothing else waits.
#include "grx_plus_boucle.h"
#include "grx_plus_erreurs.h"
#include "session/numbered.h"
#include "session/sources.h"
#include "session/wake_up.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "system/trace.h"
#include "xt_ini_t.h"

namespace {

struct Work {
    bool used;
};

grx::NeverDestroyed<grx::Numbered<Work>> lasting_works;
grx::Numbered<Work>& works = lasting_works.value;
INT last_told = 0;

void forget_works() {
    works.reset();
    last_told = 0;
}

} // namespace

namespace grx {

bool has_idle_work() {
    return works.count() > 0;
}

INT next_idle_work() {
    do last_told = last_told < works.last() ? last_told + 1 : 1;
    while (works.at(last_told) == nullptr);
    return last_told;
}

} // namespace grx

extern "C" {

INT grx_cree_tache_oisive(void) {
    if (x11_disp == nullptr) return GRX_ECHEC_AFFICHAGE;
    if (!grx::start_wake_up()) return GRX_ECHEC_MEMOIRE;
    grx::at_shut_down(forget_works);
    const INT number = works.add({true});
    return number != 0 ? number : GRX_ECHEC_MEMOIRE;
}

INT grx_detruit_tache_oisive(INT tache) {
    if (works.at(tache) == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "tache", tache);
    works.release(tache);
    return 1;
}
}
