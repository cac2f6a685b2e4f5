// Texts on the clipboard: put for other programs, got from them, whatever they do.
#include "tests/display/session/clipboard_kit.h"
#include "tests/support/window_kit.h"

#include "display/connection.h"
#include "display/last_error.h"
#include "system/shut_down.h"

#include <chrono>
#include <numeric>

namespace {

using namespace grxtest;
using Clock = std::chrono::steady_clock;

std::string long_text(std::size_t size) {
    std::string text(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        text[i] = static_cast<char>('a' + i * 7 % 26 + (i / 1000) % 3 - (i / 1000) % 3);
    text[size / 2] = '\n';
    return text;
}

double seconds_of(const std::function<void()>& what) {
    const auto begin = Clock::now();
    what();
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

// -- what other programs get

struct Target {
    const char* target;
    const char* type;
    std::optional<std::string> ascii, latin1, greek; // "abc\n", "né" and "aβ" as it gives them
};
const Target targets[]{
    {"UTF8_STRING", "UTF8_STRING", "abc\n", "n\xC3\xA9", "a\xCE\xB2"},
    {"text/plain;charset=utf-8", "text/plain;charset=utf-8", "abc\n", "n\xC3\xA9", "a\xCE\xB2"},
    {"STRING", "STRING", "abc\n", "n\xE9", "a?"},
    {"text/plain", "text/plain", "abc\n", "n\xE9", "a?"},
    {"COMPOUND_TEXT", "COMPOUND_TEXT", "abc\n", "n\xE9", {}},
    {"image/png", "", {}, {}, {}},
    {"NO_SUCH_TARGET", "", {}, {}, {}},
};

TEST_F(ClipboardTest, OtherProgramsGetATextAsTheyAskForIt) {
    const auto expect_all = [&](const char* text, auto member) {
        ASSERT_EQ(put_text(text), 1);
        for (const Target& row : targets) {
            const auto got = asked(row.target);
            ASSERT_EQ(got.has_value(), (row.*member).has_value()) << row.target;
            if (!got) continue;
            EXPECT_EQ(got->bytes, *(row.*member)) << row.target;
            EXPECT_EQ(got->type, row.type);
            EXPECT_EQ(got->format, 8);
        }
    };
    expect_all("abc\n", &Target::ascii);
    expect_all("n\xC3\xA9", &Target::latin1);
    expect_all("a\xCE\xB2", &Target::greek);
}

TEST_F(ClipboardTest, TextIsGivenInTheFormThatHoldsIt) {
    ASSERT_EQ(put_text("n\xC3\xA9"), 1);
    EXPECT_EQ(asked("TEXT")->type, "STRING");
    ASSERT_EQ(put_text("a\xCE\xB2"), 1);
    EXPECT_EQ(asked("TEXT")->type, "UTF8_STRING");
    EXPECT_EQ(asked("TEXT")->bytes, "a\xCE\xB2");
}

TEST_F(ClipboardTest, LatinOneGoesOutAsWell) {
    ASSERT_EQ(put_text("n\xE9", GRX_CODAGE_LATIN1), 1);
    EXPECT_EQ(asked("UTF8_STRING")->bytes, "n\xC3\xA9");
    EXPECT_EQ(asked("STRING")->bytes, "n\xE9");
}

std::vector<std::string> names_in(Display* display, const Got& got) {
    std::vector<std::string> names;
    for (std::size_t at = 0; at + sizeof(Atom) <= got.bytes.size(); at += sizeof(Atom)) {
        Atom atom = None;
        std::memcpy(&atom, got.bytes.data() + at, sizeof atom);
        names.push_back(name_of(display, atom));
    }
    std::ranges::sort(names);
    return names;
}

TEST_F(ClipboardTest, TargetsNameWhatIsGiven) {
    ASSERT_EQ(put_text("abc"), 1);
    const auto got = asked("TARGETS");
    ASSERT_TRUE(got);
    EXPECT_EQ(got->type, "ATOM");
    EXPECT_EQ(got->format, 32);
    EXPECT_EQ(
        names_in(other(), *got), (std::vector<std::string>{"COMPOUND_TEXT", "MULTIPLE", "STRING", "TARGETS", "TEXT",
                                     "TIMESTAMP", "UTF8_STRING", "text/plain", "text/plain;charset=utf-8"}));
    ASSERT_EQ(put_text("\xCE\xB2"), 1);
    EXPECT_EQ(std::ranges::count(names_in(other(), *asked("TARGETS")), "COMPOUND_TEXT"), 0);
}

TEST_F(ClipboardTest, TimestampIsWhenItWasPut) {
    ASSERT_EQ(put_text("abc"), 1);
    const auto first = asked("TIMESTAMP");
    ASSERT_TRUE(first);
    EXPECT_EQ(first->type, "INTEGER");
    long time = 0, later = 0;
    ASSERT_EQ(first->bytes.size(), sizeof time);
    std::memcpy(&time, first->bytes.data(), sizeof time);
    EXPECT_GT(time, 0);
    wait_readable(-1, Milliseconds(5));
    ASSERT_EQ(put_text("abcd"), 1);
    std::memcpy(&later, asked("TIMESTAMP")->bytes.data(), sizeof later);
    EXPECT_GT(later, time);
}

TEST_F(ClipboardTest, SeveralTargetsAreGivenTogether) {
    ASSERT_EQ(put_text("n\xC3\xA9"), 1);
    const Window window = XCreateSimpleWindow(other(), DefaultRootWindow(other()), 0, 0, 1, 1, 0, 0, 0);
    const Atom pairs[]{other_atom("STRING"), other_atom("ONE"), other_atom("NONSENSE"), other_atom("TWO"),
        other_atom("UTF8_STRING"), other_atom("THREE")};
    XChangeProperty(other(), window, other_atom("PAIRS"), other_atom("ATOM_PAIR"), 32, PropModeReplace,
        reinterpret_cast<const unsigned char*>(pairs), 6);
    XConvertSelection(
        other(), other_atom("CLIPBOARD"), other_atom("MULTIPLE"), other_atom("PAIRS"), window, CurrentTime);
    XEvent event{};
    ASSERT_TRUE(wait_for([&] { return XCheckTypedEvent(other(), SelectionNotify, &event) != 0; }));
    EXPECT_EQ(event.xselection.property, other_atom("PAIRS"));
    EXPECT_EQ(take_property(other(), window, other_atom("ONE")).bytes, "n\xE9");
    EXPECT_EQ(take_property(other(), window, other_atom("TWO")).type, "");
    EXPECT_EQ(take_property(other(), window, other_atom("THREE")).bytes, "n\xC3\xA9");
}

TEST_F(ClipboardTest, MegabytesGoOutInParts) {
    const std::string text = long_text(5 << 20);
    ASSERT_EQ(put_text(text), 1);
    const auto got = asked("UTF8_STRING");
    ASSERT_TRUE(got);
    EXPECT_TRUE(got->in_parts);
    EXPECT_EQ(got->type, "UTF8_STRING");
    EXPECT_TRUE(got->bytes == text) << got->bytes.size();
}

TEST_F(ClipboardTest, WhatIsBeingSentStaysWhatItWas) {
    const std::string text = long_text(2 << 20);
    ASSERT_EQ(put_text(text), 1);
    const Window window = XCreateSimpleWindow(other(), DefaultRootWindow(other()), 0, 0, 1, 1, 0, 0, 0);
    XSelectInput(other(), window, PropertyChangeMask);
    const Atom place = other_atom("PLACE");
    XConvertSelection(other(), other_atom("CLIPBOARD"), other_atom("STRING"), place, window, CurrentTime);
    XEvent event{};
    ASSERT_TRUE(wait_for([&] { return XCheckTypedEvent(other(), SelectionNotify, &event) != 0; }));
    ASSERT_EQ(take_property(other(), window, place).type, "INCR");
    ASSERT_EQ(put_text("another"), 1);
    std::string all;
    for (std::string part = "-"; !part.empty();) {
        ASSERT_TRUE(wait_for([&] {
            return XCheckWindowEvent(other(), window, PropertyChangeMask, &event)
                   && event.xproperty.state == PropertyNewValue;
        }));
        const Got got = take_property(other(), window, place);
        if (got.type == "") continue;
        part = got.bytes;
        all += part;
    }
    EXPECT_TRUE(all == text) << all.size();
    EXPECT_EQ(asked("STRING")->bytes, "another");
}

TEST_F(ClipboardTest, WhoGoesAwayWhileItIsSentDoesNoHarm) {
    ASSERT_EQ(put_text(long_text(2 << 20)), 1);
    Display* gone = open_connection(server().name());
    const Window window = XCreateSimpleWindow(gone, DefaultRootWindow(gone), 0, 0, 1, 1, 0, 0, 0);
    XSelectInput(gone, window, PropertyChangeMask);
    const Atom place = XInternAtom(gone, "PLACE", False);
    XConvertSelection(
        gone, XInternAtom(gone, "CLIPBOARD", False), XInternAtom(gone, "STRING", False), place, window, CurrentTime);
    XEvent event{};
    ASSERT_TRUE(wait_for([&] { return XCheckTypedEvent(gone, SelectionNotify, &event) != 0; }));
    permit_x_errors(); // the toolkit's own, which it catches
    const INT errors = grx::x_error_count();
    take_property(gone, window, place);
    XSync(gone, False);
    XCloseDisplay(gone);
    drain();
    EXPECT_EQ(grx::x_error_count(), errors);
    ASSERT_EQ(put_text("fine"), 1);
    EXPECT_EQ(asked("STRING")->bytes, "fine");
}

// -- what is refused, and what a failure leaves

TEST_F(ClipboardTest, TextsThatAreNoneAreRefused) {
    ASSERT_EQ(put_text("kept"), 1);
    using namespace std::string_literals;
    EXPECT_EQ(put_text("a\0b"s), GRX_ECHEC_FORMAT);
    EXPECT_EQ(put_text("a\0b"s, GRX_CODAGE_LATIN1), GRX_ECHEC_FORMAT);
    for (const char* bad : {"\x80", "\xC0\x80", "\xE9", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\xFF"})
        EXPECT_EQ(put_text(bad), GRX_ECHEC_FORMAT) << bad;
    EXPECT_EQ(put_text("a", 2), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(put_text("a", -1), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(put_text("a", GRX_CODAGE_UTF8, 2), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(put_text("a", GRX_CODAGE_UTF8, -1), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_affecte_texte_presse_papiers(0, GRX_CODAGE_UTF8, "a", -2), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(asked("STRING")->bytes, "kept");
    EXPECT_EQ(get_text().text, "kept");
}

TEST_F(ClipboardTest, NullAndEmptyAreTexts) {
    ASSERT_EQ(grx_affecte_texte_presse_papiers(0, GRX_CODAGE_UTF8, nullptr, 100), 1);
    ASSERT_TRUE(asked("UTF8_STRING"));
    EXPECT_EQ(asked("UTF8_STRING")->bytes, "");
    EXPECT_EQ(get_text().result, 1);
    EXPECT_EQ(get_text().text, "");
    ASSERT_EQ(grx_affecte_texte_presse_papiers(0, GRX_CODAGE_LATIN1, "whole", -1), 1);
    EXPECT_EQ(get_text().text, "whole");
}

TEST_F(ClipboardTest, OutParametersAreChecked) {
    ASSERT_EQ(put_text("x"), 1);
    const char* text = nullptr;
    EXPECT_EQ(grx_recup_texte_presse_papiers(0, GRX_CODAGE_UTF8, nullptr, nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_texte_presse_papiers(2, GRX_CODAGE_UTF8, &text, nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_texte_presse_papiers(0, 7, &text, nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(grx_recup_texte_presse_papiers(0, GRX_CODAGE_UTF8, &text, nullptr), 1);
    EXPECT_STREQ(text, "x");
    EXPECT_EQ(grx_libere_presse_papiers(), 1);
    EXPECT_EQ(grx_libere_presse_papiers(), 1);
}

// -- what is got

struct Owner {
    const char* name;
    std::map<std::string, Given> offers;
    INT result;
    const char *utf8, *latin1;
};
const Owner owners[]{
    {"UTF-8", {{"UTF8_STRING", {"", "n\xC3\xA9 \xCE\xB2"}}}, 1, "n\xC3\xA9 \xCE\xB2", "n\xE9 ?"},
    {"MIME", {{"text/plain;charset=utf-8", {"", "n\xC3\xA9"}}}, 1, "n\xC3\xA9", "n\xE9"},
    {"Latin-1 only", {{"STRING", {"", "n\xE9"}}}, 1, "n\xC3\xA9", "n\xE9"},
    {"TEXT of Latin-1", {{"TEXT", {"STRING", "n\xE9"}}}, 1, "n\xC3\xA9", "n\xE9"},
    {"UTF-8 asked, Latin-1 said", {{"UTF8_STRING", {"STRING", "n\xE9"}}}, 1, "n\xC3\xA9", "n\xE9"},
    {"compound", {{"COMPOUND_TEXT", {"", "n\xE9"}}}, 1, "n\xC3\xA9", "n\xE9"},
    {"compound with Greek", {{"COMPOUND_TEXT", {"", "a\x1B-F\xE2"}}}, 1, "a\xCE\xB2", "a?"},
    {"plain, UTF-8", {{"text/plain", {"", "n\xC3\xA9"}}}, 1, "n\xC3\xA9", "n\xE9"},
    {"plain, Latin-1", {{"text/plain", {"", "n\xE9"}}}, 1, "n\xC3\xA9", "n\xE9"},
    {"bad UTF-8, good Latin-1", {{"UTF8_STRING", {"", "\xE9"}}, {"STRING", {"", "\xE9"}}}, 1, "\xC3\xA9", "\xE9"},
    {"zeros behind", {{"STRING", {"", std::string("abc\0\0", 5)}}}, 1, "abc", "abc"},
    {"empty", {{"UTF8_STRING", {"", ""}}}, 1, "", ""},
    {"a zero inside", {{"UTF8_STRING", {"", std::string("a\0b", 3)}}}, GRX_ECHEC_FORMAT, "", ""},
    {"bad UTF-8", {{"UTF8_STRING", {"", "\xFF"}}}, GRX_ECHEC_FORMAT, "", ""},
    {"16 bits", {{"UTF8_STRING", {"", "abcd", 16}}}, GRX_ECHEC_FORMAT, "", ""},
    {"32 bits", {{"STRING", {"", std::string(16, 'x'), 32}}}, GRX_ECHEC_FORMAT, "", ""},
    {"a picture", {{"image/png", {"", "x"}}}, GRX_ECHEC_ABSENT, "", ""},
    {"nothing", {}, GRX_ECHEC_ABSENT, "", ""},
};

TEST_F(ClipboardTest, TextsOfOwnersOfAllKinds) {
    for (const Owner& row : owners) {
        const OtherOwner owner(server().name(), row.offers);
        const TextGot utf8 = get_text(GRX_CODAGE_UTF8), latin1 = get_text(GRX_CODAGE_LATIN1);
        EXPECT_EQ(utf8.result, row.result) << row.name;
        EXPECT_EQ(utf8.text, row.utf8) << row.name;
        EXPECT_EQ(latin1.result, row.result) << row.name;
        EXPECT_EQ(latin1.text, row.latin1) << row.name;
    }
}

TEST_F(ClipboardTest, NobodyOffersAnything) {
    EXPECT_EQ(get_text().result, GRX_ECHEC_ABSENT);
    EXPECT_EQ(get_text(GRX_CODAGE_UTF8, GRX_SEL_PRIMAIRE).result, GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_recup_contenu_presse_papiers(0), 0);
    EXPECT_EQ(grx_vide_presse_papiers(0), 1);
}

TEST_F(ClipboardTest, ThePrimarySelectionIsAnother) {
    const OtherOwner owner(server().name(), {{"UTF8_STRING", {"", "marked"}}}, Manner::well, "PRIMARY");
    EXPECT_EQ(get_text(GRX_CODAGE_UTF8, GRX_SEL_PRIMAIRE).text, "marked");
    EXPECT_EQ(get_text().result, GRX_ECHEC_ABSENT);
    ASSERT_EQ(put_text("ours", GRX_CODAGE_UTF8, GRX_SEL_PRIMAIRE), 1);
    EXPECT_EQ(asked("STRING", "PRIMARY")->bytes, "ours");
    EXPECT_FALSE(asked("STRING"));
}

TEST_F(ClipboardTest, MegabytesComeInParts) {
    const std::string text = long_text(5 << 20);
    const OtherOwner owner(server().name(), {{"UTF8_STRING", {"", text}}}, Manner::in_parts);
    const TextGot got = get_text();
    EXPECT_EQ(got.result, 1);
    EXPECT_TRUE(got.text == text) << got.text.size();
}

TEST_F(ClipboardTest, AnEmptyTextComesInParts) {
    const OtherOwner owner(server().name(), {{"UTF8_STRING", {"", ""}}}, Manner::in_parts);
    EXPECT_EQ(get_text().result, 1);
    EXPECT_EQ(get_text().text, "");
}

TEST_F(ClipboardTest, WhoeverStopsAnsweringCostsASecond) {
    for (const Manner manner : {Manner::never, Manner::silent_part, Manner::dies}) {
        const OtherOwner owner(server().name(), {{"UTF8_STRING", {"", long_text(200'000)}}}, manner);
        INT result = 0;
        const double seconds = seconds_of([&] { result = get_text().result; });
        EXPECT_EQ(result, GRX_ECHEC_DELAI) << static_cast<int>(manner);
        EXPECT_GE(seconds, 0.9);
        EXPECT_LT(seconds, 1.9) << static_cast<int>(manner);
    }
}

TEST_F(ClipboardTest, AFailureLeavesWhatWasGot) {
    ASSERT_EQ(put_text("first"), 1);
    const char* text = nullptr;
    INT size = 0;
    ASSERT_EQ(grx_recup_texte_presse_papiers(0, GRX_CODAGE_UTF8, &text, &size), 1);
    const OtherOwner owner(server().name(), {});
    EXPECT_EQ(grx_recup_texte_presse_papiers(0, GRX_CODAGE_UTF8, &text, &size), GRX_ECHEC_ABSENT);
    EXPECT_STREQ(text, "first");
    EXPECT_EQ(size, 5);
}

TEST_F(ClipboardTest, OnesOwnTextCostsAGlance) {
    ASSERT_EQ(put_text("own"), 1);
    drain();
    const Cost cost(x11_disp);
    EXPECT_EQ(get_text().text, "own");
    EXPECT_EQ(cost.requests(), 1U);
    EXPECT_EQ(cost.round_trips(), 1U);
}

// -- what is offered, taken back, lost

TEST_F(ClipboardTest, ContentIsTold) {
    ASSERT_EQ(put_text("x"), 1);
    EXPECT_EQ(grx_recup_contenu_presse_papiers(0), GRX_CONTENU_TEXTE | GRX_CONTENU_PROPRE);
    EXPECT_EQ(grx_recup_contenu_presse_papiers(5), GRX_ECHEC_PARAMETRE);
    const OtherOwner both(server().name(), {{"image/png", {"", "x"}}, {"UTF8_STRING", {"", "x"}}});
    drain();
    EXPECT_EQ(grx_recup_contenu_presse_papiers(0), GRX_CONTENU_TEXTE | GRX_CONTENU_PNG);
    const OtherOwner silent(server().name(), {}, Manner::never, "PRIMARY");
    EXPECT_EQ(grx_recup_contenu_presse_papiers(1), GRX_ECHEC_DELAI);
}

TEST_F(ClipboardTest, WhatWasTakenBackIsGone) {
    ASSERT_EQ(put_text("x"), 1);
    EXPECT_EQ(grx_vide_presse_papiers(0), 1);
    EXPECT_EQ(XGetSelectionOwner(other(), other_atom("CLIPBOARD")), None);
    EXPECT_EQ(get_text().result, GRX_ECHEC_ABSENT);
    take_over();
    const Window owner = XGetSelectionOwner(other(), other_atom("CLIPBOARD"));
    EXPECT_EQ(grx_vide_presse_papiers(0), 1);
    drain();
    EXPECT_EQ(XGetSelectionOwner(other(), other_atom("CLIPBOARD")), owner);
}

TEST_F(ClipboardTest, LossIsToldToWhoAsked) {
    ASSERT_EQ(put_text("x"), 1);
    take_over();
    drain();
    EXPECT_EQ(events.count(GRX_EVT_PRESSE_PAPIERS), 0);
    ASSERT_EQ(grx_affecte_suivi_presse_papiers(1), 1);
    ASSERT_EQ(put_text("x"), 1);
    ASSERT_EQ(put_text("y"), 1); // its own successor is no loss
    ASSERT_EQ(put_text("z", GRX_CODAGE_UTF8, GRX_SEL_PRIMAIRE), 1);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_PRESSE_PAPIERS), 0);
    take_over("PRIMARY");
    const auto lost = events.wait(GRX_EVT_PRESSE_PAPIERS);
    ASSERT_TRUE(lost);
    EXPECT_EQ(lost->exec_fonction.valeur, GRX_SEL_PRIMAIRE);
    EXPECT_EQ(lost->exec_fonction.nofen, GRX_AUCUN);
    take_over();
    ASSERT_TRUE(events.wait(GRX_EVT_PRESSE_PAPIERS));
    EXPECT_EQ(grx_vide_presse_papiers(0), 1);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_PRESSE_PAPIERS), 2);
}

// -- while it waits

class WaitingClipboardTest : public ClipboardTest {
  protected:
    XServerOptions server_options() const override { return {.arguments = {"-bs"}}; } // exposures come again
};

TEST_F(WaitingClipboardTest, WindowsAreRedrawnAndNothingIsLostOrToldTwice) {
    const INT first = make(GRX_FEN_BOUTONS);
    ASSERT_TRUE(wait_visible(grx_recup_objet_fen(first)));
    settle();
    const OtherOwner silent(server().name(), {}, Manner::never);
    XClearArea(other(), x_window(first), 0, 0, 0, 0, True);
    XSync(other(), False);
    keyboard().key(XK_F5); // input waits
    const GRX_EVENEMENT pending = evt_global;
    EXPECT_EQ(get_text().result, GRX_ECHEC_DELAI);
    EXPECT_TRUE(same_record(pending, evt_global));
    drain();
    EXPECT_EQ(events.count(GRX_EVT_AFFICHAGE), 1) << events.describe();
    GRX_DETAIL_EVENEMENT detail;
    grx_init_detail_evenement(&detail);
    EXPECT_EQ(grx_recup_detail_evenement(&detail), GRX_ECHEC_ABSENT);
}

TEST_F(WaitingClipboardTest, OthersAreAnsweredMeanwhile) {
    ASSERT_EQ(put_text("primary", GRX_CODAGE_UTF8, GRX_SEL_PRIMAIRE), 1);
    const OtherOwner silent(server().name(), {}, Manner::never);
    const Window window = XCreateSimpleWindow(other(), DefaultRootWindow(other()), 0, 0, 1, 1, 0, 0, 0);
    XConvertSelection(other(), XA_PRIMARY, XA_STRING, other_atom("P"), window, CurrentTime);
    XSync(other(), False);
    EXPECT_EQ(get_text().result, GRX_ECHEC_DELAI);
    XSync(x11_disp, False);
    XSync(other(), False);
    XEvent event;
    EXPECT_TRUE(XCheckTypedEvent(other(), SelectionNotify, &event)); // without another turn of the loop
}

struct Inner {
    INT window = 0;
    INT result = 0;
    int calls = 0;
};

TEST_F(WaitingClipboardTest, ACallWithinAWaitIsBusy) {
    Inner inner{make(GRX_FEN_BOUTONS)};
    ASSERT_TRUE(wait_visible(widget_of(inner.window)));
    settle();
    const OtherOwner silent(server().name(), {}, Manner::never);
    const auto on_expose = [](Widget, XtPointer data, XEvent*, Boolean*) {
        auto& mine = *static_cast<Inner*>(data);
        ++mine.calls;
        mine.result = get_text().result;
    };
    XtAddEventHandler(widget_of(inner.window), ExposureMask, False, on_expose, &inner);
    XClearArea(other(), x_window(inner.window), 0, 0, 0, 0, True);
    XSync(other(), False);
    EXPECT_EQ(get_text().result, GRX_ECHEC_DELAI);
    EXPECT_GE(inner.calls, 1);
    EXPECT_EQ(inner.result, GRX_ECHEC_OCCUPE);
    XtRemoveEventHandler(widget_of(inner.window), ExposureMask, False, on_expose, &inner);
}

// -- memory

TEST_F(ClipboardTest, TheShutDownTakesEverythingBack) {
    const INT window = make(GRX_FEN_GRAPHIQUE);
    drain();
    const auto blocks = heap().blocks();
    ASSERT_EQ(put_text("x"), 1);
    ASSERT_EQ(put_text("y", GRX_CODAGE_UTF8, GRX_SEL_PRIMAIRE), 1);
    ASSERT_EQ(get_text().result, 1);
    ASSERT_EQ(grx_affecte_suivi_presse_papiers(1), 1);
    ASSERT_EQ(grx_affecte_touches_presse_papiers(1), 1);
    ASSERT_EQ(grx_affecte_depots_fenetre(window, GRX_DEPOT_FICHIERS), 1);
    take_over("PRIMARY");
    XtAppProcessEvent(contexte, XtIMXEvent);
    grx::run_shut_down();
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(XGetSelectionOwner(other(), other_atom("CLIPBOARD")), None);
    EXPECT_EQ(grx_recup_touches_presse_papiers(), 0);
    EXPECT_EQ(grx_recup_depots_fenetre(window), 0);
    ASSERT_EQ(put_text("again"), 1);
    take_over();
    drain();
    EXPECT_EQ(events.count(GRX_EVT_PRESSE_PAPIERS), 0);
}

TEST_F(ClipboardTest, ShortMemoryIsToldAndLeavesEverything) {
    ASSERT_EQ(put_text("kept"), 1);
    const char* text = nullptr;
    heap().fail_at(1);
    EXPECT_EQ(put_text("new"), GRX_ECHEC_MEMOIRE);
    heap().fail_at(1);
    EXPECT_EQ(grx_recup_texte_presse_papiers(0, GRX_CODAGE_LATIN1, &text, nullptr), GRX_ECHEC_MEMOIRE);
    heap().fail_never();
    EXPECT_EQ(get_text().text, "kept");
    const OtherOwner owner(server().name(), {{"UTF8_STRING", {"", long_text(300'000)}}}, Manner::in_parts);
    drain();
    for (int n = 1; n < 4; ++n) {
        heap().fail_at(n);
        EXPECT_EQ(get_text().result, GRX_ECHEC_MEMOIRE) << n;
    }
    heap().fail_never();
    EXPECT_EQ(get_text().text.size(), 300'000U);
}

TEST_F(ClipboardTest, RoundsDoNotGrow) {
    const OtherOwner owner(server().name(), {{"UTF8_STRING", {"", "other"}}}, Manner::well, "PRIMARY");
    const Window window = x_window(make(GRX_FEN_BOUTONS));
    const auto round = [] {
        ASSERT_EQ(put_text("abc"), 1);
        ASSERT_EQ(get_text().text, "abc");
        ASSERT_EQ(get_text(GRX_CODAGE_UTF8, GRX_SEL_PRIMAIRE).text, "other");
        ASSERT_EQ(grx_vide_presse_papiers(0), 1);
    };
    round();
    const auto blocks = heap().blocks();
    const auto bytes = heap().bytes();
    const auto before = server_resources(other(), window);
    for (int i = 0; i < 500; ++i) round();
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(server_resources(other(), window), before);
}

TEST(ClipboardWithoutDisplay, AnswersWithACode) {
    const char* text = nullptr;
    EXPECT_EQ(grx_affecte_texte_presse_papiers(0, 1, "a", -1), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_recup_texte_presse_papiers(0, 1, &text, nullptr), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_recup_contenu_presse_papiers(0), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_vide_presse_papiers(0), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_affecte_suivi_presse_papiers(1), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_affecte_touches_presse_papiers(1), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_recup_touches_presse_papiers(), 0);
    EXPECT_EQ(grx_affecte_depots_fenetre(1, 1), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_recup_depots_fenetre(1), 0);
    EXPECT_EQ(grx_libere_presse_papiers(), 1);
}

} // namespace
