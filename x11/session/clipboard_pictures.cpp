// Pictures on the clipboard for the application: the bytes of PNG files, made and read where the application has pixels.
#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

#include "system/block.h"
#include "system/picture_reader.h"
#include "system/png_codec.h"
#include "session/clipboard.h"
#include "system/trace.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_presse_papiers.h"

namespace {

using grx::Block;

constexpr INT kLongestSide = 32767;
constexpr int64_t kMostPixels = 64'000'000;
constexpr int kBytesPerPixel = 3;

bool is_png(std::string_view bytes) {
    return grx::is_png(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
}

bool usable_sides(int64_t width, int64_t height) {
    return width >= 1 && height >= 1 && width <= kLongestSide && height <= kLongestSide
           && width * height <= kMostPixels;
}

// Red and blue change places: pictures of the clipboard begin with red.
void turn(unsigned char* to, const unsigned char* from, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i, to += kBytesPerPixel, from += kBytesPerPixel) {
        const unsigned char first = from[0], last = from[2];
        to[0] = last;
        to[1] = from[1];
        to[2] = first;
    }
}

// The bytes of a file that is made, in a block that grows.
struct Growing {
    Block<char> bytes;
    std::size_t used = 0;

    static bool take(void* self, unsigned char* from, std::size_t count) {
        auto& file = *static_cast<Growing*>(self);
        constexpr std::size_t least = 4096;
        const std::size_t needed = file.used + count + 1;
        if (needed > file.bytes.size() && !file.bytes.resize(std::max(needed, file.bytes.size() * 2 + least)))
            return false;
        std::memcpy(file.bytes.data() + file.used, from, count);
        file.used += count;
        return true;
    }
};

bool write_png(Growing& file, const unsigned char* pixels, INT width, INT height) {
    grx::PictureForm form;
    form.width = width;
    form.height = height;
    form.bytes = kBytesPerPixel;
    Block<unsigned char> row(form.row_bytes());
    grx::PngBytes target{Growing::take, &file};
    grx::PngWriter writer;
    if (!row || writer.begin(&target, form) != 1) return false;
    for (INT y = 0; y < height; ++y, pixels += form.row_bytes()) {
        turn(row.data(), pixels, static_cast<std::size_t>(width));
        if (writer.row(row.data()) != 1) return false;
    }
    return writer.end() == 1;
}

// The file of a picture, with a zero behind; empty when memory is short.
Block<char> file_of(const unsigned char* pixels, INT width, INT height) {
    Growing file;
    if (!write_png(file, pixels, width, height) || !file.bytes.resize(file.used + 1)) return {};
    file.bytes[file.used] = '\0';
    return std::move(file.bytes);
}

INT fetch_png(INT selection, Block<char>& file, std::size_t& size) {
    const grx::Content offered = grx::offered(selection);
    if (offered == grx::Content::Text) return GRX_ECHEC_ABSENT;
    grx::SelectionFetch fetch;
    const bool own = offered == grx::Content::Png;
    const INT result = own ? 1 : grx::fetch_target(selection, "image/png", fetch);
    if (result != 1) return result;
    const std::string_view bytes = own ? grx::offered_bytes(selection) : fetch.bytes();
    if (!is_png(bytes)) return GRX_ECHEC_FORMAT;
    size = bytes.size();
    file = own ? Block<char>(size + 1) : fetch.take_block();
    if (!file) return GRX_ECHEC_MEMOIRE;
    if (own) bytes.copy(file.data(), size);
    return 1;
}

} // namespace

extern "C" {

INT grx_affecte_png_presse_papiers(INT selection, const unsigned char* octets, INT nombre) {
    if (const INT fault = grx::selection_fault(selection); fault != 1) return fault;
    if (octets == nullptr || nombre < 1) return grx::refused(GRX_ECHEC_PARAMETRE, "octets, nombre", nombre);
    const std::string_view bytes(reinterpret_cast<const char*>(octets), static_cast<std::size_t>(nombre));
    if (!is_png(bytes)) return grx::refused(GRX_ECHEC_FORMAT, "octets");
    Block<char> file(bytes.size() + 1);
    if (file) bytes.copy(file.data(), bytes.size());
    return grx::offer_block(selection, grx::Content::Png, std::move(file));
}

INT grx_recup_png_presse_papiers(INT selection, const unsigned char** octets, INT* nombre) {
    if (const INT fault = grx::selection_fault(selection); fault != 1) return fault;
    if (octets == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "octets");
    Block<char> file;
    std::size_t size = 0;
    const INT result = fetch_png(selection, file, size);
    if (result != 1) return result;
    if (nombre != nullptr) *nombre = static_cast<INT>(size);
    *octets = reinterpret_cast<const unsigned char*>(grx::keep_given(std::move(file)));
    return 1;
}

INT grx_affecte_image_presse_papiers(INT selection, const unsigned char* rvb, INT largeur, INT hauteur) {
    if (const INT fault = grx::selection_fault(selection); fault != 1) return fault;
    if (rvb == nullptr || !usable_sides(largeur, hauteur))
        return grx::refused(GRX_ECHEC_PARAMETRE, "rvb, largeur, hauteur");
    return grx::offer_block(selection, grx::Content::Png, file_of(rvb, largeur, hauteur));
}

INT grx_recup_image_presse_papiers(INT selection, const unsigned char** rvb, INT* largeur, INT* hauteur) {
    if (const INT fault = grx::selection_fault(selection); fault != 1) return fault;
    if (rvb == nullptr || largeur == nullptr || hauteur == nullptr)
        return grx::refused(GRX_ECHEC_PARAMETRE, "rvb, largeur, hauteur");
    Block<char> file;
    std::size_t size = 0;
    const INT result = fetch_png(selection, file, size);
    if (result != 1) return result;
    grx::PictureReader reader;
    const grx::PictureBytes bytes({reinterpret_cast<const unsigned char*>(file.data()), size});
    if (const INT fault = reader.begin(bytes, kBytesPerPixel); fault != 1) return fault;
    const grx::PictureForm& form = reader.form();
    if (!usable_sides(form.width, form.height)) return GRX_ECHEC_FORMAT;
    const std::size_t count = static_cast<std::size_t>(form.width) * static_cast<std::size_t>(form.height);
    Block<char> pixels(count * kBytesPerPixel + 1);
    if (!pixels) return GRX_ECHEC_MEMOIRE;
    auto* const colours = reinterpret_cast<unsigned char*>(pixels.data());
    if (const INT fault = reader.read_all(colours); fault != 1) return fault;
    turn(colours, colours, count);
    *largeur = static_cast<INT>(form.width);
    *hauteur = static_cast<INT>(form.height);
    *rvb = reinterpret_cast<const unsigned char*>(grx::keep_given(std::move(pixels)));
    return 1;
}
}
