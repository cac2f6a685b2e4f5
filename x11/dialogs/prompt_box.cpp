// Prompts for a line of text or a number within bounds.
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/TextF.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <optional>

#include "pure/latin1.h"
#include "pure/sized_record.h"
#include "pure/text.h"
#include "pure/typed_number.h"
#include "system/trace.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/option_menu.h"
#include "toolkit/widgets.h"
#include "events/added_records.h"
#include "session/nested_loop.h"
#include "dialogs/box_parts.h"
#include "dialogs/box_place.h"
#include "dialogs/box_texts.h"
#include "dialogs/boxes.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_evenements.h"
#include "grx_plus_messages.h"
#include "xt_ini_t.h"
#include "xt_uti_f.h"

namespace {

constexpr INT kAgreed = 1, kCancelled = 2; // the buttons
constexpr INT kMostDecimals = 15;

// -- what the application asks for

bool asks_number(INT kind) {
    return kind == GRX_SAISIE_ENTIER || kind == GRX_SAISIE_REEL;
}

bool is_usable(const GRX_BOITE_SAISIE& prompt) {
    if (prompt.genre == GRX_SAISIE_TEXTE) return true;
    bool bounds = prompt.minimum <= prompt.maximum; // false for what is no number
    if (prompt.genre == GRX_SAISIE_ENTIER)
        bounds = bounds && prompt.minimum <= DOUBLE{INT32_MAX} && prompt.maximum >= DOUBLE{INT32_MIN};
    return asks_number(prompt.genre) && bounds && prompt.nb_decimales >= -1 && prompt.nb_decimales <= kMostDecimals;
}

// Bounds wider than this count as none.
DOUBLE widest(INT kind) {
    return kind == GRX_SAISIE_ENTIER ? DOUBLE{INT32_MAX} : DBL_MAX;
}

void set_bounds(grx::Prompt& prompt, const GRX_BOITE_SAISIE& asked) {
    const bool integer = asked.genre == GRX_SAISIE_ENTIER;
    prompt.kind = asked.genre;
    prompt.least = integer ? std::max(asked.minimum, DOUBLE{INT32_MIN}) : asked.minimum;
    prompt.most = integer ? std::min(asked.maximum, DOUBLE{INT32_MAX}) : asked.maximum;
}

grx::Block<char> first_text(const GRX_BOITE_SAISIE& asked) {
    if (!asks_number(asked.genre)) {
        grx::Block<char> text = grx::typed_text(asked.texte);
        if (text) std::replace_if(text.data(), text.data() + std::strlen(text.data()), grx::is_control, ' ');
        return text;
    }
    grx::NumberText number{};
    const bool integer = asked.genre == GRX_SAISIE_ENTIER;
    const DOUBLE value = integer ? std::trunc(asked.valeur) : asked.valeur;
    if (asked.sans_valeur == 0 && std::isfinite(value))
        number = grx::number_text(value, integer ? 0 : asked.nb_decimales);
    return grx::typed_text(number.data());
}

// -- the field and the line below it

grx::NumberText bounds_of(const grx::Prompt& prompt) {
    return grx::bounds_text(prompt.least, prompt.most, widest(prompt.kind));
}

void tell(const grx::Prompt& prompt, const char* text) {
    const grx::CompoundString string(text[0] != '\0' ? text : " ");
    grx::set_resource(prompt.hint, XmNlabelString, string.get());
}

void select_all(Widget field) {
    char* const text = XmTextFieldGetString(field);
    XtFree(text);
    XmTextFieldSetSelection(field, 0, XmTextFieldGetLastPosition(field), XtLastTimestampProcessed(XtDisplay(field)));
}

Widget make_field(Widget form, const GRX_BOITE_SAISIE& asked, char* text) {
    constexpr short columns = 44;
    grx::Args args;
    args.set(XmNcolumns, columns).set(XmNfontList, fontlist).set(XmNvalue, text);
    if (asked.longueur_max > 0) args.set(XmNmaxLength, asked.longueur_max);
    args.set(XmNleftAttachment, XmATTACH_FORM).set(XmNrightAttachment, XmATTACH_FORM);
    args.set(XmNtopAttachment, XmATTACH_FORM);
    grx::set_menu_look(args);
    return grx::managed(XmCreateTextField(form, const_cast<char*>("champ"), args.list(), args.count()));
}

Widget make_hint(Widget form, Widget field) {
    const grx::CompoundString blank(" ");
    grx::Args args;
    args.set(XmNlabelString, blank.get()).set(XmNfontList, fontlist).set(XmNrecomputeSize, False);
    args.set(XmNalignment, XmALIGNMENT_BEGINNING).set(XmNtopAttachment, XmATTACH_WIDGET).set(XmNtopWidget, field);
    args.set(XmNleftAttachment, XmATTACH_FORM).set(XmNrightAttachment, XmATTACH_FORM);
    args.set(XmNbottomAttachment, XmATTACH_FORM);
    grx::set_menu_look(args);
    return grx::managed(XmCreateLabel(form, const_cast<char*>("bornes"), args.list(), args.count()));
}

bool add_field(grx::Box& box, const GRX_BOITE_SAISIE& asked) {
    grx::Block<char> text = first_text(asked);
    if (!text) return false;
    grx::Args args;
    grx::set_dialog_look(args);
    Widget form = XmCreateForm(box.widget, const_cast<char*>("saisie"), args.list(), args.count());
    if (form == nullptr) return false;
    set_bounds(box.prompt, asked);
    box.prompt.field = make_field(form, asked, text.data());
    if (asks_number(asked.genre)) {
        box.prompt.hint = make_hint(form, box.prompt.field);
        tell(box.prompt, bounds_of(box.prompt).data());
    }
    XtManageChild(form);
    grx::watch_mnemonics(box, box.prompt.field);
    return true;
}

// -- answers

std::optional<DOUBLE> number_in(const grx::Prompt& prompt) {
    char* const text = XmTextFieldGetString(prompt.field);
    const auto number = grx::typed_number(text, prompt.kind == GRX_SAISIE_REEL);
    XtFree(text);
    return number;
}

bool within_bounds(const grx::Prompt& prompt, DOUBLE number) {
    return number >= prompt.least && number <= prompt.most;
}

// Says what is wrong with the field; the user goes on there.
void refuse(const grx::Prompt& prompt, bool is_number) {
    std::array<char, 512> told{};
    const grx::NumberText bounds = bounds_of(prompt);
    const bool integer = prompt.kind == GRX_SAISIE_ENTIER;
    if (is_number)
        std::snprintf(told.data(), told.size(), "Hors limites. %s", bounds[0] != '\0' ? bounds.data() : "");
    else
        std::snprintf(
            told.data(), told.size(), "Ce n'est pas un nombre%s. %s", integer ? " entier" : "", bounds.data());
    tell(prompt, told.data());
    grx_bipbip(0, 0);
    XmProcessTraversal(prompt.field, XmTRAVERSE_CURRENT);
    select_all(prompt.field);
}

void give_text(const grx::Prompt& prompt, const char* text) {
    if (prompt.text == nullptr || prompt.text_size <= 0) return;
    const auto room = static_cast<std::size_t>(prompt.text_size);
    const std::string_view whole = grx::view(text);
    grx::copy_text(prompt.text, room, whole.substr(0, grx::whole_characters(whole, room - 1)));
}

// The text of the field in the application's encoding.
grx::Block<char> text_in(const grx::Prompt& prompt) {
    char* const typed = XmTextFieldGetString(prompt.field);
    grx::Block<char> text = grx::answered_text(typed, prompt.encoding);
    XtFree(typed);
    return text;
}

bool accept(grx::Box& box, INT button) {
    const grx::Prompt& prompt = box.prompt;
    if (button != kAgreed) return true;
    DOUBLE number = 0.0;
    if (asks_number(prompt.kind)) {
        const auto typed = number_in(prompt);
        if (!typed || !within_bounds(prompt, *typed)) {
            refuse(prompt, typed.has_value());
            return false;
        }
        number = *typed;
    }
    if (!box.waited_for) return true;
    const grx::Block<char> text = text_in(prompt);
    if (!text) return false; // the user can try again
    give_text(prompt, text.data());
    if (prompt.value != nullptr) *prompt.value = number;
    return true;
}

bool post_answer(const grx::Box& box, INT button) {
    GRX_EVENEMENT record{};
    GRX_EXEC_FONCTION& answer = record.exec_fonction;
    answer.type_evenement = GRX_EVT_SAISIE;
    answer.nofen = box.number;
    answer.nobou = answer.no_fo = GRX_AUCUN;
    answer.valeur = button == kAgreed ? 1 : 0;
    if (button != kAgreed) {
        const std::array<const char*, 1> nothing{""};
        return grx::post_added(record, {0, 0, 0.0, nothing});
    }
    const grx::Block<char> text = text_in(box.prompt);
    if (!text) return false;
    const std::array<const char*, 1> texts{text.data()};
    const std::size_t cut = grx::whole_characters(texts[0], sizeof answer.chaine - 1);
    grx::copy_text(answer.chaine, grx::view(texts[0]).substr(0, cut));
    return grx::post_added(record, {0, 0, number_in(box.prompt).value_or(0.0), texts});
}

// -- showing

bool build(grx::Box& box, const GRX_BOITE_SAISIE& asked, const grx::BoxParent& parent) {
    box.accept = accept;
    box.escape = kCancelled;
    box.prompt.encoding = grx::encoding_among({asked.texte, asked.etiquette, asked.titre});
    Widget frame = grx::make_box_frame(box, {parent.widget, asked.titre, asked.etiquette});
    if (frame == nullptr || !add_field(box, asked)) return false;
    const std::array<grx::Block<char>, 2> labels{grx::button_text(asked.bouton_accord, grx::UsualLabel::Ok),
        grx::button_text(asked.bouton_abandon, grx::UsualLabel::Cancel)};
    if (!grx::add_box_buttons(box, labels, kAgreed)) return false;
    grx::set_resource(frame, XmNinitialFocus, XtParent(box.prompt.field));
    grx::centre_when_mapped(frame, parent.centred_on_it);
    XtManageChild(frame);
    select_all(box.prompt.field);
    return true;
}

INT show(const GRX_BOITE_SAISIE* given, grx::Box*& box) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "boite");
    GRX_BOITE_SAISIE asked{};
    if (!grx::read_sized(given, asked) || !is_usable(asked)) return grx::refused(GRX_ECHEC_PARAMETRE, "boite");
    const auto parent = grx::box_parent(asked.nofen_mere);
    if (!parent) return grx::refused(GRX_ECHEC_NUMERO, "nofen_mere", asked.nofen_mere);
    box = grx::take_box();
    if (box == nullptr) return grx::refused(GRX_ECHEC_PLEIN, "boite");
    if (build(*box, asked, *parent)) return box->number;
    grx::remove_box(*box);
    box = nullptr;
    return GRX_ECHEC_MEMOIRE;
}

} // namespace

extern "C" {

INT grx_init_boite_saisie(GRX_BOITE_SAISIE* boite) {
    if (boite == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "boite");
    *boite = GRX_BOITE_SAISIE{};
    boite->taille = static_cast<INT>(sizeof *boite);
    boite->nofen_mere = GRX_AUCUN;
    boite->minimum = -DBL_MAX;
    boite->maximum = DBL_MAX;
    boite->nb_decimales = -1;
    return 1;
}

INT grx_attend_boite_saisie(const GRX_BOITE_SAISIE* boite, char* texte, INT taille_texte, DOUBLE* valeur) {
    grx::Box* box = nullptr;
    const INT shown = show(boite, box);
    if (box == nullptr) return shown;
    box->prompt.text = texte;
    box->prompt.text_size = taille_texte;
    box->prompt.value = valeur;
    return grx::wait_for_box(*box) == kAgreed ? 1 : 0;
}

INT grx_affiche_boite_saisie(const GRX_BOITE_SAISIE* boite) {
    grx::Box* box = nullptr;
    const INT shown = show(boite, box);
    if (box != nullptr) box->tell = post_answer;
    return shown;
}
}
