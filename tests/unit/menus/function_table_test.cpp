// The table of function numbers: against a plain map, and with memory short.
#include "menus/function_table.h"

#include "tests/support/heap.h"

#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace grxtest;

Widget widget(std::uintptr_t number) {
    return reinterpret_cast<Widget>(16 * number + 16);
}

std::vector<Widget> entries_of(grx::FunctionTable& table, INT number) {
    std::vector<Widget> widgets;
    if (const grx::MenuFunction* f = table.find(number))
        table.for_each_entry(*f, [&](const grx::MenuEntry& e) { widgets.push_back(e.widget); });
    return widgets;
}

TEST(FunctionTable, HoldsWhatAMapHolds) {
    const NoLeak no_leak;
    grx::FunctionTable table;
    std::map<INT, std::vector<std::pair<Widget, int>>> expected;
    std::mt19937 random(1);
    for (std::uintptr_t step = 0; step < 20000; ++step) {
        const INT number = static_cast<INT>(random() % 300) - 20;
        auto& of_number = expected[number];
        if (random() % 5 < 3) {
            of_number.emplace_back(widget(step), table.add_entry(number, widget(step)));
            ASSERT_TRUE(table.holds(of_number.back().second));
        } else if (!of_number.empty()) {
            const auto gone = of_number.begin() + static_cast<std::ptrdiff_t>(random() % of_number.size());
            table.remove_entry(gone->second);
            ASSERT_FALSE(table.holds(gone->second));
            of_number.erase(gone);
        }
    }
    for (const auto& [number, entries] : expected) {
        std::vector<Widget> widgets;
        for (const auto& [w, place] : entries) widgets.push_back(w);
        EXPECT_EQ(entries_of(table, number), widgets) << number;
        EXPECT_EQ(table.find(number) == nullptr, widgets.empty());
    }
    for (const auto& [number, entries] : expected)
        for (const auto& [w, place] : entries) table.remove_entry(place);
}

TEST(FunctionTable, KeepsNumbersThatHaveASettingOnly) {
    const NoLeak no_leak;
    grx::FunctionTable table;
    for (const INT number : {0, -1, INT_MIN, INT_MAX}) {
        grx::MenuFunction* f = table.find_or_add(number);
        ASSERT_NE(f, nullptr);
        f->renamed.is_set = true;
        ASSERT_TRUE(grx::FunctionTable::set_text(*f, "text"));
        table.drop_if_unused(number);
        ASSERT_NE(table.find(number), nullptr);
        EXPECT_STREQ(table.find(number)->text, "text");
        const int place = table.add_entry(number, widget(1));
        table.remove_entry(place);
        table.remove_entry(place);
        EXPECT_NE(table.find(number), nullptr);
    }
    table.for_each_function([&](grx::MenuFunction& f) {
        f.renamed = {};
        table.drop_if_unused(f.number);
    });
    EXPECT_EQ(table.find(0), nullptr);
    for (const int place : {-1, 0, 5, INT_MAX, INT_MIN}) {
        EXPECT_FALSE(table.holds(place));
        table.remove_entry(place);
    }
}

TEST(FunctionTable, ShortageOfMemoryChangesNothing) {
    fail_each_allocation([] {
        const NoLeak no_leak;
        grx::FunctionTable table;
        std::vector<int> places;
        for (INT number = 0; number < 300; ++number) {
            const int place = table.add_entry(number, widget(1));
            EXPECT_EQ(place >= 0, table.find(number) != nullptr) << number;
            if (place >= 0) places.push_back(place);
        }
        for (const int place : places) table.remove_entry(place);
    });
}

// Twice the numbers, entries all of one number or each of its own: twice the time and not four times.
TEST(FunctionTable, TimeGrowsWithTheEntries) {
    const auto microseconds = [](int entries, bool shared) {
        std::vector<int> places;
        auto best = std::chrono::steady_clock::duration::max();
        for (int round = 0; round < 7; ++round) {
            grx::FunctionTable table;
            places.clear();
            const auto start = std::chrono::steady_clock::now();
            for (int i = 0; i < entries; ++i) places.push_back(table.add_entry(shared ? 1 : i, widget(1)));
            for (const int place : places) table.remove_entry(place);
            best = std::min(best, std::chrono::steady_clock::now() - start);
        }
        return static_cast<double>(std::chrono::duration_cast<std::chrono::nanoseconds>(best).count()) / 1000.0;
    };
    for (const bool shared : {false, true})
        EXPECT_LT(microseconds(40000, shared), 3.2 * microseconds(20000, shared) + 500) << shared;
}

} // namespace
