// The text editor: opened, typed into, saved and left by a real pointer and keyboard.
#include "tests/display/bells.h"
#include "tests/display/dialog_kit.h"

#include "tests/support/descriptors.h"
#include "tests/support/fake_visual.h"

#include "host_f.h"
#include "pure/warning_bits.h"
#include "standalone/host_prive.h"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

#include <X11/Xatom.h>
#include <Xm/CutPaste.h>
#include <X11/XKBlib.h>

#include <clocale>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <malloc.h>
#include <optional>
#include <random>
#include <set>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// How the application's reader of text files was asked for one, and a file of it that has no size.
std::vector<INT> modes_asked;
const char* sizeless_text = nullptr;

} // namespace

extern "C" INT ftext_open(FILE** file, char* adr, char* name, INT mode) {
    modes_asked.push_back(mode);
    *file = sizeless_text ? fmemopen(const_cast<char*>(sizeless_text), std::strlen(sizeless_text), "r")
                          : grx_host::open_text(adr, name, mode);
    return *file ? grx_host::done : grx_host::failed;
}

namespace {

using namespace grxtest;
namespace fs = std::filesystem;

std::string bytes_of(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The temporary files of now: of this test, and for a moment of others that run beside it.
std::set<std::string> temporary_files() {
    std::set<std::string> found;
    for (const auto& entry : fs::directory_iterator("/tmp"))
        if (entry.path().filename().string().starts_with("xmedit")) found.insert(entry.path().string());
    return found;
}

std::size_t heap_of_the_toolkit() {
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

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

template <class Base>
class EditorOn : public Dialogs<Base> {
  protected:
    void SetUp() override {
        Dialogs<Base>::SetUp();
        XtSetMultiClickTime(x11_disp, 1); // clicks that follow each other are no double clicks
    }
    Widget shell() const { return widget_called("Editeur"); }
    Widget text() const { return widget_called("text"); }
    Widget prompt() const { return on_screen_of(xmSelectionBoxWidgetClass); }
    std::string content() const { return field_text(text()); }
    bool sensitive() const { return XtIsSensitive(text()); }
    // Temporary files that came during this test and stay.
    std::set<std::string> left_behind() const {
        std::set<std::string> left = temporary_files();
        for (const auto& name : before_) left.erase(name);
        const auto all_gone = [&] {
            std::erase_if(left, [](const std::string& name) { return !fs::exists(name); });
            return left.empty();
        };
        wait_until(
            all_gone, [] { wait_readable(-1, Milliseconds(5)); }, Milliseconds(2000));
        return left;
    }
    bool is_open() const { return shell() != nullptr && is_viewable(shell()); }
    static Widget button(Widget box, unsigned char which) { return XmSelectionBoxGetChild(box, which); }

    void show() {
        ASSERT_EQ(grx_debut_editeur(), 1);
        ASSERT_EQ(grx_editeur(), 0);
        ASSERT_TRUE(this->wait_visible(shell()));
        this->drain();
    }
    INT load(const std::string& directory, const std::string& name) {
        std::string a = directory, n = name;
        const INT result = grx_file_editeur(a.data(), n.data());
        this->drain();
        return result;
    }
    void edit(const std::string& name) {
        show();
        EXPECT_EQ(load(this->files_.text(), name), 0);
    }
    void edit(const std::string& name, const std::string& bytes) {
        this->put(name, bytes);
        edit(name);
    }

    // By the mouse: the menu, then the entry.
    void choose(const std::string& menu, const std::string& entry) {
        this->drain();
        this->click(widget_called(menu));
        ASSERT_TRUE(this->wait_for([&] { return is_viewable(widget_called(entry)); })) << menu << " " << entry;
        this->click(widget_called(entry));
        ASSERT_TRUE(this->wait_for([&] { return !shell() || !is_viewable(widget_called(entry)); }));
        this->drain();
    }
    void save() { choose("File", "Save"); }

    void choose_open() {
        choose("File", "Open");
        ASSERT_TRUE(this->wait_for([&] { return this->file_box() != nullptr; }));
        this->drain();
    }
    void open_by_dialog(const std::string& name) {
        choose_open();
        this->retype_selection(this->path(name));
        this->drain();
        this->press(XmDIALOG_OK_BUTTON);
        ASSERT_TRUE(this->wait_for([&] { return this->file_box() == nullptr; }));
    }

    // Types at the start of the text.
    void type(const std::string& what) {
        this->pointer().click_in(text(), 8, 8);
        this->drain();
        this->keyboard().key(XK_Home, ControlMask);
        this->keyboard().type(what);
        this->drain();
    }
    void answer(unsigned char which) {
        ASSERT_TRUE(this->wait_for([&] { return prompt() != nullptr; }));
        this->drain();
        Widget box = prompt();
        this->click(button(box, which));
        this->wait_for([&] { return prompt() != box; }, Milliseconds(300));
        this->drain();
    }
    void fill_prompt(const std::string& name) {
        ASSERT_TRUE(this->wait_for([&] { return prompt() != nullptr; }));
        this->drain();
        this->retype(button(prompt(), XmDIALOG_TEXT), name);
        this->drain();
    }
    // Selects the first n characters as the user does, with Shift and the arrows.
    void select(int n) {
        this->pointer().click_in(text(), 8, 8);
        this->drain();
        this->keyboard().key(XK_Home, ControlMask);
        for (int i = 0; i < n; ++i) this->keyboard().key(XK_Right, ShiftMask);
        this->drain();
    }
    bool asks() {
        this->drain();
        return prompt() != nullptr;
    }
    bool closed() {
        return this->wait_for([&] { return shell() == nullptr; });
    }

  private:
    const std::set<std::string> before_ = temporary_files();
};

class Editor : public EditorOn<DisplayTest> {};

// --- opening and closing -------------------------------------------------------------------------------------------

TEST_F(Editor, OnlyOneExists) {
    EXPECT_EQ(grx_fin_editeur(), 0);
    EXPECT_EQ(grx_debut_editeur(), 1);
    EXPECT_EQ(grx_debut_editeur(), 0);
    EXPECT_EQ(grx_fin_editeur(), 1);
    EXPECT_EQ(grx_fin_editeur(), 0);
    show();
    EXPECT_EQ(grx_debut_editeur(), 0);
    EXPECT_EQ(grx_editeur(), 0);
    drain();
    EXPECT_TRUE(is_open());
    EXPECT_EQ(std::ranges::count_if(whole_tree(), [](Widget w) { return std::string("Editeur") == XtName(w); }), 1);
    EXPECT_EQ(grx_fin_editeur(), 1);
    EXPECT_TRUE(closed());
    EXPECT_EQ(grx_fin_editeur(), 0);
}

TEST_F(Editor, IsNotMadeBeforeItsStart) {
    EXPECT_EQ(grx_editeur(), 0);
    drain();
    EXPECT_EQ(shell(), nullptr);
    put("a.txt");
    EXPECT_EQ(load(files_.text(), "a.txt"), 0);
    EXPECT_EQ(grx_debut_editeur(), 1);
    EXPECT_EQ(load(files_.text(), "a.txt"), 0);
    EXPECT_EQ(grx_fin_editeur(), 1);
}

TEST_F(Editor, ItsPartsAreTheStatedOnes) {
    show();
    EXPECT_TRUE(XtIsTransientShell(shell()));
    EXPECT_EQ(XtParent(shell()), widget_of(main_));
    Widget main = XtParent(widget_called("menu_bar"));
    EXPECT_STREQ(XtName(main), "main");
    EXPECT_EQ(XtClass(main), xmMainWindowWidgetClass);
    EXPECT_EQ(XtParent(main), shell());
    EXPECT_EQ(resource<Dimension>(main, XmNshadowThickness), 0);
    EXPECT_EQ(XtClass(text()), xmTextWidgetClass);
    EXPECT_EQ(XtClass(XtParent(text())), xmScrolledWindowWidgetClass);
    EXPECT_EQ(resource<int>(text(), XmNeditMode), XmMULTI_LINE_EDIT);
    EXPECT_EQ(resource<unsigned char>(text(), XmNnavigationType), XmEXCLUSIVE_TAB_GROUP);
    EXPECT_FALSE(sensitive());
    EXPECT_EQ(content(), "");
    EXPECT_TRUE(is_viewable(text()));
}

TEST_F(Editor, ItStandsInTheMiddleOfTheScreen) {
    show();
    const Area area = server_area(test_display(), XtWindow(shell()));
    EXPECT_NEAR(area.x + area.width / 2, grx_recup_lar_ecran() / 2, 2);
    EXPECT_NEAR(area.y + area.height / 2, grx_recup_hau_ecran() / 2, 2);
    EXPECT_EQ(resource<short>(text(), XmNcolumns), 80);
    EXPECT_EQ(resource<short>(text(), XmNrows), 24);
}

TEST_F(Editor, HasTheApplicationsFontAndColour) {
    grx_affecte_couleur_application(6);
    const auto colour = static_cast<Pixel>(grx_recup_couleur(6));
    edit("a.txt", "one\n");
    type("x");
    choose("File", "Exit");
    ASSERT_TRUE(asks());
    EXPECT_EQ(resource<Pixel>(XtParent(widget_called("menu_bar")), XmNbackground), colour);
    for (const char* name : {"menu_bar", "menu_pane1", "File", "Open", "Exit", "Clear", "text", "exit warning",
             "workarea", "pixmap_label", "text_label"})
        EXPECT_EQ(resource<Pixel>(widget_called(name), XmNbackground), colour) << name;
    for (const char* name : {"File", "Open", "Clear", "text", "text_label"})
        EXPECT_EQ(font_of(widget_called(name)), fontstruct) << name;
    EXPECT_EQ(font_of(button(prompt(), XmDIALOG_APPLY_BUTTON)), fontstruct);
    answer(XmDIALOG_CANCEL_BUTTON);
    choose("File", "New");
    ASSERT_TRUE(asks());
    EXPECT_EQ(resource<Pixel>(prompt(), XmNbackground), colour);
    for (const unsigned char part : {XmDIALOG_SELECTION_LABEL, XmDIALOG_TEXT, XmDIALOG_OK_BUTTON})
        EXPECT_EQ(font_of(button(prompt(), part)), fontstruct) << int(part);
    answer(XmDIALOG_CANCEL_BUTTON);
    choose("File", "Open");
    ASSERT_TRUE(wait_for([&] { return file_box() != nullptr; }));
    EXPECT_EQ(resource<Pixel>(file_box(), XmNbackground), colour);
    for (const unsigned char which : {XmDIALOG_LIST, XmDIALOG_TEXT, XmDIALOG_OK_BUTTON, XmDIALOG_FILTER_LABEL})
        EXPECT_EQ(font_of(part(which)), fontstruct) << int(which);
}

TEST_F(Editor, TheApplicationLivesBesideIt) {
    const INT beside = make(GRX_FEN_GRAPHIQUE);
    ASSERT_TRUE(wait_visible(widget_of(beside)));
    edit("a.txt", "one\n");
    events.clear();
    pointer().click_in(widget_of(beside), 5, 100);
    drain();
    EXPECT_GT(events.count(GRX_EVT_BOUTON_APPUI), 0) << events.describe();
}

TEST_F(Editor, NothingIsUnsavedInANewOne) {
    edit("a.txt", "one\n");
    type("x");
    grx_fin_editeur();
    ASSERT_TRUE(closed());
    show();
    choose("File", "Exit");
    EXPECT_TRUE(closed());
}

TEST_F(Editor, ItsMenusAreTheStatedOnes) {
    show();
    const auto shown = [](Widget pane) {
        std::string result;
        WidgetList list = nullptr;
        Cardinal count = 0;
        XtVaGetValues(pane, XmNchildren, &list, XmNnumChildren, &count, nullptr);
        for (Cardinal i = 0; i < count; ++i) {
            if (!XmIsPushButton(list[i])) continue;
            result += std::string(XtName(list[i])) + "=" + text_resource(list[i], XmNlabelString);
            const std::string key = text_resource(list[i], XmNacceleratorText);
            if (key != "(none)" && !key.empty()) {
                char* accelerator = nullptr;
                XtVaGetValues(list[i], XmNaccelerator, &accelerator, nullptr);
                result += "[" + key + " " + (accelerator ? accelerator : "") + "]";
                XtFree(accelerator);
            }
            result += "; ";
        }
        return result;
    };
    EXPECT_EQ(shown(widget_called("menu_pane1")),
        "Open=Ouvrir; New=Nouveau; close=Fermeture; Save=Sauver; Save As...=Sauver sous; Exit=Fin[F3 <Key>F3:]; ");
    EXPECT_EQ(shown(widget_called("menu_pane2")),
        "Couper=Couper[Shift+Del Shift<Key>Delete:]; Copier=Copier[Ctrl+Ins Ctrl<Key>Insert:]; "
        "Coller=Coller[Shift+Ins Shift<Key>Insert:]; Clear=Supprimer; ");
    EXPECT_EQ(text_resource(widget_called("File"), XmNlabelString), "Fichier");
    EXPECT_EQ(text_resource(widget_called("Edit"), XmNlabelString), "Editer");
    EXPECT_EQ(resource<Widget>(widget_called("File"), XmNsubMenuId), widget_called("menu_pane1"));
    EXPECT_EQ(resource<Widget>(widget_called("Edit"), XmNsubMenuId), widget_called("menu_pane2"));
}

TEST_F(Editor, AFileMakesItReady) {
    put("a.txt", "one\ntwo\n");
    show();
    const auto ready = [&] {
        return std::array{XtIsSensitive(text()), XtIsSensitive(widget_called("Couper")),
            XtIsSensitive(widget_called("Copier")), XtIsSensitive(widget_called("Clear")),
            XtIsSensitive(widget_called("Coller"))};
    };
    EXPECT_EQ(ready(), (std::array<Boolean, 5>{0, 0, 0, 0, 1}));
    load(files_.text(), "a.txt");
    EXPECT_EQ(content(), "one\ntwo\n");
    EXPECT_EQ(ready(), (std::array<Boolean, 5>{1, 1, 1, 1, 1}));
    choose("File", "close");
    EXPECT_FALSE(asks());
    EXPECT_EQ(content(), "");
    EXPECT_FALSE(sensitive());
    EXPECT_EQ(std::string(memo_filename), path("a.txt"));
    EXPECT_TRUE(is_open());
}

TEST_F(Editor, AnEmptyNameOpensNothing) {
    put("a.txt", "one\n");
    show();
    EXPECT_EQ(load(files_.text(), ""), 0);
    EXPECT_FALSE(sensitive());
    EXPECT_EQ(load(files_.text() + "/", "a.txt"), 0);
    EXPECT_EQ(content(), "one\n");
    load(files_.text(), "");
    EXPECT_EQ(content(), "one\n");
}

TEST_F(Editor, AFileThatCannotBeOpenedLeavesItEmpty) {
    for (const char* name : {"missing.txt", "no/where.txt", "."}) {
        edit(name);
        EXPECT_EQ(content(), "") << name;
        EXPECT_FALSE(sensitive()) << name;
        EXPECT_EQ(prompt(), nullptr);
        EXPECT_EQ(on_screen_of(xmMessageBoxWidgetClass), nullptr);
        grx_fin_editeur();
        ASSERT_TRUE(closed());
    }
}

TEST_F(Editor, AFailedOpeningLeavesTheOldTextUnderTheNewName) {
    edit("a.txt", "old\n");
    load(files_.text(), "missing.txt");
    EXPECT_EQ(content(), "old\n");
    save();
    EXPECT_EQ(bytes_of(path("missing.txt")), "old\n");
}

// Files of the system that nobody can open for writing, whose size is said to be a page.
TEST_F(Editor, AFileThatCanOnlyBeReadIsOpened) {
    for (const char* name : {"kexec_loaded", "fscaps", "profiling", "rcu_expedited"}) {
        const std::string whole = std::string("/sys/kernel/") + name, bytes = bytes_of(whole);
        FILE* const both = std::fopen(whole.c_str(), "r+");
        if (both) std::fclose(both);
        if (both || bytes.empty()) continue;
        show();
        load("/sys/kernel", name);
        EXPECT_EQ(content(), bytes);
        EXPECT_TRUE(sensitive());
        return;
    }
    FAIL() << "no such file on this system";
}

TEST_F(Editor, AFileIsOpenedForUpdateElseForReading) {
    put("a.txt", "one\n");
    show();
    modes_asked.clear();
    load(files_.text(), "a.txt");
    EXPECT_EQ(modes_asked, (std::vector<INT>{3}));
    modes_asked.clear();
    load(files_.text(), "missing.txt");
    EXPECT_EQ(modes_asked, (std::vector<INT>{3, 2}));
}

TEST_F(Editor, AFileIsClosedWhenItIsRead) {
    put("a.txt", "one\n");
    show();
    load(files_.text(), "a.txt");
    const long before = open_descriptors();
    load(files_.text(), "a.txt");
    load(files_.text(), "missing.txt");
    EXPECT_EQ(open_descriptors(), before);
}

TEST_F(Editor, AFileWithoutASizeIsRead) {
    const std::string text(200000, 't');
    show();
    sizeless_text = text.c_str();
    load(files_.text(), "anything");
    sizeless_text = nullptr;
    EXPECT_TRUE(content() == text) << content().size();
}

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
    while (bytes.size() < 20U << 20) bytes += "line " + std::to_string(bytes.size()) + " of a long report\n";
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

// --- the dialogs ---------------------------------------------------------------------------------------------------

TEST_F(Editor, OuvrirOpensTheChosenFile) {
    put("a.txt", "one\n");
    put("b.txt", "two\n");
    ASSERT_EQ(chdir(files_.text().c_str()), 0);
    edit("a.txt");
    choose_open();
    EXPECT_STREQ(XtName(file_box()), "file selection dialog");
    EXPECT_FALSE(is_viewable(part(XmDIALOG_HELP_BUTTON)));
    press(XmDIALOG_CANCEL_BUTTON);
    ASSERT_TRUE(wait_for([&] { return file_box() == nullptr; }));
    EXPECT_EQ(content(), "one\n");
    open_by_dialog("b.txt");
    EXPECT_EQ(content(), "two\n");
    type("x");
    save();
    EXPECT_EQ(bytes_of(path("b.txt")), "xtwo\n");
    EXPECT_EQ(bytes_of(path("a.txt")), "one\n");
}

TEST_F(Editor, OuvrirOverUnsavedTextDoesNotAsk) {
    put("b.txt", "two\n");
    edit("a.txt", "one\n");
    type("x");
    open_by_dialog("b.txt");
    EXPECT_EQ(content(), "two\n");
    EXPECT_EQ(prompt(), nullptr);
    choose("File", "Exit");
    EXPECT_TRUE(closed()) << "what was opened counts as saved";
}

TEST_F(Editor, NouveauStartsAFileThatDoesNotExist) {
    edit("missing.txt");
    EXPECT_FALSE(sensitive());
    choose("File", "New");
    ASSERT_TRUE(wait_for([&] { return prompt() != nullptr; }));
    EXPECT_STREQ(XtName(prompt()), "new file dialog");
    EXPECT_EQ(text_resource(prompt(), XmNselectionLabelString), "Entrer le nom du nouveau fichier");
    EXPECT_FALSE(is_viewable(button(prompt(), XmDIALOG_HELP_BUTTON)));
    fill_prompt(path("new.txt"));
    answer(XmDIALOG_OK_BUTTON);
    EXPECT_EQ(prompt(), nullptr);
    EXPECT_TRUE(sensitive());
    EXPECT_TRUE(XtIsSensitive(widget_called("Couper")));
    EXPECT_TRUE(XtIsSensitive(widget_called("Copier")));
    EXPECT_TRUE(XtIsSensitive(widget_called("Clear")));
    EXPECT_FALSE(there("new.txt"));
    type("first");
    save();
    EXPECT_EQ(bytes_of(path("new.txt")), "first\n");
    choose("File", "Exit");
    EXPECT_TRUE(closed());
}

TEST_F(Editor, ANewFileUntouchedCountsAsSaved) {
    edit("missing.txt");
    choose("File", "New");
    fill_prompt(path("new.txt"));
    answer(XmDIALOG_OK_BUTTON);
    choose("File", "Exit");
    EXPECT_TRUE(closed());
    EXPECT_FALSE(there("new.txt"));
}

TEST_F(Editor, NouveauAfterAnotherFileBeginsEmpty) {
    edit("a.txt", "one\n");
    choose("File", "New");
    fill_prompt(path("new.txt"));
    answer(XmDIALOG_OK_BUTTON);
    EXPECT_EQ(content(), "");
    type("first");
    save();
    EXPECT_EQ(bytes_of(path("new.txt")), "first\n");
    EXPECT_EQ(bytes_of(path("a.txt")), "one\n");
}

// A name cut short would be another file.
TEST_F(Editor, ANameThatIsTooLongIsNotCut) {
    std::string deep = files_.text();
    while (deep.size() < 820) deep += "/" + std::string(100, 'd');
    fs::create_directories(deep);
    const std::string fits = deep + "/" + std::string(HOST_CHEMIN_MAX - 1 - deep.size() - 1, 'n');
    edit("a.txt", "one\n");
    type("x");
    for (const char* entry : {"New", "Save As..."}) {
        choose("File", entry);
        ASSERT_TRUE(wait_for([&] { return prompt() != nullptr; }));
        XmTextFieldSetString(button(prompt(), XmDIALOG_TEXT), (fits + "n").data());
        answer(XmDIALOG_OK_BUTTON);
        EXPECT_EQ(prompt(), nullptr);
    }
    choose("File", "Open");
    ASSERT_TRUE(wait_for([&] { return file_box() != nullptr; }));
    drain();
    std::ofstream(fits) << "other\n";
    XmTextFieldSetString(part(XmDIALOG_TEXT), (fits + "n").data());
    press(XmDIALOG_OK_BUTTON);
    drain();
    EXPECT_EQ(content(), "xone\n");
    press(XmDIALOG_CANCEL_BUTTON);
    ASSERT_TRUE(wait_for([&] { return file_box() == nullptr; }));
    EXPECT_EQ(bytes_of(fits), "other\n");
    save();
    EXPECT_EQ(bytes_of(path("a.txt")), "xone\n");
}

TEST_F(Editor, NouveauOpensAFileThatExists) {
    put("b.txt", "two\n");
    edit("a.txt", "one\n");
    choose("File", "New");
    fill_prompt(path("b.txt"));
    answer(XmDIALOG_OK_BUTTON);
    EXPECT_EQ(content(), "two\n");
}

TEST_F(Editor, CancelAndEmptyNamesChangeNothing) {
    edit("a.txt", "one\n");
    for (const char* entry : {"New", "Save As..."}) {
        choose("File", entry);
        fill_prompt(path("other.txt"));
        answer(XmDIALOG_CANCEL_BUTTON);
        EXPECT_EQ(prompt(), nullptr);
        choose("File", entry);
        fill_prompt("");
        answer(XmDIALOG_OK_BUTTON);
        if (prompt()) answer(XmDIALOG_CANCEL_BUTTON);
        EXPECT_EQ(content(), "one\n");
        EXPECT_FALSE(there("other.txt"));
    }
    type("x");
    save();
    EXPECT_EQ(bytes_of(path("a.txt")), "xone\n");
}

TEST_F(Editor, EachDialogIsMadeOnce) {
    edit("a.txt", "one\n");
    type("x");
    std::size_t widgets = 0;
    for (int i = 0; i < 3; ++i) {
        for (const char* entry : {"New", "Save As...", "close", "Exit"}) {
            choose("File", entry);
            answer(XmDIALOG_CANCEL_BUTTON);
        }
        if (i == 0) widgets = whole_tree().size();
    }
    EXPECT_EQ(whole_tree().size(), widgets);
}

TEST_F(Editor, SauverSousWritesUnderTheNewName) {
    edit("a.txt", "one\n");
    type("x");
    choose("File", "Save As...");
    ASSERT_TRUE(wait_for([&] { return prompt() != nullptr; }));
    EXPECT_STREQ(XtName(prompt()), "save dialog");
    EXPECT_EQ(text_resource(prompt(), XmNselectionLabelString), "Sauver sous");
    EXPECT_EQ(field_text(button(prompt(), XmDIALOG_TEXT)), path("a.txt"));
    fill_prompt(path("b.txt"));
    answer(XmDIALOG_OK_BUTTON);
    EXPECT_EQ(prompt(), nullptr);
    EXPECT_EQ(bytes_of(path("a.txt")), "one\n");
    EXPECT_EQ(bytes_of(path("b.txt")), "xone\n");
    type("y");
    save();
    EXPECT_EQ(bytes_of(path("b.txt")), "yxone\n");
    choose("File", "Save As...");
    EXPECT_EQ(field_text(button(prompt(), XmDIALOG_TEXT)), path("b.txt"));
    answer(XmDIALOG_CANCEL_BUTTON);
}

TEST_F(Editor, SauverSousWithoutAFileStartsEmpty) {
    show();
    choose("File", "Save As...");
    ASSERT_TRUE(wait_for([&] { return prompt() != nullptr; }));
    EXPECT_EQ(field_text(button(prompt(), XmDIALOG_TEXT)), "");
    answer(XmDIALOG_CANCEL_BUTTON);
}

// --- the warnings --------------------------------------------------------------------------------------------------

class Warning : public Editor, public testing::WithParamInterface<const char*> {
  protected:
    std::string entry() const { return GetParam(); }
    bool exits() const { return entry() == "Exit"; }
    void expect_closed_file() {
        if (exits()) {
            EXPECT_TRUE(closed());
        } else {
            EXPECT_TRUE(is_open());
            EXPECT_EQ(content(), "");
            EXPECT_FALSE(sensitive());
        }
        EXPECT_EQ(std::string(memo_filename), path("a.txt"));
    }
};

TEST_P(Warning, LooksAsStated) {
    edit("a.txt", "one\n");
    type("x");
    choose("File", entry());
    ASSERT_TRUE(asks());
    Widget box = prompt();
    EXPECT_EQ(text_resource(box, XmNdialogTitle), "Avertissement");
    EXPECT_EQ(text_resource(button(box, XmDIALOG_OK_BUTTON), XmNlabelString), "Save");
    EXPECT_EQ(text_resource(button(box, XmDIALOG_APPLY_BUTTON), XmNlabelString), "Discard");
    EXPECT_TRUE(is_viewable(button(box, XmDIALOG_APPLY_BUTTON)));
    EXPECT_TRUE(is_viewable(button(box, XmDIALOG_CANCEL_BUTTON)));
    for (const unsigned char gone : {XmDIALOG_TEXT, XmDIALOG_SELECTION_LABEL, XmDIALOG_HELP_BUTTON})
        EXPECT_FALSE(is_viewable(button(box, gone))) << int(gone);
    std::vector<Widget> parts;
    gather_tree(box, parts);
    const auto named = [&](const char* name) {
        const auto found = std::ranges::find_if(parts, [&](Widget w) { return std::string(XtName(w)) == name; });
        return found == parts.end() ? nullptr : *found;
    };
    Widget area = named("workarea"), image = named("pixmap_label"), message = named("text_label");
    ASSERT_TRUE(area && image && message);
    EXPECT_EQ(XtClass(area), xmRowColumnWidgetClass);
    EXPECT_EQ(resource<unsigned char>(image, XmNlabelType), XmPIXMAP);
    Pixmap pixmap = resource<Pixmap>(image, XmNlabelPixmap);
    Window root = None;
    int x = 0, y = 0;
    unsigned width = 0, height = 0, border = 0, depth = 0;
    ASSERT_NE(XGetGeometry(x11_disp, pixmap, &root, &x, &y, &width, &height, &border, &depth), 0);
    EXPECT_EQ(width, 32U);
    EXPECT_EQ(height, 32U);
    EXPECT_EQ(text_resource(message, XmNlabelString), "Sauvegarde des modifications?");
    EXPECT_TRUE(is_viewable(image));
    EXPECT_TRUE(is_viewable(message));
    Pixmap drawn = XCreatePixmapFromBitmapData(x11_disp, XtWindow(image),
        reinterpret_cast<char*>(const_cast<unsigned char*>(grx::warning_bits.data())), 32, 32,
        resource<Pixel>(image, XmNforeground), resource<Pixel>(image, XmNbackground), depth);
    EXPECT_TRUE(same(grab(x11_disp, pixmap), grab(x11_disp, drawn)));
    XFreePixmap(x11_disp, drawn);
    EXPECT_EQ(XmGetPixmap(XtScreen(image), const_cast<char*>("warning_image"), resource<Pixel>(image, XmNforeground),
                  resource<Pixel>(image, XmNbackground)),
        pixmap)
        << "under its name";
}

TEST_P(Warning, IsNotShownForSavedText) {
    edit("a.txt", "one\n");
    choose("File", entry());
    EXPECT_FALSE(asks());
    expect_closed_file();
}

TEST_P(Warning, SaveSavesAndCloses) {
    edit("a.txt", "one\n");
    type("x");
    choose("File", entry());
    answer(XmDIALOG_OK_BUTTON);
    EXPECT_EQ(bytes_of(path("a.txt")), "xone\n");
    expect_closed_file();
}

TEST_P(Warning, DiscardClosesWithoutSaving) {
    edit("a.txt", "one\n");
    type("x");
    choose("File", entry());
    answer(XmDIALOG_APPLY_BUTTON);
    EXPECT_EQ(bytes_of(path("a.txt")), "one\n");
    expect_closed_file();
    EXPECT_EQ(prompt(), nullptr) << "the warning goes with its answer";
    if (exits()) return;
    choose("File", "Exit");
    EXPECT_TRUE(closed()) << "nothing is unsaved any more";
}

TEST_P(Warning, CancelKeepsAll) {
    edit("a.txt", "one\n");
    type("x");
    choose("File", entry());
    answer(XmDIALOG_CANCEL_BUTTON);
    EXPECT_EQ(prompt(), nullptr);
    EXPECT_EQ(content(), "xone\n");
    EXPECT_TRUE(sensitive());
    choose("File", entry());
    EXPECT_TRUE(asks()) << "still unsaved";
}

TEST_P(Warning, HoldsUpTheRestUntilItIsAnswered) {
    edit("a.txt", "one\n");
    type("x");
    choose("File", entry());
    ASSERT_TRUE(asks());
    type("y");
    EXPECT_EQ(content(), "xone\n");
    answer(XmDIALOG_CANCEL_BUTTON);
    type("y");
    EXPECT_EQ(content(), "yxone\n");
}

TEST_P(Warning, SaveThatFailsKeepsAll) {
    edit("Sub/a.txt", "one\n");
    type("x");
    fs::remove_all(path("Sub"));
    choose("File", entry());
    answer(XmDIALOG_OK_BUTTON);
    EXPECT_TRUE(is_open());
    EXPECT_EQ(content(), "xone\n");
    EXPECT_TRUE(sensitive());
    choose("File", entry());
    EXPECT_TRUE(asks()) << "still unsaved";
}

INSTANTIATE_TEST_SUITE_P(All, Warning, testing::Values("close", "Exit"),
    [](const testing::TestParamInfo<const char*>& info) { return std::string(info.param); });

// --- keys ----------------------------------------------------------------------------------------------------------

class EditorKeys : public Editor {
  protected:
    void press_key(KeySym key, unsigned modifiers = 0) {
        keyboard().key(key, modifiers);
        drain();
    }
    void release_locks() {
        XkbLockModifiers(test_display(), XkbUseCoreKbd, LockMask | Mod2Mask, 0);
        XSync(test_display(), False);
        drain();
    }
};

TEST_F(EditorKeys, EachActsExactlyOnce) {
    edit("a.txt", "abcdef\n");
    select(2);
    press_key(XK_Delete, ShiftMask);
    EXPECT_EQ(content(), "cdef\n");
    press_key(XK_Insert, ShiftMask);
    EXPECT_EQ(content(), "abcdef\n");
    press_key(XK_Insert, ShiftMask);
    EXPECT_EQ(content(), "ababcdef\n");
    select(3);
    press_key(XK_Insert, ControlMask);
    EXPECT_EQ(content(), "ababcdef\n");
    press_key(XK_End, ControlMask);
    press_key(XK_Insert, ShiftMask);
    EXPECT_EQ(content(), "ababcdef\naba");
    press_key(XK_F3);
    EXPECT_TRUE(asks());
    EXPECT_EQ(std::ranges::count_if(
                  whole_tree(), [](Widget w) { return XtClass(w) == xmSelectionBoxWidgetClass && is_viewable(w); }),
        1);
    answer(XmDIALOG_CANCEL_BUTTON);
}

TEST_F(EditorKeys, F3LeavesASavedText) {
    edit("a.txt", "abc\n");
    pointer().move_in(text(), 8, 8);
    press_key(XK_F3);
    EXPECT_TRUE(closed());
    EXPECT_EQ(std::string(memo_filename), path("a.txt"));
}

TEST_F(EditorKeys, F3WorksWithoutAFile) {
    show();
    pointer().move_in(text(), 8, 8);
    press_key(XK_F3);
    EXPECT_TRUE(closed());
}

TEST_F(EditorKeys, LocksDoNotMatter) {
    edit("a.txt", "abcdef\n");
    for (const unsigned locks : {1U, 2U, 3U}) {
        if (locks & 1U) keyboard().num_lock();
        if (locks & 2U) keyboard().caps_lock();
        drain();
        select(1);
        press_key(XK_Delete, ShiftMask);
        EXPECT_EQ(content(), "bcdef\n");
        press_key(XK_Insert, ShiftMask);
        EXPECT_EQ(content(), "abcdef\n");
        press_key(XK_F3);
        EXPECT_TRUE(asks()) << "the text itself does not know this key";
        release_locks();
        answer(XmDIALOG_CANCEL_BUTTON);
    }
}

TEST_F(EditorKeys, NothingWorksOnAClosedText) {
    edit("a.txt", "abcdef\n");
    select(2);
    press_key(XK_Insert, ControlMask);
    choose("File", "close");
    pointer().move_in(text(), 8, 8);
    press_key(XK_Delete, ShiftMask);
    press_key(XK_Insert, ControlMask);
    EXPECT_EQ(content(), "");
    EXPECT_FALSE(sensitive());
}

TEST_F(EditorKeys, MenusAreUsableByKeys) {
    edit("a.txt", "abc\n");
    type("x");
    press_key(XK_F10);
    ASSERT_TRUE(wait_for(
        [&] { return is_viewable(widget_called("Open")) || XmGetFocusWidget(shell()) == widget_called("File"); }));
    if (!is_viewable(widget_called("Open"))) press_key(XK_Down);
    ASSERT_TRUE(wait_for([&] { return is_viewable(widget_called("Open")); }));
    for (int i = 0; i < 3; ++i) press_key(XK_Down);
    press_key(XK_Return);
    ASSERT_TRUE(wait_for([&] { return bytes_of(path("a.txt")) == "xabc\n"; }));
}

// --- the clipboard -------------------------------------------------------------------------------------------------

// Another program that owns the clipboard and offers a text as one type. It may take its time, or never answer.
constexpr int never = -1;

class ClipboardOwner {
  public:
    ClipboardOwner(const std::string& server, const std::string& text, const char* type, int delay = 0) {
        int told[2];
        if (pipe2(told, O_CLOEXEC | O_NONBLOCK) != 0) throw std::runtime_error("pipe");
        pid_ = fork();
        if (pid_ == 0) serve(server, text, type, delay, told[1]);
        close(told[1]);
        told_ = told[0];
        EXPECT_TRUE(wait_until([&] { return count('r') == 1; }, [] { wait_readable(-1, Milliseconds(2)); }));
    }
    ~ClipboardOwner() {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
        close(told_);
    }
    ClipboardOwner(const ClipboardOwner&) = delete;
    ClipboardOwner& operator=(const ClipboardOwner&) = delete;

    // How often it was asked for the text, and has given it.
    long asked() { return count('q'); }
    long answered() { return count('a'); }

  private:
    long count(char what) {
        char byte = 0;
        while (read(told_, &byte, 1) == 1) log_ += byte;
        return std::ranges::count(log_, what);
    }
    static void tell(int told, const char* what) {
        if (write(told, what, 1) != 1) _exit(1);
    }
    [[noreturn]] static void serve(
        const std::string& server, const std::string& text, const char* type, int delay, int told) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        Display* display = XOpenDisplay(server.c_str());
        if (!display) _exit(1);
        const Atom clipboard = XInternAtom(display, "CLIPBOARD", False),
                   targets = XInternAtom(display, "TARGETS", False), offered = XInternAtom(display, type, False);
        const Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
        XSetSelectionOwner(display, clipboard, window, CurrentTime);
        XSync(display, False);
        tell(told, "r");
        for (;;) {
            XEvent event;
            XNextEvent(display, &event);
            if (event.type != SelectionRequest) continue;
            const auto& asked = event.xselectionrequest;
            const bool for_text = asked.target == offered;
            if (for_text) tell(told, "q");
            if (delay == never) continue;
            if (for_text && delay > 0) usleep(static_cast<useconds_t>(delay) * 1000);
            XEvent answer{};
            answer.xselection.type = SelectionNotify;
            answer.xselection.requestor = asked.requestor;
            answer.xselection.selection = asked.selection;
            answer.xselection.target = asked.target;
            answer.xselection.time = asked.time;
            answer.xselection.property = asked.property;
            if (asked.target == targets) {
                const Atom list[] = {targets, offered};
                XChangeProperty(display, asked.requestor, asked.property, XA_ATOM, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(list), 2);
            } else if (for_text) {
                XChangeProperty(display, asked.requestor, asked.property, offered, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
            } else {
                answer.xselection.property = None;
            }
            XSendEvent(display, asked.requestor, False, NoEventMask, &answer);
            XSync(display, False);
            if (for_text) tell(told, "a");
        }
    }
    pid_t pid_ = -1;
    int told_ = -1;
    std::string log_;
};

// The toolkit's clipboard never frees what it notes of a request for what the editor has copied: such leaks hold nothing
// but its own functions below its answer.
class ToolkitLeaks {
  public:
#ifdef __SANITIZE_ADDRESS__
    ToolkitLeaks() {
        __lsan_disable();
    }
    ~ToolkitLeaks() {
        __lsan_enable();
    }
#else
    ToolkitLeaks() = default;
    ~ToolkitLeaks() {} // not trivial: an unused one is no warning
#endif
    ToolkitLeaks(const ToolkitLeaks&) = delete;
    ToolkitLeaks& operator=(const ToolkitLeaks&) = delete;
};

class Clipboard : public Editor {
  private:
    ToolkitLeaks permitted_;

  protected:
    // What another client gets when it asks for the clipboard as that type; nothing when it is refused.
    std::optional<std::string> asked(const char* type) {
        Display* other = open_connection(server().name());
        const Window window = XCreateSimpleWindow(other, DefaultRootWindow(other), 0, 0, 1, 1, 0, 0, 0);
        const Atom place = XInternAtom(other, "PLACE", False);
        XConvertSelection(
            other, XInternAtom(other, "CLIPBOARD", False), XInternAtom(other, type, False), place, window, CurrentTime);
        XEvent event{};
        const bool answered = wait_for([&] { return XCheckTypedEvent(other, SelectionNotify, &event) != 0; });
        std::optional<std::string> result;
        if (answered && event.xselection.property != None) {
            Atom actual = None;
            int format = 0;
            unsigned long count = 0, rest = 0;
            unsigned char* data = nullptr;
            XGetWindowProperty(
                other, window, place, 0, 1000000, False, AnyPropertyType, &actual, &format, &count, &rest, &data);
            const std::size_t size = format == 32 ? sizeof(long) : static_cast<std::size_t>(format / 8);
            result.emplace(reinterpret_cast<char*>(data), count * size);
            XFree(data);
        }
        XCloseDisplay(other);
        return result;
    }
};

TEST_F(Clipboard, CopyingGivesOtherProgramsTheText) {
    edit("a.txt", "abcdef\n");
    select(3);
    choose("Edit", "Copier");
    EXPECT_EQ(content(), "abcdef\n");
    const auto got = asked("STRING");
    ASSERT_TRUE(got);
    EXPECT_EQ(*got, std::string("abc\0", 4)) << "the text and its zero";
}

TEST_F(Clipboard, CopyingBearsTheTimeOfItsEvent) {
    edit("a.txt", "abcdef\n");
    for (const bool by_key : {true, false}) {
        select(3);
        if (by_key) {
            keyboard().key(XK_Insert, ControlMask);
            drain();
        } else {
            choose("Edit", "Copier");
        }
        const auto got = asked("TIMESTAMP");
        ASSERT_TRUE(got);
        EXPECT_EQ(got->size(), sizeof(long));
        EXPECT_NE(*got, std::string(sizeof(long), '\0')) << (by_key ? "key" : "menu");
    }
}

TEST_F(Clipboard, CopyingKeepsNoCopyOfItsOwn) {
    constexpr std::size_t length = 1U << 18;
    edit("a.txt", std::string(length, 't'));
    XmTextSetSelection(text(), 0, length, CurrentTime);
    const auto copy = [&] { choose("Edit", "Copier"); };
    copy();
    copy();
    const std::size_t before = heap_of_the_toolkit();
    for (int i = 0; i < 4; ++i) copy();
    EXPECT_LT(heap_of_the_toolkit(), before + 2 * length);
}

TEST_F(Clipboard, CuttingCopiesAndDeletes) {
    edit("a.txt", "abcdef\n");
    select(3);
    choose("Edit", "Couper");
    EXPECT_EQ(content(), "def\n");
    const auto got = asked("STRING");
    ASSERT_TRUE(got);
    EXPECT_EQ(std::string(got->c_str()), "abc");
    choose("Edit", "Coller");
    EXPECT_EQ(content(), "abcdef\n");
}

TEST_F(Clipboard, DeletingLeavesTheClipboard) {
    edit("a.txt", "abcdef\n");
    select(1);
    choose("Edit", "Copier");
    select(3);
    choose("Edit", "Clear");
    EXPECT_EQ(content(), "def\n");
    choose("Edit", "Coller");
    EXPECT_EQ(content(), "adef\n");
    choose("Edit", "Clear");
    EXPECT_EQ(content(), "adef\n") << "nothing is selected";
}

// Another program whose text is selected; what it is asked for.
TEST_F(Editor, DeletingAsksTheOwnerOfTheSelection) {
    edit("a.txt", "abcdef\n");
    Display* other = open_connection(server().name());
    const Window window = XCreateSimpleWindow(other, DefaultRootWindow(other), 0, 0, 1, 1, 0, 0, 0);
    XSetSelectionOwner(other, XA_PRIMARY, window, CurrentTime);
    XSync(other, False);
    XEvent event{};
    choose("Edit", "Couper");
    XSync(other, False);
    EXPECT_FALSE(XCheckTypedEvent(other, SelectionRequest, &event)) << "there is nothing to cut";
    choose("Edit", "Clear");
    ASSERT_TRUE(wait_for([&] { return XCheckTypedEvent(other, SelectionRequest, &event) != 0; }));
    const XSelectionRequestEvent asked = event.xselectionrequest;
    EXPECT_EQ(asked.selection, XA_PRIMARY);
    EXPECT_EQ(asked.target, XInternAtom(other, "KILL_SELECTION", False));
    EXPECT_NE(asked.time, Time{CurrentTime}) << "the time of the event that asks for it";
    XEvent answer{};
    answer.xselection.type = SelectionNotify;
    answer.xselection.requestor = asked.requestor;
    answer.xselection.selection = asked.selection;
    answer.xselection.target = asked.target;
    answer.xselection.time = asked.time;
    answer.xselection.property = asked.property;
    XChangeProperty(other, asked.requestor, asked.property, XA_STRING, 8, PropModeReplace,
        reinterpret_cast<const unsigned char*>("done"), 4);
    XSendEvent(other, asked.requestor, False, NoEventMask, &answer);
    XSync(other, False);
    drain();
    EXPECT_EQ(content(), "abcdef\n");
    XCloseDisplay(other);
}

// The toolkit keeps the label of a clipboard's item at the root window.
TEST_F(Clipboard, WhatIsCopiedBearsTheEditorsLabel) {
    edit("a.txt", "abcdef\n");
    select(3);
    choose("Edit", "Copier");
    int count = 0;
    Atom* const names = XListProperties(test_display(), DefaultRootWindow(test_display()), &count);
    bool found = false;
    for (int i = 0; i < count; ++i) {
        Atom type = None;
        int format = 0;
        unsigned long length = 0, rest = 0;
        unsigned char* data = nullptr;
        XGetWindowProperty(test_display(), DefaultRootWindow(test_display()), names[i], 0, 10000, False,
            AnyPropertyType, &type, &format, &length, &rest, &data);
        const std::string bytes(reinterpret_cast<char*>(data), format == 8 ? length : 0);
        found = found || bytes.find("XM_EDITOR") != std::string::npos;
        XFree(data);
    }
    XFree(names);
    EXPECT_TRUE(found);
}

TEST_F(Clipboard, WithoutASelectionItStaysAsItWas) {
    edit("a.txt", "abcdef\n");
    select(2);
    choose("Edit", "Copier");
    select(0);
    choose("Edit", "Copier");
    choose("Edit", "Couper");
    EXPECT_EQ(content(), "abcdef\n");
    const auto got = asked("STRING");
    ASSERT_TRUE(got);
    EXPECT_EQ(std::string(got->c_str()), "ab");
}

TEST_F(Clipboard, PastingAnEmptyClipboardDoesNothing) {
    edit("a.txt", "abc\n");
    type("");
    choose("Edit", "Coller");
    EXPECT_EQ(content(), "abc\n");
}

TEST_F(Clipboard, PastingIsAChange) {
    edit("a.txt", "abc\n");
    const ClipboardOwner owner(server().name(), "from outside", "STRING");
    type("");
    choose("Edit", "Coller");
    EXPECT_EQ(content(), "from outsideabc\n");
    choose("File", "Exit");
    EXPECT_TRUE(asks());
}

TEST_F(Clipboard, LongAndAccentedTextComesIn) {
    edit("a.txt", "\n");
    std::string big = "d\xe9j\xe0 ";
    while (big.size() < 100000) big += "0123456789";
    const ClipboardOwner owner(server().name(), big, "STRING");
    type("");
    choose("Edit", "Coller");
    EXPECT_TRUE(content() == big + "\n") << content().size();
}

TEST_F(Clipboard, TextOfAProgramThatOffersOnlyUtf8ComesIn) {
    edit("a.txt", "abc\n");
    const ClipboardOwner owner(server().name(), "utf8", "UTF8_STRING");
    type("");
    choose("Edit", "Coller");
    EXPECT_EQ(content(), "utf8abc\n");
}

// An owner that lets one wait. Another window of the application, that goes on meanwhile.
class SlowClipboard : public Clipboard {
  protected:
    void SetUp() override {
        Clipboard::SetUp();
        beside_ = make(GRX_FEN_GRAPHIQUE);
        ASSERT_TRUE(wait_visible(widget_of(beside_)));
        edit("a.txt", "abc\n");
        type("");
    }
    // Chooses "Coller" without waiting for what comes of it.
    void paste() {
        click(widget_called("Edit"));
        ASSERT_TRUE(wait_for([&] { return is_viewable(widget_called("Coller")); }));
        drain();
        click(widget_called("Coller"));
        begun_ = Clock::now();
    }
    // That a press in the other window is told while the clipboard is waited for.
    void expect_the_other_window_answers() {
        events.clear();
        pointer().click_in(widget_of(beside_), 5, 100);
        EXPECT_TRUE(wait_for([&] { return events.count(GRX_EVT_BOUTON_RELACHE) > 0; })) << events.describe();
        EXPECT_GT(events.count(GRX_EVT_BOUTON_APPUI), 0);
        EXPECT_LT(Clock::now() - begun_, Milliseconds(1000));
    }
    // Lets time pass, with the application in its loop.
    void pass(Milliseconds time) {
        const auto until = Clock::now() + time;
        EXPECT_TRUE(wait_for([&] { return Clock::now() > until; }));
    }
    static constexpr Milliseconds most{1000};

    INT beside_ = 0;
    Clock::time_point begun_{};
};

TEST_F(SlowClipboard, AnOwnerThatNeverAnswersHoldsNothingUp) {
    ClipboardOwner owner(server().name(), "from outside", "STRING", never);
    paste();
    expect_the_other_window_answers();
    pass(most + most / 2);
    EXPECT_EQ(owner.asked(), 1) << "one attempt";
    EXPECT_EQ(content(), "abc\n");
    const ClipboardOwner another(server().name(), "at last ", "STRING");
    choose("Edit", "Coller");
    EXPECT_TRUE(wait_for([&] { return content() == "at last abc\n"; })) << content();
}

TEST_F(SlowClipboard, AnAnswerWithinASecondComesIn) {
    ClipboardOwner owner(server().name(), "from outside ", "STRING", 500);
    paste();
    expect_the_other_window_answers();
    EXPECT_EQ(content(), "abc\n");
    EXPECT_TRUE(wait_for([&] { return content() == "from outside abc\n"; })) << content();
    EXPECT_EQ(owner.asked(), 1);
}

TEST_F(SlowClipboard, AnAnswerAfterASecondIsTooLate) {
    ClipboardOwner owner(server().name(), "from outside ", "STRING", 1600);
    paste();
    ASSERT_TRUE(wait_for([&] { return owner.answered() == 1; }));
    drain();
    EXPECT_EQ(content(), "abc\n");
}

TEST_F(SlowClipboard, AnotherFileDoesNotGetIt) {
    put("b.txt", "other\n");
    ClipboardOwner owner(server().name(), "from outside ", "STRING", 500);
    paste();
    ASSERT_TRUE(wait_for([&] { return owner.asked() == 1; }));
    load(files_.text(), "b.txt");
    ASSERT_TRUE(wait_for([&] { return owner.answered() == 1; }));
    drain();
    EXPECT_EQ(content(), "other\n");
    choose("File", "Exit");
    EXPECT_TRUE(closed()) << "nothing changed";
}

TEST_F(SlowClipboard, TheEndOfTheEditorIsSurvived) {
    ClipboardOwner owner(server().name(), "from outside ", "STRING", 500);
    paste();
    ASSERT_TRUE(wait_for([&] { return owner.asked() == 1; }));
    grx_fin_editeur();
    ASSERT_TRUE(closed());
    edit("b.txt", "other\n");
    ASSERT_TRUE(wait_for([&] { return owner.answered() == 1; }));
    pass(most);
    EXPECT_EQ(content(), "other\n");
}

TEST_F(SlowClipboard, WhatIsTypedNextStandsBehind) {
    const ClipboardOwner owner(server().name(), "from outside", "STRING", 20);
    keyboard().key(XK_Insert, ShiftMask);
    keyboard().type("x");
    EXPECT_TRUE(wait_for([&] { return content().find('x') != std::string::npos; }));
    EXPECT_EQ(content(), "from outsidexabc\n");
}

class ClipboardInUtf8 : public Clipboard {
  protected:
    void before_start() override {
        Clipboard::before_start();
        ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    }
};

TEST_F(ClipboardInUtf8, TextOutsideLatin1GoesOutAsUtf8) {
    edit("a.txt", "10 \u20ac\n");
    select(4);
    choose("Edit", "Copier");
    const auto got = asked("UTF8_STRING");
    ASSERT_TRUE(got);
    EXPECT_EQ(std::string(got->c_str()), "10 \u20ac");
}

TEST_F(Clipboard, ALockedOneIsGivenUp) {
    edit("a.txt", "abc\n");
    const Window window = x_window(main_);
    ASSERT_EQ(XmClipboardLock(x11_disp, window), ClipboardSuccess);
    select(2);
    choose("Edit", "Copier");
    choose("Edit", "Coller");
    EXPECT_EQ(content(), "abc\n");
    XmClipboardUnlock(x11_disp, window, True);
    select(2);
    choose("Edit", "Copier");
    const auto got = asked("STRING");
    ASSERT_TRUE(got);
    EXPECT_EQ(std::string(got->c_str()), "ab");
}

// --- the blocking call ---------------------------------------------------------------------------------------------

template <class Base>
class BlockingOn : public EditorOn<Base> {
  protected:
    struct Left {
        INT status = -1;
        std::string directory, name;
    };
    Left block(const std::string& directory, const std::string& name) {
        EXPECT_EQ(grx_debut_editeur(), 1);
        grx_editeur();
        char adr[GRX_MEMO_FILENAME_MAX] = "", nom[GRX_MEMO_FILENAME_MAX] = "";
        std::snprintf(adr, sizeof adr, "%s", directory.c_str());
        std::snprintf(nom, sizeof nom, "%s", name.c_str());
        Left left;
        left.status = this->script_.run([&] { return grx_file_editeur_bloquant(adr, nom); });
        left.directory = adr;
        left.name = nom;
        return left;
    }
    Script& when_ready(const std::string& what, Script::Action action) {
        return this->script_.when(
            what, [this] { return this->is_open(); }, std::move(action));
    }
    void key(KeySym symbol) {
        this->script_.then("key", [this, symbol] {
            this->pointer().move_in(this->text(), 8, 8);
            this->keyboard().key(symbol);
        });
    }
    void change() {
        when_ready("type", [this] {
            this->pointer().click_in(this->text(), 8, 8);
            this->keyboard().type("x");
        });
    }
    void pick(const std::string& entry) {
        this->script_.then("menu", [this] { this->click(widget_called("File")); });
        this->script_.when(
            "entry " + entry, [entry] { return is_viewable(widget_called(entry)); },
            [this, entry] { this->click(widget_called(entry)); });
    }
    void respond(unsigned char which) {
        this->script_.when(
            "warning", [this] { return this->prompt() != nullptr; },
            [this, which] { this->click(this->button(this->prompt(), which)); });
    }
};

class Blocking : public BlockingOn<DisplayTest> {};

TEST_F(Blocking, FinAfterSavingGives1) {
    put("a.txt", "abc");
    change();
    pick("Save");
    key(XK_F3);
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.status, 1);
    EXPECT_EQ(left.directory, files_.text());
    EXPECT_EQ(left.name, "a.txt");
    EXPECT_EQ(bytes_of(path("a.txt")), "xabc\n");
    EXPECT_EQ(shell(), nullptr);
    EXPECT_EQ(grx_debut_editeur(), 1) << "the editor is free again";
    grx_fin_editeur();
}

TEST_F(Blocking, EachWayOutHasItsStatus) {
    const std::pair<unsigned char, INT> ways[] = {{XmDIALOG_OK_BUTTON, 1}, {XmDIALOG_APPLY_BUTTON, 0}};
    for (const auto& [button, status] : ways) {
        put("a.txt", "abc\n");
        change();
        pick("Exit");
        respond(button);
        const auto left = block(files_.text(), "a.txt");
        EXPECT_EQ(left.status, status);
        EXPECT_EQ(left.directory, files_.text());
        EXPECT_EQ(left.name, "a.txt");
        EXPECT_EQ(bytes_of(path("a.txt")), status ? "xabc\n" : "abc\n");
    }
    when_ready("finish", [] { EXPECT_EQ(grx_fin_editeur(), 1); });
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.status, 0);
    EXPECT_EQ(left.name, "a.txt");
    EXPECT_EQ(left.directory, files_.text());
}

TEST_F(Blocking, NothingIsLeftOfTheTimeBefore) {
    put("a.txt", "abc\n");
    put("b.txt", "abc\n");
    when_ready("ready", [] {});
    key(XK_F3);
    EXPECT_EQ(block(files_.text(), "b.txt").status, 1);
    when_ready("finish", [] { EXPECT_EQ(grx_fin_editeur(), 1); });
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.status, 0);
    EXPECT_EQ(left.name, "a.txt");
}

