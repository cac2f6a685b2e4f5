// Entries that were made before anybody set or asked for anything: they carry nothing for that, and are found when it comes.
#include "grx_plus_aide.h"
#include "tests/display/menus/context_kit.h"

#include <string>
#include <vector>

namespace {

using namespace grxtest;

const std::string three_of_ten = menu_zone("POPUP||&A|\n{\nITEM||Une||10|\nITEM||Deux||20|\nITEM||-|||\n}\n"
                                           "POPUP||&B|\n{\nPOPUP||S|\n{\nITEM||Profond||10|\n}\nITEM||Autre||10|\n}\n");

class LateEntries : public ContextMenuTest {
  protected:
    struct Callbacks {
        int arm, disarm, end;
        bool operator==(const Callbacks&) const = default;
    };

    static std::string told(Widget w) {
        const Callbacks has = callbacks_of(w);
        return text_resource(w, XmNlabelString) + ": " + std::to_string(has.arm) + ", " + std::to_string(has.disarm)
               + ", " + std::to_string(has.end);
    }
    static int count(Widget w, const char* name) {
        int number = 0;
        const auto* list = resource<XtCallbackList>(w, name);
        while (list != nullptr && list[number].callback != nullptr) ++number;
        return number;
    }
    static Callbacks callbacks_of(Widget w) {
        return {count(w, XmNarmCallback), count(w, XmNdisarmCallback), count(w, XmNdestroyCallback)};
    }
    static std::vector<Widget> push_buttons_in(Widget holder) {
        std::vector<Widget> all, result;
        gather_entries(holder, all);
        for (Widget w : all)
            if (XtIsSubclass(w, xmPushButtonWidgetClass)) result.push_back(w);
        return result;
    }
    std::vector<Widget> bar_buttons() {
        std::vector<Widget> result;
        for (Widget cascade : children_of(grx_get_Glob_menu_bar()))
            for (Widget w : push_buttons_in(submenu_of(cascade))) result.push_back(w);
        return result;
    }
    void open_context() {
        ASSERT_EQ(grx_ouvre_menu_contextuel(graphic_window(), nullptr, zone, 100, 200), 1);
        ASSERT_TRUE(wait_shown());
    }
    // The bar's entries have a callback for their end in any case.
    void expect_callbacks(const Callbacks& beside, const char* when) {
        SCOPED_TRACE(when);
        auto of_bar = bar_buttons(), of_context = push_buttons_in(menu());
        ASSERT_GE(of_bar.size(), 5U);
        ASSERT_EQ(of_context.size(), 5U);
        of_context.erase(of_context.begin()); // it has the keyboard: the toolkit waits for its end
        for (Widget w : of_context) EXPECT_TRUE(callbacks_of(w) == beside) << told(w);
        for (Widget w : of_bar)
            EXPECT_TRUE(callbacks_of(w) == (Callbacks{beside.arm, beside.disarm, beside.end + 1})) << told(w);
    }
    void expect_three(const char* text) {
        EXPECT_EQ(grx_desactive_entree_menu(10, 1, 0), 1);
        for (const char* label : {"Une", "Autre", "Profond"}) EXPECT_FALSE(XtIsSensitive(entry_named(label))) << label;
        EXPECT_TRUE(XtIsSensitive(entry_named("Deux")));
        EXPECT_EQ(state_of(10).nb_entrees, 3);
        EXPECT_STREQ(state_of(10).texte, text);
    }
};

TEST_F(LateEntries, CarryNothingBeforeAnybodyAsks) {
    main_window(context_zones + example_menu);
    open_context();
    expect_callbacks({0, 0, 0}, "made");
    EXPECT_EQ(state_of(101).nb_entrees, 2);
    expect_callbacks({0, 0, 1}, "asked for");
    for (int again = 0; again < 2; ++again) {
        EXPECT_EQ(grx_affecte_demande_aide(GRX_AIDE_TOUCHE), 1);
        EXPECT_EQ(grx_coche_entree_menu(102, 1, 0), 1);
        expect_callbacks({1, 1, 2}, "followed");
    }
    grx_ferme_menu_contextuel();
    drain();
    EXPECT_EQ(state_of(101).nb_entrees, 1);
    open_context();
    expect_callbacks({1, 1, 2}, "made when they are followed");
    EXPECT_EQ(state_of(101).nb_entrees, 2);
}

TEST_F(LateEntries, TextsAreNoReasonToKeepStates) {
    main_window(context_zones + example_menu);
    open_context();
    EXPECT_EQ(grx_affecte_aide_menu(101, "Ouvre"), 1);
    expect_callbacks({1, 1, 1}, "texts told of");
}

TEST_F(LateEntries, AreFoundInTheBar) {
    main_window(three_of_ten);
    expect_three("Une");
}

TEST_F(LateEntries, AreFoundInASecondBar) {
    main_window(three_of_ten);
    grx_detruit_menu_bar();
    grx_recree_menu_bar();
    drain();
    expect_three("Une");
}

TEST_F(LateEntries, AreFoundInAnOpenContextMenu) {
    main_window(context_zones + example_menu);
    open_context();
    EXPECT_EQ(grx_desactive_entree_menu(101, 1, 0), 1);
    EXPECT_EQ(grx_coche_entree_menu(130, 1, 0), 1);
    EXPECT_EQ(grx_change_texte_entree_menu(103, "Autre", 0), 1);
    EXPECT_FALSE(XtIsSensitive(entry("Ouvrir")));
    EXPECT_FALSE(XtIsSensitive(entry_named("Open")));
    EXPECT_EQ(shown_menu(), "Ouvrir_O <Ctrl+O>, Grille_G, -, Exporter_E{DXF_D, Image_I{PNG_P}}, Autre");
    EXPECT_EQ(state_of(101).nb_entrees, 2);
    EXPECT_STREQ(state_of(101).texte, "Open") << "the oldest";
    EXPECT_EQ(state_of(130).coche, 1);
}

TEST_F(LateEntries, ThatTheApplicationMadeAreFoundToo) {
    const INT window = main_window(three_of_ten);
    char text[] = "Propre", none[] = "", other[] = "atome";
    grx_cree_atome(text, none, ' ', 10, widget_of(window));
    Widget own = XtNameToWidget(widget_of(window), "atome");
    ASSERT_NE(own, nullptr);
    Widget foreign = XmCreatePushButton(widget_of(window), other, nullptr, 0);
    EXPECT_EQ(grx_desactive_entree_menu(10, 1, 0), 1);
    EXPECT_EQ(grx_desactive_entree_menu(0, 1, 0), 1);
    EXPECT_FALSE(XtIsSensitive(own));
    EXPECT_TRUE(XtIsSensitive(foreign));
    EXPECT_EQ(state_of(10).nb_entrees, 4);
    EXPECT_EQ(state_of(0).nb_entrees, 0);
    XtDestroyWidget(own);
    EXPECT_EQ(state_of(10).nb_entrees, 3);
}

TEST_F(LateEntries, AreFoundOnceHoweverOftenMemoryIsShort) {
    main_window(three_of_ten);
    const int failures = fail_each_allocation([] {
        GRX_ENTREE_MENU asked{};
        grx_init_entree_menu(&asked);
        const INT result = grx_recup_entree_menu(10, &asked);
        EXPECT_TRUE((result == 1 && asked.nb_entrees == 3) || result == GRX_ECHEC_MEMOIRE) << result;
    });
    EXPECT_GT(failures, 0);
    expect_three("Une");
}

} // namespace
