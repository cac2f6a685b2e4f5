// Texts, list entries and scale values of controls, written and read by the application.
#pragma once

#include <X11/Intrinsic.h>
#include <Xm/Text.h>
#include <Xm/Xm.h>

#include "toolkit/locale_text.h"

namespace grx {

/// The text of a field in the application's encoding; freed with the object.
class FieldContent {
  public:
    FieldContent(Widget w, INT nobou);
    FieldContent(const FieldContent&) = delete;
    FieldContent& operator=(const FieldContent&) = delete;
    ~FieldContent() { XtFree(text_); }
    const char* c_str() const { return encoded_.c_str(); }

  private:
    char* text_;
    ApplicationText encoded_;
};
void note_encoding(INT nobou, const char* text); // the text that a field was given last

} // namespace grx
