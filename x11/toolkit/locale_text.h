// Texts are bytes in the application's encoding. Where the locale is multibyte and the bytes are not valid in it,
// they are Latin-1: the toolkit would cut them at the first bad byte, so they are turned into the locale's encoding.
#pragma once

#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "system/block.h"

namespace grx {

inline bool valid_in_locale(const char* text) {
    return MB_CUR_MAX == 1 || std::mbstowcs(nullptr, text, 0) != static_cast<std::size_t>(-1);
}

/// What a text tells of its encoding.
enum class TextEncoding : char { Unknown, Locale, Latin1 };

inline TextEncoding encoding_of(const char* text) {
    if (text == nullptr || MB_CUR_MAX == 1) return TextEncoding::Unknown;
    if (!valid_in_locale(text)) return TextEncoding::Latin1;
    constexpr unsigned char first_beyond_ascii = 0x80;
    const char* byte = text;
    while (*byte != '\0' && static_cast<unsigned char>(*byte) < first_beyond_ascii) ++byte;
    return *byte == '\0' ? TextEncoding::Unknown : TextEncoding::Locale; // ASCII is both
}

/// Set once the application has given a text that is Latin-1 in a multibyte locale: what the user types then goes
/// back to it in Latin-1 as well, unless the field holds a text of the locale's own encoding.
inline bool application_is_latin1 = false;

class LocaleText {
  public:
    explicit LocaleText(const char* text) : text_(text ? text : "") {
        if (valid_in_locale(text_)) return;
        application_is_latin1 = true;
        convert();
    }
    const char* c_str() const { return converted_ ? converted_.data() : text_; }
    char* data() { return converted_ ? converted_.data() : const_cast<char*>(text_); }

  private:
    void convert() {
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

    const char* text_;
    Block<char> converted_;
};

/// A text of the toolkit in the application's encoding: that of the text it gave before, where one is known.
class ApplicationText {
  public:
    explicit ApplicationText(const char* text, TextEncoding given = TextEncoding::Unknown) : text_(text ? text : "") {
        const bool latin1 = given == TextEncoding::Unknown ? application_is_latin1 : given == TextEncoding::Latin1;
        if (latin1 && MB_CUR_MAX > 1) convert();
    }
    const char* c_str() const { return converted_ ? converted_.data() : text_; }
    /// False when a character of the text had none in the application's encoding.
    bool lossless() const { return lossless_; }

  private:
    void convert() {
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

    const char* text_;
    Block<char> converted_;
    bool lossless_ = true;
};

} // namespace grx
