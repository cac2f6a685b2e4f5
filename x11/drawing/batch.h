// Draws runs of small primitives quickly. Xlib joins consecutive points, segments, rectangles and filled shapes of one
// context and drawable into one request, but needs a lock and a function call for each. Here a primitive that can join
// the request still in the buffer is written there directly. Any other goes through Xlib, which begins a new request.
// No lock is needed: only the one thread of the application uses the connection.
#pragma once

#include <X11/Xlib.h>
// Xlib first: the next header defines min and max
#include <X11/Xlibint.h>
#undef min
#undef max

#include <cstdint>
#include <cstring>

#include "pure/clip.h"
#include "xt_ini_t.h"

namespace grx {

/// The first fields of a request, the same in all five requests that are joined.
struct BatchHead {
    CARD8 type;
    BYTE mode;
    CARD16 length; // in units of kLengthUnit bytes
    CARD32 drawable;
    CARD32 context;
};
static_assert(sizeof(BatchHead) == sz_xPolyPointReq);

inline constexpr std::size_t kLengthUnit = 4;
inline constexpr std::size_t kLongestRequest = UINT16_MAX; // in the same units; the buffer itself may be longer

/// True when `bytes` more can join the last request in the buffer.
inline bool can_join(const Display* dpy, CARD8 type, Drawable target, GC context, std::size_t bytes) {
    const auto* const head = reinterpret_cast<const BatchHead*>(dpy->last_req);
    return head->type == type && head->drawable == target && head->context == context->gid && context->dirty == 0
           && dpy->synchandler == nullptr && dpy->bufptr + bytes <= dpy->bufmax
           && head->length + bytes / kLengthUnit <= kLongestRequest;
}

template <class Item>
bool join(CARD8 type, Drawable target, const Item& item) {
    Display* const dpy = x11_disp;
    if (!can_join(dpy, type, target, g_c, sizeof item)) return false;
    auto* const head = reinterpret_cast<BatchHead*>(dpy->last_req);
    if (type == X_PolyPoint && head->mode != CoordModeOrigin) return false; // other requests have a filler byte there
    std::memcpy(dpy->bufptr, &item, sizeof item);
    dpy->bufptr += sizeof item;
    head->length = static_cast<CARD16>(head->length + sizeof item / kLengthUnit);
    return true;
}

constexpr INT16 p16(int v) {
    return static_cast<INT16>(v);
}

constexpr CARD16 u16(unsigned int v) {
    return static_cast<CARD16>(v);
}

inline void draw_point(Drawable target, int x, int y) {
    if (!join(X_PolyPoint, target, xPoint{p16(x), p16(y)})) XDrawPoint(x11_disp, target, g_c, x, y);
}

inline void draw_line(Drawable target, int x1, int y1, int x2, int y2) {
    if (!join(X_PolySegment, target, xSegment{p16(x1), p16(y1), p16(x2), p16(y2)}))
        XDrawLine(x11_disp, target, g_c, x1, y1, x2, y2);
}

inline void draw_line(Drawable target, const Line& line) {
    draw_line(target, line.x1, line.y1, line.x2, line.y2);
}

inline void draw_rectangle(Drawable target, int x, int y, unsigned int width, unsigned int height) {
    if (!join(X_PolyRectangle, target, xRectangle{p16(x), p16(y), u16(width), u16(height)}))
        XDrawRectangle(x11_disp, target, g_c, x, y, width, height);
}

inline void fill_rectangle(Drawable target, int x, int y, unsigned int width, unsigned int height) {
    if (!join(X_PolyFillRectangle, target, xRectangle{p16(x), p16(y), u16(width), u16(height)}))
        XFillRectangle(x11_disp, target, g_c, x, y, width, height);
}

struct ArcBox {
    int x, y;
    unsigned int width, height;
    int start, extent; // 64ths of a degree
};

inline bool join_arc(CARD8 type, Drawable target, const ArcBox& a) {
    return join(type, target, xArc{p16(a.x), p16(a.y), u16(a.width), u16(a.height), p16(a.start), p16(a.extent)});
}

inline void fill_arc(Drawable target, const ArcBox& a) {
    if (!join_arc(X_PolyFillArc, target, a))
        XFillArc(x11_disp, target, g_c, a.x, a.y, a.width, a.height, a.start, a.extent);
}

} // namespace grx
