// Gives a file to the command that prints, without a shell.
#include "papier/print_command.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <ctime>

#include "grx_plus_erreurs.h"

namespace papier {

namespace {

constexpr int64_t kPatience = 120000; // milliseconds

int64_t now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return int64_t{time.tv_sec} * 1000 + time.tv_nsec / 1000000;
}

// An application that ignores the end of its children would never learn how this one ended.
class ChildrenNoticed {
  public:
    ChildrenNoticed() {
        struct sigaction usual {};
        usual.sa_handler = SIG_DFL;
        sigaction(SIGCHLD, nullptr, &before_);
        changed_ = before_.sa_handler == SIG_IGN || (before_.sa_flags & SA_NOCLDWAIT) != 0;
        if (changed_) sigaction(SIGCHLD, &usual, nullptr);
    }
    ChildrenNoticed(const ChildrenNoticed&) = delete;
    ChildrenNoticed& operator=(const ChildrenNoticed&) = delete;
    ~ChildrenNoticed() {
        if (changed_) sigaction(SIGCHLD, &before_, nullptr);
    }

  private:
    struct sigaction before_ {};
    bool changed_ = false;
};

// Reads what the command says until it closes its outputs; what does not fit is read too. False when time is up.
bool listen(int from, int64_t end, std::span<char> told) {
    std::size_t length = 0;
    for (int64_t left = end - now(); left > 0; left = end - now()) {
        pollfd watched{from, POLLIN, 0};
        if (poll(&watched, 1, static_cast<int>(left)) <= 0) continue;
        std::array<char, 512> part{};
        const ssize_t got = read(from, part.data(), part.size());
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return true;
        const std::size_t kept = std::min(static_cast<std::size_t>(got), told.size() - 1 - length);
        std::memcpy(told.data() + length, part.data(), kept);
        length += kept;
        told[length] = '\0';
    }
    return false;
}

pid_t wait_for(pid_t child, int& status, int how) {
    pid_t ended = 0;
    do ended = waitpid(child, &status, how);
    while (ended < 0 && errno == EINTR);
    return ended;
}

// It may go on after it has closed its outputs. 0 when time is up.
pid_t wait_until(int64_t end, pid_t child, int& status) {
    constexpr timespec pause{0, 10000000};
    pid_t ended = 0;
    while ((ended = wait_for(child, status, WNOHANG)) == 0 && now() < end) nanosleep(&pause, nullptr);
    return ended;
}

INT end_of(pid_t child, int64_t end, std::span<char> told) {
    int status = 0;
    const pid_t ended = wait_until(end, child, status);
    if (ended < 0) return GRX_ECHEC_COMMANDE;
    if (ended == 0) {
        kill(child, SIGKILL);
        wait_for(child, status, 0);
        std::snprintf(told.data(), told.size(), "lp does not end");
        return GRX_ECHEC_DELAI;
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return 1;
    if (told[0] == '\0') std::snprintf(told.data(), told.size(), "lp failed without a word");
    return GRX_ECHEC_COMMANDE;
}

struct Pipe {
    int read_end = -1, write_end = -1;
    Pipe() {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) == 0) read_end = ends[0], write_end = ends[1];
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        close_write_end();
        if (read_end >= 0) close(read_end);
    }
    void close_write_end() {
        if (write_end >= 0) close(write_end);
        write_end = -1;
    }
};

using Words = std::array<char*, 12>;

int start(const Words& words, int output, pid_t& child) {
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
    sigset_t none;
    sigemptyset(&none);
    posix_spawn_file_actions_init(&actions);
    posix_spawnattr_init(&attributes);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDERR_FILENO);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
    const int failed = posix_spawnp(&child, words[0], &actions, &attributes, words.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return failed;
}

char* word(const char* text) {
    return const_cast<char*>(text); // spawned programs get copies
}

bool given(const char* text) {
    return text != nullptr && text[0] != '\0';
}

} // namespace

INT print(const PrintOrder& order, std::span<char> told) {
    std::array<char, 16> copies{};
    std::snprintf(copies.data(), copies.size(), "%d", static_cast<int>(order.copies));
    Words words{word("lp"), word("-c"), word("-n"), copies.data()};
    std::size_t count = 4;
    const auto option = [&](const char* name, const char* value) {
        if (!given(value)) return;
        words[count++] = word(name);
        words[count++] = word(value);
    };
    option("-d", order.printer);
    option("-t", order.title);
    words[count++] = word("--");
    words[count] = word(order.file);
    Pipe pipe;
    const ChildrenNoticed children;
    pid_t child = -1;
    const int failed = pipe.read_end < 0 ? errno : start(words, pipe.write_end, child);
    if (failed != 0) {
        std::snprintf(told.data(), told.size(), "lp: %s", std::strerror(failed));
        return GRX_ECHEC_COMMANDE;
    }
    pipe.close_write_end();
    const int64_t end = now() + kPatience;
    return end_of(child, listen(pipe.read_end, end, told) ? end : 0, told);
}

} // namespace papier
