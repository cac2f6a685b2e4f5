#include "tests/support/xserver.h"

#include "tests/support/fake_visual.h"
#include "tests/support/wait.h"
#include "tests/support/x_errors.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace grxtest {
namespace {

constexpr int display_descriptor = 3; // the number by which the server knows its pipe
constexpr Milliseconds start_deadline{20000};
constexpr int attempts = 3; // two servers that start at once can want the same number

std::string read_line(int descriptor) {
    const auto start = Clock::now();
    std::string line;
    char letter = 0;
    while (wait_readable(descriptor, left_of(start_deadline, start)) && read(descriptor, &letter, 1) == 1) {
        if (letter == '\n') return line;
        line += letter;
    }
    return {};
}

std::string read_back(int descriptor) {
    std::string text;
    std::array<char, 512> piece{};
    lseek(descriptor, 0, SEEK_SET);
    for (ssize_t got = 0; (got = read(descriptor, piece.data(), piece.size())) > 0;)
        text.append(piece.data(), static_cast<std::size_t>(got));
    return text;
}

std::vector<std::string> command_line(const XServerOptions& options) {
    const std::string screen =
        std::to_string(options.width) + "x" + std::to_string(options.height) + "x" + std::to_string(options.planes);
    std::vector<std::string> words{"Xvfb", "-displayfd", std::to_string(display_descriptor), "-screen", "0", screen,
        "-noreset", "-nolisten", "tcp"};
    words.insert(words.end(), options.arguments.begin(), options.arguments.end());
    return words;
}

} // namespace

XServer::XServer(const XServerOptions& options) {
    for (int attempt = 0; attempt < attempts; ++attempt)
        if (start(options)) return;
    throw std::runtime_error("Xvfb does not start: " + log_);
}

bool XServer::start(const XServerOptions& options) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    const int log = memfd_create("xvfb", MFD_CLOEXEC);
    ChildOptions child_options;
    child_options.descriptors = {{log, STDERR_FILENO}, {ends[1], display_descriptor}};
    child_ = Child(command_line(options), child_options);
    close(ends[1]);
    const std::string number = read_line(ends[0]);
    close(ends[0]);
    name_ = ":" + number;
    if (number.empty()) log_ = read_back(log);
    close(log);
    return !number.empty();
}

Display* open_connection(const std::string& server_name) {
    const FakeVisual::Pause real_visuals;
    Display* display = XOpenDisplay(server_name.c_str());
    if (!display) throw std::runtime_error("no connection to " + server_name);
    ignore_x_errors_of(display);
    return display;
}

} // namespace grxtest
