// Icons of controls with transparency: laid on the control's own colour, with looks for pressed and insensitive ones. They are
// made again when that colour changes, of which a hook of the display tells.
#include "drawing/control_icons.h"

#include <X11/IntrinsicP.h>
#include <X11/Xutil.h>
#include <Xm/DrawnB.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/ToggleB.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <utility>

#include "display/colours.h"
#include "display/images.h"
#include "display/pixmaps.h"
#include "display/screen.h"
#include "drawing/control_pictures.h"
#include "drawing/screen_colours.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_images.h"
#include "host_f.h"
#include "pure/size.h"
#include "pure/true_colour.h"
#include "registry/control_table.h"
#include "system/block.h"
#include "system/picture_record.h"
#include "system/shut_down.h"
#include "system/table.h"
#include "system/trace.h"
#include "toolkit/args.h"
#include "toolkit/control_parts.h"
#include "xt_bou_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"

namespace {

using grx::IconLook;

constexpr INT kLongestSide = 1024;
constexpr INT kBackgroundIcon = 8; // the icon colour that stands for the background of controls

// -- pixmaps

// The pixels that icons are made of on 8 planes: the cells of the library, but not those that change while it shades.
grx::NearestColour icon_cells(const grx::PixelColours& screen) {
    grx::NearestColour nearest;
    const INT last = std::clamp<INT>(grx_premier_index_rendu(), 0, GRX_NB_COULEURS);
    for (INT i = 0; i < last; ++i)
        if (grx::system_pix[i] >= 0)
            nearest.add(screen.colour_of(static_cast<unsigned long>(grx::system_pix[i])),
                static_cast<unsigned int>(grx::system_pix[i]));
    return nearest;
}

// Turns colours into pixels for icons.
class IconPixels {
  public:
    IconPixels() : screen_(grx::window_colours()), nearest_(icon_cells(screen_)) {}

    unsigned long laid_on(const grx::Bgra& pixel, Pixel background, int x, int y) {
        if (pixel.alpha == 0) return background;
        const grx::Bgr mixed = grx::over(pixel, screen_.colour_of(background));
        if (!grx::deep_screen()) return pattern_pixel(mixed, x, y);
        const INT rgb[3] = {mixed.red, mixed.green, mixed.blue};
        return static_cast<UNSIGNED_INT>(grx::compose_pixel(grx::component_shifts(), rgb));
    }

  private:
    // A colour that no cell has becomes a pattern of those around it: the few cells have no light ones.
    unsigned long pattern_pixel(const grx::Bgr& wanted, int x, int y) {
        const unsigned long exact = nearest_.value_of(wanted);
        return grx::alike(screen_.colour_of(exact), wanted) ? exact : nearest_.value_of(grx::shifted(wanted, x, y));
    }

    grx::PixelColours screen_;
    grx::NearestColour nearest_;
};

// The pixels of an icon, blue, green, red, alpha.
struct IconSource {
    grx::Block<uchar> pixels;
    grx::Size size;

    grx::Bgra at(int x, int y) const {
        const auto place =
            static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width) + static_cast<std::size_t>(x);
        return grx::bgra_at(pixels.data() + grx::kAlphaBytes * place);
    }
};

void put_image(Pixmap pixmap, XImage* image) {
    GC context = XCreateGC(x11_disp, pixmap, 0, nullptr);
    XPutImage(x11_disp, pixmap, context, image, 0, 0, 0, 0, static_cast<unsigned int>(image->width),
        static_cast<unsigned int>(image->height));
    XFreeGC(x11_disp, context);
}

// None when memory is short.
Pixmap make_look(const IconSource& icon, IconLook look, Pixel background, IconPixels& pixels, Drawable on) {
    constexpr int pad = 32;
    XImage* const image = grx::make_image(nullptr, {icon.size.width, icon.size.height}, profondeur_ecran, pad, 0);
    if (image == nullptr) return None;
    auto room = grx::Block<char>::raw(
        static_cast<std::size_t>(image->bytes_per_line) * static_cast<std::size_t>(icon.size.height));
    Pixmap pixmap = None;
    if (room) {
        image->data = room.data();
        for (int y = 0; y < icon.size.height; ++y)
            for (int x = 0; x < icon.size.width; ++x)
                XPutPixel(image, x, y, pixels.laid_on(grx::in_look(icon.at(x, y), look), background, x, y));
        pixmap = grx::make_pixmap(on, icon.size);
        put_image(pixmap, image);
    }
    grx::drop_image(image);
    return pixmap;
}

