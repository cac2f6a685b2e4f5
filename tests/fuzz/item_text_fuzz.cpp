// Random texts of panel items: every line is one of the pieces, and only the longest choice is filled up.
#include <gtest/gtest.h>

#include "tests/support/heap.h"

#include "xt_pan_f.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace grxtest {
namespace {

constexpr std::size_t longest_line = GRX_ITEM_LIGNE_MAX - 1;
constexpr const char* blanks = " \t\r\n";

class ItemTextFuzz : public testing::TestWithParam<unsigned> {
  protected:
    void SetUp() override { random_.seed(GetParam()); }

    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_); }

    std::string piece() {
        std::string result(below(4) == 0 ? below(200) : below(9), ' ');
        for (char& c : result) {
            c = below(3) == 0 ? ' ' : static_cast<char>(1 + below(255));
            if (c == '-') c = '_';
        }
        return result;
    }

    std::mt19937 random_;
};

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == text.npos) return "";
    return text.substr(first, std::min(text.find_last_not_of(blanks) - first + 1, longest_line));
}

TEST_P(ItemTextFuzz, LinesAreThePieces) {
    for (int turn = 0; turn < 3000; ++turn) {
        std::vector<std::string> lines;
        std::string text;
        for (auto left = below(12) + 1; left > 0; --left) {
            const std::string next = piece();
            text += (lines.empty() ? "" : "-") + next;
            lines.push_back(trimmed(next));
        }
        const auto most = below(14);
        lines.resize(std::min(lines.size(), most));
        std::array<char[GRX_ITEM_LIGNE_MAX], 16> given;
        std::memset(given.data(), 0x5A, sizeof given);
        INT count = static_cast<INT>(most);
        const INT width = static_cast<INT>(below(100));
        decode_message(text.data(), width, &count, given.data());
        ASSERT_EQ(count, static_cast<INT>(lines.size())) << text;
        if (lines.empty()) continue;
        const auto longer = [](const std::string& a, const std::string& b) { return a.size() < b.size(); };
        auto longest = lines.size() > 1 ? std::max_element(lines.begin() + 1, lines.end(), longer) : lines.begin();
        if (longest->empty()) longest = lines.begin();
        const std::size_t wanted = std::min<std::size_t>(static_cast<std::size_t>(width), longest_line);
        if (longest->size() < wanted) longest->resize(wanted, ' ');
        for (std::size_t i = 0; i < lines.size(); ++i) ASSERT_EQ(given[i], lines[i]) << text << ", line " << i;
        ASSERT_EQ(given[lines.size()][0], 0x5A) << "a line more";
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ItemTextFuzz, testing::Range(1U, 9U));

} // namespace
} // namespace grxtest
