// The functions of the server without a display.
#include <gtest/gtest.h>

#include "xt_ini_t.h"
#include "xt_uti_f.h"

namespace grxtest {
namespace {

TEST(WithoutDisplay, DisplayFunctionsDoNothing) {
    ASSERT_EQ(x11_disp, nullptr);
    grx_bipbip(440, 100);
    grx_flush_server();
    grx_sync_server();
    grx_synchronise(1);
    grx_synchronise(0);
    EXPECT_EQ(x11_disp, nullptr);
}

} // namespace
} // namespace grxtest
