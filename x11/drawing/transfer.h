// Whole pictures to and from the server: through shared memory when the server offers it and the picture is large
// enough to gain, by plain requests otherwise.
#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>
#include <sys/ipc.h>
#include <sys/shm.h>

#include <algorithm>
#include <cstddef>

#include "system/block.h"
#include "display/images.h"
#include "display/connection.h"
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

/// An image to be filled and put strip by strip. A shared one holds all rows, for the server reads it later; any other
/// holds one strip, which stays in the processor's cache.
struct Transfer {
    XImage* image = nullptr;
    Block<uchar> own;                 // its pixels when they are not shared
    SharedSegment* segment = nullptr; // where its pixels are shared
    int strip_rows = 0;
    bool shared() const { return segment != nullptr; }
    /// Row of the image at which the strip from row `first` of the picture on stands.
    int place_of(int first) const { return shared() ? first : 0; }
};

inline constexpr std::size_t kWorthSharing = 64 * 1024;
inline constexpr int kSharedStripRows = 100; // the server works on one while the next is made

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
    t.strip_rows = kSharedStripRows;
    return t;
}

/// Rows of a strip: few enough for the processor's cache and for what a local connection takes at once.
inline int rows_of_strip(std::size_t bytes_per_row, int height) {
    constexpr std::size_t strip_bytes = 196 * 1024;
    const auto rows = static_cast<int>(strip_bytes / std::max<std::size_t>(bytes_per_row, 1));
    return std::clamp(rows, 1, std::max(height, 1));
}

/// Room for a picture of the screen's depth; no image when memory is short.
inline Transfer begin_transfer(ImageSize size) {
    Transfer t = begin_shared(size);
    if (t.shared()) return t;
    constexpr int pad = 32;
    t.image = make_image(nullptr, size, profondeur_ecran, pad, 0);
    if (t.image == nullptr) return t;
    const auto row_bytes = static_cast<std::size_t>(t.image->bytes_per_line);
    t.strip_rows = t.image->height = rows_of_strip(row_bytes, size.height);
    t.image->byte_order = native_byte_order();
    t.own = Block<uchar>::raw(row_bytes * static_cast<std::size_t>(t.strip_rows));
    if (!t.own) {
        drop_image(t.image);
        t.image = nullptr;
        return t;
    }
    t.image->data = reinterpret_cast<char*>(t.own.data());
    return t;
}

/// Puts `rows` rows of the picture from row `first` on, whose row 0 stands at (x, y).
inline void put_rows(Transfer& t, Drawable target, GC context, int x, int y, int first, int rows) {
    const auto width = static_cast<unsigned int>(t.image->width);
    const auto height = static_cast<unsigned int>(rows);
    const int from = t.place_of(first);
    if (t.shared()) {
        XShmPutImage(x11_disp, target, context, t.image, 0, from, x, y + first, width, height, False);
        t.segment->mark_busy();
    } else {
        XPutImage(x11_disp, target, context, t.image, 0, from, x, y + first, width, height);
    }
}

inline void end_transfer(Transfer& t) {
    drop_image(t.image); // its pixels are the block's, or shared
    t.image = nullptr;
}

/// Reads a rectangle that lies inside the drawable: `use(image, first)` for each strip, from row `first` on. Ends early
/// when the server cannot give it.
template <class Use>
void read_rectangle(Drawable from, int x, int y, ImageSize size, Use use) {
    Transfer t = begin_shared(size);
    if (t.shared()) {
        if (XShmGetImage(x11_disp, from, t.image, x, y, AllPlanes) != 0) use(t.image, 0);
        end_transfer(t);
        return;
    }
    const int strip = rows_of_strip(static_cast<std::size_t>(size.width) * sizeof(UNSIGNED_INT4), size.height);
    for (int first = 0; first < size.height; first += strip) {
        const auto rows = static_cast<unsigned int>(std::min(strip, size.height - first));
        XImage* const got =
            XGetImage(x11_disp, from, x, y + first, static_cast<unsigned int>(size.width), rows, AllPlanes, ZPixmap);
        if (got == nullptr) return;
        use(got, first);
        XDestroyImage(got);
    }
}

} // namespace grx
