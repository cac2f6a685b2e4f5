// Bitmap files, the pictures of controls, and named icons.
#include "xt_prive.h"

#include <X11/Xutil.h>
#include <Xm/Label.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "host_f.h"
#include "toolkit/args.h"
#include "system/block.h"
#include "drawing/bmp_fields.h"
#include "display/pixmaps.h"
#include "display/images.h"
#include "system/kept.h"
#include "xt_bou_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"
#include "xt_loc_f.h"

// -------------------------------------------------------------------------------------------------- bitmap files

namespace {

constexpr INT kDone = 0;
constexpr INT kFailed = 1;
constexpr int kForReading = 2;
constexpr int kForWriting = 1;
constexpr UNSIGNED_INT2 kBitmapType = 19778; // "BM"

XTBITMAPINFOHEADER bm_header{};
XTBITMAPINFO bm{};

FILE* open_file(char* adr, char* nom_fic, int mode) {
    FILE* file = nullptr;
    char nowhere[] = "";
    if (nom_fic == nullptr || ftext_open(&file, adr != nullptr ? adr : nowhere, nom_fic, mode) == -1) return nullptr;
    return file;
}

// A file may claim any size: no more is allocated than it could fill, and a little for one cut short.
bool within_means(FILE* file, const grx::BmpSizes& sizes) {
    constexpr int64_t cut_short = 1 << 20;
    return std::max(sizes.data, sizes.picture) <= 2 * grx::file_size(file) + cut_short;
}

// KEEP: where a header's buffer is not to be had, the file stays open.
bool read_headers(FILE* file) {
    const auto first = grx::read_block(file, grx::kFileHeader);
    if (!first) return false;
    bm_header = grx::read_file_header(first.span());
    const auto second = grx::read_block(file, grx::kInfoHeader);
    if (!second) return false;
    bm = grx::read_info_header(second.span());
    return true;
}

struct Reading {
    FILE* file;
    int bits;
    grx::BmpSizes sizes;
    grx::Block<uchar> data;
    grx::Block<uchar> picture;
};

bool read_pixels(Reading& r) {
    const auto sizes = grx::bmp_sizes(static_cast<INT>(bm.biwidth), static_cast<INT>(bm.biheight), r.bits);
    if (!sizes || !within_means(r.file, *sizes)) return false;
    r.sizes = *sizes;
    std::fseek(r.file, static_cast<long>(bm_header.bfoffbits), SEEK_SET);
    r.data = grx::read_block(r.file, static_cast<std::size_t>(r.sizes.data));
    return static_cast<bool>(r.data);
}

bool unpack(Reading& r) {
    r.picture = grx::Block<uchar>::raw(static_cast<std::size_t>(r.sizes.picture));
    if (!r.picture) return false;
    const grx::BmpPicture to{r.picture.data(), bm.biwidth, bm.biheight};
    const auto row_bytes = static_cast<std::size_t>(r.sizes.row);
    if (r.bits == 4) {
        grx::unpack_rows_4(to, r.data.span(), row_bytes);
    } else {
        grx::unpack_rows_8(to, r.data.span(), row_bytes);
    }
    return true;
}

// KEEP: a 256-colour file whose buffer is not to be had reads as done, with nothing filled in.
INT result_without_buffer(int bits) {
    return bits == 8 ? kDone : kFailed;
}

struct Writing {
    int bits;
    UNSIGNED_INT4 offset, used, important;
    void (*pack)(std::span<uchar>, std::size_t, const grx::BmpPicture&);
    void (*palette)(uchar*);
};

void palette_16(uchar* out) {
    std::memcpy(out, grx::palette_win.data(), sizeof grx::palette_win);
}

// KEEP: red stands where the format has blue; the library's reader takes no palette.
void palette_256(uchar* out) {
    const INT count = std::min<INT>(grx_recup_max_couleur_trace(), GRX_NB_COULEURS);
    for (INT i = 0; i < count; ++i) {
        INT rgb[3] = {};
        grx_recup_rgb(i, rgb);
        for (const INT component : rgb) *out++ = static_cast<uchar>(component);
        *out++ = 0;
    }
}

void palette_mono(uchar* out) {
    std::memcpy(out, grx::palette_win_mono.data(), sizeof grx::palette_win_mono);
}

constexpr Writing kWrite16{4, 118, 16, 0, grx::pack_rows_4, palette_16};
constexpr Writing kWrite256{8, 1078, 256, 256, grx::pack_rows_8, palette_256};
constexpr Writing kWriteMono{1, 62, 0, 0, grx::pack_rows_1, palette_mono};

void fill_headers(const Writing& w, INT lar, INT hau, const grx::BmpSizes& sizes) {
    const auto data = static_cast<UNSIGNED_INT4>(sizes.data);
    bm_header = {kBitmapType, data + w.offset, 0, 0, w.offset};
    bm = {grx::kInfoHeader, static_cast<UNSIGNED_INT4>(lar), static_cast<UNSIGNED_INT4>(hau), 1,
        static_cast<UNSIGNED_INT2>(w.bits), 0, data, 0, 0, w.used, w.important};
}

bool write_all(FILE* file, std::span<const uchar> bytes) {
    return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
}

bool write_file(FILE* file, const Writing& w, const grx::BmpSizes& sizes, const grx::BmpPicture& picture) {
    grx::Block<uchar> head(w.offset);
    if (!head) return false;
    grx::write_headers(head.span(), bm_header, bm);
    w.palette(head.data() + grx::kPaletteAt);
    if (!write_all(file, head.span())) return false;
    if (sizes.data == 0) return true;
    grx::Block<uchar> data(static_cast<std::size_t>(sizes.data));
    if (!data) return false;
    w.pack(data.span(), static_cast<std::size_t>(sizes.row), picture);
    return write_all(file, data.span());
}

INT write_bitmap(char* adr, char* nom_fic, uchar* tab_pix, INT lar, INT hau, const Writing& w) {
    const auto sizes = grx::bmp_sizes(lar, hau, w.bits);
    if (!sizes || tab_pix == nullptr) return kFailed;
    FILE* const file = open_file(adr, nom_fic, kForWriting);
    if (file == nullptr) return kFailed;
    fill_headers(w, lar, hau, *sizes);
    const grx::BmpPicture picture{tab_pix, static_cast<std::size_t>(lar), static_cast<std::size_t>(hau)};
    const bool written = write_file(file, w, *sizes, picture);
    const bool closed = ftext_close(file) == 0;
    return written && closed ? kDone : kFailed;
}

} // namespace

