// Operations on controls by their numbers: shown and hidden, sensitivity and focus, place and size, numbers that name
// nothing.
#include "tests/display/controls/control_operations_kit.h"
#include "tests/support/toolkit_calls.h"

namespace {

using namespace grxtest;

constexpr INT list_type = GRX_BOU_LISTE;
constexpr INT text_type = GRX_BOU_TEXTE;

bool is_list(const ControlKind& kind) {
    return kind.type == list_type;
}
bool is_text(const ControlKind& kind) {
    return kind.type == text_type;
}

// --- showing and hiding -------------------------------------------------------------------------------------------

TEST_F(ControlOperations, HidingAndShowingEachKind) {
    const auto numbers = one_of_each();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const Widget outer = outermost(control(numbers[i]));
        EXPECT_EQ(grx_cache_bouton(numbers[i]), 0);
        drain();
        EXPECT_FALSE(visible(XtWindow(outer))) << kind_of(i).name << ": not even its scrolled window";
        EXPECT_FALSE(on_screen(numbers[i])) << kind_of(i).name;
        EXPECT_EQ(grx_cache_bouton(numbers[i]), 0) << "twice";
        EXPECT_EQ(grx_affiche_bouton(numbers[i]), 0);
        EXPECT_TRUE(on_screen(numbers[i])) << kind_of(i).name;
        EXPECT_EQ(grx_efface_bouton(numbers[i]), 0);
        EXPECT_FALSE(visible(XtWindow(outer))) << kind_of(i).name;
        EXPECT_FALSE(on_screen(numbers[i])) << kind_of(i).name;
        EXPECT_EQ(grx_affiche_bouton(numbers[i]), 0);
        EXPECT_EQ(grx_affiche_bouton(numbers[i]), 0) << "twice";
        EXPECT_TRUE(on_screen(numbers[i])) << kind_of(i).name;
        EXPECT_TRUE(XtIsManaged(control(numbers[i]))) << kind_of(i).name;
    }
}

