// Sessions that use the additions of every area: what they leave in the library and the toolkit until the end.
#pragma once

#include "tests/display/session/ending_kit.h"

#include "grx_plus_papier.h"

#include <unistd.h>

#include <array>

namespace grxtest {

class AddingSessions : public Sessions {
  protected:
    ~AddingSessions() override {
        for (const int fd : pipe_)
            if (fd >= 0) close(fd);
    }

    // What is said before the start.
    void say_who() {
        GRX_IDENTITE who;
        ASSERT_EQ(grx_init_identite(&who), 1);
        who.nom = "plan";
        who.classe = "Plan";
        ASSERT_EQ(grx_affecte_identite(&who), 1);
        std::string program = "plan", option = "-title", value = "Etage", line = "-xrm", resource = "Plan*x: 1";
        char* words[] = {program.data(), option.data(), value.data(), line.data(), resource.data(), nullptr};
        INT count = 5;
        ASSERT_EQ(grx_arguments(&count, words), 1);
        ASSERT_EQ(count, 1);
        grx_affecte_fonction_secours([](void*) {}, &events);
        write_ini("FONT_CARACTERE xft:DejaVu Sans:size=11:weight=medium:antialias=true\n");
    }

    void sources() {
        if (pipe_[0] < 0) ASSERT_EQ(pipe(pipe_.data()), 0);
        ASSERT_GT(grx_surveille_descripteur(pipe_[0], GRX_DESCRIPTEUR_LECTURE), 0);
        ASSERT_GT(grx_cree_minuterie(1, 1), 0);
        const INT idle = grx_cree_tache_oisive();
        ASSERT_GT(idle, 0);
        GRX_EVENEMENT record{};
        for (int i = 0; i < 20; ++i) grx_digitaliseur_delai(&record, 20); // some wait for idle work's turn, too
        ASSERT_EQ(write(pipe_[1], "x", 1), 1);
        ASSERT_TRUE(events.wait(GRX_EVT_DESCRIPTEUR)) << events.describe();
        char read_back = 0;
        ASSERT_EQ(read(pipe_[0], &read_back, 1), 1);
        ASSERT_EQ(grx_detruit_tache_oisive(idle), 1);
    }

    // A tip or a menu: no other window is without a frame.
    bool override_on_screen() {
        for (const Window window : children_of(test_display(), DefaultRootWindow(test_display()))) {
            XWindowAttributes a{};
            if (XGetWindowAttributes(test_display(), window, &a) && a.map_state == IsViewable && a.override_redirect)
                return true;
        }
        return false;
    }

