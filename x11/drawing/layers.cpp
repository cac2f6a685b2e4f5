// Shows layers above the drawing of a window and takes them off again.
#include "drawing/layers.h"

#include <X11/Intrinsic.h>
#include <X11/StringDefs.h>

#include <algorithm>
#include <utility>

#include "display/context.h"
#include "display/pixmaps.h"
#include "display/screen.h"
#include "drawing/attributes.h"
#include "drawing/layered_windows.h"
#include "drawing/receiver.h"
#include "registry/window_table.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "system/table.h"
#include "toolkit/widgets.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_ini_t.h"

namespace {

grx::NeverDestroyed<std::array<grx::LayeredWindow, GRX_NB_FENETRES>> lasting_windows;
std::array<grx::LayeredWindow, GRX_NB_FENETRES>& windows = lasting_windows.value; // by window number
grx::NeverDestroyed<grx::LayerInWork> lasting_work;

Pixmap sketch = None; // where layers are drawn over the base
grx::Size sketch_size;
GC copies = nullptr;
Drawable target = None;
XtIntervalId timer = 0;

// -- pixmaps

// Pixmaps are made without an answer: the server is asked whether it has this one.
Pixmap make_certain_pixmap(Window window, grx::Size size) {
    const Pixmap pixmap = grx::make_pixmap(window, size);
    return grx::pixmap_size(pixmap) != grx::Size{} ? pixmap : Pixmap{None};
}

bool ensure_sketch(Window window, grx::Size size) {
    if (sketch != None && sketch_size.width >= size.width && sketch_size.height >= size.height) return true;
    grx::free_pixmap(std::exchange(sketch, None));
    sketch_size = {std::max(sketch_size.width, size.width), std::max(sketch_size.height, size.height)};
    sketch = make_certain_pixmap(window, sketch_size);
    if (sketch == None) sketch_size = {};
    return sketch != None;
}

// What is on the screen is taken off it before the window is read again.
bool ensure_base(grx::LayeredWindow& w) {
    const grx::Size size = grx::size_of(w.widget);
    if (w.base != None && w.size == size) return true;
    if (w.on) grx::copy_drawable(w.base, w.window, grx::plain_copies(), w.size);
    w.on = false;
    grx::free_pixmap(std::exchange(w.base, None));
    w.size = size;
    w.base = make_certain_pixmap(w.window, size);
    return w.base != None;
}

bool ensure_pixmaps(grx::LayeredWindow& w) {
    return ensure_base(w) && ensure_sketch(w.window, w.size);
}

void copy_area(Drawable from, Drawable to, const grx::Area& area) {
    const int x = static_cast<int>(area.left), y = static_cast<int>(area.top);
    XCopyArea(x11_disp, from, to, copies, x, y, static_cast<unsigned int>(area.width()),
        static_cast<unsigned int>(area.height()), x, y);
}

// A nested window may be larger than its backing picture.
void fill_beyond_picture(INT nofen, Pixmap to, GC context, grx::Size size) {
    grx::Size held;
    grx_recup_taille_fenetre(nofen, &held.width, &held.height);
    if (held.width >= size.width && held.height >= size.height) return;
    XSetForeground(x11_disp, context, grx::drawing_pixel(grx_recup_couleur_fond()));
    grx::fill_drawable(to, context, size);
}

// The parts of the screen that cannot be read stay what the backing picture has there.
void copy_screen(INT nofen, Window window, Pixmap to, grx::Size size) {
    const STRUCTURE_FENETRE* const record = grx::window_record(nofen);
    GC const plain = grx::plain_copies();
    fill_beyond_picture(nofen, to, plain, size);
    if (record->image != nullptr && !grx::holds_dead_pixmap(nofen)) grx::copy_drawable(*record->image, to, plain, size);
    grx::copy_drawable(window, to, plain, size);
}

// -- on the screen and off it

grx::Area area_of(const grx::LayeredWindow& w) {
    return {0, 0, w.size.width, w.size.height};
}

bool has_visible(const grx::LayeredWindow& w) {
    return std::ranges::any_of(w.layers, &grx::Layer::visible);
}

grx::Touched all_visible(const grx::LayeredWindow& w) {
    grx::Touched all;
    for (const grx::Layer& layer : w.layers)
        if (layer.visible()) all.add(w, layer);
    return all;
}

// 0 for a window without layers.
INT number_of(Window window) {
    const auto* const w = std::ranges::find(windows, window, &grx::LayeredWindow::window);
    return w != windows.end() ? static_cast<INT>(w - windows.begin()) : 0;
}

void draw_layers(grx::LayeredWindow& w) {
    const grx::OnScreen on_screen;
    const Drawable former = grx::win_bidon;
    target = sketch;
    for (grx::Layer& layer : w.layers)
        if (layer.visible()) layer.content.draw(layer.shift);
    target = None;
    grx::win_bidon = former;
    grx::lift_limit();
}

void compose(grx::LayeredWindow& w, grx::Touched& touched) {
    if (touched.empty()) return;
    touched.clip_copies();
    copy_area(w.base, sketch, touched.whole());
    draw_layers(w);
    copy_area(sketch, w.window, touched.whole());
}

void put_on(grx::LayeredWindow& w) {
    if (w.on || !has_visible(w) || !ensure_pixmaps(w)) return;
    copy_screen(static_cast<INT>(&w - windows.data()), w.window, w.base, w.size);
    w.on = true;
    grx::Touched all = all_visible(w);
    compose(w, all);
}

void put_all_on(XtPointer, XtIntervalId*) {
    timer = 0;
    for (INT nofen = 1; nofen < GRX_NB_FENETRES; ++nofen) {
        grx::LayeredWindow* const w = grx::layered_window(nofen);
        if (w != nullptr) put_on(*w);
    }
}

void put_on_soon() {
    if (timer == 0) timer = XtAppAddTimeOut(contexte, 0, put_all_on, nullptr);
}

// -- beginning and end

void end_window(Widget, XtPointer client, XtPointer);

void release(grx::LayeredWindow& w) {
    if (x11_disp != nullptr) grx::free_pixmap(w.base);
    w = grx::LayeredWindow{};
    grx::layers_there = grx::layer_in_work.nofen != 0
                        || std::ranges::any_of(windows, [](const auto& other) { return other.window != None; });
}

void end_window(Widget, XtPointer client, XtPointer) {
    const auto& w = *static_cast<grx::LayeredWindow*>(client);
    const auto nofen = static_cast<INT>(&w - windows.data());
    if (grx::layer_in_work.nofen == nofen) grx::forget_layer_in_work();
    release(windows[grx::as_index(nofen)]);
}

void end_layers(grx::LayeredWindow& w) {
    if (x11_disp != nullptr) XtRemoveCallback(w.widget, XtNdestroyCallback, end_window, &w);
    release(w);
}

void forget_layers() {
    if (timer != 0) XtRemoveTimeOut(std::exchange(timer, 0));
    grx::forget_layer_in_work();
    for (grx::LayeredWindow& w : windows)
        if (w.window != None) end_layers(w);
    if (x11_disp != nullptr) {
        grx::free_pixmap(sketch);
        if (copies != nullptr) XFreeGC(x11_disp, copies);
    }
    sketch = None;
    sketch_size = {};
    copies = nullptr;
    target = None;
    grx::layers_there = false;
}

} // namespace

