// Pixels in bulk against one pixel after the other.
#include <gtest/gtest.h>

#include "pure/pixels.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <vector>

namespace grxtest {
namespace {

std::vector<std::int32_t> stated_map(std::int64_t from, std::int64_t to) {
    std::vector<std::int32_t> map;
    for (std::int64_t i = 0; i < to; ++i) map.push_back(static_cast<std::int32_t>(from * i / to));
    return map;
}

TEST(ScaleMap, IsTheTruncatedQuotient) {
    for (std::int64_t from : {1, 2, 3, 5, 7, 16, 100, 333, 4000, 100000})
        for (std::int64_t to : {1, 2, 3, 4, 7, 8, 9, 31, 100, 999, 5000}) {
            std::vector<std::int32_t> map(static_cast<std::size_t>(to), -1);
            grx::scale_map(map, {from, to, 0});
            ASSERT_EQ(map, stated_map(from, to)) << from << " to " << to;
        }
}

TEST(ScaleMap, BeginsWhereItIsAskedTo) {
    for (std::int64_t from : {1, 3, 16, 333, 100000})
        for (std::int64_t to : {1, 3, 8, 100, 999}) {
            const auto whole = stated_map(from, to);
            for (std::int64_t first = 0; first < to; first += 1 + to / 7) {
                std::vector<std::int32_t> map(whole.size() - static_cast<std::size_t>(first), -1);
                grx::scale_map(map, {from, to, first});
                ASSERT_TRUE(std::equal(map.begin(), map.end(), whole.begin() + first)) << from << " to " << to;
            }
        }
}

TEST(ScaleMap, LargeSizesDoNotOverflow) {
    std::vector<std::int32_t> map(30000);
    grx::scale_map(map, {2000000000, 30000, 0});
    EXPECT_EQ(map, stated_map(2000000000, 30000));
    std::vector<std::int32_t> end(1);
    grx::scale_map(end, {INT32_MAX, INT32_MAX, INT32_MAX - 1});
    EXPECT_EQ(end.front(), INT32_MAX - 1);
}

std::vector<std::uint32_t> random_row(std::mt19937& random, std::size_t count) {
    std::vector<std::uint32_t> row(count);
    for (auto& pixel : row) pixel = static_cast<std::uint32_t>(random());
    return row;
}

TEST(SpreadRow, TakesTheColumnOfTheMap) {
    std::mt19937 random(3);
    for (std::size_t from : {1U, 2U, 3U, 4U, 5U, 17U, 64U, 101U})
        for (std::size_t to : {1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U, 15U, 16U, 40U, 64U, 65U, 203U, 640U}) {
            auto source = random_row(random, from);
            const auto map = stated_map(static_cast<std::int64_t>(from), static_cast<std::int64_t>(to));
            std::vector<std::uint32_t> expected;
            for (const auto column : map) expected.push_back(source[static_cast<std::size_t>(column)]);
            source.resize(from + grx::kSpreadSlack, 0xDEAD);
            std::vector<grx::SpreadStep> steps(to / 4);
            const bool enlarged = grx::make_spread_steps(steps, map);
            std::vector<std::uint32_t> row(to + 1, 0x77);
            grx::spread_row(row.data(), source.data(), map, {});
            EXPECT_EQ(row.back(), 0x77U);
            row.pop_back();
            ASSERT_EQ(row, expected) << from << " to " << to << " without steps";
            if (!enlarged) continue;
            row.assign(to + 1, 0x77);
            grx::spread_row(row.data(), source.data(), map, steps);
            EXPECT_EQ(row.back(), 0x77U);
            row.pop_back();
            ASSERT_EQ(row, expected) << from << " to " << to << " by steps";
        }
}

TEST(SpreadRow, ReductionsHaveNoSteps) {
    std::vector<grx::SpreadStep> steps(2);
    EXPECT_TRUE(grx::make_spread_steps(steps, stated_map(4, 8)));
    EXPECT_TRUE(grx::make_spread_steps(steps, stated_map(8, 8)));
    EXPECT_FALSE(grx::make_spread_steps(steps, stated_map(80, 8)));
}

TEST(DeepPacker, ThirdByteIsRedSecondGreenFirstBlue) {
    std::mt19937 random(5);
    for (const grx::Shifts& shifts : {grx::Shifts{16, 8, 0}, grx::Shifts{0, 8, 16}, grx::Shifts{24, 16, 8}}) {
        const grx::DeepPacker packer(shifts);
        for (std::size_t count : {0U, 1U, 2U, 3U, 4U, 5U, 7U, 8U, 15U, 16U, 17U, 33U, 500U}) {
            std::vector<uchar> in(count * 3);
            for (auto& byte : in) byte = static_cast<uchar>(random());
            std::vector<std::uint32_t> out(count + 1, 0x55), expected;
            for (std::size_t i = 0; i < count; ++i)
                expected.push_back(std::uint32_t{in[3 * i + 2]} << shifts.red
                                   | std::uint32_t{in[3 * i + 1]} << shifts.green
                                   | std::uint32_t{in[3 * i]} << shifts.blue);
            packer.row(out.data(), in.data(), count);
            EXPECT_EQ(out.back(), 0x55U) << count;
            out.pop_back();
            ASSERT_EQ(out, expected) << count;
        }
    }
}

TEST(IndexFinder, FirstEqualEntryOr0) {
    const std::array<INT, 6> table{10, 20, 30, 20, 10, 0xFFFFFF};
    const grx::IndexFinder finder(table.data(), table.size(), 0xFFFFFF);
    EXPECT_EQ(finder.find(10), 0);
    EXPECT_EQ(finder.find(20), 1);
    EXPECT_EQ(finder.find(30), 2);
    EXPECT_EQ(finder.find(0xFFFFFF), 5);
    EXPECT_EQ(finder.find(11), 0);
    EXPECT_EQ(finder.find(0), 0);
}

TEST(IndexFinder, BitsOutsideTheMaskDoNotCount) {
    const std::array<INT, 2> table{1, 0x123456};
    const grx::IndexFinder finder(table.data(), table.size(), 0xFFFFFF);
    EXPECT_EQ(finder.find(0xFF123456), 1);
}

TEST(IndexFinder, WholeTablesAreFound) {
    std::mt19937 random(9);
    std::array<INT, 256> table{};
    for (auto& pixel : table) pixel = static_cast<INT>(random() & 0x3F0F03);
    const grx::IndexFinder finder(table.data(), table.size(), 0xFFFFFF);
    std::vector<std::uint32_t> row;
    std::vector<uchar> expected;
    for (int i = 0; i < 3000; ++i) {
        const auto pixel =
            static_cast<std::uint32_t>(random() % 3 ? table[random() % 256] : static_cast<INT>(random() & 0xFFFFFF));
        std::size_t first = 0;
        while (first < table.size() && static_cast<std::uint32_t>(table[first]) != pixel) ++first;
        row.push_back(pixel);
        expected.push_back(first == table.size() ? uchar{0} : static_cast<uchar>(first));
    }
    std::vector<uchar> found(row.size() + 1, 0x77);
    finder.row(found.data(), row.data(), row.size());
    EXPECT_EQ(found.back(), 0x77);
    found.pop_back();
    EXPECT_EQ(found, expected);
}

} // namespace
} // namespace grxtest