// -- what controls show

struct Looks {
    Pixmap normal = None, pressed = None, faint = None;
    bool whole() const { return normal != None && pressed != None && faint != None; }
};

// What a control's colours are: an icon is laid on them.
struct Grounds {
    Pixel plain = 0, pressed = 0;
    bool operator==(const Grounds&) const = default;
};

struct Icon {
    Widget widget = nullptr;
    IconSource source;
    Grounds grounds;
    Looks looks; // the record of the control owns `normal`
    bool held = false;
};

std::array<Icon*, GRX_NB_BOUTONS> icons{};
INT icons_end = 0; // behind the last one
bool watching = false;
bool changing = false; // the library itself sets what controls show
bool png_first = false;

Icon* icon_of(INT nobou) {
    return nobou >= 0 && nobou < GRX_NB_BOUTONS ? icons[grx::as_index(nobou)] : nullptr;
}

Grounds grounds_of(Widget w) {
    Grounds grounds;
    grounds.plain = grounds.pressed = w->core.background_pixel;
    if (XmIsPushButton(w) && grx::resource<Boolean>(w, XmNfillOnArm) != 0)
        grounds.pressed = grx::resource<Pixel>(w, XmNarmColor);
    return grounds;
}

Looks make_looks(const IconSource& source, const Grounds& grounds, Drawable on) {
    IconPixels pixels;
    return {make_look(source, IconLook::Normal, grounds.plain, pixels, on),
        make_look(source, IconLook::Pressed, grounds.pressed, pixels, on),
        make_look(source, IconLook::Faint, grounds.plain, pixels, on)};
}

void free_derived(const Looks& looks) {
    if (x11_disp == nullptr) return;
    grx::free_pixmap(looks.pressed);
    grx::free_pixmap(looks.faint);
}

void free_all(const Looks& looks) {
    free_derived(looks);
    grx::free_pixmap(looks.normal);
}

// The toolkit shows pressed push buttons and toggles by itself, but no drawn button.
void show_looks(Widget w, const Looks& looks, bool held) {
    changing = true;
    grx::Args args;
    args.set(XmNlabelType, XmPIXMAP).set(XmNlabelPixmap, held ? looks.pressed : looks.normal);
    args.set(XmNlabelInsensitivePixmap, looks.faint);
    if (XmIsPushButton(w)) args.set(XmNarmPixmap, looks.pressed);
    if (XmIsToggleButton(w)) args.set(XmNselectPixmap, looks.pressed).set(XmNselectInsensitivePixmap, looks.faint);
    XtSetValues(w, args.list(), args.count());
    changing = false;
}

// Leaves what the control shows in its normal look, which may be another icon.
void show_nothing_else(Widget w) {
    constexpr Pixmap none = XmUNSPECIFIED_PIXMAP;
    changing = true;
    grx::Args args;
    args.set(XmNlabelInsensitivePixmap, none);
    if (XmIsPushButton(w)) args.set(XmNarmPixmap, none);
    if (XmIsToggleButton(w)) args.set(XmNselectPixmap, none).set(XmNselectInsensitivePixmap, none);
    XtSetValues(w, args.list(), args.count());
    changing = false;
}

// The toolkit does not redraw a drawn button whose picture changes in these callbacks.
void show_in_callback(Widget w, const Icon* icon, bool pressed) {
    if (icon == nullptr) return;
    show_looks(w, icon->looks, pressed);
    XClearArea(x11_disp, grx::window_of(w), 0, 0, 0, 0, True);
}

void is_armed(Widget w, XtPointer number, XtPointer) {
    show_in_callback(w, icon_of(grx::number_in(number)), true);
}

void is_disarmed(Widget w, XtPointer number, XtPointer) {
    const Icon* const icon = icon_of(grx::number_in(number));
    show_in_callback(w, icon, icon != nullptr && icon->held);
}

