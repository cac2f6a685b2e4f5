#include "tests/support/host_calls.h"

#include "host_f.h"
#include "standalone/host_prive.h"

#include <cstdio>
#include <cstring>

namespace grxtest {

std::optional<std::map<INT, std::string>> host_messages;
std::vector<INT> text_modes_asked;
const char* sizeless_text = nullptr;

} // namespace grxtest

using namespace grxtest;

extern "C" INT litmess(INT number, char* text) {
    if (!host_messages) return f_me_lire(number, text);
    const auto found = host_messages->find(number);
    text[0] = '\0';
    if (found == host_messages->end()) return 0;
    text[found->second.copy(text, HOST_MESSAGE_MAX - 1)] = '\0';
    return 1;
}

extern "C" INT ftext_open(FILE** file, char* adr, char* name, INT mode) {
    text_modes_asked.push_back(mode);
    *file = sizeless_text ? fmemopen(const_cast<char*>(sizeless_text), std::strlen(sizeless_text), "r")
                          : grx_host::open_text(adr, name, mode);
    return *file ? grx_host::done : grx_host::failed;
}