extern "C" {

INT lit_fichier_bitmap(char* adr, char* nom_fic, uchar** tab_pix, UNSIGNED_INT4* lar, UNSIGNED_INT4* hau,
    UNSIGNED_INT4* taille_tab_pix, INT* nb_coul) {
    Reading r{open_file(adr, nom_fic, kForReading), 0, {}, {}, {}};
    if (r.file == nullptr || !read_headers(r.file)) return kFailed;
    r.bits = bm.bibitcount;
    const bool known = r.bits == 4 || r.bits == 8;
    const bool read = known && read_pixels(r);
    const bool unpacked = read && unpack(r);
    ftext_close(r.file);
    if (!known) return kFailed;
    if (!read) return result_without_buffer(r.bits);
    if (!unpacked) return kFailed;
    if (lar != nullptr) *lar = bm.biwidth;
    if (hau != nullptr) *hau = bm.biheight;
    if (taille_tab_pix != nullptr) *taille_tab_pix = static_cast<UNSIGNED_INT4>(r.sizes.picture);
    if (nb_coul != nullptr) *nb_coul = r.bits == 4 ? 16 : 256;
    if (tab_pix != nullptr) *tab_pix = r.picture.release();
    return kDone;
}

INT ecrit_fichier_bitmap(char* adr, char* nom_fic, uchar* tab_pix, INT lar, INT hau) {
    return write_bitmap(adr, nom_fic, tab_pix, lar, hau, kWrite16);
}

INT ecrit_fichier_bitmap_256(char* adr, char* nom_fic, uchar* tab_pix, INT lar, INT hau) {
    return write_bitmap(adr, nom_fic, tab_pix, lar, hau, kWrite256);
}

INT ecrit_fichier_bitmap_mono(char* adr, char* nom_fic, uchar* tab_pix, INT lar, INT hau) {
    return write_bitmap(adr, nom_fic, tab_pix, lar, hau, kWriteMono);
}
}

// ---------------------------------------------------------------------------------------- the pictures of controls

namespace grx {

Pixmap Mypixmap = None;

} // namespace grx

using grx::Mypixmap;

