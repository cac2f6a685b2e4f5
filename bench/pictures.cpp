// Whole pictures against plain XPutImage and XGetImage, in one process on one server (24 planes): with the server's
// shared memory, and in a process of its own without.
// Usage: bench_pictures [--gate]
#include "bench/chrono.h"
#include "bench/session.h"

#include "host_f.h"
#include "pure/pixels.h"
#include "xt_f.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

constexpr int kWidth = 1000, kHeight = 800;
constexpr int kRounds = 15, kRepeats = 10;
constexpr double kNoise = 0.10;

INT window_number = -1;
int above = 0;

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

struct Limits {
    double put, stretch, read;
};
constexpr Limits kShared{0.7, 0.7, 0.8}, kAlone{1.3, 1.3, 1.3};

using Pixels = std::vector<uchar>;

void measure_putting(Window window, Pixels& picture, const Limits& most) {
    XImage* const image = ready_made(window);
    const auto plain_put = repeated([&] { XPutImage(x11_disp, window, g_c, image, 0, 0, 0, 0, kWidth, kHeight); });
    report("put 1000x800", grxbench::compare(kRounds, plain_put, repeated([&] {
        grx_trace_image_dans_widget(GRX_CIBLE_FENETRE, window_number, picture.data(), kWidth, kHeight, 0, 0);
    })),
        most.put);
    report("stretch from half", grxbench::compare(kRounds, plain_put, repeated([&] {
        grx_stretch_image(GRX_CIBLE_FENETRE, window_number, picture.data(), picture.data(), kWidth / 2, kHeight / 2, 0,
            0, kWidth, kHeight);
    })),
        most.stretch);
    XDestroyImage(image);
}

void measure_reading(Window window, const Limits& most) {
    Pixels indices(static_cast<std::size_t>(kWidth) * kHeight);
    const auto plain_get = repeated([&] { XDestroyImage(ready_made(window)); });
    report("read back", grxbench::compare(kRounds, plain_get, repeated([&] {
        grx_recup_image(0, 0, kWidth, kHeight, indices.data());
    })),
        most.read);
}

void measure_conversion(const Pixels& picture) {
    std::vector<uint32_t> packed(static_cast<std::size_t>(kWidth) * kHeight);
    const grx::DeepPacker packer({dec_red, dec_green, dec_blue});
    const double packing = grxbench::seconds([&] {
        for (int i = 0; i < kRepeats; ++i) packer.row(packed.data(), picture.data(), packed.size());
    });
    std::printf("conversion alone   %.2f ms\n", packing / kRepeats * 1e3);
}

bool sharing = true;

// 0, or 1 when something is above its limit, or 2 when there was no window.
int measure_all(bool shared) {
    sharing = shared;
    std::printf("%s shared memory\n", shared ? "with" : "without");
    window_number = grxbench::start_with_plan(kWidth, kHeight);
    if (window_number == GRX_AUCUN) return 2;
    const Window window = XtWindow(grx_recup_objet_fen(window_number));
    Pixels picture(static_cast<std::size_t>(kWidth) * kHeight * 3);
    for (std::size_t i = 0; i < picture.size(); ++i) picture[i] = static_cast<uchar>(i * 7 / 3);
    measure_putting(window, picture, shared ? kShared : kAlone);
    measure_reading(window, shared ? kShared : kAlone);
    measure_conversion(picture);
    std::fflush(stdout);
    return above > 0 ? 1 : 0;
}

int measure_elsewhere(bool shared) {
    const pid_t child = fork();
    if (child == 0) _exit(measure_all(shared));
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : 2;
}

} // namespace

// Stands in front of the client library's own, for the process that must do without.
Bool XShmQueryExtension(Display* display) {
    static const auto own = reinterpret_cast<Bool (*)(Display*)>(dlsym(RTLD_NEXT, "XShmQueryExtension"));
    return sharing ? own(display) : False;
}

int main(int argc, char** argv) {
    const bool gate = argc > 1 && std::strcmp(argv[1], "--gate") == 0;
    const int without = measure_elsewhere(false); // first: the process has no connection yet
    const int result = std::max(without, measure_all(true));
    return gate || result == 2 ? result : 0;
}