TEST_F(Blocking, SauverSousGivesTheNewName) {
    put("a.txt", "abc\n");
    fs::create_directory(path("Sub"));
    when_ready("ready", [] {});
    pick("Save As...");
    script_.when(
        "prompt", [&] { return prompt() != nullptr; },
        [&] { retype(button(prompt(), XmDIALOG_TEXT), path("Sub/b.txt")); });
    script_.then("ok", [&] { click(button(prompt(), XmDIALOG_OK_BUTTON)); });
    key(XK_F3);
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.status, 1);
    EXPECT_EQ(left.directory, path("Sub"));
    EXPECT_EQ(left.name, "b.txt");
}

// A file that could not be written is not given back.
TEST_F(Blocking, AFailedSauverSousLeavesTheNames) {
    put("a.txt", "abc\n");
    const std::pair<unsigned char, INT> ways[] = {{XmDIALOG_APPLY_BUTTON, 0}, {XmDIALOG_OK_BUTTON, 1}};
    for (const auto& [button_of_warning, status] : ways) {
        when_ready("ready", [] {});
        pick("Save As...");
        script_.when(
            "prompt", [&] { return prompt() != nullptr; },
            [&] { retype(button(prompt(), XmDIALOG_TEXT), path("Sub/b.txt")); });
        script_.then("ok", [&] { click(button(prompt(), XmDIALOG_OK_BUTTON)); });
        script_.when(
            "told", [&] { return question_box() != nullptr; },
            [&] { click(XmMessageBoxGetChild(question_box(), XmDIALOG_OK_BUTTON)); });
        key(XK_F3);
        respond(button_of_warning);
        const auto left = block(files_.text(), "a.txt");
        EXPECT_EQ(left.status, status);
        EXPECT_EQ(left.directory, files_.text());
        EXPECT_EQ(left.name, "a.txt");
        EXPECT_EQ(std::string(memo_filename), path("a.txt"));
    }
}

