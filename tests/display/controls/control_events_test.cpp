// What controls post of the pointer, when they are activated and when they are exposed.
#include "tests/display/controls/control_events_kit.h"

#include <algorithm>
#include <cstddef>

namespace {

using namespace grxtest;

constexpr INT application_value = 31;

// --- records compared whole ---------------------------------------------------------------------------------------

constexpr std::size_t up_to_value = offsetof(GRX_EXEC_FONCTION, chaine);

// --- pressing and releasing ---------------------------------------------------------------------------------------

bool takes_the_pointer_itself(const ControlKind& kind) {
    return kind.type != GRX_BOU_ECHELLE; // the slider of a scale is a widget of its own
}

TEST_F(ControlEvents, APressAndAReleaseOnEachKind) {
    for (const ControlKind& kind : control_kinds) {
        if (!takes_the_pointer_itself(kind)) continue;
        const INT n = made(control_of(kind, window));
        over(n, 25, 12);
        for (unsigned button : {1U, 2U, 3U}) {
            forget();
            pointer().press(button);
            const auto press = next(GRX_EVT_BOUTON_APPUI);
            ASSERT_TRUE(press) << kind.name << ": " << events.describe();
            EXPECT_TRUE(same_head(pointer_record(2, window, n, 25, 12, static_cast<INT>(button), application_value),
                *press, sizeof(GRX_DIGIT)))
                << kind.name << " " << button;
            forget();
            pointer().release(button);
            if (button == 1 && kind.type != GRX_BOU_LABEL && kind.type != GRX_BOU_TEXTE && kind.type != GRX_BOU_LISTE
                && kind.type != GRX_BOU_SEPARATEUR && kind.type != GRX_BOU_ZONE_DESSIN) {
                drain(); // the activation comes in the same turn and replaces the release
                EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 1) << kind.name << ": " << events.describe();
                EXPECT_EQ(events.count(GRX_EVT_BOUTON_RELACHE), 0) << kind.name;
                continue;
            }
            const auto release = next(GRX_EVT_BOUTON_RELACHE);
            ASSERT_TRUE(release) << kind.name << " " << button << ": " << events.describe();
            EXPECT_TRUE(same_head(pointer_record(15, window, n, 25, 12, static_cast<INT>(button), application_value),
                *release, sizeof(GRX_DIGIT)))
                << kind.name << " " << button;
        }
        grx_detruit_bouton(n);
        drain();
    }
}

