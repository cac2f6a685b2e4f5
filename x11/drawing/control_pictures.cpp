// The pictures that controls show: reads them from files, gives them to controls and frees them with the number.
#include "drawing/control_pictures.h"

#include <X11/Intrinsic.h>
#include <Xm/Label.h>
#include <Xm/Xm.h>

#include <array>
#include <cstring>

#include "system/block.h"
#include "system/never_destroyed.h"
#include "display/context.h"
#include "display/images.h"
#include "display/pixmaps.h"
#include "display/screen.h"
#include "toolkit/args.h"
#include "registry/window_table.h"
#include "drawing/control_pictures_state.h"
#include "drawing/forget_drawing.h"
#include "xt_bou_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"
#include "xt_loc_f.h"
#include "xt_mot_t.h"

namespace {

// The place of one control: the image made from its file, and the pixels that the image shows. `released` is the pixmap
// that was freed last, because the control's record may still hold its id.
struct Picture {
    P_XIMAGE image;
    uchar* pixels;
    std::size_t bytes;
    Pixmap released;
    bool shared; // the label of another control shows it too
};
grx::NeverDestroyed<grx::Block<Picture>> lasting_pictures;
grx::Block<Picture>& Tab_image = lasting_pictures.value;

grx::IconGiven (*other_way)(const char*, INT) = nullptr;

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

// The record of a number that is taken, even when its widget died with its window.
STRUCTURE_BOUTON* taken_record(INT nobou) {
    STRUCTURE_BOUTON* record = nullptr;
    grx_recup_structure_bouton(nobou, &record);
    return record != nullptr && record->nobou == nobou ? record : nullptr;
}

// The colour indices that were read from a file.
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
    constexpr INT done = 0;
    return result == done && indices.data != nullptr; // a file may count as read and give nothing
}

constexpr INT kIconColours = 16;

UNSIGNED_INT4 deep_pixel(INT index, INT colours) {
    const INT pixel = colours == kIconColours ? grx_recup_couleur_icone(index) : grx_recup_couleur(index);
    return static_cast<UNSIGNED_INT4>(pixel);
}

// The pixels of a picture with 4 (or 3) bytes each, in the byte order of this machine.
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

// Makes an image that owns its pixels; it is empty when memory is short.
Picture make_picture(const Indices& indices) {
    const bool deep = grx::deep_screen();
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
    Widget w = nobou >= 0 ? grx_recup_objet_bout(nobou) : grx::window_widget_if_any(grx_recup_nofen_principale());
    const Window window = grx::window_of(w);
    return window != None ? window : DefaultRootWindow(x11_disp);
}

// Uses the shared context. Before the first window there is none, so that one is made for this picture.
void put_picture(Pixmap pixmap, const Picture& picture) {
    if (picture.image == nullptr) return;
    grx::lift_limit();
    const auto width = static_cast<unsigned int>(picture.image->width);
    const auto height = static_cast<unsigned int>(picture.image->height);
    GC own = g_c == nullptr ? XCreateGC(x11_disp, pixmap, 0, nullptr) : nullptr;
    if (own == nullptr) XSetFunction(x11_disp, g_c, GXcopy);
    XPutImage(x11_disp, pixmap, own != nullptr ? own : g_c, picture.image, 0, 0, 0, 0, width, height);
    if (own != nullptr) XFreeGC(x11_disp, own);
    grx::context_changed();
    grx_reinit_gc();
}

// The pixmap of a control, None when it was freed already.
Pixmap living_pixmap(const STRUCTURE_BOUTON& record, const Picture& picture) {
    const bool held = record.image != XmUNSPECIFIED_PIXMAP && record.image != picture.released;
    return held ? record.image : None;
}

// A label redraws its pixmap at any time, so it must not keep one that is freed.
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
    grx::forget_label_icon();
    if (Picture* const old = picture_of(nobou)) drop_picture(*old);
    return 0;
}

// Gives the pixmap to the control's record, or keeps it for a label without a number.
bool keep_pixmap(INT nobou, Pixmap pixmap) {
    if (nobou < 0) {
        grx::Mypixmap = pixmap;
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

// True when the other way has given the icon.
bool installed_otherwise(const char* nom_fic, INT nobou) {
    if (other_way == nullptr || nom_fic == nullptr) return false;
    const grx::IconGiven given = other_way(nom_fic, nobou);
    return given.to_control || (given.label != None && keep_pixmap(nobou, given.label));
}

bool usable_number(INT nobou) {
    return nobou < 0 || (picture_of(nobou) != nullptr && taken_record(nobou) != nullptr);
}

} // namespace

namespace grx {

Pixmap Mypixmap = None;

Pixmap pixmap_of_bitmap(char* nom_fic, Drawable like) {
    Indices indices;
    if (x11_disp == nullptr || !read_indices(nom_fic, indices)) return None;
    Picture picture = make_picture(indices);
    Pixmap pixmap = XmUNSPECIFIED_PIXMAP; // when memory is short there is no picture
    if (picture.image != nullptr)
        pixmap = make_pixmap(like, {static_cast<int32_t>(indices.width), static_cast<int32_t>(indices.height)});
    if (pixmap != XmUNSPECIFIED_PIXMAP) put_picture(pixmap, picture);
    drop_picture(picture);
    grx_free(reinterpret_cast<char*>(indices.data), indices.bytes);
    return pixmap != XmUNSPECIFIED_PIXMAP ? pixmap : None;
}

Pixmap install_label_icon(char* nom_fic) {
    const bool named = nom_fic[0] != '\0';
    return named && grx_installe_bitmap(nom_fic, GRX_AUCUN) == 1 ? Mypixmap : Pixmap{XmUNSPECIFIED_PIXMAP};
}

void install_icons_by(IconGiven (*first)(const char* nom_fic, INT nobou)) {
    other_way = first;
}

void forget_label_icon() {
    Mypixmap = XmUNSPECIFIED_PIXMAP;
}

void forget_control_pixmap() {
    Mypixmap = None;
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
    grx_desalloue_tab_image_boutons(maxbouton); // frees what the former table holds
    Tab_image = grx::Block<Picture>(static_cast<std::size_t>(maxbouton));
    return Tab_image ? 0 : GRX_ERR_BASE_BOUTONS;
}

// KEEP: the data of the pictures is freed with the table, because nothing else would find it.
void grx_desalloue_tab_image_boutons(INT) {
    for (Picture& picture : Tab_image) drop_picture(picture);
    Tab_image.reset();
}

INT grx_installe_bitmap(char* nom_fic, int nobou) {
    if (x11_disp == nullptr || !usable_number(nobou)) return 0;
    if (installed_otherwise(nom_fic, nobou)) return 1;
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
    picture->released = record->image; // the record still has the id
    picture->shared = false;
    drop_picture(*picture);
}
}
