// How long atelier takes for a picture of a large drawing, all of it in view: it is started on the display of the
// environment with drawings of demo/plans/dessine_quartier.py, real mouse input moves and magnifies the sheet step by
// step, and a picture counts when atelier says that the server has finished it.
// Usage: bench_atelier_frames [--gate]   (--gate: fail when a limit is missed by more than noise)
#include "bench/chrono.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
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

constexpr int kRounds = 5, kSteps = 12;        // pictures of a round, there and back again
constexpr int kStepX = 14, kStepY = 8;         // pixels that the hand moves between two pictures
constexpr int kPatience = 120;                 // seconds
constexpr double kNoise = 1.25;                // what a shared machine may add to the best round
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

struct Result {
    bool worked = false;
    double load = 0, bytes = 0; // seconds until the first picture; resident per entity
    double move = 0, zoom = 0;  // milliseconds a picture: the best round's median
};

// The best of the medians of all rounds; below 0 when a picture never came. step: there, or back again.
double measure(Atelier& atelier, const std::function<void(bool)>& step) {
    std::vector<double> medians;
    for (int round = 0; round < kRounds; ++round) {
        std::vector<double> times;
        for (int i = 0; i < 2 * kSteps; ++i) {
            bool came = false;
            times.push_back(1e3 * grxbench::seconds([&] {
                step(i < kSteps);
                came = atelier.picture();
            }));
            if (!came) return -1;
        }
        medians.push_back(grxbench::median(times));
    }
    return grxbench::fastest(medians);
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
    mouse.press(kMiddle, true);
    r.move = measure(atelier, [&](bool there) { mouse.by(there ? kStepX : -kStepX, there ? kStepY : -kStepY); });
    mouse.press(kMiddle, false);
    // Smaller and back to what it was: all of the drawing stays in view.
    bool smaller = false;
    r.zoom = measure(atelier, [&](bool) {
        smaller = !smaller;
        mouse.turn(smaller ? kDown : kUp);
    });
    r.worked = r.move > 0 && r.zoom > 0;
    return r;
}

bool generate(const std::string& file, int entities) {
    const std::string command = "python3 '" GRX_PLANS "/dessine_quartier.py' " + std::to_string(entities) + " >'" + file + "'";
    return std::system(command.c_str()) == 0;
}

bool within(const Limit& limit, const Result& r) {
    return r.move <= limit.move * kNoise && r.zoom <= limit.zoom * kNoise;
}

bool report(const Limit& limit, const Result& r) {
    if (!r.worked) {
        std::printf("%8d entities: no picture came\n", limit.entities);
        return false;
    }
    std::printf("%8d entities  first picture %5.2f s  %4.0f bytes an entity  moved %6.2f ms (limit %5.1f)  "
                "magnified %6.2f ms (limit %5.1f)%s\n",
        limit.entities, r.load, r.bytes, r.move, limit.move, r.zoom, limit.zoom,
        r.move <= limit.move && r.zoom <= limit.zoom ? "" : "  ABOVE");
    std::fflush(stdout);
    return within(limit, r);
}

} // namespace

int main(int argc, char** argv) {
    const bool gate = argc > 1 && std::strcmp(argv[1], "--gate") == 0;
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
        const std::string drawing = place + "/" + std::to_string(limit.entities) + ".dxf";
        good &= generate(drawing, limit.entities) && report(limit, run(display, program, drawing, limit.entities));
        fs::remove(drawing);
    }
    fs::remove_all(place);
    XCloseDisplay(display);
    return gate && !good ? 1 : 0;
}