TEST_F(Blocking, ANewFileThatWasNeverWrittenIsNotGivenBack) {
    put("a.txt", "abc\n");
    for (const bool saved : {false, true}) {
        when_ready("ready", [] {});
        pick("New");
        script_.when(
            "prompt", [&] { return prompt() != nullptr; },
            [&] { retype(button(prompt(), XmDIALOG_TEXT), path("new.txt")); });
        script_.then("ok", [&] { click(button(prompt(), XmDIALOG_OK_BUTTON)); });
        if (saved) pick("Save");
        key(XK_F3);
        const auto left = block(files_.text(), "a.txt");
        EXPECT_EQ(there("new.txt"), saved);
        EXPECT_EQ(left.status, saved ? 1 : 0);
        EXPECT_EQ(left.name, saved ? "new.txt" : "a.txt");
        EXPECT_EQ(left.directory, files_.text());
    }
}

TEST_F(Blocking, AFileThatIsNotThereIsNotReportedAsSaved) {
    when_ready("ready", [&] { EXPECT_FALSE(sensitive()); });
    key(XK_F3);
    const auto left = block(files_.text(), "missing.txt");
    EXPECT_EQ(left.status, 0);
    EXPECT_EQ(left.name, "missing.txt");
}

// --- off the screen when the call has returned

