// Descriptors of the application that the loop watches.
#include "tests/display/session/waiting_kit.h"

#include <fcntl.h>
#include <sys/socket.h>

namespace {

using namespace grxtest;

constexpr INT kRead = GRX_DESCRIPTEUR_LECTURE, kWrite = GRX_DESCRIPTEUR_ECRITURE, kBroken = GRX_DESCRIPTEUR_RUPTURE,
              kClosed = GRX_DESCRIPTEUR_FERME;

class WatchesTest : public WaitingTest {
  protected:
    testing::AssertionResult told(INT watch, INT conditions, INT limit = 2000) {
        if (within(limit) != 1) return testing::AssertionFailure() << "no record";
        if (is(GRX_EVT_DESCRIPTEUR, watch) && got_.exec_fonction.valeur == conditions)
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "type " << got_.type_evenement << " number " << got_.exec_fonction.no_fo
                                           << " conditions " << got_.exec_fonction.valeur;
    }
};

TEST_F(WatchesTest, WhatCanBeReadIsToldUntilItIsRead) {
    Pipe pipe;
    const INT watch = grx_surveille_descripteur(pipe.reading(), kRead);
    EXPECT_EQ(watch, 1);
    EXPECT_EQ(within(20), 0);
    pipe.put();
    pipe.put();
    EXPECT_TRUE(told(watch, kRead));
    pipe.take();
    EXPECT_TRUE(told(watch, kRead)) << "a part was left";
    pipe.take();
    EXPECT_EQ(within(20), 0);
    pipe.put();
    EXPECT_TRUE(told(watch, kRead));
}

TEST_F(WatchesTest, OneEndsAWaitOfAnyKind) {
    Pipe pipe;
    const INT watch = grx_surveille_descripteur(pipe.reading(), kRead);
    for (auto* call : {grx_digitaliseur, grx_digitaliseur_fenetre}) {
        for (const INT waits : {1, 0}) {
            XtAppAddTimeOut(
                contexte, waits != 0 ? 20 : 0,
                [](XtPointer client, XtIntervalId*) { static_cast<Pipe*>(client)->put(); }, &pipe);
            while (call(&got_, waits) == 0) {
            }
            EXPECT_TRUE(is(GRX_EVT_DESCRIPTEUR, watch));
            pipe.take();
        }
    }
}

TEST_F(WatchesTest, RoomToWriteIsToldInTurnWithTheUser) {
    Pipe pipe;
    const INT watch = grx_surveille_descripteur(pipe.writing(), kWrite);
    for (int i = 0; i < 20; ++i) pointer().click();
    arrive();
    int writable = 0, clicks = 0;
    for (int i = 0; i < 80; ++i) {
        ASSERT_EQ(within(1000), 1);
        ++(got_.type_evenement == GRX_EVT_DESCRIPTEUR ? writable : clicks);
    }
    EXPECT_EQ(clicks, 40);
    EXPECT_EQ(writable, 40);
    EXPECT_EQ(grx_change_surveillance(watch, 0), 1);
    EXPECT_EQ(within(20), 0);
    EXPECT_EQ(grx_change_surveillance(watch, kWrite), 1);
    EXPECT_TRUE(told(watch, kWrite));
}

TEST_F(WatchesTest, BothConditionsOfASocket) {
    std::array<int, 2> ends{};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
    const INT watch = grx_surveille_descripteur(ends[0], kRead | kWrite);
    EXPECT_TRUE(told(watch, kWrite));
    ASSERT_EQ(write(ends[1], "ab", 2), 2);
    EXPECT_TRUE(told(watch, kRead | kWrite));
    EXPECT_EQ(grx_change_surveillance(watch, kRead), 1);
    EXPECT_TRUE(told(watch, kRead));
    close(ends[1]);
    EXPECT_TRUE(told(watch, kRead)) << "two bytes are left";
    char bytes[2];
    ASSERT_EQ(read(ends[0], bytes, 2), 2);
    EXPECT_TRUE(told(watch, kBroken));
    EXPECT_EQ(within(20), 0) << "that was the last";
    EXPECT_EQ(grx_arrete_surveillance(watch), 1);
    close(ends[0]);
}

TEST_F(WatchesTest, TheEndOfAPipeIsToldOnce) {
    Pipe pipe;
    const INT watch = grx_surveille_descripteur(pipe.reading(), kRead);
    pipe.put();
    pipe.close_writing();
    EXPECT_TRUE(told(watch, kRead));
    pipe.take();
    EXPECT_TRUE(told(watch, kBroken));
    const double before = used_milliseconds();
    EXPECT_EQ(within(100), 0);
    EXPECT_LT(used_milliseconds() - before, 20);
    Pipe other;
    const INT writing = grx_surveille_descripteur(other.writing(), kWrite);
    EXPECT_EQ(grx_change_surveillance(writing, 0), 1);
    other.close_reading();
    EXPECT_EQ(grx_change_surveillance(writing, kWrite), 1);
    EXPECT_TRUE(told(writing, kWrite | kBroken));
    EXPECT_EQ(within(20), 0);
}

TEST_F(WatchesTest, ADescriptorClosedUnderItIsToldOnceAndDoesNotSpin) {
    Pipe pipe;
    const INT watch = grx_surveille_descripteur(pipe.reading(), kRead);
    const int copy = dup(pipe.reading()); // keeps the pipe itself alive
    pipe.put();
    pipe.close_reading();
    EXPECT_TRUE(told(watch, kClosed));
    const double before = used_milliseconds();
    EXPECT_EQ(within(100), 0);
    EXPECT_LT(used_milliseconds() - before, 20);
    EXPECT_EQ(grx_change_surveillance(watch, kRead), GRX_ECHEC_NUMERO);
    EXPECT_EQ(grx_arrete_surveillance(watch), 1);
    close(copy);
}

TEST_F(WatchesTest, OneClosedDuringTheWaitDoesNotSpin) {
    Pipe pipe;
    const INT watch = grx_surveille_descripteur(pipe.reading(), kRead);
    XtAppAddTimeOut(
        contexte, 20, [](XtPointer client, XtIntervalId*) { static_cast<Pipe*>(client)->close_reading(); }, &pipe);
    const double before = used_milliseconds();
    EXPECT_TRUE(told(watch, kClosed, 150));
    EXPECT_EQ(within(100), 0);
    EXPECT_LT(used_milliseconds() - before, 20);
}

TEST_F(WatchesTest, AnotherFileUnderTheSameDescriptorIsAnother) {
    Pipe first, second;
    const int fd = dup(first.reading());
    const INT watch = grx_surveille_descripteur(fd, kRead);
    ASSERT_EQ(dup2(second.reading(), fd), fd);
    const INT other = grx_surveille_descripteur(fd, kRead);
    ASSERT_EQ(other, watch + 1);
    EXPECT_TRUE(told(watch, kClosed));
    EXPECT_EQ(grx_arrete_surveillance(watch), 1);
    first.put();
    EXPECT_EQ(within(20), 0);
    second.put();
    EXPECT_TRUE(told(other, kRead));
    EXPECT_EQ(grx_arrete_surveillance(other), 1);
    close(fd);
}

TEST_F(WatchesTest, TheRecordOfOneThatWasStoppedNeverComes) {
    Pipe pipe;
    pipe.put();
    const INT watch = grx_surveille_descripteur(pipe.reading(), kRead);
    static bool over = false;
    over = false;
    XtAppAddTimeOut(
        contexte, 10, [](XtPointer, XtIntervalId*) { over = true; }, nullptr);
    while (!over) XtAppProcessEvent(contexte, XtIMAll); // as in a dialog
    EXPECT_EQ(grx_arrete_surveillance(watch), 1);
    EXPECT_EQ(within(20), 0);
    EXPECT_EQ(grx_surveille_descripteur(pipe.reading(), kRead), watch) << "number and descriptor are free";
    EXPECT_TRUE(told(watch, kRead));
}

TEST_F(WatchesTest, HundredsHaveTheLowestNumbers) {
    std::vector<Pipe> pipes(200);
    for (INT number = 1; number <= 200; ++number)
        ASSERT_EQ(grx_surveille_descripteur(pipes[static_cast<std::size_t>(number - 1)].reading(), kRead), number);
    for (Pipe& pipe : pipes) pipe.put();
    std::vector<int> count(201);
    for (int i = 0; i < 200; ++i) {
        ASSERT_EQ(within(2000), 1);
        const INT number = got_.exec_fonction.no_fo;
        ++count[static_cast<std::size_t>(number)];
        pipes[static_cast<std::size_t>(number - 1)].take();
    }
    EXPECT_EQ(std::ranges::count(count, 1), 200);
    EXPECT_EQ(within(20), 0);
    for (const INT number : {20, 10}) EXPECT_EQ(grx_arrete_surveillance(number), 1);
    EXPECT_EQ(grx_surveille_descripteur(pipes[9].reading(), kRead), 10);
}

TEST_F(WatchesTest, WhatCannotBeWatchedIsRefused) {
    Pipe pipe;
    for (const INT fd : {-1, INT_MIN, INT_MAX, 1000}) EXPECT_EQ(grx_surveille_descripteur(fd, kRead), GRX_ECHEC_NUMERO);
    for (const INT bits : {0, 4, 8, 5, -1, INT_MIN, INT_MAX})
        EXPECT_EQ(grx_surveille_descripteur(pipe.reading(), bits), GRX_ECHEC_PARAMETRE);
    home().write("file", "text");
    const int file = open((home().path() / "file").c_str(), O_RDONLY | O_CLOEXEC);
    EXPECT_EQ(grx_surveille_descripteur(file, kRead), GRX_ECHEC_GENRE);
    close(file);
    const INT watch = grx_surveille_descripteur(pipe.reading(), kRead);
    EXPECT_EQ(watch, 1) << "what was refused took no number";
    EXPECT_EQ(grx_surveille_descripteur(pipe.reading(), kWrite), GRX_ECHEC_OCCUPE);
    for (const INT bits : {4, -1, INT_MAX}) EXPECT_EQ(grx_change_surveillance(watch, bits), GRX_ECHEC_PARAMETRE);
    for (const INT number : numbers_of_nothing) {
        EXPECT_EQ(grx_change_surveillance(number, kRead), GRX_ECHEC_NUMERO);
        EXPECT_EQ(grx_arrete_surveillance(number), GRX_ECHEC_NUMERO);
    }
}

TEST_F(WatchesTest, ShortMemoryIsSaidAndRecordsComeLater) {
    Pipe pipe;
    EXPECT_GT(fail_each_allocation([&] {
        const INT watch = grx_surveille_descripteur(pipe.reading(), kRead);
        EXPECT_TRUE(watch == GRX_ECHEC_MEMOIRE || watch == 1) << watch;
        if (watch > 0) EXPECT_EQ(grx_arrete_surveillance(watch), 1);
    }),
        0);
    const INT watch = grx_surveille_descripteur(pipe.reading(), kRead);
    pipe.put();
    heap().fail_from(1);
    EXPECT_EQ(within(20), 0);
    heap().fail_never();
    EXPECT_TRUE(told(watch, kRead));
}

TEST_F(WatchesTest, MadeAndStoppedTheyLeaveNothing) {
    Pipe pipe;
    pipe.put();
    grx_arrete_surveillance(grx_surveille_descripteur(pipe.reading(), kRead));
    const int free_before = dup(0);
    close(free_before);
    const NoLeak no_leak;
    for (int round = 0; round < 500; ++round) {
        const INT watch = grx_surveille_descripteur(pipe.reading(), kRead);
        ASSERT_TRUE(told(watch, kRead));
        ASSERT_EQ(grx_arrete_surveillance(watch), 1);
    }
    EXPECT_EQ(within(5), 0);
    const int free_after = dup(0);
    close(free_after);
    EXPECT_EQ(free_after, free_before) << "no descriptor is left open";
}

} // namespace
