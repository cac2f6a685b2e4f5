// A command for the shell, built word by word; nothing of it is ever cut.
#pragma once

#include <cstdlib>
#include <string_view>

#include "system/block.h"
#include "pure/shell_quote.h"

namespace grx {

class ShellCommand {
  public:
    explicit ShellCommand(std::string_view program) { append(program); }

    ShellCommand& add(std::string_view word) {
        append(word);
        return *this;
    }

    /// Runs it and gives the status as system() does; -1 when memory was short.
    int run() const { return complete_ ? std::system(text_.data()) : -1; }

  private:
    void append(std::string_view word) {
        const bool first = !text_;
        const std::size_t start = first ? 0 : text_.size(); // the terminator becomes the blank
        complete_ = complete_ && text_.resize(start + word_length(word) + 1);
        if (!complete_) return;
        if (!first) text_[start - 1] = ' ';
        *write_word(text_.data() + start, word) = '\0';
    }

    Block<char> text_;
    bool complete_ = true;
};

} // namespace grx
