// Windows and server objects as the tests of windows and events need them.
#pragma once

#include "tests/support/display_test.h"

#include <X11/Xlibint.h>
#include <X11/extensions/XResproto.h>
#undef min
#undef max

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace grxtest {

// How a failed comparison shows it.
inline void PrintTo(const Area& area, std::ostream* out) {
    *out << area.width << " x " << area.height << " at " << area.x << "," << area.y;
}

inline constexpr std::array<INT, 6> all_kinds{
    GRX_FEN_BOUTONS, GRX_FEN_GRAPHIQUE, GRX_FEN_TEXTE, GRX_FEN_ALPHA, GRX_FEN_MESSAGE, GRX_FEN_MENU};

// A description with its defaults, at 100,120 from the top left of the screen when it is a window of its own.
inline GRX_FENETRE described(INT type, INT attrib = GRX_FEN_ATT_VISIBLE, INT width = 200, INT height = 150) {
    GRX_FENETRE window{};
    grx_init_fenetre(&window);
    window.type = type;
    window.attrib = attrib;
    window.x = 100;
    window.droite = width;
    window.haut = height;
    window.y = grx_recup_hau_ecran() - 120 - height;
    return window;
}

// Its number, or the result when that is not 0.
inline INT make(GRX_FENETRE window) {
    const INT result = grx_cree_fenetre(&window);
    return result == 0 ? window.nofen : result;
}

inline INT make(INT type, INT attrib = GRX_FEN_ATT_VISIBLE, INT width = 200, INT height = 150) {
    return make(described(type, attrib, width, height));
}

// A window nested in another, at x from its left and y upwards from its bottom.
inline GRX_FENETRE nested_in(INT parent, INT type, INT x = 10, INT y = 20, INT width = 60, INT height = 40) {
    GRX_FENETRE window = described(type, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_FILLE, width, height);
    window.x = x;
    window.y = y;
    window.fen_mere = parent;
    return window;
}

inline Widget widget_of(INT nofen) {
    return grx_recup_objet_fen(nofen);
}
inline Widget shell_of(INT nofen) {
    return grx_recherche_shell(grx_recup_objet_fen(nofen));
}
inline Window x_window(INT nofen) {
    return XtWindow(widget_of(nofen));
}

inline STRUCTURE_FENETRE& record_of(INT nofen) {
    STRUCTURE_FENETRE* record = nullptr;
    grx_recup_structure_fenetre(nofen, &record);
    return *record;
}

inline char* writable(const char* text) {
    return const_cast<char*>(text);
}

// Value of a resource, of the width that the resource has.
template <class T>
T resource(Widget widget, const char* name) {
    T value{};
    XtVaGetValues(widget, name, &value, nullptr);
    return value;
}

inline std::vector<Widget> children_of(Widget parent) {
    WidgetList list = nullptr;
    Cardinal count = 0;
    XtVaGetValues(parent, XmNchildren, &list, XmNnumChildren, &count, nullptr);
    return {list, list + count};
}

inline std::string text_resource(Widget widget, const char* name) {
    XmString value = nullptr;
    XtVaGetValues(widget, name, &value, nullptr);
    if (!value) return "(none)";
    char* text =
        static_cast<char*>(XmStringUnparse(value, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
    std::string result = text ? text : "(none)";
    XtFree(text);
    XmStringFree(value);
    return result;
}

// Place and size of a window as the server knows them: from the top left of the root.
inline Area server_area(Display* display, Window window) {
    XWindowAttributes attributes{};
    if (!XGetWindowAttributes(display, window, &attributes)) return {};
    Area result{0, 0, attributes.width, attributes.height};
    Window child = None;
    XTranslateCoordinates(display, window, DefaultRootWindow(display), 0, 0, &result.x, &result.y, &child);
    return result;
}

inline std::vector<Window> children_of(Display* display, Window window) {
    Window root = None, parent = None, *list = nullptr;
    unsigned count = 0;
    if (!XQueryTree(display, window, &root, &parent, &list, &count)) return {};
    std::vector<Window> result(list, list + count);
    if (list) XFree(list);
    return result;
}

inline void gather_windows(Display* display, Window window, std::vector<Window>& into) {
    into.push_back(window);
    for (Window child : children_of(display, window)) gather_windows(display, child, into);
}

// How many objects of each kind ("PIXMAP", "WINDOW", "GC", "CURSOR"...) a client owns on the server.
inline std::map<std::string, unsigned> server_resources(Display* asker, Window of_client) {
    std::map<std::string, unsigned> result;
    int opcode = 0, event = 0, error = 0;
    if (!XQueryExtension(asker, XRES_NAME, &opcode, &event, &error)) return result;
    Display* dpy = asker;
    xXResQueryClientResourcesReq* req = nullptr;
    xXResQueryClientResourcesReply rep;
    std::vector<xXResType> types;
    LockDisplay(dpy);
    req = static_cast<xXResQueryClientResourcesReq*>(
        _XGetRequest(dpy, static_cast<CARD8>(opcode), sz_xXResQueryClientResourcesReq));
    req->XResReqType = X_XResQueryClientResources;
    req->xid = static_cast<CARD32>(of_client);
    if (_XReply(dpy, reinterpret_cast<xReply*>(&rep), 0, xFalse)) {
        types.resize(rep.num_types);
        _XRead(dpy, reinterpret_cast<char*>(types.data()), static_cast<long>(types.size() * sizeof(xXResType)));
    }
    UnlockDisplay(dpy);
    for (const auto& type : types) {
        char* name = XGetAtomName(asker, type.resource_type);
        result[name] = type.count;
        XFree(name);
    }
    return result;
}

// As the window manager asks a window to close.
inline void ask_to_close(Display* display, Window shell) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = shell;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(display, shell, False, NoEventMask, &event);
    XSync(display, False);
}

// A record whose every byte is 0x5A, to see which fields a function writes.
inline constexpr INT untouched = 0x5A5A5A5A;
inline GRX_EVENEMENT patterned_event() {
    GRX_EVENEMENT event;
    std::memset(static_cast<void*>(&event), 0x5A, sizeof event);
    return event;
}

// A record as it is when the first handler of an event writes into it: old contents, and what each turn begins with.
inline GRX_EVENEMENT old_record() {
    GRX_EVENEMENT record = patterned_event();
    grx_init_evenement(&record);
    return record;
}

inline testing::AssertionResult same_record(const GRX_EVENEMENT& expected, const GRX_EVENEMENT& actual) {
    const auto* a = reinterpret_cast<const unsigned char*>(&expected);
    const auto* b = reinterpret_cast<const unsigned char*>(&actual);
    const auto differing = std::mismatch(a, a + sizeof expected, b).first - a;
    if (static_cast<std::size_t>(differing) == sizeof expected) return testing::AssertionSuccess();
    const auto field = static_cast<std::size_t>(differing) / sizeof(INT);
    INT wanted = 0, got = 0;
    std::memcpy(&wanted, a + field * sizeof(INT), sizeof wanted);
    std::memcpy(&got, b + field * sizeof(INT), sizeof got);
    return testing::AssertionFailure() << "number " << field << " of the record is " << got << ", expected " << wanted;
}

} // namespace grxtest
