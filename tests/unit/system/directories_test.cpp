// Directories of icons and messages, and the working directory.
#include <gtest/gtest.h>

#include "tests/support/heap.h"
#include "tests/support/stdout_capture.h"
#include "tests/support/temp_dir.h"
#include "tests/unit/c_text.h"

#include "xt_ini_f.h"

#include <array>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace grxtest {
namespace {

using Path = std::array<char, HOST_CHEMIN_MAX>;

Path path_of(const std::string& text) {
    Path path{};
    text.copy(path.data(), path.size() - 1);
    return path;
}

class IconDirectory : public testing::Test {
  protected:
    void TearDown() override {
        grx_init_repertoire_icones(in(""));
        grx_affecte_format_icone(0);
    }

    static std::string directory(INT format) {
        grx_affecte_format_icone(format);
        auto path = path_of("?");
        EXPECT_EQ(grx_recup_repertoire_icones(path.data()), 0);
        return path.data();
    }
};

TEST_F(IconDirectory, IsStoredInTheExportedText) {
    EXPECT_EQ(grx_init_repertoire_icones(in("/opt/icons")), 0);
    EXPECT_STREQ(adr_icones, "/opt/icons");
}

TEST_F(IconDirectory, HasSubDirectoriesForFormatsTwoToFour) {
    grx_init_repertoire_icones(in("/opt/icons"));
    EXPECT_EQ(directory(2), "/opt/icons/S");
    EXPECT_EQ(directory(3), "/opt/icons/M");
    EXPECT_EQ(directory(4), "/opt/icons/L");
}

TEST_F(IconDirectory, IsItselfForAllOtherFormats) {
    grx_init_repertoire_icones(in("/opt/icons"));
    for (const INT format : {0, 1, 5, -1, -128, 127}) EXPECT_EQ(directory(format), "/opt/icons") << format;
}

// Deliberate: the class that a size line gives is one below the format that chooses the sub-directory.
TEST_F(IconDirectory, ClassSOfASizeLineUsesTheDirectoryItself) {
    grx_init_repertoire_icones(in("/opt/icons"));
    traite_taille_icone(in("SIZE S16x16"), in("SIZE"));
    EXPECT_EQ(directory(grx_recup_format_icone()), "/opt/icons");
    traite_taille_icone(in("SIZE M16x16"), in("SIZE"));
    EXPECT_EQ(directory(grx_recup_format_icone()), "/opt/icons/S");
    grx_affecte_taille_icone(30, 30);
}

TEST_F(IconDirectory, FinalSlashIsNotDoubled) {
    grx_init_repertoire_icones(in("/opt/icons/"));
    EXPECT_EQ(directory(2), "/opt/icons/S");
}

TEST_F(IconDirectory, EmptyDirectoryGivesTheNameAlone) {
    grx_init_repertoire_icones(nullptr);
    EXPECT_EQ(directory(2), "S");
    EXPECT_EQ(directory(0), "");
}

TEST_F(IconDirectory, IsCutAtItsSize) {
    grx_init_repertoire_icones(in(std::string(254, 'a')));
    EXPECT_EQ(directory(0), std::string(254, 'a'));
    EXPECT_EQ(directory(3), std::string(254, 'a') + "/M");
    grx_init_repertoire_icones(in(std::string(5000, 'b')));
    EXPECT_EQ(directory(0), std::string(254, 'b'));
}

TEST_F(IconDirectory, NullBufferIsNotWritten) {
    grx_affecte_format_icone(2);
    EXPECT_EQ(grx_recup_repertoire_icones(nullptr), 0);
}

struct Split {
    std::string path;
    INT number;
};

Split split(const std::string& text) {
    auto path = path_of(text);
    INT number = -7;
    grx_decompose_adresse_fichier_message(path.data(), &number);
    return {path.data(), number};
}

TEST(MessageDirectory, LanguageNumberIsSplitOff) {
    EXPECT_EQ(split("MSG12").path, "MSG");
    EXPECT_EQ(split("MSG12").number, 12);
    EXPECT_EQ(split("/a1/b2/MSG7").path, "/a1/b2/MSG");
    EXPECT_EQ(split("/a1/b2/MSG7").number, 7);
}

TEST(MessageDirectory, WithoutNumberItIsOne) {
    for (const char* text : {"MSG", "MSG12/", "MSG1a", ""}) {
        EXPECT_EQ(split(text).path, text);
        EXPECT_EQ(split(text).number, 1);
    }
}

TEST(MessageDirectory, NumberMayBeAllThereIs) {
    EXPECT_EQ(split("12").path, "");
    EXPECT_EQ(split("12").number, 12);
    EXPECT_EQ(split("MSG007").number, 7);
    EXPECT_EQ(split("MSG0").number, 0);
    EXPECT_EQ(split("MSG99999999999999999999").path, "MSG");
    EXPECT_EQ(split("MSG99999999999999999999").number, std::atoi("99999999999999999999"));
}

TEST(MessageDirectory, NumberedSubDirectoryIsAppended) {
    auto path = path_of("/opt/msg");
    INT number = 12;
    EXPECT_EQ(grx_recup_repertoire_message(path.data(), &number), 0);
    EXPECT_STREQ(path.data(), "/opt/msg/12");
    EXPECT_EQ(number, 12);
}

TEST(MessageDirectory, NumberOneIsTheDirectoryItself) {
    auto path = path_of("/opt/msg");
    INT number = 1;
    EXPECT_EQ(grx_recup_repertoire_message(path.data(), &number), 0);
    EXPECT_STREQ(path.data(), "/opt/msg");
}

TEST(MessageDirectory, ExtremeNumbersArePrintedAsTheyAre) {
    auto path = path_of("m");
    INT number = INT_MIN;
    grx_recup_repertoire_message(path.data(), &number);
    EXPECT_STREQ(path.data(), "m/-2147483648");
    path = path_of("");
    number = 0;
    grx_recup_repertoire_message(path.data(), &number);
    EXPECT_STREQ(path.data(), "0");
}

TEST(MessageDirectory, NullIsHarmless) {
    INT number = 5;
    auto path = path_of("MSG12");
    EXPECT_EQ(grx_decompose_adresse_fichier_message(nullptr, &number), 0);
    EXPECT_EQ(grx_decompose_adresse_fichier_message(path.data(), nullptr), 0);
    EXPECT_EQ(grx_recup_repertoire_message(nullptr, &number), 0);
    EXPECT_EQ(grx_recup_repertoire_message(path.data(), nullptr), 0);
    EXPECT_EQ(number, 5);
    EXPECT_STREQ(path.data(), "MSG12");
}

// In a directory of its own that holds c:/plans/, and "tmp" when a test makes it.
class WorkingDirectory : public testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::create_directories(dir_.path() / "c:" / "plans");
        std::filesystem::current_path(dir_.path());
    }
    void TearDown() override {
        unsetenv("ZZCUR");
        std::filesystem::current_path(before_);
    }

    void make_tmp() { std::filesystem::create_directory(dir_.path() / "tmp"); }

    // The result, the path and what was printed in one text, such as "0 c:/plans/".
    static std::string answer(const char* value) {
        unsetenv("ZZCUR");
        if (value) setenv("ZZCUR", value, 1);
        const NoLeak check;
        std::array<char, 64> path{};
        path.fill('?');
        StdoutCapture capture;
        const auto result = init_path(path.data());
        return std::to_string(result) + ' ' + path.data() + capture.text();
    }

    TempDir dir_;
    std::filesystem::path before_ = std::filesystem::current_path();
};

