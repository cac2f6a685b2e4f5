// Every exported function with hostile arguments: extreme and negative numbers, null pointers, over-long and unterminated
// texts; without a display, after start-up, and with a live window of each kind. A table names every function; a new
// export without a row fails.
#include "grx_plus_diagnostic.h"
#include "tests/display/hostile/hostile_rows.h"
#include "tests/support/stdout_capture.h"

#include "grx_plus_session.h"

#include <algorithm>
#include <array>
#include <climits>
#include <fstream>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace {

using namespace grxtest;
using namespace grxtest::hostile;

// Globals among the exports.
const std::set<std::string> globals{"Bleu", "Bou_h", "Bou_l", "Bou_reset", "Bou_s", "Couleur_active", "Liste_btn",
    "MAXOBJETFEN", "Nb_item", "Nb_pan", "No_fen_mod_coul", "Rouge", "Tab_liste", "Tab_pan", "Vert", "adr_icones",
    "chnListBaud", "chnListDataBits", "chnListPortParallele", "chnListPortSerie", "chnListQueueReseau",
    "chnListStopBits", "contexte", "dec_blue", "dec_green", "dec_red", "evt_global", "fontlist", "fontstruct", "g_c",
    "gc", "hau_ecran", "hau_ecran_mm", "hls_glob", "lar_ecran", "lar_ecran_mm", "memo_filename", "memo_rvb", "nbQueue",
    "nbr_xpel_crt", "nbr_ypel_crt", "palette_icone", "palette_reserve", "palette_trace", "prof_24", "profondeur_ecran",
    "rvb_glob", "trace_pix", "vtemp", "x11_cmap", "x11_disp", "x11_screen", "x11_vis"};

template <class Tables = std::initializer_list<std::span<const Row>>>
std::vector<Row> joined(const Tables& tables) {
    std::vector<Row> all;
    for (const auto& table : tables) all.insert(all.end(), table.begin(), table.end());
    return all;
}

// --- the table is whole -------------------------------------------------------------------------------------------------------

std::set<std::string> names_of(const std::string& file) {
    std::ifstream in(std::string(GRX_TEST_DATA) + "/../../cmake/symbols/" + file);
    std::set<std::string> names;
    for (std::string name; in >> name;) names.insert(name);
    return names;
}

void expect_whole(const std::set<std::string>& exported, const std::vector<Row>& table) {
    std::set<std::string> named;
    for (const Row& row : table) {
        EXPECT_TRUE(named.insert(row.name).second) << row.name << " twice";
        EXPECT_TRUE(exported.contains(row.name)) << row.name << " is not exported";
    }
    for (const std::string& name : exported)
        EXPECT_TRUE(named.contains(name) || globals.contains(name)) << name << " has no row";
}

TEST(HostileTableOn24, NamesEveryExport) {
    const auto exported = names_of("GRX_1.0.txt");
    ASSERT_GT(exported.size(), 500U);
    expect_whole(exported, joined({plain_rows(), own_rows(), early_rows(), last_rows()}));
}

TEST(HostileTableOn24, NamesEveryAddition) {
    const auto exported = names_of("GRX_1.1.txt");
    ASSERT_GT(exported.size(), 100U);
    expect_whole(exported, joined({joined(rows_of_additions()), ending_rows()}));
}

TEST(HostileTableOn24, NamesEveryFunctionOfThePaper) {
    expect_whole(names_of("GRXPAPIER_1.1.txt"), joined({paper_rows()}));
}

// Kinds of the controls 0, 1 ... beside live windows; list_number knows which is the list.
constexpr std::array control_kinds{GRX_BOU_LABEL, GRX_BOU_TEXTE, GRX_BOU_LISTE, GRX_BOU_BASCULE};

// --- the calls ------------------------------------------------------------------------------------------------------------------

class Hostile : public XTest {
  protected:
    void SetUp() override {
        XTest::SetUp();
        permit_x_errors(); // the library swallows them; what is asked for here is often impossible
        write_menu("");
        bench_->folder = home().text() + "/";
    }

    void start() { ASSERT_TRUE(start_up()); }

    // A window of each kind, a main window, a child, a nested one, and two controls.
    void ensure_windows() {
        if (!windows_) return;
        for (INT kind : all_kinds) ensure_kind(kind);
        if (!live_form()) return;
        for (INT n = 0; n < static_cast<INT>(control_kinds.size()); ++n) {
            if (grx_recup_objet_bout(n)) continue;
            GRX_BOUTON button{};
            grx_init_bouton(&button);
            button.type = control_kinds[static_cast<std::size_t>(n)];
            button.ref_fen_mere = live_form();
            grx_cree_bouton(&button);
        }
    }

    void call_all(std::span<const Row> table) {
        for (const Row& row : table) {
            ensure_windows();
            if (windows_ && !all_kinds_live()) without_windows_.push_back(row.name);
            call(row);
            settle();
        }
    }

    // The functions of the additions, in both halves.
    void call_additions() {
        for (const auto rows : rows_of_additions()) call_all(rows);
        call_all(paper_rows());
    }

    static bool all_kinds_live() {
        std::set<INT> kinds;
        for (INT n = 1; n < 30; ++n)
            if (grx_recup_objet_fen(n)) kinds.insert(record_of(n).type);
        return std::ranges::all_of(all_kinds, [&](INT kind) { return kinds.contains(kind); });
    }

    unsigned rounds_ = UINT_MAX; // of each row at most
    bool windows_ = false;
    std::vector<std::string> without_windows_; // rows that were to run beside live windows and did not