TEST_F(Blocking, NothingIsLeftOnTheScreen) {
    put("a.txt", "abc\n");
    const auto before = windows_on_screen();
    const auto leave = [&] {
        when_ready("ready", [] {});
        key(XK_F3);
        block(files_.text(), "a.txt");
        EXPECT_TRUE(leaves_the_screen_as(before));
        change();
        pick("Exit");
        respond(XmDIALOG_APPLY_BUTTON);
        block(files_.text(), "a.txt");
        EXPECT_TRUE(leaves_the_screen_as(before));
        when_ready("close", [&] { ask_to_close(test_display(), XtWindow(shell())); });
        block(files_.text(), "a.txt");
        EXPECT_TRUE(leaves_the_screen_as(before));
        when_ready("finish", [] { grx_fin_editeur(); });
        block(files_.text(), "a.txt");
        EXPECT_TRUE(leaves_the_screen_as(before));
    };
    leave();
    inside_a_callback(leave);
    drain();
    when_ready("destroy", [&] { grx_detruit_fenetre(main_); });
    block(files_.text(), "a.txt");
    EXPECT_TRUE(leaves_the_screen_as(before));
}

TEST_F(Blocking, ANameWithoutADirectoryEmptiesTheDirectory) {
    ASSERT_EQ(chdir(files_.text().c_str()), 0);
    put("a.txt", "abc\n");
    when_ready("ready", [] {});
    pick("Save As...");
    script_.when(
        "prompt", [&] { return prompt() != nullptr; }, [&] { retype(button(prompt(), XmDIALOG_TEXT), "b.txt"); });
    script_.then("ok", [&] { click(button(prompt(), XmDIALOG_OK_BUTTON)); });
    key(XK_F3);
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.directory, "");
    EXPECT_EQ(left.name, "b.txt");
    EXPECT_TRUE(there("b.txt"));
}

