// How long atelier takes for a picture of a large drawing, all of it in view: it is started on the display of the
// environment with drawings of demo/plans/dessine_quartier.py, real mouse input moves and magnifies the sheet step by
// step, and a picture counts when atelier says that the server has finished it.
// Usage: bench_atelier_frames [--gate | N]   (N: only the drawing of so many entities; --gate: fail when a limit is missed by more than noise)
#include "bench/chrono.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

namespace {

namespace fs = std::filesystem;

constexpr int kRounds = 5, kSteps = 12; // pictures of a round, there and back again
constexpr int kStepX = 14, kStepY = 8;  // pixels that the hand moves between two pictures
constexpr int kPatience = 120;          // seconds
constexpr double kNoise = 1.25;         // what a shared machine may add to the best round
constexpr unsigned kMiddle = 2, kUp = 4, kDown = 5;

struct Limit {
    int entities;
    double move, zoom; // milliseconds a picture
};
constexpr std::array<Limit, 3> kLimits{{{100'000, 1000.0 / 60, 1000.0 / 60}, {500'000, 50, 100}, {1'000'000, 50, 100}}};

// atelier as a child, its standard output read line by line.
class Atelier {
  public:
    Atelier(const fs::path& program, const std::string& drawing) {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0) return;
        child_ = fork();
        if (child_ == 0) {
            dup2(ends[1], STDOUT_FILENO);
            setenv("ATELIER_MESURE", "1", 1);
            execl(program.c_str(), program.c_str(), "--geometry", "1100x880", drawing.c_str(), nullptr);
            _exit(127);
        }
        close(ends[1]);
        output_ = ends[0];
    }
    ~Atelier() {
        if (output_ >= 0) close(output_);
        if (child_ <= 0) return;
        kill(child_, SIGTERM);
        waitpid(child_, nullptr, 0);
    }
    Atelier(const Atelier&) = delete;
    Atelier& operator=(const Atelier&) = delete;

    /// Waits until a picture is finished; further ones that came meanwhile count as the same.
    bool picture() {
        std::array<char, 4096> buffer{};
        std::string text;
        while (text.find("image\n") == std::string::npos) {
            pollfd ready{output_, POLLIN, 0};
            if (poll(&ready, 1, kPatience * 1000) <= 0) return false;
            const ssize_t n = read(output_, buffer.data(), buffer.size());
            if (n <= 0) return false;
            text.append(buffer.data(), static_cast<std::size_t>(n));
        }
        return true;
    }
    /// Until none came for a while.
    bool settled() {
        constexpr int kQuiet = 1500;
        for (pollfd ready{output_, POLLIN, 0}; poll(&ready, 1, kQuiet) > 0;)
            if (!picture()) return false;
        return true;
    }
    /// Takes what was said before; how many pictures that were.
    int forget() {
        std::array<char, 4096> buffer{};
        int lines = 0;
        for (pollfd ready{output_, POLLIN, 0}; poll(&ready, 1, 0) > 0;) {
            const ssize_t n = read(output_, buffer.data(), buffer.size());
            if (n <= 0) break;
            lines += static_cast<int>(std::count(buffer.begin(), buffer.begin() + n, '\n'));
        }
        return lines;
    }
    pid_t process() const { return child_; }
    double resident_bytes() const {
        std::ifstream file("/proc/" + std::to_string(child_) + "/statm");
        double all = 0, resident = 0;
        file >> all >> resident;
        return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
    }

  private:
    pid_t child_ = -1;
    int output_ = -1;
};

// The mouse of the server, over the middle of the sheet.
class Mouse {
  public:
    explicit Mouse(Display* display) : display_(display) {
        const int screen = DefaultScreen(display);
        x_ = DisplayWidth(display, screen) / 2 + 60;
        y_ = DisplayHeight(display, screen) / 2 - 20;
        by(0, 0);
    }
    void by(int dx, int dy) {
        XTestFakeMotionEvent(display_, -1, x_ += dx, y_ += dy, CurrentTime);
        XSync(display_, False);
    }
    void press(unsigned button, bool down) {
        XTestFakeButtonEvent(display_, button, down ? True : False, CurrentTime);
        XSync(display_, False);
    }
    void turn(unsigned wheel) {
        press(wheel, true);
        press(wheel, false);
    }

  private:
    Display* display_;
    int x_ = 0, y_ = 0;
};

// Milliseconds that a process has had of the processors.
double used(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/schedstat");
    double nanoseconds = 0;
    file >> nanoseconds;
    return nanoseconds / 1e6;
}