TEST_F(WorkingDirectory, IsLoweredAndHasForwardSlashes) {
    EXPECT_EQ(answer("C:\\PLANS"), "0 c:/plans/");
    EXPECT_EQ(answer("C:\\PLANS\\"), "0 c:/plans/");
    EXPECT_EQ(answer("c:/plans/"), "0 c:/plans/");
}

TEST_F(WorkingDirectory, IsTrimmed) {
    EXPECT_EQ(answer(" \tc:/plans  "), "0 c:/plans/");
}

TEST_F(WorkingDirectory, MissingVariableGivesOne) {
    EXPECT_EQ(answer(nullptr), "1 ");
    make_tmp();
    EXPECT_EQ(answer(nullptr), "1 tmp");
}

TEST_F(WorkingDirectory, EmptyValueGivesOne) {
    make_tmp();
    EXPECT_EQ(answer(""), "1 tmp");
    EXPECT_EQ(answer("   "), "1 tmp");
}

TEST_F(WorkingDirectory, UnusableDirectoryGivesTwo) {
    EXPECT_EQ(answer("nowhere"), "2 ");
    make_tmp();
    EXPECT_EQ(answer("nowhere"), "2 tmp");
    dir_.write("file", "");
    EXPECT_EQ(answer("file"), "2 tmp");
}

TEST_F(WorkingDirectory, SixtyCharactersAreTooLong) {
    make_tmp();
    const std::string refused = "GFX ERROR\nCode 6: Environment variable(XXSYS) too long\n";
    EXPECT_EQ(answer(std::string(60, 'a').c_str()), "1 tmp" + refused);
    EXPECT_EQ(answer(std::string(59, 'a').c_str()), "2 tmp");
    EXPECT_EQ(answer((std::string(59, ' ') + "c").c_str()), "1 tmp" + refused);
    EXPECT_EQ(answer(std::string(100000, 'x').c_str()), "1 tmp" + refused);
}

TEST_F(WorkingDirectory, FiftyNineCharactersAndASlashFit) {
    const std::string name(59, 'a');
    std::filesystem::create_directory(dir_.path() / name);
    EXPECT_EQ(answer(name.c_str()), "0 " + name + "/");
}

TEST_F(WorkingDirectory, NamesInUtf8Survive) {
    std::filesystem::create_directory(dir_.path() / "\303\251t\303\251");
    EXPECT_EQ(answer("\303\251T\303\251"), "0 \303\251t\303\251/");
}

TEST_F(WorkingDirectory, ShortMemoryIsAFailureLikeAMissingVariable) {
    setenv("ZZCUR", "c:/plans", 1);
    std::array<char, 64> path{};
    heap().fail_at(1);
    EXPECT_EQ(init_path(path.data()), 1);
    heap().fail_never();
    EXPECT_STREQ(path.data(), "");
}

TEST_F(WorkingDirectory, NullBufferGivesOne) {
    EXPECT_EQ(init_path(nullptr), 1);
}

} // namespace
} // namespace grxtest