    void window_with_tip() {
        window_ = make(GRX_FEN_GRAPHIQUE, GRX_FEN_ATT_VISIBLE, 400, 300);
        ASSERT_GT(window_, 0);
        ASSERT_TRUE(wait_visible(widget_of(window_)));
        EXPECT_EQ(grx_affecte_demande_fermeture(window_, 1), 1);
        EXPECT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS | GRX_DEPOT_TEXTE), 1);
        EXPECT_EQ(grx_affecte_demande_aide(GRX_AIDE_TOUCHE | GRX_AIDE_MENU), 1);
        GRX_BOUTON button = button_at(GRX_BOU_SIMPLE, window_, {20, 20, 100, 40});
        set_title(button, "Mur");
        ASSERT_EQ(grx_cree_bouton(&button), 0);
        EXPECT_EQ(grx_affecte_delais_bulles(1, 20000), 1);
        EXPECT_EQ(grx_affecte_bulle(button.nobou, "Trace un mur"), 1);
        Widget w = grx_recup_objet_bout(button.nobou);
        ASSERT_TRUE(wait_visible(w));
        pointer().move_in(w, 10, 10);
        pointer().move_in(w, 12, 12);
        EXPECT_TRUE(wait_for([this] { return override_on_screen(); })) << "no tip";
        take_pointer_away();
        EXPECT_TRUE(wait_for([this] { return !override_on_screen(); })) << "the tip stays";
        std::array<UNSIGNED_INT, 4> icon{0xFF102030U, 0xFF405060U, 0xFF708090U, 0xFFA0B0C0U};
        EXPECT_EQ(grx_ajoute_icone_fenetre(window_, 2, 2, icon.data()), 1);
        EXPECT_EQ(grx_ajoute_icone_fenetre(GRX_AUCUN, 2, 2, icon.data()), 1);
    }

    void living_menus() {
        EXPECT_EQ(grx_desactive_entree_menu(202, 1, 1), 1);
        EXPECT_EQ(grx_coche_entree_menu(203, 1, 1), 1);
        EXPECT_EQ(grx_change_texte_entree_menu(204, "Qui", 1), 1);
        EXPECT_EQ(grx_affecte_aide_menu(201, "Ouvre un dessin"), 1);
        ASSERT_EQ(grx_ouvre_menu_contextuel(window_, nullptr, "#:ZONE_MENU_BAR", 200, 150), 1);
        ASSERT_TRUE(wait_for([this] { return override_on_screen(); }));
        EXPECT_EQ(grx_recup_fenetre_menu_contextuel(), window_);
        settle();
        keyboard().key(XK_Escape);
        ASSERT_TRUE(wait_for([] { return grx_recup_fenetre_menu_contextuel() == GRX_AUCUN; }));
    }

    // One is answered, one is left on the screen.
    void boxes() {
        GRX_BOITE_MESSAGE box;
        grx_init_boite_message(&box);
        box.texte = "Enregistrer ?";
        box.nofen_mere = window_;
        const INT asked = grx_affiche_boite_message(&box);
        ASSERT_GT(asked, 0);
        settle();
        ASSERT_EQ(grx_detruit_boite(asked), 1);
        ASSERT_GT(grx_affiche_boite_message(&box), 0);
        GRX_AVANCEMENT work;
        grx_init_avancement(&work);
        work.delai = 0;
        work.maximum = 10;
        ASSERT_EQ(grx_avancement_commence(&work), 1);
        grx_avancement_avance(5, "cinq");
    }

    // An icon, a file that stays open, and files of icons.
    void pictures() {
        GRX_IMAGE image;
        grx_init_image(&image);
        image.largeur = image.hauteur = 8;
        image.octets_par_pixel = 4;
        ASSERT_EQ(grx_cree_image(&image), 1);
        GRX_BOUTON button = button_at(GRX_BOU_DESSINE, window_, {20, 80, 40, 40});
        ASSERT_EQ(grx_cree_bouton(&button), 0);
        EXPECT_EQ(grx_affecte_icone_image_bouton(button.nobou, &image), 1);
        EXPECT_EQ(grx_affecte_icones_png(1), 1);
        EXPECT_EQ(grx_affiche_image(GRX_CIBLE_FENETRE, window_, &image, 5, 5), 1);
        const std::string file = home().text() + "/picture.png";
        EXPECT_EQ(grx_ecrit_image(file.c_str(), &image, GRX_IMAGE_PNG), 1);
        EXPECT_EQ(grx_ouvre_ecriture_image(file.c_str(), &image, GRX_IMAGE_BMP), 1);
        EXPECT_EQ(grx_libere_image(&image), 1);
        EXPECT_EQ(grx_ouvre_image(file.c_str(), &image), 2);
        GRX_IMAGE taken;
        grx_init_image(&taken);
        EXPECT_EQ(grx_recup_image_ecran(0, 0, 10, 10, &taken, nullptr), 1);
        EXPECT_EQ(grx_libere_image(&taken), 1);
    }

    void list() {
        GRX_BOUTON described = button_at(128, window_, {150, 20, 120, 120});
        ASSERT_EQ(grx_cree_bouton(&described), 0);
        const std::array<const char*, 3> texts{"un\t1", "deux\t2", "trois\t3"};
        EXPECT_EQ(grx_remplit_liste(described.nobou, 3, texts.data()), 1);
        const std::array<INT, 1> stops{60};
        EXPECT_EQ(grx_affecte_colonnes_liste(described.nobou, 1, stops.data(), GRX_COLONNE_PIXELS), 1);
    }

    // A layer on show, one that is being drawn, one that waits to be shown again; a limit in force.
    void layers() {
        const INT nofen = window_;
        ASSERT_EQ(grx_limite_trace(nofen, 0, 0, 50, 50), 1);
        for (const INT layer : {0, 1}) {
            ASSERT_EQ(grx_commence_calque(nofen, layer), 1);
            grx_trace_segment({nofen, 10, 10, 90, 60, 0, 0, 0, {0, 12, 0, 0, 0, 2}});
            ASSERT_EQ(grx_termine_calque(), 1);
        }
        EXPECT_EQ(grx_defile_fenetre(nofen, 3, 3, nullptr, nullptr), 1);
        grx_trace_segment({nofen, 10, 10, 90, 60, 0, 0, 0, {0, 12, 0, 0, 0, 2}});
        ASSERT_EQ(grx_commence_calque(nofen, 2), 1);
        grx_trace_segment({nofen, 10, 10, 90, 60, 0, 0, 0, {0, 12, 0, 0, 0, 2}});
    }

    void clipboard() {
        EXPECT_EQ(grx_affecte_touches_presse_papiers(1), 1);
        EXPECT_EQ(grx_affecte_suivi_presse_papiers(1), 1);
        EXPECT_EQ(grx_affecte_texte_presse_papiers(GRX_SEL_PRESSE_PAPIERS, GRX_CODAGE_UTF8, "cote", 4), 1);
        const char* text = nullptr;
        INT length = 0;
        EXPECT_EQ(grx_recup_texte_presse_papiers(GRX_SEL_PRESSE_PAPIERS, GRX_CODAGE_UTF8, &text, &length), 1);
    }

    // Soft or hard letters, large ones, strokes, and what is asked without drawing.
    void texts() {
        GRX_TEXTE text;
        ASSERT_EQ(grx_init_texte_dessin(&text), 1);
        text.nofen = window_;
        text.x = text.y = 150;
        text.attrib = {0, 9, 0, 0, 0, 0};
        std::strcpy(text.chaine, "Mur \xC3\xA9 12");
        for (const char* font : {"", "DejaVu Serif", GRX_FONTE_TRAIT, "Pas Une Fonte"}) {
            std::strcpy(text.fontlabel, font);
            for (const double height : {10.0, 200.0}) {
                text.hauteurlabel = text.largeurlabel = height;
                for (const INT mode : {0, GRX_MODE_XOR, GRX_MODE_EFFACE}) {
                    text.attrib.mode = mode;
                    ASSERT_GE(grx_trace_texte_dessin(&text), 1);
                }
            }
        }
        GRX_CONTOURS_TEXTE contours;
        grx_init_contours_texte(&contours);
        ASSERT_GE(grx_recup_contours_texte(&text, 0, &contours), 1);
        ASSERT_GT(grx_recup_nombre_fontes_texte(), 1);
        char name[100];
        ASSERT_GT(grx_recup_nom_fonte_texte(1, name, sizeof name), 0);
    }

    // Begun, and left as it is: what is drawn afterwards goes to it.
    void paper() {
        const std::string file = home().text() + "/plan.pdf";
        GRX_PAPIER described;
        ASSERT_EQ(grx_init_papier(&described), 1);
        described.fichier = file.c_str();
        described.numero = window_;
        ASSERT_EQ(grx_commence_papier(&described), 1);
        grx_trace_segment({window_, 1, 2, 30, 40, 0, 0, 0, {}});
        EXPECT_EQ(grx_page_papier(), 1);
    }

    // Everything that stays until the end is left as it is.
    void use_additions() {
        for (auto part : {&AddingSessions::sources, &AddingSessions::window_with_tip, &AddingSessions::living_menus,
                 &AddingSessions::pictures, &AddingSessions::list, &AddingSessions::texts, &AddingSessions::clipboard,
                 &AddingSessions::boxes, &AddingSessions::layers, &AddingSessions::paper}) {
            (this->*part)();
            if (HasFatalFailure()) return;
        }
    }

    INT window_ = GRX_AUCUN;
    std::array<int, 2> pipe_{-1, -1};
};

} // namespace grxtest
