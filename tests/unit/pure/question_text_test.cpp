// A question and the labels of its buttons, cut out of one text.
#include "pure/question_text.h"

#include <gtest/gtest.h>

#include <string>

namespace grxtest {
namespace {

struct Cut {
    const char* text;
    grx::QuestionParts parts;
};

class QuestionParts : public testing::TestWithParam<Cut> {};

TEST_P(QuestionParts, AreCutAtTheSeparator) {
    EXPECT_EQ(grx::question_parts(GetParam().text), GetParam().parts) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(All, QuestionParts,
    testing::Values(Cut{"Replace File? -Yes -No", {"Replace File?", "Yes", "No"}}, Cut{"", {"", "", ""}},
        Cut{"Sure?", {"Sure?", "", ""}}, Cut{"Sure?-Yes-No", {"Sure?", "Yes", "No"}},
        Cut{"Sure? -Yes", {"Sure?", "Yes", ""}}, Cut{"On-line? -Yes -No", {"On-line?", "Yes", "No"}},
        Cut{"On-line? -Yes-yes -No-no", {"On-line?", "Yes-yes", "No-no"}},
        Cut{"  Sure?   -  Yes  - No  ", {"Sure?", "Yes", "No"}}, Cut{"a -b -c -d", {"a", "b", "c"}},
        Cut{"a-b-c-d", {"a", "b", "c"}}, Cut{" -Yes -No", {"", "Yes", "No"}}, Cut{"-", {"", "", ""}},
        Cut{" - - ", {"", "", ""}}, Cut{"a --b", {"a", "-b", ""}}));

TEST(QuestionPartsAlone, AreKnownWhenCompiling) {
    static_assert(grx::question_parts("a -b -c")[2] == "c");
}

} // namespace
} // namespace grxtest