TEST_F(ControlOperations, ControlsMadeHiddenAreShown) {
    for (const ControlKind& kind : control_kinds) {
        GRX_BOUTON description = control_of(kind, window);
        description.attrib &= ~GRX_BOU_ATT_VISIBLE;
        const INT n = placed(description);
        EXPECT_FALSE(on_screen(n)) << kind.name;
        grx_affiche_bouton(n);
        EXPECT_TRUE(on_screen(n)) << kind.name;
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlOperations, HidingKeepsPlaceAndSize) {
    const auto numbers = one_of_each();
    for (INT n : numbers) {
        INT before[4]{}, after[4]{};
        grx_recup_position_bouton(n, &before[0], &before[1]);
        grx_recup_taille_bouton(n, &before[2], &before[3]);
        grx_cache_bouton(n);
        drain();
        grx_affiche_bouton(n);
        drain();
        grx_recup_position_bouton(n, &after[0], &after[1]);
        grx_recup_taille_bouton(n, &after[2], &after[3]);
        EXPECT_TRUE(std::ranges::equal(before, after)) << n;
    }
}

// A window that is not realised yet: what is asked for holds when it is.
TEST_F(ControlOperations, HidingBeforeTheWindowIsShown) {
    const INT later = make(GRX_FEN_ALPHA, 0, 300, 200);
    GRX_BOUTON description = a(GRX_BOU_SIMPLE);
    description.fen_mere = later;
    const INT hidden = make(description);
    description.x = 200;
    description.attrib &= ~GRX_BOU_ATT_VISIBLE;
    const INT revealed = make(description);
    grx_cache_bouton(hidden);
    grx_affiche_bouton(revealed);
    grx_affiche_fenetre(later);
    ASSERT_TRUE(wait_visible(widget_of(later)));
    EXPECT_FALSE(on_screen(hidden));
    EXPECT_TRUE(on_screen(revealed));
}

TEST_F(ControlOperations, SeveralAreManagedAtOnce) {
    auto numbers = one_of_each();
    for (INT n : numbers) XtUnmanageChild(outermost(control(n)));
    drain();
    for (INT n : numbers) EXPECT_FALSE(on_screen(n));
    std::vector<INT> list{-1, 998};
    list.insert(list.end(), numbers.begin(), numbers.end());
    list.push_back(INT_MAX);
    const std::size_t blocks = heap().blocks();
    EXPECT_EQ(grx_affiche_boutons(list.data(), static_cast<INT>(list.size())), 0);
    EXPECT_EQ(heap().blocks(), blocks) << "the array of widgets is freed";
    for (std::size_t i = 0; i < numbers.size(); ++i) EXPECT_TRUE(on_screen(numbers[i])) << kind_of(i).name;
}

TEST_F(ControlOperations, SeveralOfOneParentAreManagedInOneCall) {
    auto numbers = one_of_each();
    for (INT n : numbers) XtUnmanageChild(outermost(control(n)));
    ToolkitCalls asked;
    EXPECT_EQ(grx_affiche_boutons(numbers.data(), 3), 0);
    EXPECT_EQ(asked.management_calls, 1);
    for (std::size_t i = 0; i < numbers.size(); ++i)
        EXPECT_EQ(XtIsManaged(outermost(control(numbers[i]))) != 0, i < 3) << kind_of(i).name;
}

TEST_F(ControlOperations, ManagingSeveralLeavesHiddenOnesHidden) {
    auto numbers = one_of_each();
    for (INT n : numbers) grx_cache_bouton(n);
    EXPECT_EQ(grx_affiche_boutons(numbers.data(), static_cast<INT>(numbers.size())), 0);
    for (std::size_t i = 0; i < numbers.size(); ++i) EXPECT_FALSE(on_screen(numbers[i])) << kind_of(i).name;
}

// Its number is free again by the time that its widget goes.
TEST_F(ControlOperations, DestroyingFreesTheNumberFirst) {
    const INT n = made(GRX_BOU_SIMPLE);
    INT free_number = -1;
    XtAddCallback(
        control(n), XmNdestroyCallback,
        [](Widget, XtPointer data, XtPointer) { *static_cast<INT*>(data) = grx_recup_indice_objet_bout_libre(); },
        &free_number);
    EXPECT_EQ(grx_detruit_bouton(n), 0);
    EXPECT_EQ(free_number, n);
}

TEST_F(ControlOperations, ShowingNoneShowsNone) {
    INT numbers[2] = {made(GRX_BOU_SIMPLE), -1};
    XtUnmanageChild(control(numbers[0]));
    EXPECT_EQ(grx_affiche_boutons(numbers, 0), 0);
    EXPECT_EQ(grx_affiche_boutons(numbers, -3), 0);
    EXPECT_EQ(grx_affiche_boutons(numbers, INT_MIN), 0);
    EXPECT_EQ(grx_affiche_boutons(nullptr, 5), 0);
    EXPECT_EQ(grx_affiche_boutons(numbers + 1, 1), 0);
    EXPECT_FALSE(XtIsManaged(control(numbers[0])));
    heap().fail_at(1);
    EXPECT_EQ(grx_affiche_boutons(numbers, 1), 0);
    heap().fail_never();
    EXPECT_EQ(grx_affiche_boutons(numbers, 2), 0);
    EXPECT_TRUE(XtIsManaged(control(numbers[0])));
}

// --- sensitivity and focus ----------------------------------------------------------------------------------------

TEST_F(ControlOperations, BlockingAndFreeing) {
    for (INT n : one_of_each()) {
        for (const auto& [argument, sensitive] :
            {std::pair{1, true}, std::pair{7, true}, std::pair{INT_MAX, true}, std::pair{0, false}, std::pair{1, true},
                std::pair{-1, false}, std::pair{1, true}, std::pair{INT_MIN, false}}) {
            EXPECT_EQ(grx_desactive_bouton(n, argument), 0);
            EXPECT_EQ(static_cast<bool>(XtIsSensitive(control(n))), !sensitive) << n << " " << argument;
        }
    }
}

TEST_F(ControlOperations, TheFocusIsForced) {
    const INT first = made(text_type);
    GRX_BOUTON description = a(GRX_BOU_SIMPLE);
    description.y = 200;
    const INT second = placed(description);
    pointer().move_in(widget_of(window), 5, 5);
    EXPECT_EQ(grx_force_focus_sur_bouton(second), 0);
    EXPECT_TRUE(wait_for([&] { return XmGetFocusWidget(control(second)) == control(second); }));
    grx_force_focus_sur_bouton(first);
    EXPECT_TRUE(wait_for([&] { return XmGetFocusWidget(control(first)) == control(first); }));
    keyboard().type("A");
    EXPECT_TRUE(wait_for([&] { return text_of(first).find('A') != std::string::npos; }));
}

TEST_F(ControlOperations, TheFocusOfKindsThatTakeNone) {
    const INT field = made(text_type);
    GRX_BOUTON description = a(GRX_BOU_LABEL);
    description.y = 200;
    const INT label = placed(description);
    grx_force_focus_sur_bouton(field);
    ASSERT_TRUE(wait_for([&] { return XmGetFocusWidget(control(field)) == control(field); }));
    grx_force_focus_sur_bouton(label);
    drain();
    EXPECT_EQ(XmGetFocusWidget(control(field)), control(field));
}

TEST_F(ControlOperations, TabDoesNotReachHiddenControls) {
    INT numbers[3];
    for (INT i = 0; i < 3; ++i) {
        GRX_BOUTON description = a(text_type);
        description.y = 10 + 60 * i;
        description.hauteur = 30;
        numbers[i] = placed(description);
    }
    grx_cache_bouton(numbers[1]);
    drain();
    pointer().click_in(control(numbers[0]), 10, 10);
    ASSERT_TRUE(wait_for([&] { return XmGetFocusWidget(control(numbers[0])) == control(numbers[0]); }));
    keyboard().key(XK_Tab);
    EXPECT_TRUE(wait_for([&] { return XmGetFocusWidget(control(numbers[0])) == control(numbers[2]); }));
    grx_affiche_bouton(numbers[1]);
    grx_force_focus_sur_bouton(numbers[0]);
    ASSERT_TRUE(wait_for([&] { return XmGetFocusWidget(control(numbers[0])) == control(numbers[0]); }));
    keyboard().key(XK_Tab);
    EXPECT_TRUE(wait_for([&] { return XmGetFocusWidget(control(numbers[0])) == control(numbers[1]); }));
}

TEST_F(ControlOperations, FlushingHandlesAllThatIsPending) {
    const INT n = made(text_type);
    pointer().click_in(control(n), 10, 10);
    settle();
    for (INT number : {n, -1, INT_MIN}) {
        grx_affecte_champ_texte(n, writable(""));
        keyboard().type("abc");
        XSync(x11_disp, False);
        EXPECT_GT(XEventsQueued(x11_disp, QueuedAfterReading), 0);
        EXPECT_EQ(grx_flush_dessin_bouton(number), 0);
        EXPECT_EQ(XEventsQueued(x11_disp, QueuedAfterReading), 0);
        EXPECT_EQ(text_of(n), "abc");
    }
}

// --- geometry -----------------------------------------------------------------------------------------------------

TEST_F(ControlOperations, SizesAreSetAndRead) {
    const auto numbers = one_of_each();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        EXPECT_EQ(grx_change_taille_bouton(numbers[i], 88, 61), 0);
        drain();
        INT width = -5, height = -5;
        EXPECT_EQ(grx_recup_taille_bouton(numbers[i], &width, &height), 0);
        EXPECT_EQ(width, 88) << kind_of(i).name;
        EXPECT_EQ(height, 61) << kind_of(i).name;
        grx_recup_taille_bouton(numbers[i], nullptr, &height);
        grx_recup_taille_bouton(numbers[i], &width, nullptr);
        grx_detruit_bouton(numbers[i]);
    }
}

