// Bitmap files of any kind, read as pictures.
#include "picture_checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return picture_checks::check_picture(data, size);
}
