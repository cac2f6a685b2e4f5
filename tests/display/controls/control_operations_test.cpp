// Operations on controls by their numbers.
#include "tests/display/control_kit.h"
#include "tests/support/toolkit_calls.h"

#include "xt_prive.h"

#include <clocale>

namespace {

using namespace grxtest;

constexpr INT list_type = GRX_BOU_LISTE;
constexpr INT text_type = GRX_BOU_TEXTE;
constexpr INT scale_type = GRX_BOU_ECHELLE;

char* writable(const char* text) {
    return const_cast<char*>(text);
}

class ControlOperations : public ControlsTest {
  protected:
    void SetUp() override {
        ControlsTest::SetUp();
        if (HasFatalFailure()) return;
        window = shown();
    }

    GRX_BOUTON a(INT type, INT bits = 0, const char* title = "Text") { return control_of(type, bits, window, title); }

    INT made(INT type, INT bits = 0, const char* title = "Text") { return placed(a(type, bits, title)); }

    // One of each kind, side by side so that all of them are seen.
    std::vector<INT> one_of_each() {
        std::vector<INT> numbers;
        for (const ControlKind& kind : control_kinds) {
            GRX_BOUTON description = control_of(kind, window);
            const auto i = static_cast<INT>(numbers.size());
            description.x = 5 + 95 * (i % 4);
            description.y = 5 + 70 * (i / 4);
            description.largeur = 60;
            description.hauteur = 40;
            numbers.push_back(placed(description));
        }
        return numbers;
    }

    const ControlKind& kind_of(std::size_t i) { return control_kinds[i]; }

