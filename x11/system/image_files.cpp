// Pictures in files for the application: read and written whole, and by bands under the number of an open file.
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <new>
#include <strings.h>
#include <utility>

#include "grx_plus_erreurs.h"
#include "grx_plus_images.h"
#include "pure/sized_record.h"
#include "system/picture_record.h"
#include "system/picture_reader.h"
#include "system/picture_writer.h"
#include "system/shut_down.h"
#include "system/trace.h"

namespace {

// -- open files

template <class T>
T* make() {
    auto* const room = grx_malloc(sizeof(T));
    return room != nullptr ? new (room) T : nullptr;
}

template <class T>
void destroy(T*& object) {
    if (object == nullptr) return;
    object->~T();
    grx_free(reinterpret_cast<char*>(std::exchange(object, nullptr)), sizeof(T));
}

struct Open {
    FILE* file = nullptr;
    grx::PictureReader* reader = nullptr;
    grx::PictureWriter* writer = nullptr;
    bool failed = false;

    bool taken() const { return reader != nullptr || writer != nullptr; }
    void drop() {
        destroy(reader);
        destroy(writer);
        if (file != nullptr) std::fclose(file);
        *this = {};
    }
};

std::array<Open, GRX_IMAGES_OUVERTES_MAX> open_files{};

void forget_files() {
    for (Open& open : open_files) open.drop();
}

Open* open_of(INT noimage) {
    const bool known = noimage >= 1 && noimage <= GRX_IMAGES_OUVERTES_MAX;
    Open* const open = known ? &open_files[static_cast<std::size_t>(noimage - 1)] : nullptr;
    return open != nullptr && open->taken() ? open : nullptr;
}

INT free_number() {
    const auto free = std::find_if(open_files.begin(), open_files.end(), [](const Open& o) { return !o.taken(); });
    return free == open_files.end() ? 0 : static_cast<INT>(free - open_files.begin()) + 1;
}

// -- records

bool wants_form(const GRX_IMAGE& image) {
    return image.octets_voulus == 0 || image.octets_voulus == 3 || image.octets_voulus == 4;
}

bool can_be_filled(const GRX_IMAGE* image) {
    return grx::is_empty_image(image) && wants_form(*image);
}

void fill(GRX_IMAGE& image, const grx::PictureForm& form) {
    image.largeur = static_cast<INT>(form.width);
    image.hauteur = static_cast<INT>(form.height);
    image.octets_par_pixel = form.bytes;
    image.nb_couleurs = form.colours;
    image.pixels_par_metre = static_cast<INT>(std::min<int64_t>(form.per_metre, INT32_MAX));
    std::memcpy(image.palette, form.palette.data(), sizeof image.palette);
}

bool known_format(INT format) {
    return format >= GRX_IMAGE_SELON_NOM && format <= GRX_IMAGE_BMP;
}

bool as_bmp(const char* name, INT format) {
    const std::size_t length = std::strlen(name);
    const bool named = length >= 4 && strcasecmp(name + length - 4, ".bmp") == 0;
    return format == GRX_IMAGE_BMP || (format == GRX_IMAGE_SELON_NOM && named);
}

bool may_begin(const char* fichier, const GRX_IMAGE* image, INT format) {
    return fichier != nullptr && known_format(format) && grx::is_image_form(image);
}

INT begin_reading(const char* fichier, GRX_IMAGE& image, Open& open) {
    open.file = grx::open_regular(fichier);
    if (open.file == nullptr) return GRX_ECHEC_FICHIER;
    open.reader = make<grx::PictureReader>();
    if (open.reader == nullptr) return GRX_ECHEC_MEMOIRE;
    const INT result = open.reader->begin(grx::PictureBytes(open.file), image.octets_voulus);
    if (result == 1) fill(image, open.reader->form());
    return result;
}

INT begin_writing(const char* fichier, const GRX_IMAGE& image, INT format, Open& open) {
    open.writer = make<grx::PictureWriter>();
    if (open.writer == nullptr) return GRX_ECHEC_MEMOIRE;
    return open.writer->begin(fichier, grx::form_of(image), as_bmp(fichier, format));
}

// The number of what a function has begun, or its fault.
template <class Begin>
INT open_numbered(const Begin& begin) {
    const INT number = free_number();
    if (number == 0) return GRX_ECHEC_PLEIN;
    grx::at_shut_down(forget_files);
    Open& open = open_files[static_cast<std::size_t>(number - 1)];
    const INT result = begin(open);
    if (result != 1) open.drop();
    return result == 1 ? number : result;
}

} // namespace

