// Long runs: everything that opens is opened and closed with real clicks, for as long as GRX_SOAK_MINUTES says. From the
// hundredth round on nothing may grow: blocks of the host, descriptors, windows, pixmaps and contexts on the server;
// memory by no more than what the toolkit itself loses with the same widgets, which is measured beside it.
#include "tests/display/dialogs/dialog_kit.h"
#include "tests/display/panels/panel_kit.h"
#include "tests/support/descriptors.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <malloc.h>
#include <unistd.h>

namespace {

using namespace grxtest;

constexpr int kWarmRounds = 100;
constexpr int kLeastRounds = 2 * kWarmRounds;
constexpr INT kPanel = 1;
constexpr INT kListKey = 5;

Milliseconds time_for_each_story(int stories) {
    const char* const given = std::getenv("GRX_SOAK_MINUTES");
    const double minutes = given != nullptr ? std::atof(given) : 0;
    return Milliseconds(static_cast<long>(minutes * 60000 / stories));
}

long resident_kilobytes() {
    std::ifstream file("/proc/self/statm");
    long pages = 0, resident = 0;
    file >> pages >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

struct Sample {
    int round = 0;
    std::size_t blocks = 0, bytes = 0;
    long descriptors = 0, resident = 0;
    long in_use = 0; // bytes that malloc has given out
    std::map<std::string, unsigned> server;
};

using Make = Widget (*)(Widget, char*, ArgList, Cardinal);

class Soak : public Dialogs<DisplayTest> {
  protected:
    using Round = std::function<void()>;

    void before_start() override {
        Dialogs::before_start();
        write_menu("#:ZONE_MENU_BAR\n{\nPOPUP||&Fichier|\n{\nITEM||Ouvrir|Ctrl+O|201|\nITEM||Fermer||202|\n"
                   "POPUP||Autre|\n{\nITEM||Plus||203|\n}\n}\nPOPUP||Aide|\n{\nITEM||Sur||204|\n}\n}\n");
        for (int i = 0; i < 30; ++i) entries_.push_back("entry " + std::to_string(i));
        list_ = std::make_unique<HostList>(kListKey, entries_, std::vector<INT>{3});
    }

    void SetUp() override {
        Dialogs::SetUp();
        if (HasFatalFailure()) return;
        Tab_pan = nullptr;
        ASSERT_EQ(grx_alloue_base_items_panels(panel_count, panels_.table()), 0);
        put("a.DAT", "one\ntwo\n");
        put("B.DAT", "three\n");
        XtSetMultiClickTime(x11_disp, 1); // clicks that follow each other are no double clicks
    }

    // Runs `round` until the story's share of the time is over; what grew after the hundredth fails. `plain` makes the same
    // widgets and destroys them, without the library.
    void repeat(const Round& plain, const Round& round) {
        constexpr int stories = 12;
        const double lost = lost_in_a_round(plain);
        const auto share = time_for_each_story(stories);
        const auto start = Clock::now();
        Sample warm;
        int done = 0;
        for (; done < kLeastRounds || Clock::now() - start < share; ++done) {
            if (done == kWarmRounds) warm = sample(done);
            round();
            ASSERT_FALSE(HasFailure()) << "round " << done;
        }
        compare(warm, sample(done), lost);
    }

    // A window of the toolkit alone with what `fill` puts into its form, side by side: what is covered is not drawn.
    void plain_window(const std::function<void(Widget form)>& fill) {
        constexpr int columns = 8, width = 120, height = 100;
        Widget shell = XtVaAppCreateShell("plain", "Plain", topLevelShellWidgetClass, x11_disp, XmNwidth, 1000,
            XmNheight, 900, XmNallowShellResize, False, XmNvisual, x11_vis, XmNcolormap, x11_cmap, XmNdepth,
            grx_recup_profondeur_ecran(), nullptr);
        Widget form = XmCreateForm(shell, writable("form"), nullptr, 0);
        fill(form);
        int place = 0;
        for (Widget child : children_of(form)) {
            XtVaSetValues(child, XmNx, place % columns * width, XmNy, place / columns * height, nullptr);
            ++place;
        }
        XtManageChild(form);
        XtRealizeWidget(shell);
        EXPECT_TRUE(wait_visible(form));
        drain();
        XtDestroyWidget(shell);
        drain();
    }

    void plain_windows() {
        for (const Make make : {XmCreateBulletinBoard, XmCreateDrawingArea, XmCreateScrolledText, XmCreateForm,
                 XmCreateMessageBox, XmCreateForm})
            plain_window([make](Widget form) { XtManageChild(make(form, writable("kind"), nullptr, 0)); });
    }

    void close_window(INT nofen) {
        grx_detruit_fenetre(nofen);
        settle();
    }
    INT shown(INT kind, INT attrib = GRX_FEN_ATT_VISIBLE, INT width = 300, INT height = 200) {
        const INT nofen = make(kind, attrib, width, height);
        EXPECT_GT(nofen, 0);
        EXPECT_TRUE(wait_visible(widget_of(nofen)));
        settle();
        return nofen;
    }
    void ask_to_close_and_wait(INT nofen) {
        ask_to_close(test_display(), XtWindow(shell_of(nofen)));
        EXPECT_TRUE(wait_for([&] { return grx_recup_objet_fen(nofen) == nullptr; }));
        settle();
    }
    void click_window(INT nofen) {
        pointer().click_in(widget_of(nofen), 20, 20);
        EXPECT_TRUE(events.wait(GRX_EVT_BOUTON_RELACHE)) << events.describe();
    }

    Panels panels_;

  private:
    Sample sample(int round) {
        settle();
        Sample s;
        s.round = round;
        s.blocks = heap().blocks();
        s.bytes = heap().bytes();
        s.descriptors = open_descriptors();
        s.resident = resident_kilobytes();
        const auto info = mallinfo2();
        s.in_use = static_cast<long>(info.uordblks + info.hblkhd);
        s.server = server_resources(test_display(), XtWindow(XmGetXmDisplay(x11_disp)));
        return s;
    }

    double lost_in_a_round(const Round& plain) {
        for (int i = 0; i < kWarmRounds; ++i) plain();
        const long before = sample(0).in_use;
        for (int i = 0; i < kWarmRounds; ++i) plain();
        return static_cast<double>(sample(0).in_use - before) / kWarmRounds;
    }

    static void compare(const Sample& warm, const Sample& last, double lost) {
        constexpr double share = 1.25, slack = 300; // three redraws of a label more or less
        const long rounds = last.round - warm.round;
        const double kept = static_cast<double>(last.in_use - warm.in_use) / static_cast<double>(rounds);
        const double most = std::max(lost, 0.0) * share + slack;
        std::printf("%-20s %6d rounds, memory %ld KB at round %d, %ld KB at the end; kept of a round %.0f bytes, by "
                    "the toolkit "
                    "alone %.0f\n",
            testing::UnitTest::GetInstance()->current_test_info()->name(), last.round, warm.resident, warm.round,
            last.resident, kept, lost);
        EXPECT_EQ(last.blocks, warm.blocks);
        EXPECT_EQ(last.bytes, warm.bytes);
        EXPECT_EQ(last.descriptors, warm.descriptors);
        EXPECT_LE(kept, most);
        constexpr long spread = 1024; // kilobytes that the allocator holds ready
        EXPECT_LE(static_cast<double>(last.resident),
            static_cast<double>(warm.resident + spread + rounds) + most * static_cast<double>(rounds) / 1024);
        ASSERT_FALSE(last.server.empty());
        for (const auto& [kind, count] : last.server) {
            const auto before = warm.server.find(kind);
            EXPECT_LE(count, before != warm.server.end() ? before->second : 0U) << kind;
        }
    }

    std::vector<std::string> entries_;
    std::unique_ptr<HostList> list_;
};

// --- the same widgets without the library ----------------------------------------------------------------------------

void several(Widget parent, Make make, int count) {
    for (int i = 0; i < count; ++i) XtManageChild(make(parent, writable("several"), nullptr, 0));
}

// Each redraw of a gadget, as titles are, costs the toolkit a drawing context of its fonts.
void plain_scales(Widget form, int count) {
    XmString title = XmStringCreateLocalized(writable("title"));
    Arg args[2];
    XtSetArg(args[0], const_cast<char*>(XmNtitleString), title);
    XtSetArg(args[1], const_cast<char*>(XmNshowValue), True);
    for (int i = 0; i < count; ++i) XtManageChild(XmCreateScale(form, writable("scale"), args, 2));
    XmStringFree(title);
}

void plain_choice(Widget form) {
    Widget menu = XmCreatePulldownMenu(form, writable("menu"), nullptr, 0);
    several(menu, XmCreatePushButton, 3);
    Arg arg;
    XtSetArg(arg, const_cast<char*>(XmNsubMenuId), menu);
    XtManageChild(XmCreateOptionMenu(form, writable("choice"), &arg, 1));
}

void plain_list(Widget form) {
    Widget list = XmCreateScrolledList(form, writable("list"), nullptr, 0);
    for (int i = 0; i < 30; ++i) {
        XmString entry = XmStringCreateLocalized(writable("entry"));
        XmListAddItemUnselected(list, entry, 0);
        XmStringFree(entry);
    }
    XtManageChild(list);
}

void plain_controls(Widget form) {
    for (const Make make :
        {XmCreateDrawnButton, XmCreateDrawnButton, XmCreateToggleButton, XmCreatePushButton, XmCreateDrawnButton,
            XmCreateArrowButton, XmCreateLabel, XmCreateTextField, XmCreateScrolledText, XmCreateScrolledList,
            XmCreateScrolledList, XmCreatePushButton, XmCreateSeparator, XmCreateDrawingArea, XmCreateDrawnButton})
        several(form, make, 1);
    plain_scales(form, 1);
}

void plain_panel(Widget form) {
    several(form, XmCreateTextField, 4);
    several(form, XmCreateLabel, 20);
    several(form, XmCreateDrawnButton, 10);
    plain_scales(form, 2);
    several(form, XmCreateSeparator, 4);
    for (int i = 0; i < 2; ++i) {
        plain_choice(form);
        plain_list(form);
        Widget frame = XmCreateForm(form, writable("around"), nullptr, 0);
        Widget radio = XmCreateRadioBox(frame, writable("radio"), nullptr, 0);
        several(radio, XmCreateToggleButton, 3);
        XtManageChild(radio);
        XtManageChild(frame);
    }
}

void plain_selection(Widget form) {
    plain_list(form);
    several(form, XmCreateLabel, 4);
    several(form, XmCreateTextField, 4);
    several(form, XmCreateDrawnButton, 2);
}

void plain_scrolled(Widget form) {
    for (const Make make : {XmCreateBulletinBoard, XmCreateDrawingArea, XmCreateForm}) {
        Arg arg;
        XtSetArg(arg, const_cast<char*>(XmNscrollingPolicy), XmAUTOMATIC);
        Widget scrolled = XmCreateScrolledWindow(form, writable("scrolled"), &arg, 1);
        several(scrolled, make, 1);
        XtManageChild(scrolled);
    }
    several(form, XmCreateScrolledText, 1);
}

void plain_menus(Widget form) {
    Widget bar = XmCreateMenuBar(form, writable("bar"), nullptr, 0);
    for (int i = 0; i < 3; ++i) {
        Widget menu = XmCreatePulldownMenu(bar, writable("menu"), nullptr, 0);
        several(menu, XmCreatePushButton, 2);
        Arg arg;
        XtSetArg(arg, const_cast<char*>(XmNsubMenuId), menu);
        XtManageChild(XmCreateCascadeButton(bar, writable("title"), &arg, 1));
    }
    XtManageChild(bar);
}

void plain_file_box(Widget form) {
    XtManageChild(XmCreateFileSelectionBox(form, writable("files"), nullptr, 0));
    plain_choice(form);
}

void plain_editor(Widget form) {
    plain_menus(form);
    several(form, XmCreateScrolledText, 1);
}

// --- the stories ------------------------------------------------------------------------------------------------------

TEST_F(Soak, WindowsOfEveryKind) {
    repeat([this] { plain_windows(); },
        [this] {
            for (const INT kind : all_kinds) {
                const INT nofen = shown(kind);
                if (kind != GRX_FEN_MESSAGE && kind != GRX_FEN_TEXTE) click_window(nofen);
                kind % 2 == 0 ? close_window(nofen) : ask_to_close_and_wait(nofen);
            }
        });
}

TEST_F(Soak, WindowsInWindows) {
    const INT around = shown(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
    repeat([this] { plain_window(plain_scrolled); },
        [&] {
            for (const INT kind : {GRX_FEN_BOUTONS, GRX_FEN_GRAPHIQUE, GRX_FEN_TEXTE, GRX_FEN_ALPHA}) {
                GRX_FENETRE record = nested_in(around, kind, 10, 10, 200, 150);
                record.attrib |= GRX_FEN_ATT_SCROLL;
                const INT nofen = make(record);
                EXPECT_TRUE(wait_visible(widget_of(nofen)));
                grx_detruit_fenetre_fille(nofen);
                settle();
            }
        });
}

TEST_F(Soak, ControlsOfEveryKind) {
    repeat([this] { plain_window(plain_controls); },
        [this] {
            const INT nofen = shown(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 700, 600);
            std::vector<INT> made;
            for (std::size_t i = 0; i < control_kinds.size(); ++i) {
                GRX_BOUTON description = control_of(control_kinds[i], nofen);
                description.x = static_cast<INT>(10 + i % 4 * 170);
                description.y = static_cast<INT>(10 + i / 4 * 140);
                made.push_back(grxtest::make(description));
            }
            EXPECT_TRUE(wait_visible(control(made.back())));
            for (const INT nobou : made) {
                pointer().click_in(control(nobou), 12, 12);
                drain();
            }
            for (const INT nobou : made) grx_detruit_bouton(nobou);
            close_window(nofen);
        });
}

TEST_F(Soak, Panels) {
    constexpr std::array<INT, 10> kinds{10, 20, 21, 31, 32, 22, 70, 81, 90, 100};
    repeat([this] { plain_window(plain_panel); },
        [&] {
            const INT nofen = shown(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 800, 700);
            for (INT item = 0; item < 20; ++item) {
                GRX_MSG message{};
                grx_init_message(&message);
                message.type = kinds[static_cast<std::size_t>(item) % kinds.size()];
                message.clef = message.type == 70 ? kListKey : item;
                message.fen_mere = nofen;
                message.nobou = kPanel;
                message.prebou = item;
                message.nb_cara = message.largeur = message.hauteur = 5;
                message.x = 100 + item % 4 * 150;
                message.y = item / 4 * 100;
                std::strcpy(message.titre, "Title-one-two-three");
                EXPECT_EQ(grx_cree_item(&message), 0);
            }
            const INT first = button_of(kPanel, 1, 0);
            EXPECT_TRUE(wait_visible(control(first)));
            pointer().click_in(control(first), 5, 5);
            drain();
            grx_supprime_items(kPanel);
            grx_supprime_item_liste(kPanel, kListKey);
            close_window(nofen);
        });
}

TEST_F(Soak, Palette) {
    char title[256] = "Palette";
    repeat([this] { plain_window([](Widget form) { plain_scales(form, 6); }); },
        [&] {
            grx_affiche_fenetre_modif_palette_couleurs(0, 0, title, main_);
            const INT nofen = grx_recup_no_fenetre_modif_palette();
            EXPECT_TRUE(wait_visible(control(Bou_reset)));
            pointer().click_in(control(Bou_reset));
            EXPECT_TRUE(events.wait(GRX_EVT_EXEC_FONCTION)) << events.describe();
            grx_gere_action_modif_palette(events.seen().back());
            grx_detruit_fenetre_modif_palette_couleurs();
            EXPECT_TRUE(wait_for([&] { return grx_recup_objet_fen(nofen) == nullptr; }));
            for (const GRX_EVENEMENT& e : events.seen()) grx_gere_action_modif_palette(e);
            settle();
        });
}

TEST_F(Soak, MenuChoices) {
    repeat([this] { plain_window([](Widget) {}); },
        [this] {
            const Widget cascade = children_of(grx_get_Glob_menu_bar()).at(0);
            pointer().click_in(cascade);
            const Widget entry = widget_called("atome");
            EXPECT_TRUE(wait_visible(entry));
            drain();
            pointer().click_in(entry);
            EXPECT_TRUE(events.wait(GRX_EVT_BOUTON_APPUI)) << events.describe();
            EXPECT_TRUE(wait_for([&] { return !is_viewable(entry); }));
            settle();
        });
}

TEST_F(Soak, MenuBarsRebuilt) {
    repeat([this] { plain_window(plain_menus); },
        [this] {
            grx_detruit_menu_bar();
            grx_recree_menu_bar();
            settle();
            EXPECT_NE(widget_called("atome"), nullptr);
        });
}

TEST_F(Soak, FileDialogs) {
    HostFilters filters(std::vector<Filter>{{"Plans", "DAT"}});
    repeat([this] { plain_window(plain_file_box); },
        [&] {
            HostFiles proposed(files_.text(), {}), chosen;
            SCATAL catalogue{};
            catalogue.titre = host_text("Choose");
            catalogue.type_operation = HOST_CATAL_LECTURE;
            INT err = 0;
            script_.when(
                "the file dialog", [this] { return file_box() != nullptr; },
                [this] { click_item(part(XmDIALOG_LIST), path("a.DAT")); });
            script_.then("OK", [this] { press(XmDIALOG_OK_BUTTON); });
            const INT result = script_.run([&] {
                return select_fichier_x11(catalogue, proposed.record(), filters.record(), &chosen.record(), &err);
            });
            EXPECT_EQ(result, 1);
            grxtest::release(catalogue.titre);
            settle();
        });
}

TEST_F(Soak, ReplaceQuestions) {
    HostFilters filters(std::vector<Filter>{{"Plans", "DAT"}});
    repeat(
        [this] {
            plain_window([](Widget form) {
                plain_file_box(form);
                several(form, XmCreateMessageBox, 1);
            });
        },
        [&] {
            HostFiles proposed(files_.text(), {}), chosen;
            SCATAL catalogue{};
            catalogue.titre = host_text("Write");
            catalogue.type_operation = HOST_CATAL_ECRITURE;
            INT err = 0;
            script_.when(
                "the file dialog", [this] { return file_box() != nullptr; },
                [this] { click_item(part(XmDIALOG_LIST), path("B.DAT")); });
            script_.then("OK", [this] { press(XmDIALOG_OK_BUTTON); });
            script_.when(
                "the question", [this] { return question_box() != nullptr; },
                [this] { click(XmMessageBoxGetChild(question_box(), XmDIALOG_OK_BUTTON)); });
            script_.run([&] {
                return select_fichier_x11(catalogue, proposed.record(), filters.record(), &chosen.record(), &err);
            });
            EXPECT_EQ(chosen.names().size(), 1U);
            grxtest::release(catalogue.titre);
            settle();
        });
}

TEST_F(Soak, DirectoryDialogs) {
    repeat([this] { plain_window(plain_file_box); },
        [this] {
            char title[] = "Where to";
            char directory[GRX_CHEMIN_DIALOGUE_MAX] = "";
            std::snprintf(directory, sizeof directory, "%s", files_.text().c_str());
            script_.when(
                "the directory dialog", [this] { return file_box() != nullptr; },
                [this] { press(XmDIALOG_OK_BUTTON); });
            EXPECT_EQ(script_.run([&] { return select_repertoire_x11(title, directory); }), 1);
            settle();
        });
}

TEST_F(Soak, Editor) {
    repeat([this] { plain_window(plain_editor); },
        [this] {
            std::string directory = files_.text(), name = "a.DAT";
            EXPECT_EQ(grx_debut_editeur(), 1);
            EXPECT_EQ(grx_editeur(), 0);
            EXPECT_TRUE(wait_visible(widget_called("Editeur")));
            EXPECT_EQ(grx_file_editeur(directory.data(), name.data()), 0);
            drain();
            pointer().click_in(widget_called("text"), 40, 10);
            keyboard().type("x");
            EXPECT_TRUE(wait_for([] { return field_text(widget_called("text")).find('x') != std::string::npos; }));
            grx_fin_editeur();
            settle();
        });
}

TEST_F(Soak, SelectionPanel) {
    PANEL& panel = panels_[GRX_PANNEAU_SELECTION];
    panel.nb_items = 8;
    panel.tx = 420;
    panel.ty = 300;
    panel.tab_items[0].type = 70;
    repeat([this] { plain_window(plain_selection); },
        [&] {
            EXPECT_EQ(grx_affiche_panel_selection(), 0);
            EXPECT_TRUE(wait_visible(widget_of(panel.nofen)));
            click_window(panel.nofen);
            grx_supprime_items(GRX_PANNEAU_SELECTION);
            grx_supprime_item_liste(GRX_PANNEAU_SELECTION, kListKey);
            close_window(panel.nofen);
        });
}

} // namespace