    INT window = -1;
};

bool is_list(const ControlKind& kind) {
    return kind.type == list_type;
}
bool is_text(const ControlKind& kind) {
    return kind.type == text_type;
}
bool has_label(const ControlKind& kind) {
    return kind.type == 1 || kind.type == 2 || kind.type == 4 || kind.type == 16 || kind.type == 512
           || kind.type == 4096;
}
bool is_drawn(const ControlKind& kind) {
    return kind.type == 1 || kind.type == 4096 || (kind.type == 4 && !(kind.bits & GRX_BOU_ATT_VRAI_POUSSOIR));
}
bool is_real_push(const ControlKind& kind) {
    return kind.type == 512 || (kind.type == 4 && (kind.bits & GRX_BOU_ATT_VRAI_POUSSOIR));
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

// --- texts and labels ---------------------------------------------------------------------------------------------

TEST_F(ControlOperations, ChangingTheTextOfFields) {
    for (INT bits : {0, GRX_BOU_ATT_TEXTE_MULTI}) {
        const INT n = made(text_type, bits, "ancien");
        EXPECT_EQ(grx_change_texte(n, writable("un texte")), 0);
        EXPECT_EQ(text_of(n), "un texte");
        EXPECT_EQ(resource<XmTextPosition>(control(n), XmNcursorPosition), 8);
        EXPECT_EQ(grx_change_texte(n, writable("")), 0);
        EXPECT_EQ(text_of(n), "");
        EXPECT_EQ(resource<XmTextPosition>(control(n), XmNcursorPosition), 0);
        grx_change_texte(n, writable("abc"));
        EXPECT_EQ(grx_change_texte(n, nullptr), 0);
        EXPECT_EQ(text_of(n), "") << "null reads as empty";
        const std::string longest(5000, 'w');
        grx_change_texte(n, writable(longest.c_str()));
        EXPECT_EQ(text_of(n), longest);
        EXPECT_EQ(resource<XmTextPosition>(control(n), XmNcursorPosition), 5000);
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlOperations, ChangingTheTextOfAReadOnlyField) {
    const INT n = made(text_type, GRX_BOU_ATT_TEXTE_LECTURE, "ancien");
    grx_change_texte(n, writable("neuf"));
    EXPECT_EQ(text_of(n), "neuf");
    grx_affecte_champ_texte(n, writable("encore"));
    EXPECT_EQ(text_of(n), "encore");
}

TEST_F(ControlOperations, ChangingLabels) {
    for (const ControlKind& kind : control_kinds) {
        if (!has_label(kind)) continue;
        const INT n = placed(control_of(kind, window));
        const Extent before = extent_of(control(n));
        EXPECT_EQ(grx_change_texte(n, writable("Un autre titre, plus long")), 0);
        EXPECT_EQ(label_of(control(n)), "Un autre titre, plus long") << kind.name;
        drain();
        EXPECT_EQ(extent_of(control(n)), before) << kind.name << ": the size is kept";
        EXPECT_EQ(grx_change_texte(n, writable("")), 0);
        EXPECT_EQ(label_of(control(n)).find("Un"), std::string::npos) << kind.name;
        EXPECT_EQ(grx_change_texte(n, nullptr), 0);
        grx_detruit_bouton(n);
    }
}

// KEEP: this label is made without the application's tag.
TEST_F(ControlOperations, LabelsOfTheSimpleConversion) {
    for (const ControlKind& kind : control_kinds) {
        if (!has_label(kind)) continue;
        const INT n = placed(control_of(kind, window));
        EXPECT_EQ(grx_affecte_champ_bouton(n, writable("Simple")), 0);
        EXPECT_EQ(label_of(control(n)), "(other)") << kind.name;
        EXPECT_EQ(text_resource(control(n), XmNlabelString), "Simple") << kind.name;
        EXPECT_EQ(grx_affecte_champ_bouton(n, nullptr), 0);
        EXPECT_EQ(text_resource(control(n), XmNlabelString).find("Simple"), std::string::npos) << kind.name;
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlOperations, SettingTheTextOfAField) {
    for (INT bits : {0, GRX_BOU_ATT_TEXTE_MULTI}) {
        const INT n = made(text_type, bits, "ancien");
        EXPECT_EQ(grx_affecte_champ_texte(n, writable("neuf")), 0);
        EXPECT_EQ(text_of(n), "neuf");
        EXPECT_EQ(grx_affecte_champ_texte(n, nullptr), 0);
        EXPECT_EQ(text_of(n), "");
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlOperations, InsertingAtTheInsertionPoint) {
    for (INT bits : {0, GRX_BOU_ATT_TEXTE_MULTI}) {
        const INT n = made(text_type, bits, "");
        grx_change_texte(n, writable("abcdef"));
        XmTextSetInsertionPosition(control(n), 2);
        EXPECT_EQ(grx_ajoute_texte(n, writable("XY")), 0);
        EXPECT_EQ(text_of(n), "abXYcdef");
        EXPECT_EQ(XmTextGetInsertionPosition(control(n)), 4);
        EXPECT_EQ(grx_ajoute_texte(n, writable("Z")), 0);
        EXPECT_EQ(text_of(n), "abXYZcdef");
        EXPECT_EQ(grx_ajoute_texte(n, writable("")), 0);
        EXPECT_EQ(grx_ajoute_texte(n, nullptr), 0);
        EXPECT_EQ(text_of(n), "abXYZcdef");
        EXPECT_EQ(XmTextGetInsertionPosition(control(n)), 5);
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlOperations, InsertingShowsTheEndOfWhatWasInserted) {
    const INT n = made(text_type, GRX_BOU_ATT_TEXTE_MULTI, "");
    XtVaSetValues(control(n), XmNautoShowCursorPosition, False, nullptr); // the toolkit's own showing would hide it
    std::string all;
    for (int i = 0; i < 60; ++i) {
        const std::string line = "ligne " + std::to_string(i) + "\n";
        grx_ajoute_texte(n, writable(line.c_str()));
        all += line;
    }
    drain();
    EXPECT_EQ(text_of(n), all);
    EXPECT_EQ(XmTextGetInsertionPosition(control(n)), static_cast<XmTextPosition>(all.size()));
    Position x = 0, y = 0;
    ASSERT_TRUE(XmTextPosToXY(control(n), static_cast<XmTextPosition>(all.size()), &x, &y)) << "it is in view";
    EXPECT_GT(XmTextGetTopCharacter(control(n)), 0);
}

TEST_F(ControlOperations, ReadingATextThatIsNone) {
    for (INT n : one_of_each()) {
        if (button_record(n).type == text_type) continue;
        char text[20] = "avant";
        EXPECT_EQ(grx_recup_texte_bouton(n, text), 0);
        EXPECT_EQ(std::string(text), "avant") << n;
    }
    EXPECT_EQ(grx_recup_texte_bouton(made(text_type), nullptr), 0);
}

TEST_F(ControlOperations, SelectingAField) {
    const INT n = made(text_type, 0, "tout entier");
    EXPECT_EQ(grx_selectionne_champ(n), 0);
    XmTextPosition left = -1, right = -1;
    ASSERT_TRUE(XmTextFieldGetSelectionPosition(control(n), &left, &right));
    EXPECT_EQ(left, 0);
    EXPECT_EQ(right, 11);
    grx_change_texte(n, writable(""));
    EXPECT_EQ(grx_selectionne_champ(n), 0);
    const INT other = made(GRX_BOU_SIMPLE);
    EXPECT_EQ(grx_selectionne_champ(other), 0);
    EXPECT_EQ(grx_selectionne_champ_focus(other), 0);
}

TEST_F(ControlOperations, SelectingATextOfSeveralLinesSelectsNothing) {
    const INT n = made(text_type, GRX_BOU_ATT_TEXTE_MULTI, "une\ndeux");
    grx_force_focus_sur_bouton(n);
    ASSERT_TRUE(wait_for([&] { return XmGetFocusWidget(control(n)) == control(n); }));
    XmTextPosition left = -1, right = -1;
    for (auto select : {grx_selectionne_champ, grx_selectionne_champ_focus}) {
        EXPECT_EQ(select(n), 0);
        EXPECT_FALSE(XmTextGetSelectionPosition(control(n), &left, &right) && left != right);
    }
}

TEST_F(ControlOperations, SelectingIsSeen) {
    const INT n = made(text_type, 0, "tout entier");
    const Pixels before = picture(n);
    grx_selectionne_champ(n);
    EXPECT_TRUE(wait_for([&] { return differences(before, picture(n)) > 100; })) << "highlighted";
}

TEST_F(ControlOperations, SelectingTheFieldThatHasTheFocus) {
    const INT first = made(text_type, 0, "premier");
    GRX_BOUTON description = a(text_type, 0, "second");
    description.y = 200;
    const INT second = placed(description);
    description = a(GRX_BOU_SIMPLE);
    description.x = 200;
    const INT button = placed(description);
    XmTextPosition left = -1, right = -1;
    grx_force_focus_sur_bouton(second);
    ASSERT_TRUE(wait_for([&] { return XmGetFocusWidget(control(second)) == control(second); }));
    EXPECT_EQ(grx_selectionne_champ_focus(first), 0);
    ASSERT_TRUE(XmTextFieldGetSelectionPosition(control(second), &left, &right));
    EXPECT_EQ(right - left, 6);
    EXPECT_FALSE(XmTextFieldGetSelectionPosition(control(first), &left, &right) && left != right);
    XmTextFieldClearSelection(control(second), CurrentTime);
    grx_force_focus_sur_bouton(button);
    ASSERT_TRUE(wait_for([&] { return XmGetFocusWidget(control(button)) == control(button); }));
    EXPECT_EQ(grx_selectionne_champ_focus(first), 0);
    EXPECT_FALSE(XmTextFieldGetSelectionPosition(control(first), &left, &right) && left != right);
    EXPECT_FALSE(XmTextFieldGetSelectionPosition(control(second), &left, &right) && left != right);
}

TEST_F(ControlOperations, TheWidthOfAFieldHasOneCharacterMore) {
    grx_affecte_lar_carac_alpha(8);
    EXPECT_EQ(grx_calc_larg_saisie(10), 88);
    EXPECT_EQ(grx_calc_larg_saisie(0), 8);
    EXPECT_EQ(grx_calc_larg_saisie(-1), 0);
    grx_affecte_lar_carac_alpha(0);
    EXPECT_EQ(grx_calc_larg_saisie(10), 0);
    grx_affecte_lar_carac_alpha(8);
    grx_calc_larg_saisie(INT_MAX);
    grx_calc_larg_saisie(INT_MIN);
}

// --- lists --------------------------------------------------------------------------------------------------------

std::string element(INT n, INT position) {
    char text[20000] = "(intact)";
    const INT result = grx_recup_element_dans_liste(n, position, text);
    return result == 1 ? std::string(text) : std::to_string(result) + text;
}

TEST_F(ControlOperations, TheNewestElementComesFirst) {
    for (INT bits : {0, GRX_BOU_ATT_LISTE_SCROLL}) {
        const INT n = made(list_type, bits);
        EXPECT_EQ(grx_recup_nombre_elements_dans_list(n), 0);
        EXPECT_EQ(element(n, 1), "0(intact)");
        for (const char* text : {"a", "b", "c"}) EXPECT_EQ(grx_ajoute_element_dans_liste(n, writable(text)), 0);
        EXPECT_EQ(grx_recup_nombre_elements_dans_list(n), 3);
        EXPECT_EQ(element(n, 1), "c");
        EXPECT_EQ(element(n, 2), "b");
        EXPECT_EQ(element(n, 3), "a");
        for (INT position : {4, 5, 0, -1, INT_MIN, INT_MAX}) EXPECT_EQ(element(n, position), "0(intact)") << position;
        EXPECT_EQ(grx_ajoute_element_dans_liste(n, writable("")), 0);
        EXPECT_EQ(grx_ajoute_element_dans_liste(n, nullptr), 0);
        EXPECT_EQ(grx_recup_nombre_elements_dans_list(n), 3);
        EXPECT_EQ(resource<int>(control(n), XmNselectedItemCount), 0) << "added unselected";
        EXPECT_EQ(grx_recup_element_dans_liste(n, 1, nullptr), 0) << "nowhere to put it";
        grx_detruit_bouton(n);
    }
}

// Not even one whose text is that of the selected one.
TEST_F(ControlOperations, AnElementIsAddedUnselected) {
    const INT n = made(list_type);
    grx_ajoute_element_dans_liste(n, writable("a"));
    XmListSelectPos(control(n), 1, False);
    grx_ajoute_element_dans_liste(n, writable("a"));
    EXPECT_FALSE(XmListPosSelected(control(n), 1));
    EXPECT_TRUE(XmListPosSelected(control(n), 2));
}

TEST_F(ControlOperations, ElementsOfAnyLength) {
    const INT n = made(list_type);
    for (std::size_t length : {1U, 79U, 80U, 255U, 256U, 5000U}) {
        const std::string text(length, 'e');
        grx_ajoute_element_dans_liste(n, writable(text.c_str()));
        EXPECT_EQ(element(n, 1), text);
    }
    EXPECT_EQ(tagged_text(control(n), XmNlabelString, "tag1"), "(other)");
    XmStringTable items = nullptr;
    XtVaGetValues(control(n), XmNitems, &items, nullptr);
    char* tagged = nullptr;
    EXPECT_TRUE(XmStringGetLtoR(items[0], writable("tag1"), &tagged)) << "elements carry the tag";
    XtFree(tagged);
}

TEST_F(ControlOperations, AThousandElements) {
    const INT n = made(list_type, GRX_BOU_ATT_LISTE_SCROLL);
    for (int i = 0; i < 1000; ++i) grx_ajoute_element_dans_liste(n, std::to_string(i).data());
    EXPECT_EQ(grx_recup_nombre_elements_dans_list(n), 1000);
    EXPECT_EQ(element(n, 1), "999");
    EXPECT_EQ(element(n, 1000), "0");
    EXPECT_EQ(element(n, 1001), "0(intact)");
}

// An element that the application put there itself, without the tag, or of the default tag only.
TEST_F(ControlOperations, AnElementOfAnotherTagIsReadOrRefused) {
    const INT n = made(list_type);
    const XmString foreign = XmStringCreate(writable("venu d'ailleurs"), writable("autre"));
    XmListAddItem(control(n), foreign, 1);
    XmStringFree(foreign);
    char text[100] = "(intact)";
    const INT result = grx_recup_element_dans_liste(n, 1, text);
    EXPECT_TRUE(
        (result == 1 && std::string(text) == "venu d'ailleurs") || (result == 0 && std::string(text) == "(intact)"))
        << result << " " << text;
}

// --- colours ------------------------------------------------------------------------------------------------------

TEST_F(ControlOperations, ColoursByIndexAndByPixel) {
    const auto numbers = one_of_each();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const INT n = numbers[i];
        const std::string what = kind_of(i).name;
        const Widget w = control(n);
        const bool push = is_a(w, xmPushButtonWidgetClass);
        EXPECT_EQ(grx_change_couleur_bouton(n, 6), 0);
        EXPECT_EQ(resource<Pixel>(w, XmNbackground), pixel_of(6)) << what;
        if (push) {
            EXPECT_EQ(resource<Pixel>(w, XmNarmColor), pixel_of(6)) << what;
        }
        EXPECT_EQ(static_cast<Pixel>(grx_recup_couleur_bouton(n)), pixel_of(6)) << what;
        EXPECT_EQ(grx_change_couleur_trace_bouton(n, 4), 0);
        EXPECT_EQ(resource<Pixel>(w, XmNforeground), pixel_of(4)) << what;
        EXPECT_EQ(static_cast<Pixel>(grx_recup_couleur_trace_bouton(n)), pixel_of(4)) << what;
        const auto direct = static_cast<INT>(pixel_of(7));
        EXPECT_EQ(grx_change_couleur_bouton_indice_direct(n, direct), 0);
        EXPECT_EQ(resource<Pixel>(w, XmNbackground), pixel_of(7)) << what;
        if (push) {
            EXPECT_EQ(resource<Pixel>(w, XmNarmColor), pixel_of(6)) << "unchanged";
        }
        EXPECT_EQ(grx_change_couleur_trace_bouton_indice_direct(n, static_cast<INT>(pixel_of(3))), 0);
        EXPECT_EQ(resource<Pixel>(w, XmNforeground), pixel_of(3)) << what;
        EXPECT_EQ(grx_remet_couleur_initiale_bouton(n, grx_recup_couleur_init_trace_bouton()), 0);
        EXPECT_EQ(grx_recup_couleur_trace_bouton(n), grx_recup_couleur_init_trace_bouton()) << what;
        EXPECT_EQ(resource<Pixel>(w, XmNbackground), pixel_of(7)) << what;
    }
}

TEST_F(ControlOperations, ColoursAreSeen) {
    const INT n = made(GRX_BOU_LABEL, 0, "MMMM");
    grx_change_couleur_bouton(n, 6);
    grx_change_couleur_trace_bouton(n, 4);
    EXPECT_TRUE(wait_for([&] {
        const Pixels now = picture(n);
        return now.count(static_cast<std::uint32_t>(pixel_of(6))) > 5000
               && now.count(static_cast<std::uint32_t>(pixel_of(4))) > 20;
    }));
}

TEST_F(ControlOperations, ColourIndicesOutsideTheTableAreSurvived) {
    const INT n = made(GRX_BOU_SIMPLE);
    for (INT colour : {-1, -100, 255, 256, 100000, INT_MAX, INT_MIN}) {
        EXPECT_EQ(grx_change_couleur_bouton(n, colour), 0);
        EXPECT_EQ(grx_change_couleur_trace_bouton(n, colour), 0);
        EXPECT_EQ(grx_change_couleur_fond_icone_bouton(n, writable("/none.bmp"), colour), 0);
    }
    drain();
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

// --- pressed look -------------------------------------------------------------------------------------------------

TEST_F(ControlOperations, TheLookOfDrawnButtons) {
    for (const ControlKind& kind : control_kinds) {
        if (!is_drawn(kind)) continue;
        const INT n = placed(control_of(kind, window));
        const auto shadow = [&] { return resource<unsigned char>(control(n), XmNshadowType); };
        EXPECT_EQ(grx_bouton_est_il_enfonce(n), 0) << kind.name;
        EXPECT_EQ(grx_enfonce_bouton(n), 0);
        EXPECT_EQ(shadow(), 7) << kind.name;
        EXPECT_FALSE(resource<Boolean>(control(n), XmNpushButtonEnabled)) << kind.name;
        EXPECT_EQ(grx_bouton_est_il_enfonce(n), 1) << kind.name;
        EXPECT_EQ(grx_relache_bouton(n), 0);
        EXPECT_EQ(shadow(), 8) << kind.name;
        EXPECT_EQ(grx_bouton_est_il_enfonce(n), 0) << kind.name;
        grx_enfonce_bouton(n);
        EXPECT_EQ(grx_souligne_bouton(n), 0);
        EXPECT_EQ(shadow(), 5) << kind.name;
        EXPECT_EQ(grx_bouton_est_il_enfonce(n), 0) << kind.name;
        grx_enfonce_bouton(n);
        EXPECT_EQ(grx_relache_bouton_ras(n), 0);
        EXPECT_EQ(shadow(), 5) << "KEEP: flush looks as highlighted";
        EXPECT_EQ(grx_bouton_est_il_enfonce(n), 0) << kind.name;
        EXPECT_FALSE(resource<Boolean>(control(n), XmNpushButtonEnabled)) << kind.name;
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlOperations, EachLookSwitchesThePushBehaviourOff) {
    for (auto look : {grx_enfonce_bouton, grx_relache_bouton, grx_souligne_bouton, grx_relache_bouton_ras}) {
        const INT n = made(GRX_BOU_DESSINE);
        ASSERT_TRUE(resource<Boolean>(control(n), XmNpushButtonEnabled));
        EXPECT_EQ(look(n), 0);
        EXPECT_FALSE(resource<Boolean>(control(n), XmNpushButtonEnabled));
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlOperations, TheLookOfPushButtons) {
    for (const ControlKind& kind : control_kinds) {
        if (!is_real_push(kind)) continue;
        const INT n = placed(control_of(kind, window));
        EXPECT_EQ(grx_bouton_est_il_enfonce(n), 0) << kind.name;
        grx_enfonce_bouton(n);
        EXPECT_EQ(grx_bouton_est_il_enfonce(n), 1) << kind.name;
        for (auto release : {grx_relache_bouton, grx_souligne_bouton, grx_relache_bouton_ras}) {
            grx_enfonce_bouton(n);
            EXPECT_EQ(release(n), 0);
            EXPECT_EQ(grx_bouton_est_il_enfonce(n), 0) << kind.name;
        }
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlOperations, ThePressedLookIsSeenAndTakenBack) {
    for (const ControlKind& kind : control_kinds) {
        if (!is_drawn(kind) && !is_real_push(kind)) continue;
        const INT n = placed(control_of(kind, window));
        grx_relache_bouton(n);
        const Pixels raised = picture(n);
        grx_enfonce_bouton(n);
        const Pixels pressed = picture(n);
        EXPECT_GT(differences(raised, pressed), 100) << kind.name;
        grx_enfonce_bouton(n);
        EXPECT_TRUE(same(pressed, picture(n))) << kind.name << " pressed twice";
        grx_relache_bouton(n);
        EXPECT_TRUE(same(raised, picture(n))) << kind.name;
        grx_relache_bouton(n);
        EXPECT_TRUE(same(raised, picture(n))) << kind.name << " released twice";
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlOperations, ThePressedLookSurvivesANewBackground) {
    const INT n = made(GRX_BOU_SIMPLE);
    grx_change_couleur_bouton(n, 7);
    grx_relache_bouton(n);
    const Pixels raised = picture(n);
    grx_enfonce_bouton(n);
    grx_change_couleur_bouton(n, 6);
    EXPECT_EQ(grx_bouton_est_il_enfonce(n), 1);
    grx_change_couleur_bouton(n, 7);
    grx_relache_bouton(n);
    EXPECT_TRUE(same(raised, picture(n))) << "raised again, not upside down";
}

TEST_F(ControlOperations, ALookStaysWhenTheUserClicks) {
    for (const ControlKind& kind : control_kinds) {
        if (!is_drawn(kind) && !is_real_push(kind)) continue;
        const INT n = placed(control_of(kind, window));
        for (auto look : {grx_enfonce_bouton, grx_relache_bouton}) {
            look(n);
            take_pointer_away();
            const Pixels before = picture(n);
            pointer().click_in(control(n), 60, 40);
            drain();
            take_pointer_away();
            EXPECT_TRUE(wait_for([&] { return picture(n) == before; })) << kind.name;
            EXPECT_EQ(grx_bouton_est_il_enfonce(n), look == grx_enfonce_bouton ? 1 : 0) << kind.name;
        }
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlOperations, OtherKindsHaveNoPressedLook) {
    for (const ControlKind& kind : control_kinds) {
        if (is_drawn(kind) || is_real_push(kind)) continue;
        const INT n = placed(control_of(kind, window));
        const Pixels before = picture(n);
        for (auto look : {grx_enfonce_bouton, grx_relache_bouton, grx_souligne_bouton, grx_relache_bouton_ras})
            EXPECT_EQ(look(n), 0);
        drain();
        grx_enfonce_bouton(n);
        EXPECT_EQ(grx_bouton_est_il_enfonce(n), 0) << kind.name;
        grx_detruit_bouton(n);
    }
}

// --- icons --------------------------------------------------------------------------------------------------------

TEST_F(ControlOperations, ChangingTheIcon) {
    const std::string red = plain_icon("red.bmp", 12), green = plain_icon("green.bmp", 10, 20, 9);
    for (const ControlKind& kind : control_kinds) {
        if (!has_label(kind)) continue;
        const INT n = placed(control_of(kind, window));
        EXPECT_EQ(grx_change_icone_bouton(n, writable(red.c_str())), 0);
        EXPECT_EQ(resource<unsigned char>(control(n), XmNlabelType), XmPIXMAP) << kind.name;
        EXPECT_EQ(resource<Pixmap>(control(n), XmNlabelPixmap), button_record(n).image) << kind.name;
        EXPECT_EQ(grab(x11_disp, button_record(n).image).at(2, 2), static_cast<Pixel>(grx_recup_couleur_icone(12)));
        EXPECT_EQ(grx_change_icone_bouton(n, writable(green.c_str())), 0);
        EXPECT_EQ(resource<Pixmap>(control(n), XmNlabelPixmap), button_record(n).image) << kind.name;
        EXPECT_EQ(pixmap_extent(button_record(n).image), (Extent{20, 9})) << kind.name;
        EXPECT_EQ(grab(x11_disp, button_record(n).image).at(2, 2), static_cast<Pixel>(grx_recup_couleur_icone(10)));
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlOperations, AnIconThatCannotBeReadLeavesTheLabel) {
    const std::string red = plain_icon("red.bmp", 12);
    const INT n = made(GRX_BOU_SIMPLE);
    for (const char* name : {"/nowhere/none.bmp", "", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(grx_change_icone_bouton(n, writable(name)), 0);
        EXPECT_EQ(button_record(n).image, 0U);
        EXPECT_EQ(resource<unsigned char>(control(n), XmNlabelType), XmSTRING);
        EXPECT_EQ(label_of(control(n)), "Text");
    }
    grx_change_icone_bouton(n, writable(red.c_str()));
    ASSERT_EQ(resource<unsigned char>(control(n), XmNlabelType), XmPIXMAP);
    EXPECT_EQ(grx_change_icone_bouton(n, writable("/nowhere/none.bmp")), 0);
    EXPECT_EQ(button_record(n).image, 0U);
    drain();
    grx_cache_bouton(n);
    drain();
    grx_affiche_bouton(n); // redrawn: the freed pixmap must not be copied from
    drain();
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(ControlOperations, TheBackgroundOfAnIconIsItsColourEight) {
    const std::string path = icon_file("icon.bmp", 16, 8, [](int x, int) { return x < 8 ? 8 : 12; });
    const INT n = made(GRX_BOU_SIMPLE);
    const INT eight = grx_recup_couleur_icone(8);
    grx_change_icone_bouton(n, writable(path.c_str()));
    EXPECT_EQ(grx_change_couleur_fond_icone_bouton(n, writable(path.c_str()), 14), 0);
    EXPECT_EQ(grx_recup_couleur_icone(8), eight) << "restored";
    EXPECT_EQ(resource<Pixmap>(control(n), XmNlabelPixmap), button_record(n).image);
    Pixels icon = grab(x11_disp, button_record(n).image);
    ASSERT_FALSE(icon.empty());
    EXPECT_EQ(icon.at(0, 0), static_cast<Pixel>(grx_recup_couleur_icone(14)));
    EXPECT_EQ(icon.at(15, 0), static_cast<Pixel>(grx_recup_couleur_icone(12)));
    EXPECT_EQ(grx_change_couleur_fond_icone_bouton(n, writable(path.c_str()), -1), 0);
    icon = grab(x11_disp, button_record(n).image);
    ASSERT_FALSE(icon.empty());
    EXPECT_EQ(icon.at(0, 0), static_cast<Pixel>(eight));
    EXPECT_EQ(grx_recup_couleur_icone(8), eight);
}

TEST_F(ControlOperations, WithoutABackgroundColourEightIsLeftAsItIs) {
    const std::string path = plain_icon("icon.bmp", 8);
    const INT n = made(GRX_BOU_SIMPLE);
    const INT other = grx_recup_couleur_icone(14);
    grx_change_couleur_8_icone(14);
    EXPECT_EQ(grx_change_couleur_fond_icone_bouton(n, writable(path.c_str()), -1), 0);
    EXPECT_EQ(grab(x11_disp, button_record(n).image).at(0, 0), static_cast<Pixel>(other));
    EXPECT_EQ(grx_recup_couleur_icone(8), other) << "whoever changed it restores it";
    grx_restore_couleur_8_icone();
}

TEST_F(ControlOperations, ANewIconBackgroundLeavesTheKindOfLabel) {
    const std::string path = plain_icon("icon.bmp", 12);
    const INT n = made(GRX_BOU_SIMPLE);
    EXPECT_EQ(grx_change_couleur_fond_icone_bouton(n, writable(path.c_str()), 14), 0);
    EXPECT_EQ(resource<unsigned char>(control(n), XmNlabelType), XmSTRING);
    EXPECT_EQ(resource<Pixmap>(control(n), XmNlabelPixmap), button_record(n).image);
    EXPECT_NE(button_record(n).image, 0U);
    EXPECT_EQ(grx_change_couleur_fond_icone_bouton(n, writable("/nowhere.bmp"), 14), 0);
    EXPECT_EQ(button_record(n).image, 0U);
    EXPECT_EQ(grx_change_couleur_fond_icone_bouton(n, nullptr, 14), 0);
}

TEST_F(ControlOperations, OneIconForTwoButtons) {
    const std::string path = plain_icon("icon.bmp", 12);
    const INT first = made(GRX_BOU_SIMPLE), second = made(GRX_BOU_DESSINE), text = made(GRX_BOU_LABEL);
    grx_change_icone_bouton(first, writable(path.c_str()));
    EXPECT_EQ(grx_affecte_icone_bouton1_bouton2(first, second), 0);
    EXPECT_EQ(resource<Pixmap>(control(second), XmNlabelPixmap), resource<Pixmap>(control(first), XmNlabelPixmap));
    EXPECT_EQ(button_record(second).image, 0U) << "only shared";
    const Pixmap before = resource<Pixmap>(control(text), XmNlabelPixmap);
    for (INT n : no_controls) {
        EXPECT_EQ(grx_affecte_icone_bouton1_bouton2(n, text), 0);
        EXPECT_EQ(grx_affecte_icone_bouton1_bouton2(text, n), 0);
    }
    EXPECT_EQ(resource<Pixmap>(control(text), XmNlabelPixmap), before);
    EXPECT_EQ(grx_affecte_icone_bouton1_bouton2(first, first), 0);
    for (INT other : one_of_each()) {
        if (button_record(other).type == GRX_BOU_LABEL) continue;
        EXPECT_EQ(grx_affecte_icone_bouton1_bouton2(first, other), 0);
        EXPECT_EQ(grx_affecte_icone_bouton1_bouton2(other, text), 0);
    }
}

TEST_F(ControlOperations, AReleasedIconIsTakenOffEveryButtonThatSharedIt) {
    const std::string path = plain_icon("icon.bmp", 12);
    const INT first = made(GRX_BOU_SIMPLE), second = made(GRX_BOU_DESSINE), third = made(GRX_BOU_SIMPLE);
    grx_change_icone_bouton(first, writable(path.c_str()));
    const Pixmap icon = button_record(first).image;
    ASSERT_NE(icon, 0U);
    grx_affecte_icone_bouton1_bouton2(first, second);
    grx_affecte_icone_bouton1_bouton2(second, third);
    ASSERT_EQ(resource<Pixmap>(control(third), XmNlabelPixmap), icon);
    grx_detruit_bouton(first);
    EXPECT_NE(resource<Pixmap>(control(second), XmNlabelPixmap), icon);
    EXPECT_NE(resource<Pixmap>(control(third), XmNlabelPixmap), icon);
    drain();
}

TEST_F(ControlOperations, IconsOnKindsWithoutLabelAreSurvived) {
    const std::string path = plain_icon("icon.bmp", 12);
    for (const ControlKind& kind : control_kinds) {
        if (has_label(kind)) continue;
        const INT n = placed(control_of(kind, window));
        EXPECT_EQ(grx_change_icone_bouton(n, writable(path.c_str())), 0) << kind.name;
        EXPECT_EQ(grx_change_couleur_fond_icone_bouton(n, writable(path.c_str()), 14), 0) << kind.name;
        drain();
        if (kind.type == GRX_BOU_ZONE_DESSIN) { // whatever it holds, it can be shown and drawn
            grx_affiche_bitmap_backingstore_bouton(n);
        }
        grx_detruit_bouton(n);
        drain();
    }
}

TEST_F(ControlOperations, IconsComeAndGoWithoutLeaving) {
    const std::string path = plain_icon("icon.bmp", 12);
    const INT n = made(GRX_BOU_SIMPLE);
    grx_change_icone_bouton(n, writable(path.c_str()));
    drain();
    const auto resources = server_resources(test_display(), XtWindow(widget_of(window)));
    const std::size_t bytes = heap().bytes();
    for (int i = 0; i < 50; ++i) {
        grx_change_icone_bouton(n, writable(path.c_str()));
        grx_change_couleur_fond_icone_bouton(n, writable(path.c_str()), 14);
    }
    drain();
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(server_resources(test_display(), XtWindow(widget_of(window))), resources);
    grx_desinstalle_bitmap(n);
    grx_desinstalle_bitmap(n);
    grx_detruit_bouton(n);
    drain();
}

TEST_F(ControlOperations, IconsWithoutMemory) {
    const std::string path = plain_icon("icon.bmp", 12);
    const INT n = made(GRX_BOU_SIMPLE);
    grx_change_icone_bouton(n, writable(path.c_str()));
    const std::size_t blocks = heap().blocks();
    const INT eight = grx_recup_couleur_icone(8);
    EXPECT_GT(fail_each_allocation([&] {
        EXPECT_EQ(grx_change_icone_bouton(n, writable(path.c_str())), 0);
        EXPECT_EQ(grx_change_couleur_fond_icone_bouton(n, writable(path.c_str()), 14), 0);
        EXPECT_EQ(grx_recup_couleur_icone(8), eight);
        drain();
    }),
        0);
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_NE(button_record(n).image, 0U);
}

// --- scales -------------------------------------------------------------------------------------------------------

INT value_of(INT n) {
    return resource<int>(control(n), XmNvalue);
}

TEST_F(ControlOperations, TheValueOfAScale) {
    const INT n = made(scale_type);
    for (INT value : {0, 1, 50, 99, 100}) {
        EXPECT_EQ(grx_change_valeur_echelle(n, value), 0);
        EXPECT_EQ(value_of(n), value);
        int slider = -1;
        XmScaleGetValue(control(n), &slider);
        EXPECT_EQ(slider, value);
    }
    for (INT value : {-1, 101, INT_MIN, INT_MAX}) {
        grx_change_valeur_echelle(n, 40);
        EXPECT_EQ(grx_change_valeur_echelle(n, value), 0);
        EXPECT_EQ(value_of(n), 40) << value;
    }
}

TEST_F(ControlOperations, TheBoundsOfAScale) {
    const INT n = made(scale_type);
    grx_change_valeur_echelle(n, 40);
    EXPECT_EQ(grx_change_bornes_echelle(n, -50, 250), 0);
    EXPECT_EQ(resource<int>(control(n), XmNminimum), -50);
    EXPECT_EQ(resource<int>(control(n), XmNmaximum), 250);
    EXPECT_EQ(value_of(n), 40);
    EXPECT_EQ(grx_change_bornes_echelle(n, 300, 400), 0) << "both beyond the former ones";
    EXPECT_EQ(resource<int>(control(n), XmNminimum), 300);
    EXPECT_EQ(resource<int>(control(n), XmNmaximum), 400);
    EXPECT_GE(value_of(n), 300);
    EXPECT_LE(value_of(n), 400);
    EXPECT_EQ(grx_change_bornes_echelle(n, -20, -10), 0);
    EXPECT_EQ(resource<int>(control(n), XmNminimum), -20);
    EXPECT_EQ(resource<int>(control(n), XmNmaximum), -10);
    for (const auto& [minimum, maximum] :
        {std::pair{5, 5}, std::pair{9, 3}, std::pair{INT_MIN, INT_MAX}, std::pair{INT_MAX, INT_MIN}}) {
        EXPECT_EQ(grx_change_bornes_echelle(n, minimum, maximum), 0);
        drain();
    }
}

TEST_F(ControlOperations, ScaleOperationsOnOtherKinds) {
    for (INT n : one_of_each()) {
        if (button_record(n).type == scale_type) continue;
        const Pixels before = picture(n);
        EXPECT_EQ(grx_change_valeur_echelle(n, 5), 0);
        EXPECT_EQ(grx_change_bornes_echelle(n, 5, 50), 0);
        EXPECT_TRUE(same(before, picture(n)));
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
            const std::string label = has_label(kind) ? label_of(control(n)) : "";
            EXPECT_EQ(grx_affecte_champ_texte(n, writable("x")), 0) << kind.name;
            EXPECT_EQ(grx_ajoute_texte(n, writable("x")), 0) << kind.name;
            EXPECT_EQ(grx_selectionne_champ(n), 0) << kind.name;
            if (has_label(kind)) {
                EXPECT_EQ(label_of(control(n)), label) << kind.name;
            }
        }
        if (is_text(kind)) {
            EXPECT_EQ(grx_affecte_champ_bouton(n, writable("x")), 0) << kind.name;
            EXPECT_EQ(text_of(n), "Text") << kind.name;
        }
        if (!has_label(kind) && !is_text(kind)) {
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

// --- bytes --------------------------------------------------------------------------------------------------------

// Every byte but the final zero; a field of one line has no line feed.
std::string every_byte(bool line_feed) {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte)
        if (line_feed || byte != '\n') bytes.push_back(static_cast<char>(byte));
    return bytes;
}

std::string latin_text() {
    std::string bytes;
    for (int byte = 32; byte < 256; ++byte)
        if (byte < 127 || byte >= 160) bytes.push_back(static_cast<char>(byte));
    return bytes;
}

class TextBytes : public ControlOperations {
  protected:
    void through_all(const std::string& bytes, const std::string& without_line_feed) {
        const INT field = made(text_type), multi = made(text_type, GRX_BOU_ATT_TEXTE_MULTI), list = made(list_type);
        for (auto set : {grx_change_texte, grx_affecte_champ_texte}) {
            grx_affecte_champ_texte(field, writable(""));
            set(field, writable(without_line_feed.c_str()));
            EXPECT_EQ(text_of(field), without_line_feed);
            grx_affecte_champ_texte(multi, writable(""));
            set(multi, writable(bytes.c_str()));
            EXPECT_EQ(text_of(multi), bytes);
        }
        grx_affecte_champ_texte(multi, writable(""));
        grx_ajoute_texte(multi, writable(bytes.c_str()));
        EXPECT_EQ(text_of(multi), bytes);
        grx_ajoute_element_dans_liste(list, writable(without_line_feed.c_str()));
        EXPECT_EQ(element(list, 1), without_line_feed);
        grx_ajoute_element_dans_liste(list, writable(bytes.c_str()));
        EXPECT_EQ(element(list, 1), bytes);
    }

    void one_by_one() {
        const INT field = made(text_type), list = made(list_type), label = made(GRX_BOU_LABEL);
        for (int byte = 1; byte < 256; ++byte) {
            const std::string text{'a', static_cast<char>(byte), 'z'};
            grx_change_texte(label, writable(text.c_str()));
            grx_ajoute_element_dans_liste(list, writable(text.c_str()));
            EXPECT_EQ(element(list, 1), text) << byte;
            if (byte == '\n') continue;
            grx_change_texte(field, writable(text.c_str()));
            EXPECT_EQ(text_of(field), text) << byte;
            if (byte == '\t') continue; // a component of its own in a compound string
            EXPECT_EQ(label_of(control(label)), text) << byte;
        }
    }

    // A title as a field's first text, and as the name and label of others.
    void as_titles(const std::string& bytes) {
        for (std::size_t from = 0; from < bytes.size(); from += GRX_TITRE_MAX - 1) {
            const std::string title = bytes.substr(from, GRX_TITRE_MAX - 1);
            const INT field = made(text_type, 0, title.c_str()), label = made(GRX_BOU_LABEL, 0, title.c_str());
            EXPECT_EQ(text_of(field), title);
            if (title.find('\t') == std::string::npos && title.find('\n') == std::string::npos) {
                EXPECT_EQ(label_of(control(label)), title);
            }
            grx_detruit_bouton(field);
            grx_detruit_bouton(label);
        }
    }

    // As many cells as characters: accented letters are one character in the application's font.
    void labels_are_one_cell_a_character(const std::string& bytes) {
        GRX_BOUTON description = a(GRX_BOU_LABEL, 0, "");
        description.largeur = description.hauteur = -1;
        set_title(description, std::string(10, 'n'));
        const INT plain = placed(description);
        set_title(description, bytes.substr(bytes.size() - 10));
        const INT accented = placed(description);
        EXPECT_EQ(extent_of(control(accented)), extent_of(control(plain)));
    }
};

TEST_F(TextBytes, AreUnchangedInTheCLocale) {
    through_all(every_byte(true), every_byte(false));
    one_by_one();
    as_titles(every_byte(false));
    labels_are_one_cell_a_character(latin_text());
}

TEST_F(TextBytes, AreTypedInTheCLocale) {
    keyboard().layout("fr");
    const INT field = made(text_type, 0, "");
    pointer().click_in(control(field), 10, 10);
    settle();
    keyboard().type("aé");
    drain();
    EXPECT_EQ(text_of(field), "a\xe9");
    std::vector<INT> codes;
    for (const GRX_EVENEMENT& e : events.seen())
        if (e.type_evenement == GRX_EVT_CARAC_APPUI) codes.push_back(e.carac_appui.carac);
    EXPECT_EQ(codes, (std::vector<INT>{'a', 0xE9}));
}

class TextBytesInUtf8 : public TextBytes {
  protected:
    void before_start() override {
        TextBytes::before_start();
        ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    }
};

TEST_F(TextBytesInUtf8, LatinTextIsUnchanged) {
    through_all(latin_text(), latin_text());
    as_titles(latin_text());
    labels_are_one_cell_a_character(latin_text());
}

TEST_F(TextBytesInUtf8, AllBytesAreUnchanged) {
    through_all(every_byte(true), every_byte(false));
    one_by_one();
}

TEST_F(TextBytesInUtf8, Utf8TextIsUnchanged) {
    through_all("d\u00e9j\u00e0 \u20ac 10\nfin", "d\u00e9j\u00e0 \u20ac 10 fin");
    as_titles("d\u00e9j\u00e0 \u20ac 10 fin");
}

// One Latin-1 text does not make Latin-1 of the texts of other fields.
TEST_F(TextBytesInUtf8, EachFieldKeepsTheEncodingItWasGiven) {
    const std::string utf8 = "d\u00e9j\u00e0", latin = "d\xe9j\xe0";
    const INT first = made(text_type, 0, utf8.c_str()), second = made(text_type), third = made(text_type),
              multi = made(text_type, GRX_BOU_ATT_TEXTE_MULTI);
    grx_change_texte(second, writable(latin.c_str()));
    grx_change_texte(third, writable(utf8.c_str()));
    grx_ajoute_texte(multi, writable(utf8.c_str()));
    EXPECT_EQ(text_of(first), utf8);
    EXPECT_EQ(text_of(second), latin);
    EXPECT_EQ(text_of(third), utf8);
    EXPECT_EQ(text_of(multi), "Text" == text_of(multi).substr(0, 4) ? "Text" + utf8 : utf8 + "Text");
    grx_affecte_champ_texte(second, writable(utf8.c_str()));
    grx_affecte_champ_texte(third, writable(latin.c_str()));
    EXPECT_EQ(text_of(second), utf8);
    EXPECT_EQ(text_of(third), latin);
    grx_detruit_bouton(third);
    EXPECT_EQ(made(text_type, 0, utf8.c_str()), third);
    EXPECT_EQ(text_of(third), utf8) << "a new field of an old number";
}

TEST_F(TextBytesInUtf8, LatinTextThatLooksLikeUtf8IsUnchanged) {
    const INT field = made(text_type);
    for (const char* text : {"\xe9t\xe9", "\xc3\xa9", "abc", "\xc3\xa9", "\xe9"}) {
        grx_change_texte(field, writable(text));
        EXPECT_EQ(text_of(field), text);
    }
}

TEST_F(TextBytesInUtf8, WhatIsTypedComesInTheEncodingOfTheField) {
    keyboard().layout("fr");
    const INT field = made(text_type, 0, "");
    pointer().click_in(control(field), 10, 10);
    drain();
    keyboard().type("é");
    drain();
    EXPECT_EQ(text_of(field), "\u00e9") << "the application has shown nothing but UTF-8";
    grx_change_texte(field, writable("\xe0"));
    keyboard().type("é");
    drain();
    EXPECT_EQ(text_of(field), "\xe0\xe9");
}

TEST_F(TextBytesInUtf8, TheCursorGoesToTheEndOfALatinText) {
    const INT field = made(text_type);
    grx_change_texte(field, writable("\xe9t\xe9"));
    EXPECT_EQ(resource<XmTextPosition>(control(field), XmNcursorPosition), 3) << "characters, not bytes";
    grx_ajoute_texte(field, writable("s \xe0"));
    EXPECT_EQ(text_of(field), "\xe9t\xe9s \xe0");
    grx_selectionne_champ(field);
    XmTextPosition left = -1, right = -1;
    ASSERT_TRUE(XmTextFieldGetSelectionPosition(control(field), &left, &right));
    EXPECT_EQ(left, 0);
    EXPECT_EQ(right, 6);
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
