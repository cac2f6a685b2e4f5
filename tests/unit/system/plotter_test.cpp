// The plotter, whose spooling command the tests replace by one of their own.
#include <gtest/gtest.h>

#include "tests/support/heap.h"
#include "tests/support/libc_calls.h"
#include "tests/support/stdout_capture.h"
#include "tests/support/temp_dir.h"
#include "tests/unit/c_text.h"

#include "xt_f.h"

#include <sys/stat.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace grxtest {
namespace {

// --- blanks -------------------------------------------------------------------------------------------------------

std::string without_blanks(std::string text) {
    EXPECT_EQ(remplace_blancs(text.data()), 0);
    return text;
}

TEST(Blanks, BecomeUnderscores) {
    EXPECT_EQ(without_blanks("Traceur A0"), "Traceur_A0");
    EXPECT_EQ(without_blanks(" a  b "), "_a__b_");
    EXPECT_EQ(without_blanks("   "), "___");
    EXPECT_EQ(without_blanks(""), "");
    EXPECT_EQ(without_blanks("a\tb\nc_d\xA0"), "a\tb\nc_d\xA0") << "only the space is a blank";
    EXPECT_EQ(without_blanks(std::string(3000, ' ')), std::string(3000, '_'));
    EXPECT_EQ(remplace_blancs(nullptr), 0);
}

// --- the plotter --------------------------------------------------------------------------------------------------

// Nothing but `pltspool` on the path; it writes its arguments, each with a zero behind it, and gives the exit wanted.
class Plotter : public testing::Test {
  protected:
    void SetUp() override {
        put_spooler("0");
        setenv("PATH", folder.text().c_str(), 1);
        setenv("GRX_TEST_SEEN", (folder.path() / "seen").c_str(), 1);
    }

    void put_spooler(const std::string& exit_code) {
        const auto spooler = folder.write("pltspool", "#!/bin/sh\nfor a do printf '%s\\0' \"$a\"; done "
                                                      ">>\"$GRX_TEST_SEEN\"\nprintf '\\n\\0' >>\"$GRX_TEST_SEEN\"\n"
                                                      "exit "
                                                          + exit_code + "\n");
        ASSERT_EQ(chmod(spooler.c_str(), 0755), 0);
    }

    bool ran() const { return std::filesystem::exists(folder.path() / "seen"); }

    // The arguments of all calls; a line end behind those of each.
    std::vector<std::string> seen() const {
        std::vector<std::string> all;
        std::string argument;
        for (char c : folder.read("seen")) {
            if (c != '\0')
                argument += c;
            else
                all.push_back(std::exchange(argument, ""));
        }
        return all;
    }

    // The four texts, as the caller has them afterwards.
    struct Job {
        std::string directory, file, plotter, format;
    };

    static INT plot(Job& job, INT port = 2, INT kind = GRX_SORTIE_TRACEUR) {
        return OutputFileOnPort(
            kind, job.directory.data(), job.file.data(), job.plotter.data(), job.format.data(), port, 9600, 8, 1, 2, 3);
    }

    // What the command gets is what it was given, but for the blanks of plotter and format.
    void expect_arrives(const Job& job, INT port = 2) {
        std::filesystem::remove(folder.path() / "seen");
        Job given = job;
        EXPECT_EQ(plot(given, port), 0) << job.directory << " " << job.file;
        EXPECT_EQ(given.directory, job.directory);
        EXPECT_EQ(given.file, job.file);
        EXPECT_EQ(given.plotter, without_blanks(job.plotter));
        EXPECT_EQ(given.format, without_blanks(job.format));
        EXPECT_EQ(seen(), (std::vector<std::string>{job.directory, job.file, without_blanks(job.plotter),
                              without_blanks(job.format), std::to_string(port), "\n"}));
    }

