// Compound strings: their plain text, as everybody reads it who asks a label or a list.
#include "toolkit/compound_string.h"

#include "toolkit/args.h"

namespace grx {

namespace {

// That the lines of a compound string have a line feed between them in a plain text. Kept: the toolkit loses a
// separator with each 255 that are made.
XmParseMapping line_feed_mapping() {
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

} // namespace

char* plain_text_of(XmString string) {
    XmParseMapping mapping = line_feed_mapping();
    return static_cast<char*>(
        XmStringUnparse(string, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, &mapping, 1, XmOUTPUT_ALL));
}

} // namespace grx
