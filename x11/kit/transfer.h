// Whole pictures to and from the server: through shared memory when the server offers it and the picture is large
// enough to gain, by plain requests otherwise.
#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>
#include <sys/ipc.h>
#include <sys/shm.h>

#include <cstddef>

#include "kit/block.h"
#include "kit/images.h"
#include "kit/x_errors.h"
#include "xt_ini_t.h"

namespace grx {

/// A segment that both sides see, kept and enlarged from picture to picture.
class SharedSegment {
  public:
    /// Room for that many bytes; false when the server cannot share memory with this process.
    bool ensure(std::size_t bytes) {
        if (unavailable_) return false;
        if (bytes <= size_) return true;
        release();
        return obtain(bytes);
    }
    char* data() const { return info_.shmaddr; }
    XShmSegmentInfo* info() { return &info_; }

    /// Waits until the server has read what was put; then the memory may be written again.
    void settle() {
        if (busy_until_ > LastKnownRequestProcessed(x11_disp)) XSync(x11_disp, False);
        busy_until_ = 0;
    }
    void mark_busy() { busy_until_ = NextRequest(x11_disp) - 1; }

  private:
    bool obtain(std::size_t bytes) {
        unavailable_ = XShmQueryExtension(x11_disp) == 0 || !create(bytes) || !attach();
        if (unavailable_) release();
        return !unavailable_;
    }
    bool create(std::size_t bytes) {
        info_.shmid = shmget(IPC_PRIVATE, bytes, IPC_CREAT | 0600);
        if (info_.shmid < 0) return false;
        void* const address = shmat(info_.shmid, nullptr, 0);
        if (address == reinterpret_cast<void*>(-1)) {
            shmctl(info_.shmid, IPC_RMID, nullptr);
            return false;
        }
        info_.shmaddr = static_cast<char*>(address);
        info_.readOnly = False;
        size_ = bytes;
        return true;
    }
    // A server elsewhere refuses, with an error that the library's handler counts.
    bool attach() {
        const INT errors = x_error_count();
        const bool asked = XShmAttach(x11_disp, &info_) != 0;
        XSync(x11_disp, False);
        shmctl(info_.shmid, IPC_RMID, nullptr); // goes when both sides have let go
        return asked && x_error_count() == errors;
    }
    void release() {
        if (size_ == 0) return;
        if (!unavailable_) XShmDetach(x11_disp, &info_);
        if (!unavailable_) XSync(x11_disp, False);
        shmdt(info_.shmaddr);
        size_ = 0;
        busy_until_ = 0;
    }

    XShmSegmentInfo info_{};
    std::size_t size_ = 0;
    unsigned long busy_until_ = 0;
    bool unavailable_ = false;
};

/// An image to be filled and put, or got and read.
struct Transfer {
    XImage* image = nullptr;
    Block<uchar> own;                 // its pixels when they are not shared
    SharedSegment* segment = nullptr; // where its pixels are shared
    bool shared() const { return segment != nullptr; }
};

inline constexpr std::size_t kWorthSharing = 64 * 1024;

/// Two in turn: while the server reads one picture, the next is made in the other segment.
inline SharedSegment& next_segment() {
    static SharedSegment segments[2];
    static bool second = false;
    second = !second;
    return segments[second ? 1 : 0];
}

inline Transfer begin_shared(ImageSize size) {
    Transfer t;
    SharedSegment& segment = next_segment();
    const auto width = static_cast<unsigned int>(size.width);
    const auto height = static_cast<unsigned int>(size.height);
    const auto depth = static_cast<unsigned int>(profondeur_ecran);
    XImage* const image = XShmCreateImage(x11_disp, x11_vis, depth, ZPixmap, nullptr, segment.info(), width, height);
    if (image == nullptr) return t;
    const std::size_t bytes = static_cast<std::size_t>(image->bytes_per_line) * height;
    if (bytes < kWorthSharing || !segment.ensure(bytes)) {
        drop_image(image);
        return t;
    }
    segment.settle();
    image->data = segment.data();
    t.image = image;
    t.segment = &segment;
    return t;
}

/// Room for a picture of the screen's depth; no image when memory is short.
inline Transfer begin_transfer(ImageSize size) {
    Transfer t = begin_shared(size);
    if (t.shared()) return t;
    constexpr int pad = 32;
    t.image = make_image(nullptr, size, profondeur_ecran, pad, 0);
    if (t.image == nullptr) return t;
    t.image->byte_order = native_byte_order();
    t.own =
        Block<uchar>::raw(static_cast<std::size_t>(t.image->bytes_per_line) * static_cast<std::size_t>(size.height));
    if (!t.own) {
        drop_image(t.image);
        t.image = nullptr;
        return t;
    }
    t.image->data = reinterpret_cast<char*>(t.own.data());
    return t;
}

/// Puts `rows` rows of the image from row `first` on, its row 0 standing at (x, y).
inline void put_rows(Transfer& t, Drawable target, GC context, int x, int y, int first, int rows) {
    const auto width = static_cast<unsigned int>(t.image->width);
    const auto height = static_cast<unsigned int>(rows);
    if (t.shared()) {
        XShmPutImage(x11_disp, target, context, t.image, 0, first, x, y + first, width, height, False);
        t.segment->mark_busy();
    } else {
        XPutImage(x11_disp, target, context, t.image, 0, first, x, y + first, width, height);
    }
}

/// Reads a rectangle that lies inside the drawable; false when the server cannot give it.
inline bool get(Transfer& t, Drawable from, int x, int y) {
    if (t.shared()) return XShmGetImage(x11_disp, from, t.image, x, y, AllPlanes) != 0;
    const auto width = static_cast<unsigned int>(t.image->width);
    const auto height = static_cast<unsigned int>(t.image->height);
    XImage* const got = XGetImage(x11_disp, from, x, y, width, height, AllPlanes, ZPixmap);
    if (got == nullptr) return false;
    drop_image(t.image);
    t.image = got;
    return true;
}

inline void end_transfer(Transfer& t, bool owns_data = false) {
    if (t.image == nullptr) return;
    if (owns_data) {
        XDestroyImage(t.image); // got from the server, with its pixels
    } else {
        drop_image(t.image);
    }
    t.image = nullptr;
}

} // namespace grx
