// Panels: each kind of item built from its message, controls and all.
#include <Xm/Xm.h>

#include <algorithm>
#include <cstdio>

#include "pure/text.h"
#include "toolkit/args.h"
#include "toolkit/field_text.h"
#include "toolkit/widgets.h"
#include "panels/item_buttons.h"
#include "panels/item_controls.h"
#include "panels/panel_lists.h"
#include "host_f.h"
#include "xt_bou_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_ini_t.h"
#include "xt_msg_f.h"
#include "xt_pan_f.h"

namespace grx::items {

namespace {

constexpr INT kScaleTop = 100;

// -- items of buttons

void press_if_set(const Item& item, INT nobou) {
    if (item.message.ival == 1) grx_enfonce_bouton(nobou);
}

// Moves a label's text away from what stands to its left.
void indent(Widget label, INT by) {
    if (label == nullptr) return;
    Args args;
    args.set(XmNmarginLeft, by).set(XmNwidth, given_size(label).width + by);
    change_unasked(label, [&] { XtSetValues(label, args.list(), args.count()); });
}

void add_small_button(Item& item, const char* title) {
    const INT side = product(2, character_width());
    GRX_BOUTON button = control(item, GRX_BOU_POUSSOIR, attributes_of(item));
    button.no_fo = numbered(item.message.clef, GRX_BASE_NOFO_BOUTON);
    button.largeur = button.hauteur = side;
    button.y = moved(item.message.y, (line_height() - side) / 2);
    press_if_set(item, add(item, button, kItemChoice));
    GRX_BOUTON label = label_of(item, title);
    label.x = moved(item.message.x, side);
    label.hauteur = line_height();
    label.attrib &= ~GRX_BOU_ATT_VISIBLE; // until it is indented
    const INT nobou = add(item, label, kItemLabel);
    indent(grx_recup_objet_bout(nobou), character_width());
    grx_affiche_bouton(nobou);
}

void set_icon_size(GRX_BOUTON& bou, const GRX_MSG& message) {
    const bool given = message.largeur != GRX_AUCUN && message.hauteur != GRX_AUCUN;
    bou.largeur = given ? product(message.largeur, character_width(), kTenths) : grx_recup_taille_icone_x();
    bou.hauteur = given ? product(message.hauteur, line_height(), kTenths) : grx_recup_taille_icone_y();
}

void set_text_size(GRX_BOUTON& bou, const char* text) {
    bou.largeur = text_width(text);
    bou.hauteur = line_height();
}

INT add_push_button(Item& item, const char* title, INT no_fo) {
    const bool icon = names_icon(title);
    GRX_BOUTON button = control(item, icon ? GRX_BOU_POUSSOIR : GRX_BOU_DESSINE, attributes_of(item));
    button.no_fo = no_fo;
    copy_text(button.titre, shown_text(title));
    if (icon) {
        set_icon_size(button, item.message);
    } else {
        set_text_size(button, title);
    }
    const INT nobou = add(item, button, kItemChoice);
    show_icon(nobou, title);
    return nobou;
}

// -- scales, lists, separators, labels, drawing areas

// Lays a scale the way that its kind of item says; its attribute bits say something else. Turning exchanges width and
// height: both are given again.
void turn(Widget w, bool horizontal, const GRX_BOUTON& scale) {
    Args direction, size;
    direction.set(XmNorientation, horizontal ? XmHORIZONTAL : XmVERTICAL);
    direction.set(XmNprocessingDirection, horizontal ? XmMAX_ON_RIGHT : XmMAX_ON_TOP);
    XtSetValues(w, direction.list(), direction.count());
    if (scale.largeur > 0) size.set(XmNscaleWidth, scale.largeur).set(XmNwidth, scale.largeur);
    if (scale.hauteur > 0) size.set(XmNscaleHeight, scale.hauteur).set(XmNheight, scale.hauteur);
    XtSetValues(w, size.list(), size.count());
}

void add_scale(Item& item) {
    constexpr INT horizontal_attributes = GRX_BOU_ATT_ACTIF | 0x100;
    const bool horizontal = item.message.type == GRX_ITEM_ECHELLE_H;
    const INT attributes = horizontal ? horizontal_attributes : GRX_BOU_ATT_ACTIF | GRX_BOU_ATT_ECHELLE_HORIZ;
    GRX_BOUTON scale = control(item, GRX_BOU_ECHELLE, attributes);
    scale.no_fo = numbered(item.message.clef, GRX_BASE_NOFO_REEL);
    scale.tabi[GRX_BOU_TABI_MAXI] = kScaleTop;
    scale.largeur = in_characters(item.message.largeur, character_width());
    scale.hauteur = in_characters(item.message.hauteur, line_height());
    const INT nobou = add(item, scale, kItemChoice);
    if (Widget w = grx_recup_objet_bout(nobou)) change_unasked(w, [&] { turn(w, horizontal, scale); });
    grx_change_valeur_echelle(nobou, item.message.ival);
}

// Adds no button to the item: a list is known by its key and its panel.
void add_list(Item& item) {
    const GRX_MSG& message = item.message;
    GRX_MSG list{};
    grx_init_message(&list);
    list.clef = numbered(message.clef, GRX_BASE_CLEF_LISTE);
    list.type = message.type % kKindsInFamily;
    list.nb_cara = host_list_length(message.clef);
    list.nobou = item.panel;
    list.fen_mere = message.fen_mere;
    list.x = message.x;
    list.y = message.y;
    list.largeur = product(moved(message.largeur, 1), character_width());
    list.hauteur = product(message.hauteur, line_height());
    const bool made = grx_cree_item_liste(&list) != nullptr;
    item.result = made || grx_recup_objet_fen(message.fen_mere) == nullptr ? 0 : GRX_ERR_ALLOC_PANNEAUX;
}

void add_separator(Item& item) {
    const bool vertical = item.message.type == GRX_ITEM_SEPARATEUR_V;
    GRX_BOUTON line = control(
        item, GRX_BOU_SEPARATEUR, vertical ? GRX_BOU_ATT_ACTIF : GRX_BOU_ATT_ACTIF | GRX_BOU_ATT_SEPARATEUR_HORIZ);
    if (item.message.largeur >= 0) line.largeur = product(item.message.largeur, character_width(), kTenths);
    if (item.message.hauteur >= 0) line.hauteur = product(item.message.hauteur, line_height(), kTenths);
    const INT nobou = add(item, line, kItemLabel);
    Widget w = grx_recup_objet_bout(nobou);
    if (w != nullptr && item.message.type == GRX_ITEM_SEPARATEUR_DOUBLE)
        set_resource(w, XmNseparatorType, XmDOUBLE_LINE);
}

void add_title(Item& item, const char* title) {
    GRX_BOUTON label = label_of(item, title);
    add(item, label, kItemLabel);
}

void add_drawing_area(Item& item) {
    GRX_BOUTON area = control(item, GRX_BOU_ZONE_DESSIN, GRX_BOU_ATT_ACTIF);
    area.no_fo = numbered(item.message.clef, GRX_BASE_NOFO_DESSIN);
    area.largeur = in_characters(item.message.largeur, character_width());
    area.hauteur = in_characters(item.message.hauteur, line_height());
    add(item, area, kItemChoice);
}

// -- entry fields

void write_real(const GRX_MSG& message, CH80& text) {
    char number[HOST_NOMBRE_MAX] = "";
    clc_convert_to_string(message.rval, message.nb_cara, message.nb_deci, number);
    copy_text(text, number);
}

// Sets the content of a field and the function number that it posts, by the family of the item.
void set_content(GRX_BOUTON& field, const GRX_MSG& message) {
    field.no_fo = message.clef;
    switch (message.type / kKindsInFamily) {
    case GRX_ITEM_FAMILLE_TEXTE:
        copy_text(field.titre, FieldText(message.cval).c_str());
        field.no_fo = numbered(message.clef, GRX_BASE_NOFO_TEXTE);
        break;
    case GRX_ITEM_FAMILLE_REEL:
        write_real(message, field.titre);
        field.no_fo = numbered(message.clef, GRX_BASE_NOFO_REEL);
        break;
    case GRX_ITEM_FAMILLE_ENTIER:
        std::snprintf(field.titre, sizeof field.titre, "%d", message.ival);
        field.no_fo = numbered(message.clef, GRX_BASE_NOFO_ENTIER);
        break;
    default: break;
    }
}

// The label ends one character to the left of the place of the item, where its field begins.
void add_field_label(Item& item, const char* title) {
    GRX_BOUTON label = label_of(item, title);
    label.x = moved(item.message.x, -int64_t{text_width(title)});
    if (label.x == GRX_AUCUN) label.x = 0; // which would mean that no place is given
    label.hauteur = line_height();
    add(item, label, kItemLabel);
}

// Adds the field; its number, 0 when the item has none.
INT add_field(Item& item) {
    const GRX_MSG& message = item.message;
    if (message.nb_cara <= 0) return 0;
    GRX_BOUTON field = control(item, GRX_BOU_TEXTE, attributes_of(item));
    field.tabi[GRX_BOU_TABI_COLONNES] = message.nb_cara;
    field.largeur = product(moved(message.nb_cara, 1), character_width());
    field.hauteur = line_height();
    set_content(field, message);
    return std::max<INT>(add(item, field, kItemChoice), 0);
}

// -- which kind is built how

void add_labelled_field(Item& item, GRX_MSG& message, const char* title) {
    add_field_label(item, title);
    message.prebou = add_field(item);
}

void build_family(Item& item, GRX_MSG& message, const char* title) {
    switch (message.type / kKindsInFamily) {
    case GRX_ITEM_FONCTION / kKindsInFamily:
        add_push_button(item, title, numbered(item.panel, GRX_BASE_NOFO_FONCTION));
        break;
    case GRX_ITEM_FONCTION_CLEF / kKindsInFamily: add_push_button(item, title, message.clef); break;
    case GRX_ITEM_LISTE / kKindsInFamily: add_list(item); break;
    case GRX_ITEM_TITRE / kKindsInFamily: add_title(item, title); break;
    case GRX_ITEM_ZONE_DESSIN / kKindsInFamily: add_drawing_area(item); break;
    default: add_labelled_field(item, message, title); break;
    }
}

void build(Item& item, GRX_MSG& message, const char* title) {
    message.prebou = 0;
    switch (message.type) {
    case GRX_ITEM_BOUTON: add_small_button(item, title); break;
    case GRX_ITEM_ICONE:
        press_if_set(item, add_push_button(item, title, numbered(message.clef, GRX_BASE_NOFO_BOUTON)));
        break;
    case GRX_ITEM_ECHELLE_H:
    case GRX_ITEM_ECHELLE_V: add_scale(item); break;
    case GRX_ITEM_SEPARATEUR:
    case GRX_ITEM_SEPARATEUR_V:
    case GRX_ITEM_SEPARATEUR_DOUBLE: add_separator(item); break;
    default: build_family(item, message, title); break;
    }
}

INT build_composite(GRX_MSG& message) {
    if (message.type != GRX_ITEM_CHOIX) message.attribut = message.type == GRX_ITEM_BASCULES_HORIZ ? 1 : 0;
    const INT result = message.type == GRX_ITEM_CHOIX ? grx_cree_istate1(&message) : grx_cree_bstate1(&message);
    message.prebou = 0;
    return result;
}

INT build_item(GRX_MSG& message) {
    message.x = moved(message.x, 1);
    message.y = moved(message.y, 1);
    if (is_composite_kind(message.type)) return build_composite(message);
    Item item(message);
    const FieldText title(message.titre);
    build(item, message, title.c_str());
    return item.result;
}

} // namespace

} // namespace grx::items

extern "C" {

INT grx_cree_item(GRX_MSG* message) {
    return message != nullptr ? grx::items::build_item(*message) : 0;
}
}
