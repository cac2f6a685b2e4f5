// PNG files, read as pictures. Most changes would be found by the checksums alone, so these are set right after most of them.
#include "picture_checks.h"

#include <zlib.h>

namespace {

constexpr std::size_t kSignature = 8, kAround = 12; // length, type and checksum

std::uint32_t four(const std::uint8_t* at) {
    return std::uint32_t{at[0]} << 24 | std::uint32_t{at[1]} << 16 | std::uint32_t{at[2]} << 8 | at[3];
}

void set_checksums(std::uint8_t* data, std::size_t size) {
    for (std::size_t at = kSignature; at + kAround <= size;) {
        const std::size_t length = four(data + at);
        if (length > size - at - kAround) return;
        const auto sum = static_cast<std::uint32_t>(crc32(0, data + at + 4, static_cast<uInt>(length + 4)));
        for (std::size_t i = 0; i < 4; ++i) data[at + 8 + length + i] = static_cast<std::uint8_t>(sum >> (24 - 8 * i));
        at += length + kAround;
    }
}

} // namespace

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

extern "C" std::size_t LLVMFuzzerCustomMutator(
    std::uint8_t* data, std::size_t size, std::size_t most, unsigned int seed) {
    size = LLVMFuzzerMutate(data, size, most);
    if (seed % 8 != 0) set_checksums(data, size);
    return size;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return picture_checks::check_picture(data, size);
}
