// A question and the labels of its buttons in one text: "Replace File? -Yes -No".
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "pure/text.h"

namespace grx {

inline constexpr std::size_t kQuestionParts = 3; // question, yes, no

using QuestionParts = std::array<std::string_view, kQuestionParts>;

/// Cut at " -" where that occurs, else at '-'; blanks around a part do not count. A part that is missing is empty, what
/// follows the last is left out.
constexpr QuestionParts question_parts(std::string_view text) {
    constexpr std::string_view spaced = " -", bare = "-";
    const std::string_view separator = text.find(spaced) != std::string_view::npos ? spaced : bare;
    QuestionParts parts{};
    for (auto& part : parts) {
        const auto end = text.find(separator);
        part = trimmed(text.substr(0, end));
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + separator.size());
    }
    return parts;
}

} // namespace grx
