// How controls look: colours, pressed or not, icons.
#include "tests/display/controls/control_operations_kit.h"

namespace {

using namespace grxtest;

bool is_drawn(const ControlKind& kind) {
    return kind.type == 1 || kind.type == 4096 || (kind.type == 4 && !(kind.bits & GRX_BOU_ATT_VRAI_POUSSOIR));
}
bool is_real_push(const ControlKind& kind) {
    return kind.type == 512 || (kind.type == 4 && (kind.bits & GRX_BOU_ATT_VRAI_POUSSOIR));
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
        if (!has_label(kind.type)) continue;
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
        if (has_label(kind.type)) continue;
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

} // namespace
