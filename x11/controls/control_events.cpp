// What happens to controls becomes event records; what the application asks of a control by its number.
#include "xt_prive.h"

#include <X11/StringDefs.h>
#include <Xm/DrawnB.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/PushB.h>
#include <Xm/Scale.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "toolkit/args.h"
#include "system/block.h"
#include "toolkit/control_parts.h"
#include "toolkit/locale_text.h"
#include "events/record.h"
#include "toolkit/look.h"
#include "toolkit/compound_string.h"
#include "pure/axis.h"
#include "xt_bou_f.h"
#include "xt_ent_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"

namespace {

// ----------------------------------------------------------------------------------------------- control events

// The record of a live control; null when the base, the number or the widget is gone.
STRUCTURE_BOUTON* live_control(XtPointer client) {
    STRUCTURE_BOUTON* const record = grx::button_record_at(client);
    return record != nullptr && grx_recup_objet_bout(record->nobou) != nullptr ? record : nullptr;
}

// Every control event names window, control and function.
template <class Member>
Member& post_control(Member& member, INT type, const STRUCTURE_BOUTON& button) {
    Member& record = grx::post(member, type, button.nofen);
    record.nobou = button.nobou;
    record.no_fo = button.no_fo;
    return record;
}

std::size_t place(INT nobou) {
    return static_cast<std::size_t>(nobou);
}

// Of the text that each field was given last: its content goes back the same way.
std::array<grx::TextEncoding, GRX_NB_BOUTONS> given_encoding{};

// The text of a field in the application's encoding; freed with the object.
class FieldContent {
  public:
    FieldContent(Widget w, INT nobou) : text_(XmTextGetString(w)), encoded_(text_, given_encoding[place(nobou)]) {}
    FieldContent(const FieldContent&) = delete;
    FieldContent& operator=(const FieldContent&) = delete;
    ~FieldContent() { XtFree(text_); }
    const char* c_str() const { return encoded_.c_str(); }

  private:
    char* text_;
    grx::ApplicationText encoded_;
};

void post_text(INT type, const STRUCTURE_BOUTON& button, Widget w) {
    const FieldContent content(w, button.nobou);
    grx::copy_text(post_control(evt_global.exec_fonction, type, button).chaine, content.c_str());
}

bool pressed_by_key(XtPointer call) {
    const XEvent* const event = call != nullptr ? static_cast<XmAnyCallbackStruct*>(call)->event : nullptr;
    return event != nullptr && event->type == KeyPress;
}

void post_button(const STRUCTURE_BOUTON& button, const XButtonEvent& event, INT type) {
    GRX_DIGIT& record = post_control(evt_global.bouton_appui, type, button);
    record.x = event.x;
    record.y = event.y;
    record.bouton = static_cast<INT>(event.button);
    record.carac = button.valeur; // KEEP: the application's value, no character
    record.etat = grx::modifier_bits(event.state);
}

INT held_button(unsigned int state) {
    if ((state & Button1Mask) != 0) return GRX_SOURIS_GAUCHE;
    if ((state & Button2Mask) != 0) return GRX_SOURIS_MILIEU;
    return (state & Button3Mask) != 0 ? GRX_SOURIS_DROITE : 0;
}

void post_motion(const STRUCTURE_BOUTON& button, const XMotionEvent& event) {
    GRX_DIGIT& record = post_control(evt_global.souris_bouge, GRX_EVT_SOURIS_BOUGE, button);
    record.x = event.x;
    record.y = event.y;
    record.bouton = held_button(event.state);
    record.carac = GRX_AUCUN;
}

bool is_tab(INT key) {
    return key == GRX_TOUCHE_TAB || key == GRX_TOUCHE_BACKTAB;
}

void on_key(Widget w, const STRUCTURE_BOUTON& button, const XEvent& event, Boolean* go_on) {
    const INT key = grx::key_for_application(event, go_on);
    if (key == 0) return;
    if (is_tab(key) && XmIsTextField(w)) {
        post_text(key == GRX_TOUCHE_TAB ? GRX_EVT_TAB : GRX_EVT_BACKTAB, button, w);
        return;
    }
    GRX_DIGIT& record = post_control(evt_global.carac_appui, GRX_EVT_CARAC_APPUI, button);
    record.x = event.xkey.x;
    record.y = event.xkey.y;
    record.bouton = 0;
    record.carac = key;
}

// A field that Tab has just reached is ready to be overwritten.
void on_key_release(Widget w, const STRUCTURE_BOUTON& button, const XEvent& event) {
    if (is_tab(grx::code_of_key(event.xkey)) && XmIsTextField(w)) grx_selectionne_champ_focus(button.nobou);
}

void dispatch(Widget w, const STRUCTURE_BOUTON& button, XEvent& event, Boolean* go_on) {
    switch (event.type) {
    case ButtonPress: post_button(button, event.xbutton, GRX_EVT_BOUTON_APPUI); break;
    case ButtonRelease: post_button(button, event.xbutton, GRX_EVT_BOUTON_RELACHE); break;
    case MotionNotify: post_motion(button, event.xmotion); break;
    case KeyPress: on_key(w, button, event, go_on); break;
    case KeyRelease: on_key_release(w, button, event); break;
    case EnterNotify: post_control(evt_global.sortie, GRX_EVT_ENTREE, button); break;
    case LeaveNotify: post_control(evt_global.sortie, GRX_EVT_SORTIE, button); break;
    case Expose:
        if (button.type == GRX_BOU_ZONE_DESSIN) grx_affiche_bitmap_backingstore_bouton(button.nobou);
        break;
    default: break;
    }
}

} // namespace

