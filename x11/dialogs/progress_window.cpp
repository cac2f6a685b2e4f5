// Makes the window of work in progress and draws its bar.
#include "dialogs/progress_window.h"

#include <Xm/DrawingA.h>
#include <Xm/Form.h>
#include <Xm/Frame.h>
#include <Xm/Label.h>
#include <Xm/MessageB.h>
#include <Xm/Protocols.h>
#include <Xm/PushB.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <optional>
#include <utility>

#include "pure/button_label.h"
#include "pure/text.h"
#include "system/block.h"
#include "display/pixmaps.h"
#include "fonts/interface_font.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/option_menu.h"
#include "toolkit/widgets.h"
#include "session/nested_loop.h"
#include "dialogs/box_place.h"
#include "dialogs/box_texts.h"
#include "dialogs/file_parts.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

constexpr int kWidth = 420; // of the bar
constexpr int kSteps = 40;  // of the moving block, there and back

int bar_height() {
    constexpr int around_text = 10, without_font = 24;
    return has_interface_font() ? interface_line_height() + around_text : without_font;
}

int width_of(const char* text) {
    return interface_text_width(text);
}

// Cuts a line to the width of the bar.
void cut_to_width(char* line) {
    constexpr int margins = 8;
    std::size_t length = std::strlen(line);
    if (width_of(line) <= kWidth - margins) return;
    while (length > 3 && width_of(line) > kWidth - margins) {
        line[--length] = '\0';
        std::memcpy(line + length - 3, "...", 3);
    }
}

// The label waits for an exposure of its own to draw a new text. This comes with the next look at the events, just
// before the text after it: a text that changes with each look would never be seen.
void draw_now(Widget label) {
    if (window_of(label) == None) return;
    XEvent event{};
    event.xexpose.type = Expose;
    event.xexpose.display = x11_disp;
    event.xexpose.window = window_of(label);
    event.xexpose.width = resource<Dimension>(label, XmNwidth);
    event.xexpose.height = resource<Dimension>(label, XmNheight);
    XtDispatchEvent(&event);
}

void set_line(Widget label, const char* text) {
    Block<char> line = shown_line(text);
    if (!line) return;
    cut_to_width(line.data());
    const CompoundString string(line[0] != '\0' ? line.data() : " ");
    set_resource(label, XmNlabelString, string.get());
    draw_now(label);
}

Widget make_line(Widget form, Widget over) {
    const CompoundString blank(" ");
    Args args;
    args.set(XmNlabelString, blank.get()).set(XmNfontList, fontlist).set(XmNrecomputeSize, False);
    args.set(XmNwidth, kWidth).set(XmNalignment, XmALIGNMENT_BEGINNING).set(XmNmarginWidth, 0);
    args.set(XmNleftAttachment, XmATTACH_FORM).set(XmNrightAttachment, XmATTACH_FORM);
    args.set(XmNtopAttachment, over != nullptr ? XmATTACH_WIDGET : XmATTACH_FORM);
    if (over != nullptr) args.set(XmNtopWidget, over);
    set_menu_look(args);
    return managed(XmCreateLabel(form, const_cast<char*>("texte"), args.list(), args.count()));
}

Widget make_template(Widget parent) {
    Args args;
    file_parts::set_modal_look(args);
    args.set(XmNautoUnmanage, False).set(XmNdefaultPosition, False).set(XmNnoResize, True);
    args.set(XmNdeleteResponse, XmDO_NOTHING);
    return XmCreateTemplateDialog(parent, const_cast<char*>("avancement"), args.list(), args.count());
}

Widget make_button(Widget box, const char* given) {
    const Block<char> label = button_text(given, UsualLabel::Cancel);
    Block<char> plain(label ? label.size() : 0);
    if (!plain) return nullptr;
    plain_label(label.data(), plain.data());
    const CompoundString string(plain.data());
    Args args;
    args.set(XmNlabelString, string.get()).set(XmNfontList, fontlist);
    set_menu_look(args);
    return managed(XmCreatePushButton(box, const_cast<char*>("abandon"), args.list(), args.count()));
}

} // namespace

void ProgressWindow::on_death(Widget w, XtPointer self, XtPointer) {
    auto& window = *static_cast<ProgressWindow*>(self);
    if (window.box_ == w) window.give_back();
}

void ProgressWindow::on_expose(Widget, XtPointer self, XtPointer) {
    static_cast<ProgressWindow*>(self)->draw();
}

void ProgressWindow::on_button(Widget, XtPointer self, XtPointer) {
    const auto& window = *static_cast<ProgressWindow*>(self);
    if (window.on_cancel_ != nullptr) window.on_cancel_();
}

// What the server keeps for it. The widgets are gone, or go.
void ProgressWindow::give_back() {
    const bool connected = x11_disp != nullptr;
    if (connected && context_ != nullptr) XFreeGC(x11_disp, context_);
    if (connected && has_cell_) XFreeColors(x11_disp, x11_cmap, &fill_, 1, 0);
    *this = ProgressWindow{};
}

// Where the palette is full the bar is black.
void ProgressWindow::allocate_colour() {
    XColor cell{};
    cell.red = 0x2020;
    cell.green = 0x6060;
    cell.blue = 0xB0B0;
    has_cell_ = XAllocColor(x11_disp, x11_cmap, &cell) != 0;
    fill_ = has_cell_ ? cell.pixel : BlackPixel(x11_disp, x11_screen);
    fill_text_ = WhitePixel(x11_disp, x11_screen);
}

