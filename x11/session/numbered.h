// Numbers from 1 for things of one kind, the lowest free one first, for timers, watches and idle work.
#pragma once

#include <cstddef>

#include "host_t.h"
#include "system/block.h"

namespace grx {

/// `T` has a member `used`, false in the lines that are free. Lines move when the table grows: keep numbers, no pointers.
template <class T>
class Numbered {
  public:
    /// Takes the lowest free number for `value`; 0 when memory is short.
    INT add(T value) {
        std::size_t line = 0;
        while (line < lines_.size() && lines_[line].used) ++line;
        if (line == lines_.size() && !lines_.resize(line == 0 ? kFirst : 2 * line)) return 0;
        value.used = true;
        lines_[line] = value;
        ++count_;
        return static_cast<INT>(line) + 1;
    }

    /// The line of a number in use, else null.
    T* at(INT number) {
        if (number < 1 || static_cast<std::size_t>(number) > lines_.size()) return nullptr;
        T& line = lines_[static_cast<std::size_t>(number) - 1];
        return line.used ? &line : nullptr;
    }

    void release(INT number) {
        if (T* const line = at(number)) {
            line->used = false;
            --count_;
        }
    }

    /// Numbers in use.
    std::size_t count() const { return count_; }

    /// No number is higher.
    INT last() const { return static_cast<INT>(lines_.size()); }

    void reset() {
        lines_.reset();
        count_ = 0;
    }

  private:
    static constexpr std::size_t kFirst = 8;
    Block<T> lines_;
    std::size_t count_ = 0;
};

} // namespace grx