TEST_F(Blocking, AtTheRootTheDirectoryIsEmpty) {
    put("a.txt", "abc\n");
    when_ready("ready", [] {});
    const std::string target = "/grx-test-" + std::to_string(getpid());
    pick("Save As...");
    script_.when(
        "prompt", [&] { return prompt() != nullptr; }, [&] { retype(button(prompt(), XmDIALOG_TEXT), target); });
    script_.then("ok", [&] { click(button(prompt(), XmDIALOG_OK_BUTTON)); });
    script_.then("leave", [&] {
        pointer().move_in(text(), 8, 8);
        keyboard().key(XK_F3);
    });
    const bool writable = access("/", W_OK) == 0;
    if (!writable) respond(XmDIALOG_APPLY_BUTTON); // not everybody may write there: the text then counts as not saved
    const auto left = block(files_.text(), "a.txt");
    fs::remove(target);
    EXPECT_EQ(left.directory, writable ? "" : files_.text());
    EXPECT_EQ(left.name, writable ? target.substr(1) : "a.txt");
}

TEST_F(Blocking, LongNamesDoNotOverflow) {
    std::string deep = files_.text();
    while (deep.size() < 240) deep += "/" + std::string(60, 'd');
    fs::create_directories(deep);
    std::ofstream(deep + "/" + std::string(100, 'f')) << "abc\n";
    when_ready("leave", [&] {
        EXPECT_EQ(content(), "abc\n");
        pointer().move_in(text(), 8, 8);
        keyboard().key(XK_F3);
    });
    EXPECT_EQ(grx_debut_editeur(), 1);
    grx_editeur();
    std::vector<char> adr(1024, '\0'), name(1024, '\0');
    deep.copy(adr.data(), deep.size());
    std::string(100, 'f').copy(name.data(), 100);
    EXPECT_EQ(script_.run([&] { return grx_file_editeur_bloquant(adr.data(), name.data()); }), 1);
    EXPECT_EQ(std::string(adr.data()), deep);
    EXPECT_EQ(std::string(name.data()), std::string(100, 'f'));
    EXPECT_EQ(std::strlen(memo_filename), GRX_MEMO_FILENAME_MAX - 1U);
}

