// The time of day, durations and the alarm of the application.
#include <algorithm>
#include <atomic>
#include <cmath>
#include <csignal>
#include <sys/time.h>
#include <unistd.h>

#include "pure/calendar.h"
#include "pure/out.h"
#include "system/forget_system.h"
#include "xt_uti_f.h"

namespace {

timeval now() {
    timeval moment{};
    gettimeofday(&moment, nullptr);
    return moment;
}

// -- alarm

using AlarmFunction = void (*)();

std::atomic<AlarmFunction> alarm_function{nullptr};
static_assert(std::atomic<AlarmFunction>::is_always_lock_free, "read inside a signal handler");

void call_alarm_function(int) {
    const auto function = alarm_function.load();
    if (function != nullptr) function();
}

} // namespace

namespace grx {

void forget_alarm() {
    if (alarm_function.exchange(nullptr) != nullptr) alarm(0);
}

} // namespace grx

extern "C" {

// -- time

void gettimedate(INT* annee, INT* mois, INT* jour, INT* heure, INT* minute, INT* seconde, INT* centiemes) {
    const auto moment = now();
    const auto date = grx::local_calendar(moment.tv_sec);
    grx::give(annee, date.year);
    grx::give(mois, date.month);
    grx::give(jour, date.day);
    grx::give(heure, date.hour);
    grx::give(minute, date.minute);
    grx::give(seconde, date.second);
    grx::give(centiemes, grx::hundredths_of(moment));
}

void gettime(INT* heure, INT* minute, INT* seconde, INT* centiemes) {
    gettimedate(nullptr, nullptr, nullptr, heure, minute, seconde, centiemes);
}

// Polls without sleeping. When the clock was set back before the start the wait ends, for it would take too long.
void temporisation(DOUBLE tempo) {
    if (!std::isfinite(tempo)) return;
    const auto start = grx::in_hundredths(now());
    for (auto elapsed = 0.0; elapsed >= 0 && elapsed < tempo;) elapsed = grx::in_hundredths(now()) - start;
}

int chrono_top(DOUBLE* top) {
    if (top != nullptr) *top = grx::in_seconds(now());
    return 0;
}

int chrono_delai(DOUBLE top, DOUBLE tempo) {
    return grx::in_seconds(now()) - top >= tempo ? 1 : 0;
}

// System calls are restarted after the signal, so that waiting for events does not fail.
void grx_demarre_alarme(INT intervalle, void (*fct)()) {
    alarm_function = fct;
    struct sigaction action {};
    action.sa_handler = call_alarm_function;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(SIGALRM, &action, nullptr);
    alarm(static_cast<unsigned>(std::max(intervalle, 0)));
}

void grx_arrete_alarme(void) {
    alarm(0);
}
}
