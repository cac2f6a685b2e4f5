// What users of other programs drag onto graphic windows that the application has opened for it: the messages of the
// drag (XDND), the content asked for, the record of the drop.
#include <X11/Xatom.h>
#include <X11/Intrinsic.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <unistd.h>
#include <utility>

#include "pure/axis.h"
#include "pure/text.h"
#include "pure/uri_list.h"
#include "pure/utf8.h"
#include "system/block.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "display/pixmaps.h"
#include "display/quiet_errors.h"
#include "system/trace.h"
#include "toolkit/widgets.h"
#include "events/added_records.h"
#include "events/selection_fetch.h"
#include "registry/window_table.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_presse_papiers.h"
#include "xt_ent_f.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"

namespace {

using grx::Block;

constexpr long kVersion = 5, kOldestVersion = 3;
constexpr std::size_t kMostTexts = 4096;

std::array<INT, GRX_NB_FENETRES> open_for{}; // what each window takes

// A drag that is over one of our shells.
struct Drag {
    Window source = None;       // None when there is none
    Window target = None;       // the shell's window
    const char* type = nullptr; // what is asked for, null when nothing suits
    INT offered = 0;            // GRX_DEPOT_..., of what the source has
    const char* text_type = nullptr;
    INT nofen = GRX_AUCUN; // where it is, GRX_AUCUN over no window that takes it
    INT kind = 0;
    INT x = 0, y = 0;
};
Drag drag;
Drag dropped; // its content is being fetched
grx::NeverDestroyed<grx::SelectionFetch> fetch;

Atom atom(const char* name) {
    return XInternAtom(x11_disp, name, False);
}

// -- what is offered

constexpr const char* kFileType = "text/uri-list";
constexpr std::array<const char*, 5> kTextTypes{
    "UTF8_STRING", "text/plain;charset=utf-8", "STRING", "TEXT", "text/plain"}; // the best first

struct Types {
    std::array<Atom, 256> atoms{};
    std::size_t count = 0;