    const TempDir folder;
    ShellCommands commands;
};

TEST_F(Plotter, RunsTheSpoolerWithDirectoryFilePlotterFormatAndPort) {
    Job job{"/tmp", "plot.plt", "Traceur A0", "A0 paysage"};
    EXPECT_EQ(plot(job), 0);
    EXPECT_EQ(seen(), (std::vector<std::string>{"/tmp", "plot.plt", "Traceur_A0", "A0_paysage", "2", "\n"}));
    EXPECT_EQ(commands.given, (std::vector<std::string>{"pltspool /tmp plot.plt Traceur_A0 A0_paysage 2"}));
    EXPECT_EQ(job.plotter, "Traceur_A0") << "the caller's own text";
    EXPECT_EQ(job.format, "A0_paysage");
}

TEST_F(Plotter, PlainNamesStandAsTheyAreInTheCommand) {
    Job job{"/tmp/a.b-c_d", "x+y,z:1=2@3%4", "HP", "A4"};
    EXPECT_EQ(plot(job, -1), 0);
    EXPECT_EQ(commands.given, (std::vector<std::string>{"pltspool /tmp/a.b-c_d x+y,z:1=2@3%4 HP A4 -1"}));
    EXPECT_EQ(seen(), (std::vector<std::string>{"/tmp/a.b-c_d", "x+y,z:1=2@3%4", "HP", "A4", "-1", "\n"}));
}

TEST_F(Plotter, OtherKindsOfOutputRunNothing) {
    for (INT kind : {2, 0, -1, INT_MIN, INT_MAX}) {
        Job job{"/tmp", "plot.plt", "Traceur A0", "A0 paysage"};
        EXPECT_EQ(plot(job, 2, kind), 0) << kind;
        EXPECT_EQ(job.plotter, "Traceur A0") << kind << ": its blanks stay";
        EXPECT_EQ(job.format, "A0 paysage") << kind;
    }
    EXPECT_FALSE(ran());
    EXPECT_TRUE(commands.given.empty());
}

TEST_F(Plotter, BlanksOfDirectoryAndFileArriveAsTheyAre) {
    expect_arrives({"/tmp/my plots", "a  b.plt", "p", "f"});
    expect_arrives({" ", "  x ", " p ", "  "});
}

TEST_F(Plotter, NothingInANameReachesTheShell) {
    const std::string canary = (folder.path() / "canary").string();
    for (const std::string& name : {std::string("it's"), std::string("'"), std::string("''"), std::string("\""),
             std::string("a\"b'c"), "$(/bin/sh -c ':>" + canary + "')", "`:>" + canary + "`", ";:>" + canary,
             "|:>" + canary, "&& :>" + canary, ">" + canary, "\n:>" + canary + "\n", std::string("$HOME"),
             std::string("*"), std::string("~"), std::string("\\"), std::string("a\\"), std::string("#x"),
             std::string("{a,b}"), std::string("!x"), std::string("(x)"), std::string("[a-z]?"), std::string("a\tb"),
             std::string("\xE9t\xE9"), std::string("%s%n")}) {
        expect_arrives({name, "f", "p", "m"});
        expect_arrives({"d", name, "p", "m"});
        expect_arrives({"d", "f", name, "m"});
        expect_arrives({"d", "f", "p", name});
        EXPECT_FALSE(std::filesystem::exists(canary)) << name;
    }
}

TEST_F(Plotter, LongNamesAreNotCut) {
    for (std::size_t length : {200U, 254U, 255U, 256U, 3000U}) {
        expect_arrives(
            {std::string(length, 'd'), std::string(length, 'f'), std::string(length, 'p'), std::string(length, 'm')});
        expect_arrives(
            {std::string(length, '\''), std::string(length, ' '), std::string(length, ' '), std::string(length, '$')});
    }
}

TEST_F(Plotter, EmptyAndMissingNamesKeepTheirPlace) {
    expect_arrives({"", "f", "", "m"});
    std::filesystem::remove(folder.path() / "seen");
    EXPECT_EQ(OutputFileOnPort(GRX_SORTIE_TRACEUR, nullptr, nullptr, nullptr, nullptr, 4, 0, 0, 0, 0, 0), 0);
    EXPECT_EQ(seen(), (std::vector<std::string>{"", "", "", "", "4", "\n"}));
}

TEST_F(Plotter, ThePortIsAnyNumber) {
    for (INT port : {0, 1, -1, 32767, INT_MIN, INT_MAX}) expect_arrives({"d", "f", "p", "m"}, port);
}

TEST_F(Plotter, TheLineSettingsAreIgnored) {
    std::string plotter = "p", format = "m";
    for (INT setting : {0, -1, 9600, INT_MIN, INT_MAX})
        EXPECT_EQ(OutputFileOnPort(GRX_SORTIE_TRACEUR, in("d"), in("f"), plotter.data(), format.data(), 1, setting,
                      setting, setting, setting, setting),
            0);
    EXPECT_EQ(commands.given, std::vector<std::string>(5, "pltspool d f p m 1"));
}

TEST_F(Plotter, GivesTheStatusOfTheShell) {
    Job job{"d", "f", "p", "m"};
    put_spooler("3");
    EXPECT_EQ(plot(job), 768);
    put_spooler("255");
    EXPECT_EQ(plot(job), 255 * 256);
    std::filesystem::remove(folder.path() / "pltspool");
    EXPECT_EQ(plot(job), 32512) << "no such command";
}

TEST_F(Plotter, SaysNothing) {
    Job job{"d", "f", "p", "m"};
    put_spooler("1");
    StdoutCapture capture;
    EXPECT_EQ(plot(job), 256);
    EXPECT_EQ(capture.text(), "");
}

TEST_F(Plotter, LeavesNoMemoryBehindAndRunsNothingWithoutIt) {
    Job job{"a b", std::string(3000, '\''), "p", "m"};
    {
        const NoLeak no_leak;
        EXPECT_EQ(plot(job), 0);
    }
    std::filesystem::remove(folder.path() / "seen");
    heap().fail_from(1);
    EXPECT_NE(plot(job), 0);
    EXPECT_TRUE(heap().failed());
    heap().fail_never();
    EXPECT_FALSE(ran()) << "a command cut short must not run";
}

} // namespace
} // namespace grxtest
