// An array that grows, from the host's memory, for what a paper collects.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>
#include <span>
#include <type_traits>

#include "host_t.h"
#include "xt_loc_f.h"

namespace papier {

/// Elements are moved as bytes. What memory cannot be had for is not appended, which the results say.
template <class T>
class Growing {
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

  public:
    Growing() = default;
    Growing(const Growing&) = delete;
    Growing& operator=(const Growing&) = delete;
    ~Growing() { reset(); }

    bool append(const T& element) {
        if (count_ == room_ && !make_room(1)) return false;
        data_[count_++] = element;
        return true;
    }

    bool append(std::span<const T> elements) {
        if (elements.size() > room_ - count_ && !make_room(elements.size())) return false;
        if (!elements.empty()) std::memcpy(static_cast<void*>(data_ + count_), elements.data(), elements.size_bytes());
        count_ += elements.size();
        return true;
    }

    /// Room for that many elements, whatever they hold; what was there is gone.
    bool size_to(std::size_t count) {
        clear();
        if (count > room_ && !make_room(count)) return false;
        count_ = count;
        return true;
    }

    T* data() { return data_; }
    const T* data() const { return data_; }
    std::size_t size() const { return count_; }
    bool empty() const { return count_ == 0; }
    T& operator[](std::size_t i) { return data_[i]; }
    const T& operator[](std::size_t i) const { return data_[i]; }
    std::span<const T> span() const { return {data_, count_}; }
    std::span<T> span() { return {data_, count_}; }

    void clear() { count_ = 0; } // the room stays

    void reset() {
        if (data_ != nullptr) grx_free(reinterpret_cast<char*>(data_), bytes(room_));
        data_ = nullptr;
        count_ = room_ = 0;
    }

  private:
    static UNSIGNED_INT bytes(std::size_t count) { return static_cast<UNSIGNED_INT>(count * sizeof(T)); }

    bool make_room(std::size_t more) {
        constexpr std::size_t least = 64;
        constexpr std::size_t most = std::numeric_limits<UNSIGNED_INT>::max() / sizeof(T);
        if (more > most - count_) return false;
        const std::size_t wanted = std::min(most, std::max({least, count_ + more, room_ + room_ / 2}));
        char* const moved = data_ == nullptr ? grx_malloc(bytes(wanted))
                                             : grx_realloc(reinterpret_cast<char*>(data_), bytes(room_), bytes(wanted));
        if (moved == nullptr) return false;
        data_ = reinterpret_cast<T*>(moved);
        room_ = wanted;
        return true;
    }

    T* data_ = nullptr;
    std::size_t count_ = 0, room_ = 0;
};

} // namespace papier
