// The font of the interface: outline fonts where the server can blend, fonts of the server elsewhere.
#include "tests/display/toolkit/outline_font_kit.h"
#include "tests/support/stdout_capture.h"

#include "grx_plus_polices.h"

#include <Xm/TextF.h>

#include <cstdlib>

namespace {

using namespace grxtest;

class OutlineFontOn24 : public On24 {
  protected:
    void before_start() override { ASSERT_EQ(grx_affecte_police(outline_11), 1); }
};

TEST_F(OutlineFontOn24, IsHadAndMeasured) {
    EXPECT_EQ(grx_recup_genre_police(), GRX_POLICE_LISSE);
    ASSERT_NE(fontlist, nullptr);
    ASSERT_NE(fontstruct, nullptr);
    const INT height = grx_recup_hau_exact_carac_alpha();
    EXPECT_EQ(height, 19) << "15 pixels of DejaVu Sans at 96 dots per inch";
    EXPECT_NEAR(fontstruct->ascent + fontstruct->descent, height, 1);
    EXPECT_GT(grx_recup_hau_carac_alpha(), height);
    EXPECT_GT(grx_recup_lar_carac_alpha(), 6);
    EXPECT_LT(grx_recup_lar_carac_alpha(), 12);
}

TEST_F(OutlineFontOn24, FieldsAreAsWideAsTheirCharacters) {
    const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
    GRX_BOUTON field;
    grx_init_bouton(&field);
    field.type = GRX_BOU_TEXTE;
    field.fen_mere = window;
    field.x = field.y = 20;
    field.tabi[GRX_BOU_TABI_COLONNES] = 12;
    ASSERT_EQ(grx_cree_bouton(&field), 0);
    INT width = 0, height = 0;
    grx_recup_taille_bouton(field.nobou, &width, &height);
    EXPECT_EQ(width, 12 * grx_recup_lar_carac_alpha() + grx_recup_lar_sup_alpha());
    EXPECT_EQ(height, grx_recup_hau_carac_alpha());
}

std::string told_by(INT number) {
    std::array<char, 256> text{};
    grx_recup_texte_bouton(number, text.data());
    return text.data();
}

struct Kind {
    INT type;
    const char* name;
};

TEST_F(OutlineFontOn24, EveryKindOfControlBlends) {
    for (const Kind& kind : {Kind{GRX_BOU_DESSINE, "drawn"}, {GRX_BOU_BASCULE, "toggle"}, {GRX_BOU_POUSSOIR, "push"},
             {GRX_BOU_LABEL, "label"}, {GRX_BOU_TEXTE, "field"}, {GRX_BOU_ECHELLE, "scale"}, {GRX_BOU_LISTE, "list"},
             {GRX_BOU_SIMPLE, "simple"}, {GRX_BOU_COULEUR, "colour"}}) {
        const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
        ASSERT_TRUE(wait_visible(grx_recup_objet_fen(window)));
        ASSERT_GE(labelled(kind.type, window, "Gabarit"), 0) << kind.name;
        const auto seen = [&] { return grab(x11_disp, XtWindow(grx_recup_objet_fen(window)), {20, 20, 220, 80}); };
        EXPECT_TRUE(wait_for([&] { return blended_colours(seen()) > 8; }))
            << kind.name << " " << blended_colours(seen());
        grx_detruit_fenetre(window);
    }
}

// --- accents

TEST_F(OutlineFontOn24, Latin1AndUtf8LookTheSameAndComeBackAsTheyWent) {
    constexpr const char *latin1 = "\311t\351 \260", *utf8 = "\303\211t\303\251 \302\260", *plain = "Ete o";
    for (const INT type : {GRX_BOU_LABEL, GRX_BOU_SIMPLE, GRX_BOU_TEXTE}) {
        const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
        std::vector<Pixels> seen;
        for (const char* const text : {latin1, utf8, plain}) {
            const INT number = labelled(type, window, text);
            ASSERT_GE(number, 0);
            ASSERT_TRUE(wait_visible(grx_recup_objet_bout(number)));
            settle();
            seen.push_back(grab(x11_disp, XtWindow(grx_recup_objet_bout(number))));
            EXPECT_EQ(told_by(number), type == GRX_BOU_TEXTE ? text : "") << type;
            grx_detruit_bouton(number);
        }
        EXPECT_TRUE(same(seen[0], seen[1])) << type;
        EXPECT_GT(differences(seen[0], seen[2]), 10) << type;
        grx_detruit_fenetre(window);
    }
}

TEST_F(OutlineFontOn24, ListsGiveBackBothEncodings) {
    const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
    const INT list = labelled(GRX_BOU_LISTE, window, "");
    const std::array<const char*, 3> texts{"\311lectricit\351\tb", "\303\211t\303\251\tb", "Axes\tb"};
    ASSERT_EQ(grx_remplit_liste(list, 3, texts.data()), 1);
    for (INT i = 1; i <= 3; ++i) {
        std::array<char, 100> text{};
        EXPECT_GT(grx_recup_texte_element_liste(list, i, text.data(), text.size()), 0);
        EXPECT_STREQ(text.data(), texts[static_cast<std::size_t>(i) - 1]);
    }
}

TEST_F(OutlineFontOn24, TypedAccentsArriveInLatin1) {
    const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
    const INT field = labelled(GRX_BOU_TEXTE, window, "");
    Widget w = grx_recup_objet_bout(field);
    ASSERT_TRUE(wait_visible(w));
    pointer().click_in(w, 10, 10);
    settle();
    keyboard().layout("fr");
    settle();
    keyboard().type("\303\251t\303\251");
    EXPECT_TRUE(wait_for([&] { return told_by(field) == "\351t\351"; }));
}

TEST_F(OutlineFontOn24, TheLocaleOfCharactersIsPutBackAtTheEnd) {
    EXPECT_GT(MB_CUR_MAX, 1U);
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    ASSERT_EQ(grx_termine_application(), 1);
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C");
}

TEST_F(OutlineFontOn24, TheNextSessionMayHaveAnother) {
    ASSERT_EQ(grx_termine_application(), 1);
    EXPECT_EQ(grx_recup_genre_police(), GRX_POLICE_AUCUNE);
    ASSERT_EQ(grx_affecte_police("xft:DejaVu Sans:pixelsize=30"), 1);
    ASSERT_TRUE(start_up());
    EXPECT_EQ(grx_recup_genre_police(), GRX_POLICE_LISSE);
    EXPECT_EQ(grx_recup_hau_exact_carac_alpha(), 36);
    const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
    const INT label = labelled(GRX_BOU_LABEL, window, "Gabarit");
    ASSERT_TRUE(wait_visible(grx_recup_objet_bout(label)));
    EXPECT_TRUE(wait_for([&] { return blended_colours(grab(x11_disp, XtWindow(grx_recup_objet_bout(label)))) > 8; }));
    ASSERT_EQ(grx_termine_application(), 1);
    ASSERT_EQ(grx_affecte_police("9x15"), 1);
    ASSERT_TRUE(start_up());
    EXPECT_EQ(grx_recup_genre_police(), GRX_POLICE_SERVEUR);
    EXPECT_EQ(grx_recup_lar_carac_alpha(), 9);
    EXPECT_EQ(MB_CUR_MAX, 1U) << "nobody has asked for another locale";
}

TEST_F(OutlineFontOn24, FiveHundredRoundsKeepNothing) {
    const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
    ASSERT_TRUE(wait_visible(grx_recup_objet_fen(window)));
    const auto round = [&] {
        std::vector<INT> numbers;
        for (const INT type : {GRX_BOU_LABEL, GRX_BOU_TEXTE, GRX_BOU_SIMPLE, GRX_BOU_LISTE})
            numbers.push_back(labelled(type, window, "\311t\351"));
        drain();
        for (const INT number : numbers) grx_detruit_bouton(number);
    };
    long before = 0;
    for (int i = 0; i < 500; ++i) {
        if (i == 100) before = bytes_in_use();
        round();
    }
    const long kept = (bytes_in_use() - before) / 400;
    EXPECT_LT(kept, 2000) << "bytes a round";
    std::printf("kept of a round: %ld bytes\n", kept);
}

TEST_F(OutlineFontOn24, ShortMemoryHarmsNothing) {
    const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
    EXPECT_GT(fail_each_allocation([&] {
        const INT number = labelled(GRX_BOU_SIMPLE, window, "\311t\351");
        drain();
        if (number >= 0) grx_detruit_bouton(number);
    }),
        0);
}

// --- names

class FontByName : public XTest {
  protected:
    Outcome started_with(const char* name) {
        EXPECT_EQ(grx_affecte_police(name), 1);
        EXPECT_EQ(grx_alloue_base_fenetres(), 0);
        EXPECT_EQ(grx_alloue_base_boutons(), 0);
        return outcome_of(grx_init_application);
    }

