// What menu entries do, in words: shown in the information strip while an entry is highlighted, told as records to who
// asked for them.
#include "controls/menu_texts.h"

#include <X11/Intrinsic.h>
#include <Xm/Label.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>
#include <Xm/Xm.h>

#include <cstring>
#include <utility>

#include "controls/own_text.h"
#include "events/added_records.h"
#include "grx_plus_aide.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_evenements.h"
#include "grx_plus_menus.h"
#include "menus/armed_entry.h"
#include "pure/text.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "system/trace.h"
#include "toolkit/args.h"
#include "toolkit/control_parts.h"
#include "xt_bou_f.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"

namespace {

struct Entry {
    INT no_fo;
    grx::OwnText text;
};

// A control by number and widget: the number may be another's later.
struct Field {
    INT nobou = GRX_AUCUN;
    INT filler = 0; // no gap: one that was forgotten is that of a fresh process, byte by byte
    Widget widget = nullptr;
    Widget live() const { return widget != nullptr && grx_recup_objet_bout(nobou) == widget ? widget : nullptr; }
};

grx::NeverDestroyed<grx::Block<Entry>> lasting_entries;
grx::Block<Entry>& entries = lasting_entries.value; // in no order; without text where one was taken away
Field strip;
Field chosen;
bool told = false;
INT told_window = GRX_AUCUN; // of the menu whose entry was told of last

// What stands in the field while no entry is highlighted, and what is shown instead: compound strings of a label, texts
// of a field.
Field showing;
XtPointer before = nullptr;
XtPointer shown = nullptr;

Field field_of(INT nobou) {
    return {nobou, 0, grx_recup_objet_bout(nobou)};
}

// -- contents of labels and fields alike

XtPointer content_of(Widget w) {
    if (grx::holds_text(w)) return XmTextGetString(w);
    return grx::resource<XmString>(w, XmNlabelString);
}

void set_content(Widget w, XtPointer content) {
    if (grx::holds_text(w))
        XmTextSetString(w, static_cast<char*>(content));
    else
        grx::set_resource(w, XmNlabelString, static_cast<XmString>(content));
}

bool same_content(Widget w, XtPointer a, XtPointer b) {
    if (a == nullptr || b == nullptr) return a == b;
    if (grx::holds_text(w)) return std::strcmp(static_cast<char*>(a), static_cast<char*>(b)) == 0;
    return XmStringCompare(static_cast<XmString>(a), static_cast<XmString>(b)) != False;
}

// Text and compound string alike are blocks of the toolkit, but a compound string counts its users.
void free_content(bool is_text, XtPointer content) {
    if (content == nullptr) return;
    if (is_text)
        XtFree(static_cast<char*>(content));
    else
        XmStringFree(static_cast<XmString>(content));
}

bool showing_text = false; // the field is one of text

void forget_contents() {
    free_content(showing_text, std::exchange(before, nullptr));
    free_content(showing_text, std::exchange(shown, nullptr));
    showing = {};
}

// -- showing

void put_back() {
    if (Widget w = showing.live()) {
        XtPointer const now = content_of(w);
        if (before != nullptr && same_content(w, now, shown)) set_content(w, before);
        free_content(showing_text, now);
    }
    forget_contents();
}

void show(const char* text) {
    put_back();
    const Field& field = chosen.live() != nullptr ? chosen : strip;
    Widget w = field.live();
    if (w == nullptr || text[0] == '\0') return;
    showing = field;
    showing_text = grx::holds_text(w);
    before = content_of(w);
    grx_change_texte(field.nobou, const_cast<char*>(text));
    shown = content_of(w);
}

Entry* entry_of(INT no_fo) {
    for (Entry& entry : entries.span()) {
        if (entry.text.text != nullptr && entry.no_fo == no_fo) return &entry;
    }
    return nullptr;
}

// A context menu may have closed by the time at which its entry is no longer highlighted.
INT window_of_menu(INT no_fo) {
    if (no_fo == GRX_AUCUN && told_window != GRX_AUCUN) return told_window;
    const INT context = grx_recup_fenetre_menu_contextuel();
    return context != GRX_AUCUN ? context : grx_recup_nofen_principale();
}

void tell(INT no_fo, const char* text) {
    told_window = window_of_menu(no_fo);
    GRX_EVENEMENT record{};
    GRX_EXEC_FONCTION& member = record.exec_fonction;
    member.type_evenement = GRX_EVT_AIDE;
    member.nofen = told_window;
    member.nobou = GRX_AUCUN;
    member.no_fo = no_fo;
    member.valeur = GRX_AIDE_MENU;
    grx::copy_text(member.chaine, text);
    grx::post_added(record, {.texts = {&text, 1}});
}

void on_armed(INT no_fo) {
    const Entry* const entry = no_fo >= 0 ? entry_of(no_fo) : nullptr;
    const char* const text = entry != nullptr ? entry->text.c_str() : "";
    show(text);
    if (told) tell(no_fo, text);
}

void forget_texts() {
    forget_contents();
    for (Entry& entry : entries.span()) entry.text.free();
    entries.reset();
    strip = chosen = {};
    told = false;
    told_window = GRX_AUCUN;
    grx::watch_armed_entry(nullptr);
}

void watch() {
    grx::at_shut_down(forget_texts);
    grx::watch_armed_entry(on_armed);
}

Entry* free_entry() {
    for (Entry& entry : entries.span()) {
        if (entry.text.text == nullptr) return &entry;
    }
    constexpr std::size_t more = 32;
    const std::size_t count = entries.size();
    return entries.resize(count == 0 ? more : 2 * count) ? &entries[count] : nullptr;
}

} // namespace

namespace grx {

void note_message_field(INT nobou) {
    at_shut_down(forget_texts);
    strip = field_of(nobou);
}

void tell_armed_entries(bool tell) {
    told = tell;
    if (tell) watch();
}

} // namespace grx

extern "C" {

INT grx_affecte_aide_menu(INT no_fo, const char* texte) {
    if (no_fo < 0) return grx::refused(GRX_ECHEC_PARAMETRE, "no_fo", no_fo);
    Entry* entry = entry_of(no_fo);
    if (grx::view(texte).empty()) {
        if (entry != nullptr) entry->text.free();
        return 1;
    }
    watch();
    if (entry == nullptr) entry = free_entry();
    if (entry == nullptr || !entry->text.set(texte)) return GRX_ECHEC_MEMOIRE;
    entry->no_fo = no_fo;
    return 1;
}

INT grx_affecte_bouton_aide_menu(INT nobou) {
    const Field field = field_of(nobou);
    if (nobou != GRX_AUCUN && field.widget == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "nobou", nobou);
    const bool fits = nobou == GRX_AUCUN || XmIsTextField(field.widget) || XtClass(field.widget) == xmLabelWidgetClass;
    if (!fits) return grx::refused(GRX_ECHEC_GENRE, "nobou", nobou);
    put_back();
    grx::at_shut_down(forget_texts);
    chosen = field;
    return 1;
}
}