TEST_F(Blocking, TheDeathOfTheMainWindowEndsIt) {
    put("a.txt", "abc\n");
    when_ready("destroy", [&] { grx_detruit_fenetre(main_); });
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.status, 0);
    EXPECT_EQ(left.name, "a.txt");
    EXPECT_EQ(grx_fin_editeur(), 0);
}

// There the end of a window is put off until the callback returns.
TEST_F(Blocking, TheDeathOfTheMainWindowEndsItInsideACallbackToo) {
    put("a.txt", "abc\n");
    inside_a_callback([&] {
        when_ready("destroy", [&] { grx_detruit_fenetre(main_); });
        const auto left = block(files_.text(), "a.txt");
        EXPECT_EQ(left.status, 0);
        EXPECT_EQ(left.name, "a.txt");
    });
    drain();
    EXPECT_EQ(grx_fin_editeur(), 0);
}

TEST_F(Blocking, WithoutAWindowItReturnsAtOnce) {
    put("a.txt", "abc\n");
    grx_detruit_fenetre(main_);
    drain();
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.status, 0);
    EXPECT_EQ(left.name, "a.txt");
    grx_fin_editeur();
    char a[HOST_CHEMIN_MAX] = "", n[HOST_CHEMIN_MAX] = "x";
    EXPECT_EQ(grx_file_editeur_bloquant(a, n), 0) << "no editor at all";
}

