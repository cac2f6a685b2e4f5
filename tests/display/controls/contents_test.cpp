// What controls hold: texts and their bytes, labels, elements of lists, values of scales.
#include "tests/display/controls/control_operations_kit.h"

#include <clocale>

namespace {

using namespace grxtest;

constexpr INT list_type = GRX_BOU_LISTE;
constexpr INT text_type = GRX_BOU_TEXTE;
constexpr INT scale_type = GRX_BOU_ECHELLE;

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
        if (!has_label(kind.type)) continue;
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
        if (!has_label(kind.type)) continue;
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

} // namespace
