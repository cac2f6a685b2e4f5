// What is alive: counted, listed in the order of making, and what was not released at the end.
#include "grx_plus_diagnostic.h"
#include "grx_plus_erreurs.h"
#include "tests/display/menus/menu_kit.h"
#include "tests/support/controls.h"
#include "tests/support/stdout_capture.h"

#include "xt_loc_f.h"
#include "xt_msg_f.h"

#include <climits>
#include <cstring>
#include <regex>
#include <string>
#include <vector>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace {

using namespace grxtest;

GRX_INVENTAIRE counted() {
    GRX_INVENTAIRE inventory{};
    EXPECT_EQ(grx_init_inventaire(&inventory), 1);
    EXPECT_EQ(grx_recup_inventaire(&inventory), 1);
    return inventory;
}

class InventoryTest : public MenuTest {
  protected:
    // The list, without its heading and ranks.
    std::vector<std::string> listed() const {
        const std::string name = home().text() + "/alive.txt";
        std::filesystem::remove(name);
        EXPECT_EQ(grx_ecrit_inventaire(name.c_str()), 1);
        std::istringstream in(home().read("alive.txt"));
        std::vector<std::string> result;
        for (std::string line; std::getline(in, line);)
            if (line.rfind("--", 0) != 0) result.push_back(std::regex_replace(line, std::regex("^#\\d+ +"), ""));
        return result;
    }
};

using Lines = std::vector<std::string>;

INT make_control(INT type, INT window, const char* title, INT function) {
    GRX_BOUTON button = button_at(type, window, {10, 10, 80, 30});
    set_title(button, title);
    button.no_fo = function;
    grx_cree_bouton(&button);
    return button.nobou;
}

TEST_F(InventoryTest, IsEmptyAtFirst) {
    const GRX_INVENTAIRE all = counted();
    EXPECT_EQ(all.taille, static_cast<INT>(sizeof all));
    for (INT number : {all.nb_fenetres, all.nb_boutons, all.nb_images, all.nb_sauvegardes, all.nb_listes, all.nb_icones,
             all.nb_menus, all.nb_entrees})
        EXPECT_EQ(number, 0);
    EXPECT_EQ(listed(), Lines{});
}

TEST_F(InventoryTest, CountsEachKind) {
    main_window(example_menu);
    const INT graphic = make(GRX_FEN_GRAPHIQUE), board = make(GRX_FEN_BOUTONS);
    make_control(GRX_BOU_LABEL, board, "Width", 1);
    make_control(GRX_BOU_TEXTE, board, "", 2);
    ASSERT_TRUE(wait_visible(widget_of(graphic)));
    drain();
    EXPECT_EQ(grx_sauve_fenetre(graphic), 1);
    ENRICON icon{};
    std::snprintf(icon.nom_icon, sizeof icon.nom_icon, "wall");
    init_tab_icon();
    append_icon(icon);
    GRX_MSG message{};
    char first[] = "one", second[] = "two";
    char* choices[] = {first, second};
    grx_init_message(&message);
    message.fen_mere = board;
    message.nb_cara = 3;
    message.nb_deci = 2;
    message.choix = choices;
    EXPECT_NE(grx_cree_liste(&message), nullptr);
    GRX_INVENTAIRE all = counted();
    EXPECT_EQ(all.nb_fenetres, 3);
    EXPECT_EQ(all.nb_boutons, 2);
    EXPECT_EQ(all.nb_images, 1);
    EXPECT_EQ(all.nb_sauvegardes, 1);
    EXPECT_EQ(all.nb_listes, 1);
    EXPECT_EQ(all.nb_icones, 1);
    EXPECT_EQ(all.nb_menus, 3);
    EXPECT_EQ(all.nb_entrees, 6);
    desalloue_tab_icon();
    for (INT nofen = 1; nofen < MAXOBJETFEN; ++nofen)
        if (grx_recup_objet_fen(nofen) != nullptr) grx_detruit_fenetre(nofen);
    drain();
    all = counted();
    EXPECT_EQ(all.nb_fenetres + all.nb_images + all.nb_sauvegardes + all.nb_listes + all.nb_icones + all.nb_menus, 0);
    EXPECT_EQ(all.nb_boutons, 2) << "the application frees numbers whose window went";
}