extern "C" {

void grx_bouton_est_enfonce(Widget, XtPointer client, XtPointer call) {
    const STRUCTURE_BOUTON* const button = live_control(client);
    if (button == nullptr) return;
    Widget w = grx_recup_objet_bout(button->nobou);
    if (XmIsDrawnButton(w) && pressed_by_key(call)) return; // drawn ones follow the pointer only
    if (grx::holds_text(w)) {
        post_text(GRX_EVT_EXEC_FONCTION, *button, w);
        return;
    }
    const bool scale = XmIsScale(w) && call != nullptr;
    const INT value = scale ? static_cast<XmScaleCallbackStruct*>(call)->value : button->valeur;
    post_control(evt_global.exec_fonction, GRX_EVT_EXEC_FONCTION, *button).valeur = value;
}

void grx_echelle_bouge(Widget, XtPointer client, XtPointer call) {
    const STRUCTURE_BOUTON* const button = live_control(client);
    if (button == nullptr || call == nullptr) return;
    GRX_EXEC_FONCTION& record = post_control(evt_global.exec_fonction, GRX_EVT_ECHELLE, *button);
    record.valeur = static_cast<XmScaleCallbackStruct*>(call)->value;
}

void grx_element_liste_clique(Widget, XtPointer client, XtPointer call) {
    const STRUCTURE_BOUTON* const button = live_control(client);
    if (button == nullptr || call == nullptr) return;
    const auto* const choice = static_cast<XmListCallbackStruct*>(call);
    GRX_ELEMENT_CLIQUE& record = evt_global.element_clique;
    if (choice->reason == XmCR_BROWSE_SELECT || choice->reason == XmCR_DEFAULT_ACTION) {
        const grx::PlainText text(choice->item);
        post_control(record, GRX_EVT_ELEMENT_CLIQUE, *button).double_click =
            choice->reason == XmCR_DEFAULT_ACTION ? 1 : 0;
        grx::copy_text(record.chaine, text.c_str());
    }
    record.no_fo = GRX_AUCUN; // KEEP: a list is known by its number, and so for every reason
}

void grx_focus_quitte_bouton(Widget, XtPointer, XtPointer) {
    // KEEP: leaving a field posts no event
}

void grx_bouton_est_affiche(Widget, XtPointer client, XtPointer) {
    if (const STRUCTURE_BOUTON* const button = live_control(client))
        post_control(evt_global.bouton_affiche, GRX_EVT_BOUTON_AFFICHE, *button);
}

void grx_gere_evenements_bouton(Widget, XtPointer client, XEvent* ev, Boolean* cont) {
    const STRUCTURE_BOUTON* const button = live_control(client);
    if (button != nullptr && ev != nullptr) dispatch(grx_recup_objet_bout(button->nobou), *button, *ev, cont);
}
}

