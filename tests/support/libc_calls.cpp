#include "tests/support/libc_calls.h"

#include "tests/support/next_function.h"

#include <cstdlib>

namespace {
grxtest::ShellCommands* noting = nullptr;
}

// --- in front of the C library ----------------------------------------------------------------------
int system(const char* command) {
    static const auto next = grxtest::next_function<int(const char*)>("system");
    if (noting && command) noting->given.emplace_back(command);
    return next(command);
}

namespace grxtest {

ShellCommands::ShellCommands() {
    noting = this;
}

ShellCommands::~ShellCommands() {
    noting = nullptr;
}

} // namespace grxtest