TEST_F(ControlOperations, PlacesAreSetAndRead) {
    const auto numbers = one_of_each();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const Point before = root_position(outermost(control(numbers[i])));
        INT x = -5, y = -5;
        EXPECT_EQ(grx_recup_position_bouton(numbers[i], &x, &y), 0);
        EXPECT_EQ(x, 5 + 95 * static_cast<INT>(i % 4)) << kind_of(i).name;
        EXPECT_EQ(y, 5 + 70 * static_cast<INT>(i / 4)) << kind_of(i).name;
        EXPECT_EQ(grx_change_position_bouton(numbers[i], x + 12, y + 7), 0);
        drain();
        const Point after = root_position(outermost(control(numbers[i])));
        EXPECT_EQ(after.x - before.x, 12) << kind_of(i).name;
        EXPECT_EQ(after.y - before.y, 7) << kind_of(i).name;
        INT new_x = 0, new_y = 0;
        grx_recup_position_bouton(numbers[i], &new_x, &new_y);
        EXPECT_EQ(new_x, x + 12) << kind_of(i).name;
        EXPECT_EQ(new_y, y + 7) << kind_of(i).name;
        grx_recup_position_bouton(numbers[i], nullptr, &y);
        grx_recup_position_bouton(numbers[i], &x, nullptr);
        grx_detruit_bouton(numbers[i]);
    }
}

