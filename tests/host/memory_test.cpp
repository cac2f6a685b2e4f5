// The default host's memory and its checks, in a program without the test heap.
#include <gtest/gtest.h>

#include "host_f.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <string>

namespace grxtest {
namespace {

TEST(HostMemory, NewBytesAreZero) {
    char* const block = mallocC(1000);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(std::string(block, 1000), std::string(1000, '\0'));
    EXPECT_EQ(freeC(block, 1000), 0);
}

TEST(HostMemory, NothingIsStillABlock) {
    char* block = mallocC(0);
    ASSERT_NE(block, nullptr);
    block = reallocC(block, 0, 0);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(freeC(block, 0), 0);
}

TEST(HostMemory, ResizingKeepsTheBytes) {
    char* block = reallocC(nullptr, 0, 4);
    std::memcpy(block, "abc", 4);
    block = reallocC(block, 4, 4000);
    EXPECT_STREQ(block, "abc");
    block = reallocC(block, 4000, 2);
    EXPECT_EQ(block[1], 'b');
    freeC(block, 2);
}

TEST(HostMemory, FreeingNullIsAccepted) {
    EXPECT_EQ(freeC(nullptr, 12), 0);
}

TEST(HostMemory, CopyMayOverlapAndNeverGoesBackwards) {
    std::array<char, 6> text{'a', 'b', 'c', 'd', 'e', '\0'};
    EXPECT_EQ(memcpyC(text.data() + 1, text.data(), 4), 0);
    EXPECT_STREQ(text.data(), "aabcd");
    EXPECT_EQ(memcpyC(text.data(), text.data() + 3, 0), 0);
    EXPECT_EQ(memcpyC(text.data(), text.data() + 3, -5), 0);
    EXPECT_EQ(memcpyC(nullptr, text.data(), 2), 0);
    EXPECT_EQ(memcpyC(text.data(), nullptr, 2), 0);
    EXPECT_STREQ(text.data(), "aabcd");
}

// Each in a fresh process, because the environment is read once.
class HostMemoryCheckDeathTest : public testing::Test {
  protected:
    void SetUp() override {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        setenv("GRX_HOST_MEMCHECK", "1", 1);
    }
    void TearDown() override { unsetenv("GRX_HOST_MEMCHECK"); }
};

TEST_F(HostMemoryCheckDeathTest, CorrectUseSaysNothing) {
    const auto use = [] {
        for (UNSIGNED_INT size = 1; size < 5000; ++size) {
            char* const block = reallocC(mallocC(size), size, size * 2);
            freeC(block, size * 2);
        }
        freeC(nullptr, 7);
        std::exit(0);
    };
    EXPECT_EXIT(use(), testing::ExitedWithCode(0), "^$");
}

TEST_F(HostMemoryCheckDeathTest, WrongSizeOfFreeIsTold) {
    const auto use = [] {
        freeC(mallocC(10), 12);
        std::exit(0);
    };
    EXPECT_EXIT(use(), testing::ExitedWithCode(0), "freeC: wrong size, 12 bytes given for a block of 10 bytes");
}

TEST_F(HostMemoryCheckDeathTest, WrongSizeOfReallocIsTold) {
    const auto use = [] {
        freeC(reallocC(mallocC(10), 9, 30), 30);
        std::exit(0);
    };
    EXPECT_EXIT(use(), testing::ExitedWithCode(0), "reallocC: wrong size, 9 bytes given for a block of 10 bytes");
}

TEST_F(HostMemoryCheckDeathTest, SecondFreeIsToldAndNotDone) {
    const auto use = [] {
        char* const block = mallocC(10);
        freeC(block, 10);
        freeC(block, 10);
        std::exit(0);
    };
    EXPECT_EXIT(use(), testing::ExitedWithCode(0), "freeC: block freed before .*10 bytes given");
}

TEST_F(HostMemoryCheckDeathTest, UnknownBlockIsToldAndNotTouched) {
    const auto use = [] {
        static std::array<char, 16> foreign{};
        freeC(foreign.data(), 16);
        std::exit(reallocC(foreign.data(), 16, 32) == nullptr ? 0 : 1);
    };
    EXPECT_EXIT(
        use(), testing::ExitedWithCode(0), "freeC: unknown block .*16 bytes given.*\n.*reallocC: unknown block");
}

TEST_F(HostMemoryCheckDeathTest, LeaksAreToldWithTheirSizesAtTheEnd) {
    const auto use = [] {
        static std::array<char*, 2> kept{};
        kept[0] = mallocC(80);
        kept[1] = mallocC(4000);
        std::exit(0);
    };
    EXPECT_EXIT(use(), testing::ExitedWithCode(0), "2 blocks leaked, 4080 bytes in all");
    EXPECT_EXIT(use(), testing::ExitedWithCode(0), "leak of 80 bytes");
    EXPECT_EXIT(use(), testing::ExitedWithCode(0), "leak of 4000 bytes");
}

TEST_F(HostMemoryCheckDeathTest, WhatExitHandlersFreeIsNoLeak) {
    const auto use = [] {
        static char* kept = mallocC(80);
        std::atexit([] { freeC(kept, 80); });
        std::exit(0);
    };
    EXPECT_EXIT(use(), testing::ExitedWithCode(0), "^$");
}

TEST_F(HostMemoryCheckDeathTest, ValueTwoMakesFindingsFail) {
    setenv("GRX_HOST_MEMCHECK", "2", 1);
    const auto leak = [] {
        static char* kept = mallocC(80);
        std::exit(kept ? 0 : 1);
    };
    EXPECT_EXIT(leak(), testing::ExitedWithCode(86), "leak of 80 bytes");
    const auto use = [] {
        freeC(mallocC(80), 80);
        std::exit(0);
    };
    EXPECT_EXIT(use(), testing::ExitedWithCode(0), "^$");
}

TEST_F(HostMemoryCheckDeathTest, WithoutTheVariableSizesAreIgnored) {
    const auto use = [] {
        freeC(mallocC(10), 12);
        char* const block = reallocC(mallocC(10), 99, 30);
        freeC(block, 0);
        std::exit(0);
    };
    unsetenv("GRX_HOST_MEMCHECK");
    EXPECT_EXIT(use(), testing::ExitedWithCode(0), "^$");
    setenv("GRX_HOST_MEMCHECK", "0", 1);
    EXPECT_EXIT(use(), testing::ExitedWithCode(0), "^$");
    setenv("GRX_HOST_MEMCHECK", "", 1);
    EXPECT_EXIT(use(), testing::ExitedWithCode(0), "^$");
}

} // namespace
} // namespace grxtest
