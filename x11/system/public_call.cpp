// Finds out which public function the application is in, for the trace.
#include "system/public_call.h"

#include <dlfcn.h>
#include <execinfo.h>
#include <sys/auxv.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace grx {

namespace {

constexpr int kDeepest = 256;
constexpr int kPlaces = 4; // of a call without a name

struct Stack {
    std::array<void*, kDeepest> addresses{};
    int depth = backtrace(addresses.data(), kDeepest);
};

struct Frame {
    uintptr_t address = 0;
    Dl_info info{};

    // A return address may be the first of the next function.
    explicit Frame(const void* returns) : address(reinterpret_cast<uintptr_t>(returns) - 1) {
        if (dladdr(reinterpret_cast<void*>(address), &info) == 0) info = Dl_info{};
    }
    const char* name() const { return info.dli_sname != nullptr ? info.dli_sname : ""; }
    const char* file() const { return info.dli_fname != nullptr ? info.dli_fname : ""; }
    uintptr_t offset() const { return address - reinterpret_cast<uintptr_t>(info.dli_fbase); }
};

const void* object_of(const void* address) {
    Dl_info info{};
    return dladdr(address, &info) != 0 ? info.dli_fbase : nullptr;
}

bool begins(const char* text, const char* start) {
    return std::strncmp(text, start, std::strlen(start)) == 0;
}

// The object that the library is part of: its own, or the program's, which has functions of the application as well.
struct Home {
    const void* base = object_of(reinterpret_cast<const void*>(&public_call));
    bool shared = base != object_of(reinterpret_cast<const void*>(getauxval(AT_ENTRY)));

    bool has(const Frame& frame) const { return frame.info.dli_fbase == base; }
    bool is_public(const Frame& frame) const { return shared ? frame.name()[0] != '\0' : begins(frame.name(), "grx_"); }
};

bool of_toolkit(const Frame& frame) {
    return std::strstr(frame.file(), "/libX") != nullptr || std::strstr(frame.file(), "/libxcb") != nullptr;
}

void set_name(PublicCall& call, const char* name) {
    std::snprintf(call.name.data(), call.name.size(), "%s", name);
}

// One run of frames of the home, from the inside outward; `at` goes to the first beyond it.
PublicCall through_home(const Stack& stack, int& at, const Home& home) {
    PublicCall call;
    for (; at < stack.depth; ++at) {
        const Frame frame(stack.addresses[static_cast<std::size_t>(at)]);
        if (!home.has(frame)) {
            call.direct = !of_toolkit(frame);
            return call;
        }
        if (home.is_public(frame)) set_name(call, frame.name());
    }
    call.direct = true;
    return call;
}

void skip_others(const Stack& stack, int& at, const Home& home) {
    while (at < stack.depth && !home.has(Frame(stack.addresses[static_cast<std::size_t>(at)]))) ++at;
}

// For a program that exports no names: where the innermost calls stand in it.
void set_places(PublicCall& call, const Stack& stack, const Home& home) {
    std::size_t length = 0;
    call.direct = true;
    for (int at = 1, told = 0; at < stack.depth && told < kPlaces && length < call.name.size(); ++at) {
        const Frame frame(stack.addresses[static_cast<std::size_t>(at)]);
        if (!home.has(frame)) continue;
        const char* const between = told++ > 0 ? " < " : "program at ";
        length += static_cast<std::size_t>(std::snprintf(call.name.data() + length, call.name.size() - length,
            "%s0x%lx", between, static_cast<unsigned long>(frame.offset())));
    }
}

} // namespace

PublicCall public_call() {
    static const Home home;
    const Stack stack;
    bool first = true;
    int at = 0;
    skip_others(stack, at, home); // what stands in front of backtrace()
    for (; at < stack.depth; skip_others(stack, at, home)) {
        PublicCall call = through_home(stack, at, home);
        if (call.direct && call.name[0] != '\0') {
            call.direct = first;
            return call;
        }
        first = false;
    }
    PublicCall unnamed;
    if (!home.shared) set_places(unnamed, stack, home);
    return unnamed;
}

} // namespace grx
