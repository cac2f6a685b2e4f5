// Turns texts from the encoding of the application, Latin-1 or UTF-8, into that of the locale for the toolkit, and
// back.
#include "toolkit/locale_text.h"

#include <array>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "pure/text.h"
#include "toolkit/forget_toolkit.h"

namespace grx {

namespace {

// Set once the application has given a text that is Latin-1 in a multibyte locale: what the user types then goes
// back to it in Latin-1 as well, unless the field holds a text of the locale's own encoding.
bool application_is_latin1 = false;

// The locale of characters that the application had, while the library has put another in its place.
std::array<char, 128> former_locale{};

bool valid_in_locale(const char* text) {
    return MB_CUR_MAX == 1 || std::mbstowcs(nullptr, text, 0) != static_cast<std::size_t>(-1);
}

} // namespace

TextEncoding encoding_of(const char* text) {
    if (text == nullptr || MB_CUR_MAX == 1) return TextEncoding::Unknown;
    if (!valid_in_locale(text)) return TextEncoding::Latin1;
    constexpr unsigned char first_beyond_ascii = 0x80;
    const char* byte = text;
    while (*byte != '\0' && static_cast<unsigned char>(*byte) < first_beyond_ascii) ++byte;
    return *byte == '\0' ? TextEncoding::Unknown : TextEncoding::Locale; // ASCII is both
}

LocaleText::LocaleText(const char* text) : text_(text != nullptr ? text : "") {
    if (valid_in_locale(text_)) return;
    application_is_latin1 = true;
    convert();
}

void use_multibyte_locale() {
    if (MB_CUR_MAX > 1) return;
    std::array<char, 128> present{};
    const char* const name = std::setlocale(LC_CTYPE, nullptr);
    if (!copy_text(present.data(), present.size(), view(name))) return;
    if (std::setlocale(LC_CTYPE, "C.UTF-8") == nullptr) return;
    former_locale = present;
    application_is_latin1 = true;
}

void forget_encoding() {
    application_is_latin1 = false;
    if (former_locale[0] != '\0') std::setlocale(LC_CTYPE, former_locale.data());
    former_locale = {};
}

void LocaleText::convert() {
    const std::size_t length = std::strlen(text_);
    converted_ = Block<char>((length + 1) * MB_CUR_MAX);
    if (!converted_) return;
    std::mbstate_t state{};
    char* out = converted_.data();
    for (std::size_t i = 0; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text_[i]);
        const std::size_t written = std::wcrtomb(out, static_cast<wchar_t>(byte), &state);
        if (written == static_cast<std::size_t>(-1)) {
            *out++ = '?';
            state = {};
        } else {
            out += written;
        }
    }
    *out = '\0';
}

ApplicationText::ApplicationText(const char* text, TextEncoding given) : text_(text != nullptr ? text : "") {
    const bool latin1 = given == TextEncoding::Unknown ? application_is_latin1 : given == TextEncoding::Latin1;
    if (latin1 && MB_CUR_MAX > 1) convert();
}

void ApplicationText::convert() {
    converted_ = Block<char>(std::strlen(text_) + 1);
    if (!converted_) return;
    std::mbstate_t state{};
    const char* in = text_;
    char* out = converted_.data();
    wchar_t character = 0;
    constexpr wchar_t last_latin1 = 0xFF;
    while (const std::size_t used = std::mbrtowc(&character, in, MB_CUR_MAX, &state)) {
        if (used > MB_CUR_MAX) break; // not a character of the locale
        lossless_ = lossless_ && character <= last_latin1;
        *out++ = character <= last_latin1 ? static_cast<char>(character) : '?';
        in += used;
    }
    *out = '\0';
}

} // namespace grx
