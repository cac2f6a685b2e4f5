// Writes lines to files of the developer's, so that nothing which happens to these files is felt by the application.
#pragma once

#include <cstddef>

namespace grx {

/// Opens a file to append to, or makes it; -1 when that fails. Never waits: a pipe without a reader is no file.
int open_to_append(const char* name);

/// Writes all of it if the file takes it; false when it does not. No signal of a broken pipe or of the limit of file sizes
/// reaches the application; errno may change.
bool write_quietly(int descriptor, const char* text, std::size_t length);

} // namespace grx
