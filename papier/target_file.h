// The file that a paper is written to: under another name until it is whole.
#pragma once

#include <cstddef>
#include <span>

#include "host_t.h"
#include "papier/growing.h"

namespace papier {

class TargetFile {
  public:
    TargetFile() = default;
    TargetFile(const TargetFile&) = delete;
    TargetFile& operator=(const TargetFile&) = delete;
    ~TargetFile() { discard(); }

    /// Makes a file in the folder of the target, or in that for temporary files when there is no target. 1 or a code.
    INT open(const char* target);

    /// Writes all of it; false from the first failure on.
    bool write(std::span<const unsigned char> bytes);
    bool write(const char* text);

    /// Has everything on the disk, under the temporary name.
    bool complete();
    /// The same under the target's name. The other file of that name goes.
    bool take_name();
    /// Takes the file away unless it has its name.
    void discard();

    bool failed() const { return failed_; }
    int error() const { return error_; }
    const char* temporary_name() const { return temporary_.data(); }

  private:
    bool note_error();
    INT resolve(const char* target);
    bool make_temporary(const char* folder_of);
    bool put(std::span<const unsigned char> bytes);
    bool flush();

    Growing<char> target_, temporary_;
    Growing<unsigned char> waiting_;
    int descriptor_ = -1, error_ = 0;
    unsigned rights_ = 0;
    bool failed_ = false;
};

} // namespace papier
