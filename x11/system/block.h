// A heap block that frees itself, for all memory of the library. The elements come from grx_malloc and are freed with
// the exact size they were asked with, because the host's allocator wants it.
#pragma once

#include <cstddef>
#include <cstring>
#include <limits>
#include <span>
#include <type_traits>
#include <utility>

#include "xt_loc_f.h"

namespace grx {

/// Owns its elements and can only be moved. Test it like a pointer: a block is empty when no elements were asked for,
/// when their bytes do not fit 32 bits, or when the host is short of memory.
template <class T>
class Block {
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>,
        "elements are moved and cleared as bytes");

  public:
    constexpr Block() noexcept = default;

    /// Makes elements with every byte zero. The host's memory is not cleared.
    explicit Block(std::size_t count) : Block(raw(count)) {
        if (data_ != nullptr) clear();
    }

    /// Makes elements that hold what the host's memory held, for callers that write all of them at once.
    static Block raw(std::size_t count) {
        if (!fits(count)) return {};
        return adopt(reinterpret_cast<T*>(grx_malloc(bytes(count))), count);
    }

    /// Takes over memory of exactly `count` elements that came from grx_malloc.
    static Block adopt(T* data, std::size_t count) noexcept {
        Block block;
        block.data_ = data;
        block.count_ = data != nullptr ? count : 0;
        return block;
    }

    Block(Block&& other) noexcept
        : data_(std::exchange(other.data_, nullptr)), count_(std::exchange(other.count_, 0)) {}
    Block& operator=(Block&& other) noexcept {
        std::swap(data_, other.data_);
        std::swap(count_, other.count_);
        if (this != &other) other.reset();
        return *this;
    }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    ~Block() { reset(); }

    explicit operator bool() const noexcept { return data_ != nullptr; }
    T* data() noexcept { return data_; }
    const T* data() const noexcept { return data_; }
    std::size_t size() const noexcept { return count_; }
    T& operator[](std::size_t i) noexcept { return data_[i]; }
    const T& operator[](std::size_t i) const noexcept { return data_[i]; }
    T* begin() noexcept { return data_; }
    T* end() noexcept { return data_ + count_; }
    const T* begin() const noexcept { return data_; }
    const T* end() const noexcept { return data_ + count_; }
    std::span<T> span() noexcept { return {data_, count_}; }
    std::span<const T> span() const noexcept { return {data_, count_}; }

    void clear() noexcept {
        if (data_ != nullptr) std::memset(static_cast<void*>(data_), 0, count_ * sizeof(T));
    }

    /// Changes the number of elements; new ones are zero. When memory is short it changes nothing and returns false.
    bool resize(std::size_t count) {
        if (data_ == nullptr) return static_cast<bool>(*this = Block(count));
        if (!fits(count)) return false;
        auto* moved = grx_realloc(reinterpret_cast<char*>(data_), bytes(count_), bytes(count));
        if (moved == nullptr) return false;
        data_ = reinterpret_cast<T*>(moved);
        if (count > count_) std::memset(static_cast<void*>(data_ + count_), 0, (count - count_) * sizeof(T));
        count_ = count;
        return true;
    }

    void reset() noexcept {
        if (data_ != nullptr) grx_free(reinterpret_cast<char*>(data_), bytes(count_));
        data_ = nullptr;
        count_ = 0;
    }

    /// Hands the memory over to the caller, who frees size() elements. Read size() before this call.
    [[nodiscard]] T* release() noexcept {
        count_ = 0;
        return std::exchange(data_, nullptr);
    }

  private:
    static constexpr bool fits(std::size_t count) noexcept {
        return count > 0 && count <= std::numeric_limits<UNSIGNED_INT>::max() / sizeof(T);
    }
    static constexpr UNSIGNED_INT bytes(std::size_t count) noexcept {
        return static_cast<UNSIGNED_INT>(count * sizeof(T));
    }

    T* data_ = nullptr;
    std::size_t count_ = 0;
};

/// The number of elements to ask for: at least one, because a host need not give memory of no size.
constexpr std::size_t room_for(INT count) {
    return count > 1 ? static_cast<std::size_t>(count) : 1;
}

} // namespace grx
