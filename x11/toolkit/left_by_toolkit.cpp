// What the toolkit keeps of a display for good, and would use with the next one: for the end of the library's work. These are
// its own variables and functions, which no header declares; a toolkit without them has nothing to forget.
#include <X11/Intrinsic.h>
#include <Xm/XmP.h>
#include <Xm/ColorP.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <malloc.h>
#include <span>

#include "toolkit/args.h"
#include "toolkit/forget_toolkit.h"
#include "xt_ini_t.h"

extern "C" {
[[gnu::weak]] extern Display* _XmColorObjCacheDisplay; // of the first display object
[[gnu::weak]] extern Widget _XmDefaultColorObj;
[[gnu::weak]] Boolean _XmSearchColorCache(unsigned int which, XmColorData* values, XmColorData** found);
}

namespace grx {

namespace {

// The toolkit's default fonts of a display that was closed, which it goes on giving for a display at the same address.
constexpr const char* kDefaultFont = "fixed"; // the toolkit's own

struct Left {
    Display* display;
    XmRenderTable fonts;
};
constexpr std::size_t kMost = 64; // addresses that displays have had
std::array<Left, kMost> left{};
std::size_t count = 0;

Left* left_by(const Display* display) {
    const auto end = left.begin() + static_cast<std::ptrdiff_t>(count);
    const auto found = std::find_if(left.begin(), end, [=](const Left& l) { return l.display == display; });
    return found != end ? &*found : nullptr;
}

void note_default_fonts() {
    if (left_by(x11_disp) != nullptr || count == kMost) return;
    left[count++] = {x11_disp, XmeGetDefaultRenderTable(XmGetXmDisplay(x11_disp), 0)};
}

// The first font of a list, null when there is none.
XFontStruct* font_in(XmFontListEntry entry) {
    XmFontType kind = XmFONT_IS_FONT;
    XtPointer const font = entry != nullptr ? XmFontListEntryGetFont(entry, &kind) : nullptr;
    return kind == XmFONT_IS_FONT ? static_cast<XFontStruct*>(font) : nullptr;
}

XFontStruct* font_of(XmRendition rendition) {
    XtPointer font = nullptr;
    Args args;
    args.set(XmNfont, &font);
    XmRenditionRetrieve(rendition, args.list(), args.count());
    return static_cast<XFontStruct*>(font);
}

// Writes the font into the record that all copies of a rendition share. XmRenditionUpdate would change a copy of its own, and
// no header tells where the font stands.
void replace_font(XmRendition rendition, XFontStruct* font) {
    XFontStruct* const former = font_of(rendition);
    if (former == nullptr) return;
    auto** const words = *reinterpret_cast<XFontStruct***>(rendition);
    const std::span record(words, malloc_usable_size(words) / sizeof *words);
    std::replace(record.begin(), record.end(), former, font);
}

// Gives the default fonts of a former display a font of the present one.
void renew_font(XmRenderTable fonts) {
    XmRendition rendition = XmRenderTableGetRendition(fonts, const_cast<char*>(XmFONTLIST_DEFAULT_TAG));
    XmFontListEntry fresh = XmFontListEntryLoad(
        x11_disp, const_cast<char*>(kDefaultFont), XmFONT_IS_FONT, const_cast<char*>(XmFONTLIST_DEFAULT_TAG));
    XFontStruct* const font = font_in(fresh);
    if (rendition != nullptr && font != nullptr) replace_font(rendition, font);
    if (rendition != nullptr) XmRenditionFree(rendition);
    if (fresh != nullptr) XmFontListEntryFree(&fresh);
}

// The colours computed for a background, by the address of the screen. The next screen may have the same address and other
// colours.
void forget_colours_of(Screen* screen) {
    XmColorData wanted{};
    XmColorData* found = nullptr;
    wanted.screen = screen;
    while (_XmSearchColorCache(XmLOOK_AT_SCREEN, &wanted, &found) == True) found->screen = nullptr;
}

} // namespace

void renew_display_in_toolkit() {
    if (const Left* const former = left_by(x11_disp)) renew_font(former->fonts);
}

void note_display_in_toolkit() {
    note_default_fonts();
}

void forget_display_in_toolkit() {
    if (&_XmColorObjCacheDisplay != nullptr) _XmColorObjCacheDisplay = nullptr;
    if (&_XmDefaultColorObj != nullptr) _XmDefaultColorObj = nullptr;
    if (_XmSearchColorCache == nullptr) return;
    for (int i = 0; i < ScreenCount(x11_disp); ++i) forget_colours_of(ScreenOfDisplay(x11_disp, i));
}

} // namespace grx
