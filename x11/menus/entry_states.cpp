// Makes menu entries insensitive, ticks them and renames them by their function number; remembers that for entries to come.
#include "menus/entry_states.h"

#include <Xm/Xm.h>

#include <cstdlib>
#include <cstring>
#include <string_view>

#include "grx_plus_erreurs.h"
#include "grx_plus_menus.h"
#include "pure/menu_line.h"
#include "pure/sized_record.h"
#include "pure/text.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "system/trace.h"
#include "fonts/interface_font.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/locale_text.h"
#include "toolkit/widgets.h"
#include "menus/entry_marks.h"
#include "menus/function_table.h"
#include "menus/living_entries.h"
#include "menus/mnemonics.h"

namespace {

using grx::MenuEntry;
using grx::MenuFunction;
using grx::MenuSetting;

grx::NeverDestroyed<grx::FunctionTable> lasting_functions;
grx::FunctionTable& functions = lasting_functions.value;
bool noting = false; // entries are in the table

// -- texts

using TextBytes = char[GRX_MENU_TEXTE_MAX];

// Cuts a text to the room that there is, between two characters.
void copy_whole_characters(TextBytes& to, const char* text) {
    if (grx::copy_text(to, grx::view(text)) || grx::encoding_of(text) != grx::TextEncoding::Locale) return;
    std::size_t length = std::strlen(to);
    while (length > 0 && std::mbstowcs(nullptr, to, 0) == static_cast<std::size_t>(-1)) to[--length] = '\0';
}

// The text that is shown: without the mark of the mnemonic.
void copy_label(TextBytes& to, std::string_view text) {
    const grx::MenuLabel label = grx::menu_label(text);
    grx::copy_text(to, label.before);
    const std::size_t length = std::strlen(to);
    grx::copy_text(to + length, sizeof to - length, label.behind);
}

// A font of the server has the letters of Latin-1.
grx::ApplicationText for_font(const char* text) {
    const bool of_locale = grx::outline_font() == nullptr && grx::encoding_of(text) == grx::TextEncoding::Locale;
    return grx::ApplicationText(text, of_locale ? grx::TextEncoding::Latin1 : grx::TextEncoding::Locale);
}

void keep_label_of_file(MenuEntry& entry) {
    if (entry.label != nullptr) return;
    entry.label = grx::resource<XmString>(entry.widget, XmNlabelString, nullptr);
    entry.mnemonic = grx::resource<KeySym>(entry.widget, XmNmnemonic, NoSymbol);
}

void set_label(Widget w, XmString label, KeySym mnemonic) {
    grx::Args args;
    args.set(XmNlabelString, label).set(XmNmnemonic, mnemonic);
    if (mnemonic != NoSymbol) args.set(XmNmnemonicCharSet, grx::kFontTag);
    XtSetValues(w, args.list(), args.count());
}

void show_text(MenuEntry& entry, const char* text) {
    keep_label_of_file(entry);
    const grx::ApplicationText bytes = for_font(text);
    const auto letter = grx::menu_label(bytes.c_str()).mnemonic;
    TextBytes label;
    copy_label(label, bytes.c_str());
    const KeySym mnemonic = letter ? grx::mnemonic_key(*letter) : grx::mnemonic_in(label, entry.mnemonic);
    set_label(entry.widget, grx::CompoundString(label).get(), mnemonic);
}

void free_label_of_file(MenuEntry& entry) {
    if (entry.label != nullptr) XmStringFree(entry.label);
    entry.label = nullptr;
}

void show_text_of_file(MenuEntry& entry) {
    if (entry.label == nullptr) return;
    set_label(entry.widget, entry.label, entry.mnemonic);
    free_label_of_file(entry);
}

// -- states on entries

void show_off(const MenuFunction& f, MenuEntry& entry) {
    XtSetSensitive(entry.widget, f.off.value ? False : True);
}

void show_ticked(const MenuFunction& f, MenuEntry& entry) {
    if (f.ticked.is_set) grx::make_mark_column(entry.widget);
    grx::show_mark(entry.widget, f.ticked.value);
}

void show_label(const MenuFunction& f, MenuEntry& entry) {
    if (f.text != nullptr)
        show_text(entry, f.text);
    else
        show_text_of_file(entry);
}

using Show = void (*)(const MenuFunction&, MenuEntry&);

struct Kind {
    MenuSetting MenuFunction::*setting;
    Show show;
};

constexpr Kind kOff{&MenuFunction::off, show_off};
constexpr Kind kTicked{&MenuFunction::ticked, show_ticked};
constexpr Kind kRenamed{&MenuFunction::renamed, show_label};
constexpr Kind kKinds[] = {kOff, kTicked, kRenamed};

void show_on_entries(const MenuFunction& f, Show show) {
    functions.for_each_entry(f, [&](MenuEntry& entry) {
        if (!grx::is_dying(entry.widget)) show(f, entry);
    });
}

// Back to what an entry is when nothing is set.
void unset(MenuFunction& f, const Kind& kind) {
    if (!(f.*kind.setting).is_set) return;
    f.*kind.setting = MenuSetting{};
    if (kind.setting == kRenamed.setting) grx::FunctionTable::set_text(f, nullptr);
    show_on_entries(f, kind.show);
}

void unset_all(bool kept_as_well) {
    functions.for_each_function([kept_as_well](MenuFunction& f) {
        for (const Kind& kind : kKinds) {
            if (kept_as_well || !(f.*kind.setting).kept) unset(f, kind);
        }
        functions.drop_if_unused(f.number);
    });
}

// -- the entries in the table

void on_entry_death(Widget, XtPointer client, XtPointer) {
    const int place = grx::number_in(client);
    if (!functions.holds(place)) return;
    free_label_of_file(functions.entry(place));
    functions.remove_entry(place);
}

bool add(INT number, Widget entry) {
    const int place = functions.add_entry(number, entry);
    if (place < 0) return false;
    XtAddCallback(entry, XmNdestroyCallback, on_entry_death, grx::as_client_data(place));
    MenuFunction& f = functions.function_of(place);
    for (const Kind& kind : kKinds) {
        if ((f.*kind.setting).is_set) kind.show(f, functions.entry(place));
    }
    return true;
}

void add_living(Widget entry, INT number) {
    if (!noting || grx::has_callback(entry, XmNdestroyCallback, on_entry_death)) return;
    noting = add(number, entry);
}

// The entries stand until their windows go, and then find their places empty of settings.
void forget_at_shut_down() {
    noting = false;
    functions.for_each_function([](MenuFunction& f) {
        functions.for_each_entry(f, free_label_of_file);
        for (const Kind& kind : kKinds) f.*kind.setting = MenuSetting{};
        grx::FunctionTable::set_text(f, nullptr);
        functions.drop_if_unused(f.number);
    });
}

// False when memory is short: the rest is looked for the next time.
bool has_all_entries() {
    if (noting) return true;
    grx::at_shut_down(forget_at_shut_down);
    noting = true;
    grx::for_each_living_entry(add_living);
    return noting;
}

// The function that is to be changed, null when memory is short.
MenuFunction* to_change(INT no_fo) {
    return has_all_entries() ? functions.find_or_add(no_fo) : nullptr;
}

INT set(INT no_fo, const Kind& kind, INT value, INT garde) {
    MenuFunction* const f = to_change(no_fo);
    if (f == nullptr) return GRX_ECHEC_MEMOIRE;
    const MenuSetting wanted{true, garde != 0, value != 0};
    const MenuSetting before = f->*kind.setting;
    f->*kind.setting = wanted;
    if (!before.is_set || before.value != wanted.value) show_on_entries(*f, kind.show);
    return 1;
}

// -- asking

void read_text(const MenuFunction& f, TextBytes& into) {
    if (f.text != nullptr) {
        copy_label(into, f.text);
    } else if (f.entries > 0) {
        const MenuEntry& oldest = functions.entry(f.first_entry);
        XmString label = grx::resource<XmString>(oldest.widget, XmNlabelString, nullptr);
        copy_whole_characters(into, grx::PlainText(label).c_str());
        XmStringFree(label);
    }
}

GRX_ENTREE_MENU described(const MenuFunction& f) {
    GRX_ENTREE_MENU entry{};
    entry.nb_entrees = f.entries;
    entry.active = f.off.value ? 0 : 1;
    entry.coche = f.ticked.value ? 1 : 0;
    entry.garde_active = f.off.kept ? 1 : 0;
    entry.garde_coche = f.ticked.kept ? 1 : 0;
    entry.garde_texte = f.renamed.kept ? 1 : 0;
    read_text(f, entry.texte);
    return entry;
}

} // namespace

