// Papers for printers: what the command gets, and what happens when it is not there or refuses.
#include "tests/display/papier/paper_kit.h"

#include <sys/stat.h>

#include <csignal>
#include <cstdlib>

namespace {
using namespace grxtest;

class PaperPrinterOn24 : public PaperOn24 {
  protected:
    void SetUp() override {
        path_ = std::getenv("PATH");
        setenv("TMPDIR", folder().text().c_str(), 1);
    }
    void TearDown() override {
        setenv("PATH", path_.c_str(), 1);
        unsetenv("TMPDIR");
    }

    // The command that takes its place in the search path.
    void command(const std::string& script) {
        const auto name = folder().write("bin/lp", "#!/bin/sh\n" + script);
        ASSERT_EQ(chmod(name.c_str(), 0755), 0);
        setenv("PATH", ((folder().path() / "bin").string() + ":" + path_).c_str(), 1);
    }

    INT print_on(const char* printer, const char* title = nullptr) {
        GRX_PAPIER paper = described();
        paper.genre = GRX_PAPIER_IMPRIMANTE;
        paper.fichier = nullptr;
        paper.imprimante = printer;
        paper.titre = title;
        paper.copies = 3;
        EXPECT_EQ(grx_commence_papier(&paper), 1);
        line(20, 20, 120, 20);
        return grx_termine_papier();
    }

    bool only_the_commands() const {
        const auto left = names();
        return std::none_of(left.begin(), left.end(), [](const std::string& name) { return name[0] == '.'; });
    }

  private:
    std::string path_;
};

TEST_F(PaperPrinterOn24, TheCommandGetsTheWholeFile) {
    command(
        "cd \"$TMPDIR\"; for w in \"$@\"; do printf '%s\\n' \"$w\" >> words; file=$w; done; cp \"$file\" printed.pdf\n"
        "echo request id is 7\n");
    EXPECT_EQ(print_on("trac; touch hurt $HOME", "-o Plan de l'\xe9tage"), 1) << told_of_paper();
    const std::string words = folder().read("words");
    const std::string expected = "-c\n-n\n3\n-d\ntrac; touch hurt $HOME\n-t\n-o Plan de l'\xe9tage\n--\n";
    EXPECT_EQ(words.substr(0, expected.size()), expected);
    EXPECT_EQ(folder().read("printed.pdf").substr(0, 5), "%PDF-");
    EXPECT_GT(page_picture((folder().path() / "printed.pdf").string(), fine).ink().width, 990);
    EXPECT_TRUE(only_the_commands());
    EXPECT_FALSE(std::filesystem::exists("hurt"));
}

TEST_F(PaperPrinterOn24, TheUsersOwnPrinterIsNotNamed) {
    command("echo \"$*\" > \"$TMPDIR/words\"");
    EXPECT_EQ(print_on(nullptr), 1);
    EXPECT_EQ(folder().read("words").substr(0, 10), "-c -n 3 --");
    EXPECT_EQ(print_on(""), 1);
    EXPECT_EQ(folder().read("words").substr(0, 10), "-c -n 3 --");
}

TEST_F(PaperPrinterOn24, ARefusalIsTold) {
    command("echo 'lp: The printer or class does not exist.' >&2; exit 1");
    EXPECT_EQ(print_on("absent"), GRX_ECHEC_COMMANDE);
    EXPECT_EQ(told_of_paper(), "lp: The printer or class does not exist.\n");
    command("exit 3");
    EXPECT_EQ(print_on("absent"), GRX_ECHEC_COMMANDE);
    EXPECT_EQ(told_of_paper(), "lp failed without a word");
    command("kill -9 $$");
    EXPECT_EQ(print_on("absent"), GRX_ECHEC_COMMANDE);
    command("yes too long a story | head -c 100000; exit 1");
    EXPECT_EQ(print_on("absent"), GRX_ECHEC_COMMANDE);
    EXPECT_EQ(told_of_paper().substr(0, 8), "too long");
    EXPECT_TRUE(only_the_commands());
}

TEST_F(PaperPrinterOn24, WithoutTheCommandThereIsAnAnswer) {
    setenv("PATH", folder().text().c_str(), 1);
    EXPECT_EQ(print_on("trac"), GRX_ECHEC_COMMANDE);
    EXPECT_EQ(told_of_paper(), "lp: No such file or directory");
    EXPECT_TRUE(only_the_commands());
}

TEST_F(PaperPrinterOn24, AnApplicationThatIgnoresItsChildrenLearnsItToo) {
    std::signal(SIGCHLD, SIG_IGN);
    command("exit 1");
    EXPECT_EQ(print_on("trac"), GRX_ECHEC_COMMANDE);
    command("exit 0");
    EXPECT_EQ(print_on("trac"), 1);
    EXPECT_EQ(std::signal(SIGCHLD, SIG_DFL), SIG_IGN);
}

TEST_F(PaperPrinterOn24, WithoutAFolderForTheFileNothingBegins) {
    setenv("TMPDIR", "/nowhere/at/all", 1);
    GRX_PAPIER paper = described();
    paper.genre = GRX_PAPIER_IMPRIMANTE;
    EXPECT_EQ(grx_commence_papier(&paper), GRX_ECHEC_FICHIER);
    EXPECT_EQ(told_of_paper(), "No such file or directory");
}

} // namespace
