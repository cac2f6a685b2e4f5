// Font files and texts: whatever a file holds, asking for a text in it gives an answer and numbers that are numbers. The
// first bytes say how the text stands; the rest is the file.
#include "system/shut_down.h"
#include "fonts/glyph_image.h"
#include "fonts/text_layout.h"
#include "grx_plus.h"
#include "xt_gfx_t.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr std::size_t kHead = 24;

void require(bool holds) {
    if (!holds) std::abort();
}

GRX_TEXTE text_of(const std::uint8_t* head, int file) {
    GRX_TEXTE text;
    grx_init_texte_dessin(&text);
    std::memset(text.chaine, 'x', sizeof text.chaine);
    std::memcpy(text.chaine, head, 16);
    text.chaine[16] = '\0';
    std::snprintf(text.fontlabel, sizeof text.fontlabel, "/proc/self/fd/%d", file);
    text.hauteurlabel = std::exp(head[16] / 24.0 - 2);
    text.largeurlabel = head[17];
    text.cosinuslabel = head[18] - 128.0;
    text.sinuslabel = head[19] - 128.0;
    text.slantlabel = (head[20] - 128.0) / 16;
    text.mirorlabel = head[21] & 1;
    text.extentslabel[head[22]] = head[23];
    return text;
}

void ask_outlines(const GRX_TEXTE& text) {
    GRX_CONTOURS_TEXTE outlines;
    grx_init_contours_texte(&outlines);
    const INT result = grx_recup_contours_texte(&text, 0, &outlines);
    require(
        result == 1 || result == GRX_TEXTE_REMPLACE || result == GRX_ECHEC_PARAMETRE || result == GRX_ECHEC_MEMOIRE);
    if (result < 1) return;
    for (INT i = 0; i < outlines.nb_contours; ++i) require(outlines.debuts[i] <= outlines.debuts[i + 1]);
    for (INT i = 0; i < outlines.nb_points; ++i)
        require(std::isfinite(outlines.points[i].x) && std::isfinite(outlines.points[i].y));
}

void render(const GRX_TEXTE& text) {
    grx::TextLayout layout;
    if (grx::lay_out(text, layout) != 1) return;
    grx::GlyphImage image;
    for (std::size_t i = 0; i < std::min<std::size_t>(layout.count, 16); ++i)
        for (const grx::Ink ink : {grx::Ink::Soft, grx::Ink::Hard, grx::Ink::Touched})
            grx::render_letter(*layout.font, layout.letters[i], layout.frame.letters(), ink, image);
}

} // namespace

// What fontconfig reads once for the process is kept by pointers that the sanitizer does not recognise.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:XML_ParseBuffer\n";
}

extern "C" const char* __asan_default_options() {
    return "fast_unwind_on_malloc=0";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < kHead) return 0;
    const int file = memfd_create("font", 0);
    require(file >= 0 && write(file, data + kHead, size - kHead) == static_cast<ssize_t>(size - kHead));
    const GRX_TEXTE text = text_of(data, file);
    GRX_BOITE_TEXTE box;
    grx_init_boite_texte(&box);
    const INT result = grx_recup_boite_texte(&text, &box);
    require(result != 1 || (std::isfinite(box.x_min) && std::isfinite(box.longueur)));
    ask_outlines(text);
    if (grx_verifie_fonte_texte(text.fontlabel) == 1) render(text);
    grx::run_shut_down();
    close(file);
    return 0;
}
