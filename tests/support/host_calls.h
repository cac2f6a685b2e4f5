// What the library asks of the application's messages, text files and file names, whose functions the test program
// stands in front of. Unless a test asks for something else they do what the default host's do.
#pragma once

#include "host_t.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace grxtest {

// What litmess gives; without them the default host's.
extern std::optional<std::map<INT, std::string>> host_messages;

// The modes in which ftext_open was asked for files, from the construction of the object on. With a content each of them
// holds that, and has no size. There is one at a time.
class TextFiles {
  public:
    explicit TextFiles(std::string content = "");
    ~TextFiles();
    TextFiles(const TextFiles&) = delete;
    TextFiles& operator=(const TextFiles&) = delete;

    std::vector<INT> modes;
    std::string content;
};

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
