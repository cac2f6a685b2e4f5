// Writes lines to files of the developer's, so that nothing which happens to these files is felt by the application.
#include "system/quiet_write.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <ctime>

namespace grx {

namespace {

constexpr mode_t kRights = 0666;

// Holds back the signals of a write that fails, and takes away the one that it has caused.
class SignalsHeldBack {
  public:
    SignalsHeldBack() {
        sigemptyset(&held_);
        sigaddset(&held_, SIGPIPE);
        sigaddset(&held_, SIGXFSZ);
        pthread_sigmask(SIG_BLOCK, &held_, &before_);
    }
    SignalsHeldBack(const SignalsHeldBack&) = delete;
    SignalsHeldBack& operator=(const SignalsHeldBack&) = delete;
    ~SignalsHeldBack() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

    void take_away() const {
        const timespec at_once{};
        sigtimedwait(&held_, nullptr, &at_once);
    }

  private:
    sigset_t held_{}, before_{};
};

} // namespace

int open_to_append(const char* name) {
    return open(name, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, kRights);
}

bool write_quietly(int descriptor, const char* text, std::size_t length) {
    const SignalsHeldBack signals;
    while (length > 0) {
        const ssize_t written = write(descriptor, text, length);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0 && (errno == EPIPE || errno == EFBIG)) signals.take_away();
        if (written <= 0) return false;
        text += written;
        length -= static_cast<std::size_t>(written);
    }
    return true;
}

} // namespace grx
