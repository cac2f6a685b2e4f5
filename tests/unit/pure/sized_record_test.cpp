#include "pure/sized_record.h"

#include <cstddef>

namespace {

// A record as it is now, and as the release before it knew it.
struct Now {
    INT taille;
    INT a;
    INT later;
};
constexpr std::size_t kFirst = offsetof(Now, later);

constexpr Now record(INT size) {
    return {size, 7, 8};
}

TEST(SizedRecord, AnOldOneIsReadAsFarAsItGoes) {
    const Now old = record(kFirst);
    Now read{0, 0, 3};
    ASSERT_TRUE(grx::read_sized(&old, read, kFirst));
    EXPECT_EQ(read.a, 7);
    EXPECT_EQ(read.later, 3);
    EXPECT_EQ(read.taille, static_cast<INT>(sizeof(Now)));
}

TEST(SizedRecord, ANewerOneIsReadAsFarAsItIsKnown) {
    const Now newer = record(sizeof(Now) + 400);
    Now read{};
    ASSERT_TRUE(grx::read_sized(&newer, read, kFirst));
    EXPECT_EQ(read.later, 8);
}

TEST(SizedRecord, FillingAnOldOneWritesNothingBehindIt) {
    Now old{kFirst, 0, 99};
    ASSERT_TRUE(grx::write_sized(&old, record(0), kFirst));
    EXPECT_EQ(old.a, 7);
    EXPECT_EQ(old.later, 99);
    EXPECT_EQ(old.taille, static_cast<INT>(kFirst));
}

TEST(SizedRecord, SizesOfNoReleaseAreRefused) {
    Now target{0, 0, 3};
    for (const INT size : {0, -1, 4, static_cast<INT>(kFirst) - 1, INT32_MIN}) {
        Now given = record(size);
        EXPECT_FALSE(grx::read_sized(&given, target, kFirst)) << size;
        EXPECT_FALSE(grx::write_sized(&given, record(0), kFirst)) << size;
    }
    EXPECT_FALSE(grx::read_sized<Now>(nullptr, target, kFirst));
    EXPECT_FALSE(grx::write_sized<Now>(nullptr, target, kFirst));
    EXPECT_EQ(target.later, 3);
}

} // namespace
