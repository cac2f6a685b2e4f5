// The pictures of messages.
#include "pure/message_icons.h"

#include <array>
#include <cstddef>
#include <set>

#include "gtest/gtest.h"

namespace {

using grx::IconLayer;
using grx::MessageKind;

constexpr std::array<MessageKind, 4> kKinds{
    MessageKind::Information, MessageKind::Warning, MessageKind::Error, MessageKind::Question};

TEST(MessageIcons, HaveAllLayersAndClearCorners) {
    constexpr int side = 100;
    for (const MessageKind kind : kKinds) {
        std::array<int, 4> count{};
        for (int i = 0; i < side * side; ++i)
            ++count[static_cast<std::size_t>(grx::icon_layer(kind, (i % side + 0.5) / side, (i / side + 0.5) / side))];
        for (const int share : count) EXPECT_GT(share, side * side / 50) << static_cast<int>(kind);
        for (const double x : {0.01, 0.99})
            for (const double y : {0.01, 0.99}) EXPECT_EQ(grx::icon_layer(kind, x, y), IconLayer::Background);
    }
}

TEST(MessageIcons, DifferFromEachOther) {
    std::set<std::size_t> seen;
    for (const MessageKind kind : kKinds) {
        std::size_t picture = 0;
        for (int i = 0; i < 1600; ++i)
            picture = picture * 31
                      + static_cast<std::size_t>(grx::icon_layer(kind, (i % 40 + 0.5) / 40, (i / 40 + 0.5) / 40));
        seen.insert(picture);
    }
    EXPECT_EQ(seen.size(), kKinds.size());
}

} // namespace
