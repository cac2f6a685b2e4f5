#include "tests/support/host_file_calls.h"

#include "host_f.h"
#include "standalone/host_prive.h"

#include <algorithm>
#include <string>

namespace {
grxtest::LongestPath* noting = nullptr;
}

// --- in front of the host ---------------------------------------------------------------------------
extern "C" INT compose_adresse_fichier(char* adr, char* nom, char* resultat) {
    const std::string directory(grx_host::view(adr)), name(grx_host::view(nom)); // resultat may be adr
    if (noting) noting->bytes = std::max(noting->bytes, directory.size() + 1 + name.size() + 1);
    return resultat && grx_host::join(directory, name, resultat) ? grx_host::done : grx_host::failed;
}

namespace grxtest {

LongestPath::LongestPath() {
    noting = this;
}

LongestPath::~LongestPath() {
    noting = nullptr;
}

} // namespace grxtest
