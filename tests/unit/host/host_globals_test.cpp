// The default host's globals, and how an application's own definitions win over the default ones.
#include <gtest/gtest.h>

#include "tests/support/heap.h"
#include "tests/unit/c_text.h"

#include "host_f.h"
#include "host_g.h"

#include <algorithm>
#include <array>

// This program's own: the linker takes it, and mallocC, freeC and reallocC of the test heap, instead of the default ones.
INT Itbl = 4;

namespace grxtest {
namespace {

TEST(HostGlobals, ListsHaveNoEntries) {
    for (INT list : {0, 7, HOST_NB_LISTES - 1}) {
        EXPECT_EQ(lcstate[list], nullptr);
        EXPECT_EQ(listate[list], 0);
        EXPECT_EQ(lnstate[list], 0);
        EXPECT_EQ(lsstate[list], nullptr);
    }
}

TEST(HostGlobals, StateIsZero) {
    EXPECT_TRUE(std::all_of(std::begin(istate), std::end(istate), [](INT value) { return value == 0; }));
    EXPECT_EQ(istate[IST_MODULE_MENU], 0);
    EXPECT_EQ(std::size(caracs_entree), 8U);
    for (const auto& table : Taffiche) {
        EXPECT_EQ(table.nb_choix, 0);
        EXPECT_EQ(table.tbou_choix, nullptr);
    }
}

TEST(HostGlobals, NoOutputDeviceIsChosen) {
    EXPECT_EQ(device_output, HOST_SORTIE_AUCUNE);
    EXPECT_NE(device_output, 0);
}

TEST(HostOverride, OwnFunctionAndOwnGlobalWin) {
    const auto before = heap().blocks();
    char* const block = mallocC(5);
    EXPECT_EQ(heap().blocks(), before + 1);
    freeC(block, 5);
    EXPECT_EQ(heap().blocks(), before);
    EXPECT_EQ(Itbl, 4);
}

TEST(HostOverride, NeighboursStayTheDefaults) {
    std::array<char, 4> text{};
    EXPECT_EQ(str_trim(text.data(), in(" a ")), 1);
    EXPECT_EQ(memcpyC(text.data(), in("bc"), 2), 0);
    EXPECT_STREQ(text.data(), "bc");
}

TEST(HostOverride, DefaultsUseTheApplicationsAllocator) {
    const auto before = heap().allocations();
    STRING text{};
    string_realloc(&text, in("abc"));
    EXPECT_EQ(heap().allocations(), before + 1);
    freeC(text.str, static_cast<UNSIGNED_INT>(text.taille));
}

} // namespace
} // namespace grxtest
