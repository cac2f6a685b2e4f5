// The application's timers. One that is due posts a record and then waits for its delivery, which counts the periods
// that have passed: records never come in bursts.
#include <algorithm>
#include <limits>

#include "events/added_records.h"
#include "grx_plus_boucle.h"
#include "grx_plus_erreurs.h"
#include "session/numbered.h"
#include "session/source_records.h"
#include "session/sources.h"
#include "session/wake_up.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "system/trace.h"
#include "xt_ini_t.h"

namespace {

enum class State : unsigned char { Running, RecordWaits, Delivered };

struct Timer {
    bool used;
    bool repeats;
    State state;
    int64_t period; // nanoseconds
    int64_t told;   // the moment up to which periods have been told

    int64_t due() const { return told + period; }
};

grx::NeverDestroyed<grx::Numbered<Timer>> lasting_timers;
grx::Numbered<Timer>& timers = lasting_timers.value;
bool some_delivered = false;

constexpr int64_t kRetry = 50 * grx::kMillisecond; // when memory was short

void forget_timers() {
    timers.reset();
    some_delivered = false;
}

void schedule() {
    int64_t first = grx::kNever;
    for (INT number = 1; number <= timers.last(); ++number) {
        const Timer* const timer = timers.at(number);
        if (timer != nullptr && timer->state == State::Running) first = std::min(first, timer->due());
    }
    grx::set_alarm(grx::Alarm::Timers, first);
}

void post_due(INT number, Timer& timer) {
    if (grx::post_added(grx::source_record(GRX_EVT_MINUTERIE, number))) {
        timer.state = State::RecordWaits;
        return;
    }
    timer.state = State::Delivered; // tried again when the loop resumes it
    some_delivered = true;
    grx::set_alarm(grx::Alarm::Retry, grx::moment_now() + kRetry);
}

void serve_timers() {
    if (timers.count() == 0) return;
    const int64_t now = grx::moment_now();
    for (INT number = 1; number <= timers.last(); ++number) {
        Timer* const timer = timers.at(number);
        if (timer != nullptr && timer->state == State::Running && timer->due() <= now) post_due(number, *timer);
    }
    schedule();
}

INT periods_until(const Timer& timer, int64_t now) {
    if (!timer.repeats) return 1;
    const int64_t periods = (now - timer.told) / timer.period;
    return static_cast<INT>(std::clamp<int64_t>(periods, 1, std::numeric_limits<INT>::max()));
}

} // namespace

namespace grx {

bool has_timers() {
    return timers.count() > 0;
}

void resume_timers() {
    if (!some_delivered) return;
    some_delivered = false;
    for (INT number = 1; number <= timers.last(); ++number) {
        Timer* const timer = timers.at(number);
        if (timer != nullptr && timer->state == State::Delivered) timer->state = State::Running;
    }
    schedule();
}

void deliver_timer(GRX_EVENEMENT& record) {
    const INT number = record.exec_fonction.no_fo;
    Timer* const timer = timers.at(number);
    if (timer == nullptr) return;
    const INT periods = periods_until(*timer, moment_now());
    record.exec_fonction.valeur = periods;
    timer->told += periods * timer->period;
    timer->state = State::Delivered;
    some_delivered = true;
    if (!timer->repeats) timers.release(number);
}

} // namespace grx

extern "C" {

INT grx_cree_minuterie(INT duree, INT repetee) {
    if (duree < 0 || (repetee != 0 && duree == 0)) return grx::refused(GRX_ECHEC_PARAMETRE, "duree", duree);
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "duree", duree);
    if (!grx::start_wake_up()) return GRX_ECHEC_MEMOIRE;
    grx::at_shut_down(forget_timers);
    grx::on_due(serve_timers);
    const INT number = timers.add({true, repetee != 0, State::Running, duree * grx::kMillisecond, grx::moment_now()});
    if (number == 0) return GRX_ECHEC_MEMOIRE;
    schedule();
    return number;
}

INT grx_detruit_minuterie(INT minuterie) {
    if (timers.at(minuterie) == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "minuterie", minuterie);
    timers.release(minuterie);
    grx::drop_source_record(GRX_EVT_MINUTERIE, minuterie);
    schedule();
    return 1;
}
}