bool ProgressWindow::make_bar(Widget form, Widget over) {
    constexpr int gap = 6;
    Args args;
    args.set(XmNshadowType, XmSHADOW_IN).set(XmNtopAttachment, XmATTACH_WIDGET).set(XmNtopWidget, over);
    args.set(XmNtopOffset, gap).set(XmNbottomAttachment, XmATTACH_FORM).set(XmNleftAttachment, XmATTACH_FORM);
    set_menu_look(args);
    Widget frame = managed(XmCreateFrame(form, const_cast<char*>("cadre"), args.list(), args.count()));
    if (frame == nullptr) return false;
    Args size;
    size.set(XmNwidth, kWidth).set(XmNheight, bar_height());
    set_menu_look(size);
    bar_ = managed(XmCreateDrawingArea(frame, const_cast<char*>("barre"), size.list(), size.count()));
    if (bar_ != nullptr) XtAddCallback(bar_, XmNexposeCallback, on_expose, this);
    return bar_ != nullptr;
}

bool ProgressWindow::make_parts(const ProgressLook& look) {
    Args args;
    set_menu_look(args);
    Widget form = XmCreateForm(box_, const_cast<char*>("contenu"), args.list(), args.count());
    if (form == nullptr) return false;
    text_ = make_line(form, nullptr);
    detail_ = make_line(form, text_);
    if (!make_bar(form, detail_)) return false;
    XtManageChild(form);
    if (!look.can_cancel) return true;
    button_ = make_button(box_, look.cancel);
    if (button_ == nullptr) return false;
    XtAddCallback(button_, XmNactivateCallback, on_button, this);
    set_resource(box_, XmNdefaultButton, button_);
    return true;
}

bool ProgressWindow::show(const ProgressLook& look) {
    std::optional<BoxParent> parent = box_parent(look.nofen);
    if (!parent) parent = box_parent(GRX_AUCUN); // its window has gone
    box_ = make_template(parent->widget);
    if (box_ == nullptr) return false;
    XtAddCallback(box_, XmNdestroyCallback, on_death, this);
    XmAddWMProtocolCallback(shell(), XInternAtom(x11_disp, "WM_DELETE_WINDOW", False), on_button, this);
    end_with_its_window(shell());
    set_box_title(shell(), parent->widget, look.title);
    on_cancel_ = look.on_cancel;
    allocate_colour();
    if (!make_parts(look)) {
        hide();
        return false;
    }
    centre_when_mapped(box_, parent->centred_on_it);
    XtManageChild(box_);
    context_ = XCreateGC(x11_disp, window_of(bar_), 0, nullptr);
    if (fontstruct != nullptr) XSetFont(x11_disp, context_, fontstruct->fid);
    return true;
}

void ProgressWindow::hide() {
    if (box_ == nullptr) return;
    Widget former = shell();
    give_back();
    if (x11_disp == nullptr) return;
    take_off_screen(former);
    XtDestroyWidget(former);
}

void ProgressWindow::set_texts(const char* text, const char* detail) {
    if (box_ == nullptr) return;
    set_line(text_, text);
    set_line(detail_, detail);
}

void ProgressWindow::set_share(double share) {
    if (box_ == nullptr) return;
    const bool known = share >= 0;
    const int percent = known ? static_cast<int>(share * 100) : 0;
    const int step = known ? 0 : step_ % (2 * kSteps) + 1;
    const int to = known ? static_cast<int>(share * kWidth) : 0;
    if (percent == percent_ && step == step_ && to == drawn_to_) return;
    percent_ = percent;
    step_ = step;
    drawn_to_ = to;
    draw();
}

void ProgressWindow::allow_cancel(bool allowed) {
    if (box_ != nullptr && button_ != nullptr && (XtIsSensitive(button_) != False) != allowed)
        XtSetSensitive(button_, allowed ? True : False);
}

void ProgressWindow::draw() {
    if (box_ == nullptr || context_ == nullptr || window_of(bar_) == None) return;
    const int height = bar_height();
    constexpr int block = kWidth / 5;
    const int there_and_back = step_ <= kSteps ? step_ : 2 * kSteps - step_;
    const int from = step_ > 0 ? (kWidth - block) * there_and_back / kSteps : 0;
    const int to = step_ > 0 ? from + block : drawn_to_;
    const auto fill = [&](unsigned long pixel, int left, int right) {
        if (right <= left) return;
        XSetForeground(x11_disp, context_, pixel);
        XFillRectangle(x11_disp, window_of(bar_), context_, left, 0, static_cast<unsigned>(right - left),
            static_cast<unsigned>(height));
    };
    const auto trough = resource<Pixel>(bar_, XmNbackground);
    fill(trough, 0, from);
    fill(fill_, from, to);
    fill(trough, to, kWidth);
    if (step_ == 0) draw_percents(to);
}

// In the middle, white on the filled part.
void ProgressWindow::draw_percents(int filled) {
    if (!has_interface_font()) return;
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%d %%", percent_);
    const int x = (kWidth - width_of(text.data())) / 2;
    const int y = (bar_height() + interface_ascent() - interface_descent()) / 2;
    const auto part = [&](unsigned long pixel, int left, int right) {
        if (right <= left) return;
        const XRectangle clip{static_cast<short>(left), 0, static_cast<unsigned short>(right - left),
            static_cast<unsigned short>(bar_height())};
        draw_interface_text(
            window_of(bar_), context_, pixel, clip, {static_cast<short>(x), static_cast<short>(y)}, view(text.data()));
    };
    part(fill_text_, 0, filled);
    part(resource<Pixel>(bar_, XmNforeground), filled, kWidth);
    XSetClipMask(x11_disp, context_, None);
}

} // namespace grx
