// Keeps the signal of the limit of file sizes from the application, for all that writes files.
#pragma once

#include <csignal>
#include <ctime>

namespace papier {

/// Holds the signal back during its life, and takes away the one that a write has caused.
class HeldSignal {
  public:
    HeldSignal() {
        sigemptyset(&held_);
        sigaddset(&held_, SIGXFSZ);
        pthread_sigmask(SIG_BLOCK, &held_, &before_);
    }
    HeldSignal(const HeldSignal&) = delete;
    HeldSignal& operator=(const HeldSignal&) = delete;
    ~HeldSignal() {
        if (sigismember(&before_, SIGXFSZ) == 0) {
            const timespec at_once{};
            sigtimedwait(&held_, nullptr, &at_once);
        }
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }

  private:
    sigset_t held_{}, before_{};
};

} // namespace papier