    static void expect_fixed() {
        EXPECT_EQ(grx_recup_genre_police(), GRX_POLICE_SERVEUR);
        EXPECT_EQ(grx_recup_lar_carac_alpha(), 6);
        EXPECT_EQ(grx_recup_hau_exact_carac_alpha(), 13);
        ASSERT_NE(fontstruct, nullptr);
        EXPECT_EQ(fontstruct->max_bounds.width, 6);
    }
};

TEST_F(FontByName, OneThatIsNotThereIsError9AndTheDefault) {
    for (const char* const name : {"xft:No Such Family:size=11", "xft:Helvetica Neue Ultra", "xft:DejaVu Sans:size=0",
             "xft:DejaVu Sans:size=-4", "xft:DejaVu Sans:size=1e9", "xft:DejaVu Sans:pixelsize=3"}) {
        const Outcome start = started_with(name);
        EXPECT_EQ(start.result, 1) << name;
        EXPECT_EQ(start.printed, "GFX ERROR\nCode 9: Font file unreachable\n") << name;
        expect_fixed();
        ASSERT_EQ(grx_termine_application(), 1);
    }
}

TEST_F(FontByName, PatternsOfNobodyStartAllTheSame) {
    for (const char* const name :
        {"xft:", "xft:::::", "xft:\\", "xft:-", "xft:\377\376", "xft:DejaVu Sans:lang=xx:slant=99:rgba=7",
            "xft:DejaVu Sans:matrix=0 0 0 0", "xft:,,,", "xft:DejaVu Sans-", "xft:sans:size=nan"}) {
        EXPECT_EQ(started_with(name).result, 1) << name;
        EXPECT_NE(fontstruct, nullptr) << name;
        EXPECT_GT(grx_recup_lar_carac_alpha(), 0) << name;
        ASSERT_EQ(grx_termine_application(), 1);
    }
}

TEST_F(FontByName, AnXNameMayBeLong) {
    const Outcome start = started_with("-misc-fixed-medium-r-semicondensed--13-120-75-75-c-60-iso8859-1");
    EXPECT_EQ(start.printed, "");
    EXPECT_EQ(grx_recup_lar_carac_alpha(), 6);
    EXPECT_EQ(grx_recup_genre_police(), GRX_POLICE_SERVEUR);
}

TEST_F(FontByName, TheFileMayNameALongOutlineFont) {
    write_ini("FONT_CARACTERE  xft:DejaVu Sans:size=11:weight=medium:antialias=true # smooth\n");
    ASSERT_EQ(grx_initialise_globales(), 0);
    std::array<char, 100> name{};
    grx_recup_police(name.data(), name.size());
    EXPECT_STREQ(name.data(), "xft:DejaVu Sans:size=11:weight=medium:antialias=true");
    ASSERT_TRUE(start_up());
    EXPECT_EQ(grx_recup_genre_police(), test_planes() == 24 ? GRX_POLICE_LISSE : GRX_POLICE_SERVEUR);
}

class FontOn8 : public On8 {
  protected:
    void before_start() override { ASSERT_EQ(grx_affecte_police(outline_11), 1); }
};

TEST_F(FontOn8, IsOneOfTheServerOfAboutTheSameHeight) {
    EXPECT_EQ(grx_recup_genre_police(), GRX_POLICE_SERVEUR);
    ASSERT_NE(fontstruct, nullptr);
    EXPECT_NEAR(fontstruct->ascent + fontstruct->descent, 19, 1);
    EXPECT_EQ(grx_recup_hau_exact_carac_alpha(), fontstruct->ascent + fontstruct->descent);
    EXPECT_EQ(MB_CUR_MAX, 1U) << "the locale is for outline fonts";
    const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
    const INT label = labelled(GRX_BOU_LABEL, window, "\311t\351");
    ASSERT_TRUE(wait_visible(grx_recup_objet_bout(label)));
    settle();
    const Pixels seen = grab(x11_disp, XtWindow(grx_recup_objet_bout(label)));
    EXPECT_LE(blended_colours(seen), 2);
    EXPECT_GT(seen.count_other(seen.at(0, 0)), 20);
}

class FontWithoutRenderOn24 : public On24 {
  protected:
    XServerOptions server_options() const override {
        XServerOptions options;
        options.arguments = {"-extension", "RENDER"};
        return options;
    }
    void before_start() override { ASSERT_EQ(grx_affecte_police(outline_11), 1); }
};

TEST_F(FontWithoutRenderOn24, IsOneOfTheServer) {
    EXPECT_EQ(grx_recup_genre_police(), GRX_POLICE_SERVEUR);
    ASSERT_NE(fontstruct, nullptr);
    EXPECT_NEAR(fontstruct->ascent + fontstruct->descent, 19, 1);
}

// --- what it costs

class FontCostOn24 : public XTest {
  protected:
    static unsigned long requests_of_start() {
        EXPECT_TRUE(start_up());
        XSync(x11_disp, False);
        return NextRequest(x11_disp);
    }
};

TEST_F(FontCostOn24, NothingDiffersWithoutTheirPrefix) {
    requests_of_start(); // the first one of a process asks for more
    ASSERT_EQ(grx_termine_application(), 1);
    std::string contract = "9x15";
    grx_affecte_font(contract.data());
    const unsigned long before = x_totals().round_trips;
    const unsigned long requests = requests_of_start();
    const unsigned long trips = x_totals().round_trips - before;
    ASSERT_EQ(grx_termine_application(), 1);
    grx_affecte_police("9x15");
    const unsigned long again = x_totals().round_trips;
    EXPECT_EQ(requests_of_start(), requests);
    EXPECT_EQ(x_totals().round_trips - again, trips);
    EXPECT_LE(trips, 70U) << "as ever";
    ASSERT_EQ(grx_termine_application(), 1);

    grx_affecte_police(outline_11);
    const unsigned long outline = x_totals().round_trips;
    const unsigned long with_outline = requests_of_start();
    const unsigned long more_trips = x_totals().round_trips - outline;
    std::printf("start-up: %lu requests and %lu round trips, with an outline font %lu and %lu\n", requests, trips,
        with_outline, more_trips);
    EXPECT_LE(with_outline, requests + 80);
    EXPECT_LE(more_trips, trips + 8);
}

} // namespace
