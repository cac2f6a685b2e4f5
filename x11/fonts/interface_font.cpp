// Opens the font of the interface and measures in it. Fontconfig finds outline fonts, and has an answer for every name: only
// the family that was asked for is taken.
#include "fonts/interface_font.h"

#include <X11/Xft/Xft.h>
#include <X11/extensions/Xrender.h>

#include <algorithm>
#include <cstring>
#include <span>
#include <utility>

#include "pure/font_name.h"
#include "pure/text.h"
#include "pure/utf8.h"
#include "display/resolution.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

XftFont* opened = nullptr;

// Frees itself.
class Pattern {
  public:
    explicit Pattern(FcPattern* pattern) : pattern_(pattern) {}
    ~Pattern() {
        if (pattern_ != nullptr) FcPatternDestroy(pattern_);
    }
    Pattern(const Pattern&) = delete;
    Pattern& operator=(const Pattern&) = delete;

    FcPattern* get() const { return pattern_; }
    FcPattern* release() { return std::exchange(pattern_, nullptr); }

  private:
    FcPattern* pattern_;
};

FcPattern* parsed(std::string_view text) {
    Block<char> name(text.size() + 1);
    if (!name) return nullptr;
    text.copy(name.data(), text.size());
    FcPattern* const pattern = FcNameParse(reinterpret_cast<const FcChar8*>(name.data()));
    if (pattern == nullptr) return nullptr;
    FcPatternDel(pattern, FC_MATRIX); // letters of no size have the server refuse them
    FcValue given;
    if (FcPatternGet(pattern, FC_DPI, 0, &given) != FcResultMatch)
        FcPatternAddDouble(pattern, FC_DPI, screen_resolution());
    return pattern;
}

const FcChar8* family_of(FcPattern* pattern, int n) {
    FcChar8* family = nullptr;
    return FcPatternGetString(pattern, FC_FAMILY, n, &family) == FcResultMatch ? family : nullptr;
}

bool has_family(FcPattern* font, const FcChar8* wanted) {
    for (int n = 0; const FcChar8* const family = family_of(font, n); ++n)
        if (FcStrCmpIgnoreCase(family, wanted) == 0) return true;
    return false;
}

// Fontconfig gives its default for a family that it has not.
bool is_what_was_wanted(FcPattern* wanted, FcPattern* font) {
    if (family_of(wanted, 0) == nullptr) return true;
    for (int n = 0; const FcChar8* const family = family_of(wanted, n); ++n)
        if (is_generic_family(reinterpret_cast<const char*>(family)) || has_family(font, family)) return true;
    return false;
}

bool has_usable_size(FcPattern* font) {
    constexpr double least = 4, most = 200;
    double pixels = 0;
    return FcPatternGetDouble(font, FC_PIXEL_SIZE, 0, &pixels) == FcResultMatch && pixels >= least && pixels <= most;
}

// The font that fontconfig finds, null when it is another than was wanted.
FcPattern* matching(std::string_view text) {
    const Pattern wanted(parsed(text));
    if (wanted.get() == nullptr) return nullptr;
    const Pattern search(FcPatternDuplicate(wanted.get()));
    FcResult result = FcResultNoMatch;
    Pattern found(search.get() != nullptr ? XftFontMatch(x11_disp, x11_screen, search.get(), &result) : nullptr);
    if (found.get() == nullptr || !has_usable_size(found.get())) return nullptr;
    return is_what_was_wanted(wanted.get(), found.get()) ? found.release() : nullptr;
}

// The toolkit draws outline fonts with the display's default visual only.
bool server_blends() {
    constexpr int planes = 24;
    XVisualInfo info{};
    if (prof_24 == 0 || !XMatchVisualInfo(x11_disp, x11_screen, planes, TrueColor, &info)) return false;
    int event = 0, error = 0;
    return info.visual == DefaultVisual(x11_disp, x11_screen) && XRenderQueryExtension(x11_disp, &event, &error)
           && XRenderFindVisualFormat(x11_disp, info.visual) != nullptr;
}

XftFont* open_matching(std::string_view text) {
    Pattern found(matching(text));
    if (found.get() == nullptr) return nullptr;
    XftFont* const font = XftFontOpenPattern(x11_disp, found.get());
    if (font != nullptr) found.release(); // it is the font's now
    return font;
}

