// Work in progress: what the application tells of it from inside its computation, and when its window comes and is
// looked after.
#include <array>
#include <cstddef>
#include <cstdint>
#include <ctime>

#include "pure/latin1.h"
#include "pure/progress.h"
#include "pure/sized_record.h"
#include "pure/text.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "controls/tips.h"
#include "dialogs/box_place.h"
#include "dialogs/progress_events.h"
#include "dialogs/progress_window.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_messages.h"
#include "system/trace.h"
#include "xt_ini_t.h"

namespace {

using Milliseconds = int64_t;
using Line = std::array<char, 256>;

constexpr Milliseconds kBetweenLooks = 50;

// What the window shows of the outermost work, copied: the application's texts need not last.
struct Work {
    INT nofen = GRX_AUCUN;
    Line title{}, cancel{};
    Milliseconds due = 0; // when it is looked after next
    bool cancelled = false;
    bool texts_changed = false;
    grx::ProgressStack<GRX_AVANCEMENTS_MAX> stack;
    std::array<Line, GRX_AVANCEMENTS_MAX> texts{};
    std::array<bool, GRX_AVANCEMENTS_MAX> can_cancel{}; // each with all around it
    grx::ProgressWindow window;
    grx::ProgressEvents events;
};

grx::NeverDestroyed<Work> lasting_work;
Work& work = lasting_work.value;

// A clock that is read without asking the kernel.
Milliseconds now() {
    timespec moment{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &moment);
    return static_cast<Milliseconds>(moment.tv_sec) * 1000 + moment.tv_nsec / 1000000;
}

void keep(Line& line, const char* text) {
    const std::string_view whole = grx::view(text);
    grx::copy_text(line.data(), line.size(), whole.substr(0, grx::whole_characters(whole, line.size() - 1)));
}

std::size_t innermost() {
    return work.stack.depth() - 1;
}

void cancel() {
    if (!work.stack.empty() && work.can_cancel[innermost()]) work.cancelled = true;
}

void show() {
    const grx::ProgressLook look{work.nofen, work.title.data(), work.cancel.data(), work.can_cancel[0], cancel};
    if (!work.window.show(look)) return;
    grx::end_tip(); // its timer is not looked at
    work.texts_changed = true;
    work.events.begin(work.window.shell());
}

void show_texts() {
    if (!work.texts_changed) return;
    work.texts_changed = false;
    work.window.set_texts(work.texts[0].data(), innermost() > 0 ? work.texts[innermost()].data() : "");
}

// Shows how far the work is, and meets what has happened in the windows meanwhile.
void look_after() {
    if (x11_disp == nullptr) return;
    if (!work.window.on_show()) show();
    if (!work.window.on_show()) return;
    if (work.events.serve(work.window.shell())) cancel();
    show_texts();
    work.window.set_share(work.stack.known() ? work.stack.share() : -1);
    work.window.allow_cancel(!work.cancelled && work.can_cancel[innermost()]);
    XFlush(x11_disp);
}

void forget_work() {
    work.window.hide();
    work = Work{};
}

void begin(const GRX_AVANCEMENT& told) {
    const bool outermost = work.stack.empty();
    if (outermost) {
        work.nofen = told.nofen_mere;
        keep(work.title, told.titre);
        keep(work.cancel, told.etiquette_abandon);
        work.due = now() + (told.delai > 0 ? told.delai : 0);
    }
    const bool around = outermost || work.can_cancel[innermost()];
    work.stack.begin(told.maximum, told.part);
    work.can_cancel[innermost()] = around && told.abandon != 0;
    keep(work.texts[innermost()], told.texte);
    work.texts_changed = true;
}

} // namespace

extern "C" {

INT grx_init_avancement(GRX_AVANCEMENT* avancement) {
    constexpr INT half_a_second = 500;
    if (avancement == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "avancement");
    *avancement = GRX_AVANCEMENT{};
    avancement->taille = static_cast<INT>(sizeof *avancement);
    avancement->nofen_mere = GRX_AUCUN;
    avancement->abandon = 1;
    avancement->delai = half_a_second;
    return 1;
}

INT grx_avancement_commence(const GRX_AVANCEMENT* avancement) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "avancement");
    GRX_AVANCEMENT told{};
    if (!grx::read_sized(avancement, told)) return grx::refused(GRX_ECHEC_PARAMETRE, "avancement");
    if (work.stack.empty() && !grx::can_be_parent(told.nofen_mere))
        return grx::refused(GRX_ECHEC_NUMERO, "nofen_mere", told.nofen_mere);
    if (work.stack.full()) return grx::refused(GRX_ECHEC_PLEIN, "avancement");
    grx::at_shut_down(forget_work);
    begin(told);
    return 1;
}

INT grx_avancement_avance(DOUBLE valeur, const char* texte) {
    if (work.stack.empty()) return GRX_ECHEC_ABSENT;
    work.stack.set_done(valeur);
    if (texte != nullptr) {
        keep(work.texts[innermost()], texte);
        work.texts_changed = true;
    }
    const Milliseconds moment = now();
    if (moment >= work.due) {
        look_after();
        work.due = now() + kBetweenLooks;
    }
    return work.cancelled ? 0 : 1;
}

INT grx_avancement_abandonne(void) {
    return work.cancelled ? 1 : 0;
}

INT grx_avancement_finit(void) {
    if (work.stack.empty()) return GRX_ECHEC_ABSENT;
    work.stack.end();
    work.texts_changed = true;
    if (work.stack.empty()) forget_work();
    return 1;
}
}
