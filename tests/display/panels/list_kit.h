// Lists of all three kinds, made in one window and named by their numbers.
#pragma once

#include "tests/display/panels/panel_kit.h"

#include "grx_plus_erreurs.h"
#include "grx_plus_listes.h"

#include <optional>

namespace grxtest {

enum class ListOf { control, panel, dialog };
inline constexpr std::array list_kinds{ListOf::control, ListOf::panel, ListOf::dialog};

inline std::vector<const char*> pointers_to(const std::vector<std::string>& texts) {
    std::vector<const char*> result;
    for (const std::string& text : texts) result.push_back(text.c_str());
    return result;
}

inline INT filled(INT list, const std::vector<std::string>& texts) {
    return grx_remplit_liste(list, static_cast<INT>(texts.size()), pointers_to(texts).data());
}

inline INT appended(INT list, const std::vector<std::string>& texts) {
    return grx_ajoute_elements_liste(list, static_cast<INT>(texts.size()), pointers_to(texts).data());
}

inline INT inserted(INT list, INT position, const std::vector<std::string>& texts) {
    return grx_insere_elements_liste(list, position, static_cast<INT>(texts.size()), pointers_to(texts).data());
}

inline INT replaced(INT list, INT position, const std::vector<std::string>& texts) {
    return grx_remplace_elements_liste(list, position, static_cast<INT>(texts.size()), pointers_to(texts).data());
}

inline std::string text_at(INT list, INT position) {
    const INT length = grx_recup_texte_element_liste(list, position, nullptr, 0);
    if (length < 0) return "(code " + std::to_string(length) + ")";
    std::string text(static_cast<std::size_t>(length) + 1, '?');
    EXPECT_EQ(grx_recup_texte_element_liste(list, position, text.data(), length + 1), length);
    text.pop_back();
    return text;
}

inline std::vector<std::string> texts_of(INT list) {
    std::vector<std::string> result;
    for (INT i = 1; i <= grx_recup_nombre_elements_liste(list); ++i) result.push_back(text_at(list, i));
    return result;
}

inline INT selected(INT list, const std::vector<INT>& positions) {
    return grx_selectionne_elements_liste(list, static_cast<INT>(positions.size()), positions.data());
}

inline INT deselected(INT list, const std::vector<INT>& positions) {
    return grx_deselectionne_elements_liste(list, static_cast<INT>(positions.size()), positions.data());
}

inline std::vector<INT> selection_of(INT list) {
    const INT count = grx_recup_selection_liste(list, 0, nullptr);
    if (count < 0) return {count};
    std::vector<INT> positions(static_cast<std::size_t>(count), -7);
    EXPECT_EQ(grx_recup_selection_liste(list, count, positions.data()), count);
    return positions;
}

class ListTest : public PanelsTest {
  protected:
    static constexpr INT list_key = 7;
    static constexpr INT list_panel = 1;
    static constexpr INT list_slot = 4;

    void SetUp() override {
        PanelsTest::SetUp();
        if (x11_disp) XtSetMultiClickTime(x11_disp, 0); // clicks in a row are single ones, however fast
    }

    INT list_of(ListOf kind) {
        switch (kind) {
        case ListOf::control: return list_control();
        case ListOf::panel: return panel_list();
        default: return dialog_list();
        }
    }

    INT list_control(INT bits = 0) {
        GRX_BOUTON button = button_at(GRX_BOU_LISTE, window, {20, 30, 180, 120});
        button.attrib |= bits;
        EXPECT_EQ(grx_cree_bouton(&button), 0);
        EXPECT_TRUE(wait_visible(control(button.nobou)));
        settle();
        return button.nobou;
    }

    INT panel_list() {
        host_.emplace(list_key, std::vector<std::string>{"from the host", "second", "third"});
        GRX_MSG message{};
        grx_init_message(&message);
        message.clef = list_key + GRX_BASE_CLEF_LISTE;
        message.type = GRX_LISTE_SIMPLE;
        message.nobou = list_panel;
        message.x = 230;
        message.y = 30;
        message.largeur = 180;
        message.hauteur = 120;
        message.nb_cara = lnstate[list_key];
        message.fen_mere = window;
        Widget list = grx_cree_item_liste(&message);
        EXPECT_TRUE(list && wait_visible(list));
        settle();
        return grx_recup_liste_panneau(list_panel, list_key);
    }

    INT dialog_list() {
        std::string texts[] = {"one", "two", "three", "four", "five"};
        char* choices[] = {texts[0].data(), texts[1].data(), texts[2].data(), texts[3].data(), texts[4].data()};
        GRX_MSG message{};
        grx_init_message(&message);
        message.x = 440;
        message.y = 30;
        message.nb_cara = list_slot;
        message.nb_deci = 5;
        message.fen_mere = window;
        message.choix = choices;
        Widget list = grx_cree_liste(&message);
        EXPECT_TRUE(list && wait_visible(list));
        dialog_widget_ = list;
        settle();
        return GRX_LISTE_DIALOGUE + list_slot;
    }

    static Widget widget_of_list(INT list) {
        if (list >= GRX_LISTE_DIALOGUE) return dialog_widget_;
        if (list >= GRX_LISTE_PANNEAU) return Tab_liste[list - GRX_LISTE_PANNEAU].obj;
        return control(list);
    }

    // What the contract's own functions say of what is selected, counted from 1.
    static std::vector<INT> told_selection(INT list) {
        std::vector<INT> result;
        if (list >= GRX_LISTE_DIALOGUE) {
            std::vector<INT> positions(200000, -7);
            INT count = -1;
            grx_lit_liste(list - GRX_LISTE_DIALOGUE, widget_of_list(list), &count, positions.data());
            result.assign(positions.begin(), positions.begin() + count);
        } else if (list >= GRX_LISTE_PANNEAU) {
            for (INT position : chosen_in_slot(list - GRX_LISTE_PANNEAU)) result.push_back(position + 1);
            EXPECT_EQ(Tab_liste[list - GRX_LISTE_PANNEAU].nb_item, grx_recup_nombre_elements_liste(list));
        } else {
            for (int position : selected_in(control(list))) result.push_back(position + 1);
        }
        return result;
    }

    // A real click on an entry in view; its record.
    std::optional<GRX_EVENEMENT> click(INT list, INT position, KeySym modifier_key = 0) {
        INT x = 0, y = 0, height = 0;
        EXPECT_EQ(grx_recup_cadre_element_liste(list, position, &x, &y, nullptr, &height), 1);
        settle();
        if (modifier_key != 0) keyboard().press(modifier_key);
        pointer().click_in(widget_of_list(list), x + 10, y + height / 2);
        auto record = events.wait(GRX_EVT_ELEMENT_CLIQUE);
        if (modifier_key != 0) keyboard().release(modifier_key);
        settle();
        return record;
    }

    static inline Widget dialog_widget_ = nullptr;
    std::optional<HostList> host_;
};

} // namespace grxtest
