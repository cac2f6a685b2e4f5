// Compound strings that free themselves.
#pragma once

#include <Xm/Xm.h>

#include "toolkit/args.h"

namespace grx {

/// Font-list tag of the one application font.
inline constexpr const char* kFontTag = "tag1";

class CompoundString {
  public:
    explicit CompoundString(const char* text) : CompoundString(text, kFontTag) {}
    CompoundString(const char* text, const char* tag)
        : string_(XmStringCreateLtoR(const_cast<char*>(text ? text : ""), const_cast<char*>(tag))) {}
    CompoundString(const CompoundString&) = delete;
    CompoundString& operator=(const CompoundString&) = delete;
    ~CompoundString() { XmStringFree(string_); }

    XmString get() const { return string_; }

  private:
    XmString string_;
};

/// That the lines of a compound string have a line feed between them in a plain text. Kept: the toolkit loses a
/// separator with each 255 that are made.
inline XmParseMapping line_feed_mapping() {
    static XmParseMapping const mapping = [] {
        XmString separator = XmStringSeparatorCreate();
        Args args;
        args.set(XmNpattern, "\n").set(XmNpatternType, XmCHARSET_TEXT).set(XmNsubstitute, separator);
        XmParseMapping made = XmParseMappingCreate(args.list(), args.count());
        XmStringFree(separator);
        return made;
    }();
    return mapping;
}

/// The text of a compound string; freed with XtFree.
inline char* plain_text_of(XmString string) {
    XmParseMapping mapping = line_feed_mapping();
    return static_cast<char*>(
        XmStringUnparse(string, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, &mapping, 1, XmOUTPUT_ALL));
}

/// The plain text of a compound string, whatever tag it was made with.
class PlainText {
  public:
    explicit PlainText(XmString string) : text_(string ? plain_text_of(string) : nullptr) {}
    PlainText(const PlainText&) = delete;
    PlainText& operator=(const PlainText&) = delete;
    ~PlainText() { XtFree(text_); }

    const char* c_str() const { return text_ ? text_ : ""; }

  private:
    char* text_;
};

} // namespace grx
