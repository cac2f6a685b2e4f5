// The default host's file names, texts that grow and file lists.
#include <gtest/gtest.h>

#include "tests/support/heap.h"
#include "tests/unit/c_text.h"

#include "host_f.h"

#include <array>
#include <limits>
#include <string>

namespace grxtest {
namespace {

using Path = std::array<char, HOST_CHEMIN_MAX>;

std::string joined(const std::string& directory, const std::string& name, INT expected = 0) {
    Path path{'?'};
    EXPECT_EQ(compose_adresse_fichier(in(directory), in(name), path.data()), expected);
    return path.data();
}

TEST(HostPath, IsDirectorySlashName) {
    EXPECT_EQ(joined("/opt/icons", "S"), "/opt/icons/S");
    EXPECT_EQ(joined("/opt/icons/", "S"), "/opt/icons/S");
    EXPECT_EQ(joined("/", "S"), "/S");
    EXPECT_EQ(joined("a", ""), "a/");
}

TEST(HostPath, EmptyDirectoryGivesTheNameAlone) {
    EXPECT_EQ(joined("", "S"), "S");
    EXPECT_EQ(joined("", "/a/b"), "/a/b");
    EXPECT_EQ(joined("", ""), "");
}

TEST(HostPath, ResultMayBeTheDirectoryOrTheName) {
    Path path{'m', 's', 'g'};
    EXPECT_EQ(compose_adresse_fichier(path.data(), in("12"), path.data()), 0);
    EXPECT_STREQ(path.data(), "msg/12");
    EXPECT_EQ(compose_adresse_fichier(in("/opt"), path.data(), path.data()), 0);
    EXPECT_STREQ(path.data(), "/opt/msg/12");
}

TEST(HostPath, TooLongIsRefusedNotCut) {
    EXPECT_EQ(joined(std::string(1000, 'd'), std::string(22, 'n')).size(), 1023U);
    EXPECT_EQ(joined(std::string(1000, 'd'), std::string(23, 'n'), -1), "");
    EXPECT_EQ(joined(std::string(100000, 'd'), "n", -1), "");
}

TEST(HostPath, NullReadsAsEmpty) {
    Path path{'?'};
    EXPECT_EQ(compose_adresse_fichier(nullptr, in("S"), path.data()), 0);
    EXPECT_STREQ(path.data(), "S");
    EXPECT_EQ(compose_adresse_fichier(in("d"), nullptr, path.data()), 0);
    EXPECT_STREQ(path.data(), "d/");
    EXPECT_EQ(compose_adresse_fichier(in("d"), in("n"), nullptr), -1);
}

std::string renamed(const std::string& name, const std::string& extension, INT expected = 0) {
    Path result{'?'};
    EXPECT_EQ(nouvelle_extension(in(name), in(extension), result.data()), expected);
    return result.data();
}

TEST(HostNewExtension, ReplacesWhatFollowsTheLastDot) {
    EXPECT_EQ(renamed("plan.dat", "BMP"), "plan.BMP");
    EXPECT_EQ(renamed("a.b.dat", "BMP"), "a.b.BMP");
    EXPECT_EQ(renamed("plan.", "BMP"), "plan.BMP");
}

TEST(HostNewExtension, IsAppendedWhenThereIsNone) {
    EXPECT_EQ(renamed("plan", "BMP"), "plan.BMP");
    EXPECT_EQ(renamed("/a.b/plan", "BMP"), "/a.b/plan.BMP");
    EXPECT_EQ(renamed("", "BMP"), ".BMP");
}

TEST(HostNewExtension, EmptyTakesTheOldOneOff) {
    EXPECT_EQ(renamed("plan.dat", ""), "plan");
    EXPECT_EQ(renamed("plan", ""), "plan");
}

TEST(HostNewExtension, ResultMayBeTheName) {
    Path name{'a', '.', 'b'};
    EXPECT_EQ(nouvelle_extension(name.data(), in("BMP"), name.data()), 0);
    EXPECT_STREQ(name.data(), "a.BMP");
}

TEST(HostNewExtension, TooLongIsRefused) {
    EXPECT_EQ(renamed(std::string(1019, 'n'), "BMP").size(), 1023U);
    EXPECT_EQ(renamed(std::string(1020, 'n'), "BMP", -1), "?");
    Path result{'?'};
    EXPECT_EQ(nouvelle_extension(nullptr, nullptr, result.data()), 0);
    EXPECT_STREQ(result.data(), "");
    EXPECT_EQ(nouvelle_extension(in("a"), in("b"), nullptr), -1);
}

std::string checked(const std::string& name, const char* extension, INT expected = 0) {
    std::array<char, 1000> buffer{};
    name.copy(buffer.data(), buffer.size() - 1);
    EXPECT_EQ(verifie_extension(buffer.data(), in(extension)), expected);
    return buffer.data();
}

TEST(HostExtension, IsAppendedKeptOrReplaced) {
    EXPECT_EQ(checked("PLAN", "DAT"), "PLAN.DAT");
    EXPECT_EQ(checked("PLAN.DAT", "DAT"), "PLAN.DAT");
    EXPECT_EQ(checked("PLAN.dat", "DAT"), "PLAN.dat");
    EXPECT_EQ(checked("PLAN.BMP", "DAT"), "PLAN.DAT");
    EXPECT_EQ(checked("PLAN.", "DAT"), "PLAN.DAT");
    EXPECT_EQ(checked("/a.dat/PLAN", "DAT"), "/a.dat/PLAN.DAT");
    EXPECT_EQ(checked("a.dat.b", "dat"), "a.dat.dat");
}

TEST(HostExtension, OfNoFilterLeavesTheName) {
    for (const char* extension : {"", "*", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(checked("PLAN", extension), "PLAN");
        EXPECT_EQ(checked("PLAN.BMP", extension), "PLAN.BMP");
    }
    EXPECT_EQ(checked("", "DAT"), "");
    EXPECT_EQ(verifie_extension(nullptr, in("DAT")), 0);
}

TEST(HostExtension, OnlyLettersHaveTwoForms) {
    EXPECT_EQ(checked("a.[", "{"), "a.{");
}

TEST(HostExtension, WithoutRoomTheNameStays) {
    EXPECT_EQ(checked(std::string(995, 'n'), "DAT").size(), 999U);
    EXPECT_EQ(checked(std::string(996, 'n'), "DAT", -1), std::string(996, 'n'));
}

void release(STRING& text) {
    freeC(text.str, static_cast<UNSIGNED_INT>(text.taille));
    text = {};
}

TEST(HostString, HoldsACopyAndItsSizes) {
    const NoLeak check;
    STRING text{};
    EXPECT_EQ(string_realloc(&text, in("abc")), 0);
    EXPECT_STREQ(text.str, "abc");
    EXPECT_EQ(text.lg, 3);
    EXPECT_EQ(text.taille, 4);
    EXPECT_EQ(string_realloc(&text, in("a much longer text")), 0);
    EXPECT_STREQ(text.str, "a much longer text");
    EXPECT_EQ(string_realloc(&text, nullptr), 0);
    EXPECT_STREQ(text.str, "");
    EXPECT_EQ(text.lg, 0);
    release(text);
}

TEST(HostString, MayBeGivenItsOwnText) {
    const NoLeak check;
    STRING text{};
    string_realloc(&text, in("abcdef"));
    EXPECT_EQ(string_realloc(&text, text.str + 2), 0);
    EXPECT_STREQ(text.str, "cdef");
    release(text);
}

TEST(HostString, ShortageLeavesItAlone) {
    const NoLeak check;
    STRING text{};
    string_realloc(&text, in("abc"));
    heap().fail_at(1);
    EXPECT_EQ(string_realloc(&text, in("defghi")), 105);
    heap().fail_never();
    EXPECT_STREQ(text.str, "abc");
    EXPECT_EQ(string_realloc(nullptr, in("x")), 105);
    release(text);
}

void release(SFICHIER& list) {
    for (INT i = 0; i < list.nb_fics; ++i) release(list.fics[i]);
    freeC(reinterpret_cast<char*>(list.fics),
        static_cast<UNSIGNED_INT>(static_cast<std::size_t>(list.nb_fics) * sizeof(STRING)));
    list = {};
}

TEST(HostFileList, GrowsByOneName) {
    const NoLeak check;
    SFICHIER list{};
    EXPECT_EQ(ajout_sfichier(&list, in("PLAN.DAT")), 0);
    EXPECT_EQ(ajout_sfichier(&list, in("COUPE.DAT")), 0);
    EXPECT_EQ(ajout_sfichier(&list, nullptr), 0);
    ASSERT_EQ(list.nb_fics, 3);
    EXPECT_STREQ(list.fics[0].str, "PLAN.DAT");
    EXPECT_STREQ(list.fics[1].str, "COUPE.DAT");
    EXPECT_STREQ(list.fics[2].str, "");
    EXPECT_EQ(list.adrs.str, nullptr);
    release(list);
}

TEST(HostFileList, ShortageLeavesItAsItWas) {
    const NoLeak check;
    SFICHIER list{};
    ajout_sfichier(&list, in("a"));
    const auto failures = fail_each_allocation([&] {
        const auto before = list.nb_fics;
        const auto result = ajout_sfichier(&list, in("b"));
        EXPECT_EQ(result, heap().failed() ? 105 : 0);
        EXPECT_EQ(list.nb_fics, before + (result == 0 ? 1 : 0));
    });
    EXPECT_EQ(failures, 2);
    EXPECT_EQ(list.nb_fics, 2);
    EXPECT_EQ(ajout_sfichier(nullptr, in("c")), 105);
    release(list);
}

TEST(HostFileList, FullListRefuses) {
    const auto before = heap().allocations();
    SFICHIER list{};
    list.nb_fics = std::numeric_limits<INT2>::max();
    EXPECT_EQ(ajout_sfichier(&list, in("c")), 105);
    EXPECT_EQ(list.nb_fics, std::numeric_limits<INT2>::max());
    EXPECT_EQ(heap().allocations(), before);
}

} // namespace
} // namespace grxtest
