// Runs each test in a process of its own without starting the program anew.
#include "tests/support/apart.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace grxtest {

namespace {

using namespace std::chrono_literals;

constexpr auto kLongest = 120s; // of a test
constexpr std::string_view kApart = "--apart";

// gtest decides which tests the filter names while it lists them.
std::vector<std::string> wanted_tests(int (*run)()) {
    GTEST_FLAG_SET(list_tests, true);
    run();
    GTEST_FLAG_SET(list_tests, false);
    std::vector<std::string> names;
    const testing::UnitTest& all = *testing::UnitTest::GetInstance();
    for (int s = 0; s < all.total_test_suite_count(); ++s) {
        const testing::TestSuite& suite = *all.GetTestSuite(s);
        for (int t = 0; t < suite.total_test_count(); ++t) {
            const testing::TestInfo& test = *suite.GetTestInfo(t);
            if (test.should_run()) names.push_back(std::string(suite.name()) + "." + test.name());
        }
    }
    return names;
}

void print_all(int file) {
    std::array<char, 4096> bytes{};
    lseek(file, 0, SEEK_SET);
    for (ssize_t n; (n = read(file, bytes.data(), bytes.size())) > 0;)
        std::fwrite(bytes.data(), 1, static_cast<std::size_t>(n), stdout);
}

// The exit status of a child, killed when it takes too long.
int status_of(pid_t child) {
    const auto end = std::chrono::steady_clock::now() + kLongest;
    int status = 0;
    while (waitpid(child, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > end) kill(child, SIGKILL);
        std::this_thread::sleep_for(2ms);
    }
    return status;
}

bool passes(const std::string& name, int (*run)()) {
    const int said = memfd_create("said", 0);
    const pid_t child = fork();
    if (child == 0) {
        dup2(said, STDOUT_FILENO);
        dup2(said, STDERR_FILENO);
        close(said);
        GTEST_FLAG_SET(filter, name);
        std::exit(run());
    }
    const int status = child > 0 ? status_of(child) : -1;
    const bool passed = status == 0;
    if (!passed) {
        std::printf("== %s failed, status %d\n", name.c_str(), status);
        print_all(said);
    }
    close(said);
    return passed;
}

} // namespace

bool takes_apart(int& argc, char** argv) {
    if (argc < 2 || argv[1] != kApart) return false;
    for (int i = 1; i < argc; ++i) argv[i] = argv[i + 1];
    --argc;
    return true;
}

int run_apart(int (*run)()) {
    const std::vector<std::string> tests = wanted_tests(run);
    std::vector<std::string> failed;
    for (const std::string& name : tests) {
        if (!passes(name, run)) failed.push_back(name);
    }
    std::printf("%zu tests, %zu failed\n", tests.size(), failed.size());
    for (const std::string& name : failed) std::printf("failed: %s\n", name.c_str());
    return failed.empty() && !tests.empty() ? 0 : 1;
}

} // namespace grxtest
