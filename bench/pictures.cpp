// Whole pictures against plain XPutImage and XGetImage, in one process on one server (24 planes).
// Usage: bench_pictures [--gate]
#include "bench/chrono.h"

#include "host_f.h"
#include "pure/pixels.h"
#include "xt_f.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstring>
#include <vector>

namespace {

constexpr int kWidth = 1000, kHeight = 800;
constexpr int kRounds = 15, kRepeats = 10;
constexpr double kNoise = 0.10;

INT window_number = -1;
int above = 0;

bool open_window() {
    grx_alloue_base_fenetres();
    grx_alloue_base_boutons();
    if (grx_init_application() == 0) return false;
    GRX_FENETRE fenetre;
    grx_init_fenetre(&fenetre);
    fenetre.type = GRX_FEN_GRAPHIQUE;
    fenetre.droite = kWidth;
    fenetre.haut = kHeight;
    if (grx_cree_fenetre(&fenetre) != 0) return false;
    window_number = fenetre.nofen;
    grx_affecte_nofen_active(window_number);
    grx_attend_creation_fenetre(window_number);
    return true;
}

template <class Work>
auto repeated(Work work) {
    return [work] {
        for (int i = 0; i < kRepeats; ++i) work();
        XSync(x11_disp, False);
    };
}

void report(const char* name, const grxbench::Comparison& c, double most) {
    const double ratio = c.library / c.plain;
    std::printf("%-18s plain %6.2f ms  grx %6.2f ms  ratio %.2f (at most %.1f)\n", name, c.plain / kRepeats * 1e3,
        c.library / kRepeats * 1e3, ratio, most);
    if (ratio > most + kNoise) ++above;
}

XImage* ready_made(Window window) {
    return XGetImage(x11_disp, window, 0, 0, kWidth, kHeight, AllPlanes, ZPixmap);
}

} // namespace

int main(int argc, char** argv) {
    const bool gate = argc > 1 && std::strcmp(argv[1], "--gate") == 0;
    if (!open_window()) return 2;
    const Window window = XtWindow(grx_recup_objet_fen(window_number));
    std::vector<uchar> picture(static_cast<std::size_t>(kWidth) * kHeight * 3);
    for (std::size_t i = 0; i < picture.size(); ++i) picture[i] = static_cast<uchar>(i * 7 / 3);
    std::vector<uchar> indices(static_cast<std::size_t>(kWidth) * kHeight);
    XImage* const image = ready_made(window);
    const auto plain_put = repeated([&] { XPutImage(x11_disp, window, g_c, image, 0, 0, 0, 0, kWidth, kHeight); });
    report("put 1000x800", grxbench::compare(kRounds, plain_put, repeated([&] {
        grx_trace_image_dans_widget(GRX_CIBLE_FENETRE, window_number, picture.data(), kWidth, kHeight, 0, 0);
    })),
        0.7);
    report("stretch from half", grxbench::compare(kRounds, plain_put, repeated([&] {
        grx_stretch_image(GRX_CIBLE_FENETRE, window_number, picture.data(), picture.data(), kWidth / 2, kHeight / 2, 0,
            0, kWidth, kHeight);
    })),
        0.7);
    const auto plain_get = repeated([&] { XDestroyImage(ready_made(window)); });
    report("read back", grxbench::compare(kRounds, plain_get, repeated([&] {
        grx_recup_image(0, 0, kWidth, kHeight, indices.data());
    })),
        0.8);
    std::vector<uint32_t> packed(static_cast<std::size_t>(kWidth) * kHeight);
    const grx::DeepPacker packer({dec_red, dec_green, dec_blue});
    const double packing = grxbench::seconds([&] {
        for (int i = 0; i < kRepeats; ++i) packer.row(packed.data(), picture.data(), packed.size());
    });
    std::printf("conversion alone   %.2f ms\n", packing / kRepeats * 1e3);
    XDestroyImage(image);
    return gate && above > 0 ? 1 : 0;
}
