#include "tests/support/host_calls.h"

#include "host_f.h"
#include "standalone/host_prive.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <utility>

namespace {
grxtest::TextFiles* files = nullptr;
grxtest::LongestPath* path = nullptr;
} // namespace

namespace grxtest {

std::optional<std::map<INT, std::string>> host_messages;

TextFiles::TextFiles(std::string content_of_all) : content(std::move(content_of_all)) {
    files = this;
}

TextFiles::~TextFiles() {
    files = nullptr;
}

LongestPath::LongestPath() {
    path = this;
}

LongestPath::~LongestPath() {
    path = nullptr;
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
    if (files) files->modes.push_back(mode);
    *file = files && !files->content.empty() ? fmemopen(files->content.data(), files->content.size(), "r")
                                             : grx_host::open_text(adr, name, mode);
    return *file ? grx_host::done : grx_host::failed;
}

extern "C" INT compose_adresse_fichier(char* adr, char* nom, char* resultat) {
    const std::string directory(grx_host::view(adr)), name(grx_host::view(nom)); // resultat may be adr
    if (path) path->bytes = std::max(path->bytes, directory.size() + 1 + name.size() + 1);
    return resultat && grx_host::join(directory, name, resultat) ? grx_host::done : grx_host::failed;
}
