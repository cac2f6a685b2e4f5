// Compound strings: their plain text, as everybody reads it who asks a label or a list.
#include "toolkit/compound_string.h"

#include <array>

#include "toolkit/args.h"

namespace grx {

namespace {

XmParseMapping mapping_of(const char* pattern, XmString substitute) {
    Args args;
    args.set(XmNpattern, pattern).set(XmNpatternType, XmCHARSET_TEXT).set(XmNsubstitute, substitute);
    XmParseMapping made = XmParseMappingCreate(args.list(), args.count());
    XmStringFree(substitute);
    return made;
}

// That the lines of a compound string have a line feed between them in a plain text, and its columns a tab. Kept: the
// toolkit loses a separator with each 255 that are made.
std::array<XmParseMapping, 2>& plain_text_mappings() {
    static std::array<XmParseMapping, 2> mappings{mapping_of("\n", XmStringSeparatorCreate()),
        mapping_of("\t", XmStringComponentCreate(XmSTRING_COMPONENT_TAB, 0, nullptr))};
    return mappings;
}

} // namespace

char* plain_text_of(XmString string) {
    auto& mappings = plain_text_mappings();
    return static_cast<char*>(XmStringUnparse(string, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, mappings.data(),
        static_cast<Cardinal>(mappings.size()), XmOUTPUT_ALL));
}

XmString string_in_columns(const char* text) {
    auto& mappings = plain_text_mappings();
    return XmStringParseText(const_cast<char*>(text), nullptr, const_cast<char*>(kFontTag), XmCHARSET_TEXT,
        mappings.data(), static_cast<Cardinal>(mappings.size()), nullptr);
}

} // namespace grx
