// Sessions: the library started, used for everything that users see, and ended; and what they saw.
#pragma once

#include "tests/display/dialogs/file_dialog_kit.h"
#include "tests/display/panels/panel_kit.h"
#include "tests/support/controls.h"
#include "tests/support/descriptors.h"

#include "grx_plus.h"

#include <X11/keysym.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace grxtest {

inline constexpr const char* session_menu = "#:ZONE_MENU_BAR\n{\nPOPUP||&Fichier|\n{\nITEM||Ouvrir|Ctrl+O|201|\n"
                                            "ITEM||Fermer||202|\nPOPUP||Autre|\n{\nITEM||Plus||203|\n}\n}\n"
                                            "POPUP||Aide|\n{\nITEM||Sur||204|\n}\n}\n";

// The colours that a screen shows, whatever pixels stand for them.
inline Pixels colours_of(Display* display, Pixels picture) {
    std::map<std::uint32_t, std::uint32_t> known;
    for (std::uint32_t& value : picture.values) {
        const auto [place, is_new] = known.try_emplace(value, 0);
        if (is_new) {
            XColor colour{};
            colour.pixel = value;
            XQueryColor(display, DefaultColormap(display, DefaultScreen(display)), &colour);
            place->second = (colour.red / 256U) << 16 | (colour.green / 256U) << 8 | colour.blue / 256U;
        }
        value = place->second;
    }
    return picture;
}

using Album = std::map<std::string, Pixels>;

// Each test starts within a session, with a main window on show.
class Sessions : public FileDialogs<DisplayTest> {
  protected:
    void before_start() override {
        FileDialogs::before_start();
        write_menu(session_menu);
    }

    void SetUp() override {
        FileDialogs::SetUp();
        if (HasFatalFailure()) return;
        entries_.emplace(5, numbered_entries(12), std::vector<INT>{3});
        put("a.DAT", "one\ntwo\n");
        put("B.DAT", "three\n");
    }

