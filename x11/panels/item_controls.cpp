// What the builders of items share: sizes in characters, controls by an item's message, icons behind "@".
#include "panels/item_controls.h"

#include <algorithm>
#include <cstring>

#include "pure/axis.h"
#include "pure/text.h"
#include "panels/item_buttons.h"
#include "host_f.h"
#include "xt_bou_f.h"
#include "xt_ini_f.h"
#include "xt_ini_t.h"
#include "xt_pan_f.h"

namespace grx::items {

Item::Item(const GRX_MSG& msg)
    : message(msg), panel(msg.nobou), number(msg.prebou),
      result(item_record(panel, number) != nullptr ? 0 : GRX_ERR_ALLOC_PANNEAUX) {}

INT product(INT count, INT size, INT parts) {
    return static_cast<INT>(std::clamp<int64_t>(int64_t{count} * size / parts, INT16_MIN, INT16_MAX));
}

INT character_width() {
    return grx_recup_lar_carac_alpha();
}

INT line_height() {
    return grx_recup_hau_carac_alpha();
}

INT in_characters(INT count, INT cell) {
    return count >= 0 ? product(count, cell) : GRX_AUCUN;
}

INT text_width(const char* text) {
    return product(static_cast<INT>(std::strlen(text)) + 1, character_width());
}

INT moved(INT coordinate, int64_t by) {
    return saturated(coordinate + by);
}

INT numbered(INT key, INT base) {
    return moved(key, base);
}

// -- controls

INT attributes_of(const Item& item) {
    constexpr INT insensitive = GRX_BOU_ATT_VISIBLE; // shown, and no more
    return item.message.couleur != 0 ? GRX_BOU_ATT_ACTIF : insensitive;
}

GRX_BOUTON control(const Item& item, INT type, INT attributes) {
    GRX_BOUTON bou;
    grx_init_bouton(&bou);
    bou.type = type;
    bou.attrib = attributes;
    bou.fen_mere = item.message.fen_mere;
    bou.x = item.message.x;
    bou.y = item.message.y;
    return bou;
}

GRX_BOUTON label_of(const Item& item, const char* text) {
    GRX_BOUTON label = control(item, GRX_BOU_LABEL, GRX_BOU_ATT_ACTIF);
    copy_text(label.titre, text);
    return label;
}

INT add(Item& item, GRX_BOUTON& bou, char role) {
    if (item.result != 0 || grx_cree_bouton(&bou) != 0) return GRX_AUCUN;
    item.result = grx_memorise_bouton_item(item.panel, item.number, role, bou.nobou);
    if (item.result == 0) return bou.nobou;
    grx_detruit_bouton(bou.nobou);
    return GRX_AUCUN;
}

// -- icons

bool names_icon(std::string_view text) {
    return text.substr(0, 1) == "@";
}

std::string_view shown_text(std::string_view text) {
    return names_icon(text) ? trimmed(text.substr(1)) : text;
}

void show_icon(INT nobou, std::string_view text) {
    if (nobou < 0 || !names_icon(text)) return;
    char directory[HOST_CHEMIN_MAX] = "";
    char name[GRX_MSG_TITRE_MAX] = "";
    char path[HOST_CHEMIN_MAX] = "";
    grx_recup_repertoire_icones(directory);
    copy_text(name, shown_text(text));
    compose_adresse_fichier(directory, name, path);
    grx_change_icone_bouton(nobou, path);
}

} // namespace grx::items
