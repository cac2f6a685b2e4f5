// Files of the editor: every byte is saved as it was, and a save that fails is told and damages nothing.
#include "tests/support/bells.h"
#include "tests/display/dialogs/editor_kit.h"
#include "tests/support/descriptors.h"
#include "tests/support/sanitized.h"

#include <clocale>
#include <cstring>
#include <fstream>
#include <optional>
#include <set>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace grxtest;
namespace fs = std::filesystem;

// A program named cp in front of the others: it notes its arguments, and does with them what `script` says.
class FakeCp {
  public:
    explicit FakeCp(const std::string& script) : before_(std::getenv("PATH")) {
        const auto file =
            folder_.write("cp", "#!/bin/sh\nfor a in \"$@\"; do echo \"$a\" >>" + log() + "; done\n" + script + "\n");
        fs::permissions(file, fs::perms::all);
        setenv("PATH", (folder_.text() + ":" + before_).c_str(), 1);
    }
    ~FakeCp() { setenv("PATH", before_.c_str(), 1); }
    FakeCp(const FakeCp&) = delete;
    FakeCp& operator=(const FakeCp&) = delete;
    std::vector<std::string> arguments() const {
        std::ifstream in(log());
        std::vector<std::string> lines;
        for (std::string line; std::getline(in, line);) lines.push_back(line);
        return lines;
    }

  private:
    std::string log() const { return (folder_.path() / "log").string(); }
    TempDir folder_;
    std::string before_;
};

// --- saving --------------------------------------------------------------------------------------------------------

TEST_F(Editor, ALineFeedIsAddedWhereThereIsNone) {
    const std::pair<std::string, std::string> cases[] = {{"abc", "abc\n"}, {"abc\n", "abc\n"}, {"", "\n"}, {"\n", "\n"},
        {"a\n\n", "a\n\n"}, {"a\r\nb\r\n", "a\r\nb\r\n"}};
    for (const auto& [before, after] : cases) {
        edit("a.txt", before);
        EXPECT_EQ(content(), before);
        save();
        EXPECT_EQ(bytes_of(path("a.txt")), after);
        EXPECT_EQ(content(), before);
        EXPECT_EQ(left_behind(), std::set<std::string>{});
        grx_fin_editeur();
        ASSERT_TRUE(closed());
    }
}

std::string all_bytes() {
    std::string bytes;
    for (int i = 1; i < 256; ++i) bytes += static_cast<char>(i);
    return bytes + "\n";
}

TEST_F(Editor, EveryByteIsSavedAsItWas) {
    edit("a.txt", all_bytes());
    EXPECT_EQ(content(), all_bytes());
    type("x");
    save();
    EXPECT_EQ(bytes_of(path("a.txt")), "x" + all_bytes());
}

TEST_F(Editor, TypingIsSaved) {
    edit("a.txt", "tail\n");
    type("Head 1\nand ");
    EXPECT_EQ(content(), "Head 1\nand tail\n");
    save();
    EXPECT_EQ(bytes_of(path("a.txt")), "Head 1\nand tail\n");
    choose("File", "Exit");
    EXPECT_TRUE(closed());
}

class EditorInUtf8 : public Editor {
  protected:
    void before_start() override {
        Editor::before_start();
        ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    }
};

TEST_F(EditorInUtf8, FilesOfAnyEncodingAreSavedUnchanged) {
    for (const std::string& bytes : {std::string("d\xe9j\xe0 vu\nfin\n"), std::string("d\u00e9j\u00e0 \u20ac\n"),
             std::string("d\u00e9j\u00e0\n"), std::string("both \xe9 \u00e9\n"), all_bytes()}) {
        edit("a.txt", bytes);
        EXPECT_TRUE(sensitive());
        save();
        EXPECT_EQ(bytes_of(path("a.txt")), bytes);
        type("x");
        save();
        EXPECT_EQ(bytes_of(path("a.txt")), "x" + bytes);
        grx_fin_editeur();
        ASSERT_TRUE(closed());
    }
}

// It is in the application's, which was Latin-1 once.
TEST_F(EditorInUtf8, ANewFileIsNotInTheEncodingOfTheOneBefore) {
    edit("a.txt", "d\xe9j\xe0\n");
    put("b.txt", "d\u00e9j\u00e0\n");
    load(files_.text(), "b.txt");
    choose("File", "New");
    fill_prompt(path("new.txt"));
    answer(XmDIALOG_OK_BUTTON);
    XmTextInsert(text(), 0, const_cast<char*>("\u00e9t\u00e9\n"));
    save();
    EXPECT_EQ(bytes_of(path("new.txt")), "\xe9t\xe9\n");
}

