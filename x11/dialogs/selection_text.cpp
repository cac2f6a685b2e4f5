// A text that another program has selected or put on the clipboard: asking its owner, for the editor.
#include "dialogs/selection_text.h"

#include <chrono>
#include <cstring>

#include "system/block.h"
#include "display/pixmaps.h"
#include "toolkit/args.h"
#include "toolkit/hidden_shell.h"
#include "events/queue.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

constexpr unsigned long kPatience = 1000; // milliseconds until a request is given up
constexpr int kPromptly = 100;            // milliseconds that a call may wait

} // namespace

SelectionText* SelectionText::asking_ = nullptr;

void SelectionText::ask(const char* selection, const Formats& formats, Time time, Receiver receiver) {
    forget();
    selection_ = XInternAtom(x11_disp, selection, False);
    formats_ = formats;
    time_ = time;
    receiver_ = receiver;
    limit_ = XtAppAddTimeOut(contexte, kPatience, give_up, this);
    ask_for(0);
    wait_for_a_ready_answer();
}

void SelectionText::forget() {
    if (limit_ != 0) XtRemoveTimeOut(limit_);
    limit_ = 0;
    ++attempt_;
}

void SelectionText::ask_for(std::size_t format) {
    format_ = format;
    const Atom target = XInternAtom(x11_disp, formats_[format], False);
    asking_ = this;
    XtGetSelectionValue(hidden_shell(), selection_, target, on_answer, as_client_data(attempt_), time_);
}

// Most owners answer at once. What is typed next stays in the queue meanwhile, so that the text comes before it.
void SelectionText::wait_for_a_ready_answer() {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::milliseconds(kPromptly);
    while (waiting()) {
        XEvent event;
        if (XCheckIfEvent(x11_disp, &event, is_ours, nullptr) == True) {
            XtDispatchEvent(&event);
            continue;
        }
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        if (left <= 0) return;
        rest_until_input(static_cast<int>(left));
    }
}

Bool SelectionText::is_ours(Display*, XEvent* event, XPointer) {
    const bool kind = event->type == SelectionNotify || event->type == PropertyNotify;
    return kind && event->xany.window == window_of(hidden_shell()) ? True : False;
}

void SelectionText::give_up(XtPointer self, XtIntervalId*) {
    static_cast<SelectionText*>(self)->limit_ = 0; // it is spent
    static_cast<SelectionText*>(self)->forget();
}

void SelectionText::on_answer(
    Widget, XtPointer attempt, Atom*, Atom* type, XtPointer value, unsigned long* length, int* format) {
    auto* const bytes = static_cast<char*>(value);
    if (number_in(attempt) == asking_->attempt_ && asking_->waiting()) {
        const bool is_text = *type != None && *type != XT_CONVERT_FAIL && bytes != nullptr && *format == 8;
        asking_->take(bytes, is_text ? *length : 0);
    }
    XtFree(bytes);
}

void SelectionText::take(const char* bytes, unsigned long length) {
    if (length == 0 && format_ + 1 < formats_.size()) return ask_for(format_ + 1);
    forget();
    Block<char> text(length + 1);
    if (!text || length == 0) return;
    std::memcpy(text.data(), bytes, length);
    receiver_(text.data());
}

} // namespace grx
