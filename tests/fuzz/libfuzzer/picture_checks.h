// What holds of every PNG and BMP file: reading gives a whole picture or a code and nothing; bands give the same as the whole;
// what was read is written and reads the same again.
#pragma once

#include "grx_plus_erreurs.h"
#include "grx_plus_images.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace picture_checks {

constexpr std::size_t kMost = std::size_t{1} << 22; // larger pictures are read, but not looked at again

inline void require(bool holds) {
    if (!holds) std::abort();
}

inline std::size_t bytes_of(const GRX_IMAGE& image) {
    return static_cast<std::size_t>(image.largeur) * static_cast<std::size_t>(image.hauteur)
           * static_cast<std::size_t>(image.octets_par_pixel);
}

inline bool read(const std::uint8_t* data, std::size_t size, INT wanted, GRX_IMAGE& image) {
    grx_init_image(&image);
    image.octets_voulus = wanted;
    const INT result = grx_lit_image_memoire(data, static_cast<INT>(size), &image);
    require(result == 1 || result == GRX_ECHEC_FORMAT || result == GRX_ECHEC_MEMOIRE);
    require((result == 1) == (image.pixels != nullptr));
    if (result != 1) return false;
    require(image.largeur > 0 && image.hauteur > 0 && (wanted == 0 || image.octets_par_pixel == wanted));
    if (image.octets_par_pixel != 1) return true;
    for (std::size_t i = 0; i < bytes_of(image); ++i) require(image.pixels[i] < image.nb_couleurs);
    return true;
}

inline void check_bands(const std::string& name, const GRX_IMAGE& whole) {
    GRX_IMAGE image;
    grx_init_image(&image);
    const INT number = grx_ouvre_image(name.c_str(), &image);
    require(number > 0 && image.largeur == whole.largeur && image.hauteur == whole.hauteur);
    const std::size_t row = bytes_of(whole) / static_cast<std::size_t>(whole.hauteur);
    std::vector<unsigned char> band(3 * row);
    for (INT y = 0; y < whole.hauteur;) {
        const INT got = grx_lit_bande_image(number, 3, band.data());
        require(got > 0);
        require(std::memcmp(
                    band.data(), whole.pixels + row * static_cast<std::size_t>(y), row * static_cast<std::size_t>(got))
                == 0);
        y += got;
    }
    require(grx_lit_bande_image(number, 1, band.data()) == 0 && grx_ferme_image(number) == 1);
}

inline void write_again(const std::string& name, const GRX_IMAGE& image, INT format) {
    require(grx_ecrit_image(name.c_str(), &image, format) == 1);
    GRX_IMAGE again;
    grx_init_image(&again);
    require(grx_lit_image(name.c_str(), &again) == 1 && bytes_of(again) == bytes_of(image));
    require(std::memcmp(again.pixels, image.pixels, bytes_of(image)) == 0);
    grx_libere_image(&again);
    unlink(name.c_str());
}

inline int check_picture(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    static const std::string folder = "/dev/shm/grx_fuzz_" + std::to_string(getpid()) + "_";
    GRX_IMAGE image;
    for (const INT wanted : {3, 4})
        if (read(data, size, wanted, image)) grx_libere_image(&image);
    if (!read(data, size, 0, image)) return 0;
    if (bytes_of(image) <= kMost) {
        const int memory = memfd_create("picture", 0);
        require(memory >= 0 && write(memory, data, size) == static_cast<ssize_t>(size));
        check_bands("/proc/self/fd/" + std::to_string(memory), image);
        close(memory);
        if (data[0] % 4 == size % 4) { // writing takes long: a quarter of them
            write_again(folder + "a.png", image, GRX_IMAGE_PNG);
            write_again(folder + "a.bmp", image, GRX_IMAGE_BMP);
        }
    }
    grx_libere_image(&image);
    return 0;
}

} // namespace picture_checks
