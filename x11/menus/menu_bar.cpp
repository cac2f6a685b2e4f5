// The menu bar of the main window, and the files it is read from.
#include "xt_prive.h"

#include <X11/StringDefs.h>
#include <Xm/BulletinB.h>
#include <Xm/CascadeB.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/Separator.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <span>
#include <string_view>
#include <utility>

#include "host_f.h"
#include "host_g.h"
#include "menus/accelerators.h"
#include "toolkit/args.h"
#include "system/block.h"
#include "menus/forwarded_keys.h"
#include "toolkit/hidden_shell.h"
#include "system/kept.h"
#include "events/keyboard.h"
#include "toolkit/option_menu.h"
#include "events/record.h"
#include "menus/posted_menu.h"
#include "toolkit/look.h"
#include "toolkit/compound_string.h"
#include "pure/menu_line.h"
#include "pure/number.h"
#include "xt_err_f.h"
#include "xt_fen_f.h"

// ---------------------------------------------------------------------------------------------------- menu files

namespace {

constexpr INT kSkipped = 1;
constexpr INT kTaken = 0;
constexpr INT kNoKeyword = -1;
constexpr INT kUnbalanced = -2;

char Debut_Menu = 0; // the zone marker has been seen

std::string_view view_of(const char* text) {
    return text != nullptr ? std::string_view(text) : std::string_view();
}

LI_MENU empty_line() {
    LI_MENU line{};
    line.mneumonic = GRX_MENU_SANS_MNEMO;
    line.itype = GRX_MENU_AUCUN;
    return line;
}

void set_label(LI_MENU& line, std::string_view text) {
    const grx::MenuLabel label = grx::menu_label(text);
    std::snprintf(line.nom_fonction, sizeof line.nom_fonction, "%.*s%.*s", static_cast<int>(label.before.size()),
        label.before.data(), static_cast<int>(label.behind.size()), label.behind.data());
    line.mneumonic = label.mnemonic.value_or(GRX_MENU_SANS_MNEMO);
}

void set_label_of_message(LI_MENU& line, INT number) {
    char text[HOST_MESSAGE_MAX] = "";
    f_mess_menu_lire(0, number, text);
    set_label(line, grx::trimmed(text));
}

INT kind_of(const grx::MenuKeyword& keyword) {
    return &keyword == &grx::kMenuKeywords.front() ? GRX_MENU_POPUP : GRX_MENU_ITEM;
}

INT decode_content(LI_MENU& line, const grx::MenuContent& content) {
    if (!content.fields) return kNoKeyword;
    const auto& [number, text, accelerator, function] = *content.fields;
    line.itype = kind_of(*content.keyword);
    if (number.empty()) {
        set_label(line, text);
    } else {
        set_label_of_message(line, grx::number_of(number));
    }
    grx::copy_text(line.accelerateur, accelerator);
    line.no_fo = grx::number_of(function);
    return kTaken;
}

} // namespace

extern "C" {

INT decode_chaine_ressource_menu(char* chaine, LI_MENU* ligne_menu) {
    return ligne_menu != nullptr ? decode_content(*ligne_menu, grx::menu_content(view_of(chaine))) : kNoKeyword;
}

INT decode_ligne_ressource_menu(char* debut, char* ligne, LI_MENU* ligne_menu, INT* ind_para) {
    if (ligne_menu == nullptr || ind_para == nullptr) return kSkipped;
    const grx::MenuLine kind = grx::menu_line(view_of(ligne), view_of(debut), Debut_Menu != 0, *ind_para);
    if (kind == grx::MenuLine::comment || kind == grx::MenuLine::skip_word) return kSkipped;
    *ligne_menu = empty_line();
    switch (kind) {
    case grx::MenuLine::zone: Debut_Menu = 1; break;
    case grx::MenuLine::opening: ++*ind_para; break;
    case grx::MenuLine::closing: --*ind_para; break;
    case grx::MenuLine::unbalanced: return kUnbalanced;
    case grx::MenuLine::content: return decode_chaine_ressource_menu(ligne, ligne_menu);
    default: break;
    }
    return kTaken;
}

INT copie_li_menu(LI_MENU* li1, LI_MENU li2) {
    if (li1 != nullptr) *li1 = li2;
    return 0;
}
}

