// Writes pictures as PNG and BMP files, whole or in bands, for the functions of files and of the clipboard.
#include "system/picture_writer.h"

#include <algorithm>
#include <cstring>

#include "grx_plus_erreurs.h"

namespace grx {

namespace {

constexpr std::size_t kBuffer = 64 * 1024;

} // namespace

INT PictureWriter::begin(const char* name, const PictureForm& form, bool bmp) {
    form_ = form;
    const auto head = make_bmp_head(form);
    if (bmp && !head) return GRX_ECHEC_FORMAT;
    if (const INT fault = file_.begin(name); fault != 1) return fault;
    layout_ = head ? head->layout : BmpLayout{};
    buffer_ = Block<uchar>(bmp ? static_cast<std::size_t>(layout_.row_bytes) : kBuffer);
    if (!buffer_) return GRX_ECHEC_MEMOIRE;
    return bmp ? begin_bmp() : begin_png();
}

INT PictureWriter::begin_bmp() {
    const auto head = make_bmp_head(form_);
    return file_.write(head->bytes.data(), head->size) ? 1 : GRX_ECHEC_FICHIER;
}

INT PictureWriter::begin_png() {
    target_ = {move_to, this};
    png_.emplace();
    return png_->begin(&target_, form_);
}

bool PictureWriter::move_to(void* self, uchar* bytes, std::size_t count) {
    return static_cast<PictureWriter*>(self)->write(bytes, count);
}

bool PictureWriter::write(const uchar* bytes, std::size_t count) {
    if (used_ + count > buffer_.size() && !flush()) return false;
    if (count > buffer_.size()) return file_.write(bytes, count);
    std::memcpy(buffer_.data() + used_, bytes, count);
    used_ += count;
    return true;
}

bool PictureWriter::flush() {
    const std::size_t count = std::exchange(used_, 0);
    return file_.write(buffer_.data(), count);
}

bool PictureWriter::places_known(const uchar* row) const {
    if (form_.bytes != 1 || form_.colours == 256) return true;
    return std::all_of(row, row + form_.width, [this](uchar place) { return place < form_.colours; });
}

INT PictureWriter::write_bmp_row(const uchar* row) {
    std::memcpy(buffer_.data(), row, form_.row_bytes()); // the rest is 0
    return file_.write_at(layout_.row_at(next_, form_.height), buffer_.data(), buffer_.size()) ? 1 : GRX_ECHEC_FICHIER;
}

INT PictureWriter::write_rows(const uchar* pixels, int64_t count) {
    for (; count > 0; --count, pixels += form_.row_bytes()) {
        if (!places_known(pixels)) return GRX_ECHEC_PARAMETRE;
        const INT result = png_ ? png_->row(pixels) : write_bmp_row(pixels);
        if (result != 1) return result;
        ++next_;
    }
    return 1;
}

INT PictureWriter::finish() {
    const INT ended = png_ ? png_->end() : 1;
    if (ended != 1) return ended;
    const bool done = (!png_ || flush()) && file_.finish();
    return done ? 1 : GRX_ECHEC_FICHIER;
}

} // namespace grx