// -------------------------------------------------------------------------------------------- control operations

namespace {

// The toolkit's push buttons have no shadow type: what they show is kept here.
std::array<bool, GRX_NB_BOUTONS> shown_pressed{};

void set_mapped(INT nobou, bool mapped) {
    Widget w = grx::with_scroll_bars(grx_recup_objet_bout(nobou));
    if (w == nullptr) return;
    XtSetMappedWhenManaged(w, mapped ? True : False); // the toolkit knows, so that Tab does not walk into a hidden one
}

// Managed with what it stands in; that is what its parent is asked to manage.
Widget with_scrolled_window(Widget w) {
    Widget outer = grx::with_scroll_bars(w);
    if (outer != w) XtManageChild(w);
    return outer;
}

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

// A text without accents says nothing about what it is inserted into.
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

void set_pixel(INT nobou, const char* resource, INT pixel) {
    if (Widget w = grx_recup_objet_bout(nobou))
        grx::set_resource(w, resource, static_cast<Pixel>(static_cast<UNSIGNED_INT>(pixel)));
}

INT read_pixel(INT nobou, const char* resource) {
    Widget w = grx_recup_objet_bout(nobou);
    return w != nullptr ? static_cast<INT>(grx::resource<Pixel>(w, resource)) : 0;
}

// A real push button cannot be drawn pressed: its two shadow colours change places.
void swap_shadows(Widget w) {
    const auto top = grx::resource<Pixel>(w, XmNtopShadowColor);
    const auto bottom = grx::resource<Pixel>(w, XmNbottomShadowColor);
    grx::Args args;
    args.set(XmNtopShadowColor, bottom).set(XmNbottomShadowColor, top);
    XtSetValues(w, args.list(), args.count());
}

void set_look(INT nobou, unsigned char shadow) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr || (!XmIsDrawnButton(w) && !XmIsPushButton(w))) return;
    const bool pressed = shadow == XmSHADOW_IN;
    if (XmIsPushButton(w) && pressed != shown_pressed[place(nobou)]) swap_shadows(w);
    shown_pressed[place(nobou)] = pressed;
    grx::Args args;
    args.set(XmNpushButtonEnabled, False).set(XmNshadowType, shadow);
    XtSetValues(w, args.list(), args.count());
}

// A form puts its children back where their attachments want them: the place of one that hangs on the form's left (or
// upper) edge alone is its offset.
bool hangs_on(Widget w, const char* edge, const char* opposite) {
    return XmIsForm(XtParent(w)) && grx::resource<unsigned char>(w, edge) == XmATTACH_FORM
           && grx::resource<unsigned char>(w, opposite) == XmATTACH_NONE;
}

// Takes the old icon away and puts the named one in; true when there is a picture to show.
bool reinstall_icon(Widget w, INT nobou, char* nom_icone) {
    STRUCTURE_BOUTON* record = nullptr;
    grx_recup_structure_bouton(nobou, &record);
    if (w == nullptr || record == nullptr || nom_icone == nullptr) return false;
    grx_desinstalle_bitmap(nobou);
    record->image = None; // a failed installation must not show a released picture
    grx_installe_bitmap(nom_icone, nobou);
    return record->image != None;
}

Pixmap picture_of(INT nobou) {
    STRUCTURE_BOUTON* record = nullptr;
    grx_recup_structure_bouton(nobou, &record);
    return record != nullptr ? record->image : None;
}

} // namespace