// ------------------------------------------------------------------------------------------------------ menu bar

namespace grx {

XEvent evt_menu{};

} // namespace grx

namespace {

constexpr std::size_t kFirstEntries = 100;
constexpr int kMostMenus = 100;
constexpr int kForReading = 2;

Widget Glob_menu_bar = nullptr;
grx::Kept<grx::Block<Widget>> kept_entries;
grx::Block<Widget>& Tab_objet = kept_entries.value;
std::size_t Nb_objet = 0;
std::array<Widget, kMostMenus> Tab_cascade{};
int Nb_cascade = 0;
std::array<Widget, kMostMenus> Tab_pull{};
int Nb_pull = 0;
char Bcree = 0; // the bar is rebuilt in place
grx::Kept<grx::AcceleratorTable> kept_accelerators;
grx::AcceleratorTable& accelerators = kept_accelerators.value;
grx::ForwardedKeys forwarded;

Widget top_manager() {
    return Glob_menu_bar != nullptr ? XtParent(Glob_menu_bar) : nullptr;
}

Window main_x_window() {
    return grx::window_of(grx_recup_objet_fen(grx_recup_nofen_principale()));
}

void forget_entries() {
    Tab_objet.reset();
    Nb_objet = 0;
    Nb_cascade = Nb_pull = 0;
}

// The application may destroy what it made with grx_cree_atome.
void forget_entry(Widget entry, XtPointer, XtPointer) {
    accelerators.forget(entry);
    for (std::size_t i = 0; i < Nb_objet; ++i) {
        if (Tab_objet[i] == entry) Tab_objet[i] = nullptr;
    }
}

Widget make_cascade(Widget support, const char* text, Widget submenu) {
    const grx::CompoundString label(text);
    grx::Args args;
    args.set(XmNlabelString, label.get()).set(XmNfontList, fontlist).set(XmNsubMenuId, submenu);
    grx::set_menu_look(args);
    return XmCreateCascadeButton(support, const_cast<char*>("Fin sous_menu"), args.list(), args.count());
}

// The toolkit forgets its arrow pictures, without freeing them, when the last cascade button of a look goes: one that
// nobody sees, with the look of now, is there whenever menus are taken down.
void keep_a_cascade() {
    static Widget board = nullptr;
    static Widget spare = nullptr;
    Widget const before = spare;
    if (board == nullptr) board = XmCreateBulletinBoard(grx::hidden_shell(), const_cast<char*>("spare"), nullptr, 0);
    spare = grx_debut_sous_menu_bar(board);
    if (spare != nullptr) make_cascade(spare, " ", grx_debut_sous_menu_bar(spare));
    if (before != nullptr) XtDestroyWidget(before);
}

void forget_bar(Widget bar, XtPointer, XtPointer) {
    if (bar != Glob_menu_bar) return;
    keep_a_cascade();            // those of the bar go when all callbacks are done
    accelerators.clear(nullptr); // the grabs go with the window
    forget_entries();
    Glob_menu_bar = nullptr;
}

// -- keys of the menus

std::span<Widget> cascades() {
    return std::span(Tab_cascade).first(static_cast<std::size_t>(Nb_cascade));
}

grx::MenuKey key_of_menu(Widget cascade) {
    const auto symbol = grx::resource<KeySym>(cascade, XmNmnemonic, NoSymbol);
    return {symbol, Mod1Mask, symbol != NoSymbol ? grx::places_of(symbol) : grx::KeyPlaces{}};
}

// Those of the bar open with Alt and their letter.
template <class Match>
Widget menu_with(const XKeyEvent& event, Match match) {
    if ((event.state & Mod1Mask) == 0) return nullptr;
    for (Widget cascade : cascades()) {
        if (XtParent(cascade) == Glob_menu_bar && match(key_of_menu(cascade), event)) return cascade;
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

bool opening_menu = false;    // the key that the toolkit knows is on its way to the bar
unsigned int opening_key = 0; // whose release is still to come

// The toolkit's menus open when the key is released; the user's release would close them.
void open_menu(Widget cascade, const XEvent& event) {
    XEvent known = event;
    known.xkey.window = grx::window_of(top_manager());
    known.xkey.keycode = known_key(cascade);
    known.xkey.state = Mod1Mask;
    opening_menu = true;
    for (const int type : {KeyPress, KeyRelease}) {
        known.type = type;
        XtDispatchEventToWidget(top_manager(), &known);
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

bool is_of_another_group(const XKeyEvent& event) {
    if (accelerators.is_of_another_group(event)) return true;
    return menu_with(event, grx::matches_somewhere) != nullptr && menu_with(event, grx::matches) == nullptr;
}

Widget focus_in(Widget top) {
    Widget focus = XmGetFocusWidget(top);
    return focus != nullptr && focus != top ? focus : grx_recup_objet_fen(grx_recup_nofen_principale());
}

// A key that was grabbed for another layout group goes where it would have gone.
void pass_on(const XEvent& event, Widget focus) {
    XEvent key = event;
    Window child = None;
    if (grx::window_of(focus) == None) return;
    key.xkey.window = grx::window_of(focus);
    XTranslateCoordinates(
        x11_disp, event.xkey.window, key.xkey.window, event.xkey.x, event.xkey.y, &key.xkey.x, &key.xkey.y, &child);
    XtDispatchEventToWidget(focus, &key);
}

// Stands before the toolkit's own handler, which knows neither groups nor new layouts.
void on_key_of_bar(Widget top, XtPointer, XEvent* event, Boolean* go_on) {
    if (opening_menu || event->type != KeyPress) return;
    XEvent key = *event;
    grx::note_group(key.xkey);
    Widget cascade = menu_of(key.xkey);
    if (cascade != nullptr && known_key(cascade) == key.xkey.keycode) return; // the toolkit's own
    const bool chosen = choose_by_key(key);
    if (!chosen && !is_of_another_group(key.xkey)) return;
    *go_on = False;
    if (!chosen) pass_on(key, focus_in(top));
}

// In open menus a letter counts where the toolkit looks for it.
void follow_group(XKeyEvent& event) {
    if (!grx::has_open_menu(Glob_menu_bar)) return;
    XKeyEvent key = event;
    grx::note_group(key);
    const KeyCode known = grx::group_of(key) != 0 ? XKeysymToKeycode(x11_disp, grx::symbol_in_force(key)) : KeyCode{0};
    if (known == 0) return;
    event.keycode = known;
    event.state = XkbBuildCoreState(event.state, 0);
}

// What the toolkit does with keys, and with a new keyboard layout.
XtEventDispatchProc dispatch_press = nullptr;
XtEventDispatchProc dispatch_release = nullptr;
XtEventDispatchProc dispatch_mapping = nullptr;

// What was sent on has been to the menus: no widget types it, no record comes of it.
Boolean on_key_press(XEvent* event) {
    if (forwarded.take(event->xkey)) return True;
    if (event->xkey.keycode == opening_key) opening_key = 0;
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

// The toolkit keeps the key of a mnemonic, not its letter.
void look_for_mnemonic_again(Widget w) {
    if (w == nullptr || XmIsSeparator(w)) return;
    const auto symbol = grx::resource<KeySym>(w, XmNmnemonic, NoSymbol);
    if (symbol == NoSymbol || XKeysymToKeycode(x11_disp, symbol) == 0) return;
    for (const KeySym value : {KeySym{NoSymbol}, symbol}) grx::set_resource(w, XmNmnemonic, value);
}

// The toolkit has read the new layout when this is called.
Boolean on_mapping(XEvent* event) {
    const Boolean handled = dispatch_mapping(event);
    if (Glob_menu_bar == nullptr) return handled;
    accelerators.follow_keyboard(top_manager());
    for (Widget cascade : cascades()) look_for_mnemonic_again(cascade);
    for (Widget entry : std::span(Tab_objet.data(), Nb_objet)) look_for_mnemonic_again(entry);
    return handled;
}

void stand_before(int type, XtEventDispatchProc own, XtEventDispatchProc& toolkits) {
    const XtEventDispatchProc before = XtSetEventDispatcher(x11_disp, type, own);
    if (before != own) toolkits = before;
}

void watch_keyboard() {
    stand_before(KeyPress, on_key_press, dispatch_press);
    stand_before(KeyRelease, on_key_release, dispatch_release);
    stand_before(MappingNotify, on_mapping, dispatch_mapping);
}

// -- menu files

const char* menu_file_name() {
    switch (istate[IST_MODULE_MENU]) {
    case 0: return "MNU_COMM.DAT";
    case 1: return "MNU_MECA.DAT";
    default: return "MNU_ARCH.DAT";
    }
}

FILE* open_menu_file() {
    FILE* file = nullptr;
    char nowhere[] = "";
    char* const directory = sstate[SST_REP_MENU] != nullptr ? sstate[SST_REP_MENU] : nowhere;
    const INT result = ftext_open(&file, directory, const_cast<char*>(menu_file_name()), kForReading);
    return result == -1 ? nullptr : file;
}

bool room_for_entry() {
    if (Nb_objet < Tab_objet.size()) return true;
    return Tab_objet.resize(Tab_objet.size() == 0 ? kFirstEntries : 2 * Tab_objet.size());
}

// "Ctrl+S" -> "Ctrl<Key>S:", "F5" -> "<Key>F5:"; several modifiers stand before the key with blanks between.
void accelerator_translation(std::string_view text, char* out, std::size_t size) {
    const grx::KeyText parts = grx::split_accelerator(text);
    std::snprintf(out, size, "%.*s<Key>%.*s:", static_cast<int>(parts.modifiers.size()), parts.modifiers.data(),
        static_cast<int>(parts.key.size()), parts.key.data());
    for (char* c = out; *c != '\0' && *c != '<'; ++c) {
        if (*c == '+') *c = ' ';
    }
}

// The toolkit warns of a letter that this keyboard does not have.
KeySym mnemonic_key(char letter) {
    if (letter == GRX_MENU_SANS_MNEMO) return NoSymbol;
    const auto symbol = static_cast<KeySym>(static_cast<unsigned char>(letter));
    return XKeysymToKeycode(x11_disp, symbol) != 0 ? symbol : NoSymbol;
}

Widget make_separator(Widget parent) {
    grx::Args args;
    args.set(XmNorientation, XmHORIZONTAL);
    grx::set_menu_look(args);
    return XmCreateSeparator(parent, const_cast<char*>("Gadget_Separateur"), args.list(), args.count());
}

struct EntryText {
    const char* label;
    char accelerator[GRX_MENU_ACCE_MAX]; // as shown: up to the first comma
    char mnemonic;
};

Widget make_entry(Widget parent, const EntryText& text, INT nofo) {
    const grx::CompoundString label(text.label);
    const grx::CompoundString shown(text.accelerator);
    char translation[2 * GRX_MENU_ACCE_MAX] = "";
    grx::Args args;
    args.set(XmNlabelString, label.get()).set(XmNfontList, fontlist);
    if (text.accelerator[0] != '\0') {
        accelerator_translation(text.accelerator, translation, sizeof translation);
        args.set(XmNacceleratorText, shown.get()).set(XmNaccelerator, translation);
    }
    if (const KeySym mnemonic = mnemonic_key(text.mnemonic); mnemonic != NoSymbol)
        args.set(XmNmnemonic, mnemonic).set(XmNmnemonicCharSet, grx::kFontTag); // or it is not underlined
    grx::set_menu_look(args);
    Widget entry = XmCreatePushButton(parent, const_cast<char*>("atome"), args.list(), args.count());
    if (entry == nullptr) return nullptr;
    XtAddEventHandler(entry, ButtonPressMask, False, grx_menu_est_appuie, grx::as_client_data(nofo));
    XtAddCallback(entry, XmNactivateCallback, grx_menu_est_active, grx::as_client_data(nofo));
    if (text.accelerator[0] != '\0' && top_manager() != nullptr)
        accelerators.add(top_manager(), grx::accelerator_for(entry, text.accelerator));
    return entry;
}

// An entry or a separator in the table, not managed yet; null when it cannot be made.
Widget make_atom(const char* texte, const char* acce, char mneu, INT nofo, Widget mere) {
    if (!grx::can_hold_children(mere) || !room_for_entry()) return nullptr;
    EntryText text{texte != nullptr ? texte : "", "", mneu};
    grx::copy_text(text.accelerator, grx::first_accelerator(view_of(acce)));
    Widget entry = text.label[0] == '-' ? make_separator(mere) : make_entry(mere, text, nofo);
    if (entry == nullptr) return nullptr;
    XtAddCallback(entry, XmNdestroyCallback, forget_entry, nullptr);
    Tab_objet[Nb_objet++] = entry;
    return entry;
}

// -- building

struct Builder {
    LI_MENU top_line{};
    LI_MENU sub_line{};
    Widget top = nullptr;    // open pulldown of the bar
    Widget sub = nullptr;    // open submenu in it
    std::size_t managed = 0; // entries of Tab_objet that are: a menu is laid out when it is complete, not for each
};

Widget open_pulldown(Widget parent) {
    if (Nb_pull >= kMostMenus) return nullptr;
    Widget pulldown = grx_debut_sous_menu_bar(parent);
    if (pulldown != nullptr) Tab_pull[static_cast<std::size_t>(Nb_pull++)] = pulldown;
    return pulldown;
}

void manage_entries(Builder& b) {
    grx::by_parent(Tab_objet.span().first(Nb_objet).subspan(b.managed), XtManageChildren);
    b.managed = Nb_objet;
}

// The cascade button comes when its menu is complete, behind everything read before it.
void close_pulldown(Builder& b, Widget& pulldown, const LI_MENU& line, Widget support) {
    if (pulldown == nullptr) return;
    manage_entries(b);
    LI_MENU copy = line;
    Widget cascade = grx_fin_sous_menu_bar(copy.nom_fonction, pulldown, support);
    pulldown = nullptr;
    if (cascade == nullptr || Nb_cascade >= kMostMenus) return;
    Tab_cascade[static_cast<std::size_t>(Nb_cascade++)] = cascade;
    const KeySym mnemonic = mnemonic_key(line.mneumonic);
    if (mnemonic == NoSymbol) return;
    grx::Args args;
    args.set(XmNmnemonic, mnemonic).set(XmNmnemonicCharSet, grx::kFontTag); // or it is not underlined
    XtSetValues(cascade, args.list(), args.count());
}

void close_sub(Builder& b) {
    close_pulldown(b, b.sub, b.sub_line, b.top);
}

void close_top(Builder& b) {
    close_sub(b);
    close_pulldown(b, b.top, b.top_line, Glob_menu_bar);
}

void add_entry(LI_MENU& line, Widget pulldown) {
    if (pulldown != nullptr && line.itype == GRX_MENU_ITEM)
        make_atom(line.nom_fonction, line.accelerateur, line.mneumonic, line.no_fo, pulldown);
}

void build_in_bar(Builder& b, LI_MENU& line) {
    if (line.itype == GRX_MENU_POPUP) {
        close_top(b);
        b.top = open_pulldown(Glob_menu_bar);
        b.top_line = line;
    }
    add_entry(line, b.top);
}

void build_in_menu(Builder& b, LI_MENU& line) {
    close_sub(b); // the closing brace of a submenu comes here as well
    if (line.itype == GRX_MENU_POPUP && b.top != nullptr) {
        b.sub = open_pulldown(b.top);
        b.sub_line = line;
    }
    add_entry(line, b.top);
}

void build_line(Builder& b, LI_MENU& line, INT depth) {
    switch (depth) {
    case 1: build_in_bar(b, line); break;
    case 2: build_in_menu(b, line); break;
    case 3: add_entry(line, b.sub); break;
    default: break;
    }
}

void build_from(FILE* file) {
    Builder builder;
    LI_MENU line = empty_line();
    INT ind_para = 0;
    char text[HOST_LIGNE_MAX] = "";
    Debut_Menu = 0;
    while (ftext_lec(file, text) != 0) {
        if (decode_ligne_ressource_menu(const_cast<char*>(grx::kMenuZone.data()), text, &line, &ind_para) == kTaken)
            build_line(builder, line, ind_para);
    }
    close_top(builder);
    Debut_Menu = 0;
}

Widget make_bar(Widget parent) {
    Widget bar = grx_debut_menu_bar(parent);
    if (bar == nullptr) return nullptr;
    XtAddCallback(bar, XmNdestroyCallback, forget_bar, nullptr);
    XtInsertEventHandler(parent, KeyPressMask, False, on_key_of_bar, nullptr, XtListHead);
    watch_keyboard();
    return bar;
}

void build_bar(Widget parent, FILE* file) {
    Tab_objet = grx::Block<Widget>(kFirstEntries);
    Nb_objet = 0;
    if (Bcree == 0) {
        Nb_cascade = Nb_pull = 0;
        accelerators.clear(nullptr);
        Glob_menu_bar = make_bar(parent);
    }
    if (Glob_menu_bar == nullptr) return;
    build_from(file);
    XtManageChild(Glob_menu_bar);
}

// Of a menu that holds them still, each that goes would have the others laid out again.
void destroy_entries() {
    grx::Block<Widget> entries = std::move(Tab_objet);
    Widget* const end = std::remove(entries.begin(), entries.begin() + std::exchange(Nb_objet, 0), nullptr);
    const std::span<Widget> left{entries.begin(), end};
    grx::by_parent(left, XtUnmanageChildren);
    for (Widget entry : left) XtDestroyWidget(entry);
}

// The youngest first: the shell of a submenu goes with the menu that holds it.
template <std::size_t N>
void destroy_all(std::array<Widget, N>& widgets, int count) {
    for (int i = count - 1; i >= 0; --i) XtDestroyWidget(widgets[static_cast<std::size_t>(i)]);
}

} // namespace

namespace grx {

bool is_menu_key(const XKeyEvent& event) {
    if ((event.state & (ControlMask | Mod1Mask)) == 0) return false;
    return accelerators.has(event) || menu_of(event) != nullptr;
}

bool forward_to_menu(const XEvent& event) {
    evt_menu = event;
    evt_menu.xkey.state &= kMenuModifiers;
    const bool chosen = main_x_window() != None && choose_by_key(event);
    grx_envoie_dernier_evenement_a_fenetre_menu();
    return chosen;
}

bool was_forwarded(const XKeyEvent& event) {
    return forwarded.holds(event);
}

INT key_for_application(const XEvent& event, Boolean* go_on) {
    const INT code = is_menu_key(event.xkey) ? 0 : code_of_key(event.xkey);
    if (code == 0 && forward_to_menu(event) && go_on != nullptr) *go_on = False; // a field types nothing of it
    return code;
}

} // namespace grx

extern "C" {

INT grx_cree_menu_bar(Widget parent) {
    FILE* const file = open_menu_file();
    if (file == nullptr) {
        grx_erreur(GRX_ERR_FIC_MENU);
        return 0;
    }
    if (Bcree != 0 || grx::can_hold_children(parent)) build_bar(parent, file);
    ftext_close(file);
    return 0;
}

Widget grx_debut_menu_bar(Widget mere) {
    if (!grx::can_hold_children(mere)) return nullptr;
    grx::Args args;
    grx::set_menu_look(args);
    return XmCreateMenuBar(mere, const_cast<char*>("Menu_bar"), args.list(), args.count());
}

Widget grx_debut_sous_menu_bar(Widget mere) {
    return grx::make_pulldown(mere, "Sous_menu_bar");
}

Widget grx_fin_sous_menu_bar(char* texte, Widget mere, Widget support) {
    if (!grx::is_pulldown(mere) || !grx::can_hold_children(support)) return nullptr; // others break the toolkit
    Widget cascade = make_cascade(support, texte, mere);
    if (cascade != nullptr) XtManageChild(cascade);
    return cascade;
}

INT grx_cree_atome(char* texte, char* acce, char mneu, int nofo, Widget mere) {
    if (Widget entry = make_atom(texte, acce, mneu, nofo, mere)) XtManageChild(entry);
    return 0;
}

INT grx_fin_menu_bar(void) {
    if (Nb_objet != 0) forget_entries();
    return 0;
}

INT grx_detruit_menu_bar(void) {
    grx::close_menus(Glob_menu_bar); // the toolkit goes on with menus that go while they are open
    accelerators.clear(top_manager());
    if (Glob_menu_bar != nullptr) keep_a_cascade();
    destroy_entries();
    destroy_all(Tab_cascade, Nb_cascade);
    destroy_all(Tab_pull, Nb_pull);
    forget_entries(); // also a bar of menus without entries
    return 0;
}

INT grx_recree_menu_bar(void) {
    if (Glob_menu_bar == nullptr) return 0;
    Bcree = 1;
    grx_cree_menu_bar(nullptr);
    Bcree = 0;
    return 0;
}

Widget grx_get_Glob_menu_bar(void) {
    return Glob_menu_bar;
}

INT grx_recup_taille_menu_bar(INT, INT* lar, INT* hau) {
    const grx::Size size = Glob_menu_bar != nullptr ? grx::size_of(Glob_menu_bar) : grx::Size{};
    if (lar != nullptr) *lar = size.width;
    if (hau != nullptr) *hau = size.height;
    return 0;
}

INT grx_recup_tamenubar(void) {
    INT width = 0, height = 0;
    grx_recup_taille_menu_bar(grx_recup_nofen_principale(), &width, &height);
    return height;
}

INT grx_envoie_dernier_evenement_a_fenetre_menu(void) {
    const Window window = main_x_window();
    if (window == None || grx::evt_menu.xkey.window == window) return 0; // never forwarded twice
    grx::evt_menu.xkey.window = window;
    watch_keyboard();
    if (forwarded.add(grx::evt_menu.xkey)) XSendEvent(x11_disp, window, True, KeyPressMask, &grx::evt_menu);
    return 0;
}

void grx_menu_est_active(Widget, XtPointer client_data, XtPointer) {
    const INT nofo = grx::number_in(client_data);
    GRX_DIGIT& record = grx::post(evt_global.bouton_appui, GRX_EVT_BOUTON_APPUI, grx_recup_nofen_principale());
    record.bouton = GRX_SOURIS_GAUCHE;
    record.no_fo = nofo;
}

void grx_menu_est_appuie(Widget, XtPointer, XEvent*, Boolean*) {
    // kept as a hook
}
}
