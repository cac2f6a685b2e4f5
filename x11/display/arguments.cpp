// Takes the arguments of X programs out of those of the application, for the application, and keeps their values for the
// library.
#include "display/arguments.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <string_view>

#include "grx_plus_application.h"
#include "grx_plus_erreurs.h"
#include "pure/geometry_text.h"
#include "pure/text.h"
#include "pure/text_out.h"
#include "system/block.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "system/trace.h"
#include "xt_ini_t.h"

namespace {

constexpr std::size_t kValueRoom = 256;
constexpr std::size_t kNameRoom = 80;
constexpr int kKinds = 5; // GRX_ARG_... and, as 0, what adds up

struct Option {
    const char* word;
    int kind;
    std::size_t most; // bytes of its value
};

constexpr int kResource = 0;
constexpr std::array<Option, kKinds> kOptions{{
    {"-xrm", kResource, kValueRoom - 1},
    {"-display", GRX_ARG_DISPLAY, kValueRoom - 1},
    {"-geometry", GRX_ARG_GEOMETRY, kValueRoom - 1},
    {"-name", GRX_ARG_NAME, kNameRoom - 1},
    {"-title", GRX_ARG_TITLE, kValueRoom - 1},
}};

struct Value {
    bool given;
    char text[kValueRoom];
};

struct Given {
    std::array<Value, kKinds> values;
    char program[kNameRoom];
    char refusal[2 * kValueRoom];
    grx::Block<char> resources; // lines, each with its final zero
};

grx::NeverDestroyed<Given> given;

void forget_arguments() {
    given.value.values = {};
    std::memset(given.value.program, 0, sizeof given.value.program);
    std::memset(given.value.refusal, 0, sizeof given.value.refusal);
    given.value.resources.reset();
}

const Option* option_of(const char* word) {
    for (const Option& option : kOptions)
        if (std::strcmp(option.word, word) == 0) return &option;
    return nullptr;
}

bool is_resource_line(std::string_view line) {
    const auto colon = line.find(':');
    return colon != std::string_view::npos && !grx::trimmed(line.substr(0, colon)).empty()
           && line.find('\n') == std::string_view::npos;
}

// What is wrong with a value, null when nothing is.
const char* fault_of(const Option& option, const char* value) {
    if (value == nullptr) return "has no value";
    if (std::strlen(value) > option.most) return "is too long";
    if (option.kind == GRX_ARG_GEOMETRY && !grx::read_geometry(value)) return "is no geometry";
    if (option.kind == GRX_ARG_NAME && *value == '\0') return "is empty";
    if (option.kind == kResource && !is_resource_line(value)) return "is no resource";
    return nullptr;
}

void note_refusal(const Option& option, const char* value, const char* fault) {
    std::snprintf(given.value.refusal, sizeof given.value.refusal, "%s%s%.300s%s %s", option.word,
        value != nullptr ? " '" : "", value != nullptr ? value : "", value != nullptr ? "'" : "", fault);
}

// The arguments as a null ends them, at most `count`.
INT real_count(INT count, char** argv) {
    INT real = 0;
    while (real < count && argv[real] != nullptr) ++real;
    return real;
}

// Calls `taken(option, value)` for each argument of ours and `left(text)` for each other one, in their order. `taken`
// returns false to end it.
template <class Taken, class Left>
bool walk(INT count, char** argv, const Taken& taken, const Left& left) {
    if (count > 0) left(argv[0]);
    bool ours = true;
    for (INT i = 1; i < count; ++i) {
        ours = ours && std::strcmp(argv[i], "--") != 0;
        const Option* const option = ours ? option_of(argv[i]) : nullptr;
        if (option == nullptr) {
            left(argv[i]);
            continue;
        }
        if (!taken(*option, ++i < count ? argv[i] : nullptr)) return false;
    }
    return true;
}

// The bytes that the resources take; less than 0 when a value is refused.
int64_t look_at(INT count, char** argv) {
    int64_t bytes = 0;
    const auto taken = [&](const Option& option, const char* value) {
        const char* const fault = fault_of(option, value);
        if (fault != nullptr) note_refusal(option, value, fault);
        if (fault == nullptr && option.kind == kResource) bytes += static_cast<int64_t>(grx::view(value).size()) + 1;
        return fault == nullptr;
    };
    return walk(count, argv, taken, [](const char*) {}) ? bytes : -1;
}

// Keeps the values and closes up the rest; returns how many arguments remain.
INT take_all(INT count, char** argv, std::size_t resources) {
    INT remaining = 0;
    const auto taken = [&](const Option& option, const char* value) {
        if (option.kind == kResource) {
            const std::size_t bytes = std::strlen(value) + 1;
            std::memcpy(given.value.resources.data() + resources, value, bytes);
            resources += bytes;
        } else {
            Value& kept = given.value.values[static_cast<std::size_t>(option.kind)];
            kept.given = true;
            grx::copy_text(kept.text, value);
        }
        return true;
    };
    walk(count, argv, taken, [&](char* text) { argv[remaining++] = text; });
    return remaining;
}

void note_program(const char* path) {
    const std::string_view whole = grx::view(path);
    grx::copy_text(given.value.program, whole.substr(whole.rfind('/') + 1));
}

INT refuse(INT code, const char* argument) {
    grx::copy_text(given.value.refusal, code == GRX_ECHEC_OCCUPE ? "the library is started" : "no arguments");
    return grx::refused(code, argument);
}

} // namespace

namespace grx {

const char* given_argument(int which) {
    const Value& value = given.value.values[static_cast<std::size_t>(which)];
    return value.given ? value.text : nullptr;
}

const char* program_name() {
    return given.value.program;
}

void put_given_resources(XrmDatabase database) {
    if (database == nullptr) return;
    const Block<char>& lines = given.value.resources;
    for (std::size_t at = 0; at < lines.size(); at += std::strlen(lines.data() + at) + 1)
        XrmPutLineResource(&database, lines.data() + at);
}

} // namespace grx

extern "C" {

INT grx_arguments(INT* argc, char** argv) {
    grx::at_shut_down(forget_arguments);
    if (argc == nullptr || argv == nullptr || *argc < 0) return refuse(GRX_ECHEC_PARAMETRE, "argc, argv");
    if (x11_disp != nullptr) return refuse(GRX_ECHEC_OCCUPE, "argv");
    given.value.refusal[0] = '\0';
    const INT count = real_count(*argc, argv);
    const int64_t more = look_at(count, argv);
    if (more < 0) return grx::refused(GRX_ECHEC_FORMAT, "argv");
    const std::size_t before = given.value.resources.size();
    if (more > 0 && !given.value.resources.resize(before + static_cast<std::size_t>(more))) {
        grx::copy_text(given.value.refusal, "no memory");
        return GRX_ECHEC_MEMOIRE;
    }
    if (count > 0) note_program(argv[0]);
    const INT remaining = take_all(count, argv, before);
    if (remaining < *argc) argv[remaining] = nullptr;
    *argc = remaining;
    return 1;
}

INT grx_recup_texte_arguments(char* texte, INT taille) {
    return grx::give_text(given.value.refusal, texte, taille);
}

INT grx_recup_argument(INT quel, char* texte, INT taille) {
    if (quel < GRX_ARG_DISPLAY || quel > GRX_ARG_TITLE) return grx::refused(GRX_ECHEC_PARAMETRE, "quel", quel);
    const char* const text = grx::given_argument(quel);
    if (text == nullptr) return GRX_ECHEC_ABSENT;
    return grx::give_text(text, texte, taille);
}
}
