// Ctrl+C, X, V and A in text fields and lists, where the application has switched them on.
#include <X11/keysym.h>
#include <Xm/List.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

#include "pure/utf8.h"
#include "system/block.h"
#include "system/shut_down.h"
#include "system/trace.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/lists.h"
#include "toolkit/locale_text.h"
#include "events/layout_groups.h"
#include "menus/menu_keys.h"
#include "session/clipboard.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_presse_papiers.h"
#include "xt_bou_f.h"
#include "xt_ini_t.h"

namespace {

using grx::Block;

bool switched_on = false;

// -- encodings

bool locale_is_multibyte() {
    return MB_CUR_MAX > 1;
}

// Offers a text of the locale; false when it could not.
bool copy_text(std::string_view text) {
    const bool utf8 = locale_is_multibyte() && grx::is_utf8(text);
    return grx::offer_text(GRX_SEL_PRESSE_PAPIERS, utf8 ? GRX_CODAGE_UTF8 : GRX_CODAGE_LATIN1, text) == 1;
}

// The bytes of the first `most` characters of a text of the locale.
std::size_t bytes_of_characters(const char* text, std::size_t most) {
    if (!locale_is_multibyte()) return std::min(most, std::strlen(text));
    std::size_t bytes = 0;
    for (; most > 0 && text[bytes] != '\0'; --most)
        bytes += static_cast<std::size_t>(std::max(std::mblen(text + bytes, MB_CUR_MAX), 1));
    return bytes;
}

// -- fields: the toolkit's functions for texts take fields of one line too

bool is_one_line(Widget field) {
    return XmIsTextField(field) || grx::resource<int>(field, XmNeditMode, XmMULTI_LINE_EDIT) == XmSINGLE_LINE_EDIT;
}

bool copy_of_field(Widget field, Time) {
    char* const selected = XmTextGetSelection(field);
    if (selected == nullptr) return false;
    const bool copied = copy_text(selected);
    XtFree(selected);
    return copied;
}

void cut_in_field(Widget field, Time time) {
    if (XmTextGetEditable(field) && copy_of_field(field, time)) XmTextRemove(field);
}

// What a field takes of a text: its first line, or lines that end with '\n'.
void fit_lines(Widget field, char* text) {
    char* const end = text + std::strlen(text);
    char* const rest = is_one_line(field) ? std::find_if(text, end, [](char c) { return c == '\n' || c == '\r'; })
                                          : std::remove(text, end, '\r');
    *rest = '\0';
}

void put_into_field(Widget field, char* text) {
    XmTextPosition left = 0, right = 0;
    if (!XmTextGetSelectionPosition(field, &left, &right)) left = right = XmTextGetInsertionPosition(field);
    const XmTextPosition kept = XmTextGetLastPosition(field) - (right - left);
    const auto room = std::max<XmTextPosition>(XmTextGetMaxLength(field) - kept, 0);
    text[bytes_of_characters(text, static_cast<std::size_t>(room))] = '\0';
    if (*text == '\0') return;
    XmTextReplace(field, left, right, text);
}

void paste_into_field(Widget field, Time) {
    if (!XmTextGetEditable(field)) return;
    Block<char> text;
    const INT encoding = locale_is_multibyte() ? GRX_CODAGE_UTF8 : GRX_CODAGE_LATIN1;
    if (grx::fetch_text(GRX_SEL_PRESSE_PAPIERS, encoding, text) != 1) return;
    grx::LocaleText in_locale(text.data());
    fit_lines(field, in_locale.data());
    put_into_field(field, in_locale.data());
}

void select_all_of_field(Widget field, Time time) {
    XmTextSetSelection(field, 0, XmTextGetLastPosition(field), time);
}

// -- lists

class Lines {
  public:
    bool add(std::string_view line) {
        const std::size_t needed = used_ + line.size() + 1;
        if (needed > text_.size() && !text_.resize(2 * needed)) return false;
        line.copy(text_.data() + used_, line.size());
        text_[needed - 1] = '\n';
        used_ = needed;
        return true;
    }
    // Between the lines there is an end of line, behind the last there is none.
    std::string_view text() const { return {text_.data(), used_ - 1}; }
    bool empty() const { return used_ == 0; }

