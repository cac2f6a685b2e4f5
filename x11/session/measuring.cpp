// Measures scroll bars and the size of a character on probe widgets, at start-up and when the font changes.
#include <X11/Intrinsic.h>

#include "pure/size.h"
#include "pure/text.h"
#include "xt_bou_f.h"
#include "xt_ent_t.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"

namespace {

GRX_BOUTON cell_probe(Widget parent, INT type, const char* title, INT columns) {
    constexpr INT step = 10;
    GRX_BOUTON bou;
    grx_init_bouton(&bou);
    bou.ref_fen_mere = parent;
    bou.type = type;
    bou.attrib = GRX_BOU_ATT_VISIBLE;
    bou.x = bou.y = columns > 1 ? step : 0;
    bou.tabi[GRX_BOU_TABI_COLONNES] = columns;
    bou.no_fo = columns - 1;
    grx::copy_text(bou.titre, title);
    return bou;
}

grx::Size size_and_destroy(INT nobou) {
    grx::Size size;
    grx_recup_taille_bouton(nobou, &size.width, &size.height);
    grx_detruit_bouton(nobou);
    return size;
}

grx::Size measured(GRX_BOUTON bou) {
    return grx_cree_bouton(&bou) == 0 ? size_and_destroy(bou.nobou) : grx::Size{};
}

GRX_BOUTON probe_button(INT type, INT window, const char* title, INT no_fo) {
    GRX_BOUTON bouton;
    grx_init_bouton(&bouton);
    bouton.type = type;
    bouton.fen_mere = window;
    bouton.attrib = GRX_BOU_ATT_VISIBLE;
    bouton.x = bouton.y = 0;
    bouton.no_fo = no_fo;
    grx::copy_text(bouton.titre, title);
    return bouton;
}

void measure_scroll_bar(INT window) {
    const INT thickness = grx_recup_taille_scrollbar(window);
    if (thickness > 0) grx_affecte_largeur_scrollbar(thickness);
}

bool measure_fields(INT window) {
    GRX_BOUTON one = probe_button(GRX_BOU_TEXTE, window, "test", 0);
    GRX_BOUTON two = probe_button(GRX_BOU_TEXTE, window, "test", 1);
    // Read-only fields have the same size, and the toolkit opens no input method for them.
    one.attrib |= GRX_BOU_ATT_TEXTE_LECTURE;
    two.attrib |= GRX_BOU_ATT_TEXTE_LECTURE;
    one.tabi[GRX_BOU_TABI_COLONNES] = 1;
    two.tabi[GRX_BOU_TABI_COLONNES] = 2;
    two.x = two.y = 10;
    if (grx_cree_bouton(&one) != 0) return false;
    const bool complete = grx_cree_bouton(&two) == 0;
    const grx::Size first = size_and_destroy(one.nobou);
    if (!complete) return false;
    const grx::Size second = size_and_destroy(two.nobou);
    const INT character = second.width - first.width;
    grx_affecte_hau_carac_alpha(first.height);
    grx_affecte_lar_carac_alpha(character);
    grx_affecte_lar_sup_alpha(first.width - character);
    return true;
}

void measure_label(INT window) {
    GRX_BOUTON label = probe_button(GRX_BOU_LABEL, window, "A", GRX_AUCUN);
    if (grx_cree_bouton(&label) != 0) return;
    grx_affecte_hau_exact_carac_alpha(size_and_destroy(label.nobou).height);
}

INT create_probe_window() {
    constexpr INT side = 150;
    GRX_FENETRE fenetre;
    grx_init_fenetre(&fenetre);
    fenetre.x = fenetre.y = 0;
    fenetre.droite = fenetre.haut = side;
    fenetre.type = GRX_FEN_ALPHA;
    fenetre.attrib = GRX_FEN_ATT_SCROLL;
    grx::copy_text(fenetre.titre, "ALPHA");
    return grx_cree_fenetre(&fenetre) == 0 ? fenetre.nofen : GRX_AUCUN;
}

} // namespace

extern "C" {

void affecte_carac_font(Widget pere) {
    if (pere == nullptr || !XtIsComposite(pere)) return;
    const grx::Size one = measured(cell_probe(pere, GRX_BOU_TEXTE, "test", 1));
    const grx::Size two = measured(cell_probe(pere, GRX_BOU_TEXTE, "test", 2));
    if (one.height == 0 || two.height == 0) return;
    const INT character = two.width - one.width;
    grx_affecte_hau_carac_alpha(one.height);
    grx_affecte_lar_carac_alpha(character);
    grx_affecte_lar_sup_alpha(two.width - 2 * character);
    const grx::Size label = measured(cell_probe(pere, GRX_BOU_LABEL, "A", 0));
    if (label.height > 0) grx_affecte_hau_exact_carac_alpha(label.height);
}

INT grx_affecte_carac_fenetre_systeme(void) {
    const GRX_EVENEMENT pending = evt_global; // the destruction of the probes is not the application's event
    const INT window = create_probe_window();
    if (window < 0) return 0;
    measure_scroll_bar(window);
    if (measure_fields(window)) measure_label(window);
    grx_detruit_fenetre(window);
    evt_global = pending;
    return 0;
}
}
