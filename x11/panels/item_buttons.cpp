// Panels: the buttons that make up each item, and the building of items.
#include "xt_prive.h"

#include <X11/StringDefs.h>
#include <Xm/DrawnB.h>
#include <Xm/Form.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/Scale.h>
#include <Xm/TextF.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "host_f.h"
#include "host_g.h"
#include "toolkit/args.h"
#include "system/block.h"
#include "toolkit/field_text.h"
#include "toolkit/option_menu.h"
#include "events/record.h"
#include "toolkit/look.h"
#include "pure/axis.h"
#include "pure/item_text.h"
#include "pure/out.h"
#include "pure/text.h"
#include "xt_bou_f.h"
#include "xt_err_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"
#include "xt_msg_f.h"
#include "xt_pan_f.h"

PANEL* Tab_pan = nullptr;
INT Nb_pan = 0;
BOUTONS_PANEL** Liste_btn = nullptr;
INT* Nb_item = nullptr;

// --------------------------------------------------------------------------------------- the buttons of each item

namespace {

PANEL* given_panels = nullptr; // Tab_pan was set here, not by the application
INT table_places = 0;          // of Liste_btn and Nb_item, whatever the application makes of Nb_pan

// What a button is to its item.
constexpr char kLabel = 0;
constexpr char kChoice = 1;

constexpr std::size_t kMostButtons = 255; // what the count of a record can hold

template <class T>
bool allocate(T*& table, INT count) {
    table = grx::Block<T>(grx::room_for(count)).release();
    return table != nullptr;
}

template <class T>
void release(T*& table, INT count) {
    grx::Block<T>::adopt(table, grx::room_for(count)).reset();
    table = nullptr;
}

bool in_tables(INT ipan) {
    return Liste_btn != nullptr && Nb_item != nullptr && ipan >= 0 && ipan < table_places;
}

bool known_panel(INT ipan) {
    return in_tables(ipan) && ipan < Nb_pan;
}

BOUTONS_PANEL* record_of(INT ipan, INT item) {
    if (!known_panel(ipan) || item < 0 || item >= Nb_item[ipan] || Liste_btn[ipan] == nullptr) return nullptr;
    return &Liste_btn[ipan][item];
}

bool allocate_items(INT ipan, INT count) {
    if (count == 0) return true;
    if (!allocate(Liste_btn[ipan], count)) return false;
    Nb_item[ipan] = count;
    return true;
}

bool allocate_panels(INT nb_pan, const PANEL* tab) {
    if (!allocate(Liste_btn, nb_pan) || !allocate(Nb_item, nb_pan)) return false;
    for (INT i = 0; i < nb_pan && tab != nullptr; ++i) {
        if (!allocate_items(i, tab[i].nb_items)) return false;
    }
    return true;
}

// A longer copy of `old` with one more entry at its end.
template <class T>
grx::Block<T> with_one_more(const T* old, std::size_t count, T value) {
    auto longer = grx::Block<T>::raw(count + 1);
    if (!longer) return longer;
    std::copy_n(old, count, longer.data());
    longer[count] = value;
    return longer;
}

void replace(BOUTONS_PANEL& record, grx::Block<char> flags, grx::Block<INT> numbers) {
    const std::size_t old = record.nb_bout;
    record.nb_bout = static_cast<uchar>(numbers.size());
    grx::Block<char>::adopt(record.valide, old).reset();
    grx::Block<INT>::adopt(record.tab_bout, old).reset();
    record.valide = flags.release();
    record.tab_bout = numbers.release();
}

void forget_buttons(BOUTONS_PANEL& record) {
    for (std::size_t i = 0; i < record.nb_bout; ++i) grx_libere_indice_objet_bout(record.tab_bout[i]);
    replace(record, {}, {});
    record.objet_defaut = nullptr;
}

// The button that carries an item's text: its first label, or its first button when it has none.
INT label_button(INT ipan, INT item) {
    const BOUTONS_PANEL* const record = record_of(ipan, item);
    if (record == nullptr || record->nb_bout == 0) return GRX_AUCUN;
    const char* const flags = record->valide;
    const char* const end = flags + record->nb_bout;
    const char* const label = std::find(flags, end, kLabel);
    return record->tab_bout[label != end ? label - flags : 0];
}

// -- place and size

struct Box {
    INT x = GRX_AUCUN;
    INT y = GRX_AUCUN;
    grx::Size size;
};

constexpr bool is_composite_kind(INT type) {
    return type == GRX_ITEM_BASCULES || type == GRX_ITEM_BASCULES_HORIZ || type == GRX_ITEM_CHOIX;
}

Box box_of(Widget w) {
    const grx::Place where = grx::place_of(w);
    return {where.x, where.y, grx::size_of(w)};
}

// A composite item is as large as the form around its choices.
bool find_form_box(const BOUTONS_PANEL* record, Box& box) {
    if (record == nullptr || record->nb_bout < 2) return false;
    Widget form = grx::nearest_of_class(grx_recup_objet_bout(record->tab_bout[1]), xmFormWidgetClass);
    if (form == nullptr) return false;
    box = box_of(form);
    return true;
}

// The buttons of any other item stand side by side.
bool find_row_box(const BOUTONS_PANEL* record, Box& box) {
    if (record == nullptr) return false;
    for (std::size_t i = 0; i < record->nb_bout; ++i) {
        const INT nobou = record->tab_bout[i];
        if (grx_recup_objet_bout(nobou) == nullptr) return false;
        grx::Size size;
        grx_recup_taille_bouton(nobou, &size.width, &size.height);
        if (i == 0) {
            grx_recup_position_bouton(nobou, &box.x, &box.y);
            box.size.height = size.height;
        }
        box.size.width += size.width;
    }
    return true;
}

} // namespace

