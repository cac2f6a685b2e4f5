// Lets the application write and read the texts, list entries and scale values of controls.
#include "controls/contents.h"

#include <X11/Intrinsic.h>
#include <Xm/List.h>
#include <Xm/Scale.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "pure/axis.h"
#include "system/table.h"
#include "fonts/interface_font.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/control_parts.h"
#include "toolkit/locale_text.h"
#include "controls/forget_controls.h"
#include "xt_bou_f.h"
#include "xt_ini_f.h"

namespace {

// The encoding of the text that each field was given last. The application gets the content of the field in the same
// one.
std::array<grx::TextEncoding, GRX_NB_BOUTONS> given_encoding{};

Widget text_of(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    return grx::holds_text(w) ? w : nullptr;
}

Widget list_of(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    return w != nullptr && XmIsList(w) ? w : nullptr;
}

Widget scale_of(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    return w != nullptr && XmIsScale(w) ? w : nullptr;
}

void set_text(Widget w, INT nobou, const char* texte) {
    grx::LocaleText text(texte);
    XmTextSetString(w, text.data());
    grx::note_encoding(nobou, texte);
}

// A text without accents has no encoding of its own, so the one of the field stays.
void insert(Widget w, INT nobou, const char* texte) {
    grx::insert_text(w, texte);
    if (grx::encoding_of(texte) != grx::TextEncoding::Unknown) grx::note_encoding(nobou, texte);
}

void select_all(Widget w) {
    if (w == nullptr || !XmIsTextField(w)) return;
    XmTextFieldSetSelection(w, 0, XmTextFieldGetLastPosition(w), XtLastTimestampProcessed(XtDisplay(w)));
}

void set_label(Widget w, XmString label) {
    grx::set_resource(w, XmNlabelString, label);
}

} // namespace

namespace grx {

FieldContent::FieldContent(Widget w, INT nobou)
    : text_(XmTextGetString(w)), encoded_(text_, given_encoding[as_index(nobou)]) {}

void note_encoding(INT nobou, const char* text) {
    given_encoding[as_index(nobou)] = encoding_of(text);
}

void forget_encodings() {
    given_encoding = {};
}

} // namespace grx

extern "C" {

INT grx_change_texte(INT nobou, char* texte) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr) return 0;
    if (!grx::holds_text(w)) {
        const grx::CompoundString label(texte);
        set_label(w, label.get());
        return 0;
    }
    set_text(w, nobou, texte);
    XmTextSetInsertionPosition(w, XmTextGetLastPosition(w));
    return 0;
}

INT grx_affecte_champ_bouton(INT ind, char* s) {
    Widget w = grx_recup_objet_bout(ind);
    if (w == nullptr) return 0;
    // KEEP: the tag of the application font is not used; with an outline font it tells the encoding
    const auto label =
        grx::outline_font() != nullptr ? grx::CompoundString(s) : grx::CompoundString(s, XmFONTLIST_DEFAULT_TAG);
    set_label(w, label.get());
    return 0;
}

INT grx_affecte_champ_texte(INT ind, char* s) {
    if (Widget w = text_of(ind)) set_text(w, ind, s);
    return 0;
}

INT grx_ajoute_texte(INT nobou, char* texte) {
    if (Widget w = text_of(nobou)) insert(w, nobou, texte);
    return 0;
}

INT grx_recup_texte_bouton(INT nobou, char* texte) {
    Widget w = text_of(nobou);
    if (w == nullptr || texte == nullptr) return 0;
    const grx::FieldContent content(w, nobou);
    std::memcpy(texte, content.c_str(), std::strlen(content.c_str()) + 1); // the caller has enough room
    return 0;
}

INT grx_selectionne_champ(INT nobou) {
    select_all(grx_recup_objet_bout(nobou));
    return 0;
}

INT grx_selectionne_champ_focus(INT nobou) {
    if (Widget w = grx_recup_objet_bout(nobou)) select_all(XmGetFocusWidget(w));
    return 0;
}

INT grx_calc_larg_saisie(INT nbcar) {
    const int64_t width = int64_t{grx_recup_lar_carac_alpha()} * (int64_t{nbcar} + 1); // one character more as margin
    return grx::saturated(width);
}

INT grx_ajoute_element_dans_liste(INT nobou, char* texte) {
    Widget w = list_of(nobou);
    if (w == nullptr || texte == nullptr || texte[0] == '\0') return 0;
    const grx::CompoundString item(texte);
    XmListAddItemUnselected(w, item.get(), 1); // KEEP: the newest entry stands first
    return 0;
}

INT grx_recup_nombre_elements_dans_list(INT nobou) {
    Widget w = list_of(nobou);
    return w != nullptr ? grx::resource<int>(w, XmNitemCount) : GRX_AUCUN;
}

INT grx_recup_element_dans_liste(INT nobou, INT position, char* texte) {
    Widget w = list_of(nobou);
    if (w == nullptr) return GRX_AUCUN;
    if (texte == nullptr || position < 1 || position > grx::resource<int>(w, XmNitemCount)) return 0;
    const grx::PlainText text(grx::resource<XmStringTable>(w, XmNitems)[position - 1]);
    std::memcpy(texte, text.c_str(), std::strlen(text.c_str()) + 1);
    return 1;
}

INT grx_change_valeur_echelle(INT nobou, INT val) {
    Widget w = scale_of(nobou);
    if (w != nullptr && val >= grx::resource<int>(w, XmNminimum) && val <= grx::resource<int>(w, XmNmaximum))
        XmScaleSetValue(w, val);
    return 0;
}

INT grx_change_bornes_echelle(INT nobou, INT mini, INT maxi) {
    Widget w = scale_of(nobou);
    if (w == nullptr || mini >= maxi) return 0;
    const int value = std::clamp(grx::resource<int>(w, XmNvalue), mini, maxi);
    grx::Args args;
    args.set(XmNminimum, mini).set(XmNmaximum, maxi).set(XmNvalue, value);
    XtSetValues(w, args.list(), args.count());
    return 0;
}
}
