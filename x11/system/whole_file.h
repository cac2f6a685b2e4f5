// A file that is written whole or not at all, for what the application saves: under a temporary name in the folder of its
// target, whose name it takes at the end.
#pragma once

#include <cstddef>
#include <cstdint>

#include "host_t.h"
#include "system/block.h"

namespace grx {

class WholeFile {
  public:
    WholeFile() = default;
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;
    ~WholeFile() { give_up(); }

    /// Makes the temporary file. A link is followed; a target that is no regular file, or must not be written, is refused.
    /// Gives 1 or a code of the additions.
    INT begin(const char* name);
    bool write(const uchar* bytes, std::size_t count);
    bool write_at(uint64_t place, const uchar* bytes, std::size_t count);

    /// The target is the new file from now on; false, and it stays what it was, when the disk does not take all of it.
    bool finish();
    void give_up();

  private:
    INT find_target(const char* name);
    bool make_temporary();

    int descriptor_ = -1;
    Block<char> target_, temporary_;
};

} // namespace grx
