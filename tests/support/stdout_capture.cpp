#include "tests/support/stdout_capture.h"

#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <sstream>
#include <stdexcept>

namespace grxtest {

StdoutCapture::StdoutCapture() {
    std::fflush(stdout);
    saved_ = dup(STDOUT_FILENO);
    captured_ = memfd_create("stdout", MFD_CLOEXEC);
    if (saved_ < 0 || captured_ < 0) throw std::runtime_error("standard output cannot be captured");
    dup2(captured_, STDOUT_FILENO);
}

std::string StdoutCapture::text() {
    if (captured_ < 0) return text_;
    std::fflush(stdout);
    text_.clear();
    std::array<char, 4096> piece{};
    for (ssize_t got = 0; (got = pread(captured_, piece.data(), piece.size(), static_cast<off_t>(text_.size()))) > 0;)
        text_.append(piece.data(), static_cast<std::size_t>(got));
    return text_;
}

std::vector<std::string> StdoutCapture::lines() {
    std::istringstream stream(text());
    std::vector<std::string> result;
    for (std::string line; std::getline(stream, line);) result.push_back(line);
    return result;
}

void StdoutCapture::restore() {
    if (captured_ < 0) return;
    text();
    dup2(saved_, STDOUT_FILENO);
    close(saved_);
    close(captured_);
    captured_ = -1;
}

Outcome outcome_of(const std::function<int()>& call) {
    StdoutCapture capture;
    const int result = call();
    return {result, capture.text()};
}

} // namespace grxtest
