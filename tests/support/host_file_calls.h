// What the library asks of the application's file names, whose functions the test program stands in front of.
#pragma once

#include <cstddef>

namespace grxtest {

// The most bytes that a service which trusts its caller would have written as a path since the construction of the
// object. There is one at a time.
class LongestPath {
  public:
    LongestPath();
    ~LongestPath();
    LongestPath(const LongestPath&) = delete;
    LongestPath& operator=(const LongestPath&) = delete;

    std::size_t bytes = 0;
};

} // namespace grxtest
