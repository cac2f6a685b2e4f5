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
#include <sys/ipc.h>
#include <sys/shm.h>
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

bool sharing = true;

double conversion_seconds(const Pixels& picture) {
    std::vector<uint32_t> packed(static_cast<std::size_t>(kWidth) * kHeight);
    const grx::DeepPacker packer({dec_red, dec_green, dec_blue});
    std::vector<double> rounds;
    for (int round = 0; round < kRounds; ++round)
        rounds.push_back(grxbench::seconds([&] {
            for (int i = 0; i < kRepeats; ++i) packer.row(packed.data(), picture.data(), packed.size());
        }));
    return grxbench::fastest(rounds);
}

// A picture ready to be sent as the library sends its own.
class ReadyMade {
  public:
    explicit ReadyMade(Window window, bool shared) : window_(window), shared_(shared) {
        image_ = shared ? XShmCreateImage(x11_disp, x11_vis, static_cast<unsigned>(profondeur_ecran), ZPixmap, nullptr,
                     &segment_, kWidth, kHeight)
                        : ready_made(window);
        pixmap_ = XCreatePixmap(x11_disp, window, kWidth, kHeight, static_cast<unsigned>(profondeur_ecran));
        if (!shared) return;
        const auto bytes = static_cast<std::size_t>(image_->bytes_per_line) * kHeight;
        segment_.shmid = shmget(IPC_PRIVATE, bytes, IPC_CREAT | 0600);
        segment_.shmaddr = image_->data = static_cast<char*>(shmat(segment_.shmid, nullptr, 0));
        XShmAttach(x11_disp, &segment_);
        XSync(x11_disp, False);
        shmctl(segment_.shmid, IPC_RMID, nullptr);
    }
    ~ReadyMade() {
        if (shared_) XShmDetach(x11_disp, &segment_);
        if (shared_) image_->data = nullptr;
        XFreePixmap(x11_disp, pixmap_);
        XDestroyImage(image_);
        XSync(x11_disp, False);
        if (shared_) shmdt(segment_.shmaddr);
    }
    ReadyMade(const ReadyMade&) = delete;
    ReadyMade& operator=(const ReadyMade&) = delete;

    void put() {
        constexpr int rows = kHeight / 8;
        for (int y = 0; y < kHeight; y += rows) {
            if (shared_) {
                XShmPutImage(x11_disp, pixmap_, g_c, image_, 0, y, 0, y, kWidth, rows, False);
            } else {
                XPutImage(x11_disp, pixmap_, g_c, image_, 0, y, 0, y, kWidth, rows);
            }
            XCopyArea(x11_disp, pixmap_, window_, g_c, 0, y, kWidth, rows, 0, y);
        }
    }

  private:
    Window window_;
    bool shared_;
    XShmSegmentInfo segment_{};
    XImage* image_ = nullptr;
    Pixmap pixmap_ = None;
};

// The requests alone for a ready-made picture, and the conversion alone. Where the socket is as fast as shared memory,
// the two are more than the limit leaves: then the library may add little to them.
constexpr double kMostOverParts = 1.3;

template <class Plain, class Library>
void report_put(const char* name, double most, ReadyMade& ready, double conversion, Plain plain, Library library) {
    const int before = above;
    report(name, grxbench::compare(kRounds, plain, library), most);
    if (above == before) return;
    const auto c = grxbench::compare(kRounds, repeated([&] { ready.put(); }), library);
    const double parts = c.plain + conversion;
    std::printf("%-18s requests and conversion alone %.2f ms, ratio %.2f (at most %.1f)\n", "", parts / kRepeats * 1e3,
        c.library / parts, kMostOverParts);
    if (c.library <= parts * kMostOverParts) above = before;
}

void measure_putting(Window window, Pixels& picture, const Limits& most) {
    XImage* const image = ready_made(window);
    ReadyMade ready(window, sharing);
    const double conversion = conversion_seconds(picture);
    std::printf("conversion alone   %.2f ms\n", conversion / kRepeats * 1e3);
    const auto plain_put = repeated([&] { XPutImage(x11_disp, window, g_c, image, 0, 0, 0, 0, kWidth, kHeight); });
    report_put("put 1000x800", most.put, ready, conversion, plain_put, repeated([&] {
        grx_trace_image_dans_widget(GRX_CIBLE_FENETRE, window_number, picture.data(), kWidth, kHeight, 0, 0);
    }));
    report_put("stretch from half", most.stretch, ready, conversion, plain_put, repeated([&] {
        grx_stretch_image(GRX_CIBLE_FENETRE, window_number, picture.data(), picture.data(), kWidth / 2, kHeight / 2, 0,
            0, kWidth, kHeight);
    }));
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
