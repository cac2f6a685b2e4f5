// The main program of every test executable: guards that hold for each single test.
#include "tests/support/apart.h"
#include "tests/support/heap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

// What the sanitizers do unless the environment says otherwise. The libraries below have no frame pointers: only the slow
// unwinder shows who called them.
extern "C" {
const char* __asan_default_options();
const char* __ubsan_default_options();
const char* __lsan_default_suppressions();
const char* __lsan_default_options();

const char* __asan_default_options() {
    return "detect_stack_use_after_return=1:strict_string_checks=1:fast_unwind_on_malloc=0";
}

const char* __ubsan_default_options() {
    return "print_stacktrace=1:halt_on_error=1";
}

const char* __lsan_default_options() {
    return "print_suppressions=0";
}

// The contexts that grx_init_gc replaces are not freed by design: applications may still hold the one before. It
// allocates nothing else. The second is the toolkit's: a message box lays its children out in a matrix of its own, which it
// loses when a child asks for room while it is being managed. The third as well: of each table of fonts that is freed it
// loses eight bytes, as a program shows that makes and frees a font list and nothing else; while the display stays open its
// own tables are still pointed at, after a shut-down they are not. The next two: what the toolkit notes of the selections of
// a display is not freed with it, as a program shows that owns or gives up one selection and closes the display. Then the
// name of a display that could not be opened. Then an option menu does not give back the shared context of its label,
// once when it is made and once for each choice that is set; the toolkit drops the contexts that are in use when a display
// is closed, and the stack tells of whoever asked for that context first. What the library asks for itself it gives
// back in the same function. The last is fontconfig's: its settings, and the patterns of fonts that are open or that cairo
// keeps, hold each other by offsets, which the sanitizer does not take for pointers.
const char* __lsan_default_suppressions() {
    return "leak:grx_init_gc\n"
           "leak:_XmMessageBoxGeoMatrixCreate\n"
           "leak:XmRenderTableAddRenditions\n"
           "leak:XtOwnSelection\n"
           "leak:XtDisownSelection\n"
           "leak:XtOpenDisplay\n"
           "leak:XtAllocateGC\n"
           "leak:libfontconfig\n";
}
}

namespace {

// Tests that may be skipped, as "Suite.name"; any other skip is a failure.
constexpr std::array<std::string_view, 0> permitted_skips{};

bool permitted(const std::string& name) {
    return std::find(permitted_skips.begin(), permitted_skips.end(), name) != permitted_skips.end();
}

class Guards : public testing::EmptyTestEventListener {
  public:
    bool skipped_wrongly() const { return skipped_wrongly_; }

  private:
    void OnTestEnd(const testing::TestInfo& test) override {
        EXPECT_EQ(grxtest::heap().damage(), "");
        const std::string name = std::string(test.test_suite_name()) + "." + test.name();
        if (!test.result()->Skipped() || permitted(name)) return;
        std::printf("%s skipped itself and is not on the list of tests that may\n", name.c_str());
        skipped_wrongly_ = true;
    }

    bool skipped_wrongly_ = false;
};

} // namespace

static int run_tests() {
    auto* guards = new Guards; // gtest owns it
    testing::UnitTest::GetInstance()->listeners().Append(guards);
    const int result = RUN_ALL_TESTS();
    return guards->skipped_wrongly() ? 1 : result;
}

int main(int argc, char** argv) {
    // The leak sanitizer ends the process before buffers are written.
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    const bool apart = grxtest::takes_apart(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return apart ? grxtest::run_apart(run_tests) : run_tests();
}