TEST_F(Blocking, AnEmptyNameWaitsAllTheSame) {
    bool waited = false;
    when_ready("leave", [&] {
        waited = true;
        EXPECT_FALSE(sensitive());
        pointer().move_in(text(), 8, 8);
        keyboard().key(XK_F3);
    });
    EXPECT_EQ(block(files_.text(), "").status, 1);
    EXPECT_TRUE(waited);
}

TEST_F(Blocking, TheApplicationsRecordIsTheSameAfterwards) {
    put("a.txt", "abc\n");
    const GRX_EVENEMENT before = evt_global = patterned_event();
    when_ready("click beside it", [&] { pointer().click_in(widget_of(main_), 5, 190); });
    key(XK_F3);
    block(files_.text(), "a.txt");
    EXPECT_EQ(std::memcmp(&before, &evt_global, sizeof before), 0);
}

TEST_F(Blocking, AFinishAndAStartInsideACallback) {
    put("a.txt", "abc\n");
    const NoLeak no_leak;
    show();
    load(files_.text(), "a.txt");
    XtAddCallback(
        widget_called("Save"), XmNactivateCallback,
        [](Widget, XtPointer, XtPointer) {
            EXPECT_EQ(grx_fin_editeur(), 1);
            EXPECT_EQ(grx_debut_editeur(), 1);
            EXPECT_EQ(grx_editeur(), 0);
        },
        nullptr);
    click(widget_called("File"));
    ASSERT_TRUE(wait_for([&] { return is_viewable(widget_called("Save")); }));
    Widget old = shell();
    click(widget_called("Save"));
    ASSERT_TRUE(wait_for([&] { return shell() && shell() != old && is_viewable(shell()); }));
    drain();
    load(files_.text(), "a.txt");
    EXPECT_EQ(content(), "abc\n");
    EXPECT_EQ(grx_debut_editeur(), 0);
    EXPECT_EQ(grx_fin_editeur(), 1);
    drain();
}

