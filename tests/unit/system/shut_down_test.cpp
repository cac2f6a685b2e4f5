#include "system/shut_down.h"

#include <string>

namespace {

std::string called;

void first() {
    called += '1';
}
void second() {
    called += '2';
}

class ShutDownList : public testing::Test {
  protected:
    void SetUp() override { called.clear(); }
};

TEST_F(ShutDownList, TheLastNotedIsCalledFirst) {
    grx::at_shut_down(first);
    grx::at_shut_down(second);
    grx::run_shut_down();
    EXPECT_EQ(called, "21");
}

TEST_F(ShutDownList, NotedTwiceIsCalledOnce) {
    for (int i = 0; i < 100; ++i) grx::at_shut_down(first);
    grx::run_shut_down();
    EXPECT_EQ(called, "1");
}

TEST_F(ShutDownList, IsForgottenWhenCalled) {
    grx::at_shut_down(first);
    grx::run_shut_down();
    grx::run_shut_down();
    EXPECT_EQ(called, "1");
    grx::at_shut_down(first);
    grx::run_shut_down();
    EXPECT_EQ(called, "11");
}

} // namespace
