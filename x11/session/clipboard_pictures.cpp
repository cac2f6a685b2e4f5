// Pictures on the clipboard for the application: the bytes of PNG files, made and read by libpng where the application has
// pixels.
#include <png.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>

#include "system/block.h"
#include "session/clipboard.h"
#include "system/trace.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_presse_papiers.h"

namespace {

using grx::Block;

constexpr INT kLongestSide = 32767;
constexpr int64_t kMostPixels = 64'000'000;
constexpr std::size_t kBytesPerPixel = 3;

bool is_png(std::string_view bytes) {
    constexpr std::array<unsigned char, 8> start{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    return bytes.size() >= start.size() && std::memcmp(bytes.data(), start.data(), start.size()) == 0;
}

bool usable_sides(int64_t width, int64_t height) {
    return width >= 1 && height >= 1 && width <= kLongestSide && height <= kLongestSide
           && width * height <= kMostPixels;
}

// -- libpng's description of a picture, freed at its end

class Picture {
  public:
    Picture() { image_.version = PNG_IMAGE_VERSION; }
    Picture(INT width, INT height) : Picture() { set(width, height); }
    ~Picture() { png_image_free(&image_); }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    png_image* get() { return &image_; }
    INT width() const { return static_cast<INT>(image_.width); }
    INT height() const { return static_cast<INT>(image_.height); }
    std::size_t size() const { return kBytesPerPixel * image_.width * image_.height; }

    bool begin(std::string_view file) {
        if (png_image_begin_read_from_memory(&image_, file.data(), file.size()) == 0) return false;
        image_.format = PNG_FORMAT_RGB;
        return usable_sides(image_.width, image_.height);
    }
    bool read(Block<char>& pixels) {
        constexpr png_byte full = 255;
        const png_color white{full, full, full};
        return png_image_finish_read(&image_, &white, pixels.data(), 0, nullptr) != 0;
    }

  private:
    void set(INT width, INT height) {
        image_.width = static_cast<png_uint_32>(width);
        image_.height = static_cast<png_uint_32>(height);
        image_.format = PNG_FORMAT_RGB;
    }
    png_image image_{};
};

// The file of a picture, with a zero behind; empty when memory is short.
Block<char> file_of(Picture& picture, const unsigned char* pixels) {
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(*picture.get());
    Block<char> file(size + 1);
    if (!file || png_image_write_to_memory(picture.get(), file.data(), &size, 0, pixels, 0, nullptr) == 0) return {};
    if (!file.resize(size + 1)) return {};
    file[size] = '\0';
    return file;
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
    Picture picture(largeur, hauteur);
    return grx::offer_block(selection, grx::Content::Png, file_of(picture, rvb));
}

INT grx_recup_image_presse_papiers(INT selection, const unsigned char** rvb, INT* largeur, INT* hauteur) {
    if (const INT fault = grx::selection_fault(selection); fault != 1) return fault;
    if (rvb == nullptr || largeur == nullptr || hauteur == nullptr)
        return grx::refused(GRX_ECHEC_PARAMETRE, "rvb, largeur, hauteur");
    Block<char> file;
    std::size_t size = 0;
    const INT result = fetch_png(selection, file, size);
    if (result != 1) return result;
    Picture picture;
    if (!picture.begin({file.data(), size})) return GRX_ECHEC_FORMAT;
    Block<char> pixels(picture.size() + 1);
    if (!pixels) return GRX_ECHEC_MEMOIRE;
    if (!picture.read(pixels)) return GRX_ECHEC_FORMAT;
    *largeur = picture.width();
    *hauteur = picture.height();
    *rvb = reinterpret_cast<const unsigned char*>(grx::keep_given(std::move(pixels)));
    return 1;
}
}