    // The calls of the first time.
    void start_again() {
        ASSERT_EQ(grx_initialise_globales(), 0);
        ASSERT_TRUE(start_up());
        main_ = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE, 300, 200);
        ASSERT_GT(main_, 0);
        grx_affecte_nofen_principale(main_);
        ASSERT_TRUE(wait_visible(widget_of(main_)));
        settle();
    }

    void end() {
        ASSERT_EQ(grx_termine_application(), 1);
        events.clear();
    }

    void photograph(Album& album, const std::string& name) {
        take_pointer_away();
        settle();
        album[name] = colours_of(test_display(), grab_root(test_display()));
    }

    // --- what users see

    void controls(Album& album) {
        const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 700, 500);
        const std::vector<INT> types{
            GRX_BOU_SIMPLE, GRX_BOU_LABEL, GRX_BOU_TEXTE, GRX_BOU_DESSINE, GRX_BOU_ECHELLE, GRX_BOU_BASCULE};
        int y = 20;
        for (const INT type : types) {
            for (const bool active : {true, false}) {
                GRX_BOUTON button = button_at(type, window, {active ? 20 : 320, y, 200, 50});
                if (!active) button.attrib &= ~GRX_BOU_ATT_ACTIF;
                set_title(button, "Calque");
                ASSERT_EQ(grx_cree_bouton(&button), 0) << type;
            }
            y += 70;
        }
        icon_in(window);
        ASSERT_TRUE(wait_visible(widget_of(window)));
        photograph(album, "controls");
        grx_detruit_fenetre(window);
    }

    void icon_in(INT window) {
        std::vector<uchar> picture(20 * 20);
        for (std::size_t i = 0; i < picture.size(); ++i) picture[i] = static_cast<uchar>(i % 16);
        std::string directory = home().text(), file = "icon.bmp", path = directory + "/" + file;
        ASSERT_EQ(ecrit_fichier_bitmap(directory.data(), file.data(), picture.data(), 20, 20), 0);
        GRX_BOUTON label = button_at(GRX_BOU_LABEL, window, {600, 20, 40, 40});
        ASSERT_EQ(grx_cree_bouton(&label), 0);
        ASSERT_EQ(grx_installe_bitmap(path.data(), label.nobou), 1);
    }

    void kinds(Album& album) {
        std::vector<INT> numbers;
        int x = 20;
        for (const INT kind : all_kinds) {
            GRX_FENETRE window = described(kind, GRX_FEN_ATT_VISIBLE | (kind == GRX_FEN_MENU ? GRX_FEN_ATT_SCROLL : 0));
            window.x = x;
            x += 205;
            numbers.push_back(make(window));
            ASSERT_TRUE(wait_visible(widget_of(numbers.back()))) << kind;
        }
        draw_in(numbers[1]);
        photograph(album, "kinds");
        for (const INT n : numbers) grx_detruit_fenetre(n);
    }

    void draw_in(INT window) {
        settle();
        grx_affecte_nofen_active(window);
        for (INT colour = 0; colour < 16; ++colour) {
            GRX_SEGMENT segment{};
            segment.nofen = window;
            segment.coul_trace = colour;
            segment.attrib.coul_trace = colour;
            segment.x1 = 5;
            segment.x2 = 190;
            segment.y1 = segment.y2 = 5 + 8 * colour;
            grx_trace_segment(segment);
        }
    }

    void menus(Album& album) {
        Widget bar = grx_get_Glob_menu_bar();
        ASSERT_NE(bar, nullptr);
        pointer().click_in(children_of(bar).front());
        ASSERT_TRUE(wait_for([&] { return on_screen_of(xmMenuShellWidgetClass) != nullptr; }));
        settle();
        album["menu"] = colours_of(test_display(), grab_root(test_display()));
        keyboard().key(XK_Escape);
        ASSERT_TRUE(wait_for([&] { return on_screen_of(xmMenuShellWidgetClass) == nullptr; }));
        pointer().move_in(widget_of(main_), 50, 50);
        settle();
        keyboard().key(XK_o, ControlMask);
        const auto chosen = events.wait(GRX_EVT_BOUTON_APPUI);
        ASSERT_TRUE(chosen) << events.describe();
        EXPECT_EQ(chosen->bouton_appui.no_fo, 201);
    }

    void panel(Album& album) {
        ASSERT_EQ(grx_alloue_base_items_panels(panel_count, panels_.table()), 0);
        const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 600, 400);
        ASSERT_TRUE(wait_visible(widget_of(window)));
        GRX_MSG message{};
        grx_init_message(&message);
        message.type = GRX_LISTE_MULTIPLE;
        message.clef = GRX_BASE_CLEF_LISTE + 5;
        message.x = message.y = 10;
        message.largeur = 150;
        message.hauteur = 200;
        message.nb_cara = 12;
        message.fen_mere = window;
        message.nobou = 1;
        EXPECT_NE(grx_cree_item_liste(&message), nullptr);
        photograph(album, "panel");
    }

    void palette(Album& album) {
        char title[256] = "Palette";
        grx_affiche_fenetre_modif_palette_couleurs(200, 300, title, main_);
        ASSERT_TRUE(wait_visible(widget_of(No_fen_mod_coul)));
        photograph(album, "palette");
        grx_detruit_fenetre_modif_palette_couleurs();
    }

    void editor(Album& album) {
        ASSERT_EQ(grx_debut_editeur(), 1);
        grx_editeur();
        std::string folder = files_.text(), name = "a.DAT";
        grx_file_editeur(folder.data(), name.data());
        ASSERT_TRUE(wait_visible(widget_called("text")));
        photograph(album, "editor");
    }

    void file_dialog(Album& album) {
        when_open("look", [&] {
            take_pointer_away();
            XSync(x11_disp, False);
            album["file dialog"] = colours_of(test_display(), grab_root(test_display()));
            cancel();
        });
        EXPECT_EQ(choose({}).result, 0);
    }

    // Everything, with what was on the screen each time. The editor, the panel and the main window are left as they are.
    Album everything() {
        Album album;
        for (auto part : {&Sessions::controls, &Sessions::kinds, &Sessions::menus, &Sessions::palette,
                 &Sessions::file_dialog, &Sessions::panel, &Sessions::editor}) {
            (this->*part)(album);
            if (HasFatalFailure()) break;
        }
        return album;
    }

    static void expect_same(const Album& now, const Album& first) {
        ASSERT_EQ(now.size(), first.size());
        for (const auto& [name, picture] : first) EXPECT_TRUE(same(now.at(name), picture)) << name;
    }

    Panels panels_;
    std::optional<HostList> entries_;
};

} // namespace grxtest