namespace grx {

bool is_image_form(const GRX_IMAGE* image) {
    if (!has_known_size(image)) return false;
    const bool sides = image->largeur >= 1 && image->hauteur >= 1 && image->largeur <= GRX_IMAGE_COTE_MAX
                       && image->hauteur <= GRX_IMAGE_COTE_MAX;
    if (!sides || image->pixels_par_metre < 0) return false;
    if (image->octets_par_pixel == 1) return image->nb_couleurs >= 1 && image->nb_couleurs <= 256;
    return image->octets_par_pixel == 3 || image->octets_par_pixel == 4;
}

bool is_image(const GRX_IMAGE* image) {
    if (!is_image_form(image) || image->pixels == nullptr) return false;
    const PictureForm form = form_of(*image);
    if (form.bytes != 1 || form.colours == 256) return true;
    const std::size_t count = form.row_bytes() * static_cast<std::size_t>(form.height);
    return std::all_of(image->pixels, image->pixels + count, [&](uchar place) { return place < form.colours; });
}

bool is_empty_image(const GRX_IMAGE* image) {
    return has_known_size(image) && image->pixels == nullptr;
}

PictureForm form_of(const GRX_IMAGE& image) {
    PictureForm form;
    form.width = image.largeur;
    form.height = image.hauteur;
    form.bytes = static_cast<int>(image.octets_par_pixel);
    form.per_metre = image.pixels_par_metre;
    if (form.bytes != 1) return form;
    form.colours = static_cast<int>(image.nb_couleurs);
    std::memcpy(form.palette.data(), image.palette, sizeof image.palette);
    return form;
}

Block<uchar> picture_block(const PictureForm& form) {
    const uint64_t size = uint64_t{form.row_bytes()} * static_cast<uint64_t>(form.height);
    return size <= INT32_MAX ? Block<uchar>::raw(static_cast<std::size_t>(size)) : Block<uchar>{};
}

INT read_image(const PictureBytes& bytes, GRX_IMAGE& image) {
    PictureReader reader;
    if (const INT fault = reader.begin(bytes, image.octets_voulus); fault != 1) return fault;
    auto pixels = picture_block(reader.form());
    if (!pixels) return GRX_ECHEC_MEMOIRE;
    if (const INT fault = reader.read_all(pixels.data()); fault != 1) return fault;
    fill(image, reader.form());
    image.pixels = pixels.release();
    return 1;
}

} // namespace grx