namespace grx {

void forget_look(INT nobou) {
    shown_pressed[place(nobou)] = false;
}

void note_encoding(INT nobou, const char* text) {
    given_encoding[place(nobou)] = encoding_of(text);
}

} // namespace grx

extern "C" {

INT grx_affiche_boutons(INT* nobou, INT nb_bout) {
    if (nobou == nullptr || nb_bout <= 0) return 0;
    grx::Block<Widget> widgets(static_cast<std::size_t>(nb_bout));
    if (!widgets) return 0;
    std::size_t count = 0;
    for (INT i = 0; i < nb_bout; ++i) {
        if (Widget w = grx_recup_objet_bout(nobou[i])) widgets[count++] = with_scrolled_window(w);
    }
    grx::by_parent(widgets.span().first(count), XtManageChildren);
    return 0;
}

INT grx_affiche_bouton(INT nobou) {
    set_mapped(nobou, true);
    return 0;
}

INT grx_cache_bouton(INT nobou) {
    set_mapped(nobou, false);
    return 0;
}

INT grx_efface_bouton(INT nobou) {
    return grx_cache_bouton(nobou);
}

INT grx_detruit_bouton(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    grx_libere_indice_objet_bout(nobou);
    if (w != nullptr) XtDestroyWidget(w);
    return 0;
}

INT grx_desactive_bouton(INT nobou, INT bloquer) {
    if (Widget w = grx_recup_objet_bout(nobou)) XtSetSensitive(w, bloquer > 0 ? False : True);
    return 0;
}

INT grx_force_focus_sur_bouton(INT nobou) {
    grx::lay_out_pending(); // the toolkit learns of new controls when they are laid out
    if (Widget w = grx_recup_objet_bout(nobou)) XmProcessTraversal(w, XmTRAVERSE_CURRENT);
    return 0;
}

INT grx_flush_dessin_bouton(INT) {
    grx_flush_tous_evenements();
    return 0;
}

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
    const grx::CompoundString label(s, XmFONTLIST_DEFAULT_TAG); // KEEP: without the application font's tag
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
    const FieldContent content(w, nobou);
    std::memcpy(texte, content.c_str(), std::strlen(content.c_str()) + 1); // the caller has room for it
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
    const int64_t width = int64_t{grx_recup_lar_carac_alpha()} * (int64_t{nbcar} + 1); // one more, as margin
    return grx::saturated(width);
}

INT grx_ajoute_element_dans_liste(INT nobou, char* texte) {
    Widget w = list_of(nobou);
    if (w == nullptr || texte == nullptr || texte[0] == '\0') return 0;
    const grx::CompoundString item(texte);
    XmListAddItemUnselected(w, item.get(), 1); // KEEP: the newest stands first
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

INT grx_change_couleur_bouton(INT nobou, INT couleur) {
    set_pixel(nobou, XmNarmColor, grx_recup_couleur(couleur));
    set_pixel(nobou, XmNbackground, grx_recup_couleur(couleur));
    return 0;
}

INT grx_change_couleur_trace_bouton(INT nobou, INT couleur) {
    set_pixel(nobou, XmNforeground, grx_recup_couleur(couleur));
    return 0;
}

INT grx_change_couleur_bouton_indice_direct(INT nobou, INT index) {
    set_pixel(nobou, XmNbackground, index);
    return 0;
}

INT grx_change_couleur_trace_bouton_indice_direct(INT nobou, INT couleur) {
    set_pixel(nobou, XmNforeground, couleur);
    return 0;
}

INT grx_remet_couleur_initiale_bouton(INT nobou, INT couleur_x11) {
    set_pixel(nobou, XmNforeground, couleur_x11);
    return 0;
}

INT grx_recup_couleur_bouton(INT nobou) {
    return read_pixel(nobou, XmNbackground);
}

INT grx_recup_couleur_trace_bouton(INT nobou) {
    return read_pixel(nobou, XmNforeground);
}

INT grx_change_taille_bouton(INT nobou, INT largeur, INT hauteur) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr || largeur <= 0 || hauteur <= 0) return 0;
    grx::lay_out_pending();
    grx::Args args;
    args.set(XmNwidth, grx::as_size(largeur)).set(XmNheight, grx::as_size(hauteur));
    XtSetValues(w, args.list(), args.count());
    return 0;
}

