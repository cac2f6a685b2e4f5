// Makes the frames of messages and prompts and their buttons. A long text is wrapped, a very long one scrolled.
#include "dialogs/box_parts.h"

#include <X11/keysym.h>
#include <Xm/MessageB.h>
#include <Xm/PushB.h>
#include <Xm/Text.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "pure/button_label.h"
#include "pure/text.h"
#include "pure/wrapped_text.h"
#include "fonts/interface_font.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/option_menu.h"
#include "toolkit/widgets.h"
#include "dialogs/box_place.h"
#include "dialogs/box_texts.h"
#include "dialogs/file_parts.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

constexpr std::size_t kColumns = 64;     // of a line, in average characters
constexpr std::size_t kMostInLine = 250; // characters, however narrow

// -- measuring

int line_height() {
    constexpr int without_font = 16;
    return has_interface_font() ? interface_line_height() : without_font;
}

int text_width(std::string_view text) {
    constexpr int without_font = 8;
    return has_interface_font() ? interface_text_width(text) : without_font * static_cast<int>(text.size());
}

int widest_line() {
    return std::min(text_width("n") * static_cast<int>(kColumns), DisplayWidth(x11_disp, x11_screen) * 2 / 3);
}

std::size_t most_lines() {
    return static_cast<std::size_t>(DisplayHeight(x11_disp, x11_screen) / 2 / line_height());
}

// -- the text

struct Lines {
    Block<char> text;
    std::size_t count = 0;
};

Lines wrapped(std::string_view text) {
    Lines lines{Block<char>(2 * text.size() + 1)};
    const int width = widest_line();
    const auto fits = [width](std::string_view piece) { return text_width(piece) <= width; };
    if (lines.text) lines.count = wrap_text(text, kMostInLine, fits, lines.text.data());
    return lines;
}

// Return in it is for the default button, as everywhere in a box.
void give_return_to_box(Widget text) {
    static XtTranslations const translations =
        XtParseTranslationTable("<Key>Return: activate()\n<Key>KP_Enter: activate()\n<Key>osfActivate: activate()");
    XtOverrideTranslations(text, translations);
}

// Its lines are broken already: the toolkit takes long to break very long ones.
bool add_scrolled_text(Box& box, Widget frame, const char* lines) {
    Block<char> value = typed_text(lines);
    if (!value) return false;
    Args args;
    args.set(XmNeditMode, XmMULTI_LINE_EDIT).set(XmNeditable, False);
    args.set(XmNscrollHorizontal, False).set(XmNcursorPositionVisible, False).set(XmNfontList, fontlist);
    args.set(XmNcolumns, static_cast<short>(kColumns)).set(XmNrows, static_cast<short>(most_lines() * 4 / 5));
    args.set(XmNvalue, value.data());
    set_menu_look(args);
    Widget w = XmCreateScrolledText(frame, const_cast<char*>("long_text"), args.list(), args.count());
    if (w == nullptr) return false;
    give_return_to_box(w);
    watch_mnemonics(box, w);
    XtManageChild(w);
    return true;
}

bool add_text(Box& box, Widget frame, const char* text) {
    const Block<char> shown = shown_text(text);
    if (!shown) return false;
    const Lines lines = wrapped(shown.data());
    if (!lines.text) return false;
    if (lines.count > most_lines()) return add_scrolled_text(box, frame, lines.text.data());
    const CompoundString string(lines.text.data());
    set_resource(frame, XmNmessageString, string.get());
    return true;
}

// -- the frame

Widget make_template(const BoxLook& look) {
    Args args;
    file_parts::set_modal_look(args);
    args.set(XmNautoUnmanage, False).set(XmNdefaultPosition, False).set(XmNnoResize, True);
    args.set(XmNdeleteResponse, XmDO_NOTHING).set(XmNmessageAlignment, XmALIGNMENT_BEGINNING);
    return XmCreateTemplateDialog(look.parent, const_cast<char*>("boite"), args.list(), args.count());
}

void add_picture(Box& box, Widget frame, MessageKind kind) {
    box.picture.draw(kind, frame);
    set_resource(frame, XmNsymbolPixmap, box.picture.pixmap());
}

// -- buttons

void on_button(Widget w, XtPointer client_data, XtPointer) {
    Box& box = *static_cast<Box*>(client_data);
    const auto found = std::find(box.buttons.begin(), box.buttons.end(), w);
    if (found != box.buttons.end()) answer_box(box, static_cast<INT>(found - box.buttons.begin()) + 1);
}

