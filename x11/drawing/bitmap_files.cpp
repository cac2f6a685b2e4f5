// Reads bitmap files into arrays of the application and writes them from there.
#include <algorithm>
#include <cstring>
#include <optional>

#include "pure/bmp.h"
#include "system/block.h"
#include "drawing/bmp_fields.h"
#include "host_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"

namespace {

constexpr INT kDone = 0;
constexpr INT kFailed = 1;
constexpr UNSIGNED_INT2 kBitmapType = 19778; // "BM"

struct Headers {
    XTBITMAPINFOHEADER file;
    XTBITMAPINFO info;
};

FILE* open_file(char* adr, char* nom_fic, int mode) {
    FILE* file = nullptr;
    char nowhere[] = "";
    if (nom_fic == nullptr || ftext_open(&file, adr != nullptr ? adr : nowhere, nom_fic, mode) == -1) return nullptr;
    return file;
}

// A file may claim any size. Memory is allocated only for what the file could fill, and a little more for a file that
// was cut short.
bool within_means(FILE* file, const grx::BmpSizes& sizes) {
    constexpr int64_t cut_short = 1 << 20;
    return std::max(sizes.data, sizes.picture) <= 2 * grx::file_size(file) + cut_short;
}

// KEEP: when memory for a header is short, the file stays open.
std::optional<Headers> read_headers(FILE* file) {
    const auto first = grx::read_block(file, grx::kFileHeader);
    if (!first) return std::nullopt;
    Headers headers{grx::read_file_header(first.span()), {}};
    const auto second = grx::read_block(file, grx::kInfoHeader);
    if (!second) return std::nullopt;
    headers.info = grx::read_info_header(second.span());
    return headers;
}

struct Reading {
    FILE* file;
    Headers headers{};
    grx::BmpSizes sizes{};
    grx::Block<uchar> data{};
    grx::Block<uchar> picture{};

    int bits() const { return headers.info.bibitcount; }
};

bool read_pixels(Reading& r) {
    const XTBITMAPINFO& info = r.headers.info;
    const auto sizes = grx::bmp_sizes(static_cast<INT>(info.biwidth), static_cast<INT>(info.biheight), r.bits());
    if (!sizes || !within_means(r.file, *sizes)) return false;
    r.sizes = *sizes;
    std::fseek(r.file, static_cast<long>(r.headers.file.bfoffbits), SEEK_SET);
    r.data = grx::read_block(r.file, static_cast<std::size_t>(r.sizes.data));
    return static_cast<bool>(r.data);
}

bool unpack(Reading& r) {
    r.picture = grx::Block<uchar>::raw(static_cast<std::size_t>(r.sizes.picture));
    if (!r.picture) return false;
    const grx::BmpPicture to{r.picture.data(), r.headers.info.biwidth, r.headers.info.biheight};
    const auto row_bytes = static_cast<std::size_t>(r.sizes.row);
    if (r.bits() == 4) {
        grx::unpack_rows_4(to, r.data.span(), row_bytes);
    } else {
        grx::unpack_rows_8(to, r.data.span(), row_bytes);
    }
    return true;
}

// KEEP: when memory is short, a file of 256 colours counts as read although nothing was filled in.
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

// KEEP: red stands where the format has blue. The library itself does not notice, because it reads no palette.
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

Headers headers_of(const Writing& w, INT lar, INT hau, const grx::BmpSizes& sizes) {
    const auto data = static_cast<UNSIGNED_INT4>(sizes.data);
    return {{kBitmapType, data + w.offset, 0, 0, w.offset},
        {grx::kInfoHeader, static_cast<UNSIGNED_INT4>(lar), static_cast<UNSIGNED_INT4>(hau), 1,
            static_cast<UNSIGNED_INT2>(w.bits), 0, data, 0, 0, w.used, w.important}};
}

bool write_all(FILE* file, std::span<const uchar> bytes) {
    return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
}

bool write_file(FILE* file, const Writing& w, const grx::BmpSizes& sizes, const grx::BmpPicture& picture) {
    const Headers headers = headers_of(w, static_cast<INT>(picture.width), static_cast<INT>(picture.height), sizes);
    grx::Block<uchar> head(w.offset);
    if (!head) return false;
    grx::write_headers(head.span(), headers.file, headers.info);
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
    FILE* const file = open_file(adr, nom_fic, HOST_MODE_ECRITURE);
    if (file == nullptr) return kFailed;
    const grx::BmpPicture picture{tab_pix, static_cast<std::size_t>(lar), static_cast<std::size_t>(hau)};
    const bool written = write_file(file, w, *sizes, picture);
    const bool closed = ftext_close(file) == 0;
    return written && closed ? kDone : kFailed;
}

} // namespace

extern "C" {

INT lit_fichier_bitmap(char* adr, char* nom_fic, uchar** tab_pix, UNSIGNED_INT4* lar, UNSIGNED_INT4* hau,
    UNSIGNED_INT4* taille_tab_pix, INT* nb_coul) {
    Reading r{open_file(adr, nom_fic, HOST_MODE_LECTURE)};
    const auto headers = r.file != nullptr ? read_headers(r.file) : std::nullopt;
    if (!headers) return kFailed;
    r.headers = *headers;
    const bool known = r.bits() == 4 || r.bits() == 8;
    const bool read = known && read_pixels(r);
    const bool unpacked = read && unpack(r);
    ftext_close(r.file);
    if (!known) return kFailed;
    if (!read) return result_without_buffer(r.bits());
    if (!unpacked) return kFailed;
    if (lar != nullptr) *lar = r.headers.info.biwidth;
    if (hau != nullptr) *hau = r.headers.info.biheight;
    if (taille_tab_pix != nullptr) *taille_tab_pix = static_cast<UNSIGNED_INT4>(r.sizes.picture);
    if (nb_coul != nullptr) *nb_coul = r.bits() == 4 ? 16 : 256;
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