namespace {

// One place per control: the image made from its file with the pixels it owns, and the pixmap last released, whose id
// the control's record may still hold.
struct Picture {
    P_XIMAGE image;
    uchar* pixels;
    std::size_t bytes;
    Pixmap released;
    bool shared; // another control's label shows it too
};
grx::Kept<grx::Block<Picture>> kept_pictures;
grx::Block<Picture>& Tab_image = kept_pictures.value;

Picture* picture_of(INT nobou) {
    const bool has_place = nobou >= 0 && static_cast<std::size_t>(nobou) < Tab_image.size();
    return has_place ? &Tab_image[static_cast<std::size_t>(nobou)] : nullptr;
}

void drop_picture(Picture& picture) {
    grx::drop_image(picture.image);
    if (picture.pixels != nullptr)
        grx_free(reinterpret_cast<char*>(picture.pixels), static_cast<UNSIGNED_INT>(picture.bytes));
    picture.image = nullptr;
    picture.pixels = nullptr;
    picture.bytes = 0;
}

// The record of a control whose number is taken, even when its widget died with its window.
STRUCTURE_BOUTON* taken_record(INT nobou) {
    STRUCTURE_BOUTON* record = nullptr;
    grx_recup_structure_bouton(nobou, &record);
    return record != nullptr && record->nobou == nobou ? record : nullptr;
}

// Indices read from a file.
struct Indices {
    uchar* data = nullptr;
    UNSIGNED_INT4 width = 0, height = 0, bytes = 0;
    INT colours = 0;

    std::size_t count() const { return static_cast<std::size_t>(width) * height; }
    grx::ImageSize size() const { return {static_cast<int>(width), static_cast<int>(height)}; }
};

bool read_indices(char* nom_fic, Indices& indices) {
    char nowhere[] = "";
    const INT result = lit_fichier_bitmap(
        nowhere, nom_fic, &indices.data, &indices.width, &indices.height, &indices.bytes, &indices.colours);
    return result == kDone && indices.data != nullptr; // a file may read as done and bring nothing
}

constexpr INT kIconColours = 16;

UNSIGNED_INT4 deep_pixel(INT index, INT colours) {
    const INT pixel = colours == kIconColours ? grx_recup_couleur_icone(index) : grx_recup_couleur(index);
    return static_cast<UNSIGNED_INT4>(pixel);
}

// A picture of 4 (or 3) bytes a pixel, in this machine's byte order.
grx::Block<uchar> deep_pixels(const Indices& indices, std::size_t pixel_bytes) {
    auto block = grx::Block<uchar>::raw(indices.count() * pixel_bytes);
    if (!block) return block;
    std::array<UNSIGNED_INT4, GRX_NB_COULEURS> pixels{};
    for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = deep_pixel(static_cast<INT>(i), indices.colours);
    uchar* out = block.data();
    for (std::size_t i = 0; i < indices.count(); ++i, out += pixel_bytes)
        grx::store_pixel(out, pixels[indices.data[i]], pixel_bytes);
    return block;
}

grx::Block<uchar> shallow_pixels(const Indices& indices) {
    auto block = grx::Block<uchar>::raw(indices.count());
    if (!block) return block;
    std::memcpy(block.data(), indices.data, indices.count());
    const auto [width, height] = indices.size();
    if (indices.colours == kIconColours) {
        grx_icone_oxa_to_system(width, height, block.data());
    } else {
        grx_image_oxa_to_system(width, height, block.data());
    }
    return block;
}

// The image of a file, owning its pixels; empty when memory is short.
Picture make_picture(const Indices& indices) {
    const bool deep = grx_recup_profondeur_ecran() > GRX_PROFONDEUR_8;
    const int pixel_bytes = deep ? grx::bytes_per_pixel() : 1;
    auto block = deep ? deep_pixels(indices, static_cast<std::size_t>(pixel_bytes)) : shallow_pixels(indices);
    Picture picture{};
    if (!block) return picture;
    const grx::ImageSize size = indices.size();
    const int pad = pixel_bytes == 4 ? 32 : 8;
    picture.image = grx::make_image(
        reinterpret_cast<char*>(block.data()), size, grx_recup_profondeur_ecran(), pad, size.width * pixel_bytes);
    if (picture.image == nullptr) return picture;
    picture.image->byte_order = grx::native_byte_order();
    picture.bytes = block.size();
    picture.pixels = block.release();
    return picture;
}

Drawable place_for_pixmap(INT nobou) {
    Widget w = nobou >= 0 ? grx_recup_objet_bout(nobou) : grx_recup_objet_fen(grx_recup_nofen_principale());
    const Window window = grx::window_of(w);
    return window != None ? window : DefaultRootWindow(x11_disp);
}

// The shared context, or one of its own before there is any window.
void put_picture(Pixmap pixmap, const Picture& picture) {
    if (picture.image == nullptr) return;
    const auto width = static_cast<unsigned int>(picture.image->width);
    const auto height = static_cast<unsigned int>(picture.image->height);
    GC own = g_c == nullptr ? XCreateGC(x11_disp, pixmap, 0, nullptr) : nullptr;
    if (own == nullptr) XSetFunction(x11_disp, g_c, GXcopy);
    XPutImage(x11_disp, pixmap, own != nullptr ? own : g_c, picture.image, 0, 0, 0, 0, width, height);
    if (own != nullptr) XFreeGC(x11_disp, own);
    grx::context_changed();
    grx_reinit_gc();
}

// The pixmap of a control that is not yet released, else None.
Pixmap living_pixmap(const STRUCTURE_BOUTON& record, const Picture& picture) {
    const bool held = record.image != XmUNSPECIFIED_PIXMAP && record.image != picture.released;
    return held ? record.image : None;
}

// A label redraws what it shows: a released pixmap it must not.
void show_instead(INT nobou, Pixmap old, Pixmap pixmap) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr || !XmIsLabel(w) || grx::resource<Pixmap>(w, XmNlabelPixmap) != old) return;
    grx::set_resource(w, XmNlabelPixmap, pixmap);
}