extern "C" {

INT grx_alloue_base_items_panels(INT nb_pan, PANEL* tab) {
    if (Liste_btn != nullptr || Nb_item != nullptr) grx_desalloue_base_items_panels();
    Nb_pan = table_places = std::max<INT>(nb_pan, 0);
    if (Tab_pan == nullptr) Tab_pan = given_panels = tab;
    if (!allocate_panels(Nb_pan, tab)) return GRX_ERR_ALLOC_PANNEAUX;
    return grx_alloue_base_liste_panels() == 0 ? 0 : GRX_ERR_ALLOC_PANNEAUX;
}

INT grx_desalloue_base_items_panels(void) {
    for (INT i = 0; in_tables(i); ++i) {
        if (Nb_item[i] > 0) release(Liste_btn[i], Nb_item[i]);
    }
    release(Nb_item, table_places);
    release(Liste_btn, table_places);
    Nb_pan = table_places = 0;
    if (Tab_pan == given_panels) Tab_pan = nullptr;
    given_panels = nullptr;
    return grx_desalloue_base_liste_panels();
}

INT grx_memorise_bouton_item(INT ipan, INT item, INT valide, INT nobou) {
    BOUTONS_PANEL* const record = record_of(ipan, item);
    if (record == nullptr || record->nb_bout == kMostButtons) return GRX_ERR_ALLOC_PANNEAUX;
    auto flags = with_one_more<char>(record->valide, record->nb_bout, valide != 0 ? kChoice : kLabel);
    auto numbers = with_one_more<INT>(record->tab_bout, record->nb_bout, nobou);
    if (!flags || !numbers) return GRX_ERR_ALLOC_PANNEAUX;
    replace(*record, std::move(flags), std::move(numbers));
    return 0;
}

INT recup_boutons_item(INT ipan, INT item, INT* nb, INT* tab) {
    if (nb == nullptr) return 0;
    const BOUTONS_PANEL* const record = record_of(ipan, item);
    // KEEP: the capacity cuts before labels are passed over
    const INT looked_at = record != nullptr && tab != nullptr ? std::min<INT>(*nb, record->nb_bout) : 0;
    *nb = 0;
    for (INT i = 0; i < looked_at; ++i) {
        if (record->valide[i] != kLabel) tab[(*nb)++] = record->tab_bout[i];
    }
    return 0;
}

INT grx_supprime_items(INT ipan) {
    for (INT item = 0; BOUTONS_PANEL* const record = record_of(ipan, item); ++item) forget_buttons(*record);
    return 0;
}

INT grx_recup_type_bstate(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr) return GRX_BSTATE_BASCULE;
    if (XmIsPushButton(w) || XmIsDrawnButton(w)) return GRX_BSTATE_POUSSOIR;
    return XmIsRowColumn(XtParent(w)) ? GRX_BSTATE_GROUPE : GRX_BSTATE_BASCULE;
}

INT grx_recup_type_istate(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr) return GRX_ISTATE_CHOIX;
    if (XmIsTextField(w)) return GRX_ISTATE_TEXTE;
    return XmIsScale(w) ? GRX_ISTATE_ECHELLE : GRX_ISTATE_CHOIX;
}

