// Letters of a font in one size and direction, rendered once and kept, for drawing texts: soft ones in the server, others
// here. What was not used for longest goes when there are too many, or their pixels take too much memory.
#include "drawing/strikes.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

constexpr std::size_t kMostStrikes = 128;
constexpr std::size_t kMostBytes = 16U << 20;
constexpr std::size_t kMostGlyphs = 30000; // of a strike: numbers of 16 bits
constexpr double kFraction = 128;          // of a pixel, to which sizes are rounded

NeverDestroyed<std::array<Strike, kMostStrikes>> strikes;
NeverDestroyed<GlyphImage> image;
Strike* last_strike = nullptr;
uint64_t uses = 0;
std::size_t total_bytes = 0;

void release(Strike& strike) {
    if (strike.set != None && x11_disp != nullptr) XRenderFreeGlyphSet(x11_disp, strike.set);
    total_bytes -= strike.bytes;
    strike = Strike{};
}

void forget_strikes() {
    for (Strike& strike : strikes.value) release(strike);
    image.value = {};
    last_strike = nullptr;
    uses = total_bytes = 0;
}

struct Wanted {
    uint64_t font;
    std::array<int32_t, 4> matrix;
    Ink ink;
    bool is(const Strike& strike) const { return strike.font == font && strike.matrix == matrix && strike.ink == ink; }
};

int32_t rounded(double value) {
    return static_cast<int32_t>(std::lround(value * kFraction));
}

Strike& oldest_strike() {
    return *std::min_element(strikes.value.begin(), strikes.value.end(),
        [](const Strike& a, const Strike& b) { return a.last_use < b.last_use; });
}

// The oldest that takes memory, null when only `but` does.
Strike* oldest_with_pixels(const Strike& but) {
    Strike* oldest = nullptr;
    for (Strike& strike : strikes.value) {
        if (strike.bytes == 0 || &strike == &but) continue;
        if (oldest == nullptr || strike.last_use < oldest->last_use) oldest = &strike;
    }
    return oldest;
}

void free_pixels(const Strike& but) {
    while (total_bytes > kMostBytes) {
        Strike* const oldest = oldest_with_pixels(but);
        if (oldest == nullptr) return;
        release(*oldest);
    }
}

Strike& new_strike(const Wanted& wanted) {
    at_shut_down(forget_strikes);
    Strike& strike = oldest_strike();
    release(strike);
    strike.font = wanted.font;
    strike.matrix = wanted.matrix;
    strike.ink = wanted.ink;
    return strike;
}

// -- the letters of one

uint32_t key_of(const Letter& letter, int phase_x, int phase_y) {
    const auto phase = static_cast<uint32_t>(phase_y * kPhases + phase_x);
    return (letter.glyph << 1 | (letter.borrowed ? 1U : 0U)) * (kPhases * kPhases) + phase;
}

std::size_t slot_of(const Strike& strike, uint32_t key) {
    constexpr uint32_t spread = 2654435761U;
    const std::size_t mask = strike.glyphs.size() - 1;
    std::size_t slot = (key * spread >> 12) & mask;
    while (strike.glyphs[slot].known && strike.glyphs[slot].key != key) slot = (slot + 1) & mask;
    return slot;
}

bool has_room(Strike& strike) {
    constexpr std::size_t first = 128;
    if (strike.glyphs.size() > 2 * strike.nb_glyphs) return true;
    Block<StrikeGlyph> wider(std::max(first, 2 * strike.glyphs.size()));
    if (!wider) return false;
    std::swap(strike.glyphs, wider);
    for (const StrikeGlyph& glyph : wider)
        if (glyph.known) strike.glyphs[slot_of(strike, glyph.key)] = glyph;
    return true;
}

// Begins anew, for fonts with very many letters.
void empty_if_full(Strike& strike) {
    if (strike.nb_glyphs < kMostGlyphs) return;
    const Wanted same{strike.font, strike.matrix, strike.ink};
    release(strike);
    strike.font = same.font;
    strike.matrix = same.matrix;
    strike.ink = same.ink;
}

