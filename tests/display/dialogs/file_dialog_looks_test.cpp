// What the file dialog shows: its labels and parts, and names of every length and encoding.
#include "tests/display/dialogs/file_dialog_kit.h"

#include <clocale>
#include <map>

namespace {

using namespace grxtest;
namespace fs = std::filesystem;

// --- what it looks like ----------------------------------------------------------------------------------------------

TEST_F(FileDialog, TheLabelsAreTheApplications) {
    host_messages = application_messages();
    const std::map<INT, std::string> ok_labels{{1, "Nr1245"}, {2, "Nr1315"}, {0, "Nr1250"}, {7, "Nr1250"}};
    for (const auto& [operation, ok] : ok_labels) {
        when_open("labels", [&] {
            Widget box = file_box();
            EXPECT_EQ(text_resource(box, XmNokLabelString), ok);
            EXPECT_EQ(text_resource(part(XmDIALOG_OK_BUTTON), XmNlabelString), ok);
            EXPECT_EQ(text_resource(part(XmDIALOG_APPLY_BUTTON), XmNlabelString), "Nr1251");
            EXPECT_EQ(text_resource(part(XmDIALOG_CANCEL_BUTTON), XmNlabelString), "Nr1246");
            EXPECT_EQ(text_resource(part(XmDIALOG_FILTER_LABEL), XmNlabelString), "Nr1251");
            EXPECT_EQ(text_resource(part(XmDIALOG_SELECTION_LABEL), XmNlabelString), "Nr1335");
            EXPECT_EQ(text_resource(part(XmDIALOG_DIR_LIST_LABEL), XmNlabelString), "Nr1336");
            EXPECT_EQ(text_resource(part(XmDIALOG_LIST_LABEL), XmNlabelString), "Nr1066");
            EXPECT_EQ(shell_title(), "Open a plan");
            for (unsigned char which : {XmDIALOG_OK_BUTTON, XmDIALOG_FILTER_LABEL, XmDIALOG_LIST, XmDIALOG_DIR_LIST})
                EXPECT_EQ(font_of(part(which)), fontstruct) << int(which);
            cancel();
        });
        choose({.operation = operation, .title = "Open a plan"});
    }
}

TEST_F(FileDialog, TheToolkitsLabelsStandInForMissingOnes) {
    host_messages.emplace();
    char title[] = "Where";
    const auto look = [&] {
        EXPECT_EQ(text_resource(part(XmDIALOG_OK_BUTTON), XmNlabelString), "OK");
        EXPECT_EQ(text_resource(part(XmDIALOG_APPLY_BUTTON), XmNlabelString), "Filter");
        EXPECT_EQ(text_resource(part(XmDIALOG_CANCEL_BUTTON), XmNlabelString), "Cancel");
        EXPECT_EQ(text_resource(part(XmDIALOG_FILTER_LABEL), XmNlabelString), "Filter");
        EXPECT_EQ(text_resource(part(XmDIALOG_SELECTION_LABEL), XmNlabelString), "Selection");
        EXPECT_EQ(text_resource(part(XmDIALOG_DIR_LIST_LABEL), XmNlabelString), "Directories");
        cancel();
    };
    when_open("labels", look);
    choose({});
    when_open("labels", look);
    char directory[GRX_CHEMIN_DIALOGUE_MAX] = "";
    script_.run([&] { return select_repertoire_x11(title, directory); });
}

TEST_F(FileDialog, ItsPartsAreTheStatedOnes) {
    when_open("parts", [&] {
        Widget box = file_box();
        EXPECT_EQ(XtParent(XtParent(box)), widget_of(main_)) << "the main window's widget is the parent";
        EXPECT_FALSE(XtIsManaged(part(XmDIALOG_HELP_BUTTON)));
        EXPECT_EQ(resource<unsigned char>(box, XmNdialogStyle), XmDIALOG_FULL_APPLICATION_MODAL);
        EXPECT_EQ(resource<short>(part(XmDIALOG_TEXT), XmNcolumns), 48) << "room for whole paths";
        Widget drawn = preview();
        ASSERT_NE(drawn, nullptr);
        EXPECT_EQ(resource<Dimension>(drawn, XmNwidth), 80);
        EXPECT_EQ(resource<Dimension>(drawn, XmNheight), 80);
        EXPECT_EQ(resource<Dimension>(drawn, XmNmarginWidth), 0);
        EXPECT_EQ(resource<Dimension>(drawn, XmNmarginHeight), 0);
        EXPECT_EQ(resource<Dimension>(drawn, XmNhighlightThickness), 0);
        EXPECT_EQ(resource<unsigned char>(drawn, XmNalignment), XmALIGNMENT_CENTER);
        EXPECT_FALSE(resource<Boolean>(drawn, XmNrecomputeSize));
        Widget row = XtParent(drawn);
        EXPECT_EQ(XtClass(row), xmRowColumnWidgetClass);
        EXPECT_EQ(resource<unsigned char>(row, XmNorientation), XmHORIZONTAL);
        EXPECT_EQ(XtParent(row), box);
        Widget pulldown = widget_called("PullMenu"), option = widget_called("OptionMenu");
        ASSERT_NE(pulldown, nullptr);
        ASSERT_NE(option, nullptr);
        EXPECT_TRUE(is_viewable(option));
        EXPECT_EQ(resource<Widget>(option, XmNsubMenuId), pulldown);
        cancel();
    });
    choose({});
}

TEST_F(FileDialog, HasTheApplicationsFontAndColour) {
    grx_affecte_couleur_application(6);
    const auto colour = static_cast<Pixel>(grx_recup_couleur(6));
    put("PLAN.DAT");
    when_open("look", [&] {
        Widget option = widget_called("OptionMenu"), pulldown = widget_called("PullMenu"), row = XtParent(preview());
        for (Widget w : {file_box(), preview(), row, option, pulldown, entries_of(pulldown)[0]})
            EXPECT_EQ(resource<Pixel>(w, XmNbackground), colour) << XtName(w);
        for (Widget w : {part(XmDIALOG_TEXT), entries_of(pulldown)[0], XmOptionButtonGadget(option)})
            EXPECT_EQ(font_of(w), fontstruct) << XtName(w);
        enter("plan");
    });
    when_asked("look", [&] {
        EXPECT_EQ(resource<Pixel>(question_box(), XmNbackground), colour);
        for (const unsigned char which : {XmDIALOG_MESSAGE_LABEL, XmDIALOG_OK_BUTTON})
            EXPECT_EQ(font_of(XmMessageBoxGetChild(question_box(), which)), fontstruct) << int(which);
        answer(XmDIALOG_CANCEL_BUTTON);
    });
    when_answered("cancel", [&] { cancel(); });
    choose({.operation = HOST_CATAL_ECRITURE});
}

TEST_F(FileDialog, ItsSizesStayWithAnImage) {
    std::vector<uchar> pixels(200 * 200, 3);
    std::string bmp = path("BIG.BMP"), nowhere;
    ecrit_fichier_bitmap(nowhere.data(), bmp.data(), pixels.data(), 200, 200);
    put("BIG.DAT");
    Area before{};
    when_open("click", [&] {
        before = server_area(test_display(), shell_window());
        click_file("BIG.DAT");
    });
    script_.then("look", [&] {
        EXPECT_EQ(resource<Dimension>(preview(), XmNwidth), 80);
        EXPECT_EQ(resource<Dimension>(preview(), XmNheight), 80);
        EXPECT_EQ(server_area(test_display(), shell_window()), before);
        cancel();
    });
    choose({});
}

// --- names -----------------------------------------------------------------------------------------------------------

TEST_F(FileDialog, AnyNameCanBeChosen) {
    const Names names{"with blank.DAT", "\xe9t\xe9.DAT", "caf\xc3\xa9.DAT", "a;b&c|d.DAT", "$HOME`id`.DAT", "'q\"u.DAT",
        "-leading.DAT", "back\\slash.DAT", "star[1]?.DAT", "100%s%n.DAT", ".DAT.DAT"};
    for (const auto& name : names) put("odd dir\xe9/" + name);
    for (const auto& name : names) {
        when_open(name, [&] { click_item(part(XmDIALOG_LIST), path("odd dir\xe9/" + name)); });
        script_.then("ok", [&] { accept(); });
        const Choice choice = choose({.directory = path("odd dir\xe9")});
        EXPECT_EQ(choice.names, (Names{name}));
        EXPECT_EQ(choice.directory, path("odd dir\xe9"));
    }
}

TEST_F(FileDialog, ControlCharactersAreRefused) {
    const Names names{"tab\tbed.DAT", "line\nfeed.DAT", "esc\033ape.DAT", "del\177ete.DAT", "\001.DAT"};
    for (const auto& name : names) put(name);
    for (const INT operation : {HOST_CATAL_LECTURE, HOST_CATAL_ECRITURE}) {
        for (const auto& name : names) {
            when_open(name, [&] {
                XmTextFieldSetString(part(XmDIALOG_TEXT), const_cast<char*>(path(name).c_str()));
                accept();
            });
            script_.then("refused", [&] {
                EXPECT_EQ(question_box(), nullptr);
                ASSERT_NE(file_box(), nullptr);
                cancel();
            });
            EXPECT_EQ(choose({.operation = operation}).result, 0);
        }
    }
    when_open("proposed", [&] { accept(); });
    script_.then("refused", [&] {
        ASSERT_NE(file_box(), nullptr);
        cancel();
    });
    EXPECT_EQ(choose({.operation = HOST_CATAL_ECRITURE, .names = {"new\nname.DAT"}}).result, 0);
}

TEST_F(FileDialog, LongNamesAreTakenWholeOrNotAtAll) {
    std::string deep = files_.text();
    while (deep.size() + 1 + 200 < 990) deep += "/" + std::string(200, 'd');
    for (INT operation : {HOST_CATAL_LECTURE, HOST_CATAL_ECRITURE}) {
        const std::string fits = std::string(999 - 4 - deep.size() - 1, 'N') + ".DAT";
        const std::string too_long = std::string(1000 - 4 - deep.size() - 1, 'N') + ".DAT";
        const std::string no_room(998 - deep.size() - 1, 'N'); // for an extension
        ASSERT_EQ((deep + "/" + fits).size(), 999U);
        if (operation == HOST_CATAL_LECTURE) {
            fs::create_directories(deep);
            ASSERT_NE(std::fclose(std::fopen((deep + "/" + fits).c_str(), "w")), EOF);
            ASSERT_NE(std::fclose(std::fopen((deep + "/" + too_long).c_str(), "w")), EOF);
            ASSERT_NE(std::fclose(std::fopen((deep + "/" + no_room).c_str(), "w")), EOF);
        } else {
            fs::remove(deep + "/" + fits);
            fs::remove(deep + "/" + too_long);
            fs::remove(deep + "/" + no_room);
        }
        when_open("too long", [&] {
            XmTextFieldSetString(part(XmDIALOG_TEXT), const_cast<char*>((deep + "/" + too_long).c_str()));
            accept();
        });
        script_.then("refused", [&] {
            ASSERT_NE(file_box(), nullptr);
            EXPECT_EQ(question_box(), nullptr);
            XmTextFieldSetString(part(XmDIALOG_TEXT), const_cast<char*>((deep + "/" + std::string(5000, 'N')).c_str()));
            accept();
        });
        script_.then("much too long", [&] {
            ASSERT_NE(file_box(), nullptr);
            const std::string bare = deep + "/" + std::string(no_room.size(), 'n');
            XmTextFieldSetString(part(XmDIALOG_TEXT), const_cast<char*>(bare.c_str()));
            accept();
        });
        script_.then("too long with its extension", [&] {
            ASSERT_NE(file_box(), nullptr);
            XmTextFieldSetString(part(XmDIALOG_TEXT), const_cast<char*>((deep + "/" + fits).c_str()));
            accept();
        });
        const Choice choice = choose({.operation = operation});
        EXPECT_EQ(choice.result, 1);
        EXPECT_EQ(choice.directory, deep);
        EXPECT_EQ(choice.names, (Names{fits}));
    }
}

TEST_F(FileDialog, FiveThousandFiles) {
    for (int i = 0; i < 5000; ++i) put("file" + std::to_string(10000 + i) + ".DAT", "");
    when_open("all there", [&] {
        EXPECT_EQ(list_items(part(XmDIALOG_LIST)).size(), 5000U);
        click_file("file14999.DAT");
    });
    script_.then("ok", [&] { accept(); });
    EXPECT_EQ(choose({}).names, (Names{"file14999.DAT"}));
}

class FileDialogInUtf8 : public FileDialog {
  protected:
    void before_start() override {
        FileDialog::before_start();
        ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    }
};

// Window managers run in locales of their own: a title reaches them as that of every window does.
TEST_F(FileDialogInUtf8, ItsTitleIsWrittenAsThatOfTheMainWindow) {
    struct Title {
        std::string bytes;
        Atom encoding = None;
    };
    const auto title_of = [this](Window window) {
        XTextProperty property{};
        XGetWMName(test_display(), window, &property);
        const Title title{property.value ? reinterpret_cast<char*>(property.value) : "", property.encoding};
        XFree(property.value);
        return title;
    };
    char accented[] = "R\351pertoire";
    grx_change_titre_fenetre(main_, accented);
    Title dialog;
    when_open("look", [&] {
        dialog = title_of(shell_window());
        cancel();
    });
    choose({.title = accented});
    drain();
    const Title window = title_of(XtWindow(shell_of(main_)));
    EXPECT_EQ(dialog.bytes, window.bytes);
    EXPECT_EQ(dialog.encoding, window.encoding);
    EXPECT_NE(dialog.bytes.find("pertoire"), std::string::npos);
}

TEST_F(FileDialogInUtf8, AccentedNamesCanBeChosen) {
    const Names names{"caf\xc3\xa9.DAT", "plan.DAT"};
    for (const auto& name : names) put(name);
    for (const auto& name : names) {
        when_open(name, [&] { click_file(name); });
        script_.then("ok", [&] { accept(); });
        EXPECT_EQ(choose({}).names, (Names{name}));
    }
}

TEST_F(FileDialogInUtf8, AnAccentedProposalIsSelected) {
    put("plan.DAT");
    put("d\u00e9p\u00f4t/caf\u00e9.DAT");
    when_open("look", [&] {
        EXPECT_EQ(selected_items(part(XmDIALOG_LIST)), (Names{path("d\u00e9p\u00f4t/caf\u00e9.DAT")}));
        accept();
    });
    const Choice choice = choose({.directory = path("d\u00e9p\u00f4t"), .names = {"caf\u00e9.DAT"}});
    EXPECT_EQ(choice.names, (Names{"caf\u00e9.DAT"}));
}

// The bytes of the application's one-byte font.
TEST_F(FileDialogInUtf8, LatinLabelsAreWhole) {
    when_open("labels", [&] {
        EXPECT_EQ(text_resource(part(XmDIALOG_SELECTION_LABEL), XmNlabelString), "S\xe9lection");
        EXPECT_EQ(text_resource(part(XmDIALOG_DIR_LIST_LABEL), XmNlabelString), "R\xe9pertoires");
        EXPECT_EQ(font_of(part(XmDIALOG_DIR_LIST_LABEL)), fontstruct);
        cancel();
    });
    choose({});
}

} // namespace
