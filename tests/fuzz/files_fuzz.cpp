// Random questions and shell words: the parts of a question are parts of it, a quoted word reads back as it was.
#include "pure/question_text.h"
#include "pure/shell_quote.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace grxtest {
namespace {

std::string random_text(std::mt19937& random) {
    static const std::string likely = " -'\\\"$-- ";
    std::string text(random() % 60, ' ');
    for (char& c : text) c = random() % 2 ? likely[random() % likely.size()] : static_cast<char>(random() % 256);
    return text;
}

// What a shell reads: quotes taken off, a backslash outside them makes the next byte plain.
std::string unquoted(const std::string& word) {
    std::string result;
    bool quoted = false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] == '\'') {
            quoted = !quoted;
        } else {
            if (!quoted && word[i] == '\\') ++i;
            result += word[i];
        }
    }
    EXPECT_FALSE(quoted);
    return result;
}

class FilesFuzz : public testing::TestWithParam<unsigned> {};

TEST_P(FilesFuzz, PartsOfQuestionsLieWithinThem) {
    std::mt19937 random(GetParam());
    for (int round = 0; round < 2000; ++round) {
        const std::string text = random_text(random);
        std::size_t from = 0;
        for (const std::string_view part : grx::question_parts(text)) {
            if (part.empty()) continue;
            ASSERT_GE(part.data(), text.data() + from);
            ASSERT_LE(part.data() + part.size(), text.data() + text.size());
            EXPECT_FALSE(part.front() == ' ' || part.back() == ' ') << part;
            EXPECT_EQ(part.find(" -"), std::string_view::npos) << text;
            from = static_cast<std::size_t>(part.data() + part.size() - text.data());
        }
    }
}

TEST_P(FilesFuzz, QuotedWordsReadBackAsTheyWere) {
    std::mt19937 random(GetParam());
    for (int round = 0; round < 2000; ++round) {
        const std::string word = random_text(random);
        std::string out(grx::word_length(word), '#');
        ASSERT_EQ(grx::write_word(out.data(), word), out.data() + out.size());
        EXPECT_EQ(unquoted(out), word);
        EXPECT_EQ(out == word, grx::is_plain_word(word));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, FilesFuzz, testing::Range(1U, 9U));

} // namespace
} // namespace grxtest
