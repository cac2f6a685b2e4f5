// The list of icons that have a name.
#include "tests/display/drawing/icon_kit.h"

#include "xt_loc_f.h"

#include <algorithm>
#include <cstring>
#include <ctime>
#include <string>

namespace {

using namespace grxtest;

class NamedIcons : public IconTest {
  protected:
    void SetUp() override {
        IconTest::SetUp();
        EXPECT_EQ(init_tab_icon(), 0);
    }
    void TearDown() override {
        EXPECT_EQ(desalloue_tab_icon(), 0);
        IconTest::TearDown();
    }
    static ENRICON icon(const char* name, int width, int height, int fill) {
        ENRICON record{};
        std::strcpy(record.nom_icon, name);
        record.lar = width;
        record.hau = height;
        record.taille_buffer = static_cast<unsigned>(width * height);
        record.tab_pix = reinterpret_cast<uchar*>(grx_malloc(record.taille_buffer));
        std::memset(record.tab_pix, fill, record.taille_buffer);
        record.suiv = reinterpret_cast<SICON*>(0x5A);
        return record;
    }
    static INT find(const char* name, ENRICON** found) {
        std::string text = name;
        return cherche_icon(text.data(), found);
    }
};

TEST_F(NamedIcons, FirstOfANameIsFoundThenTheCache) {
    const NoLeak no_leak;
    const ENRICON first = icon("save", 4, 3, 1), second = icon("save", 8, 8, 2), other = icon("open", 2, 2, 3);
    EXPECT_EQ(append_icon(first), 0);
    EXPECT_EQ(append_icon(second), 0);
    EXPECT_EQ(append_icon(other), 0);
    ENRICON* in_list = nullptr;
    ASSERT_EQ(find("save", &in_list), 1);
    EXPECT_STREQ(in_list->nom_icon, "save");
    EXPECT_EQ(in_list->tab_pix, first.tab_pix);
    EXPECT_EQ(in_list->lar, 4);
    EXPECT_EQ(in_list->hau, 3);
    EXPECT_NE(in_list->suiv, nullptr);
    ENRICON* cached = nullptr;
    ASSERT_EQ(find("save", &cached), 1);
    EXPECT_NE(cached, in_list);
    EXPECT_EQ(cached->tab_pix, first.tab_pix);
    EXPECT_EQ(cached->taille_buffer, 12U);
    ENRICON* third = nullptr;
    ASSERT_EQ(find("open", &third), 1);
    EXPECT_EQ(third->tab_pix, other.tab_pix);
    EXPECT_EQ(third->suiv, nullptr);
    ASSERT_EQ(find("save", &third), 1);
    EXPECT_EQ(third, in_list); // the cache holds "open" now
    EXPECT_EQ(desalloue_tab_icon(), 0);
}

TEST_F(NamedIcons, UnknownNamesLeaveTheResult) {
    ENRICON mark{};
    ENRICON* found = &mark;
    EXPECT_EQ(find("none", &found), 0);
    EXPECT_EQ(find("", &found), 0);
    EXPECT_EQ(append_icon(icon("a", 1, 1, 1)), 0);
    EXPECT_EQ(find("none", &found), 0);
    EXPECT_EQ(find("A", &found), 0);
    EXPECT_EQ(find("", &found), 0);
    EXPECT_EQ(found, &mark);
    EXPECT_EQ(cherche_icon(nullptr, &found), 0);
}

TEST_F(NamedIcons, FreeingEmptiesListAndCache) {
    const NoLeak no_leak;
    EXPECT_EQ(desalloue_tab_icon(), 0);
    ENRICON* found = nullptr;
    EXPECT_EQ(append_icon(icon("a", 3, 3, 1)), 0);
    EXPECT_EQ(find("a", &found), 1);
    EXPECT_EQ(desalloue_tab_icon(), 0);
    found = nullptr;
    EXPECT_EQ(find("a", &found), 0);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(desalloue_tab_icon(), 0);
}

TEST_F(NamedIcons, ShortageLeavesTheList) {
    const NoLeak no_leak;
    EXPECT_EQ(append_icon(icon("a", 3, 3, 1)), 0);
    ENRICON b = icon("b", 2, 2, 2);
    heap().fail_at(1);
    EXPECT_EQ(append_icon(b), 1);
    heap().fail_never();
    ENRICON* found = nullptr;
    EXPECT_EQ(find("b", &found), 0);
    EXPECT_EQ(find("a", &found), 1);
    EXPECT_EQ(found->suiv, nullptr);
    grx_free(reinterpret_cast<char*>(b.tab_pix), b.taille_buffer); // still the caller's
    desalloue_tab_icon();
}

double processor_seconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// Blocks of a thousand. The best of the first five, or of the last: what another process disturbs is not counted.
TEST_F(NamedIcons, TheLastOfManyIsAppendedAsQuicklyAsTheFirst) {
    constexpr int blocks = 30, looked_at = 5;
    double first = 1e9, last = 1e9;
    for (int block = 0; block < blocks; ++block) {
        const double start = processor_seconds();
        for (int i = 0; i < 1000; ++i) {
            ENRICON record{};
            record.nom_icon[0] = 'i';
            append_icon(record);
        }
        const double taken = processor_seconds() - start;
        if (block < looked_at) first = std::min(first, taken);
        if (block >= blocks - looked_at) last = std::min(last, taken);
    }
    EXPECT_LT(last, 6 * first);
}

TEST_F(NamedIcons, AfterAnEndThatIsGoneTheListBeginsAnew) {
    EXPECT_EQ(append_icon(icon("a", 1, 1, 1)), 0);
    EXPECT_EQ(append_icon(icon("b", 1, 1, 1)), 0);
    EXPECT_EQ(desalloue_tab_icon(), 0);
    EXPECT_EQ(append_icon(icon("c", 1, 1, 1)), 0);
    EXPECT_EQ(append_icon(icon("d", 1, 1, 1)), 0);
    ENRICON* found = nullptr;
    EXPECT_EQ(find("a", &found), 0);
    EXPECT_EQ(find("c", &found), 1);
    EXPECT_STREQ(found->suiv->nom_icon, "d");
}

} // namespace
