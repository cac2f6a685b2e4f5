// Decides what the menus do with a key: of the main window, of another window, or one that was forwarded and comes
// back.
#include "menus/menu_keys.h"

#include <Xm/Separator.h>
#include <Xm/Xm.h>

#include "system/never_destroyed.h"
#include "display/pixmaps.h"
#include "toolkit/args.h"
#include "events/input.h"
#include "events/layout_groups.h"
#include "registry/window_table.h"
#include "menus/accelerators.h"
#include "menus/entry_states.h"
#include "menus/forwarded_keys.h"
#include "menus/menu_keys_state.h"
#include "menus/menu_widgets.h"
#include "menus/posted_menu.h"
#include "menus/forget_menus.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"

namespace grx {

XEvent evt_menu{};

} // namespace grx

namespace {

grx::NeverDestroyed<grx::AcceleratorTable> lasting_accelerators;
grx::AcceleratorTable& accelerators = lasting_accelerators.value;
grx::ForwardedKeys forwarded;

bool opening_menu = false;    // open_menu() has a key on its way to the bar
unsigned int opening_key = 0; // that opened a menu and is not released yet

bool (*first_to_see)(const XKeyEvent& event, bool of_entry) = nullptr;
bool (*keeper)(const XKeyEvent& event) = nullptr; // knows keys that the widget with the focus has before the menus

// The toolkit's own dispatchers of keys and of new keyboard layouts.
XtEventDispatchProc dispatch_press = nullptr;
XtEventDispatchProc dispatch_release = nullptr;
XtEventDispatchProc dispatch_mapping = nullptr;

Window main_x_window() {
    return grx::window_of(grx::window_widget_if_any(grx_recup_nofen_principale()));
}

// -- which menu or entry a key is for

grx::MenuKey key_of_menu(Widget cascade) {
    const auto symbol = grx::resource<KeySym>(cascade, XmNmnemonic, NoSymbol);
    return {symbol, Mod1Mask, symbol != NoSymbol ? grx::places_of(symbol) : grx::KeyPlaces{}};
}

// The menu of the bar that `match` finds for a key: each opens with Alt and its letter.
template <class Match>
Widget menu_with(const XKeyEvent& event, Match match) {
    if ((event.state & Mod1Mask) == 0) return nullptr;
    for (Widget cascade : grx::menu_cascades()) {
        if (XtParent(cascade) == grx::menu_bar() && match(key_of_menu(cascade), event)) return cascade;
    }
    return nullptr;
}

Widget menu_of(const XKeyEvent& event) {
    Widget cascade = menu_with(event, grx::matches);
    return cascade != nullptr && XtIsManaged(cascade) && XtIsSensitive(cascade) ? cascade : nullptr;
}

// Where the toolkit looks for a mnemonic: on the key of the first layout group that has it.
KeyCode known_key(Widget cascade) {
    return XKeysymToKeycode(x11_disp, grx::resource<KeySym>(cascade, XmNmnemonic, NoSymbol));
}

// -- opening and choosing

// Sends the toolkit the press and the release of the key that it knows, because its menus open at the release. The
// user's own release, which would close the menu, is then swallowed.
void open_menu(Widget cascade, const XEvent& event) {
    XEvent known = event;
    known.xkey.window = grx::window_of(grx::top_manager());
    known.xkey.keycode = known_key(cascade);
    known.xkey.state = Mod1Mask;
    opening_menu = true;
    for (const int type : {KeyPress, KeyRelease}) {
        known.type = type;
        XtDispatchEventToWidget(grx::top_manager(), &known);
    }
    opening_menu = false;
    opening_key = event.xkey.keycode;
}

bool choose_by_key(const XEvent& event) {
    XEvent key = event;
    if (accelerators.activate(key)) return true;
    Widget cascade = menu_of(event.xkey);
    if (cascade != nullptr) open_menu(cascade, event);
    return cascade != nullptr;
}

// Whether the menus have such keys from every window.
bool may_be_typed_anywhere(const XKeyEvent& event) {
    return (event.state & (ControlMask | Mod1Mask)) != 0;
}

bool is_menu_key(const XKeyEvent& event) {
    if (!may_be_typed_anywhere(event)) return false;
    return accelerators.has(event) || menu_of(event) != nullptr;
}

// True for the key of an entry that the application made insensitive, unless it chooses something else.
bool is_key_switched_off(const XKeyEvent& event) {
    return accelerators.is_of(event, grx::is_switched_off) && !accelerators.has(event) && menu_of(event) == nullptr;
}

bool is_of_entry(const XKeyEvent& event) {
    return accelerators.has(event) || accelerators.is_of(event, grx::is_switched_off);
}

bool is_of_another_group(const XKeyEvent& event) {
    if (accelerators.is_of_another_group(event)) return true;
    return menu_with(event, grx::matches_somewhere) != nullptr && menu_with(event, grx::matches) == nullptr;
}

// -- keys of the main window

Widget focus_in(Widget top) {
    Widget focus = XmGetFocusWidget(top);
    return focus != nullptr && focus != top ? focus : grx::window_widget_if_any(grx_recup_nofen_principale());
}

// Gives a key to the widget with the focus, which would have it if another layout group did not need the grab.
void pass_on(const XEvent& event, Widget focus) {
    XEvent key = event;
    Window child = None;
    if (grx::window_of(focus) == None) return;
    key.xkey.window = grx::window_of(focus);
    XTranslateCoordinates(
        x11_disp, event.xkey.window, key.xkey.window, event.xkey.x, event.xkey.y, &key.xkey.x, &key.xkey.y, &child);
    XtDispatchEventToWidget(focus, &key);
}

bool is_kept(const XKeyEvent& event) {
    return keeper != nullptr && keeper(event);
}

// Stands before the toolkit's own handler, which knows neither groups nor new layouts.
void on_key_of_bar(Widget top, XtPointer, XEvent* event, Boolean* go_on) {
    if (opening_menu || event->type != KeyPress) return;
    if (is_kept(event->xkey)) {
        *go_on = False;
        pass_on(*event, focus_in(top));
        return;
    }
    XEvent key = *event;
    grx::note_group(key.xkey);
    Widget cascade = menu_of(key.xkey);
    if (cascade != nullptr && known_key(cascade) == key.xkey.keycode) return; // the toolkit's own
    const bool taken = choose_by_key(key) || is_key_switched_off(key.xkey);
    if (!taken && !is_of_another_group(key.xkey)) return;
    *go_on = False;
    if (!taken) pass_on(key, focus_in(top));
}

// -- in the place of the toolkit's dispatchers

// Turns a key typed into an open menu into the one that the toolkit knows: that of the letter in the first layout
// group.
void follow_group(XKeyEvent& event) {
    if (!grx::has_open_menu(grx::menu_bar()) && grx::open_context_menu() == nullptr) return;
    XKeyEvent key = event;
    grx::note_group(key);
    const KeyCode known = grx::group_of(key) != 0 ? XKeysymToKeycode(x11_disp, grx::symbol_in_force(key)) : KeyCode{0};
    if (known == 0) return;
    event.keycode = known;
    event.state = XkbBuildCoreState(event.state, 0);
}

// Swallows a forwarded key that comes back: the menus have had it.
Boolean on_key_press(XEvent* event) {
    if (forwarded.take(event->xkey)) return True;
    if (event->xkey.keycode == opening_key) opening_key = 0;
    if (first_to_see != nullptr && first_to_see(event->xkey, is_of_entry(event->xkey))) return True;
    is_kept(event->xkey);
    XEvent key = *event;
    follow_group(key.xkey);
    return dispatch_press(&key);
}

Boolean on_key_release(XEvent* event) {
    if (event->xkey.keycode == opening_key) {
        opening_key = 0;
        return True;
    }
    XEvent key = *event;
    follow_group(key.xkey);
    return dispatch_release(&key);
}

// Sets a mnemonic again: the toolkit keeps the key of its letter, which may be another one now.
void look_for_mnemonic_again(Widget w) {
    if (w == nullptr || XmIsSeparator(w)) return;
    const auto symbol = grx::resource<KeySym>(w, XmNmnemonic, NoSymbol);
    if (symbol == NoSymbol || XKeysymToKeycode(x11_disp, symbol) == 0) return;
    for (const KeySym value : {KeySym{NoSymbol}, symbol}) grx::set_resource(w, XmNmnemonic, value);
}

// Follows a new keyboard layout once the toolkit has read it.
Boolean on_mapping(XEvent* event) {
    const Boolean handled = dispatch_mapping(event);
    if (grx::menu_bar() == nullptr) return handled;
    accelerators.follow_keyboard(grx::top_manager());
    for (Widget cascade : grx::menu_cascades()) look_for_mnemonic_again(cascade);
    for (Widget entry : grx::menu_entries()) look_for_mnemonic_again(entry);
    return handled;
}

void stand_before(int type, XtEventDispatchProc own, XtEventDispatchProc& toolkits) {
    const XtEventDispatchProc before = XtSetEventDispatcher(x11_disp, type, own);
    if (before != own) toolkits = before;
}

} // namespace

