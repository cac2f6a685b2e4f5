// Tells window managers of desktops the titles of windows in UTF-8.
#include "windows/net_titles.h"

#include <X11/IntrinsicP.h>
#include <X11/Shell.h>
#include <X11/ShellP.h>
#include <X11/Xutil.h>

#include <cstring>
#include <string_view>

#include "pure/text.h"
#include "pure/utf8.h"
#include "system/block.h"
#include "display/pixmaps.h"
#include "windows/net_atoms.h"
#include "xt_ini_t.h"

namespace {

void put(Window window, grx::NetAtom name, std::string_view text) {
    constexpr int bytes = 8;
    XChangeProperty(x11_disp, window, grx::net_atom(name), grx::net_atom(grx::NetAtom::utf8), bytes, PropModeReplace,
        reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
}

// Puts a text of the application: UTF-8 as it is, else Latin-1.
void put_plain(Window window, grx::NetAtom name, std::string_view text) {
    if (grx::is_utf8(text)) return put(window, name, text);
    grx::Block<char> converted(grx::utf8_size(text));
    if (!converted) return;
    grx::write_utf8(text, converted.data());
    put(window, name, {converted.data(), converted.size()});
}

// Puts a title that the toolkit has made of one of its own texts for the dialogs, in another encoding.
bool put_encoded(Window window, grx::NetAtom name, char* text, Atom encoding) {
    XTextProperty told{reinterpret_cast<unsigned char*>(text), encoding, 8, std::strlen(text)};
    char** list = nullptr;
    int count = 0;
    if (Xutf8TextPropertyToTextList(x11_disp, &told, &list, &count) < Success || count < 1) return false;
    put(window, name, list[0]);
    XFreeStringList(list);
    return true;
}

void put_title(Window window, grx::NetAtom name, char* text, Atom encoding) {
    if (text == nullptr) return;
    const bool compound = encoding == grx::net_atom(grx::NetAtom::compound_text);
    if (!compound || !put_encoded(window, name, text, encoding)) put_plain(window, name, text);
}

} // namespace

namespace grx {

void set_net_titles(Widget shell) {
    const Window window = window_of(shell);
    const auto& manager = reinterpret_cast<WMShellWidget>(shell)->wm;
    put_title(window, NetAtom::name, manager.title, manager.title_encoding);
    if (!XtIsTopLevelShell(shell)) return;
    const auto& top = reinterpret_cast<TopLevelShellWidget>(shell)->topLevel;
    put_title(window, NetAtom::icon_name, top.icon_name, top.icon_name_encoding);
}

bool changes_title(const Arg* args, Cardinal count) {
    for (Cardinal i = 0; i < count; ++i) {
        const std::string_view name = view(args[i].name);
        if (name == XtNtitle || name == XtNiconName) return true;
    }
    return false;
}

} // namespace grx
