// Columns of lists: measured, and given to the toolkit as the tab stops of a list's own font table.
#include "toolkit/list_columns.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "pure/text.h"
#include "system/block.h"
#include "system/shut_down.h"
#include "fonts/interface_font.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "xt_ini_f.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

constexpr INT kGap = 2;      // characters between columns
constexpr INT kLeastGap = 1; // where a text is wider than the column that the application gave it
constexpr std::size_t kMostStops = kMostColumns - 1;
using Stops = std::array<INT, kMostStops>;

// What is known of a list that has columns.
struct Columns {
    Widget list;
    ColumnWidths widths;
    std::size_t given_count;
    Stops given;
    std::size_t shown_count;
    Stops shown; // as the toolkit has them
};
Block<Columns> known;

std::span<Columns> all_known() {
    return known.span();
}

Columns* columns_of(Widget list) {
    const auto all = all_known();
    const auto found = std::find_if(all.begin(), all.end(), [list](const Columns& c) { return c.list == list; });
    return found != all.end() ? &*found : nullptr;
}

void on_list_death(Widget list, XtPointer, XtPointer) {
    if (Columns* const columns = columns_of(list)) *columns = Columns{};
}

void forget_lists() {
    for (const Columns& columns : all_known()) {
        if (columns.list != nullptr) XtRemoveCallback(columns.list, XmNdestroyCallback, on_list_death, nullptr);
    }
    known.reset();
}

// A free line of the table; null when memory is short.
Columns* take_line() {
    if (Columns* const free = columns_of(nullptr)) return free;
    if (!known.resize(known.size() + 1)) return nullptr;
    at_shut_down(forget_lists);
    return &known[known.size() - 1];
}

Columns* columns_made_for(Widget list) {
    if (Columns* const columns = columns_of(list)) return columns;
    Columns* const columns = take_line();
    if (columns == nullptr) return nullptr;
    *columns = Columns{};
    columns->list = list;
    XtAddCallback(list, XmNdestroyCallback, on_list_death, nullptr);
    return columns;
}

INT text_width(std::string_view text) {
    const auto length = static_cast<int>(std::min<std::size_t>(text.size(), INT16_MAX));
    if (!has_interface_font()) return length * grx_recup_lar_carac_alpha();
    return interface_text_width(text.substr(0, static_cast<std::size_t>(length)));
}

// Each column begins behind the widest text before it, or where it is wanted if that is further right.
std::size_t find_stops(const Columns& columns, Stops& stops) {
    const std::size_t measured = columns.widths.count() > 0 ? columns.widths.count() - 1 : 0;
    const std::size_t count = std::min(std::max(measured, columns.given_count), kMostStops);
    INT at = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const bool given = i < columns.given_count;
        at += columns.widths[i] + (given ? kLeastGap : kGap) * grx_recup_lar_carac_alpha();
        if (given) at = std::max(at, columns.given[i]);
        stops[i] = at = std::min<INT>(at, INT16_MAX);
    }
    return count;
}

// -- the toolkit's side

XmTabList tab_list_of(std::span<const INT> stops) {
    std::array<XmTab, kMostStops> tabs{};
    for (std::size_t i = 0; i < stops.size(); ++i) {
        tabs[i] = XmTabCreate(
            static_cast<float>(stops[i]), XmPIXELS, XmABSOLUTE, XmALIGNMENT_BEGINNING, const_cast<char*>("."));
    }
    XmTabList list = XmTabListInsertTabs(nullptr, tabs.data(), static_cast<Cardinal>(stops.size()), 0);
    for (std::size_t i = 0; i < stops.size(); ++i) XmTabFree(tabs[i]);
    return list;
}

XmRenderTable with_tabs(XmRenderTable table, const char* tag, XmTabList tabs) {
    XmRendition font = XmRenderTableGetRendition(table, const_cast<char*>(tag));
    if (font == nullptr) return table;
    Args args;
    args.set(XmNtabList, tabs);
    shared_outline_font(); // by the copy that is made, for the list's table shares its fonts with others
    XmRenditionUpdate(font, args.list(), args.count());
    table = XmRenderTableAddRenditions(table, &font, 1, XmMERGE_REPLACE);
    XmRenditionFree(font);
    return table;
}

// The application's font with these stops.
XmRenderTable font_with_stops(std::span<const INT> stops) {
    XmTabList tabs = tab_list_of(stops);
    XmRenderTable table = with_tabs(XmRenderTableCopy(fontlist, nullptr, 0), kFontTag, tabs);
    if (outline_font() != nullptr) table = with_tabs(table, kGivenTag, tabs);
    XmTabListFree(tabs);
    return table;
}

void show_stops(Columns& columns) {
    Stops stops{};
    const std::size_t count = find_stops(columns, stops);
    if (fontlist == nullptr || (count == columns.shown_count && stops == columns.shown)) return;
    columns.shown = stops;
    columns.shown_count = count;
    XmRenderTable table = font_with_stops(std::span(stops).first(count));
    set_resource(columns.list, XmNrenderTable, table);
    XmRenderTableFree(table);
}

} // namespace

void ColumnWidths::add_line(const char* begin, const char* end) {
    for (std::size_t column = 0; column < kMostColumns; ++column) {
        const char* const tab = std::find(begin, end, '\t');
        const std::string_view cell(begin, static_cast<std::size_t>(tab - begin));
        // the last one pushes nothing
        if (tab != end) widths_[column] = std::max(widths_[column], text_width(cell));
        count_ = std::max(count_, column + 1);
        if (tab == end) return;
        begin = tab + 1;
    }
}

void ColumnWidths::add(const char* text) {
    if (text == nullptr || std::strchr(text, '\t') == nullptr) return;
    std::string_view rest = view(text);
    for (;;) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        add_line(line.data(), line.data() + line.size());
        if (line.size() == rest.size()) return;
        rest.remove_prefix(line.size() + 1);
    }
}

void ColumnWidths::add(const ColumnWidths& other) {
    for (std::size_t i = 0; i < kMostColumns; ++i) widths_[i] = std::max(widths_[i], other.widths_[i]);
    count_ = std::max(count_, other.count_);
}

bool line_up_columns(Widget list, const ColumnWidths& widths, bool all) {
    Columns* const columns = widths.count() > 0 ? columns_made_for(list) : columns_of(list);
    if (columns == nullptr) return widths.count() == 0;
    if (all) columns->widths = ColumnWidths{};
    columns->widths.add(widths);
    show_stops(*columns);
    return true;
}

bool set_column_stops(Widget list, std::span<const INT> stops) {
    Columns* const columns = stops.empty() ? columns_of(list) : columns_made_for(list);
    if (columns == nullptr) return stops.empty();
    columns->given = Stops{};
    columns->given_count = std::min(stops.size(), kMostStops);
    std::copy_n(stops.begin(), columns->given_count, columns->given.begin());
    show_stops(*columns);
    return true;
}

} // namespace grx
