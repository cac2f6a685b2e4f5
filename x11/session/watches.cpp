// The descriptors that the application has watched. Each is told once and looked at again when its record was delivered.
#include <sys/epoll.h>
#include <sys/ioctl.h>

#include <cerrno>

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

enum class State : unsigned char { Resting, Watching, RecordWaits };

struct Watch {
    bool used;
    State state;
    int fd;
    INT conditions;
    uint32_t serial; // of the watch: a descriptor that was closed may still be ready for an older one
};

grx::NeverDestroyed<grx::Numbered<Watch>> lasting_watches;
grx::Numbered<Watch>& watches = lasting_watches.value;
uint32_t last_serial = 0;

constexpr INT kAsked = GRX_DESCRIPTEUR_LECTURE | GRX_DESCRIPTEUR_ECRITURE;
constexpr INT kLast = GRX_DESCRIPTEUR_RUPTURE | GRX_DESCRIPTEUR_FERME;
constexpr int64_t kRetry = 50 * grx::kMillisecond; // when memory was short
constexpr int kNumberBits = 32;

void forget_watches() {
    watches.reset();
    last_serial = 0;
}

// 0 is the clock's.
uint64_t key_of(INT number, const Watch& watch) {
    return uint64_t{watch.serial} << kNumberBits | static_cast<uint32_t>(number);
}

int control(int operation, INT number, const Watch& watch) {
    epoll_event event{};
    const bool reads = (watch.conditions & GRX_DESCRIPTEUR_LECTURE) != 0;
    const bool writes = (watch.conditions & GRX_DESCRIPTEUR_ECRITURE) != 0;
    event.events = (reads ? EPOLLIN : 0U) | (writes ? EPOLLOUT : 0U) | EPOLLONESHOT;
    event.data.u64 = key_of(number, watch);
    return epoll_ctl(grx::watched_set(), operation, watch.fd, &event);
}

void take_out(const Watch& watch) {
    epoll_event event{};
    epoll_ctl(grx::watched_set(), EPOLL_CTL_DEL, watch.fd, &event);
}

bool something_to_read(int fd) {
    int bytes = 0;
    return ioctl(fd, FIONREAD, &bytes) == 0 && bytes > 0;
}

INT conditions_of(const Watch& watch, uint32_t events) {
    const bool reads = (watch.conditions & GRX_DESCRIPTEUR_LECTURE) != 0;
    const INT writable = (events & EPOLLOUT) != 0 ? watch.conditions & GRX_DESCRIPTEUR_ECRITURE : 0;
    const bool broken = (events & (EPOLLHUP | EPOLLERR)) != 0;
    if (broken && !(reads && something_to_read(watch.fd))) return writable | GRX_DESCRIPTEUR_RUPTURE;
    return writable | (reads && (events & (EPOLLIN | EPOLLHUP)) != 0 ? GRX_DESCRIPTEUR_LECTURE : 0);
}

// Without memory for the record the descriptor is looked at again when the loop goes on.
void tell(INT number, Watch& watch, INT conditions) {
    if (grx::post_added(grx::source_record(GRX_EVT_DESCRIPTEUR, number, conditions)))
        watch.state = State::RecordWaits;
    else
        grx::set_alarm(grx::Alarm::Retry, grx::moment_now() + kRetry);
}

void watch_ready(uint64_t key, uint32_t events) {
    const auto number = static_cast<INT>(key & UINT32_MAX);
    Watch* const watch = watches.at(number);
    if (watch == nullptr || key_of(number, *watch) != key || watch->state != State::Watching) return;
    tell(number, *watch, conditions_of(*watch, events));
}

INT refusal() {
    switch (errno) {
    case EBADF: return GRX_ECHEC_NUMERO;
    case EEXIST: return GRX_ECHEC_OCCUPE;
    case EPERM:
    case EINVAL:
    case ELOOP: return GRX_ECHEC_GENRE;
    default: return GRX_ECHEC_MEMOIRE;
    }
}

// A descriptor that could be put in once more was closed under the watch that had it, and is another one now.
void part_from(INT number, int fd) {
    for (INT other = 1; other <= watches.last(); ++other) {
        Watch* const watch = watches.at(other);
        if (watch != nullptr && other != number && watch->fd == fd) watch->fd = -1;
    }
}

bool are_conditions(INT conditions) {
    return (conditions & ~kAsked) == 0;
}

// Watches anew, for the conditions of now. False when the descriptor is closed.
bool restart(INT number, Watch& watch) {
    watch.state = watch.conditions != 0 ? State::Watching : State::Resting;
    if (watch.conditions == 0) {
        take_out(watch);
        return true;
    }
    if (control(EPOLL_CTL_MOD, number, watch) == 0) return true;
    return errno == ENOENT && control(EPOLL_CTL_ADD, number, watch) == 0;
}

} // namespace

namespace grx {

bool has_watches() {
    return watches.count() > 0;
}

// All are asked for again, for this also finds those that were closed.
void resume_watches() {
    for (INT number = 1; number <= watches.last(); ++number) {
        Watch* const watch = watches.at(number);
        if (watch == nullptr || watch->state != State::Watching) continue;
        if (control(EPOLL_CTL_MOD, number, *watch) == 0) continue;
        watch->fd = -1;
        tell(number, *watch, GRX_DESCRIPTEUR_FERME);
    }
}

void deliver_watch(const GRX_EVENEMENT& record) {
    Watch* const watch = watches.at(record.exec_fonction.no_fo);
    if (watch == nullptr) return;
    watch->state = (record.exec_fonction.valeur & kLast) != 0 ? State::Resting : State::Watching;
}

} // namespace grx

extern "C" {

INT grx_surveille_descripteur(INT descripteur, INT conditions) {
    if (conditions == 0 || !are_conditions(conditions))
        return grx::refused(GRX_ECHEC_PARAMETRE, "conditions", conditions);
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "descripteur", descripteur);
    if (descripteur < 0) return grx::refused(GRX_ECHEC_NUMERO, "descripteur", descripteur);
    if (!grx::start_wake_up()) return GRX_ECHEC_MEMOIRE;
    grx::at_shut_down(forget_watches);
    grx::on_ready(watch_ready);
    const Watch watch{true, State::Watching, descripteur, conditions, ++last_serial};
    const INT number = watches.add(watch);
    if (number == 0) return GRX_ECHEC_MEMOIRE;
    if (control(EPOLL_CTL_ADD, number, watch) != 0) {
        const INT code = refusal();
        watches.release(number);
        return code;
    }
    part_from(number, descripteur);
    return number;
}

INT grx_change_surveillance(INT surveillance, INT conditions) {
    Watch* const watch = watches.at(surveillance);
    if (watch == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "surveillance", surveillance);
    if (!are_conditions(conditions)) return grx::refused(GRX_ECHEC_PARAMETRE, "conditions", conditions);
    grx::drop_source_record(GRX_EVT_DESCRIPTEUR, surveillance);
    watch->conditions = conditions;
    if (restart(surveillance, *watch)) return 1;
    watch->state = State::Resting;
    return grx::refused(GRX_ECHEC_NUMERO, "surveillance", surveillance);
}

INT grx_arrete_surveillance(INT surveillance) {
    const Watch* const watch = watches.at(surveillance);
    if (watch == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "surveillance", surveillance);
    take_out(*watch);
    watches.release(surveillance);
    grx::drop_source_record(GRX_EVT_DESCRIPTEUR, surveillance);
    return 1;
}
}