  private:
    static void ensure_kind(INT kind) {
        for (INT n = 1; n < 30; ++n)
            if (grx_recup_objet_fen(n) && record_of(n).type == kind) return;
        GRX_FENETRE window = described(kind, GRX_FEN_ATT_VISIBLE, 120, 90);
        if (kind == GRX_FEN_BOUTONS) window.attrib |= GRX_FEN_ATT_PRINCIPALE;
        if (kind == GRX_FEN_MENU) window.attrib |= GRX_FEN_ATT_SCROLL;
        grx_cree_fenetre(&window);
    }

    void call(const Row& row) {
        std::set<long long> wrong;
        {
            const StdoutCapture silence;
            for (unsigned n = 0; n < std::min(row.times, rounds_); ++n) {
                const Answer answer = row.call(*bench_, n);
                if (answer && !row.answers.permit(*answer)) wrong.insert(*answer);
                remove_new_windows();
            }
        }
        EXPECT_TRUE(wrong.empty()) << row.name << " gives " << testing::PrintToString(wrong);
    }

    // Rows that make windows do not fill the base.
    static void remove_new_windows() {
        for (INT n = 10; n < MAXOBJETFEN && n <= grx_recup_max_objet(); ++n)
            if (grx_recup_objet_fen(n)) grx_detruit_fenetre(n);
    }

    void settle() {
        if (!x11_disp) return;
        const StdoutCapture silence;
        XSync(x11_disp, False);
        GRX_EVENEMENT event{};
        for (int i = 0; i < 2000 && XtAppPending(contexte); ++i) grx_digitaliseur(&event, 0);
    }

    std::unique_ptr<Bench> bench_ = std::make_unique<Bench>();
};

TEST_F(Hostile, WithoutDisplay) {
    unsetenv("DISPLAY");
    call_all(joined({plain_rows(), own_rows(), early_rows()}));
    EXPECT_EQ(x11_disp, nullptr);
}

TEST_F(Hostile, WithoutDisplayWithBases) {
    unsetenv("DISPLAY");
    ASSERT_EQ(grx_alloue_base_fenetres(), 0);
    ASSERT_EQ(grx_alloue_base_boutons(), 0);
    call_all(joined({plain_rows(), own_rows(), early_rows(), last_rows()}));
    EXPECT_EQ(x11_disp, nullptr);
}

TEST_F(Hostile, AfterStartUp) {
    start();
    call_all(joined({plain_rows(), own_rows()}));
}

TEST_F(Hostile, AfterStartUpWithATrace) {
    start();
    ASSERT_EQ(grx_ouvre_journal("/dev/null", 0), 1);
    rounds_ = 1; // a line for most calls takes its time
    call_all(joined({plain_rows(), own_rows()}));
    EXPECT_EQ(grx_ferme_journal(), 1);
}

TEST_F(Hostile, WithLiveWindows) {
    start();
    windows_ = true;
    call_all(joined({plain_rows(), own_rows()}));
    EXPECT_TRUE(without_windows_.empty()) << testing::PrintToString(without_windows_);
    windows_ = false;
    call_all(last_rows());
}

TEST_F(Hostile, AfterTheEnd) {
    start();
    windows_ = true;
    call_all(own_rows());
    windows_ = false;
    ASSERT_EQ(grx_termine_application(), 1);
    unsetenv("DISPLAY");
    call_all(joined({plain_rows(), own_rows(), early_rows()}));
    EXPECT_EQ(x11_disp, nullptr);
    EXPECT_EQ(grx_termine_application(), 1);
}

TEST_F(Hostile, AdditionsWithoutDisplay) {
    unsetenv("DISPLAY");
    call_additions();
    call_all(early_rows());
    call_additions();
    EXPECT_EQ(x11_disp, nullptr);
    call_all(ending_rows());
}

TEST_F(Hostile, AdditionsAfterStartUp) {
    start();
    call_additions();
    call_all(ending_rows());
    EXPECT_EQ(x11_disp, nullptr);
}

TEST_F(Hostile, AdditionsAfterStartUpWithATrace) {
    start();
    ASSERT_EQ(grx_ouvre_journal("/dev/null", 0), 1);
    rounds_ = 6; // each line takes its time
    call_additions();
    EXPECT_EQ(grx_ferme_journal(), 1);
}

TEST_F(Hostile, AdditionsWithLiveWindows) {
    start();
    windows_ = true;
    call_additions();
    EXPECT_TRUE(without_windows_.empty()) << testing::PrintToString(without_windows_);
    windows_ = false;
    for (INT n = 0; n < GRX_NB_BOUTONS; ++n) grx_detruit_bouton(n);
    for (INT n = 1; n < MAXOBJETFEN; ++n) grx_detruit_fenetre(n);
    call_additions(); // their numbers name what is gone
    call_all(ending_rows());
    EXPECT_EQ(x11_disp, nullptr);
}

TEST_F(Hostile, AdditionsAfterTheEnd) {
    start();
    windows_ = true;
    call_additions();
    windows_ = false;
    ASSERT_EQ(grx_termine_application(), 1);
    unsetenv("DISPLAY");
    call_additions();
    call_all(early_rows());
    EXPECT_EQ(x11_disp, nullptr);
    EXPECT_EQ(grx_termine_application(), 1);
}

TEST_F(Hostile, TheLibraryStillWorksAfterwards) {
    start();
    windows_ = true;
    call_all(own_rows());
    call_additions();
    for (INT n = 1; n < MAXOBJETFEN; ++n) grx_detruit_fenetre(n);
    const INT window = make(GRX_FEN_ALPHA);
    ASSERT_GT(window, 0);
    Events events;
    events.drain();
    pointer().click_in(widget_of(window), 30, 40);
    EXPECT_TRUE(events.wait(GRX_EVT_BOUTON_APPUI)) << events.describe();
}

} // namespace
