// Reads pictures of PNG and BMP files, whole or in bands, for the functions of files, icons and the clipboard.
#include "system/picture_reader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "grx_plus_erreurs.h"
#include "pure/true_colour.h"

namespace grx {

// -- bytes

namespace {

uint64_t regular_size(FILE* file) {
    struct stat status {};
    const bool regular = fstat(fileno(file), &status) == 0 && S_ISREG(status.st_mode);
    return regular ? static_cast<uint64_t>(status.st_size) : 0;
}

} // namespace

PictureBytes::PictureBytes(FILE* file) : file_(file), size_(file != nullptr ? regular_size(file) : 0) {}

std::size_t PictureBytes::read_some(uchar* out, std::size_t count) {
    if (file_ != nullptr) return std::fread(out, 1, count, file_);
    const std::size_t there = std::min<std::size_t>(count, size_ - at_);
    if (there > 0) std::memcpy(out, bytes_.data() + at_, there);
    at_ += there;
    return there;
}

bool PictureBytes::seek(uint64_t place) {
    if (file_ != nullptr) return fseeko(file_, static_cast<off_t>(place), SEEK_SET) == 0;
    at_ = std::min(place, size_);
    return place <= size_;
}

FILE* open_regular(const char* name) {
    const int descriptor = open(name, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0) return nullptr;
    struct stat status {};
    const bool regular = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    FILE* const file = regular ? fdopen(descriptor, "rb") : nullptr;
    if (file == nullptr) close(descriptor);
    return file;
}

// -- rows

namespace {

// Places become colours in the room of the row, from its end so that none is overwritten before it is read.
template <std::size_t Bytes>
void spread_places(uchar* row, std::size_t count, const PicturePalette& palette) {
    for (std::size_t i = count; i-- > 0;) std::memcpy(row + Bytes * i, palette[row[i]].data(), Bytes);
}

// Three bytes become four, the same way.
void spread_opaque(uchar* row, std::size_t count) {
    for (std::size_t i = count; i-- > 0;) {
        std::memmove(row + kAlphaBytes * i, row + kTrueBytes * i, kTrueBytes);
        row[kAlphaBytes * i + 3] = kOpaque;
    }
}

// Four bytes become three, with white behind.
void lay_on_white(uchar* out, const uchar* in, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) put_bgr(out + kTrueBytes * i, over(bgra_at(in + kAlphaBytes * i), kWhite));
}

void lay_palette_on_white(PictureForm& form) {
    for (auto& entry : form.palette) {
        put_bgr(entry.data(), over(bgra_at(entry.data()), kWhite));
        entry[3] = kOpaque;
    }
}

} // namespace

INT PictureReader::begin(const PictureBytes& bytes, int wanted) {
    bytes_ = bytes;
    if (bytes_.size() == 0) return GRX_ECHEC_FORMAT;
    std::array<uchar, kPngSignature> start{};
    const std::size_t got = bytes_.read_some(start.data(), start.size());
    if (!bytes_.seek(0)) return GRX_ECHEC_FORMAT;
    const INT result = is_png(start.data(), got) ? begin_png(wanted) : begin_bmp();
    if (result == 1) set_wanted(wanted);
    return result;
}

bool PictureReader::move_from(void* self, uchar* bytes, std::size_t count) {
    return static_cast<PictureReader*>(self)->bytes_.read(bytes, count);
}

INT PictureReader::begin_png(int wanted) {
    source_ = {move_from, this};
    png_.emplace();
    const INT result = png_->begin(&source_, wanted, bytes_.size());
    native_ = png_->form();
    return result;
}

INT PictureReader::begin_bmp() {
    std::array<uchar, kBmpHeadMost> head;
    const std::size_t got = bytes_.read_some(head.data(), head.size());
    const auto file = read_bmp_head({head.data(), got}, bytes_.size());
    if (!file) return GRX_ECHEC_FORMAT;
    bmp_ = *file;
    native_ = bmp_.form;
    const auto wide = static_cast<std::size_t>(native_.width) * kAlphaBytes; // and room for its form in memory
    bmp_row_ = Block<uchar>::raw(static_cast<std::size_t>(bmp_.layout.row_bytes) + wide);
    return bmp_row_ ? 1 : GRX_ECHEC_MEMOIRE;
}

void PictureReader::set_wanted(int wanted) {
    form_ = native_;
    if (wanted == 0) return;
    form_.bytes = wanted;
    if (native_.bytes == 1 && wanted == 3) lay_palette_on_white(native_);
    form_.colours = 0;
    form_.palette = {};
}

// One row as the file has it, at the beginning of the room for a row of the form wanted.
INT PictureReader::read_native(uchar* row) {
    if (png_) return png_->row(row);
    uchar* const read = bmp_row_.data();
    if (!bytes_.seek(bmp_.layout.row_at(next_, native_.height))
        || !bytes_.read(read, static_cast<std::size_t>(bmp_.layout.row_bytes)))
        return GRX_ECHEC_FORMAT;
    uchar* const unpacked = read + bmp_.layout.row_bytes;
    unpack_bmp_row(bmp_, read, unpacked);
    if (native_.bytes > form_.bytes) {
        lay_on_white(row, unpacked, static_cast<std::size_t>(form_.width));
    } else {
        std::memcpy(row, unpacked, native_.row_bytes());
    }
    return 1;
}

INT PictureReader::finish_row(uchar* row) const {
    const auto count = static_cast<std::size_t>(form_.width);
    if (native_.bytes == 1 && native_.colours < 256) {
        const bool known = std::all_of(row, row + count, [&](uchar place) { return place < native_.colours; });
        if (!known) return GRX_ECHEC_FORMAT;
    }
    if (native_.bytes == 1 && form_.bytes == 3) spread_places<kTrueBytes>(row, count, native_.palette);
    if (native_.bytes == 1 && form_.bytes == 4) spread_places<kAlphaBytes>(row, count, native_.palette);
    if (native_.bytes == 3 && form_.bytes == 4) spread_opaque(row, count);
    return 1;
}

INT PictureReader::end_of_file() {
    return png_ && !held_ ? png_->end() : 1;
}

INT PictureReader::read_all(uchar* pixels) {
    const std::size_t row_bytes = form_.row_bytes();
    if (!png_ || !png_->interlaced()) return read_rows(pixels, form_.height);
    INT result = png_->rows(pixels, row_bytes);
    for (int64_t y = 0; y < form_.height && result == 1; ++y)
        result = finish_row(pixels + row_bytes * static_cast<std::size_t>(y));
    next_ = form_.height;
    return result == 1 ? png_->end() : result;
}

INT PictureReader::hold_interlaced() {
    const uint64_t size = uint64_t{form_.row_bytes()} * static_cast<uint64_t>(form_.height);
    if (size <= INT32_MAX) held_ = Block<uchar>::raw(static_cast<std::size_t>(size));
    if (!held_) return GRX_ECHEC_MEMOIRE;
    const INT result = read_all(held_.data());
    next_ = 0;
    return result;
}

INT PictureReader::read_rows(uchar* pixels, int64_t count) {
    const std::size_t row_bytes = form_.row_bytes();
    INT result = png_ && png_->interlaced() && !held_ ? hold_interlaced() : 1;
    for (; count > 0 && result == 1; --count, pixels += row_bytes) {
        if (held_) {
            std::memcpy(pixels, held_.data() + row_bytes * static_cast<std::size_t>(next_), row_bytes);
        } else {
            result = read_native(pixels);
            if (result == 1) result = finish_row(pixels);
        }
        if (++next_ == form_.height && result == 1) result = end_of_file();
    }
    return result;
}

} // namespace grx
