// PNG files by libpng, a row at a time, for pictures of files, of the clipboard and of icons. libpng leaves its functions by
// longjmp, so that its calls stand in one file, whose functions own nothing that would be destroyed.
#pragma once

#include <cstddef>
#include <cstdint>

#include "host_t.h"
#include "pure/true_bmp.h"

struct png_struct_def;
struct png_info_def;

namespace grx {

/// Where the bytes of a file come from, or go to; false when they do not.
struct PngBytes {
    bool (*move)(void* self, uchar* bytes, std::size_t count) = nullptr;
    void* self = nullptr;
    bool failed = false;
};

inline constexpr std::size_t kPngSignature = 8;
bool is_png(const uchar* bytes, std::size_t count);

/// Reads one. Results are 1 or a code of the additions; after a code only the destructor may be called.
class PngReader {
  public:
    PngReader() = default;
    PngReader(const PngReader&) = delete;
    PngReader& operator=(const PngReader&) = delete;
    ~PngReader();

    /// Reads the headers. `wanted`: bytes a pixel, or 0; a picture of places has one all the same.
    INT begin(PngBytes* source, int wanted, uint64_t file_size);
    const PictureForm& form() const { return form_; }
    /// The rows do not come one after the other: only rows() reads them.
    bool interlaced() const { return interlaced_; }

    INT row(uchar* out);
    INT rows(uchar* out, std::size_t row_bytes);
    INT end();

  private:
    INT fault() const;
    void set_form(int wanted);
    void set_places(int colour, int depth);
    void set_colours(int wanted, int depth, bool alpha);

    png_struct_def* png_ = nullptr;
    png_info_def* info_ = nullptr;
    bool no_memory_ = false;
    bool interlaced_ = false;
    PictureForm form_;
};

/// Writes one; the same rules.
class PngWriter {
  public:
    PngWriter() = default;
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;
    ~PngWriter();

    INT begin(PngBytes* target, const PictureForm& form);
    INT row(const uchar* in);
    INT end();

  private:
    INT fault() const;
    void set_form(const PictureForm& form);

    png_struct_def* png_ = nullptr;
    png_info_def* info_ = nullptr;
    PngBytes* target_ = nullptr;
    bool no_memory_ = false;
};

} // namespace grx
