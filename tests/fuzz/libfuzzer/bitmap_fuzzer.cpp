// Bitmap files: whatever they hold, reading gives a whole picture or nothing; what is written again reads the same.
#include "host_f.h"
#include "xt_gfx_f.h"
#include "xt_loc_f.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr INT for_writing = 1;

struct MemoryFile {
    const std::uint8_t* data = nullptr;
    std::size_t size = 0;
    char* written = nullptr;
    std::size_t written_size = 0;
} file;

struct Picture {
    uchar* pixels = nullptr;
    UNSIGNED_INT4 width = 0, height = 0, size = 0;
    INT colours = 0;
};

void require(bool holds) {
    if (!holds) std::abort();
}

Picture read() {
    char nowhere[] = "", name[] = "memory";
    Picture p;
    const INT result = lit_fichier_bitmap(nowhere, name, &p.pixels, &p.width, &p.height, &p.size, &p.colours);
    require(result == 0 || (result == 1 && p.pixels == nullptr));
    if (p.pixels == nullptr) return p;
    require(p.width > 0 && p.height > 0 && p.size == p.width * p.height);
    require(p.colours == 16 || p.colours == 256);
    require(p.size <= 2 * file.size + (1U << 21)); // no more than the file's means, and a little
    return p;
}

void release(const Picture& p) {
    if (p.pixels != nullptr) grx_free(reinterpret_cast<char*>(p.pixels), p.size);
}

// 16 colours of even width come back as they were.
void write_and_read(const Picture& first) {
    char nowhere[] = "", name[] = "memory";
    for (UNSIGNED_INT4 i = 0; i < first.size; ++i) first.pixels[i] &= 15;
    const auto width = static_cast<INT>(first.width), height = static_cast<INT>(first.height);
    require(ecrit_fichier_bitmap(nowhere, name, first.pixels, width, height) == 0);
    file.data = reinterpret_cast<const std::uint8_t*>(file.written);
    file.size = file.written_size;
    const Picture second = read();
    require(second.pixels != nullptr && second.width == first.width && second.height == first.height);
    if (first.width % 2 == 0) require(std::memcmp(first.pixels, second.pixels, first.size) == 0);
    release(second);
    std::free(file.written);
    file.written = nullptr;
}

} // namespace

extern "C" INT ftext_open(FILE** fd, char*, char*, INT mode) {
    if (mode == for_writing)
        *fd = open_memstream(&file.written, &file.written_size);
    else
        *fd = fmemopen(const_cast<std::uint8_t*>(file.data), file.size, "rb");
    return *fd != nullptr ? 0 : -1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    file = {data, size};
    const Picture picture = read();
    if (picture.pixels != nullptr) write_and_read(picture);
    release(picture);
    return 0;
}