namespace grx {

bool note_menu_entry(INT number, Widget entry) {
    return !noting || add(number, entry);
}

void forget_unkept_states() {
    unset_all(false);
}

bool is_switched_off(Widget entry) {
    bool off = false;
    functions.for_each_function([&](const MenuFunction& f) {
        if (f.off.value) functions.for_each_entry(f, [&](const MenuEntry& e) { off = off || e.widget == entry; });
    });
    return off;
}

} // namespace grx

extern "C" {

INT grx_desactive_entree_menu(INT no_fo, INT desactive, INT garde) {
    return set(no_fo, kOff, desactive, garde);
}

INT grx_coche_entree_menu(INT no_fo, INT coche, INT garde) {
    return set(no_fo, kTicked, coche, garde);
}

INT grx_change_texte_entree_menu(INT no_fo, const char* texte, INT garde) {
    TextBytes text;
    copy_whole_characters(text, texte);
    MenuFunction* const f = to_change(no_fo);
    if (f == nullptr || !grx::FunctionTable::set_text(*f, text)) {
        functions.drop_if_unused(no_fo);
        return GRX_ECHEC_MEMOIRE;
    }
    f->renamed = {true, garde != 0, f->text != nullptr};
    show_on_entries(*f, show_label);
    return 1;
}

INT grx_initialise_entrees_menu(void) {
    unset_all(true);
    return 1;
}

INT grx_init_entree_menu(GRX_ENTREE_MENU* entree) {
    if (entree == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "entree");
    *entree = GRX_ENTREE_MENU{};
    entree->taille = static_cast<INT>(sizeof *entree);
    return 1;
}

INT grx_recup_entree_menu(INT no_fo, GRX_ENTREE_MENU* entree) {
    const bool complete = has_all_entries();
    const MenuFunction* const f = functions.find(no_fo);
    if (!grx::write_sized(entree, described(f != nullptr ? *f : MenuFunction{})))
        return grx::refused(GRX_ECHEC_PARAMETRE, "entree");
    if (!complete) return GRX_ECHEC_MEMOIRE;
    return f != nullptr ? 1 : grx::refused(GRX_ECHEC_NUMERO, "no_fo", no_fo);
}
}
