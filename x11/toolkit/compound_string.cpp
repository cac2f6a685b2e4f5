// Compound strings: their plain text, as everybody reads it who asks a label or a list.
#include "toolkit/compound_string.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "pure/text.h"
#include "pure/utf8.h"
#include "fonts/interface_font.h"
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

bool is_ascii(std::string_view text) {
    constexpr unsigned char first_beyond_ascii = 0x80;
    return std::all_of(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < first_beyond_ascii; });
}

// That of segments with this tag, of all without one.
char* plain_text_with(XmString string, const char* tag) {
    auto& mappings = plain_text_mappings();
    return static_cast<char*>(XmStringUnparse(string, const_cast<char*>(tag), XmCHARSET_TEXT, XmCHARSET_TEXT,
        mappings.data(), static_cast<Cardinal>(mappings.size()), XmOUTPUT_ALL));
}

bool has_text_with(XmString string, const char* tag) {
    char* const text = plain_text_with(string, tag);
    const bool has = !is_ascii(view(text));
    XtFree(text);
    return has;
}

// In the same place: Latin-1 is never longer.
void turn_into_latin1(char* text) {
    const std::size_t length = characters_of(text);
    write_latin1(text, text);
    text[length] = '\0';
}

} // namespace

FontText::FontText(const char* text) : text_(text != nullptr ? text : "") {
    if (outline_font() == nullptr || is_ascii(text_)) return;
    if (is_utf8(text_)) {
        tag_ = kGivenTag;
        return;
    }
    converted_ = Block<char>(utf8_size(text_) + 1);
    if (converted_) write_utf8(text_, converted_.data());
}

XmString string_in_font(const char* text) {
    FontText encoded(text);
    return XmStringCreateLtoR(encoded.bytes(), encoded.tag());
}

char* plain_text_of(XmString string) {
    char* const text = plain_text_with(string, nullptr);
    const bool may_be_converted = outline_font() != nullptr && !is_ascii(view(text)) && is_utf8(view(text));
    if (may_be_converted && has_text_with(string, kFontTag)) turn_into_latin1(text);
    return text;
}

XmString string_in_columns(const char* text) {
    auto& mappings = plain_text_mappings();
    FontText encoded(text);
    return XmStringParseText(encoded.bytes(), nullptr, encoded.tag(), XmCHARSET_TEXT, mappings.data(),
        static_cast<Cardinal>(mappings.size()), nullptr);
}

} // namespace grx
