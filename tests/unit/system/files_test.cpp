// Files and directories.
#include <gtest/gtest.h>

#include "tests/support/descriptors.h"
#include "tests/support/heap.h"
#include "tests/support/temp_dir.h"
#include "tests/unit/c_text.h"

#include "xt_dir_f.h"

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>
#include <utime.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace grxtest {
namespace {

namespace fs = std::filesystem;

class Files : public testing::Test {
  protected:
    void SetUp() override {
        dir_.write("plan.dat", "0123456789");
        fs::create_directory(dir_.path() / "sub");
        fs::create_symlink("plan.dat", dir_.path() / "to_file");
        fs::create_directory_symlink("sub", dir_.path() / "to_dir");
        fs::create_symlink("missing", dir_.path() / "to_nothing");
        fs::create_symlink("loop", dir_.path() / "loop");
    }

    std::string at(const std::string& name) const { return dir_.text() + "/" + name; }

    // Names under which nothing can be found, each for a reason of its own.
    std::vector<std::string> unreachable() const {
        return {at("missing"), at("plan.dat/x"), at("to_nothing"), at("loop"), at(std::string(300, 'n')),
            at(std::string(5000, '/') + "x"), ""};
    }

    TempDir dir_;
};

TEST_F(Files, SizeIsCountedInBytes) {
    DOUBLE size = -1;
    EXPECT_EQ(taille_fichier(in(at("plan.dat")), &size), 0);
    EXPECT_EQ(size, 10.0);
    dir_.write("empty", "");
    EXPECT_EQ(taille_fichier(in(at("empty")), &size), 0);
    EXPECT_EQ(size, 0.0);
    EXPECT_EQ(taille_fichier(in(at("to_file")), &size), 0);
    EXPECT_EQ(size, 10.0);
}

TEST_F(Files, SizeBeyondThirtyTwoBitsIsExact) {
    dir_.write("big", "");
    const off_t five_gigabytes = off_t{5} << 30;
    ASSERT_EQ(truncate(at("big").c_str(), five_gigabytes + 1), 0);
    DOUBLE size = 0;
    EXPECT_EQ(taille_fichier(in(at("big")), &size), 0);
    EXPECT_EQ(size, static_cast<DOUBLE>(five_gigabytes) + 1);
}

TEST_F(Files, SizeOfNothingIsOneAndUntouched) {
    DOUBLE size = -1;
    for (const auto& name : unreachable()) EXPECT_EQ(taille_fichier(in(name), &size), 1) << name.substr(0, 80);
    EXPECT_EQ(taille_fichier(nullptr, &size), 1);
    EXPECT_EQ(size, -1);
    EXPECT_EQ(taille_fichier(in(at("plan.dat")), nullptr), 0);
}

TEST_F(Files, DateIsTheLastChangeInLocalTime) {
    std::tm wanted{};
    wanted.tm_year = 99;
    wanted.tm_mon = 11;
    wanted.tm_mday = 31;
    wanted.tm_hour = 23;
    wanted.tm_min = 59;
    wanted.tm_isdst = -1;
    const utimbuf times{0, mktime(&wanted)};
    ASSERT_EQ(utime(at("plan.dat").c_str(), &times), 0);
    INT year = 0, month = 0, day = 0, hour = 0, minute = 0;
    EXPECT_EQ(date_sys_fic(in(at("plan.dat")), &year, &month, &day, &hour, &minute), 0);
    EXPECT_EQ((std::vector<INT>{year, month, day, hour, minute}), (std::vector<INT>{1999, 12, 31, 23, 59}));
}

TEST_F(Files, DateFollowsTheTimeZone) {
    const utimbuf times{0, 951782400}; // 2000-02-29 00:00 UTC
    ASSERT_EQ(utime(at("plan.dat").c_str(), &times), 0);
    setenv("TZ", "WST5", 1);
    tzset();
    INT year = 0, month = 0, day = 0, hour = 0, minute = 0;
    date_sys_fic(in(at("plan.dat")), &year, &month, &day, &hour, &minute);
    unsetenv("TZ");
    tzset();
    EXPECT_EQ((std::vector<INT>{year, month, day, hour, minute}), (std::vector<INT>{2000, 2, 28, 19, 0}));
}

TEST_F(Files, DateOfNothingIsOneAndUntouched) {
    INT year = -5;
    for (const auto& name : unreachable())
        EXPECT_EQ(date_sys_fic(in(name), &year, nullptr, nullptr, nullptr, nullptr), 1);
    EXPECT_EQ(year, -5);
    EXPECT_EQ(date_sys_fic(in(at("plan.dat")), nullptr, nullptr, nullptr, nullptr, nullptr), 0);
}

TEST_F(Files, DirectoriesAndFilesAreToldApart) {
    EXPECT_EQ(verif_si_dir(in(at("sub"))), 1);
    EXPECT_EQ(verif_si_dir(in(at("to_dir"))), 1);
    EXPECT_EQ(verif_si_dir(in(at("plan.dat"))), 0);
    EXPECT_EQ(verif_si_fic(in(at("plan.dat"))), 1);
    EXPECT_EQ(verif_si_fic(in(at("to_file"))), 1);
    EXPECT_EQ(verif_si_fic(in(at("sub"))), 0);
    EXPECT_EQ(verif_si_fic(in("/dev/null")), 0);
    EXPECT_EQ(verif_si_dir(in("/dev/null")), 0);
}

TEST_F(Files, NothingIsNeitherDirectoryNorFile) {
    for (const auto& name : unreachable()) {
        EXPECT_EQ(verif_si_dir(in(name)), 0);
        EXPECT_EQ(verif_si_fic(in(name)), 0);
    }
    EXPECT_EQ(verif_si_dir(nullptr), 0);
    EXPECT_EQ(verif_si_fic(nullptr), 0);
}

TEST_F(Files, AccessToADirectoryIsTheSystems) {
    EXPECT_EQ(verif_repertoire(in(at("sub")), 0), 0);
    EXPECT_EQ(verif_repertoire(in(at("sub")), 4), 0);
    EXPECT_EQ(verif_repertoire(in(at("sub")), 7), 0);
    EXPECT_EQ(test_directorie(in(at("sub"))), 0);
    EXPECT_EQ(test_directorie_w(in(at("to_dir"))), 0);
    EXPECT_EQ(verif_repertoire(in(at("sub")), 8), -1);
    EXPECT_EQ(verif_repertoire(in(at("sub")), -1), -1);
    EXPECT_EQ(verif_repertoire(in(at("sub")), INT_MAX), -1);
}

TEST_F(Files, WritingNeedsAFileSystemThatCanBeWritten) {
    ASSERT_EQ(access("/proc", R_OK), 0);
    EXPECT_EQ(test_directorie(in("/proc")), 0);
    EXPECT_EQ(test_directorie_w(in("/proc/sys")), access("/proc/sys", W_OK));
}

TEST_F(Files, EmptyDirectoryNameIsAcceptedForAnyMode) {
    for (const INT mode : {0, 2, 4, 7, -1, 99}) EXPECT_EQ(verif_repertoire(in(""), mode), 0) << mode;
    EXPECT_EQ(test_directorie(in("")), 0);
    EXPECT_EQ(test_directorie_w(nullptr), 0);
}

TEST_F(Files, WhatIsNoDirectoryIsRefused) {
    EXPECT_EQ(verif_repertoire(in(at("plan.dat")), 4), -1);
    EXPECT_EQ(test_directorie(in(at("missing"))), -1);
    EXPECT_EQ(test_directorie_w(in(at("loop"))), -1);
}

TEST_F(Files, FilesAreReadableAndWritableOrNot) {
    EXPECT_EQ(test_fichier_r(in(at("plan.dat"))), 0);
    EXPECT_EQ(test_fichier_w(in(at("plan.dat"))), 0);
    EXPECT_EQ(test_fichier_r(in(at("sub"))), 0);
    for (const auto& name : unreachable()) {
        EXPECT_EQ(test_fichier_r(in(name)), -1);
        EXPECT_EQ(test_fichier_w(in(name)), -1);
    }
    EXPECT_EQ(test_fichier_r(nullptr), -1);
    EXPECT_EQ(test_fichier_w(nullptr), -1);
}

TEST_F(Files, RemovingTakesTheNameAway) {
    EXPECT_EQ(suppfic(in(at("plan.dat"))), 0);
    EXPECT_FALSE(fs::exists(at("plan.dat")));
    EXPECT_EQ(suppfic(in(at("plan.dat"))), -1);
    EXPECT_EQ(suppfic(in(at("sub"))), -1);
    EXPECT_EQ(suppfic(in(at("to_nothing"))), 0);
    EXPECT_EQ(suppfic(nullptr), -1);
    EXPECT_EQ(suppfic(in("")), -1);
}

class Names : public Files {
  protected:
    void TearDown() override { ferme_sysdir(); }

