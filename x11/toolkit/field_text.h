// The text of a fixed character field of an application's record, which need not be terminated.
#pragma once

#include <cstddef>
#include <cstring>

namespace grx {

template <std::size_t N>
class FieldText {
  public:
    explicit FieldText(const char (&field)[N]) {
        const std::size_t length = strnlen(field, N);
        std::memcpy(text_, field, length);
        text_[length] = '\0';
    }
    const char* c_str() const { return text_; }
    char* data() { return text_; }

  private:
    char text_[N + 1];
};

} // namespace grx
