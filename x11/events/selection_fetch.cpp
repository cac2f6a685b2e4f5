// Asks the owner of a selection for its content: the request, its parts, its end.
#include "events/selection_fetch.h"

#include <algorithm>
#include <utility>

#include "toolkit/hidden_shell.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

constexpr std::chrono::milliseconds kPatience(1000); // for an answer, and for each part
constexpr std::chrono::seconds kPatienceForAll(30);
constexpr std::size_t kMost = std::size_t{256} << 20;

std::size_t element_size(int format) {
    constexpr int of_long = 32, bits = 8;
    return format == of_long ? sizeof(long) : static_cast<std::size_t>(format / bits);
}

} // namespace

void SelectionFetch::ask(Atom selection, Atom target, Time time, Done done) {
    stop();
    selection_ = selection;
    done_ = done;
    end_ = End::Open;
    used_ = 0;
    in_parts_ = false;
    data_.reset();
    watch();
    XConvertSelection(x11_disp, selection, target, selection, window_, time);
    XFlush(x11_disp);
    patience_ends_ = Clock::now() + kPatience;
    all_ends_ = Clock::now() + kPatienceForAll;
    if (done_ != nullptr) arm(patience());
}

// The toolkit hands over the events of the window as if they were those of a widget. A shell would not do: it takes them
// for its own and ends the program.
void SelectionFetch::watch() {
    XSetWindowAttributes attributes{};
    attributes.event_mask = PropertyChangeMask;
    window_ = XCreateWindow(
        x11_disp, DefaultRootWindow(x11_disp), 0, 0, 1, 1, 0, 0, InputOnly, CopyFromParent, CWEventMask, &attributes);
    receiver_ = XtCreateWidget("fetch", coreWidgetClass, hidden_shell(), nullptr, 0);
    XtRegisterDrawable(x11_disp, window_, receiver_);
    XtAddRawEventHandler(receiver_, PropertyChangeMask, True, on_event, this);
}

void SelectionFetch::stop() {
    const Window window = std::exchange(window_, None);
    if (window == None) return;
    if (timer_ != 0) XtRemoveTimeOut(std::exchange(timer_, 0));
    if (x11_disp == nullptr) return;
    XtRemoveRawEventHandler(receiver_, PropertyChangeMask, True, on_event, this);
    XtUnregisterDrawable(x11_disp, window);
    XtDestroyWidget(receiver_);
    XDestroyWindow(x11_disp, window);
}

int SelectionFetch::patience() const {
    const auto left = std::min(patience_ends_, all_ends_) - Clock::now();
    const auto ms = std::chrono::ceil<std::chrono::milliseconds>(left).count();
    return static_cast<int>(std::max<decltype(ms)>(ms, 0));
}

void SelectionFetch::arm(int ms) {
    timer_ = XtAppAddTimeOut(contexte, static_cast<unsigned long>(ms), on_timer, this);
}

void SelectionFetch::on_timer(XtPointer self, XtIntervalId*) {
    auto& fetch = *static_cast<SelectionFetch*>(self);
    fetch.timer_ = 0; // it is spent
    const int left = fetch.patience();
    if (left > 0)
        fetch.arm(left);
    else
        fetch.give_up();
}

void SelectionFetch::on_event(Widget, XtPointer self, XEvent* event, Boolean*) {
    auto& fetch = *static_cast<SelectionFetch*>(self);
    if (!fetch.waiting() || event->xany.window != fetch.window_) return;
    if (event->type == SelectionNotify) {
        fetch.on_answer(event->xselection);
    } else if (event->type == PropertyNotify && fetch.in_parts_) {
        const bool written = event->xproperty.state == PropertyNewValue && event->xproperty.atom == fetch.selection_;
        if (written) fetch.take_property();
    }
}

void SelectionFetch::on_answer(const XSelectionEvent& event) {
    if (in_parts_ || event.selection != selection_) return;
    if (event.property == selection_)
        take_property();
    else
        finish(End::Refused);
}

// Reading a part takes it away, which asks for the next.
void SelectionFetch::take_property() {
    constexpr std::size_t word = 4;
    Atom type = None;
    int format = 0;
    unsigned long count = 0, left = 0;
    unsigned char* bytes = nullptr;
    const int result = XGetWindowProperty(x11_disp, window_, selection_, 0, kMost / word + 1, True, AnyPropertyType,
        &type, &format, &count, &left, &bytes);
    if (result == Success && left == 0)
        take(type, format, bytes, count * element_size(format));
    else
        finish(End::NoRoom);
    if (bytes != nullptr) XFree(bytes);
}

void SelectionFetch::take(Atom type, int format, const unsigned char* bytes, std::size_t count) {
    if (type == None) { // there is nothing: a part that was read already, or an owner that has written none
        if (!in_parts_) finish(End::Refused);
        return;
    }
    patience_ends_ = Clock::now() + kPatience;
    if (!in_parts_ && type == XInternAtom(x11_disp, "INCR", False)) {
        in_parts_ = true;
        return;
    }
    type_ = type;
    format_ = format;
    if (!append(bytes, count)) return finish(End::NoRoom);
    if (!in_parts_ || count == 0) finish(End::Complete);
}

// Room is doubled, and has a zero more.
bool SelectionFetch::append(const unsigned char* bytes, std::size_t count) {
    if (count > kMost - used_) return false;
    const std::size_t needed = used_ + count + 1;
    if (needed > data_.size() && !data_.resize(std::max(needed, in_parts_ ? 2 * data_.size() : needed))) return false;
    std::copy_n(bytes, count, data_.data() + used_);
    used_ += count;
    data_[used_] = '\0';
    return true;
}

void SelectionFetch::finish(End end) {
    stop();
    end_ = end;
    if (end != End::Complete) data_.reset();
    if (end != End::Complete) used_ = 0;
    if (done_ != nullptr) done_();
}

} // namespace grx