void destroy(INT nobou) {
    Icon*& place = icons[grx::as_index(nobou)];
    place->~Icon();
    grx_free(reinterpret_cast<char*>(std::exchange(place, nullptr)), sizeof(Icon));
    while (icons_end > 0 && icons[grx::as_index(icons_end - 1)] == nullptr) --icons_end;
}

void widget_is_gone(Widget, XtPointer number, XtPointer) {
    const INT nobou = grx::number_in(number);
    const Icon* const icon = icon_of(nobou);
    if (icon == nullptr) return;
    free_derived(icon->looks);
    destroy(nobou);
}

void watch_control(Widget w, INT nobou) {
    XtPointer const number = grx::as_client_data(nobou);
    XtAddCallback(w, XmNdestroyCallback, widget_is_gone, number);
    if (!XmIsDrawnButton(w)) return;
    XtAddCallback(w, XmNarmCallback, is_armed, number);
    XtAddCallback(w, XmNdisarmCallback, is_disarmed, number);
}

void unwatch_control(Widget w, INT nobou) {
    XtPointer const number = grx::as_client_data(nobou);
    XtRemoveCallback(w, XmNdestroyCallback, widget_is_gone, number);
    if (!XmIsDrawnButton(w)) return;
    XtRemoveCallback(w, XmNarmCallback, is_armed, number);
    XtRemoveCallback(w, XmNdisarmCallback, is_disarmed, number);
}

// The control has another icon now, or none: this one goes, but for what the record owns.
void let_go(INT nobou) {
    Icon& icon = *icon_of(nobou);
    unwatch_control(icon.widget, nobou);
    show_nothing_else(icon.widget);
    free_derived(icon.looks);
    destroy(nobou);
}

// -- changes of colours

bool renew(Icon& icon, INT nobou, const Grounds& grounds) {
    const Looks looks = make_looks(icon.source, grounds, grx::window_of(icon.widget));
    if (!looks.whole()) {
        free_all(looks);
        return false;
    }
    const Looks former = std::exchange(icon.looks, looks);
    icon.grounds = grounds;
    show_looks(icon.widget, looks, icon.held);
    grx::give_pixmap(nobou, looks.normal);
    free_derived(former);
    return true;
}

void look_after(Widget w, INT nobou) {
    Icon& icon = *icon_of(nobou);
    const auto shown = grx::resource<Pixmap>(w, XmNlabelPixmap);
    if (shown != icon.looks.normal && shown != icon.looks.pressed) return let_go(nobou);
    const Grounds grounds = grounds_of(w);
    if (!(grounds == icon.grounds)) renew(icon, nobou, grounds);
}

void after_change(Widget, XtPointer, XtPointer call) {
    const auto& change = *static_cast<XtChangeHookDataRec*>(call);
    if (changing || icons_end == 0 || std::strcmp(change.type, XtHsetValues) != 0) return;
    for (INT nobou = 0; nobou < icons_end; ++nobou) {
        const Icon* const icon = icon_of(nobou);
        if (icon != nullptr && icon->widget == change.widget) return look_after(change.widget, nobou);
    }
}

// The hook goes with the display, and what was made for controls with them.
void forget_icons() {
    for (INT nobou = 0; nobou < GRX_NB_BOUTONS; ++nobou) {
        const Icon* const icon = icon_of(nobou);
        if (icon == nullptr) continue;
        if (x11_disp != nullptr) unwatch_control(icon->widget, nobou);
        free_derived(icon->looks);
        destroy(nobou);
    }
    watching = changing = png_first = false;
    grx::install_icons_by(nullptr);
}

void watch_changes() {
    grx::at_shut_down(forget_icons);
    if (!watching) XtAddCallback(XtHooksOfDisplay(x11_disp), XtNchangeHook, after_change, nullptr);
    watching = true;
}

// -- giving an icon

INT find_control(INT nobou, Widget& w) {
    if (x11_disp == nullptr || x11_vis == nullptr) return GRX_ECHEC_AFFICHAGE;
    w = grx::control_widget_if_any(nobou);
    if (w == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "nobou", nobou);
    return XmIsLabel(w) ? 1 : grx::refused(GRX_ECHEC_GENRE, "nobou", nobou);
}

