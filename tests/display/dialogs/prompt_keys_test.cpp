// The keys of the clipboard in a prompt's field, beside menus that have the same keys.
#include "tests/display/dialogs/box_kit.h"
#include "tests/display/menus/menu_kit.h"

#include <string>

namespace {
using namespace grxtest;

struct Row {
    const char* name;
    bool menu_sensitive;
    bool num_lock;
    bool caps_lock;
    const char* layout;
};

class PromptKeys : public Boxes<MenuTest>, public testing::WithParamInterface<Row> {
  protected:
    void SetUp() override {
        Boxes<MenuTest>::SetUp();
        write_menu(menu_zone("POPUP||&Edition|\n{\nITEM||Copier|Ctrl+C|11|\nITEM||Couper|Ctrl+X|12|\n"
                             "ITEM||Coller|Ctrl+V|13|\nITEM||Tout|Ctrl+A|14|\n}\n"));
        grx_cree_menu_bar(widget_of(main_));
        for (INT number = 11; number <= 14; ++number)
            EXPECT_EQ(grx_desactive_entree_menu(number, GetParam().menu_sensitive ? 0 : 1, 0), 1);
        EXPECT_EQ(grx_affecte_touches_presse_papiers(1), 1);
        if (GetParam().num_lock) lock_numbers();
        if (GetParam().caps_lock) lock_capitals();
        if (std::string(GetParam().layout) != "us") new_layout(GetParam().layout);
        GRX_BOITE_SAISIE asked = prompt(GRX_SAISIE_TEXTE, "Nom");
        asked.texte = "plan";
        number_ = grx_affiche_boite_saisie(&asked);
        EXPECT_TRUE(wait_for([this] { return box() != nullptr && field() != nullptr; }));
        drain();
        events.clear();
    }
    void TearDown() override {
        release_locks();
        close_boxes();
        drain();
        Boxes<MenuTest>::TearDown();
    }
    void ctrl(KeySym symbol) {
        key(symbol, ControlMask);
        drain();
        drain();
    }
    static std::string on_clipboard() {
        const char* text = nullptr;
        return grx_recup_texte_presse_papiers(GRX_SEL_PRESSE_PAPIERS, GRX_CODAGE_LATIN1, &text, nullptr) == 1 ? text
                                                                                                              : "";
    }
    INT number_ = 0;
};

TEST_P(PromptKeys, AreTheFieldsAndNotTheMenus) {
    ctrl(XK_a);
    ctrl(XK_c);
    EXPECT_EQ(on_clipboard(), "plan");
    EXPECT_EQ(field_text(field()), "plan");
    ctrl(XK_x);
    EXPECT_EQ(field_text(field()), "");
    EXPECT_EQ(grx_affecte_texte_presse_papiers(GRX_SEL_PRESSE_PAPIERS, GRX_CODAGE_UTF8, "\xC3\xA9tage\nsuite", -1), 1);
    ctrl(XK_v);
    EXPECT_EQ(XmTextGetLastPosition(field()), 5) << field_text(field());
    ctrl(XK_a);
    ctrl(XK_v);
    EXPECT_EQ(XmTextGetLastPosition(field()), 5) << "in its own place";
    for (INT number = 11; number <= 14; ++number) EXPECT_EQ(chosen(number), 0) << number;
    EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 0) << events.describe();
    key(XK_Return);
    ASSERT_TRUE(wait_for([this] { return events.count(GRX_EVT_SAISIE) == 1; }));
    for (const GRX_EVENEMENT& e : events.seen())
        if (e.type_evenement == GRX_EVT_SAISIE) EXPECT_STREQ(e.exec_fonction.chaine, "\xE9tage");
}

INSTANTIATE_TEST_SUITE_P(All, PromptKeys,
    testing::Values(Row{"Plain", true, false, false, "us"}, Row{"InsensitiveMenus", false, false, false, "us"},
        Row{"NumLock", true, true, false, "us"}, Row{"CapsLock", true, false, true, "us"},
        Row{"BothLocksInsensitive", false, true, true, "us"}, Row{"Fr", true, false, false, "fr"},
        Row{"FrLocksInsensitive", false, true, true, "fr"}),
    [](const testing::TestParamInfo<Row>& info) { return std::string(info.param.name); });

} // namespace
