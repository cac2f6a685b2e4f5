// The server's RENDER extension, for letters and pictures with soft edges: whether it can be used on this screen, and the
// pictures by which it knows targets and colours.
#include "display/render.h"

#include <algorithm>
#include <array>

#include "system/shut_down.h"
#include "display/screen.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

enum class Found : char { NotAsked, No, Yes };
Found found = Found::NotAsked;
XRenderPictFormat* format = nullptr;

struct Target {
    Drawable drawable;
    Picture picture;
};
constexpr std::size_t kTargets = 8;
std::array<Target, kTargets> targets{};
std::size_t next_target = 0;

struct Colour {
    unsigned long pixel;
    Picture picture;
};
constexpr std::size_t kColours = 16;
std::array<Colour, kColours> colours{};
std::size_t next_colour = 0;

void free_picture(Picture& picture) {
    if (picture != None && x11_disp != nullptr) XRenderFreePicture(x11_disp, picture);
    picture = None;
}

void forget_render() {
    for (Target& target : targets) free_picture(target.picture);
    for (Colour& colour : colours) free_picture(colour.picture);
    targets = {};
    colours = {};
    next_target = next_colour = 0;
    found = Found::NotAsked;
    format = nullptr;
}

// Pictures that are one colour came with 0.10.
bool version_will_do() {
    constexpr int least = 10;
    int event = 0, error = 0, major = 0, minor = 0;
    if (XRenderQueryExtension(x11_disp, &event, &error) == False) return false;
    return XRenderQueryVersion(x11_disp, &major, &minor) != 0 && (major > 0 || minor >= least);
}

bool find_format() {
    if (!deep_screen() || !version_will_do()) return false;
    format = XRenderFindVisualFormat(x11_disp, x11_vis);
    return format != nullptr && format->type == PictTypeDirect;
}

Target* known_target(Drawable drawable) {
    auto* const target = std::find_if(targets.begin(), targets.end(),
        [drawable](const Target& t) { return t.picture != None && t.drawable == drawable; });
    return target != targets.end() ? target : nullptr;
}

// The server frees the picture of a window with the window.
void window_goes(Widget, XtPointer client, XtPointer) {
    Target* const target = known_target(reinterpret_cast<Drawable>(client));
    if (target != nullptr) *target = {};
}

void watch(Widget owner, Drawable window) {
    auto* const client = reinterpret_cast<XtPointer>(window);
    XtRemoveCallback(owner, const_cast<char*>(XtNdestroyCallback), window_goes, client);
    XtAddCallback(owner, const_cast<char*>(XtNdestroyCallback), window_goes, client);
}

unsigned short component(unsigned long pixel, unsigned long mask, short shift) {
    constexpr unsigned long full = 0xFFFF;
    const unsigned long share = mask != 0 ? (pixel >> shift & mask) * full / mask : 0;
    return static_cast<unsigned short>(share);
}

XRenderColor colour_of(unsigned long pixel) {
    const XRenderDirectFormat& d = format->direct;
    return {component(pixel, static_cast<unsigned long>(d.redMask), d.red),
        component(pixel, static_cast<unsigned long>(d.greenMask), d.green),
        component(pixel, static_cast<unsigned long>(d.blueMask), d.blue), 0xFFFF};
}

} // namespace

bool has_render() {
    if (found != Found::NotAsked) return found == Found::Yes;
    at_shut_down(forget_render);
    found = find_format() ? Found::Yes : Found::No;
    return found == Found::Yes;
}

Picture target_picture(Drawable drawable, Widget owner) {
    if (const Target* known = known_target(drawable)) return known->picture;
    Target& target = targets[next_target++ % kTargets];
    free_picture(target.picture);
    target = {drawable, XRenderCreatePicture(x11_disp, drawable, format, 0, nullptr)};
    if (owner != nullptr) watch(owner, drawable);
    return target.picture;
}

void hold_target_picture(Picture target, const XRectangle* rectangle) {
    if (rectangle != nullptr) {
        XRenderSetPictureClipRectangles(x11_disp, target, 0, 0, rectangle, 1);
        return;
    }
    XRenderPictureAttributes everywhere{};
    everywhere.clip_mask = None;
    XRenderChangePicture(x11_disp, target, CPClipMask, &everywhere);
}

Picture colour_picture(unsigned long pixel) {
    for (const Colour& colour : colours)
        if (colour.picture != None && colour.pixel == pixel) return colour.picture;
    Colour& colour = colours[next_colour++ % kColours];
    free_picture(colour.picture);
    const XRenderColor value = colour_of(pixel);
    colour = {pixel, XRenderCreateSolidFill(x11_disp, &value)};
    return colour.picture;
}

void forget_target_picture(Drawable drawable) {
    Target* const target = known_target(drawable);
    if (target == nullptr) return;
    free_picture(target->picture);
    *target = {};
}

} // namespace grx
