// Builds commands for the shell word by word, for plotting and for copies of files. A command is never cut: when memory
// is short it does not run.
#pragma once

#include <cstdlib>
#include <string_view>

#include "system/block.h"

namespace grx {

class ShellCommand {
  public:
    explicit ShellCommand(std::string_view program) { append(program); }

    /// Appends a word, in quotes when the shell would change or divide it.
    ShellCommand& add(std::string_view word);

    /// Runs the command and returns its status as system() does; -1 when memory was short.
    int run() const { return complete_ ? std::system(text_.data()) : -1; }

  private:
    void append(std::string_view word);

    Block<char> text_;
    bool complete_ = true;
};

} // namespace grx