// The pixels of a picture with four bytes each.
INT copy_source(const GRX_IMAGE& image, IconSource& source) {
    if (image.largeur > kLongestSide || image.hauteur > kLongestSide)
        return grx::refused(GRX_ECHEC_PARAMETRE, "largeur, hauteur");
    const std::size_t count = static_cast<std::size_t>(image.largeur) * static_cast<std::size_t>(image.hauteur);
    const auto bytes = static_cast<std::size_t>(image.octets_par_pixel);
    source.pixels = grx::Block<uchar>::raw(count * grx::kAlphaBytes);
    if (!source.pixels) return GRX_ECHEC_MEMOIRE;
    source.size = {image.largeur, image.hauteur};
    for (std::size_t i = 0; i < count; ++i) {
        const uchar* const from = image.pixels + bytes * i;
        uchar* const out = source.pixels.data() + grx::kAlphaBytes * i;
        out[3] = grx::kOpaque;
        std::memcpy(out, bytes == 1 ? image.palette[*from] : from, bytes == 3 ? grx::kTrueBytes : grx::kAlphaBytes);
    }
    return 1;
}

Icon* make_icon(IconSource source, Widget w) {
    auto* const room = grx_malloc(sizeof(Icon));
    if (room == nullptr) return nullptr;
    Icon* const icon = new (room) Icon;
    icon->widget = w;
    icon->source = std::move(source);
    icon->grounds = grounds_of(w);
    const Window window = grx::window_of(w);
    icon->looks = make_looks(icon->source, icon->grounds, window != None ? window : grx::root_window());
    if (icon->looks.whole()) return icon;
    free_all(icon->looks);
    icon->~Icon();
    grx_free(room, sizeof(Icon));
    return nullptr;
}

INT give_icon(INT nobou, Widget w, IconSource source) {
    Icon* const icon = make_icon(std::move(source), w);
    if (icon == nullptr) return GRX_ECHEC_MEMOIRE;
    icon->held = XmIsDrawnButton(w) && grx::resource<unsigned char>(w, XmNshadowType) == XmSHADOW_IN;
    watch_changes();
    show_looks(w, icon->looks, icon->held);
    if (icon_of(nobou) != nullptr) {
        unwatch_control(w, nobou);
        free_derived(icon_of(nobou)->looks);
        destroy(nobou);
    }
    icons[grx::as_index(nobou)] = icon;
    icons_end = std::max(icons_end, nobou + 1);
    watch_control(w, nobou);
    changing = true;
    grx::give_pixmap(nobou, icon->looks.normal);
    changing = false;
    return 1;
}

INT give_image(INT nobou, Widget w, const GRX_IMAGE& image) {
    IconSource source;
    const INT result = copy_source(image, source);
    return result == 1 ? give_icon(nobou, w, std::move(source)) : result;
}

INT give_bytes(INT nobou, Widget w, const grx::PictureBytes& bytes) {
    grx::PictureReader reader;
    if (const INT fault = reader.begin(bytes, grx::kAlphaBytes); fault != 1) return fault;
    IconSource source;
    source.size = {static_cast<int32_t>(reader.form().width), static_cast<int32_t>(reader.form().height)};
    if (source.size.width > kLongestSide || source.size.height > kLongestSide)
        return grx::refused(GRX_ECHEC_PARAMETRE, "largeur, hauteur");
    source.pixels = grx::picture_block(reader.form());
    if (!source.pixels) return GRX_ECHEC_MEMOIRE;
    const INT result = reader.read_all(source.pixels.data());
    return result == 1 ? give_icon(nobou, w, std::move(source)) : result;
}

// -- PNG files in the place of bitmap files

// NAME.PNG for NAME.BMP, in small letters where that is; null when there is none.
FILE* open_png_beside(const char* nom_fic) {
    char name[HOST_CHEMIN_MAX], beside[HOST_CHEMIN_MAX], nowhere[] = "";
    const std::size_t length = std::strlen(nom_fic);
    if (length == 0 || length + 5 > sizeof name) return nullptr;
    std::memcpy(name, nom_fic, length + 1);
    char small[] = "png", capital[] = "PNG";
    const bool capitals = name[length - 1] >= 'A' && name[length - 1] <= 'Z';
    nouvelle_extension(name, capitals ? capital : small, beside);
    FILE* file = nullptr;
    return ftext_open(&file, nowhere, beside, HOST_MODE_LECTURE) == -1 ? nullptr : file;
}