TEST_F(ControlEvents, APressLeavesTheRestOfTheRecord) {
    const INT n = made(GRX_BOU_LABEL);
    over(n, 25, 12);
    forget();
    pointer().press(3);
    const auto press = next(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(press);
    GRX_EVENEMENT expected = pointer_record(2, window, n, 25, 12, 3, application_value);
    expected.bouton_appui.etat = 0;
    EXPECT_TRUE(same_record(expected, *press));
    forget();
    pointer().release(3);
    const auto release = next(GRX_EVT_BOUTON_RELACHE);
    ASSERT_TRUE(release);
    expected.bouton_relache.type_evenement = 15;
    EXPECT_TRUE(same_record(expected, *release));
}

TEST_F(ControlEvents, ModifiersOfAPressAndARelease) {
    struct Held {
        std::vector<KeySym> keys;
        INT state;
    };
    const INT n = made(GRX_BOU_LABEL);
    over(n, 25, 12);
    for (const Held& held : {Held{{}, 0}, Held{{XK_Shift_L}, 2}, Held{{XK_Control_L}, 4},
             Held{{XK_Shift_L, XK_Control_L}, 6}, Held{{XK_Alt_L}, 0}, Held{{XK_Shift_R, XK_Alt_L}, 2}}) {
        for (KeySym key : held.keys) keyboard().press(key);
        settle();
        pointer().press(3);
        const auto press = next(GRX_EVT_BOUTON_APPUI);
        pointer().release(3);
        const auto release = next(GRX_EVT_BOUTON_RELACHE);
        for (KeySym key : held.keys) keyboard().release(key);
        ASSERT_TRUE(press && release) << held.state << ": " << events.describe();
        EXPECT_EQ(press->bouton_appui.etat, held.state);
        EXPECT_EQ(release->bouton_relache.etat, held.state);
    }
}

TEST_F(ControlEvents, LocksAreNoModifiers) {
    const INT n = made(GRX_BOU_LABEL);
    over(n, 25, 12);
    keyboard().num_lock();
    keyboard().caps_lock();
    settle();
    pointer().press(1);
    const auto press = next(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(press);
    EXPECT_EQ(press->bouton_appui.etat, 0);
}

TEST_F(ControlEvents, AControlUnderAWidgetHasNoWindowNumber) {
    GRX_BOUTON description = a(GRX_BOU_LABEL);
    description.ref_fen_mere = widget_of(window);
    const INT n = made(description);
    over(n, 25, 12);
    pointer().press(1);
    const auto press = next(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(press);
    EXPECT_EQ(press->bouton_appui.nofen, -1);
    EXPECT_EQ(press->bouton_appui.nobou, n);
}

TEST_F(ControlEvents, InsensitiveControlsPostNothingOfThePointer) {
    for (const ControlKind& kind : control_kinds) {
        const INT n = made(control_of(kind, window));
        grx_desactive_bouton(n, 1);
        over(n, 25, 12);
        forget();
        pointer().click(1);
        drain();
        EXPECT_TRUE(std::ranges::none_of(events.seen(), [&](const GRX_EVENEMENT& e) {
            return e.type_evenement == 6 || e.type_evenement == 32 || e.type_evenement == 64
                   || (e.type_evenement == 2 && e.bouton_appui.nobou == n);
        })) << kind.name;
        grx_desactive_bouton(n, 0);
        settle();
        if (takes_the_pointer_itself(kind)) {
            pointer().press(3);
            EXPECT_TRUE(next(GRX_EVT_BOUTON_APPUI)) << kind.name;
            pointer().release(3);
        }
        grx_detruit_bouton(n);
        settle();
    }
}

// --- the pointer moving -------------------------------------------------------------------------------------------

TEST_F(ControlEvents, MotionTellsTheFirstHeldButton) {
    struct Held {
        std::vector<unsigned> buttons;
        INT told;
    };
    const INT n = made(GRX_BOU_LABEL);
    for (const Held& held :
        {Held{{}, 0}, Held{{1}, 1}, Held{{2}, 2}, Held{{3}, 3}, Held{{2, 3}, 2}, Held{{1, 3}, 1}, Held{{1, 2, 3}, 1}}) {
        over(n, 20, 10);
        for (unsigned button : held.buttons) pointer().press(button);
        forget();
        pointer().move_in(control(n), 33, 14);
        const auto motion = next(GRX_EVT_SOURIS_BOUGE);
        for (unsigned button : held.buttons) pointer().release(button);
        ASSERT_TRUE(motion) << events.describe();
        EXPECT_TRUE(same_record(pointer_record(1, window, n, 33, 14, held.told, -1), *motion)) << held.told;
    }
}

TEST_F(ControlEvents, MotionOverEachKind) {
    for (const ControlKind& kind : control_kinds) {
        if (!takes_the_pointer_itself(kind)) continue;
        const INT n = made(control_of(kind, window));
        over(n, 20, 10);
        forget();
        pointer().move_in(control(n), 33, 14);
        drain();
        const auto expected = kind.type == GRX_BOU_ZONE_DESSIN ? 0 : 1;
        EXPECT_EQ(events.count(GRX_EVT_SOURIS_BOUGE), expected) << kind.name << ": " << events.describe();
        grx_detruit_bouton(n);
        drain();
    }
}

TEST_F(ControlEvents, ComingAndGoing) {
    for (const ControlKind& kind : control_kinds) {
        if (kind.type == GRX_BOU_ZONE_DESSIN) continue;
        take_pointer_away();
        const INT n = made(control_of(kind, window));
        forget();
        pointer().move_in(control(n), 20, 10);
        const auto enter =
            events.wait([&](const GRX_EVENEMENT& e) { return e.type_evenement == 48 && e.sortie.nobou == n; });
        ASSERT_TRUE(enter) << kind.name << ": " << events.describe();
        EXPECT_EQ(enter->sortie.nofen, window) << kind.name;
        EXPECT_EQ(enter->sortie.no_fo, function_number) << kind.name;
        forget();
        take_pointer_away();
        const auto leave =
            events.wait([&](const GRX_EVENEMENT& e) { return e.type_evenement == 10 && e.sortie.nobou == n; });
        ASSERT_TRUE(leave) << kind.name << ": " << events.describe();
        EXPECT_EQ(leave->sortie.nofen, window) << kind.name;
        EXPECT_EQ(leave->sortie.no_fo, function_number) << kind.name;
        grx_detruit_bouton(n);
        drain();
    }
}

TEST_F(ControlEvents, ComingAndGoingLeaveTheRestOfTheRecord) {
    const INT n = made(GRX_BOU_LABEL);
    pointer().move_in(control(n), 60, 40);
    forget();
    pointer().move_in(widget_of(window), 5, 200);
    const auto leave = next(GRX_EVT_SORTIE);
    ASSERT_TRUE(leave);
    EXPECT_TRUE(same_record(plain_record(10, window, n), *leave));
}

TEST_F(ControlEvents, AnAreaPostsNeitherMotionNorComingNorKeys) {
    const INT n = made(GRX_BOU_ZONE_DESSIN);
    over(n, 20, 10);
    events.clear();
    pointer().move_in(control(n), 30, 20);
    pointer().press(1);
    pointer().move_in(control(n), 35, 25);
    pointer().release(1);
    drain();
    EXPECT_EQ(events.types(), (std::vector<INT>{2, 15})) << events.describe();
}

// --- activation ---------------------------------------------------------------------------------------------------

bool activates(const ControlKind& kind) {
    return kind.type == 1 || kind.type == 2 || kind.type == 4 || kind.type == 8 || kind.type == 512
           || kind.type == 4096;
}

TEST_F(ControlEvents, AClickActivatesWithTheApplicationsValue) {
    for (const ControlKind& kind : control_kinds) {
        const INT n = made(control_of(kind, window));
        over(n, 60, 40);
        forget();
        pointer().click(1);
        drain();
        const auto count = events.count(GRX_EVT_EXEC_FONCTION);
        if (kind.type != GRX_BOU_ECHELLE) {
            EXPECT_EQ(count, activates(kind) ? 1 : 0) << kind.name << ": " << events.describe();
        }
        if (activates(kind)) {
            const auto done = next(GRX_EVT_EXEC_FONCTION);
            ASSERT_TRUE(done);
            EXPECT_TRUE(same_head(value_record(6, window, n, application_value), *done, up_to_value)) << kind.name;
            EXPECT_EQ(events.types(), (std::vector<INT>{2, 6})) << kind.name;
        }
        grx_detruit_bouton(n);
        drain();
    }
}

TEST_F(ControlEvents, ADialogButtonActivates) {
    Widget parent = widget_of(window);
    for (const char* name : {"outer", "middle", "inner"})
        parent = XtVaCreateManagedWidget(name, xmBulletinBoardWidgetClass, parent, nullptr);
    GRX_BOUTON description = a(GRX_BOU_DIALOGUE, 0, "Valider");
    description.ref_fen_mere = parent;
    description.x = description.y = description.largeur = description.hauteur = -1;
    description.tabi[GRX_BOU_TABI_PLACE] = GRX_BOU_PLACE_CENTRE;
    const INT n = made(description);
    over(n, 10, 8);
    forget();
    pointer().click(1);
    const auto done = next(GRX_EVT_EXEC_FONCTION);
    ASSERT_TRUE(done) << events.describe();
    EXPECT_TRUE(same_head(value_record(6, -1, n, application_value), *done, up_to_value));
}

TEST_F(ControlEvents, ReleasingElsewhereActivatesNothing) {
    for (INT type : {GRX_BOU_DESSINE, GRX_BOU_SIMPLE, GRX_BOU_BASCULE}) {
        const INT n = made(type);
        over(n, 60, 40);
        pointer().press(1);
        drain();
        pointer().move_in(widget_of(window), 5, 250);
        drain();
        pointer().release(1);
        drain();
        EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 0) << type;
        grx_detruit_bouton(n);
        settle();
    }
}

TEST_F(ControlEvents, AToggleChangesAndPostsItsValueNotItsState) {
    const INT n = made(GRX_BOU_BASCULE);
    over(n, 10, 10);
    for (bool on : {true, false, true}) {
        forget();
        pointer().click(1);
        const auto done = next(GRX_EVT_EXEC_FONCTION);
        ASSERT_TRUE(done);
        EXPECT_TRUE(same_head(value_record(6, window, n, application_value), *done, up_to_value));
        EXPECT_EQ(static_cast<bool>(XmToggleButtonGetState(control(n))), on);
    }
}

TEST_F(ControlEvents, AButtonWithALookOfItsOwnStillActivates) {
    for (INT type : {GRX_BOU_DESSINE, GRX_BOU_SIMPLE}) {
        const INT n = made(type);
        grx_enfonce_bouton(n);
        over(n, 60, 40);
        pointer().click(1);
        EXPECT_TRUE(next(GRX_EVT_EXEC_FONCTION)) << type;
        EXPECT_EQ(grx_bouton_est_il_enfonce(n), 1) << "and keeps its look";
        grx_detruit_bouton(n);
        settle();
    }
}

TEST_F(ControlEvents, ADoubleClickActivatesTwice) {
    const INT n = made(GRX_BOU_SIMPLE);
    over(n, 60, 40);
    pointer().double_click();
    drain();
    EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 2) << events.describe();
}

// --- drawing areas ------------------------------------------------------------------------------------------------

TEST_F(ControlEvents, AnAreaIsRepaintedFromItsCopy) {
    const INT n = made(GRX_BOU_ZONE_DESSIN);
    XGCValues values{};
    values.foreground = pixel_of(6);
    const GC context = XCreateGC(x11_disp, button_record(n).image, GCForeground, &values);
    XFillRectangle(x11_disp, button_record(n).image, context, 10, 20, 30, 15);
    XFreeGC(x11_disp, context);
    settle();
    XClearArea(test_display(), XtWindow(control(n)), 0, 0, 0, 0, True);
    XSync(test_display(), False);
    drain();
    EXPECT_TRUE(events.seen().empty()) << "nothing is posted: " << events.describe();
    EXPECT_TRUE(same(grab(x11_disp, button_record(n).image), picture(n)));
    EXPECT_EQ(picture(n).bounds(static_cast<std::uint32_t>(pixel_of(6))), (Area{10, 20, 30, 15}));
}

TEST_F(ControlEvents, AnAreaIsRepaintedWhenShownAgain) {
    const INT n = made(GRX_BOU_ZONE_DESSIN);
    grx_cache_bouton(n);
    drain();
    grx_affiche_bouton(n);
    ASSERT_TRUE(wait_visible(control(n)));
    EXPECT_TRUE(wait_for([&] { return picture(n) == grab(x11_disp, button_record(n).image); }));
    EXPECT_EQ(picture(n).count(static_cast<std::uint32_t>(pixel_of(1))), 120 * 80) << "black, as it begins";
}

// --- callbacks by themselves --------------------------------------------------------------------------------------

TEST_F(ControlEvents, AnExposedButtonIsToldWhereTheApplicationAsks) {
    const INT n = made(GRX_BOU_DESSINE);
    XtAddCallback(control(n), XmNexposeCallback, grx_bouton_est_affiche, &button_record(n));
    forget();
    XClearArea(test_display(), XtWindow(control(n)), 0, 0, 0, 0, True);
    XSync(test_display(), False);
    const auto told = next(GRX_EVT_BOUTON_AFFICHE);
    ASSERT_TRUE(told) << events.describe();
    EXPECT_TRUE(same_record(plain_record(8, window, n), *told));
}

TEST_F(ControlEvents, NobodyIsToldUnasked) {
    for (const ControlKind& kind : control_kinds) {
        const INT n = made(control_of(kind, window));
        XClearArea(test_display(), XtWindow(control(n)), 0, 0, 0, 0, True);
        XSync(test_display(), False);
        drain();
        EXPECT_TRUE(events.seen().empty()) << kind.name << ": " << events.describe();
        grx_detruit_bouton(n);
        settle();
    }
}

TEST_F(ControlEvents, CallbacksOfADestroyedControlDoNothing) {
    const INT n = made(GRX_BOU_SIMPLE);
    const Widget other = control(made(GRX_BOU_LABEL));
    STRUCTURE_BOUTON* record = &button_record(n);
    grx_detruit_bouton(n);
    settle();
    XEvent event{};
    event.xbutton.type = ButtonPress;
    event.xbutton.window = XtWindow(other);
    event.xbutton.display = x11_disp;
    Boolean go_on = True;
    XmScaleCallbackStruct call{};
    const GRX_EVENEMENT before = evt_global = patterned_event();
    grx_bouton_est_enfonce(other, record, &call);
    grx_echelle_bouge(other, record, &call);
    grx_focus_quitte_bouton(other, record, &call);
    grx_bouton_est_affiche(other, record, &call);
    grx_gere_evenements_bouton(other, record, &event, &go_on);
    grx_element_liste_clique(other, record, &call);
    EXPECT_TRUE(same_record(before, evt_global));
}

TEST_F(ControlEvents, CallbacksWithoutDataAreSurvived) {
    const INT n = made(GRX_BOU_SIMPLE);
    const Widget w = control(n);
    STRUCTURE_BOUTON foreign = button_record(n);
    Boolean go_on = True;
    XEvent event{};
    for (XtPointer data : {XtPointer{nullptr}, XtPointer{&foreign}, XtPointer{&button_record(n)}}) {
        grx_bouton_est_enfonce(w, data, nullptr);
        grx_echelle_bouge(w, data, nullptr);
        grx_element_liste_clique(w, data, nullptr);
        grx_focus_quitte_bouton(w, data, nullptr);
        grx_bouton_est_affiche(w, data, nullptr);
        grx_gere_evenements_bouton(w, data, nullptr, nullptr);
        grx_gere_evenements_bouton(w, data, &event, &go_on);
        grx_bouton_est_enfonce(nullptr, data, nullptr);
        grx_gere_evenements_bouton(nullptr, data, &event, nullptr);
    }
    EXPECT_NE(control(n), nullptr);
}

TEST_F(ControlEvents, AControlDestroyedByItsOwnClick) {
    const INT n = made(GRX_BOU_SIMPLE);
    over(n, 60, 40);
    pointer().press(1);
    ASSERT_TRUE(next(GRX_EVT_BOUTON_APPUI));
    grx_detruit_bouton(n);
    pointer().release(1);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 0);
    const INT again = made(GRX_BOU_SIMPLE);
    EXPECT_EQ(again, n);
    over(again, 60, 40);
    pointer().click(1);
    EXPECT_TRUE(next(GRX_EVT_EXEC_FONCTION));
}

} // namespace
