// Reads one line of INI_SYST.DAT and judges values, for the function that sets what the file says.
#include "pure/ini_line.h"

#include "pure/number.h"

#include <algorithm>

namespace grx {

namespace {

constexpr char kCommentSign = '#';
constexpr char kSizeSeparator = 'x';
constexpr std::string_view kSizeClasses = "SML";

} // namespace

std::string_view ini_without_comment(std::string_view line) {
    return line.substr(0, std::min(line.find(kCommentSign), line.size()));
}

std::optional<std::string_view> ini_value(std::string_view line, std::string_view key) {
    const auto text = ini_without_comment(line);
    const auto place = text.find(key);
    if (place == std::string_view::npos) return std::nullopt;
    return text.substr(place + key.size());
}

bool ini_accepts(IniRule rule, int value) {
    switch (rule) {
    case IniRule::positive: return value > 0;
    case IniRule::drawing_count:
        return std::find(kIniDrawingCounts.begin(), kIniDrawingCounts.end(), value) != kIniDrawingCounts.end();
    case IniRule::rendering_count: return value >= kIniRenderingMinimum;
    case IniRule::application_colour: return value >= 0;
    }
    return false;
}

IconSize ini_icon_size(std::string_view value) {
    IconSize size;
    const auto class_index = value.empty() ? std::string_view::npos : kSizeClasses.find(value.front());
    if (class_index != std::string_view::npos) {
        size.size_class = static_cast<int>(class_index) + 1;
        value.remove_prefix(1);
    }
    const auto cross = value.find(kSizeSeparator);
    if (cross == std::string_view::npos) return size;
    size.has_size = true;
    size.width = number_of(value.substr(0, cross));
    size.height = number_of(value.substr(cross + 1));
    return size;
}

} // namespace grx
