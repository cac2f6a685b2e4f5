// The question whether a file may be replaced: asked by the file dialog and by the application.
#include "dialogs/question.h"

#include <Xm/MessageB.h>
#include <Xm/Xm.h>

#include <array>
#include <cstddef>

#include "pure/question_text.h"
#include "pure/text.h"
#include "system/block.h"
#include "system/shut_down.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/widgets.h"
#include "session/nested_loop.h"
#include "dialogs/file_parts.h"
#include "host_t.h"
#include "xt_f.h"

using namespace grx::file_parts;

namespace {

constexpr INT kMessageReplace = 83;

int answer = kWaiting;
bool on_show = false;
bool alive = false;

void on_button(Widget, XtPointer chosen, XtPointer) {
    answer = grx::number_in(chosen);
}

void on_gone(Widget, XtPointer, XtPointer) {
    end_with(answer, kGone);
}

// The question and the labels of its buttons, each a text of its own; empty when memory is short.
using QuestionTexts = grx::Block<std::array<char, HOST_MESSAGE_MAX>>;

QuestionTexts question_texts() {
    QuestionTexts texts(grx::kQuestionParts);
    const MessageText message(kMessageReplace);
    const auto parts = grx::question_parts(message.empty() ? "Replace File? -Yes -No" : message.c_str());
    for (std::size_t i = 0; i < texts.size(); ++i) grx::copy_text(texts[i].data(), texts[i].size(), parts[i]);
    return texts;
}

void set_unless_empty(grx::Args& args, const char* resource, const grx::CompoundString& string, const char* text) {
    if (text[0] != '\0') args.set(resource, string.get());
}

Widget make_question(Widget parent, const QuestionTexts& texts) {
    const grx::CompoundString question(texts[0].data()), yes(texts[1].data()), no(texts[2].data());
    grx::Args args;
    set_modal_look(args);
    set_unless_empty(args, XmNmessageString, question, texts[0].data());
    set_unless_empty(args, XmNokLabelString, yes, texts[1].data());
    set_unless_empty(args, XmNcancelLabelString, no, texts[2].data());
    args.set(XmNdefaultButtonType, XmDIALOG_CANCEL_BUTTON); // Return must not lose a file
    Widget box = XmCreateQuestionDialog(parent, const_cast<char*>("question"), args.list(), args.count());
    if (box == nullptr) return nullptr;
    grx::set_resource(XtParent(box), XmNtitle, grx::resource<const char*>(grx::nearest_shell(parent), XmNtitle));
    unmanage(XmMessageBoxGetChild(box, XmDIALOG_HELP_BUTTON));
    XtAddCallback(box, XmNokCallback, on_button, grx::as_client_data(kAccepted));
    XtAddCallback(box, XmNcancelCallback, on_button, grx::as_client_data(kCancelled));
    XtAddCallback(box, XmNunmapCallback, on_gone, nullptr);
    XtAddCallback(box, XmNdestroyCallback, on_gone, nullptr);
    return box;
}

void on_death(Widget, XtPointer, XtPointer) {
    alive = false;
}

// Shows the question until there is an answer.
int answer_of(Widget box) {
    on_show = alive = true;
    XtAddCallback(box, XmNdestroyCallback, on_death, nullptr);
    grx::end_with_its_window(XtParent(box));
    XtManageChild(box);
    grx::run_until([box] { return answer != kWaiting || !alive || grx::is_dying(box); });
    on_show = false;
    end_with(answer, kGone);
    const int result = answer;
    grx::take_off_screen(alive ? XtParent(box) : nullptr);
    if (alive) XtDestroyWidget(box);
    return result;
}

void forget_question() {
    answer = kWaiting;
    alive = false;
}

} // namespace

namespace grx {

bool question_on_show() {
    return on_show;
}

} // namespace grx

extern "C" {

INT question_suppression(void) {
    grx::at_shut_down(forget_question);
    answer = kWaiting;
    const QuestionTexts texts = question_texts();
    Widget parent = one_is_on_show() && file_dialog().widget != nullptr ? file_dialog().widget : main_widget();
    if (!texts || parent == nullptr || on_show) return GRX_QUESTION_NON;
    Widget box = make_question(parent, texts);
    return box != nullptr ? answer_of(box) : GRX_QUESTION_NON;
}
}