TEST_F(ControlOperations, NegativePlacesAreRead) {
    const INT board = shown(GRX_FEN_GRAPHIQUE);
    GRX_BOUTON description = a(GRX_BOU_SIMPLE);
    description.fen_mere = board;
    const INT n = placed(description);
    grx_change_position_bouton(n, -30, -20);
    drain();
    INT x = 0, y = 0;
    grx_recup_position_bouton(n, &x, &y);
    EXPECT_EQ(x, -30);
    EXPECT_EQ(y, -20);
}

TEST_F(ControlOperations, SizesAreReadUnsigned) {
    GRX_BOUTON description = a(GRX_BOU_LABEL);
    description.fen_mere = make(GRX_FEN_GRAPHIQUE, 0);
    const INT n = make(description);
    XtUnmanageChild(control(n)); // nobody refuses it
    XtVaSetValues(control(n), XmNwidth, 40000, XmNheight, 50000, nullptr);
    INT width = 0, height = 0;
    grx_recup_taille_bouton(n, &width, &height);
    EXPECT_EQ(width, 40000);
    EXPECT_EQ(height, 50000);
}

TEST_F(ControlOperations, StrangeSizesAndPlacesAreSurvived) {
    for (const ControlKind& kind : control_kinds) {
        const INT n = placed(control_of(kind, window));
        for (INT value : {0, -1, -7, 40000, 70000, INT_MAX, INT_MIN}) {
            EXPECT_EQ(grx_change_taille_bouton(n, value, 40), 0);
            EXPECT_EQ(grx_change_taille_bouton(n, 40, value), 0);
            EXPECT_EQ(grx_change_position_bouton(n, value, value), 0);
            drain();
        }
        grx_detruit_bouton(n);
    }
}

// --- numbers that name nothing, kinds that do not fit -------------------------------------------------------------