    // Everything that comes, each name as often as it comes.
    std::multiset<std::string> all(const char* extension) {
        EXPECT_EQ(ouvre_sysdir(in(dir_.text()), in(extension)), 0);
        std::multiset<std::string> names;
        std::array<char, 256> name{};
        for (auto result = lect_dir_premier(name.data()); result == 0; result = lect_dir_suivant(name.data()))
            names.insert(name.data());
        EXPECT_STREQ(name.data(), "");
        EXPECT_EQ(ferme_sysdir(), 0);
        return names;
    }
};

TEST_F(Names, WithoutFilterAllComeOnceAndTheTwoDotsToo) {
    const std::multiset<std::string> expected{".", "..", "plan.dat", "sub", "to_file", "to_dir", "to_nothing", "loop"};
    EXPECT_EQ(all("*"), expected);
    EXPECT_EQ(all(""), expected);
    EXPECT_EQ(all(nullptr), expected);
}

TEST_F(Names, ComeInTheOrderOfTheDirectory) {
    std::vector<std::string> expected;
    for (const auto& entry : fs::directory_iterator(dir_.path())) expected.push_back(entry.path().filename());
    std::vector<std::string> names;
    std::array<char, 256> name{};
    ouvre_sysdir(in(dir_.text()), in("*"));
    while (lect_dir_suivant(name.data()) == 0)
        if (name[0] != '.') names.emplace_back(name.data());
    EXPECT_EQ(names, expected);
}

TEST_F(Names, FilterIsTheTextAfterTheLastDot) {
    for (const char* name :
        {"MNU_ARCH.DAT", "mnu_arch.dat", "DAT", "a.b.DAT", "a.DAT.b", "a.DAT~", ".DAT", "a.", "aDAT"})
        dir_.write(name, "");
    EXPECT_EQ(all("DAT"), (std::multiset<std::string>{"MNU_ARCH.DAT", "a.b.DAT", ".DAT"}));
    EXPECT_EQ(all("dat"), (std::multiset<std::string>{"mnu_arch.dat", "plan.dat"}));
    EXPECT_EQ(all("b.DAT"), std::multiset<std::string>{});
    EXPECT_EQ(all("**"), std::multiset<std::string>{});
}

TEST_F(Names, FilterLongerThanAnyNameMatchesNone) {
    const std::string longest(253, 'e');
    dir_.write("a." + longest, "");
    EXPECT_EQ(all(longest.c_str()), std::multiset<std::string>{"a." + longest});
    EXPECT_EQ(all(std::string(300, 'e').c_str()), std::multiset<std::string>{});
    EXPECT_EQ(all(std::string(100000, 'e').c_str()), std::multiset<std::string>{});
}

TEST_F(Names, LongestNameIsDeliveredWhole) {
    const std::string longest = std::string(251, 'n') + ".ext";
    dir_.write(longest, "");
    EXPECT_EQ(all("ext"), std::multiset<std::string>{longest});
}

// Deliberate: "premier" is the same as "suivant".
TEST_F(Names, FirstDoesNotWindBack) {
    ouvre_sysdir(in(dir_.text()), in("dat"));
    std::array<char, 256> name{};
    EXPECT_EQ(lect_dir_premier(name.data()), 0);
    EXPECT_STREQ(name.data(), "plan.dat");
    EXPECT_EQ(lect_dir_premier(name.data()), 1);
    EXPECT_STREQ(name.data(), "");
    EXPECT_EQ(lect_dir_suivant(name.data()), 1);
}

TEST_F(Names, WhatCannotBeOpenedGivesOne) {
    for (const auto& name : unreachable()) EXPECT_EQ(ouvre_sysdir(in(name), in("*")), 1);
    EXPECT_EQ(ouvre_sysdir(in(at("plan.dat")), in("*")), 1);
    EXPECT_EQ(ouvre_sysdir(nullptr, in("*")), 1);
    std::array<char, 256> name{'?'};
    EXPECT_EQ(lect_dir_premier(name.data()), 1);
    EXPECT_STREQ(name.data(), "");
}

TEST_F(Names, WithoutOpenDirectoryThereIsNone) {
    std::array<char, 256> name{'?'};
    EXPECT_EQ(lect_dir_suivant(name.data()), 1);
    EXPECT_STREQ(name.data(), "");
    EXPECT_EQ(ferme_sysdir(), 0);
    EXPECT_EQ(ferme_sysdir(), 0);
}

TEST_F(Names, OpeningAgainClosesTheFormer) {
    const auto before = open_descriptors();
    for (int i = 0; i < 5; ++i) EXPECT_EQ(ouvre_sysdir(in(dir_.text()), in("*")), 0);
    EXPECT_EQ(open_descriptors(), before + 1);
    EXPECT_EQ(ouvre_sysdir(in(at("missing")), in("*")), 1);
    EXPECT_EQ(open_descriptors(), before);
}

TEST_F(Names, NullBufferGivesOne) {
    ouvre_sysdir(in(dir_.text()), in("*"));
    EXPECT_EQ(lect_dir_premier(nullptr), 1);
    EXPECT_EQ(lect_dir_suivant(nullptr), 1);
}

TEST_F(Files, StubsAnswer) {
    EXPECT_EQ(ouvre_sysfic(in("x")), 0);
    EXPECT_EQ(ouvre_sysfic(nullptr), 0);
    EXPECT_EQ(ferme_sysfic(), 0);
    EXPECT_EQ(verif_drive(in("Z:")), 1);
    EXPECT_EQ(verif_drive(nullptr), 1);
}

mode_t current_mask() {
    const auto mask = umask(0);
    umask(mask);
    return mask;
}

// Masks belong to the process: each test stands in one of its own.
class Mask : public testing::Test {
  protected:
    void TearDown() override { umask(before_); }
    mode_t before_ = umask(027);
};

using MaskDeathTest = Mask;

TEST_F(MaskDeathTest, RestoringBeforeSavingDoesNothing) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto check = [] {
        umask(031);
        const bool answered = set_old_umask() == 0;
        _exit(answered && current_mask() == 031 ? 0 : 1);
    };
    EXPECT_EXIT(check(), testing::ExitedWithCode(0), "");
}

