// Writes pictures as PNG and BMP files, whole or in bands, for the functions of files and of the clipboard.
#pragma once

#include <optional>

#include "host_t.h"
#include "pure/true_bmp.h"
#include "system/block.h"
#include "system/png_codec.h"
#include "system/whole_file.h"

namespace grx {

/// Results are 1 or a code of the additions.
class PictureWriter {
  public:
    INT begin(const char* name, const PictureForm& form, bool bmp);
    int64_t rows_left() const { return form_.height - next_; }
    const PictureForm& form() const { return form_; }

    /// GRX_ECHEC_PARAMETRE for a place that the palette lacks.
    INT write_rows(const uchar* pixels, int64_t count);
    /// The target becomes the new file. All rows must have been written.
    INT finish();

  private:
    INT begin_png();
    INT begin_bmp();
    bool places_known(const uchar* row) const;
    INT write_bmp_row(const uchar* row);
    bool flush();
    bool write(const uchar* bytes, std::size_t count);
    static bool move_to(void* self, uchar* bytes, std::size_t count);

    WholeFile file_;
    PictureForm form_;
    PngBytes target_;
    std::optional<PngWriter> png_;
    BmpLayout layout_;
    Block<uchar> buffer_; // bytes that are not written yet; of a BMP one row
    std::size_t used_ = 0;
    int64_t next_ = 0;
};

} // namespace grx