// For a label that has no number yet: laid on the colour of controls.
Pixmap plain_pixmap(const grx::PictureBytes& bytes) {
    GRX_IMAGE image;
    grx_init_image(&image);
    if (grx::read_image(bytes, image) != 1) return None;
    IconSource source;
    Pixmap pixmap = None;
    if (copy_source(image, source) == 1) {
        IconPixels pixels;
        const auto ground = static_cast<Pixel>(static_cast<UNSIGNED_INT>(grx_recup_couleur_icone(kBackgroundIcon)));
        pixmap = make_look(source, IconLook::Normal, ground, pixels, grx::root_window());
    }
    grx_libere_image(&image);
    return pixmap;
}

grx::IconGiven install_png(const char* nom_fic, INT nobou) {
    FILE* const file = open_png_beside(nom_fic);
    if (file == nullptr) return {};
    const grx::PictureBytes bytes(file);
    grx::IconGiven given;
    Widget w = nobou >= 0 ? grx::control_widget_if_any(nobou) : nullptr;
    if (nobou < 0)
        given.label = plain_pixmap(bytes);
    else if (w != nullptr && XmIsLabel(w))
        given.to_control = give_bytes(nobou, w, bytes) == 1;
    ftext_close(file);
    return given;
}

} // namespace

namespace grx {

void hold_icon_pressed(INT nobou, bool pressed) {
    Icon* const icon = ::icon_of(nobou);
    if (icon == nullptr || icon->held == pressed) return;
    icon->held = pressed;
    show_looks(icon->widget, icon->looks, pressed);
}

} // namespace grx

extern "C" {

INT grx_affecte_icone_bouton(INT nobou, const char* fichier) {
    Widget w = nullptr;
    if (const INT fault = find_control(nobou, w); fault != 1) return fault;
    if (fichier == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "fichier");
    FILE* const file = grx::open_regular(fichier);
    if (file == nullptr) return GRX_ECHEC_FICHIER;
    const INT result = give_bytes(nobou, w, grx::PictureBytes(file));
    std::fclose(file);
    return result;
}

INT grx_affecte_icone_memoire_bouton(INT nobou, const unsigned char* octets, INT nombre) {
    Widget w = nullptr;
    if (const INT fault = find_control(nobou, w); fault != 1) return fault;
    if (octets == nullptr || nombre < 1) return grx::refused(GRX_ECHEC_PARAMETRE, "octets, nombre", nombre);
    return give_bytes(nobou, w, grx::PictureBytes({octets, static_cast<std::size_t>(nombre)}));
}

INT grx_affecte_icone_image_bouton(INT nobou, const GRX_IMAGE* image) {
    Widget w = nullptr;
    if (const INT fault = find_control(nobou, w); fault != 1) return fault;
    if (!grx::is_image(image)) return grx::refused(GRX_ECHEC_PARAMETRE, "image");
    return give_image(nobou, w, *image);
}

INT grx_supprime_icone_bouton(INT nobou) {
    Widget w = nullptr;
    if (const INT fault = find_control(nobou, w); fault != 1)
        return fault == GRX_ECHEC_GENRE ? GRX_ECHEC_ABSENT : fault;
    if (icon_of(nobou) == nullptr) return GRX_ECHEC_ABSENT;
    let_go(nobou);
    grx::Args args;
    args.set(XmNlabelType, XmSTRING).set(XmNlabelPixmap, Pixmap{XmUNSPECIFIED_PIXMAP});
    XtSetValues(w, args.list(), args.count());
    grx::give_pixmap(nobou, None);
    return 1;
}

INT grx_affecte_icones_png(INT actif) {
    png_first = actif != 0;
    grx::at_shut_down(forget_icons);
    grx::install_icons_by(png_first ? install_png : nullptr);
    return 1;
}

INT grx_recup_icones_png(void) {
    return png_first ? 1 : 0;
}
}
