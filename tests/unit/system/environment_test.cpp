// The working directory, the name of the system, variables of the environment.
#include <gtest/gtest.h>

#include "tests/support/temp_dir.h"
#include "tests/unit/c_text.h"

#include "xt_uti_f.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace grxtest {
namespace {

namespace fs = std::filesystem;

class CurrentDirectory : public testing::Test {
  protected:
    void TearDown() override { fs::current_path(before_); }

    // Goes to a directory whose name has that many characters.
    void go_to(std::size_t length) {
        std::string path = dir_.text();
        while (path.size() < length) {
            const auto missing = length - path.size() - 1;
            path += '/' + std::string(missing > 100 && missing != 101 ? 100 : missing, 'd');
        }
        fs::create_directories(path);
        fs::current_path(path);
    }

    TempDir dir_;
    fs::path before_ = fs::current_path();
};

TEST_F(CurrentDirectory, IsCopied) {
    fs::current_path(dir_.path());
    std::array<char, GRX_REPERTOIRE_MAX> text{};
    EXPECT_EQ(getcurrentdir(text.data()), 0);
    EXPECT_EQ(text.data(), fs::current_path().string());
}

TEST_F(CurrentDirectory, MayHave255Characters) {
    go_to(255);
    std::array<char, GRX_REPERTOIRE_MAX> text{};
    EXPECT_EQ(getcurrentdir(text.data()), 0);
    EXPECT_EQ(std::string(text.data()).size(), 255U);
}

TEST_F(CurrentDirectory, LongerIsEmptyAndOne) {
    go_to(256);
    std::array<char, GRX_REPERTOIRE_MAX> text{'?'};
    EXPECT_EQ(getcurrentdir(text.data()), 1);
    EXPECT_STREQ(text.data(), "");
}

TEST_F(CurrentDirectory, RemovedIsEmptyAndOne) {
    fs::create_directory(dir_.path() / "gone");
    fs::current_path(dir_.path() / "gone");
    fs::remove(dir_.path() / "gone");
    std::array<char, GRX_REPERTOIRE_MAX> text{'?'};
    EXPECT_EQ(getcurrentdir(text.data()), 1);
    EXPECT_STREQ(text.data(), "");
    EXPECT_EQ(getcurrentdir(nullptr), 1);
}

TEST(SystemName, IsThree) {
    EXPECT_EQ(osname(), 3);
}

TEST(Environment, VariableIsCopied) {
    std::array<char, 64> value{'?'};
    setenv("GRX_TEST_VARIABLE", " as it is ", 1);
    EXPECT_EQ(getvarsystem(in("GRX_TEST_VARIABLE"), value.data()), 0);
    EXPECT_STREQ(value.data(), " as it is ");
    setenv("GRX_TEST_VARIABLE", "", 1);
    EXPECT_EQ(getvarsystem(in("GRX_TEST_VARIABLE"), value.data()), 0);
    EXPECT_STREQ(value.data(), "");
    unsetenv("GRX_TEST_VARIABLE");
}

TEST(Environment, MissingVariableIsEmptyAndOne) {
    for (char* name : {in("GRX_TEST_NO_SUCH"), in(""), static_cast<char*>(nullptr)}) {
        std::array<char, 8> value{'?'};
        EXPECT_EQ(getvarsystem(name, value.data()), 1);
        EXPECT_STREQ(value.data(), "");
    }
    EXPECT_EQ(getvarsystem(in("GRX_TEST_NO_SUCH"), nullptr), 1);
}

TEST(Environment, LongValueIsCopiedWhole) {
    const std::string longest(100000, 'v');
    setenv("GRX_TEST_VARIABLE", longest.c_str(), 1);
    std::vector<char> value(longest.size() + 1);
    EXPECT_EQ(getvarsystem(in("GRX_TEST_VARIABLE"), value.data()), 0);
    EXPECT_EQ(value.data(), longest);
    unsetenv("GRX_TEST_VARIABLE");
}

} // namespace
} // namespace grxtest
