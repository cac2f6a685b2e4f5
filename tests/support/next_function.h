// The function that a definition in the test program stands in front of.
#pragma once

#include <dlfcn.h>

namespace grxtest {

template <typename Function>
Function* next_function(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace grxtest