// In UTF-8; a text that is not has Latin-1.
class Utf8Text {
  public:
    explicit Utf8Text(std::string_view text) : text_(text) {
        if (is_utf8(text)) return;
        made_ = Block<char>(utf8_size(text));
        if (!made_) return;
        write_utf8(text, made_.data());
        text_ = {made_.data(), made_.size()};
    }
    const FcChar8* bytes() const { return reinterpret_cast<const FcChar8*>(text_.data()); }
    int count() const { return static_cast<int>(text_.size()); }

  private:
    std::string_view text_;
    Block<char> made_;
};

int outline_width(std::string_view text) {
    const Utf8Text utf8(text);
    XGlyphInfo extents{};
    XftTextExtentsUtf8(x11_disp, opened, utf8.bytes(), utf8.count(), &extents);
    return extents.xOff;
}

XftColor blended(unsigned long pixel) {
    XColor colour{};
    colour.pixel = pixel;
    XQueryColor(x11_disp, DefaultColormap(x11_disp, x11_screen), &colour);
    return {pixel, {colour.red, colour.green, colour.blue, UINT16_MAX}};
}

void draw_outlines(Window window, unsigned long pixel, XRectangle part, XPoint at, std::string_view text) {
    XftDraw* const target =
        XftDrawCreate(x11_disp, window, DefaultVisual(x11_disp, x11_screen), DefaultColormap(x11_disp, x11_screen));
    if (target == nullptr) return;
    const XftColor colour = blended(pixel);
    XftDrawSetClipRectangles(target, 0, 0, &part, 1);
    XftDrawStringUtf8(target, &colour, opened, at.x, at.y, reinterpret_cast<const FcChar8*>(text.data()),
        static_cast<int>(text.size()));
    XftDrawDestroy(target);
}

} // namespace

Outline open_outline_font(std::string_view pattern, int& height) {
    // Known before Xft is: what is known last is let go first when the display is closed, and Xft, which gives its glyphs
    // back then, would have RENDER known again, for good.
    int event = 0, error = 0;
    XRenderQueryExtension(x11_disp, &event, &error);
    XftFont* const font = open_matching(pattern);
    if (font == nullptr) return Outline::not_there;
    height = font->ascent + font->descent;
    if (server_blends()) {
        opened = font;
        return Outline::opened;
    }
    XftFontClose(x11_disp, font);
    return Outline::too_plain_a_server;
}

XftFont* outline_font() {
    return opened;
}

XftFont* shared_outline_font() {
    return opened != nullptr ? XftFontCopy(x11_disp, opened) : nullptr;
}

void close_outline_font() {
    if (opened != nullptr && x11_disp != nullptr) XftFontClose(x11_disp, opened);
    opened = nullptr;
}

Block<char> server_font_of_height(int height) {
    constexpr int most = 4000;
    int count = 0;
    char** const names = XListFonts(x11_disp, "-*-*-medium-r-normal-*-*-*-*-*-*-*-iso8859-1", most, &count);
    const std::span<const char* const> all(names, static_cast<std::size_t>(names != nullptr ? count : 0));
    const std::size_t nearest = nearest_in_height(all, height);
    const std::string_view name = nearest < all.size() ? all[nearest] : "fixed";
    Block<char> copy(name.size() + 1);
    if (copy) name.copy(copy.data(), name.size());
    if (names != nullptr) XFreeFontNames(names);
    return copy;
}

bool has_interface_font() {
    return opened != nullptr || fontstruct != nullptr;
}

int interface_ascent() {
    if (opened != nullptr) return opened->ascent;
    return fontstruct != nullptr ? fontstruct->ascent : 0;
}

int interface_descent() {
    if (opened != nullptr) return opened->descent;
    return fontstruct != nullptr ? fontstruct->descent : 0;
}

int interface_text_width(std::string_view text) {
    if (opened != nullptr) return outline_width(text);
    return fontstruct != nullptr ? XTextWidth(fontstruct, text.data(), static_cast<int>(text.size())) : 0;
}

void draw_interface_text(
    Window window, GC context, unsigned long pixel, XRectangle part, XPoint at, std::string_view text) {
    if (opened != nullptr) return draw_outlines(window, pixel, part, at, text);
    XSetForeground(x11_disp, context, pixel);
    XSetClipRectangles(x11_disp, context, 0, 0, &part, 1, YXBanded);
    XDrawString(x11_disp, window, context, at.x, at.y, text.data(), static_cast<int>(text.size()));
}

} // namespace grx