    bool hold(const char* name) const {
        const auto end = atoms.begin() + static_cast<std::ptrdiff_t>(count);
        return std::find(atoms.begin(), end, atom(name)) != end;
    }
};

// The list that a source with more than three types has on its window; empty when the window or the list is no such.
Types types_on(Window source) {
    constexpr int atoms_format = 32;
    Types types;
    Atom type = None;
    int format = 0;
    unsigned long count = 0, left = 0;
    unsigned char* bytes = nullptr;
    const grx::QuietErrors quiet;
    const int result = XGetWindowProperty(x11_disp, source, atom("XdndTypeList"), 0,
        static_cast<long>(types.atoms.size()), False, XA_ATOM, &type, &format, &count, &left, &bytes);
    if (result == Success && type == XA_ATOM && format == atoms_format && bytes != nullptr) {
        types.count = std::min<std::size_t>(count, types.atoms.size());
        std::memcpy(types.atoms.data(), bytes, types.count * sizeof(Atom));
    }
    if (bytes != nullptr) XFree(bytes);
    return types;
}

Types types_in(const XClientMessageEvent& enter) {
    constexpr long more = 1;
    if ((enter.data.l[1] & more) != 0) return types_on(static_cast<Window>(enter.data.l[0]));
    Types types;
    for (const long type : {enter.data.l[2], enter.data.l[3], enter.data.l[4]})
        if (type != None) types.atoms[types.count++] = static_cast<Atom>(type);
    return types;
}

void note_types(const Types& types) {
    if (types.hold(kFileType)) drag.offered |= GRX_DEPOT_FICHIERS;
    const auto text =
        std::find_if(kTextTypes.begin(), kTextTypes.end(), [&](const char* name) { return types.hold(name); });
    if (text == kTextTypes.end()) return;
    drag.offered |= GRX_DEPOT_TEXTE;
    drag.text_type = *text;
}

// -- where it is

// The innermost window at a place of the screen below a window of ours; `x` and `y` become its.
Widget widget_at(Window shell, int x, int y) {
    Window at = shell, child = None;
    int in_x = 0, in_y = 0;
    constexpr int deepest = 64;
    for (int i = 0; i < deepest; ++i) {
        if (!XTranslateCoordinates(x11_disp, DefaultRootWindow(x11_disp), at, x, y, &in_x, &in_y, &child)) break;
        if (child == None) break;
        at = child;
    }
    return XtWindowToWidget(x11_disp, at);
}

// The window that a widget stands in, GRX_AUCUN for one outside of every window's work widget.
INT window_around(Widget w) {
    for (; w != nullptr && !XtIsShell(w); w = XtParent(w)) {
        const INT nofen = grx_recup_indice_fen(w);
        if (nofen > 0 && nofen < GRX_NB_FENETRES && grx_recup_objet_fen(nofen) == w) return nofen;
    }
    return GRX_AUCUN;
}

void note_place(INT nofen, int root_x, int root_y) {
    Widget work = grx_recup_objet_fen(nofen);
    Window child = None;
    int x = 0, y = 0;
    XTranslateCoordinates(x11_disp, DefaultRootWindow(x11_disp), grx::window_of(work), root_x, root_y, &x, &y, &child);
    drag.x = x;
    drag.y = grx::turn_over_y(grx::height_of(work), y);
}

// Files rather than a text, where the window takes both.
void find_window(int root_x, int root_y) {
    const INT nofen = window_around(widget_at(drag.target, root_x, root_y));
    const INT both = nofen != GRX_AUCUN ? open_for[static_cast<std::size_t>(nofen)] & drag.offered : 0;
    drag.kind = (both & GRX_DEPOT_FICHIERS) != 0 ? GRX_DEPOT_FICHIERS : both;
    drag.nofen = drag.kind != 0 ? nofen : GRX_AUCUN;
    drag.type = drag.kind == GRX_DEPOT_FICHIERS ? kFileType : drag.text_type;
    if (drag.kind != 0) note_place(nofen, root_x, root_y);
}

// -- answers

void answer(const Drag& to, const char* message, long flags, bool accepted, long action) {
    XEvent event{};
    XClientMessageEvent& told = event.xclient;
    told.type = ClientMessage;
    told.window = to.source;
    told.message_type = atom(message);
    told.format = 32;
    told.data.l[0] = static_cast<long>(to.target);
    told.data.l[1] = flags | (accepted ? 1 : 0);
    told.data.l[std::strcmp(message, "XdndStatus") == 0 ? 4 : 2] = accepted ? action : None;
    const grx::QuietErrors quiet; // the source may have died
    XSendEvent(x11_disp, to.source, False, NoEventMask, &event);
}

void answer_position() {
    constexpr long tell_every_move = 2;
    answer(drag, "XdndStatus", tell_every_move, drag.nofen != GRX_AUCUN, static_cast<long>(atom("XdndActionCopy")));
}

void answer_drop(const Drag& to, bool accepted) {
    answer(to, "XdndFinished", 0, accepted, static_cast<long>(atom("XdndActionCopy")));
}

// -- what was dropped

struct Texts {
    Block<const char*> list;
    Block<char> bytes;
    std::size_t count = 0;
};

bool make_room(Texts& texts, std::size_t most, std::size_t bytes) {
    texts.list = Block<const char*>(most);
    texts.bytes = Block<char>(bytes);
    return texts.list && texts.bytes;
}

// Every address takes no more than its bytes in the list and a zero.
bool read_addresses(std::string_view list, Texts& texts) {
    char host[256] = "";
    if (gethostname(host, sizeof host - 1) != 0) host[0] = '\0';
    if (!make_room(texts, kMostTexts, 2 * list.size() + 2)) return false;
    char* out = texts.bytes.data();
    for (std::string_view uri = grx::take_uri(list); !uri.empty() && texts.count < kMostTexts;
         uri = grx::take_uri(list)) {
        if (uri.find('\0') != std::string_view::npos) continue;
        if (!grx::path_of_uri(uri, host, out)) out[uri.copy(out, uri.size())] = '\0';
        texts.list[texts.count++] = out;
        out += std::strlen(out) + 1;
    }
    return texts.count > 0;
}

bool read_text(const grx::SelectionFetch& got, Texts& texts) {
    std::string_view text = got.bytes();
    while (!text.empty() && text.back() == '\0') text.remove_suffix(1);
    if (text.find('\0') != std::string_view::npos) return false;
    const bool utf8 = got.type() != XA_STRING && grx::is_utf8(text);
    if (!make_room(texts, 1, (utf8 ? text.size() : grx::utf8_size(text)) + 1)) return false;
    if (utf8)
        text.copy(texts.bytes.data(), text.size());
    else
        grx::write_utf8(text, texts.bytes.data());
    texts.list[texts.count++] = texts.bytes.data();
    return true;
}

bool post_drop(const Drag& drop, const Texts& texts) {
    GRX_EVENEMENT record{};
    GRX_EXEC_FONCTION& told = record.exec_fonction;
    told.type_evenement = GRX_EVT_DEPOT;
    told.nofen = drop.nofen;
    told.nobou = told.no_fo = GRX_AUCUN;
    told.valeur = drop.kind;
    grx::copy_text(told.chaine, sizeof told.chaine, grx::view(texts.list[0]));
    grx::Detail detail;
    detail.x = drop.x;
    detail.y = drop.y;
    detail.texts = texts.list.span().first(texts.count);
    return grx::post_added(record, detail);
}

bool take_content(const Drag& drop, const grx::SelectionFetch& got) {
    constexpr int bytes_format = 8;
    if (got.end() != grx::SelectionFetch::End::Complete || got.format() != bytes_format) return false;
    Texts texts;
    const bool read = drop.kind == GRX_DEPOT_FICHIERS ? read_addresses(got.bytes(), texts) : read_text(got, texts);
    return read && post_drop(drop, texts);
}

// The window may have gone or been closed meanwhile.
void on_content() {
    const Drag drop = std::exchange(dropped, Drag{});
    const bool wanted = drop.nofen != GRX_AUCUN && (open_for[static_cast<std::size_t>(drop.nofen)] & drop.kind) != 0;
    answer_drop(drop, wanted && take_content(drop, fetch.value));
    fetch.value.take_block();
}

// -- messages

void on_enter(const XClientMessageEvent& message) {
    constexpr int version_bits = 24;
    constexpr long version_mask = 0xFF;
    const long version = message.data.l[1] >> version_bits & version_mask;
    drag = Drag{};
    if (version < kOldestVersion || version > kVersion || message.data.l[0] == None) return;
    drag.source = static_cast<Window>(message.data.l[0]);
    drag.target = message.window;
    note_types(types_in(message));
}

void on_position(const XClientMessageEvent& message) {
    constexpr int x_bits = 16;
    constexpr long mask = 0xFFFF;
    find_window(static_cast<int>(message.data.l[2] >> x_bits & mask), static_cast<int>(message.data.l[2] & mask));
    answer_position();
}

void on_leave(const XClientMessageEvent&) {
    drag = Drag{};
}

// One content at a time: a second drop before the first has come is refused.
void on_drop(const XClientMessageEvent& message) {
    const Drag drop = std::exchange(drag, Drag{});
    if (drop.nofen == GRX_AUCUN || dropped.source != None) return answer_drop(drop, false);
    dropped = drop;
    fetch.value.ask(atom("XdndSelection"), atom(drop.type), static_cast<Time>(message.data.l[2]), on_content);
}

bool is_message(const XClientMessageEvent& message, const char* name) {
    return message.message_type == atom(name);
}

void on_message(Widget, XtPointer, XEvent* event, Boolean*) {
    constexpr int longs_format = 32;
    if (event->type != ClientMessage || event->xclient.format != longs_format) return;
    const XClientMessageEvent& message = event->xclient;
    if (is_message(message, "XdndEnter")) return on_enter(message);
    const bool of_drag =
        drag.source != None && message.data.l[0] == static_cast<long>(drag.source) && message.window == drag.target;
    if (!of_drag) return;
    if (is_message(message, "XdndPosition")) on_position(message);
    if (is_message(message, "XdndLeave")) on_leave(message);
    if (is_message(message, "XdndDrop")) on_drop(message);
}

// -- opening and closing

bool is_drop_of(const GRX_EVENEMENT& record, const void* nofen) {
    return record.type_evenement == GRX_EVT_DEPOT && record.exec_fonction.nofen == *static_cast<const INT*>(nofen);
}

void on_end_of_window(Widget, XtPointer client, XtPointer) {
    const INT nofen = static_cast<INT>(reinterpret_cast<intptr_t>(client));
    open_for[static_cast<std::size_t>(nofen)] = 0;
    for (Drag* at : {&drag, &dropped})
        if (at->nofen == nofen) at->nofen = GRX_AUCUN;
    grx::drop_added(is_drop_of, &nofen);
}

bool any_open_in(Widget shell) {
    for (INT nofen = 1; nofen < GRX_NB_FENETRES; ++nofen)
        if (open_for[static_cast<std::size_t>(nofen)] != 0 && grx::shell_of(nofen) == shell) return true;
    return false;
}

// Other programs look for this property where a drag comes to.
void mark_shell(Widget shell) {
    const Window window = grx::window_of(shell);
    if (window == None) return;
    if (!any_open_in(shell)) {
        XDeleteProperty(x11_disp, window, atom("XdndAware"));
        return;
    }
    const Atom version = static_cast<Atom>(kVersion);
    XChangeProperty(x11_disp, window, atom("XdndAware"), XA_ATOM, 32, PropModeReplace,
        reinterpret_cast<const unsigned char*>(&version), 1);
    XtAddEventHandler(shell, NoEventMask, True, on_message, nullptr);
}

void forget_drops() {
    fetch.value.stop();
    drag = dropped = Drag{};
    open_for.fill(0);
}

void open_window(INT nofen, INT genres) {
    Widget work = grx_recup_objet_fen(nofen);
    const auto client = reinterpret_cast<XtPointer>(static_cast<intptr_t>(nofen));
    XtRemoveCallback(work, XtNdestroyCallback, on_end_of_window, client);
    if (genres != 0) XtAddCallback(work, XtNdestroyCallback, on_end_of_window, client);
    open_for[static_cast<std::size_t>(nofen)] = genres;
    mark_shell(grx::shell_of(nofen));
}

} // namespace

extern "C" {

INT grx_affecte_depots_fenetre(INT nofen, INT genres) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "nofen", nofen);
    if (grx::window_widget(nofen) == nullptr || grx::shell_of(nofen) == nullptr)
        return grx::refused(GRX_ECHEC_NUMERO, "nofen", nofen);
    const STRUCTURE_FENETRE* const window = grx::window_record(nofen);
    if (window == nullptr || window->type != GRX_FEN_GRAPHIQUE) return grx::refused(GRX_ECHEC_GENRE, "nofen", nofen);
    if (genres < 0 || genres > (GRX_DEPOT_FICHIERS | GRX_DEPOT_TEXTE))
        return grx::refused(GRX_ECHEC_PARAMETRE, "genres", genres);
    if (genres == open_for[static_cast<std::size_t>(nofen)]) return 1;
    grx::at_shut_down(forget_drops);
    open_window(nofen, genres);
    return 1;
}

INT grx_recup_depots_fenetre(INT nofen) {
    return grx::window_widget(nofen) != nullptr ? open_for[static_cast<std::size_t>(nofen)] : GRX_DEPOT_AUCUN;
}
}
