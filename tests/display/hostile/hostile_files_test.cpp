// Hostile arguments for the file dialogs and the editor while they are really on the screen: extreme records, over-long
// texts, null pointers, and every callback called with nothing.
#include "tests/display/dialogs/dialog_kit.h"

#include "tests/support/host_calls.h"

#include <climits>
#include <cstring>

namespace {

using namespace grxtest;

constexpr std::size_t long_text = 5000;

std::vector<std::string> hostile_texts() {
    return {"", "/", "no/such/thing", std::string(long_text, 'x'), "/" + std::string(long_text, 'y') + "/z",
        "%s%n%d|#&'\"`id`", std::string(255, '\xE9'), "\n\t\r", "-", " -  - "};
}

class HostileFiles : public Dialogs<DisplayTest> {
  protected:
    void SetUp() override {
        Dialogs<DisplayTest>::SetUp();
        permit_x_errors(); // the library swallows them; what is asked for here is often impossible
    }

    void cancel_when_open() {
        script_.when(
            "dialog", [this] { return file_box() != nullptr; },
            [this] {
                for (std::size_t length : {0U, 1U, 999U, 1000U, 5000U}) {
                    XmTextFieldSetString(part(XmDIALOG_TEXT), std::string(length, '/').data());
                    XtCallActionProc(part(XmDIALOG_TEXT), "activate", nullptr, nullptr, 0);
                    if (!file_box()) return;
                }
                XtUnmanageChild(file_box());
            });
    }

