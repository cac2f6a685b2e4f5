// A customer in C++ that brings an allocator of its own: the library must use it, and take all else from the default
// host. It also names a function of Xt, after which Motif's vendor shell must still be the one that is used.
#include "host_f.h"
#include "xt_f.h"

#include <X11/Intrinsic.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>

static int own_allocations = 0;

extern "C" char* mallocC(UNSIGNED_INT taille) {
    ++own_allocations;
    return static_cast<char*>(std::malloc(taille));
}

static bool motif_comes_before_xt() {
    Dl_info where{};
    const void* record = dlsym(RTLD_DEFAULT, "vendorShellClassRec");
    return record && dladdr(record, &where) && std::strstr(where.dli_fname, "libXm");
}

int main() {
    XtToolkitInitialize();
    char* block = grx_malloc(10);
    if (!block || own_allocations != 1) return std::puts("the customer's own mallocC is not used"), 1;
    grx_free(block, 10);
    if (!motif_comes_before_xt()) return std::puts("Xt's vendor shell stands before Motif's"), 1;
    return grx_erreur(8);
}
