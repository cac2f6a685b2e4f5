// Sends pictures to the server and reads them from it, in shared memory where the server offers it and the picture is
// large enough to gain by it, by plain requests otherwise.
#include "drawing/transfer.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>

#include <algorithm>
#include <cstddef>
#include <sys/ipc.h>
#include <sys/shm.h>

#include "system/block.h"
#include "display/last_error.h"
#include "display/images.h"
#include "drawing/forget_drawing.h"
#include "xt_ini_t.h"

namespace {

constexpr std::size_t kWorthSharing = 64 * 1024;

constexpr int kSharedStripRows = 100; // the server reads one strip while the next is made

// Two segments take turns, so that one picture is made while the server reads the other.
grx::SharedSegment segments[2];
bool second = false;

grx::SharedSegment& next_segment() {
    second = !second;
    return segments[second ? 1 : 0];
}

} // namespace

namespace grx {

bool SharedSegment::ensure(std::size_t bytes) {
    if (unavailable_) return false;
    if (bytes <= size_) return true;
    release();
    return obtain(bytes);
}

void SharedSegment::settle() {
    if (busy_until_ > LastKnownRequestProcessed(x11_disp)) XSync(x11_disp, False);
    busy_until_ = 0;
}

bool SharedSegment::obtain(std::size_t bytes) {
    unavailable_ = XShmQueryExtension(x11_disp) == 0 || !create(bytes) || !attach();
    if (unavailable_) release();
    return !unavailable_;
}

bool SharedSegment::create(std::size_t bytes) {
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

// A server on another machine refuses with an error, which the library's handler counts.
bool SharedSegment::attach() {
    const INT errors = x_error_count();
    const bool asked = XShmAttach(x11_disp, &info_) != 0;
    XSync(x11_disp, False);
    shmctl(info_.shmid, IPC_RMID, nullptr); // the system frees it when both sides have detached it
    return asked && x_error_count() == errors;
}

void SharedSegment::release() {
    if (size_ == 0) return;
    if (!unavailable_) XShmDetach(x11_disp, &info_);
    if (!unavailable_) XSync(x11_disp, False);
    shmdt(info_.shmaddr);
    size_ = 0;
    busy_until_ = 0;
}

void SharedSegment::forget() {
    release();
    *this = SharedSegment{};
}

void forget_shared_memory() {
    for (SharedSegment& segment : segments) segment.forget();
    second = false;
}

Transfer begin_shared(ImageSize size) {
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

int rows_of_strip(std::size_t bytes_per_row, int height) {
    constexpr std::size_t strip_bytes = 196 * 1024;
    const auto rows = static_cast<int>(strip_bytes / std::max<std::size_t>(bytes_per_row, 1));
    return std::clamp(rows, 1, std::max(height, 1));
}

Transfer begin_transfer(ImageSize size) {
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

void put_rows(Transfer& t, Drawable target, GC context, int x, int y, int first, int rows) {
    const auto width = static_cast<unsigned int>(t.image->width);
    const auto height = static_cast<unsigned int>(rows);
    const int from = t.row_of(first);
    if (t.shared()) {
        XShmPutImage(x11_disp, target, context, t.image, 0, from, x, y + first, width, height, False);
        t.segment->mark_busy();
    } else {
        XPutImage(x11_disp, target, context, t.image, 0, from, x, y + first, width, height);
    }
}

void end_transfer(Transfer& t) {
    drop_image(t.image); // the pixels belong to the block or the segment
    t.image = nullptr;
}

} // namespace grx