void release_pixmap(INT nobou, const Picture& picture, Pixmap old, Pixmap instead) {
    if (old == None) return;
    show_instead(nobou, old, instead);
    for (INT other = 0; picture.shared && picture_of(other) != nullptr; ++other) show_instead(other, old, instead);
    grx::free_pixmap(old);
}

INT no_picture(INT nobou) {
    Mypixmap = XmUNSPECIFIED_PIXMAP;
    if (Picture* const old = picture_of(nobou)) drop_picture(*old);
    return 0;
}

// Whose the pixmap is: the control's record, or the shared one of labels without a number.
bool keep_pixmap(INT nobou, Pixmap pixmap) {
    if (nobou < 0) {
        Mypixmap = pixmap;
        return pixmap != XmUNSPECIFIED_PIXMAP;
    }
    grx::give_pixmap(nobou, pixmap == XmUNSPECIFIED_PIXMAP ? None : pixmap);
    return pixmap != XmUNSPECIFIED_PIXMAP;
}

INT install(const Indices& indices, INT nobou) {
    Picture picture = make_picture(indices);
    const Pixmap pixmap = grx::make_pixmap(
        place_for_pixmap(nobou), {static_cast<int32_t>(indices.width), static_cast<int32_t>(indices.height)});
    put_picture(pixmap, picture);
    Picture* const kept = picture_of(nobou);
    const bool shown = keep_pixmap(nobou, pixmap);
    if (kept == nullptr) {
        drop_picture(picture);
    } else {
        drop_picture(*kept);
        picture.shared = kept->shared;
        *kept = picture;
    }
    return shown ? 1 : 0;
}

bool usable_number(INT nobou) {
    return nobou < 0 || (picture_of(nobou) != nullptr && taken_record(nobou) != nullptr);
}

} // namespace

namespace grx {

Pixmap pixmap_of_bitmap(char* nom_fic, Drawable like) {
    Indices indices;
    if (x11_disp == nullptr || !read_indices(nom_fic, indices)) return None;
    Picture picture = make_picture(indices);
    Pixmap pixmap = XmUNSPECIFIED_PIXMAP; // no memory, no picture
    if (picture.image != nullptr)
        pixmap = make_pixmap(like, {static_cast<int32_t>(indices.width), static_cast<int32_t>(indices.height)});
    if (pixmap != XmUNSPECIFIED_PIXMAP) put_picture(pixmap, picture);
    drop_picture(picture);
    grx_free(reinterpret_cast<char*>(indices.data), indices.bytes);
    return pixmap != XmUNSPECIFIED_PIXMAP ? pixmap : None;
}

void share_picture(INT nobou) {
    if (Picture* const picture = ::picture_of(nobou)) picture->shared = true;
}

void give_pixmap(INT nobou, Pixmap pixmap) {
    STRUCTURE_BOUTON* const record = taken_record(nobou);
    if (record == nullptr) return;
    const Picture* const place = ::picture_of(nobou);
    const Picture picture = place != nullptr ? *place : Picture{};
    const Pixmap old = living_pixmap(*record, picture);
    record->image = pixmap;
    release_pixmap(nobou, picture, old, pixmap != None ? pixmap : Pixmap{XmUNSPECIFIED_PIXMAP});
}

} // namespace grx