    STRING text(std::string& of) { return {of.data(), -1, INT_MAX}; } // only str is read
};

TEST_F(HostileFiles, SelectFichier) {
    for (const auto& value : hostile_texts()) {
        std::string copy = value;
        std::vector<STRING> many(40, text(copy));
        for (const INT2 count : {INT2{1}, INT2{40}, INT2{-1}, INT2{-32768}}) {
            SCATAL catalogue{text(copy), text(copy), text(copy), -1, 32767, count};
            SFICHIER proposed{text(copy), many.data(), count};
            SFILTRE filters{many.data(), many.data(), count};
            HostFiles chosen;
            INT err = 77;
            cancel_when_open();
            const INT result =
                script_.run([&] { return select_fichier_x11(catalogue, proposed, filters, &chosen.record(), &err); });
            EXPECT_TRUE(result == 0 || result == 1);
            EXPECT_EQ(result == 0, err == 77);
            EXPECT_EQ(copy, value) << "the application's texts are its own";
        }
    }
    SCATAL nothing{};
    cancel_when_open();
    EXPECT_EQ(script_.run([&] {
        return select_fichier_x11(nothing, {}, {nullptr, nullptr, 20}, nullptr, nullptr);
    }),
        0);
    EXPECT_EQ(heap().damage(), "");
}

TEST_F(HostileFiles, NoPathIsAskedForThatHasNoRoom) {
    constexpr std::size_t room = HOST_CHEMIN_MAX;
    LongestPath longest;
    for (const std::size_t length : {room / 2 - 2, room / 2 - 1, room / 2, room - 1, room}) {
        std::string directory(length, 'd'), name(length, 'n');
        STRING names[] = {text(name)};
        cancel_when_open();
        script_.run([&] { return select_fichier_x11({}, {text(directory), names, 1}, {}, nullptr, nullptr); });
        ASSERT_EQ(grx_debut_editeur(), 1);
        grx_editeur();
        grx_file_editeur(directory.data(), name.data());
        drain();
        grx_fin_editeur();
        drain();
    }
    EXPECT_EQ(longest.bytes, room) << "all that has room is asked for";
}

TEST_F(HostileFiles, AnAcceptedFileWithNowhereToPutIt) {
    put("a");
    script_.when(
        "dialog", [this] { return file_box() != nullptr; },
        [this] {
            XmTextFieldSetString(part(XmDIALOG_TEXT), path("a").data());
            press(XmDIALOG_OK_BUTTON);
        });
    EXPECT_EQ(script_.run([&] { return select_fichier_x11({}, {}, {}, nullptr, nullptr); }), 0);
}

TEST_F(HostileFiles, SelectRepertoire) {
    for (const auto& value : hostile_texts()) {
        std::string title = value;
        std::vector<char> directory(std::max<std::size_t>(value.size() + 1, GRX_CHEMIN_DIALOGUE_MAX), '\0');
        value.copy(directory.data(), value.size());
        cancel_when_open();
        const INT result = script_.run([&] { return select_repertoire_x11(title.data(), directory.data()); });
        if (result == 0) {
            EXPECT_STREQ(directory.data(), value.c_str());
        }
    }
    cancel_when_open();
    const INT result = script_.run([] { return select_repertoire_x11(nullptr, nullptr); });
    EXPECT_TRUE(result == 0 || result == 1);
    EXPECT_EQ(heap().damage(), "");
}

TEST_F(HostileFiles, Preview) {
    Widget main = widget_of(main_);
    for (auto value : hostile_texts()) {
        std::vector<char> image(HOST_CHEMIN_MAX + 1, '#');
        EXPECT_EQ(recup_bitmap_fichier(value.data(), image.data()), 0);
        EXPECT_EQ(image.back(), '#') << "within its room";
        affiche_bitmap_fichier(value.data(), main);
        affiche_bitmap_fichier(value.data(), shell_of(main_));
        affiche_bitmap_fichier(value.data(), nullptr);
    }
    affiche_bitmap_fichier(nullptr, main);
    EXPECT_EQ(recup_bitmap_fichier(nullptr, nullptr), 0);
    std::string name = "a";
    EXPECT_EQ(recup_bitmap_fichier(name.data(), nullptr), 0);
    XmListCallbackStruct call{};
    grx_element_fileliste_clique(nullptr, nullptr, nullptr);
    grx_element_fileliste_clique(main, main, nullptr);
    grx_element_fileliste_clique(main, nullptr, &call);
    grx_element_fileliste_clique(main, main, &call);
    drain();
    EXPECT_TRUE(visible(XtWindow(main)));
}

TEST_F(HostileFiles, Editor) {
    for (auto value : hostile_texts()) {
        ASSERT_EQ(grx_debut_editeur(), 1);
        EXPECT_EQ(grx_file_editeur(value.data(), value.data()), 0) << "no window yet";
        EXPECT_EQ(grx_editeur(), 0);
        drain();
        EXPECT_EQ(grx_file_editeur(value.data(), value.data()), 0);
        EXPECT_EQ(grx_file_editeur(nullptr, value.data()), 0);
        EXPECT_EQ(grx_file_editeur(value.data(), nullptr), 0);
        EXPECT_EQ(grx_file_editeur(nullptr, nullptr), 0);
        drain();
        Widget text = widget_called("text");
        ASSERT_NE(text, nullptr);
        EXPECT_FALSE(XtIsSensitive(text)) << "none of them is a file";
        EXPECT_EQ(grx_fin_editeur(), 1);
        drain();
    }
    grx_editeur_est_detruit(nullptr, nullptr, nullptr);
    EXPECT_EQ(grx_fin_editeur(), 0);
    EXPECT_EQ(grx_file_editeur_bloquant(nullptr, nullptr), 0) << "no editor";
}

TEST_F(HostileFiles, BlockingEditor) {
    for (const auto& value : hostile_texts()) {
        std::vector<char> adr(long_text + 10, '\0'), name(long_text + 10, '\0');
        value.copy(adr.data(), value.size());
        value.copy(name.data(), value.size());
        ASSERT_EQ(grx_debut_editeur(), 1);
        grx_editeur();
        script_.when(
            "open", [] { return is_viewable(widget_called("text")); }, [] { grx_fin_editeur(); });
        EXPECT_EQ(script_.run([&] { return grx_file_editeur_bloquant(adr.data(), name.data()); }), 0);
        EXPECT_STREQ(adr.data(), value.c_str());
        EXPECT_STREQ(name.data(), value.c_str());
    }
    ASSERT_EQ(grx_debut_editeur(), 1);
    grx_editeur();
    script_.when(
        "open", [] { return is_viewable(widget_called("text")); }, [] { grx_fin_editeur(); });
    EXPECT_EQ(script_.run([&] { return grx_file_editeur_bloquant(nullptr, nullptr); }), 0);
}

} // namespace