INT grx_change_titre_item(INT ipan, INT item, char* titre) {
    grx_change_texte(label_button(ipan, item), titre);
    return 0;
}

INT grx_change_attribut_item(INT cas, INT ipan, INT item, INT ival, char* cval) {
    const INT nobou = label_button(ipan, item);
    switch (cas) {
    case GRX_CHANGE_ICONE: grx_change_icone_bouton(nobou, cval); break;
    case GRX_CHANGE_COULEUR: grx_change_couleur_bouton(nobou, ival); break;
    case GRX_CHANGE_TEXTE: grx_change_texte(nobou, cval); break;
    case GRX_CHANGE_ETAT:
        if (ival != 0)
            grx_enfonce_bouton(nobou);
        else
            grx_relache_bouton(nobou);
        break;
    default: break;
    }
    return 0;
}

INT grx_change_icone_item(INT ipan, INT item, char* icone) {
    return grx_change_attribut_item(GRX_CHANGE_ICONE, ipan, item, 0, icone);
}

INT grx_change_couleur_item(INT ipan, INT item, INT couleur) {
    return grx_change_attribut_item(GRX_CHANGE_COULEUR, ipan, item, couleur, nullptr);
}

INT grx_change_champ_label(INT ipan, INT item, char* texte) {
    return grx_change_attribut_item(GRX_CHANGE_TEXTE, ipan, item, 0, texte);
}

INT grx_change_etat_fonction(INT ipan, INT item, INT etat) {
    return grx_change_attribut_item(GRX_CHANGE_ETAT, ipan, item, etat, nullptr);
}

INT grx_recup_position_taille_item(INT ipan, INT item, INT type, INT* x, INT* y, INT* lar, INT* hau) {
    const BOUTONS_PANEL* const record = record_of(ipan, item);
    Box box;
    const bool found = is_composite_kind(type) ? find_form_box(record, box) : find_row_box(record, box);
    if (!found) return 0;
    grx::give(x, box.x);
    grx::give(y, box.y);
    grx::give(lar, box.size.width);
    grx::give(hau, box.size.height);
    return 1;
}

void grx_demande_taille_optimale_panel(INT* lar, INT* hau) {
    constexpr INT margin = 2; // a pixel on each side
    for (INT* const size : {lar, hau}) {
        if (size != nullptr) *size = static_cast<INT>(std::min<int64_t>(int64_t{*size} + margin, INT32_MAX));
    }
}

INT decode_message(char* message, INT nb, INT* nb_lignes, char lignes[][GRX_ITEM_LIGNE_MAX]) {
    static_assert(GRX_ITEM_LIGNE_MAX == grx::kItemLineSize);
    if (nb_lignes == nullptr) return 0;
    *nb_lignes = lignes != nullptr ? grx::cut_item_text(grx::view(message), *nb_lignes, lignes) : 0;
    if (*nb_lignes > 0) grx::pad_item_line(lignes[grx::longest_choice(lignes, *nb_lignes)], nb);
    return 0;
}
}

// ------------------------------------------------------------------------------------------- the building of items