TEST_F(InventoryTest, ListsNumberKindParentAndTitle) {
    GRX_FENETRE plan = described(GRX_FEN_GRAPHIQUE);
    std::snprintf(plan.titre, sizeof plan.titre, "Plan 1");
    const INT window = make(plan);
    const INT inner = make(nested_in(window, GRX_FEN_BOUTONS));
    make_control(GRX_BOU_LABEL, inner, "Width", 12);
    make_control(GRX_BOU_TEXTE, inner, "", 13);
    drain();
    EXPECT_EQ(listed(),
        (Lines{"window 1: graphic, \"Plan 1\", with a picture, shown", "window 2: board, in window 1, shown",
            "button 0: label, in window 2, \"Width\", function 12", "button 1: text, in window 2, function 13"}));
    grx_detruit_fenetre_fille(inner);
    drain();
    EXPECT_EQ(listed(), (Lines{"window 1: graphic, \"Plan 1\", with a picture, shown",
                            "button 0: label, in window 2, function 12, its window is gone",
                            "button 1: text, in window 2, function 13, its window is gone"}));
}

TEST_F(InventoryTest, ListsMenusInTheirOrder) {
    main_window(example_menu);
    const auto all = listed();
    const Lines menus(all.begin() + 1, all.end());
    EXPECT_EQ(
        menus, (Lines{"menu 1: in menu 2, \"Export\"", "menu 2: in menu 0, \"File\"", "menu 3: in menu 0, \"Help\"",
                   "menu entry 1: in menu 2, \"Open\"", "menu entry 2: in menu 2, \"Save\"", "menu entry 3: in menu 2",
                   "menu entry 4: in menu 1, \"DXF...\"", "menu entry 5: in menu 2, \"Quit\"",
                   "menu entry 6: in menu 3, \"About\""}));
}

TEST_F(InventoryTest, RanksFollowTheOrderOfMaking) {
    const INT first = make(GRX_FEN_ALPHA), second = make(GRX_FEN_ALPHA);
    const INT button = make_control(GRX_BOU_LABEL, second, "a", 1);
    EXPECT_LT(grx_recup_rang_fenetre(first), grx_recup_rang_fenetre(second));
    EXPECT_EQ(grx_recup_rang_bouton(button), grx_recup_rang_fenetre(second) + 1);
    grx_detruit_fenetre(first);
    drain();
    EXPECT_EQ(grx_recup_rang_fenetre(first), GRX_ECHEC_NUMERO);
    const INT again = make(GRX_FEN_ALPHA);
    ASSERT_EQ(again, first) << "the number is given out again";
    EXPECT_GT(grx_recup_rang_fenetre(again), grx_recup_rang_bouton(button));
    for (INT number : {-1, 0, 99, 100, INT_MAX, INT_MIN}) {
        EXPECT_EQ(grx_recup_rang_fenetre(number), GRX_ECHEC_NUMERO) << number;
        EXPECT_EQ(grx_recup_rang_bouton(number == 0 ? 500 : number), GRX_ECHEC_NUMERO) << number;
    }
}

