// A small text editor in a window of its own: the window, its menu, and the functions that the application calls.
#include <X11/Shell.h>
#include <Xm/CascadeB.h>
#include <Xm/MainW.h>
#include <Xm/Protocols.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/Text.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "pure/size.h"
#include "pure/text.h"
#include "system/block.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/look.h"
#include "toolkit/option_menu.h"
#include "toolkit/widgets.h"
#include "registry/window_table.h"
#include "menus/accelerators.h"
#include "session/nested_loop.h"
#include "dialogs/editor_clipboard.h"
#include "dialogs/editor_files.h"
#include "dialogs/editor_questions.h"
#include "dialogs/editor_state.h"
#include "host_f.h"
#include "xt_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_ini_t.h"

using namespace grx::editor;

namespace {

struct Entry {
    const char* name;
    const char* label;
    void (*act)(Time);
    const char* shown_key;   // "" = none
    const char* translation; // as the entry holds it
    const char* key;         // as the library matches it
    Component component;     // kComponents = none of its own
};
constexpr std::array<Entry, 6> kFileEntries{{
    {"Open", "Ouvrir", [](Time) { show_dialog(kOpenDialog); }, "", "", "", kComponents},
    {"New", "Nouveau", [](Time) { show_dialog(kNewDialog); }, "", "", "", kComponents},
    {"close", "Fermeture", [](Time) { close_or_warn(); }, "", "", "", kComponents},
    {"Save", "Sauver", [](Time) { save_or_tell(); }, "", "", "", kComponents},
    {"Save As...", "Sauver sous", [](Time) { show_save_dialog(); }, "", "", "", kComponents},
    {"Exit", "Fin", [](Time) { exit_or_warn(); }, "F3", "<Key>F3:", "F3", kComponents},
}};
constexpr std::array<Entry, 4> kEditEntries{{
    {"Couper", "Couper", cut, "Shift+Del", "Shift<Key>Delete:", "Shift+Delete", kCutButton},
    {"Copier", "Copier", [](Time time) { copy_selection(time); }, "Ctrl+Ins", "Ctrl<Key>Insert:", "Ctrl+Insert",
        kCopyButton},
    {"Coller", "Coller", paste, "Shift+Ins", "Shift<Key>Insert:", "Shift+Insert", kPasteButton},
    {"Clear", "Supprimer", delete_selection, "", "", "", kClearButton},
}};

void on_menu(Widget, XtPointer client, XtPointer call) {
    if (!is_on_show()) return;
    static_cast<const Entry*>(client)->act(
        time_of(call != nullptr ? static_cast<XmAnyCallbackStruct*>(call)->event : nullptr));
}

void make_entry(Widget pane, const Entry& entry) {
    const grx::CompoundString label(entry.label), key(entry.shown_key);
    grx::Args args;
    args.set(XmNlabelString, label.get()).set(XmNfontList, fontlist);
    if (entry.shown_key[0] != '\0') args.set(XmNacceleratorText, key.get()).set(XmNaccelerator, entry.translation);
    grx::set_menu_look(args);
    Widget button = XmCreatePushButton(pane, const_cast<char*>(entry.name), args.list(), args.count());
    if (button == nullptr) return;
    XtAddCallback(button, XmNactivateCallback, on_menu, const_cast<Entry*>(&entry));
    XtManageChild(button);
    if (entry.key[0] != '\0') keys().add(widget_of(kMainWindow), grx::accelerator_for(button, entry.key));
    if (entry.component != kComponents) keep_widget(entry.component, button);
}

struct MenuPane {
    const char* name;
    const char* cascade;
    const char* label;
};

template <std::size_t N>
void make_pane(const MenuPane& pane, const std::array<Entry, N>& entries) {
    Widget menu = grx::make_pulldown(widget_of(kMenuBar), pane.name);
    if (menu == nullptr) return;
    for (const Entry& entry : entries) make_entry(menu, entry);
    const grx::CompoundString label(pane.label);
    grx::Args args;
    args.set(XmNlabelString, label.get()).set(XmNfontList, fontlist).set(XmNsubMenuId, menu);
    grx::set_menu_look(args);
    Widget cascade =
        XmCreateCascadeButton(widget_of(kMenuBar), const_cast<char*>(pane.cascade), args.list(), args.count());
    if (cascade != nullptr) XtManageChild(cascade);
}

void make_menu_bar() {
    grx::Args args;
    grx::set_menu_look(args);
    keep_widget(
        kMenuBar, XmCreateMenuBar(widget_of(kMainWindow), const_cast<char*>("menu_bar"), args.list(), args.count()));
    if (widget_of(kMenuBar) == nullptr) return;
    make_pane({"menu_pane1", "File", "Fichier"}, kFileEntries);
    make_pane({"menu_pane2", "Edit", "Editer"}, kEditEntries);
    XtManageChild(widget_of(kMenuBar));
}

void on_change(Widget, XtPointer, XtPointer) {
    text_file().saved = false;
}

void make_text() {
    constexpr int rows = 24, columns = 80;
    grx::Args args;
    args.set(XmNrows, rows).set(XmNcolumns, columns).set(XmNeditMode, XmMULTI_LINE_EDIT).set(XmNfontList, fontlist);
    grx::set_background(args, GRX_AUCUN);
    keep_widget(
        kText, XmCreateScrolledText(widget_of(kMainWindow), const_cast<char*>("text"), args.list(), args.count()));
    Widget text = widget_of(kText);
    if (text == nullptr) return;
    XtAddCallback(text, XmNmodifyVerifyCallback, on_change, nullptr);
    XtManageChild(text);
    XmAddTabGroup(text);
    XtSetSensitive(text, False);
    for (const Component component : {kCutButton, kCopyButton, kClearButton}) set_sensitive(component, false);
}

void on_key(Widget, XtPointer, XEvent* event, Boolean*) {
    if (event->type == KeyPress) keys().activate(*event);
}

void on_window_death(Widget w, XtPointer client, XtPointer call) {
    if (reinterpret_cast<intptr_t>(client) == generation()) grx_editeur_est_detruit(w, nullptr, call);
}

void make_main() {
    grx::Args args;
    args.set(XmNshadowThickness, 0);
    grx::set_background(args, GRX_AUCUN);
    keep_widget(
        kMainWindow, XmCreateMainWindow(widget_of(kShell), const_cast<char*>("main"), args.list(), args.count()));
    Widget main = widget_of(kMainWindow);
    if (main == nullptr) return;
    XtAddCallback(main, XmNdestroyCallback, on_window_death, reinterpret_cast<XtPointer>(generation()));
    XtAddEventHandler(main, KeyPressMask, False, on_key, nullptr);
    make_menu_bar();
    make_text();
    XtManageChild(main);
}

// A close by the window manager asks before it loses a text that is not saved.
void on_close_request(Widget shell, XtPointer, XtPointer) {
    if (text_file().saved) {
        XtDestroyWidget(shell);
    } else {
        show_dialog(kExitWarning);
    }
}

void make_shell(Widget over) {
    grx::Args args;
    args.set(XmNdeleteResponse, XmDO_NOTHING);
    grx::set_menu_look(args);
    keep_widget(kShell, XtCreatePopupShell("Editeur", transientShellWidgetClass, over, args.list(), args.count()));
    if (widget_of(kShell) == nullptr) return;
    grx::end_with_its_window(widget_of(kShell));
    const Atom close = XmInternAtom(x11_disp, const_cast<char*>("WM_DELETE_WINDOW"), False);
    XmAddWMProtocolCallback(widget_of(kShell), close, on_close_request, nullptr);
}

void put_in_the_middle(Widget shell) {
    XtRealizeWidget(shell);
    const grx::Size size = grx::size_of(shell);
    grx::Args args;
    args.set(XmNx, std::max((grx_recup_lar_ecran() - size.width) / 2, 0));
    args.set(XmNy, std::max((grx_recup_hau_ecran() - size.height) / 2, 0));
    XtSetValues(shell, args.list(), args.count());
}

void open_named(char* adr, char* name) {
    char path[HOST_CHEMIN_MAX] = "";
    if (grx::view(adr).size() + grx::view(name).size() + 2 > sizeof path) return;
    char nowhere[] = "";
    compose_adresse_fichier(adr != nullptr ? adr : nowhere, name, path);
    if (!set_file_name(path)) return;
    XFlush(x11_disp);
    show_file();
}

// Gives the caller the name under which the file was closed, when it is a new name and the file was read or written.
void give_name_back(std::string_view opened, char* adr, char* name) {
    const std::string_view closed(memo_filename);
    if (!text_file().on_disk || closed.empty() || closed == opened.substr(0, GRX_MEMO_FILENAME_MAX - 1)) return;
    const auto slash = closed.rfind('/'); // KEEP: a file of the root directory empties adr
    const bool has_directory = slash != std::string_view::npos;
    grx::copy_text(adr, GRX_MEMO_FILENAME_MAX, has_directory ? closed.substr(0, slash) : std::string_view());
    grx::copy_text(name, GRX_MEMO_FILENAME_MAX, has_directory ? closed.substr(slash + 1) : closed);
}

} // namespace

