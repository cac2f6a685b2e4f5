// The host's allocator of the test programs: every block is counted, guarded and freed with its exact size, or the
// test fails. mallocC, freeC and reallocC defined in heap.cpp win over those of the default host.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace grxtest {

class Heap {
  public:
    std::size_t blocks() const;      // live blocks
    std::size_t bytes() const;       // their sizes added up
    std::size_t allocations() const; // calls of mallocC and reallocC so far, failed ones included

    void fail_at(std::size_t n);   // the n-th allocation from now on gives null, once; 1 is the next one
    void fail_from(std::size_t n); // and all after it
    void fail_never();
    bool failed() const; // an allocation failed on purpose since the last fail_...

    void fill(int byte); // what new bytes hold, 0xA5 unless changed

    // Live blocks younger than `allocations_before`, one a line: "80 bytes, allocation 17". Empty when there is none.
    std::string living_since(std::size_t allocations_before) const;

    // Looks at the guard bytes of every live block; what is damaged, or nothing.
    std::string damage() const;
};

Heap& heap();

// Fails the test unless all blocks that were made during its life are freed when it ends.
class NoLeak {
  public:
    NoLeak();
    ~NoLeak();
    NoLeak(const NoLeak&) = delete;
    NoLeak& operator=(const NoLeak&) = delete;

  private:
    std::size_t start_;
};

// Runs `action` with its first allocation failing, then its second, and so on until none of its allocations is left
// to fail. The number of failures driven.
int fail_each_allocation(const std::function<void()>& action, int limit = 10000);

} // namespace grxtest
