// Texts are bytes in the application's encoding. Where the locale is multibyte and the bytes are not valid in it,
// they are Latin-1: the toolkit would cut them at the first bad byte, so they are turned into the locale's encoding.
#pragma once

#include "system/block.h"

namespace grx {

/// Has the process take a locale in which texts are UTF-8, when characters have one byte in the present one: the toolkit
/// draws outline fonts in UTF-8 only. The application's texts are then taken for Latin-1.
void use_multibyte_locale();

/// What a text tells of its encoding.
enum class TextEncoding : char { Unknown, Locale, Latin1 };

TextEncoding encoding_of(const char* text);

/// A text of the application in the locale's encoding.
class LocaleText {
  public:
    explicit LocaleText(const char* text);
    const char* c_str() const { return converted_ ? converted_.data() : text_; }
    char* data() { return converted_ ? converted_.data() : const_cast<char*>(text_); }

  private:
    void convert();

    const char* text_;
    Block<char> converted_;
};

/// A text of the toolkit in the application's encoding: that of the text it gave before, where one is known.
class ApplicationText {
  public:
    explicit ApplicationText(const char* text, TextEncoding given = TextEncoding::Unknown);
    const char* c_str() const { return converted_ ? converted_.data() : text_; }
    /// False when a character of the text had none in the application's encoding.
    bool lossless() const { return lossless_; }

  private:
    void convert();

    const char* text_;
    Block<char> converted_;
    bool lossless_ = true;
};

} // namespace grx
