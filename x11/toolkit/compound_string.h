// Compound strings that free themselves.
#pragma once

#include <Xm/Xm.h>

#include <cstddef>

#include "system/block.h"

namespace grx {

/// Font-list tag of the one application font.
inline constexpr const char* kFontTag = "tag1";

/// The same font, in strings whose text is UTF-8 as the application gave it. Strings for an outline font are in UTF-8 all.
inline constexpr const char* kGivenTag = "tag2";

/// A text of the application in the encoding of its font, and the tag that tells which it had.
class FontText {
  public:
    explicit FontText(const char* text);

    char* bytes() { return converted_ ? converted_.data() : const_cast<char*>(text_); }
    char* tag() const { return const_cast<char*>(tag_); }

  private:
    const char* text_;
    const char* tag_ = kFontTag;
    Block<char> converted_;
};

/// A compound string in the application's font; freed with XmStringFree.
XmString string_in_font(const char* text);

class CompoundString {
  public:
    explicit CompoundString(const char* text) : string_(string_in_font(text)) {}
    CompoundString(const char* text, const char* tag)
        : string_(XmStringCreateLtoR(const_cast<char*>(text != nullptr ? text : ""), const_cast<char*>(tag))) {}
    CompoundString(const CompoundString&) = delete;
    CompoundString& operator=(const CompoundString&) = delete;
    ~CompoundString() { XmStringFree(string_); }

    XmString get() const { return string_; }

  private:
    XmString string_;
};

/// A compound string in the application's font whose tabs are tabs of the toolkit; freed with XmStringFree. In one that
/// is made otherwise a tab is a character of the font.
XmString string_in_columns(const char* text);

/// The text of a compound string; freed with XtFree.
char* plain_text_of(XmString string);

/// The plain text of a compound string, whatever tag it was made with.
class PlainText {
  public:
    explicit PlainText(XmString string) : text_(string != nullptr ? plain_text_of(string) : nullptr) {}
    PlainText(const PlainText&) = delete;
    PlainText& operator=(const PlainText&) = delete;
    ~PlainText() { XtFree(text_); }

    const char* c_str() const { return text_ != nullptr ? text_ : ""; }

  private:
    char* text_;
};

} // namespace grx
