// Choices above one of the application's tables.
#pragma once

#include "tests/display/panels/server_kit.h"

#include <X11/IntrinsicP.h>

namespace grxtest {

inline constexpr INT choice_function = 740;
inline constexpr std::array<INT, 8> no_tables{-1, -2, 10, 11, 99, 1000, INT_MIN, INT_MAX};

class TableChoices : public ControlsTest {
  protected:
    void SetUp() override {
        ControlsTest::SetUp();
        if (HasFatalFailure()) return;
        Itbl = 3;
        EXPECT_EQ(grx_tbl_init_boutons_choix(), 0);
        window = shown();
        take_pointer_away();
        settle();
    }

    // Texts as the application gives them.
    struct Texts {
        explicit Texts(std::vector<std::string> of) : texts(std::move(of)) {
            for (std::string& text : texts) pointers.push_back(text.data());
        }
        INT count() const { return static_cast<INT>(texts.size()); }
        std::vector<std::string> texts;
        std::vector<char*> pointers;
    };

    INT create(Texts& texts, INT by_default = 1, INT x = 60, INT y = 70) {
        return grx_tbl_cree_boutons_choix(
            window, x, y, choice_function, texts.count(), texts.pointers.data(), by_default);
    }

    static TBL_TABLEUR_AFF& table() { return Taffiche[Itbl]; }

    static std::vector<INT> numbers() { return {table().tbou_choix, table().tbou_choix + table().nb_choix}; }

    std::vector<Widget> option_menus() {
        std::vector<Widget> found;
        for (Widget child : children_of(widget_of(window)))
            if (std::string(XtName(child)) == "OptionMenu" && !child->core.being_destroyed) found.push_back(child);
        return found;
    }

    Cardinal popups() { return widget_of(window)->core.num_popups; } // pulldowns among them

    Widget option() {
        const auto found = option_menus();
        EXPECT_EQ(found.size(), 1U);
        return found.empty() ? nullptr : found[0];
    }

    std::string shown_text() { return text_resource(XmOptionButtonGadget(option()), XmNlabelString); }

    auto resources() { return resources_of_the_library(test_display()); }

    // Nothing on the screen, in the table or in the base of buttons.
    void expect_none() {
        drain();
        EXPECT_TRUE(option_menus().empty());
        EXPECT_EQ(table().nb_choix, 0);
        EXPECT_EQ(grx_recup_indice_objet_bout_libre(), 0) << "no button is left";
        grx_libere_indice_objet_bout(0);
    }

    // Opens the menu with a click, and clicks on a choice.
    void choose(std::size_t i) {
        const Widget box = XmOptionButtonGadget(option());
        pointer().move_in(option(), resource<Position>(box, XmNx) + 8, resource<Position>(box, XmNy) + 8);
        settle();
        ASSERT_TRUE(click_open(control(numbers()[i])));
        pointer().move_in(control(numbers()[i]), 6, 5);
        settle();
        evt_global = patterned_event();
        pointer().click(1);
    }

    GRX_EVENEMENT chosen_record(INT nobou, INT value) {
        GRX_EVENEMENT record = old_record();
        record.exec_fonction.type_evenement = 6;
        record.exec_fonction.nofen = -1;
        record.exec_fonction.nobou = nobou;
        record.exec_fonction.no_fo = choice_function;
        record.exec_fonction.valeur = value;
        return record;
    }

    INT window = -1;
    Texts three{{"Largeur", "Hauteur maximale", "Prix"}};
};

} // namespace grxtest