TEST_F(ControlOperations, NumbersThatNameNothing) {
    for (INT n : no_controls) {
        char text[64] = "avant";
        INT first = 77, second = 78;
        INT list[1] = {n};
        using Plain = INT (*)(INT);
        for (Plain call :
            {Plain{grx_affiche_bouton}, Plain{grx_cache_bouton}, Plain{grx_efface_bouton}, Plain{grx_detruit_bouton},
                Plain{grx_force_focus_sur_bouton}, Plain{grx_flush_dessin_bouton}, Plain{grx_selectionne_champ},
                Plain{grx_selectionne_champ_focus}, Plain{grx_enfonce_bouton}, Plain{grx_relache_bouton},
                Plain{grx_souligne_bouton}, Plain{grx_relache_bouton_ras}, Plain{grx_bouton_est_il_enfonce}})
            EXPECT_EQ(call(n), 0) << n;
        using WithText = INT (*)(INT, char*);
        for (WithText call : {WithText{grx_change_texte}, WithText{grx_affecte_champ_bouton},
                 WithText{grx_affecte_champ_texte}, WithText{grx_ajoute_texte}, WithText{grx_recup_texte_bouton},
                 WithText{grx_ajoute_element_dans_liste}, WithText{grx_change_icone_bouton}}) {
            EXPECT_EQ(call(n, text), 0) << n;
            EXPECT_EQ(call(n, nullptr), 0) << n;
        }
        using WithNumber = INT (*)(INT, INT);
        for (WithNumber call : {WithNumber{grx_desactive_bouton}, WithNumber{grx_change_couleur_bouton},
                 WithNumber{grx_change_couleur_trace_bouton}, WithNumber{grx_change_couleur_bouton_indice_direct},
                 WithNumber{grx_change_couleur_trace_bouton_indice_direct},
                 WithNumber{grx_remet_couleur_initiale_bouton}, WithNumber{grx_change_valeur_echelle},
                 WithNumber{grx_affecte_icone_bouton1_bouton2}})
            EXPECT_EQ(call(n, 3), 0) << n;
        EXPECT_EQ(grx_affiche_boutons(list, 1), 0);
        EXPECT_EQ(grx_recup_nombre_elements_dans_list(n), -1) << n;
        EXPECT_EQ(grx_recup_element_dans_liste(n, 1, text), -1) << n;
        EXPECT_EQ(grx_recup_element_dans_liste(n, 0, nullptr), -1) << n;
        EXPECT_EQ(grx_change_taille_bouton(n, 5, 5), 0);
        EXPECT_EQ(grx_change_position_bouton(n, 5, 5), 0);
        EXPECT_EQ(grx_recup_taille_bouton(n, &first, &second), 0);
        EXPECT_EQ(grx_recup_position_bouton(n, &first, &second), 0);
        EXPECT_EQ(grx_change_couleur_fond_icone_bouton(n, text, 3), 0);
        EXPECT_EQ(grx_change_bornes_echelle(n, 3, 4), 0);
        grx_recup_couleur_bouton(n);
        grx_recup_couleur_trace_bouton(n);
        EXPECT_EQ(std::string(text), "avant") << n;
        EXPECT_EQ(first, 77) << n;
        EXPECT_EQ(second, 78) << n;
    }
}

TEST_F(ControlOperations, AnUnknownNumberLeavesColourEightOfTheIcons) {
    const INT eight = grx_recup_couleur_icone(8);
    grx_change_couleur_fond_icone_bouton(-1, writable("/none.bmp"), 14);
    EXPECT_EQ(grx_recup_couleur_icone(8), eight);
}

