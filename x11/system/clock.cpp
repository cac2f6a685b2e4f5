// Time, environment, alarm, numbers as text, and the display's bell and queue.
#include "xt_uti_f.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <csignal>
#include <cstdlib>

#include <X11/Xlib.h>
#include <sys/time.h>
#include <unistd.h>

#include "host_f.h"
#include "pure/calendar.h"
#include "pure/text.h"
#include "xt_ini_t.h"

namespace {

constexpr int bell_volume = 20;
constexpr INT most_decimals = 700; // str_ftoa's buffer holds them after the longest double

timeval now() {
    timeval moment{};
    gettimeofday(&moment, nullptr);
    return moment;
}

void deliver(INT* place, INT value) {
    if (place) *place = value;
}

} // namespace

// --- system and environment ----------------------------------------------------------------------------------------

INT getcurrentdir(char* s) {
    if (!s) return 1;
    std::array<char, GRX_REPERTOIRE_MAX> directory{};
    const bool known = getcwd(directory.data(), directory.size()) != nullptr;
    grx::copy_text(s, directory.size(), known ? grx::view(directory.data()) : std::string_view());
    return known ? 0 : 1;
}

INT osname(void) {
    return GRX_OS_UNIX;
}

// contenu has room for the whole value: the caller measures it.
INT getvarsystem(char* nom_var, char* contenu) {
    const char* const value = nom_var ? std::getenv(nom_var) : nullptr;
    const auto text = grx::view(value);
    grx::copy_text(contenu, text.size() + 1, text);
    return value ? 0 : 1;
}

// --- time ----------------------------------------------------------------------------------------------------------

void gettimedate(INT* annee, INT* mois, INT* jour, INT* heure, INT* minute, INT* seconde, INT* centiemes) {
    const auto moment = now();
    const auto date = grx::local_calendar(moment.tv_sec);
    deliver(annee, date.year);
    deliver(mois, date.month);
    deliver(jour, date.day);
    deliver(heure, date.hour);
    deliver(minute, date.minute);
    deliver(seconde, date.second);
    deliver(centiemes, grx::hundredths_of(moment));
}

void gettime(INT* heure, INT* minute, INT* seconde, INT* centiemes) {
    gettimedate(nullptr, nullptr, nullptr, heure, minute, seconde, centiemes);
}

// Polls without sleeping. A clock that was set back before the start ends the wait: it would hang.
void temporisation(DOUBLE tempo) {
    if (!std::isfinite(tempo)) return;
    const auto start = grx::in_hundredths(now());
    for (auto elapsed = 0.0; elapsed >= 0 && elapsed < tempo;) elapsed = grx::in_hundredths(now()) - start;
}

int chrono_top(DOUBLE* top) {
    if (top) *top = grx::in_seconds(now());
    return 0;
}

int chrono_delai(DOUBLE top, DOUBLE tempo) {
    return grx::in_seconds(now()) - top >= tempo ? 1 : 0;
}

// --- the display ---------------------------------------------------------------------------------------------------

// The server's own pitch and length of the bell serve for all.
void grx_bipbip(INT, INT) {
    if (x11_disp) XBell(x11_disp, bell_volume);
}

void grx_flush_server(void) {
    if (x11_disp) XFlush(x11_disp);
}

void grx_sync_server(void) {
    if (x11_disp) XSync(x11_disp, False);
}

void grx_synchronise(INT etat) {
    if (x11_disp) XSynchronize(x11_disp, etat != 0 ? True : False);
}

// --- numbers -------------------------------------------------------------------------------------------------------

namespace {

constexpr char too_wide = '*';
constexpr char not_written = '?';

void fill(char* s, INT count, char c) {
    std::fill_n(s, count, c);
    s[count] = '\0';
}

} // namespace

// s has room for total characters and the final zero.
INT encode_double_en_caractere(DOUBLE r, INT total, INT nbdec, char* s) {
    if (!s) return 0;
    const auto width = std::max(total, 0);
    std::array<char, HOST_NOMBRE_MAX> text{};
    const auto field = std::min(width, static_cast<INT>(text.size()) - 1);
    if (nbdec > most_decimals || str_ftoa(text.data(), r, field, nbdec) != 1) {
        fill(s, width, not_written);
    } else if (const auto number = grx::view(text.data()); number.size() > static_cast<std::size_t>(width)) {
        fill(s, width, too_wide);
    } else {
        grx::copy_text(s, static_cast<std::size_t>(width) + 1, number);
    }
    return 0;
}

// --- alarm ---------------------------------------------------------------------------------------------------------

namespace {

using AlarmFunction = void (*)();

std::atomic<AlarmFunction> alarm_function{nullptr};
static_assert(std::atomic<AlarmFunction>::is_always_lock_free, "read inside a signal handler");

void call_alarm_function(int) {
    if (const auto function = alarm_function.load()) function();
}

} // namespace

// System calls go on after the signal, so that waiting for events does not fail.
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

// --- what this platform has no use for -----------------------------------------------------------------------------

void grx_selectionne_curseur_attente(void) {}
void grx_deselectionne_curseur_attente(void) {}
void grx_contenu_aide(void) {}
void grx_aide_sur(void) {}
void grx_utilisation_aide(void) {}
void grx_aide_f1(INT) {}
