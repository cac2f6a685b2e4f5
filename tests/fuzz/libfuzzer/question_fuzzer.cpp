// Questions: whatever the text, its parts lie within it, in order, without blanks around them.
#include "pure/question_text.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const char* from = text.data();
    for (const std::string_view part : grx::question_parts(text)) {
        if (part.empty()) continue;
        if (part.data() < from || part.data() + part.size() > text.data() + text.size()) std::abort();
        if (part.front() == ' ' || part.back() == ' ') std::abort();
        from = part.data() + part.size();
    }
    return 0;
}
