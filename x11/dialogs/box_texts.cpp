// Turns the application's texts into those of messages and prompts, and back.
#include "dialogs/box_texts.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <string_view>

#include "pure/latin1.h"
#include "pure/question_text.h"
#include "pure/text.h"
#include "pure/utf8.h"
#include "fonts/interface_font.h"
#include "dialogs/file_parts.h"

namespace grx {

namespace {

constexpr INT kMessageCancel = 1246;
constexpr INT kMessageReplace = 83; // "Replace File? -Yes -No"

bool is_shown(char c) {
    return !is_control(c) || c == '\n';
}

Block<char> copy_of(std::string_view text) {
    Block<char> copy(text.size() + 1);
    if (copy) text.copy(copy.data(), text.size());
    return copy;
}

Block<char> from_latin1(const char* text) {
    const std::string_view bytes = view(text);
    Block<char> utf8(2 * bytes.size() + 1);
    char* out = utf8.data();
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (!utf8) break;
        if (byte >= 0x80) *out++ = static_cast<char>(0xC0U | byte >> 6U);
        *out++ = static_cast<char>(byte < 0x80 ? byte : 0x80U | (byte & 0x3FU));
    }
    return utf8;
}

// Outline fonts have letters that Latin-1 lacks.
void write_shown(std::string_view text, char* out) {
    const bool lossless = outline_font() == nullptr || !is_utf8(text) || fits_latin1(text);
    if (lossless) return to_latin1(text, out);
    text.copy(out, text.size());
    out[text.size()] = '\0';
}

bool one_byte_locale() {
    return MB_CUR_MAX == 1;
}

Block<char> message_or(INT number, std::size_t part, const char* otherwise) {
    const file_parts::MessageText message(number);
    const std::string_view text = part == 0 ? view(message.c_str()) : question_parts(message.c_str())[part];
    return copy_of(text.empty() ? view(otherwise) : text);
}

Block<char> usual_text(UsualLabel usual) {
    switch (usual) {
    case UsualLabel::Ok: return message_or(file_parts::kMessageOk, 0, "OK");
    case UsualLabel::Cancel: return message_or(kMessageCancel, 0, "Annuler");
    case UsualLabel::Yes: return message_or(kMessageReplace, 1, "Oui");
    case UsualLabel::No: return message_or(kMessageReplace, 2, "Non");
    }
    return {};
}

} // namespace

Block<char> shown_text(const char* text) {
    Block<char> shown(view(text).size() + 1);
    if (!shown) return shown;
    write_shown(view(text), shown.data());
    char* const end = shown.data() + std::strlen(shown.data());
    char* const kept = std::remove(shown.data(), end, '\r');
    *kept = '\0';
    std::replace_if(
        shown.data(), kept, [](char c) { return !is_shown(c); }, ' ');
    return shown;
}

Block<char> shown_line(const char* text) {
    Block<char> line = shown_text(text);
    if (line) std::replace(line.begin(), line.end(), '\n', ' ');
    return line;
}

Block<char> typed_text(const char* text) {
    if (!one_byte_locale()) return copy_of(LocaleText(text).c_str());
    Block<char> typed(view(text).size() + 1);
    if (typed) to_latin1(view(text), typed.data());
    return typed;
}

TextEncoding encoding_among(std::initializer_list<const char*> texts) {
    for (const char* text : texts) {
        const TextEncoding told = encoding_of(text);
        if (told != TextEncoding::Unknown) return told;
        if (one_byte_locale() && is_clearly_utf8(view(text))) return TextEncoding::Locale;
    }
    return TextEncoding::Unknown;
}

Block<char> answered_text(const char* typed, TextEncoding encoding) {
    if (one_byte_locale() && encoding == TextEncoding::Locale) return from_latin1(typed);
    return copy_of(ApplicationText(typed, encoding).c_str());
}

Block<char> button_text(const char* given, UsualLabel usual) {
    constexpr std::size_t most = 40; // characters that a button can show
    const Block<char> text = view(given).empty() ? usual_text(usual) : copy_of(given);
    Block<char> label = text ? shown_line(text.data()) : Block<char>();
    if (label && std::strlen(label.data()) > most)
        std::memcpy(label.data() + whole_characters(view(label.data()), most - 3), "...", 4);
    return label;
}

} // namespace grx
