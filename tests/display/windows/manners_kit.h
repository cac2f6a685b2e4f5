// Properties of windows as another program reads them, and an application that says who it is.
#pragma once

#include "tests/display/windows/window_creation_kit.h"

#include "grx_plus.h"

#include <X11/Xatom.h>

#include <string>
#include <vector>

namespace grxtest {

// A property of a window, read on the connection of the test.
struct Property {
    std::string type;
    std::string bytes;       // of the formats 8 and 16
    std::vector<long> longs; // of the format 32, unsigned on the wire
    bool there = false;
};

inline Property property_of(Display* display, Window window, const char* name) {
    XSync(x11_disp, False); // what was asked for has reached the server
    Property result;
    Atom type = None;
    int format = 0;
    unsigned long count = 0, left = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, window, XInternAtom(display, name, False), 0, 8L << 20, False, AnyPropertyType, &type,
        &format, &count, &left, &data);
    if (type == None) return result;
    result.there = true;
    char* const type_name = XGetAtomName(display, type);
    result.type = type_name;
    XFree(type_name);
    if (format == 32) {
        const auto* values = reinterpret_cast<const unsigned long*>(data);
        for (unsigned long i = 0; i < count; ++i) result.longs.push_back(static_cast<long>(values[i] & 0xFFFFFFFFUL));
    } else if (data) {
        result.bytes.assign(reinterpret_cast<const char*>(data), count);
    }
    if (data) XFree(data);
    return result;
}

// The names of the atoms in a property.
inline std::vector<std::string> atoms_in(Display* display, Window window, const char* name) {
    std::vector<std::string> result;
    for (long atom : property_of(display, window, name).longs) {
        char* const text = XGetAtomName(display, static_cast<Atom>(atom));
        result.emplace_back(text ? text : "(none)");
        if (text) XFree(text);
    }
    return result;
}

inline Window shell_window(INT nofen) {
    return XtWindow(shell_of(nofen));
}

inline GRX_IDENTITE identity(const char* name = nullptr, const char* application = nullptr) {
    GRX_IDENTITE result{};
    EXPECT_EQ(grx_init_identite(&result), 1);
    result.nom = name;
    result.classe = application;
    return result;
}

// Calls grx_arguments as a main function would.
struct Arguments {
    explicit Arguments(std::vector<std::string> given) : texts(std::move(given)) {
        for (std::string& text : texts) pointers.push_back(text.data());
        pointers.push_back(nullptr);
        count = static_cast<INT>(texts.size());
    }
    INT take() { return grx_arguments(&count, pointers.data()); }
    std::vector<std::string> rest() const { return {pointers.begin(), pointers.begin() + count}; }

    std::vector<std::string> texts;
    std::vector<char*> pointers;
    INT count = 0;
};

inline long position_flags(Display* display, INT nofen) {
    XSync(x11_disp, False);
    XSizeHints hints{};
    long supplied = 0;
    if (!XGetWMNormalHints(display, shell_window(nofen), &hints, &supplied)) return -1;
    return hints.flags & (USPosition | PPosition);
}

} // namespace grxtest
