// Cuts a text like "Replace File? -Yes -No" into a question and the labels of its buttons, for question dialogs.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "pure/text.h"

namespace grx {

inline constexpr std::size_t kQuestionParts = 3; // question, yes, no

using QuestionParts = std::array<std::string_view, kQuestionParts>;

/// Cuts at " -" when the text has that, else at '-', and takes the blanks off the parts. A missing part is empty. What
/// follows the third is dropped.
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
