// Addresses of dropped files and the paths in them.
#include "pure/uri_list.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace {

std::optional<std::string> path(const std::string& uri, const std::string& host = "drawer.example.org") {
    std::string out(uri.size() + 1, '#');
    if (!grx::path_of_uri(uri, host, out.data())) return {};
    return out.substr(0, out.find('\0'));
}

TEST(UriList, LinesWithoutCommentsAndEmptyOnes) {
    std::string_view list = "# first\r\na\r\n\r\n  b c \n#x\n\n\r\nlast";
    std::vector<std::string> found;
    for (auto uri = grx::take_uri(list); !uri.empty(); uri = grx::take_uri(list)) found.emplace_back(uri);
    EXPECT_EQ(found, (std::vector<std::string>{"a", "b c", "last"}));
    EXPECT_TRUE(list.empty());
}

struct Row {
    const char* uri;
    std::optional<std::string> path;
};
const Row rows[]{
    {"file:///a/b.dxf", "/a/b.dxf"},
    {"file:/a", "/a"},
    {"FILE:///A", "/A"},
    {"file://localhost/a", "/a"},
    {"file://LocalHost/a", "/a"},
    {"file://drawer.example.org/a", "/a"},
    {"file://drawer/a", "/a"},
    {"file:///a%20b%C3%A9%2f", "/a b\xC3\xA9/"},
    {"file:///%41%4", "/A%4"},
    {"file:///%", "/%"},
    {"file:///%zz%2", "/%zz%2"},
    {"file:///", "/"},
    {"file:///a%00b", {}},
    {"file://other/a", {}},
    {"file://drawer", {}},
    {"file://", {}},
    {"file:", {}},
    {"file:a", {}},
    {"fil", {}},
    {"", {}},
    {"http://x/a", {}},
    {"/a", {}},
};

TEST(UriList, PathsOfThisComputer) {
    for (const Row& row : rows) EXPECT_EQ(path(row.uri), row.path) << row.uri;
    EXPECT_EQ(path("file:///a", ""), "/a");
    EXPECT_EQ(path("file://b/a", ""), std::nullopt);
}

} // namespace
