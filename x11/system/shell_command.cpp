// Builds commands for the shell word by word, for plotting and for copies of files. A command is never cut: when memory
// is short it does not run.
#include "system/shell_command.h"

#include <string_view>

#include "pure/shell_quote.h"

namespace grx {

ShellCommand& ShellCommand::add(std::string_view word) {
    append(word);
    return *this;
}

void ShellCommand::append(std::string_view word) {
    const bool first = !text_;
    const std::size_t start = first ? 0 : text_.size(); // a blank replaces the terminator
    complete_ = complete_ && text_.resize(start + word_length(word) + 1);
    if (!complete_) return;
    if (!first) text_[start - 1] = ' ';
    *write_word(text_.data() + start, word) = '\0';
}

} // namespace grx
