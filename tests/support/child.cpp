#include "tests/support/child.h"

#include "tests/support/wait.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace grxtest {
namespace {

std::vector<char*> pointers(const std::vector<std::string>& words) {
    std::vector<char*> result;
    for (const auto& word : words) result.push_back(const_cast<char*>(word.c_str()));
    result.push_back(nullptr);
    return result;
}

[[noreturn]] void become(const std::vector<char*>& argv, const ChildOptions& options, pid_t parent) {
    prctl(PR_SET_PDEATHSIG, options.end_signal);
    if (getppid() != parent) _exit(126);
    const int nowhere = open("/dev/null", O_RDWR);
    for (int standard = 0; standard < 3; ++standard) dup2(nowhere, standard);
    for (const auto& [from, to] : options.descriptors) dup2(from, to);
    for (const auto& [name, value] : options.environment) setenv(name.c_str(), value.c_str(), 1);
    execvp(argv[0], argv.data());
    _exit(127);
}

} // namespace

Child::Child(const std::vector<std::string>& command, const ChildOptions& options) : end_signal_(options.end_signal) {
    const auto argv = pointers(command);
    const pid_t parent = getpid();
    pid_ = fork();
    if (pid_ < 0) throw std::runtime_error("fork failed for " + command[0]);
    if (pid_ == 0) become(argv, options, parent);
}

Child::Child(Child&& other) noexcept {
    *this = std::move(other);
}

Child& Child::operator=(Child&& other) noexcept {
    std::swap(pid_, other.pid_);
    std::swap(end_signal_, other.end_signal_);
    std::swap(status_, other.status_);
    return *this;
}

bool Child::collect(int flags) {
    if (pid_ < 0) return true;
    int status = 0;
    if (waitpid(pid_, &status, flags) != pid_) return false;
    status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    pid_ = -1;
    return true;
}

bool Child::running() {
    return !collect(WNOHANG);
}

int Child::wait_exit() {
    collect(0);
    return status_;
}

void Child::end() {
    if (!running()) return;
    kill(pid_, end_signal_);
    const auto pause = [] { poll(nullptr, 0, 1); };
    if (wait_until([this] { return !running(); }, pause, Milliseconds{3000})) return;
    kill(pid_, SIGKILL);
    collect(0);
}

} // namespace grxtest