  private:
    Block<char> text_;
    std::size_t used_ = 0;
};

void copy_of_list(Widget list, Time) {
    const auto* const entries = grx::resource<XmStringTable>(list, XmNitems);
    const int count = grx::resource<int>(list, XmNitemCount);
    Lines lines;
    for (int i = 0; i < count; ++i) {
        if (!XmListPosSelected(list, i + 1)) continue;
        if (!lines.add(grx::PlainText(entries[i]).c_str())) return;
    }
    if (!lines.empty()) copy_text(lines.text());
}

// As the toolkit tells of a click on the last entry.
void tell_selection(Widget list, int last, bool extended) {
    XmListCallbackStruct told{};
    told.reason = extended ? XmCR_EXTENDED_SELECT : XmCR_MULTIPLE_SELECT;
    told.item = grx::resource<XmStringTable>(list, XmNitems)[last - 1];
    told.item_position = last;
    told.selected_items = grx::resource<XmStringTable>(list, XmNselectedItems);
    told.selected_item_count = grx::selected_count(list);
    told.selected_item_positions = grx::resource<int*>(list, XmNselectedPositions);
    XtCallCallbacks(list, extended ? XmNextendedSelectionCallback : XmNmultipleSelectionCallback, &told);
}

void select_all_of_list(Widget list, Time) {
    const auto policy = grx::resource<unsigned char>(list, XmNselectionPolicy);
    const int count = grx::resource<int>(list, XmNitemCount);
    const bool extended = policy == XmEXTENDED_SELECT;
    if (count == 0 || (policy != XmMULTIPLE_SELECT && !extended)) return;
    Block<INT> others(static_cast<std::size_t>(count));
    std::size_t found = 0;
    for (int i = 0; others && i < count; ++i) {
        if (!XmListPosSelected(list, i + 1)) others[found++] = i;
    }
    if (found == 0) return;
    grx::select_several(list, others.span().first(found));
    tell_selection(list, count, extended);
}

// -- keys

void copy_of_field_only(Widget field, Time time) {
    copy_of_field(field, time);
}

void nothing(Widget, Time) {}

struct Key {
    KeySym symbol;
    void (*in_field)(Widget field, Time time);
    void (*in_list)(Widget list, Time time);
};
constexpr std::array<Key, 4> kKeys{{{XK_c, copy_of_field_only, copy_of_list}, {XK_x, cut_in_field, nothing},
    {XK_v, paste_into_field, nothing}, {XK_a, select_all_of_field, select_all_of_list}}};

const Key* key_of(const XKeyEvent& event) {
    if (grx::held_modifiers(event.state) != ControlMask) return nullptr;
    XKeyEvent noted = event;
    grx::note_group(noted);
    const KeySym symbol = grx::symbol_in_force(noted);
    const auto* const found =
        std::find_if(kKeys.begin(), kKeys.end(), [symbol](const Key& key) { return key.symbol == symbol; });
    return found != kKeys.end() ? found : nullptr;
}

bool is_field(Widget w) {
    return XmIsTextField(w) || (XmIsText(w) && grx_recup_indice_bout(w) != GRX_AUCUN);
}

// Stands before all others that the widget has.
void on_key(Widget w, XtPointer, XEvent* event, Boolean* go_on) {
    const Key* const key = switched_on && event->type == KeyPress ? key_of(event->xkey) : nullptr;
    if (key == nullptr) return;
    *go_on = False;
    const auto act = XmIsList(w) ? key->in_list : key->in_field;
    act(w, event->xkey.time);
}

// Sees to it that the widget with the focus hears of the key first: whichever way the toolkit brings it there, a dialog
// that shuts other windows out keeps it from them.
bool keeps(const XKeyEvent& event) {
    if (key_of(event) == nullptr) return false;
    Widget at = XtWindowToWidget(x11_disp, event.window);
    Widget focus = at != nullptr ? XmGetFocusWidget(at) : nullptr;
    if (focus == nullptr || (!XmIsList(focus) && !is_field(focus))) return false;
    XtInsertEventHandler(focus, KeyPressMask, False, on_key, nullptr, XtListHead);
    return true;
}

void forget_keys() {
    switched_on = false;
    grx::keep_from_menus(nullptr);
}

} // namespace

extern "C" {

INT grx_affecte_touches_presse_papiers(INT actif) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "actif", actif);
    grx::at_shut_down(forget_keys);
    switched_on = actif != 0;
    grx::keep_from_menus(switched_on ? keeps : nullptr);
    return 1;
}

INT grx_recup_touches_presse_papiers(void) {
    return switched_on ? 1 : 0;
}
}
