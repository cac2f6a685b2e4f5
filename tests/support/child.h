// A program started by a test. It ends with its object, and with the test process however that dies.
#pragma once

#include <sys/types.h>

#include <csignal>
#include <string>
#include <utility>
#include <vector>

namespace grxtest {

struct ChildOptions {
    std::vector<std::pair<std::string, std::string>> environment; // set in the child only
    std::vector<std::pair<int, int>> descriptors;                 // parent's descriptor, number in the child
    int end_signal = SIGTERM;                                     // what ends it, also when the test dies
};

class Child {
  public:
    Child() = default;
    explicit Child(const std::vector<std::string>& command, const ChildOptions& options = {});
    ~Child() { end(); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    Child(Child&& other) noexcept;
    Child& operator=(Child&& other) noexcept;

    pid_t pid() const { return pid_; }
    bool running();
    void end();      // sends the end signal, then SIGKILL when that does not help, and collects it
    int wait_exit(); // waits until it ends by itself; its exit code, or -1

  private:
    bool collect(int flags);

    pid_t pid_ = -1;
    int end_signal_ = SIGTERM;
    int status_ = -1;
};

} // namespace grxtest
