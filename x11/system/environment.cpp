// Tells the application about the machine it runs on and reads environment variables for it.
#include <array>
#include <cstdlib>
#include <string_view>
#include <unistd.h>

#include "pure/text.h"
#include "xt_uti_f.h"

extern "C" {

INT getcurrentdir(char* s) {
    if (s == nullptr) return 1;
    std::array<char, GRX_REPERTOIRE_MAX> directory{};
    const bool known = getcwd(directory.data(), directory.size()) != nullptr;
    grx::copy_text(s, directory.size(), known ? grx::view(directory.data()) : std::string_view());
    return known ? 0 : 1;
}

INT osname(void) {
    return GRX_OS_UNIX;
}

// The caller has measured the value: `contenu` has room for all of it.
INT getvarsystem(char* nom_var, char* contenu) {
    const char* const value = nom_var != nullptr ? std::getenv(nom_var) : nullptr;
    const auto text = grx::view(value);
    grx::copy_text(contenu, text.size() + 1, text);
    return value != nullptr ? 0 : 1;
}
}
