// One descriptor that the toolkit watches for all timers, time limits and descriptors of the application. A descriptor
// that the application closes leaves the set by itself; the toolkit, had it been given that, would never sleep again.
#include "session/wake_up.h"

#include <X11/Intrinsic.h>

#include <sys/epoll.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <utility>

#include "events/added_records.h"
#include "system/shut_down.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

constexpr int64_t kSecond = 1'000'000'000;
constexpr std::size_t kAlarms = 3;

int set_fd = -1;
int clock_fd = -1;
XtInputId input = 0;
std::array<int64_t, kAlarms> alarms{kNever, kNever, kNever};
int64_t armed_for = kNever;
void (*tell_of_due)() = nullptr;
void (*tell_of_ready)(uint64_t key, uint32_t events) = nullptr;

int64_t& moment_of(Alarm alarm) {
    return alarms[static_cast<std::size_t>(alarm)];
}

void close_descriptors() {
    for (int* const fd : {&set_fd, &clock_fd}) {
        if (*fd >= 0) close(*fd);
        *fd = -1;
    }
}

void forget_wake_up() {
    if (input != 0 && x11_disp != nullptr) XtRemoveInput(input);
    input = 0;
    close_descriptors();
    alarms.fill(kNever);
    armed_for = kNever;
    tell_of_due = nullptr;
    tell_of_ready = nullptr;
}

bool open_descriptors() {
    set_fd = epoll_create1(EPOLL_CLOEXEC);
    clock_fd = timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK);
    epoll_event event{};
    event.events = EPOLLIN;
    return set_fd >= 0 && clock_fd >= 0 && epoll_ctl(set_fd, EPOLL_CTL_ADD, clock_fd, &event) == 0;
}

// A moment of zero would mean never to the clock.
void arm_clock() {
    const int64_t first = *std::min_element(alarms.begin(), alarms.end());
    if (first == armed_for || clock_fd < 0) return;
    armed_for = first;
    itimerspec when{};
    if (first != kNever) {
        const int64_t moment = std::max<int64_t>(first, 1);
        when.it_value.tv_sec = moment / kSecond;
        when.it_value.tv_nsec = moment % kSecond;
    }
    timerfd_settime(clock_fd, TFD_TIMER_ABSTIME, &when, nullptr);
}

bool alarm_is_over(Alarm alarm) {
    int64_t& moment = moment_of(alarm);
    if (moment > moment_now()) return false;
    moment = kNever;
    return true;
}

void on_input(XtPointer, int*, XtInputId*) {
    serve_wake_up();
}

void tell_ready() {
    std::array<epoll_event, 32> events{};
    const int count = epoll_wait(set_fd, events.data(), events.size(), 0);
    for (int i = 0; i < count; ++i) {
        const epoll_event& event = events[static_cast<std::size_t>(i)];
        if (event.data.u64 != 0 && tell_of_ready != nullptr) tell_of_ready(event.data.u64, event.events);
    }
}

// The clock is ready no longer once it is set anew.
void take_alarms() {
    if (armed_for > moment_now()) return;
    armed_for = 0;
    alarm_is_over(Alarm::Timers);
    const bool limit = alarm_is_over(Alarm::Limit);
    const bool retry = alarm_is_over(Alarm::Retry);
    if (limit || retry) wake_loop();
    arm_clock();
}

} // namespace

int64_t moment_now() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * kSecond + now.tv_nsec;
}

bool start_wake_up() {
    if (input != 0) return true;
    at_shut_down(forget_wake_up);
    if (!open_descriptors()) {
        close_descriptors();
        return false;
    }
    input = XtAppAddInput(contexte, set_fd, reinterpret_cast<XtPointer>(XtInputReadMask), on_input, nullptr);
    return true;
}

int64_t set_alarm(Alarm alarm, int64_t moment) {
    const int64_t before = std::exchange(moment_of(alarm), moment);
    arm_clock();
    return before;
}

int watched_set() {
    return set_fd;
}

void on_due(void (*due)()) {
    tell_of_due = due;
}

void on_ready(void (*ready)(uint64_t key, uint32_t events)) {
    tell_of_ready = ready;
}

void serve_wake_up() {
    if (set_fd < 0) return;
    tell_ready();
    take_alarms();
    if (tell_of_due != nullptr) tell_of_due();
}

} // namespace grx