TEST_F(Mask, IsOpenedAndBroughtBack) {
    EXPECT_EQ(set_umask_rw(), 0);
    EXPECT_EQ(current_mask(), 0111U);
    EXPECT_EQ(set_old_umask(), 0);
    EXPECT_EQ(current_mask(), 027U);
    umask(077);
    EXPECT_EQ(set_old_umask(), 0);
    EXPECT_EQ(current_mask(), 027U);
}

TEST_F(Mask, NewFilesCanBeReadAndWrittenByAll) {
    const TempDir dir;
    set_umask_rw();
    dir.write("shared", "");
    set_old_umask();
    EXPECT_EQ(fs::status(dir.path() / "shared").permissions(), fs::perms(0666));
}

// Deliberate: only one mask is remembered.
TEST_F(Mask, SettingTwiceForgetsTheOriginal) {
    set_umask_rw();
    set_umask_rw();
    set_old_umask();
    EXPECT_EQ(current_mask(), 0111U);
}

TEST_F(Files, FreeSpaceIsCutToThirtyTwoBits) {
    struct statvfs space {};
    ASSERT_EQ(statvfs("/proc", &space), 0);
    EXPECT_EQ(disk_free_spc(in("/proc")), 0); // a file system without blocks
    const NoLeak check;
    const auto free_bytes = [&] {
        statvfs(dir_.text().c_str(), &space);
        return static_cast<LONG>(static_cast<unsigned>(space.f_bfree * space.f_bsize));
    };
    bool equal = false; // others write to the disk too: the two must agree once
    for (int i = 0; i < 1000 && !equal; ++i) equal = disk_free_spc(in(dir_.text())) == free_bytes();
    EXPECT_TRUE(equal);
}

TEST_F(Files, FreeSpaceOfATrimmedName) {
    EXPECT_EQ(disk_free_spc(in("  /proc \t")), 0);
    EXPECT_EQ(disk_free_spc(in("")), 0);
    EXPECT_EQ(disk_free_spc(in("   ")), 0);
    EXPECT_EQ(disk_free_spc(nullptr), 0);
}

TEST_F(Files, FreeSpaceOfNothingIsMinusOne) {
    auto names = unreachable();
    std::erase(names, "");
    for (const auto& name : names) EXPECT_EQ(disk_free_spc(in(name)), -1) << name.substr(0, 80);
    EXPECT_EQ(disk_free_spc(in(std::string(100000, 'x'))), -1);
    heap().fail_at(1);
    EXPECT_EQ(disk_free_spc(in("/")), -1);
    heap().fail_never();
}

} // namespace
} // namespace grxtest