TEST_F(InventoryTest, BadArgumentsAreRefused) {
    EXPECT_EQ(grx_init_inventaire(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_inventaire(nullptr), GRX_ECHEC_PARAMETRE);
    GRX_INVENTAIRE inventory{};
    EXPECT_EQ(grx_recup_inventaire(&inventory), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_ecrit_inventaire(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_ecrit_inventaire(""), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_ecrit_inventaire("/no/folder/list"), GRX_ECHEC_FICHIER);
    EXPECT_EQ(grx_ecrit_inventaire(std::string(100000, 'l').c_str()), GRX_ECHEC_FICHIER);
    EXPECT_EQ(grx_ecrit_inventaire("/dev/full"), GRX_ECHEC_FICHIER);
}

TEST_F(InventoryTest, ListingAsksTheServerNothing) {
    main_window(example_menu);
    Cost cost(x11_disp);
    listed();
    counted();
    EXPECT_EQ(cost.requests(), 0U);
    EXPECT_EQ(cost.round_trips(), 0U);
}

TEST_F(InventoryTest, LosesNoMemory) {
    main_window(example_menu);
    listed();
    const NoLeak no_leak;
    for (int i = 0; i < 500; ++i) {
        grx_ecrit_inventaire("/dev/null");
        counted();
    }
}

TEST_F(InventoryTest, LongTitlesAreCut) {
    GRX_FENETRE plan = described(GRX_FEN_ALPHA);
    std::memset(plan.titre, 'w', sizeof plan.titre);
    plan.titre[sizeof plan.titre - 1] = '\0';
    make(plan);
    const auto all = listed();
    ASSERT_EQ(all.size(), 1U);
    EXPECT_LT(all[0].size(), 200U);
    EXPECT_NE(all[0].find("\"wwww"), std::string::npos);
}

// --- at the end --------------------------------------------------------------------------------------------------------

class InventoryAtTheEnd : public XTest {
  protected:
    enum class Ending { Exit, FreeBases, CloseDisplay, Quiet };

    void run(const char* wanted, Ending ending, const std::string& printed) {
        EXPECT_EXIT(
            {
                if (wanted != nullptr) setenv("GRX_INVENTAIRE", wanted, 1);
                setenv("DISPLAY", server().name().c_str(), 1);
                if (ending == Ending::CloseDisplay) forgive_leaks();
                if (!start_up()) std::_Exit(3);
                const INT window = make(GRX_FEN_BOUTONS);
                make_control(GRX_BOU_LABEL, window, "Width", 12);
                finish(window, ending);
            },
            testing::ExitedWithCode(0), printed);
    }

    // When the display is closed under living windows, nobody can free any more what the toolkit keeps of them.
    static void forgive_leaks() {
#ifdef __SANITIZE_ADDRESS__
        __lsan_disable();
#endif
    }

    static void finish(INT window, Ending ending) {
        GRX_EVENEMENT event{};
        if (ending == Ending::Quiet) {
            grx_libere_indice_objet_bout(0);
            grx_detruit_fenetre(window);
            for (INT i = 0; i < 50; ++i) grx_digitaliseur(&event, 0);
        }
        if (ending == Ending::FreeBases) {
            grx_desalloue_base_boutons();
            grx_desalloue_base_fenetres();
        }
        if (ending == Ending::CloseDisplay) XtCloseDisplay(x11_disp);
        std::exit(0);
    }
};

TEST_F(InventoryAtTheEnd, NamesWhatWasNotReleased) {
    const std::string both = "^-- not released at the end, process [0-9]+\n#[0-9]+ +window 1: board.*\n#[0-9]+ +button "
                             "0: label, in window 1, "
                             "\"Width\", function 12\n$";
    run("1", Ending::Exit, both);
    run("1", Ending::CloseDisplay, both);
    run("1", Ending::Quiet, "^-- not released at the end, process [0-9]+\n$");
}

TEST_F(InventoryAtTheEnd, NamesWhatABaseStillHeld) {
    run("1", Ending::FreeBases,
        "^-- buttons when their base is freed, process [0-9]+\n#[0-9]+ +button 0: .*\n-- windows when their base is "
        "freed, "
        "process [0-9]+\n#[0-9]+ +window 1: .*\n-- not released at the end, process [0-9]+\n$");
}

TEST_F(InventoryAtTheEnd, IsSilentUnlessAskedFor) {
    run(nullptr, Ending::Exit, "^$");
    run("0", Ending::FreeBases, "^$");
    run("", Ending::Exit, "^$");
}

TEST_F(InventoryAtTheEnd, GoesToAFileAndSurvivesAbsurdOnes) {
    run((home().text() + "/left.txt").c_str(), Ending::Exit, "^$");
    EXPECT_NE(home().read("left.txt").find("button 0: label"), std::string::npos);
    for (const std::string& file : {std::string("/"), std::string("/dev/full"), std::string(100000, 'x')}) {
        SCOPED_TRACE(file.substr(0, 40));
        run(file.c_str(), Ending::Exit, "^$");
    }
}

} // namespace