// The server wants as many bytes for each row as fill 32 bits.
void send(Strike& strike, const StrikeGlyph& glyph, const GlyphImage& pixels) {
    if (strike.set == None)
        strike.set = XRenderCreateGlyphSet(x11_disp, XRenderFindStandardFormat(x11_disp, PictStandardA8));
    const XGlyphInfo info{
        glyph.width, glyph.height, static_cast<short>(-glyph.left), static_cast<short>(-glyph.top), 0, 0};
    const Glyph number = glyph.where;
    XRenderAddGlyphs(x11_disp, strike.set, &number, &info, 1, reinterpret_cast<const char*>(pixels.pixels().data()),
        static_cast<int>(pixels.bytes()));
}

bool keep_bits(Strike& strike, StrikeGlyph& glyph, const GlyphImage& pixels) {
    constexpr std::size_t first = 2048;
    const std::size_t wanted = strike.nb_bits + pixels.bytes();
    if (wanted > strike.bits.size() && !strike.bits.resize(std::max({first, wanted, 2 * strike.bits.size()})))
        return false;
    std::copy_n(pixels.rows.data(), pixels.bytes(), strike.bits.data() + strike.nb_bits);
    glyph.where = static_cast<uint32_t>(strike.nb_bits);
    strike.nb_bits = wanted;
    return true;
}

bool keep_pixels(Strike& strike, StrikeGlyph& glyph, const GlyphImage& pixels) {
    glyph.left = static_cast<int16_t>(pixels.left);
    glyph.top = static_cast<int16_t>(pixels.top);
    glyph.width = static_cast<uint16_t>(pixels.width);
    glyph.height = static_cast<uint16_t>(pixels.height);
    glyph.where = static_cast<uint32_t>(strike.nb_glyphs);
    if (pixels.bytes() == 0) return true;
    if (strike.ink != Ink::Soft && !keep_bits(strike, glyph, pixels)) return false;
    if (strike.ink == Ink::Soft) send(strike, glyph, pixels);
    strike.bytes += pixels.bytes();
    total_bytes += pixels.bytes();
    free_pixels(strike);
    return true;
}

Affine place_of(const Strike& strike, int phase_x, int phase_y) {
    const auto& m = strike.matrix;
    return {m[0] / kFraction, m[1] / kFraction, m[2] / kFraction, m[3] / kFraction,
        static_cast<double>(phase_x) / kPhases, static_cast<double>(phase_y) / kPhases};
}

} // namespace

Strike& strike_for(const Font& font, const Affine& letters, Ink ink) {
    const Wanted wanted{
        font.serial, {rounded(letters.xx), rounded(letters.xy), rounded(letters.yx), rounded(letters.yy)}, ink};
    if (last_strike == nullptr || !wanted.is(*last_strike)) {
        const auto found = std::find_if(
            strikes.value.begin(), strikes.value.end(), [&wanted](const Strike& strike) { return wanted.is(strike); });
        last_strike = found != strikes.value.end() ? &*found : &new_strike(wanted);
    }
    empty_if_full(*last_strike);
    last_strike->last_use = ++uses;
    return *last_strike;
}

const StrikeGlyph* strike_glyph(Strike& strike, const Font& font, const Letter& letter, int phase_x, int phase_y) {
    const uint32_t key = key_of(letter, phase_x, phase_y);
    if (strike.glyphs) {
        const StrikeGlyph& kept = strike.glyphs[slot_of(strike, key)];
        if (kept.known) return &kept;
    }
    if (!has_room(strike)) return nullptr;
    const Rendered rendered = render_letter(font, letter, place_of(strike, phase_x, phase_y), strike.ink, image.value);
    if (rendered == Rendered::NoMemory) return nullptr;
    StrikeGlyph glyph{key, true, rendered == Rendered::TooLarge, 0, 0, 0, 0, 0};
    if (!glyph.large && !keep_pixels(strike, glyph, image.value)) return nullptr;
    ++strike.nb_glyphs;
    return &(strike.glyphs[slot_of(strike, key)] = glyph);
}

} // namespace grx
