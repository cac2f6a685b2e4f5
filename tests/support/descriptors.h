// Files that the process has open.
#pragma once

#include <filesystem>
#include <iterator>

namespace grxtest {

inline long open_descriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), std::filesystem::directory_iterator());
}

} // namespace grxtest
