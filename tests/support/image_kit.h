// Pictures as files for tests: made at random, written and read, and what other programs make of them.
#pragma once

#include "grx_plus_erreurs.h"
#include "grx_plus_images.h"
#include "tests/support/heap.h"
#include "tests/support/temp_dir.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace grxtest {

using PictureRows = std::vector<unsigned char>;

// A record that is freed at its end.
struct Image {
    explicit Image(INT wanted = 0) {
        grx_init_image(&record);
        record.octets_voulus = wanted;
    }
    ~Image() { grx_libere_image(&record); }
    Image(const Image&) = delete;
    Image& operator=(const Image&) = delete;

    GRX_IMAGE* operator->() { return &record; }
    GRX_IMAGE* get() { return &record; }
    std::size_t bytes() const {
        return static_cast<std::size_t>(record.largeur) * static_cast<std::size_t>(record.hauteur)
               * static_cast<std::size_t>(record.octets_par_pixel);
    }
    PictureRows rows() const { return {record.pixels, record.pixels + bytes()}; }

    GRX_IMAGE record;
};

// Fills a record with a picture at random; 1 byte a pixel with a palette of `colours`.
inline void make_random(Image& image, INT width, INT height, INT bytes, INT colours = 256, unsigned seed = 1) {
    std::mt19937 random(seed);
    image->largeur = width;
    image->hauteur = height;
    image->octets_par_pixel = bytes;
    image->nb_couleurs = bytes == 1 ? colours : 0;
    ASSERT_EQ(grx_cree_image(image.get()), 1);
    for (std::size_t i = 0; i < image.bytes(); ++i)
        image->pixels[i] = static_cast<unsigned char>(random() % static_cast<unsigned>(bytes == 1 ? colours : 256));
    for (INT i = 0; i < image->nb_couleurs; ++i)
        for (auto& level : image->palette[i]) level = static_cast<unsigned char>(random());
    for (INT i = 0; i < image->nb_couleurs; ++i) image->palette[i][3] = 255;
}

} // namespace grxtest
