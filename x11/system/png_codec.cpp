// PNG files by libpng, a row at a time, for pictures of files, of the clipboard and of icons. libpng leaves its functions by
// longjmp, so that no function of this file owns anything that would be destroyed.
#include "system/png_codec.h"

#include <png.h>

#include <array>
#include <cstring>

#include "grx_plus_erreurs.h"
#include "grx_plus_images.h"
#include "xt_loc_f.h"

namespace {

// libpng does not tell the size of what it frees: it stands before each block.
constexpr std::size_t kHead = alignof(std::max_align_t);

png_voidp give_memory(png_structp png, png_alloc_size_t size) {
    constexpr png_alloc_size_t most = UINT32_MAX - kHead;
    char* const block = size <= most ? grx_malloc(static_cast<UNSIGNED_INT>(size + kHead)) : nullptr;
    if (block == nullptr) {
        *static_cast<bool*>(png_get_mem_ptr(png)) = true;
        return nullptr;
    }
    std::memcpy(block, &size, sizeof size);
    return block + kHead;
}

void take_memory(png_structp, png_voidp memory) {
    if (memory == nullptr) return;
    char* const block = static_cast<char*>(memory) - kHead;
    png_alloc_size_t size = 0;
    std::memcpy(&size, block, sizeof size);
    grx_free(block, static_cast<UNSIGNED_INT>(size + kHead));
}

[[noreturn]] void leave(png_structp png, png_const_charp) {
    png_longjmp(png, 1);
}

void say_nothing(png_structp, png_const_charp) {
    // additions print nothing
}

void move_bytes(png_structp png, png_bytep bytes, std::size_t count) {
    auto& end = *static_cast<grx::PngBytes*>(png_get_io_ptr(png));
    if (end.move(end.self, bytes, count)) return;
    end.failed = true;
    png_error(png, "");
}

void no_flush(png_structp) {}

// Chunks with texts, times, profiles and the like are skipped: they take memory and nobody looks at them.
void skip_chunks(png_structp png) {
    png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    const std::array<png_byte, 5> read{'p', 'H', 'Y', 's', 0};
    png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_AS_DEFAULT, read.data(), 1);
}

// Deflate makes a file smaller by less than this. What claims more cannot be there.
bool can_hold(uint64_t file_size, uint64_t rows, uint64_t row_bytes) {
    constexpr uint64_t most = 1032, little = 4096;
    return rows * row_bytes <= file_size * most + little;
}

} // namespace

