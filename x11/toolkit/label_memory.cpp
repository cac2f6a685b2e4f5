// The text of a label, button or menu entry as it lies in memory.
#include "toolkit/label_memory.h"

#include <Xm/LabelP.h>
#include <Xm/Xm.h>

#include <cstdio>

namespace grx {

QuotedText quoted(const char* text) {
    QuotedText made{};
    if (text != nullptr && text[0] != '\0') std::snprintf(made.data(), made.size(), ", \"%.80s\"", text);
    return made;
}

QuotedText quoted_label(Widget w) {
    if (w == nullptr || !XmIsLabel(w)) return {};
    const auto label = reinterpret_cast<XmLabelWidget>(w)->label._label;
    if (label == nullptr) return {};
    auto* const text =
        static_cast<char*>(XmStringUnparse(label, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
    const QuotedText made = quoted(text);
    XtFree(text);
    return made;
}

} // namespace grx
