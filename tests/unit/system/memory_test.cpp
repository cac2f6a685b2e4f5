// The memory wrappers over the host's allocator, and the blocks the library builds on them.
#include <gtest/gtest.h>

#include "tests/support/heap.h"

#include "system/block.h"
#include "xt_loc_f.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <utility>

namespace grxtest {
namespace {

using grx::Block;

TEST(Memory, BlocksComeFromTheHostAndGoBackWithTheirSize) {
    const auto before = heap().blocks();
    const auto bytes = heap().bytes();
    char* const block = grx_malloc(80);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(heap().blocks(), before + 1);
    EXPECT_EQ(heap().bytes(), bytes + 80);
    EXPECT_EQ(grx_free(block, 80), 0);
    EXPECT_EQ(heap().blocks(), before);
}

TEST(Memory, AResizedBlockCarriesItsNewSizeAndItsBytes) {
    const NoLeak check;
    char* block = grx_malloc(3);
    std::memcpy(block, "ab", 3);
    block = grx_realloc(block, 3, 300);
    ASSERT_NE(block, nullptr);
    EXPECT_STREQ(block, "ab");
    block = grx_realloc(block, 300, 2);
    EXPECT_EQ(block[1], 'b');
    EXPECT_EQ(grx_free(block, 2), 0);
}

TEST(Memory, ShortageReachesTheCallerUnchanged) {
    const NoLeak check;
    heap().fail_at(1);
    EXPECT_EQ(grx_malloc(10), nullptr);
    char* const block = grx_malloc(10);
    heap().fail_at(1);
    EXPECT_EQ(grx_realloc(block, 10, 20), nullptr);
    heap().fail_never();
    grx_free(block, 10);
}

TEST(Memory, FreeingNothingIsAccepted) {
    EXPECT_EQ(grx_free(nullptr, 0), 0);
}

TEST(Memory, CopyGivesTheHostsResult) {
    std::array<char, 4> to{};
    std::array<char, 4> from{'a', 'b', 'c', 'd'};
    EXPECT_EQ(grx_memcpy(to.data(), from.data(), 3), 0);
    EXPECT_EQ(to, (std::array<char, 4>{'a', 'b', 'c', '\0'}));
    EXPECT_EQ(grx_memcpy(to.data(), from.data(), -1), 0);
    EXPECT_EQ(to[0], 'a');
}

struct Pair {
    int a;
    int b;
};

TEST(HeapBlock, HoldsZeroedElementsAndFreesThemExactly) {
    const NoLeak check;
    const auto bytes = heap().bytes();
    Block<Pair> block(5);
    ASSERT_TRUE(block);
    EXPECT_EQ(heap().bytes(), bytes + 5 * sizeof(Pair));
    EXPECT_EQ(block.size(), 5U);
    for (const auto& pair : block) EXPECT_EQ(pair.a + pair.b, 0);
    block[4].b = 7;
    EXPECT_EQ(block.span().back().b, 7);
    block.clear();
    EXPECT_EQ(block[4].b, 0);
}

TEST(HeapBlock, OfNothingHoldsNoMemory) {
    const auto before = heap().allocations();
    Block<int> empty;
    Block<int> none(0);
    EXPECT_FALSE(empty);
    EXPECT_FALSE(none);
    EXPECT_EQ(none.data(), nullptr);
    EXPECT_EQ(heap().allocations(), before);
}

TEST(HeapBlock, RefusesWhatThirtyTwoBitsCannotCount) {
    const auto before = heap().allocations();
    EXPECT_FALSE(Block<int>(std::size_t{1} << 30));
    EXPECT_FALSE(Block<int>(~std::size_t{0}));
    Block<int> block(2);
    EXPECT_FALSE(block.resize(std::size_t{1} << 30));
    EXPECT_EQ(block.size(), 2U);
    EXPECT_EQ(heap().allocations(), before + 1);
}

TEST(HeapBlock, IsEmptyWhenMemoryIsShort) {
    heap().fail_at(1);
    const Block<int> block(8);
    EXPECT_FALSE(block);
    EXPECT_EQ(block.size(), 0U);
    heap().fail_never();
}

TEST(HeapBlock, GrowsWithZeroesAndKeepsWhatItHeld) {
    const NoLeak check;
    Block<int> block(2);
    block[1] = 42;
    ASSERT_TRUE(block.resize(6));
    EXPECT_EQ(block.size(), 6U);
    EXPECT_EQ(block[1], 42);
    EXPECT_EQ(block[5], 0);
    ASSERT_TRUE(block.resize(1));
    EXPECT_EQ(block.size(), 1U);
    EXPECT_FALSE(block.resize(0));
    EXPECT_EQ(block.size(), 1U);
    heap().fail_at(1);
    EXPECT_FALSE(block.resize(9));
    heap().fail_never();
    EXPECT_EQ(block.size(), 1U);
    Block<int> fresh;
    EXPECT_TRUE(fresh.resize(3));
    EXPECT_EQ(fresh[2], 0);
}

TEST(HeapBlock, MovesAndNeverFreesTwice) {
    const NoLeak check;
    Block<int> first(3);
    first[0] = 1;
    Block<int> second(std::move(first));
    EXPECT_FALSE(first); // NOLINT: the moved-from state is part of the contract
    Block<int> third(4);
    third = std::move(second);
    EXPECT_EQ(third.size(), 3U);
    EXPECT_EQ(third[0], 1);
    auto& alias = third;
    third = std::move(alias);
    EXPECT_EQ(third.size(), 3U);
}

TEST(HeapBlock, HandsItsMemoryOver) {
    const NoLeak check;
    auto block = Block<int>::raw(3);
    block[2] = 9;
    int* const memory = block.release();
    EXPECT_FALSE(block);
    auto again = Block<int>::adopt(memory, 3);
    EXPECT_EQ(again[2], 9);
    EXPECT_FALSE(Block<int>::adopt(nullptr, 3));
}

} // namespace
} // namespace grxtest
