// Words of a shell command: what a shell makes of them is what they were.
#include "pure/shell_quote.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

namespace grxtest {
namespace {

// Written into a buffer whose bytes behind the word are watched.
std::string written(const std::string& word) {
    const std::size_t length = grx::word_length(word);
    std::string buffer(length + 8, '#');
    char* const end = grx::write_word(buffer.data(), word);
    EXPECT_EQ(end, buffer.data() + length) << word;
    EXPECT_EQ(buffer.substr(length), "########") << word;
    return buffer.substr(0, length);
}

std::string as_the_shell_sees_it(const std::string& word) {
    FILE* const shell = popen(("printf %s " + written(word)).c_str(), "r");
    std::string result;
    for (int c = std::getc(shell); c != EOF; c = std::getc(shell)) result += static_cast<char>(c);
    EXPECT_EQ(pclose(shell), 0) << word;
    return result;
}

TEST(ShellWord, PlainOnesAreWrittenAsTheyAre) {
    for (const char* word : {"/home/u/b.txt", "A.z_09", "/tmp/xmeditAbC123", "a+b,c:d=e@f%g-h"}) {
        EXPECT_TRUE(grx::is_plain_word(word)) << word;
        EXPECT_EQ(written(word), word);
    }
}

TEST(ShellWord, OnlyTheStatedSignsArePlain) {
    const std::string plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_./+,:=@%-";
    for (int byte = 0; byte < 256; ++byte) {
        const std::string word(1, static_cast<char>(byte));
        EXPECT_EQ(grx::is_plain_word(word), plain.find(word) != std::string::npos) << byte;
        EXPECT_EQ(grx::is_plain_word("a" + word + "b"), plain.find(word) != std::string::npos) << byte;
    }
}

TEST(ShellWord, OthersAreQuoted) {
    EXPECT_EQ(written(""), "''");
    EXPECT_EQ(written("a b"), "'a b'");
    EXPECT_EQ(written("it's"), "'it'\\''s'");
    EXPECT_EQ(written("'"), "''\\'''");
}

TEST(ShellWord, TheShellSeesTheWord) {
    for (const std::string& word :
        std::vector<std::string>{"a b", "it's", "''", "$HOME", "`id`", "a;b&c|d>e<f", "*?[a]", "\"q\"", "back\\slash",
            "tab\tend", "line\nend", "~", "#", "(x)", "{a,b}", "!", "\xe9t\xe9", "caf\xc3\xa9", ""})
        EXPECT_EQ(as_the_shell_sees_it(word), word);
}

} // namespace
} // namespace grxtest