namespace grx {

bool layers_there = false;
LayerInWork& layer_in_work = lasting_work.value;

// -- the tables

void forget_layer_in_work() {
    layer_in_work = LayerInWork{};
}

// A number may have been given to another window, without the end of the first.
LayeredWindow* layered_window(INT nofen) {
    if (nofen < 1 || nofen >= GRX_NB_FENETRES) return nullptr;
    LayeredWindow& w = windows[as_index(nofen)];
    return w.window != None && w.widget == window_widget_if_any(nofen) ? &w : nullptr;
}

LayeredWindow* begin_layers(INT nofen) {
    LayeredWindow& w = windows[as_index(nofen)];
    if (layered_window(nofen) == nullptr) {
        if (w.window != None) end_layers(w);
        at_shut_down(forget_layers);
        w.widget = window_widget_if_any(nofen);
        w.window = window_of(w.widget);
        XtAddCallback(w.widget, XtNdestroyCallback, end_window, &w);
        layers_there = true;
    }
    if (ensure_pixmaps(w)) return &w;
    end_layers_without_content(nofen);
    return nullptr;
}

void end_layers_without_content(INT nofen) {
    LayeredWindow* const w = layered_window(nofen);
    if (w == nullptr || layer_in_work.nofen == nofen) return;
    const bool used = std::ranges::any_of(w->layers, [](const Layer& layer) { return !layer.content.empty(); });
    if (!used) end_layers(*w);
}

// -- what is touched

void Touched::add(const LayeredWindow& w, const Area& area) {
    const Area part = cut_area(area, area_of(w));
    if (part.empty() || count_ == parts_.size()) return;
    parts_[count_++] = {static_cast<short>(part.left), static_cast<short>(part.top),
        static_cast<unsigned short>(part.width()), static_cast<unsigned short>(part.height())};
    whole_ = join_areas(whole_, part);
}

void Touched::add(const LayeredWindow& w, const Layer& layer) {
    for (std::size_t i = 0; i < layer.content.area_count; ++i)
        add(w, layer.content.areas[i].moved(layer.shift.dx, layer.shift.dy));
}

void Touched::clip_copies() {
    plain_copies();
    XSetClipRectangles(x11_disp, copies, 0, 0, parts_.data(), static_cast<int>(count_), Unsorted);
}

void show_touched(LayeredWindow& w, Touched& touched) {
    if (w.on && w.size == size_of(w.widget)) {
        compose(w, touched);
    } else {
        put_on(w);
    }
}

// -- for what draws

LayerContent* layer_being_drawn(INT nofen) {
    if (nofen != layer_in_work.nofen || target != None || layered_window(nofen) == nullptr) return nullptr;
    return &layer_in_work.content;
}

Drawable layer_target() {
    return target;
}

void take_off(INT nofen) {
    LayeredWindow* const w = layered_window(nofen);
    if (w == nullptr || !w->on) return;
    Touched all = all_visible(*w);
    if (!all.empty()) {
        all.clip_copies();
        copy_area(w->base, w->window, all.whole());
    }
    w->on = false;
    if (has_visible(*w)) put_on_soon();
}

void take_layers_off_window(Drawable window) {
    if (layers_there && window != None) take_off(number_of(window));
}

void show_above(Window window, Pixmap picture, const Area& part) {
    LayeredWindow* const w = window != None ? layered_window(number_of(window)) : nullptr;
    if (w == nullptr) return;
    if (!w->on || w->size != size_of(w->widget)) {
        w->on = false; // the picture is over them
        put_on(*w);
        return;
    }
    Touched shown;
    shown.add(*w, part);
    if (shown.empty()) return;
    shown.clip_copies();
    copy_area(picture, w->base, shown.whole());
    Touched all = all_visible(*w);
    compose(*w, all);
}

CleanPicture clean_picture(INT nofen, Size size) {
    const LayeredWindow* const w = layered_window(nofen);
    if (w != nullptr && w->on && w->size == size) return {w->base, true};
    take_layers_off(nofen);
    at_shut_down(forget_layers);
    const Window window = window_of(window_widget_if_any(nofen));
    if (!ensure_sketch(window, size)) return {};
    copy_screen(nofen, window, sketch, size);
    return {sketch, false};
}

void show_all_again(INT nofen) {
    LayeredWindow* const w = layered_window(nofen);
    if (w == nullptr || !w->on) return;
    Touched all;
    all.add(*w, area_of(*w));
    compose(*w, all);
}

GC plain_copies() {
    if (copies == nullptr) {
        XGCValues values{};
        values.graphics_exposures = False;
        copies = XCreateGC(x11_disp, root_window(), GCGraphicsExposures, &values);
    }
    XSetClipMask(x11_disp, copies, None);
    return copies;
}

} // namespace grx
