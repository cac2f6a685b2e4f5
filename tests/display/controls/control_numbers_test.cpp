// Numbers of controls: a full base, controls of a window that is gone, memory.
#include "tests/display/controls/control_creation_kit.h"
#include "tests/support/stdout_capture.h"

#include <malloc.h>

#include <algorithm>
#include <ranges>

namespace {

using namespace grxtest;

TEST_F(ControlCreation, AThousandLiveControlsFillTheBase) {
    GRX_BOUTON description = a(GRX_BOU_SEPARATEUR);
    description.no_fo = 5;
    const Widget holder = XmCreateBulletinBoard(widget_of(window), const_cast<char*>("holder"), nullptr, 0);
    description.ref_fen_mere = holder;
    const INT first = grx_recup_indice_objet_bout_libre();
    for (INT n = first; n < 1000; ++n) ASSERT_EQ(make(description), n);
    StdoutCapture capture;
    const std::size_t children = children_of(holder).size();
    description.nobou = -1;
    EXPECT_EQ(grx_cree_bouton(&description), -3);
    EXPECT_EQ(capture.text(), "Depassement de taille de la base des boutons\n");
    EXPECT_EQ(children_of(holder).size(), children + 1) << "the widget stays, without a number";
    EXPECT_EQ(description.nobou, -1);
    capture.restore();
    EXPECT_EQ(grx_detruit_bouton(17), 0);
    EXPECT_EQ(grx_recup_objet_bout(17), nullptr);
    EXPECT_EQ(make(description), 17);
    EXPECT_EQ(make(description), -3);
    grx_detruit_bouton(999);
    grx_detruit_bouton(500);
    EXPECT_EQ(make(description), 500) << "the lowest first";
    EXPECT_EQ(make(description), 999);
}

TEST_F(ControlCreation, ANewOwnerOfANumberHasNothingOfTheOldOne) {
    const std::string path = plain_icon("icon.bmp", 12);
    GRX_BOUTON first = a(GRX_BOU_DESSINE);
    path.copy(first.icone, GRX_TITRE_MAX - 1);
    const INT n = placed(first);
    ASSERT_NE(button_record(n).image, 0U);
    grx_enfonce_bouton(n);
    EXPECT_EQ(grx_bouton_est_il_enfonce(n), 1);
    grx_detruit_bouton(n);
    GRX_BOUTON second = a(GRX_BOU_SIMPLE, 0, "Neuf");
    second.no_fo = 12;
    second.tabi[GRX_BOU_TABI_VALEUR] = 9;
    ASSERT_EQ(placed(second), n);
    EXPECT_EQ(button_record(n).image, 0U);
    EXPECT_EQ(button_record(n).type, GRX_BOU_SIMPLE);
    EXPECT_EQ(button_record(n).no_fo, 12);
    EXPECT_EQ(button_record(n).valeur, 9);
    EXPECT_EQ(grx_bouton_est_il_enfonce(n), 0);
    grx_desinstalle_bitmap(n);
    drain();
    EXPECT_EQ(label_of(control(n)), "Neuf");
}

// --- controls of a window that is gone ----------------------------------------------------------------------------

void try_every_operation(INT n) {
    char text[64] = "avant";
    INT first = 77, second = 78;
    INT list[1] = {n};
    const auto w = [](const char* s) { return const_cast<char*>(s); };
    EXPECT_EQ(grx_affiche_boutons(list, 1), 0);
    EXPECT_EQ(grx_affiche_bouton(n), 0);
    EXPECT_EQ(grx_cache_bouton(n), 0);
    EXPECT_EQ(grx_efface_bouton(n), 0);
    EXPECT_EQ(grx_desactive_bouton(n, 1), 0);
    EXPECT_EQ(grx_force_focus_sur_bouton(n), 0);
    EXPECT_EQ(grx_flush_dessin_bouton(n), 0);
    EXPECT_EQ(grx_change_texte(n, w("x")), 0);
    EXPECT_EQ(grx_affecte_champ_bouton(n, w("x")), 0);
    EXPECT_EQ(grx_affecte_champ_texte(n, w("x")), 0);
    EXPECT_EQ(grx_ajoute_texte(n, w("x")), 0);
    EXPECT_EQ(grx_recup_texte_bouton(n, text), 0);
    EXPECT_EQ(grx_selectionne_champ(n), 0);
    EXPECT_EQ(grx_selectionne_champ_focus(n), 0);
    EXPECT_EQ(grx_ajoute_element_dans_liste(n, w("x")), 0);
    EXPECT_EQ(grx_recup_nombre_elements_dans_list(n), -1);
    EXPECT_EQ(grx_recup_element_dans_liste(n, 1, text), -1);
    EXPECT_EQ(grx_change_couleur_bouton(n, 3), 0);
    EXPECT_EQ(grx_change_couleur_trace_bouton(n, 3), 0);
    EXPECT_EQ(grx_change_couleur_bouton_indice_direct(n, 3), 0);
    EXPECT_EQ(grx_change_couleur_trace_bouton_indice_direct(n, 3), 0);
    EXPECT_EQ(grx_remet_couleur_initiale_bouton(n, 3), 0);
    grx_recup_couleur_bouton(n);
    grx_recup_couleur_trace_bouton(n);
    EXPECT_EQ(grx_change_taille_bouton(n, 5, 5), 0);
    EXPECT_EQ(grx_recup_taille_bouton(n, &first, &second), 0);
    EXPECT_EQ(grx_change_position_bouton(n, 5, 5), 0);
    EXPECT_EQ(grx_recup_position_bouton(n, &first, &second), 0);
    EXPECT_EQ(grx_enfonce_bouton(n), 0);
    EXPECT_EQ(grx_bouton_est_il_enfonce(n), 0);
    EXPECT_EQ(grx_relache_bouton(n), 0);
    EXPECT_EQ(grx_souligne_bouton(n), 0);
    EXPECT_EQ(grx_relache_bouton_ras(n), 0);
    EXPECT_EQ(grx_change_icone_bouton(n, w("/nowhere.bmp")), 0);
    EXPECT_EQ(grx_change_couleur_fond_icone_bouton(n, w("/nowhere.bmp"), 3), 0);
    EXPECT_EQ(grx_affecte_icone_bouton1_bouton2(n, n), 0);
    EXPECT_EQ(grx_change_valeur_echelle(n, 3), 0);
    EXPECT_EQ(grx_change_bornes_echelle(n, 3, 4), 0);
    EXPECT_EQ(std::string(text), "avant");
    EXPECT_EQ(first, 77);
    EXPECT_EQ(second, 78);
}

TEST_F(ControlCreation, ControlsOfADestroyedWindowKeepTheirNumbersAndDoNothing) {
    const std::string path = plain_icon("icon.bmp", 12);
    const INT dying = shown();
    std::vector<INT> numbers;
    for (const ControlKind& kind : control_kinds) {
        GRX_BOUTON description = control_of(kind, dying);
        path.copy(description.icone, GRX_TITRE_MAX - 1);
        numbers.push_back(placed(description));
    }
    grx_detruit_fenetre(dying);
    drain();
    for (INT n : numbers) {
        EXPECT_EQ(grx_recup_objet_bout(n), nullptr) << n;
        try_every_operation(n);
    }
    const INT next = placed(a(GRX_BOU_LABEL));
    EXPECT_EQ(std::ranges::count(numbers, next), 0) << "their numbers are still theirs";
    for (INT n : numbers) EXPECT_EQ(grx_libere_indice_objet_bout(n), 1) << n;
    EXPECT_EQ(placed(a(GRX_BOU_LABEL)), numbers.front());
    drain();
}

TEST_F(ControlCreation, ControlsOfAClosedWindowDoNothing) {
    const INT dying = shown();
    GRX_BOUTON description = a(GRX_BOU_SIMPLE);
    description.fen_mere = dying;
    const INT n = placed(description);
    ask_to_close(test_display(), XtWindow(shell_of(dying)));
    ASSERT_TRUE(events.wait(GRX_EVT_DESTRUCTION));
    drain();
    EXPECT_EQ(grx_recup_objet_bout(n), nullptr);
    try_every_operation(n);
    EXPECT_EQ(grx_libere_indice_objet_bout(n), 1);
    EXPECT_EQ(placed(a(GRX_BOU_LABEL)), n);
}

TEST_F(ControlCreation, DestroyingTheControlsOfADestroyedWindowFreesTheirNumbers) {
    const INT dying = shown();
    std::vector<INT> numbers;
    for (const ControlKind& kind : control_kinds) numbers.push_back(placed(control_of(kind, dying)));
    grx_detruit_fenetre(dying);
    drain();
    const std::size_t before = heap().blocks();
    for (INT n : numbers) EXPECT_EQ(grx_detruit_bouton(n), 0);
    EXPECT_LE(heap().blocks(), before);
    std::vector<INT> again;
    for (const ControlKind& kind : control_kinds) again.push_back(placed(control_of(kind, window)));
    drain();
    for (INT n : again) EXPECT_NE(control(n), nullptr);
}

// A number given away and taken again before the old widget is really gone: the new owner stays.
TEST_F(ControlCreation, ANumberTakenAgainInsideADispatchStaysTaken) {
    struct Swap {
        GRX_BOUTON description;
        INT old_number, new_number;
    } swap{a(GRX_BOU_SIMPLE, 0, "Second"), -1, -1};
    swap.old_number = placed(a(GRX_BOU_SIMPLE, 0, "First"));
    XtAddCallback(
        control(swap.old_number), XmNactivateCallback,
        [](Widget, XtPointer data, XtPointer) {
            auto* job = static_cast<Swap*>(data);
            grx_detruit_bouton(job->old_number);
            job->new_number = make(job->description);
        },
        &swap);
    pointer().click_in(control(swap.old_number), 20, 20);
    ASSERT_TRUE(wait_for([&] { return swap.new_number >= 0; }));
    drain();
    EXPECT_EQ(swap.new_number, swap.old_number);
    ASSERT_NE(control(swap.new_number), nullptr);
    EXPECT_EQ(label_of(control(swap.new_number)), "Second");
}

TEST_F(ControlCreation, DestroyingAControlTakesItsScrolledWindowAlong) {
    for (const ControlKind& kind : control_kinds) {
        const std::size_t before = children_of(widget_of(window)).size();
        const INT n = placed(control_of(kind, window));
        EXPECT_EQ(children_of(widget_of(window)).size(), before + 1) << kind.name;
        EXPECT_EQ(grx_detruit_bouton(n), 0);
        EXPECT_EQ(grx_recup_objet_bout(n), nullptr) << kind.name;
        EXPECT_EQ(button_record(n).nobou, -1) << kind.name;
        drain();
        EXPECT_EQ(children_of(widget_of(window)).size(), before) << kind.name;
        EXPECT_EQ(grx_detruit_bouton(n), 0) << "a second time";
    }
}

// --- memory -------------------------------------------------------------------------------------------------------

TEST_F(ControlCreation, EachFailingAllocationIsSurvived) {
    const std::string path = plain_icon("icon.bmp", 12);
    for (const ControlKind& kind : control_kinds) {
        GRX_BOUTON description = control_of(kind, window);
        path.copy(description.icone, GRX_TITRE_MAX - 1);
        const std::size_t before = heap().blocks();
        fail_each_allocation([&] {
            const INT n = make(description);
            EXPECT_TRUE(n >= 0 || n == -2) << kind.name << " " << n;
            if (n >= 0) grx_detruit_bouton(n);
            drain();
        });
        EXPECT_EQ(heap().blocks(), before) << kind.name;
    }
    GRX_BOUTON gadget = a(GRX_BOU_LABEL);
    path.copy(gadget.icone, GRX_TITRE_MAX - 1);
    const std::size_t before = heap().blocks();
    fail_each_allocation([&] { EXPECT_EQ(grx_cree_gadget(&gadget), 0); });
    EXPECT_EQ(heap().blocks(), before);
    drain();
}

TEST_F(ControlCreation, NineHundredPushButtonsLeaveNoMoreThanTheToolkitDoes) {
    constexpr int count = 900, rounds = 4;
    asked.stop();
    const Widget holder = XmCreateBulletinBoard(widget_of(window), const_cast<char*>("holder"), nullptr, 0);
    XtManageChild(holder);
    GRX_BOUTON description = a(GRX_BOU_POUSSOIR, GRX_BOU_ATT_VRAI_POUSSOIR);
    description.ref_fen_mere = holder;
    const auto with_library = [&] {
        std::vector<INT> numbers;
        for (int i = 0; i < count; ++i) numbers.push_back(make(description));
        drain();
        for (INT n : numbers) EXPECT_EQ(grx_detruit_bouton(n), 0);
        drain();
    };
    const auto with_toolkit = [&] {
        std::vector<Widget> made;
        for (int i = 0; i < count; ++i) {
            const XmString label = XmStringCreate(description.titre, const_cast<char*>("tag1"));
            made.push_back(XtVaCreateManagedWidget("Text", xmPushButtonWidgetClass, holder, XmNlabelString, label, XmNx,
                20, XmNy, 30, XmNwidth, 120, XmNheight, 80, XmNfontList, fontlist, nullptr));
            XmStringFree(label);
        }
        drain();
        for (Widget widget : made) XtDestroyWidget(widget);
        drain();
    };
    const auto growth = [&](const auto& round) {
        round(); // tables grow once
        const auto before = static_cast<long>(mallinfo2().uordblks);
        for (int i = 0; i < rounds; ++i) round();
        return static_cast<long>(mallinfo2().uordblks) - before;
    };
    with_library();
    const auto resources = server_resources(test_display(), XtWindow(widget_of(window)));
    const std::size_t blocks = heap().blocks(), bytes = heap().bytes();
    const long library = growth(with_library);
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(server_resources(test_display(), XtWindow(widget_of(window))), resources);
    EXPECT_LT(library, growth(with_toolkit) + count * rounds * 32L) << "a pointer or two at most, each";
}

TEST_F(ControlCreation, TenOfEachKindWithIconsLeaveNothing) {
    const std::string path = plain_icon("icon.bmp", 12);
    for (const ControlKind& kind : control_kinds) {
        GRX_BOUTON description = control_of(kind, window);
        path.copy(description.icone, GRX_TITRE_MAX - 1);
        const auto once = [&] {
            grx_detruit_bouton(make(description));
            drain();
        };
        once();
        const auto resources = server_resources(test_display(), XtWindow(widget_of(window)));
        const std::size_t bytes = heap().bytes();
        for (int i = 0; i < 10; ++i) once();
        EXPECT_EQ(heap().bytes(), bytes) << kind.name;
        EXPECT_EQ(server_resources(test_display(), XtWindow(widget_of(window))), resources) << kind.name;
    }
}

} // namespace