// --- memory --------------------------------------------------------------------------------------------------------

// With a menu bar, as every application has one: the toolkit loses the arrows of its cascades with the last of them.
class EditorBesideMenus : public Editor {
  protected:
    void before_start() override { write_menu("#:ZONE_MENU_BAR\n{\nPOPUP||Menu|\n{\nITEM||One||1|\n}\n}\n"); }
};

TEST_F(EditorBesideMenus, TwoHundredTimesLeaveNothing) {
    put("a.txt", "abc\n");
    const auto once = [&](int way) {
        edit("a.txt");
        if (way == 0) {
            grx_fin_editeur();
        } else {
            type("x");
            choose("File", "Exit");
            answer(XmDIALOG_APPLY_BUTTON);
        }
        ASSERT_TRUE(closed());
        drain();
    };
    for (int i = 0; i < 6; ++i) once(i % 6 == 5);
    once(0);
    const auto before = server_resources(test_display(), x_window(main_));
    const std::size_t blocks = heap().blocks();
    for (int i = 0; i < 200; ++i) once(i % 10 == 5);
    once(0);
    EXPECT_EQ(server_resources(test_display(), x_window(main_)), before);
    EXPECT_EQ(heap().blocks(), blocks);
}

TEST_F(Editor, EachFailingAllocationIsSurvived) {
    put("a.txt", "abc\n");
    const int failures = fail_each_allocation([&] {
        const NoLeak no_leak;
        put("a.txt", "abc\n");
        if (grx_debut_editeur() == 1) {
            grx_editeur();
            drain();
            load(files_.text(), "a.txt");
            if (shell() && sensitive()) {
                type("x");
                choose("File", "Save");
                const std::string after = bytes_of(path("a.txt"));
                EXPECT_TRUE(after == "abc\n" || after == content()) << after;
                choose("File", "Exit");
                if (asks()) answer(XmDIALOG_APPLY_BUTTON);
            }
        }
        grx_fin_editeur();
        drain();
        EXPECT_EQ(shell(), nullptr);
    });
    EXPECT_GT(failures, 3);
}

TEST_F(Editor, TheDeathOfTheMainWindowClosesIt) {
    const NoLeak no_leak;
    edit("a.txt", "abc\n");
    grx_detruit_fenetre(main_);
    drain();
    EXPECT_EQ(grx_fin_editeur(), 0);
}

class EditorOn32On24 : public EditorOn<DisplayTest> {
  protected:
    void before_start() override {
        EditorOn<DisplayTest>::before_start();
        fake_.emplace(FakeVisual::Kind::alt32);
    }
    std::optional<FakeVisual> fake_;
};

TEST_F(EditorOn32On24, HasTheApplicationsVisual) {
    edit("a.txt", "abc\n");
    for (const char* entry : {"New", "Save As..."}) {
        choose("File", entry);
        answer(XmDIALOG_CANCEL_BUTTON);
    }
    type("x");
    choose("File", "Exit");
    ASSERT_TRUE(asks());
    for (Widget w : {shell(), XtParent(prompt())}) {
        XWindowAttributes attributes{};
        XGetWindowAttributes(x11_disp, XtWindow(w), &attributes);
        EXPECT_EQ(attributes.depth, 32);
    }
}

// --- the window manager --------------------------------------------------------------------------------------------

class EditorWmTest : public BlockingOn<WmTest> {
  protected:
    bool framed() { return shell() && frame(shell()) != None; }
    void close_by_keys() {
        pointer().click_in(frame(shell()), 60, 12);
        keyboard().key(XK_F4, Mod1Mask);
    }
};

TEST_F(EditorWmTest, ClosingASavedTextLeavesTheNames) {
    put("a.txt", "abc\n");
    script_.when(
        "framed", [&] { return framed(); }, [&] { close_by_keys(); });
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(left.directory, files_.text());
    EXPECT_EQ(left.name, "a.txt");
    EXPECT_EQ(grx_fin_editeur(), 0);
}

TEST_F(EditorWmTest, ClosingAnUnsavedTextAsks) {
    put("a.txt", "abc\n");
    script_.when("framed", [&] { return framed(); });
    change();
    script_.then("close", [&] { close_by_keys(); });
    respond(XmDIALOG_CANCEL_BUTTON);
    script_.when(
        "still there", [&] { return prompt() == nullptr; },
        [&] {
            EXPECT_TRUE(is_open());
            EXPECT_EQ(content(), "xabc\n");
        });
    script_.then("again", [&] { close_by_keys(); });
    respond(XmDIALOG_OK_BUTTON);
    const auto left = block(files_.text(), "a.txt");
    EXPECT_EQ(bytes_of(path("a.txt")), "xabc\n");
    EXPECT_EQ(left.name, "a.txt");
}

TEST_F(EditorWmTest, KeysAndMenusUnderTheManager) {
    put("a.txt", "abc\n");
    script_.when("framed", [&] { return framed(); });
    change();
    pick("Save");
    script_.then("cut", [&] {
        keyboard().key(XK_Home, ControlMask);
        keyboard().key(XK_Right, ShiftMask);
        keyboard().key(XK_Delete, ShiftMask);
    });
    script_.then("paste twice", [&] {
        EXPECT_EQ(content(), "abc\n");
        keyboard().key(XK_Insert, ShiftMask);
        keyboard().key(XK_Insert, ShiftMask);
    });
    script_.then("save", [&] { EXPECT_EQ(content(), "xxabc\n"); });
    pick("Save");
    key(XK_F3);
    EXPECT_EQ(block(files_.text(), "a.txt").status, 1);
    EXPECT_EQ(bytes_of(path("a.txt")), "xxabc\n");
}

} // namespace
