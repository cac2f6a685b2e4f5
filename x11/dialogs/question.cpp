// The question whether a file may be replaced: asked by the file dialog and by the application.
#include "dialogs/question.h"

#include <X11/StringDefs.h>
#include <Xm/MessageB.h>
#include <Xm/Xm.h>

#include <array>
#include <cstddef>

#include "host_f.h"
#include "pure/question_text.h"
#include "pure/text.h"
#include "system/block.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/widgets.h"
#include "session/nested_loop.h"
#include "dialogs/file_parts.h"
#include "xt_f.h"

using namespace grx::file_parts;

namespace {

constexpr INT kMessageReplace = 83;

int ques_accept = kWaiting;
bool asking = false;
bool question_alive = false;

void on_question(Widget, XtPointer answer, XtPointer) {
    ques_accept = grx::number_in(answer);
}

void on_question_gone(Widget, XtPointer, XtPointer) {
    end_with(ques_accept, kGone);
}

// The parts as texts of their own; empty when memory is short.
using PartTable = grx::Block<std::array<char, HOST_MESSAGE_MAX>>;

PartTable part_table() {
    PartTable table(grx::kQuestionParts);
    const MessageText message(kMessageReplace);
    const auto parts = grx::question_parts(message.empty() ? "Replace File? -Yes -No" : message.c_str());
    for (std::size_t i = 0; i < table.size(); ++i) grx::copy_text(table[i].data(), table[i].size(), parts[i]);
    return table;
}

void set_text(grx::Args& args, const char* resource, const grx::CompoundString& string, const char* text) {
    if (text[0] != '\0') args.set(resource, string.get());
}

Widget make_question(Widget parent, const PartTable& parts) {
    const grx::CompoundString question(parts[0].data()), yes(parts[1].data()), no(parts[2].data());
    grx::Args args;
    set_modal_look(args);
    set_text(args, XmNmessageString, question, parts[0].data());
    set_text(args, XmNokLabelString, yes, parts[1].data());
    set_text(args, XmNcancelLabelString, no, parts[2].data());
    args.set(XmNdefaultButtonType, XmDIALOG_CANCEL_BUTTON); // Return loses no file
    Widget box = XmCreateQuestionDialog(parent, const_cast<char*>("question"), args.list(), args.count());
    if (box == nullptr) return nullptr;
    grx::set_resource(XtParent(box), XmNtitle, grx::resource<const char*>(grx::nearest_shell(parent), XmNtitle));
    remove(XmMessageBoxGetChild(box, XmDIALOG_HELP_BUTTON));
    XtAddCallback(box, XmNokCallback, on_question, grx::as_client_data(kAccepted));
    XtAddCallback(box, XmNcancelCallback, on_question, grx::as_client_data(kCancelled));
    XtAddCallback(box, XmNunmapCallback, on_question_gone, nullptr);
    XtAddCallback(box, XmNdestroyCallback, on_question_gone, nullptr);
    return box;
}

void on_question_death(Widget, XtPointer, XtPointer) {
    question_alive = false;
}

// Its answer; the question is on show until then.
int ask(Widget box) {
    asking = question_alive = true;
    XtAddCallback(box, XmNdestroyCallback, on_question_death, nullptr);
    grx::end_with_its_window(XtParent(box));
    XtManageChild(box);
    grx::run_until([box] { return ques_accept != kWaiting || !question_alive || grx::is_dying(box); });
    asking = false;
    end_with(ques_accept, kGone);
    const int answer = ques_accept;
    grx::take_off_screen(question_alive ? XtParent(box) : nullptr);
    if (question_alive) XtDestroyWidget(box);
    return answer;
}

} // namespace

namespace grx {

bool question_on_show() {
    return asking;
}

} // namespace grx

extern "C" {

INT question_suppression(void) {
    ques_accept = kWaiting;
    const PartTable parts = part_table();
    Widget parent = file_dialog() != nullptr && choosing() ? file_dialog() : main_widget();
    if (!parts || parent == nullptr || asking) return GRX_QUESTION_NON;
    Widget box = make_question(parent, parts);
    return box != nullptr ? ask(box) : GRX_QUESTION_NON;
}
}