extern "C" {

void grx_init_image(GRX_IMAGE* image) {
    if (image == nullptr) return;
    *image = GRX_IMAGE{};
    image->taille = sizeof(GRX_IMAGE);
}

INT grx_cree_image(GRX_IMAGE* image) {
    if (!grx::is_empty_image(image) || !grx::is_image_form(image)) return grx::refused(GRX_ECHEC_PARAMETRE, "image");
    auto pixels = grx::picture_block(grx::form_of(*image));
    if (!pixels) return GRX_ECHEC_MEMOIRE;
    pixels.clear();
    image->pixels = pixels.release();
    return 1;
}

INT grx_libere_image(GRX_IMAGE* image) {
    if (!grx::has_known_size(image)) return grx::refused(GRX_ECHEC_PARAMETRE, "image");
    const std::size_t size = grx::form_of(*image).row_bytes() * static_cast<std::size_t>(image->hauteur);
    grx::Block<uchar>::adopt(std::exchange(image->pixels, nullptr), size);
    const INT wanted = image->octets_voulus;
    grx_init_image(image);
    image->octets_voulus = wanted;
    return 1;
}

INT grx_lit_image(const char* fichier, GRX_IMAGE* image) {
    if (fichier == nullptr || !can_be_filled(image)) return grx::refused(GRX_ECHEC_PARAMETRE, "fichier, image");
    FILE* const file = grx::open_regular(fichier);
    if (file == nullptr) return GRX_ECHEC_FICHIER;
    const INT result = grx::read_image(grx::PictureBytes(file), *image);
    std::fclose(file);
    return result;
}

INT grx_lit_image_memoire(const unsigned char* octets, INT nombre, GRX_IMAGE* image) {
    if (octets == nullptr || nombre < 1 || !can_be_filled(image))
        return grx::refused(GRX_ECHEC_PARAMETRE, "octets, nombre, image");
    return grx::read_image(grx::PictureBytes({octets, static_cast<std::size_t>(nombre)}), *image);
}

INT grx_ecrit_image(const char* fichier, const GRX_IMAGE* image, INT format) {
    if (!may_begin(fichier, image, format) || image->pixels == nullptr)
        return grx::refused(GRX_ECHEC_PARAMETRE, "fichier, image, format", format);
    grx::PictureWriter writer;
    INT result = writer.begin(fichier, grx::form_of(*image), as_bmp(fichier, format));
    if (result == 1) result = writer.write_rows(image->pixels, image->hauteur);
    return result == 1 ? writer.finish() : result;
}

INT grx_ouvre_image(const char* fichier, GRX_IMAGE* image) {
    if (fichier == nullptr || !can_be_filled(image)) return grx::refused(GRX_ECHEC_PARAMETRE, "fichier, image");
    return open_numbered([=](Open& open) { return begin_reading(fichier, *image, open); });
}

INT grx_ouvre_ecriture_image(const char* fichier, const GRX_IMAGE* image, INT format) {
    if (!may_begin(fichier, image, format)) return grx::refused(GRX_ECHEC_PARAMETRE, "fichier, image, format", format);
    return open_numbered([=](Open& open) { return begin_writing(fichier, *image, format, open); });
}

INT grx_lit_bande_image(INT noimage, INT nb_lignes, unsigned char* pixels) {
    Open* const open = open_of(noimage);
    if (open == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "noimage", noimage);
    if (open->reader == nullptr) return grx::refused(GRX_ECHEC_GENRE, "noimage", noimage);
    if (nb_lignes < 1 || pixels == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "nb_lignes, pixels", nb_lignes);
    if (open->failed) return GRX_ECHEC_FORMAT;
    const int64_t count = std::min<int64_t>(nb_lignes, open->reader->rows_left());
    const INT result = open->reader->read_rows(pixels, count);
    open->failed = result != 1;
    return result == 1 ? static_cast<INT>(count) : result;
}

INT grx_ecrit_bande_image(INT noimage, INT nb_lignes, const unsigned char* pixels) {
    Open* const open = open_of(noimage);
    if (open == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "noimage", noimage);
    if (open->writer == nullptr) return grx::refused(GRX_ECHEC_GENRE, "noimage", noimage);
    if (nb_lignes < 1 || nb_lignes > open->writer->rows_left() || pixels == nullptr)
        return grx::refused(GRX_ECHEC_PARAMETRE, "nb_lignes, pixels", nb_lignes);
    if (open->failed) return GRX_ECHEC_FICHIER;
    const INT result = open->writer->write_rows(pixels, nb_lignes);
    open->failed = result != 1;
    return result;
}

INT grx_ferme_image(INT noimage) {
    Open* const open = open_of(noimage);
    if (open == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "noimage", noimage);
    INT result = 1;
    if (open->writer != nullptr) {
        result = open->failed                     ? GRX_ECHEC_FICHIER
                 : open->writer->rows_left() != 0 ? GRX_ECHEC_ABSENT
                                                  : open->writer->finish();
    }
    open->drop();
    return result;
}

INT grx_abandonne_image(INT noimage) {
    Open* const open = open_of(noimage);
    if (open == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "noimage", noimage);
    open->drop();
    return 1;
}
}
