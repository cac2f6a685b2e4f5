// Properties of windows as values, for all that talks with window managers.
#pragma once

#include <X11/Xlib.h>

#include <span>

namespace grx {

/// The 32-bit values of a property of one type, at most `most` of them; empty when it is missing or of another type.
class PropertyValues {
  public:
    PropertyValues(Window window, Atom name, Atom type, long most);
    ~PropertyValues();
    PropertyValues(const PropertyValues&) = delete;
    PropertyValues& operator=(const PropertyValues&) = delete;

    std::span<const long> values() const { return {reinterpret_cast<const long*>(data_), count_}; }

  private:
    unsigned char* data_ = nullptr;
    unsigned long count_ = 0;
};

/// Writes 32-bit values into a property.
void set_property(Window window, Atom name, Atom type, std::span<const long> values);

} // namespace grx
