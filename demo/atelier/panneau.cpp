#include "panneau.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <limits>
#include <span>

#include "etat_hote.h"
#include "xt_f.h"

namespace atelier {

namespace {

constexpr int kDixiemes = 10; // the tens of a kind are its family

bool a_un_champ(const ITEM_PANEL& item) {
    const int famille = item.type / kDixiemes;
    const bool compose =
        item.type == GRX_ITEM_CHOIX || item.type == GRX_ITEM_ECHELLE_H || item.type == GRX_ITEM_ECHELLE_V;
    return !compose
           && (famille == GRX_ITEM_FAMILLE_TEXTE || famille == GRX_ITEM_FAMILLE_REEL
               || famille == GRX_ITEM_FAMILLE_ENTIER);
}

GRX_MSG message_de(const ITEM_PANEL& item) {
    constexpr INT kDecimales = 4;
    GRX_MSG m{};
    grx_init_message(&m);
    m.type = item.type;
    m.clef = item.indice;
    m.x = item.x;
    m.y = item.y;
    m.largeur = item.tx_item;
    m.hauteur = item.ty_item;
    m.couleur = item.actif;
    m.nb_cara = a_un_champ(item) ? item.tx_item : 0;
    m.nb_deci = kDecimales;
    m.ival = istate[item.indice];
    m.rval = reel(item.indice);
    std::snprintf(m.titre, sizeof m.titre, "%s", item.message);
    return m;
}

} // namespace

bool Panneau::cree_fenetre(const PANEL& p, INT mere, INT x, INT y) {
    GRX_FENETRE f;
    grx_init_fenetre(&f);
    f.type = GRX_FEN_ALPHA;
    f.attrib = GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_SANS_RESIZE | GRX_FEN_ATT_SANS_MAXI | GRX_FEN_ATT_SANS_MINI;
    f.fen_mere = mere;
    f.x = x;
    f.y = y;
    f.droite = p.tx;
    f.haut = p.ty;
    grx_demande_taille_optimale_panel(&f.droite, &f.haut);
    static_assert(sizeof p.titre <= sizeof f.titre);
    std::memcpy(f.titre, p.titre, sizeof p.titre);
    if (grx_cree_fenetre(&f) != 0) return false;
    nofen_ = f.nofen;
    return true;
}

void Panneau::cree_item(const ITEM_PANEL& item, INT numero) const {
    GRX_MSG m = message_de(item);
    m.fen_mere = nofen_;
    m.nobou = numero_;
    m.prebou = numero;
    grx_cree_item(&m);
}

bool Panneau::ouvre(INT mere, INT x, INT y) {
    const PANEL* const p = description();
    if (p == nullptr || !cree_fenetre(*p, mere, x, y)) return false;
    INT numero = 0;
    for (const ITEM_PANEL& item : std::span(p->tab_items, p->nb_items)) cree_item(item, numero++);
    return true;
}

void Panneau::ferme() {
    const INT nofen = nofen_;
    if (!ouvert()) return;
    oublie();
    grx_detruit_fenetre(nofen);
}

void Panneau::oublie() {
    if (!ouvert()) return;
    nofen_ = -1;
    grx_supprime_items(numero_);
    for (const ITEM_PANEL& item : std::span(description()->tab_items, description()->nb_items))
        if (item.type / kDixiemes == GRX_ITEM_LISTE / kDixiemes) grx_supprime_item_liste(numero_, item.indice);
}

// The numbers of the valid buttons of an item; nothing when no item has this index.
std::vector<INT> Panneau::boutons(int indice) const {
    const PANEL* const p = description();
    for (INT item = 0; ouvert() && item < p->nb_items; ++item) {
        if (p->tab_items[item].indice != indice) continue;
        std::array<INT, std::numeric_limits<uchar>::max()> boutons{};
        INT nombre = boutons.size();
        recup_boutons_item(numero_, item, &nombre, boutons.data());
        return {boutons.data(), boutons.data() + nombre};
    }
    return {};
}

INT Panneau::bouton(int indice) const {
    const std::vector<INT> tous = boutons(indice);
    return tous.empty() ? -1 : tous.front();
}

void Panneau::desactive(int indice) const {
    for (const INT nobou : boutons(indice)) grx_desactive_bouton(nobou, 1);
}

} // namespace atelier
