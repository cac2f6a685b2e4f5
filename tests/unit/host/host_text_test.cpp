// The default host's text files.
#include <gtest/gtest.h>

#include "tests/support/descriptors.h"
#include "tests/support/temp_dir.h"
#include "tests/unit/c_text.h"

#include "host_f.h"

#include <sys/stat.h>

#include <array>
#include <climits>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace grxtest {
namespace {

namespace fs = std::filesystem;

class HostText : public testing::Test {
  protected:
    void TearDown() override { text_close(); }

    FILE* open(const std::string& name, INT mode) {
        FILE* file = stdin; // must be overwritten
        const auto result = ftext_open(&file, in(dir_.text()), in(name), mode);
        EXPECT_EQ(result, file ? 0 : -1);
        return file;
    }

    std::vector<std::string> lines(std::string_view content) {
        dir_.write("file", content);
        FILE* const file = open("file", HOST_MODE_LECTURE);
        std::vector<std::string> result;
        for (std::array<char, HOST_LIGNE_MAX> line; ftext_lec(file, line.data()) == 1;)
            result.emplace_back(line.data());
        EXPECT_EQ(ftext_close(file), 0);
        return result;
    }

    TempDir dir_;
};

using Lines = std::vector<std::string>;

TEST_F(HostText, LinesComeWithoutTheirEnds) {
    EXPECT_EQ(lines("a\nb\n"), (Lines{"a", "b"}));
    EXPECT_EQ(lines("a\r\nb\r\n"), (Lines{"a", "b"}));
    EXPECT_EQ(lines("\n\r\n x \n"), (Lines{"", "", " x "}));
    EXPECT_EQ(lines("a\rb\n\r\r\n"), (Lines{"a\rb", "\r"}));
}

TEST_F(HostText, LastLineNeedsNoEnd) {
    EXPECT_EQ(lines("a\nb"), (Lines{"a", "b"}));
    EXPECT_EQ(lines("a"), Lines{"a"});
    EXPECT_EQ(lines(""), Lines{});
    EXPECT_EQ(lines("a\r"), Lines{"a\r"});
}

TEST_F(HostText, OverlongLinesAreCutAndTheirRestSkipped) {
    const std::string longest(HOST_LIGNE_MAX - 1, 'x');
    EXPECT_EQ(lines(longest + "\nb\n"), (Lines{longest, "b"}));
    EXPECT_EQ(lines(longest + "y\nb\n"), (Lines{longest, "b"}));
    EXPECT_EQ(lines(longest + "\r\nb\n"), (Lines{longest, "b"}));
    EXPECT_EQ(lines(longest + std::string(100000, 'y')), Lines{longest});
    const std::string with_return = longest.substr(1) + "\r";
    EXPECT_EQ(lines(with_return + "\nb"), (Lines{longest.substr(1), "b"}));
    EXPECT_EQ(lines(with_return + "zz\nb"), (Lines{with_return, "b"}));
}

TEST_F(HostText, BytesComeAsTheyAre) {
    EXPECT_EQ(lines("\001\377\351\t\n"), Lines{"\001\377\351\t"});
}

TEST_F(HostText, ZeroByteEndsTheLineForItsReader) {
    EXPECT_EQ(lines(std::string_view("a\0b\nc\n", 6)), (Lines{"a", "c"}));
}

TEST_F(HostText, WritingCreatesOrEmptiesTheFile) {
    FILE* file = open("new", HOST_MODE_ECRITURE);
    ASSERT_NE(file, nullptr);
    std::fputs("long text\r\n", file);
    EXPECT_EQ(ftext_close(file), 0);
    EXPECT_EQ(dir_.read("new"), "long text\r\n");
    file = open("new", HOST_MODE_ECRITURE);
    std::fputs("x", file);
    EXPECT_EQ(ftext_close(file), 0);
    EXPECT_EQ(dir_.read("new"), "x");
}

TEST_F(HostText, UpdatingNeedsAFileAndKeepsIt) {
    EXPECT_EQ(open("missing", HOST_MODE_LECT_ECRI), nullptr);
    EXPECT_FALSE(fs::exists(dir_.path() / "missing"));
    dir_.write("old", "abc");
    FILE* const file = open("old", HOST_MODE_LECT_ECRI);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(std::fgetc(file), 'a');
    std::fseek(file, 0, SEEK_SET);
    std::fputc('X', file);
    EXPECT_EQ(ftext_close(file), 0);
    EXPECT_EQ(dir_.read("old"), "Xbc");
}

TEST_F(HostText, ReadingNeedsAFile) {
    EXPECT_EQ(open("missing", HOST_MODE_LECTURE), nullptr);
    EXPECT_EQ(open("missing/x", HOST_MODE_LECTURE), nullptr);
    EXPECT_EQ(open(std::string(300, 'n'), HOST_MODE_LECTURE), nullptr);
    EXPECT_EQ(open(std::string(3000, 'n'), HOST_MODE_LECTURE), nullptr);
}

TEST_F(HostText, OtherModesFail) {
    dir_.write("old", "abc");
    for (const INT mode : {0, 4, -1, INT_MAX, INT_MIN}) EXPECT_EQ(open("old", mode), nullptr) << mode;
    EXPECT_EQ(dir_.read("old"), "abc");
}

TEST_F(HostText, OnlyFilesAreOpened) {
    fs::create_directory(dir_.path() / "sub");
    ASSERT_EQ(mkfifo((dir_.text() + "/pipe").c_str(), 0600), 0);
    for (const INT mode : {HOST_MODE_ECRITURE, HOST_MODE_LECTURE, HOST_MODE_LECT_ECRI}) {
        EXPECT_EQ(open("sub", mode), nullptr);
        EXPECT_EQ(open("pipe", mode), nullptr);
        EXPECT_EQ(open("", mode), nullptr);
    }
}

TEST_F(HostText, EmptyDirectoryMeansAWholePath) {
    const auto path = dir_.write("file", "a\n").string();
    FILE* file = nullptr;
    EXPECT_EQ(ftext_open(&file, in(""), in(path), HOST_MODE_LECTURE), 0);
    EXPECT_EQ(ftext_close(file), 0);
    EXPECT_EQ(ftext_open(&file, nullptr, in(path), HOST_MODE_LECTURE), 0);
    EXPECT_EQ(ftext_close(file), 0);
}

TEST_F(HostText, FullDiskIsReportedWhenClosing) {
    FILE* file = nullptr;
    ASSERT_EQ(ftext_open(&file, in("/dev"), in("full"), HOST_MODE_ECRITURE), 0);
    std::fputs("x", file);
    EXPECT_EQ(ftext_close(file), -1);
}

TEST_F(HostText, NullIsHarmless) {
    std::array<char, HOST_LIGNE_MAX> line{'?'};
    EXPECT_EQ(ftext_open(nullptr, in("/"), in("x"), HOST_MODE_LECTURE), -1);
    EXPECT_EQ(open("", HOST_MODE_LECTURE), nullptr);
    FILE* file = stdin;
    EXPECT_EQ(ftext_open(&file, in("/"), nullptr, HOST_MODE_LECTURE), -1);
    EXPECT_EQ(file, nullptr);
    EXPECT_EQ(ftext_lec(nullptr, line.data()), 0);
    EXPECT_STREQ(line.data(), "");
    EXPECT_EQ(ftext_lec(stdin, nullptr), 0);
    EXPECT_EQ(ftext_close(nullptr), 0);
}

TEST_F(HostText, ImplicitFileIsReadLineByLine) {
    dir_.write("file", "a\r\nb");
    std::array<char, HOST_LIGNE_MAX> line{};
    EXPECT_EQ(text_open(in(dir_.text()), in("file"), HOST_MODE_LECTURE), 0);
    EXPECT_EQ(text_lec(line.data()), 1);
    EXPECT_STREQ(line.data(), "a");
    EXPECT_EQ(text_lec(line.data()), 1);
    EXPECT_STREQ(line.data(), "b");
    EXPECT_EQ(text_lec(line.data()), 0);
    EXPECT_EQ(text_close(), 0);
    EXPECT_EQ(text_lec(line.data()), 0);
    EXPECT_EQ(text_close(), 0);
}

TEST_F(HostText, ImplicitFileThatCannotBeOpenedIsNone) {
    dir_.write("file", "a\n");
    std::array<char, HOST_LIGNE_MAX> line{};
    EXPECT_EQ(text_open(in(dir_.text()), in("file"), HOST_MODE_LECTURE), 0);
    EXPECT_EQ(text_open(in(dir_.text()), in("missing"), HOST_MODE_LECTURE), -1);
    EXPECT_EQ(text_lec(line.data()), 0);
}

TEST_F(HostText, ForgottenImplicitFileIsClosed) {
    dir_.write("file", "a\n");
    const auto before = open_descriptors();
    for (int i = 0; i < 5; ++i) EXPECT_EQ(text_open(in(dir_.text()), in("file"), HOST_MODE_LECTURE), 0);
    EXPECT_EQ(open_descriptors(), before + 1);
    text_close();
    EXPECT_EQ(open_descriptors(), before);
}

} // namespace
} // namespace grxtest
