// Shell words: exactly as long as said, and read back as they were.
#include "pure/shell_quote.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

std::string unquoted(const std::string& word) {
    std::string result;
    bool quoted = false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] == '\'') {
            quoted = !quoted;
            continue;
        }
        if (!quoted && word[i] == '\\') ++i;
        result += word[i];
    }
    return quoted ? "" : result;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string word(reinterpret_cast<const char*>(data), size);
    std::string out(grx::word_length(word), '#');
    if (grx::write_word(out.data(), word) != out.data() + out.size()) std::abort();
    if (unquoted(out) != word || grx::is_plain_word(word) != (out == word)) std::abort();
    return 0;
}