TEST_F(EditorInUtf8, WhatALatinFileCannotHoldIsSavedAllTheSame) {
    edit("a.txt", "d\xe9j\xe0\n");
    XmTextInsert(text(), 0, const_cast<char*>("\u20ac"));
    save();
    EXPECT_EQ(bytes_of(path("a.txt")), "\u20acd\u00e9j\u00e0\n");
}

TEST_F(EditorInUtf8, LatinTextIsShownWhole) {
    edit("a.txt", "d\xe9j\xe0 vu\nfin\n");
    EXPECT_EQ(content(), "d\u00e9j\u00e0 vu\nfin\n");
}

TEST_F(Editor, AFileWithZerosIsNeverDamaged) {
    const std::string bytes = std::string("before\0after\n", 13) + std::string(3, '\0') + "end";
    edit("a.bin", bytes);
    if (sensitive()) type("x");
    save();
    const std::string after = bytes_of(path("a.bin"));
    EXPECT_TRUE(after == bytes || after == "x" + bytes + "\n") << testing::PrintToString(after);
}

TEST_F(Editor, TwentyMegabytes) {
    std::string bytes;
    while (bytes.size() < static_cast<std::size_t>(amount(20)) << 20)
        bytes += "line " + std::to_string(bytes.size()) + " of a long report\n";
    edit("big.txt", bytes);
    EXPECT_EQ(XmTextGetLastPosition(text()), static_cast<XmTextPosition>(bytes.size()));
    pointer().click_in(text(), 8, 8);
    drain();
    keyboard().key(XK_End, ControlMask);
    drain();
    EXPECT_EQ(XmTextGetInsertionPosition(text()), static_cast<XmTextPosition>(bytes.size()));
    EXPECT_GT(XmTextGetTopCharacter(text()), 1000000);
    keyboard().type("end");
    drain();
    save();
    EXPECT_TRUE(bytes_of(path("big.txt")) == bytes + "end\n");
}

TEST_F(Editor, SavingKeepsNeitherACopyNorAFile) {
    constexpr std::size_t length = 1U << 20;
    edit("a.txt", std::string(length, 't'));
    save();
    const std::size_t before = heap_of_the_toolkit();
    const long files_before = open_descriptors();
    for (int i = 0; i < 4; ++i) save();
    EXPECT_LT(heap_of_the_toolkit(), before + length);
    EXPECT_EQ(open_descriptors(), files_before);
}

TEST_F(Editor, AnyNameCanBeSaved) {
    for (const char* name : {"with blank.txt", "it's.txt", "a\"b.txt", "-leading", "$HOME`id`;&|.txt", "*?[x].txt",
             "\xe9t\xe9.txt", "back\\slash", "line\nfeed"}) {
        edit(name, "old\n");
        EXPECT_EQ(content(), "old\n") << name;
        type("n");
        save();
        EXPECT_EQ(bytes_of(path(name)), "nold\n") << name;
        grx_fin_editeur();
        ASSERT_TRUE(closed());
    }
}

TEST_F(Editor, ARelativeNameThatLooksLikeAnOptionIsSaved) {
    ASSERT_EQ(chdir(files_.text().c_str()), 0);
    put("-r", "old\n");
    show();
    load("", "-r");
    EXPECT_EQ(content(), "old\n");
    type("n");
    save();
    EXPECT_EQ(bytes_of(path("-r")), "nold\n");
}

TEST_F(Editor, SavingCopiesATemporaryFile) {
    const FakeCp cp("/bin/cp \"$1\" \"$2\"");
    edit("a.txt", "x");
    save();
    const auto arguments = cp.arguments();
    ASSERT_EQ(arguments.size(), 2U) << testing::PrintToString(arguments);
    EXPECT_TRUE(arguments[0].starts_with("/tmp/xmedit"));
    EXPECT_EQ(arguments[0].size(), std::strlen("/tmp/xmeditXXXXXX"));
    EXPECT_EQ(arguments[1], path("a.txt"));
    EXPECT_FALSE(fs::exists(arguments[0]));
    EXPECT_EQ(bytes_of(path("a.txt")), "x\n");
}