extern "C" {

INT grx_editeur(void) {
    Widget over = grx::window_widget_if_any(grx_recup_nofen_principale());
    if (!is_reserved() || is_on_show() || over == nullptr) return 0;
    set_exit_status(0);
    text_file().saved = true;
    make_shell(over);
    if (!is_on_show()) return 0;
    make_main();
    put_in_the_middle(widget_of(kShell));
    XtPopup(widget_of(kShell), XtGrabNone);
    return 0;
}

INT grx_file_editeur(char* adr, char* name) {
    if (widget_of(kText) != nullptr && !grx::view(name).empty()) open_named(adr, name);
    return 0;
}

INT grx_file_editeur_bloquant(char* adr, char* name) {
    memo_filename[0] = '\0';
    grx_file_editeur(adr, name);
    grx::Block<char> opened(HOST_CHEMIN_MAX);
    if (opened && text_file().name) grx::copy_text(opened.data(), opened.size(), text_file().name.data());
    grx::run_until([] { return !is_reserved() || !is_on_show() || grx::is_dying(widget_of(kShell)); });
    hide_editor();
    give_name_back(opened ? opened.data() : "", adr, name);
    return exit_status();
}

void grx_editeur_est_detruit(Widget, XtPointer, XtPointer) {
    forget_editor();
}
}