namespace grx {

void watch_keyboard() {
    stand_before(KeyPress, on_key_press, dispatch_press);
    stand_before(KeyRelease, on_key_release, dispatch_release);
    stand_before(MappingNotify, on_mapping, dispatch_mapping);
}

} // namespace grx

namespace {

// -- keys of other windows

void send_to_main_window(XEvent& key) {
    const Window window = main_x_window();
    if (window == None || key.xkey.window == window) return; // never forwarded twice
    key.xkey.window = window;
    grx::watch_keyboard();
    if (forwarded.add(key.xkey)) XSendEvent(x11_disp, window, True, KeyPressMask, &key);
}

} // namespace

namespace grx {

void watch_keys_of_bar(Widget top) {
    XtInsertEventHandler(top, KeyPressMask, False, on_key_of_bar, nullptr, XtListHead);
    watch_keyboard();
}

void keep_from_menus(bool (*keeps)(const XKeyEvent& event)) {
    keeper = keeps;
    if (keeps != nullptr) watch_keyboard();
}

void add_menu_key(Widget entry, const char* accelerator) {
    if (accelerator[0] != '\0' && top_manager() != nullptr)
        accelerators.add(top_manager(), accelerator_for(entry, accelerator));
}

void forget_menu_key(Widget entry) {
    accelerators.forget(entry);
}

void forget_menu_state() {
    accelerators = AcceleratorTable();
    forwarded = ForwardedKeys();
    evt_menu = XEvent{};
    opening_menu = false;
    opening_key = 0;
    dispatch_press = dispatch_release = dispatch_mapping = nullptr; // the next display has its own
}

void clear_menu_keys(Widget top) {
    accelerators.clear(top);
}

void show_presses(bool (*first)(const XKeyEvent& event, bool of_entry)) {
    first_to_see = first;
    if (first != nullptr) watch_keyboard();
}

bool forward_to_menu(const XEvent& event) {
    evt_menu = event;
    evt_menu.xkey.state &= kMenuModifiers;
    const bool chosen = main_x_window() != None && choose_by_key(event);
    send_to_main_window(evt_menu);
    return chosen;
}

bool was_forwarded(const XKeyEvent& event) {
    return forwarded.holds(event);
}

INT key_for_application(const XEvent& event, Boolean* go_on) {
    if (may_be_typed_anywhere(event.xkey) && is_key_switched_off(event.xkey)) {
        if (go_on != nullptr) *go_on = False;
        return 0;
    }
    const INT code = is_menu_key(event.xkey) ? 0 : code_of_key(event.xkey);
    if (code == 0 && forward_to_menu(event) && go_on != nullptr) *go_on = False; // a field types nothing of it
    return code;
}

} // namespace grx

extern "C" {

INT grx_envoie_dernier_evenement_a_fenetre_menu(void) {
    send_to_main_window(grx::evt_menu);
    return 0;
}
}
