// Reads pictures of PNG and BMP files, whole or in bands, for the functions of files, icons and the clipboard.
#pragma once

#include <cstdint>
#include <cstdio>
#include <optional>
#include <span>

#include "host_t.h"
#include "pure/true_bmp.h"
#include "system/block.h"
#include "system/png_codec.h"

namespace grx {

/// The bytes of a file, from the disk or from memory.
class PictureBytes {
  public:
    PictureBytes() = default;
    explicit PictureBytes(std::span<const uchar> bytes) : bytes_(bytes), size_(bytes.size()) {}
    /// The file stays the caller's; it must be a regular one (size()).
    explicit PictureBytes(FILE* file);

    /// 0 for what is no file that can be read.
    uint64_t size() const { return size_; }
    /// As many as there are; `count` of them or false.
    std::size_t read_some(uchar* out, std::size_t count);
    bool read(uchar* out, std::size_t count) { return read_some(out, count) == count; }
    bool seek(uint64_t place);

  private:
    FILE* file_ = nullptr;
    std::span<const uchar> bytes_;
    uint64_t size_ = 0;
    uint64_t at_ = 0;
};

/// Opens a regular file to read it; null for anything else. Never waits.
FILE* open_regular(const char* name);

/// Results are 1 or a code of the additions.
class PictureReader {
  public:
    /// `wanted`: bytes a pixel, 0 for those of the file.
    INT begin(const PictureBytes& bytes, int wanted);
    /// What rows are like.
    const PictureForm& form() const { return form_; }

    /// All rows, once, instead of any other reading.
    INT read_all(uchar* pixels);
    /// The next rows, of which there must be as many.
    INT read_rows(uchar* pixels, int64_t count);
    int64_t rows_left() const { return form_.height - next_; }

  private:
    INT begin_png(int wanted);
    INT begin_bmp();
    void set_wanted(int wanted);
    INT read_native(uchar* row);
    INT finish_row(uchar* row) const;
    INT hold_interlaced();
    INT end_of_file();
    static bool move_from(void* self, uchar* bytes, std::size_t count);

    PictureBytes bytes_;
    PngBytes source_;
    std::optional<PngReader> png_;
    BmpFile bmp_;
    Block<uchar> bmp_row_;
    PictureForm native_, form_;
    Block<uchar> held_; // all rows of an interlaced picture that is read in bands
    int64_t next_ = 0;
};

} // namespace grx
