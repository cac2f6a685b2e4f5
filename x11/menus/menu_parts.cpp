// Makes entries, separators, menus and the buttons that open them, for the menu bar and for context menus.
#include "menus/menu_parts.h"

#include <Xm/BulletinB.h>
#include <Xm/CascadeB.h>
#include <Xm/PushB.h>
#include <Xm/Separator.h>
#include <Xm/Xm.h>

#include "pure/menu_line.h"
#include "pure/text.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/hidden_shell.h"
#include "toolkit/option_menu.h"
#include "toolkit/widgets.h"
#include "menus/armed_entry.h"
#include "menus/entry_states.h"
#include "menus/forget_menus.h"
#include "menus/living_entries.h"
#include "menus/mnemonics.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

Widget board = nullptr; // of the spare menu, never shown
Widget spare = nullptr;

Widget make_cascade(Widget support, const char* text, Widget submenu) {
    const CompoundString label(text);
    Args args;
    args.set(XmNlabelString, label.get()).set(XmNfontList, fontlist).set(XmNsubMenuId, submenu);
    set_menu_look(args);
    return XmCreateCascadeButton(support, const_cast<char*>("Fin sous_menu"), args.list(), args.count());
}

Widget make_push_button(Widget parent, const EntryText& text, const char* translation) {
    const CompoundString label(text.label);
    const CompoundString shown(text.accelerator);
    Args args;
    args.set(XmNlabelString, label.get()).set(XmNfontList, fontlist);
    if (text.accelerator[0] != '\0') args.set(XmNacceleratorText, shown.get());
    if (translation != nullptr) args.set(XmNaccelerator, translation);
    set_mnemonic(args, text.mnemonic);
    set_menu_look(args);
    return XmCreatePushButton(parent, const_cast<char*>("atome"), args.list(), args.count());
}

} // namespace

Widget make_menu(Widget parent) {
    return make_pulldown(parent, "Sous_menu_bar");
}

Widget add_cascade(Widget support, const char* text, Widget menu) {
    if (!is_pulldown(menu) || !can_hold_children(support)) return nullptr;
    return managed(make_cascade(support, text, menu));
}

Widget add_cascade_of_line(Widget support, const LI_MENU& line, Widget menu) {
    Widget cascade = add_cascade(support, line.nom_fonction, menu);
    if (cascade == nullptr) return nullptr;
    Args args;
    set_mnemonic(args, line.mneumonic);
    if (args.count() > 0) XtSetValues(cascade, args.list(), args.count());
    return cascade;
}

// Makes a cascade button that nobody sees before menus are taken down: when the last button of a look is destroyed, the
// toolkit forgets the arrow pictures of that look without freeing them.
void keep_a_cascade() {
    Widget const before = spare;
    if (board == nullptr) board = XmCreateBulletinBoard(hidden_shell(), const_cast<char*>("spare"), nullptr, 0);
    spare = make_menu(board);
    if (spare != nullptr) make_cascade(spare, " ", make_menu(spare));
    if (before != nullptr) XtDestroyWidget(before);
}

EntryText entry_text(const char* label, const char* accelerator, char mnemonic) {
    EntryText text{label != nullptr ? label : "", "", mnemonic};
    copy_text(text.accelerator, first_accelerator(view(accelerator)));
    return text;
}

bool is_separator(const EntryText& text) {
    return text.label[0] == '-';
}

Widget make_separator(Widget parent) {
    Args args;
    args.set(XmNorientation, XmHORIZONTAL);
    set_menu_look(args);
    return XmCreateSeparator(parent, const_cast<char*>("Gadget_Separateur"), args.list(), args.count());
}

Widget make_entry(Widget parent, const EntryText& text, const char* translation, INT nofo, XtCallbackProc chosen) {
    Widget entry = make_push_button(parent, text, translation);
    if (entry == nullptr) return nullptr;
    if (!note_menu_entry(nofo, entry)) {
        XtDestroyWidget(entry);
        return nullptr;
    }
    note_chooser(chosen);
    XtAddCallback(entry, XmNactivateCallback, chosen, as_client_data(nofo));
    note_armed(entry, nofo);
    return entry;
}

void forget_spare_menu() {
    board = spare = nullptr; // destroyed with the shell that they stand in
}

} // namespace grx