Widget make_button(Widget frame, const Block<char>& label, char& mnemonic) {
    Block<char> plain(label.size());
    if (!plain) return nullptr;
    mnemonic = plain_label(view(label.data()), plain.data());
    const CompoundString string(plain.data());
    constexpr int margin = 10; // so that "OK" is not a narrow one
    Args args;
    args.set(XmNlabelString, string.get()).set(XmNfontList, fontlist).set(XmNmarginWidth, margin);
    args.set(XmNnavigationType, XmTAB_GROUP);
    if (mnemonic != '\0') {
        args.set(XmNmnemonic, static_cast<KeySym>(static_cast<unsigned char>(mnemonic)));
        args.set(XmNmnemonicCharSet, kFontTag); // or it is not underlined
    }
    set_menu_look(args);
    return managed(XmCreatePushButton(frame, const_cast<char*>("choix"), args.list(), args.count()));
}

// -- keys

KeySym lower(KeySym symbol) {
    KeySym small = symbol, large = symbol;
    XConvertCase(symbol, &small, &large);
    return small;
}

// The letter of a key in the layout in force, whatever the locks.
KeySym letter_of(const XKeyEvent& event) {
    XKeyEvent plain = event;
    plain.state &= ~static_cast<unsigned int>(Mod1Mask | ControlMask | LockMask);
    std::array<char, 8> typed{};
    KeySym symbol = NoSymbol;
    XLookupString(&plain, typed.data(), static_cast<int>(typed.size()), &symbol, nullptr);
    return lower(symbol);
}

// Each button is reached by Tab; the arrows go from one to the next as well.
void move_by_arrow(const Box& box, Widget from, KeySym arrow) {
    const auto at = std::find(box.buttons.begin(), box.buttons.end(), from);
    if (at == box.buttons.end() || (arrow != XK_Left && arrow != XK_Right)) return;
    const auto count =
        static_cast<std::size_t>(std::find(box.buttons.begin(), box.buttons.end(), nullptr) - box.buttons.begin());
    const auto place = static_cast<std::size_t>(at - box.buttons.begin());
    XmProcessTraversal(box.buttons[(place + (arrow == XK_Right ? 1 : count - 1)) % count], XmTRAVERSE_CURRENT);
}

void on_key(Widget w, XtPointer client_data, XEvent* event, Boolean* go_on) {
    Box& box = *static_cast<Box*>(client_data);
    if (event->type != KeyPress) return;
    const KeySym letter = letter_of(event->xkey);
    if ((event->xkey.state & Mod1Mask) == 0) return move_by_arrow(box, w, letter);
    for (std::size_t i = 0; i < box.buttons.size(); ++i) {
        const auto mnemonic = static_cast<unsigned char>(box.mnemonics[i]);
        if (mnemonic == 0 || box.buttons[i] == nullptr || lower(mnemonic) != letter) continue;
        *go_on = False;
        return answer_box(box, static_cast<INT>(i) + 1);
    }
}

} // namespace

Widget make_box_frame(Box& box, const BoxLook& look) {
    Widget frame = make_template(look);
    if (frame == nullptr) return nullptr;
    watch_box(box, frame);
    set_box_title(XtParent(frame), look.parent, look.title);
    if (look.picture) add_picture(box, frame, *look.picture);
    return add_text(box, frame, look.text) ? frame : nullptr;
}

bool add_box_buttons(Box& box, std::span<const Block<char>> labels, INT chosen) {
    for (std::size_t i = 0; i < labels.size(); ++i) {
        if (!labels[i]) return false;
        Widget button = make_button(box.widget, labels[i], box.mnemonics[i]);
        if (button == nullptr) return false;
        box.buttons[i] = button;
        XtAddCallback(button, XmNactivateCallback, on_button, &box);
        watch_mnemonics(box, button);
    }
    Widget preferred = box.buttons[static_cast<std::size_t>(chosen - 1)];
    Args args;
    args.set(XmNdefaultButton, preferred).set(XmNinitialFocus, preferred);
    args.set(XmNcancelButton, box.buttons[static_cast<std::size_t>(box.escape - 1)]);
    XtSetValues(box.widget, args.list(), args.count());
    return true;
}

void watch_mnemonics(Box& box, Widget w) {
    XtAddEventHandler(w, KeyPressMask, False, on_key, &box);
}

} // namespace grx
