// A command for the shell, built word by word; nothing of it is ever cut.
#pragma once

#include <cstdlib>
#include <string_view>

#include "system/block.h"

namespace grx {

class ShellCommand {
  public:
    explicit ShellCommand(std::string_view program) { append(program); }

    ShellCommand& add(std::string_view word);

    /// Runs it and gives the status as system() does; -1 when memory was short.
    int run() const { return complete_ ? std::system(text_.data()) : -1; }

  private:
    void append(std::string_view word);

    Block<char> text_;
    bool complete_ = true;
};

} // namespace grx
