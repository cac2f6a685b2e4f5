// The texts of accelerators, taken apart.
#include <gtest/gtest.h>

#include "pure/menu_line.h"

#include <cstring>
#include <string>
#include <vector>

namespace grxtest {
namespace {

TEST(AcceleratorText, EndsAtTheFirstComma) {
    EXPECT_EQ(grx::first_accelerator("Ctrl+W,Ctrl+F4"), "Ctrl+W");
    EXPECT_EQ(grx::first_accelerator(" F5 "), "F5");
    EXPECT_EQ(grx::first_accelerator(" F5 , F6"), "F5");
    EXPECT_EQ(grx::first_accelerator(",F6"), "");
    EXPECT_EQ(grx::first_accelerator(""), "");
}

TEST(AcceleratorText, LastPlusDividesModifiersFromTheKey) {
    const std::vector<std::array<std::string, 3>> texts{{"F5", "", "F5"}, {"Ctrl+S", "Ctrl", "S"},
        {"Ctrl + S", "Ctrl", "S"}, {"Ctrl+Shift+S", "Ctrl+Shift", "S"}, {"Ctrl++", "Ctrl", "+"}, {"+", "", "+"},
        {"", "", ""}};
    for (const auto& [text, modifiers, key] : texts) {
        EXPECT_EQ(grx::split_accelerator(text).modifiers, modifiers) << text;
        EXPECT_EQ(grx::split_accelerator(text).key, key) << text;
    }
}

} // namespace
} // namespace grxtest
