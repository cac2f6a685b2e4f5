// Every function of panels and panel lists with hostile arguments, while panels, lists and a window are there: numbers and
// keys far outside, records full of extremes, texts that do not end, tables that shrink meanwhile.
#include "tests/display/panels/panel_kit.h"
#include "tests/support/stdout_capture.h"

#include <climits>
#include <functional>
#include <set>

namespace {

using namespace grxtest;

constexpr std::array<INT, 19> numbers{
    INT_MIN, INT_MIN + 1, -55001, -2, -1, 0, 1, 2, 3, 7, 8, 44, 45, 254, 255, 1000, 65536, INT_MAX - 55900, INT_MAX};
constexpr unsigned rounds = 400;

INT number(unsigned n) {
    return numbers[n % numbers.size()];
}

// Nothing or one of several texts, the longest without an end.
char* text(std::array<char, 6000>& room, unsigned n) {
    room.fill('-');
    const std::array<std::string, 4> texts{"", "@", "Units-@no/such/thing-%s%n", std::string(5999, '\xE9')};
    if (n % 5 == 0) return nullptr;
    const std::string& chosen = texts[n % texts.size()];
    std::copy(chosen.begin(), chosen.end(), room.begin());
    room[chosen.size()] = '\0';
    return room.data();
}

GRX_MSG hostile_record(unsigned n, INT window) {
    GRX_MSG record{};
    std::fill(std::begin(record.titre), std::end(record.titre), "-@ x"[n % 4]);
    std::fill(std::begin(record.cval), std::end(record.cval), '\xE9');
    record.clef = number(n);
    record.x = number(n / 3);
    record.y = number(n / 5 + 1);
    record.type = n % 3 ? static_cast<INT>(n % 120) : number(n + 2);
    record.ival = number(n + 3);
    record.rval = n % 2 ? 1e308 : -0.0;
    record.largeur = n % 4 ? number(n + 4) : 5;
    record.hauteur = n % 4 ? number(n + 6) % 3000 : 5; // one of the two at most: the server has limits
    if (record.largeur > 3000) record.largeur = n % 2 ? record.largeur : 20;
    record.attribut = number(n + 5);
    record.couleur = number(n + 7);
    record.nb_cara = n % 2 ? number(n + 8) : 4;
    record.nb_deci = number(n + 9);
    record.fen_mere = n % 5 ? window : number(n);
    record.nobou = n % 3 ? static_cast<INT>(n % panel_count) : number(n + 11);
    record.prebou = n % 3 ? static_cast<INT>(n % items_of_a_panel) : number(n + 12);
    return record;
}

class HostilePanels : public PanelsTest {
  protected:
    void SetUp() override {
        PanelsTest::SetUp();
        permit_x_errors(); // sizes and places that no server takes
    }

    void run(const std::function<void(unsigned)>& call) {
        const StdoutCapture silence;
        for (unsigned n = 0; n < rounds; ++n) {
            call(n);
            if (n % 20 == 19) renew();
        }
        settle();
        EXPECT_EQ(heap().damage(), "");
    }

    void expect_still_working() {
        renew();
        for (INT i = 0; i < panel_count; ++i) grx_supprime_items(i);
        GRX_MSG message = item_of(60, "Valider");
        EXPECT_EQ(grx_cree_item(&message), 0);
        const INT n = button_of(1, 0, 0);
        ASSERT_GE(n, 0);
        ASSERT_TRUE(wait_visible(control(n)));
        settle();
        pointer().click_in(control(n), 4, 4);
        const auto done = events.wait(GRX_EVT_EXEC_FONCTION);
        ASSERT_TRUE(done) << events.describe();
        EXPECT_EQ(done->exec_fonction.nobou, n);
    }

    // The window goes with all that was put into it, and comes back.
    void renew() {
        for (INT i = 0; i < panel_count; ++i) grx_supprime_items(i);
        grx_detruit_fenetre(window);
        drain();
        window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 700, 500);
    }

    std::array<char, 6000> room{};
    const HostList list{7, numbered_entries(9), {1, 99, -4}};
};

TEST_F(HostilePanels, RecordsOfItems) {
    run([&](unsigned n) {
        GRX_MSG record = hostile_record(n, window);
        const INT result = grx_cree_item(&record);
        EXPECT_TRUE(result == 0 || result == 105) << result;
        EXPECT_GE(record.prebou, 0);
    });
    expect_still_working();
}

TEST_F(HostilePanels, RecordsOfCompositesAndLists) {
    run([&](unsigned n) {
        GRX_MSG record = hostile_record(n, window);
        for (auto* create : {grx_cree_istate1, grx_cree_bstate1}) {
            const INT result = create(&record);
            EXPECT_TRUE(result == 0 || result == 105) << result;
        }
        record.clef = n % 3 ? 55007 : record.clef;
        Widget made = n % 2 ? grx_cree_item_liste(&record) : grx_cree_item_liste_general(number(n), &record);
        if (made) EXPECT_TRUE(XmIsList(made));
    });
    expect_still_working();
}

