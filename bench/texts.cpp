// Texts that scale and turn against Xlib's own strings of the same letters, in one process on one server.
// In a window that the server saves both pay for that; in a picture what is left is blending soft letters against copying
// hard ones, which no cache of letters takes away.
// Usage: bench_texts [--gate]   (--gate: fail when one takes clearly longer than it may)
#include "bench/chrono.h"
#include "bench/report.h"
#include "bench/session.h"

#include "grx_plus.h"
#include "xt_f.h"

#include <X11/Xlib.h>

#include <cmath>
#include <cstring>
#include <numbers>
#include <vector>

namespace {

constexpr int kTexts = 20000;
constexpr int kRounds = 7;
constexpr int kSide = 900;
constexpr double kMost = 2.0;
constexpr double kMostInPicture = 7.0;
constexpr char kLetters[] = "Cloison 12,5";

Drawable target = None;
std::vector<GRX_TEXTE> texts;

// Half of the texts are turned, by `angles` different angles.
void make_texts(INT nofen, const char* font, double height, int angles) {
    texts.resize(kTexts);
    for (int i = 0; i < kTexts; ++i) {
        GRX_TEXTE& text = texts[static_cast<std::size_t>(i)];
        grx_init_texte_dessin(&text);
        std::strcpy(text.chaine, kLetters);
        std::strcpy(text.fontlabel, font);
        text.nofen = nofen;
        text.x = 60 + i % (kSide - 160);
        text.y = 60 + i * 7 % (kSide - 120);
        text.hauteurlabel = height;
        text.attrib = {0, 15, 0, 0, 0, 0};
        if (i % 2 == 0) continue;
        const double angle = 2 * std::numbers::pi * (i / 2 % angles) / angles + 0.3;
        text.cosinuslabel = std::cos(angle);
        text.sinuslabel = std::sin(angle);
    }
}

void draw_plain() {
    for (const GRX_TEXTE& text : texts)
        XDrawString(x11_disp, target, g_c, text.x, text.y, kLetters, static_cast<int>(std::strlen(kLetters)));
    XSync(x11_disp, False);
}

void draw_texts() {
    for (const GRX_TEXTE& text : texts) grx_trace_texte_dessin(&text);
    XSync(x11_disp, False);
}

void measure(const char* name, INT nofen, const char* font, double height, int angles, double most) {
    make_texts(nofen, font, height, angles);
    grxbench::report(name, grxbench::compare(kRounds, draw_plain, draw_texts), most, "XDrawString");
}

} // namespace

int main(int argc, char** argv) {
    const bool gate = argc > 1 && std::strcmp(argv[1], "--gate") == 0;
    const INT nofen = grxbench::start_with_plan(kSide, kSide);
    if (nofen == GRX_AUCUN) return 2;
    target = XtWindow(grx_recup_objet_fen(nofen));
    measure("window, 4 angles", nofen, "", 8, 4, kMost);
    measure("window, 36 angles", nofen, "", 8, 36, kMost);
    STRUCTURE_FENETRE* record = nullptr;
    grx_recup_structure_fenetre(nofen, &record);
    grx_alloue_image(nofen);
    target = *record->image;
    measure("picture, 4 angles", nofen, "", 8, 4, kMostInPicture);
    measure("picture, 36 angles", nofen, "", 8, 36, kMostInPicture);
    grx_desalloue_image();
    return gate && grxbench::above > 0 ? 1 : 0;
}