namespace grx {

bool is_png(const uchar* bytes, std::size_t count) {
    return count >= kPngSignature && png_sig_cmp(bytes, 0, kPngSignature) == 0;
}

// -- reading

PngReader::~PngReader() {
    if (png_ != nullptr) png_destroy_read_struct(&png_, &info_, nullptr);
}

INT PngReader::fault() const {
    return no_memory_ ? GRX_ECHEC_MEMOIRE : GRX_ECHEC_FORMAT;
}

INT PngReader::begin(PngBytes* source, int wanted, uint64_t file_size) {
    png_ = png_create_read_struct_2(
        PNG_LIBPNG_VER_STRING, nullptr, leave, say_nothing, &no_memory_, give_memory, take_memory);
    if (png_ == nullptr) return GRX_ECHEC_MEMOIRE;
    info_ = png_create_info_struct(png_);
    if (info_ == nullptr) return GRX_ECHEC_MEMOIRE;
    if (setjmp(png_jmpbuf(png_)) != 0) return fault();
    png_set_read_fn(png_, source, move_bytes);
    png_set_user_limits(png_, GRX_IMAGE_COTE_MAX, GRX_IMAGE_COTE_MAX);
    skip_chunks(png_);
    png_read_info(png_, info_);
    if (!can_hold(file_size, png_get_image_height(png_, info_), png_get_rowbytes(png_, info_))) return GRX_ECHEC_FORMAT;
    set_form(wanted);
    interlaced_ = png_set_interlace_handling(png_) > 1;
    png_read_update_info(png_, info_);
    if (png_get_rowbytes(png_, info_) != form_.row_bytes()) return GRX_ECHEC_FORMAT;
    return 1;
}

void PngReader::set_form(int wanted) {
    const int colour = png_get_color_type(png_, info_), depth = png_get_bit_depth(png_, info_);
    const bool transparent = png_get_valid(png_, info_, PNG_INFO_tRNS) != 0;
    form_.width = png_get_image_width(png_, info_);
    form_.height = png_get_image_height(png_, info_);
    form_.per_metre = png_get_pixels_per_meter(png_, info_);
    if (depth == 16) png_set_scale_16(png_);
    const bool grey_places = colour == PNG_COLOR_TYPE_GRAY && !(depth == 16 && transparent);
    if (colour == PNG_COLOR_TYPE_PALETTE || grey_places) return set_places(colour, depth);
    set_colours(wanted, depth, transparent || (colour & PNG_COLOR_MASK_ALPHA) != 0);
}

void PngReader::set_places(int colour, int depth) {
    if (depth < 8) png_set_packing(png_);
    form_.bytes = 1;
    png_colorp colours = nullptr;
    png_bytep alphas = nullptr;
    png_color_16p clear = nullptr;
    int alpha_count = 0;
    png_get_tRNS(png_, info_, &alphas, &alpha_count, &clear);
    if (colour == PNG_COLOR_TYPE_PALETTE) {
        png_get_PLTE(png_, info_, &colours, &form_.colours);
    } else {
        form_.colours = depth < 8 ? 1 << depth : 256;
    }
    for (int i = 0; i < form_.colours; ++i) {
        const auto grey = static_cast<uchar>(i * 255 / (form_.colours > 1 ? form_.colours - 1 : 1));
        const png_color entry = colours != nullptr ? colours[i] : png_color{grey, grey, grey};
        const bool seen = colours != nullptr || clear == nullptr || i != clear->gray;
        const uchar opacity = colours != nullptr && i < alpha_count ? alphas[i] : static_cast<uchar>(seen ? 255 : 0);
        form_.palette[static_cast<std::size_t>(i)] = {entry.blue, entry.green, entry.red, opacity};
    }
}

void PngReader::set_colours(int wanted, int depth, bool alpha) {
    form_.bytes = wanted != 0 ? wanted : alpha ? 4 : 3;
    png_set_expand(png_);
    png_set_gray_to_rgb(png_);
    png_set_bgr(png_);
    if (alpha && form_.bytes == 3) {
        const auto full = static_cast<png_uint_16>(depth == 16 ? 0xFFFF : 0xFF);
        const png_color_16 white{0, full, full, full, full};
        png_set_background(png_, &white, PNG_BACKGROUND_GAMMA_SCREEN, 0, 1.0);
    }
    if (!alpha && form_.bytes == 4) png_set_add_alpha(png_, 0xFF, PNG_FILLER_AFTER);
}

INT PngReader::row(uchar* out) {
    if (setjmp(png_jmpbuf(png_)) != 0) return fault();
    png_read_row(png_, out, nullptr);
    return 1;
}

INT PngReader::rows(uchar* out, std::size_t row_bytes) {
    if (setjmp(png_jmpbuf(png_)) != 0) return fault();
    const int passes = interlaced_ ? PNG_INTERLACE_ADAM7_PASSES : 1;
    for (int pass = 0; pass < passes; ++pass)
        for (int64_t y = 0; y < form_.height; ++y)
            png_read_row(png_, out + row_bytes * static_cast<std::size_t>(y), nullptr);
    return 1;
}

INT PngReader::end() {
    if (setjmp(png_jmpbuf(png_)) != 0) return fault();
    png_read_end(png_, nullptr);
    return 1;
}

// -- writing

PngWriter::~PngWriter() {
    if (png_ != nullptr) png_destroy_write_struct(&png_, &info_);
}

INT PngWriter::fault() const {
    return no_memory_                              ? GRX_ECHEC_MEMOIRE
           : target_ != nullptr && target_->failed ? GRX_ECHEC_FICHIER
                                                   : GRX_ECHEC_FORMAT;
}

INT PngWriter::begin(PngBytes* target, const PictureForm& form) {
    target_ = target;
    png_ = png_create_write_struct_2(
        PNG_LIBPNG_VER_STRING, nullptr, leave, say_nothing, &no_memory_, give_memory, take_memory);
    if (png_ == nullptr) return GRX_ECHEC_MEMOIRE;
    info_ = png_create_info_struct(png_);
    if (info_ == nullptr) return GRX_ECHEC_MEMOIRE;
    if (setjmp(png_jmpbuf(png_)) != 0) return fault();
    png_set_write_fn(png_, target, move_bytes, no_flush);
    png_set_user_limits(png_, GRX_IMAGE_COTE_MAX, GRX_IMAGE_COTE_MAX);
    set_form(form);
    png_write_info(png_, info_);
    if (form.bytes != 1) png_set_bgr(png_);
    return 1;
}

void PngWriter::set_form(const PictureForm& form) {
    constexpr int quick = 3; // a drawing gets little smaller by more, and takes three times as long
    std::array<png_color, 256> colours{};
    std::array<png_byte, 256> alphas{};
    int transparent = 0;
    for (int i = 0; i < form.colours; ++i) {
        const auto at = static_cast<std::size_t>(i);
        colours[at] = {form.palette[at][2], form.palette[at][1], form.palette[at][0]};
        alphas[at] = form.palette[at][3];
        if (alphas[at] != 255) transparent = i + 1;
    }
    const int type = form.bytes == 1   ? PNG_COLOR_TYPE_PALETTE
                     : form.bytes == 3 ? PNG_COLOR_TYPE_RGB
                                       : PNG_COLOR_TYPE_RGB_ALPHA;
    png_set_IHDR(png_, info_, static_cast<png_uint_32>(form.width), static_cast<png_uint_32>(form.height), 8, type,
        PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (form.bytes == 1) png_set_PLTE(png_, info_, colours.data(), form.colours);
    if (transparent > 0) png_set_tRNS(png_, info_, alphas.data(), transparent, nullptr);
    const auto per_metre = static_cast<png_uint_32>(form.per_metre);
    if (per_metre > 0) png_set_pHYs(png_, info_, per_metre, per_metre, PNG_RESOLUTION_METER);
    png_set_compression_level(png_, quick);
    png_set_filter(png_, PNG_FILTER_TYPE_BASE, form.bytes == 1 ? PNG_FILTER_NONE : PNG_FILTER_SUB | PNG_FILTER_UP);
}

INT PngWriter::row(const uchar* in) {
    if (setjmp(png_jmpbuf(png_)) != 0) return fault();
    png_write_row(png_, in);
    return 1;
}

INT PngWriter::end() {
    if (setjmp(png_jmpbuf(png_)) != 0) return fault();
    png_write_end(png_, nullptr);
    return 1;
}

} // namespace grx