INT grx_recup_taille_bouton(INT nobou, INT* largeur, INT* hauteur) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr) return 0;
    const grx::Size size = grx::size_of(w);
    if (largeur != nullptr) *largeur = size.width;
    if (hauteur != nullptr) *hauteur = size.height;
    return 0;
}

INT grx_change_position_bouton(INT nobou, INT x, INT y) {
    Widget w = grx::with_scroll_bars(grx_recup_objet_bout(nobou));
    if (w == nullptr) return 0;
    grx::lay_out_pending();
    grx::Args args;
    args.set(XmNx, grx::as_position(x)).set(XmNy, grx::as_position(y));
    if (hangs_on(w, XmNleftAttachment, XmNrightAttachment)) args.set(XmNleftOffset, int{grx::as_position(x)});
    if (hangs_on(w, XmNtopAttachment, XmNbottomAttachment)) args.set(XmNtopOffset, int{grx::as_position(y)});
    XtSetValues(w, args.list(), args.count());
    return 0;
}

INT grx_recup_position_bouton(INT nobou, INT* x, INT* y) {
    Widget w = grx::with_scroll_bars(grx_recup_objet_bout(nobou));
    if (w == nullptr) return 0;
    const grx::Place where = grx::place_of(w);
    if (x != nullptr) *x = where.x;
    if (y != nullptr) *y = where.y;
    return 0;
}

INT grx_enfonce_bouton(INT nobou) {
    set_look(nobou, XmSHADOW_IN);
    return 0;
}

INT grx_relache_bouton(INT nobou) {
    set_look(nobou, XmSHADOW_OUT);
    return 0;
}

INT grx_souligne_bouton(INT nobou) {
    set_look(nobou, XmSHADOW_ETCHED_IN);
    return 0;
}

INT grx_relache_bouton_ras(INT nobou) {
    set_look(nobou, XmSHADOW_ETCHED_IN); // KEEP: the look of grx_souligne_bouton
    return 0;
}

INT grx_bouton_est_il_enfonce(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr) return 0;
    if (!XmIsDrawnButton(w)) return shown_pressed[place(nobou)] ? 1 : 0;
    return grx::resource<unsigned char>(w, XmNshadowType) == XmSHADOW_IN ? 1 : 0;
}

INT grx_change_icone_bouton(INT nobou, char* nom_icone) {
    Widget w = grx_recup_objet_bout(nobou);
    if (reinstall_icon(w, nobou, nom_icone)) grx::show_pixmap(w, picture_of(nobou));
    return 0;
}

INT grx_change_couleur_fond_icone_bouton(INT nobou, char* nom_icone, int couleur) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr) return 0;
    if (couleur != GRX_AUCUN) grx_change_couleur_8_icone(couleur);
    if (reinstall_icon(w, nobou, nom_icone)) grx::set_resource(w, XmNlabelPixmap, picture_of(nobou));
    if (couleur != GRX_AUCUN) grx_restore_couleur_8_icone();
    return 0;
}

INT grx_affecte_icone_bouton1_bouton2(INT nobou1, INT nobou2) {
    Widget from = grx_recup_objet_bout(nobou1);
    Widget to = grx_recup_objet_bout(nobou2);
    if (from == nullptr || to == nullptr || !XmIsLabel(from) || !XmIsLabel(to)) return 0;
    grx::set_resource(to, XmNlabelPixmap, grx::resource<Pixmap>(from, XmNlabelPixmap));
    grx::share_picture(nobou1);
    return 0;
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
