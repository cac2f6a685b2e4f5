#include "tests/support/host_calls.h"

#include "host_f.h"
#include "standalone/host_prive.h"

#include <cstdio>
#include <utility>

namespace {
grxtest::TextFiles* noting = nullptr;
}

namespace grxtest {

std::optional<std::map<INT, std::string>> host_messages;

TextFiles::TextFiles(std::string content_of_all) : content(std::move(content_of_all)) {
    noting = this;
}

TextFiles::~TextFiles() {
    noting = nullptr;
}

} // namespace grxtest

// --- in front of the host ---------------------------------------------------------------------------

extern "C" INT litmess(INT number, char* text) {
    const auto& messages = grxtest::host_messages;
    if (!messages) return f_me_lire(number, text);
    const auto found = messages->find(number);
    text[0] = '\0';
    if (found == messages->end()) return 0;
    text[found->second.copy(text, HOST_MESSAGE_MAX - 1)] = '\0';
    return 1;
}

extern "C" INT ftext_open(FILE** file, char* adr, char* name, INT mode) {
    if (noting) noting->modes.push_back(mode);
    *file = noting && !noting->content.empty() ? fmemopen(noting->content.data(), noting->content.size(), "r")
                                               : grx_host::open_text(adr, name, mode);
    return *file ? grx_host::done : grx_host::failed;
}
