// The picture of the cursor that the server shows.
#pragma once

#include "tests/support/window_kit.h"

#include <X11/extensions/Xfixes.h>

#include <dlfcn.h>

#include <memory>
#include <set>

namespace grxtest {

// The picture of a cursor: 0 where it is clear, else 0xFF and the colour.
struct Shape {
    int width = 0, height = 0, hot_x = 0, hot_y = 0;
    std::vector<std::uint32_t> pixels;
    bool operator==(const Shape&) const = default;

    std::set<std::uint32_t> colours() const {
        std::set<std::uint32_t> all(pixels.begin(), pixels.end());
        all.erase(0);
        return all;
    }
};

inline void PrintTo(const Shape& shape, std::ostream* out) {
    *out << shape.width << " x " << shape.height << ", hot spot " << shape.hot_x << "," << shape.hot_y << "\n";
    for (int y = 0; y < shape.height; ++y) {
        for (int x = 0; x < shape.width; ++x)
            *out << (shape.pixels[static_cast<std::size_t>(y * shape.width + x)] ? '#' : '.');
        *out << "\n";
    }
}

// The extension's library comes with those of the toolkit, its development files need not.
template <class Function>
Function* in_xfixes(const char* name) {
    static void* library = dlopen("libXfixes.so.3", RTLD_NOW);
    void* address = library ? dlsym(library, name) : nullptr;
    return reinterpret_cast<Function*>(address);
}

// The cursor where the pointer is; empty without the extension.
inline Shape shown_cursor(Display* asker) {
    XSync(x11_disp, False);
    static auto* const ask = in_xfixes<decltype(XFixesGetCursorImage)>("XFixesGetCursorImage");
    if (!ask) return {};
    const std::unique_ptr<XFixesCursorImage, int (*)(void*)> image(ask(asker), XFree);
    Shape shape{image->width, image->height, image->xhot, image->yhot, {}};
    for (int i = 0; i < shape.width * shape.height; ++i)
        shape.pixels.push_back(static_cast<std::uint32_t>(image->pixels[i]));
    return shape;
}

// A colour index as cursors have it.
inline std::uint32_t cursor_colour(INT index) {
    XColor queried{};
    queried.pixel = static_cast<unsigned long>(grx_recup_couleur(index));
    XQueryColor(x11_disp, x11_cmap, &queried);
    return 0xFF000000U | (queried.red >> 8U) << 16U | (queried.green >> 8U) << 8U | queried.blue >> 8U;
}

} // namespace grxtest