// Every operation on every kind: what does not fit does nothing.
TEST_F(ControlOperations, OperationsThatDoNotFitDoNothing) {
    const auto numbers = one_of_each();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const INT n = numbers[i];
        const ControlKind& kind = kind_of(i);
        char text[100] = "avant";
        if (!is_list(kind)) {
            EXPECT_EQ(grx_ajoute_element_dans_liste(n, writable("x")), 0) << kind.name;
            EXPECT_EQ(grx_recup_nombre_elements_dans_list(n), -1) << kind.name;
            EXPECT_EQ(grx_recup_element_dans_liste(n, 1, text), -1) << kind.name;
            EXPECT_EQ(std::string(text), "avant") << kind.name;
        }
        if (!is_text(kind)) {
            const std::string label = has_label(kind.type) ? label_of(control(n)) : "";
            EXPECT_EQ(grx_affecte_champ_texte(n, writable("x")), 0) << kind.name;
            EXPECT_EQ(grx_ajoute_texte(n, writable("x")), 0) << kind.name;
            EXPECT_EQ(grx_selectionne_champ(n), 0) << kind.name;
            if (has_label(kind.type)) {
                EXPECT_EQ(label_of(control(n)), label) << kind.name;
            }
        }
        if (is_text(kind)) {
            EXPECT_EQ(grx_affecte_champ_bouton(n, writable("x")), 0) << kind.name;
            EXPECT_EQ(text_of(n), "Text") << kind.name;
        }
        if (!has_label(kind.type) && !is_text(kind)) {
            EXPECT_EQ(grx_change_texte(n, writable("x")), 0) << kind.name;
            EXPECT_EQ(grx_affecte_champ_bouton(n, writable("x")), 0) << kind.name;
        }
        drain();
        EXPECT_NE(control(n), nullptr);
    }
}

// Programmed changes post nothing.
TEST_F(ControlOperations, OperationsPostNoEvent) {
    const auto numbers = one_of_each();
    take_pointer_away();
    settle();
    for (INT n : numbers) {
        grx_change_texte(n, writable("x"));
        grx_ajoute_element_dans_liste(n, writable("x"));
        grx_change_valeur_echelle(n, 33);
        grx_change_bornes_echelle(n, 10, 90);
        grx_enfonce_bouton(n);
        grx_change_couleur_bouton(n, 5);
        grx_selectionne_champ(n);
        grx_desactive_bouton(n, 1);
        grx_desactive_bouton(n, 0);
        grx_cache_bouton(n);
        grx_affiche_bouton(n);
    }
    drain();
    for (const GRX_EVENEMENT& event : events.seen())
        EXPECT_TRUE(event.type_evenement == GRX_EVT_AFFICHAGE || event.type_evenement == GRX_EVT_DEPLACEMENT
                    || event.type_evenement == GRX_EVT_CHGT_TAILLE)
            << event.type_evenement;
}

// --- memory -------------------------------------------------------------------------------------------------------

TEST_F(ControlOperations, OperationsWithoutMemory) {
    const INT field = made(text_type), list = made(list_type), label = made(GRX_BOU_LABEL);
    const std::size_t blocks = heap().blocks();
    fail_each_allocation([&] {
        INT numbers[2] = {field, list};
        char text[100];
        grx_affiche_boutons(numbers, 2);
        grx_change_texte(field, writable("\xe9t\xe9"));
        grx_change_texte(label, writable("\xe9t\xe9"));
        grx_ajoute_texte(field, writable("\xe9"));
        grx_ajoute_element_dans_liste(list, writable("\xe9"));
        grx_recup_texte_bouton(field, text);
        grx_recup_element_dans_liste(list, 1, text);
        grx_enfonce_bouton(label);
    });
    EXPECT_EQ(heap().blocks(), blocks);
}

TEST_F(ControlOperations, WithoutABaseNothingHappens) {
    const INT n = made(GRX_BOU_SIMPLE);
    const Widget w = control(n);
    grx_detruit_fenetre(window);
    drain();
    EXPECT_EQ(grx_desalloue_base_boutons(), 0);
    EXPECT_NE(w, nullptr);
    for (INT number : {n, 0, 999}) {
        EXPECT_EQ(grx_recup_objet_bout(number), nullptr);
        EXPECT_EQ(grx_change_texte(number, writable("x")), 0);
        EXPECT_EQ(grx_detruit_bouton(number), 0);
        EXPECT_EQ(grx_enfonce_bouton(number), 0);
        EXPECT_EQ(grx_bouton_est_il_enfonce(number), 0);
        EXPECT_EQ(grx_recup_nombre_elements_dans_list(number), -1);
        grx_desinstalle_bitmap(number);
    }
    EXPECT_EQ(grx_alloue_base_boutons(), 0);
}

} // namespace
