// Sends pictures to the server and reads them from it, for the functions that show pictures and read the screen. Shared
// memory is used when the server offers it and the picture is large enough to gain by it, plain requests otherwise.
#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>

#include <algorithm>
#include <cstddef>

#include "system/block.h"
#include "display/images.h"
#include "xt_ini_t.h"

namespace grx {

/// Memory that the library and the server share. It is kept from picture to picture and grows when one needs more.
class SharedSegment {
  public:
    /// Makes room for that many bytes. False when the server cannot share memory with this process.
    bool ensure(std::size_t bytes);
    char* data() const { return info_.shmaddr; }
    XShmSegmentInfo* info() { return &info_; }

    /// Waits until the server has read what was put, so that the memory may be written again.
    void settle();
    void mark_busy() { busy_until_ = NextRequest(x11_disp) - 1; }

    /// Gives the memory back; whether another server shares any is to be found out anew.
    void forget();

  private:
    bool obtain(std::size_t bytes);
    bool create(std::size_t bytes);
    bool attach();
    void release();

    XShmSegmentInfo info_{};
    std::size_t size_ = 0;
    unsigned long busy_until_ = 0;
    bool unavailable_ = false;
};

/// An image that is filled and put strip by strip. In shared memory it has all rows, because the server reads them
/// later. Otherwise it has one strip, which stays in the cache of the processor.
struct Transfer {
    XImage* image = nullptr;
    Block<uchar> own;                 // the pixels when they are not shared
    SharedSegment* segment = nullptr; // the pixels when they are shared
    int strip_rows = 0;
    bool shared() const { return segment != nullptr; }
    /// The row of the image where the strip begins that starts at row `first` of the picture.
    int row_of(int first) const { return shared() ? first : 0; }
};

Transfer begin_shared(ImageSize size);

/// The number of rows of a strip: few enough for the cache of the processor and for what a local connection takes at
/// once.
int rows_of_strip(std::size_t bytes_per_row, int height);

/// Makes room for a picture of the screen's depth. There is no image when memory is short. end_transfer frees it.
Transfer begin_transfer(ImageSize size);

/// Puts `rows` rows of the picture, from row `first` on. Row 0 of the picture belongs at (x, y).
void put_rows(Transfer& t, Drawable target, GC context, int x, int y, int first, int rows);

void end_transfer(Transfer& t);

/// Reads a rectangle that lies inside the drawable and calls `use(image, first)` for each strip, which begins at row
/// `first`. Ends early when the server cannot give a strip.
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
