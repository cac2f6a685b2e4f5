// Reads and writes properties of windows, for all that talks with window managers.
#include "display/properties.h"

#include "xt_ini_t.h"

namespace grx {

PropertyValues::PropertyValues(Window window, Atom name, Atom type, long most) {
    constexpr int wide = 32;
    Atom found = None;
    int format = 0;
    unsigned long left = 0;
    XGetWindowProperty(x11_disp, window, name, 0, most, False, type, &found, &format, &count_, &left, &data_);
    if (found != type || format != wide) count_ = 0;
}

PropertyValues::~PropertyValues() {
    if (data_ != nullptr) XFree(data_);
}

void set_property(Window window, Atom name, Atom type, std::span<const long> values) {
    constexpr int wide = 32;
    XChangeProperty(x11_disp, window, name, type, wide, PropModeReplace,
        reinterpret_cast<const unsigned char*>(values.data()), static_cast<int>(values.size()));
}

} // namespace grx
