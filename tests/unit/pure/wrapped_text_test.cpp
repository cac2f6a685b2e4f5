// Lines broken at blanks.
#include "pure/wrapped_text.h"

#include <string>

#include "gtest/gtest.h"

namespace {

struct Wrapped {
    std::string text;
    std::size_t lines;
    bool operator==(const Wrapped&) const = default;
};

// Ten characters fit.
Wrapped wrapped(const std::string& text, std::size_t most = 100) {
    std::string out(2 * text.size() + 1, 'Z');
    const std::size_t lines = grx::wrap_text(
        text, most, [](std::string_view piece) { return piece.size() <= 10; }, out.data());
    return {out.c_str(), lines};
}

TEST(WrappedText, BreaksAtBlanks) {
    EXPECT_EQ(wrapped(""), (Wrapped{"", 1}));
    EXPECT_EQ(wrapped("short"), (Wrapped{"short", 1}));
    EXPECT_EQ(wrapped("just a few words"), (Wrapped{"just a few\nwords", 2}));
    EXPECT_EQ(wrapped("two\n\nlines\n"), (Wrapped{"two\n\nlines\n", 4}));
    EXPECT_EQ(wrapped("ten chars   more"), (Wrapped{"ten chars \nmore", 2}));
}

TEST(WrappedText, CutsWordsThatAreTooLong) {
    EXPECT_EQ(wrapped("abcdefghijklmnopqrstuvwxyz"), (Wrapped{"abcdefghij\nklmnopqrst\nuvwxyz", 3}));
    EXPECT_EQ(wrapped("a bcdefghijklmnop"), (Wrapped{"a\nbcdefghijk\nlmnop", 3}));
    EXPECT_EQ(wrapped("abcdef", 2), (Wrapped{"ab\ncd\nef", 3}));
    EXPECT_EQ(wrapped("abc", 1), (Wrapped{"a\nb\nc", 3}));
}

} // namespace
