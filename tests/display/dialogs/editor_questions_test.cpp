// The editor's dialogs for names, and its warnings before unsaved text is lost.
#include "tests/display/dialogs/editor_kit.h"

#include "pure/warning_bits.h"

#include <fstream>

namespace {

using namespace grxtest;
namespace fs = std::filesystem;

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

} // namespace
