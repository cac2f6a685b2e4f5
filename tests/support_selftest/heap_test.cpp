// The test frame tried on itself: the allocator and the capture of standard output.
#include "tests/support/heap.h"
#include "tests/support/stdout_capture.h"
#include "tests/support/temp_dir.h"

#include "host_f.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

using namespace grxtest;

TEST(TestHeap, CountsBlocksAndBytes) {
    const auto blocks = heap().blocks(), bytes = heap().bytes(), made = heap().allocations();
    char* block = mallocC(80);
    EXPECT_EQ(heap().blocks(), blocks + 1);
    EXPECT_EQ(heap().bytes(), bytes + 80);
    EXPECT_EQ(heap().allocations(), made + 1);
    EXPECT_EQ(heap().living_since(made), "80 bytes, allocation " + std::to_string(made + 1) + "\n");
    freeC(block, 80);
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(heap().living_since(made), "");
}

TEST(TestHeap, NewBytesAreFilled) {
    char* block = mallocC(3);
    EXPECT_EQ(static_cast<unsigned char>(block[2]), 0xA5);
    freeC(block, 3);
    heap().fill(0);
    block = mallocC(3);
    EXPECT_EQ(block[0], 0);
    freeC(block, 3);
}

TEST(TestHeap, ReallocKeepsTheContents) {
    const NoLeak no_leak;
    char* block = mallocC(4);
    std::memcpy(block, "abc", 4);
    block = reallocC(block, 4, 100);
    EXPECT_STREQ(block, "abc");
    block = reallocC(block, 100, 2);
    EXPECT_EQ(block[1], 'b');
    freeC(block, 2);
}

TEST(TestHeap, AWrongSizeIsAFailure) {
    static char* block = mallocC(80);
    EXPECT_NONFATAL_FAILURE(freeC(block, 84), "wrong size");
    static char* other = mallocC(8);
    EXPECT_NONFATAL_FAILURE(other = reallocC(other, 9, 16), "wrong size");
    freeC(other, 16);
}

TEST(TestHeap, AnUnknownBlockIsAFailure) {
    static char here[8];
    EXPECT_NONFATAL_FAILURE(freeC(here, 8), "no live block");
    static char* block = mallocC(8);
    freeC(block, 8);
    EXPECT_NONFATAL_FAILURE(freeC(block, 8), "no live block");
}

TEST(TestHeap, NullIsFreedInSilence) {
    EXPECT_EQ(freeC(nullptr, 12), 0);
}

#if !defined(__SANITIZE_ADDRESS__)
TEST(TestHeap, GuardBytesAreWatched) {
    char* block = mallocC(8);
    EXPECT_EQ(heap().damage(), "");
    char* volatile end = block + 8;
    const char kept = *end;
    *end = 'x';
    EXPECT_NE(heap().damage().find("behind their end"), std::string::npos);
    *end = kept;
    EXPECT_EQ(heap().damage(), "");
    freeC(block, 8);
}
#endif

TEST(TestHeap, FailsAtTheNthAllocation) {
    heap().fail_at(2);
    char* first = mallocC(1);
    EXPECT_FALSE(heap().failed());
    char* second = mallocC(1);
    EXPECT_TRUE(heap().failed());
    char* third = mallocC(1);
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(second, nullptr);
    EXPECT_NE(third, nullptr);
    heap().fail_from(1);
    EXPECT_EQ(reallocC(first, 1, 2), nullptr);
    EXPECT_EQ(mallocC(1), nullptr);
    heap().fail_never();
    freeC(first, 1);
    freeC(third, 1);
}

TEST(TestHeap, EachAllocationOfAnActionFailsOnce) {
    int complete = 0;
    const auto action = [&complete] {
        char* first = mallocC(10);
        char* second = first ? mallocC(20) : nullptr;
        if (second) ++complete;
        if (second) freeC(second, 20);
        if (first) freeC(first, 10);
    };
    EXPECT_EQ(fail_each_allocation(action), 2);
    EXPECT_EQ(complete, 1);
}

TEST(TestHeap, ALeakIsReported) {
    static char* block = nullptr;
    EXPECT_NONFATAL_FAILURE(
        {
            const NoLeak no_leak;
            block = mallocC(24);
        },
        "24 bytes");
    freeC(block, 24);
}

TEST(Capture, SeesWhatIsPrinted) {
    StdoutCapture capture;
    std::printf("one\ntwo");
    EXPECT_EQ(capture.text(), "one\ntwo");
    std::printf("\n\nfour\n");
    EXPECT_EQ(capture.lines(), (std::vector<std::string>{"one", "two", "", "four"}));
    capture.restore();
    std::printf("not captured\n");
    EXPECT_EQ(capture.lines().size(), 4U);
}

TEST(Folder, IsWrittenReadAndRemoved) {
    std::filesystem::path path;
    {
        const TempDir folder;
        path = folder.path();
        folder.write("a/b.txt", std::string_view("x\0y", 3));
        EXPECT_EQ(folder.read("a/b.txt"), std::string("x\0y", 3));
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

// Run by frame.SkippingIsAFailure only.
TEST(Skip, DISABLED_Itself) {
    GTEST_SKIP();
}

} // namespace
