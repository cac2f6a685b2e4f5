// What the process asks of the C library, whose functions the test program stands in front of.
#pragma once

#include <string>
#include <vector>

namespace grxtest {

// The commands that the shell is given, which runs them, from its construction on. There is one at a time.
class ShellCommands {
  public:
    ShellCommands();
    ~ShellCommands();
    ShellCommands(const ShellCommands&) = delete;
    ShellCommands& operator=(const ShellCommands&) = delete;

    std::vector<std::string> given;
};

} // namespace grxtest