TEST_F(HostilePanels, NumbersOfPanelsItemsAndButtons) {
    GRX_MSG message = item_of(20);
    grx_cree_item(&message);
    run([&](unsigned n) {
        const INT p = number(n), i = number(n / 2 + 3), b = number(n / 7);
        EXPECT_TRUE((std::set<INT>{0, 105}).contains(grx_memorise_bouton_item(p, i, number(n + 1), b)));
        std::array<INT, 300> found{};
        INT capacity = n % 9 ? std::min(number(n + 2), 300) : 300;
        EXPECT_EQ(recup_boutons_item(p, i, &capacity, n % 4 ? found.data() : nullptr), 0);
        EXPECT_GE(capacity, 0);
        EXPECT_LE(capacity, 255);
        EXPECT_EQ(grx_change_titre_item(p, i, text(room, n)), 0);
        EXPECT_EQ(grx_change_icone_item(p, i, text(room, n + 1)), 0);
        EXPECT_EQ(grx_change_champ_label(p, i, text(room, n + 2)), 0);
        EXPECT_EQ(grx_change_couleur_item(p, i, number(n + 4)), 0);
        EXPECT_EQ(grx_change_etat_fonction(p, i, number(n + 5)), 0);
        EXPECT_EQ(grx_change_attribut_item(number(n + 6), p, i, number(n), text(room, n)), 0);
        INT x = 0, y = 0, width = 0, height = 0;
        const INT known = grx_recup_position_taille_item(p, i, n % 2 ? 21 : number(n), n % 3 ? &x : nullptr,
            n % 4 ? &y : nullptr, n % 5 ? &width : nullptr, n % 6 ? &height : nullptr);
        EXPECT_TRUE(known == 0 || known == 1);
        EXPECT_TRUE((std::set<INT>{0, 1, 2}).contains(grx_recup_type_bstate(b)));
        EXPECT_TRUE((std::set<INT>{0, 1, 2}).contains(grx_recup_type_istate(b)));
        INT one = number(n), other = number(n + 1);
        grx_demande_taille_optimale_panel(n % 2 ? &one : nullptr, n % 3 ? &other : nullptr);
        if (n % 50 == 49) EXPECT_EQ(grx_supprime_items(p), 0);
    });
    expect_still_working();
}

TEST_F(HostilePanels, KeysOfLists) {
    run([&](unsigned n) {
        GRX_MSG record = item_of(70 + static_cast<INT>(n % 10));
        record.clef = 7;
        record.largeur = record.hauteur = 4;
        if (n % 10 == 0) grx_cree_item(&record);
        const INT p = number(n), k = n % 3 ? number(n / 2) : 7;
        EXPECT_EQ(grx_modif_items_liste(k), 0);
        EXPECT_EQ(grx_modif_un_item_liste(k, number(n)), 0);
        EXPECT_EQ(grx_change_type_liste(k, number(n + 1)), 0);
        EXPECT_GE(test_liste_deja_affichee(p, k), -1);
        EXPECT_TRUE((std::set<INT>{0, 1}).contains(grx_test_liste_ouverte(k)));
        grx_recup_objet_item_liste(p, k);
        EXPECT_EQ(test_realloue_Tab_liste(), 0);
        if (n % 7 == 6) EXPECT_EQ(grx_supprime_item_liste(p, k), 0);
    });
    expect_still_working();
}

TEST_F(HostilePanels, TheSelectionPanelAtAnyPlaceAndSize) {
    panels[GRX_PANNEAU_SELECTION].nb_items = 45;
    std::memset(panels[GRX_PANNEAU_SELECTION].titre, 'x', sizeof(CH40));
    std::vector<std::string> texts(8, std::string(3000, '-'));
    for (std::size_t i = 0; i < texts.size(); ++i)
        panels[GRX_PANNEAU_SELECTION].tab_items[i].message = i % 3 ? texts[i].data() : nullptr;
    const StdoutCapture silence;
    for (unsigned n = 0; n < 60; ++n) {
        grx_affecte_position_taille_panel_selection(
            number(n), number(n / 2), n % 2 ? number(n + 3) : 300, n % 2 ? 200 : number(n + 4) % 3000);
        panels[GRX_PANNEAU_SELECTION].tx = number(n + 1);
        panels[GRX_PANNEAU_SELECTION].ty = 300;
        EXPECT_EQ(grx_affiche_panel_selection_g(number(n), number(n + 1), number(n + 2)), 0);
        drain();
    }
    grx_detruit_fenetre(panels[GRX_PANNEAU_SELECTION].nofen);
    EXPECT_EQ(heap().damage(), "");
    expect_still_working();
}

TEST_F(HostilePanels, TablesThatShrinkWhileItemsAreOnShow) {
    run([&](unsigned n) {
        GRX_MSG record = item_of(static_cast<INT>(n % 110), "Title-one-two", static_cast<INT>(n % 45), 9);
        record.clef = 7;
        grx_cree_item(&record);
        if (n % 25 == 24) {
            for (INT i = 0; i < panel_count; ++i) grx_supprime_items(i);
            EXPECT_EQ(grx_alloue_base_items_panels(n % 2 ? 4 : panel_count, panels.table()), 0);
        }
    });
    ASSERT_EQ(grx_alloue_base_items_panels(panel_count, panels.table()), 0);
    expect_still_working();
}

} // namespace
