// Panels: items of several controls in a form of their own, drop-down choices and radio boxes.
#include <Xm/Form.h>
#include <Xm/RowColumn.h>
#include <Xm/Xm.h>

#include "pure/axis.h"
#include "pure/item_text.h"
#include "pure/text.h"
#include "toolkit/args.h"
#include "toolkit/field_text.h"
#include "toolkit/look.h"
#include "toolkit/option_menu.h"
#include "toolkit/widgets.h"
#include "windows/window_events.h"
#include "panels/item_buttons.h"
#include "panels/item_controls.h"
#include "xt_bou_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_msg_f.h"
#include "xt_pan_f.h"

namespace grx::items {

namespace {

constexpr int kMostLines = static_cast<int>(kMostButtons);

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
    ItemLine text_[kMostLines];
};

Widget make_form(const Item& item, const char* name) {
    Widget parent = grx_recup_objet_fen(item.message.fen_mere);
    if (item.result != 0 || !can_hold_children(parent)) return nullptr;
    Args args;
    args.set(XmNx, as_position(item.message.x)).set(XmNy, as_position(item.message.y));
    set_background(args, GRX_AUCUN);
    return XmCreateForm(parent, const_cast<char*>(name), args.list(), args.count());
}

// The title hangs on the form's left and upper edge; its widget, null when it could not be made.
Widget add_form_title(Item& item, Widget form, const char* text) {
    GRX_BOUTON label = label_of(item, text);
    label.ref_fen_mere = form;
    label.attache = GRX_ATTACHE_GAUCHE | GRX_ATTACHE_HAUT;
    label.x = label.y = GRX_AUCUN;
    return grx_recup_objet_bout(add(item, label, kItemLabel));
}

// Shows a container in the size of its content: before it is on show it does not grow with it.
void put_on_screen(Widget container) {
    set_size(container, wanted_size(container));
    if (XtIsRealized(XtParent(container))) XtRealizeWidget(container); // what it asks for then costs no layout yet
    XtManageChild(container);
}

GRX_BOUTON choice_of(const Item& item, INT type, Widget parent, INT base, const char* text, INT index) {
    GRX_BOUTON choice = control(item, type, attributes_of(item));
    choice.ref_fen_mere = parent;
    choice.x = choice.y = GRX_AUCUN;
    choice.no_fo = numbered(item.message.clef, base);
    choice.tabi[GRX_BOU_TABI_VALEUR] = index;
    copy_text(choice.titre, shown_text(text));
    return choice;
}

INT add_choice(Item& item, GRX_BOUTON& choice, const char* text) {
    const INT nobou = add(item, choice, kItemChoice);
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
    Args args;
    args.set(XmNtopAttachment, XmATTACH_FORM).set(XmNbottomAttachment, XmATTACH_FORM);
    if (title != nullptr) XtSetValues(title, args.list(), args.count());
    if (title != nullptr) args.set(XmNleftAttachment, XmATTACH_WIDGET).set(XmNleftWidget, title);
    if (box != nullptr) XtSetValues(box, args.list(), args.count());
}

void hang_below(Widget title, Widget box) {
    if (title == nullptr || box == nullptr) return;
    Args args;
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
    Args args;
    if (side_by_side(item)) args.set(XmNorientation, XmHORIZONTAL);
    set_background(args, GRX_AUCUN);
    return XmCreateRadioBox(form, const_cast<char*>("Support"), args.list(), args.count());
}

INT make_choice_item(const GRX_MSG& message) {
    Item item(message);
    Widget form = make_form(item, "Support Choix");
    if (form == nullptr) return item.result;
    const ItemLines lines(FieldText(message.titre).c_str(), message.largeur);
    Widget title = add_form_title(item, form, lines.title());
    Widget menu = make_pulldown(form, "PullMenu");
    Widget shown = add_menu_choices(item, menu, lines);
    Widget box = make_option_menu(form, "OptionMenu", "", menu, shown, key_over_part);
    line_up(title, box);
    put_on_screen(form);
    if (BOUTONS_PANEL* const record = item_record(item.panel, item.number)) record->objet_defaut = shown;
    return item.result;
}

INT make_radio_item(const GRX_MSG& message) {
    Item item(message);
    Widget form = make_form(item, "Support Radio");
    if (form == nullptr) return item.result;
    const ItemLines lines(FieldText(message.titre).c_str(), 0);
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

} // namespace

} // namespace grx::items

extern "C" {

INT grx_cree_istate1(GRX_MSG* message) {
    return message != nullptr ? grx::items::make_choice_item(*message) : 0;
}

INT grx_cree_bstate1(GRX_MSG* message) {
    return message != nullptr ? grx::items::make_radio_item(*message) : 0;
}

INT decode_message(char* message, INT nb, INT* nb_lignes, char lignes[][GRX_ITEM_LIGNE_MAX]) {
    static_assert(GRX_ITEM_LIGNE_MAX == grx::kItemLineSize);
    if (nb_lignes == nullptr) return 0;
    *nb_lignes = lignes != nullptr ? grx::cut_item_text(grx::view(message), *nb_lignes, lignes) : 0;
    if (*nb_lignes > 0) grx::pad_item_line(lignes[grx::longest_choice(lignes, *nb_lignes)], nb);
    return 0;
}
}