TEST_F(Editor, ANewFileHasTheUsualRights) {
    const mode_t mask = umask(027);
    show();
    load(files_.text(), "a.txt");
    choose("File", "New");
    fill_prompt(path("new.txt"));
    answer(XmDIALOG_OK_BUTTON);
    save();
    EXPECT_EQ(umask(mask), 027U) << "the application's stays";
    struct stat status {};
    ASSERT_EQ(stat(path("new.txt").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640U);
}

TEST_F(Editor, RightsAndLinksOfTheFileStay) {
    put("real.txt", "x\n");
    ASSERT_EQ(chmod(path("real.txt").c_str(), 0604), 0);
    fs::create_symlink(path("real.txt"), files_.path() / "link.txt");
    edit("link.txt");
    type("n");
    save();
    struct stat status {};
    ASSERT_EQ(lstat(path("link.txt").c_str(), &status), 0);
    EXPECT_TRUE(S_ISLNK(status.st_mode));
    ASSERT_EQ(stat(path("real.txt").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0604U);
    EXPECT_EQ(bytes_of(path("real.txt")), "nx\n");
}

// What the program that copies finds is as secret as the file that it writes to.
TEST_F(Editor, TheTemporaryFileHasNoMoreRightsThanTheFile) {
    const std::string modes = path("modes");
    const FakeCp cp("stat -c '%a %a' \"$1\" >>" + modes + "; exec /bin/cp \"$1\" \"$2\"");
    const auto rights_of_copy = [&] {
        std::ifstream in(modes);
        unsigned rights = 0777;
        in >> std::oct >> rights;
        fs::remove(modes);
        return rights;
    };
    const auto rights_of = [](const std::string& file) {
        struct stat status {};
        return stat(file.c_str(), &status) == 0 ? status.st_mode & 07777U : 0U;
    };
    for (const unsigned mode : {0600U, 0640U, 0604U, 0666U, 0755U}) {
        put("a.txt", "secret\n");
        ASSERT_EQ(chmod(path("a.txt").c_str(), mode), 0);
        edit("a.txt");
        type("n");
        save();
        EXPECT_EQ(bytes_of(path("a.txt")), "nsecret\n");
        EXPECT_EQ(rights_of_copy() & ~mode, 0U) << std::oct << mode;
        EXPECT_EQ(rights_of(path("a.txt")), mode);
        grx_fin_editeur();
        ASSERT_TRUE(closed());
    }
    for (const mode_t mask : {022, 027, 077}) {
        const mode_t before = umask(mask);
        show();
        choose("File", "New");
        fill_prompt(path("new.txt"));
        answer(XmDIALOG_OK_BUTTON);
        save();
        umask(before);
        EXPECT_EQ(rights_of(path("new.txt")), 0666U & ~mask);
        EXPECT_EQ(rights_of_copy() & (mask | 0111U), 0U) << std::oct << mask;
        fs::remove(path("new.txt"));
        grx_fin_editeur();
        ASSERT_TRUE(closed());
    }
}

// --- saving that fails ---------------------------------------------------------------------------------------------

class FailedSave : public Editor {
  protected:
    void SetUp() override {
        Editor::SetUp();
        bells_.emplace(test_display());
    }
    Widget message() const { return on_screen_of(xmMessageBoxWidgetClass); }
    // A window with the reason in one line, and a bell.
    void expect_told(const std::string& reason) {
        EXPECT_GT(bells_->rung().size(), 0U) << "no bell";
        ASSERT_NE(message(), nullptr) << "nothing tells of it";
        const std::string told = text_resource(message(), XmNmessageString);
        EXPECT_NE(told.find(reason), std::string::npos) << told;
        EXPECT_EQ(told.find('\n'), std::string::npos) << told;
        EXPECT_EQ(text_resource(message(), XmNdialogTitle), "Avertissement");
        click(XmMessageBoxGetChild(message(), XmDIALOG_OK_BUTTON));
        EXPECT_TRUE(wait_for([&] { return message() == nullptr; }));
        drain();
    }
    // After a save that failed: it was told, the text is there, not saved, and nothing lies about.
    void expect_kept(const std::string& text_then, const std::string& reason) {
        expect_told(reason);
        EXPECT_EQ(content(), text_then);
        EXPECT_EQ(left_behind(), std::set<std::string>{});
        choose("File", "Exit");
        EXPECT_TRUE(asks()) << "it counts as not saved";
        answer(XmDIALOG_CANCEL_BUTTON);
        EXPECT_TRUE(is_open());
    }
    // One of 64 kilobytes, in the folder "disk"; false where that is not allowed.
    bool mount_small_disk() {
        const auto uid = getuid();
        const auto gid = getgid();
        if (unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0) {
            std::ofstream("/proc/self/setgroups") << "deny";
            std::ofstream("/proc/self/uid_map") << "0 " << uid << " 1";
            std::ofstream("/proc/self/gid_map") << "0 " << gid << " 1";
        }
        fs::create_directory(path("disk"));
        return mount("none", path("disk").c_str(), "tmpfs", 0, "size=64k") == 0;
    }

    std::optional<Bells> bells_;
};

TEST_F(FailedSave, WhereTheFolderIsGone) {
    edit("Sub/a.txt", "old\n");
    type("n");
    fs::remove_all(path("Sub"));
    save();
    expect_kept("nold\n", "le chemin n'existe pas");
    EXPECT_FALSE(there("Sub"));
}

// Under another name: the one before stays, and saving goes on under it.
class FailedSaveAs : public FailedSave {
  protected:
    void expect_refused(const std::string& name, const std::string& reason) {
        edit("a.txt", "old\n");
        choose("File", "Save As...");
        fill_prompt(path(name));
        answer(XmDIALOG_OK_BUTTON);
        EXPECT_EQ(prompt(), nullptr);
        expect_kept("old\n", reason);
        choose("File", "Save As...");
        EXPECT_EQ(field_text(button(prompt(), XmDIALOG_TEXT)), path("a.txt"));
        answer(XmDIALOG_CANCEL_BUTTON);
        type("n");
        save();
        EXPECT_EQ(bytes_of(path("a.txt")), "nold\n");
        EXPECT_EQ(message(), nullptr);
    }
};

TEST_F(FailedSaveAs, WhereADirectoryIsTheTarget) {
    fs::create_directory(path("Sub"));
    expect_refused("Sub", "c'est un r\351pertoire");
    EXPECT_TRUE(fs::is_empty(path("Sub")));
}

TEST_F(FailedSaveAs, WhereAPipeIsTheTarget) {
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    expect_refused("pipe", "ce n'est pas un fichier");
    EXPECT_TRUE(fs::is_fifo(path("pipe")));
}

TEST_F(FailedSaveAs, WhereALinkLeadsNowhere) {
    fs::create_symlink(path("Sub/nowhere"), files_.path() / "link.txt");
    expect_refused("link.txt", "le chemin n'existe pas");
    EXPECT_TRUE(fs::is_symlink(path("link.txt"))) << "it was there before";
}

TEST_F(FailedSaveAs, WhereTheFolderIsMissing) {
    expect_refused("Sub/b.txt", "le chemin n'existe pas");
    EXPECT_FALSE(there("Sub"));
}

TEST_F(FailedSave, IsToldInOneLineWhateverTheName) {
    const std::string name = "Sub/" + std::string(150, 'l') + "\nodd\tname.txt";
    edit(name, "old\n");
    type("n");
    fs::remove_all(path("Sub"));
    save();
    ASSERT_NE(message(), nullptr);
    EXPECT_LT(resource<Dimension>(message(), XmNwidth), 1000);
    expect_kept("nold\n", "le chemin n'existe pas");
}

TEST_F(FailedSave, WhereTheTemporaryFileCannotBeMade) {
    edit("a.txt", "old\n");
    type("n");
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    rlimit none = before;
    none.rlim_cur = static_cast<rlim_t>(dup(0)); // the next descriptor, and so none after it
    close(static_cast<int>(none.rlim_cur));
    drain();
    click(widget_called("File"));
    ASSERT_TRUE(wait_for([&] { return is_viewable(widget_called("Save")); }));
    setrlimit(RLIMIT_NOFILE, &none);
    click(widget_called("Save"));
    drain();
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_EQ(bytes_of(path("a.txt")), "old\n");
    expect_kept("nold\n", "le fichier temporaire");
}

// A long text fails while it is written, a short one when the file is closed.
TEST_F(FailedSave, WhereTheTextDoesNotFit) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    for (const std::size_t length : {100000U, 100U}) {
        const std::string bytes(length, 'o');
        edit("a.txt", bytes);
        type("n");
        rlimit small = before;
        small.rlim_cur = length / 2;
        setrlimit(RLIMIT_FSIZE, &small);
        save();
        setrlimit(RLIMIT_FSIZE, &before);
        EXPECT_TRUE(bytes_of(path("a.txt")) == bytes);
        expect_kept("n" + bytes, "le fichier temporaire");
        grx_fin_editeur();
        ASSERT_TRUE(closed());
    }
}

// The temporary file is written, its copy is not: the disk of the target is full.
TEST_F(FailedSave, WhereTheDiskOfTheTargetIsFull) {
    const bool mounted = mount_small_disk();
    const FakeCp cp(mounted ? "/bin/cp \"$1\" \"$2\"" : "head -c 3 \"$1\" >\"$2\"; exit 1"); // what it does there
    const std::string bytes(20000, 'o');
    put("disk/a.txt", bytes);
    edit("disk/a.txt");
    if (mounted) {
        std::ofstream fill(path("disk/fill"), std::ios::binary);
        fill << std::string(100000, 'f');
    }
    XmTextInsert(text(), 0, const_cast<char*>(std::string(60000, 'n').c_str()));
    drain();
    save();
    EXPECT_TRUE(bytes_of(path("disk/a.txt")) == bytes) << bytes_of(path("disk/a.txt")).size();
    if (mounted) {
        EXPECT_EQ(cp.arguments().size(), 0U) << "what has no room is not begun";
    }
    expect_told(mounted ? "le disque est plein" : "la copie");
    EXPECT_EQ(content().size(), 80000U);
    choose("File", "Exit");
    EXPECT_TRUE(asks());
    answer(XmDIALOG_CANCEL_BUTTON);
    grx_fin_editeur();
    drain();
    if (mounted) umount(path("disk").c_str());
}

// What counts is the disk of the file, not that of the link to it.
TEST_F(FailedSave, NotForALinkOnAFullDisk) {
    const bool mounted = mount_small_disk();
    put("real.txt", "old\n");
    fs::create_symlink(path("real.txt"), files_.path() / "disk" / "link.txt");
    if (mounted) {
        std::ofstream fill(path("disk/fill"), std::ios::binary);
        fill << std::string(100000, 'f');
    }
    edit("disk/link.txt");
    const std::string more(20000, 'n');
    XmTextInsert(text(), 0, const_cast<char*>(more.c_str()));
    drain();
    save();
    EXPECT_TRUE(bytes_of(path("real.txt")) == more + "old\n");
    grx_fin_editeur();
    drain();
    if (mounted) umount(path("disk").c_str());
}

TEST_F(FailedSave, NotWhereTheFileHasTheRoomItself) {
    const bool mounted = mount_small_disk();
    const std::string bytes(20000, 'o');
    put("disk/a.txt", bytes);
    if (mounted) {
        std::ofstream fill(path("disk/fill"), std::ios::binary);
        fill << std::string(100000, 'f');
    }
    edit("disk/a.txt");
    type("n");
    save();
    EXPECT_TRUE(bytes_of(path("disk/a.txt")) == "n" + bytes + "\n") << bytes_of(path("disk/a.txt")).size();
    grx_fin_editeur();
    drain();
    if (mounted) umount(path("disk").c_str());
}

TEST_F(FailedSave, WhereTheCopyStopsHalfway) {
    const FakeCp half("head -c 3 \"$1\" >\"$2\"; exit 1");
    edit("a.txt", "old text\n");
    type("n");
    const long files_before = open_descriptors();
    save();
    EXPECT_EQ(open_descriptors(), files_before);
    EXPECT_EQ(bytes_of(path("a.txt")), "old text\n");
    expect_kept("nold text\n", "la copie a \351chou\351");
}

TEST_F(FailedSave, WhereTheCopyOfANewFileStopsHalfway) {
    const FakeCp half("head -c 3 \"$1\" >\"$2\"; exit 1");
    edit("a.txt", "old text\n");
    choose("File", "Save As...");
    fill_prompt(path("new.txt"));
    answer(XmDIALOG_OK_BUTTON);
    EXPECT_EQ(half.arguments().size(), 2U);
    EXPECT_FALSE(there("new.txt")) << "a part of it is no file";
    expect_kept("old text\n", "la copie a \351chou\351");
}

// What is shown goes when the text was saved after all.
TEST_F(FailedSave, IsForgottenWhenTheNextOneSucceeds) {
    edit("Sub/a.txt", "old\n");
    type("n");
    fs::remove_all(path("Sub"));
    save();
    EXPECT_NE(message(), nullptr);
    fs::create_directory(path("Sub"));
    save();
    EXPECT_EQ(message(), nullptr);
    EXPECT_EQ(bytes_of(path("Sub/a.txt")), "nold\n");
}

TEST_F(FailedSave, WhereTheShellGivesNoAnswer) {
    edit("a.txt", "old\n");
    type("n");
    const auto before = std::signal(SIGCHLD, SIG_IGN); // system() cannot collect it
    save();
    std::signal(SIGCHLD, before);
    expect_told("la copie");
    choose("File", "Exit");
    EXPECT_TRUE(asks());
    answer(XmDIALOG_CANCEL_BUTTON);
    EXPECT_EQ(left_behind(), std::set<std::string>{});
}

TEST_F(FailedSave, WithoutAFileNothingIsWritten) {
    const FakeCp cp("exit 0");
    edit("a.txt", "old\n");
    choose("File", "close");
    save();
    EXPECT_EQ(cp.arguments().size(), 0U);
    EXPECT_EQ(bytes_of(path("a.txt")), "old\n");
}

} // namespace