extern "C" {

INT grx_alloue_tab_image_boutons(INT maxbouton) {
    if (maxbouton <= 0) return GRX_ERR_BASE_BOUTONS;
    grx_desalloue_tab_image_boutons(maxbouton); // what the table before holds
    Tab_image = grx::Block<Picture>(static_cast<std::size_t>(maxbouton));
    return Tab_image ? 0 : GRX_ERR_BASE_BOUTONS;
}

// KEEP: the pictures' data goes with the table: nothing else would find it.
void grx_desalloue_tab_image_boutons(INT) {
    for (Picture& picture : Tab_image) drop_picture(picture);
    Tab_image.reset();
}

INT grx_installe_bitmap(char* nom_fic, int nobou) {
    if (x11_disp == nullptr || !usable_number(nobou)) return 0;
    Indices indices;
    if (!read_indices(nom_fic, indices)) return no_picture(nobou);
    const INT installed = install(indices, nobou);
    grx_free(reinterpret_cast<char*>(indices.data), indices.bytes);
    return installed;
}

void grx_desinstalle_bitmap(INT nobou) {
    STRUCTURE_BOUTON* const record = taken_record(nobou);
    Picture* const picture = picture_of(nobou);
    if (record == nullptr || picture == nullptr) return;
    release_pixmap(nobou, *picture, living_pixmap(*record, *picture), XmUNSPECIFIED_PIXMAP);
    picture->released = record->image; // the record keeps the id
    picture->shared = false;
    drop_picture(*picture);
}
}

// --------------------------------------------------------------------------------------------------- named icons

namespace {

SICON* tab_icon_mem = nullptr;
SICON** tab_icon_end = &tab_icon_mem; // at or near the end: where the next one is hung
ENRICON icon_courante{};

bool named(const ENRICON& icon, const char* name) {
    return strncmp(icon.nom_icon, name, sizeof icon.nom_icon) == 0;
}

SICON* new_entry(const ENRICON& icon) {
    auto* const entry = reinterpret_cast<SICON*>(grx_malloc(sizeof(SICON)));
    if (entry == nullptr) return nullptr;
    *entry = icon;
    entry->nom_icon[sizeof entry->nom_icon - 1] = '\0';
    entry->suiv = nullptr;
    return entry;
}

void free_entry(SICON* entry) {
    if (entry->tab_pix != nullptr) grx_free(reinterpret_cast<char*>(entry->tab_pix), entry->taille_buffer);
    grx_free(reinterpret_cast<char*>(entry), sizeof(SICON));
}

} // namespace

extern "C" {

INT init_tab_icon(void) {
    tab_icon_mem = nullptr;
    tab_icon_end = &tab_icon_mem;
    icon_courante.nom_icon[0] = '\0';
    return 0;
}

INT append_icon(ENRICON enr_icon) {
    SICON* const entry = new_entry(enr_icon);
    if (entry == nullptr) return 1;
    while (*tab_icon_end != nullptr) tab_icon_end = &(*tab_icon_end)->suiv;
    *tab_icon_end = entry;
    return 0;
}

INT cherche_icon(char* nom_icon, ENRICON** enr_icon) {
    if (nom_icon == nullptr || enr_icon == nullptr) return 0;
    if (icon_courante.nom_icon[0] != '\0' && named(icon_courante, nom_icon)) {
        *enr_icon = &icon_courante;
        return 1;
    }
    SICON* entry = tab_icon_mem;
    while (entry != nullptr && !named(*entry, nom_icon)) entry = entry->suiv;
    if (entry == nullptr) return 0;
    *enr_icon = entry;
    icon_courante = *entry;
    return 1;
}

INT desalloue_tab_icon(void) {
    while (tab_icon_mem != nullptr) {
        SICON* const entry = tab_icon_mem;
        tab_icon_mem = entry->suiv;
        free_entry(entry);
    }
    return init_tab_icon();
}

INT pixel_size_image(INT largeur, INT hauteur) {
    const int64_t size = int64_t{largeur} * hauteur;
    return static_cast<INT>(std::clamp<int64_t>(size, INT32_MIN, INT32_MAX));
}
}
