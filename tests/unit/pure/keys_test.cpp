// Classes of keysyms.
#include <gtest/gtest.h>

#include "pure/keys.h"

#include <X11/keysym.h>

#include <vector>

namespace grxtest {
namespace {

using grx::classify_key;
using grx::KeyClass;

void expect_range(unsigned first, unsigned last, KeyClass expected) {
    for (unsigned key = first; key <= last; ++key) EXPECT_EQ(classify_key(key), expected) << std::hex << key;
}

TEST(Keys, FunctionKeysAreThemselves) {
    expect_range(XK_F1, XK_F35, KeyClass::Itself);
    EXPECT_EQ(XK_F35, 0xFFE0);
    EXPECT_EQ(classify_key(XK_F1 - 1), KeyClass::Character);
}

TEST(Keys, CursorKeysAreThemselves) {
    for (const unsigned key :
        {XK_Home, XK_Left, XK_Up, XK_Right, XK_Down, XK_Prior, XK_Next, XK_End, XK_Delete, XK_Insert})
        EXPECT_EQ(classify_key(key), KeyClass::Itself) << std::hex << key;
    expect_range(0xFF58, 0xFF5F, KeyClass::Untaken);
}

TEST(Keys, TabAndBackTabHaveTheirOwnClasses) {
    EXPECT_EQ(classify_key(XK_Tab), KeyClass::Tab);
    EXPECT_EQ(classify_key(0x1000FF74), KeyClass::BackTab);
    EXPECT_EQ(classify_key(XK_ISO_Left_Tab), KeyClass::Character);
}

TEST(Keys, ModifiersGiveNothing) {
    expect_range(0xFFE1, 0xFFEE, KeyClass::Untaken);
    EXPECT_EQ(classify_key(XK_Mode_switch), KeyClass::Untaken);
    EXPECT_EQ(classify_key(XK_Num_Lock), KeyClass::Untaken);
}

TEST(Keys, SelectToBreakGiveNothingButInsert) {
    for (unsigned key = 0xFF60; key <= 0xFF6B; ++key)
        EXPECT_EQ(classify_key(key), key == XK_Insert ? KeyClass::Itself : KeyClass::Untaken) << std::hex << key;
    EXPECT_EQ(classify_key(0xFF6C), KeyClass::Character);
}

TEST(Keys, AnythingElseIsACharacter) {
    for (const unsigned key : {unsigned{XK_a}, unsigned{XK_Return}, unsigned{XK_Escape}, unsigned{XK_BackSpace},
             unsigned{XK_eacute}, unsigned{XK_KP_1}, unsigned{XK_EuroSign}, 0U, 0xFFFFFFFFU, 0xFFEFU})
        EXPECT_EQ(classify_key(key), KeyClass::Character) << std::hex << key;
}

} // namespace
} // namespace grxtest