namespace {

constexpr INT kInsensitive = GRX_BOU_ATT_VISIBLE;
constexpr INT kScaleTop = 100;
constexpr INT kTenths = 10; // icons and separators are measured in tenths of a character
constexpr int kMostLines = static_cast<int>(kMostButtons);

// An item being built. The first failure to record a button is its result.
struct Item {
    explicit Item(const GRX_MSG& msg)
        : message(msg), panel(msg.nobou), number(msg.prebou),
          result(record_of(panel, number) != nullptr ? 0 : GRX_ERR_ALLOC_PANNEAUX) {}
    const GRX_MSG& message;
    INT panel;
    INT number;
    INT result;
};

// Pixels, as many as the toolkit can hold.
INT product(INT count, INT size, INT parts = 1) {
    return static_cast<INT>(std::clamp<int64_t>(int64_t{count} * size / parts, INT16_MIN, INT16_MAX));
}

INT character_width() {
    return grx_recup_lar_carac_alpha();
}

INT line_height() {
    return grx_recup_hau_carac_alpha();
}

// A size that is not given stays so.
INT in_characters(INT count, INT cell) {
    return count >= 0 ? product(count, cell) : GRX_AUCUN;
}

INT text_width(const char* text) {
    return product(static_cast<INT>(std::strlen(text)) + 1, character_width());
}

INT moved(INT coordinate, int64_t by) {
    return static_cast<INT>(std::clamp<int64_t>(coordinate + by, INT32_MIN, INT32_MAX));
}

INT numbered(INT key, INT base) {
    return moved(key, base);
}

INT attributes_of(const Item& item) {
    return item.message.couleur != 0 ? GRX_BOU_ATT_ACTIF : kInsensitive;
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

INT add(Item& item, GRX_BOUTON& bou, char role) {
    if (item.result != 0 || grx_cree_bouton(&bou) != 0) return GRX_AUCUN;
    item.result = grx_memorise_bouton_item(item.panel, item.number, role, bou.nobou);
    if (item.result == 0) return bou.nobou;
    grx_detruit_bouton(bou.nobou);
    return GRX_AUCUN;
}

// -- icons

// "@ name" names an icon of the icon directory.
bool names_icon(std::string_view text) {
    return text.substr(0, 1) == "@";
}

std::string_view shown_text(std::string_view text) {
    return names_icon(text) ? grx::trimmed(text.substr(1)) : text;
}

void show_icon(INT nobou, std::string_view text) {
    if (nobou < 0 || !names_icon(text)) return;
    char directory[HOST_CHEMIN_MAX] = "";
    char name[GRX_MSG_TITRE_MAX] = "";
    char path[HOST_CHEMIN_MAX] = "";
    grx_recup_repertoire_icones(directory);
    grx::copy_text(name, shown_text(text));
    compose_adresse_fichier(directory, name, path);
    grx_change_icone_bouton(nobou, path);
}

// -- items of buttons

GRX_BOUTON label_of(const Item& item, const char* text) {
    GRX_BOUTON label = control(item, GRX_BOU_LABEL, GRX_BOU_ATT_ACTIF);
    grx::copy_text(label.titre, text);
    return label;
}

void press_if_set(const Item& item, INT nobou) {
    if (item.message.ival == 1) grx_enfonce_bouton(nobou);
}

// Sets a label's text apart from what stands to its left.
void indent(Widget label, INT by) {
    if (label == nullptr) return;
    grx::Args args;
    args.set(XmNmarginLeft, by).set(XmNwidth, grx::given_size(label).width + by);
    grx::change_unasked(label, [&] { XtSetValues(label, args.list(), args.count()); });
}

void add_small_button(Item& item, const char* title) {
    const INT side = product(2, character_width());
    GRX_BOUTON button = control(item, GRX_BOU_POUSSOIR, attributes_of(item));
    button.no_fo = numbered(item.message.clef, GRX_BASE_NOFO_BOUTON);
    button.largeur = button.hauteur = side;
    button.y = moved(item.message.y, (line_height() - side) / 2);
    press_if_set(item, add(item, button, kChoice));
    GRX_BOUTON label = label_of(item, title);
    label.x = moved(item.message.x, side);
    label.hauteur = line_height();
    label.attrib &= ~GRX_BOU_ATT_VISIBLE; // until it is indented
    const INT nobou = add(item, label, kLabel);
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
    grx::copy_text(button.titre, shown_text(title));
    if (icon) {
        set_icon_size(button, item.message);
    } else {
        set_text_size(button, title);
    }
    const INT nobou = add(item, button, kChoice);
    show_icon(nobou, title);
    return nobou;
}

// -- scales, lists, separators, labels, drawing areas

// The attributes of both scales are those of other kinds; which way they lie, their own kind says. Turning a scale
// exchanges its width and height: they are given again.
void turn(Widget w, bool horizontal, const GRX_BOUTON& scale) {
    grx::Args direction, size;
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
    const INT nobou = add(item, scale, kChoice);
    if (Widget w = grx_recup_objet_bout(nobou)) grx::change_unasked(w, [&] { turn(w, horizontal, scale); });
    grx_change_valeur_echelle(nobou, item.message.ival);
}

// A list is known by its key and panel, not by buttons of the item.
void add_list(Item& item) {
    const GRX_MSG& message = item.message;
    GRX_MSG list{};
    grx_init_message(&list);
    list.clef = numbered(message.clef, GRX_BASE_CLEF_LISTE);
    list.type = message.type % kTenths;
    list.nb_cara = grx::host_list_length(message.clef);
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
    const INT nobou = add(item, line, kLabel);
    Widget w = grx_recup_objet_bout(nobou);
    if (w != nullptr && item.message.type == GRX_ITEM_SEPARATEUR_DOUBLE)
        grx::set_resource(w, XmNseparatorType, XmDOUBLE_LINE);
}

void add_title(Item& item, const char* title) {
    GRX_BOUTON label = label_of(item, title);
    add(item, label, kLabel);
}

void add_drawing_area(Item& item) {
    GRX_BOUTON area = control(item, GRX_BOU_ZONE_DESSIN, GRX_BOU_ATT_ACTIF);
    area.no_fo = numbered(item.message.clef, GRX_BASE_NOFO_DESSIN);
    area.largeur = in_characters(item.message.largeur, character_width());
    area.hauteur = in_characters(item.message.hauteur, line_height());
    add(item, area, kChoice);
}

// -- entry fields

void write_real(const GRX_MSG& message, CH80& text) {
    char number[HOST_NOMBRE_MAX] = "";
    clc_convert_to_string(message.rval, message.nb_cara, message.nb_deci, number);
    grx::copy_text(text, number);
}

// The content of a field and the function number that tells of it, by the family of the kind.
void set_content(GRX_BOUTON& field, const GRX_MSG& message) {
    field.no_fo = message.clef;
    switch (message.type / kTenths) {
    case GRX_ITEM_FAMILLE_TEXTE:
        grx::copy_text(field.titre, grx::FieldText(message.cval).c_str());
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
    add(item, label, kLabel);
}

// Gives the number of the field, 0 without one.
INT add_field(Item& item) {
    const GRX_MSG& message = item.message;
    if (message.nb_cara <= 0) return 0;
    GRX_BOUTON field = control(item, GRX_BOU_TEXTE, attributes_of(item));
    field.tabi[GRX_BOU_TABI_COLONNES] = message.nb_cara;
    field.largeur = product(moved(message.nb_cara, 1), character_width());
    field.hauteur = line_height();
    set_content(field, message);
    return std::max<INT>(add(item, field, kChoice), 0);
}

// -- composite items

struct ItemLines {
    explicit ItemLines(const char* text, INT padding) {
        count = kMostLines;
        decode_message(const_cast<char*>(text), padding, &count, text_);
    }
    const char* title() const { return text_[0]; }
    const char* choice(INT i) const { return text_[i + 1]; }
    INT choices() const { return count - 1; }
    INT count;

  private:
    grx::ItemLine text_[kMostLines];
};

Widget make_form(const Item& item, const char* name) {
    Widget parent = grx_recup_objet_fen(item.message.fen_mere);
    if (item.result != 0 || !grx::can_hold_children(parent)) return nullptr;
    grx::Args args;
    args.set(XmNx, grx::as_position(item.message.x)).set(XmNy, grx::as_position(item.message.y));
    grx::set_background(args, GRX_AUCUN);
    return XmCreateForm(parent, const_cast<char*>(name), args.list(), args.count());
}

// The title hangs on the form's left and upper edge; its widget, null when it could not be made.
Widget add_form_title(Item& item, Widget form, const char* text) {
    GRX_BOUTON label = label_of(item, text);
    label.ref_fen_mere = form;
    label.attache = GRX_ATTACHE_GAUCHE | GRX_ATTACHE_HAUT;
    label.x = label.y = GRX_AUCUN;
    return grx_recup_objet_bout(add(item, label, kLabel));
}

// As large as its content: a container that is not on show yet does not grow with it.
void put_on_screen(Widget container) {
    grx::set_size(container, grx::wanted_size(container));
    if (XtIsRealized(XtParent(container))) XtRealizeWidget(container); // what it asks for then costs no layout yet
    XtManageChild(container);
}

GRX_BOUTON choice_of(const Item& item, INT type, Widget parent, INT base, const char* text, INT index) {
    GRX_BOUTON choice = control(item, type, attributes_of(item));
    choice.ref_fen_mere = parent;
    choice.x = choice.y = GRX_AUCUN;
    choice.no_fo = numbered(item.message.clef, base);
    choice.tabi[GRX_BOU_TABI_VALEUR] = index;
    grx::copy_text(choice.titre, shown_text(text));
    return choice;
}

INT add_choice(Item& item, GRX_BOUTON& choice, const char* text) {
    const INT nobou = add(item, choice, kChoice);
    show_icon(nobou, text);
    return nobou;
}

// Fills the menu; the choice that the item's value names, null when there is none.
Widget add_menu_choices(Item& item, Widget menu, const ItemLines& lines) {
    Widget shown = nullptr;
    for (INT i = 0; i < lines.choices(); ++i) {
        GRX_BOUTON choice = choice_of(item, GRX_BOU_SIMPLE, menu, GRX_BASE_NOFO_REEL, lines.choice(i), i);
        const INT nobou = add_choice(item, choice, lines.choice(i));
        if (i == item.message.ival) shown = grx_recup_objet_bout(nobou);
    }
    return shown;
}

// Both stand centred on one line, the box behind the title.
void line_up(Widget title, Widget box) {
    grx::Args args;
    args.set(XmNtopAttachment, XmATTACH_FORM).set(XmNbottomAttachment, XmATTACH_FORM);
    if (title != nullptr) XtSetValues(title, args.list(), args.count());
    if (title != nullptr) args.set(XmNleftAttachment, XmATTACH_WIDGET).set(XmNleftWidget, title);
    if (box != nullptr) XtSetValues(box, args.list(), args.count());
}

void hang_below(Widget title, Widget box) {
    if (title == nullptr || box == nullptr) return;
    grx::Args args;
    args.set(XmNtopAttachment, XmATTACH_WIDGET).set(XmNtopWidget, title);
    XtSetValues(box, args.list(), args.count());
}

void add_toggles(Item& item, Widget box, const ItemLines& lines) {
    for (INT i = 0; i < lines.choices(); ++i) {
        GRX_BOUTON choice = choice_of(item, GRX_BOU_BASCULE, box, GRX_BASE_NOFO_BOUTON, lines.choice(i), i);
        choice.hauteur = grx_recup_hau_exact_carac_alpha();
        const INT nobou = add_choice(item, choice, lines.choice(i));
        if (i == item.message.ival) grx_enfonce_bascule(nobou);
    }
}

bool side_by_side(const Item& item) {
    return item.message.attribut != 0;
}

Widget make_radio_box(const Item& item, Widget form) {
    grx::Args args;
    if (side_by_side(item)) args.set(XmNorientation, XmHORIZONTAL);
    grx::set_background(args, GRX_AUCUN);
    return XmCreateRadioBox(form, const_cast<char*>("Support"), args.list(), args.count());
}

// -- which kind is built how

void add_labelled_field(Item& item, GRX_MSG& message, const char* title) {
    add_field_label(item, title);
    message.prebou = add_field(item);
}

void build_family(Item& item, GRX_MSG& message, const char* title) {
    switch (message.type / kTenths) {
    case GRX_ITEM_FONCTION / kTenths: add_push_button(item, title, numbered(item.panel, GRX_BASE_NOFO_FONCTION)); break;
    case GRX_ITEM_FONCTION_CLEF / kTenths: add_push_button(item, title, message.clef); break;
    case GRX_ITEM_LISTE / kTenths: add_list(item); break;
    case GRX_ITEM_TITRE / kTenths: add_title(item, title); break;
    case GRX_ITEM_ZONE_DESSIN / kTenths: add_drawing_area(item); break;
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

} // namespace

extern "C" {

INT grx_cree_item(GRX_MSG* message) {
    if (message == nullptr) return 0;
    message->x = moved(message->x, 1);
    message->y = moved(message->y, 1);
    if (is_composite_kind(message->type)) return build_composite(*message);
    Item item(*message);
    const grx::FieldText title(message->titre);
    build(item, *message, title.c_str());
    return item.result;
}

INT grx_cree_istate1(GRX_MSG* message) {
    if (message == nullptr) return 0;
    Item item(*message);
    Widget form = make_form(item, "Support Choix");
    if (form == nullptr) return item.result;
    const ItemLines lines(grx::FieldText(message->titre).c_str(), message->largeur);
    Widget title = add_form_title(item, form, lines.title());
    Widget menu = grx::make_pulldown(form, "PullMenu");
    Widget shown = add_menu_choices(item, menu, lines);
    Widget box = grx::make_option_menu(form, "OptionMenu", "", menu, shown, grx::key_over_part);
    line_up(title, box);
    put_on_screen(form);
    if (BOUTONS_PANEL* const record = record_of(item.panel, item.number)) record->objet_defaut = shown;
    return item.result;
}

INT grx_cree_bstate1(GRX_MSG* message) {
    if (message == nullptr) return 0;
    Item item(*message);
    Widget form = make_form(item, "Support Radio");
    if (form == nullptr) return item.result;
    const ItemLines lines(grx::FieldText(message->titre).c_str(), 0);
    Widget title = add_form_title(item, form, lines.title());
    Widget box = make_radio_box(item, form);
    add_toggles(item, box, lines);
    if (side_by_side(item))
        line_up(title, box);
    else
        hang_below(title, box);
    if (box != nullptr) put_on_screen(box);
    put_on_screen(form);
    return item.result;
}
}
