// Whole pictures to and from the server: through shared memory when the server offers it and the picture is large
// enough to gain, by plain requests otherwise.
#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>

#include <algorithm>
#include <cstddef>
#include <sys/ipc.h>
#include <sys/shm.h>

#include "system/block.h"
#include "display/images.h"
#include "xt_ini_t.h"

namespace grx {

/// A segment that both sides see, kept and enlarged from picture to picture.
class SharedSegment {
  public:
    /// Room for that many bytes; false when the server cannot share memory with this process.
    bool ensure(std::size_t bytes);
    char* data() const { return info_.shmaddr; }
    XShmSegmentInfo* info() { return &info_; }

    /// Waits until the server has read what was put; then the memory may be written again.
    void settle();
    void mark_busy() { busy_until_ = NextRequest(x11_disp) - 1; }

  private:
    bool obtain(std::size_t bytes);
    bool create(std::size_t bytes);
    // A server elsewhere refuses, with an error that the library's handler counts.
    bool attach();
    void release();

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
    int row_of(int first) const { return shared() ? first : 0; }
};

Transfer begin_shared(ImageSize size);

/// Rows of a strip: few enough for the processor's cache and for what a local connection takes at once.
int rows_of_strip(std::size_t bytes_per_row, int height);

/// Room for a picture of the screen's depth; no image when memory is short.
Transfer begin_transfer(ImageSize size);

/// Puts `rows` rows of the picture from row `first` on, whose row 0 stands at (x, y).
void put_rows(Transfer& t, Drawable target, GC context, int x, int y, int first, int rows);

void end_transfer(Transfer& t);

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