pid_t server_of(Display* display) {
    ucred peer{};
    socklen_t length = sizeof peer;
    return getsockopt(ConnectionNumber(display), SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0 ? peer.pid : -1;
}

// Milliseconds a picture: the best round's median, and what of the processors atelier and the server used on the average.
struct Cost {
    double time = -1, atelier = 0, server = 0;
};

struct Result {
    bool worked = false;
    double load = 0, bytes = 0; // seconds until the first picture; resident per entity
    Cost move, zoom;
};

// step: there, or back again.
Cost measure(Atelier& atelier, pid_t server, const std::function<void(bool)>& step) {
    std::vector<double> medians;
    const double atelier_before = used(atelier.process()), server_before = used(server);
    for (int round = 0; round < kRounds; ++round) {
        std::vector<double> times;
        for (int i = 0; i < 2 * kSteps; ++i) {
            bool came = false;
            if (atelier.forget() > 0) return {};
            times.push_back(1e3 * grxbench::seconds([&] {
                step(i < kSteps);
                came = atelier.picture();
            }));
            if (!came) return {};
        }
        medians.push_back(grxbench::median(times));
    }
    constexpr double kPictures = 2.0 * kSteps * kRounds;
    return {grxbench::fastest(medians), (used(atelier.process()) - atelier_before) / kPictures,
        (used(server) - server_before) / kPictures};
}

Result run(Display* display, const fs::path& program, const std::string& drawing, int entities) {
    Result r;
    Mouse mouse(display);
    const auto start = grxbench::Clock::now();
    Atelier atelier(program, drawing);
    if (!atelier.picture()) return r;
    r.load = std::chrono::duration<double>(grxbench::Clock::now() - start).count();
    if (!atelier.settled()) return r;
    r.bytes = atelier.resident_bytes() / entities;
    const pid_t server = server_of(display);
    mouse.press(kMiddle, true);
    r.move =
        measure(atelier, server, [&](bool there) { mouse.by(there ? kStepX : -kStepX, there ? kStepY : -kStepY); });
    mouse.press(kMiddle, false);
    // Smaller and back to what it was: all of the drawing stays in view.
    bool smaller = false;
    r.zoom = measure(atelier, server, [&](bool) {
        smaller = !smaller;
        mouse.turn(smaller ? kDown : kUp);
    });
    r.worked = r.move.time > 0 && r.zoom.time > 0;
    return r;
}

bool generate(const std::string& file, int entities) {
    const std::string command =
        "python3 '" GRX_PLANS "/dessine_quartier.py' " + std::to_string(entities) + " >'" + file + "'";
    return std::system(command.c_str()) == 0;
}

// Where others keep the processors busy, what atelier and the server used of them one after the other counts.
bool within(const Cost& cost, double limit) {
    return cost.time <= limit * kNoise || cost.atelier + cost.server <= limit;
}

void print(const char* what, const Cost& cost, double limit) {
    std::printf("          %-10s %7.2f ms a picture, limit %5.1f%s (processor: atelier %.1f ms, server %.1f ms)\n",
        what, cost.time, limit, cost.time <= limit ? "" : ", ABOVE", cost.atelier, cost.server);
}

bool report(const Limit& limit, const Result& r) {
    if (!r.worked) {
        std::printf("%8d entities: a picture did not come, or one too many\n", limit.entities);
        return false;
    }
    std::printf(
        "%8d entities: first picture after %.2f s, %.0f bytes resident an entity\n", limit.entities, r.load, r.bytes);
    print("moved", r.move, limit.move);
    print("magnified", r.zoom, limit.zoom);
    std::fflush(stdout);
    return within(r.move, limit.move) && within(r.zoom, limit.zoom);
}

} // namespace

int main(int argc, char** argv) {
    const bool gate = argc > 1 && std::strcmp(argv[1], "--gate") == 0;
    const int only = argc > 1 && !gate ? std::atoi(argv[1]) : 0;
    const fs::path program = fs::read_symlink("/proc/self/exe").parent_path().parent_path() / "demo" / "atelier";
    if (!fs::exists(program)) {
        std::printf("atelier was not built: nothing to measure\n");
        return 0;
    }
    Display* const display = XOpenDisplay(nullptr);
    std::string place = (fs::temp_directory_path() / "grx-frames-XXXXXX").string();
    if (display == nullptr || mkdtemp(place.data()) == nullptr) return 2;
    bool good = true;
    for (const Limit& limit : kLimits) {
        if (only != 0 && limit.entities != only) continue;
        const std::string drawing = place + "/" + std::to_string(limit.entities) + ".dxf";
        good &= generate(drawing, limit.entities) && report(limit, run(display, program, drawing, limit.entities));
        fs::remove(drawing);
    }
    fs::remove_all(place);
    XCloseDisplay(display);
    return gate && !good ? 1 : 0;
}
