// The output device, which draws nothing, and the plotter, whose spooling command the tests replace by one of their own.
#include "tests/support/heap.h"
#include "tests/support/libc_calls.h"
#include "tests/support/stdout_capture.h"
#include "tests/support/temp_dir.h"

#include "tests/unit/c_text.h"
#include "host_g.h"
#include "xt_f.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace grxtest {
namespace {

// --- what a printer is asked --------------------------------------------------------------------------------------

TEST(OutputDevice, HasAPageOfOneUnit) {
    INT a = 7, b = 7, c = 7, d = 7;
    EXPECT_EQ(getimpdim(&a, &b, &c, &d), 1);
    EXPECT_EQ(a, 0);
    EXPECT_EQ(b, 0);
    EXPECT_EQ(c, 1);
    EXPECT_EQ(d, 1);
    EXPECT_EQ(getimpstepx(), 1.0);
    EXPECT_EQ(getimpstepy(), 1.0);
    EXPECT_EQ(getimppalette(), 1);
    EXPECT_EQ(getimpwidth(), 1);
}

TEST(OutputDevice, EachPlaceOfThePageMayBeMissing) {
    for (int missing = 0; missing < 16; ++missing) {
        INT values[4] = {7, 7, 7, 7};
        INT* places[4];
        for (int k = 0; k < 4; ++k) places[k] = missing >> k & 1 ? nullptr : values + k;
        EXPECT_EQ(getimpdim(places[0], places[1], places[2], places[3]), 1);
        for (int k = 0; k < 4; ++k) EXPECT_EQ(values[k], places[k] ? k / 2 : 7) << missing << " " << k;
    }
}

TEST(OutputDevice, ItsPensAreTheReservedAndTheDrawingColours) {
    for (INT drawing : {32, 8, 128}) {
        grx_affecte_max_couleur_trace(drawing);
        EXPECT_EQ(getimpnbpen(), grx_recup_max_couleur_reserve() + drawing);
    }
    EXPECT_EQ(grx_recup_max_couleur_reserve(), 8);
}

TEST(OutputDevice, ItsListsAreEmpty) {
    EXPECT_EQ(chnListPortSerie, nullptr);
    EXPECT_EQ(chnListBaud, nullptr);
    EXPECT_EQ(chnListDataBits, nullptr);
    EXPECT_EQ(chnListStopBits, nullptr);
    EXPECT_EQ(chnListPortParallele, nullptr);
    EXPECT_EQ(chnListQueueReseau, nullptr);
    EXPECT_EQ(nbQueue, 0);
    static_assert(sizeof *chnListPortSerie == 20);
}

TEST(OutputDevice, RefreshingTheQueuesLeavesThemEmpty) {
    nbQueue = 3; // the application's to change: refreshing does nothing
    EXPECT_EQ(ActualiseQueueReseau(), 0);
    EXPECT_EQ(nbQueue, 3);
    EXPECT_EQ(chnListQueueReseau, nullptr);
}

// --- the life of a document ---------------------------------------------------------------------------------------

TEST(OutputDevice, StartingChoosesDevice0) {
    ASSERT_NE(device_output, 0);
    EXPECT_EQ(InitDeviceOutput(), 1);
    EXPECT_EQ(device_output, 0);
    device_output = 5;
    EXPECT_EQ(InitDeviceOutput(), 1);
    EXPECT_EQ(device_output, 0);
}

TEST(OutputDevice, TheRestOfTheLifeOfADocumentAnswers1AndKeepsTheDevice) {
    device_output = 5;
    EXPECT_EQ(ModifyDeviceOutput(), 1);
    EXPECT_EQ(ModifyDeviceOutput(1, "x", nullptr), 1);
    EXPECT_EQ(StartDocumentOutput(), 1);
    EXPECT_EQ(StartDocumentOutput("plan", 3), 1);
    EXPECT_EQ(EndDocumentOutput(), 1);
    EXPECT_EQ(EndDocumentOutput(2), 1);
    EXPECT_EQ(ReleaseDeviceOutput(), 1);
    EXPECT_EQ(ReleaseDeviceOutput(nullptr), 1);
    EXPECT_EQ(device_output, 5);
}

TEST(OutputDevice, DrawingOnItDoesNothing) {
    const StdoutCapture capture;
    const std::size_t allocations = heap().allocations();
    imp_trace_point({});
    imp_trace_segment({});
    imp_trace_polyline({});
    imp_trace_rectangle({});
    imp_trace_arc({});
    imp_remplit_rectangle({});
    imp_remplit_arc({});
    imp_remplit_polygone({});
    imp_remplit_triangle({});
    imp_trace_texte({});
    uchar pixels[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    const std::vector<uchar> before(pixels, pixels + 12);
    imp_stretch_image(pixels, pixels, 2, 2, 0, 0, 8, 8);
    imp_stretch_image(nullptr, nullptr, INT_MAX, INT_MAX, 0, 0, INT_MAX, INT_MIN);
    EXPECT_EQ(before, std::vector<uchar>(pixels, pixels + 12));
    EXPECT_EQ(heap().allocations(), allocations);
}

TEST(OutputDevice, HasNoMessages) {
    INT number = 7;
    EXPECT_EQ(getDevMessOrChn(1, 2, &number), nullptr);
    EXPECT_EQ(getDevMessOrChn(INT_MIN, INT_MAX, nullptr), nullptr);
    EXPECT_EQ(number, 7);
    char text[] = "as it is";
    LoadAbortPlotterComm(1, 2, text);
    LoadAbortPlotterComm(1, 2, nullptr);
    EXPECT_STREQ(text, "as it is");
}

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
