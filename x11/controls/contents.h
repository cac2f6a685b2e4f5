// The texts of fields in the encoding of the application, for the functions that make controls and report their events.
#pragma once

#include <X11/Intrinsic.h>
#include <Xm/Text.h>
#include <Xm/Xm.h>

#include "toolkit/locale_text.h"

namespace grx {

/// The text of a field in the encoding of the application. The object owns it.
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

/// Remembers the encoding of the text that a field was given.
void note_encoding(INT nobou, const char* text);

} // namespace grx
