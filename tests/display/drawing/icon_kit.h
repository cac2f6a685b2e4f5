// Icons in files, and labels that show them.
#pragma once

#include "tests/support/window_kit.h"
#include "tests/support/controls.h"

#include <string>

namespace grxtest {

using Bytes = std::vector<uchar>;

class IconTest : public DisplayTest {
  protected:
    // A file of 16 or 256 colours; its full name.
    std::string icon_file(const std::string& name, Bytes picture, INT width, INT height, bool deep = false) {
        std::string directory = home().text(), file = name;
        const auto writer = deep ? ecrit_fichier_bitmap_256 : ecrit_fichier_bitmap;
        EXPECT_EQ(writer(directory.data(), file.data(), picture.data(), width, height), 0);
        return directory + "/" + name;
    }
    std::string plain_icon(const std::string& name, uchar colour, INT width = 12, INT height = 10) {
        return icon_file(name, Bytes(static_cast<std::size_t>(width * height), colour), width, height);
    }

    INT label_in(INT window) {
        GRX_BOUTON label = button_at(GRX_BOU_LABEL, window, {20, 20, 50, 50});
        EXPECT_EQ(grx_cree_bouton(&label), 0);
        EXPECT_TRUE(wait_visible(grx_recup_objet_bout(label.nobou)));
        drain();
        return label.nobou;
    }
    INT visible_window() {
        const INT window = make(GRX_FEN_BOUTONS);
        EXPECT_TRUE(wait_visible(widget_of(window)));
        grx_affecte_nofen_principale(window);
        return window;
    }
    static INT install(std::string file, INT nobou) { return grx_installe_bitmap(file.data(), nobou); }
    static unsigned pixmaps(Display* asker, INT window) {
        XSync(x11_disp, False);
        return server_resources(asker, x_window(window))["PIXMAP"];
    }
    static std::uint32_t icon_pixel(INT index) { return static_cast<std::uint32_t>(grx_recup_couleur_icone(index)); }
    static std::uint32_t colour_pixel(INT index) { return static_cast<std::uint32_t>(grx_recup_couleur(index)); }
};

} // namespace grxtest
